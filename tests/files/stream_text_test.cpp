// Writing text by lines, and formatted text.

#include <Utility/Utility.h>
#include <files/text_file.h>
#include <gtest/gtest.h>

#include <string>

namespace stream_text_test {
namespace {

using namespace Torvo;
using test::NextLine;
using test::TempDirectory;
using test::TextFile;

class StreamText : public testing::Test {
protected:
    // What a file holds after a text was put into it.
    std::string Put(const wstring16& text, ZUCHARSET charset, int expected = 0) {
        const wstring16 name = ZUTEXT("text.txt");
        {
            const TextFile file(directory.Path(name), omCreate, charset);
            EXPECT_EQ(fputs2(text.c_str(), file.Handle()), expected);
        }
        return directory.Read(name);
    }

    TempDirectory directory;
};

TEST_F(StreamText, LineFeedsBecomeTheLineEndOfTheCharset) {
    EXPECT_EQ(Put(ZUTEXT("one\ntwo\n\nx"), csWindowsLatin1), "one\r\ntwo\r\n\r\nx");
    EXPECT_EQ(Put(ZUTEXT("one\n"), csUTF8), "one\r\n");
    // A set without a code page is written in the system charset.
    EXPECT_EQ(Put(ZUTEXT("one\ntwo"), csMacRoman), "one\rtwo");
    EXPECT_EQ(Put(ZUTEXT("\n"), csWindowsLatin1), "\r\n");
}

TEST_F(StreamText, OtherControlsStayAsTheyAre) {
    EXPECT_EQ(Put(ZUTEXT("a\r\nb\rc\td\x1A"), csWindowsLatin1), "a\r\r\nb\rc\td\x1A");
}

TEST_F(StreamText, EmptyTextWritesNothing) {
    EXPECT_EQ(Put(ZUTEXT(""), csWindowsLatin1), "");
    EXPECT_EQ(Put(ZUTEXT(""), csUTF8), "");
    EXPECT_EQ(Put(ZUTEXT(""), csUTF16), "");
}

TEST_F(StreamText, TextIsWrittenInTheFilesCharset) {
    EXPECT_EQ(Put(ZUTEXT("gr\u00FC\u00DF \u20AC"), csWindowsLatin1), "gr\xFC\xDF \x80");
    EXPECT_EQ(Put(ZUTEXT("\u65E5\u672C\n"), csWindowsJapanese), "\x93\xFA\x96{\r\n");
    EXPECT_EQ(Put(ZUTEXT("\u65E5"), csWindowsLatin1), "_");
    EXPECT_EQ(Put(ZUTEXT("\U0001F30D\u65E5\u00E4"
                         "a"),
                  csUTF8),
              "\xF0\x9F\x8C\x8D\xE6\x97\xA5\xC3\xA4"
              "a");
}

TEST_F(StreamText, UnitsOfUtf16AreWrittenWhole) {
    EXPECT_EQ(Put(ZUTEXT("ab\u0A0A"), csUTF16), std::string("a\0b\0\x0A\x0A", 6));
    EXPECT_EQ(Put(ZUTEXT("a\nb"), csUTF16), std::string("a\0\r\0\n\0b\0", 8));
}

TEST_F(StreamText, LongTextIsWrittenWhole) {
    const wstring16 line(50'000, wchar16{0xE4});
    EXPECT_EQ(Put(line + ZUTEXT("\n") + line, csWindowsLatin1),
              std::string(50'000, '\xE4') + "\r\n" + std::string(50'000, '\xE4'));
    EXPECT_EQ(Put(line, csUTF8).size(), 100'000u);
}

TEST_F(StreamText, NullTextIsRefused) {
    const TextFile file(directory.Path(ZUTEXT("null.txt")), omCreate);
    EXPECT_EQ(fputs2(nullptr, file.Handle()), -1);
    EXPECT_EQ(fprintf2(file.Handle(), nullptr), -1);
}

TEST_F(StreamText, WhatIsWrittenReadsBack) {
    for (const ZUCHARSET charset : {csWindowsLatin1, csISO8859_1, csUTF8, csWindowsTurkish, csCodePage850}) {
        const wstring16 path = directory.Path(ZUTEXT("back.txt"));
        {
            const TextFile file(path, omCreate, charset);
            EXPECT_EQ(fputs2(ZUTEXT("first \u00E4\u00F6\u00FC\n\nlast"), file.Handle()), 0);
        }
        const TextFile file(path, omRead, charset);
        EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("first \u00E4\u00F6\u00FC\n"));
        EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("\n"));
        EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("last"));
    }
}

TEST_F(StreamText, FormattedTextGivesItsLengthInUnits) {
    const wstring16 name = ZUTEXT("formatted.txt");
    {
        const TextFile file(directory.Path(name), omCreate, csUTF8);
        EXPECT_EQ(fprintf2(file.Handle(), ZUTEXT("%d %s\n"), 42, ZUTEXT("\u00E4")), 5);
        EXPECT_EQ(fprintf2(file.Handle(), ZUTEXT("")), 0);
        EXPECT_EQ(fprintf2(file.Handle(), ZUTEXT("%ld|%5.1f|%c"), 7, 2.5, 'x'), 9);
    }
    EXPECT_EQ(directory.Read(name), "42 \xC3\xA4\r\n7|  2.5|x");
}

TEST_F(StreamText, FormattedTextHasNoLimit) {
    const wstring16 name = ZUTEXT("long.txt");
    {
        const TextFile file(directory.Path(name), omCreate);
        EXPECT_EQ(fprintf2(file.Handle(), ZUTEXT("%100000d"), 1), 100'000);
    }
    EXPECT_EQ(directory.Read(name), std::string(99'999, ' ') + "1");
}

TEST_F(StreamText, RefusedFormatWritesNothing) {
    const wstring16 name = ZUTEXT("refused.txt");
    {
        const TextFile file(directory.Path(name), omCreate);
        int count = 0;
        EXPECT_EQ(fprintf2(file.Handle(), ZUTEXT("abc%n"), &count), -1);
    }
    EXPECT_EQ(directory.Read(name), "");
}

int PutFormatted(FILE* file, const wchar16* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = vfprintf2(file, format, arguments);
    va_end(arguments);
    return length;
}

TEST_F(StreamText, FormattedTextTakesAList) {
    const wstring16 name = ZUTEXT("list.txt");
    {
        const TextFile file(directory.Path(name), omCreate);
        EXPECT_EQ(PutFormatted(file.Handle(), ZUTEXT("%s=%d"), ZUTEXT("a"), 1), 3);
    }
    EXPECT_EQ(directory.Read(name), "a=1");
}

}  // namespace
}  // namespace stream_text_test
