// Coordinates four at a time: two points of LPNT fill one register as x, y, x, y. SSE2 only, which every x86-64 has; it
// lacks the minimum and maximum of 32-bit lanes, so those are comparisons and selections.
#pragma once

#include <Utility/geometry.h>
#include <emmintrin.h>

namespace Torvo::detail {

inline constexpr int32 PointsPerRegister = 2;

inline __m128i LoadPoints(const LPNT* points) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(points));
}

inline void StorePoints(LPNT* points, __m128i lanes) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(points), lanes);
}

// The lanes of `yes` where the mask is all ones, those of `no` where it is zero.
inline __m128i Select(__m128i mask, __m128i yes, __m128i no) {
    return _mm_or_si128(_mm_and_si128(mask, yes), _mm_andnot_si128(mask, no));
}

inline __m128i Smaller(__m128i a, __m128i b) {
    return Select(_mm_cmpgt_epi32(a, b), b, a);
}

inline __m128i Larger(__m128i a, __m128i b) {
    return Select(_mm_cmpgt_epi32(a, b), a, b);
}

// The two limits of a clamp in all lanes.
struct LimitLanes {
    __m128i low;
    __m128i high;

    LimitLanes(int32 lowLimit, int32 highLimit) : low(_mm_set1_epi32(lowLimit)), high(_mm_set1_epi32(highLimit)) {}

    // As Clamp of rounding.h: the low limit wins even over a high limit below it.
    __m128i Clamp(__m128i lanes) const { return Select(_mm_cmpgt_epi32(low, lanes), low, Smaller(lanes, high)); }
};

// A saturating addition of the same amounts to many points.
struct OffsetLanes {
    __m128i offset;
    __m128i limit;  // where a sum that leaves 32 bits is held: the highest value for an offset above 0, else the lowest

    OffsetLanes(int32 dx, int32 dy)
        : offset(_mm_set_epi32(dy, dx, dy, dx)),
          limit(_mm_xor_si128(_mm_srai_epi32(offset, 31), _mm_set1_epi32(0x7FFFFFFF))) {}

    __m128i Add(__m128i lanes) const {
        const __m128i sum = _mm_add_epi32(lanes, offset);
        // A sum has left 32 bits where its sign differs from those of both operands.
        const __m128i left = _mm_and_si128(_mm_xor_si128(lanes, sum), _mm_xor_si128(offset, sum));
        return Select(_mm_srai_epi32(left, 31), limit, sum);
    }
};

// Holds two doubles at limits and rounds them, exactly as Clamp and RoundToInt32 do one.
struct RoundingLanes {
    __m128d low;
    __m128d high;

    RoundingLanes(int32 lowLimit, int32 highLimit) : low(_mm_set1_pd(lowLimit)), high(_mm_set1_pd(highLimit)) {}

    // The two results are in the lower two lanes.
    __m128i Round(__m128d values) const {
        const __m128d belowLow = _mm_cmpgt_pd(low, values);
        const __m128d notAbove = _mm_min_pd(high, values);  // the second operand where one is a NaN
        const __m128d held = _mm_or_pd(_mm_and_pd(belowLow, low), _mm_andnot_pd(belowLow, notAbove));
        const __m128d above0 = _mm_cmpgt_pd(held, _mm_setzero_pd());
        const __m128d half = _mm_or_pd(_mm_set1_pd(0.5), _mm_andnot_pd(above0, _mm_set1_pd(-0.0)));
        return _mm_cvttpd_epi32(_mm_add_pd(held, half));
    }
};

}  // namespace Torvo::detail
