#include <Utility/strings.h>
#include <Utility/text_tools.h>
#include <gtest/gtest.h>
#include <support/random.h>
#include <support/system_charset.h>

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

namespace text_edits_test {
namespace {

using namespace Torvo;
using test::SystemCharset;

// The index that strnchr finds, or -1.
int64 IndexWithin(const wstring16& text, wchar16 c, uint64 n) {
    const wchar16* const found = strnchr(text.c_str(), c, n);
    return found != nullptr ? found - text.c_str() : -1;
}

bool StepsOverMarks() {
    const wchar16 marked[] = ZUTEXT("e\u0301x");
    return zuNextChar(marked) == marked + 2;
}

TEST(BoundedSearch, FindsWithinTheRange) {
    EXPECT_EQ(IndexWithin(ZUTEXT("abcb"), 'b', 4), 1);
    EXPECT_EQ(IndexWithin(ZUTEXT("abcb"), 'a', 1), 0);
    EXPECT_EQ(IndexWithin(ZUTEXT("abcb"), 'd', 4), -1);
    EXPECT_EQ(IndexWithin(ZUTEXT("\u3042\u0141"), 0x141, 2), 1) << "all 16 bits count";
}

TEST(BoundedSearch, TheEndOfTheRangeIsNotPartOfIt) {
    EXPECT_EQ(IndexWithin(ZUTEXT("abc"), 'c', 2), -1);
    EXPECT_EQ(IndexWithin(ZUTEXT("abc"), 'a', 0), -1);
    EXPECT_EQ(IndexWithin(ZUTEXT("abc"), 'c', 3), 2);
}

TEST(BoundedSearch, StopsAtTheTerminator) {
    EXPECT_EQ(IndexWithin(ZUTEXT("abc"), 'x', 100), -1);
    EXPECT_EQ(IndexWithin(ZUTEXT("abc"), 'x', ~uint64{0}), -1);
    EXPECT_EQ(IndexWithin(ZUTEXT("abc"), 'c', ~uint64{0}), 2);
    EXPECT_EQ(IndexWithin(ZUTEXT("abc"), 0, 100), -1) << "the terminator is never found";
    EXPECT_EQ(IndexWithin(ZUTEXT("abc"), 0, 3), -1);
    EXPECT_EQ(IndexWithin(ZUTEXT(""), 'a', 1), -1);
}

TEST(BoundedSearch, AStepPastTheEndCountsAsFound) {
    if (!StepsOverMarks()) GTEST_SKIP() << "this system's CharNextW does not step over combining marks";
    EXPECT_EQ(IndexWithin(ZUTEXT("ae\u0301x"), 'z', 2), 3);
    EXPECT_EQ(IndexWithin(ZUTEXT("ae\u0301x"), 'z', 3), -1) << "exactly at the end";
    EXPECT_EQ(IndexWithin(ZUTEXT("ae\u0301"), 'z', 2), 3) << "the terminator as well";
    EXPECT_EQ(IndexWithin(ZUTEXT("a\U0001F600x"), 'z', 2), 3);
    EXPECT_EQ(IndexWithin(ZUTEXT("e\u0301x"), 0x301, 3), -1) << "a mark begins no character";
}

TEST(TextEdits, NullsAreRefused) {
    EXPECT_EQ(strnchr(nullptr, 'a', 3), nullptr);
    EXPECT_EQ(strnchr(nullptr, 'a', 0), nullptr);
    EXPECT_EQ(skipwhite(nullptr), nullptr);
    zuCharReplace(nullptr, ZUTEXT("a"), 'b');
    wchar16 text[] = ZUTEXT("aba");
    zuCharReplace(text, nullptr, 'b');
    EXPECT_EQ(wstring16(text), ZUTEXT("aba"));
    TextReplaceChar(nullptr, 'a', 'b');
    EXPECT_EQ(memrev(nullptr, 0), nullptr);
    EXPECT_EQ(memrev(nullptr, 3), nullptr);
    EXPECT_EQ(rtrimA(nullptr, csWindowsLatin1), 0u);
}

TEST(SkipWhite, PassesTheLeadingWhite) {
    const wchar16 text[] = ZUTEXT(" \t\n\f\ra b");
    EXPECT_EQ(skipwhite(text), text + 5);
    const wchar16 other[] = ZUTEXT("a");
    EXPECT_EQ(skipwhite(other), other);
    const wchar16 control[] = ZUTEXT(" \v");
    EXPECT_EQ(skipwhite(control), control + 1) << "a vertical tab is blank, not white";
    const wchar16 space[] = ZUTEXT("\u00A0");
    EXPECT_EQ(skipwhite(space), space);
}

TEST(SkipWhite, TextOfOnlyWhiteGivesNull) {
    EXPECT_EQ(skipwhite(ZUTEXT(" \t ")), nullptr);
    EXPECT_EQ(skipwhite(ZUTEXT("")), nullptr);
}

TEST(Reversal, OfBytes) {
    for (std::size_t size = 0; size < 70; ++size) {
        std::vector<unsigned char> bytes(size + 1);
        std::iota(bytes.begin(), bytes.end(), static_cast<unsigned char>(1));
        std::vector<unsigned char> expected = bytes;
        std::reverse(expected.begin(), expected.end() - 1);
        EXPECT_EQ(memrev(bytes.data(), size), bytes.data());
        ASSERT_EQ(bytes, expected);
    }
}

wstring16 Replaced(wstring16 text, const wchar16* set, wchar16 c) {
    zuCharReplace(text.data(), set, c);
    return text;
}

TEST(CharReplace, EveryUnitOfTheSet) {
    EXPECT_EQ(Replaced(ZUTEXT("a/b\\c:d"), ZUTEXT("/\\:"), '_'), ZUTEXT("a_b_c_d"));
    EXPECT_EQ(Replaced(ZUTEXT("///"), ZUTEXT("/"), '-'), ZUTEXT("---"));
    EXPECT_EQ(Replaced(ZUTEXT("abc"), ZUTEXT("x"), 'y'), ZUTEXT("abc"));
    EXPECT_EQ(Replaced(ZUTEXT("abc"), ZUTEXT(""), 'y'), ZUTEXT("abc"));
    EXPECT_EQ(Replaced(ZUTEXT(""), ZUTEXT("x"), 'y'), ZUTEXT(""));
    EXPECT_EQ(Replaced(ZUTEXT("e\u0301"), ZUTEXT("\u0301"), 'y'), ZUTEXT("ey")) << "marks are units like others";
}

TEST(CharReplace, TheNewUnitMayBeOfTheSetOrZero) {
    EXPECT_EQ(Replaced(ZUTEXT("a/b/c"), ZUTEXT("/"), '/'), ZUTEXT("a/b/c"));
    EXPECT_EQ(Replaced(ZUTEXT("a/b\\c"), ZUTEXT("/\\"), '\\'), ZUTEXT("a\\b\\c"));
    EXPECT_EQ(Replaced(ZUTEXT("a/b/c"), ZUTEXT("/"), 0), (wstring16{'a', 0, 'b', 0, 'c'}));
}

wstring16 WalkedReplaced(wstring16 text, wchar16 from, wchar16 to) {
    TextReplaceChar(text.data(), from, to);
    return text;
}

TEST(TextReplace, EveryCharacterThatBeginsWithTheUnit) {
    EXPECT_EQ(WalkedReplaced(ZUTEXT("a,b,,c"), ',', ';'), ZUTEXT("a;b;;c"));
    EXPECT_EQ(WalkedReplaced(ZUTEXT("\u3042b"), 0x3042, 'a'), ZUTEXT("ab"));
    EXPECT_EQ(WalkedReplaced(ZUTEXT("abc"), 'x', 'y'), ZUTEXT("abc"));
    EXPECT_EQ(WalkedReplaced(ZUTEXT(""), 'x', 'y'), ZUTEXT(""));
    EXPECT_EQ(WalkedReplaced(ZUTEXT("abc"), 0, 'y'), ZUTEXT("abc")) << "the terminator is no character";
    EXPECT_EQ(WalkedReplaced(ZUTEXT("a,b,c"), ',', 0), (wstring16{'a', 0, 'b', 0, 'c'}));
}

TEST(TextReplace, MarksBeginNoCharacter) {
    if (!StepsOverMarks()) GTEST_SKIP() << "this system's CharNextW does not step over combining marks";
    EXPECT_EQ(WalkedReplaced(ZUTEXT("e\u0301\u0301"), 0x301, 'x'), ZUTEXT("e\u0301\u0301"));
    EXPECT_EQ(WalkedReplaced(ZUTEXT("\u0301e\u0301"), 0x301, 'x'), ZUTEXT("xe\u0301"));
    EXPECT_EQ(WalkedReplaced(ZUTEXT("e\u0301e"), 'e', 'x'), ZUTEXT("x\u0301x"));
}

struct Trimmed {
    uint64 length;
    std::string text;

    bool operator==(const Trimmed&) const = default;
};

Trimmed TrimBytes(std::string text, int cs) {
    const uint64 length = rtrimA(text.data(), cs);
    return {length, text.c_str()};
}

TEST(TrimmingOfBytes, CutsTheBlanksAtTheEnd) {
    const SystemCharset system(csWindowsLatin1);
    for (const int cs : {int{csWindowsLatin1}, int{csISO8859_1}, int{csUTF8}, 0, -1}) {
        EXPECT_EQ(TrimBytes(" a b \t\r\n\f\v\x01\x7F ", cs), (Trimmed{4, " a b"})) << cs;
        EXPECT_EQ(TrimBytes("abc", cs), (Trimmed{3, "abc"}));
        EXPECT_EQ(TrimBytes(" \t ", cs), (Trimmed{0, ""}));
        EXPECT_EQ(TrimBytes("", cs), (Trimmed{0, ""}));
        EXPECT_EQ(TrimBytes("a\xC3\xA9 ", cs), (Trimmed{3, "a\xC3\xA9"}));
    }
}

TEST(TrimmingOfBytes, NoByteFrom128UpIsBlank) {
    for (int byte = 0x80; byte < 0x100; ++byte) {
        std::string text = "a? ";
        text[1] = static_cast<char>(byte);
        EXPECT_EQ(rtrimA(text.data(), csWindowsLatin1), 2u) << byte;
    }
}

TEST(TrimmingOfBytes, OnlyTheTerminatorIsWritten) {
    std::string text = "ab   ";
    EXPECT_EQ(rtrimA(text.data(), csWindowsLatin1), 2u);
    EXPECT_EQ(text, std::string("ab\0  ", 5));
}

// A lead byte with a blank behind it is a character, if not a good one.
TEST(TrimmingOfBytes, TrailBytesAreNotLookedAt) {
    EXPECT_EQ(TrimBytes("\x83\x7F \t", csWindowsJapanese), (Trimmed{2, "\x83\x7F"}));
    EXPECT_EQ(TrimBytes("\x83  ", csWindowsJapanese), (Trimmed{2, "\x83 "}));
    EXPECT_EQ(TrimBytes("\x83  ", csWindowsLatin1), (Trimmed{1, "\x83"}));
    EXPECT_EQ(TrimBytes("\xB1  ", csWindowsJapanese), (Trimmed{1, "\xB1"})) << "a byte of its own";
    const SystemCharset system(csWindowsJapanese);
    EXPECT_EQ(TrimBytes("\x83  ", 0), (Trimmed{2, "\x83 "})) << "the system charset";
    EXPECT_EQ(TrimBytes("\x83  ", -5), (Trimmed{2, "\x83 "}));
}

}  // namespace
}  // namespace text_edits_test
