#include <Utility/arithmetic.h>
#include <Utility/number_printing.h>
#include <Utility/numbers/neutral_text.h>
#include <Utility/numbers/powers_of_ten.h>

#include <algorithm>

namespace Torvo {

namespace {

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
