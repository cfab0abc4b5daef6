// Bounded copy and trimming, and the two character classes that trimming knows.
//
// White means tab, line feed, form feed, carriage return and space (9, 10, 12, 13, 32). Blank means white, or refused
// by zuIsPrint: controls are blank, units of 128 and above never are.
//
// Sizes and counts are in 16-bit units. None of the functions keeps state; all may be called on any thread. A text may
// not be null.
//
// Example: examples/families/strings.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// Copies at most `size` - 1 units of `src` to `dst` and fills all the rest of `dst`, up to `size` units, with zeros:
// the tail of the buffer is always cleared. A size of 0 writes nothing. Returns `dst`.
ZUAPI wchar16* strcpyn(wchar16* dst, const wchar16* src, uint64 size);

// Removes leading blank units by moving the text down; the result is how many. The text must hold something that is not
// blank: one of nothing but blanks is left as it is, and the result then says nothing.
ZUAPI uint64 ltrim(wchar16* s);

// The same for spaces alone. A text of nothing but spaces becomes empty.
ZUAPI uint64 ltrim2(wchar16* s);

// Overwrites blank units at the end with 0, up to the last that is not blank; the result is the new length.
ZUAPI uint64 rtrim(wchar16* s);

// 1 if the unit prints: always for 128 and above, below that by the runtime's classes; else 0.
ZUAPI int32 zuIsPrint(wchar16 c);

}  // namespace Torvo
