#include <Utility/platform/files.h>
#include <Utility/platform/windows/system_calls.h>

namespace Torvo::platform {

void* FindFirstFileW(const wchar16* pattern, WIN32_FIND_DATAW* data) {
    return SystemCall(InvalidFindHandle(), [&] { return ::FindFirstFileW(pattern, data); });
}

bool FindNextFileW(void* handle, WIN32_FIND_DATAW* data) {
    return SystemCall(false, [&] { return ::FindNextFileW(handle, data) != 0; });
}

bool FindClose(void* handle) {
    return ::FindClose(handle) != 0;
}

}  // namespace Torvo::platform
