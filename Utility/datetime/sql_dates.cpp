#include <Utility/datetime/sql_date_tokens.h>
#include <Utility/errors/raise.h>
#include <Utility/locale_info.h>
#include <Utility/platform/locales.h>
#include <Utility/platform/runtime.h>
#include <Utility/sql_dates.h>

#include <algorithm>
#include <new>
#include <string>

namespace Torvo {

namespace {

constexpr int32 ErrorNumber = 5002;
enum : int32 { LiteralDiffers = 63, CountDiffers = 64, NoSuchMonth = 65, NoSuchShortMonth = 66 };

bool Refuse(int32 resourceId, const wchar16* param0, const wchar16* param1 = nullptr) {
    RaiseError(ERRORLEVEL_ERROR, ErrorNumber, resourceId, param0, param1);
    return false;
}

// ---- Names

// One of a locale's names; empty when it has none.
class LocaleName {
public:
    LocaleName(uint32 locale, uint32 type) {
        if (platform::GetLocaleInfoW(locale, type, text, Size) == 0) text[0] = 0;
    }
    const wchar16* Text() const { return text; }

private:
    static constexpr int Size = 64;
    wchar16 text[Size];
};

// The locale types of a kind of names. The thirteenth month stands apart.
struct NameTypes {
    uint32 month1;
    uint32 month13;
    uint32 day1;
};
constexpr NameTypes FullNames = {LOCALE_SMONTHNAME1, LOCALE_SMONTHNAME13, LOCALE_SDAYNAME1};
constexpr NameTypes ShortNames = {LOCALE_SABBREVMONTHNAME1, LOCALE_SABBREVMONTHNAME13, LOCALE_SABBREVDAYNAME1};
constexpr int32 Months = 13;

// For a month from 1 to 13; any other takes the first.
uint32 MonthType(const NameTypes& types, int32 month) {
    if (month == Months) return types.month13;
    return types.month1 + static_cast<uint32>(month >= 1 && month < Months ? month - 1 : 0);
}

// Day number 0 is a Monday, the day whose name comes first. What is not counted as Monday to Saturday is Sunday.
uint32 DayType(const NameTypes& types, const zuDATE& date) {
    const int32 weekday = (MDY2Days(&date) + 1) % 7;
    return types.day1 + static_cast<uint32>(weekday >= 1 && weekday <= 6 ? weekday - 1 : 6);
}

// ---- Printing

wstring16 Decimal(int32 value) {
    const std::string digits = std::to_string(value);
    return wstring16(digits.begin(), digits.end());
}

wstring16 TwoDigits(int32 value) {
    const wstring16 digits = Decimal(value);
    return digits.size() == 2 ? digits : wchar16{'0'} + digits;
}

class SqlDatePrinter {
public:
    explicit SqlDatePrinter(const zuDATE& printed) : date(printed), locale(GetLocaleIdentifier()) {}

    wstring16 Print(const wchar16* format) const {
        wstring16 text;
        for (const wstring16& token : SplitSQLDateTokens(format)) text += Part(token);
        return text;
    }

private:
    wstring16 Part(const wstring16& token) const {
        switch (SqlDateWordOf(token)) {
            case SqlDateWord::MonthName:
                return Name(MonthType(FullNames, date.month));
            case SqlDateWord::ShortMonthName:
                return Name(MonthType(ShortNames, date.month));
            case SqlDateWord::DayName:
                return Name(DayType(FullNames, date));
            case SqlDateWord::ShortDayName:
                return Name(DayType(ShortNames, date));
            case SqlDateWord::Month2:
                return TwoDigits(date.month);
            case SqlDateWord::Month:
                return Decimal(date.month);
            case SqlDateWord::Day2:
                return TwoDigits(date.day);
            case SqlDateWord::Day:
                return Decimal(date.day);
            case SqlDateWord::Year:
                return Decimal(date.year);
            case SqlDateWord::Year2:
                return LastOfFourDigits();
            default:
                return token;
        }
    }

    // The third and the fourth unit; a year of fewer digits has no such thing.
    wstring16 LastOfFourDigits() const {
        const wstring16 year = Decimal(date.year);
        return year.size() > 2 ? year.substr(2, 2) : wstring16();
    }

    wstring16 Name(uint32 type) const { return LocaleName(locale, type).Text(); }

    const zuDATE& date;
    const uint32 locale;
};

// ---- Reading

bool IsSame(const wchar16* a, const wchar16* b) {
    return platform::_wcsicmp(a, b) == 0;
}

// Takes the pieces of a text by those of a format. Each step tells whether they agree, and leaves the error if not.
class SqlDateReader {
public:
    explicit SqlDateReader(const wchar16* readFormat) : format(readFormat), locale(GetLocaleIdentifier()) {}

    bool Take(const wstring16& formatToken, const wstring16& token) {
        switch (SqlDateWordOf(formatToken)) {
            case SqlDateWord::MonthName:
                return TakeMonthName(FullNames, token) || Refuse(NoSuchMonth, token.c_str());
            case SqlDateWord::ShortMonthName:
                return TakeMonthName(ShortNames, token) || Refuse(NoSuchShortMonth, token.c_str());
            case SqlDateWord::DayName:
            case SqlDateWord::ShortDayName:
                return true;
            case SqlDateWord::Month2:
            case SqlDateWord::Month:
                date.month = static_cast<int8>(Number(token));
                return true;
            case SqlDateWord::Day2:
            case SqlDateWord::Day:
                date.day = static_cast<int8>(Number(token));
                return true;
            case SqlDateWord::Year:
                date.year = static_cast<int16>(Number(token));
                return true;
            case SqlDateWord::Year2:
                date.year = YearOfTwoDigits(Number(token));
                return true;
            default:
                return IsSame(formatToken.c_str(), token.c_str()) || Refuse(LiteralDiffers, token.c_str(), format);
        }
    }

    const zuDATE& Date() const { return date; }

private:
    static int Number(const wstring16& token) { return platform::_wtoi(token.c_str()); }

    static int16 YearOfTwoDigits(int number) {
        constexpr int16 FirstYearOf1900 = 51;
        const auto year = static_cast<int16>(number);
        return static_cast<int16>(year + (year >= FirstYearOf1900 ? 1900 : 2000));
    }

    bool TakeMonthName(const NameTypes& types, const wstring16& token) {
        for (int32 month = 1; month <= Months; ++month) {
            if (IsSame(LocaleName(locale, MonthType(types, month)).Text(), token.c_str())) {
                date.month = static_cast<int8>(month);
                return true;
            }
        }
        return false;
    }

    const wchar16* const format;
    const uint32 locale;
    zuDATE date{};
};

}  // namespace

bool zuSQLDateToString(zuDATE date, const wchar16* format, wchar16* out, uint64 outSize) {
    if (format == nullptr || out == nullptr) return false;
    try {
        const wstring16 text = SqlDatePrinter(date).Print(format);
        if (text.size() >= outSize) return false;
        std::copy_n(text.c_str(), text.size() + 1, out);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool zuSQLStringToDate(const wchar16* text, const wchar16* format, zuDATE* date) {
    if (text == nullptr || format == nullptr || date == nullptr) return false;
    try {
        const std::vector<wstring16> tokens = SplitSQLDateTokens(text);
        const std::vector<wstring16> formatTokens = SplitSQLDateTokens(format);
        if (tokens.size() != formatTokens.size()) return Refuse(CountDiffers, format);
        SqlDateReader reader(format);
        for (std::size_t i = 0; i < tokens.size(); ++i) {
            if (!reader.Take(formatTokens[i], tokens[i])) return false;
        }
        *date = reader.Date();
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}  // namespace Torvo
