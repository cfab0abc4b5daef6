#include <Utility/strings.h>
#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "reference/plain_tokenizers.h"
#include "support/random_text.h"

namespace tokenizer_expression_test {
namespace {

using Torvo::wchar16;
using Torvo::wstring16;
using Torvo::zuStrtok;
using Torvo::test::PlainExpressionToken;
using Torvo::test::RandomText;

using Tokens = std::vector<wstring16>;

Tokens TokensOf(wstring16 text, const wchar16* delimiters, bool brackets) {
    Tokens tokens;
    wchar16* context = text.data();
    while (const wchar16* const token = zuStrtok(context, delimiters, brackets, &context)) tokens.emplace_back(token);
    return tokens;
}

Tokens WithBrackets(const wchar16* text) {
    return TokensOf(text, ZUTEXT(","), true);
}

Tokens WithoutBrackets(const wchar16* text) {
    return TokensOf(text, ZUTEXT(","), false);
}

TEST(ExpressionTokenizer, TrimsAndGoesOnFromTheContext) {
    EXPECT_EQ(WithoutBrackets(ZUTEXT("  a, b")), (Tokens{ZUTEXT("a"), ZUTEXT("b")}));
    EXPECT_EQ(WithoutBrackets(ZUTEXT("\t\r\n\f a b \t,c\x01 ")), (Tokens{ZUTEXT("a b"), ZUTEXT("c")}));
}

TEST(ExpressionTokenizer, QuotesStayInTheToken) {
    EXPECT_EQ(WithoutBrackets(ZUTEXT("\"a,b\",c")), (Tokens{ZUTEXT("\"a,b\""), ZUTEXT("c")}));
    EXPECT_EQ(WithoutBrackets(ZUTEXT("'a,b',c")), (Tokens{ZUTEXT("'a,b'"), ZUTEXT("c")}));
    EXPECT_EQ(WithoutBrackets(ZUTEXT("`a,b`,c")), (Tokens{ZUTEXT("`a,b`"), ZUTEXT("c")}));
    EXPECT_EQ(WithoutBrackets(ZUTEXT("x'a,\"b'\",c")), (Tokens{ZUTEXT("x'a,\"b'\",c")}));
}

TEST(ExpressionTokenizer, DoubledQuoteStaysInside) {
    EXPECT_EQ(WithoutBrackets(ZUTEXT("'it''s',x")), (Tokens{ZUTEXT("'it''s'"), ZUTEXT("x")}));
    EXPECT_EQ(WithoutBrackets(ZUTEXT("'it'',s',x")), (Tokens{ZUTEXT("'it'',s'"), ZUTEXT("x")}));
    EXPECT_EQ(WithoutBrackets(ZUTEXT("'''',x")), (Tokens{ZUTEXT("''''"), ZUTEXT("x")}));
}

TEST(ExpressionTokenizer, UnclosedQuoteRunsToTheEnd) {
    EXPECT_EQ(WithoutBrackets(ZUTEXT("'a,b ")), (Tokens{ZUTEXT("'a,b")}));
    EXPECT_EQ(WithoutBrackets(ZUTEXT("'a,b''")), (Tokens{ZUTEXT("'a,b''")}));
}

TEST(ExpressionTokenizer, BracketsCountOnRequest) {
    EXPECT_EQ(WithBrackets(ZUTEXT("f(a,b),c")), (Tokens{ZUTEXT("f(a,b)"), ZUTEXT("c")}));
    EXPECT_EQ(WithoutBrackets(ZUTEXT("f(a,b),c")), (Tokens{ZUTEXT("f(a"), ZUTEXT("b)"), ZUTEXT("c")}));
    EXPECT_EQ(WithBrackets(ZUTEXT("f[a,(b,c],d),e")), (Tokens{ZUTEXT("f[a,(b,c],d)"), ZUTEXT("e")}));
    EXPECT_EQ(WithBrackets(ZUTEXT("f(a,b")), (Tokens{ZUTEXT("f(a,b")}));
}

TEST(ExpressionTokenizer, ClosingBracketWithoutAnOpeningOneIsOrdinary) {
    EXPECT_EQ(WithBrackets(ZUTEXT("a),b]")), (Tokens{ZUTEXT("a)"), ZUTEXT("b]")}));
    EXPECT_EQ(TokensOf(ZUTEXT("a)b"), ZUTEXT(")"), true), (Tokens{ZUTEXT("a"), ZUTEXT("b")}));
}

TEST(ExpressionTokenizer, ClosingBracketOfAPairIsNotTestedAsADelimiter) {
    EXPECT_EQ(TokensOf(ZUTEXT("(a)b)c"), ZUTEXT(")"), true), (Tokens{ZUTEXT("(a)b"), ZUTEXT("c")}));
    EXPECT_EQ(TokensOf(ZUTEXT("(a)b"), ZUTEXT("("), true), (Tokens{ZUTEXT("(a)b")}));
    EXPECT_EQ(TokensOf(ZUTEXT("(a)b"), ZUTEXT("("), false), (Tokens{ZUTEXT(""), ZUTEXT("a)b")}));
}

TEST(ExpressionTokenizer, QuotesInsideBracketsAndBracketsInsideQuotesAreOrdinary) {
    EXPECT_EQ(WithBrackets(ZUTEXT("(a'),b',c")), (Tokens{ZUTEXT("(a')"), ZUTEXT("b',c")}));
    EXPECT_EQ(WithBrackets(ZUTEXT("'(',a")), (Tokens{ZUTEXT("'('"), ZUTEXT("a")}));
}

TEST(ExpressionTokenizer, DelimiterGoesBeforeQuote) {
    EXPECT_EQ(TokensOf(ZUTEXT("a'b,c'd"), ZUTEXT("'"), false), (Tokens{ZUTEXT("a"), ZUTEXT("b,c"), ZUTEXT("d")}));
}

TEST(ExpressionTokenizer, DelimiterAtTheStartGivesAnEmptyToken) {
    EXPECT_EQ(WithoutBrackets(ZUTEXT(",,x")), (Tokens{ZUTEXT(""), ZUTEXT(""), ZUTEXT("x")}));
    EXPECT_EQ(WithoutBrackets(ZUTEXT("x,")), (Tokens{ZUTEXT("x")}));
}

TEST(ExpressionTokenizer, BlankTextHasNoToken) {
    wchar16 text[] = ZUTEXT(" \t\x02 ");
    wchar16* context = nullptr;
    EXPECT_EQ(zuStrtok(text, ZUTEXT(","), true, &context), nullptr);
    EXPECT_EQ(context, text + 4);
    EXPECT_EQ(zuStrtok(text + 4, ZUTEXT(","), true, &context), nullptr);
    EXPECT_EQ(context, text + 4);
}

TEST(ExpressionTokenizer, NullTextHasNoToken) {
    wchar16 text[] = ZUTEXT("a");
    wchar16* context = text;
    EXPECT_EQ(zuStrtok(nullptr, ZUTEXT(","), true, &context), nullptr);
    EXPECT_EQ(context, text);
}

TEST(ExpressionTokenizer, LastTokenLeavesTheContextAtTheTerminator) {
    wchar16 text[] = ZUTEXT("ab  ");
    wchar16* context = nullptr;
    EXPECT_EQ(zuStrtok(text, ZUTEXT(","), false, &context), text);
    EXPECT_EQ(context, text + 4);
    EXPECT_EQ(wstring16(text), ZUTEXT("ab"));
}

TEST(ExpressionTokenizer, DelimiterIsOverwritten) {
    wchar16 text[] = ZUTEXT("ab,c");
    wchar16* context = nullptr;
    EXPECT_EQ(zuStrtok(text, ZUTEXT(";,"), false, &context), text);
    EXPECT_EQ(text[2], 0);
    EXPECT_EQ(context, text + 3);
}

TEST(ExpressionTokenizer, DelimiterBeyondLatinIsFound) {
    EXPECT_EQ(TokensOf(ZUTEXT("a\u3001b\u3042c"), ZUTEXT("\u3001"), false), (Tokens{ZUTEXT("a"), ZUTEXT("b\u3042c")}));
}

TEST(ExpressionTokenizer, AgreesWithThePlainForm) {
    std::vector<wstring16> characters = Torvo::test::MixedCharacters();
    for (const wchar16* common : {ZUTEXT(","), ZUTEXT("("), ZUTEXT(")"), ZUTEXT("["), ZUTEXT("]"), ZUTEXT("'"),
                                  ZUTEXT("\""), ZUTEXT("`"), ZUTEXT("\t"), ZUTEXT("\x01")}) {
        characters.insert(characters.end(), 2, common);
    }
    RandomText random(2, characters);
    for (int round = 0; round < 20000; ++round) {
        const wstring16 text = random.Text(24);
        const wstring16 delimiters = random.Text(3);
        const bool brackets = random.Number(2) == 1;
        wstring16 actual = text;
        wstring16 expected = text;
        wchar16* actualContext = actual.data();
        wchar16* expectedContext = expected.data();
        for (bool more = true; more;) {
            const wchar16* const token = zuStrtok(actualContext, delimiters.c_str(), brackets, &actualContext);
            const wchar16* const plain =
                PlainExpressionToken(expectedContext, delimiters.c_str(), brackets, &expectedContext);
            ASSERT_EQ(token == nullptr, plain == nullptr) << round;
            more = token != nullptr;
            if (more) {
                ASSERT_EQ(token - actual.data(), plain - expected.data()) << round;
            }
            ASSERT_EQ(actual, expected) << round;
            ASSERT_EQ(actualContext - actual.data(), expectedContext - expected.data()) << round;
        }
    }
}

}  // namespace
}  // namespace tokenizer_expression_test
