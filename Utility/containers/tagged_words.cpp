#include <Utility/containers/tagged_words.h>
#include <Utility/memory_blocks.h>
#include <emmintrin.h>

#include <algorithm>
#include <cstring>

namespace Torvo {

namespace {

constexpr uint64 kStep = 16;

// Whether any of 16 words is tagged.
bool AnyTagged(const int32* words) {
    const auto* const quarters = reinterpret_cast<const __m128i*>(words);
    const __m128i a = _mm_or_si128(_mm_loadu_si128(quarters), _mm_loadu_si128(quarters + 1));
    const __m128i b = _mm_or_si128(_mm_loadu_si128(quarters + 2), _mm_loadu_si128(quarters + 3));
    return _mm_movemask_ps(_mm_castsi128_ps(_mm_or_si128(a, b))) != 0;
}

uint64 BytesFor(uint64 used) {
    return (used + 1) * sizeof(int32);
}

}  // namespace

TaggedWords::~TaggedWords() {
    void* block = words_;
    ffree_(&block);
}

bool TaggedWords::Create() {
    return Grow(0);
}

bool TaggedWords::CreateCopy(const TaggedWords& other) {
    if (!Grow(other.Used())) return false;
    std::memcpy(words_, other.words_, BytesFor(other.Used()));
    singles_ = other.singles_;
    count_ = other.count_;
    return true;
}

TaggedWords::Entry TaggedWords::EntryAt(uint64 at) const {
    const int32 low = ValueOf(words_[at]);
    // A position from before a change may lead to a high that is the last word.
    return IsTagged(words_[at]) || at == Used() ? Entry{low, low} : Entry{low, words_[at + 1]};
}

uint64 TaggedWords::Before(uint64 at) const {
    return IsTagged(words_[at - 1]) || at == kBegin + 1 ? at - 1 : at - 2;
}

uint64 TaggedWords::Find(int32 item) const {
    const int32* base = words_ + kBegin;
    uint64 size = Used();
    if (size == 0) return kBegin;
    // The steps depend on the number of words alone, so that no branch is guessed wrong on the way.
    while (size > 1) {
        const uint64 half = size / 2;
        base += half * static_cast<uint64>(ValueOf(base[half - 1]) < item);
        size -= half;
    }
    const uint64 at = static_cast<uint64>(base - words_) + (ValueOf(*base) < item ? 1 : 0);
    return at < End() && !IsTagged(words_[at]) && IsHigh(at) ? at - 1 : at;
}

bool TaggedWords::IsHigh(uint64 at) const {
    // Words without the tag stand in pairs, from a lone value (or the start) to the next one (or the end).
    if (singles_ == 0) return at % 2 == 0;
    uint64 below = at;
    uint64 above = at + 1;
    while (below >= kBegin + kStep && above + kStep <= End()) {
        if (AnyTagged(words_ + below - kStep) || AnyTagged(words_ + above)) break;
        below -= kStep;
        above += kStep;
    }
    for (;; --below, ++above) {
        if (below == kBegin || IsTagged(words_[below - 1])) return (at - below) % 2 == 1;
        if (above == End() || IsTagged(words_[above])) return (above - at) % 2 == 1;
    }
}

uint64 TaggedWords::Write(Entry entry, int32* words) {
    words[0] = entry.low;
    if (entry.IsSingle()) {
        words[0] = static_cast<int32>(static_cast<uint32>(entry.low) | 0x80000000u);
    } else {
        words[1] = entry.high;
    }
    return entry.Words();
}

bool TaggedWords::ReplaceWords(uint64 from, uint64 to, const int32* words, uint64 count) {
    const uint64 oldUsed = Used();
    const uint64 used = oldUsed - (to - from) + count;
    if (used > oldUsed && !Grow(used)) return false;
    for (uint64 at = from; at < to;) {
        const Entry entry = EntryAt(at);
        singles_ -= entry.IsSingle() ? 1 : 0;
        count_ -= entry.Size();
        at += entry.Words();
    }
    std::memmove(words_ + from + count, words_ + to, (oldUsed + 1 - to) * sizeof(int32));
    for (uint64 i = 0; i < count; ++i) {
        words_[from + i] = words[i];
        singles_ += IsTagged(words[i]) ? 1 : 0;
    }
    words_[0] = static_cast<int32>(used);
    if (used < oldUsed) Shrink(used);
    return true;
}

bool TaggedWords::Grow(uint64 used) {
    // A copy of the pointer, since a failure loses the one that it is given.
    void* block = words_;
    if (!GetMem_(BytesFor(used), &block, true)) return false;
    words_ = static_cast<int32*>(block);
    return true;
}

void TaggedWords::Shrink(uint64 used) {
    // A heap that cannot give a part back leaves the block as it was, which is large enough.
    void* block = words_;
    if (GetMem_(BytesFor(used), &block, false)) words_ = static_cast<int32*>(block);
}

}  // namespace Torvo
