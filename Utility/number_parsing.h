// Numbers from text.
//
// Each function reads a number at the start of a text and stops at the first unit that does not belong to it: "12abc"
// reads as 12, and only `end` tells the difference. White space before the number is skipped.
//
// One contract for all: true, with the number in *value and, if `end` is not null, the first unread unit in *end; or
// false, with *value 0 and *end null. There is no number in a null text, in an empty one, or in one that begins with
// anything else. Numbers outside the function's range fail too, but see the 64-bit ones. The caller's old value does
// not survive a failure. A null `value` fails.
//
// The FmtCtl forms read what a user has typed. With `deformat` the text is in the UI form of
// <Utility/number_printing.h> and DeformatNumberFromUI is applied to a copy of it; such a text has at most 99 units, a
// longer one fails. Without `deformat` the text is read as it stands. They do not judge: marks between groups are
// dropped wherever they stand, and what follows the number is not looked at, so that under a German locale "1.5" is 15
// and "12abc" is 12. A form that is to refuse such input calls DeformatNumberFromUI and StringToDouble with `end`
// itself.
//
// Nothing allocates, and nothing leaves an error record. errno is left as the runtime's reader leaves it: ERANGE for a
// number beyond 32 bits (or 64, or a double), EINVAL for a base that is none; limits narrower than that, 16 bits or
// `min` and `max`, do not show in it. All but the 64-bit functions set it to 0 first. A text that is not read, because
// it is null or too long for a FmtCtl form, leaves it alone. All may be called on any thread, also while another thread
// changes the locale of the C runtime.
//
// Example: examples/families/numbers.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// Signed numbers in base 10, by the C runtime's wcstol: of 32 bits between `min` and `max`, of 32 bits, and of 16.
ZUAPI bool StringToInt32(const wchar16* text, int32* value, wchar16** end, int32 min, int32 max);
ZUAPI bool StringToInt32FmtCtl(const wchar16* text, int32* value, bool deformat, int32 min, int32 max);
ZUAPI bool StringToInt(const wchar16* text, int* value, wchar16** end);
ZUAPI bool StringToIntFmtCtl(const wchar16* text, int* value, bool deformat);
ZUAPI bool StringToShort(const wchar16* text, int16* value, wchar16** end);
ZUAPI bool StringToShortFmtCtl(const wchar16* text, int16* value, bool deformat);

// Unsigned numbers of 32 bits, by wcstoul: "-1" reads as 4294967295. The base is 10 where none is given; 0 lets the
// text choose (8 after "0", 16 after "0x"), and one that is not 0 or 2 to 36 fails.
ZUAPI bool StringToUnsignedInt32(const wchar16* text, uint32* value, wchar16** end, int base);
ZUAPI bool StringToUnsignedInt32FmtCtl(const wchar16* text, uint32* value, bool deformat);
ZUAPI bool StringToUnsignedInt(const wchar16* text, unsigned int* value, wchar16** end);
// In base 16; "0x" may stand before the digits.
ZUAPI bool StringToUnsignedLong16(const wchar16* text, uint32* value);

// Numbers of 64 bits in base 10. A number that does not fit does not fail: it arrives as the nearest limit, or for the
// unsigned type as the largest value.
ZUAPI bool StringToInt64(const wchar16* text, int64* value);
ZUAPI bool StringToInt64FmtCtl(const wchar16* text, int64* value, bool deformat);
ZUAPI bool StringToUnsignedInt64(const wchar16* text, uint64* value);
ZUAPI bool StringToUnsignedInt64FmtCtl(const wchar16* text, uint64* value, bool deformat);

// A double in the neutral form, with "." as decimal point whatever the C runtime's locale is; correctly rounded. A "d"
// before the exponent means the same as an "e": "1.5d2" is 150. A number that is too large fails, and so does one so
// small that only 0 would be left of it.
//
// While the runtime's numeric locale is "C", as it is unless the program sets another, the text may also be what wcstod
// takes beyond decimal digits: "0x1.8p3", "inf", "nan". Otherwise what follows white space (units 9 to 13 and 32
// only) and a sign must be a digit, or a point and a digit.
//
// The text is read and nothing else: it may be constant, and several threads may read the same.
ZUAPI bool StringToDouble(const wchar16* text, double* value, wchar16** end);
ZUAPI bool StringToDoubleFmtCtl(const wchar16* text, double* value, bool deformat);

}  // namespace Torvo
