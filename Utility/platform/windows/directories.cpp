#include <Utility/platform/files.h>
#include <Utility/platform/windows/system_calls.h>
#include <direct.h>
#include <shlwapi.h>
#include <stdlib.h>

namespace Torvo::platform {

namespace {

// The runtime's own test of a drive ends the program where it is not met.
bool DriveExists(int drive) {
    return drive == 0 || (drive > 0 && drive <= 26 && (::GetLogicalDrives() >> (drive - 1) & 1) != 0);
}

}  // namespace

uint32 GetCurrentDirectoryW(uint32 size, wchar16* buffer) {
    return SystemCall(uint32{0}, [&]() -> uint32 { return ::GetCurrentDirectoryW(size, buffer); });
}

bool SetCurrentDirectoryW(const wchar16* path) {
    return SystemCall(false, [&] { return ::SetCurrentDirectoryW(path) != 0; });
}

int _getdrive() {
    return ::_getdrive();
}

wchar16* _wgetdcwd(int drive, wchar16* buffer, int size) {
    return RuntimeCall(static_cast<wchar16*>(nullptr), [&]() -> wchar16* {
        if (DriveExists(drive)) return ::_wgetdcwd(drive, buffer, size);
        errno = EACCES;
        return nullptr;
    });
}

uint32 GetTempPathW(uint32 size, wchar16* buffer) {
    return ::GetTempPathW(size, buffer);
}

uint32 GetTempFileNameW(const wchar16* directory, const wchar16* prefix, uint32 unique, wchar16* name) {
    return SystemCall(uint32{0}, [&]() -> uint32 { return ::GetTempFileNameW(directory, prefix, unique, name); });
}

bool CreateDirectoryW(const wchar16* path) {
    return SystemCall(false, [&] { return ::CreateDirectoryW(path, nullptr) != 0; });
}

bool RemoveDirectoryW(const wchar16* path) {
    return SystemCall(false, [&] { return ::RemoveDirectoryW(path) != 0; });
}

bool PathIsDirectoryW(const wchar16* path) {
    return SystemCall(false, [&] { return ::PathIsDirectoryW(path) != 0; });
}

bool PathAppendW(wchar16* path, const wchar16* more) {
    if (::PathAppendW(path, more) != 0) return true;
    *path = 0;
    return false;
}

const wchar16* _wgetenv(const wchar16* name) {
    return ::_wgetenv(name);
}

}  // namespace Torvo::platform
