#include <Utility/datetime/time_reader.h>

#include <Utility/datetime/calendar.h>
#include <Utility/datetime/field_reader.h>
#include <Utility/datetime/ticks.h>
#include <Utility/locale_info.h>
#include <Utility/numbers/plain_number.h>
#include <Utility/platform/number_text.h>
#include <Utility/platform/runtime.h>
#include <Utility/platform/text_scan.h>
#include <Utility/text/unit_classes.h>

#include <algorithm>

namespace Torvo {

namespace {

constexpr std::size_t LiteralLength = 13;

wchar16 ToLower(wchar16 unit) {
    if (unit >= 0x80) return platform::towlower(unit);
    return platform::scan::FoldUnit(unit);
}

// The printable units of ASCII are most of what there is, and none of them is blank.
bool IsBlankUnit(wchar16 unit) {
    return (unit <= ' ' || unit >= 0x7F) && IsBlank(unit);
}

bool Contains(const wchar16* text, wchar16 unit) {
    while (*text != 0 && *text != unit) ++text;
    return *text != 0;
}

// How the locale writes times.
struct TimeForm {
    TimeForm() {
        GetZULocaleTimeInfo(UsesLocaleForDates(), nullptr, &markPosition, &am, &pm, &separators[0], &separators[1]);
    }

    bool MarkStandsFirst() const { return markPosition != 0; }

    int16 markPosition = 0;
    const wchar16* am = ZUTEXT("");
    const wchar16* pm = ZUTEXT("");
    // Between hours and minutes, and between minutes and seconds.
    const wchar16* separators[2] = {ZUTEXT(""), ZUTEXT("")};
};

enum class Mark { None, Am, Pm };

// A cursor on a text, from its first unit that is not blank to the last one. The text is taken as if it were written in
// small letters; the numbers in it are the same in either.
class TimeCursor {
public:
    TimeCursor(const wchar16* text, std::size_t length) : cursor(text), last(text + length) {
        while (last != cursor && IsBlankUnit(last[-1])) --last;
        SkipBlanks();
    }

    bool IsAtEnd() const { return cursor == last; }

    // What is no number reads as 0.
    int32 ReadInteger() {
        int32 number;
        cursor = ReadField(cursor, &number);
        SkipBlanks();
        return number;
    }

    double ReadNumber() {
        double number;
        if (const wchar16* const end = ReadPlainDouble(cursor, &number)) {
            cursor = end;
        } else {
            wchar16* after;
            number = platform::ReadDouble(cursor, &after, '.', platform::NumberForms::All);
            cursor = after;
        }
        SkipBlanks();
        return number;
    }

    // Steps over a separator, if there is one. False when its units stand there in another order or number.
    bool SkipSeparator(const wchar16* separator, bool* found) {
        const wchar16* next = cursor;
        while (next != last && Contains(separator, ToLower(*next))) ++next;
        *found = next != cursor;
        if (!*found) return true;
        const bool isWhole = std::all_of(
            cursor, next, [&separator](wchar16 unit) { return *separator != 0 && *separator++ == ToLower(unit); });
        if (!isWhole || *separator != 0) return false;
        cursor = next;
        SkipBlanks();
        return true;
    }

    // Steps over all units that the marks and blanks are made of, and tells whether they are a mark.
    Mark ReadMark(const TimeForm& form) {
        const wchar16* const first = cursor;
        while (cursor != last && IsUnitOfMark(form, ToLower(*cursor))) ++cursor;
        const Mark mark = MarkOf(form, first, cursor);
        SkipBlanks();
        return mark;
    }

private:
    void SkipBlanks() {
        while (cursor != last && IsBlankUnit(*cursor)) ++cursor;
    }

    static bool IsUnitOfMark(const TimeForm& form, wchar16 unit) {
        const auto isUnit = [unit](wchar16 other) { return ToLower(other) == unit; };
        const auto contains = [isUnit](const wchar16* mark) {
            while (*mark != 0 && !isUnit(*mark)) ++mark;
            return *mark != 0;
        };
        return unit == ' ' || contains(form.am) || contains(form.pm);
    }

    static Mark MarkOf(const TimeForm& form, const wchar16* first, const wchar16* last) {
        while (first != last && IsBlankUnit(*first)) ++first;
        while (first != last && IsBlankUnit(last[-1])) --last;
        const auto length = static_cast<std::size_t>(last - first);
        if (length == 0) return Mark::None;
        const auto isWhole = [first, length](const wchar16* mark) {
            return platform::_wcsnicmp(first, mark, length) == 0 && mark[length] == 0;
        };
        const auto isFirstUnit = [first, length](const wchar16* mark) {
            return length == 1 && ToLower(*first) == ToLower(*mark);
        };
        if (isWhole(form.am)) return Mark::Am;
        if (isWhole(form.pm)) return Mark::Pm;
        if (isFirstUnit(form.am)) return Mark::Am;
        return isFirstUnit(form.pm) ? Mark::Pm : Mark::None;
    }

    const wchar16* cursor;
    const wchar16* last;
};

// The three numbers, each stored as soon as it is read. False when a separator is garbled.
bool ReadFields(TimeCursor& cursor, const TimeForm& form, int32* hours, int32* minutes, double* seconds) {
    bool found;
    *hours = cursor.ReadInteger();
    if (!cursor.SkipSeparator(form.separators[0], &found)) return false;
    if (found) *minutes = cursor.ReadInteger();
    if (!cursor.SkipSeparator(form.separators[1], &found)) return false;
    if (found) *seconds = cursor.ReadNumber();
    return true;
}

bool AreMinutesAndSeconds(int32 minutes, double seconds) {
    return minutes >= 0 && minutes <= 59 && seconds >= 0.0 && seconds < 60.0;
}

int64 HourOfDay(int64 hours, Mark mark) {
    if (hours == 12) return mark == Mark::Am ? 0 : 12;
    return mark == Mark::Pm ? hours + 12 : hours;
}

// The value of a text that is thirteen digits and nothing else, or -1.
int64 ReadLiteral(const wchar16* text, std::size_t length) {
    return length == LiteralLength ? ReadDigits(text, LiteralLength) : -1;
}

}  // namespace

int64 ReadDigits(const wchar16* text, std::size_t count) {
    uint64 number = 0;
    const wchar16* const end = text + count;
    for (; text != end && plain::IsDigit(*text); ++text) number = number * 10 + static_cast<uint64>(*text - '0');
    return text == end ? static_cast<int64>(number) : -1;
}

bool TicksOfLiteral(int64 literal, int64* ticks) {
    if (literal < 0) return false;
    const LiteralParts parts(literal);
    if (!parts.IsTimeOfDay()) return false;
    *ticks = TicksOfParts(parts.hours, parts.minutes, parts.seconds, parts.fraction);
    return true;
}

bool ReadTime(const wchar16* text, std::size_t length, int64* ticks) {
    if (TicksOfLiteral(ReadLiteral(text, length), ticks)) return true;
    if (length > LongestTimeText) return false;
    TimeCursor cursor(text, length);
    const TimeForm form;
    Mark mark = Mark::None;
    int32 readHours = 0;
    int32 minutes = 0;
    double seconds = 0.0;
    if (form.MarkStandsFirst()) mark = cursor.ReadMark(form);
    if (!ReadFields(cursor, form, &readHours, &minutes, &seconds)) return false;
    if (!form.MarkStandsFirst()) mark = cursor.ReadMark(form);
    const int64 hours = HourOfDay(readHours, mark);
    if (!cursor.IsAtEnd() || hours < 0 || hours > 23 || !AreMinutesAndSeconds(minutes, seconds)) return false;
    *ticks = (hours * 60 + minutes) * TicksPerMinute + TicksOfNumber(seconds, TicksPerSecond);
    return true;
}

bool ReadTimeNumbers(const wchar16* text, int32* hours, int32* minutes, double* seconds) {
    const std::size_t length = platform::wcsnlen(text, LongestTimeText + 1);
    const int64 literal = ReadLiteral(text, length);
    if (literal >= 0) {
        const LiteralParts parts(literal);
        *hours = parts.hours;
        *minutes = parts.minutes;
        *seconds = parts.fraction / 1e7 + parts.seconds;
        if (parts.IsTimeOfDay()) return true;
    }
    if (length > LongestTimeText) return false;
    TimeCursor cursor(text, length);
    const TimeForm form;
    return ReadFields(cursor, form, hours, minutes, seconds) && cursor.IsAtEnd() && *hours >= 0 && *hours <= 23 &&
           AreMinutesAndSeconds(*minutes, *seconds);
}

}  // namespace Torvo
