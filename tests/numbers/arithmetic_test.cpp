#include <Utility/arithmetic.h>
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <random>

namespace arithmetic_test {
namespace {

using namespace Torvo;

constexpr int32 Lowest = std::numeric_limits<int32>::min();
constexpr int32 Highest = std::numeric_limits<int32>::max();
constexpr int64 Lowest64 = std::numeric_limits<int64>::min();
constexpr double Infinity = std::numeric_limits<double>::infinity();

// Rounding ------------------------------------------------------------------------------------------------------------

TEST(Rounding, HalvesGoAwayFromZero) {
    EXPECT_EQ(DoubleToINT32(2.5), 3);
    EXPECT_EQ(DoubleToINT32(-2.5), -3);
    EXPECT_EQ(DoubleToINT32(0.5), 1);
    EXPECT_EQ(DoubleToINT32(-0.5), -1);
    EXPECT_EQ(DoubleToINT32(0.0), 0);
    EXPECT_EQ(DoubleToINT32(-0.0), 0);
    EXPECT_EQ(DoubleToINT32(0.49), 0);
    EXPECT_EQ(DoubleToINT32(-0.49), 0);
    EXPECT_EQ(DoubleToINT32(1.4999), 1);
}

TEST(Rounding, AddingTheHalfIsASumOfDoubles) {
    EXPECT_EQ(DoubleToINT32(std::nextafter(0.5, 0.0)), 1);
    EXPECT_EQ(DoubleToInt64(4503599627370497.0), 4503599627370498);  // 2^52 + 1: the sum is halfway and goes to even
}

TEST(Rounding, WhatDoesNotFitBecomesTheLowestValue) {
    EXPECT_EQ(DoubleToINT32(3e9), Lowest);
    EXPECT_EQ(DoubleToINT32(-3e9), Lowest);
    EXPECT_EQ(DoubleToINT32(Infinity), Lowest);
    EXPECT_EQ(DoubleToINT32(GetNaN()), Lowest);
    EXPECT_EQ(DoubleToINT32(2147483647.0), Highest);
    EXPECT_EQ(DoubleToINT32(2147483647.4), Highest);
    EXPECT_EQ(DoubleToINT32(2147483647.5), Lowest);
    EXPECT_EQ(DoubleToINT32(-2147483648.4), Lowest);
    EXPECT_EQ(DoubleToInt64(1e30), Lowest64);
    EXPECT_EQ(DoubleToInt64(-1e30), Lowest64);
    EXPECT_EQ(DoubleToInt64(GetNaN()), Lowest64);
    EXPECT_EQ(DoubleToInt64(3e9), 3000000000);
    EXPECT_EQ(DoubleToInt64(-2.5), -3);
}

TEST(Rounding, ClipHoldsAtTheLimits) {
    EXPECT_EQ(DoubleToINT32Clip(3e9), Highest);
    EXPECT_EQ(DoubleToINT32Clip(-3e9), Lowest);
    EXPECT_EQ(DoubleToINT32Clip(2147483647.5), Highest);
    EXPECT_EQ(DoubleToINT32Clip(Infinity), Highest);
    EXPECT_EQ(DoubleToINT32Clip(-Infinity), Lowest);
    EXPECT_EQ(DoubleToINT32Clip(GetNaN()), Lowest);
    EXPECT_EQ(DoubleToINT32Clip(-2.5), -3);
}

TEST(Rounding, ShortsWrapOrAreHeld) {
    EXPECT_EQ(DoubleToShort(70000.0), 4464);
    EXPECT_EQ(DoubleToShort(32767.5), -32768);
    EXPECT_EQ(DoubleToShort(-2.5), -3);
    EXPECT_EQ(DoubleToShort(3e9), 0);  // the low half of the lowest 32-bit value
    EXPECT_EQ(DoubleToShort(GetNaN()), 0);
    EXPECT_EQ(DoubleToShortClip(70000.0), 32767);
    EXPECT_EQ(DoubleToShortClip(-70000.0), -32768);
    EXPECT_EQ(DoubleToShortClip(32767.4), 32767);
    EXPECT_EQ(DoubleToShortClip(2.5), 3);
    EXPECT_EQ(DoubleToShortClip(Infinity), 32767);
    EXPECT_EQ(DoubleToShortClip(GetNaN()), -32768);
}

TEST(Rounding, Int64ClipHoldsNothing) {
    EXPECT_EQ(DoubleToInt64Clip(1e30), Lowest64);
    EXPECT_EQ(DoubleToInt64Clip(-1e30), Lowest64);
    EXPECT_EQ(DoubleToInt64Clip(2.5), 3);
}

TEST(Rounding, AgreesWithThePlainFormOnRandomValues) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 200000; ++i) {
        const double value =
            std::ldexp(static_cast<double>(static_cast<int64>(random())), -static_cast<int>(random() % 64));
        const double rounded = std::trunc(value > 0 ? value + 0.5 : value - 0.5);
        const bool fits = rounded >= -2147483648.0 && rounded <= 2147483647.0;
        ASSERT_EQ(DoubleToINT32(value), fits ? static_cast<int32>(rounded) : Lowest) << value;
        ASSERT_EQ(DoubleToINT32Clip(value), fits ? static_cast<int32>(rounded) : value > 0 ? Highest : Lowest) << value;
        ASSERT_EQ(DoubleToInt64(value), rounded < 0x1p63 ? static_cast<int64>(rounded) : Lowest64) << value;
    }
}

// NaN -----------------------------------------------------------------------------------------------------------------

TEST(NaN, HasAllBitsButTheSign) {
    EXPECT_EQ(std::bit_cast<uint64>(GetNaN()), 0x7FFFFFFFFFFFFFFFu);
    double value = 1;
    SetNaN(value);
    EXPECT_EQ(std::bit_cast<uint64>(value), 0x7FFFFFFFFFFFFFFFu);
}

TEST(NaN, AnyNaNIsRecognised) {
    EXPECT_TRUE(IsNaN(GetNaN()));
    EXPECT_TRUE(IsNaN(std::bit_cast<double>(uint64{0xFFF8000000000000})));
    EXPECT_TRUE(IsNaN(std::bit_cast<double>(uint64{0x7FF0000000000001})));
    EXPECT_FALSE(IsNaN(Infinity));
    EXPECT_FALSE(IsNaN(-Infinity));
    EXPECT_FALSE(IsNaN(0.0));
}

// Integers ------------------------------------------------------------------------------------------------------------

TEST(SaturatingSums, AreHeldAtTheLimitsOfTheType) {
    EXPECT_EQ(INT32Add(Highest, 1), Highest);
    EXPECT_EQ(INT32Add(Lowest, -1), Lowest);
    EXPECT_EQ(INT32Add(Lowest, Lowest), Lowest);
    EXPECT_EQ(INT32Add(Highest, Lowest), -1);
    EXPECT_EQ(INT32Add(2, 3), 5);
    EXPECT_EQ(ShortAdd(32767, 1), 32767);
    EXPECT_EQ(ShortAdd(-32768, -1), -32768);
    EXPECT_EQ(ShortAdd(32767, -32768), -1);
}

TEST(SaturatingSums, TheLowLimitIsTestedFirstOnTheHeldSum) {
    EXPECT_EQ(INT32AddCoords(Highest, 1, -1000, 1000), 1000);
    EXPECT_EQ(INT32AddCoords(Lowest, -1, -1000, 1000), -1000);
    EXPECT_EQ(INT32AddCoords(1, 2, -1000, 1000), 3);
    EXPECT_EQ(INT32AddCoords(1, 2, 10, 5), 10);  // limits the wrong way round: below low gives low
    EXPECT_EQ(INT32AddCoords(8, 12, 10, 5), 5);  // not below low: the smaller of the sum and high
    EXPECT_EQ(INT32AddCoords(Highest, Highest, Lowest, Highest), Highest);
}

TEST(RoundedDivision, HalvesGoAwayFromZero) {
    EXPECT_EQ(INT32RoundDiv(7, 2), 4);
    EXPECT_EQ(INT32RoundDiv(-7, 2), -4);
    EXPECT_EQ(INT32RoundDiv(7, -2), -4);
    EXPECT_EQ(INT32RoundDiv(-7, -2), 4);
    EXPECT_EQ(INT32RoundDiv(7, 3), 2);
    EXPECT_EQ(INT32RoundDiv(8, 3), 3);
    EXPECT_EQ(INT32RoundDiv(0, -5), 0);
    EXPECT_EQ(INT32RoundDiv(1, 3), 0);
}

TEST(RoundedDivision, ADivisorOfZeroGivesTheDividend) {
    EXPECT_EQ(INT32RoundDiv(7, 0), 7);
    EXPECT_EQ(INT32RoundDiv(Lowest, 0), Lowest);
}

TEST(RoundedDivision, TheSumWithTheHalfWraps) {
    EXPECT_EQ(INT32RoundDiv(Highest, 1), Highest);
    EXPECT_EQ(INT32RoundDiv(Highest, 2), Lowest / 2);
    EXPECT_EQ(INT32RoundDiv(Highest, 3), Lowest / 3);
    EXPECT_EQ(INT32RoundDiv(Lowest, -1), Lowest);
    EXPECT_EQ(INT32RoundDiv(Lowest, 1), Lowest);
}

TEST(MulDiv, RoundsByHalfTheDivisorTowardsZero) {
    EXPECT_EQ(IntegerMulDiv(1, 5, 2), 3);
    EXPECT_EQ(IntegerMulDiv(-1, 5, 2), -2);
    EXPECT_EQ(IntegerMulDiv(1, 5, -2), -2);
    EXPECT_EQ(IntegerMulDiv(1, 5, -3), -1);  // (5 - 1) / -3
    EXPECT_EQ(IntegerMulDiv(100, 30, 7), 429);
}

TEST(MulDiv, WrapsIn32Bits) {
    EXPECT_EQ(IntegerMulDiv(65536, 65536, 1), 0);
    EXPECT_EQ(IntegerMulDiv(Highest, 2, 1), -2);
    EXPECT_EQ(IntegerMulDiv(Highest, 1, 2), Lowest / 2);
    EXPECT_EQ(IntegerMulDiv(Lowest, 1, -1), Lowest);
}

TEST(MulDiv, ADivisorOfZeroIsHarmless) {
    EXPECT_EQ(IntegerMulDiv(3, 4, 0), 0);
    EXPECT_EQ(IntegerMulDivScale(3, 4, 0, 1.0), 0);
}

TEST(MulDivScale, RoundsAndKeepsSixteenBits) {
    EXPECT_EQ(IntegerMulDivScale(1, 5, 2, 1.0), 3);    // (5 + 1) * 1.0 / 2
    EXPECT_EQ(IntegerMulDivScale(1, 5, 2, 0.5), 2);    // 1.5 rounds to 2
    EXPECT_EQ(IntegerMulDivScale(-1, 6, 2, 0.5), -1);  // -5 * 0.5 / 2 is -1.25
    EXPECT_EQ(IntegerMulDivScale(1000, 70, 1, 1.0), 4464);
    EXPECT_EQ(IntegerMulDivScale(1000, 40, 1, 1.0), -25536);
    EXPECT_EQ(IntegerMulDivScale(65536, 65536, 2, 8.0), 4);  // the product wraps to 0
    EXPECT_EQ(IntegerMulDivScale(1, 1, 1, GetNaN()), 0);
}

TEST(PatternSize, RoundsToAMultipleButNotAwayToNothing) {
    EXPECT_EQ(RoundToPatternSize(1, false, 8), 8);
    EXPECT_EQ(RoundToPatternSize(-1, false, 8), -8);
    EXPECT_EQ(RoundToPatternSize(1, true, 8), 0);
    EXPECT_EQ(RoundToPatternSize(-1, true, 8), 0);
    EXPECT_EQ(RoundToPatternSize(0, false, 8), 0);
    EXPECT_EQ(RoundToPatternSize(11, false, 8), 8);
    EXPECT_EQ(RoundToPatternSize(12, false, 8), 16);
    EXPECT_EQ(RoundToPatternSize(-12, false, 8), -16);
    EXPECT_EQ(RoundToPatternSize(7, false, 5), 5);
    EXPECT_EQ(RoundToPatternSize(8, false, 5), 10);
}

TEST(PatternSize, TheStepHasSixteenBits) {
    EXPECT_EQ(RoundToPatternSize(1, false, 40000), -25536);      // the step itself, wrapped
    EXPECT_EQ(RoundToPatternSize(30000, false, 40000), -25536);  // (30000 - 12768) / 40000 is 0
    EXPECT_EQ(RoundToPatternSize(60000, false, 40000), 40000);
    EXPECT_EQ(RoundToPatternSize(-1, false, 40000), 25536);
}

TEST(PatternSize, ASizeOfZeroGivesTheValue) {
    EXPECT_EQ(RoundToPatternSize(17, false, 0), 17);
    EXPECT_EQ(RoundToPatternSize(Lowest, false, -1), Lowest);
}

TEST(RoundToStep, HalvesGoUp) {
    EXPECT_EQ(zu_round(2.5, 1.0), 3.0);
    EXPECT_EQ(zu_round(-2.5, 1.0), -2.0);
    EXPECT_EQ(zu_round(2.4, 1.0), 2.0);
    EXPECT_EQ(zu_round(12.0, 5.0), 10.0);
    EXPECT_EQ(zu_round(12.5, 5.0), 15.0);
    EXPECT_EQ(zu_round(1.3, 0.25), 1.25);
    EXPECT_EQ(zu_round(2.4, -1.0), 2.0);  // floor(-1.9) * -1
}

TEST(RoundToStep, AStepOfZeroGivesTheValue) {
    EXPECT_EQ(zu_round(2.3, 0.0), 2.3);
    EXPECT_EQ(zu_round(2.3, -0.0), 2.3);
    EXPECT_TRUE(IsNaN(zu_round(GetNaN(), 1.0)));
}

// CRC -----------------------------------------------------------------------------------------------------------------

const unsigned char* Bytes(const char* text) {
    return reinterpret_cast<const unsigned char*>(text);
}

// Bit by bit, without a table.
unsigned PlainCrc(const unsigned char* data, std::size_t length) {
    unsigned crc = 0;
    for (std::size_t i = 0; i < length; ++i) {
        crc ^= data[i];
        for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ (0xA001u * (crc & 1u));
    }
    return crc;
}

TEST(Crc16, KnownValueAndEmptyInput) {
    std::array<unsigned short, 256> table{};
    EXPECT_EQ(calculate_crc16(Bytes("123456789"), 9, table.data(), true, 256), 0xBB3D);
    EXPECT_EQ(calculate_crc16(nullptr, 0, table.data(), false, 256), 0);
}

TEST(Crc16, WithoutDataOrATableItIsZero) {
    std::array<unsigned short, 256> table{};
    EXPECT_EQ(calculate_crc16(Bytes("123456789"), 9, nullptr, true, 256), 0);
    EXPECT_EQ(calculate_crc16(Bytes("123456789"), 9, nullptr, false, 256), 0);
    EXPECT_EQ(calculate_crc16(nullptr, 9, table.data(), true, 256), 0);
    EXPECT_EQ(table[1], 0xC0C1) << "built all the same";
}

TEST(Crc16, TheTableIsBuiltOnceAndUsedAgain) {
    std::array<unsigned short, 256> table{};
    EXPECT_EQ(calculate_crc16(nullptr, 0, table.data(), true, 256), 0);
    EXPECT_EQ(table[0], 0);
    EXPECT_EQ(table[1], 0xC0C1);
    EXPECT_EQ(table[255], 0x4040);
    EXPECT_EQ(calculate_crc16(Bytes("123456789"), 9, table.data(), false, 256), 0xBB3D);
}

TEST(Crc16, OnlyTheFirstEntriesAreBuilt) {
    std::array<unsigned short, 256> table;
    table.fill(0x1234);
    calculate_crc16(nullptr, 0, table.data(), true, 2);
    EXPECT_EQ(table[1], 0xC0C1);
    EXPECT_EQ(table[2], 0x1234);
    calculate_crc16(nullptr, 0, table.data(), true, 0);
    calculate_crc16(nullptr, 0, table.data(), true, -5);
    calculate_crc16(nullptr, 0, table.data(), false, 256);
    EXPECT_EQ(table[2], 0x1234);
}

TEST(Crc16, AgreesWithThePlainFormOnRandomBytes) {
    std::mt19937 random(2);
    std::array<unsigned short, 256> table{};
    calculate_crc16(nullptr, 0, table.data(), true, 256);
    for (unsigned length = 0; length < 300; ++length) {
        std::array<unsigned char, 300> data{};
        for (auto& byte : data) byte = static_cast<unsigned char>(random());
        ASSERT_EQ(calculate_crc16(data.data(), length, table.data(), false, 256), PlainCrc(data.data(), length));
    }
}

}  // namespace
}  // namespace arithmetic_test
