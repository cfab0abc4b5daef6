// Dates under a format, as in "dd-mmm-yyyy" or "dddd, mmmm d, yyyy".
//
// A format is made of words and of what stands between them. These words are known, in small letters or capitals:
//
//     word    printed as                            read as
//     d dd    the day, as a number; two digits      the day
//     ddd     the name of the weekday, abbreviated  nothing: whatever stands there
//     dddd    the name of the weekday               nothing
//     m mm    the month, as a number; two digits    the month
//     mmm     the name of the month, abbreviated    the month by that name
//     mmmm    the name of the month                 the month by that name
//     yy      the last two digits of four           the year: 51 to 99 mean 1951 to 1999, 0 to 50 mean 2000 to 2050
//     yyyy    the year, without leading zeros       the year
//
// Names are those of the user's locale. Everything else is literal text: copied by the one, compared by the other.
// Names and literal text are compared as the runtime's _wcsicmp does: without regard to the case of A to Z, and of
// other letters only where the program has set a character locale.
//
// Formats, and texts that are read, are cut at each blank, tab, newline and each of `~!@#$%^&*()-+=[]{}:;<>,.|/\,
// except inside quotation marks or apostrophes, and the delimiters are kept as pieces of their own. White space at
// the very end is dropped, but for one delimiter right behind the last piece: "d   " prints as "29 ". A piece that
// consists of the letters D, M, Y, d, m, y and H, f, h, s, t alone is cut further, between runs of one letter of the
// former six: "ddmmyyyy" has three words, and "day" is literal text. So a text can only be read where the delimiters
// are: 20240229 is one piece and never matches "yyyymmdd".
//
// Both functions work with the caller's instance and may be called on any thread. Errors are records at level 4 with
// the number 5002 and these resource identifiers and parameters:
//
//     63  a piece of the text is not the literal text of the format (the piece, the format)
//     64  text and format have different numbers of pieces (the format)
//     65  no month of that name (the name)
//     66  no month of that abbreviated name (the name)
//
// Example: examples/families/sql_dates.cpp
#pragma once

#include <Utility/dates.h>

namespace Torvo {

// Prints the date. The fields are not checked: a month outside 1 to 13 prints as the first, the thirteenth as nothing
// where the locale has none, and a day that has no weekday as Sunday. True, with the text in `out`; false, with `out`
// untouched and no error, when the text with its terminator does not fit into `outSize` units, the format or
// `out` is null or memory is short.
ZUAPI bool zuSQLDateToString(zuDATE date, const wchar16* format, wchar16* out, uint64 outSize);

// Reads a date. True, with the date in *date; or false, with an error record and *date untouched.
//
// The date is not checked, so that a caller asks IsValidDate: "31-02-2024" is read as 31 February, a number that cannot
// be read is 0, and what its field does not hold is cut off. Fields without a word are 0. Of two words for one field
// the latter counts. An empty text under an empty format is the null date. A null text, format or `date` fails, and so
// does a lack of memory, all without an error record.
ZUAPI bool zuSQLStringToDate(const wchar16* text, const wchar16* format, zuDATE* date);

}  // namespace Torvo
