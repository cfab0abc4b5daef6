// The rules of the Gregorian calendar, and where dates come from that nobody gave: the clock.
#pragma once

#include <Utility/dates.h>

#include <ctime>

namespace Torvo {

// Divisible by 4, and by 16 where by 25: a multiple of 25 and 16 is one of 400, and one of 25 and 4 alone of 100. (The
// test by 25 in place of 100: C. Neri and L. Schneider, Euclidean affine functions and their application to calendar
// algorithms, Software: Practice and Experience 53, 2023.) Year 0 is a leap year.
constexpr bool IsLeapYear(int32 year) {
    return (year & (year % 25 == 0 ? 15 : 3)) == 0;
}

// For a month from 1 to 12. Odd months have 31 days up to July, even ones from August on (the same authors).
constexpr int32 DaysInMonth(int32 month, bool isLeap) {
    if (month == 2) return isLeap ? 29 : 28;
    return 30 | (month ^ (month >> 3));
}

// Whether there is a day of that number in the month, of any year.
constexpr bool IsDayOfMonth(int32 year, int32 month, int32 day) {
    if (static_cast<uint32>(month) - 1u >= 12) return false;
    const uint32 daysBefore = static_cast<uint32>(day) - 1u;
    return daysBefore < 28 || daysBefore < static_cast<uint32>(DaysInMonth(month, IsLeapYear(year)));
}

// How dates are written: by the user's locale, or in the fixed form.
struct DateForm {
    explicit DateForm(bool useLocale);
    int16 order = DATEORDER_MDY;
    wchar16 delimiter = '/';
};

// Today by a clock that stores the local date and time, or 19 January 2038 when it cannot.
zuDATE TodayOf(bool (*clock)(std::tm*));
// The system's clock.
bool LocalClock(std::tm* parts);
zuDATE Today();

// Whether the text of dates and times follows the user's locale: asks the callback, if there is one, whether it is to
// be in the fixed form.
inline bool UsesLocale(bool (*asksForFixedForm)()) {
    return asksForFixedForm == nullptr || !asksForFixedForm();
}
// The same with the host's callback.
bool UsesLocaleForDates();

}  // namespace Torvo
