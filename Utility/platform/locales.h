// Locales: the identifier of the calling thread, and what a locale says of numbers, money, dates and times.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// The locale types that the library reads. On Windows they are macros of the same names.
#if !defined(_WIN32)
inline constexpr uint32 LOCALE_IDIGITS = 0x11;
inline constexpr uint32 LOCALE_ILZERO = 0x12;
inline constexpr uint32 LOCALE_SDECIMAL = 0x0E;
inline constexpr uint32 LOCALE_STHOUSAND = 0x0F;
inline constexpr uint32 LOCALE_SGROUPING = 0x10;
inline constexpr uint32 LOCALE_SCURRENCY = 0x14;
inline constexpr uint32 LOCALE_SMONDECIMALSEP = 0x16;
inline constexpr uint32 LOCALE_SMONTHOUSANDSEP = 0x17;
inline constexpr uint32 LOCALE_SMONGROUPING = 0x18;
inline constexpr uint32 LOCALE_ICURRDIGITS = 0x19;
inline constexpr uint32 LOCALE_ICURRENCY = 0x1B;
inline constexpr uint32 LOCALE_INEGCURR = 0x1C;
inline constexpr uint32 LOCALE_SDATE = 0x1D;
inline constexpr uint32 LOCALE_STIME = 0x1E;
inline constexpr uint32 LOCALE_SSHORTDATE = 0x1F;
inline constexpr uint32 LOCALE_SLONGDATE = 0x20;
inline constexpr uint32 LOCALE_IDATE = 0x21;
inline constexpr uint32 LOCALE_ITIME = 0x23;
inline constexpr uint32 LOCALE_S1159 = 0x28;
inline constexpr uint32 LOCALE_S2359 = 0x29;
inline constexpr uint32 LOCALE_SDAYNAME1 = 0x2A;          // Monday; Sunday is LOCALE_SDAYNAME1 + 6
inline constexpr uint32 LOCALE_SABBREVDAYNAME1 = 0x31;    // likewise
inline constexpr uint32 LOCALE_SMONTHNAME1 = 0x38;        // January; December is LOCALE_SMONTHNAME1 + 11
inline constexpr uint32 LOCALE_SABBREVMONTHNAME1 = 0x44;  // likewise
inline constexpr uint32 LOCALE_STIMEFORMAT = 0x1003;
inline constexpr uint32 LOCALE_IDEFAULTANSICODEPAGE = 0x1004;
inline constexpr uint32 LOCALE_ITIMEMARKPOSN = 0x1005;
inline constexpr uint32 LOCALE_SMONTHNAME13 = 0x100E;
inline constexpr uint32 LOCALE_SABBREVMONTHNAME13 = 0x100F;
inline constexpr uint32 LOCALE_INEGNUMBER = 0x1010;
inline constexpr uint32 LOCALE_IDEFAULTCODEPAGE = 0x0B;
inline constexpr uint32 LOCALE_RETURN_NUMBER = 0x20000000;
inline constexpr uint32 LOCALE_NOUSEROVERRIDE = 0x80000000;
inline constexpr uint32 LOCALE_ALLOW_NEUTRAL_NAMES = 0x08000000;
#endif

namespace platform {

// GetThreadLocale and SetThreadLocale are in <Utility/platform/host.h>.

// Reads one locale value as text into `buffer`, `size` units with the terminator. The number of units written,
// terminator included; with a size of 0 the number needed. 0 on failure: error 122 when it does not fit, 87 for an
// unknown locale, 1004 for an unknown type.
int GetLocaleInfoW(uint32 locale, uint32 type, wchar16* buffer, int size);
// Whether the values of a locale stay what they are as long as the process lives. They do not where the user can change
// them meanwhile.
bool LocaleValuesAreFixed();

// The name of a locale, as in `en-US`, and its identifier. Sizes, results and failures as above.
int LCIDToLocaleName(uint32 locale, wchar16* name, int size, uint32 flags);
// 0 when there is no locale of that name, and when memory is short (error 8); null names the user's default.
uint32 LocaleNameToLCID(const wchar16* name, uint32 flags);
// The name of the system's default locale.
int GetSystemDefaultLocaleName(wchar16* name, int size);

}  // namespace platform
}  // namespace Torvo
