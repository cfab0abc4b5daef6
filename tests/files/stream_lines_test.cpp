// Reading text by lines.

#include <Utility/Utility.h>
#include <files/text_file.h>
#include <gtest/gtest.h>
#include <reference/plain_lines.h>
#include <support/random.h>

#include <cstring>
#include <limits>
#include <string>

namespace stream_lines_test {
namespace {

using namespace Torvo;
using test::NextLine;
using test::PlainGets;
using test::Random;
using test::TempDirectory;
using test::TextFile;

const wstring16 kNull = ZUTEXT("(null)");

class Lines : public testing::Test {
protected:
    wstring16 Write(std::string_view content) { return directory.Write(ZUTEXT("lines.txt"), content); }

    TempDirectory directory;
};

TEST_F(Lines, SizeThatLeavesRoomForOneByteFindsTheEndOfTheTextAnywhere) {
    const TextFile file(Write("a\x1A"
                              "b\n"),
                        omRead);
    EXPECT_EQ(NextLine(file.Handle(), 1).size(), 0u);
    EXPECT_EQ(ftell2(file.Handle()), 1);
    EXPECT_EQ(NextLine(file.Handle(), 1), kNull);
    EXPECT_EQ(ftell2(file.Handle()), 2);
    EXPECT_EQ(NextLine(file.Handle(), 1).size(), 0u);
    EXPECT_EQ(ftell2(file.Handle()), 3);
    EXPECT_EQ(NextLine(file.Handle(), 1).size(), 0u);
    EXPECT_EQ(ftell2(file.Handle()), 4);
    EXPECT_EQ(NextLine(file.Handle(), 1), kNull);
}

TEST_F(Lines, EveryLineEndIsOneLineFeed) {
    const TextFile file(Write("one\ntwo\r\nthree\rfour\n\n\r\n"), omRead);
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("one\n"));
    EXPECT_EQ(ftell2(file.Handle()), 4);
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("two\n"));
    EXPECT_EQ(ftell2(file.Handle()), 9);
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("three\n"));
    EXPECT_EQ(ftell2(file.Handle()), 15);
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("four\n"));
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("\n"));
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("\n"));
    EXPECT_EQ(NextLine(file.Handle()), kNull);
}

TEST_F(Lines, LastLineWithoutALineEndComesWithoutOne) {
    const TextFile file(Write("one\ntwo"), omRead);
    NextLine(file.Handle());
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("two"));
    EXPECT_EQ(ftell2(file.Handle()), 7);
    EXPECT_NE(feof2(file.Handle()), 0);
    EXPECT_EQ(NextLine(file.Handle()), kNull);
}

TEST_F(Lines, EndOfTheFileIsMetOnlyByALineWithoutALineEnd) {
    for (const char* const content : {"abc\n", "abc\r\n", "abc\r"}) {
        const TextFile file(Write(content), omRead);
        EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("abc\n"));
        EXPECT_EQ(feof2(file.Handle()), 0);
        EXPECT_EQ(ftell2(file.Handle()), static_cast<int64>(std::strlen(content)));
        EXPECT_EQ(NextLine(file.Handle()), kNull);
        EXPECT_NE(feof2(file.Handle()), 0);
    }
}

TEST_F(Lines, EmptyFileHasNoLine) {
    const TextFile file(Write(""), omRead);
    EXPECT_EQ(NextLine(file.Handle()), kNull);
    EXPECT_NE(feof2(file.Handle()), 0);
}

TEST_F(Lines, SingleControlZEndsTheText) {
    {
        const TextFile file(Write("\x1A"), omRead);
        EXPECT_EQ(NextLine(file.Handle()), kNull);
    }
    {
        const TextFile file(Write("abc\n\x1A"), omRead);
        EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("abc\n"));
        EXPECT_EQ(NextLine(file.Handle()), kNull);
        EXPECT_EQ(ftell2(file.Handle()), 5);
    }
}

TEST_F(Lines, ControlZAmongOtherBytesIsText) {
    const TextFile file(Write("ab\x1A"
                              "cd\n\x1A\x1A"),
                        omRead);
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("ab\x1A"
                                              "cd\n"));
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("\x1A\x1A"));
}

TEST_F(Lines, ControlZAloneInAPieceOfFortyBytesEndsTheText) {
    {
        const TextFile file(Write(std::string(40, 'a') + "\x1A"), omRead);
        EXPECT_EQ(NextLine(file.Handle()), kNull);
    }
    {
        const TextFile file(Write(std::string(39, 'a') + "\x1A"), omRead);
        EXPECT_EQ(NextLine(file.Handle()), wstring16(39, 'a') + ZUTEXT("\x1A"));
    }
    // Of a line that is read with room for 41 bytes, the second piece has one byte.
    {
        const TextFile file(Write(std::string(40, 'a') + "\x1A"
                                                         "bc\n"),
                            omRead);
        EXPECT_EQ(NextLine(file.Handle(), 21), kNull);
        EXPECT_EQ(NextLine(file.Handle(), 21), ZUTEXT("bc\n"));
    }
}

TEST_F(Lines, LongLineIsReadThroughManyPieces) {
    const std::string text(20'000, 'x');
    const TextFile file(Write(text + "\r\n" + text + "\n" + text), omRead);
    const wstring16 line(text.begin(), text.end());
    EXPECT_EQ(NextLine(file.Handle(), 30'000), line + ZUTEXT("\n"));
    EXPECT_EQ(ftell2(file.Handle()), 20'002);
    EXPECT_EQ(NextLine(file.Handle(), 30'000), line + ZUTEXT("\n"));
    EXPECT_EQ(NextLine(file.Handle(), 30'000), line);
}

TEST_F(Lines, TextThatFillsTheBufferKeepsItsTerminatorInside) {
    // Five units with the line end, and the terminator.
    const TextFile file(Write("abcd\nabcd\nabcd\n"), omRead);
    EXPECT_EQ(NextLine(file.Handle(), 6), ZUTEXT("abcd\n"));
    EXPECT_EQ(NextLine(file.Handle(), 5), ZUTEXT("abcd"));
    EXPECT_EQ(NextLine(file.Handle(), 4), ZUTEXT(""));  // it does not fit at all
}

TEST_F(Lines, TextWithoutRoomIsPassedOver) {
    // Room for 4 units, 7 bytes at a time.
    const TextFile file(Write("abcdefghij\nk\n"), omRead);
    EXPECT_EQ(NextLine(file.Handle(), 4), ZUTEXT(""));
    EXPECT_EQ(ftell2(file.Handle()), 7);
    EXPECT_EQ(NextLine(file.Handle(), 5), ZUTEXT("hij\n"));
    EXPECT_EQ(NextLine(file.Handle(), 4), ZUTEXT("k\n"));
}

TEST_F(Lines, SmallestBufferTakesAByteAtATime) {
    const TextFile file(Write("ab\r\n\x1A"), omRead);
    EXPECT_EQ(NextLine(file.Handle(), 1), ZUTEXT(""));
    EXPECT_EQ(ftell2(file.Handle()), 1);
    EXPECT_EQ(NextLine(file.Handle(), 1), ZUTEXT(""));
    // The CR and the LF, one after the other.
    EXPECT_EQ(NextLine(file.Handle(), 1), ZUTEXT(""));
    EXPECT_EQ(ftell2(file.Handle()), 3);
    EXPECT_EQ(NextLine(file.Handle(), 1), ZUTEXT(""));
    EXPECT_EQ(NextLine(file.Handle(), 1), kNull);
}

TEST_F(Lines, PairThatTheLimitCutsIsTwoLineEnds) {
    // Room for 2 units is room for 3 bytes, the last of which is the CR.
    const TextFile file(Write("ab\r\nc"), omRead);
    NextLine(file.Handle(), 2);
    EXPECT_EQ(ftell2(file.Handle()), 3);
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("\n"));
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("c"));
}

TEST_F(Lines, ByteBehindALoneReturnIsReadNext) {
    const TextFile file(Write(std::string(39, 'a') + "\r\xFF\r\x1A"), omRead);
    EXPECT_EQ(NextLine(file.Handle()), wstring16(39, 'a') + ZUTEXT("\n"));
    EXPECT_EQ(ftell2(file.Handle()), 40);
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("\u00FF\n"));
    EXPECT_EQ(NextLine(file.Handle()), kNull);
}

TEST_F(Lines, TextIsConvertedFromTheFilesCharset) {
    {
        const TextFile file(Write("gr\xFC\xDF\n"), omRead, csWindowsLatin1);
        EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("gr\u00FC\u00DF\n"));
    }
    {
        const TextFile file(Write("gr\xC3\xBC\xC3\x9F\n"), omRead, csUTF8);
        EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("gr\u00FC\u00DF\n"));
    }
    {
        const TextFile file(Write("\x93\xFA\x96{\r\n\x83\\\r"), omRead, csWindowsJapanese);
        EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("\u65E5\u672C\n"));
        EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("\u30BD\n"));
    }
}

TEST_F(Lines, CharsetIsThatOfTheMoment) {
    const TextFile file(Write("\xC4\n\xC4\n"), omRead, csWindowsLatin1);
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("\u00C4\n"));
    file_put_charset(file.Handle(), csWindowsCyrillic);
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("\u0414\n"));
}

TEST_F(Lines, CharsetWithoutACodePageGivesNoText) {
    const TextFile file(Write("abc\ndef\n"), omRead, csMacRoman);
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT(""));
    EXPECT_EQ(ftell2(file.Handle()), 4);
}

TEST_F(Lines, ZeroBytesAreCarriedThrough) {
    const TextFile file(Write(std::string("a\0b\nc\n", 6)), omRead);
    wchar16 line[10];
    ASSERT_NE(fgets2(line, 10, file.Handle()), nullptr);
    EXPECT_EQ(wstring16(line, 5), wstring16(ZUTEXT("a\0b\n\0"), 5));
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("c\n"));
}

TEST_F(Lines, RefusesAnUnusableSizeOrFile) {
    wchar16 line[4] = {'#', '#', '#', '#'};
    {
        const TextFile file(Write("abc\n"), omRead);
        EXPECT_EQ(fgets2(line, 0, file.Handle()), nullptr);
        EXPECT_EQ(fgets2(line, -1, file.Handle()), nullptr);
        EXPECT_EQ(fgets2(nullptr, 4, file.Handle()), nullptr);
        EXPECT_EQ(ftell2(file.Handle()), 0);
    }
    EXPECT_EQ(fgets2(line, 4, nullptr), nullptr);
    EXPECT_EQ(fgets2(line, 4, reinterpret_cast<FILE*>(std::intptr_t{123456})), nullptr);
    FILE* const closed = fregister_file(directory.Path(ZUTEXT("lines.txt")).c_str(), ftNone, true);
    EXPECT_EQ(fgets2(line, 4, closed), nullptr);
    funregister_file(closed);
    EXPECT_EQ(wstring16(line, 4), ZUTEXT("####"));
}

TEST_F(Lines, LargestSizeTakesNoMoreMemoryThanTheLine) {
    const TextFile file(Write(std::string(1000, 'a') + "\n" + std::string(1000, 'b')), omRead);
    wstring16 buffer(2000, wchar16{'#'});
    for (const wchar16 letter : {wchar16{'a'}, wchar16{'b'}}) {
        ASSERT_NE(fgets2(buffer.data(), std::numeric_limits<int>::max(), file.Handle()), nullptr);
        EXPECT_EQ(buffer.substr(0, 1000), wstring16(1000, letter));
    }
}

TEST_F(Lines, ReadingGoesOnWithOtherCalls) {
    const TextFile file(Write("one\r\ntwo\rthree\n"), omRead);
    EXPECT_EQ(fgetc2(file.Handle()), 'o');
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("ne\n"));
    char bytes[2];
    EXPECT_EQ(fread2(bytes, 1, 2, file.Handle()), 2u);
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("o\n"));
    EXPECT_EQ(fseek2(file.Handle(), -4, 1), 0);
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("two\n"));
    EXPECT_EQ(fseek2(file.Handle(), 0, 0), 0);
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("one\n"));
}

TEST_F(Lines, FileCanBeWrittenAtOnceBehindALine) {
    {
        const TextFile file(Write("one\ntwo\nsix\n"), omReadWrite);
        EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("one\n"));
        EXPECT_EQ(fputs2(ZUTEXT("TWO"), file.Handle()), 0);
    }
    EXPECT_EQ(directory.Read(ZUTEXT("lines.txt")), "one\nTWO\nsix\n");
}

TEST_F(Lines, FileThatIsOpenToReadTakesNothingBehindALine) {
    const TextFile file(Write("one\ntwo\n"), omRead);
    NextLine(file.Handle());
    EXPECT_EQ(fputs2(ZUTEXT("XX"), file.Handle()), -1);
    EXPECT_EQ(fputc2('y', file.Handle()), -1);
    EXPECT_EQ(fwrite2("zz", 1, 2, file.Handle()), 0u);
    EXPECT_NE(ferror2(file.Handle()), 0);
    EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("two\n"));
}

TEST_F(Lines, FileCanBeWrittenWhereALineWasRead) {
    {
        const TextFile file(Write("one\ntwo\nsix\n"), omReadWrite);
        NextLine(file.Handle());
        EXPECT_EQ(fseek2(file.Handle(), 0, 1), 0);
        EXPECT_EQ(fputs2(ZUTEXT("TWO"), file.Handle()), 0);
        EXPECT_EQ(fseek2(file.Handle(), 0, 1), 0);
        EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("\n"));
        EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("six\n"));
    }
    EXPECT_EQ(directory.Read(ZUTEXT("lines.txt")), "one\nTWO\nsix\n");
}

// Random text, much of it line ends, Ctrl-Z and lead bytes.
std::string RandomText(Random& random) {
    static const char kBytes[] = {'\n', '\r', '\r', '\x1A', '\xFF', '\x81', '\0', 'a', 'b', '\xE3'};
    std::string text;
    const int64 runs = random.Between(0, 60);
    for (int64 i = 0; i < runs; ++i) {
        if (random.OneIn(3)) text.append(static_cast<std::size_t>(random.Between(0, 90)), 'x');
        text += kBytes[random.Between(0, 9)];
    }
    if (random.OneIn(20)) text.insert(0, 8100, 'y');
    return text;
}

TEST_F(Lines, RandomTextReadsAsByThePlainForm) {
    Random random;
    SCOPED_TRACE(random.About());
    static const ZUCHARSET kCharsets[] = {csWindowsLatin1, csUTF8, csWindowsJapanese, csUTF16, csMacRoman};
    for (int round = 0; round < 200; ++round) {
        const std::string text = RandomText(random);
        const ZUCHARSET charset = kCharsets[random.Between(0, 4)];
        const wstring16 path = Write(text);
        const TextFile clever(path, omRead, charset);
        const TextFile plain(path, omRead, charset);
        for (;;) {
            const int size = static_cast<int>(random.OneIn(2) ? random.Between(1, 60) : random.Between(1, 9000));
            wstring16 ofClever(static_cast<std::size_t>(size), wchar16{'#'});
            wstring16 ofPlain = ofClever;
            const bool read = fgets2(ofClever.data(), size, clever.Handle()) != nullptr;
            ASSERT_EQ(PlainGets(ofPlain.data(), size, plain.Handle()) != nullptr, read) << "size " << size;
            ASSERT_EQ(ftell2(clever.Handle()), ftell2(plain.Handle()));
            ASSERT_EQ(feof2(clever.Handle()) != 0, feof2(plain.Handle()) != 0);
            if (feof2(clever.Handle()) != 0) break;
            if (!read) continue;
            ASSERT_EQ(wstring16(ofClever.c_str()), ofPlain.c_str());
        }
    }
}

}  // namespace
}  // namespace stream_lines_test
