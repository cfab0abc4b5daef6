#include <Utility/containers/tagged_words.h>
#include <Utility/integer_lists.h>

#include <new>
#include <utility>

// The list of signed values: runs packed into tagged words.

namespace Torvo {

namespace {

using Entry = TaggedWords::Entry;

// One object for both kinds of enumerator: the range enumerator is its second base.
class ZUListEnumeratorImpl : public ZUListEnumerator<long32>, public ZUListRangeEnumerator<long32> {
public:
    explicit ZUListEnumeratorImpl(const TaggedWords* list) : list_(list) {}

    bool Next(long32& item) override {
        item = -1;
        if (wordIndex_ >= list_->End()) return false;
        const Entry entry = list_->EntryAt(wordIndex_);
        item = current_ != -1 && !entry.IsSingle() ? current_ : entry.low;
        const bool done = item == entry.high;
        if (done) wordIndex_ += entry.Words();
        if (!entry.IsSingle()) current_ = done ? -1 : item + 1;
        return item != -1;
    }

    // Does not look at `current_`, which a walk over members may have left set.
    bool Next(long32& first, long32& last) override {
        first = -1;
        last = -1;
        if (wordIndex_ >= list_->End()) return false;
        const Entry entry = list_->EntryAt(wordIndex_);
        first = entry.low;
        last = entry.high;
        wordIndex_ += entry.Words();
        return true;
    }

private:
    const TaggedWords* list_;
    uint64 wordIndex_ = TaggedWords::kBegin;
    int32 current_ = -1;  // the next member of the run that is under way; -1 for none
};

class ZUListItemImpl : public ZUListItem<long32> {
public:
    explicit ZUListItemImpl(const TaggedWords* list) : list_(list) {}

    bool GetItem(uint64 index, long32& item) override {
        item = -1;
        if (index == 0 || list_->Empty()) return false;
        // A shorter way to the same entry; or a position that the list no longer has.
        if (index <= ordinal_ / 2 || wordIndex_ >= list_->End()) Reset();
        if (!StepBackTo(index)) return false;
        for (;;) {
            const Entry entry = list_->EntryAt(wordIndex_);
            if (index - ordinal_ < entry.Size()) {
                item = static_cast<long32>(entry.low + static_cast<int64>(index - ordinal_));
                return true;
            }
            if (wordIndex_ + entry.Words() >= list_->End()) return false;
            wordIndex_ += entry.Words();
            ordinal_ += entry.Size();
        }
    }

private:
    void Reset() {
        wordIndex_ = TaggedWords::kBegin;
        ordinal_ = 1;
    }

    bool StepBackTo(uint64 index) {
        while (index < ordinal_) {
            if (wordIndex_ <= TaggedWords::kBegin) {
                Reset();
                return false;
            }
            wordIndex_ = list_->Before(wordIndex_);
            ordinal_ -= list_->EntryAt(wordIndex_).Size();
        }
        return true;
    }

    const TaggedWords* list_;
    // Where the last answer was found: the entry, and the ordinal of its first value.
    uint64 wordIndex_ = TaggedWords::kBegin;
    uint64 ordinal_ = 1;
};

class ZUListImpl : public ZUList<long32> {
public:
    enum eListCreateError { kNoMemory = 0 };

    ZUListImpl() {
        if (!words_.Create()) throw kNoMemory;
    }

    explicit ZUListImpl(const TaggedWords& words) {
        if (!words_.CreateCopy(words)) throw kNoMemory;
    }

    bool Add(const long32& item) override {
        if (item < 0) return false;
        const uint64 at = words_.Find(item - 1);
        if (at == words_.End()) return words_.Replace(at, at, Entry{item, item});
        const Entry entry = words_.EntryAt(at);
        const uint64 behind = at + entry.Words();
        if (item > entry.high) return Extend(at, behind, {entry.low, item});
        if (item >= entry.low) return true;
        if (item + 1 == entry.low) return words_.Replace(at, behind, Entry{item, entry.high});
        return words_.Replace(at, at, Entry{item, item});
    }

    bool AddRange(const long32& a, const long32& b) override {
        if (a < 0 || b < 0) return false;
        if (a == b) return Add(a);
        const Entry range{a < b ? a : b, a < b ? b : a};
        Entry joined = range;

        const uint64 from = words_.Find(range.low - 1);
        if (from < words_.End()) {
            const Entry entry = words_.EntryAt(from);
            if (!entry.IsSingle() && entry.low < range.low) joined.low = entry.low;
        }
        uint64 to = words_.Find(range.high);
        if (to < words_.End()) {
            const Entry entry = words_.EntryAt(to);
            if (int64{entry.low} <= int64{range.high} + 1) {
                // A lone value above the range is taken out with the others, and the range is not widened for it.
                if (!entry.IsSingle()) joined.high = entry.high;
                to += entry.Words();
            }
        }
        return words_.Replace(from, to, joined);
    }

    bool Remove(const long32& item) override {
        if (item < 0) return true;
        const uint64 at = words_.Find(item);
        if (at == words_.End()) return true;
        const Entry entry = words_.EntryAt(at);
        if (item < entry.low) return true;
        const uint64 behind = at + entry.Words();
        if (entry.IsSingle()) return words_.Replace(at, behind);
        if (item == entry.low) return words_.Replace(at, behind, Entry{item + 1, entry.high});
        if (item == entry.high) return words_.Replace(at, behind, Entry{entry.low, item - 1});
        return words_.Replace(at, behind, Entry{entry.low, item - 1}, Entry{item + 1, entry.high});
    }

    bool Clear() override { return words_.Replace(TaggedWords::kBegin, words_.End()); }

    bool Member(const long32& item) override {
        if (item < 0) return false;
        const uint64 at = words_.Find(item);
        return at < words_.End() && words_.EntryAt(at).low <= item;
    }

    bool MinMax(long32& min, long32& max, bool* oneRun) override {
        if (words_.Empty()) return false;
        min = words_.Lowest();
        max = words_.Highest();
        if (oneRun != nullptr) *oneRun = HasOneEntry();
        return true;
    }

    uint64 Count() override { return words_.Count(); }

    int32 Plurality() override {
        if (words_.Empty()) return 0;
        return HasOneEntry() && words_.EntryAt(TaggedWords::kBegin).IsSingle() ? 1 : 2;
    }

    ZUList<long32>* Copy() override { return Make(words_); }

    ZUListEnumerator<long32>* CreateEnumerator() override { return new (std::nothrow) ZUListEnumeratorImpl(&words_); }
    ZUListRangeEnumerator<long32>* CreateRangeEnumerator() override {
        return new (std::nothrow) ZUListEnumeratorImpl(&words_);
    }
    ZUListItem<long32>* CreateItem() override { return new (std::nothrow) ZUListItemImpl(&words_); }

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
    // Puts an entry that has grown upwards in its place, together with the one behind it if they now touch.
    bool Extend(uint64 at, uint64 behind, Entry grown) {
        if (behind < words_.End()) {
            const Entry next = words_.EntryAt(behind);
            if (grown.high + 1 == next.low)
                return words_.Replace(at, behind + next.Words(), Entry{grown.low, next.high});
        }
        return words_.Replace(at, behind, grown);
    }

    bool HasOneEntry() const {
        return TaggedWords::kBegin + words_.EntryAt(TaggedWords::kBegin).Words() == words_.End();
    }

    TaggedWords words_;
};

}  // namespace

template <>
ZUList<long32>* ZUList<long32>::Create() {
    return ZUListImpl::Make();
}

}  // namespace Torvo
