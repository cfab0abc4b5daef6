#include <Utility/number_printing.h>
#include <gtest/gtest.h>
#include <support/guarded_buffer.h>

#include <limits>

namespace number_fields_test {
namespace {

using namespace Torvo;

wstring16 Field(int32 width, int32 decimals, double value) {
    test::GuardedBuffer buffer(static_cast<uint64>(width) + 1);
    DoubleToDBString(buffer.Start(), width, decimals, value);
    EXPECT_TRUE(buffer.IsCleared());
    return buffer.Text();
}

TEST(NumberFields, ClipRoundAndPad) {
    EXPECT_EQ(Field(6, 2, 1.5), ZUTEXT("  1.50"));
    EXPECT_EQ(Field(6, 2, 999.99), ZUTEXT("999.99"));
    EXPECT_EQ(Field(6, 2, 12345.678), ZUTEXT("999.99"));
    EXPECT_EQ(Field(6, 2, 1000), ZUTEXT("999.99"));
    EXPECT_EQ(Field(6, 2, -12345.678), ZUTEXT("-99.99"));
    EXPECT_EQ(Field(6, 2, -100), ZUTEXT("-99.99"));
    EXPECT_EQ(Field(6, 2, -99.99), ZUTEXT("-99.99"));
    EXPECT_EQ(Field(4, 0, 12), ZUTEXT("  12"));
    EXPECT_EQ(Field(4, 0, 12345), ZUTEXT("9999"));
    EXPECT_EQ(Field(4, 0, -12345), ZUTEXT("-999"));
    EXPECT_EQ(Field(6, 2, 0.125), ZUTEXT("  0.13"));  // halves go up
    EXPECT_EQ(Field(6, 2, -0.125), ZUTEXT(" -0.12"));
    EXPECT_EQ(Field(10, -1, 1234), ZUTEXT("1230.00000"));  // 6 digits, rounded to tens, then cut
    EXPECT_EQ(Field(12, 2, std::numeric_limits<double>::infinity()), ZUTEXT("999999999.99"));
    EXPECT_EQ(Field(12, 2, -std::numeric_limits<double>::infinity()), ZUTEXT("-99999999.99"));
    EXPECT_EQ(Field(5, 2, std::numeric_limits<double>::quiet_NaN()), ZUTEXT("  nan"));
    EXPECT_EQ(Field(0, 0, 5), ZUTEXT(""));
}

// Beyond sixteen digits the unit of the last place grows, so that what is subtracted from the limit counts.
TEST(NumberFields, TrustSixteenDigits) {
    EXPECT_EQ(Field(18, 0, 1e18), ZUTEXT("999999999999998976"));
    EXPECT_EQ(Field(20, 0, 1e30), ZUTEXT("99999999999999901696"));
    EXPECT_EQ(Field(20, 6, 1e14), ZUTEXT("9999999999999.990234"));
}

TEST(NumberFields, OneWithoutRoomIsNotTouched) {
    wchar16 untouched[] = ZUTEXT("abc");
    for (int32 width : {-1, -2, std::numeric_limits<int32>::min()}) {
        DoubleToDBString(untouched, width, 2, 1.5);
        EXPECT_EQ(wstring16(untouched), ZUTEXT("abc"));
    }
}

TEST(NumberFields, BeyondTheTableOfPowers) {
    EXPECT_EQ(Field(30, 2, 1.5), wstring16(26, ' ') + ZUTEXT("1.50"));
    EXPECT_EQ(Field(40, 30, 0.5).substr(0, 13), ZUTEXT("        0.500"));
    EXPECT_EQ(Field(600, 2, 1.5), ZUTEXT(""));
    for (int32 decimals : {500, -500, std::numeric_limits<int32>::max(), std::numeric_limits<int32>::min()}) {
        EXPECT_LE(Field(10, decimals, 1.5).size(), 10u);
    }
}

TEST(NumberFields, NoBufferIsNoHarm) {
    DoubleToDBString(nullptr, 5, 2, 1.5);
}

}  // namespace
}  // namespace number_fields_test
