// Numbers as text: for a user, for a data file, for an edit control.
//
// The neutral form of a number has "." as decimal point and no separators between groups of digits. The UI form carries
// the separators of the user's locale. Everything is printed in the neutral form, whatever locale the program has set
// for the C runtime; the separators are a step of their own, taken when they are asked for:
//
//     DoubleToString(1234567.25, text, 32, true, 2, PRINTF_FORMAT_F, -1)      "1,234,567.25", or "1.234.567,25"
//     DoubleToString(1234567.25, text, 32, false, 2, PRINTF_FORMAT_F, -1)     "1234567.25", everywhere
//
// Which separators those are follows the rule of <Utility/locale_info.h>: the locale's, unless a callback registered by
// SetNumberFormatCallback answers true and so asks for the fixed ones: ".", "," and groups of 3. The callback is asked
// at every single look-up. A separator that the locale does not have is 0, and then nothing is inserted, removed or
// replaced.
//
// Digits are those of the C runtime's printf: correctly rounded, ties to even, exponents of at least two digits.
// Infinity prints as "inf", a NaN as "nan", each with a "-" if its sign is set; but the negative NaN without a payload,
// which is the one that the processor makes, as "-nan(ind)", and a signalling one with "(snan)" behind it.
//
// Sizes are in units of 16 bits, terminator included. Results are cut to their size, and what is left of the buffer
// behind the text is filled with zeros; a size of 0 writes nothing. A text of 512 units or more before it is cut, which
// only an extreme precision or width can ask for, is refused: the result is then an empty text. Nothing allocates, and
// nothing leaves an error record. All calls may be made on any thread; those that look up separators use the caller's
// instance.
//
// Example: examples/families/numbers.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// How to print. Any other value prints as PRINTF_FORMAT_G, without the precision that it chooses by itself.
enum PRINTF_FORMAT : int32 {
    PRINTF_FORMAT_E = 1,  // with an exponent: 1.5e+20
    PRINTF_FORMAT_F = 2,  // without one
    PRINTF_FORMAT_G = 3   // the shorter of the two, without zeros at the end
};

// Prints `value` with `precision` digits: behind the point for E and F, in all for G. -1 stands for 6; with
// PRINTF_FORMAT_G a number of five to twelve digits before the point gets three more than it has orders of magnitude,
// from 7 up to 14, so that 1234567 and 12345.67 print in full. `width` pads with spaces on the left, a negative one on
// the right, and -1 not at all. With `group` the text is then brought into the UI form. Returns `out`.
ZUAPI wchar16* DoubleToString(double value, wchar16* out, uint64 outSize, bool group, int32 precision,
                              PRINTF_FORMAT format, int32 width);

// Prints into a field of a table, `width` units with the point, `decimals` of them behind it, padded with spaces on the
// left; `out` has width + 1 units. -1 for `decimals` stands for 6 digits, rounded to tens.
//
// What does not fit is clipped without a word, to the largest or the smallest number that does: 12345.678 in a field of
// 6 with 2 decimals is "999.99" and -12345.678 is "-99.99". At most 16 significant digits are trusted. The value is
// rounded to its decimals with halves going up before it is printed.
//
// A field of width -1 has no unit, not even for the terminator: nothing is written, as for any width below it. The
// limits are powers of ten and exist for every width and number of decimals.
ZUAPI void DoubleToDBString(wchar16* out, int32 width, int32 decimals, double value);

// Prints with up to 14 significant digits, as PRINTF_FORMAT_G does, and with `group` in the UI form. Returns `out`. A
// size below 1 writes nothing.
ZUAPI wchar16* DoubleToStringEditCtl(double value, wchar16* out, int32 outSize, bool group);

// Prints a coordinate with up to 12 digits behind the point and no zeros at the end: 12.5 as "12.5", 100 as "100". The
// text is always neutral. It has at most 29 units: a number of more than 16 digits before the point, or of more than 15
// with a minus, loses digits behind it, and a number of more than 29, or of more than 28 with a minus, the last of
// those before it. Returns `out`.
ZUAPI wchar16* CoordinateToString(double value, wchar16* out, uint64 outSize);

// Brings a number from the neutral into the UI form, in place. `size` is that of the buffer. Separators are put in from
// right to left while there is room for one more and a terminator, so a small buffer ends with an incompletely grouped
// number. Only digits are grouped: a group is never begun at a sign or an exponent. The last "." becomes the decimal
// separator, whatever the size.
ZUAPI void FormatNumberForUI(wchar16* text, uint64 size);

// Brings a number from the UI form into the neutral one: `target` gets `source` without the separators of groups, and
// with "." for the last decimal separator. `target` is another buffer, at least as large as `source` needs.
ZUAPI void DeformatNumberFromUI(const wchar16* source, wchar16* target);

// The separators and the size of a group that the calls above use.
ZUAPI wchar16 GetDecimalSeparator();
ZUAPI wchar16 GetThousandsSeparator();
ZUAPI int16 GetThousandsGroupSize();

}  // namespace Torvo
