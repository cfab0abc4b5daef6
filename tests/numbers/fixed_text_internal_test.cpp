#include <Utility/numbers/fixed_text.h>
#include <gtest/gtest.h>
#include <support/random.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace fixed_text_internal_test {
namespace {

using namespace Torvo;

// By the lane; "-" if it does not take the number.
std::string Fixed(double value, int32 places) {
    char text[FixedTextRoom];
    char* const end = PrintFixed(value, places, text);
    return end == nullptr ? "-" : std::string(text, end);
}

std::string ByTheStandardLibrary(double value, int32 places) {
    char text[400];
    return {text, std::to_chars(text, std::end(text), value, std::chars_format::fixed, places).ptr};
}

TEST(FixedText, PrintsPlainNumbers) {
    EXPECT_EQ(Fixed(0.0, 0), "0");
    EXPECT_EQ(Fixed(-0.0, 2), "-0.00");
    EXPECT_EQ(Fixed(12.5, 12), "12.500000000000");
    EXPECT_EQ(Fixed(-1234567.891, 2), "-1234567.89");
    EXPECT_EQ(Fixed(0.1, 17), "0.10000000000000001");
    EXPECT_EQ(Fixed(99.999, 2), "100.00");
    EXPECT_EQ(Fixed(1e-300, 17), "0.00000000000000000");
}

TEST(FixedText, RoundsTiesToEven) {
    EXPECT_EQ(Fixed(0.5, 0), "0");
    EXPECT_EQ(Fixed(1.5, 0), "2");
    EXPECT_EQ(Fixed(2.5, 0), "2");
    EXPECT_EQ(Fixed(0.125, 2), "0.12");
    EXPECT_EQ(Fixed(0.375, 2), "0.38");
    EXPECT_EQ(Fixed(9.5, 0), "10");
    EXPECT_EQ(Fixed(-3.5, 0), "-4");
}

TEST(FixedText, TakesWholeNumbersBelowTwoToThe64) {
    EXPECT_EQ(Fixed(18446744073709549568.0, 1), "18446744073709549568.0");
    EXPECT_EQ(Fixed(18446744073709551616.0, 1), "-");
    EXPECT_EQ(Fixed(9007199254740993.0, 0), "9007199254740992");
    EXPECT_EQ(Fixed(std::numeric_limits<double>::max(), 0), "-");
    EXPECT_EQ(Fixed(1.0, MostFixedPlaces + 1), "-");
    EXPECT_EQ(Fixed(std::numeric_limits<double>::denorm_min(), 2), "-");
}

TEST(FixedText, AgreesWithTheStandardLibrary) {
    test::Random seed;
    SCOPED_TRACE(seed.About());
    std::mt19937_64 random(static_cast<uint64>(seed.Between(0, 0x7FFFFFFF)));
    std::uniform_real_distribution<double> unit(-1, 1);
    for (int i = 0; i < 200000; ++i) {
        const int32 places = static_cast<int32>(random() % (MostFixedPlaces + 1));
        // Of any size; near decimals of few places; with few bits, so that ties come up.
        const double any = std::bit_cast<double>(random());
        const double scaled = std::ldexp(unit(random), static_cast<int>(random() % 130) - 66);
        const double decimal = std::round(unit(random) * 1e7) / 1e4;
        const double coarse = std::ldexp(static_cast<double>(random() % 4096), -static_cast<int>(random() % 24));
        for (const double value : {any, scaled, decimal, coarse}) {
            const std::string text = Fixed(value, places);
            if (text == "-") {
                EXPECT_TRUE(!std::isnormal(value) || std::fabs(value) >= 0x1p64) << value;
            } else {
                ASSERT_EQ(text, ByTheStandardLibrary(value, places)) << std::hexfloat << value << ' ' << places;
            }
        }
    }
}

}  // namespace
}  // namespace fixed_text_internal_test
