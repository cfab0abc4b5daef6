// Text as the system sees it: code pages, characters of more than one unit, case and class of letters.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// Flags of the two conversions, and the code pages with a meaning of their own. Macros of the same names on Windows.
#if !defined(_WIN32)
inline constexpr uint32 MB_PRECOMPOSED = 0x01;
inline constexpr uint32 MB_ERR_INVALID_CHARS = 0x08;
inline constexpr uint32 WC_DISCARDNS = 0x010;
inline constexpr uint32 WC_SEPCHARS = 0x020;
inline constexpr uint32 WC_DEFAULTCHAR = 0x040;
inline constexpr uint32 WC_COMPOSITECHECK = 0x200;
inline constexpr uint32 WC_NO_BEST_FIT_CHARS = 0x400;
inline constexpr uint32 CP_ACP = 0;
inline constexpr uint32 CP_OEMCP = 1;
inline constexpr uint32 CP_THREAD_ACP = 3;
inline constexpr uint32 CP_UTF8 = 65001;
#endif

namespace platform {

// Bytes of a code page to system text. `sourceBytes` is -1 for zero-terminated text, terminator included. The number of
// units written; with a size of 0 the number needed. 0 on failure: error 87 for an unknown page, a null source or a
// length of 0, 122 when it does not fit, 1004 for flags that the page does not take, 1113 for an invalid sequence under
// MB_ERR_INVALID_CHARS. A conversion that does not fit has written the units that did. Source and target must not
// overlap; error 87 where they are one. In UTF-8, each longest beginning of a sequence that is not completed becomes
// one U+FFFD, and MB_ERR_INVALID_CHARS is the only flag.
int MultiByteToWideChar(uint32 codePage, uint32 flags, const char* source, int sourceBytes, wchar16* target,
                        int targetUnits);
// System text to bytes of a code page, likewise. What the page does not hold becomes `defaultChar` (at most two bytes,
// zero-terminated), or the page's own default when that is null; *usedDefault, if not null, tells whether that
// happened. UTF-8 takes neither of the two (error 87) and none of the flags named here (error 1004).
int WideCharToMultiByte(uint32 codePage, uint32 flags, const wchar16* source, int sourceUnits, char* target,
                        int targetBytes, const char* defaultChar, bool* usedDefault);
// Whether the page is one that the two conversions know by its own number.
bool IsValidCodePage(uint32 codePage);
// Whether a byte begins a pair in a double-byte page.
bool IsDBCSLeadByteEx(uint32 codePage, uint8 byte);

// The next character, a base with its combining marks or a pair of surrogates counting as one; the terminator's own
// address at the end. Systems differ in whether they step over marks: see CharNextStepsOverMarks.
wchar16* CharNextW(const wchar16* text);
// The character before `current`, `start` at the beginning.
wchar16* CharPrevW(const wchar16* start, const wchar16* current);
// The next character of text in a code page.
char* CharNextExA(uint16 codePage, const char* text, uint32 flags);
// Whether CharNextW takes a base and its combining marks as one character. It does by its documentation.
bool CharNextStepsOverMarks();

// Case of a whole text, in place, or of one unit.
wchar16* CharLowerW(wchar16* text);
wchar16* CharUpperW(wchar16* text);
wchar16 CharLowerW(wchar16 unit);
wchar16 CharUpperW(wchar16 unit);
bool IsCharLowerW(wchar16 unit);
bool IsCharUpperW(wchar16 unit);

}  // namespace platform
}  // namespace Torvo
