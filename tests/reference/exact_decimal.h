// A double as the exact decimal number that it is, by long multiplication and division; slow and plain.
#pragma once

#include <algorithm>
#include <cmath>
#include <string>

namespace Torvo::test {

// Digits without a point: the number is 0.DIGITS times ten to the power `point`.
struct ExactDecimal {
    std::string digits;
    int point = 0;
};

// Doubles every digit of a number written in decimal.
inline void Double(std::string& digits) {
    int carry = 0;
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        const int value = (*digit - '0') * 2 + carry;
        *digit = static_cast<char>('0' + value % 10);
        carry = value / 10;
    }
    if (carry != 0) digits.insert(digits.begin(), static_cast<char>('0' + carry));
}

// Halves it; the digits behind the point grow by one if needed.
inline void Halve(std::string& digits) {
    int rest = 0;
    for (char& digit : digits) {
        const int value = rest * 10 + (digit - '0');
        digit = static_cast<char>('0' + value / 2);
        rest = value % 2;
    }
    if (rest != 0) digits += '5';
}

inline ExactDecimal ToExactDecimal(double magnitude) {
    if (magnitude == 0) return {"0", 0};
    int exponent = 0;
    const double fraction = std::frexp(magnitude, &exponent);
    ExactDecimal number{std::to_string(static_cast<long long>(std::ldexp(fraction, 53))), 0};
    exponent -= 53;
    for (; exponent > 0; --exponent) Double(number.digits);
    number.point = static_cast<int>(number.digits.size());
    for (; exponent < 0; ++exponent) Halve(number.digits);
    while (number.digits.size() > 1 && number.digits[0] == '0') {
        number.digits.erase(0, 1);
        --number.point;
    }
    return number;
}

// The first `count` significant digits, halves rounded away from zero, with the place of the point; zeros for 0.
inline ExactDecimal RoundToDigits(double magnitude, int count) {
    ExactDecimal number = ToExactDecimal(magnitude);
    number.digits.resize(std::max<std::size_t>(number.digits.size(), static_cast<std::size_t>(count) + 1), '0');
    const bool up = number.digits[static_cast<std::size_t>(count)] >= '5';
    number.digits.resize(static_cast<std::size_t>(count));
    if (!up) return number;
    for (auto digit = number.digits.rbegin(); digit != number.digits.rend(); ++digit) {
        if (*digit != '9') {
            ++*digit;
            return number;
        }
        *digit = '0';
    }
    number.digits = "1" + number.digits;
    number.digits.resize(static_cast<std::size_t>(count));
    ++number.point;
    return number;
}

}  // namespace Torvo::test
