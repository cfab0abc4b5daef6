#include <Utility/numbers/powers_of_ten.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

namespace powers_of_ten_internal_test {
namespace {

using Torvo::int64;
using Torvo::PowerOfTen;

double Read(int64 exponent) {
    return std::strtod(("1e" + std::to_string(exponent)).c_str(), nullptr);
}

TEST(PowersOfTen, AreTheNearestDoubles) {
    for (int64 exponent = -330; exponent <= 315; ++exponent) {
        EXPECT_EQ(PowerOfTen(exponent), Read(exponent)) << exponent;
        EXPECT_EQ(PowerOfTen(static_cast<double>(exponent)), Read(exponent)) << exponent;
    }
}

TEST(PowersOfTen, EndAtZeroAndInfinity) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const int64 exponent : {int64{-324}, int64{-401}, std::numeric_limits<int64>::min()}) {
        EXPECT_EQ(PowerOfTen(exponent), 0.0) << exponent;
    }
    for (const int64 exponent : {int64{309}, int64{401}, std::numeric_limits<int64>::max()}) {
        EXPECT_EQ(PowerOfTen(exponent), infinity) << exponent;
    }
    EXPECT_EQ(PowerOfTen(infinity), infinity);
    EXPECT_EQ(PowerOfTen(-infinity), 0.0);
    EXPECT_EQ(PowerOfTen(1e300), infinity);
    EXPECT_TRUE(std::isnan(PowerOfTen(std::numeric_limits<double>::quiet_NaN())));
}

TEST(PowersOfTen, OfAPartAreTheRuntimes) {
    EXPECT_EQ(PowerOfTen(0.5), std::pow(10.0, 0.5));
}

}  // namespace
}  // namespace powers_of_ten_internal_test
