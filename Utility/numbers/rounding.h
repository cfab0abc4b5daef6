// The bodies of the rounding conversions and of wrapping and saturating sums, for code that cannot afford a call for
// each coordinate. <Utility/arithmetic.h> says what they mean.
#pragma once

#include <Utility/platform/types.h>
#include <emmintrin.h>

namespace Torvo::detail {

inline constexpr int32 LowestInt32 = -2147483647 - 1;
inline constexpr int32 HighestInt32 = 2147483647;

// 0.5 with the sign of the value, chosen by its bits: the signs of coordinates follow no pattern that a processor could
// predict.
inline double AddHalf(double value) {
    const __m128d isAbove0 = _mm_cmpgt_sd(_mm_set_sd(value), _mm_setzero_pd());
    const __m128d half = _mm_or_pd(_mm_set_sd(0.5), _mm_andnot_pd(isAbove0, _mm_set_sd(-0.0)));
    return value + _mm_cvtsd_f64(half);
}

// The processor's own conversion, because a cast of a value that does not fit is undefined; this gives the lowest
// value.
inline int32 TruncateToInt32(double value) {
    return _mm_cvttsd_si32(_mm_set_sd(value));
}

inline int64 TruncateToInt64(double value) {
    return _mm_cvttsd_si64(_mm_set_sd(value));
}

inline int32 RoundToInt32(double value) {
    return TruncateToInt32(AddHalf(value));
}

inline int32 WrapToInt32(uint32 value) {
    return static_cast<int32>(value);
}

inline int32 WrappingAdd(int32 a, int32 b) {
    return WrapToInt32(static_cast<uint32>(a) + static_cast<uint32>(b));
}

inline int32 WrappingSubtract(int32 a, int32 b) {
    return WrapToInt32(static_cast<uint32>(a) - static_cast<uint32>(b));
}

inline int32 WrappingMultiply(int32 a, int32 b) {
    return WrapToInt32(static_cast<uint32>(a) * static_cast<uint32>(b));
}

inline int32 WrappingNegate(int32 a) {
    return WrappingSubtract(0, a);
}

// Cuts towards zero; the one quotient that leaves 32 bits, the lowest value by -1, wraps. `b` is not 0.
inline int32 WrappingDivide(int32 a, int32 b) {
    return static_cast<int32>(int64{a} / b);
}

inline int32 SaturatingAdd(int32 a, int32 b) {
    const int64 sum = int64{a} + b;
    return sum > HighestInt32 ? HighestInt32 : sum < LowestInt32 ? LowestInt32 : static_cast<int32>(sum);
}

// The low limit is tested first, and a NaN passes. Where the limits are the wrong way round, that order is visible.
template <typename T>
inline T Clamp(T value, T low, T high) {
    return low > value ? low : high < value ? high : value;
}

inline int32 AddCoords(int32 a, int32 b, int32 low, int32 high) {
    return Clamp(SaturatingAdd(a, b), low, high);
}

}  // namespace Torvo::detail
