// A picture format, compiled: one unit for each position, and what printing has to know of them.
#pragma once

#include <Utility/numbers/number_symbols.h>

namespace Torvo {

// The resource identifiers of what can be wrong with a format.
enum class FormatFault : int32 {
    None = 0,
    SecondPoint = 68,
    MisplacedSeparator = 70,
    MisplacedCurrency = 71,
    SecondExponent = 72,
    MisplacedExponentSign = 73,
    TooLong = -1  // nothing is reported
};

class NumberPicture {
public:
    static constexpr int MaxLength = 511;

    // Compiles a format. On any fault the picture is of no use.
    FormatFault Compile(const wchar16* format, NumberSymbols& symbols);

    bool HasSignPosition() const { return leadingSign || trailingSign; }
    bool HasExponent() const { return exponentAt >= 0; }
    bool IsSeparator(wchar16 unit) const { return unit == ',' || unit == thousands; }
    // Where a digit position may first stand: behind a sign at the start.
    int First() const { return leadingSign ? 1 : 0; }

    wchar16 units[MaxLength + 2];  // with room for a sign behind the last position, and the terminator
    int length = 0;
    bool leadingSign = false;
    bool trailingSign = false;

    // Digit positions before the point, behind it, and behind the "E".
    int integerDigits = 0;
    int fractionDigits = 0;
    int exponentDigits = 0;

    // Positions, or -1. Without a point of its own, an exponent counts as the point.
    int pointAt = -1;
    int exponentAt = -1;
    int currencyAt = -1;
    int exponentSignAt = -1;

private:
    FormatFault Take(wchar16 unit, NumberSymbols& symbols);
    FormatFault TakeCurrency(wchar16 unit);
    FormatFault TakeExponentSign(wchar16 unit);
    FormatFault TakeSeparator(wchar16 unit);
    FormatFault TakePoint(wchar16 unit);
    FormatFault TakeDigit(wchar16 unit);
    FormatFault TakeExponent(wchar16 unit);
    FormatFault Write(wchar16 unit);
    int& DigitCount();
    void ForceZerosInFraction();

    wchar16 thousands = ',';  // the locale's from the first "G" on
    bool zeroSeen = false;
};

}  // namespace Torvo
