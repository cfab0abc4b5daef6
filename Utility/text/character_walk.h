// Walking text character by character, as the string functions do while the system charset is a multi-byte one.
//
// A character is what platform::CharNextW steps over: a unit or a pair of surrogates, with its combining marks. Of a
// character only the first unit is ever compared. Positions and counts are in units all the same, except for Length.
//
// The functions do what those of the same name with `zu` in front promise; <Utility/strings.h> has the details.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo::character_walk {

// The number of characters.
uint64 Length(const wchar16* s);
wchar16* Strchr(const wchar16* s, wchar16 c);
wchar16* Strrchr(const wchar16* s, wchar16 c);
wchar16* Strstr(const wchar16* s, const wchar16* sub);
wchar16* Strpbrk(const wchar16* s, const wchar16* set);
uint64 Strspn(const wchar16* s, const wchar16* set);
uint64 Strcspn(const wchar16* s, const wchar16* set);
wchar16* LastChar(const wchar16* s);
wchar16* Strtok(wchar16* s, const wchar16* delimiters, wchar16** context);

}  // namespace Torvo::character_walk
