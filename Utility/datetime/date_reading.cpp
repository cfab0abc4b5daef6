#include <Utility/date_strings.h>
#include <Utility/datetime/calendar.h>
#include <Utility/datetime/field_reader.h>
#include <Utility/locale_info.h>
#include <Utility/numbers/plain_number.h>

namespace Torvo {

namespace {

// ---- Numbers in a text

class TextCursor {
public:
    explicit TextCursor(const wchar16* text) : at(text) {}

    // The number here, as wcstol reads it; 0 where there is none. The spaces behind it are passed over.
    int32 TakeNumber() {
        int32 number;
        at = ReadField(at, &number);
        while (*at == ' ') ++at;
        return number;
    }

    bool IsAtEnd() const { return *at == 0; }
    bool IsAt(wchar16 unit) const { return *at == unit && unit != 0; }
    wchar16 Unit() const { return *at; }
    // Passes over a unit if it is here. The terminator never is.
    bool Take(wchar16 unit) {
        const bool isHere = IsAt(unit);
        at += isHere ? 1 : 0;
        return isHere;
    }
    wchar16* Position() const { return const_cast<wchar16*>(at); }

private:
    const wchar16* at;
};

// ---- The literal and the ISO form

// The value of `count` digits, or -1 when one of the units is none.
template <int Count>
int32 DigitsAt(const wchar16* text) {
    int32 value = 0;
    for (int i = 0; i < Count; ++i) {
        if (!plain::IsDigit(text[i])) return -1;
        value = value * 10 + (text[i] - '0');
    }
    return value;
}

constexpr int32 LiteralDigits = 8;

// The digits 0 to 9 at the start of a text, as many as a literal has.
struct LeadingDigits {
    int32 count = 0;
    int32 value = 0;

    explicit LeadingDigits(const wchar16* text) {
        for (; count < LiteralDigits && plain::IsDigit(text[count]); ++count) value = value * 10 + (text[count] - '0');
    }
    bool AreAllOf(const wchar16* text) const { return count == LiteralDigits && text[count] == 0; }
    // Whether the text may go on as an ISO date does, with a hyphen behind the year and perhaps spaces before that.
    // Digits of other scripts would go on with the year. This only saves time.
    bool MayBeginIsoDate(const wchar16* text) const {
        const wchar16 next = text[count];
        return count == 0 || next == '-' || next == ' ' || next >= 0x80 || plain::IsDigit(next);
    }
};

// What reads as the digits of a literal and is no date leaves an error.
bool DigitsToDate(const LeadingDigits& digits, const wchar16* text, zuDATE* date) {
    return digits.AreAllOf(text) && LiteralToDate(digits.value, date);
}

bool HasTenUnits(const wchar16* text) {
    for (int i = 0; i < 10; ++i) {
        if (text[i] == 0) return false;
    }
    return text[10] == 0;
}

// The usual ISO form: ten units, digits but for the two hyphens. It only saves time.
bool ReadPlainIsoDate(const wchar16* text, int32* literal) {
    if (text[4] != '-' || text[7] != '-') return false;
    const int32 year = DigitsAt<4>(text);
    const int32 month = DigitsAt<2>(text + 5);
    const int32 day = DigitsAt<2>(text + 8);
    *literal = year * 10000 + month * 100 + day;
    return year >= 1000 && month >= 1 && month <= 12 && day >= 1 && day <= 31;
}

// Three numbers of any form, as long as the year has four digits.
bool ReadIsoNumbers(const wchar16* text, int32* literal) {
    TextCursor cursor(text);
    const int32 year = cursor.TakeNumber();
    if (!cursor.Take('-') || year < 1000 || year > 9999) return false;
    const int32 month = cursor.TakeNumber();
    if (!cursor.Take('-') || month < 1 || month > 12) return false;
    const int32 day = cursor.TakeNumber();
    *literal = year * 10000 + month * 100 + day;
    return cursor.IsAtEnd() && day >= 1 && day <= 31;
}

bool ReadIsoDate(const wchar16* text, zuDATE* date) {
    int32 literal;
    return HasTenUnits(text) && (ReadPlainIsoDate(text, &literal) || ReadIsoNumbers(text, &literal)) &&
           LiteralToDate(literal, date);
}

// ---- Three numbers or two

struct DateNumbers {
    int32 year;
    int32 month;
    int32 day;
};

// A year from 0 to 99 gets the hundreds of the current one. 0 for a year that is refused.
int32 ExpandYear(int32 year) {
    if (year < 0 || year > 9999) return 0;
    return year < 100 ? year + Today().year / 100 * 100 : year;
}

bool StoreIfDate(const DateNumbers& numbers, zuDATE* date) {
    if (numbers.month < 1 || numbers.month > 12) return false;
    const int32 year = ExpandYear(numbers.year);
    if (year == 0 || !IsDayOfMonth(year, numbers.month, numbers.day)) return false;
    *date = {static_cast<int16>(year), static_cast<int8>(numbers.month), static_cast<int8>(numbers.day)};
    return true;
}

bool Assign(int16 order, int32 a, int32 b, int32 c, DateNumbers* numbers) {
    switch (order) {
        case DATEORDER_MDY:
            *numbers = {c, a, b};
            return true;
        case DATEORDER_DMY:
            *numbers = {c, b, a};
            return true;
        case DATEORDER_YMD:
            *numbers = {a, b, c};
            return true;
        case DATEORDER_YDM:
            *numbers = {a, c, b};
            return true;
        default:
            return false;
    }
}

// Without a year, what stood before or behind the year comes first.
bool AssignWithoutYear(int16 order, int32 a, int32 b, DateNumbers* numbers) {
    const int32 year = Today().year;
    switch (order) {
        case DATEORDER_MDY:
        case DATEORDER_YMD:
            *numbers = {year, a, b};
            return true;
        case DATEORDER_DMY:
        case DATEORDER_YDM:
            *numbers = {year, b, a};
            return true;
        default:
            return false;
    }
}

// Reads the numbers in the order and with the delimiter that the locale or the fixed form has. With `end` other text
// may follow, and *end is set where <Utility/date_strings.h> says.
bool ReadOrderedDate(const wchar16* text, bool useLocale, wchar16** end, zuDATE* date) {
    const DateForm form(useLocale);
    TextCursor cursor(text);
    DateNumbers numbers;
    const int32 a = cursor.TakeNumber();
    if (!cursor.Take(form.delimiter)) return false;
    const int32 b = cursor.TakeNumber();
    if (!cursor.Take(form.delimiter)) {
        if (end == nullptr && !cursor.IsAtEnd()) return false;
        if (end != nullptr) *end = cursor.Position() + 1;
        return AssignWithoutYear(form.order, a, b, &numbers) && StoreIfDate(numbers, date);
    }
    const int32 c = cursor.TakeNumber();
    if (end == nullptr && !cursor.IsAtEnd()) return false;
    if (end != nullptr) *end = cursor.Position();
    return Assign(form.order, a, b, c, &numbers) && StoreIfDate(numbers, date);
}

// Reads month, day and year, the year of today where there is none.
bool ParseFixedDate(const wchar16* text, zuDATE* date) {
    TextCursor cursor(text);
    DateNumbers numbers{};
    numbers.month = cursor.TakeNumber();
    const wchar16 separator = cursor.Unit();
    if ((separator != '-' && separator != '/') || !cursor.Take(separator)) return false;
    numbers.day = cursor.TakeNumber();
    numbers.year = cursor.Take(separator) ? cursor.TakeNumber() : Today().year;
    return cursor.IsAtEnd() && StoreIfDate(numbers, date);
}

zuDATE* DateOrNull(bool isRead, zuDATE* date) {
    if (isRead) return date;
    SetNullDate(date);
    return nullptr;
}

}  // namespace

zuDATE* Str2Date(const wchar16* text, zuDATE* date) {
    if (text == nullptr) return DateOrNull(false, date);
    const LeadingDigits digits(text);
    if (DigitsToDate(digits, text, date)) return date;
    if (digits.MayBeginIsoDate(text) && ReadIsoDate(text, date)) return date;
    bool (*const asksForFixedForm)() = GetDateFormatCallback();
    if (asksForFixedForm != nullptr && asksForFixedForm()) return DateOrNull(ParseFixedDate(text, date), date);
    return DateOrNull(ReadOrderedDate(text, UsesLocale(asksForFixedForm), nullptr, date), date);
}

zuDATE* Str2DateEx(const wchar16* text, zuDATE* date, wchar16** end) {
    if (text == nullptr) return DateOrNull(false, date);
    const LeadingDigits digits(text);
    if (DigitsToDate(digits, text, date)) {
        if (end != nullptr) *end = const_cast<wchar16*>(text + LiteralDigits);
        return date;
    }
    return DateOrNull(ReadOrderedDate(text, UsesLocaleForDates(), end, date), date);
}

}  // namespace Torvo
