#include <Utility/platform/posix/native_path.h>
#include <gtest/gtest.h>

#include <string>

namespace native_path_internal_test {
namespace {

using namespace Torvo;
using platform::NativePath;
using platform::ShownPath;

TEST(NativePath, DriveCIsTheRoot) {
    EXPECT_EQ(NativePath(ZUTEXT("C:\\a\\b.txt")), "/a/b.txt");
    EXPECT_EQ(NativePath(ZUTEXT("c:/a/b.txt")), "/a/b.txt");
    EXPECT_EQ(NativePath(ZUTEXT("\\a\\b")), "/a/b");
    EXPECT_EQ(NativePath(ZUTEXT("/a/b")), "/a/b");
    EXPECT_EQ(NativePath(ZUTEXT("C:\\")), "/");
}

TEST(NativePath, OtherPathsAreRelative) {
    EXPECT_EQ(NativePath(ZUTEXT("a\\b")), "a/b");
    EXPECT_EQ(NativePath(ZUTEXT("C:a\\b")), "a/b");
    EXPECT_EQ(NativePath(ZUTEXT("..\\x")), "../x");
    EXPECT_EQ(NativePath(ZUTEXT("")), "");
}

TEST(NativePath, NoOtherDriveAndNoShareExists) {
    EXPECT_EQ(NativePath(ZUTEXT("D:\\a")), std::nullopt);
    EXPECT_EQ(NativePath(ZUTEXT("\\\\server\\share\\a")), std::nullopt);
    EXPECT_EQ(NativePath(ZUTEXT("//server/share")), std::nullopt);
}

TEST(NativePath, NamesAreUtf8OnDisk) {
    EXPECT_EQ(NativePath(ZUTEXT("C:\\\u00E9\u65E5\U0001F600")), "/\xC3\xA9\xE6\x97\xA5\xF0\x9F\x98\x80");
    EXPECT_EQ(ShownPath("/\xC3\xA9\xE6\x97\xA5\xF0\x9F\x98\x80"), ZUTEXT("C:\\\u00E9\u65E5\U0001F600"));
}

TEST(NativePath, EveryNameOnDiskIsShownAndFoundAgain) {
    for (const std::string name : {"a\x80z", "\xFF\xFE", "\xC3", "\xED\xA0\x80", "\xF8\x88\x80\x80\x80", "\xC0\xAF",
                                   "\xE6\x97", "\xF4\x90\x80\x80", "\xF0\x9F\x98"}) {
        EXPECT_EQ(NativePath(ShownPath("/dir/" + name)), "/dir/" + name);
    }
}

TEST(ShownPath, RelativePathsStayRelative) {
    EXPECT_EQ(ShownPath("a/b"), ZUTEXT("a\\b"));
    EXPECT_EQ(ShownPath("/"), ZUTEXT("C:\\"));
}

}  // namespace
}  // namespace native_path_internal_test
