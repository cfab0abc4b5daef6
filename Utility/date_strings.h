// Dates from text and to text: the literal, the ISO form, the numeric form of the user's locale, and the fixed form in
// which a host can pin the library.
//
// What a text may be:
//
//     20240229          the literal: exactly eight digits. 00000000 is the null date.
//     2024-02-29        the ISO form: ten characters, a year from 1000 (Str2Date alone)
//     2/29/2024  2/29   the locale's form: numbers in the locale's order, with its separator between them. Without a
//                       year it is the current one.
//     02-29-2024  2/29  the fixed form: month, day and year behind "-" or "/", the same in both places (Str2Date alone,
//                       and only where the host's callback for dates asks for it)
//
// A number may have white space and a sign before it, as the runtime's wcstol takes them, and spaces behind it. A year
// from 0 to 99 gets the hundreds of the current year, whatever comes out: 99 read in 2026 is 2099. Negative years and
// those above 9999 are refused. There are no names of months in these forms; <Utility/sql_dates.h> has them.
//
// Orders are those of GetDateOrder in <Utility/dates.h>. Sizes are in units, terminator included. But for a text,
// a picture, `end` and the two delimiters of MakeDateStringEx, which print as "(null)", pointers may not be null; the
// printing functions fail without a date or a buffer. The functions work on the caller's instance (locale, callbacks,
// error list) and may be called on any thread. Reading allocates nothing.
//
// Example: examples/families/dates.cpp
#pragma once

#include <Utility/dates.h>

namespace Torvo {

// Reads a date: `date`, or null with *date cleared. A null text is none.
//
// The literal and the ISO form are tried first, whatever the locale. What looks like one of them and is no date
// (20230229, 2023-02-30) leaves the error of LiteralToDate, and is then tried in the other forms. Nothing else leaves
// an error: a caller that reports bad dates itself looks at the result, and clears the list. Then the host's callback
// for dates is asked, if there is one; true means the fixed form. On false it is asked a second time, and whatever it
// says then decides between the locale's order and separator and 0 and '/'.
//
//     order   three numbers        two numbers
//     0       month, day, year     month, day
//     1       day, month, year     day, month
//     2       year, month, day     month, day
//     5       year, day, month     day, month
ZUAPI zuDATE* Str2Date(const wchar16* text, zuDATE* date);

// The same for a date at the start of a text: with `end`, other text may follow, and *end is where. Without, nothing
// may follow. The ISO form and the fixed form are not tried; the callback, asked once, only tells whether the locale's
// order and separator are meant or 0 and '/'.
//
// *end is the terminator after a literal, and after three numbers the first unit behind the spaces that follow them.
// After two numbers the unit that ended the second one has been taken, and *end is the next: "3/4 x" leaves it at the
// terminator, and "3/4" one PAST the terminator. *end is set as soon as the numbers have been read, also if they then
// are no date, and left alone when they cannot be read, or the text is null.
ZUAPI zuDATE* Str2DateEx(const wchar16* text, zuDATE* date, wchar16** end);

// Prints the fields, two digits or more for month and day and four for the year, in the given order, with the delimiter
// between them unless it is 0. Cut to `outSize` - 1 units; nothing behind the terminator is touched. For another order
// than the four nothing is written. The fields are not checked.
ZUAPI void MakeDateString(wchar16* out, uint64 outSize, zuDATE* date, int16 order, wchar16 delimiter);
// The same with a text between the first and the second field, and one between the second and the third. False, with
// nothing written, for another order.
ZUAPI bool MakeDateStringEx(wchar16* out, uint64 outSize, zuDATE* date, int16 order, const wchar16* delimiter1,
                            const wchar16* delimiter2);

// Prints the date in a picture of the system, such as "d MMMM yyyy" or "dddd, dd.MM.yy", with the names of the user's
// locale (<Utility/locale_info.h>). The text is cut to `outSize` - 1 units; all the rest of `out` is filled with zeros.
// A null picture is the locale's short date.
//
// False, with `out` filled with zeros, if the system refuses the date: it does so for dates before 1 January 1601 and
// for what is no date; on Windows, for a pattern whose text could have more than 255 units; and if memory is short.
ZUAPI bool FormatDateString(wchar16* out, uint64 outSize, zuDATE date, const wchar16* pattern);
// The same with one of the locale's own pictures, by its locale type: 31 is the short date and 32 the long one. False,
// with `out` untouched, if there is no such text or it has more than 259 units. The picture is that of the locale at
// the last refresh or GetLocaleIdentifier, while the names are the present locale's: after a change of the thread's
// locale call ResetZULocaleInfo (<Utility/locale_info.h>) first, or the two mix.
ZUAPI bool FormatDateString(wchar16* out, uint64 outSize, zuDATE date, int16 localeItem);

}  // namespace Torvo
