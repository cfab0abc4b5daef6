#include <Utility/text/unit_folding.h>

#include <Utility/conversion.h>
#include <Utility/platform/runtime.h>
#include <Utility/platform/text.h>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace Torvo {

namespace {

// Whether the unit is a combining mark, of those below 0x500.
bool IsMark(wchar16 unit) {
    return (unit >= 0x300 && unit <= 0x36F) || (unit >= 0x483 && unit <= 0x489);
}

// Whether a charset is converted by a page of its own number: the numbers 0 and 1 stand for whatever page is current,
// and a set without a page takes that of the system charset.
bool HasFixedPage(ZUCHARSET cs) {
    const int32 page = GetWinCodePage(cs);
    return page > 1 && !IsUnicodeCharset(cs) && platform::IsValidCodePage(static_cast<uint32>(page));
}

}  // namespace

UnitFolding::UnitFolding(ZUCHARSET cs, const NormalizationTable& table) {
    std::fill(std::begin(folds), std::end(folds), Unknown);
    folds[0] = 0;
    if (!HasFixedPage(cs)) return;
    // In a multi-byte set only ASCII is certain to be one byte.
    const bool multiByte = CharsetDBCS(cs);
    const uint32 unitCount = multiByte ? 0x80 : Known;
    const uint32 byteCount = multiByte ? 0x80 : 256;

    // Every unit with a separator behind it, so that none meets its neighbour.
    wchar16 text[2 * Known];
    char converted[2 * Known];
    for (uint32 unit = 1; unit < unitCount; ++unit) {
        text[2 * unit - 2] = static_cast<wchar16>(unit);
        text[2 * unit - 1] = '.';
    }
    const uint32 length = 2 * unitCount - 2;
    text[length] = 0;
    if (!ConvertSystemToMBCSChar(text, converted, cs, sizeof converted, false)) return;
    if (std::strlen(converted) != length) return;

    char all[256];
    wchar16 back[256];
    for (uint32 byte = 1; byte < byteCount; ++byte) all[byte - 1] = static_cast<char>(byte);
    if (!ConvertMBCSCharToSystem(all, byteCount - 1, cs, back, std::size(back) - 1)) return;
    if (platform::wcslen(back) != byteCount - 1) return;

    std::copy_n(back, byteCount - 1, meanings + 1);
    for (uint32 unit = 1; unit < unitCount; ++unit) {
        const uint8 folded = table.table[static_cast<uint8>(converted[2 * unit - 2])];
        if (folded != 0) folds[unit] = folded;
    }
    ForgetMarks();
}

// A mark may make one byte with the letter before it, and so may the mark that a byte means on the way back.
void UnitFolding::ForgetMarks() {
    for (uint32 unit = 1; unit < Known; ++unit) {
        const bool isKnown = folds[unit] != Unknown;
        if (isKnown && (IsMark(static_cast<wchar16>(unit)) || IsMark(meanings[folds[unit]]))) folds[unit] = Unknown;
    }
}

}  // namespace Torvo
