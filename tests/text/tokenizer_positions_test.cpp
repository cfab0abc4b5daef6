#include <Utility/strings.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "reference/plain_tokenizers.h"
#include "support/random_text.h"

namespace Torvo::test {

void PrintTo(const PositionToken& token, std::ostream* stream) {
    *stream << (token.found ? "token " : "none ") << static_cast<int64>(token.start) << "+" << token.length << " next "
            << static_cast<int64>(token.next);
}

}  // namespace Torvo::test

namespace tokenizer_positions_test {
namespace {

using Torvo::uint64;
using Torvo::wchar16;
using Torvo::wstring16;
using Torvo::zuStrtok;
using Torvo::test::PlainPositionToken;
using Torvo::test::PositionToken;
using Torvo::test::RandomText;

constexpr uint64 npos = ~uint64{0};
const wstring16 comma = ZUTEXT(",");

PositionToken TokenOf(const wstring16& source, uint64 start, const wstring16& delimiters,
                      const wchar16* quotePairs = ZUTEXT("")) {
    PositionToken token{true, 77, 77, 77};
    token.found = zuStrtok(source, start, delimiters, &token.start, &token.length, &token.next, quotePairs);
    return token;
}

TEST(PositionTokenizer, LeavesOutWhiteSpaceAroundTheLastToken) {
    EXPECT_EQ(TokenOf(ZUTEXT("  abc  "), 0, comma), (PositionToken{true, 2, 3, npos}));
}

TEST(PositionTokenizer, SpaceAsDelimiter) {
    EXPECT_EQ(TokenOf(ZUTEXT("ab cd"), 0, ZUTEXT(" ")), (PositionToken{true, 0, 2, 3}));
    EXPECT_EQ(TokenOf(ZUTEXT("ab cd"), 3, ZUTEXT(" ")), (PositionToken{true, 3, 2, npos}));
}

TEST(PositionTokenizer, WhiteSpaceBeforeAnotherDelimiterStays) {
    EXPECT_EQ(TokenOf(ZUTEXT("abc , d"), 0, comma), (PositionToken{true, 0, 4, 5}));
    EXPECT_EQ(TokenOf(ZUTEXT("abc , d"), 5, comma), (PositionToken{true, 6, 1, npos}));
    EXPECT_EQ(TokenOf(ZUTEXT("a , b"), 0, comma), (PositionToken{true, 0, 2, 3}));
}

TEST(PositionTokenizer, EmptyTokenIsAToken) {
    EXPECT_EQ(TokenOf(ZUTEXT(",x"), 0, comma), (PositionToken{true, 0, 0, 1}));
    EXPECT_EQ(TokenOf(ZUTEXT("  ,x"), 0, comma), (PositionToken{true, 2, 0, 3}));
}

TEST(PositionTokenizer, NothingButWhiteSpaceHasNoToken) {
    EXPECT_EQ(TokenOf(ZUTEXT("   "), 0, comma), (PositionToken{false, npos, 0, npos}));
    EXPECT_EQ(TokenOf(ZUTEXT(" \t\n\r"), 0, comma), (PositionToken{false, npos, 0, npos}));
    EXPECT_EQ(TokenOf(ZUTEXT(""), 0, comma), (PositionToken{false, npos, 0, npos}));
}

TEST(PositionTokenizer, StartAtOrPastTheEndHasNoToken) {
    for (const uint64 start : {uint64{3}, uint64{4}, npos}) {
        EXPECT_EQ(TokenOf(ZUTEXT("abc"), start, comma), (PositionToken{false, npos, 0, npos}));
    }
}

TEST(PositionTokenizer, FormFeedIsNoWhiteSpace) {
    EXPECT_EQ(TokenOf(ZUTEXT("\fab\f"), 0, comma), (PositionToken{true, 0, 4, npos}));
}

TEST(PositionTokenizer, PairOfTwoCharactersNests) {
    EXPECT_EQ(TokenOf(ZUTEXT("f(a,(b),c),d"), 0, comma, ZUTEXT("()")), (PositionToken{true, 0, 10, 11}));
    EXPECT_EQ(TokenOf(ZUTEXT("f(a,(b),c"), 0, comma, ZUTEXT("()")), (PositionToken{true, 0, 9, npos}));
    EXPECT_EQ(TokenOf(ZUTEXT("f(a)"), 0, comma, ZUTEXT("()")), (PositionToken{true, 0, 4, npos}));
    EXPECT_EQ(TokenOf(ZUTEXT("f)a,b"), 0, comma, ZUTEXT("()")), (PositionToken{true, 0, 3, 4}));
}

TEST(PositionTokenizer, DoubledQuoteStaysInside) {
    EXPECT_EQ(TokenOf(ZUTEXT("\"x\"\"y\",z"), 0, comma, ZUTEXT("\"\"")), (PositionToken{true, 0, 6, 7}));
    EXPECT_EQ(TokenOf(ZUTEXT("\"x\"\",y\",z"), 0, comma, ZUTEXT("\"\"")), (PositionToken{true, 0, 7, 8}));
}

TEST(PositionTokenizer, UnclosedQuoteRunsToTheEnd) {
    EXPECT_EQ(TokenOf(ZUTEXT("\"x,y"), 0, comma, ZUTEXT("\"\"")), (PositionToken{true, 0, 4, npos}));
    EXPECT_EQ(TokenOf(ZUTEXT("\"x,y\"\""), 0, comma, ZUTEXT("\"\"")), (PositionToken{true, 0, 6, npos}));
    EXPECT_EQ(TokenOf(ZUTEXT("\"x,y\""), 0, comma, ZUTEXT("\"\"")), (PositionToken{true, 0, 5, npos}));
    EXPECT_EQ(TokenOf(ZUTEXT("\""), 0, comma, ZUTEXT("\"\"")), (PositionToken{true, 0, 1, npos}));
}

TEST(PositionTokenizer, OneQuoteDoesNotSeeAnother) {
    EXPECT_EQ(TokenOf(ZUTEXT("(\",)\",x),y"), 0, comma, ZUTEXT("()\"\"")), (PositionToken{true, 0, 10, npos}));
    EXPECT_EQ(TokenOf(ZUTEXT("\"(\",x"), 0, comma, ZUTEXT("()\"\"")), (PositionToken{true, 0, 3, 4}));
}

TEST(PositionTokenizer, OpenerGoesBeforeDelimiter) {
    EXPECT_EQ(TokenOf(ZUTEXT("a(b,c)d,e"), 0, ZUTEXT("(,"), ZUTEXT("()")), (PositionToken{true, 0, 7, 8}));
}

TEST(PositionTokenizer, FirstOfTwoPairsWithOneOpenerCounts) {
    EXPECT_EQ(TokenOf(ZUTEXT("(a],b),c"), 0, comma, ZUTEXT("()(]")), (PositionToken{true, 0, 6, 7}));
}

// U+201C opens as U+001C, and its closer counts whole.
TEST(PositionTokenizer, OpenerIsKnownByItsLowByte) {
    EXPECT_EQ(TokenOf(ZUTEXT("\u201Ca,b\u201D,c"), 0, comma, ZUTEXT("\u201C\u201D")), (PositionToken{true, 0, 2, 3}));
    EXPECT_EQ(TokenOf(ZUTEXT("\u001Ca,b\u201D,c"), 0, comma, ZUTEXT("\u201C\u201D")), (PositionToken{true, 0, 5, 6}));
    // U+3028 is cut to "(", which its closer, the whole U+3028, is not.
    EXPECT_EQ(TokenOf(ZUTEXT("(a,b\u3028,c"), 0, comma, ZUTEXT("\u3028\u3028")), (PositionToken{true, 0, 5, 6}));
}

// What is trimmed before a delimiter that is white space itself depends on the length before trimming.
TEST(PositionTokenizer, LongerTokensTrimMoreKindsOfWhiteSpace) {
    EXPECT_EQ(TokenOf(ZUTEXT("a\tb"), 0, ZUTEXT("\t")), (PositionToken{true, 0, 1, 2}));
    EXPECT_EQ(TokenOf(ZUTEXT("a\t b"), 0, ZUTEXT(" ")), (PositionToken{true, 0, 1, 3}));
    EXPECT_EQ(TokenOf(ZUTEXT("a\n b"), 0, ZUTEXT(" ")), (PositionToken{true, 0, 2, 3}));
    EXPECT_EQ(TokenOf(ZUTEXT("ab\n c"), 0, ZUTEXT(" ")), (PositionToken{true, 0, 2, 4}));
    EXPECT_EQ(TokenOf(ZUTEXT("ab\r c"), 0, ZUTEXT(" ")), (PositionToken{true, 0, 3, 4}));
    EXPECT_EQ(TokenOf(ZUTEXT("abc\r d"), 0, ZUTEXT(" ")), (PositionToken{true, 0, 3, 5}));
    EXPECT_EQ(TokenOf(ZUTEXT("a\r"), 0, comma), (PositionToken{true, 0, 2, npos}));
    EXPECT_EQ(TokenOf(ZUTEXT("a\r\r\r"), 0, comma), (PositionToken{true, 0, 1, npos}));
}

TEST(PositionTokenizer, DelimiterBeyondLatinAndEmbeddedZero) {
    EXPECT_EQ(TokenOf(ZUTEXT("a\u3042\u3001b"), 0, ZUTEXT("\u3001")), (PositionToken{true, 0, 2, 3}));
    const wstring16 source{'a', 0, 'b', ',', 'c'};
    EXPECT_EQ(TokenOf(source, 0, comma), (PositionToken{true, 0, 3, 4}));
    EXPECT_EQ(TokenOf(source, 0, wstring16(1, wchar16{0})), (PositionToken{true, 0, 1, 2}));
}

TEST(PositionTokenizer, NullForTheQuotesMeansNone) {
    EXPECT_EQ(TokenOf(ZUTEXT("\"a,b\""), 0, comma, nullptr), (PositionToken{true, 0, 2, 3}));
}

TEST(PositionTokenizer, NoDelimiterTakesEverything) {
    EXPECT_EQ(TokenOf(ZUTEXT("a,b"), 0, ZUTEXT("")), (PositionToken{true, 0, 3, npos}));
}

TEST(PositionTokenizer, AgreesWithThePlainForm) {
    RandomText random(
        3, {ZUTEXT("a"), ZUTEXT("b"), ZUTEXT(" "), ZUTEXT(" "), ZUTEXT("\t"), ZUTEXT("\n"), ZUTEXT("\r"), ZUTEXT(","),
            ZUTEXT(","), ZUTEXT("("), ZUTEXT(")"), ZUTEXT("\""), ZUTEXT("'"), ZUTEXT("\u3042"), ZUTEXT("\u201C"),
            ZUTEXT("\u201D"), ZUTEXT("\x1C"), wstring16(1, wchar16{0})});
    const std::vector<wstring16> pairs = {ZUTEXT(""),     ZUTEXT("()"),           ZUTEXT("\"\"''"), ZUTEXT("()\"\""),
                                          ZUTEXT("(,"),   ZUTEXT("\u201C\u201D"), ZUTEXT("  "),     ZUTEXT("((aa"),
                                          ZUTEXT("()(,"), ZUTEXT("\u3028\u3028")};
    for (int round = 0; round < 50000; ++round) {
        const wstring16 source = random.Text(20);
        const wstring16 delimiters = random.Text(3);
        const wstring16& quotes = pairs[random.Number(pairs.size())];
        const uint64 start = random.Number(source.size() + 2);
        ASSERT_EQ(TokenOf(source, start, delimiters, quotes.c_str()),
                  PlainPositionToken(source, start, delimiters, quotes.c_str()))
            << round;
    }
}

}  // namespace
}  // namespace tokenizer_positions_test
