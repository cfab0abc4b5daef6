#include <Utility/number_printing.h>
#include <gtest/gtest.h>
#include <support/guarded_buffer.h>
#include <support/user_locale.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace number_printing_test {
namespace {

using namespace Torvo;
using test::GuardedBuffer;
using test::UserLocale;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

wstring16 Printed(double value, int32 precision, PRINTF_FORMAT format, int32 width = -1, bool group = false,
                  uint64 size = 600) {
    GuardedBuffer buffer(size);
    EXPECT_EQ(DoubleToString(value, buffer.Start(), size, group, precision, format, width), buffer.Start());
    EXPECT_TRUE(buffer.IsCleared());
    return buffer.Text();
}

wstring16 Coordinate(double value, uint64 size = 64) {
    GuardedBuffer buffer(size);
    EXPECT_EQ(CoordinateToString(value, buffer.Start(), size), buffer.Start());
    EXPECT_TRUE(buffer.IsCleared());
    return buffer.Text();
}

TEST(NumberPrinting, FormatsAreNumbered) {
    EXPECT_EQ(PRINTF_FORMAT_E, 1);
    EXPECT_EQ(PRINTF_FORMAT_F, 2);
    EXPECT_EQ(PRINTF_FORMAT_G, 3);
}

TEST(NumberPrinting, TheThreeStyles) {
    EXPECT_EQ(Printed(1234.5, 2, PRINTF_FORMAT_E), ZUTEXT("1.23e+03"));
    EXPECT_EQ(Printed(1234.5, 2, PRINTF_FORMAT_F), ZUTEXT("1234.50"));
    EXPECT_EQ(Printed(1234.5, 2, PRINTF_FORMAT_G), ZUTEXT("1.2e+03"));
    EXPECT_EQ(Printed(1e100, 3, PRINTF_FORMAT_G), ZUTEXT("1e+100"));
    EXPECT_EQ(Printed(0.0001, 6, PRINTF_FORMAT_G), ZUTEXT("0.0001"));
    EXPECT_EQ(Printed(0.00001, 6, PRINTF_FORMAT_G), ZUTEXT("1e-05"));
    EXPECT_EQ(Printed(2.5, 0, PRINTF_FORMAT_F), ZUTEXT("2"));  // ties to even
    EXPECT_EQ(Printed(3.5, 0, PRINTF_FORMAT_F), ZUTEXT("4"));
    EXPECT_EQ(Printed(-0.0, 1, PRINTF_FORMAT_F), ZUTEXT("-0.0"));
    EXPECT_EQ(Printed(123.0, 0, PRINTF_FORMAT_G), ZUTEXT("1e+02"));
}

TEST(NumberPrinting, AnUnknownStylePrintsTheShorterForm) {
    for (int unknown : {0, 4, -1, 99}) {
        const auto format = static_cast<PRINTF_FORMAT>(unknown);
        EXPECT_EQ(Printed(1234567.0, 8, format), ZUTEXT("1234567"));
        EXPECT_EQ(Printed(1234567.0, -1, format), ZUTEXT("1.23457e+06"));  // without the automatic precision
    }
}

TEST(NumberPrinting, AutomaticPrecision) {
    EXPECT_EQ(Printed(0.0, -1, PRINTF_FORMAT_G), ZUTEXT("0"));
    EXPECT_EQ(Printed(5.0, -1, PRINTF_FORMAT_G), ZUTEXT("5"));
    EXPECT_EQ(Printed(1234567.0, -1, PRINTF_FORMAT_G), ZUTEXT("1234567"));
    EXPECT_EQ(Printed(1234567.891, -1, PRINTF_FORMAT_G), ZUTEXT("1234567.89"));
    EXPECT_EQ(Printed(-1234567.891, -1, PRINTF_FORMAT_G), ZUTEXT("-1234567.89"));
    EXPECT_EQ(Printed(1000000.125, -1, PRINTF_FORMAT_G), ZUTEXT("1000000.12"));
    EXPECT_EQ(Printed(1234.56789, -1, PRINTF_FORMAT_G), ZUTEXT("1234.57"));               // 3 + 3 digits
    EXPECT_EQ(Printed(12345.6789, -1, PRINTF_FORMAT_G), ZUTEXT("12345.68"));              // 4 + 3
    EXPECT_EQ(Printed(123456.789, -1, PRINTF_FORMAT_G), ZUTEXT("123456.79"));             // 5 + 3
    EXPECT_EQ(Printed(123.456789, -1, PRINTF_FORMAT_G), ZUTEXT("123.457"));               // 5 is too few
    EXPECT_EQ(Printed(123456789012.34, -1, PRINTF_FORMAT_G), ZUTEXT("123456789012.34"));  // 14
    EXPECT_EQ(Printed(1234567890123.4, -1, PRINTF_FORMAT_G), ZUTEXT("1.23457e+12"));      // 15 is too many
    EXPECT_EQ(Printed(0.000123456789, -1, PRINTF_FORMAT_G), ZUTEXT("0.000123457"));
    EXPECT_EQ(Printed(1234567.0, -1, PRINTF_FORMAT_F), ZUTEXT("1234567.000000"));
    EXPECT_EQ(Printed(1234567.0, -1, PRINTF_FORMAT_E), ZUTEXT("1.234567e+06"));
    EXPECT_EQ(Printed(1234567.0, -2, PRINTF_FORMAT_F), ZUTEXT("1234567.000000"));  // as printf takes it
}

TEST(NumberPrinting, WidthPads) {
    EXPECT_EQ(Printed(1.5, 1, PRINTF_FORMAT_F, 6), ZUTEXT("   1.5"));
    EXPECT_EQ(Printed(1.5, 1, PRINTF_FORMAT_F, -6), ZUTEXT("1.5   "));
    EXPECT_EQ(Printed(1.5, 1, PRINTF_FORMAT_F, 0), ZUTEXT("1.5"));
    EXPECT_EQ(Printed(1.5, 1, PRINTF_FORMAT_F, 3), ZUTEXT("1.5"));
    EXPECT_EQ(Printed(1.5, 1, PRINTF_FORMAT_F, -1), ZUTEXT("1.5"));
    EXPECT_EQ(Printed(1.5, 1, PRINTF_FORMAT_E, 10), ZUTEXT("   1.5e+00"));
    EXPECT_EQ(Printed(1.5, 3, PRINTF_FORMAT_G, 5), ZUTEXT("  1.5"));
}

TEST(NumberPrinting, TheTextIsCutToItsBuffer) {
    EXPECT_EQ(Printed(1234.5, 2, PRINTF_FORMAT_F, -1, false, 8), ZUTEXT("1234.50"));
    EXPECT_EQ(Printed(1234.5, 2, PRINTF_FORMAT_F, -1, false, 7), ZUTEXT("1234.5"));
    EXPECT_EQ(Printed(1234.5, 2, PRINTF_FORMAT_F, -1, false, 1), ZUTEXT(""));
    EXPECT_EQ(Printed(1234.5, 2, PRINTF_FORMAT_F, -1, true, 1), ZUTEXT(""));
    EXPECT_EQ(Printed(1234.5, 2, PRINTF_FORMAT_F, -1, true, 0), ZUTEXT(""));
}

TEST(NumberPrinting, ExtremesAreRefusedOrPrinted) {
    const double max = std::numeric_limits<double>::max();
    EXPECT_EQ(Printed(-max, -1, PRINTF_FORMAT_F).size(), 317u);
    EXPECT_EQ(Printed(5e-324, -1, PRINTF_FORMAT_G), ZUTEXT("4.94066e-324"));
    EXPECT_EQ(Printed(1.5, 509, PRINTF_FORMAT_F).size(), 511u);
    EXPECT_EQ(Printed(1.5, 510, PRINTF_FORMAT_F), ZUTEXT(""));
    EXPECT_EQ(Printed(1.5, 1, PRINTF_FORMAT_F, 511).size(), 511u);
    EXPECT_EQ(Printed(1.5, 1, PRINTF_FORMAT_F, 512), ZUTEXT(""));
    EXPECT_EQ(Printed(1.5, 1, PRINTF_FORMAT_F, -512), ZUTEXT(""));
    for (int32 extreme : {std::numeric_limits<int32>::max(), std::numeric_limits<int32>::min()}) {
        EXPECT_EQ(Printed(1.5, 1, PRINTF_FORMAT_F, extreme), ZUTEXT(""));
        EXPECT_EQ(Printed(1.5, extreme, PRINTF_FORMAT_G), ZUTEXT("1.5"));
    }
    for (PRINTF_FORMAT format : {PRINTF_FORMAT_E, PRINTF_FORMAT_F}) {
        EXPECT_EQ(Printed(1.5, std::numeric_limits<int32>::max(), format), ZUTEXT(""));
    }
}

TEST(NumberPrinting, WhatIsNoNumberHasItsOwnWord) {
    for (PRINTF_FORMAT format : {PRINTF_FORMAT_E, PRINTF_FORMAT_F, PRINTF_FORMAT_G}) {
        EXPECT_EQ(Printed(Infinity, -1, format), ZUTEXT("inf"));
        EXPECT_EQ(Printed(-Infinity, -1, format), ZUTEXT("-inf"));
        EXPECT_EQ(Printed(NaN, -1, format), ZUTEXT("nan"));
        EXPECT_EQ(Printed(-NaN, -1, format), ZUTEXT("-nan(ind)"));
    }
    const auto printed = [](uint64 bits) { return Printed(std::bit_cast<double>(bits), -1, PRINTF_FORMAT_G); };
    EXPECT_EQ(printed(0x7FFFFFFFFFFFFFFF), ZUTEXT("nan"));
    EXPECT_EQ(printed(0xFFFFFFFFFFFFFFFF), ZUTEXT("-nan"));
    EXPECT_EQ(printed(0x7FF0000000000001), ZUTEXT("nan(snan)"));
    EXPECT_EQ(printed(0xFFF0000000000001), ZUTEXT("-nan(snan)"));
    EXPECT_EQ(Printed(Infinity, 3, PRINTF_FORMAT_F, 6, true), ZUTEXT("   inf"));
    EXPECT_EQ(Coordinate(NaN), ZUTEXT("nan"));
    EXPECT_EQ(Coordinate(-Infinity), ZUTEXT("-inf"));
}

TEST(NumberPrinting, GroupingBringsTheUsersForm) {
    UserLocale german(',', '.', 3);
    EXPECT_EQ(Printed(1234567.25, 2, PRINTF_FORMAT_F, -1, true), ZUTEXT("1.234.567,25"));
    EXPECT_EQ(Printed(1234567.25, 2, PRINTF_FORMAT_F, -1, false), ZUTEXT("1234567.25"));
    EXPECT_EQ(Printed(1234567.25, 2, PRINTF_FORMAT_F, -1, true, 12), ZUTEXT("1234.567,25"));
    EXPECT_EQ(Printed(-1234.5, 1, PRINTF_FORMAT_F, 10, true), ZUTEXT("   -1.234,5"));
}

TEST(NumberPrinting, ForAnEditControl) {
    const auto printed = [](double value, int32 size, bool group) {
        GuardedBuffer buffer(static_cast<uint64>(std::max(size, 0)));
        EXPECT_EQ(DoubleToStringEditCtl(value, buffer.Start(), size, group), buffer.Start());
        EXPECT_TRUE(buffer.IsCleared());
        return buffer.Text();
    };
    EXPECT_EQ(printed(1234567.25, 64, false), ZUTEXT("1234567.25"));
    EXPECT_EQ(printed(1.0 / 3, 64, false), ZUTEXT("0.33333333333333"));
    EXPECT_EQ(printed(1e15, 64, false), ZUTEXT("1e+15"));
    EXPECT_EQ(printed(1234567.25, 5, false), ZUTEXT("1234"));
    EXPECT_EQ(printed(1234567.25, 0, true), ZUTEXT(""));
    EXPECT_EQ(printed(1234567.25, -1, true), ZUTEXT(""));
    UserLocale german(',', '.', 3);
    EXPECT_EQ(printed(1234567.25, 64, true), ZUTEXT("1.234.567,25"));
    EXPECT_EQ(printed(1234567.25, 64, false), ZUTEXT("1234567.25"));
}

TEST(NumberPrinting, ASizeOfZeroLeavesWhatStandsInTheBuffer) {
    UserLocale german(',', '.', 3);
    wchar16 buffer[] = ZUTEXT("1234.5");
    DoubleToString(1.5, buffer, 0, true, -1, PRINTF_FORMAT_G, -1);
    DoubleToStringEditCtl(1.5, buffer, 0, true);
    DoubleToStringEditCtl(1.5, buffer, -1, true);
    EXPECT_EQ(wstring16(buffer), ZUTEXT("1234.5"));
}

TEST(NumberPrinting, CoordinatesHaveNoNoise) {
    UserLocale german(',', '.', 3);  // makes no difference
    EXPECT_EQ(Coordinate(12.5), ZUTEXT("12.5"));
    EXPECT_EQ(Coordinate(12), ZUTEXT("12"));
    EXPECT_EQ(Coordinate(-0.5), ZUTEXT("-0.5"));
    EXPECT_EQ(Coordinate(100.0), ZUTEXT("100"));
    EXPECT_EQ(Coordinate(0), ZUTEXT("0"));
    EXPECT_EQ(Coordinate(-0.0), ZUTEXT("-0"));
    EXPECT_EQ(Coordinate(-1e-15), ZUTEXT("-0"));
    EXPECT_EQ(Coordinate(123.456789012345), ZUTEXT("123.456789012345"));
    EXPECT_EQ(Coordinate(1e-12), ZUTEXT("0.000000000001"));
    EXPECT_EQ(Coordinate(0.1), ZUTEXT("0.1"));
}

TEST(NumberPrinting, CoordinatesAreCutAtTwentyNineUnits) {
    EXPECT_EQ(Coordinate(1e20), ZUTEXT("100000000000000000000"));
    EXPECT_EQ(Coordinate(1e27), ZUTEXT("1000000000000000013287555072"));  // the point is the last unit that stays
    EXPECT_EQ(Coordinate(1e28), ZUTEXT("9999999999999999583119736832"));
    EXPECT_EQ(Coordinate(-2e28), ZUTEXT("-1999999999999999916623947366"));  // the sign takes the place of a digit
    EXPECT_EQ(Coordinate(1234567890123456.75), ZUTEXT("1234567890123456.75"));
    EXPECT_EQ(Coordinate(1e30), ZUTEXT("10000000000000000198846248386"));
    EXPECT_EQ(Coordinate(12.5, 4), ZUTEXT("12."));
    EXPECT_EQ(Coordinate(12.5, 1), ZUTEXT(""));
    EXPECT_EQ(Coordinate(12.5, 0), ZUTEXT(""));
    EXPECT_EQ(Coordinate(12.25, 5), ZUTEXT("12.2"));
}

TEST(NumberPrinting, NoBufferIsNoHarm) {
    EXPECT_EQ(DoubleToString(1.5, nullptr, 10, true, -1, PRINTF_FORMAT_G, -1), nullptr);
    EXPECT_EQ(CoordinateToString(1.5, nullptr, 10), nullptr);
}

}  // namespace
}  // namespace number_printing_test
