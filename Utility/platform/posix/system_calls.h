// How the file family calls this system: through the seam for faults, again after an interruption, and with the error
// numbers of the Windows runtime.
#pragma once

#include <Utility/platform/file_faults.h>
#include <Utility/platform/posix/native_path.h>
#include <Utility/platform/threads.h>
#include <Utility/platform/types.h>
#include <sys/stat.h>

#include <cerrno>
#include <new>

namespace Torvo::platform {

// The Windows runtime's number for one of this system's; up to ERANGE, 34, they are mostly the same. No other function
// looks at a number of this system's.
int RuntimeErrno(int error);

// Numbers of the Windows runtime that <cerrno> has under others here.
inline constexpr int RuntimeNoLocks = 39;
inline constexpr int RuntimeNoSuchCall = 40;
inline constexpr int RuntimeNotSupported = 130;

// Makes a call that answers -1 and errno on failure.
template <typename Call>
auto SystemCall(Call call) -> decltype(call()) {
    for (;;) {
        if (CallIsRefused()) {
            if (errno != EINTR) return -1;
            continue;
        }
        const auto result = call();
        if (result != -1) return result;
        if (errno == EINTR) continue;
        errno = RuntimeErrno(errno);
        return result;
    }
}

// Runs a body on the native form of a path; the body answers `failure` and errno when it fails.
template <typename Result, typename Body>
Result WithNativePath(const wchar16* path, Result failure, Body body) {
    try {
        auto native = path != nullptr ? NativePath(path) : std::nullopt;
        if (!native) {
            errno = ENOENT;
            return failure;
        }
        // A drive alone is its current directory; no name at all is nothing.
        if (native->empty() && *path != 0) native->assign(1, '.');
        return body(*native);
    } catch (const std::bad_alloc&) {
        errno = ENOMEM;
        return failure;
    }
}

// Runs a call of the system's kind: its failure is told by the last error, and errno is left alone.
template <typename Result, typename Body>
Result WithLastError(Result failure, Body body) {
    const int kept = errno;
    const Result result = body();
    if (result == failure) SetLastError(faults::LastErrorOf(errno));
    errno = kept;
    return result;
}

// What is known of a file; false with errno.
inline bool StatusOf(const std::string& path, struct stat* status) {
    return SystemCall([&] { return ::stat(path.c_str(), status); }) == 0;
}

inline bool IsDirectory(const struct stat& status) {
    return S_ISDIR(status.st_mode);
}
inline bool IsReadOnly(const struct stat& status) {
    return S_ISREG(status.st_mode) && (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

}  // namespace Torvo::platform
