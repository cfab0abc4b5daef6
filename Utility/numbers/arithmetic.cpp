#include <Utility/arithmetic.h>

#include <Utility/numbers/rounding.h>

#include <bit>
#include <cmath>

namespace Torvo {

namespace {

constexpr uint64 NaNBits = 0x7FFFFFFFFFFFFFFF;
constexpr uint32 ReflectedPolynomial = 0xA001;

int16 LowShort(int32 value) {
    return static_cast<int16>(value);
}

int32 Magnitude(int32 value) {
    return value < 0 ? detail::WrappingNegate(value) : value;
}

// a * b + c / 2, where c / 2 cuts towards zero.
int32 ProductWithHalf(int32 a, int32 b, int32 c) {
    return detail::WrappingAdd(detail::WrappingMultiply(a, b), c / 2);
}

uint32 CrcOfByte(uint32 byte) {
    for (int bit = 0; bit < 8; ++bit) byte = (byte & 1) != 0 ? byte >> 1 ^ ReflectedPolynomial : byte >> 1;
    return byte;
}

}  // namespace

int32 DoubleToINT32(double value) {
    return detail::RoundToInt32(value);
}

int32 DoubleToINT32Clip(double value) {
    return detail::RoundToInt32(detail::Clamp<double>(value, detail::LowestInt32, detail::HighestInt32));
}

int16 DoubleToShort(double value) {
    return LowShort(detail::RoundToInt32(value));
}

int16 DoubleToShortClip(double value) {
    // The lowest value of the type, as for every other conversion of a NaN.
    if (IsNaN(value)) return -32768;
    return LowShort(detail::RoundToInt32(detail::Clamp(value, -32768.0, 32767.0)));
}

int64 DoubleToInt64(double value) {
    return detail::TruncateToInt64(detail::AddHalf(value));
}

int64 DoubleToInt64Clip(double value) {
    return DoubleToInt64(value);
}

double GetNaN() {
    return std::bit_cast<double>(NaNBits);
}

void SetNaN(double& value) {
    value = GetNaN();
}

bool IsNaN(double value) {
    return value != value;
}

int32 INT32Add(int32 a, int32 b) {
    return detail::SaturatingAdd(a, b);
}

int32 INT32AddCoords(int32 a, int32 b, int32 low, int32 high) {
    return detail::AddCoords(a, b, low, high);
}

int16 ShortAdd(int16 a, int16 b) {
    return LowShort(detail::Clamp(a + b, -32768, 32767));
}

int32 INT32RoundDiv(int32 a, int32 b) {
    if (b == 0) return a;
    const int32 divisor = Magnitude(b);
    const int32 quotient = detail::WrappingAdd(Magnitude(a), divisor >> 1) / divisor;
    return (a < 0) != (b < 0) ? detail::WrappingNegate(quotient) : quotient;
}

int IntegerMulDiv(int a, int b, int c) {
    return c == 0 ? 0 : detail::WrappingDivide(ProductWithHalf(a, b, c), c);
}

int IntegerMulDivScale(int a, int b, int c, double d) {
    return DoubleToShort(ProductWithHalf(a, b, c) * d / c);
}

int32 RoundToPatternSize(int32 value, bool keepZero, int32 size) {
    if (size == 0) return value;
    const int16 step = LowShort(value > 0 ? size : detail::WrappingNegate(size));
    const int32 steps = detail::WrappingDivide(detail::WrappingAdd(value, step / 2), size);
    const int32 rounded = detail::WrappingMultiply(steps, size);
    return rounded == 0 && !keepZero && value != 0 ? step : rounded;
}

double zu_round(double value, double step) {
    return step == 0.0 ? value : std::floor((step * 0.5 + value) / step) * step;
}

unsigned short calculate_crc16(const unsigned char* data, unsigned int length, unsigned short* const table, bool build,
                               int tableSize) {
    if (table == nullptr) return 0;
    if (build) {
        for (int i = 0; i < tableSize; ++i) table[i] = static_cast<unsigned short>(CrcOfByte(static_cast<uint32>(i)));
    }
    if (data == nullptr) return 0;
    uint32 crc = 0;
    for (unsigned int i = 0; i < length; ++i) crc = crc >> 8 ^ table[(data[i] ^ crc) & 0xFF];
    return static_cast<unsigned short>(crc);
}

}  // namespace Torvo
