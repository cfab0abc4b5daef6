// The formatter behind the runtime's wide printf family.
//
// One core serves every system, with the meaning that the universal C runtime of Windows gives to a format; the older
// runtime of that system, which some compilers link, writes exponents and infinities in another way.
//
//   %s %c      16-bit text; with h, and for %S %C, bytes in the runtime's character locale; with l or w, 16-bit text in
//              any case. A null text prints "(null)". A precision limits the units taken.
//   %d %i %u %o %x %X
//              32 bits; hh 8, h 16, l and I32 32, ll, I64, I, j, z and t 64.
//   %e %f %g %a, and in capitals
//              double, rounded exactly, ties to even. At least two digits of exponent. %a prints 13 digits where no
//              precision is given. inf, nan, -nan(ind) for the runtime's own not-a-number, nan(snan) for one that
//              signals; never padded with zeros. The decimal mark is that of the runtime's numeric locale (setlocale).
//   %p         sixteen capital digits.
//
// Flags "-+ #0", width and precision, either of which may be "*": a negative width means "-", a negative precision
// none. The flag 0 pads everything but infinities, and numbers with a precision. Anything else is refused, %n above
// all.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo::platform {

// Prints into `buffer`, at most `size` - 1 units, and always terminates it unless `size` is 0. The number of units, or
// -1: the text did not fit, and its beginning stands in the buffer, or the format was refused, a byte text could not be
// converted, or the text would have more units than an int can count, and the buffer is empty.
int vswprintf(wchar16* buffer, std::size_t size, const wchar16* format, va_list arguments);
int swprintf(wchar16* buffer, std::size_t size, const wchar16* format, ...);

// The number of units that the text has, or -1 for the latter three reasons.
int _vscwprintf(const wchar16* format, va_list arguments);
int _scwprintf(const wchar16* format, ...);

// For a caller without a limit: replaces `text`, which is sized first. As _vscwprintf, with `text` empty on failure.
// Throws std::bad_alloc.
int FormatText(wstring16* text, const wchar16* format, va_list arguments);

}  // namespace Torvo::platform
