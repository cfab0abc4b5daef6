#include <Utility/number_printing.h>

#include <Utility/numbers/neutral_text.h>

#include <algorithm>
#include <cmath>

namespace Torvo {

namespace {

constexpr int32 DefaultPrecision = 6;
constexpr int32 EditPrecision = 14;
constexpr int32 CoordinatePrecision = 12;
constexpr uint64 CoordinateLimit = 29;

// Three digits more than the number has orders of magnitude, where that is between the default and 14. NaN and the
// infinities have the default.
int32 ChoosePrecision(double value, PRINTF_FORMAT format) {
    if (format != PRINTF_FORMAT_G || value == 0) return DefaultPrecision;
    const double digits = std::trunc(std::log10(std::fabs(value))) + 3;
    return digits >= 6 && digits <= 14 ? static_cast<int32>(digits) : DefaultPrecision;
}

}  // namespace

wchar16* DoubleToString(double value, wchar16* out, uint64 outSize, bool group, int32 precision, PRINTF_FORMAT format,
                        int32 width) {
    const int32 digits = precision == -1 ? ChoosePrecision(value, format) : precision;
    NeutralText(value, format, digits, width == -1 ? 0 : width).CopyTo(out, outSize);
    if (group && outSize > 0) FormatNumberForUI(out, outSize);
    return out;
}

wchar16* DoubleToStringEditCtl(double value, wchar16* out, int32 outSize, bool group) {
    const auto size = static_cast<uint64>(std::max(outSize, 0));
    NeutralText(value, PRINTF_FORMAT_G, EditPrecision).CopyTo(out, size);
    if (group && size > 0) FormatNumberForUI(out, size);
    return out;
}

wchar16* CoordinateToString(double value, wchar16* out, uint64 outSize) {
    NeutralText text(value, PRINTF_FORMAT_F, CoordinatePrecision);
    text.CutAt(CoordinateLimit);
    text.DropTrailingZeros();
    text.CopyTo(out, outSize);
    return out;
}

}  // namespace Torvo
