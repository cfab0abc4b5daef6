#include <Utility/containers/tagged_blocks.h>
#include <Utility/integer_lists.h>

#include <new>

// The list of signed values: runs packed into tagged words.

namespace Torvo {

namespace {

using Entry = TaggedBlocks::Entry;

int32 Choose(bool which, int32 yes, int32 no) {
    const int32 mask = -static_cast<int32>(which);
    return (yes & mask) | (no & ~mask);
}

// One object for both kinds of enumerator: the range enumerator is its second base.
class ZUListEnumeratorImpl : public ZUListEnumerator<long32>, public ZUListRangeEnumerator<long32> {
public:
    explicit ZUListEnumeratorImpl(const TaggedBlocks* list) : walk_(list) {}

    bool Next(long32& item) override {
        // Far from the end of a run, which is foreseen; near it nobody can guess, so all ways are taken there and one
        // is chosen without a branch.
        if (high_ - current_ >= kNear) {
            item = passed_ = current_++;
            return true;
        }
        item = -1;
        const int32* const words = walk_.Peek(passed_);
        if (words == nullptr) return false;
        // Where the next step begins hangs on as little as possible, since that step waits for it.
        const bool single = TaggedWords::IsTagged(words[0]);
        const int32 high = TaggedWords::ValueOf(words[1]);
        // Above the high only in a list that has changed under the walk.
        const bool ends = single | (current_ >= high);
        walk_.Step(2u * ends - single);
        item = passed_ = Choose(single | (current_ == -1), TaggedWords::ValueOf(words[0]), current_);
        current_ = Choose(single, current_, Choose(ends, -1, item + !ends));
        high_ = Choose(ends, -1, high);
        return true;
    }

    // Does not look at `current_`, which a walk over members may have left set.
    bool Next(long32& first, long32& last) override {
        first = -1;
        last = -1;
        const int32* const words = walk_.Peek(passed_);
        if (words == nullptr) return false;
        const Entry entry = TaggedWords::Read(words);
        first = entry.low;
        last = passed_ = entry.high;
        high_ = -1;
        walk_.Step(entry.Words());
        return true;
    }

private:
    static constexpr int32 kNear = 4;

    TaggedBlocks::Walk walk_;
    int32 current_ = -1;  // the next member of the run that is under way; -1 for none
    int32 high_ = -1;     // the end of that run, while the walk stands at it; else -1
    int32 passed_ = -1;   // the last value given
};

class ZUListItemImpl : public ZUListItem<long32> {
public:
    explicit ZUListItemImpl(const TaggedBlocks* list) : list_(list) {}

    bool GetItem(uint64 index, long32& item) override {
        item = -1;
        if (index == 0 || index > list_->Count()) return false;
        if (!FindNearby(index)) at_ = list_->Locate(index, ordinal_);
        changes_ = list_->Changes();
        item = static_cast<long32>(list_->EntryAt(at_).low + static_cast<int64>(index - ordinal_));
        return true;
    }

private:
    // How many entries away from the last answer it is worth looking.
    static constexpr int kNearby = 8;

    // Steps by entries towards the index; whether it was reached. There is an entry wherever it leads, since the index
    // is one of the list's.
    bool FindNearby(uint64 index) {
        if (ordinal_ == 0 || changes_ != list_->Changes()) return false;
        for (int step = 0; step < kNearby; ++step) {
            const Entry entry = list_->EntryAt(at_);
            if (index < ordinal_) {
                at_ = list_->Before(at_);
                ordinal_ -= list_->EntryAt(at_).Size();
            } else if (index - ordinal_ >= entry.Size()) {
                at_ = list_->Behind(at_);
                ordinal_ += entry.Size();
            } else {
                return true;
            }
        }
        return false;
    }

    const TaggedBlocks* list_;
    // Where the last answer was found: the entry, and the ordinal of its first value; 0 before the first answer.
    TaggedBlocks::Position at_;
    uint64 ordinal_ = 0;
    uint64 changes_ = 0;
};

class ZUListImpl : public ZUList<long32> {
public:
    enum eListCreateError { kNoMemory = 0 };

    ZUListImpl() {
        if (!runs_.Create()) throw kNoMemory;
    }

    explicit ZUListImpl(const TaggedBlocks& runs) {
        if (!runs_.CreateCopy(runs)) throw kNoMemory;
    }

    bool Add(const long32& item) override { return item >= 0 && runs_.Add(item); }

    bool AddRange(const long32& a, const long32& b) override {
        if (a < 0 || b < 0) return false;
        return a == b ? runs_.Add(a) : runs_.AddRange(a < b ? a : b, a < b ? b : a);
    }

    bool Remove(const long32& item) override { return item < 0 || runs_.Remove(item); }

    bool Clear() override {
        runs_.Clear();
        return true;
    }

    bool Member(const long32& item) override { return item >= 0 && runs_.Member(item); }

    bool MinMax(long32& min, long32& max, bool* oneRun) override {
        if (runs_.Empty()) return false;
        min = runs_.Lowest();
        max = runs_.Highest();
        if (oneRun != nullptr) *oneRun = runs_.HasOneEntry();
        return true;
    }

    uint64 Count() override { return runs_.Count(); }

    int32 Plurality() override { return static_cast<int32>(runs_.Count() < 2 ? runs_.Count() : 2); }

    ZUList<long32>* Copy() override { return Make(runs_); }

    ZUListEnumerator<long32>* CreateEnumerator() override { return new (std::nothrow) ZUListEnumeratorImpl(&runs_); }
    ZUListRangeEnumerator<long32>* CreateRangeEnumerator() override {
        return new (std::nothrow) ZUListEnumeratorImpl(&runs_);
    }
    ZUListItem<long32>* CreateItem() override { return new (std::nothrow) ZUListItemImpl(&runs_); }

    // A new list, or null.
    template <typename... Arguments>
    static ZUList<long32>* Make(Arguments&... arguments) {
        try {
            return new (std::nothrow) ZUListImpl(arguments...);
        } catch (eListCreateError) {
            return nullptr;
        }
    }

private:
    TaggedBlocks runs_;
};

}  // namespace

template <>
ZUList<long32>* ZUList<long32>::Create() {
    return ZUListImpl::Make();
}

}  // namespace Torvo
