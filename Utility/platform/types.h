// The types of the library's signatures, with the same meaning on every system.
//
// All text inside the library is zero-terminated UTF-16, called system text. Its unit, `wchar16`, is the system's own
// `wchar_t` where that has 16 bits, and `char16_t` elsewhere; ZUTEXT("...") writes a literal of it. `long32` and
// `ulong32` stand where the signatures of the Windows build say `long` and `unsigned long`, and have 32 bits
// everywhere.
//
// The structures that the calls of the library share with the system (SYSTEMTIME and its like) are the system's own on
// Windows, and plain structures with the same fields elsewhere. In both cases they are found in the namespace Torvo.
#pragma once

#if __cplusplus < 202002L && !(defined(_MSVC_LANG) && _MSVC_LANG >= 202002L)
#error "Torvo Utility needs C++20."
#endif

#include <sys/stat.h>

#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <string>

#if defined(_WIN32)
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

// ZUAPI marks what leaves the library. TORVO_BUILDING is defined while the library itself is compiled, TORVO_STATIC
// where its objects are linked into a program.
#if defined(_WIN32)
#if defined(TORVO_BUILDING)
#define ZUAPI __declspec(dllexport)
#elif defined(TORVO_STATIC)
#define ZUAPI
#else
#define ZUAPI __declspec(dllimport)
#endif
#else
#define ZUAPI __attribute__((visibility("default")))
#endif

#if defined(_WIN32)
#define ZUTEXT_PASTE(literal) L##literal
#else
#define ZUTEXT_PASTE(literal) u##literal
#endif
// A literal of system text: ZUTEXT("abc").
#define ZUTEXT(literal) ZUTEXT_PASTE(literal)

namespace Torvo {

using int8 = std::int8_t;
using int16 = std::int16_t;
using int32 = std::int32_t;
using int64 = std::int64_t;
using uint8 = std::uint8_t;
using uint16 = std::uint16_t;
using uint32 = std::uint32_t;
using uint64 = std::uint64_t;

#if defined(_WIN32)

using wchar16 = wchar_t;
using long32 = long;
using ulong32 = unsigned long;

using ::_currencyfmtW;
using ::_numberfmtW;
using ::_stat64;
using ::GUID;
using ::HENHMETAFILE;
using ::HINSTANCE;
using ::HMETAFILE;
using ::HRGN;
using ::SYSTEMTIME;
using ::WIN32_FIND_DATAW;

#else

using wchar16 = char16_t;
using long32 = std::int32_t;
using ulong32 = std::uint32_t;

// Handles: opaque, and equal only when they mean the same thing.
struct HINSTANCE_;
struct HRGN_;
struct HMETAFILE_;
struct HENHMETAFILE_;
using HINSTANCE = HINSTANCE_*;
using HRGN = HRGN_*;
using HMETAFILE = HMETAFILE_*;
using HENHMETAFILE = HENHMETAFILE_*;

// A globally unique identifier.
struct GUID {
    uint32 Data1;
    uint16 Data2;
    uint16 Data3;
    uint8 Data4[8];

    bool operator==(const GUID&) const = default;
};

// A calendar date and time of day, to the millisecond. wDayOfWeek counts from Sunday, 0.
struct SYSTEMTIME {
    uint16 wYear;
    uint16 wMonth;
    uint16 wDayOfWeek;
    uint16 wDay;
    uint16 wHour;
    uint16 wMinute;
    uint16 wSecond;
    uint16 wMilliseconds;
};

// A point in time in ticks of 100 nanoseconds since 1 January 1601, UTC.
struct FILETIME {
    uint32 dwLowDateTime;
    uint32 dwHighDateTime;
};

// One entry of a directory, as a search reports it.
struct WIN32_FIND_DATAW {
    uint32 dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    uint32 nFileSizeHigh;
    uint32 nFileSizeLow;
    uint32 dwReserved0;
    uint32 dwReserved1;
    wchar16 cFileName[260];
    wchar16 cAlternateFileName[14];
};

// How a locale writes numbers.
struct _numberfmtW {
    uint32 NumDigits;
    uint32 LeadingZero;
    uint32 Grouping;
    wchar16* lpDecimalSep;
    wchar16* lpThousandSep;
    uint32 NegativeOrder;
};

// How a locale writes amounts of money.
struct _currencyfmtW {
    uint32 NumDigits;
    uint32 LeadingZero;
    uint32 Grouping;
    wchar16* lpDecimalSep;
    wchar16* lpThousandSep;
    uint32 NegativeOrder;
    uint32 PositiveOrder;
    wchar16* lpCurrencySymbol;
};

// What is known of a file, with a 64-bit size. The times are read as st_atime, st_mtime and st_ctime, in seconds since
// 1 January 1970, UTC; those are macros of <sys/stat.h> here, which lead to the members below.
struct _stat64 {
    uint32 st_dev;
    uint16 st_ino;
    uint16 st_mode;
    int16 st_nlink;
    int16 st_uid;
    int16 st_gid;
    uint32 st_rdev;
    int64 st_size;
    timespec st_atim;
    timespec st_mtim;
    timespec st_ctim;
};

#endif

using wstring16 = std::basic_string<wchar16>;

}  // namespace Torvo
