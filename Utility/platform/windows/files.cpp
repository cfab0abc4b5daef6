#include <Utility/platform/files.h>

#include <Utility/platform/windows/system_calls.h>
#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <stdio.h>
#include <sys/stat.h>
#include <sys/utime.h>

#include <cerrno>
#include <climits>

namespace Torvo::platform {

static_assert(OpenReadOnly == _O_RDONLY && OpenWriteOnly == _O_WRONLY && OpenReadWrite == _O_RDWR);
static_assert(OpenCreate == _O_CREAT && OpenTruncate == _O_TRUNC && OpenExclusive == _O_EXCL);
static_assert(OpenBinary == _O_BINARY && PermitRead == _S_IREAD && PermitWrite == _S_IWRITE);
static_assert(ShareDenyBoth == _SH_DENYRW && ShareDenyWrite == _SH_DENYWR);
static_assert(ShareDenyRead == _SH_DENYRD && ShareDenyNone == _SH_DENYNO);

namespace {

// An administrator under a compatibility layer may write a file in spite of its attribute, and would have emptied it.
bool MayBeOpened(const wchar16* path, int flags) {
    if ((flags & (_O_WRONLY | _O_RDWR)) == 0) return true;
    const DWORD attributes = ::GetFileAttributesW(path);
    return attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_READONLY) == 0;
}

int Open(const wchar16* path, int flags, int share, int permissions, int* descriptor, bool secure) {
    if (!MayBeOpened(path, flags)) {
        errno = EACCES;
        return -1;
    }
    if (secure) return ::_wsopen_s(descriptor, path, flags, share, permissions) == 0 ? 0 : -1;
    *descriptor = ::_wsopen(path, flags, share, permissions);
    return *descriptor != -1 ? 0 : -1;
}

}  // namespace

// Not every runtime exports this call; it is the two others in one.
int _wsopen_dispatch(const wchar16* path, int flags, int share, int permissions, int* descriptor, int secure) {
    *descriptor = -1;
    const int result = RuntimeCall(-1, [&] { return Open(path, flags, share, permissions, descriptor, secure != 0); });
    return result == 0 ? 0 : errno;
}

int OpenWithAttributes(const wchar16* path, int flags, int share, int permissions, OpenedFile* file) {
    file->length = -1;
    const int error = _wsopen_dispatch(path, flags, share, permissions, &file->descriptor, 0);
    if (error != 0) return error;
    if (!GetFileAttributesExW(path, 0, &file->attributes)) file->attributes.dwFileAttributes = INVALID_FILE_ATTRIBUTES;
    return 0;
}

int _close(int descriptor) {
    const int fault = IsRefused() ? errno : 0;
    const int result = ::_close(descriptor);
    if (result != 0 || fault == 0) return result;
    errno = fault;
    return -1;
}

int _read(int descriptor, void* buffer, uint32 count) {
    if (count > INT_MAX) {
        errno = EINVAL;
        return -1;
    }
    return RuntimeCall(-1, [&] { return ::_read(descriptor, buffer, AllowedTransfer(count)); });
}

int _write(int descriptor, const void* buffer, uint32 count) {
    if (count > INT_MAX) {
        errno = EINVAL;
        return -1;
    }
    return RuntimeCall(-1, [&] { return ::_write(descriptor, buffer, AllowedTransfer(count)); });
}

int ReadAt(int descriptor, int64 offset, void* buffer, uint32 count, uint32 /*enough*/) {
    return _lseeki64(descriptor, offset, 0) != -1 ? _read(descriptor, buffer, count) : -1;
}

int WriteAt(int descriptor, int64 offset, const void* buffer, uint32 count) {
    return _lseeki64(descriptor, offset, 0) != -1 ? _write(descriptor, buffer, count) : -1;
}

int64 _lseeki64(int descriptor, int64 offset, int whence) {
    return RuntimeCall(int64{-1}, [&] { return ::_lseeki64(descriptor, offset, whence); });
}

// The newer runtime's own tests of its arguments end the program where they are not met.
int _chsize_s(int descriptor, int64 size) {
    if (size < 0) return errno = EINVAL;
    return RuntimeCall(-1, [&] { return ::_chsize_s(descriptor, size) == 0 ? 0 : -1; }) == 0 ? 0 : errno;
}

int _setmaxstdio(int count) {
    return RuntimeCall(-1, [&] { return ::_setmaxstdio(count); });
}

int _wrename(const wchar16* from, const wchar16* to) {
    return RuntimeCall(-1, [&] { return ::_wrename(from, to); });
}

int _wremove(const wchar16* path) {
    return RuntimeCall(-1, [&] { return ::_wremove(path); });
}

int _waccess(const wchar16* path, int mode) {
    if ((mode & ~6) != 0) {
        errno = EINVAL;
        return -1;
    }
    return RuntimeCall(-1, [&] { return ::_waccess(path, mode); });
}

int _wstat64(const wchar16* path, struct _stat64* status) {
    return RuntimeCall(-1, [&] { return ::_wstat64(path, status); });
}

int _wutime64(const wchar16* path, const AccessAndWriteTime* times) {
    return RuntimeCall(-1, [&] {
        if (times == nullptr) return ::_wutime64(path, nullptr);
        __utimbuf64 both{times->access, times->write};
        return ::_wutime64(path, &both);
    });
}

uint32 GetFileAttributesW(const wchar16* path) {
    return SystemCall(uint32{INVALID_FILE_ATTRIBUTES}, [&]() -> uint32 { return ::GetFileAttributesW(path); });
}

bool GetFileAttributesExW(const wchar16* path, int level, WIN32_FILE_ATTRIBUTE_DATA* data) {
    return SystemCall(
        false, [&] { return ::GetFileAttributesExW(path, static_cast<GET_FILEEX_INFO_LEVELS>(level), data) != 0; });
}

bool SetFileAttributesW(const wchar16* path, uint32 attributes) {
    return SystemCall(false, [&] { return ::SetFileAttributesW(path, attributes) != 0; });
}

}  // namespace Torvo::platform
