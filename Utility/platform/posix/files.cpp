#include <Utility/platform/files.h>

#include <Utility/platform/posix/attribute_data.h>
#include <Utility/platform/posix/system_calls.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <ctime>
#include <utility>

namespace Torvo::platform {

namespace {

constexpr int OpenAccess = OpenWriteOnly | OpenReadWrite;
constexpr mode_t WriteBits = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t ReadBits = S_IRUSR | S_IRGRP | S_IROTH;
constexpr mode_t ExecuteBits = S_IXUSR | S_IXGRP | S_IXOTH;

bool Writes(int flags) {
    return (flags & OpenAccess) != 0;
}

int Fail(int error) {
    errno = error;
    return -1;
}

// An open file that is closed again unless it is released.
class OpenFile {
public:
    explicit OpenFile(int descriptor) : file(descriptor) {}
    ~OpenFile() {
        const int kept = errno;
        if (file != -1) ::close(file);
        errno = kept;
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    int Get() const { return file; }
    int Release() { return std::exchange(file, -1); }

private:
    int file;
};

// Does not wait for the other end of a pipe. Pipes and sockets are refused, those that can be opened by MayBeUsed.
int OpenNative(const std::string& path, int nativeFlags, mode_t mode) {
    const int flags = nativeFlags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    const int file = SystemCall([&] { return ::open(path.c_str(), flags, mode); });
    if (file == -1 && errno == ENXIO) errno = EACCES;
    return file;
}

// Opens a file, or creates it where the flags ask for that; *created tells which. A file that appears in between is
// opened like one that was there.
int OpenOrCreate(const std::string& path, int flags, int permissions, bool* created) {
    const int access = flags & OpenAccess;
    const mode_t mode = (permissions & PermitWrite) != 0 ? ReadBits | WriteBits : ReadBits;
    *created = false;
    if ((flags & OpenExclusive) == 0 || (flags & OpenCreate) == 0) {
        const int file = OpenNative(path, access, 0);
        if (file != -1 || errno != ENOENT || (flags & OpenCreate) == 0) return file;
    }
    const int file = OpenNative(path, access | O_CREAT | O_EXCL, mode);
    *created = file != -1;
    if (file != -1 || errno != EEXIST || (flags & OpenExclusive) != 0) return file;
    return OpenNative(path, access | O_CREAT, mode);
}

// Denies others what the share mode says; false with errno when others have been granted it.
bool TakeLock(int file, int flags, int share) {
    if (share == ShareDenyNone) return true;
    const auto take = [&](int lock) { return SystemCall([&] { return ::flock(file, lock | LOCK_NB); }) == 0; };
    const bool isShared = !Writes(flags) && share == ShareDenyWrite;
    if (take(isShared ? LOCK_SH : LOCK_EX)) return true;
    // A file system of the network gives a lock against all others only to a descriptor that writes. A shared one keeps
    // out those who write, and is refused while there are any.
    if (!isShared && errno == EBADF && take(LOCK_SH)) return true;
    if (errno == RuntimeNoLocks || errno == RuntimeNoSuchCall || errno == RuntimeNotSupported) return true;
    if (errno == EAGAIN) errno = EACCES;
    return false;
}

bool IsPipeOrSocket(const struct stat& status) {
    return S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode);
}

// Whether a file may be used as the flags say: no directory, nothing that another process must feed or empty, and not
// read-only where it is to be written. A file that was created read-only may be written by its creator.
bool MayBeUsed(const struct stat& status, int flags, bool created) {
    const bool isFile = !IsDirectory(status) && !IsPipeOrSocket(status);
    if (isFile && (created || !Writes(flags) || !IsReadOnly(status))) return true;
    errno = EACCES;
    return false;
}

bool StatusOfOpen(int file, struct stat* status) {
    return SystemCall([&] { return ::fstat(file, status); }) == 0;
}

bool EmptyIfAsked(int file, int flags, bool created) {
    if (created || (flags & OpenTruncate) == 0 || !Writes(flags)) return true;
    return SystemCall([&] { return ::ftruncate(file, 0); }) == 0;
}

// A file that was created to be written is not read-only, whatever the process's mask takes from its mode.
bool LetBeWritten(int file, int permissions, bool created, struct stat* status) {
    if (!created || (permissions & PermitWrite) == 0 || !IsReadOnly(*status)) return true;
    const mode_t mode = (status->st_mode & 07777) | S_IWUSR;
    return SystemCall([&] { return ::fchmod(file, mode); }) == 0 && StatusOfOpen(file, status);
}

// A file that was created for nothing goes again, unless somebody else has got hold of it in between.
void RemoveCreated(const std::string& path) {
    const int kept = errno;
    if (kept != EACCES) ::unlink(path.c_str());
    errno = kept;
}

// The status is that of the file before it was emptied.
int OpenShared(const std::string& path, int flags, int share, int permissions, struct stat* status) {
    bool created = false;
    OpenFile file(OpenOrCreate(path, flags, permissions, &created));
    if (file.Get() == -1) return -1;
    const bool granted = TakeLock(file.Get(), flags, share) && StatusOfOpen(file.Get(), status) &&
                         LetBeWritten(file.Get(), permissions, created, status) && MayBeUsed(*status, flags, created) &&
                         EmptyIfAsked(file.Get(), flags, created);
    if (granted) {
        // A device is waited for again; for a file it makes no difference.
        if (!S_ISREG(status->st_mode)) ::fcntl(file.Get(), F_SETFL, 0);
        return file.Release();
    }
    if (created) RemoveCreated(path);
    return -1;
}

// Reads with a call that takes how many bytes there are already and how many more are wanted, until all are there, the
// file ends, or a call that gave less than it could gave `enough`.
template <typename Call>
int ReadAll(uint32 count, uint32 enough, Call call) {
    if (count > INT_MAX) return Fail(EINVAL);
    const std::size_t wanted = AllowedTransfer(count);
    std::size_t have = 0;
    while (have < wanted) {
        const ssize_t got = SystemCall([&] { return call(have, wanted - have); });
        if (got < 0) return -1;
        if (got == 0) break;
        have += static_cast<std::size_t>(got);
        if (have >= enough) break;
    }
    return static_cast<int>(have);
}

// Writes with a call that takes how many bytes are written already and how many more there are.
template <typename Call>
int WriteAll(uint32 count, Call call) {
    if (count > INT_MAX) return Fail(EINVAL);
    const std::size_t wanted = AllowedTransfer(count);
    std::size_t done = 0;
    while (done < wanted) {
        const ssize_t put = SystemCall([&] { return call(done, wanted - done); });
        if (put < 0) return done > 0 ? static_cast<int>(done) : -1;
        done += static_cast<std::size_t>(put);
    }
    return static_cast<int>(done);
}

// Whether two different paths are spellings of one name: of the same file, which has no other name, or directory.
bool IsSameName(const std::string& a, const std::string& b) {
    struct stat first;
    struct stat second;
    return SystemCall([&] { return ::lstat(a.c_str(), &first); }) == 0 &&
           SystemCall([&] { return ::lstat(b.c_str(), &second); }) == 0 && first.st_dev == second.st_dev &&
           first.st_ino == second.st_ino && (first.st_nlink == 1 || S_ISDIR(first.st_mode));
}

// Renames what has the target's name already: nothing is to be done, or the spelling changes where case does not count.
int Respell(const std::string& from, const std::string& to) {
    if (from == to) return 0;
    if (!IsSameName(from, to)) return Fail(EEXIST);
    return SystemCall([&] { return ::rename(from.c_str(), to.c_str()); });
}

// Renames without replacing. Where the file system cannot do that in one step, the target is looked for first.
int RenameToFree(const std::string& from, const std::string& to) {
    const int done =
        SystemCall([&] { return ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE); });
    if (done == 0) return 0;
    if (errno == EEXIST) return Respell(from, to);
    if (errno != RuntimeNoSuchCall && errno != EINVAL) return -1;
    struct stat status;
    if (SystemCall([&] { return ::lstat(to.c_str(), &status); }) == 0) return Respell(from, to);
    if (errno != ENOENT) return -1;
    return SystemCall([&] { return ::rename(from.c_str(), to.c_str()); });
}

// A file that is about to leave its place, opened for its lock; -1 for what has none, and for one that may not be
// opened.
int OpenForLock(const std::string& path, const struct stat& status) {
    return S_ISREG(status.st_mode) ? OpenNative(path, O_RDONLY | O_NOFOLLOW, 0) : -1;
}

// Whether nobody else holds a file; false with EACCES. It stays locked against all others until it is closed.
bool LockAlone(int file) {
    return file == -1 || TakeLock(file, OpenReadWrite, ShareDenyBoth);
}

int RenameUnheld(const std::string& from, const std::string& to) {
    struct stat status;
    if (SystemCall([&] { return ::lstat(from.c_str(), &status); }) != 0) return -1;
    const OpenFile file(OpenForLock(from, status));
    return LockAlone(file.Get()) ? RenameToFree(from, to) : -1;
}

int RemoveUnheld(const std::string& path) {
    struct stat status;
    if (SystemCall([&] { return ::lstat(path.c_str(), &status); }) != 0) return -1;
    if (IsDirectory(status) || IsReadOnly(status)) return Fail(EACCES);
    const OpenFile file(OpenForLock(path, status));
    return LockAlone(file.Get()) ? SystemCall([&] { return ::unlink(path.c_str()); }) : -1;
}

bool IsProgramName(const std::string& path) {
    const std::size_t point = path.rfind('.');
    if (point == std::string::npos) return false;
    std::string extension = path.substr(point + 1);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; });
    return extension == "exe" || extension == "com" || extension == "bat" || extension == "cmd";
}

// The mode as the Windows runtime tells it: everything can be read, and what can be executed is told by its name.
uint16 RuntimeMode(const struct stat& status, const std::string& path) {
    const bool executes = IsDirectory(status) || IsProgramName(path);
    return static_cast<uint16>((status.st_mode & S_IFMT) | ReadBits | (IsReadOnly(status) ? 0 : WriteBits) |
                               (executes ? ExecuteBits : 0));
}

uint32 AttributesOf(const struct stat& status) {
    if (IsDirectory(status)) return FILE_ATTRIBUTE_DIRECTORY;
    return FILE_ATTRIBUTE_ARCHIVE | (IsReadOnly(status) ? FILE_ATTRIBUTE_READONLY : 0);
}

FILETIME FileTimeOf(const timespec& time) {
    constexpr int64 secondsFrom1601To1970 = 11644473600;
    const int64 ticks = (time.tv_sec + secondsFrom1601To1970) * 10000000 + time.tv_nsec / 100;
    return {static_cast<uint32>(ticks), static_cast<uint32>(ticks >> 32)};
}

bool IsEarlier(const timespec& a, const timespec& b) {
    return a.tv_sec != b.tv_sec ? a.tv_sec < b.tv_sec : a.tv_nsec < b.tv_nsec;
}

}  // namespace

WIN32_FILE_ATTRIBUTE_DATA AttributeDataOf(const struct stat& status) {
    const auto size = IsDirectory(status) ? 0 : static_cast<uint64>(status.st_size);
    return {.dwFileAttributes = AttributesOf(status),
            .ftCreationTime = FileTimeOf(IsEarlier(status.st_mtim, status.st_ctim) ? status.st_mtim : status.st_ctim),
            .ftLastAccessTime = FileTimeOf(status.st_atim),
            .ftLastWriteTime = FileTimeOf(status.st_mtim),
            .nFileSizeHigh = static_cast<uint32>(size >> 32),
            .nFileSizeLow = static_cast<uint32>(size)};
}

int _wsopen_dispatch(const wchar16* path, int flags, int share, int permissions, int* descriptor, int /*secure*/) {
    struct stat status;
    *descriptor = WithNativePath(
        path, -1, [&](const std::string& native) { return OpenShared(native, flags, share, permissions, &status); });
    return *descriptor != -1 ? 0 : errno;
}

int OpenWithAttributes(const wchar16* path, int flags, int share, int permissions, OpenedFile* file) {
    struct stat status;
    file->descriptor = WithNativePath(
        path, -1, [&](const std::string& native) { return OpenShared(native, flags, share, permissions, &status); });
    if (file->descriptor == -1) return errno;
    const bool known = (flags & OpenTruncate) == 0 || StatusOfOpen(file->descriptor, &status);
    file->attributes = AttributeDataOf(status);
    if (!known) file->attributes.dwFileAttributes = INVALID_FILE_ATTRIBUTES;
    file->length = known && S_ISREG(status.st_mode) ? status.st_size : -1;
    return 0;
}

// Whatever it answers, the descriptor is gone.
int _close(int descriptor) {
    const int fault = CallIsRefused() ? errno : 0;
    const int error = ::close(descriptor) == 0 ? fault : RuntimeErrno(errno);
    return error == 0 || error == EINTR ? 0 : Fail(error);
}

int _read(int descriptor, void* buffer, uint32 count) {
    return ReadAll(count, count, [=](std::size_t have, std::size_t wanted) {
        return ::read(descriptor, static_cast<char*>(buffer) + have, wanted);
    });
}

int _write(int descriptor, const void* buffer, uint32 count) {
    return WriteAll(count, [=](std::size_t done, std::size_t wanted) {
        return ::write(descriptor, static_cast<const char*>(buffer) + done, wanted);
    });
}

int ReadAt(int descriptor, int64 offset, void* buffer, uint32 count, uint32 enough) {
    return ReadAll(count, enough, [=](std::size_t have, std::size_t wanted) {
        return ::pread(descriptor, static_cast<char*>(buffer) + have, wanted, offset + static_cast<int64>(have));
    });
}

int WriteAt(int descriptor, int64 offset, const void* buffer, uint32 count) {
    return WriteAll(count, [=](std::size_t done, std::size_t wanted) {
        return ::pwrite(descriptor, static_cast<const char*>(buffer) + done, wanted, offset + static_cast<int64>(done));
    });
}

int64 _lseeki64(int descriptor, int64 offset, int whence) {
    return SystemCall([&] { return ::lseek(descriptor, offset, whence); });
}

int _chsize_s(int descriptor, int64 size) {
    if (size < 0) {
        errno = EINVAL;
        return EINVAL;
    }
    if (SystemCall([&] { return ::ftruncate(descriptor, size); }) == 0) return 0;
    // What is said of a descriptor that may not write.
    if (errno == EINVAL) errno = EACCES;
    return errno;
}

int _setmaxstdio(int count) {
    // What the Windows runtime never goes below.
    constexpr int fewest = 20;
    rlimit limit;
    if (SystemCall([&] { return ::getrlimit(RLIMIT_NOFILE, &limit); }) != 0) return -1;
    if (count < fewest || static_cast<rlim_t>(count) > limit.rlim_max) return Fail(EINVAL);
    if (limit.rlim_cur >= static_cast<rlim_t>(count)) return count;
    limit.rlim_cur = static_cast<rlim_t>(count);
    return SystemCall([&] { return ::setrlimit(RLIMIT_NOFILE, &limit); }) == 0 ? count : -1;
}

int _wrename(const wchar16* from, const wchar16* to) {
    return WithNativePath(from, -1, [&](const std::string& nativeFrom) {
        return WithNativePath(to, -1, [&](const std::string& nativeTo) { return RenameUnheld(nativeFrom, nativeTo); });
    });
}

int _wremove(const wchar16* path) {
    return WithNativePath(path, -1, [](const std::string& native) { return RemoveUnheld(native); });
}

int _waccess(const wchar16* path, int mode) {
    if ((mode & ~(R_OK | W_OK)) != 0) return Fail(EINVAL);
    return WithNativePath(path, -1, [&](const std::string& native) {
        struct stat status;
        if ((mode & W_OK) != 0) {
            if (!StatusOf(native, &status)) return -1;
            if (IsReadOnly(status)) return Fail(EACCES);
        }
        return SystemCall([&] { return ::faccessat(AT_FDCWD, native.c_str(), mode, AT_EACCESS); });
    });
}

int _wstat64(const wchar16* path, struct _stat64* target) {
    return WithNativePath(path, -1, [&](const std::string& native) {
        struct stat status;
        if (!StatusOf(native, &status)) return -1;
        constexpr uint32 driveC = 2;
        *target = {};
        target->st_dev = driveC;
        target->st_rdev = driveC;
        target->st_mode = RuntimeMode(status, native);
        target->st_nlink = 1;
        target->st_size = IsDirectory(status) ? 0 : status.st_size;
        target->st_atim = {status.st_atim.tv_sec, 0};
        target->st_mtim = {status.st_mtim.tv_sec, 0};
        target->st_ctim = {status.st_ctim.tv_sec, 0};
        return 0;
    });
}

int _wutime64(const wchar16* path, const AccessAndWriteTime* times) {
    return WithNativePath(path, -1, [&](const std::string& native) {
        struct stat status;
        if (!StatusOf(native, &status)) return -1;
        if (IsDirectory(status) || IsReadOnly(status)) return Fail(EACCES);
        timespec both[2] = {};
        if (times != nullptr) {
            both[0].tv_sec = times->access;
            both[1].tv_sec = times->write;
        }
        return SystemCall([&] { return ::utimensat(AT_FDCWD, native.c_str(), times != nullptr ? both : nullptr, 0); });
    });
}

uint32 GetFileAttributesW(const wchar16* path) {
    return WithLastError(INVALID_FILE_ATTRIBUTES, [&] {
        return WithNativePath(path, INVALID_FILE_ATTRIBUTES, [](const std::string& native) {
            struct stat status;
            return StatusOf(native, &status) ? AttributesOf(status) : INVALID_FILE_ATTRIBUTES;
        });
    });
}

bool GetFileAttributesExW(const wchar16* path, int level, WIN32_FILE_ATTRIBUTE_DATA* data) {
    return WithLastError(false, [&] {
        if (level != 0) return Fail(EINVAL) == 0;
        return WithNativePath(path, false, [&](const std::string& native) {
            struct stat status;
            if (!StatusOf(native, &status)) return false;
            *data = AttributeDataOf(status);
            return true;
        });
    });
}

bool SetFileAttributesW(const wchar16* path, uint32 attributes) {
    return WithLastError(false, [&] {
        return WithNativePath(path, false, [&](const std::string& native) {
            struct stat status;
            if (!StatusOf(native, &status)) return false;
            const bool wanted = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
            if (IsDirectory(status) || wanted == IsReadOnly(status)) return true;
            const mode_t kept = status.st_mode & 07777;
            const mode_t mode = wanted ? kept & ~WriteBits : kept | S_IWUSR;
            return SystemCall([&] { return ::chmod(native.c_str(), mode); }) == 0;
        });
    });
}

}  // namespace Torvo::platform
