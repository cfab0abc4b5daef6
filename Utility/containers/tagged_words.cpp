#include <Utility/containers/block_directory.h>
#include <Utility/containers/tagged_words.h>
#include <Utility/memory_blocks.h>
#include <emmintrin.h>

#include <bit>
#include <cstring>

namespace Torvo {

namespace {

constexpr uint64 kStep = 16;
// What has to be left over before room is given back.
constexpr uint64 kSpareBytes = 64;

// Which of 16 words are tagged: a bit for each, the first one's in the least significant.
uint32 TagsOf(const int32* words) {
    const auto* const quarters = reinterpret_cast<const __m128i*>(words);
    const __m128i low = _mm_packs_epi32(_mm_loadu_si128(quarters), _mm_loadu_si128(quarters + 1));
    const __m128i high = _mm_packs_epi32(_mm_loadu_si128(quarters + 2), _mm_loadu_si128(quarters + 3));
    return static_cast<uint32>(_mm_movemask_epi8(_mm_packs_epi16(low, high)));
}

uint64 BytesFor(uint64 used) {
    return (1 + used + 1) * sizeof(int32);
}

}  // namespace

TaggedWords::~TaggedWords() {
    void* block = words_;
    ffree_(&block);
}

bool TaggedWords::Create() {
    return Grow(0);
}

bool TaggedWords::CreateCopy(const TaggedWords& other, uint64 from) {
    const uint64 used = other.End() - from;
    if (!Grow(used)) return false;
    std::memcpy(words_ + kBegin, other.words_ + from, used * sizeof(int32));
    words_[0] = static_cast<int32>(used);
    for (uint64 at = kBegin; at < End();) {
        const Entry entry = EntryAt(at);
        singles_ += entry.IsSingle() ? 1 : 0;
        count_ += entry.Size();
        at += entry.Words();
    }
    return true;
}

uint64 TaggedWords::FindWord(int32 item) const {
    return kBegin + CountLeading(words_ + kBegin, Used(), [item](int32 word) { return ValueOf(word) < item; });
}

uint64 TaggedWords::Find(int32 item) const {
    const uint64 at = FindWord(item);
    return at < End() ? StartOf(at) : at;
}

bool TaggedWords::Member(int32 item) const {
    const uint64 at = FindWord(item);
    if (at == End()) return false;
    // The end of an entry, or else what lies between a low and its high.
    return ValueOf(words_[at]) == item || (!IsTagged(words_[at]) && IsHigh(at));
}

bool TaggedWords::IsHigh(uint64 at) const {
    // Words without the tag stand in pairs, from a lone value (or the start) on.
    if (singles_ == 0) return at % 2 == 0;
    uint64 below = at;
    for (; below >= kBegin + kStep; below -= kStep) {
        const uint32 tags = TagsOf(words_ + below - kStep);
        // An odd number of words between the highest of them and the end of the step.
        if (tags != 0) return (kStep - std::bit_width(tags)) % 2 == 1;
    }
    while (below > kBegin && !IsTagged(words_[below - 1])) --below;
    return (at - below) % 2 == 1;
}

bool TaggedWords::Append(int32 item) {
    const uint64 used = Used();
    const bool touches = used > 0 && item - Highest() == 1;
    const bool isLone = touches && IsTagged(words_[used]);
    if (!touches || isLone) {
        if (!Grow(used + 1)) return false;
        words_[0] = static_cast<int32>(used + 1);
    }
    if (isLone) words_[used] = ValueOf(words_[used]);
    words_[Used()] = touches ? item : Tagged(item);
    singles_ += touches ? 0 : 1;
    singles_ -= isLone ? 1 : 0;
    ++count_;
    return true;
}

uint64 TaggedWords::Write(Entry entry, int32* words) {
    words[0] = entry.IsSingle() ? Tagged(entry.low) : entry.low;
    if (!entry.IsSingle()) words[1] = entry.high;
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
    if (used != oldUsed) std::memmove(words_ + from + count, words_ + to, (oldUsed + 1 - to) * sizeof(int32));
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
    if (memSize(words_) < BytesFor(used) + kSpareBytes) return;
    // A heap that cannot give a part back leaves the block as it was, which is large enough.
    void* block = words_;
    if (GetMem_(BytesFor(used), &block, false)) words_ = static_cast<int32*>(block);
}

}  // namespace Torvo
