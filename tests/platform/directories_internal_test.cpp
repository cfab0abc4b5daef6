#include <Utility/platform/files.h>
#include <Utility/platform/threads.h>
#include <gtest/gtest.h>
#include <support/failing_files.h>
#include <support/temp_directory.h>

#include <array>
#include <cerrno>
#include <string>
#include <vector>

namespace directories_internal_test {
namespace {

using namespace Torvo;
using test::FailingFiles;
using test::TempDirectory;

using Buffer = std::array<wchar16, 1000>;

wstring16 CurrentDirectory() {
    Buffer buffer{};
    EXPECT_NE(platform::GetCurrentDirectoryW(static_cast<uint32>(buffer.size()), buffer.data()), 0u);
    return buffer.data();
}

// Goes to a directory, and back at the end.
class InDirectory {
public:
    explicit InDirectory(const wstring16& path) : former(CurrentDirectory()) {
        EXPECT_TRUE(platform::SetCurrentDirectoryW(path.c_str()));
    }
    ~InDirectory() { platform::SetCurrentDirectoryW(former.c_str()); }
    InDirectory(const InDirectory&) = delete;
    InDirectory& operator=(const InDirectory&) = delete;

private:
    const wstring16 former;
};

TEST(Directories, CurrentDirectoryIsSetAndTold) {
    const TempDirectory directory;
    const InDirectory inside(directory.MakeDirectory(ZUTEXT("a")));
    EXPECT_EQ(CurrentDirectory(), directory.Path(ZUTEXT("a")));
    EXPECT_TRUE(platform::SetCurrentDirectoryW(ZUTEXT("..")));
    EXPECT_EQ(CurrentDirectory(), directory.Path());
    EXPECT_FALSE(platform::SetCurrentDirectoryW(ZUTEXT("none")));
    EXPECT_EQ(CurrentDirectory(), directory.Path());
}

TEST(Directories, CurrentDirectoryAsksForItsRoom) {
    const wstring16 directory = CurrentDirectory();
    const auto length = static_cast<uint32>(directory.size());
    Buffer buffer{};
    EXPECT_EQ(platform::GetCurrentDirectoryW(0, nullptr), length + 1);
    EXPECT_EQ(platform::GetCurrentDirectoryW(length, buffer.data()), length + 1);
    EXPECT_EQ(platform::GetCurrentDirectoryW(length + 1, buffer.data()), length);
    EXPECT_EQ(wstring16(buffer.data()), directory);
}

TEST(Directories, DriveAloneIsItsCurrentDirectory) {
    const TempDirectory directory;
    const InDirectory inside(directory.Path());
    EXPECT_TRUE(platform::SetCurrentDirectoryW(directory.Path().substr(0, 2).c_str()));
    EXPECT_EQ(CurrentDirectory(), directory.Path());
}

TEST(Directories, RootEndsInASeparator) {
    const InDirectory inside(ZUTEXT("C:\\"));
    EXPECT_EQ(CurrentDirectory(), ZUTEXT("C:\\"));
}

TEST(Directories, EachDriveHasACurrentDirectory) {
    const TempDirectory directory;
    const InDirectory inside(directory.Path());
    const int drive = directory.Path()[0] - 'A' + 1;
    Buffer buffer{};
    EXPECT_EQ(platform::_getdrive(), drive);
    EXPECT_EQ(platform::_wgetdcwd(drive, buffer.data(), 500), buffer.data());
    EXPECT_EQ(wstring16(buffer.data()), directory.Path());
    buffer[0] = 0;
    EXPECT_EQ(platform::_wgetdcwd(0, buffer.data(), 500), buffer.data());
    EXPECT_EQ(wstring16(buffer.data()), directory.Path());
    const auto length = static_cast<int>(directory.Path().size());
    EXPECT_EQ(platform::_wgetdcwd(drive, buffer.data(), length + 1), buffer.data());
    errno = 0;
    EXPECT_EQ(platform::_wgetdcwd(drive, buffer.data(), length), nullptr);
    EXPECT_EQ(errno, ERANGE);
}

TEST(Directories, MissingDriveHasNone) {
    Buffer buffer{};
    errno = 0;
    EXPECT_EQ(platform::_wgetdcwd(17, buffer.data(), 500), nullptr);
    EXPECT_EQ(errno, EACCES);
    EXPECT_EQ(platform::_wgetdcwd(-1, buffer.data(), 500), nullptr);
    EXPECT_EQ(platform::_wgetdcwd(40, buffer.data(), 500), nullptr);
}

TEST(Directories, AreCreatedOnceAndRemovedWhenEmpty) {
    const TempDirectory directory;
    const wstring16 made = directory.Path(ZUTEXT("made"));
    EXPECT_FALSE(platform::PathIsDirectoryW(made.c_str()));
    EXPECT_TRUE(platform::CreateDirectoryW(made.c_str()));
    EXPECT_TRUE(platform::PathIsDirectoryW(made.c_str()));
    EXPECT_FALSE(platform::CreateDirectoryW(made.c_str()));
    EXPECT_EQ(platform::GetLastError(), uint32{ERROR_ALREADY_EXISTS});
    EXPECT_FALSE(platform::CreateDirectoryW((made + ZUTEXT("\\no\\such")).c_str()));
    const wstring16 file = directory.Write(ZUTEXT("made\\file"), "x");
    EXPECT_FALSE(platform::PathIsDirectoryW(file.c_str()));
    EXPECT_FALSE(platform::CreateDirectoryW(file.c_str()));
    EXPECT_FALSE(platform::RemoveDirectoryW(made.c_str()));
    EXPECT_EQ(platform::_wremove(file.c_str()), 0);
    EXPECT_TRUE(platform::RemoveDirectoryW(made.c_str()));
    EXPECT_FALSE(platform::PathIsDirectoryW(made.c_str()));
}

TEST(Directories, TemporaryOneIsToldWithItsSeparator) {
    Buffer buffer{};
    const uint32 length = platform::GetTempPathW(500, buffer.data());
    const wstring16 directory = buffer.data();
    ASSERT_EQ(directory.size(), length);
    EXPECT_EQ(directory.substr(1, 2), ZUTEXT(":\\"));
    EXPECT_EQ(directory.back(), '\\');
    EXPECT_EQ(platform::GetTempPathW(length, buffer.data()), length + 1);
}

TEST(Directories, TemporaryFileIsCreatedUnderANewName) {
    const TempDirectory directory;
    std::array<wchar16, 260> first{};
    std::array<wchar16, 260> second{};
    const uint32 one = platform::GetTempFileNameW(directory.Path().c_str(), ZUTEXT("ZUNX"), 0, first.data());
    const uint32 two = platform::GetTempFileNameW(directory.Path().c_str(), ZUTEXT("ZUNX"), 0, second.data());
    EXPECT_NE(one, 0u);
    EXPECT_NE(two, 0u);
    EXPECT_NE(wstring16(first.data()), wstring16(second.data()));
    EXPECT_EQ(platform::_waccess(first.data(), 6), 0);
    EXPECT_EQ(platform::_waccess(second.data(), 6), 0);
    const wstring16 start = directory.Path(ZUTEXT("ZUN"));
    EXPECT_EQ(wstring16(first.data()).substr(0, start.size()), start);
    EXPECT_NE(first[start.size()], 'X') << "three units of the prefix";
}

TEST(Directories, TemporaryNameWithANumberIsNotCreated) {
    const TempDirectory directory;
    std::array<wchar16, 260> name{};
    EXPECT_EQ(platform::GetTempFileNameW(directory.Path().c_str(), ZUTEXT("ab"), 0x1234, name.data()), 0x1234u);
    EXPECT_EQ(wstring16(name.data()).substr(0, directory.Path().size() + 8), directory.Path(ZUTEXT("ab1234.")));
    EXPECT_NE(platform::_waccess(name.data(), 0), 0);
}

TEST(Directories, TemporaryFileNeedsItsDirectory) {
    const TempDirectory directory;
    std::array<wchar16, 260> name{};
    EXPECT_EQ(platform::GetTempFileNameW(directory.Path(ZUTEXT("none")).c_str(), ZUTEXT("a"), 0, name.data()), 0u);
    const wstring16 tooLong = ZUTEXT("C:\\") + wstring16(244, 'x');
    EXPECT_EQ(platform::GetTempFileNameW(tooLong.c_str(), ZUTEXT("a"), 1, name.data()), 0u);
}

wstring16 Append(const wstring16& path, const wstring16& more) {
    std::array<wchar16, 261> buffer{};
    std::copy(path.begin(), path.end(), buffer.begin());
    buffer[260] = '#';
    const bool fits = platform::PathAppendW(buffer.data(), more.c_str());
    EXPECT_EQ(buffer[260], '#');
    EXPECT_TRUE(fits || buffer[0] == 0);
    return buffer.data();
}

TEST(Directories, PathsAreAppendedWithOneSeparator) {
    EXPECT_EQ(Append(ZUTEXT("C:\\a"), ZUTEXT("b")), ZUTEXT("C:\\a\\b"));
    EXPECT_EQ(Append(ZUTEXT("C:\\a\\"), ZUTEXT("b")), ZUTEXT("C:\\a\\b"));
    EXPECT_EQ(Append(ZUTEXT("C:\\a"), ZUTEXT("\\b")), ZUTEXT("C:\\a\\b"));
    EXPECT_EQ(Append(ZUTEXT("C:\\a"), ZUTEXT("b\\c.d")), ZUTEXT("C:\\a\\b\\c.d"));
    EXPECT_EQ(Append(ZUTEXT("C:\\"), ZUTEXT("b")), ZUTEXT("C:\\b"));
    EXPECT_EQ(Append(ZUTEXT("a"), ZUTEXT("b")), ZUTEXT("a\\b"));
    EXPECT_EQ(Append(ZUTEXT(""), ZUTEXT("b")), ZUTEXT("b"));
}

TEST(Directories, AppendedPathsHaveNoDots) {
    EXPECT_EQ(Append(ZUTEXT("C:\\a"), ZUTEXT("..\\b")), ZUTEXT("C:\\b"));
    EXPECT_EQ(Append(ZUTEXT("C:\\a\\b"), ZUTEXT(".\\c")), ZUTEXT("C:\\a\\b\\c"));
    EXPECT_EQ(Append(ZUTEXT("C:\\a"), ZUTEXT("D:\\b")), ZUTEXT("D:\\b"));
}

TEST(Directories, AppendedPathThatDoesNotFitBecomesEmpty) {
    const wstring16 path = ZUTEXT("C:\\") + wstring16(200, 'a');
    EXPECT_EQ(Append(path, wstring16(55, 'b')).size(), 259u);
    EXPECT_EQ(Append(path, wstring16(56, 'b')), ZUTEXT(""));
}

TEST(Directories, EnvironmentIsRead) {
    EXPECT_EQ(platform::_wgetenv(ZUTEXT("TORVO_NO_SUCH_VARIABLE")), nullptr);
    const wchar16* const path = platform::_wgetenv(ZUTEXT("PATH"));
    ASSERT_NE(path, nullptr);
    EXPECT_NE(*path, 0);
}

using Names = std::vector<wstring16>;

Names Find(const wstring16& pattern) {
    Names names;
    WIN32_FIND_DATAW data{};
    void* const walk = platform::FindFirstFileW(pattern.c_str(), &data);
    if (walk == platform::InvalidFindHandle()) return names;
    do {
        names.emplace_back(data.cFileName);
    } while (platform::FindNextFileW(walk, &data));
    EXPECT_EQ(platform::GetLastError(), uint32{ERROR_NO_MORE_FILES});
    EXPECT_TRUE(platform::FindClose(walk));
    return names;
}

TEST(DirectorySearch, ListsEverythingInOrder) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("b.txt"), "");
    directory.Write(ZUTEXT("A.txt"), "");
    directory.Write(ZUTEXT("c"), "");
    directory.MakeDirectory(ZUTEXT("B.dir"));
    const Names all{ZUTEXT("."), ZUTEXT(".."), ZUTEXT("A.txt"), ZUTEXT("B.dir"), ZUTEXT("b.txt"), ZUTEXT("c")};
    EXPECT_EQ(Find(directory.Path(ZUTEXT("*"))), all);
    EXPECT_EQ(Find(directory.Path(ZUTEXT("*.*"))), all);
}

TEST(DirectorySearch, PatternsIgnoreCase) {
    const TempDirectory directory;
    for (const auto* const name : {ZUTEXT("a1.Txt"), ZUTEXT("a2.TXT"), ZUTEXT("b1.txt"), ZUTEXT("a1.txt.bak")}) {
        directory.Write(name, "");
    }
    const auto find = [&](const wstring16& pattern) { return Find(directory.Path(pattern)); };
    EXPECT_EQ(find(ZUTEXT("*.txt")), (Names{ZUTEXT("a1.Txt"), ZUTEXT("a2.TXT"), ZUTEXT("b1.txt")}));
    EXPECT_EQ(find(ZUTEXT("A*.TXT")), (Names{ZUTEXT("a1.Txt"), ZUTEXT("a2.TXT")}));
    EXPECT_EQ(find(ZUTEXT("?1.txt")), (Names{ZUTEXT("a1.Txt"), ZUTEXT("b1.txt")}));
    EXPECT_EQ(find(ZUTEXT("B1.TXT")), Names{ZUTEXT("b1.txt")});
    EXPECT_EQ(find(ZUTEXT("*1*t*")), (Names{ZUTEXT("a1.Txt"), ZUTEXT("a1.txt.bak"), ZUTEXT("b1.txt")}));
    EXPECT_EQ(find(ZUTEXT("z*")), Names{});
    EXPECT_EQ(find(ZUTEXT("")), Names{});
}

TEST(DirectorySearch, TellsWhatAnEntryIs) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("file"), "12345");
    directory.SetReadOnly(ZUTEXT("file"), true);
    directory.MakeDirectory(ZUTEXT("sub"));
    WIN32_FIND_DATAW data{};
    void* walk = platform::FindFirstFileW(directory.Path(ZUTEXT("file")).c_str(), &data);
    ASSERT_NE(walk, platform::InvalidFindHandle());
    EXPECT_EQ(data.dwFileAttributes, uint32{FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE});
    EXPECT_EQ(data.nFileSizeLow, 5u);
    platform::FindClose(walk);
    walk = platform::FindFirstFileW(directory.Path(ZUTEXT("sub")).c_str(), &data);
    ASSERT_NE(walk, platform::InvalidFindHandle());
    EXPECT_EQ(data.dwFileAttributes, uint32{FILE_ATTRIBUTE_DIRECTORY});
    platform::FindClose(walk);
}

TEST(DirectorySearch, MissingDirectoryHasNothing) {
    const TempDirectory directory;
    EXPECT_EQ(Find(directory.Path(ZUTEXT("none\\*"))), Names{});
    EXPECT_EQ(platform::GetLastError(), uint32{ERROR_PATH_NOT_FOUND});
    EXPECT_EQ(Find(directory.Path(ZUTEXT("none*"))), Names{});
    EXPECT_EQ(platform::GetLastError(), uint32{ERROR_FILE_NOT_FOUND});
    EXPECT_EQ(Find(ZUTEXT("Q:\\*")), Names{});
    EXPECT_EQ(Find(directory.Write(ZUTEXT("file"), "") + ZUTEXT("\\*")), Names{});
}

TEST(DirectorySearch, RelativePatternIsOfTheCurrentDirectory) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("one"), "");
    directory.Write(ZUTEXT("sub\\two"), "");
    const InDirectory inside(directory.Path());
    EXPECT_EQ(Find(ZUTEXT("o*")), Names{ZUTEXT("one")});
    EXPECT_EQ(Find(ZUTEXT("sub\\t*")), Names{ZUTEXT("two")});
    EXPECT_EQ(Find(directory.Path().substr(0, 2) + ZUTEXT("o*")), Names{ZUTEXT("one")});
}

TEST(DirectorySearch, NamesHoldEveryCharacter) {
    const TempDirectory directory;
    const wstring16 name = ZUTEXT("\u00E4\u65E5\U0001F5FA");
    directory.Write(name, "");
    EXPECT_EQ(Find(directory.Path(ZUTEXT("\u00C4*"))), Names{name});
}

TEST(DirectorySearch, HandlesThatAreNoneAreNotClosed) {
    EXPECT_FALSE(platform::FindClose(platform::InvalidFindHandle()));
}

TEST(DirectorySearch, WalkThatCannotStartFails) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("file"), "");
    const FailingFiles faults(1, FailingFiles::Mode::kFromThenOn, EACCES);
    EXPECT_EQ(Find(directory.Path(ZUTEXT("*"))), Names{});
    EXPECT_EQ(platform::GetLastError(), uint32{ERROR_ACCESS_DENIED});
}

}  // namespace
}  // namespace directories_internal_test
