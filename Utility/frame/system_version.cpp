#include <Utility/frame/system_version.h>

#include <Utility/platform/version.h>

namespace Torvo {

namespace {

// Compares the named members of `version` with the running system, all under the same condition.
bool SystemIs(platform::OSVERSIONINFOEXW version, uint32 members, uint8 condition) {
    version.dwOSVersionInfoSize = sizeof version;
    uint64 mask = 0;
    for (uint32 member = 1; member <= members; member <<= 1) {
        if ((members & member) != 0) mask = platform::VerSetConditionMask(mask, member, condition);
    }
    return platform::VerifyVersionInfoW(&version, members, mask);
}

}  // namespace

bool SystemIsAtLeast(uint32 major, uint32 minor) {
    platform::OSVERSIONINFOEXW version{};
    version.dwMajorVersion = major;
    version.dwMinorVersion = minor;
    return SystemIs(version, VER_MAJORVERSION | VER_MINORVERSION | VER_SERVICEPACKMAJOR, VER_GREATER_EQUAL);
}

bool SystemIsWorkstation() {
    platform::OSVERSIONINFOEXW version{};
    version.wProductType = VER_NT_WORKSTATION;
    return SystemIs(version, VER_PRODUCT_TYPE, VER_EQUAL);
}

}  // namespace Torvo
