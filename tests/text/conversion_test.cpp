#include <Utility/conversion.h>
#include <Utility/instance.h>
#include <gtest/gtest.h>
#include <support/system_charset.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace conversion_test {
namespace {

using namespace Torvo;
using test::SystemCharset;

constexpr wchar16 guard = 0x7777;

// Room for system text with guards behind it.
struct Units {
    wchar16 data[64];
    Units() { std::fill(std::begin(data), std::end(data), guard); }
    operator wchar16*() { return data; }
    wstring16 first(std::size_t count) const { return {data, data + count}; }
    bool untouchedFrom(std::size_t begin) const {
        return std::all_of(data + begin, std::end(data), [](wchar16 unit) { return unit == guard; });
    }
};

// The same for bytes.
struct Bytes {
    char data[64];
    Bytes() { std::fill(std::begin(data), std::end(data), '\x55'); }
    operator char*() { return data; }
    std::string first(std::size_t count) const { return {data, data + count}; }
    bool untouchedFrom(std::size_t begin) const {
        return std::all_of(data + begin, std::end(data), [](char byte) { return byte == '\x55'; });
    }
};

wstring16 Text(std::initializer_list<int> units) {
    wstring16 text;
    for (const int unit : units) text += static_cast<wchar16>(unit);
    return text;
}

TEST(BytesToSystem, ConvertsByTheCodePage) {
    Units out;
    ASSERT_TRUE(ConvertMBCSCharToSystem("\xC4\xE9", 2, csWindowsCyrillic, out, 10));
    EXPECT_EQ(out.first(3), Text({0x0414, 0x0439, 0}));
    EXPECT_TRUE(out.untouchedFrom(3));
    ASSERT_TRUE(
        ConvertMBCSCharToSystem("\x82\xA0"
                                "a",
                                3, csWindowsJapanese, out, 10));
    EXPECT_EQ(out.first(3), Text({0x3042, 'a', 0}));
    ASSERT_TRUE(
        ConvertMBCSCharToSystem("\xE3\x81\x82"
                                "a",
                                4, csUTF8, out, 10));
    EXPECT_EQ(out.first(3), Text({0x3042, 'a', 0}));
}

TEST(BytesToSystem, WithoutALengthReadsToTheZeroByte) {
    Units out;
    ASSERT_TRUE(ConvertMBCSCharToSystem("abc", csWindowsLatin1, out, 10));
    EXPECT_EQ(out.first(4), Text({'a', 'b', 'c', 0}));
    EXPECT_FALSE(ConvertMBCSCharToSystem("", csWindowsLatin1, out, 10));
    EXPECT_FALSE(ConvertMBCSCharToSystem(nullptr, csWindowsLatin1, out, 10));
    // In UTF-16 too, where the first zero byte is often half a unit.
    Units wide;
    EXPECT_TRUE(ConvertMBCSCharToSystem("\x41\x30\x42\x30\0", csUTF16, wide, 10));
    EXPECT_EQ(wide.first(3), Text({0x3041, 0x3042, 0}));
}

TEST(BytesToSystem, ATextThatFillsTheRoomEndsBehindIt) {
    Units out;
    ASSERT_TRUE(ConvertMBCSCharToSystem("abc", 3, csWindowsLatin1, out, 3));
    EXPECT_EQ(out.first(4), Text({'a', 'b', 'c', 0}));
    EXPECT_TRUE(out.untouchedFrom(4));
}

TEST(BytesToSystem, ATextThatDoesNotFitIsRefusedWithAnEmptyResult) {
    Units out;
    EXPECT_FALSE(ConvertMBCSCharToSystem("abc", 3, csWindowsLatin1, out, 2));
    EXPECT_EQ(out.data[0], 0);
    EXPECT_TRUE(out.untouchedFrom(2));
}

TEST(BytesToSystem, NothingIsWrittenWithoutSourceOrRoom) {
    Units out;
    EXPECT_FALSE(ConvertMBCSCharToSystem(nullptr, 3, csWindowsLatin1, out, 10));
    EXPECT_FALSE(ConvertMBCSCharToSystem("abc", 0, csWindowsLatin1, out, 10));
    EXPECT_FALSE(ConvertMBCSCharToSystem("abc", 3, csWindowsLatin1, out, 0));
    EXPECT_FALSE(ConvertMBCSCharToSystem("abc", 3, csWindowsLatin1, nullptr, 10));
    EXPECT_FALSE(ConvertMBCSCharToSystem("ab", 0, csUTF16, out, 10));
    EXPECT_FALSE(ConvertMBCSCharToSystem("ab", 2, csUTF16, out, 0));
    EXPECT_TRUE(out.untouchedFrom(0));
}

TEST(BytesToSystem, SetsWithoutACodePageGiveAnEmptyText) {
    for (const int number : {21, 45, 46, 49, 53, 59, -1}) {
        Units out;
        EXPECT_FALSE(ConvertMBCSCharToSystem("abc", 3, static_cast<ZUCHARSET>(number), out, 10)) << number;
        EXPECT_EQ(out.data[0], 0);
        EXPECT_TRUE(out.untouchedFrom(1));
    }
}

TEST(BytesToSystem, ALengthBeyondThePlatformsIsRefused) {
    Units out;
    EXPECT_FALSE(ConvertMBCSCharToSystem("abc", uint64{1} << 32, csWindowsLatin1, out, 10));
    EXPECT_EQ(out.data[0], 0);
}

TEST(BytesToSystem, AnImmenseRoomIsNoObstacle) {
    Units out;
    EXPECT_TRUE(ConvertMBCSCharToSystem("abc", 3, csWindowsLatin1, out, uint64{1} << 33));
    EXPECT_EQ(out.first(4), Text({'a', 'b', 'c', 0}));
}

TEST(BytesToSystem, ZeroBytesInsideAreKept) {
    Units out;
    ASSERT_TRUE(ConvertMBCSCharToSystem("a\0b", 3, csWindowsLatin1, out, 10));
    EXPECT_EQ(out.first(4), Text({'a', 0, 'b', 0}));
}

TEST(BytesToSystem, InvalidUtf8BecomesTheReplacementCharacter) {
    Units out;
    ASSERT_TRUE(
        ConvertMBCSCharToSystem("a\xFF"
                                "b",
                                3, csUTF8, out, 10));
    EXPECT_EQ(out.first(4), Text({'a', 0xFFFD, 'b', 0}));
}

// Its result compares units with bytes.
TEST(BytesToSystem, Utf16IsCopiedAndWantsAsManyUnitsAsBytes) {
    const char source[] = {'a', 0, 'b', 0};
    Units tight;
    EXPECT_FALSE(ConvertMBCSCharToSystem(source, 4, csUTF16, tight, 2));
    EXPECT_EQ(tight.first(3), Text({'a', 'b', 0}));
    EXPECT_TRUE(tight.untouchedFrom(3));

    Units almost;
    EXPECT_FALSE(ConvertMBCSCharToSystem(source, 4, csUTF16, almost, 3));
    EXPECT_EQ(almost.first(3), Text({'a', 'b', 0}));

    Units roomy;
    EXPECT_TRUE(ConvertMBCSCharToSystem(source, 4, csUTF16, roomy, 4));
    EXPECT_EQ(roomy.first(3), Text({'a', 'b', 0}));
    EXPECT_TRUE(roomy.untouchedFrom(3));

    Units cut;
    EXPECT_FALSE(ConvertMBCSCharToSystem(source, 4, csUTF16, cut, 1));
    EXPECT_EQ(cut.first(2), Text({'a', 0}));
    EXPECT_TRUE(cut.untouchedFrom(2));
}

TEST(BytesToSystem, Utf16StopsAtAZeroUnitAndFillsWithZeros) {
    const char source[] = {'a', 0, 0, 0, 'b', 0};
    Units out;
    EXPECT_TRUE(ConvertMBCSCharToSystem(source, 6, csUTF16, out, 6));
    EXPECT_EQ(out.first(4), Text({'a', 0, 0, 0}));
    EXPECT_TRUE(out.untouchedFrom(4));
}

// Whatever length is named, nothing behind the zero unit is read: the block ends there.
TEST(BytesToSystem, Utf16ReadsNothingBehindTheZeroUnit) {
    const std::unique_ptr<char[]> source(new char[4]{'a', 0, 0, 0});
    Units out;
    EXPECT_TRUE(ConvertMBCSCharToSystem(source.get(), 40, csUTF16, out, 40));
    EXPECT_EQ(out.first(21), Text({'a'}) + wstring16(20, 0));
    EXPECT_TRUE(out.untouchedFrom(21));
}

TEST(BytesToSystem, Utf16DropsAnOddByteAndReadsOddAddresses) {
    const char source[] = {'x', 'a', 0, 'b', 0, 'c'};
    Units out;
    EXPECT_TRUE(ConvertMBCSCharToSystem(source + 1, 5, csUTF16, out, 5));
    EXPECT_EQ(out.first(3), Text({'a', 'b', 0}));
    Units lone;
    EXPECT_TRUE(ConvertMBCSCharToSystem(source, 1, csUTF16, lone, 1));
    EXPECT_EQ(lone.data[0], 0);
    EXPECT_TRUE(lone.untouchedFrom(1));
}

TEST(SystemToBytes, ConvertsWithATerminator) {
    Bytes out;
    ASSERT_TRUE(ConvertSystemToMBCSChar(Text({0x0414, 0x0439}).c_str(), out, csWindowsCyrillic, 10, false));
    EXPECT_EQ(out.first(3), std::string("\xC4\xE9\0", 3));
    EXPECT_TRUE(out.untouchedFrom(3));
    ASSERT_TRUE(ConvertSystemToMBCSChar(Text({0x3042, 'a'}).c_str(), out, csWindowsJapanese, 10, false));
    EXPECT_EQ(out.first(4), std::string("\x82\xA0"
                                        "a\0",
                                        4));
    ASSERT_TRUE(ConvertSystemToMBCSChar(Text({0x3042, 'a'}).c_str(), out, csUTF8, 10, false));
    EXPECT_EQ(out.first(5), std::string("\xE3\x81\x82"
                                        "a\0",
                                        5));
}

TEST(SystemToBytes, ATextThatFillsTheRoomFits) {
    Bytes out;
    EXPECT_TRUE(ConvertSystemToMBCSChar(ZUTEXT("abc"), out, csWindowsLatin1, 4, false));
    EXPECT_EQ(out.first(4), std::string("abc\0", 4));
    EXPECT_TRUE(out.untouchedFrom(4));
    Bytes tight;
    EXPECT_FALSE(ConvertSystemToMBCSChar(ZUTEXT("abc"), tight, csWindowsLatin1, 3, false));
    EXPECT_TRUE(tight.untouchedFrom(3));
}

TEST(SystemToBytes, AnEmptyTextIsItsTerminator) {
    Bytes out;
    EXPECT_TRUE(ConvertSystemToMBCSChar(ZUTEXT(""), out, csWindowsLatin1, 1, false));
    EXPECT_EQ(out.data[0], 0);
    EXPECT_TRUE(out.untouchedFrom(1));
}

TEST(SystemToBytes, TruncationIsAcceptedOnRequest) {
    for (const ZUCHARSET cs : {csWindowsLatin1, csUTF8, csMacRoman}) {
        Bytes out;
        EXPECT_TRUE(ConvertSystemToMBCSChar(ZUTEXT("abcdef"), out, cs, 3, true)) << cs;
        EXPECT_EQ(out.first(3), "abc") << cs;
        EXPECT_TRUE(out.untouchedFrom(3)) << cs;
        Bytes exact;  // only the terminator does not fit
        EXPECT_TRUE(ConvertSystemToMBCSChar(ZUTEXT("abc"), exact, cs, 3, true)) << cs;
        EXPECT_EQ(exact.first(3), "abc") << cs;
    }
}

TEST(SystemToBytes, WhatTheSetDoesNotHoldBecomesUnknown) {
    Bytes out;
    ASSERT_TRUE(ConvertSystemToMBCSChar(Text({'a', 0x3042, 0x0414}).c_str(), out, csWindowsLatin1, 10, false));
    EXPECT_EQ(out.first(4), std::string("a__\0", 4));
    ASSERT_TRUE(ConvertSystemToMBCSChar(Text({'a', 0x0E01}).c_str(), out, csWindowsJapanese, 10, false));
    EXPECT_EQ(out.first(3), std::string("a_\0", 3));
}

TEST(SystemToBytes, TheNearestCharacterStandsInWhereThePageNamesOne) {
    Bytes out;
    ASSERT_TRUE(ConvertSystemToMBCSChar(Text({0x0141, 0x2019, 0x0414}).c_str(), out, csISO8859_1, 10, false));
    EXPECT_EQ(out.first(4), std::string("L'_\0", 4));
}

TEST(SystemToBytes, ALetterAndItsMarkBecomeTheComposedLetter) {
    const wstring16 text = Text({'e', 0x0301, 'x'});
    Bytes out;
    ASSERT_TRUE(ConvertSystemToMBCSChar(text.c_str(), out, csWindowsLatin1, 10, false));
    EXPECT_EQ(out.first(3), std::string("\xE9x\0", 3));
    EXPECT_TRUE(out.untouchedFrom(3));
    ASSERT_TRUE(ConvertSystemToMBCSChar(text.c_str(), out, csUTF8, 10, false));
    EXPECT_EQ(out.first(5), std::string("e\xCC\x81x\0", 5));
}

// A page writes a letter and a mark apart where it does not hold the composed letter; the system charset that stands in
// for a page writes one unknown code.
TEST(SystemToBytes, AComposedLetterThatIsNotHeldIsOneUnknownInTheSystemCharset) {
    const SystemCharset cyrillic(csWindowsCyrillic);
    const wstring16 text = Text({0x0435, 0x0300});
    Bytes own;
    ASSERT_TRUE(ConvertSystemToMBCSChar(text.c_str(), own, csWindowsCyrillic, 10, false));
    EXPECT_EQ(own.first(3), std::string("\xE5\x5F\0", 3));
    EXPECT_TRUE(own.untouchedFrom(3));
    Bytes standIn;
    ASSERT_TRUE(ConvertSystemToMBCSChar(text.c_str(), standIn, csMacRoman, 10, false));
    EXPECT_EQ(standIn.first(2), std::string("\x5F\0", 2));
    EXPECT_TRUE(standIn.untouchedFrom(2));
}

// The same letter and mark, which need a byte less in the second attempt.
TEST(SystemToBytes, SymbolicPagesTryTheSystemCharsetWhenATextDoesNotFit) {
    const SystemCharset latin(csWindowsLatin1);
    const wstring16 text = Text({0x0435, 0x0300});
    for (const ZUCHARSET cs : {csNeutral, csCodePage437}) {
        Bytes out;
        EXPECT_TRUE(ConvertSystemToMBCSChar(text.c_str(), out, cs, 2, false)) << cs;
        EXPECT_EQ(out.first(2), std::string("_\0", 2)) << cs;
        EXPECT_TRUE(out.untouchedFrom(2)) << cs;
        Bytes tight;
        EXPECT_FALSE(ConvertSystemToMBCSChar(text.c_str(), tight, cs, 1, false)) << cs;
        Bytes truncated;  // the first attempt stands
        EXPECT_TRUE(ConvertSystemToMBCSChar(text.c_str(), truncated, cs, 2, true)) << cs;
        EXPECT_NE(truncated.data[1], 0) << cs;
    }
    Bytes named;
    EXPECT_FALSE(ConvertSystemToMBCSChar(text.c_str(), named, csWindowsLatin1, 2, false));
}

TEST(SystemToBytes, Utf8SubstitutesNothing) {
    Bytes out;
    ASSERT_TRUE(ConvertSystemToMBCSChar(Text({0xD83D, 0xDE00}).c_str(), out, csUTF8, 10, false));
    EXPECT_EQ(out.first(5), std::string("\xF0\x9F\x98\x80\0", 5));
    ASSERT_TRUE(ConvertSystemToMBCSChar(Text({0xD800, 'a'}).c_str(), out, csUTF8, 10, false));
    EXPECT_EQ(out.first(5), std::string("\xEF\xBF\xBD"
                                        "a\0",
                                        5));
}

TEST(SystemToBytes, NothingIsWrittenWithoutSourceOrRoom) {
    Bytes out;
    EXPECT_FALSE(ConvertSystemToMBCSChar(nullptr, out, csWindowsLatin1, 10, true));
    EXPECT_FALSE(ConvertSystemToMBCSChar(ZUTEXT("a"), nullptr, csWindowsLatin1, 10, true));
    EXPECT_FALSE(ConvertSystemToMBCSChar(ZUTEXT("a"), out, csWindowsLatin1, 0, true));
    EXPECT_FALSE(ConvertSystemToMBCSChar(ZUTEXT("a"), out, csUTF16, 0, true));
    EXPECT_TRUE(out.untouchedFrom(0));
}

TEST(SystemToBytes, SetsWithoutACodePageWriteTheSystemCharset) {
    const SystemCharset cyrillic(csWindowsCyrillic);
    for (const int number : {21, 45, 46, 50, 59, -1}) {
        Bytes out;
        ASSERT_TRUE(ConvertSystemToMBCSChar(Text({0x0414, 'a', 0x3042}).c_str(), out, static_cast<ZUCHARSET>(number),
                                            10, false))
            << number;
        EXPECT_EQ(out.first(4), std::string("\xC4"
                                            "a_\0",
                                            4))
            << number;
        Bytes tight;
        EXPECT_FALSE(ConvertSystemToMBCSChar(ZUTEXT("abc"), tight, static_cast<ZUCHARSET>(number), 3, false));
    }
}

TEST(SystemToBytes, NeutralFollowsTheMachine) {
    Bytes out;
    ASSERT_TRUE(ConvertSystemToMBCSChar(ZUTEXT("abc"), out, csNeutral, 10, false));
    EXPECT_EQ(out.first(4), std::string("abc\0", 4));
    EXPECT_FALSE(ConvertSystemToMBCSChar(ZUTEXT("abc"), out, csNeutral, 3, false));
    Units back;
    ASSERT_TRUE(ConvertMBCSCharToSystem("abc", 3, csNeutral, back, 10));
    EXPECT_EQ(back.first(4), Text({'a', 'b', 'c', 0}));
}

TEST(SystemToBytes, Utf16IsCopied) {
    const std::string ab("a\0b\0", 4);
    for (const bool allowTruncate : {false, true}) {
        Bytes tight;
        EXPECT_FALSE(ConvertSystemToMBCSChar(ZUTEXT("ab"), tight, csUTF16, 3, allowTruncate));
        EXPECT_EQ(tight.first(3), ab.substr(0, 3));
        EXPECT_TRUE(tight.untouchedFrom(3));
        for (const uint64 size : {4, 5, 6}) {  // too small for a terminator with room to spare
            Bytes exact;
            EXPECT_TRUE(ConvertSystemToMBCSChar(ZUTEXT("ab"), exact, csUTF16, size, allowTruncate));
            EXPECT_EQ(exact.first(4), ab);
            EXPECT_TRUE(exact.untouchedFrom(4)) << size;
        }
    }
    Bytes roomy;
    EXPECT_TRUE(ConvertSystemToMBCSChar(ZUTEXT("ab"), roomy, csUTF16, 7, false));
    EXPECT_EQ(roomy.first(6), ab + std::string(2, '\0'));
    EXPECT_TRUE(roomy.untouchedFrom(6));
    Bytes noTerminator;
    EXPECT_TRUE(ConvertSystemToMBCSChar(ZUTEXT("ab"), noTerminator, csUTF16, 20, true));
    EXPECT_TRUE(noTerminator.untouchedFrom(4));
}

TEST(SystemToBytes, AnEmptyTextInUtf16WritesNothing) {
    Bytes out;
    EXPECT_TRUE(ConvertSystemToMBCSChar(ZUTEXT(""), out, csUTF16, 20, false));
    EXPECT_TRUE(out.untouchedFrom(0));
}

TEST(SystemToBytes, Utf16WritesOddAddresses) {
    Bytes out;
    EXPECT_TRUE(ConvertSystemToMBCSChar(ZUTEXT("ab"), out.data + 1, csUTF16, 7, false));
    EXPECT_EQ(std::string(out.data + 1, 6), std::string("a\0b\0\0\0", 6));
}

TEST(SystemToWide, FitsWithItsTerminatorAndClearsTheRest) {
    Units out;
    EXPECT_TRUE(ConvertSystemToWideChar(ZUTEXT("abc"), out, 6, false));
    EXPECT_EQ(out.first(6), Text({'a', 'b', 'c', 0, 0, 0}));
    EXPECT_TRUE(out.untouchedFrom(6));
    Units exact;
    EXPECT_TRUE(ConvertSystemToWideChar(ZUTEXT("abc"), exact, 4, false));
    EXPECT_EQ(exact.first(4), Text({'a', 'b', 'c', 0}));
}

TEST(SystemToWide, WithoutRoomForTheTerminatorTrueOnlyOnRequest) {
    for (const bool allowTruncate : {false, true}) {
        Units out;
        EXPECT_EQ(ConvertSystemToWideChar(ZUTEXT("abc"), out, 3, allowTruncate), allowTruncate);
        EXPECT_EQ(out.first(3), Text({'a', 'b', 'c'}));
        EXPECT_TRUE(out.untouchedFrom(3));
        Units tight;
        EXPECT_FALSE(ConvertSystemToWideChar(ZUTEXT("abc"), tight, 2, allowTruncate));
        EXPECT_EQ(tight.first(2), Text({'a', 'b'}));
        EXPECT_TRUE(tight.untouchedFrom(2));
    }
}

TEST(SystemToWide, NoRoomAtAll) {
    Units out;
    EXPECT_FALSE(ConvertSystemToWideChar(ZUTEXT("a"), out, 0, true));
    EXPECT_TRUE(ConvertSystemToWideChar(ZUTEXT(""), out, 0, true));
    EXPECT_FALSE(ConvertSystemToWideChar(ZUTEXT(""), out, 0, false));
    EXPECT_TRUE(out.untouchedFrom(0));
    EXPECT_FALSE(ConvertSystemToWideChar(nullptr, out, 5, true));
    EXPECT_FALSE(ConvertSystemToWideChar(ZUTEXT("a"), nullptr, 5, true));
}

TEST(WideToSystem, FitsWhenItsLengthIsLessThanTheRoom) {
    Units out;
    EXPECT_TRUE(ConvertWideCharToSystem(ZUTEXT("abc"), 3, out, csWindowsJapanese, 5));
    EXPECT_EQ(out.first(5), Text({'a', 'b', 'c', 0, 0}));
    EXPECT_TRUE(out.untouchedFrom(5));
}

TEST(WideToSystem, OtherwiseTheRoomIsFilledWithoutATerminator) {
    Units out;
    EXPECT_FALSE(ConvertWideCharToSystem(ZUTEXT("abc"), 3, out, csNeutral, 3));
    EXPECT_EQ(out.first(3), Text({'a', 'b', 'c'}));
    EXPECT_TRUE(out.untouchedFrom(3));
    Units tight;
    EXPECT_FALSE(ConvertWideCharToSystem(ZUTEXT("abc"), 3, tight, static_cast<ZUCHARSET>(99), 2));
    EXPECT_EQ(tight.first(2), Text({'a', 'b'}));
    EXPECT_TRUE(tight.untouchedFrom(2));
    Units none;
    EXPECT_FALSE(ConvertWideCharToSystem(ZUTEXT("abc"), 0, none, csNeutral, 0));
    EXPECT_TRUE(none.untouchedFrom(0));
}

// The length only decides; the copy runs to the text's own end.
TEST(WideToSystem, TheTextsOwnTerminatorEndsTheCopy) {
    Units out;
    EXPECT_FALSE(ConvertWideCharToSystem(ZUTEXT("ab"), 9, out, csNeutral, 5));
    EXPECT_EQ(out.first(5), Text({'a', 'b', 0, 0, 0}));
    Units longer;
    EXPECT_TRUE(ConvertWideCharToSystem(ZUTEXT("abcdef"), 2, longer, csNeutral, 5));
    EXPECT_EQ(longer.first(5), Text({'a', 'b', 'c', 'd', 0}));
    EXPECT_FALSE(ConvertWideCharToSystem(nullptr, 2, longer, csNeutral, 5));
    EXPECT_FALSE(ConvertWideCharToSystem(ZUTEXT("a"), 1, nullptr, csNeutral, 5));
}

// Every byte of every single-byte page comes back, or is a byte that the page gives to no character.
TEST(BytesAndSystem, SingleBytePagesAreTheirOwnInverse) {
    for (int number = 1; number < 57; ++number) {
        const auto cs = static_cast<ZUCHARSET>(number);
        if (GetWinCodePage(cs) <= 1 || CharsetDBCS(cs)) continue;
        int back = 0;
        for (int byte = 1; byte < 256; ++byte) {
            const char source[] = {static_cast<char>(byte), 0};
            Units text;
            Bytes bytes;
            if (!ConvertMBCSCharToSystem(source, 1, cs, text, 10)) continue;
            ASSERT_TRUE(ConvertSystemToMBCSChar(text, bytes, cs, 10, false));
            back += bytes.data[0] == source[0] ? 1 : 0;
        }
        EXPECT_GE(back, 200) << number;
    }
}

}  // namespace
}  // namespace conversion_test
