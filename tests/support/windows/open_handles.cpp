#include <support/open_handles.h>
#include <windows.h>

namespace Torvo::test {

int OpenHandles() {
    DWORD count = 0;
    GetProcessHandleCount(GetCurrentProcess(), &count);
    return static_cast<int>(count);
}

}  // namespace Torvo::test
