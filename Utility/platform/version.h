// The version of the running system.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// Which members of OSVERSIONINFOEXW are compared, and how. Macros of the same names on Windows.
#if !defined(_WIN32)
inline constexpr uint32 VER_MINORVERSION = 0x0000001;
inline constexpr uint32 VER_MAJORVERSION = 0x0000002;
inline constexpr uint32 VER_SERVICEPACKMAJOR = 0x0000020;
inline constexpr uint32 VER_PRODUCT_TYPE = 0x0000080;
inline constexpr uint8 VER_EQUAL = 1;
inline constexpr uint8 VER_GREATER_EQUAL = 3;
inline constexpr uint8 VER_NT_WORKSTATION = 1;
#endif

namespace platform {

#if defined(_WIN32)
using ::OSVERSIONINFOEXW;
#else
struct OSVERSIONINFOEXW {
    uint32 dwOSVersionInfoSize;
    uint32 dwMajorVersion;
    uint32 dwMinorVersion;
    uint32 dwBuildNumber;
    uint32 dwPlatformId;
    wchar16 szCSDVersion[128];
    uint16 wServicePackMajor;
    uint16 wServicePackMinor;
    uint16 wSuiteMask;
    uint8 wProductType;
    uint8 wReserved;
};
#endif

// Adds to a mask the condition under which the members named by `typeMask` are compared.
uint64 VerSetConditionMask(uint64 conditionMask, uint32 typeMask, uint8 condition);
// Whether the running system fulfils the comparison. A system other than Windows presents itself as a workstation of
// version 10.0 without a service pack.
bool VerifyVersionInfoW(OSVERSIONINFOEXW* version, uint32 typeMask, uint64 conditionMask);

}  // namespace platform
}  // namespace Torvo
