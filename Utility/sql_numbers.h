// Numbers under a picture format, as in "$99,990.00", "S9.99E+99" or "999D99MI".
//
// Each character of a format stands for one position of the text:
//
//     9            a digit, or a blank where there is none
//     0            a digit, or 0 where there is none; all "9" right of it before the point count as "0" too
//     , or G       a separator of groups: "," itself, or the locale's
//     . or D       the decimal point: "." itself, or the locale's
//     $ or L       the currency: "$" itself, or the first unit of the locale's symbol; one only, first or last
//     E            the beginning of the exponent
//     + or -       the sign of the exponent, directly behind the "E"
//     S first      the sign, at the start
//     S or MI last the sign, at the end
//
// Small letters will do. Any other character takes no position and is dropped. The locale's characters are the first
// units of its separators and its symbol (<Utility/locale_info.h>), or ".", "," and "$" where it has none.
//
// A number whose digits do not fit shows "#" at every digit position. The two functions are not exact inverses, and
// worked examples stand with each. Both work on the stack, use the caller's instance for the locale and the error
// record, and may be called on any thread.
//
// Errors are records at level 4 with the number 5002, the format as first parameter, and these resource identifiers:
//
//     67  the text does not match the format (reading; the others are for printing)
//     68  a second decimal point, or one behind the exponent
//     70  a separator of groups behind the point or the exponent
//     71  a second currency position, or one that is neither first nor last
//     72  a second "E"
//     73  a sign of the exponent that is not directly behind the "E"
//
// Example: examples/families/sql_numbers.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// Prints `value`.
//
//     1234.5  under 9,999.99   1,234.50        5     under S999     +  5
//     12.5    under 9,999.99      12.50        -5    under S999     -  5
//     0       under 990          0             5     under 999MI      5+
//     -12     under 999        -12             12345 under 999      ###
//     1234    under 9.99E99    1.23E 3         2.5   under 9        3
//
// Without an "E" the value is rounded to the places of the fraction, halves away from zero. Without a sign position a
// minus takes the first unit of the text, or the second when there is a currency position, and needs a digit position
// that the number leaves free; with an "E" the mantissa then has one digit less. A sign at the end makes the text one
// unit longer. An infinity or a NaN does not fit any format.
//
// True, with the text in `out`; or false, with `out` untouched: for a format with one of the errors above, and, with no
// error record, when the text with its terminator does not fit into `outSize` units, or for a format of more than 511
// positions.
ZUAPI bool zuSQLDoubleToString(double value, const wchar16* format, wchar16* out, uint64 outSize);

// Reads a number, walking format and text in step; both must end together.
//
//     "1,234.50" under 9,999.99   1234.5       "-12" under 999   -12
//     "   12.50" under 9,999.99   12.5         "12x" under 99    does not match
//     "12.50"    under 9,999.99   does not match: the "2" stands where a separator or a blank must be
//
// A digit position takes one character: a blank counts as nothing, and anything else is taken into the number as it is,
// which is how a sign gets in. Before the point it does not take the decimal separator, which waits for its position,
// and passes the separator of groups on to a later position for it; once one such position has been passed, a separator
// at a digit position does not match. Between point and exponent it does not take an "E". At the end of the text digit
// positions and the point may be left over. "," and "." mean the locale's separators here, as "G" and "D" do, and "$"
// its symbol, as "L" does. A format with a sign position in the exponent matches no text; the sign of an exponent comes
// in through a digit position.
//
// The parts are read as by the C runtime's _wtof, and a fraction is subtracted if the part before it is below 0: "-0.5"
// under "99.9" reads as 0.5, because "-0" is not.
//
// True, with the number in *value; or false, with an error record and *value untouched. A part of more than 511 units
// does not match.
ZUAPI bool zuSQLStringToDouble(const wchar16* text, const wchar16* format, double* value);

}  // namespace Torvo
