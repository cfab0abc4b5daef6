#include <Utility/containers/pair_runs.h>
#include <Utility/integer_lists.h>

#include <algorithm>
#include <exception>
#include <new>

// The lists of unsigned values: runs as (low, high) pairs.

namespace Torvo {

namespace {

// One object for both kinds of enumerator: the range enumerator is its second base.
//
// `current_` is the member given last and `high_` the end of the run that the walk stands in; both are 0 before the
// start, which looks like the end of a run and so leads on to the first one.
template <typename T>
class PairListEnumeratorImpl : public ZUListEnumerator<T>, public ZUListRangeEnumerator<T> {
public:
    explicit PairListEnumeratorImpl(const PairRuns<T>* runs) : walk_(runs) {}

    bool Next(T& item) override {
        // Far from the end of a run, which is foreseen; near it nobody can guess, so both ways are taken there and one
        // is chosen without a branch.
        if (high_ - current_ >= kNear) {
            item = ++current_;
            return true;
        }
        const Run<T>* const next = walk_.Peek(high_);
        const bool ends = current_ == high_;
        if (next == nullptr) {
            if (ends) return false;
            item = ++current_;
            return true;
        }
        current_ = Choose(ends, next->low, current_ + 1);
        high_ = Choose(ends, next->high, high_);
        walk_.Step(ends);
        item = current_;
        return true;
    }

    // Moves over runs alone: `current_` stays, as a walk over members would need to notice.
    bool Next(T& first, T& last) override {
        const Run<T>* const next = walk_.Peek(high_);
        // Nothing is left for a walk over members either.
        if (next == nullptr) high_ = current_;
        if (next == nullptr) return false;
        first = next->low;
        last = high_ = next->high;
        walk_.Step(true);
        return true;
    }

private:
    static constexpr T kNear = 4;

    static T Choose(bool which, T yes, T no) {
        const T mask = T{0} - static_cast<T>(which);
        return (yes & mask) | (no & ~mask);
    }

    typename PairRuns<T>::Walk walk_;
    T current_ = 0;
    T high_ = 0;
};

template <typename T>
class PairListItemImpl : public ZUListItem<T> {
public:
    explicit PairListItemImpl(const PairRuns<T>* runs) : runs_(runs) {}

    // The comparison with a run's size is strict, so the last ordinal of a run passes on to the next one.
    bool GetItem(uint64 index, T& item) override {
        if (index == 0 || index > runs_->Count()) return false;
        uint64 rest = index;
        const auto at = runs_->Pass(rest);
        if (!runs_->AtEnd(at)) item = static_cast<T>(runs_->At(at).low + rest - 1);
        return true;
    }

private:
    const PairRuns<T>* runs_;
};

template <typename T>
class PairListImpl : public ZUList<T> {
public:
    PairListImpl() = default;

    bool Add(const T& item) override {
        return Changed([&] { runs_.Add(item); });
    }

    bool AddRange(const T& a, const T& b) override {
        if (a == b) return false;
        return Changed([&] { runs_.AddRange(std::min(a, b), std::max(a, b)); });
    }

    bool Remove(const T& item) override {
        return Changed([&] { runs_.Remove(item); });
    }

    bool Clear() override {
        runs_.Clear();
        return true;
    }

    bool Member(const T& item) override { return runs_.Member(item); }

    bool MinMax(T& min, T& max, bool* oneRun) override {
        if (runs_.Empty()) return false;
        min = runs_.First().low;
        max = runs_.Last().high;
        if (oneRun != nullptr) *oneRun = runs_.HasOneRun();
        return true;
    }

    uint64 Count() override { return runs_.Count(); }

    int32 Plurality() override {
        if (runs_.Empty()) return 0;
        return runs_.HasOneRun() && runs_.First().low == runs_.First().high ? 1 : 2;
    }

    ZUList<T>* Copy() override {
        try {
            return new PairListImpl(*this);
        } catch (const std::exception&) {
            return nullptr;
        }
    }

    ZUListEnumerator<T>* CreateEnumerator() override { return new (std::nothrow) PairListEnumeratorImpl<T>(&runs_); }
    ZUListRangeEnumerator<T>* CreateRangeEnumerator() override {
        return new (std::nothrow) PairListEnumeratorImpl<T>(&runs_);
    }
    ZUListItem<T>* CreateItem() override { return new (std::nothrow) PairListItemImpl<T>(&runs_); }

private:
    template <typename Change>
    bool Changed(Change change) {
        try {
            change();
            return true;
        } catch (const std::exception&) {
            return false;
        }
    }

    PairRuns<T> runs_;
};

using UtilULongListImpl = PairListImpl<ulong32>;
using UtilULongLongListImpl = PairListImpl<uint64>;

}  // namespace

template <>
ZUList<ulong32>* ZUList<ulong32>::Create() {
    return new (std::nothrow) UtilULongListImpl;
}

template <>
ZUList<uint64>* ZUList<uint64>::Create() {
    return new (std::nothrow) UtilULongLongListImpl;
}

}  // namespace Torvo
