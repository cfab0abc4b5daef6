#include <Utility/platform/files.h>
#include <Utility/platform/windows/system_calls.h>

namespace Torvo::platform {

namespace {

// The system does not say what it makes of null.
bool IsWalk(const void* handle) {
    if (handle != nullptr && handle != InvalidFindHandle()) return true;
    ::SetLastError(ERROR_INVALID_HANDLE);
    return false;
}

}  // namespace

void* FindFirstFileW(const wchar16* pattern, WIN32_FIND_DATAW* data) {
    return SystemCall(InvalidFindHandle(), [&] { return ::FindFirstFileW(pattern, data); });
}

bool FindNextFileW(void* handle, WIN32_FIND_DATAW* data) {
    return IsWalk(handle) && SystemCall(false, [&] { return ::FindNextFileW(handle, data) != 0; });
}

bool FindClose(void* handle) {
    return IsWalk(handle) && ::FindClose(handle) != 0;
}

}  // namespace Torvo::platform
