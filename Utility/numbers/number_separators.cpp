#include <Utility/locale_info.h>
#include <Utility/number_printing.h>
#include <Utility/platform/runtime.h>

#include <algorithm>
#include <cstring>

namespace Torvo {

namespace {

struct Separators {
    wchar16 decimal;
    wchar16 thousands;
    int16 groupSize;
};

// Asks the callback, and then the locale or not, anew.
Separators LookUpSeparators() {
    bool (*const callback)() = GetNumberFormatCallback();
    const bool useLocale = callback == nullptr || !callback();
    Separators found{};
    GetZULocaleNumInfo(useLocale, &found.decimal, &found.thousands, &found.groupSize);
    return found;
}

bool IsDigit(wchar16 unit) {
    return unit >= '0' && unit <= '9';
}

// Where the digits to be grouped end: before the leftmost separator, else before the point, else at the end.
uint64 FindAnchor(const wchar16* text, uint64 length, wchar16 separator) {
    for (const wchar16 unit : {separator, wchar16{'.'}}) {
        const wchar16* const found = platform::wcschr(text, unit);
        if (found != nullptr) return static_cast<uint64>(found - text);
    }
    return length;
}

// Puts separators in from right to left, while one more and the terminator have room and a digit is left before the
// group.
void InsertSeparators(wchar16* text, uint64 size, wchar16 separator, uint64 groupSize) {
    uint64 length = platform::wcslen(text);
    uint64 anchor = FindAnchor(text, length, separator);
    while (length + 2 <= size && anchor > groupSize &&
           std::all_of(text + (anchor - groupSize - 1), text + anchor, IsDigit)) {
        anchor -= groupSize;
        std::memmove(text + anchor + 1, text + anchor, (length - anchor + 1) * sizeof(wchar16));
        text[anchor] = separator;
        ++length;
    }
}

}  // namespace

wchar16 GetDecimalSeparator() {
    return LookUpSeparators().decimal;
}

wchar16 GetThousandsSeparator() {
    return LookUpSeparators().thousands;
}

int16 GetThousandsGroupSize() {
    return LookUpSeparators().groupSize;
}

void FormatNumberForUI(wchar16* text, uint64 size) {
    if (text == nullptr) return;
    const bool hasPoint = platform::wcschr(text, '.') != nullptr;
    const wchar16 separator = GetThousandsSeparator();
    const int16 groupSize = GetThousandsGroupSize();
    if (groupSize > 0 && separator != 0) InsertSeparators(text, size, separator, static_cast<uint64>(groupSize));
    if (!hasPoint) return;
    // A separator that is itself a point stands left of the decimal one, so the last point is the decimal one.
    const wchar16 decimal = GetDecimalSeparator();
    if (decimal != 0) *platform::wcsrchr(text, '.') = decimal;
}

void DeformatNumberFromUI(const wchar16* source, wchar16* target) {
    if (source == nullptr || target == nullptr) return;
    const wchar16 separator = GetThousandsSeparator();
    const wchar16 decimal = GetDecimalSeparator();
    wchar16* lastDecimal = nullptr;
    for (; *source != 0; ++source) {
        if (*source == separator) continue;
        if (*source == decimal) lastDecimal = target;
        *target++ = *source;
    }
    *target = 0;
    if (lastDecimal != nullptr) *lastDecimal = '.';
}

}  // namespace Torvo
