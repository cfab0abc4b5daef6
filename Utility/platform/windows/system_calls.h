// How the file family calls this system: through the seam for faults.
#pragma once

#include <Utility/platform/file_faults.h>
#include <Utility/platform/threads.h>

#include <cerrno>

namespace Torvo::platform {

// Whether the next call is to fail. An interruption does not show here either.
inline bool IsRefused() {
    while (CallIsRefused()) {
        if (errno != EINTR) return true;
    }
    return false;
}

// Makes a call of the runtime's.
template <typename Result, typename Call>
Result RuntimeCall(Result failure, Call call) {
    return IsRefused() ? failure : call();
}

// Makes a call of the system's, whose failure is told by the last error.
template <typename Result, typename Call>
Result SystemCall(Result failure, Call call) {
    const int kept = errno;
    if (!IsRefused()) return call();
    ::SetLastError(faults::LastErrorOf(errno));
    errno = kept;
    return failure;
}

}  // namespace Torvo::platform
