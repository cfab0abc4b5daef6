// Ticks of 100 nanoseconds: their units, and the arithmetic that times, date-times and spans have in common.
#pragma once

#include <Utility/numbers/rounding.h>
#include <Utility/times.h>

#include <new>

namespace Torvo {

inline constexpr int64 TicksPerMillisecond = 10'000;
inline constexpr int64 TicksPerSecond = 1000 * TicksPerMillisecond;
inline constexpr int64 TicksPerMinute = 60 * TicksPerSecond;
inline constexpr int64 TicksPerHour = 60 * TicksPerMinute;
inline constexpr int64 TicksPerDay = 24 * TicksPerHour;

inline constexpr int64 HighestTicks = 9223372036854775807;
inline constexpr int64 LowestTicks = -HighestTicks - 1;

// A time of day by its parts, none of them checked.
inline constexpr int64 TicksOfParts(int64 hours, int64 minutes, int64 seconds, int64 fraction) {
    return ((hours * 60 + minutes) * 60 + seconds) * TicksPerSecond + fraction;
}

// The literal HHMMSSfffffff of parts, which may all be negative, and the parts of a literal.
inline constexpr int64 LiteralOfParts(int64 hours, int64 minutes, int64 seconds, int64 fraction) {
    return (hours * 100 + minutes) * 1'000'000'000 + seconds * TicksPerSecond + fraction;
}

struct LiteralParts {
    explicit constexpr LiteralParts(int64 literal)
        : hours(static_cast<int32>(literal / 100'000'000'000)),
          minutes(static_cast<int32>(literal / 1'000'000'000 % 100)),
          seconds(static_cast<int32>(literal / TicksPerSecond % 100)),
          fraction(static_cast<int32>(literal % TicksPerSecond)) {}

    constexpr bool IsTimeOfDay() const { return hours <= 23 && minutes <= 59 && seconds <= 59; }

    int32 hours;
    int32 minutes;
    int32 seconds;
    int32 fraction;
};

// A number of units of so many ticks each, cut towards zero; the lowest value for what does not fit and for a NaN.
inline int64 TicksOfNumber(double value, int64 ticksPerUnit) {
    return detail::TruncateToInt64(value * static_cast<double>(ticksPerUnit));
}

// Ticks as a number of units, with what a double keeps of it.
inline double NumberOfUnits(int64 ticks, int64 ticksPerUnit) {
    return static_cast<double>(ticks) / static_cast<double>(ticksPerUnit);
}

// Whether the ticks of a number have the other sign, which is how one that does not fit shows.
inline bool HasTurned(double value, int64 ticks) {
    return (value > 0 && ticks < 0) || (value < 0 && ticks > 0);
}

// Adds a number of units to a time, a date-time or a span, by its AddTicks; false when the number does not fit.
template <typename T>
bool AddUnits(T& object, double value, int64 ticksPerUnit) {
    const int64 delta = TicksOfNumber(value, ticksPerUnit);
    return !HasTurned(value, delta) && object.AddTicks(delta);
}

inline int64 WrappingAdd(int64 a, int64 b) {
    return static_cast<int64>(static_cast<uint64>(a) + static_cast<uint64>(b));
}

inline int64 WrappingSubtract(int64 a, int64 b) {
    return static_cast<int64>(static_cast<uint64>(a) - static_cast<uint64>(b));
}

// Whether the sum and the difference fit 64 bits.
inline bool CanAdd(int64 a, int64 b) {
    return b >= 0 ? a <= HighestTicks - b : a >= LowestTicks - b;
}

inline bool CanSubtract(int64 a, int64 b) {
    return b >= 0 ? a >= LowestTicks + b : a <= HighestTicks + b;
}

template <typename T>
ZU_CMP CompareByTicks(const T* a, const T* b) {
    if (a == nullptr || b == nullptr) return a == b ? ZU_CMP_EQUAL : ZU_CMP_INCOMPARABLE;
    const int64 first = a->GetTicks();
    const int64 second = b->GetTicks();
    return first < second ? ZU_CMP_LESS : first > second ? ZU_CMP_GREATER : ZU_CMP_EQUAL;
}

// A new object, or null when its constructor refuses the arguments or memory is short.
template <typename Impl, typename... Arguments>
Impl* CreateOrNull(Arguments... arguments) {
    try {
        return new (std::nothrow) Impl(arguments...);
    } catch (typename Impl::eCreateError) {
        return nullptr;
    }
}

}  // namespace Torvo
