#include <Utility/numbers/fixed_text.h>

#include <array>
#include <bit>
#include <cstring>

// A double is m * 2^-s with whole m below 2^53. Its fraction, f * 2^-s, times ten to the places is f * 10^places
// shifted right by s, and f * 10^places has at most 53 + 57 bits: all of it is exact in two words, the rest that is
// shifted out included, so that the rounding is too.

namespace Torvo {

namespace {

constexpr int MantissaBits = 52;
constexpr int ExponentBias = 1075;  // of a mantissa taken as a whole number
constexpr int WordBits = 64;

struct TwoWords {
    uint64 high;
    uint64 low;
};

constexpr auto PowersOfTen = [] {
    std::array<uint64, MostFixedPlaces + 1> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
    return powers;
}();

constexpr auto DigitPairs = [] {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

// The product of two words, by halves of words; schoolbook.
TwoWords Multiply(uint64 a, uint64 b) {
    const uint64 aHigh = a >> 32;
    const uint64 aLow = a & 0xFFFFFFFF;
    const uint64 bHigh = b >> 32;
    const uint64 bLow = b & 0xFFFFFFFF;
    const uint64 low = aLow * bLow;
    const uint64 middle = aHigh * bLow + (low >> 32);
    const uint64 other = aLow * bHigh + (middle & 0xFFFFFFFF);
    return {aHigh * bHigh + (middle >> 32) + (other >> 32), other << 32 | (low & 0xFFFFFFFF)};
}

// `value` / 2^shift rounded to even, where `isOdd` counts for a quotient of 0; `shift` is from 1 to 127, and the
// quotient fits one word.
uint64 ShiftAndRound(TwoWords value, int shift, bool isOdd) {
    uint64 quotient;
    TwoWords rest;  // what is shifted out, moved up so that its weight begins at the highest bit
    if (shift < WordBits) {
        quotient = value.high << (WordBits - shift) | value.low >> shift;
        rest = {value.low << (WordBits - shift), 0};
    } else if (shift == WordBits) {
        quotient = value.high;
        rest = {value.low, 0};
    } else {
        quotient = value.high >> (shift - WordBits);
        rest = {value.high << (2 * WordBits - shift) | value.low >> (shift - WordBits),
                value.low << (2 * WordBits - shift)};
    }
    constexpr uint64 half = uint64{1} << (WordBits - 1);
    const bool tie = rest.high == half && rest.low == 0;
    const bool up = tie ? ((quotient & 1) != 0 || isOdd) : rest.high >= half;
    return quotient + (up ? 1 : 0);
}

// Writes a number backwards, two digits at a time; where it begins.
char* WriteBackwards(uint64 number, char* end) {
    while (number >= 100) {
        end -= 2;
        std::memcpy(end, DigitPairs.data() + 2 * (number % 100), 2);
        number /= 100;
    }
    if (number >= 10) {
        end -= 2;
        std::memcpy(end, DigitPairs.data() + 2 * number, 2);
    } else {
        *--end = static_cast<char>('0' + number);
    }
    return end;
}

int CountDigits(uint64 number) {
    int count = 1;
    for (; number >= 10000; number /= 10000) count += 4;
    return count + (number >= 10) + (number >= 100) + (number >= 1000);
}

char* WriteNumber(uint64 number, char* at) {
    char* const end = at + CountDigits(number);
    WriteBackwards(number, end);
    return end;
}

// Exactly `places` digits, zeros in front.
char* WritePlaces(uint64 number, int32 places, char* at) {
    char* const end = at + places;
    char* cursor = end;
    for (; cursor - at >= 2; number /= 100) {
        cursor -= 2;
        std::memcpy(cursor, DigitPairs.data() + 2 * (number % 100), 2);
    }
    if (cursor != at) *at = static_cast<char>('0' + number);
    return end;
}

}  // namespace

char* PrintFixed(double value, int32 places, char* text) {
    const auto bits = std::bit_cast<uint64>(value);
    const int exponent = static_cast<int>(bits >> MantissaBits & 0x7FF);
    const int shift = ExponentBias - exponent;
    // Numbers below 2^-1022 have another form and are left out, but for 0.
    const bool isZero = bits << 1 == 0;
    if (places > MostFixedPlaces || shift < -11 || (exponent == 0 && !isZero)) return nullptr;

    uint64 whole = 0;
    uint64 fraction = 0;
    if (!isZero) {
        const uint64 mantissa = (bits & ((uint64{1} << MantissaBits) - 1)) | uint64{1} << MantissaBits;
        if (shift <= 0) {
            whole = mantissa << -shift;
        } else if (shift >= 2 * WordBits) {
            fraction = 0;  // too far behind the point for any place, and for a tie
        } else {
            whole = shift <= MantissaBits ? mantissa >> shift : 0;
            const uint64 behindPoint = shift <= MantissaBits ? mantissa & ((uint64{1} << shift) - 1) : mantissa;
            const uint64 power = PowersOfTen[static_cast<std::size_t>(places)];
            const bool wholeIsLast = places == 0 && (whole & 1) != 0;
            fraction = ShiftAndRound(Multiply(behindPoint, power), shift, wholeIsLast);
            if (fraction == power) {
                ++whole;
                fraction = 0;
            }
        }
    }
    if (bits >> 63 != 0) *text++ = '-';
    text = WriteNumber(whole, text);
    if (places == 0) return text;
    *text++ = '.';
    return WritePlaces(fraction, places, text);
}

}  // namespace Torvo
