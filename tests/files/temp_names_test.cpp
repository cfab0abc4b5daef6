#include <Utility/files.h>
#include <Utility/instance.h>
#include <Utility/paths.h>
#include <gtest/gtest.h>
#include <support/guarded_buffer.h>
#include <support/own_file_system.h>
#include <support/temp_directory.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <thread>

namespace temp_names_test {
namespace {

using namespace Torvo;
using test::GuardedPath;
using test::OwnFileSystem;
using test::TempDirectory;

namespace fs = std::filesystem;

wstring16 TempName(const wchar16* directory, FILETYPE type) {
    return GuardedPath([=](wchar16* path) { tempname(path, directory, type); });
}
wstring16 TempName(const wchar16* directory) {
    return GuardedPath([=](wchar16* path) { tempname(path, directory); });
}

bool IsNumber(const wstring16& text) {
    return !text.empty() && text.find_first_not_of(ZUTEXT("0123456789")) == wstring16::npos;
}

// The count in a name `~ZUN<thread>-<count><extension>`; -1 if it is none. The thread's number is checked as far as
// the name says.
int CountIn(const wstring16& name, const wstring16& extension) {
    const std::size_t start = name.rfind('\\') == wstring16::npos ? 0 : name.rfind('\\') + 1;
    if (name.substr(start, 4) != ZUTEXT("~ZUN")) return -1;
    const std::size_t dash = name.find('-', start);
    const std::size_t dot = name.find('.', start);
    if (dash == wstring16::npos || dot == wstring16::npos || name.substr(dot) != extension) return -1;
    const wstring16 thread = name.substr(start + 4, dash - start - 4);
    const wstring16 count = name.substr(dash + 1, dot - dash - 1);
    if (!IsNumber(thread) || !IsNumber(count)) return -1;
    return std::stoi(std::string(count.begin(), count.end()));
}

TEST(TempName, CountsFromZeroPerFileSystem) {
    const TempDirectory directory;
    for (int round = 0; round < 2; ++round) {
        const OwnFileSystem own;
        for (int count = 0; count < 5; ++count) {
            const wstring16 name = TempName(directory.Path().c_str());
            EXPECT_EQ(name.substr(0, directory.Path().size() + 5), directory.Path(ZUTEXT("~ZUN")));
            EXPECT_EQ(CountIn(name, ZUTEXT(".TMP")), count);
        }
    }
    EXPECT_TRUE(fs::is_empty(directory.Native())) << "nothing is created";
}

TEST(TempName, ExtensionIsThatOfTheType) {
    const OwnFileSystem own;
    EXPECT_EQ(CountIn(TempName(ZUTEXT("C:\\"), ftTab), ZUTEXT(".TAB")), 0);
    EXPECT_EQ(CountIn(TempName(ZUTEXT("C:\\"), ftMap), ZUTEXT(".MAP")), 1);
    EXPECT_EQ(CountIn(TempName(ZUTEXT("C:\\"), ftNone), ZUTEXT(".TMP")), 2);
    EXPECT_EQ(CountIn(TempName(ZUTEXT("C:\\"), static_cast<FILETYPE>(37)), ZUTEXT(".TMP")), 3);
    EXPECT_EQ(CountIn(TempName(ZUTEXT("C:\\"), static_cast<FILETYPE>(75)), ZUTEXT(".TMP")), 4);
    EXPECT_EQ(CountIn(TempName(ZUTEXT("C:\\"), static_cast<FILETYPE>(-1)), ZUTEXT(".TMP")), 5);
    EXPECT_EQ(CountIn(TempName(ZUTEXT("C:\\"), ftDot), ZUTEXT(".")), 6);
}

TEST(TempName, SeparatorIsAddedToADirectory) {
    const OwnFileSystem own;
    EXPECT_EQ(TempName(ZUTEXT("C:\\d")).substr(0, 9), ZUTEXT("C:\\d\\~ZUN"));
    EXPECT_EQ(TempName(ZUTEXT("C:\\d\\")).substr(0, 9), ZUTEXT("C:\\d\\~ZUN"));
    EXPECT_EQ(TempName(ZUTEXT("C:/d/")).substr(0, 9), ZUTEXT("C:/d/~ZUN"));
    EXPECT_EQ(TempName(ZUTEXT("")).substr(0, 4), ZUTEXT("~ZUN"));
}

TEST(TempName, WithoutADirectoryItIsInTheOneThatIsKept) {
    const OwnFileSystem own;
    EXPECT_EQ(CountIn(TempName(nullptr), ZUTEXT(".TMP")), 0) << "the current directory, while none is set";
    EXPECT_EQ(TempName(nullptr).substr(0, 4), ZUTEXT("~ZUN"));
    torvo_temp_dir(ZUTEXT("C:\\t\\"));
    EXPECT_EQ(TempName(nullptr).substr(0, 9), ZUTEXT("C:\\t\\~ZUN"));
    torvo_temp_dir(ZUTEXT("C:\\t"));
    EXPECT_EQ(TempName(nullptr).substr(0, 8), ZUTEXT("C:\\t~ZUN")) << "taken as it stands";
}

TEST(TempName, NamesThatExistArePassedOver) {
    const TempDirectory directory;
    wstring16 first;
    {
        const OwnFileSystem own;
        first = TempName(directory.Path().c_str());
        const wstring16 second = TempName(directory.Path().c_str());
        directory.Write(first.substr(directory.Path().size() + 1), "");
        directory.MakeDirectory(second.substr(directory.Path().size() + 1));
    }
    const OwnFileSystem own;
    EXPECT_EQ(CountIn(TempName(directory.Path().c_str()), ZUTEXT(".TMP")), 2);
}

TEST(TempName, ThreadsHaveNamesOfTheirOwn) {
    const OwnFileSystem own;
    const wstring16 mine = TempName(ZUTEXT("C:\\"));
    wstring16 other;
    std::thread([&] {
        {
            const OwnFileSystem another;
            other = TempName(ZUTEXT("C:\\"));
        }
        InstanceData::Destroy(false, false);
    }).join();
    EXPECT_EQ(CountIn(other, ZUTEXT(".TMP")), 0);
    EXPECT_NE(mine, other);
}

TEST(TempName, DirectoryWithoutRoomForANameEndsAtTheLimit) {
    const OwnFileSystem own;
    const wstring16 longDirectory = ZUTEXT("C:\\") + wstring16(250, 'x');
    EXPECT_EQ(TempName(longDirectory.c_str()).substr(0, 254), longDirectory + ZUTEXT("\\"));
    EXPECT_EQ(TempName(longDirectory.c_str()).size(), 260u);
    EXPECT_EQ(TempName(wstring16(300, 'x').c_str()).substr(0, 259), wstring16(259, 'x'));
}

TEST(TempFile, IsRegisteredAndNotOpened) {
    const OwnFileSystem own;
    const TempDirectory directory;
    FILE* const file = tempfile(directory.Path().c_str());
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(fileno2(file), 1000);
    const wstring16 path = GuardedPath([](wchar16* out) { fhandle2path(1000, out); });
    EXPECT_EQ(CountIn(path, ZUTEXT(".TMP")), 0);
    EXPECT_EQ(path.substr(0, directory.Path().size() + 1), directory.Path() + ZUTEXT("\\"));
    EXPECT_EQ(is_file_registered(path.c_str(), ftTab), 1000) << "with no type";
    EXPECT_TRUE(fs::is_empty(directory.Native()));
    FILE* const next = tempfile(directory.Path().c_str());
    EXPECT_EQ(fileno2(next), 1001);
    funregister_file(file);
    funregister_file(next);
}

fs::path Native(const wstring16& path) {
    std::u16string text(path.begin(), path.end());
    std::replace(text.begin(), text.end(), u'\\', u'/');
    // Only where there are no drives does a path begin with the separator behind the drive.
    const fs::path whole(text);
    return whole.has_root_name() ? whole : fs::path(text.substr(2));
}

// The folders that a test has made, removed at its end.
class TileFolders : public testing::Test {
protected:
    ~TileFolders() override {
        std::error_code ignored;
        for (const wstring16& folder : made) fs::remove_all(Native(folder), ignored);
    }
    wstring16 Make() {
        const wstring16 folder = GuardedPath(CreteTempFolderForZxtTile);
        made.insert(folder);
        return folder;
    }

private:
    std::set<wstring16> made;
};

TEST_F(TileFolders, FolderIsMadeAndKept) {
    const OwnFileSystem own;
    const wstring16 folder = Make();
    EXPECT_NE(folder.find(ZUTEXT("\\Zunaverse\\Zunavia.Application.x64.")), wstring16::npos);
    EXPECT_NE(folder.back(), '\\');
    EXPECT_TRUE(fs::is_directory(Native(folder)));
    EXPECT_TRUE(fs::is_empty(Native(folder))) << "the file of the trial is gone";
    EXPECT_EQ(Make(), folder);
    EXPECT_EQ(own->register_file(ZUTEXT("a"), ftNone, true), 1000) << "and no longer registered";
    own->unregister_file(1000);
}

TEST_F(TileFolders, FolderThatHasGoneIsMadeAgain) {
    const OwnFileSystem own;
    const wstring16 folder = Make();
    fs::remove_all(Native(folder));
    EXPECT_EQ(Make(), folder);
    EXPECT_TRUE(fs::is_directory(Native(folder)));
}

TEST_F(TileFolders, EachFileSystemHasItsOwn) {
    wstring16 first;
    {
        const OwnFileSystem own;
        first = Make();
    }
    wstring16 second;
    {
        const OwnFileSystem own;
        second = Make();
    }
    const OwnFileSystem own;
    const wstring16 third = Make();
    EXPECT_EQ(second, first + ZUTEXT(".2"));
    EXPECT_EQ(third, first + ZUTEXT(".3"));
}

TEST_F(TileFolders, NameEndsInTheNumberOfTheProcess) {
    const OwnFileSystem own;
    const wstring16 folder = Make();
    const wstring16 start = ZUTEXT("Zunavia.Application.x64.");
    EXPECT_TRUE(IsNumber(folder.substr(folder.rfind(start) + start.size()))) << "without a second dot";
}

}  // namespace
}  // namespace temp_names_test
