#include <Utility/platform/date_format.h>

#include <Utility/platform/clock.h>
#include <Utility/platform/locales.h>
#include <Utility/platform/posix/locale_table.h>
#include <Utility/platform/threads.h>

#include <algorithm>
#include <chrono>
#include <optional>
#include <string_view>

namespace Torvo::platform {

namespace {

int Fail(uint32 error) {
    SetLastError(error);
    return 0;
}

// Takes what a picture becomes: counts all of it and keeps what fits. Remembers where the last field ended, so that
// the separators behind it can be taken back.
class PictureOutput {
public:
    PictureOutput(wchar16* target, int targetSize) : buffer(target), size(static_cast<std::size_t>(targetSize)) {}

    void Literal(wchar16 unit) {
        if (!dropsLiterals) Put(unit);
    }
    void Text(LocaleTable::Value text) { Field(std::u16string_view(text.text, text.units - 1)); }
    void FirstUnit(LocaleTable::Value text) { Field(std::u16string_view(text.text, text.units > 1 ? 1 : 0)); }
    void Number(uint32 number, std::size_t leastDigits) {
        wchar16 digits[10];
        std::size_t first = std::size(digits);
        for (; number != 0 || std::size(digits) - first < leastDigits; number /= 10) {
            digits[--first] = static_cast<wchar16>('0' + number % 10);
        }
        Field(std::u16string_view(digits + first, std::size(digits) - first));
    }

    void RemoveSeparatorBefore() { length = endOfLastField; }
    void RemoveSeparatorBehind() { dropsLiterals = true; }

    // Terminates the text; the units of the whole, or 0 when they did not fit.
    int Finish() {
        Put(0);
        return size == 0 || length <= size ? static_cast<int>(length) : Fail(ERROR_INSUFFICIENT_BUFFER);
    }

private:
    void Put(wchar16 unit) {
        if (length < size) buffer[length] = unit;
        ++length;
    }
    void Field(std::u16string_view text) {
        for (const wchar16 unit : text) Put(unit);
        endOfLastField = length;
        dropsLiterals = false;
    }

    wchar16* buffer;
    std::size_t size;
    std::size_t length = 0;
    std::size_t endOfLastField = 0;
    bool dropsLiterals = false;
};

// Calls `onField` with the letter and length of each run of a letter of the picture, and `onLiteral` with every unit
// that stands for itself. Apostrophes enclose such units, two of them inside mean one, and the last may be missing.
template <typename IsLetter, typename OnField, typename OnLiteral>
void WalkPicture(const wchar16* picture, IsLetter isLetter, OnField onField, OnLiteral onLiteral) {
    bool isQuoted = false;
    while (*picture != 0) {
        const wchar16 unit = *picture;
        std::size_t count = 1;
        if (unit == '\'') {
            const bool isDoubled = isQuoted && picture[1] == '\'';
            if (isDoubled) {
                onLiteral(unit);
                count = 2;
            } else {
                isQuoted = !isQuoted;
            }
        } else if (!isQuoted && isLetter(unit)) {
            while (picture[count] == unit) ++count;
            onField(unit, count);
        } else {
            onLiteral(unit);
        }
        picture += count;
    }
}

// ---- Dates

bool IsDateLetter(wchar16 unit) {
    return unit == 'd' || unit == 'M' || unit == 'y' || unit == 'g';
}

// Whether a month's name stands beside the number of the day, and then has its genitive.
bool HasDayOfMonth(const wchar16* picture) {
    bool found = false;
    WalkPicture(
        picture, IsDateLetter,
        [&](wchar16 letter, std::size_t count) { found = found || (letter == 'd' && count <= 2); }, [](wchar16) {});
    return found;
}

class DatePicture {
public:
    DatePicture(const LocaleTable& localeTable, const SYSTEMTIME& time, uint32 daysAfterMonday, PictureOutput& target)
        : table(localeTable), date(time), weekday(daysAfterMonday), output(target) {}

    void Write(const wchar16* given) {
        picture = given;
        WalkPicture(
            picture, IsDateLetter, [this](wchar16 letter, std::size_t count) { Field(letter, count); },
            [this](wchar16 unit) { output.Literal(unit); });
    }

private:
    void Field(wchar16 letter, std::size_t count) {
        switch (letter) {
            case 'd':
                return count <= 2 ? output.Number(date.wDay, count) : output.Text(DayName(count));
            case 'M':
                return count <= 2 ? output.Number(date.wMonth, count) : output.Text(MonthName(count));
            case 'y':
                return count <= 2 ? output.Number(date.wYear % 100u, 2) : output.Number(date.wYear, 4);
            default:
                return output.Text(table.Find(LocaleTable::Era));
        }
    }

    LocaleTable::Value DayName(std::size_t count) const {
        return table.Find((count == 3 ? LOCALE_SABBREVDAYNAME1 : LOCALE_SDAYNAME1) + weekday);
    }
    LocaleTable::Value MonthName(std::size_t count) {
        if (!hasDayOfMonth) hasDayOfMonth = HasDayOfMonth(picture);
        const uint32 month = date.wMonth - 1u;
        if (*hasDayOfMonth) {
            return table.Find((count == 3 ? LocaleTable::GenitiveShortMonth1 : LocaleTable::GenitiveMonth1) + month);
        }
        return table.Find((count == 3 ? LOCALE_SABBREVMONTHNAME1 : LOCALE_SMONTHNAME1) + month);
    }

    const LocaleTable& table;
    const SYSTEMTIME& date;
    const uint32 weekday;
    PictureOutput& output;
    const wchar16* picture = nullptr;
    std::optional<bool> hasDayOfMonth;  // not looked for before a month's name wants to know
};

// The years that the system's time structure is documented for.
constexpr uint16 FirstYear = 1601;
constexpr uint16 LastYear = 30827;

// The flags that say which of the locale's pictures is meant. Only the two that the layer knows can be asked for.
constexpr uint32 DatePictureFlags = 0x8B;

bool DateFlagsAreGood(uint32 flags, bool hasPicture) {
    const uint32 choice = flags & DatePictureFlags;
    if (hasPicture) return choice == 0 && (flags & LOCALE_NOUSEROVERRIDE) == 0;
    return choice == 0 || choice == DATE_SHORTDATE || choice == DATE_LONGDATE;
}

// ---- Times of day

bool IsTimeLetter(wchar16 unit) {
    return unit == 'h' || unit == 'H' || unit == 'm' || unit == 's' || unit == 't';
}

class TimePicture {
public:
    TimePicture(const LocaleTable& localeTable, const SYSTEMTIME& timeOfDay, uint32 timeFlags, PictureOutput& target)
        : table(localeTable), time(timeOfDay), flags(timeFlags), output(target) {}

    void Write(const wchar16* picture) {
        WalkPicture(
            picture, IsTimeLetter, [this](wchar16 letter, std::size_t count) { Field(letter, count); },
            [this](wchar16 unit) { output.Literal(unit); });
    }

private:
    void Field(wchar16 letter, std::size_t count) {
        const std::size_t digits = std::min<std::size_t>(count, 2);
        switch (letter) {
            case 'h':
                return output.Number((flags & TIME_FORCE24HOURFORMAT) != 0 ? time.wHour : HourOfTwelve(), digits);
            case 'H':
                return output.Number(time.wHour, digits);
            case 'm':
                return (flags & TIME_NOMINUTESORSECONDS) != 0 ? output.RemoveSeparatorBefore()
                                                              : output.Number(time.wMinute, digits);
            case 's':
                return (flags & (TIME_NOMINUTESORSECONDS | TIME_NOSECONDS)) != 0 ? output.RemoveSeparatorBefore()
                                                                                 : output.Number(time.wSecond, digits);
            default:
                return Mark(count);
        }
    }

    uint32 HourOfTwelve() const { return (time.wHour + 11u) % 12 + 1; }

    void Mark(std::size_t count) {
        if ((flags & TIME_NOTIMEMARKER) != 0) {
            output.RemoveSeparatorBefore();
            output.RemoveSeparatorBehind();
            return;
        }
        const LocaleTable::Value mark = table.Find(time.wHour < 12 ? LOCALE_S1159 : LOCALE_S2359);
        count == 1 ? output.FirstUnit(mark) : output.Text(mark);
    }

    const LocaleTable& table;
    const SYSTEMTIME& time;
    const uint32 flags;
    PictureOutput& output;
};

bool IsTimeOfDay(const SYSTEMTIME& time) {
    return time.wHour < 24 && time.wMinute < 60 && time.wSecond < 60 && time.wMilliseconds < 1000;
}

// ---- Both

SYSTEMTIME GivenOrNow(const SYSTEMTIME* time) {
    if (time != nullptr) return *time;
    SYSTEMTIME now;
    GetLocalTime(&now);
    return now;
}

// The picture that was given, or the locale's own of a type.
const wchar16* GivenOrLocales(const wchar16* picture, const LocaleTable& table, uint32 type) {
    if (picture != nullptr) return picture;
    const LocaleTable::Value own = table.Find(type);
    return own.text != nullptr ? own.text : ZUTEXT("");
}

bool IsBuffer(const wchar16* buffer, int size) {
    return size == 0 || (size > 0 && buffer != nullptr);
}

}  // namespace

int GetDateFormatW(uint32 locale, uint32 flags, const SYSTEMTIME* date, const wchar16* picture, wchar16* buffer,
                   int size) {
    const LocaleTable* const table = FindLocaleTable(locale);
    if (table == nullptr || !IsBuffer(buffer, size)) return Fail(ERROR_INVALID_PARAMETER);
    if (!DateFlagsAreGood(flags, picture != nullptr)) return Fail(ERROR_INVALID_FLAGS);
    const SYSTEMTIME day = GivenOrNow(date);
    const std::chrono::year_month_day civil(std::chrono::year(day.wYear), std::chrono::month(day.wMonth),
                                            std::chrono::day(day.wDay));
    const bool fits = day.wMonth <= 12 && day.wDay <= 31 && day.wYear >= FirstYear && day.wYear <= LastYear;
    if (!fits || !civil.ok()) return Fail(ERROR_INVALID_PARAMETER);
    const uint32 ownType = (flags & DATE_LONGDATE) != 0 ? LOCALE_SLONGDATE : LOCALE_SSHORTDATE;
    PictureOutput output(buffer, size);
    const uint32 weekday = std::chrono::weekday(std::chrono::sys_days(civil)).iso_encoding() - 1;
    DatePicture(*table, day, weekday, output).Write(GivenOrLocales(picture, *table, ownType));
    return output.Finish();
}

int GetTimeFormatW(uint32 locale, uint32 flags, const SYSTEMTIME* time, const wchar16* picture, wchar16* buffer,
                   int size) {
    const LocaleTable* const table = FindLocaleTable(locale);
    if (table == nullptr || !IsBuffer(buffer, size)) return Fail(ERROR_INVALID_PARAMETER);
    if (picture != nullptr && (flags & LOCALE_NOUSEROVERRIDE) != 0) return Fail(ERROR_INVALID_FLAGS);
    const SYSTEMTIME timeOfDay = GivenOrNow(time);
    if (!IsTimeOfDay(timeOfDay)) return Fail(ERROR_INVALID_PARAMETER);
    PictureOutput output(buffer, size);
    TimePicture(*table, timeOfDay, flags, output).Write(GivenOrLocales(picture, *table, LOCALE_STIMEFORMAT));
    return output.Finish();
}

bool TakesLongPictures() {
    return true;
}

}  // namespace Torvo::platform
