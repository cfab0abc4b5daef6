#include <Utility/numbers/sql_number_picture.h>

namespace Torvo {

namespace {

bool EndsWithSign(const wchar16* format, const wchar16* end) {
    const auto last = [&](int back) { return end - format >= back ? UpperFormatUnit(end[-back]) : wchar16{0}; };
    return last(1) == 'S' || (last(1) == 'I' && last(2) == 'M');
}

}  // namespace

FormatFault NumberPicture::Compile(const wchar16* format, NumberSymbols& symbols) {
    leadingSign = UpperFormatUnit(*format) == 'S';
    if (leadingSign) units[length++] = ' ';

    const wchar16* cursor = format;
    for (; *cursor != 0; ++cursor) {
        const FormatFault fault = Take(UpperFormatUnit(*cursor), symbols);
        if (fault != FormatFault::None) return fault;
    }
    trailingSign = EndsWithSign(format, cursor);
    units[length] = 0;
    if (currencyAt > 0 && currencyAt < length - 1) return FormatFault::MisplacedCurrency;
    ForceZerosInFraction();
    return FormatFault::None;
}

FormatFault NumberPicture::Take(wchar16 unit, NumberSymbols& symbols) {
    switch (unit) {
        case '$':
            return TakeCurrency('$');
        case 'L':
            return TakeCurrency(symbols.Currency());
        case '+':
        case '-':
            return TakeExponentSign(unit);
        case ',':
            return TakeSeparator(',');
        case 'G':
            return TakeSeparator(thousands = symbols.Thousands());
        case '.':
            return TakePoint('.');
        case 'D':
            return TakePoint(symbols.Decimal());
        case '0':
        case '9':
            return TakeDigit(unit);
        case 'E':
            return TakeExponent('E');
        default:
            return FormatFault::None;
    }
}

FormatFault NumberPicture::TakeCurrency(wchar16 unit) {
    if (currencyAt >= 0) return FormatFault::MisplacedCurrency;
    currencyAt = length;
    return Write(unit);
}

// At the very start of a format, -1 is the position before it, so a sign passes there.
FormatFault NumberPicture::TakeExponentSign(wchar16 unit) {
    if (exponentAt != length - 1) return FormatFault::MisplacedExponentSign;
    exponentSignAt = length;
    return Write(unit);
}

FormatFault NumberPicture::TakeSeparator(wchar16 unit) {
    return pointAt >= 0 ? FormatFault::MisplacedSeparator : Write(unit);
}

FormatFault NumberPicture::TakePoint(wchar16 unit) {
    if (pointAt >= 0) return FormatFault::SecondPoint;
    pointAt = length;
    return Write(unit);
}

// Right of a "0" in the integer part, every position shows a digit.
FormatFault NumberPicture::TakeDigit(wchar16 unit) {
    ++DigitCount();
    if (unit == '0') zeroSeen = true;
    return Write(zeroSeen && pointAt < 0 ? wchar16{'0'} : unit);
}

FormatFault NumberPicture::TakeExponent(wchar16 unit) {
    if (HasExponent()) return FormatFault::SecondExponent;
    exponentAt = length;
    if (pointAt < 0) pointAt = length;
    return Write(unit);
}

FormatFault NumberPicture::Write(wchar16 unit) {
    if (length == MaxLength) return FormatFault::TooLong;
    units[length++] = unit;
    return FormatFault::None;
}

int& NumberPicture::DigitCount() {
    if (pointAt < 0) return integerDigits;
    return HasExponent() ? exponentDigits : fractionDigits;
}

// Left of a "0" in the fraction, every position shows a digit; likewise in the exponent. The walk knows the point by
// the characters "." and "D", whatever the locale's is: past another one it goes on through the integer part.
void NumberPicture::ForceZerosInFraction() {
    if (pointAt < 0) return;
    bool zero = false;
    for (int index = length - 1; index >= 1; --index) {
        wchar16& unit = units[index];
        if (unit == '.' || unit == 'D') return;
        if (unit == '0') zero = true;
        if (unit == '9' && zero) unit = '0';
        if (unit != 'E') continue;
        zero = false;
        if (pointAt == exponentAt) return;
    }
}

}  // namespace Torvo
