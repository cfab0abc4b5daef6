// The fast lane of the number readers: the plain numbers that files are full of, an optional sign, ASCII digits and
// perhaps a point among them. Whatever else a text holds (white space, an exponent, many digits, digits of other
// scripts) is left to the readers of the platform layer, which give the same answers for plain numbers too: the lane
// only saves time.
#pragma once

#include <Utility/platform/types.h>

#include <cmath>

namespace Torvo {

namespace plain {

inline bool IsDigit(wchar16 unit) {
    return static_cast<unsigned>(unit - '0') < 10;
}

inline uint64 DigitOf(wchar16 unit) {
    return static_cast<uint64>(unit - '0');
}

// Adds the digits at `cursor` to a number, modulo 2^64.
inline const wchar16* TakeDigits(const wchar16* cursor, uint64& number) {
    for (; IsDigit(*cursor); ++cursor) number = number * 10 + DigitOf(*cursor);
    return cursor;
}

// The same where many digits are likely: two at a time, so that a digit waits for half as many products.
inline const wchar16* TakeManyDigits(const wchar16* cursor, uint64& number) {
    for (; IsDigit(cursor[0]); cursor += 2) {
        if (!IsDigit(cursor[1])) {
            number = number * 10 + DigitOf(cursor[0]);
            return cursor + 1;
        }
        number = number * 100 + (DigitOf(cursor[0]) * 10 + DigitOf(cursor[1]));
    }
    return cursor;
}

// A double as a sum of two of half the length, so that products of halves are exact (T. J. Dekker, A floating-point
// technique for extending the available precision, 1971).
struct Halves {
    explicit constexpr Halves(double value) : high(Splitter * value - (Splitter * value - value)), low(value - high) {}

    static constexpr double Splitter = 134217729.0;  // 2^27 + 1
    double high;
    double low;
};

// What a product of doubles loses by rounding, exactly (the same).
inline double ProductError(Halves a, Halves b, double product) {
    return ((a.high * b.high - product) + a.high * b.low + a.low * b.high) + a.low * b.low;
}

// A power of ten that a double holds exactly.
struct ExactPower {
    constexpr ExactPower(double power, double inversePower) : value(power), inverse(inversePower), halves(power) {}

    double value;
    double inverse;  // rounded
    Halves halves;
};
inline constexpr ExactPower ExactPowers[] = {{1e0, 1e0},    {1e1, 1e-1},   {1e2, 1e-2},   {1e3, 1e-3},   {1e4, 1e-4},
                                             {1e5, 1e-5},   {1e6, 1e-6},   {1e7, 1e-7},   {1e8, 1e-8},   {1e9, 1e-9},
                                             {1e10, 1e-10}, {1e11, 1e-11}, {1e12, 1e-12}, {1e13, 1e-13}, {1e14, 1e-14},
                                             {1e15, 1e-15}, {1e16, 1e-16}, {1e17, 1e-17}, {1e18, 1e-18}, {1e19, 1e-19}};

// integer / power, correctly rounded. An integer of up to 53 bits is an exact double, so the division rounds once and
// rightly (W. D. Clinger, How to read floating point numbers accurately, 1990). A longer one is a sum of two doubles.
// A quotient that is off by a few units in the last place is had by a product; what it lacks is then known to some
// fifty bits, which settles the rounding but for the rare case where two results are possible: false, then.
inline bool Divide(uint64 integer, const ExactPower& power, double* value) {
    const auto high = static_cast<double>(integer);
    if (integer <= uint64{1} << 53) {
        *value = high / power.value;
        return true;
    }
    const auto low = static_cast<double>(static_cast<int64>(integer - static_cast<uint64>(high)));
    const double quotient = high * power.inverse;
    const double product = quotient * power.value;
    const double rest = (high - product) - ProductError(Halves(quotient), power.halves, product) + low;
    const double correction = rest * power.inverse;
    const double doubt = std::fabs(correction) * 0x1p-44;
    *value = quotient + correction;
    return quotient + (correction - doubt) == *value && quotient + (correction + doubt) == *value;
}

}  // namespace plain

// Reads an integer of at most 18 digits. Where it ends, or null if the text is not for the fast lane.
inline const wchar16* ReadPlainInteger(const wchar16* text, int64* value) {
    const bool negative = *text == '-';
    const wchar16* const first = text + (negative ? 1 : 0);
    uint64 magnitude = 0;
    const wchar16* const end = plain::TakeDigits(first, magnitude);
    if (end == first || end - first > 18 || *end >= 0x80) return nullptr;
    *value = negative ? -static_cast<int64>(magnitude) : static_cast<int64>(magnitude);
    return end;
}

// Reads a number of at most 19 digits with an optional point among them. Null likewise.
inline const wchar16* ReadPlainDouble(const wchar16* text, double* value) {
    const bool negative = *text == '-';
    const wchar16* const first = text + (negative ? 1 : 0);
    uint64 integer = 0;
    const wchar16* end = plain::TakeDigits(first, integer);
    std::ptrdiff_t digits = end - first;
    std::ptrdiff_t places = 0;
    if (*end == '.') {
        const wchar16* const fraction = end + 1;
        end = plain::TakeManyDigits(fraction, integer);
        places = end - fraction;
        digits += places;
    }
    // Letters may go on with an exponent, or with a number in another base.
    if (digits == 0 || digits > 19 || *end >= 'A') return nullptr;
    double magnitude;
    if (!plain::Divide(integer, plain::ExactPowers[places], &magnitude)) return nullptr;
    *value = negative ? -magnitude : magnitude;
    return end;
}

}  // namespace Torvo
