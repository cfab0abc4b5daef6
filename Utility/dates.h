// Calendar dates: a record of year, month and day, its day number, its literal, and the order of the fields in text.
//
// A date travels in three forms:
//
//     zuDATE       four bytes: the year as written (2024 is 2024), the month from 1, the day from 1
//     day number   days of the Gregorian calendar, carried back before its introduction (the proleptic one); day 0 is
//                  Monday, 1 January 0001, and day 3652058 is 31 December 9999. For arithmetic.
//     literal      the decimal digits YYYYMMDD as an integer: 20240229 is 29 February 2024. For tables.
//
// A date is null when its month or its day is 0, whatever else it holds. The null date of the library is all zeros, and
// so is its literal.
//
// Leap years are those divisible by 4 and not by 100, and those divisible by 400, at all times. There is no year 0 in
// the calendar, but IsValidDate, SetDate and LiteralToDate let it pass, as a leap year; it has no day numbers.
//
// Dates are plain values. Nothing here allocates or keeps state, and all may be called on any thread, GetDateOrder and
// GetDateDelim within the rules of <Utility/locale_info.h>. Pointers may not be null. What is called an error below is
// a record of the caller's instance, at level 4, number 5002, resource identifier 9986 (<Utility/errors.h>).
//
// Example: examples/families/dates.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// A date, or none: see above. Nothing keeps a caller from writing fields that make no date.
struct zuDATE {
    int16 year;
    int8 month;
    int8 day;
};
static_assert(sizeof(zuDATE) == 4);

// What GetDateOrder answers: which field stands first in the text of a date. There is no 3 and no 4.
enum DATEORDER : int16 {
    DATEORDER_MDY = 0,
    DATEORDER_DMY = 1,
    DATEORDER_YMD = 2,
    DATEORDER_YDM = 5,
};

// Whether the date is null.
ZUAPI bool NullDate(const zuDATE* date);
// Clears all four bytes.
ZUAPI void SetNullDate(zuDATE* date);

// Whether the date is one of a year from 0 to 9999.
ZUAPI bool IsValidDate(const zuDATE* date);
// Stores the date and tells whether it is valid; if not, *date becomes null.
ZUAPI bool SetDate(int16 year, int8 month, int8 day, zuDATE* date);
// Stores today by the local clock, or 19 January 2038 if the clock cannot be broken down; `date`.
ZUAPI zuDATE* SystemDate(zuDATE* date);

// The day number, or -1 for a null date or one of a negative year.
//
// Nothing else is checked, and excess carries forward: 32 January is 1 February, and month 13 is January of the next
// year. Do not ask for dates of year 0: they give a number without a meaning.
ZUAPI int32 MDY2Days(const zuDATE* date);
// The date of a day number. False for a negative number, with an error, and *date null. There is no upper limit; what
// the 16 bits of the year do not hold is cut off.
ZUAPI bool Days2MDY(int32 days, zuDATE* date);

// Replaces the date by the one so many days later or earlier; `date`. The sum goes through the two calls above, so that
// a date before day 0, or a sum that 32 bits do not hold, leaves an error and the null date, and a null date counts as
// day -1: one day after it is 1 January 0001.
ZUAPI zuDATE* DateAdd(int32 days, zuDATE* date);
ZUAPI zuDATE* DateSubtract(int32 days, zuDATE* date);
// Days from `b` to `a`: MDY2Days(a) - MDY2Days(b).
ZUAPI int32 DateDiff(const zuDATE* a, const zuDATE* b);

// -1 if `a` is the earlier, 1 if it is the later, 0 if they are the same or both null, -2 if exactly one is null. The
// fields are compared as they are, also where they make no valid date.
ZUAPI int32 DateCmp(const zuDATE* a, const zuDATE* b);

// The day of the week of a day number: 1 for Sunday to 7 for Saturday.
ZUAPI int32 DayOfWeek(int32 days);

// The literal, computed from the fields whatever they hold.
ZUAPI int32 DateToLiteral(const zuDATE* date);
// The date of a literal; 0 is the null date. False, with an error, if it is no date, and the fields then stay in *date
// as they were decoded: 20230229 leaves 2023, 2, 29. There is no upper limit to the year, but it is cut to 16 bits.
ZUAPI bool LiteralToDate(int32 literal, zuDATE* date);

// The order of the fields in the text of a date (a DATEORDER), and the character between them: those of the user's
// locale, or 0 and '/' when the host's callback asks for the fixed form (<Utility/locale_info.h>).
ZUAPI int16 GetDateOrder();
ZUAPI wchar16 GetDateDelim();

}  // namespace Torvo
