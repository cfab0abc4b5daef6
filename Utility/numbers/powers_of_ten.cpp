#include <Utility/numbers/powers_of_ten.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

namespace Torvo {

namespace {

// The powers that are usually needed.
constexpr double Powers[] = {1e-20, 1e-19, 1e-18, 1e-17, 1e-16, 1e-15, 1e-14, 1e-13, 1e-12, 1e-11, 1e-10,
                             1e-9,  1e-8,  1e-7,  1e-6,  1e-5,  1e-4,  1e-3,  1e-2,  1e-1,  1e0,   1e1,
                             1e2,   1e3,   1e4,   1e5,   1e6,   1e7,   1e8,   1e9,   1e10,  1e11,  1e12,
                             1e13,  1e14,  1e15,  1e16,  1e17,  1e18,  1e19,  1e20};
constexpr int64 LastPower = 20;

// Powers of doubles end inside these.
constexpr int64 BelowSmallest = -400;
constexpr int64 AboveLargest = 400;

}  // namespace

double PowerOfTen(int64 exponent) {
    if (exponent >= -LastPower && exponent <= LastPower) return Powers[exponent + LastPower];
    if (exponent < BelowSmallest) return 0;
    if (exponent > AboveLargest) return std::numeric_limits<double>::infinity();
    std::array<char, 8> text{'1', 'e'};
    const char* const end = std::to_chars(text.data() + 2, text.data() + text.size(), exponent).ptr;
    double power = 0;
    const bool inRange = std::from_chars(text.data(), end, power).ec == std::errc();
    if (inRange) return power;
    return exponent < 0 ? 0 : std::numeric_limits<double>::infinity();
}

double PowerOfTen(double exponent) {
    if (std::trunc(exponent) != exponent) return std::pow(10.0, exponent);  // NaN too
    return PowerOfTen(static_cast<int64>(
        std::clamp(exponent, static_cast<double>(BelowSmallest - 1), static_cast<double>(AboveLargest + 1))));
}

}  // namespace Torvo
