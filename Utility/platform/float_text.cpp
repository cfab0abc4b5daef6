#include <Utility/platform/float_text.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <iterator>

namespace Torvo::platform {

namespace {

constexpr int FractionBits = 52;
constexpr uint64 FractionMask = (uint64{1} << FractionBits) - 1;
constexpr uint64 QuietBit = uint64{1} << (FractionBits - 1);

constexpr char LowerCase(char type) {
    return static_cast<char>(type | 0x20);
}

// What the runtime calls a number that is none. The one that the processor itself makes has only the sign and the quiet
// bit set.
std::string_view NotANumberText(uint64 bits) {
    const uint64 payload = bits & FractionMask;
    if ((payload & QuietBit) == 0) return "nan(snan)";
    const bool negative = bits >> 63 != 0;
    return negative && payload == QuietBit ? "nan(ind)" : "nan";
}

}  // namespace

void ToUpper(char* begin, const char* end) {
    std::transform(begin, const_cast<char*>(end), begin,
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c; });
}

FloatText::FloatText(double value, char type, int precision, bool alternate)
    : isNumber(std::isfinite(value)), isNegative(std::signbit(value)) {
    const double magnitude = std::fabs(value);
    const uint64 digits = precision < 0 ? 6 : static_cast<uint64>(precision);
    const bool capitals = type != LowerCase(type);
    if (!isNumber) {
        PrintSpecial(value);
    } else if (LowerCase(type) == 'f') {
        PrintFixed(magnitude, digits);
    } else if (LowerCase(type) == 'e') {
        PrintScientific(magnitude, digits);
    } else if (LowerCase(type) == 'g') {
        PrintGeneral(magnitude, std::max<uint64>(digits, 1), alternate);
    } else {
        PrintHexadecimal(magnitude, precision);
        prefix = capitals ? "0X" : "0x";
    }
    if (alternate && isNumber) hasPoint = true;
    if (capitals)
        ToUpper(buffer.data(), exponent.empty() ? whole.data() + whole.size() : exponent.data() + exponent.size());
}

void FloatText::PrintSpecial(double value) {
    const std::string_view text = std::isinf(value) ? "inf" : NotANumberText(std::bit_cast<uint64>(value));
    TakeApart(std::copy(text.begin(), text.end(), buffer.begin()));
}

void FloatText::PrintFixed(double value, uint64 precision) {
    const uint64 printed = std::min(precision, MostDigits);
    TakeApart(
        std::to_chars(buffer.begin(), buffer.end(), value, std::chars_format::fixed, static_cast<int>(printed)).ptr);
    zeros = precision - printed;
}

void FloatText::PrintScientific(double value, uint64 precision) {
    const uint64 printed = std::min(precision, MostDigits);
    TakeApart(
        std::to_chars(buffer.begin(), buffer.end(), value, std::chars_format::scientific, static_cast<int>(printed))
            .ptr);
    zeros = precision - printed;
}

// `precision` counts all digits. The exponent that decides between the two forms is the one behind the rounding.
void FloatText::PrintGeneral(double value, uint64 precision, bool keepZeros) {
    if (!keepZeros) {
        const int printed = static_cast<int>(std::min(precision, MostDigits));
        TakeApart(std::to_chars(buffer.begin(), buffer.end(), value, std::chars_format::general, printed).ptr);
        return;
    }
    PrintScientific(value, precision - 1);
    int64 power = 0;
    std::from_chars(exponent.data() + 2, exponent.data() + exponent.size(), power);
    if (exponent[1] == '-') power = -power;
    if (power < -4 || power >= static_cast<int64>(precision)) return;
    PrintFixed(value, static_cast<uint64>(static_cast<int64>(precision) - 1 - power));
}

// One digit before the point, 0 only for zero and the numbers below the smallest normal one. A carry out of the
// fraction stays in that digit.
void FloatText::PrintHexadecimal(double value, int precision) {
    constexpr uint64 AllDigits = FractionBits / 4;
    const uint64 bits = std::bit_cast<uint64>(value);
    const int biased = static_cast<int>(bits >> FractionBits);
    uint64 digits = (bits & FractionMask) | (biased != 0 ? uint64{1} << FractionBits : 0);
    const int power = value == 0 ? 0 : std::max(biased, 1) - 1023;

    const uint64 asked = precision < 0 ? AllDigits : static_cast<uint64>(precision);
    const uint64 printed = std::min(asked, AllDigits);
    const uint64 dropped = (AllDigits - printed) * 4;
    if (dropped > 0) {
        const uint64 half = uint64{1} << (dropped - 1);
        const uint64 odd = (digits >> dropped) & 1;
        digits = (digits + half - 1 + odd) >> dropped;
    }
    char* end = buffer.data();
    *end++ = static_cast<char>('0' + (digits >> (printed * 4)));
    if (printed > 0) *end++ = '.';
    for (uint64 left = printed; left > 0; --left) *end++ = "0123456789abcdef"[(digits >> ((left - 1) * 4)) & 15];
    *end++ = 'p';
    *end++ = power < 0 ? '-' : '+';
    end = std::to_chars(end, buffer.data() + buffer.size(), std::abs(power)).ptr;
    TakeApart(end);
    zeros = asked - printed;
}

// Finds the pieces in what stands in the buffer.
void FloatText::TakeApart(const char* end) {
    const std::string_view text(buffer.data(), static_cast<uint64>(end - buffer.data()));
    const char mark = text.find('p') != text.npos ? 'p' : 'e';
    const uint64 exponentAt = isNumber ? std::min(text.find(mark), text.size()) : text.size();
    const uint64 pointAt = std::min(text.find('.'), exponentAt);
    whole = text.substr(0, pointAt);
    hasPoint = pointAt < exponentAt;
    fraction = hasPoint ? text.substr(pointAt + 1, exponentAt - pointAt - 1) : std::string_view();
    exponent = text.substr(exponentAt);
}

}  // namespace Torvo::platform
