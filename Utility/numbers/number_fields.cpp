#include <Utility/arithmetic.h>
#include <Utility/number_printing.h>
#include <Utility/numbers/neutral_text.h>

#include <algorithm>
#include <cmath>

namespace Torvo {

namespace {

// The powers that a field of a table usually needs.
constexpr double Powers[] = {1e-20, 1e-19, 1e-18, 1e-17, 1e-16, 1e-15, 1e-14, 1e-13, 1e-12, 1e-11, 1e-10,
                             1e-9,  1e-8,  1e-7,  1e-6,  1e-5,  1e-4,  1e-3,  1e-2,  1e-1,  1e0,   1e1,
                             1e2,   1e3,   1e4,   1e5,   1e6,   1e7,   1e8,   1e9,   1e10,  1e11,  1e12,
                             1e13,  1e14,  1e15,  1e16,  1e17,  1e18,  1e19,  1e20};
constexpr int64 LastPower = 20;

double PowerOfTen(int64 exponent) {
    if (exponent >= -LastPower && exponent <= LastPower) return Powers[exponent + LastPower];
    return std::pow(10.0, static_cast<double>(exponent));
}

// Holds a value at the limits of a field. The limit is the first power of ten that does not fit, the unit that of the
// last place. A negative number gives up one digit to its sign.
double ClipToField(double value, double limit, double unit) {
    if (value >= limit) value = limit - unit;
    if (limit / -10 >= value) value = unit - limit / 10;
    return value;
}

// The numbers are wide so that no width and no number of decimals can make the sums wrap.
double ClipToDecimals(double value, int64 width, int64 decimals) {
    if (decimals == 0) return ClipToField(value, PowerOfTen(width), PowerOfTen(std::max<int64>(width - 15, 0)));
    const double limit = PowerOfTen(width - decimals - 1);
    const double unit = PowerOfTen(-std::min(decimals, decimals - width + 16));
    return zu_round(ClipToField(value, limit, unit), PowerOfTen(-decimals));
}

}  // namespace

void DoubleToDBString(wchar16* out, int32 width, int32 decimals, double value) {
    if (width < 0) return;
    const double clipped = ClipToDecimals(value, width, decimals);
    NeutralText(clipped, PRINTF_FORMAT_F, decimals, width).CopyTo(out, static_cast<uint64>(width) + 1);
}

}  // namespace Torvo
