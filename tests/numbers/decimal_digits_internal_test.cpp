#include <Utility/numbers/decimal_digits.h>
#include <gtest/gtest.h>
#include <reference/exact_decimal.h>

#include <random>
#include <string>

namespace decimal_digits_internal_test {
namespace {

using namespace Torvo;

std::string Digits(double value, int count, int point, bool negative = false) {
    const DecimalDigits digits(value, count);
    EXPECT_EQ(digits.point, point) << value;
    EXPECT_EQ(digits.negative, negative) << value;
    return {digits.digits, static_cast<std::size_t>(digits.count)};
}

TEST(DecimalDigits, DigitsAndPoint) {
    EXPECT_EQ(Digits(12.5, 3, 2), "125");
    EXPECT_EQ(Digits(0.05, 2, -1), "50");
    EXPECT_EQ(Digits(-5, 1, 1, true), "5");
    EXPECT_EQ(Digits(1e300, 20, 301), "10000000000000000525");
    EXPECT_EQ(Digits(123.456, 40, 3), "1234560000000000030695446184836328029633");
    EXPECT_EQ(Digits(5e-324, 3, -323), "494");
}

TEST(DecimalDigits, ZeroHasThePointInFront) {
    EXPECT_EQ(Digits(0, 3, 0), "000");
    EXPECT_EQ(Digits(-0.0, 3, 0, true), "000");
}

TEST(DecimalDigits, HalvesGoAwayFromZero) {
    EXPECT_EQ(Digits(2.5, 1, 1), "3");
    EXPECT_EQ(Digits(0.125, 2, 0), "13");
    EXPECT_EQ(Digits(4.5, 1, 1), "5");
    EXPECT_EQ(Digits(0.45, 1, 0), "5");  // a little above the half
    EXPECT_EQ(Digits(0.35, 1, 0), "3");  // a little below
    EXPECT_EQ(Digits(99.96, 3, 3), "100");
    EXPECT_EQ(Digits(96, 1, 3), "1");
}

// Rounding to no digits still moves the point, as the runtime does.
TEST(DecimalDigits, NoDigits) {
    EXPECT_EQ(Digits(12.5, 0, 2), "");
    EXPECT_EQ(Digits(7, 0, 2), "");
    EXPECT_EQ(Digits(3, 0, 1), "");
    EXPECT_EQ(Digits(96, 0, 3), "");
    EXPECT_EQ(Digits(0, 0, 0), "");
}

TEST(DecimalDigits, RandomNumbersAgreeWithLongArithmetic) {
    std::mt19937_64 random(11);
    for (int round = 0; round < 20000; ++round) {
        const double value =
            round % 2 == 0 ? static_cast<double>(random() % 100000) / static_cast<double>(1 << (random() % 12))
                           : std::ldexp(static_cast<double>(random() >> 11), static_cast<int>(random() % 300) - 200);
        const int count = static_cast<int>(random() % 25);
        const DecimalDigits digits(value, count);
        const test::ExactDecimal expected = test::RoundToDigits(value, count);
        ASSERT_EQ(std::string(digits.digits, static_cast<std::size_t>(count)), expected.digits)
            << value << ", " << count;
        ASSERT_EQ(digits.point, expected.point) << value << ", " << count;
    }
}

}  // namespace
}  // namespace decimal_digits_internal_test
