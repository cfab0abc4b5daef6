#include <Utility/containers/tagged_words.h>
#include <Utility/memory_blocks.h>

#include <algorithm>
#include <cstring>

namespace Torvo {

namespace {

// How many words have to be left over before room is given back.
constexpr uint64 kSpareWords = 40;

// The words of a block beside those of the entries: the first, and one behind the last that may be read.
constexpr uint64 kFrameWords = 2;

}  // namespace

TaggedWords::~TaggedWords() {
    void* block = words_;
    ffree_(&block);
}

bool TaggedWords::Create() {
    if (!Resize(0, true)) return false;
    SetUsed(0);
    return true;
}

bool TaggedWords::CreateCopy(const TaggedWords& other, uint64 from) {
    const uint64 used = other.End() - from;
    if (!Resize(used, true)) return false;
    std::memcpy(words_ + kBegin, other.words_ + from, used * sizeof(int32));
    SetUsed(used);
    for (uint64 at = kBegin; at < End();) {
        const Entry entry = EntryAt(at);
        count_ += entry.Size();
        at += entry.Words();
    }
    return true;
}

uint64 TaggedWords::Find(int32 item) const {
    if (Empty()) return End();
    const int32* const nearest = Nearest(item);
    const auto at = static_cast<uint64>(nearest - words_) + (ValueOf(*nearest) < item ? 1 : 0);
    return at < End() ? StartOf(at) : at;
}

bool TaggedWords::Append(int32 item) {
    const uint64 used = Used();
    const bool touches = used > 0 && item - Highest() == 1;
    const bool widens = touches && !IsTagged(words_[used - 1]);
    if (widens) {
        words_[used] = Tagged(item);
    } else {
        if (!Grow(used + 1)) return false;
        // A lone value becomes a low.
        if (touches) words_[used] = ValueOf(words_[used]);
        words_[used + 1] = Tagged(item);
        SetUsed(used + 1);
    }
    ++count_;
    return true;
}

bool TaggedWords::Add(int32 item) {
    const int32* const nearest = Nearest(item);
    const bool hasBelow = ValueOf(*nearest) < item;
    if (ValueOf(*nearest) == item || (hasBelow && !IsTagged(*nearest))) return true;
    const uint64 used = Used();
    const uint64 at = static_cast<uint64>(nearest - words_) + (hasBelow ? 1 : 0);
    // Neighbours that the value touches become one entry with it: the words that then lie within are taken out, and of
    // its own word nothing is left where both are touched.
    const bool touchesBelow = hasBelow && item - ValueOf(words_[at - 1]) == 1;
    const bool touchesAbove = at <= used && ValueOf(words_[at]) - item == 1;
    const uint64 from = at - (touchesBelow && !IsTagged(words_[at - 2]) ? 1 : 0);
    const uint64 to = at + (touchesAbove && !IsTagged(words_[at]) ? 1 : 0);
    const uint64 own = touchesBelow && touchesAbove ? 0 : 1;
    const uint64 newUsed = used + own - (to - from);
    if (!Grow(newUsed)) return false;
    if (newUsed != used) std::memmove(words_ + from + own, words_ + to, (used + 1 - to) * sizeof(int32));
    if (touchesBelow) words_[from - 1] = ValueOf(words_[from - 1]);
    if (own != 0) words_[from] = touchesAbove ? item : Tagged(item);
    SetUsed(newUsed);
    ++count_;
    if (newUsed < used) Shrink(newUsed);
    return true;
}

uint64 TaggedWords::Write(Entry entry, int32* words) {
    words[0] = entry.IsSingle() ? Tagged(entry.low) : entry.low;
    if (!entry.IsSingle()) words[1] = Tagged(entry.high);
    return entry.Words();
}

bool TaggedWords::ReplaceWords(uint64 from, uint64 to, const int32* words, uint64 count) {
    const uint64 oldUsed = Used();
    const uint64 used = oldUsed - (to - from) + count;
    if (used > oldUsed && !Grow(used)) return false;
    for (uint64 at = from; at < to;) {
        const Entry entry = EntryAt(at);
        count_ -= entry.Size();
        at += entry.Words();
    }
    if (used != oldUsed) std::memmove(words_ + from + count, words_ + to, (oldUsed + 1 - to) * sizeof(int32));
    std::copy_n(words, count, words_ + from);
    SetUsed(used);
    if (used < oldUsed) Shrink(used);
    return true;
}

void TaggedWords::Shrink(uint64 used) {
    // A heap that cannot take a part back leaves the block as it was, which is large enough.
    if (room_ >= used + kSpareWords) Resize(used, false);
}

bool TaggedWords::Resize(uint64 used, bool grow) {
    // A copy of the pointer, since a failure loses the one that it is given.
    void* block = words_;
    if (!GetMem_((used + kFrameWords) * sizeof(int32), &block, grow)) return false;
    words_ = static_cast<int32*>(block);
    // What the heap gives anyway is room too, once it is asked for, which changes nothing.
    const uint64 bytes = memSize(words_);
    if (GetMem_(bytes, &block, true)) room_ = bytes / sizeof(int32) - kFrameWords;
    return true;
}

}  // namespace Torvo
