#include <gtest/gtest.h>
#include <support/fresh_files.h>

#include <iterator>

namespace Torvo::test {
namespace app_strings_test {
namespace {

class AppStrings : public testing::Test {
protected:
    AppStrings() : file(fileopen(files.Register(ZUTEXT("x.dat")), omCreate, nullptr)) {
        file_put_charset(file, csWindowsLatin1);
    }
    ~AppStrings() override { close2(file); }

    // The text at the position, or a question mark when there is none to be read.
    wstring16 Next(unsigned int size = 300) const {
        std::vector<wchar16> text(size + 2, wchar16{'#'});
        const bool read = read_app_string(file, text.data(), size);
        EXPECT_EQ(text[size + 1], wchar16{'#'});
        return read ? wstring16(text.data()) : wstring16(ZUTEXT("?"));
    }
    std::string Bytes() const {
        lseek2(file, 0, 0);
        return ReadBytes(file, 100000);
    }

    const FreshFiles files;
    const int file;
};

TEST_F(AppStrings, AreALengthAndTheBytesOfTheText) {
    EXPECT_EQ(write_app_string(file, ZUTEXT("M\u00FCnchen")), 7);
    EXPECT_EQ(write_app_string(file, ZUTEXT("Rio")), 3);
    EXPECT_EQ(Bytes(), "\7M\xFCnchen\3Rio");
    lseek2(file, 0, 0);
    EXPECT_EQ(Next(), ZUTEXT("M\u00FCnchen"));
    EXPECT_EQ(Next(), ZUTEXT("Rio"));
    EXPECT_EQ(Next(), ZUTEXT("?"));
}

TEST_F(AppStrings, AreInTheCharsetOfTheFile) {
    file_put_charset(file, csUTF8);
    EXPECT_EQ(write_app_string(file, ZUTEXT("\u00FC")), 2);
    file_put_charset(file, csWindowsJapanese);
    EXPECT_EQ(write_app_string(file, ZUTEXT("\u6771\u4EAC")), 4);
    EXPECT_EQ(Bytes(), "\2\xC3\xBC\4\x93\x8C\x8B\x9E");
    lseek2(file, 3, 0);
    EXPECT_EQ(Next(), ZUTEXT("\u6771\u4EAC"));
    file_put_charset(file, csUTF16);
    EXPECT_EQ(write_app_string(file, ZUTEXT("ab")), 4);
    lseek2(file, 8, 0);
    EXPECT_EQ(Next(), ZUTEXT("ab"));
}

TEST_F(AppStrings, ATextThatTakesMoreThanTwoBytesAUnitIsRefused) {
    file_put_charset(file, csUTF8);
    EXPECT_EQ(write_app_string(file, ZUTEXT("\u6771\u4EAC")), -1);
    EXPECT_EQ(Bytes(), "");
}

TEST_F(AppStrings, AnEmptyTextIsNotWritten) {
    EXPECT_EQ(write_app_string(file, ZUTEXT("one")), 3);
    EXPECT_EQ(write_app_string(file, ZUTEXT("")), -1);
    EXPECT_EQ(tell2(file), 4);
    EXPECT_EQ(write_app_string(file, ZUTEXT("two")), 3);
    lseek2(file, 4, 0);
    EXPECT_EQ(Next(), ZUTEXT("two"));
}

TEST_F(AppStrings, TheLengthIsToldWithoutMoving) {
    write_app_string(file, ZUTEXT("one"));
    EXPECT_EQ(read_app_string_len(file), 0);
    EXPECT_EQ(tell2(file), 4);
    lseek2(file, 0, 0);
    EXPECT_EQ(read_app_string_len(file), 3);
    EXPECT_EQ(tell2(file), 0);
    EXPECT_EQ(Next(), ZUTEXT("one"));
}

TEST_F(AppStrings, UpTo127BytesCanBeReadBack) {
    const wstring16 longest(127, wchar16{'x'});
    const wstring16 tooLong(128, wchar16{'y'});
    EXPECT_EQ(write_app_string(file, longest.c_str()), 127);
    EXPECT_EQ(write_app_string(file, tooLong.c_str()), 128);
    EXPECT_EQ(filelength2(file), 128 + 129);
    lseek2(file, 0, 0);
    EXPECT_EQ(Next(), longest);
    EXPECT_EQ(read_app_string_len(file), -128);
    EXPECT_EQ(Next(), ZUTEXT("?"));
    EXPECT_EQ(tell2(file), 129);
}

TEST_F(AppStrings, OfMoreThan255BytesTheLowByteIsWritten) {
    const wstring16 text(260, wchar16{'x'});
    EXPECT_EQ(write_app_string(file, text.c_str()), 260);
    lseek2(file, 0, 0);
    EXPECT_EQ(read_app_string_len(file), 4);
    EXPECT_EQ(Next(), ZUTEXT("xxxx"));
}

TEST_F(AppStrings, OneThatIsCutOffIsNotRead) {
    WriteBytes(file, "\5abc");
    lseek2(file, 0, 0);
    EXPECT_EQ(Next(), ZUTEXT("?"));
}

TEST_F(AppStrings, OneOfNoBytesHasNothingToConvert) {
    WriteBytes(file, std::string("\0\3abc", 5));
    lseek2(file, 0, 0);
    EXPECT_EQ(read_app_string_len(file), 0);
    EXPECT_EQ(Next(), ZUTEXT("?"));
    EXPECT_EQ(tell2(file), 1);
    EXPECT_EQ(Next(), ZUTEXT("abc"));
}

TEST_F(AppStrings, TheTerminatorHasAUnitOfItsOwnBehindTheSize) {
    write_app_string(file, ZUTEXT("abcd"));
    lseek2(file, 0, 0);
    EXPECT_EQ(Next(5), ZUTEXT("abcd"));
    lseek2(file, 0, 0);
    EXPECT_EQ(Next(4), ZUTEXT("abcd"));
    lseek2(file, 0, 0);
    wchar16 text[6] = {'#', '#', '#', '#', '#', '#'};
    EXPECT_TRUE(read_app_string(file, text, 4));
    EXPECT_EQ(text[4], 0);
    EXPECT_EQ(text[5], wchar16{'#'});
    lseek2(file, 0, 0);
    EXPECT_EQ(Next(3), ZUTEXT("?"));
    lseek2(file, 0, 0);
    EXPECT_EQ(Next(0), ZUTEXT("?"));
}

TEST_F(AppStrings, OneThatCannotBeReadIsAnEmptyText) {
    write_app_string(file, ZUTEXT("abcd"));
    WriteBytes(file, "\5ab");
    for (const int64 position : {0, 5, 6, 8}) {
        for (const unsigned int size : {1u, 2u, 3u}) {
            wchar16 text[5] = {'#', '#', '#', '#', '#'};
            lseek2(file, position, 0);
            EXPECT_FALSE(read_app_string(file, text, size)) << position << ' ' << size;
            EXPECT_EQ(text[0], 0) << position << ' ' << size;
            EXPECT_EQ(text[size], wchar16{'#'});
        }
    }
}

TEST_F(AppStrings, AnUnknownHandleAndNullAreRefused) {
    wchar16 text[10];
    EXPECT_FALSE(read_app_string(1234, text, 10));
    EXPECT_EQ(read_app_string_len(1234), -1);
    EXPECT_EQ(write_app_string(1234, ZUTEXT("x")), -1);
    EXPECT_EQ(write_app_string(file, nullptr), -1);
    EXPECT_FALSE(read_app_string(file, nullptr, 10));
}

}  // namespace
}  // namespace app_strings_test
}  // namespace Torvo::test
