#include <Utility/file_search.h>
#include <gtest/gtest.h>
#include <support/current_directory.h>
#include <support/guarded_buffer.h>
#include <support/temp_directory.h>
#include <support/vtable_slot.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace file_search_test {
namespace {

using namespace Torvo;
using test::GuardedBuffer;
using test::InDirectory;
using test::SlotOf;
using test::TempDirectory;

using Names = std::vector<wstring16>;

constexpr ulong32 ReadOnly = 0x01;
constexpr ulong32 IsDirectory = 0x10;
constexpr ulong32 Archive = 0x20;
constexpr ulong32 Everything = 0xFFFFFFFF;

Names Walk(wstring16 pattern, ulong32 mask) {
    FILEFIND find = {};
    Names names;
    if (FileFindFirst(pattern.data(), mask, &find) == 0) {
        EXPECT_EQ(FileFindClose(&find), 0);
        return names;
    }
    if (find.name[0] != 0) names.emplace_back(find.name);
    while (FileFindNext(&find) != 0) names.emplace_back(find.name);
    EXPECT_NE(FileFindClose(&find), 0);
    return names;
}

TEST(FileFind, PassesWhatHasAnAttributeOfTheMask) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("a.txt"), "");
    directory.Write(ZUTEXT("b.txt"), "");
    directory.MakeDirectory(ZUTEXT("c.txt"));
    directory.Write(ZUTEXT("d.txt"), "");
    directory.SetReadOnly(ZUTEXT("d.txt"), true);
    const wstring16 pattern = directory.Path(ZUTEXT("*.txt"));
    EXPECT_EQ(Walk(pattern, Archive), (Names{ZUTEXT("a.txt"), ZUTEXT("b.txt"), ZUTEXT("d.txt")}));
    EXPECT_EQ(Walk(pattern, IsDirectory), Names{ZUTEXT("c.txt")});
    EXPECT_EQ(Walk(pattern, ReadOnly), Names{ZUTEXT("d.txt")});
    EXPECT_EQ(Walk(pattern, ReadOnly | IsDirectory), (Names{ZUTEXT("c.txt"), ZUTEXT("d.txt")}));
    EXPECT_EQ(Walk(pattern, Everything), (Names{ZUTEXT("a.txt"), ZUTEXT("b.txt"), ZUTEXT("c.txt"), ZUTEXT("d.txt")}));
    EXPECT_EQ(Walk(pattern, 0), Names{});
}

TEST(FileFind, DirectoriesBeginWithTheTwoThatAreAlwaysThere) {
    const TempDirectory directory;
    directory.MakeDirectory(ZUTEXT("sub"));
    directory.Write(ZUTEXT("file"), "");
    EXPECT_EQ(Walk(directory.Path(ZUTEXT("*")), IsDirectory), (Names{ZUTEXT("."), ZUTEXT(".."), ZUTEXT("sub")}));
}

TEST(FileFind, NothingAtAllIsZero) {
    const TempDirectory directory;
    FILEFIND find = {};
    wstring16 pattern = directory.Path(ZUTEXT("none*"));
    EXPECT_EQ(FileFindFirst(pattern.data(), Everything, &find), 0);
    EXPECT_EQ(find.mask, Everything);
    EXPECT_EQ(find.name[0], 0);
    pattern = directory.Path(ZUTEXT("none\\*"));
    EXPECT_EQ(FileFindFirst(pattern.data(), Everything, &find), 0);
    EXPECT_EQ(FileFindClose(&find), 0);
}

TEST(FileFind, FilesAloneUnderTheMaskOfDirectoriesLeaveTheName) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("a.txt"), "");
    directory.Write(ZUTEXT("b.txt"), "");
    FILEFIND find = {};
    find.name[0] = '#';
    wstring16 pattern = directory.Path(ZUTEXT("*.txt"));
    EXPECT_EQ(FileFindFirst(pattern.data(), IsDirectory, &find), 1) << "something was found";
    EXPECT_EQ(wstring16(find.name), ZUTEXT("#"));
    EXPECT_EQ(FileFindNext(&find), 0);
    EXPECT_EQ(wstring16(find.name), ZUTEXT("#"));
    EXPECT_EQ(FileFindNext(&find), 0) << "the end stays the end";
    FileFindClose(&find);
}

TEST(FileFind, FirstThatPassesNeedNotBeTheFirst) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("a"), "");
    directory.Write(ZUTEXT("b"), "12345");
    directory.SetReadOnly(ZUTEXT("b"), true);
    FILEFIND find = {};
    wstring16 pattern = directory.Path(ZUTEXT("*"));
    EXPECT_EQ(FileFindFirst(pattern.data(), ReadOnly, &find), 1);
    EXPECT_EQ(wstring16(find.name), ZUTEXT("b"));
    EXPECT_EQ(wstring16(find.entry.cFileName), ZUTEXT("b"));
    EXPECT_EQ(find.entry.nFileSizeLow, 5u);
    EXPECT_EQ(find.mask, ReadOnly);
    EXPECT_EQ(FileFindNext(&find), 0);
    EXPECT_EQ(wstring16(find.name), ZUTEXT("b")) << "the last that passed";
    FileFindClose(&find);
}

TEST(FileFind, NullPatternStartsNothing) {
    FILEFIND find = {};
    EXPECT_EQ(FileFindFirst(nullptr, Everything, &find), 0);
    EXPECT_EQ(find.mask, Everything);
    EXPECT_EQ(FileFindNext(&find), 0);
    EXPECT_EQ(FileFindClose(&find), 0);
}

TEST(FileFind, WalkThatFailedHasNothingNext) {
    const TempDirectory directory;
    FILEFIND find = {};
    wstring16 pattern = directory.Path(ZUTEXT("none\\*"));
    EXPECT_EQ(FileFindFirst(pattern.data(), Everything, &find), 0);
    EXPECT_EQ(FileFindNext(&find), 0);
    EXPECT_EQ(find.name[0], 0);
    EXPECT_EQ(FileFindClose(&find), 0);
}

TEST(FileFind, WalkThatWasNeverBegunHasNothingNext) {
    FILEFIND find = {};
    EXPECT_EQ(FileFindNext(&find), 0);
    EXPECT_EQ(FileFindClose(&find), 0);
    EXPECT_EQ(FileFindNext(&find), 0);
}

TEST(FileFind, WalkIsClosedOnce) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("a"), "");
    FILEFIND find = {};
    wstring16 pattern = directory.Path(ZUTEXT("*"));
    ASSERT_EQ(FileFindFirst(pattern.data(), Everything, &find), 1);
    EXPECT_NE(FileFindClose(&find), 0);
    EXPECT_EQ(FileFindNext(&find), 0);
    EXPECT_EQ(FileFindClose(&find), 0);
    EXPECT_EQ(FileFindFirst(pattern.data(), Everything, &find), 1) << "the record may be used again";
    EXPECT_NE(FileFindClose(&find), 0);
}

struct Found {
    bool result;
    wstring16 path;
    bool operator==(const Found&) const = default;
};

const Found Nothing{false, ZUTEXT("untouched")};

Found Find(FindFileInfo& search, const wstring16& name, uint64 size = 261) {
    GuardedBuffer out(std::max<uint64>(size, 10));
    const wstring16 before = ZUTEXT("untouched");
    *std::copy(before.begin(), before.end(), out.Start()) = 0;
    const bool result = search.Find(name.c_str(), out.Start(), size);
    return {result, out.Text()};
}

Found FindIn(const wstring16& list, const wstring16& name, uint64 size = 261) {
    const std::unique_ptr<FindFileInfo> search(FindFileInfo::Create(list.c_str(), true));
    return Find(*search, name, size);
}

TEST(FindFile, FileThatExistsIsFoundAtOnce) {
    const TempDirectory directory;
    const wstring16 path = directory.Write(ZUTEXT("a.tab"), "");
    const std::unique_ptr<FindFileInfo> search(FindFileInfo::Create(ZUTEXT("C:\\none"), false));
    ASSERT_NE(search, nullptr);
    EXPECT_EQ(Find(*search, path), (Found{true, path}));
    EXPECT_EQ(FindIn(ZUTEXT(""), path), (Found{true, path}));
    const InDirectory inside(directory.Native());
    EXPECT_EQ(Find(*search, ZUTEXT("a.tab")), (Found{true, ZUTEXT("a.tab")})) << "as it stands";
}

TEST(FindFile, NameThatDoesNotFitIsCut) {
    const TempDirectory directory;
    const wstring16 path = directory.Write(ZUTEXT("a.tab"), "");
    const std::unique_ptr<FindFileInfo> search(FindFileInfo::Create(nullptr, true));
    EXPECT_EQ(Find(*search, path, path.size() + 1), (Found{true, path}));
    EXPECT_EQ(Find(*search, path, path.size()), (Found{true, path.substr(0, path.size() - 1)}));
    EXPECT_EQ(Find(*search, path, 0), (Found{true, Nothing.path}));
}

TEST(FindFile, WithoutSearchPathsNoDirectoryIsWalked) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("a.tab"), "");
    const std::unique_ptr<FindFileInfo> search(FindFileInfo::Create(directory.Path().c_str(), false));
    EXPECT_EQ(Find(*search, ZUTEXT("a.tab")), Nothing);
}

TEST(FindFile, DirectoriesOfTheListAreSearchedInOrder) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("one\\b"), "");
    directory.Write(ZUTEXT("two\\a"), "");
    directory.Write(ZUTEXT("two\\b"), "");
    const wstring16 list = directory.Path(ZUTEXT("none")) + ZUTEXT(";;") + directory.Path(ZUTEXT("one")) + ZUTEXT(";") +
                           directory.Path(ZUTEXT("two\\")) + ZUTEXT(";");
    EXPECT_EQ(FindIn(list, ZUTEXT("a")), (Found{true, directory.Path(ZUTEXT("two\\a"))}));
    EXPECT_EQ(FindIn(list, ZUTEXT("b")), (Found{true, directory.Path(ZUTEXT("one\\b"))}));
    EXPECT_EQ(FindIn(list, ZUTEXT("c")), Nothing);
    EXPECT_EQ(FindIn(ZUTEXT(";;;"), ZUTEXT("a")), Nothing);
}

TEST(FindFile, DirectoryPartOfTheNamePlaysNoPart) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("a"), "");
    EXPECT_EQ(FindIn(directory.Path(), ZUTEXT("C:\\else\\where\\a")), (Found{true, directory.Path(ZUTEXT("a"))}));
    EXPECT_EQ(FindIn(directory.Path(), ZUTEXT("else/a")), (Found{true, directory.Path(ZUTEXT("a"))}));
}

TEST(FindFile, DirectoryItselfComesBeforeItsSubdirectories) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("z"), "");
    directory.Write(ZUTEXT("a\\z"), "");
    directory.Write(ZUTEXT("a\\a\\y"), "");
    directory.Write(ZUTEXT("b\\y"), "");
    directory.Write(ZUTEXT("b\\x"), "");
    directory.Write(ZUTEXT("c\\x"), "");
    EXPECT_EQ(FindIn(directory.Path(), ZUTEXT("z")), (Found{true, directory.Path(ZUTEXT("z"))}));
    EXPECT_EQ(FindIn(directory.Path(), ZUTEXT("y")), (Found{true, directory.Path(ZUTEXT("a\\a\\y"))}))
        << "to the bottom of the first subdirectory";
    EXPECT_EQ(FindIn(directory.Path(), ZUTEXT("x")), (Found{true, directory.Path(ZUTEXT("b\\x"))}));
}

TEST(FindFile, SubdirectoryOfTheFirstComesBeforeTheSecond) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("one\\sub\\sub\\a"), "");
    directory.Write(ZUTEXT("two\\a"), "");
    const wstring16 list = directory.Path(ZUTEXT("one;")) + directory.Path(ZUTEXT("two"));
    EXPECT_EQ(FindIn(list, ZUTEXT("a")), (Found{true, directory.Path(ZUTEXT("one\\sub\\sub\\a"))}));
}

TEST(FindFile, DirectoryOfThatNameIsFoundToo) {
    const TempDirectory directory;
    directory.MakeDirectory(ZUTEXT("sub\\wanted"));
    EXPECT_EQ(FindIn(directory.Path(), ZUTEXT("wanted")), (Found{true, directory.Path(ZUTEXT("sub\\wanted"))}));
}

TEST(FindFile, NoExtensionIsForced) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("a.TAB"), "");
    EXPECT_EQ(FindIn(directory.Path(), ZUTEXT("a")), Nothing);
}

TEST(FindFile, PathThatDoesNotFitLeavesItsDirectory) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("long_name\\a"), "");
    directory.Write(ZUTEXT("long_name\\b\\a"), "");
    directory.Write(ZUTEXT("two\\a"), "");
    const wstring16 list = directory.Path(ZUTEXT("long_name;")) + directory.Path(ZUTEXT("two"));
    const wstring16 first = directory.Path(ZUTEXT("long_name\\a"));
    const wstring16 second = directory.Path(ZUTEXT("two\\a"));
    EXPECT_EQ(FindIn(list, ZUTEXT("a"), first.size() + 2), (Found{true, first}));
    EXPECT_EQ(FindIn(list, ZUTEXT("a"), first.size() + 1), (Found{true, second})) << "two units must be left";
    EXPECT_EQ(FindIn(list, ZUTEXT("a"), second.size() + 2), (Found{true, second}));
    EXPECT_EQ(FindIn(list, ZUTEXT("a"), second.size() + 1), Nothing);
    EXPECT_EQ(FindIn(list, ZUTEXT("a"), 0), Nothing);
}

TEST(FindFile, DirectoryWithoutSubdirectoriesIsNotSearchedForEver) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("file"), "");
    EXPECT_EQ(FindIn(directory.Path(), ZUTEXT("none")), Nothing);
}

TEST(FindFile, ListIsCutAtItsRoom) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("a"), "");
    const wstring16 end = ZUTEXT(";") + directory.Path();
    const wstring16 fits = wstring16(1023 - end.size(), ';') + end;
    EXPECT_EQ(FindIn(fits, ZUTEXT("a")).result, true) << "1023 units and the terminator";
    EXPECT_EQ(FindIn(ZUTEXT(";") + fits, ZUTEXT("a")).result, true) << "1024 units and none";
    EXPECT_EQ(FindIn(ZUTEXT(";;") + fits, ZUTEXT("a")).result, false) << "the last unit is lost";
    EXPECT_EQ(FindIn(wstring16(5000, 'x'), ZUTEXT("a")), Nothing);
}

TEST(FindFile, LongNamesAreNotFound) {
    const TempDirectory directory;
    EXPECT_EQ(FindIn(directory.Path(), wstring16(260, 'x')), Nothing);
    EXPECT_EQ(FindIn(directory.Path(), wstring16(1000, 'x')), Nothing);
    EXPECT_EQ(FindIn(wstring16(260, 'x') + ZUTEXT(";") + wstring16(500, 'y'), ZUTEXT("a")), Nothing);
}

TEST(FindFile, DirectoryOfTheNameMayBeAsLongAsItLikes) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("a"), "");
    EXPECT_EQ(FindIn(directory.Path(), wstring16(300, 'x') + ZUTEXT("\\a")),
              (Found{true, directory.Path(ZUTEXT("a"))}));
    EXPECT_EQ(FindIn(directory.Path(), wstring16(300, 'x') + ZUTEXT("\\b")), Nothing);
}

TEST(FindFile, ListOfTheCallerMayChangeAfterwards) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("a"), "");
    wstring16 list = directory.Path();
    const std::unique_ptr<FindFileInfo> search(FindFileInfo::Create(list.c_str(), true));
    list.assign(list.size(), '#');
    EXPECT_EQ(Find(*search, ZUTEXT("a")), (Found{true, directory.Path(ZUTEXT("a"))}));
    EXPECT_EQ(Find(*search, ZUTEXT("a")), (Found{true, directory.Path(ZUTEXT("a"))})) << "as often as wanted";
}

TEST(FindFile, NullIsACleanFailure) {
    const TempDirectory directory;
    const wstring16 path = directory.Write(ZUTEXT("a"), "");
    const std::unique_ptr<FindFileInfo> search(FindFileInfo::Create(directory.Path().c_str(), true));
    GuardedBuffer out(261);
    EXPECT_FALSE(search->Find(nullptr, out.Start(), 261));
    EXPECT_FALSE(search->Find(path.c_str(), nullptr, 261));
    EXPECT_FALSE(search->Find(ZUTEXT("a"), nullptr, 261));
    EXPECT_FALSE(search->Find(nullptr, nullptr, 0));
}

TEST(FindFile, OperationHasItsSlot) {
    EXPECT_EQ(SlotOf(&FindFileInfo::Find), 2u);
}

}  // namespace
}  // namespace file_search_test
