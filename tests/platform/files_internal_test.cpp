#include <Utility/platform/files.h>
#include <Utility/platform/threads.h>
#include <gtest/gtest.h>
#include <support/failing_files.h>
#include <support/temp_directory.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <ctime>

namespace platform_files_internal_test {
namespace {

using namespace Torvo;
using test::FailEachCall;
using test::FailingFiles;
using test::TempDirectory;

constexpr int CreateFlags =
    platform::OpenBinary | platform::OpenReadWrite | platform::OpenCreate | platform::OpenTruncate;
constexpr int Permissions = platform::PermitRead | platform::PermitWrite;

// Opens a file in the ways that the library does: the descriptor, or minus the error number.
int Open(const wstring16& path, int flags, int share) {
    int file = 12345;
    const int error =
        platform::_wsopen_dispatch(path.c_str(), platform::OpenBinary | flags, share, Permissions, &file, 0);
    EXPECT_EQ(error == 0, file != -1);
    return error == 0 ? file : -error;
}
int OpenToRead(const wstring16& path) {
    return Open(path, platform::OpenReadOnly, platform::ShareDenyWrite);
}
int OpenToWrite(const wstring16& path) {
    return Open(path, platform::OpenReadWrite, platform::ShareDenyBoth);
}
int Create(const wstring16& path) {
    return Open(path, CreateFlags, platform::ShareDenyBoth);
}

// Writes a text at the present position; the number of bytes written.
int Put(int file, const char* text) {
    return platform::_write(file, text, static_cast<uint32>(std::strlen(text)));
}
std::string Get(int file, uint32 count) {
    std::string text(count, '#');
    const int got = platform::_read(file, text.data(), count);
    EXPECT_GE(got, 0);
    text.resize(static_cast<std::size_t>(std::max(got, 0)));
    return text;
}

TEST(PlatformFiles, CreatedFileIsWrittenAndReadBack) {
    const TempDirectory directory;
    const int file = Create(directory.Path(ZUTEXT("new.dat")));
    ASSERT_GE(file, 0);
    EXPECT_EQ(Put(file, "hello, world"), 12);
    EXPECT_EQ(platform::_lseeki64(file, 7, 0), 7);
    EXPECT_EQ(Get(file, 100), "world");
    EXPECT_EQ(Get(file, 100), "") << "at the end";
    EXPECT_EQ(platform::_lseeki64(file, -5, 1), 7);
    EXPECT_EQ(platform::_lseeki64(file, 2, 2), 14);
    EXPECT_EQ(platform::_close(file), 0);
    EXPECT_EQ(directory.Read(ZUTEXT("new.dat")), "hello, world");
}

TEST(PlatformFiles, CreatingEmptiesAFileThatExists) {
    const TempDirectory directory;
    const wstring16 path = directory.Write(ZUTEXT("old.dat"), "content");
    const int file = Create(path);
    ASSERT_GE(file, 0);
    EXPECT_EQ(platform::_lseeki64(file, 0, 2), 0);
    platform::_close(file);
    EXPECT_EQ(directory.Read(ZUTEXT("old.dat")), "");
}

TEST(PlatformFiles, BytesAreTakenAsTheyAre) {
    const TempDirectory directory;
    const std::string bytes("\r\n\n\x1A\0\xFF", 6);
    const int file = OpenToRead(directory.Write(ZUTEXT("bytes"), bytes));
    ASSERT_GE(file, 0);
    EXPECT_EQ(Get(file, 100), bytes);
    platform::_close(file);
}

TEST(PlatformFiles, SeekBeforeTheStartIsRefused) {
    const TempDirectory directory;
    const int file = OpenToRead(directory.Write(ZUTEXT("a"), "abc"));
    errno = 0;
    EXPECT_EQ(platform::_lseeki64(file, -1, 0), -1);
    EXPECT_EQ(errno, EINVAL);
    platform::_close(file);
}

TEST(PlatformFiles, WhatDoesNotExistIsNotOpened) {
    const TempDirectory directory;
    EXPECT_EQ(OpenToRead(directory.Path(ZUTEXT("none"))), -ENOENT);
    EXPECT_EQ(OpenToWrite(directory.Path(ZUTEXT("none"))), -ENOENT);
    EXPECT_EQ(Create(directory.Path(ZUTEXT("none\\none"))), -ENOENT);
    EXPECT_EQ(OpenToRead(ZUTEXT("Q:\\none")), -ENOENT);
    EXPECT_EQ(OpenToRead(ZUTEXT("")), -ENOENT);
    EXPECT_FALSE(directory.Has(ZUTEXT("none")));
}

TEST(PlatformFiles, ThroughAFileLeadsNoPath) {
    const TempDirectory directory;
    const wstring16 file = directory.Write(ZUTEXT("file"), "abc");
    EXPECT_EQ(OpenToRead(file + ZUTEXT("\\x")), -ENOENT);
    EXPECT_EQ(platform::_waccess((file + ZUTEXT("\\x")).c_str(), 0), -1);
}

TEST(PlatformFiles, DirectoryIsNotOpenedAsAFile) {
    const TempDirectory directory;
    EXPECT_EQ(OpenToRead(directory.Path()), -EACCES);
    EXPECT_EQ(OpenToWrite(directory.Path()), -EACCES);
    EXPECT_EQ(Create(directory.Path()), -EACCES);
}

TEST(PlatformFiles, ExclusiveCreationRefusesWhatExists) {
    const TempDirectory directory;
    const int flags = CreateFlags | platform::OpenExclusive;
    const int file = Open(directory.Path(ZUTEXT("x")), flags, platform::ShareDenyBoth);
    ASSERT_GE(file, 0);
    platform::_close(file);
    EXPECT_EQ(Open(directory.Path(ZUTEXT("x")), flags, platform::ShareDenyBoth), -EEXIST);
}

TEST(PlatformFiles, ReadersShareAndAWriterIsAlone) {
    const TempDirectory directory;
    const wstring16 path = directory.Write(ZUTEXT("shared"), "content");
    const int reader = OpenToRead(path);
    const int second = OpenToRead(path);
    ASSERT_GE(reader, 0);
    ASSERT_GE(second, 0);
    EXPECT_EQ(OpenToWrite(path), -EACCES);
    platform::_close(second);
    EXPECT_EQ(OpenToWrite(path), -EACCES);
    platform::_close(reader);
    const int writer = OpenToWrite(path);
    ASSERT_GE(writer, 0);
    EXPECT_EQ(OpenToRead(path), -EACCES);
    EXPECT_EQ(OpenToWrite(path), -EACCES);
    platform::_close(writer);
}

TEST(PlatformFiles, CreatingOverAFileThatIsHeldLeavesItWhole) {
    const TempDirectory directory;
    const wstring16 path = directory.Write(ZUTEXT("held"), "content");
    const int reader = OpenToRead(path);
    EXPECT_EQ(Create(path), -EACCES);
    platform::_close(reader);
    EXPECT_EQ(directory.Read(ZUTEXT("held")), "content");
}

TEST(PlatformFiles, ReadOnlyFileIsReadAndNeverWritten) {
    const TempDirectory directory;
    const wstring16 path = directory.Write(ZUTEXT("fixed"), "content");
    directory.SetReadOnly(ZUTEXT("fixed"), true);
    EXPECT_EQ(OpenToWrite(path), -EACCES);
    EXPECT_EQ(Create(path), -EACCES);
    EXPECT_EQ(directory.Read(ZUTEXT("fixed")), "content");
    const int reader = OpenToRead(path);
    EXPECT_GE(reader, 0);
    platform::_close(reader);
}

TEST(PlatformFiles, FileCreatedReadOnlyIsWrittenByItsCreator) {
    const TempDirectory directory;
    const wstring16 path = directory.Path(ZUTEXT("fixed"));
    int file = -1;
    ASSERT_EQ(
        platform::_wsopen_dispatch(path.c_str(), CreateFlags, platform::ShareDenyBoth, platform::PermitRead, &file, 0),
        0);
    EXPECT_EQ(Put(file, "abc"), 3);
    platform::_close(file);
    EXPECT_EQ(OpenToWrite(path), -EACCES);
    EXPECT_EQ(platform::GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_READONLY, uint32{FILE_ATTRIBUTE_READONLY});
}

TEST(PlatformFiles, SizeIsChangedBothWays) {
    const TempDirectory directory;
    const wstring16 path = directory.Write(ZUTEXT("size"), "content");
    const int file = OpenToWrite(path);
    platform::_lseeki64(file, 3, 0);
    EXPECT_EQ(platform::_chsize_s(file, 9), 0);
    EXPECT_EQ(platform::_lseeki64(file, 0, 1), 3) << "the position stays";
    EXPECT_EQ(platform::_lseeki64(file, 0, 2), 9);
    EXPECT_EQ(platform::_chsize_s(file, 4), 0);
    EXPECT_EQ(platform::_chsize_s(file, -1), EINVAL);
    platform::_close(file);
    EXPECT_EQ(directory.Read(ZUTEXT("size")), "cont");
}

TEST(PlatformFiles, AFileOpenedToReadKeepsItsSize) {
    const TempDirectory directory;
    const int file = OpenToRead(directory.Write(ZUTEXT("size"), "content"));
    EXPECT_NE(platform::_chsize_s(file, 4), 0);
    EXPECT_EQ(Put(file, "x"), -1);
    platform::_close(file);
    EXPECT_EQ(directory.Read(ZUTEXT("size")), "content");
}

TEST(PlatformFiles, RenamingNeverReplaces) {
    const TempDirectory directory;
    const wstring16 a = directory.Write(ZUTEXT("a"), "first");
    const wstring16 b = directory.Write(ZUTEXT("b"), "second");
    const wstring16 c = directory.Path(ZUTEXT("c"));
    errno = 0;
    EXPECT_EQ(platform::_wrename(a.c_str(), b.c_str()), -1);
    EXPECT_TRUE(errno == EACCES || errno == EEXIST) << errno;
    EXPECT_EQ(directory.Read(ZUTEXT("b")), "second");
    EXPECT_EQ(platform::_wrename(a.c_str(), c.c_str()), 0);
    EXPECT_FALSE(directory.Has(ZUTEXT("a")));
    EXPECT_EQ(directory.Read(ZUTEXT("c")), "first");
    EXPECT_EQ(platform::_wrename(c.c_str(), c.c_str()), 0) << "its own name";
    EXPECT_EQ(platform::_wrename(a.c_str(), b.c_str()), -1);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(platform::_wrename(c.c_str(), directory.Path(ZUTEXT("none\\c")).c_str()), -1);
    EXPECT_EQ(directory.Read(ZUTEXT("c")), "first");
}

TEST(PlatformFiles, DirectoriesAreRenamedToo) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("old\\inside"), "x");
    EXPECT_EQ(platform::_wrename(directory.Path(ZUTEXT("old")).c_str(), directory.Path(ZUTEXT("new")).c_str()), 0);
    EXPECT_EQ(directory.Read(ZUTEXT("new\\inside")), "x");
}

TEST(PlatformFiles, RemovingRefusesDirectoriesAndReadOnlyFiles) {
    const TempDirectory directory;
    const wstring16 inside = directory.MakeDirectory(ZUTEXT("inside"));
    const wstring16 fixed = directory.Write(ZUTEXT("fixed"), "x");
    directory.SetReadOnly(ZUTEXT("fixed"), true);
    errno = 0;
    EXPECT_EQ(platform::_wremove(inside.c_str()), -1);
    EXPECT_EQ(errno, EACCES);
    errno = 0;
    EXPECT_EQ(platform::_wremove(fixed.c_str()), -1);
    EXPECT_EQ(errno, EACCES);
    EXPECT_TRUE(directory.Has(ZUTEXT("inside")));
    EXPECT_TRUE(directory.Has(ZUTEXT("fixed")));
    directory.SetReadOnly(ZUTEXT("fixed"), false);
    EXPECT_EQ(platform::_wremove(fixed.c_str()), 0);
    EXPECT_EQ(platform::_wremove(fixed.c_str()), -1);
    EXPECT_EQ(errno, ENOENT);
}

TEST(PlatformFiles, AccessAsksForExistenceAndForWriting) {
    const TempDirectory directory;
    const wstring16 file = directory.Write(ZUTEXT("file"), "x");
    for (const int mode : {0, 2, 4, 6}) {
        EXPECT_EQ(platform::_waccess(file.c_str(), mode), 0) << mode;
        EXPECT_EQ(platform::_waccess(directory.Path().c_str(), mode), 0) << mode;
        EXPECT_EQ(platform::_waccess(directory.Path(ZUTEXT("none")).c_str(), mode), -1) << mode;
        EXPECT_EQ(errno, ENOENT);
    }
    EXPECT_EQ(platform::_waccess(file.c_str(), 1), -1);
    EXPECT_EQ(errno, EINVAL);
    directory.SetReadOnly(ZUTEXT("file"), true);
    EXPECT_EQ(platform::_waccess(file.c_str(), 0), 0);
    EXPECT_EQ(platform::_waccess(file.c_str(), 4), 0);
    EXPECT_EQ(platform::_waccess(file.c_str(), 2), -1);
    EXPECT_EQ(errno, EACCES);
    EXPECT_EQ(platform::_waccess(file.c_str(), 6), -1);
}

TEST(PlatformFiles, StatusTellsSizeKindAndTime) {
    const TempDirectory directory;
    const wstring16 file = directory.Write(ZUTEXT("file"), "12345");
    const platform::AccessAndWriteTime times{1000000000, 1234567890};
    ASSERT_EQ(platform::_wutime64(file.c_str(), &times), 0);
    struct _stat64 status = {};
    ASSERT_EQ(platform::_wstat64(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_size, 5);
    EXPECT_EQ(status.st_mode, 0100666);
    EXPECT_EQ(status.st_nlink, 1);
    EXPECT_EQ(status.st_mtime, 1234567890);
    EXPECT_EQ(status.st_atime, 1000000000);
    directory.SetReadOnly(ZUTEXT("file"), true);
    ASSERT_EQ(platform::_wstat64(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, 0100444);
    ASSERT_EQ(platform::_wstat64(directory.Path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0170000, 0040000);
    EXPECT_EQ(platform::_wstat64(directory.Path(ZUTEXT("none")).c_str(), &status), -1);
    EXPECT_EQ(errno, ENOENT);
}

TEST(PlatformFiles, ProgramsAreToldByTheirNames) {
    const TempDirectory directory;
    struct _stat64 status = {};
    ASSERT_EQ(platform::_wstat64(directory.Write(ZUTEXT("tool.EXE"), "x").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, 0100777);
}

TEST(PlatformFiles, TimeIsSetToNow) {
    const TempDirectory directory;
    const wstring16 file = directory.Write(ZUTEXT("file"), "x");
    const platform::AccessAndWriteTime longAgo{1, 1};
    ASSERT_EQ(platform::_wutime64(file.c_str(), &longAgo), 0);
    const int64 before = std::time(nullptr);
    ASSERT_EQ(platform::_wutime64(file.c_str(), nullptr), 0);
    struct _stat64 status = {};
    platform::_wstat64(file.c_str(), &status);
    EXPECT_GE(status.st_mtime, before - 1);
    EXPECT_LE(status.st_mtime, before + 60);
    EXPECT_EQ(platform::_wutime64(directory.Path(ZUTEXT("none")).c_str(), nullptr), -1);
    EXPECT_EQ(errno, ENOENT);
}

TEST(PlatformFiles, AttributesTellDirectoriesAndReadOnlyFiles) {
    const TempDirectory directory;
    const wstring16 file = directory.Write(ZUTEXT("file"), "x");
    EXPECT_EQ(platform::GetFileAttributesW(file.c_str()), uint32{FILE_ATTRIBUTE_ARCHIVE});
    EXPECT_EQ(platform::GetFileAttributesW(directory.Path().c_str()), uint32{FILE_ATTRIBUTE_DIRECTORY});
    EXPECT_EQ(platform::GetFileAttributesW(directory.Path(ZUTEXT("none")).c_str()), uint32{INVALID_FILE_ATTRIBUTES});
    EXPECT_EQ(platform::GetLastError(), uint32{ERROR_FILE_NOT_FOUND});
    EXPECT_TRUE(platform::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE));
    EXPECT_EQ(platform::GetFileAttributesW(file.c_str()), uint32{FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE});
    EXPECT_EQ(OpenToWrite(file), -EACCES);
    EXPECT_TRUE(platform::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_ARCHIVE));
    EXPECT_EQ(platform::GetFileAttributesW(file.c_str()), uint32{FILE_ATTRIBUTE_ARCHIVE});
    EXPECT_FALSE(platform::SetFileAttributesW(directory.Path(ZUTEXT("none")).c_str(), FILE_ATTRIBUTE_ARCHIVE));
}

TEST(PlatformFiles, AttributeDataTellSizeAndTimes) {
    const TempDirectory directory;
    const wstring16 file = directory.Write(ZUTEXT("file"), "12345");
    const platform::AccessAndWriteTime times{1000000000, 1234567890};
    platform::_wutime64(file.c_str(), &times);
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    ASSERT_TRUE(platform::GetFileAttributesExW(file.c_str(), 0, &data));
    EXPECT_EQ(data.dwFileAttributes, uint32{FILE_ATTRIBUTE_ARCHIVE});
    EXPECT_EQ(data.nFileSizeHigh, 0u);
    EXPECT_EQ(data.nFileSizeLow, 5u);
    // 2009-02-13 23:31:30 UTC in ticks since 1601.
    const uint64 ticks = (uint64{data.ftLastWriteTime.dwHighDateTime} << 32) | data.ftLastWriteTime.dwLowDateTime;
    EXPECT_EQ(ticks, 128790414900000000u);
    EXPECT_FALSE(platform::GetFileAttributesExW(directory.Path(ZUTEXT("none")).c_str(), 0, &data));
}

TEST(PlatformFiles, NamesHoldEveryCharacter) {
    const TempDirectory directory;
    const wstring16 name = ZUTEXT("\u00E4\u0416\u65E5\u672C \U0001F5FA.dat");
    const int file = Create(directory.Path(name));
    ASSERT_GE(file, 0);
    Put(file, "x");
    platform::_close(file);
    EXPECT_TRUE(directory.Has(name));
    EXPECT_EQ(platform::_waccess(directory.Path(name).c_str(), 0), 0);
    EXPECT_EQ(platform::_wremove(directory.Path(name).c_str()), 0);
}

// A half of a pair is no character. Whether there can be such a name is the system's affair; nothing breaks.
TEST(PlatformFiles, HalfACharacterInANameBreaksNothing) {
    const TempDirectory directory;
    for (const wchar16 half : {wchar16{0xD800}, wchar16{0xDBFF}, wchar16{0xDC00}, wchar16{0xDFFF}}) {
        wstring16 name = ZUTEXT("a?b");
        name[1] = half;
        const int file = Create(directory.Path(name));
        if (file < 0) continue;
        platform::_close(file);
        EXPECT_EQ(platform::_waccess(directory.Path(name).c_str(), 0), 0);
        EXPECT_EQ(platform::_wremove(directory.Path(name).c_str()), 0);
    }
    SUCCEED();
}

TEST(PlatformFiles, FailedOpenLeavesContentAndNoLock) {
    const TempDirectory directory;
    const wstring16 path = directory.Write(ZUTEXT("old"), "content");
    const uint64 calls = FailEachCall([&](uint64 nth, FailingFiles::Mode mode) {
        FailingFiles faults(nth, mode, EIO);
        const int file = Open(path, platform::OpenReadWrite | platform::OpenCreate, platform::ShareDenyBoth);
        const bool met = faults.Stop();
        EXPECT_EQ(file < 0, met);
        if (file < 0) {
            EXPECT_EQ(file, -EIO);
        } else {
            platform::_close(file);
        }
        EXPECT_EQ(directory.Read(ZUTEXT("old")), "content");
        const int again = OpenToWrite(path);
        EXPECT_GE(again, 0) << "nobody holds it";
        platform::_close(again);
        return met;
    });
    EXPECT_GE(calls, 1u);
}

TEST(PlatformFiles, FailedCreationLeavesNoFile) {
    const TempDirectory directory;
    const wstring16 path = directory.Path(ZUTEXT("new"));
    FailEachCall([&](uint64 nth, FailingFiles::Mode mode) {
        FailingFiles faults(nth, mode, EIO);
        const int file = Create(path);
        const bool met = faults.Stop();
        EXPECT_EQ(file < 0, met);
        EXPECT_EQ(directory.Has(ZUTEXT("new")), !met);
        if (file >= 0) platform::_close(file);
        directory.Remove(ZUTEXT("new"));
        return met;
    });
}

TEST(PlatformFiles, InterruptedCallsGoOn) {
    const TempDirectory directory;
    const wstring16 path = directory.Path(ZUTEXT("file"));
    for (uint64 nth = 1;; ++nth) {
        FailingFiles faults(nth, FailingFiles::Mode::kFromThenOn, EINTR);
        const int file = Create(path);
        ASSERT_GE(file, 0) << nth;
        EXPECT_EQ(Put(file, "abc"), 3);
        EXPECT_EQ(platform::_lseeki64(file, 0, 0), 0);
        EXPECT_EQ(Get(file, 3), "abc");
        EXPECT_EQ(platform::_close(file), 0);
        if (!faults.Stop()) break;
    }
}

TEST(PlatformFiles, ChosenErrorReachesTheCaller) {
    const TempDirectory directory;
    const wstring16 path = directory.Write(ZUTEXT("file"), "abc");
    for (const int error : {EMFILE, ENFILE, ENOSPC, EEXIST, ENOTDIR, EIO, EACCES}) {
        const FailingFiles faults(1, FailingFiles::Mode::kOnce, error);
        EXPECT_EQ(OpenToRead(path), -error);
    }
    const FailingFiles faults(1, FailingFiles::Mode::kOnce, EACCES);
    EXPECT_EQ(platform::GetFileAttributesW(path.c_str()), uint32{INVALID_FILE_ATTRIBUTES});
    EXPECT_EQ(platform::GetLastError(), uint32{ERROR_ACCESS_DENIED});
}

TEST(PlatformFiles, TransfersAreCutShort) {
    const TempDirectory directory;
    const int file = Create(directory.Path(ZUTEXT("file")));
    {
        const FailingFiles faults = FailingFiles::Short(2, FailingFiles::Mode::kOnce, 2);
        EXPECT_EQ(Put(file, "abc"), 3);
        EXPECT_EQ(Put(file, "def"), 2);
        EXPECT_EQ(Put(file, "fgh"), 3);
    }
    platform::_lseeki64(file, 0, 0);
    {
        FailingFiles faults = FailingFiles::Short(1, FailingFiles::Mode::kFromThenOn, 1);
        EXPECT_EQ(Get(file, 10), "a");
        EXPECT_EQ(Get(file, 10), "b");
        EXPECT_TRUE(faults.Stop());
    }
    EXPECT_EQ(Get(file, 10), "cdefgh");
    platform::_close(file);
}

TEST(PlatformFiles, FailedCloseHasClosedAllTheSame) {
    const TempDirectory directory;
    const wstring16 path = directory.Path(ZUTEXT("file"));
    const int file = Create(path);
    {
        const FailingFiles faults(1, FailingFiles::Mode::kOnce, EIO);
        errno = 0;
        EXPECT_EQ(platform::_close(file), -1);
        EXPECT_EQ(errno, EIO);
    }
    const int again = OpenToWrite(path);
    EXPECT_GE(again, 0);
    platform::_close(again);
}

TEST(PlatformFiles, ProcessAndThreadHaveNumbers) {
    EXPECT_NE(platform::GetCurrentProcessId(), 0u);
    EXPECT_NE(platform::GetCurrentThreadId(), 0u);
    EXPECT_EQ(platform::GetCurrentThreadId(), platform::GetCurrentThreadId());
}

}  // namespace
}  // namespace platform_files_internal_test
