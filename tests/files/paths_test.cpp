#include <Utility/files.h>
#include <Utility/paths.h>
#include <gtest/gtest.h>
#include <support/current_directory.h>
#include <support/guarded_buffer.h>
#include <support/temp_directory.h>

#include <algorithm>

namespace paths_test {
namespace {

using namespace Torvo;
using test::GuardedBuffer;
using test::InDirectory;
using test::TempDirectory;

wstring16 Units(std::size_t count, wchar16 unit = 'x') {
    return wstring16(count, unit);
}

template <typename Call>
wstring16 Changed(const wstring16& text, Call call) {
    GuardedBuffer buffer(std::max<std::size_t>(261, text.size() + 1));
    *std::copy(text.begin(), text.end(), buffer.Start()) = 0;
    call(buffer.Start());
    return buffer.Text();
}

wstring16 Qualified(const wstring16& path) {
    return Changed(path, [](wchar16* text) { qualify_filename(text); });
}
wstring16 Full(const wstring16& path) {
    return Changed(path, [](wchar16* text) { relativepath2fullpath(text); });
}
wstring16 Resolved(const wstring16& name, const wstring16& path) {
    return Changed(name, [&](wchar16* text) { resolve_path_reference(text, path.c_str()); });
}

struct Answer {
    bool result;
    wstring16 path;
    bool operator==(const Answer&) const = default;
};

Answer Relative(const wstring16& base, const wstring16& target) {
    GuardedBuffer out(261);
    const bool result = CalcRelativePath(base.c_str(), target.c_str(), out.Start());
    return {result, out.Text()};
}
Answer FromRelative(const wstring16& base, const wstring16& relative) {
    GuardedBuffer out(261);
    const bool result = FullPathFromRelativePath(base.c_str(), relative.c_str(), out.Start());
    return {result, out.Text()};
}

// A directory, its parent and its drive, while the process is in it.
class Qualify : public testing::Test {
protected:
    wstring16 Parent() const { return here.Path().substr(0, here.Path().rfind('\\')); }
    wstring16 Drive() const { return here.Path().substr(0, 2); }

    const TempDirectory here;
    const InDirectory inside{here.Native()};
};

TEST_F(Qualify, RelativePathIsTakenFromTheCurrentDirectory) {
    EXPECT_EQ(Qualified(ZUTEXT("a")), here.Path() + ZUTEXT("\\a"));
    EXPECT_EQ(Qualified(ZUTEXT("a/b.tab")), here.Path() + ZUTEXT("\\a\\b.tab"));
    EXPECT_EQ(Qualified(ZUTEXT("")), here.Path());
    EXPECT_EQ(Qualified(ZUTEXT(".")), here.Path());
    EXPECT_EQ(Qualified(ZUTEXT(".\\a")), here.Path() + ZUTEXT("\\a"));
    EXPECT_EQ(Qualified(ZUTEXT("..")), Parent());
    EXPECT_EQ(Qualified(ZUTEXT("a\\..\\..\\b")), Parent() + ZUTEXT("\\b"));
}

TEST_F(Qualify, RelativePathInTheRoot) {
    const InDirectory root(std::filesystem::path(here.Native()).root_path());
    EXPECT_EQ(Qualified(ZUTEXT("a")), Drive() + ZUTEXT("\\a"));
    EXPECT_EQ(Qualified(ZUTEXT("..\\a")), Drive() + ZUTEXT("\\a"));
    EXPECT_EQ(Qualified(ZUTEXT("")), Drive());
}

TEST_F(Qualify, DriveWithoutARootIsItsCurrentDirectory) {
    EXPECT_EQ(Qualified(Drive() + ZUTEXT("a")), here.Path() + ZUTEXT("\\a"));
    EXPECT_EQ(Qualified(Drive()), here.Path());
    wstring16 small = Drive();
    small[0] = static_cast<wchar16>(small[0] + ('a' - 'A'));
    EXPECT_EQ(Qualified(small + ZUTEXT("a")), small + here.Path().substr(2) + ZUTEXT("\\a")) << "the letter as given";
}

TEST_F(Qualify, RootedPathIsOnThePresentDrive) {
    EXPECT_EQ(Qualified(ZUTEXT("\\a\\b")), Drive() + ZUTEXT("\\a\\b"));
    EXPECT_EQ(Qualified(ZUTEXT("/a/b")), Drive() + ZUTEXT("\\a\\b"));
    EXPECT_EQ(Qualified(ZUTEXT("\\")), Drive());
    EXPECT_EQ(Qualified(ZUTEXT("\\\\")), Drive() + ZUTEXT("\\")) << "two separators alone are no network path";
}

TEST_F(Qualify, AbsolutePathKeepsItsDrive) {
    EXPECT_EQ(Qualified(ZUTEXT("C:\\a\\b.tab")), ZUTEXT("C:\\a\\b.tab"));
    EXPECT_EQ(Qualified(ZUTEXT("c:/a/b.tab")), ZUTEXT("c:\\a\\b.tab"));
    EXPECT_EQ(Qualified(ZUTEXT("Z:\\a\\")), ZUTEXT("Z:\\a"));
    EXPECT_EQ(Qualified(ZUTEXT("C:\\")), ZUTEXT("C:"));
    EXPECT_EQ(Qualified(ZUTEXT("C:/")), ZUTEXT("C:"));
}

TEST_F(Qualify, DriveThatIsNotThereHasItsRootAsCurrentDirectory) {
    EXPECT_EQ(Qualified(ZUTEXT("Q:a")), ZUTEXT("Q:\\a"));
}

TEST_F(Qualify, WhatIsNoLetterIsNoDrive) {
    EXPECT_EQ(Qualified(ZUTEXT("1:a")), here.Path() + ZUTEXT("\\1:a"));
    EXPECT_EQ(Qualified(ZUTEXT("\u00E9:a")), here.Path() + ZUTEXT("\\\u00E9:a"));
}

TEST_F(Qualify, NetworkPathKeepsItsTwoSeparators) {
    EXPECT_EQ(Qualified(ZUTEXT("\\\\srv\\share\\a\\")), ZUTEXT("\\\\srv\\share\\a"));
    EXPECT_EQ(Qualified(ZUTEXT("//srv/share/a")), ZUTEXT("\\\\srv\\share\\a"));
    EXPECT_EQ(Qualified(ZUTEXT("\\/srv\\share")), ZUTEXT("\\\\srv\\share"));
    EXPECT_EQ(Qualified(ZUTEXT("\\\\srv\\share\\a\\..\\b")), ZUTEXT("\\\\srv\\share\\b"));
    EXPECT_EQ(Qualified(ZUTEXT("\\\\srv\\..\\b")), ZUTEXT("\\\\srv\\b")) << "not over the server";
    EXPECT_EQ(Qualified(ZUTEXT("\\\\srv\\..\\..\\b")), ZUTEXT("\\\\srv\\b"));
    EXPECT_EQ(Qualified(ZUTEXT("\\\\srv\\..")), ZUTEXT("\\\\srv")) << "the separator at the end goes as ever";
}

TEST_F(Qualify, ANetworkPathWithoutANameIsOneSeparator) {
    EXPECT_EQ(Qualified(ZUTEXT("\\\\.")), ZUTEXT("\\"));
    EXPECT_EQ(Qualified(ZUTEXT("//..")), ZUTEXT("\\"));
    EXPECT_EQ(Qualified(ZUTEXT("\\\\.\\")), ZUTEXT("\\"));
    EXPECT_EQ(Qualified(ZUTEXT("\\\\.\\b")), ZUTEXT("\\\\b"));
}

TEST_F(Qualify, DotsAreTakenOut) {
    EXPECT_EQ(Qualified(ZUTEXT("C:\\a\\.\\b\\.")), ZUTEXT("C:\\a\\b"));
    EXPECT_EQ(Qualified(ZUTEXT("C:\\a\\b\\..")), ZUTEXT("C:\\a"));
    EXPECT_EQ(Qualified(ZUTEXT("C:\\a\\b\\..\\..")), ZUTEXT("C:"));
    EXPECT_EQ(Qualified(ZUTEXT("C:\\a\\..\\..\\..\\b")), ZUTEXT("C:\\b")) << "never over the root";
    EXPECT_EQ(Qualified(ZUTEXT("C:/a/../b/./c")), ZUTEXT("C:\\b\\c"));
    EXPECT_EQ(Qualified(ZUTEXT("C:\\..")), ZUTEXT("C:"));
}

TEST_F(Qualify, DotsInNamesStay) {
    EXPECT_EQ(Qualified(ZUTEXT("C:\\...\\..a\\b..\\.c")), ZUTEXT("C:\\...\\..a\\b..\\.c"));
}

TEST_F(Qualify, SeparatorsInARowStay) {
    EXPECT_EQ(Qualified(ZUTEXT("C:\\a\\\\b")), ZUTEXT("C:\\a\\\\b"));
    EXPECT_EQ(Qualified(ZUTEXT("C:\\a\\\\")), ZUTEXT("C:\\a\\")) << "one is cut";
}

TEST_F(Qualify, LongPathIsCut) {
    EXPECT_EQ(Qualified(ZUTEXT("C:\\") + Units(256)), ZUTEXT("C:\\") + Units(256));
    EXPECT_EQ(Qualified(ZUTEXT("C:\\") + Units(257)), ZUTEXT("C:\\") + Units(256)) << "259 units";
    EXPECT_EQ(Qualified(ZUTEXT("C:\\") + Units(255) + ZUTEXT("\\y")), ZUTEXT("C:\\") + Units(255));
    EXPECT_EQ(Qualified(Units(400)).size(), 259u);
    EXPECT_EQ(Qualified(ZUTEXT("C:\\") + Units(254) + ZUTEXT("\\..\\b")), ZUTEXT("C:\\b"));
}

TEST_F(Qualify, TextBeyondAsciiIsKept) {
    EXPECT_EQ(Qualified(ZUTEXT("C:\\\u8868\\\U0001F5FA\\..\\\u00E4")), ZUTEXT("C:\\\u8868\\\u00E4"));
    const wstring16 half{'C', ':', '\\', 0xD800, '\\', 'a'};
    EXPECT_EQ(Qualified(half), half);
}

TEST_F(Qualify, RelativePathBecomesFull) {
    EXPECT_EQ(Full(ZUTEXT("a.tab")), here.Path() + ZUTEXT("\\a.tab"));
    EXPECT_EQ(Full(ZUTEXT("a\\..\\b")), here.Path() + ZUTEXT("\\b"));
    EXPECT_EQ(Full(ZUTEXT("C:\\a\\b\\")), ZUTEXT("C:\\a\\b"));
    EXPECT_EQ(Full(ZUTEXT("C:\\")), ZUTEXT("C:\\")) << "a root keeps its separator";
}

TEST_F(Qualify, ReferenceIsSeenFromTheDirectoryOfAPath) {
    EXPECT_EQ(Resolved(ZUTEXT("b.tab"), ZUTEXT("C:\\x\\y\\a.tab")), ZUTEXT("C:\\x\\y\\b.tab"));
    EXPECT_EQ(Resolved(ZUTEXT("b.tab"), ZUTEXT("C:\\x\\y\\")), ZUTEXT("C:\\x\\y\\b.tab"));
    EXPECT_EQ(Resolved(ZUTEXT("..\\b.tab"), ZUTEXT("C:\\x\\y\\a.tab")), ZUTEXT("C:\\x\\b.tab"));
    EXPECT_EQ(Resolved(ZUTEXT("sub/b.tab"), ZUTEXT("C:/x/a.tab")), ZUTEXT("C:\\x\\sub\\b.tab"));
    EXPECT_EQ(Resolved(ZUTEXT("b.tab"), ZUTEXT("\\\\srv\\share\\a.tab")), ZUTEXT("\\\\srv\\share\\b.tab"));
    EXPECT_EQ(Resolved(ZUTEXT("b.tab"), ZUTEXT("a.tab")), here.Path() + ZUTEXT("\\b.tab"));
    EXPECT_EQ(Resolved(ZUTEXT("b.tab"), ZUTEXT("")), here.Path() + ZUTEXT("\\b.tab"));
}

TEST_F(Qualify, ReferenceIsSeenFromTheColonOfADrive) {
    EXPECT_EQ(Resolved(ZUTEXT("b.tab"), Drive() + ZUTEXT("a.tab")), here.Path(ZUTEXT("b.tab")));
}

TEST_F(Qualify, RootedReferenceIsOnTheDriveOfThePath) {
    EXPECT_EQ(Resolved(ZUTEXT("\\b.tab"), ZUTEXT("D:\\x\\a.tab")), ZUTEXT("D:\\b.tab"));
    EXPECT_EQ(Resolved(ZUTEXT("/b/c"), ZUTEXT("D:\\x\\a.tab")), ZUTEXT("D:\\b\\c"));
    EXPECT_EQ(Resolved(ZUTEXT("\\"), ZUTEXT("D:\\x\\a.tab")), ZUTEXT("D:\\"));
}

TEST_F(Qualify, AbsoluteReferenceStaysAsItIs) {
    EXPECT_EQ(Resolved(ZUTEXT("D:\\y\\..\\b.tab"), ZUTEXT("C:\\x\\a.tab")), ZUTEXT("D:\\y\\..\\b.tab"));
    EXPECT_EQ(Resolved(ZUTEXT("D:b"), ZUTEXT("C:\\x\\a.tab")), ZUTEXT("D:b"));
    EXPECT_EQ(Resolved(ZUTEXT("\\\\srv\\share\\b"), ZUTEXT("C:\\x\\a.tab")), ZUTEXT("\\\\srv\\share\\b"));
    EXPECT_EQ(Resolved(ZUTEXT("y\\b.tab"), ZUTEXT("C:\\x\\a.tab")), ZUTEXT("y\\b.tab")) << "a directory of one unit";
    EXPECT_EQ(Resolved(ZUTEXT("y/b.tab"), ZUTEXT("C:\\x\\a.tab")), ZUTEXT("C:\\x\\y\\b.tab"));
}

TEST_F(Qualify, ReferenceIsSeenFromTheDirectoryOfAFile) {
    const int file = register_file(ZUTEXT("D:\\x\\y\\a.tab"), ftNone, false);
    ASSERT_NE(file, 0);
    const auto resolved = [&](const wstring16& name) {
        return Changed(name, [&](wchar16* text) { resolve_path_reference(text, file); });
    };
    EXPECT_EQ(resolved(ZUTEXT("..\\b.tab")), ZUTEXT("D:\\x\\b.tab"));
    EXPECT_EQ(resolved(ZUTEXT("\\b.tab")), ZUTEXT("D:\\b.tab"));
    EXPECT_EQ(resolved(ZUTEXT("E:\\b.tab")), ZUTEXT("E:\\b.tab"));
    unregister_file(file);
    EXPECT_EQ(resolved(ZUTEXT("b.tab")), here.Path() + ZUTEXT("\\b.tab")) << "no longer registered";
}

TEST(RelativePaths, LeadUpAndDown) {
    EXPECT_EQ(Relative(ZUTEXT("C:\\a\\b"), ZUTEXT("C:\\a\\c\\d.tab")), (Answer{true, ZUTEXT("..\\c\\d.tab")}));
    EXPECT_EQ(Relative(ZUTEXT("C:\\a\\b\\"), ZUTEXT("C:\\a\\b\\d.tab")), (Answer{true, ZUTEXT("d.tab")}));
    EXPECT_EQ(Relative(ZUTEXT("C:\\a\\b\\c"), ZUTEXT("C:\\d.tab")), (Answer{true, ZUTEXT("..\\..\\..\\d.tab")}));
    EXPECT_EQ(Relative(ZUTEXT("C:\\"), ZUTEXT("C:\\d.tab")), (Answer{true, ZUTEXT("d.tab")}));
    EXPECT_EQ(Relative(ZUTEXT("C:\\a\\b"), ZUTEXT("C:\\a\\bc\\d")), (Answer{true, ZUTEXT("..\\bc\\d")}));
}

TEST(RelativePaths, OfADirectoryToItselfGoUpAndDownAgain) {
    EXPECT_EQ(Relative(ZUTEXT("C:\\a\\b"), ZUTEXT("C:\\a\\b")), (Answer{true, ZUTEXT("..\\b")}));
}

TEST(RelativePaths, IgnoreCaseAndTurnSlashes) {
    EXPECT_EQ(Relative(ZUTEXT("c:/A/b"), ZUTEXT("C:\\a\\C/d.tab")), (Answer{true, ZUTEXT("..\\C\\d.tab")}));
}

TEST(RelativePaths, BetweenTwoDrivesThereIsNone) {
    EXPECT_EQ(Relative(ZUTEXT("C:\\a\\b"), ZUTEXT("D:\\a\\b\\c")), (Answer{false, ZUTEXT("D:\\a\\b\\c")}));
    EXPECT_EQ(Relative(ZUTEXT("C:\\a"), ZUTEXT("D:/c")), (Answer{false, ZUTEXT("D:\\c")}));
    EXPECT_EQ(Relative(ZUTEXT("C:\\a"), ZUTEXT("\\\\srv\\share\\c")), (Answer{false, ZUTEXT("\\\\srv\\share\\c")}));
}

TEST(RelativePaths, OnAShare) {
    EXPECT_EQ(Relative(ZUTEXT("\\\\srv\\share\\a"), ZUTEXT("\\\\srv\\share\\c")), (Answer{true, ZUTEXT("..\\c")}));
    EXPECT_EQ(Relative(ZUTEXT("\\\\srv\\share"), ZUTEXT("\\\\srv\\other\\c")), (Answer{true, ZUTEXT("..\\other\\c")}));
    EXPECT_EQ(Relative(ZUTEXT("\\\\srv\\a"), ZUTEXT("\\\\else\\a")), (Answer{false, ZUTEXT("\\\\else\\a")}))
        << "two servers";
}

TEST(RelativePaths, TargetThatIsRelativeAlreadyIsAppended) {
    EXPECT_EQ(Relative(ZUTEXT("C:\\a"), ZUTEXT("b.tab")), (Answer{true, ZUTEXT("C:\\a\\b.tab")}));
    EXPECT_EQ(Relative(ZUTEXT("C:\\a\\"), ZUTEXT("..\\b")), (Answer{true, ZUTEXT("C:\\a\\..\\b")}));
    EXPECT_EQ(Relative(ZUTEXT("C:\\a"), ZUTEXT("b")), (Answer{false, ZUTEXT("b")})) << "one unit is not looked at";
    EXPECT_EQ(Relative(ZUTEXT("C:\\a"), ZUTEXT("")), (Answer{false, ZUTEXT("")}));
}

TEST(RelativePaths, RootWithoutADrive) {
    EXPECT_EQ(Relative(ZUTEXT("\\a\\b"), ZUTEXT("\\a\\c")), (Answer{true, ZUTEXT("..\\c")}));
    EXPECT_EQ(Relative(ZUTEXT("C:\\a"), ZUTEXT("\\a\\c")), (Answer{false, ZUTEXT("\\a\\c")}));
    EXPECT_EQ(Relative(ZUTEXT(""), ZUTEXT("C:\\a")), (Answer{true, ZUTEXT("C:\\a")})) << "nothing begins every path";
}

TEST(RelativePaths, OverlongResultIsCut) {
    const wstring16 base = ZUTEXT("C:\\") + Units(100) + ZUTEXT("\\") + Units(100);
    EXPECT_EQ(Relative(base, Units(200)).path.size(), 260u);
    EXPECT_TRUE(Relative(base, Units(200)).result);
    const wstring16 full = ZUTEXT("C:\\") + Units(257);
    EXPECT_EQ(Relative(full, full + ZUTEXT("\\y")).path.size() <= 260, true);
}

TEST(FullPaths, FollowTheRelativePath) {
    EXPECT_EQ(FromRelative(ZUTEXT("C:\\a\\b"), ZUTEXT("..\\c.tab")), (Answer{true, ZUTEXT("C:\\a\\c.tab")}));
    EXPECT_EQ(FromRelative(ZUTEXT("C:\\a\\b\\"), ZUTEXT("c.tab")), (Answer{true, ZUTEXT("C:\\a\\b\\c.tab")}));
    EXPECT_EQ(FromRelative(ZUTEXT("C:\\a\\b"), ZUTEXT(".\\c.tab")), (Answer{true, ZUTEXT("C:\\a\\b\\c.tab")}));
    EXPECT_EQ(FromRelative(ZUTEXT("C:\\a\\b"), ZUTEXT(".\\..\\.\\..\\c")), (Answer{true, ZUTEXT("C:\\c")}));
    EXPECT_EQ(FromRelative(ZUTEXT("C:/a/b"), ZUTEXT("../c/d")), (Answer{true, ZUTEXT("C:\\a\\c\\d")}));
    EXPECT_EQ(FromRelative(ZUTEXT("C:\\a"), ZUTEXT("c\\..\\d")), (Answer{true, ZUTEXT("C:\\a\\c\\..\\d")}))
        << "only at the start";
    EXPECT_EQ(FromRelative(ZUTEXT("C:\\a"), ZUTEXT("..")), (Answer{true, ZUTEXT("C:\\a\\..")}));
    EXPECT_EQ(FromRelative(ZUTEXT("C:\\a"), ZUTEXT("")), (Answer{true, ZUTEXT("C:\\a\\")}));
}

TEST(FullPaths, TooManyStepsUpGiveNothing) {
    EXPECT_EQ(FromRelative(ZUTEXT("C:\\a"), ZUTEXT("..\\c")), (Answer{true, ZUTEXT("C:\\c")}));
    EXPECT_EQ(FromRelative(ZUTEXT("C:\\a"), ZUTEXT("..\\..\\c")), (Answer{true, ZUTEXT("")}));
    EXPECT_EQ(FromRelative(ZUTEXT(""), ZUTEXT("..\\c")), (Answer{true, ZUTEXT("")}));
}

TEST(FullPaths, WhatIsNotRelativeStays) {
    EXPECT_EQ(FromRelative(ZUTEXT("C:\\a"), ZUTEXT("D:/b")), (Answer{false, ZUTEXT("D:\\b")}));
    EXPECT_EQ(FromRelative(ZUTEXT("C:\\a"), ZUTEXT("//srv/share")), (Answer{false, ZUTEXT("\\\\srv\\share")}));
    EXPECT_EQ(FromRelative(ZUTEXT("C:\\a"), ZUTEXT("\\b")), (Answer{true, ZUTEXT("C:\\a\\\\b")}));
}

TEST(FullPaths, OverlongResultIsCut) {
    EXPECT_EQ(FromRelative(ZUTEXT("C:\\") + Units(200), Units(100)).path.size(), 260u);
    EXPECT_EQ(FromRelative(Units(260), Units(260)).path.size(), 260u);
}

TEST(FullPaths, UndoTheRelativeOnes) {
    const wstring16 places[] = {ZUTEXT("C:\\a\\b"), ZUTEXT("C:\\a\\c\\d"), ZUTEXT("C:\\e"), ZUTEXT("\\\\s\\t\\u\\v")};
    for (const wstring16& base : places) {
        for (const wstring16& place : places) {
            const wstring16 target = place + ZUTEXT("\\f.tab");
            const Answer relative = Relative(base, target);
            EXPECT_EQ(FromRelative(base, relative.path), (Answer{relative.result, target}));
        }
    }
}

TEST(Paths, NullIsACleanFailure) {
    const wstring16 before = ZUTEXT("before");
    const wchar16* const none = nullptr;
    qualify_filename(nullptr);
    relativepath2fullpath(nullptr);
    resolve_path_reference(nullptr, ZUTEXT("C:\\a"));
    resolve_path_reference(nullptr, 0);
    EXPECT_EQ(Changed(before, [&](wchar16* name) { resolve_path_reference(name, none); }), before);
    const auto stays = [&](auto call) {
        EXPECT_EQ(Changed(before, [&](wchar16* out) { EXPECT_FALSE(call(out)); }), before);
    };
    stays([&](wchar16* out) { return CalcRelativePath(none, ZUTEXT("a"), out); });
    stays([&](wchar16* out) { return CalcRelativePath(ZUTEXT("a"), none, out); });
    stays([&](wchar16* out) { return FullPathFromRelativePath(none, ZUTEXT("a"), out); });
    stays([&](wchar16* out) { return FullPathFromRelativePath(ZUTEXT("a"), none, out); });
    EXPECT_FALSE(CalcRelativePath(ZUTEXT("a"), ZUTEXT("a"), nullptr));
    EXPECT_FALSE(FullPathFromRelativePath(ZUTEXT("a"), ZUTEXT("a"), nullptr));
    EXPECT_FALSE(search_for_file(nullptr, ftNone));
    tempname(nullptr, ZUTEXT("C:\\"), ftTab);
    tempname(nullptr, nullptr);
    CreteTempFolderForZxtTile(nullptr);
    const TempDirectory directory;
    const wstring16 here = Qualified(ZUTEXT("."));
    const int file = register_file(directory.Path(ZUTEXT("a.tab")).c_str(), ftNone, false);
    ChangeDirectory(file, nullptr);
    RestoreDirectory(nullptr);
    EXPECT_EQ(Qualified(ZUTEXT(".")), here);
    unregister_file(file);
}

}  // namespace
}  // namespace paths_test
