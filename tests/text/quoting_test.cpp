#include <Utility/text_tools.h>
#include <gtest/gtest.h>
#include <reference/plain_quoting.h>
#include <support/guarded_buffer.h>
#include <support/random.h>

#include <algorithm>
#include <memory>

namespace quoting_test {
namespace {

using namespace Torvo;
using test::PlainQuoteApart;
using test::PlainQuoteInPlace;
using test::PlainUnquote;

constexpr wchar16 quote[] = ZUTEXT("'");

// What a call makes of a buffer of `size` units: the text, while the units behind its terminator are untouched, or
// cleared by the bounded copy of a text that has no quotes to take off.
using Call = wchar16* (*)(wchar16*, const wchar16*, uint64, const wchar16*);

wstring16 Apart(Call call, const wstring16& text, uint64 size, const wchar16* with = quote) {
    wstring16 buffer(size + 8, '#');
    EXPECT_EQ(call(buffer.data(), text.c_str(), size, with), buffer.data());
    const wstring16 result = buffer.c_str();
    EXPECT_LT(result.size(), size);
    const bool isCopied = call == unquotestring && text[0] != with[0];
    const wstring16 rest(size - result.size() - 1, isCopied ? wchar16{0} : wchar16{'#'});
    EXPECT_EQ(buffer.substr(result.size() + 1), rest + wstring16(8, '#'));
    return result;
}

// In memory of exactly `size` units, in which the text has a terminator only if there is room for one.
wstring16 InPlace(Call call, const wstring16& text, uint64 size, const wchar16* with = quote) {
    const std::unique_ptr<wchar16[]> buffer(new wchar16[size]);
    std::fill_n(buffer.get(), size, wchar16{'#'});
    std::copy_n(text.c_str(), std::min<uint64>(text.size() + 1, size), buffer.get());
    EXPECT_EQ(call(buffer.get(), buffer.get(), size, with), buffer.get());
    const wstring16 result = buffer.get();
    EXPECT_LT(result.size(), size);
    return result;
}

TEST(Quoting, DoublesTheQuotesInside) {
    EXPECT_EQ(Apart(quotestring, ZUTEXT("it's"), 20), ZUTEXT("'it''s'"));
    EXPECT_EQ(InPlace(quotestring, ZUTEXT("it's"), 20), ZUTEXT("'it''s'"));
    EXPECT_EQ(Apart(quotestring, ZUTEXT(""), 20), ZUTEXT("''"));
    EXPECT_EQ(Apart(quotestring, ZUTEXT("''"), 20), ZUTEXT("''''''"));
    EXPECT_EQ(Apart(quotestring, ZUTEXT("it's"), 20, ZUTEXT("\"")), ZUTEXT("\"it's\""));
}

TEST(Quoting, OnlyTheFirstUnitOfTheQuoteCounts) {
    EXPECT_EQ(Apart(quotestring, ZUTEXT("a'b\"c"), 20, ZUTEXT("\"'")), ZUTEXT("\"a'b\"\"c\""));
    EXPECT_EQ(Apart(unquotestring, ZUTEXT("\"a'b\"\"c\""), 20, ZUTEXT("\"'")), ZUTEXT("a'b\"c"));
}

TEST(Quoting, ACutTextKeepsItsFrame) {
    EXPECT_EQ(Apart(quotestring, ZUTEXT("abcdef"), 6), ZUTEXT("'abc'"));
    EXPECT_EQ(Apart(quotestring, ZUTEXT("abc"), 4), ZUTEXT("'a'"));
    EXPECT_EQ(Apart(quotestring, ZUTEXT("abc"), 3), ZUTEXT("''"));
    EXPECT_EQ(InPlace(quotestring, ZUTEXT("abcdef"), 6), ZUTEXT("'abc'"));
    EXPECT_EQ(InPlace(quotestring, ZUTEXT("abc"), 3), ZUTEXT("''"));
}

TEST(Quoting, ADoubledQuoteThatDoesNotFitEndsTheText) {
    EXPECT_EQ(Apart(quotestring, ZUTEXT("it's"), 6), ZUTEXT("'it'"));
    EXPECT_EQ(Apart(quotestring, ZUTEXT("it's"), 7), ZUTEXT("'it'''"));
    EXPECT_EQ(Apart(quotestring, ZUTEXT("'a"), 4), ZUTEXT("''"));
}

TEST(Quoting, InPlaceADoubledQuoteMayBeCutInHalf) {
    EXPECT_EQ(InPlace(quotestring, ZUTEXT("it's"), 6), ZUTEXT("'it''"));
    EXPECT_EQ(InPlace(quotestring, ZUTEXT("it's"), 7), ZUTEXT("'it'''"));
    EXPECT_EQ(InPlace(quotestring, ZUTEXT("it's"), 8), ZUTEXT("'it''s'"));
    EXPECT_EQ(InPlace(quotestring, ZUTEXT("'a"), 4), ZUTEXT("'''"));
    EXPECT_EQ(InPlace(quotestring, ZUTEXT("''''"), 7), ZUTEXT("''''''"));
    EXPECT_EQ(InPlace(quotestring, ZUTEXT("a'b'c"), 8), ZUTEXT("'a''b''"));
}

TEST(Quoting, WithoutAQuoteItIsABoundedCopy) {
    wchar16 buffer[6] = ZUTEXT("#####");
    EXPECT_EQ(quotestring(buffer, ZUTEXT("it's"), 6, ZUTEXT("")), buffer);
    EXPECT_EQ(wstring16(buffer, 6), (wstring16{'i', 't', '\'', 's', 0, 0}));
    EXPECT_EQ(unquotestring(buffer, ZUTEXT("'a'"), 5, ZUTEXT("")), buffer);
    EXPECT_EQ(wstring16(buffer, 6), (wstring16{'\'', 'a', '\'', 0, 0, 0}));
    EXPECT_EQ(wstring16(quotestring(buffer, ZUTEXT("abc"), 2, ZUTEXT(""))), ZUTEXT("a"));
    EXPECT_EQ(wstring16(unquotestring(buffer, ZUTEXT(""), 6, ZUTEXT(""))), ZUTEXT(""));
}

TEST(Quoting, SizesBelowTheFrame) {
    wchar16 buffer[4] = ZUTEXT("abc");
    EXPECT_EQ(quotestring(buffer, ZUTEXT("x"), 0, quote), buffer);
    EXPECT_EQ(wstring16(buffer), ZUTEXT("abc"));
    quotestring(buffer, ZUTEXT("x"), 1, quote);
    EXPECT_EQ(wstring16(buffer, 4), (wstring16{0, 'b', 'c', 0}));
    buffer[0] = 'a';
    quotestring(buffer, buffer, 2, quote);
    EXPECT_EQ(wstring16(buffer, 4), (wstring16{0, 'b', 'c', 0}));
}

// The source ends without a terminator where the room does.
TEST(Quoting, ReadsNoMoreThanFits) {
    const std::unique_ptr<wchar16[]> source(new wchar16[4]{'a', 'b', 'c', 'd'});
    EXPECT_EQ(Apart(
                  [](wchar16* dst, const wchar16* src, uint64 size, const wchar16* with) {
                      const std::unique_ptr<wchar16[]> exact(new wchar16[4]);
                      std::copy_n(src, 4, exact.get());
                      return quotestring(dst, exact.get(), size, with);
                  },
                  ZUTEXT("abcd"), 7),
              ZUTEXT("'abcd'"));
    const std::unique_ptr<wchar16[]> nothing(new wchar16[0]);
    wchar16 buffer[3];
    EXPECT_EQ(wstring16(quotestring(buffer, nothing.get(), 3, quote)), ZUTEXT("''"));
    EXPECT_EQ(InPlace(quotestring, ZUTEXT("abcd"), 4), ZUTEXT("'a'"));
}

TEST(Quoting, TakesASizeThatStandsForNoLimit) {
    for (const uint64 size : test::SizesWithoutALimit) {
        wchar16 buffer[12];
        EXPECT_EQ(wstring16(quotestring(buffer, ZUTEXT("it's"), size, quote)), ZUTEXT("'it''s'")) << size;
        EXPECT_EQ(wstring16(unquotestring(buffer, ZUTEXT("'it''s'"), size, quote)), ZUTEXT("it's")) << size;
    }
}

TEST(Quoting, NullsAreRefused) {
    for (const Call call : {quotestring, unquotestring}) {
        for (const wchar16* const with : {quote, ZUTEXT("")}) {
            EXPECT_EQ(call(nullptr, nullptr, 4, with), nullptr);
            wchar16 buffer[4] = ZUTEXT("abc");
            EXPECT_EQ(call(buffer, nullptr, 0, with), buffer);
            EXPECT_EQ(wstring16(buffer), ZUTEXT("abc"));
            EXPECT_EQ(call(buffer, nullptr, 4, with), buffer);
            EXPECT_EQ(wstring16(buffer, 4), (wstring16{0, 'b', 'c', 0}));
        }
    }
}

TEST(Quoting, ANullTargetIsRefused) {
    for (const Call call : {quotestring, unquotestring}) {
        for (const wchar16* const with : {quote, ZUTEXT(""), static_cast<const wchar16*>(nullptr)}) {
            EXPECT_EQ(call(nullptr, ZUTEXT("'a'"), 4, with), nullptr);
            EXPECT_EQ(call(nullptr, ZUTEXT("a"), 4, with), nullptr);
        }
    }
}

TEST(Quoting, TheQuoteMayLieInTheTarget) {
    wchar16 quoted[20] = ZUTEXT("'it''s'");
    EXPECT_EQ(wstring16(unquotestring(quoted, quoted, 20, quoted)), ZUTEXT("it's"));
    wchar16 apart[20] = ZUTEXT("x'y");
    EXPECT_EQ(wstring16(unquotestring(apart, ZUTEXT("'it''s'"), 20, apart + 1)), ZUTEXT("it's"));
    wchar16 plain[20] = ZUTEXT("a'b");
    EXPECT_EQ(wstring16(quotestring(plain, plain, 20, plain + 1)), ZUTEXT("'a''b'"));
    wchar16 other[20] = ZUTEXT("x'y");
    EXPECT_EQ(wstring16(quotestring(other, ZUTEXT("it's"), 20, other + 1)), ZUTEXT("'it''s'"));
}

TEST(Unquoting, GivesTheTextBack) {
    EXPECT_EQ(Apart(unquotestring, ZUTEXT("'it''s'"), 20), ZUTEXT("it's"));
    EXPECT_EQ(InPlace(unquotestring, ZUTEXT("'it''s'"), 20), ZUTEXT("it's"));
    EXPECT_EQ(Apart(unquotestring, ZUTEXT("''"), 20), ZUTEXT(""));
    EXPECT_EQ(Apart(unquotestring, ZUTEXT("''''"), 20), ZUTEXT("'"));
}

TEST(Unquoting, DropsWhatFollowsTheClosingQuote) {
    EXPECT_EQ(Apart(unquotestring, ZUTEXT("'a'b"), 20), ZUTEXT("a"));
    EXPECT_EQ(Apart(unquotestring, ZUTEXT("'a''b'c''d"), 20), ZUTEXT("a'b"));
}

TEST(Unquoting, AnUnclosedQuoteEndsWithTheText) {
    EXPECT_EQ(Apart(unquotestring, ZUTEXT("'ab"), 20), ZUTEXT("ab"));
    EXPECT_EQ(Apart(unquotestring, ZUTEXT("'"), 20), ZUTEXT(""));
    EXPECT_EQ(Apart(unquotestring, ZUTEXT("'a''"), 20), ZUTEXT("a'"));
}

TEST(Unquoting, AnUnquotedTextIsABoundedCopy) {
    wchar16 buffer[8] = ZUTEXT("#######");
    unquotestring(buffer, ZUTEXT("a'b'"), 7, quote);
    EXPECT_EQ(wstring16(buffer, 8), (wstring16{'a', '\'', 'b', '\'', 0, 0, 0, 0}));
    unquotestring(buffer, ZUTEXT(""), 7, quote);
    EXPECT_EQ(wstring16(buffer, 8), wstring16(8, 0));
}

TEST(Unquoting, CutsToTheSize) {
    EXPECT_EQ(Apart(unquotestring, ZUTEXT("'abcd'"), 3), ZUTEXT("ab"));
    EXPECT_EQ(Apart(unquotestring, ZUTEXT("'a''b'"), 3), ZUTEXT("a'"));
    EXPECT_EQ(Apart(unquotestring, ZUTEXT("'abcd'"), 1), ZUTEXT(""));
    wchar16 buffer[2] = ZUTEXT("#");
    EXPECT_EQ(unquotestring(buffer, ZUTEXT("'a'"), 0, quote), buffer);
    EXPECT_EQ(buffer[0], '#');
}

TEST(Quoting, EverySizeAsThePlainForm) {
    test::Random random;
    SCOPED_TRACE(random.About());
    for (int i = 0; i < 3'000; ++i) {
        wstring16 text;
        for (int64 left = random.Between(0, 9); left > 0; --left) text += ZUTEXT("'ab'")[random.Between(0, 3)];
        for (uint64 size = 1; size < 24; ++size) {
            ASSERT_EQ(Apart(unquotestring, text, size), PlainUnquote(text, size, '\''));
            if (text.size() < size) {
                ASSERT_EQ(InPlace(unquotestring, text, size), PlainUnquote(text, size, '\''));
            }
            if (size < 3) continue;  // no room for the frame
            ASSERT_EQ(Apart(quotestring, text, size), PlainQuoteApart(text, size, '\''));
            ASSERT_EQ(InPlace(quotestring, text, size), PlainQuoteInPlace(text, size, '\''));
        }
        ASSERT_EQ(Apart(unquotestring, Apart(quotestring, text, 24), 24), text) << "there and back";
    }
}

}  // namespace
}  // namespace quoting_test
