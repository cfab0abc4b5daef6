#include <Utility/platform/number_text.h>
#include <Utility/platform/text_scan.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

namespace Torvo::platform {

namespace {

// White space --------------------------------------------------------------------------------------------------------

bool IsPlainSpace(wchar16 unit) {
    return unit == ' ' || (unit >= 9 && unit <= 13);
}

// The white units of the runtime's class, beyond ASCII those of Unicode.
bool IsSpace(wchar16 unit) {
    if (unit < 0x80) return IsPlainSpace(unit);
    return unit == 0xA0 || unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200A) || unit == 0x2028 || unit == 0x2029 ||
           unit == 0x202F || unit == 0x205F || unit == 0x3000;
}

const wchar16* SkipSpace(const wchar16* text) {
    while (IsSpace(*text)) ++text;
    return text;
}

const wchar16* SkipPlainSpace(const wchar16* text) {
    while (IsPlainSpace(*text)) ++text;
    return text;
}

// Takes a sign; true for a minus.
bool TakeSign(const wchar16*& cursor) {
    const bool negative = *cursor == '-';
    if (negative || *cursor == '+') ++cursor;
    return negative;
}

void StoreEnd(wchar16** end, const wchar16* position) {
    if (end != nullptr) *end = const_cast<wchar16*>(position);
}

// Digits -------------------------------------------------------------------------------------------------------------

constexpr unsigned NoDigit = 36;  // above every digit of the largest base

bool IsDigit(wchar16 unit) {
    return unit >= '0' && unit <= '9';
}

// The zeros of the scripts whose decimal digits the Windows runtime reads; nine more follow each.
constexpr wchar16 ScriptZeros[] = {0x0660, 0x06F0, 0x0966, 0x09E6, 0x0A66, 0x0AE6, 0x0B66, 0x0C66, 0x0CE6,
                                   0x0D66, 0x0E50, 0x0ED0, 0x0F20, 0x1040, 0x17E0, 0x1810, 0xFF10};

unsigned ScriptDigit(wchar16 unit) {
    const wchar16* const above = std::upper_bound(std::begin(ScriptZeros), std::end(ScriptZeros), unit);
    if (above == std::begin(ScriptZeros)) return NoDigit;
    const unsigned digit = unit - *std::prev(above);
    return digit < 10 ? digit : NoDigit;
}

unsigned DigitValue(wchar16 unit) {
    if (IsDigit(unit)) return unit - wchar16{'0'};
    const wchar16 letter = scan::FoldUnit(unit);
    if (letter >= 'a' && letter <= 'z') return 10u + letter - wchar16{'a'};
    return unit < 0x80 ? NoDigit : ScriptDigit(unit);
}

// Integers -----------------------------------------------------------------------------------------------------------

struct IntegerText {
    uint64 magnitude = 0;
    bool negative = false;
    bool overflow = false;         // the magnitude does not fit and is to be ignored
    const wchar16* end = nullptr;  // null if there is no number
};

// Reads the digits from `cursor` on. Nineteen decimal digits always fit 64 bits; they take the short loop.
void ReadDecimalDigits(const wchar16* cursor, IntegerText& number) {
    const wchar16* const first = cursor;
    while (IsDigit(*cursor) && cursor - first < 19) {
        number.magnitude = number.magnitude * 10 + static_cast<uint64>(*cursor++ - '0');
    }
    if (cursor != first) number.end = cursor;
}

void ReadMoreDigits(const wchar16* cursor, unsigned base, IntegerText& number) {
    constexpr uint64 Limit = std::numeric_limits<uint64>::max();
    for (unsigned digit = DigitValue(*cursor); digit < base; digit = DigitValue(*++cursor)) {
        if (number.magnitude > (Limit - digit) / base) number.overflow = true;
        number.magnitude = number.magnitude * base + digit;
        number.end = cursor + 1;
    }
}

// Settles a base of 0 and steps over a "0x" that the base allows.
unsigned SettleBase(const wchar16*& cursor, unsigned base) {
    const bool prefix = *cursor == '0' && scan::FoldUnit(cursor[1]) == 'x';
    if (prefix && (base == 0 || base == 16)) {
        cursor += 2;
        return 16;
    }
    if (base != 0) return base;
    return *cursor == '0' ? 8 : 10;
}

IntegerText ReadInteger(const wchar16* text, int base) {
    IntegerText number;
    const wchar16* cursor = SkipSpace(text);
    number.negative = TakeSign(cursor);
    if (base == 10) {
        ReadDecimalDigits(cursor, number);
        if (number.end != nullptr) cursor = number.end;
        if (DigitValue(*cursor) < 10) ReadMoreDigits(cursor, 10, number);
    } else if (base == 0 || (base >= 2 && base <= 36)) {
        const unsigned settled = SettleBase(cursor, static_cast<unsigned>(base));
        ReadMoreDigits(cursor, settled, number);
    } else {
        errno = EINVAL;
    }
    return number;
}

template <typename Signed>
Signed ConvertSigned(const wchar16* text, wchar16** end, int base) {
    const IntegerText number = ReadInteger(text, base);
    StoreEnd(end, number.end == nullptr ? text : number.end);
    const uint64 limit = static_cast<uint64>(std::numeric_limits<Signed>::max()) + (number.negative ? 1 : 0);
    if (number.overflow || number.magnitude > limit) {
        errno = ERANGE;
        return number.negative ? std::numeric_limits<Signed>::min() : std::numeric_limits<Signed>::max();
    }
    return static_cast<Signed>(number.negative ? 0 - number.magnitude : number.magnitude);
}

template <typename Unsigned>
Unsigned ConvertUnsigned(const wchar16* text, wchar16** end, int base) {
    const IntegerText number = ReadInteger(text, base);
    StoreEnd(end, number.end == nullptr ? text : number.end);
    if (number.overflow || number.magnitude > std::numeric_limits<Unsigned>::max()) {
        errno = ERANGE;
        return std::numeric_limits<Unsigned>::max();
    }
    return static_cast<Unsigned>(number.negative ? 0 - number.magnitude : number.magnitude);
}

// Doubles ------------------------------------------------------------------------------------------------------------

// A number in text: its digits, in base 10 or 16, perhaps with a decimal mark among them, and the power of ten or two
// that they are to be multiplied with once the mark is ignored.
struct Significand {
    const wchar16* first = nullptr;
    const wchar16* last = nullptr;  // one past the last digit
    unsigned base = 10;
    int64 exponent = 0;
};

// A text of 768 decimal digits decides every rounding; one more stands for whatever follows.
constexpr int64 MaxDigits = 768;

// Beyond this an exponent decides the result alone, however many digits there are in memory.
constexpr int64 MaxExponent = int64{1} << 48;

bool IsHexDigit(wchar16 unit) {
    return IsDigit(unit) || (scan::FoldUnit(unit) >= 'a' && scan::FoldUnit(unit) <= 'f');
}

const wchar16* SkipDigits(const wchar16* cursor, unsigned base) {
    while (base == 16 ? IsHexDigit(*cursor) : IsDigit(*cursor)) ++cursor;
    return cursor;
}

// Steps over an exponent behind its letter. An exponent without digits is none: the cursor stays before the letter.
const wchar16* TakeExponent(const wchar16* letter, Significand& number) {
    const wchar16* cursor = letter + 1;
    const bool negative = TakeSign(cursor);
    if (!IsDigit(*cursor)) return letter;
    int64 exponent = 0;
    for (; IsDigit(*cursor); ++cursor) exponent = std::min(exponent * 10 + (*cursor - '0'), MaxExponent);
    number.exponent += negative ? -exponent : exponent;
    return cursor;
}

// Reads digits with an optional mark and exponent, which has one of two letters. Null if there is no digit, else where
// the number ends.
const wchar16* TakeSignificand(const wchar16* first, wchar16 mark, wchar16 letter1, wchar16 letter2,
                               Significand& number) {
    const wchar16* cursor = SkipDigits(first, number.base);
    int64 digits = cursor - first;
    if (*cursor == mark && mark != 0) {
        const wchar16* const fraction = cursor + 1;
        cursor = SkipDigits(fraction, number.base);
        number.exponent = -(cursor - fraction) * (number.base == 16 ? 4 : 1);
        digits += cursor - fraction;
    }
    if (digits == 0) return nullptr;
    number.first = first;
    number.last = cursor;
    if (scan::FoldUnit(*cursor) == letter1 || scan::FoldUnit(*cursor) == letter2) cursor = TakeExponent(cursor, number);
    return cursor;
}

// The magnitude of any number: its digits without mark and leading zeros are handed to the standard library.
double Convert(const Significand& number) {
    const int weight = number.base == 16 ? 4 : 1;  // of a digit in the exponent
    char text[MaxDigits + 32];
    char* target = text;
    int64 exponent = number.exponent;
    bool more = false;
    for (const wchar16* cursor = number.first; cursor != number.last; ++cursor) {
        if (!IsHexDigit(*cursor)) continue;  // the decimal mark
        if (target == text && *cursor == '0') continue;
        if (target < text + MaxDigits) {
            *target++ = static_cast<char>(*cursor);
        } else {
            exponent += weight;
            more = more || *cursor != '0';
        }
    }
    if (target == text) return 0;  // nothing but zeros
    if (more) {
        *target++ = '1';
        exponent -= weight;
    }
    const int64 digits = (target - text) * weight;
    *target++ = number.base == 16 ? 'p' : 'e';
    target = std::to_chars(target, std::end(text), exponent).ptr;

    double value = 0;
    const auto form = number.base == 16 ? std::chars_format::hex : std::chars_format::general;
    const std::from_chars_result read = std::from_chars(text, target, value, form);
    if (read.ec == std::errc() && std::isfinite(value) && value != 0) return value;
    errno = ERANGE;
    return exponent + digits > 0 ? std::numeric_limits<double>::infinity() : 0;
}

// Whether the text begins with a word, given in lower case, in whatever case.
const wchar16* TakeWord(const wchar16* cursor, const char* word) {
    for (; *word != 0; ++word, ++cursor) {
        if (scan::FoldUnit(*cursor) != static_cast<wchar16>(*word)) return nullptr;
    }
    return cursor;
}

// Reads what is no number of digits: an infinity or a NaN. Null if there is none.
const wchar16* TakeSpecial(const wchar16* cursor, double& value) {
    if (const wchar16* const end = TakeWord(cursor, "inf")) {
        value = std::numeric_limits<double>::infinity();
        const wchar16* const longer = TakeWord(end, "inity");
        return longer != nullptr ? longer : end;
    }
    const wchar16* const end = TakeWord(cursor, "nan");
    if (end == nullptr) return nullptr;
    value = std::numeric_limits<double>::quiet_NaN();
    if (*end != '(') return end;
    const wchar16* closing = end + 1;
    while (IsDigit(*closing) || *closing == '_' || (scan::FoldUnit(*closing) >= 'a' && scan::FoldUnit(*closing) <= 'z'))
        ++closing;
    return *closing == ')' ? closing + 1 : end;
}

// Reads the hexadecimal number behind a "0x". Null if no digit follows.
const wchar16* TakeHexadecimal(const wchar16* cursor, wchar16 mark, Significand& number) {
    number.base = 16;
    return TakeSignificand(cursor, mark, 'p', 'p', number);
}

// Reads a magnitude in one of the forms that only wcstod takes. Null if it is none of them.
const wchar16* TakeOtherForm(const wchar16* cursor, wchar16 mark, double& value) {
    if (*cursor == '0' && scan::FoldUnit(cursor[1]) == 'x') {
        Significand number;
        const wchar16* const end = TakeHexadecimal(cursor + 2, mark, number);
        if (end != nullptr) value = Convert(number);
        return end;
    }
    return TakeSpecial(cursor, value);
}

}  // namespace

bool iswspace(wchar16 unit) {
    return IsSpace(unit);
}

long32 wcstol(const wchar16* text, wchar16** end, int base) {
    return ConvertSigned<long32>(text, end, base);
}

ulong32 wcstoul(const wchar16* text, wchar16** end, int base) {
    return ConvertUnsigned<ulong32>(text, end, base);
}

int64 _wcstoi64(const wchar16* text, wchar16** end, int base) {
    return ConvertSigned<int64>(text, end, base);
}

uint64 _wcstoui64(const wchar16* text, wchar16** end, int base) {
    return ConvertUnsigned<uint64>(text, end, base);
}

double ReadDouble(const wchar16* text, wchar16** end, wchar16 decimalMark, NumberForms forms) {
    const wchar16* cursor = forms == NumberForms::All ? SkipSpace(text) : SkipPlainSpace(text);
    const bool negative = TakeSign(cursor);
    double value = 0;
    const wchar16* after = forms == NumberForms::All ? TakeOtherForm(cursor, decimalMark, value) : nullptr;
    if (after == nullptr) {
        Significand number;
        after = TakeSignificand(cursor, decimalMark, 'e', 'd', number);
        if (after != nullptr) value = Convert(number);
    }
    StoreEnd(end, after == nullptr ? text : after);
    return negative && after != nullptr ? -value : value;
}

double wcstod(const wchar16* text, wchar16** end) {
    return ReadDouble(text, end, NumericDecimalMark(), NumberForms::All);
}

double _wtof(const wchar16* text) {
    return wcstod(text, nullptr);
}

}  // namespace Torvo::platform
