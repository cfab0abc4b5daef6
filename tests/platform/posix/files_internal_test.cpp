#include <Utility/platform/files.h>
#include <gtest/gtest.h>
#include <support/failing_files.h>
#include <support/fresh_files.h>
#include <support/temp_directory.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <thread>

namespace posix_files_internal_test {
namespace {

using namespace Torvo;
using test::TempDirectory;

int OpenToWrite(const wstring16& path) {
    int file = -1;
    platform::_wsopen_dispatch(path.c_str(), platform::OpenReadWrite, platform::ShareDenyBoth, 0, &file, 0);
    return file;
}

TEST(PosixFiles, AllFormsOfAPathAreTheSameFile) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("sub\\file"), "x");
    const wstring16 native = directory.Path().substr(2);
    for (const wstring16& path : {directory.Path(), native, ZUTEXT("c:") + native}) {
        EXPECT_EQ(platform::_waccess((path + ZUTEXT("\\sub/file")).c_str(), 0), 0);
    }
    EXPECT_NE(platform::_waccess((ZUTEXT("D:") + native).c_str(), 0), 0);
    EXPECT_NE(platform::_waccess((ZUTEXT("\\\\") + native).c_str(), 0), 0);
    EXPECT_NE(platform::_waccess(directory.Path(ZUTEXT("SUB\\file")).c_str(), 0), 0) << "case counts";
}

TEST(PosixFiles, LocksAreTheSystemsOwn) {
    const TempDirectory directory;
    const wstring16 path = directory.Write(ZUTEXT("file"), "x");
    const int other = ::open(directory.Native(ZUTEXT("file")).c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(other, LOCK_SH), 0);
    EXPECT_EQ(OpenToWrite(path), -1);
    EXPECT_EQ(errno, EACCES);
    ::close(other);
    const int file = OpenToWrite(path);
    EXPECT_NE(file, -1);
    platform::_close(file);
}

// Where a lock against all others is given to those alone who write: the third call, behind the status and the opening.
template <typename Call>
int WithoutLockAgainstAll(Call call) {
    const test::FailingFiles faults(3, test::FailingFiles::Mode::kOnce, EBADF);
    return call();
}

TEST(PosixFiles, AFileOfTheNetworkIsMovedAndRemovedUnlessAWriterHoldsIt) {
    const TempDirectory directory;
    const wstring16 a = directory.Write(ZUTEXT("a"), "first");
    const wstring16 b = directory.Path(ZUTEXT("b"));
    const int writer = OpenToWrite(a);
    ASSERT_NE(writer, -1);
    EXPECT_EQ(WithoutLockAgainstAll([&] { return platform::_wremove(a.c_str()); }), -1);
    EXPECT_EQ(errno, EACCES);
    platform::_close(writer);
    EXPECT_EQ(WithoutLockAgainstAll([&] { return platform::_wrename(a.c_str(), b.c_str()); }), 0);
    EXPECT_EQ(WithoutLockAgainstAll([&] { return platform::_wremove(b.c_str()); }), 0);
}

TEST(PosixFiles, AMaskDoesNotMakeACreatedFileReadOnly) {
    const TempDirectory directory;
    const wstring16 path = directory.Path(ZUTEXT("file"));
    const mode_t mask = ::umask(0222);
    int file = -1;
    const int result =
        platform::_wsopen_dispatch(path.c_str(), platform::OpenReadWrite | platform::OpenCreate,
                                   platform::ShareDenyBoth, platform::PermitRead | platform::PermitWrite, &file, 0);
    ::umask(mask);
    ASSERT_EQ(result, 0);
    platform::_close(file);
    EXPECT_EQ(platform::GetFileAttributesW(path.c_str()), FILE_ATTRIBUTE_ARCHIVE);
    EXPECT_EQ(platform::_wremove(path.c_str()), 0);
}

// The system tells a length of 0 for such a file.
TEST(PosixFiles, AFileThatIsMadeAsItIsReadIsReadToItsEnd) {
    const test::FreshFiles files;
    const int file = register_file(ZUTEXT("/proc/self/smaps"), ftNone, true);
    ASSERT_EQ(fileopen(file, omRead, nullptr), file);
    EXPECT_EQ(filelength2(file), 0);
    std::array<char, 8192> bytes;
    EXPECT_EQ(read2(file, bytes.data(), bytes.size()), 8192);
    close2(file);
}

TEST(PosixFiles, OneWriteBitOfAnySortMakesAFileWritable) {
    const TempDirectory directory;
    const wstring16 path = directory.Write(ZUTEXT("file"), "x");
    const auto native = directory.Native(ZUTEXT("file"));
    for (const mode_t mode : {0200, 0420, 0442}) {
        ASSERT_EQ(::chmod(native.c_str(), mode), 0);
        EXPECT_EQ(platform::GetFileAttributesW(path.c_str()), FILE_ATTRIBUTE_ARCHIVE) << std::oct << mode;
    }
    ASSERT_EQ(::chmod(native.c_str(), 0555), 0);
    EXPECT_EQ(platform::GetFileAttributesW(path.c_str()), FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_READONLY);
    ASSERT_TRUE(platform::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_ARCHIVE));
    struct stat status;
    ASSERT_EQ(::stat(native.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, mode_t{0755}) << "the owner's bit comes back";
}

TEST(PosixFiles, FileWhosePathLedNowhereAtItsCloseCountsAsChanged) {
    namespace fs = std::filesystem;
    const test::FreshFiles files;
    const fs::path folder = files.directory.Native(ZUTEXT("sub"));
    fs::create_directory(folder);
    const int file = files.Make(ZUTEXT("sub\\x"), "content");
    std::this_thread::sleep_for(std::chrono::milliseconds(60));  // whatever the age of the file
    fileopen(file, omRead, nullptr);
    EXPECT_EQ(test::ReadBytes(file, 100), "content");
    const fs::path elsewhere = files.directory.Native(ZUTEXT("elsewhere"));
    fs::rename(folder, elsewhere);
    EXPECT_EQ(close2(file), 0);
    fs::rename(elsewhere, folder);
    int changed = 0;
    EXPECT_EQ(fileopen(file, omRead, &changed), file);
    EXPECT_EQ(changed, 1);
    CacheEntry* entry = nullptr;
    EXPECT_FALSE(cFileCache::Instance()->Lookup(file, 0, &entry, 0));
    close2(file);
}

TEST(PosixFiles, StreamKeepsWhatItWasGivenUntilItIsFlushed) {
    const TempDirectory directory;
    platform::Stream* const stream =
        platform::_wfdopen(OpenToWrite(directory.Write(ZUTEXT("file"), "")), ZUTEXT("r+b"));
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(platform::fwrite("abc", 1, 3, stream), 3u);
    EXPECT_EQ(directory.Read(ZUTEXT("file")), "");
    EXPECT_EQ(platform::fflush(stream), 0);
    EXPECT_EQ(directory.Read(ZUTEXT("file")), "abc");
    platform::fclose(stream);
}

// On Windows an administrator under a compatibility layer may, so this is asked here alone.
TEST(PosixFiles, TimeOfAReadOnlyFileIsNotSet) {
    const TempDirectory directory;
    const wstring16 path = directory.Write(ZUTEXT("file"), "x");
    directory.SetReadOnly(ZUTEXT("file"), true);
    EXPECT_EQ(platform::_wutime64(path.c_str(), nullptr), -1);
    EXPECT_EQ(errno, EACCES);
    EXPECT_EQ(platform::_wutime64(directory.Path().c_str(), nullptr), -1);
    EXPECT_EQ(errno, EACCES);
}

TEST(PosixFiles, DescriptorsAreNotInherited) {
    const TempDirectory directory;
    const int file = OpenToWrite(directory.Write(ZUTEXT("file"), "x"));
    EXPECT_NE(::fcntl(file, F_GETFD) & FD_CLOEXEC, 0);
    platform::_close(file);
}

TEST(PosixFiles, LinkThatLeadsNowhereIsListedAndRemoved) {
    const TempDirectory directory;
    std::filesystem::create_symlink("nowhere", directory.Native(ZUTEXT("link")));
    EXPECT_EQ(platform::GetFileAttributesW(directory.Path(ZUTEXT("link")).c_str()), INVALID_FILE_ATTRIBUTES);
    WIN32_FIND_DATAW data{};
    void* const walk = platform::FindFirstFileW(directory.Path(ZUTEXT("l*")).c_str(), &data);
    ASSERT_NE(walk, platform::InvalidFindHandle());
    EXPECT_EQ(wstring16(data.cFileName), ZUTEXT("link"));
    platform::FindClose(walk);
    EXPECT_EQ(platform::_wremove(directory.Path(ZUTEXT("link")).c_str()), 0);
    EXPECT_FALSE(directory.Has(ZUTEXT("link")));
}

TEST(PosixFiles, CreatingThroughALinkMakesItsTarget) {
    const TempDirectory directory;
    std::filesystem::create_symlink("target", directory.Native(ZUTEXT("link")));
    int file = -1;
    ASSERT_EQ(
        platform::_wsopen_dispatch(directory.Path(ZUTEXT("link")).c_str(),
                                   platform::OpenReadWrite | platform::OpenCreate | platform::OpenTruncate,
                                   platform::ShareDenyBoth, platform::PermitRead | platform::PermitWrite, &file, 0),
        0);
    platform::_close(file);
    EXPECT_TRUE(directory.Has(ZUTEXT("target")));
}

TEST(PosixFiles, EveryNameOnDiskIsListedAndOpened) {
    const TempDirectory directory;
    const std::string name = "bad\xFF\xC3.dat";
    const auto native = directory.Native() / name;
    ASSERT_NE(::close(::open(native.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0666)), -1);
    WIN32_FIND_DATAW data{};
    void* const walk = platform::FindFirstFileW(directory.Path(ZUTEXT("bad*")).c_str(), &data);
    ASSERT_NE(walk, platform::InvalidFindHandle());
    platform::FindClose(walk);
    EXPECT_EQ(platform::_waccess(directory.Path(data.cFileName).c_str(), 6), 0);
    EXPECT_EQ(platform::_wremove(directory.Path(data.cFileName).c_str()), 0);
}

TEST(PosixFiles, LimitOfOpenFilesIsTheProcesss) {
    rlimit former;
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &former), 0);
    rlimit now = former;
    now.rlim_cur = 64;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &now), 0);
    EXPECT_EQ(platform::_setmaxstdio(100), 100);
    ::getrlimit(RLIMIT_NOFILE, &now);
    EXPECT_EQ(now.rlim_cur, 100u);
    EXPECT_EQ(now.rlim_max, former.rlim_max);
    EXPECT_EQ(platform::_setmaxstdio(50), 50);
    ::getrlimit(RLIMIT_NOFILE, &now);
    EXPECT_EQ(now.rlim_cur, 100u) << "others of the process may need them";
    EXPECT_EQ(platform::_setmaxstdio(19), -1);
    EXPECT_EQ(errno, EINVAL);
    ::setrlimit(RLIMIT_NOFILE, &former);
}

TEST(PosixFiles, PipesAndSocketsAreRefusedAtOnce) {
    const test::FreshFiles files;
    ASSERT_EQ(::mkfifo(files.directory.Native(ZUTEXT("pipe")).c_str(), 0666), 0);
    const std::string socketPath = files.directory.Native(ZUTEXT("socket")).string();
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    ASSERT_LT(socketPath.size(), sizeof address.sun_path);
    socketPath.copy(address.sun_path, socketPath.size());
    const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    for (const wchar16* name : {ZUTEXT("pipe"), ZUTEXT("socket")}) {
        const int file = files.Register(name);
        for (const eOpenMode mode : {omRead, omReadWrite}) {
            EXPECT_EQ(fileopen(file, mode, nullptr), -1);
            EXPECT_EQ(test::TakeErrors(), test::OneError(4, 46, name));
        }
        EXPECT_EQ(fileopen(file, omCreate, nullptr), -1);
        EXPECT_TRUE(files.directory.Has(name));
    }
    ::close(listener);
}

TEST(PosixFiles, DescriptorsWaitForWhatIsToCome) {
    const int file = OpenToWrite(ZUTEXT("C:\\dev\\null"));
    ASSERT_NE(file, -1);
    EXPECT_EQ(::fcntl(file, F_GETFL) & O_NONBLOCK, 0);
    platform::_close(file);
}

TEST(PosixFiles, PathThatIsTooLongIsNotThatOfAnother) {
    const test::FreshFiles files;
    wstring16 name = wstring16(100, wchar16{'d'}) + ZUTEXT("\\");
    name += wstring16(258 - 1 - files.directory.Path().size() - name.size(), wchar16{'n'});
    const wstring16 cut = name + ZUTEXT(".M");
    files.directory.Write(cut, "of another");
    int file = files.Register(name, FILETYPE(5));  // which makes it n.MAP
    for (const eOpenMode mode : {omRead, omReadWrite, omCreate}) {
        EXPECT_EQ(fileopen(file, mode, nullptr), -1);
        const std::vector<test::RaisedError> errors = test::TakeErrors();
        ASSERT_EQ(errors.size(), 1u);
        EXPECT_EQ(errors[0].number, 5001);
        EXPECT_EQ(errors[0].message, 9985);
    }
    EXPECT_FALSE(fileremove(file));
    EXPECT_FALSE(group_fileremove(&file, 1));
    EXPECT_FALSE(renamefile(&file, ZUTEXT("short"), FILETYPE(18)));
    EXPECT_EQ(file_get_timestamp(file), 0);
    EXPECT_FALSE(file_set_timestamp(file));
    unregister_file(file);
    int shortFile = files.Make(ZUTEXT("x.dat"), "content");
    EXPECT_FALSE(renamefile(&shortFile, name.c_str(), FILETYPE(5)));
    EXPECT_EQ(files.directory.Read(cut), "of another");
    EXPECT_EQ(files.directory.Read(ZUTEXT("x.dat")), "content");
}

TEST(PosixFiles, TooManyOpenFilesAreToldAsSuch) {
    const TempDirectory directory;
    const wstring16 path = directory.Write(ZUTEXT("file"), "x");
    rlimit former;
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &former), 0);
    rlimit none = former;
    none.rlim_cur = 0;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    const int file = OpenToWrite(path);
    const int error = errno;
    ::setrlimit(RLIMIT_NOFILE, &former);
    EXPECT_EQ(file, -1);
    EXPECT_EQ(error, EMFILE);
}

TEST(PosixFiles, TemporaryDirectoryIsTheEnvironments) {
    const char* const former = std::getenv("TMPDIR");
    const std::string kept = former != nullptr ? former : "";
    std::array<wchar16, 300> buffer{};
    ::setenv("TMPDIR", "/some/where", 1);
    platform::GetTempPathW(300, buffer.data());
    EXPECT_EQ(wstring16(buffer.data()), ZUTEXT("C:\\some\\where\\"));
    ::setenv("TMPDIR", "relative", 1);
    platform::GetTempPathW(300, buffer.data());
    EXPECT_EQ(wstring16(buffer.data()).substr(0, 3), ZUTEXT("C:\\"));
    former != nullptr ? ::setenv("TMPDIR", kept.c_str(), 1) : ::unsetenv("TMPDIR");
}

TEST(PosixFiles, EnvironmentIsTakenAsUtf8) {
    ::setenv("TORVO_TEST_VALUE", "\xC3\xA4\xF0\x9F\x97\xBA", 1);
    const wchar16* const value = platform::_wgetenv(ZUTEXT("TORVO_TEST_VALUE"));
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(wstring16(value), ZUTEXT("\u00E4\U0001F5FA"));
    ::unsetenv("TORVO_TEST_VALUE");
}

TEST(PosixFiles, ShareModesThatTheFileSystemLacksAreGranted) {
    const TempDirectory directory;
    const wstring16 path = directory.Write(ZUTEXT("file"), "x");
    // The second call of an open is the one for the lock; the number is the Windows runtime's for "no locks".
    const test::FailingFiles faults(2, test::FailingFiles::Mode::kOnce, 39);
    const int file = OpenToWrite(path);
    EXPECT_NE(file, -1);
    platform::_close(file);
}

// Who may not open a file may move it all the same; what others hold is told by the lock alone.
TEST(PosixFiles, FileWithoutALockOfAnybodyIsMovedAndRemoved) {
    const TempDirectory directory;
    const wstring16 a = directory.Write(ZUTEXT("a"), "first");
    const wstring16 b = directory.Path(ZUTEXT("b"));
    const int reader = ::open(directory.Native(ZUTEXT("a")).c_str(), O_RDONLY | O_CLOEXEC);
    {
        // The second call is the opening.
        const test::FailingFiles faults(2, test::FailingFiles::Mode::kOnce, EACCES);
        EXPECT_EQ(platform::_wrename(a.c_str(), b.c_str()), 0);
    }
    EXPECT_EQ(platform::_wremove(b.c_str()), 0);
    ::close(reader);
    std::filesystem::create_symlink("nowhere", directory.Native(ZUTEXT("link")));
    EXPECT_EQ(platform::_wrename(directory.Path(ZUTEXT("link")).c_str(), b.c_str()), 0);
    EXPECT_EQ(platform::_wremove(b.c_str()), 0);
    EXPECT_FALSE(directory.Has(ZUTEXT("b")));
    directory.MakeDirectory(ZUTEXT("d"));
    EXPECT_EQ(platform::_wrename(directory.Path(ZUTEXT("d")).c_str(), directory.Path(ZUTEXT("e")).c_str()), 0);
}

TEST(PosixFiles, AnotherSpellingOfANameIsWritten) {
    const TempDirectory directory;
    std::filesystem::create_directories(directory.Native(ZUTEXT("d")) / "inner");
    std::filesystem::create_symlink("d", directory.Native(ZUTEXT("link")));
    const wstring16 file = directory.Write(ZUTEXT("d\\x"), "content");
    const wstring16 respelt = directory.Path(ZUTEXT("link\\x"));
    {
        // Behind the attempt and the two looks that tell that it is the same file, it is the system that decides.
        const test::FailingFiles faults(7, test::FailingFiles::Mode::kOnce, EIO);
        EXPECT_EQ(platform::_wrename(file.c_str(), respelt.c_str()), -1);
        EXPECT_EQ(errno, EIO);
    }
    EXPECT_EQ(platform::_wrename(file.c_str(), respelt.c_str()), 0);
    EXPECT_EQ(directory.Read(ZUTEXT("d\\x")), "content");
    const wstring16 inner = directory.Path(ZUTEXT("d\\inner"));
    EXPECT_EQ(platform::_wrename(inner.c_str(), directory.Path(ZUTEXT("link\\inner")).c_str()), 0);
}

TEST(PosixFiles, RenamingWithoutTheSystemsHelpNeverReplacesEither) {
    const TempDirectory directory;
    const wstring16 a = directory.Write(ZUTEXT("a"), "first");
    const wstring16 b = directory.Write(ZUTEXT("b"), "second");
    const wstring16 c = directory.Path(ZUTEXT("c"));
    // The fourth call of a renaming is the one that renames, behind those for the status, the opening and the lock; the
    // number is the Windows runtime's for "no such call".
    {
        const test::FailingFiles faults(4, test::FailingFiles::Mode::kOnce, 40);
        EXPECT_EQ(platform::_wrename(a.c_str(), b.c_str()), -1);
        EXPECT_EQ(errno, EEXIST);
    }
    for (const int noSuchCall : {40, EINVAL}) {
        const test::FailingFiles faults(4, test::FailingFiles::Mode::kOnce, noSuchCall);
        EXPECT_EQ(platform::_wrename(a.c_str(), a.c_str()), 0);
    }
    const test::FailingFiles faults(4, test::FailingFiles::Mode::kOnce, 40);
    EXPECT_EQ(platform::_wrename(a.c_str(), c.c_str()), 0);
    EXPECT_EQ(directory.Read(ZUTEXT("b")), "second");
    EXPECT_EQ(directory.Read(ZUTEXT("c")), "first");
}

}  // namespace
}  // namespace posix_files_internal_test
