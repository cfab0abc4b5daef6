// Files and directories: descriptors, attributes and times, names, the current directory, the directory search. Streams
// are in <Utility/platform/streams.h>, which this header brings in.
//
// Paths are in the Windows form, with the root directory as drive `C:` where the system knows no drives. There
// `C:\a\b`, `\a\b` and `/a/b` are the same file, `a\b` and `C:a\b` are relative to the current directory, other drives
// and shares do not exist, names are UTF-8 on disk and their case counts. The read-only attribute of a file is that its
// mode has no write bit at all.
//
// The runtime's calls (those in small letters) set `errno` on failure, in the Windows runtime's numbers on every
// system: up to ERANGE, 34, those are the macros of <cerrno>. What cannot be opened because it is a directory, is
// read-only, or is held open by somebody else is EACCES; a path that leads nowhere is ENOENT. The system's calls (those
// in mixed case) leave the thread's last error (<Utility/platform/threads.h>) instead. Calls that a signal interrupts
// go on.
//
// A path may not be null. Memory that runs out fails the call with ENOMEM or error 8.
//
// Every call to the system whose failure is told here, and every call on a stream, passes through the seam of
// <Utility/platform/file_faults.h>.
#pragma once

#include <Utility/platform/streams.h>
#include <Utility/platform/types.h>

namespace Torvo {

// Attributes of a file, and error numbers. Macros of the same names on Windows.
#if defined(_WIN32)
using ::FILETIME;
using ::WIN32_FILE_ATTRIBUTE_DATA;
#else
inline constexpr uint32 FILE_ATTRIBUTE_READONLY = 0x01;
inline constexpr uint32 FILE_ATTRIBUTE_HIDDEN = 0x02;
inline constexpr uint32 FILE_ATTRIBUTE_DIRECTORY = 0x10;
inline constexpr uint32 FILE_ATTRIBUTE_ARCHIVE = 0x20;
inline constexpr uint32 FILE_ATTRIBUTE_NORMAL = 0x80;
inline constexpr uint32 INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;
inline constexpr uint32 ERROR_PATH_NOT_FOUND = 3;
inline constexpr uint32 ERROR_TOO_MANY_OPEN_FILES = 4;
inline constexpr uint32 ERROR_ACCESS_DENIED = 5;
inline constexpr uint32 ERROR_NO_MORE_FILES = 18;
inline constexpr uint32 ERROR_GEN_FAILURE = 31;
inline constexpr uint32 ERROR_BUFFER_OVERFLOW = 111;
inline constexpr uint32 ERROR_DISK_FULL = 112;
inline constexpr uint32 ERROR_DIR_NOT_EMPTY = 145;
inline constexpr uint32 ERROR_ALREADY_EXISTS = 183;

// What GetFileAttributesExW tells.
struct WIN32_FILE_ATTRIBUTE_DATA {
    uint32 dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    uint32 nFileSizeHigh;
    uint32 nFileSizeLow;
};
#endif

namespace platform {

// Descriptors.

// Flags of an open.
inline constexpr int OpenReadOnly = 0x0000;
inline constexpr int OpenWriteOnly = 0x0001;
inline constexpr int OpenReadWrite = 0x0002;
inline constexpr int OpenCreate = 0x0100;
inline constexpr int OpenTruncate = 0x0200;
inline constexpr int OpenExclusive = 0x0400;
inline constexpr int OpenBinary = 0x8000;
// What an open denies to others for as long as the descriptor lives.
inline constexpr int ShareDenyBoth = 0x10;
inline constexpr int ShareDenyWrite = 0x20;
inline constexpr int ShareDenyRead = 0x30;
inline constexpr int ShareDenyNone = 0x40;
// What a file that is created permits: without PermitWrite it is read-only afterwards.
inline constexpr int PermitRead = 0x100;
inline constexpr int PermitWrite = 0x080;

// Opens a file: 0 with the descriptor in *descriptor, else the error number with -1 there. Content is truncated only
// once everything else is granted: a file that is read-only or held open by others stays whole.
//
// Where the system has no share modes, a descriptor that only reads and denies no reading takes a shared advisory lock,
// any other takes an exclusive one, and ShareDenyNone takes none; a conflict, within the process too, is EACCES. A file
// system without locks grants everything.
int _wsopen_dispatch(const wchar16* path, int flags, int share, int permissions, int* descriptor, int secure);

// What is known of a file by its opening.
struct OpenedFile {
    int descriptor;                        // at the start of the file; -1 if it was not opened
    WIN32_FILE_ATTRIBUTE_DATA attributes;  // dwFileAttributes is INVALID_FILE_ATTRIBUTES where they cannot be had
    int64 length;                          // -1 where the opening does not tell; _lseeki64 does then
};
// _wsopen_dispatch, and GetFileAttributesExW of the file as it is then.
int OpenWithAttributes(const wchar16* path, int flags, int share, int permissions, OpenedFile* file);

int _close(int descriptor);
// The number of bytes read, less than `count` only at the end of the file; -1 on failure.
int _read(int descriptor, void* buffer, uint32 count);
// The number of bytes written; less than `count` when the disk is full after some of them, -1 on failure.
int _write(int descriptor, const void* buffer, uint32 count);
// _lseeki64 from the start, and _read or _write; where the descriptor stands afterwards is not told. A reader who gets
// `enough` bytes may get less than there are.
int ReadAt(int descriptor, int64 offset, void* buffer, uint32 count, uint32 enough);
int WriteAt(int descriptor, int64 offset, const void* buffer, uint32 count);
// Whence 0: from the start, 1: from the present position, 2: from the end. The new position, or -1.
int64 _lseeki64(int descriptor, int64 offset, int whence);
// Cuts a file or extends it with zeros; the position is left where it was. 0, or the error number.
int _chsize_s(int descriptor, int64 size);
// Sets how many files may be open at the same time; that number, or -1 with EINVAL if it cannot be had. Where the limit
// is one of all descriptors of the process, it is only raised, never lowered: others may need what there was.
int _setmaxstdio(int count);

// Whole files, by path: 0, or -1 with errno.

// The error EACCES or EEXIST says that the target exists, whatever it is; a file may be renamed to its own name. A file
// that is held open is refused with EACCES.
int _wrename(const wchar16* from, const wchar16* to);
// Refuses directories, read-only files and files that are held open with EACCES.
int _wremove(const wchar16* path);
// Mode 0: whether it exists; 2: may be written; 4: may be read; 6: both.
int _waccess(const wchar16* path, int mode);
// The device is the drive's number, counted from 0 for A; inode, user and group are 0. The mode tells a directory from
// a file and has a write bit unless the file is read-only.
int _wstat64(const wchar16* path, struct _stat64* status);

// Times of a file in seconds since 1 January 1970, UTC.
struct AccessAndWriteTime {
    int64 access;
    int64 write;
};
// Sets the times of a file, with null to now. Refuses directories and read-only files with EACCES.
int _wutime64(const wchar16* path, const AccessAndWriteTime* times);

// The attributes, or INVALID_FILE_ATTRIBUTES. A file has the archive attribute, a directory its own.
uint32 GetFileAttributesW(const wchar16* path);
// Attributes, times and size. Level 0 is the only one.
bool GetFileAttributesExW(const wchar16* path, int level, WIN32_FILE_ATTRIBUTE_DATA* data);
// Sets or clears the read-only attribute of a file; a directory has none, and others cannot be set everywhere.
bool SetFileAttributesW(const wchar16* path, uint32 attributes);

// Directories.

// The current directory in at most `size` units with its terminator: the number of units without it, the size needed if
// that is too small, 0 on failure. Only a root ends in a separator.
uint32 GetCurrentDirectoryW(uint32 size, wchar16* buffer);
// `X:` is the current directory of that drive.
bool SetCurrentDirectoryW(const wchar16* path);
// The present drive, 1 for A.
int _getdrive();
// The current directory of a drive (0: the present one), in at most `size` units with its terminator; null with ERANGE
// if that is too small, with EACCES if there is no such drive.
wchar16* _wgetdcwd(int drive, wchar16* buffer, int size);
// The directory for temporary files, with its separator; sizes as GetCurrentDirectoryW. Not looked at on disk.
uint32 GetTempPathW(uint32 size, wchar16* buffer);
// The name `directory\` + at most three units of prefix + a number in hexadecimal + an extension, in 260 units. With
// `unique` 0 a number is found for which no file exists, and the file is created empty; another number is taken as it
// stands, in its low 16 bits, and nothing is created. The number, or 0: no such directory, or a directory of more than
// 246 units.
uint32 GetTempFileNameW(const wchar16* directory, const wchar16* prefix, uint32 unique, wchar16* name);
// False if it exists already, as a directory or as a file, or its parent does not.
bool CreateDirectoryW(const wchar16* path);
// Removes an empty directory.
bool RemoveDirectoryW(const wchar16* path);
bool PathIsDirectoryW(const wchar16* path);
// Appends a relative path to `path`, with one separator between, and takes `.` and `..` out of the whole. `path` has
// room for 260 units. Separators at the start of `more` are skipped; a `more` with a drive or a share replaces the
// path. False, with an empty path, if the result does not fit.
bool PathAppendW(wchar16* path, const wchar16* more);

// The value of an environment variable, or null; valid until the next call on this thread.
const wchar16* _wgetenv(const wchar16* name);

// The directory search. A pattern is a directory and a last component in which `*` stands for any run of units and `?`
// for any one; `*.*` matches every name, and case does not count. Entries come in the order of their names, letters
// taken as capitals, `.` and `..` first. A walk is of the entries that were there when it began.

// The handle of a walk that could not be started.
inline void* InvalidFindHandle() {
    return reinterpret_cast<void*>(~std::uintptr_t{0});
}
// Starts a walk and reads its first entry; InvalidFindHandle() if nothing matches, or the directory cannot be read.
void* FindFirstFileW(const wchar16* pattern, WIN32_FIND_DATAW* data);
// The next entry; false at the end, with the last error ERROR_NO_MORE_FILES, and for InvalidFindHandle() and null, with
// ERROR_INVALID_HANDLE.
bool FindNextFileW(void* handle, WIN32_FIND_DATAW* data);
// False for InvalidFindHandle() and null, with the last error ERROR_INVALID_HANDLE.
bool FindClose(void* handle);

}  // namespace platform
}  // namespace Torvo
