// Numbers in 16-bit text, as the C runtime reads them, and the runtime's numeric locale.
//
// The readers carry the names of the Windows runtime's calls and keep its documented contract. They are the library's
// own on every system, because runtimes differ where answers must not: in hexadecimal and infinite numbers, in the sign
// of an unsigned number that is too large, in whether "1.5d2" has an exponent.
//
// All readers skip leading white space (in the sense of iswspace, so a no-break space too), take a sign and stop at the
// first unit that does not fit. *end, if `end` is not null, is then the first unread unit, or `text` if there is no
// number. Results that do not fit set errno to ERANGE; nothing else about errno changes, except EINVAL for a base that
// is not 0 or 2 to 36. All may be called on any thread, also while another one changes the runtime's locale.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo::platform {

// Integers. Base 0 means 8 after a "0", 16 after "0x", else 10; base 16 takes a "0x" too. A "0x" without a digit behind
// it is no number. The decimal digits of other scripts count as digits: the fullwidth ones, for instance. A number that
// does not fit becomes the nearest limit of a signed type and the largest value of an unsigned one; a minus before an
// unsigned number that fits negates it modulo the type's range.
long32 wcstol(const wchar16* text, wchar16** end, int base);
ulong32 wcstoul(const wchar16* text, wchar16** end, int base);
int64 _wcstoi64(const wchar16* text, wchar16** end, int base);
uint64 _wcstoui64(const wchar16* text, wchar16** end, int base);

// A double, correctly rounded, with the decimal mark of the runtime's numeric locale. Takes "0x1.8p3", "inf",
// "infinity", "nan" and "nan(...)" in either case, and "d" as well as "e" before an exponent. A number too large gives
// an infinity, one too small 0; a subnormal number fits.
double wcstod(const wchar16* text, wchar16** end);
double _wtof(const wchar16* text);

// What a number may look like: only decimal digits after plain white space (9 to 13 and 32), or all that wcstod takes.
enum class NumberForms { Decimal, All };
// The same with a decimal mark of the caller's.
double ReadDouble(const wchar16* text, wchar16** end, wchar16 decimalMark, NumberForms forms);

// Whether a unit is white space to the readers: U+00A0 is, like the other spaces of its kind.
bool iswspace(wchar16 unit);

// Whether the runtime's numeric locale is the one called "C", which it is until the program calls setlocale.
bool NumericLocaleIsC();
// The decimal mark of the runtime's numeric locale, its first unit.
wchar16 NumericDecimalMark();

}  // namespace Torvo::platform
