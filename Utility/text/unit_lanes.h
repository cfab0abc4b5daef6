// Eight units at a time, with the vector instructions that every x86-64 has. A lane is all ones where the answer is
// yes.
#pragma once

#include <Utility/platform/types.h>

#include <emmintrin.h>

#include <bit>

namespace Torvo::lanes {

inline constexpr std::ptrdiff_t Count = sizeof(__m128i) / sizeof(wchar16);

inline __m128i Load(const wchar16* at) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
}

inline __m128i All(wchar16 unit) {
    return _mm_set1_epi16(static_cast<short>(unit));
}

inline __m128i Equal(__m128i a, __m128i b) {
    return _mm_cmpeq_epi16(a, b);
}

inline __m128i AtMost(__m128i units, __m128i limit) {
    return _mm_cmpeq_epi16(_mm_subs_epu16(units, limit), _mm_setzero_si128());
}

inline __m128i And(__m128i a, __m128i b) {
    return _mm_and_si128(a, b);
}

inline __m128i Or(__m128i a, __m128i b) {
    return _mm_or_si128(a, b);
}

inline __m128i Not(__m128i a) {
    return _mm_xor_si128(a, _mm_set1_epi16(-1));
}

// Two bits for each lane, the first lane lowest.
inline uint32 Bits(__m128i lanes) {
    return static_cast<uint32>(_mm_movemask_epi8(lanes));
}

inline constexpr uint32 allBits = 0xFFFF;

// The number of the first lane of which the bits are set.
inline int First(uint32 bits) {
    return std::countr_zero(bits) / 2;
}

}  // namespace Torvo::lanes
