#include <Utility/platform/runtime.h>
#include <Utility/platform/text.h>
#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace Torvo::platform {

namespace {

// The classes below are sets of general categories of the Unicode data, and single units in which the Windows tables
// depart from them. All 65,536 units are compared in the tests.
uint32 Category(wchar16 unit) {
    return U_GET_GC_MASK(unit);
}

// The other case of a unit where the two lead to each other, else the unit itself: the case tables of Windows hold only
// such pairs.
wchar16 LowerCaseOf(wchar16 unit) {
    const UChar32 lower = u_tolower(unit);
    return u_toupper(lower) == unit ? static_cast<wchar16>(lower) : unit;
}

wchar16 UpperCaseOf(wchar16 unit) {
    const UChar32 upper = u_toupper(unit);
    return u_tolower(upper) == unit ? static_cast<wchar16>(upper) : unit;
}

bool IsOneOf(wchar16 unit, const wchar16* units) {
    return wcschr(units, unit) != nullptr && unit != 0;
}

bool IsPair(const wchar16* text) {
    return U16_IS_LEAD(text[0]) && U16_IS_TRAIL(text[1]);
}

// The units of the character at `text`, a pair or one, marks not counted. Not for the terminator.
int UnitsOfPoint(const wchar16* text) {
    return IsPair(text) ? 2 : 1;
}

// Whether a combining mark stands at `text`; false at the terminator.
bool IsMark(const wchar16* text) {
    constexpr wchar16 firstMark = 0x300;  // no mark has a lower number
    if (*text < firstMark) return false;
    const UChar32 point = IsPair(text) ? U16_GET_SUPPLEMENTARY(text[0], text[1]) : *text;
    return (U_GET_GC_MASK(point) & U_GC_M_MASK) != 0;
}

// Where the pair or unit before `current` begins.
const wchar16* PreviousPoint(const wchar16* start, const wchar16* current) {
    --current;
    return current > start && IsPair(current - 1) ? current - 1 : current;
}

}  // namespace

wchar16* CharNextW(const wchar16* text) {
    if (*text != 0) {
        text += UnitsOfPoint(text);
        while (IsMark(text)) text += UnitsOfPoint(text);
    }
    return const_cast<wchar16*>(text);
}

wchar16* CharPrevW(const wchar16* start, const wchar16* current) {
    if (current > start) {
        current = PreviousPoint(start, current);
        while (current > start && IsMark(current)) current = PreviousPoint(start, current);
    }
    return const_cast<wchar16*>(current > start ? current : start);
}

char* CharNextExA(uint16 codePage, const char* text, uint32) {
    if (*text == 0) return const_cast<char*>(text);
    const bool isPair = text[1] != 0 && IsDBCSLeadByteEx(codePage, static_cast<uint8>(*text));
    return const_cast<char*>(text + (isPair ? 2 : 1));
}

bool CharNextStepsOverMarks() {
    return true;
}

wchar16* CharLowerW(wchar16* text) {
    for (wchar16* unit = text; *unit != 0; ++unit) *unit = CharLowerW(*unit);
    return text;
}

wchar16* CharUpperW(wchar16* text) {
    for (wchar16* unit = text; *unit != 0; ++unit) *unit = CharUpperW(*unit);
    return text;
}

wchar16 CharLowerW(wchar16 unit) {
    if (unit < 0x80) return unit >= 'A' && unit <= 'Z' ? static_cast<wchar16>(unit + 0x20) : unit;
    return LowerCaseOf(unit);
}

wchar16 CharUpperW(wchar16 unit) {
    if (unit < 0x80) return unit >= 'a' && unit <= 'z' ? static_cast<wchar16>(unit - 0x20) : unit;
    return UpperCaseOf(unit);
}

bool IsCharLowerW(wchar16 unit) {
    return (Category(unit) & (U_GC_LL_MASK | U_GC_LT_MASK)) != 0 || IsOneOf(unit, u"\u00AA\u00BA\u2071\u207F");
}

// A title-case letter is both lower and upper case.
bool IsCharUpperW(wchar16 unit) {
    return (Category(unit) & (U_GC_LU_MASK | U_GC_LT_MASK)) != 0;
}

bool iswalpha(wchar16 unit) {
    return (Category(unit) & (U_GC_L_MASK | U_GC_NL_MASK)) != 0 && !IsOneOf(unit, u"\u00AA\u00B5\u00BA");
}

bool iswalnum(wchar16 unit) {
    return iswalpha(unit) || (Category(unit) & U_GC_ND_MASK) != 0 || IsOneOf(unit, u"\u00B2\u00B3\u00B9");
}

// Beyond the first 256 units the tables know letters, digits and punctuation, but no symbols.
bool iswprint(wchar16 unit) {
    if (unit < 0x100) return (unit >= 0x20 && unit < 0x7F) || unit >= 0xA0;
    return iswalnum(unit) || (Category(unit) & U_GC_P_MASK) != 0 || IsOneOf(unit, u"\u3000\uFEFF");
}

}  // namespace Torvo::platform
