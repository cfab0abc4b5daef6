#include <Utility/numbers/neutral_text.h>

#include <Utility/numbers/fixed_text.h>
#include <Utility/platform/float_text.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

namespace Torvo {

namespace {

std::chars_format CharsFormat(PRINTF_FORMAT format) {
    if (format == PRINTF_FORMAT_E) return std::chars_format::scientific;
    return format == PRINTF_FORMAT_F ? std::chars_format::fixed : std::chars_format::general;
}

}  // namespace

NeutralText::NeutralText(double value, PRINTF_FORMAT format, int32 precision, int32 width) {
    if (std::isfinite(value)) {
        PrintDigits(value, format, precision < 0 ? 6 : precision);
    } else {
        PrintSpecial(value);
    }
    if (width != 0) Pad(width);
}

void NeutralText::PrintSpecial(double value) {
    const platform::FloatText special(value, 'f', 0, false);
    if (special.IsNegative()) text[length++] = '-';
    length += special.Whole().copy(text + length, Capacity - length);
}

// A precision that no text can hold is lowered, because the standard library counts in int; it stays above what any
// number needs.
void NeutralText::PrintDigits(double value, PRINTF_FORMAT format, int32 precision) {
    if (format == PRINTF_FORMAT_F) {
        static_assert(FixedTextRoom <= Capacity);
        if (const char* const end = PrintFixed(value, precision, text)) {
            length = static_cast<uint64>(end - text);
            return;
        }
    }
    constexpr int32 MostDigits = 1100;
    precision = std::min(precision, MostDigits);
    const std::to_chars_result printed = std::to_chars(text, text + Capacity, value, CharsFormat(format), precision);
    if (printed.ec == std::errc()) length = static_cast<uint64>(printed.ptr - text);
}

void NeutralText::Pad(int32 width) {
    const auto wanted = static_cast<uint64>(std::abs(static_cast<int64>(width)));
    if (wanted > Capacity) length = 0;
    if (wanted > Capacity || wanted <= length || length == 0) return;
    if (width > 0) {
        std::memmove(text + (wanted - length), text, length);
        std::fill_n(text, wanted - length, ' ');
    } else {
        std::fill_n(text + length, wanted - length, ' ');
    }
    length = wanted;
}

void NeutralText::CutAt(uint64 limit) {
    length = std::min(length, limit);
}

void NeutralText::DropTrailingZeros() {
    if (std::memchr(text, '.', length) == nullptr) return;
    while (text[length - 1] == '0') --length;
    if (text[length - 1] == '.') --length;
}

// Whole blocks are widened as long as they fit, zeros behind the text among them: loops of a known length take a step
// or two.
void NeutralText::CopyTo(wchar16* out, uint64 size) {
    if (out == nullptr || size == 0) return;
    const uint64 units = std::min(length, size - 1);
    std::fill_n(text + units, Block, '\0');
    uint64 done = 0;
    for (; done < units && done + Block <= size; done += Block) {
        for (uint64 index = done; index < done + Block; ++index) out[index] = static_cast<wchar16>(text[index]);
    }
    for (; done < units; ++done) out[done] = static_cast<wchar16>(text[done]);
    if (done < size) std::memset(out + done, 0, (size - done) * sizeof(wchar16));
}

}  // namespace Torvo
