// Words of bits: counting, choosing and filling, on 64 bits at a time.
//
// A bitmap is published as 16-bit words with the lowest item in the least significant bit. On a little-endian machine
// four of them are one 64-bit word of the same order, and everything here reads and writes those.
#pragma once

#include <Utility/platform/types.h>
#include <emmintrin.h>

#include <bit>
#include <cstring>

namespace Torvo::bits {

static_assert(std::endian::native == std::endian::little);

constexpr uint32 kWordBits = 64;

inline uint64 LoadWord(const uint16* bitmap, uint32 word) {
    uint64 value;
    std::memcpy(&value, bitmap + std::size_t{word} * 4, sizeof value);
    return value;
}

inline void StoreWord(uint16* bitmap, uint32 word, uint64 value) {
    std::memcpy(bitmap + std::size_t{word} * 4, &value, sizeof value);
}

// The bits of a word from `low` to `high`, both included, 0 <= low <= high <= 63.
constexpr uint64 MaskOf(uint32 low, uint32 high) {
    return (~uint64{0} << low) & (~uint64{0} >> (kWordBits - 1 - high));
}

// How many bits of a word are set. The baseline processor has no instruction for it, and the compiler's own fallback
// is a call with table look-ups; this is the usual sum in parallel (Hacker's Delight, section 5-1).
constexpr uint32 CountOf(uint64 word) {
    word -= (word >> 1) & 0x5555555555555555u;
    word = (word & 0x3333333333333333u) + ((word >> 2) & 0x3333333333333333u);
    word = (word + (word >> 4)) & 0x0F0F0F0F0F0F0F0Fu;
    return static_cast<uint32>((word * 0x0101010101010101u) >> 56);
}

// The place of the set bit of which `rank` set bits are below, 0 <= rank < CountOf(word).
constexpr uint32 PlaceOf(uint64 word, uint32 rank) {
    uint32 base = 0;
    for (uint32 half = 32; half >= 8; half /= 2) {
        const uint32 below = CountOf(word & MaskOf(0, half - 1));
        if (rank >= below) {
            rank -= below;
            word >>= half;
            base += half;
        } else {
            word &= MaskOf(0, half - 1);
        }
    }
    for (; rank > 0; --rank) word &= word - 1;
    return base + static_cast<uint32>(std::countr_zero(word));
}

// How many bits are set in the words [begin, end), with the sum of CountOf on two words at a time.
inline uint32 CountOfWords(const uint16* bitmap, uint32 begin, uint32 end) {
    const __m128i m1 = _mm_set1_epi8(0x55);
    const __m128i m2 = _mm_set1_epi8(0x33);
    const __m128i m4 = _mm_set1_epi8(0x0F);
    const __m128i zero = _mm_setzero_si128();
    __m128i sum = zero;
    uint32 word = begin;
    for (; word + 2 <= end; word += 2) {
        __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bitmap + std::size_t{word} * 4));
        v = _mm_sub_epi8(v, _mm_and_si128(_mm_srli_epi64(v, 1), m1));
        v = _mm_add_epi8(_mm_and_si128(v, m2), _mm_and_si128(_mm_srli_epi64(v, 2), m2));
        v = _mm_and_si128(_mm_add_epi8(v, _mm_srli_epi64(v, 4)), m4);
        sum = _mm_add_epi64(sum, _mm_sad_epu8(v, zero));
    }
    sum = _mm_add_epi64(sum, _mm_unpackhi_epi64(sum, sum));
    const uint32 pairs = static_cast<uint32>(_mm_cvtsi128_si32(sum));
    return word < end ? pairs + CountOf(LoadWord(bitmap, word)) : pairs;
}

// How many bits are set in [first, last].
inline uint32 CountOfRange(const uint16* bitmap, uint32 first, uint32 last) {
    const uint32 firstWord = first / kWordBits;
    const uint32 lastWord = last / kWordBits;
    const uint64 firstMask = MaskOf(first % kWordBits, kWordBits - 1);
    const uint64 lastMask = MaskOf(0, last % kWordBits);
    if (firstWord == lastWord) return CountOf(LoadWord(bitmap, firstWord) & firstMask & lastMask);
    return CountOf(LoadWord(bitmap, firstWord) & firstMask) + CountOfWords(bitmap, firstWord + 1, lastWord) +
           CountOf(LoadWord(bitmap, lastWord) & lastMask);
}

// Sets the bits [first, last], or clears them.
inline void FillRange(uint16* bitmap, uint32 first, uint32 last, bool set) {
    const auto fillWord = [bitmap, set](uint32 word, uint64 mask) {
        const uint64 old = LoadWord(bitmap, word);
        StoreWord(bitmap, word, set ? old | mask : old & ~mask);
    };
    const uint32 firstWord = first / kWordBits;
    const uint32 lastWord = last / kWordBits;
    const uint64 firstMask = MaskOf(first % kWordBits, kWordBits - 1);
    const uint64 lastMask = MaskOf(0, last % kWordBits);
    if (firstWord == lastWord) return fillWord(firstWord, firstMask & lastMask);
    fillWord(firstWord, firstMask);
    std::memset(bitmap + std::size_t{firstWord + 1} * 4, set ? 0xFF : 0, (lastWord - firstWord - 1) * sizeof(uint64));
    fillWord(lastWord, lastMask);
}

}  // namespace Torvo::bits
