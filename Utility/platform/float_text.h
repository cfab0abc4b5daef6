// The text of a double as printf prints it, in pieces: sign, prefix, digits before and behind the point, zeros that
// only fill a long precision, exponent. The digits are exact, ties rounded to even.
#pragma once

#include <Utility/platform/types.h>

#include <array>
#include <string_view>

namespace Torvo::platform {

class FloatText {
public:
    // `type` is one of "efgaEFGA"; a precision below 0 means the default, 6, or 13 for "a"; `alternate` keeps the point
    // where no digits follow, and the zeros that "g" would drop.
    FloatText(double value, char type, int precision, bool alternate);
    FloatText(const FloatText&) = delete;
    FloatText& operator=(const FloatText&) = delete;

    bool IsNumber() const { return isNumber; }  // neither infinite nor not-a-number
    bool IsNegative() const { return isNegative; }
    std::string_view Prefix() const { return prefix; }  // "0x", or nothing
    std::string_view Whole() const { return whole; }    // all of the text where it is no number
    bool HasPoint() const { return hasPoint; }
    std::string_view Fraction() const { return fraction; }
    uint64 Zeros() const { return zeros; }
    std::string_view Exponent() const { return exponent; }

private:
    void PrintSpecial(double value);
    void PrintFixed(double value, uint64 precision);
    void PrintScientific(double value, uint64 precision);
    void PrintGeneral(double value, uint64 precision, bool keepZeros);
    void PrintHexadecimal(double value, int precision);
    void TakeApart(const char* end);

    // No double has more digits than this on either side of the point, so what a longer precision asks for is zeros.
    static constexpr uint64 MostDigits = 1074;

    std::array<char, 1424> buffer;  // 309 digits before the point, 1074 behind it, exponent, sign, point
    std::string_view prefix;
    std::string_view whole;
    std::string_view fraction;
    std::string_view exponent;
    uint64 zeros = 0;
    bool isNumber;
    bool isNegative;
    bool hasPoint = false;
};

// Turns the lower-case letters of a number into capitals.
void ToUpper(char* begin, const char* end);

}  // namespace Torvo::platform
