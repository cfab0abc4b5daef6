#include <Utility/errors.h>
#include <Utility/strings.h>
#include <Utility/text_tools.h>
#include <gtest/gtest.h>
#include <reference/plain_like.h>
#include <support/random.h>

#include <algorithm>
#include <string>
#include <vector>

namespace like_test {
namespace {

using namespace Torvo;
using test::PlainLike;

// The verdict, or "bad" for a pattern that is refused. What *match holds before must not matter.
std::string Match(const wstring16& text, const wstring16& pattern, const wstring16& escape = ZUTEXT("")) {
    bool results[2] = {false, true};
    for (bool& match : results) {
        if (!Like(text.c_str(), pattern.c_str(), escape.c_str(), &match)) return match ? "bad, but set" : "bad";
    }
    EXPECT_EQ(results[0], results[1]);
    return results[0] ? "yes" : "no";
}

class LikeTest : public testing::Test {
protected:
    void SetUp() override { ClearErrors(); }
    void TearDown() override { ClearErrors(); }
};

TEST_F(LikeTest, LiteralsAreComparedWithCase) {
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("abc")), "yes");
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("abd")), "no");
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("ab")), "no");
    EXPECT_EQ(Match(ZUTEXT("ab"), ZUTEXT("abc")), "no");
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("ABC")), "no");
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("A%")), "no");
    EXPECT_EQ(Match(ZUTEXT("\u0416\u0443\u043A"), ZUTEXT("\u0416\u0443%")), "yes");
    EXPECT_EQ(Match(ZUTEXT("\u0416\u0443\u043A"), ZUTEXT("\u0436\u0443%")), "no");
}

TEST_F(LikeTest, ARunStandsForAnyNumberOfCharacters) {
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("a%c")), "yes");
    EXPECT_EQ(Match(ZUTEXT("ac"), ZUTEXT("a%c")), "yes");
    EXPECT_EQ(Match(ZUTEXT("abcbc"), ZUTEXT("a%c")), "yes");
    EXPECT_EQ(Match(ZUTEXT("abcb"), ZUTEXT("a%c")), "no");
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("%")), "yes");
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("%%")), "yes");
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("%b%")), "yes");
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("%d%")), "no");
    EXPECT_EQ(Match(ZUTEXT("aab"), ZUTEXT("%ab")), "yes");
    EXPECT_EQ(Match(ZUTEXT("abab"), ZUTEXT("%ab")), "yes");
    EXPECT_EQ(Match(ZUTEXT("abcabd"), ZUTEXT("ab%ab_")), "yes");
}

TEST_F(LikeTest, AnUnderlineStandsForOneCharacter) {
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("a_c")), "yes");
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("a__c")), "no");
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("___")), "yes");
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("__")), "no");
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("____")), "no");
    EXPECT_EQ(Match(ZUTEXT(""), ZUTEXT("_")), "no");
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("%_")), "yes");
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("_%")), "yes");
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("%____")), "no");
    EXPECT_EQ(Match(ZUTEXT("xxaybx"), ZUTEXT("%a_b_")), "yes");
}

TEST_F(LikeTest, EmptyTexts) {
    EXPECT_EQ(Match(ZUTEXT(""), ZUTEXT("")), "yes");
    EXPECT_EQ(Match(ZUTEXT("a"), ZUTEXT("")), "no");
    EXPECT_EQ(Match(ZUTEXT(""), ZUTEXT("a")), "no");
    EXPECT_EQ(Match(ZUTEXT(""), ZUTEXT("%")), "yes");
}

TEST_F(LikeTest, NullsAreRefused) {
    EXPECT_FALSE(Like(ZUTEXT("a"), ZUTEXT("a"), ZUTEXT(""), nullptr));
    for (const wchar16* const other : {static_cast<const wchar16*>(nullptr), ZUTEXT("%")}) {
        bool match = true;
        EXPECT_TRUE(Like(nullptr, other, ZUTEXT(""), &match));
        EXPECT_FALSE(match);
        match = true;
        EXPECT_TRUE(Like(other, nullptr, ZUTEXT(""), &match));
        EXPECT_FALSE(match);
    }
    EXPECT_EQ(NumErrors(), 0);
}

// A run at the end of the text matches only if it ends the pattern.
TEST_F(LikeTest, TwoRunsAtTheEndOfTheTextDoNotMatch) {
    EXPECT_EQ(Match(ZUTEXT(""), ZUTEXT("%%")), "no");
    EXPECT_EQ(Match(ZUTEXT("a"), ZUTEXT("a%")), "yes");
    EXPECT_EQ(Match(ZUTEXT("a"), ZUTEXT("a%%")), "no");
    EXPECT_EQ(Match(ZUTEXT("ab"), ZUTEXT("a%%")), "yes");
    EXPECT_EQ(Match(ZUTEXT("xa"), ZUTEXT("%a%%")), "no");
    EXPECT_EQ(Match(ZUTEXT("aa"), ZUTEXT("%a%%")), "yes");
    EXPECT_EQ(Match(ZUTEXT("a"), ZUTEXT("%%%%")), "yes");
}

TEST_F(LikeTest, AnEscapedCharacterIsALiteral) {
    EXPECT_EQ(Match(ZUTEXT("100%"), ZUTEXT("100!%"), ZUTEXT("!")), "yes");
    EXPECT_EQ(Match(ZUTEXT("1000"), ZUTEXT("100!%"), ZUTEXT("!")), "no");
    EXPECT_EQ(Match(ZUTEXT("a_b"), ZUTEXT("a!_b"), ZUTEXT("!")), "yes");
    EXPECT_EQ(Match(ZUTEXT("axb"), ZUTEXT("a!_b"), ZUTEXT("!")), "no");
    EXPECT_EQ(Match(ZUTEXT("a!b"), ZUTEXT("a!!b"), ZUTEXT("!")), "yes");
    EXPECT_EQ(Match(ZUTEXT("50% off"), ZUTEXT("%!%%"), ZUTEXT("!")), "yes");
    EXPECT_EQ(Match(ZUTEXT("half off"), ZUTEXT("%!%%"), ZUTEXT("!")), "no");
    EXPECT_EQ(Match(ZUTEXT("a"), ZUTEXT("!%"), ZUTEXT("!")), "no");
    EXPECT_EQ(Match(ZUTEXT(""), ZUTEXT("!%"), ZUTEXT("!")), "no");
    EXPECT_EQ(NumErrors(), 0);
}

TEST_F(LikeTest, OnlyTheFirstUnitOfTheEscapeCounts) {
    EXPECT_EQ(Match(ZUTEXT("a%"), ZUTEXT("a!%"), ZUTEXT("!?")), "yes");
    EXPECT_EQ(Match(ZUTEXT("a?b"), ZUTEXT("a?b"), ZUTEXT("!?")), "yes");
}

TEST_F(LikeTest, AnEmptyEscapeMeansNone) {
    EXPECT_EQ(Match(ZUTEXT("a!b"), ZUTEXT("a!b"), ZUTEXT("")), "yes");
    EXPECT_EQ(Match(ZUTEXT("a!b"), ZUTEXT("a!%"), ZUTEXT("")), "yes");
    bool match = false;
    EXPECT_TRUE(Like(ZUTEXT("a!b"), ZUTEXT("a!%"), nullptr, &match));
    EXPECT_TRUE(match);
}

TEST_F(LikeTest, TheEscapeMayBeAWildcard) {
    EXPECT_EQ(Match(ZUTEXT("100%"), ZUTEXT("100%%"), ZUTEXT("%")), "yes");
    EXPECT_EQ(Match(ZUTEXT("1000"), ZUTEXT("100%%"), ZUTEXT("%")), "no");
    EXPECT_EQ(Match(ZUTEXT("a_"), ZUTEXT("%__"), ZUTEXT("_")), "yes");
    EXPECT_EQ(Match(ZUTEXT("ab"), ZUTEXT("%__"), ZUTEXT("_")), "no");
    EXPECT_EQ(Match(ZUTEXT("ab"), ZUTEXT("a%"), ZUTEXT("%")), "bad");
}

TEST_F(LikeTest, ABadEscapeIsAnError) {
    const auto raises = [](const wchar16* text, const wchar16* pattern) {
        ClearErrors();
        bool match = true;
        EXPECT_FALSE(Like(text, pattern, ZUTEXT("!"), &match));
        EXPECT_FALSE(match);
        return NumErrors() == 1 && GetErrorNum(0) == 19 && GetResourceID(0) == 61;
    };
    EXPECT_TRUE(raises(ZUTEXT("100%"), ZUTEXT("1!0")));
    EXPECT_TRUE(raises(ZUTEXT("1"), ZUTEXT("1!")));
    EXPECT_TRUE(raises(ZUTEXT(""), ZUTEXT("!x")));
    EXPECT_TRUE(raises(ZUTEXT("abc"), ZUTEXT("%c!x")));
    EXPECT_TRUE(raises(ZUTEXT("abc"), ZUTEXT("%!x")));
    EXPECT_TRUE(raises(ZUTEXT("ab"), ZUTEXT("__!x")));
}

TEST_F(LikeTest, ABadEscapeBehindAFailureIsNotSeen) {
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("x!y"), ZUTEXT("!")), "no");
    EXPECT_EQ(Match(ZUTEXT(""), ZUTEXT("%!y"), ZUTEXT("!")), "no");
    EXPECT_EQ(Match(ZUTEXT("abc"), ZUTEXT("%x!y"), ZUTEXT("!")), "no");
    EXPECT_EQ(Match(ZUTEXT("a"), ZUTEXT("__!y"), ZUTEXT("!")), "no");
    EXPECT_EQ(NumErrors(), 0);
}

TEST_F(LikeTest, ACharacterIsKnownByItsFirstUnit) {
    const wchar16 marked[] = ZUTEXT("e\u0301x");
    if (zuNextChar(marked) == marked + 1) GTEST_SKIP() << "this system's CharNextW does not step over combining marks";
    EXPECT_EQ(Match(ZUTEXT("e\u0301x"), ZUTEXT("_x")), "yes");
    EXPECT_EQ(Match(ZUTEXT("e\u0301x"), ZUTEXT("ex")), "yes");
    EXPECT_EQ(Match(ZUTEXT("ex"), ZUTEXT("e\u0301x")), "yes");
    EXPECT_EQ(Match(ZUTEXT("abcde\u0301fgh"), ZUTEXT("abcdefgh")), "yes");
    EXPECT_EQ(Match(ZUTEXT("e\u0301x"), ZUTEXT("%\u0301x")), "yes") << "the mark belongs to the run";
    EXPECT_EQ(Match(ZUTEXT(""), ZUTEXT("%\u0301")), "yes") << "the mark belongs to the run of the pattern";
    EXPECT_EQ(Match(ZUTEXT("ab"), ZUTEXT("%b%\u0301")), "yes");
    EXPECT_EQ(Match(ZUTEXT("aab"), ZUTEXT("%a\u0301%"), ZUTEXT("\u0301")), "yes")
        << "a mark that joins escapes nothing";
    EXPECT_EQ(Match(ZUTEXT("\U0001F600"), ZUTEXT("_")), "yes");
    EXPECT_EQ(Match(ZUTEXT("\U0001F600"), ZUTEXT("\U0001F601")), "yes") << "the first halves are equal";
}

// Without care these take longer than the sun will shine, or more stack than there is.
TEST_F(LikeTest, HostilePatternsTakeNoLongerThanTheProductOfTheLengths) {
    const wstring16 text(10'000, 'a');
    EXPECT_EQ(Match(text, ZUTEXT("%a%a%a%a%a%a%b")), "no");
    EXPECT_EQ(Match(text, ZUTEXT("%a%a%a%a%a%a%!b"), ZUTEXT("!")), "bad");
    EXPECT_EQ(Match(text, ZUTEXT("%_%_%_%_%_%_%_%_%b")), "no");
    EXPECT_EQ(Match(text, wstring16(10'000, '%')), "yes");
    EXPECT_EQ(Match(text, wstring16(10'000, '_')), "yes");
    EXPECT_EQ(Match(text, ZUTEXT("%") + wstring16(3'000, 'a') + ZUTEXT("b")), "no");
    wstring16 pattern;
    for (int i = 0; i < 5'000; ++i) pattern += ZUTEXT("%a");
    EXPECT_EQ(Match(text, pattern), "yes");
    EXPECT_EQ(Match(text, pattern + ZUTEXT("%b")), "no");
    for (int i = 0; i < 5'001; ++i) pattern += ZUTEXT("%a");
    EXPECT_EQ(Match(text, pattern), "no");
}

wstring16 RandomFrom(test::Random& random, const std::vector<wstring16>& characters, int64 most) {
    wstring16 text;
    const auto last = static_cast<int64>(characters.size()) - 1;
    for (int64 left = random.Between(0, most); left > 0; --left) {
        text += characters[static_cast<std::size_t>(random.Between(0, last))];
    }
    return text;
}

void CompareWithThePlainForm(const std::vector<wstring16>& textCharacters,
                             const std::vector<wstring16>& patternCharacters, int cases) {
    const std::vector<wstring16> escapes = {ZUTEXT(""),  ZUTEXT("!"), ZUTEXT("!"),      ZUTEXT("%"),
                                            ZUTEXT("_"), ZUTEXT("a"), ZUTEXT("\u0301"), ZUTEXT("\u02FF")};
    test::Random random;
    SCOPED_TRACE(random.About());
    for (int i = 0; i < cases; ++i) {
        const wstring16 text = RandomFrom(random, textCharacters, 9);
        const wstring16 pattern = RandomFrom(random, patternCharacters, 8);
        const wstring16& escape = escapes[static_cast<std::size_t>(random.Between(0, 7))];
        bool expected = true;
        int errors = 0;
        const bool isGood = PlainLike(text.c_str(), pattern.c_str(), escape.c_str(), &expected, &errors);
        bool match = !expected;
        ASSERT_EQ(Like(text.c_str(), pattern.c_str(), escape.c_str(), &match), isGood);
        ASSERT_EQ(match, expected) << i;
        ASSERT_EQ(NumErrors(), errors);
        if (errors != 0) ClearErrors();
    }
}

TEST_F(LikeTest, AnswersAsThePlainFormDoes) {
    CompareWithThePlainForm(
        {ZUTEXT("a"), ZUTEXT("b"), ZUTEXT("c"), ZUTEXT("%"), ZUTEXT("_")},
        {ZUTEXT("a"), ZUTEXT("b"), ZUTEXT("a"), ZUTEXT("b"), ZUTEXT("%"), ZUTEXT("%"), ZUTEXT("_"), ZUTEXT("!")},
        60'000);
}

TEST_F(LikeTest, AnswersAsThePlainFormDoesAmongMarksAndPairs) {
    const std::vector<wstring16> joining = {ZUTEXT("a"),       ZUTEXT("b"),          ZUTEXT("\u0301"),
                                            ZUTEXT("\u3042"),  ZUTEXT("\U0001F600"), {wchar16{0xD83D}},
                                            {wchar16{0xDE00}}, ZUTEXT("\u02FF"),     ZUTEXT("\u0300")};
    std::vector<wstring16> wild = joining;
    for (const wchar16* const unit : {ZUTEXT("%"), ZUTEXT("%"), ZUTEXT("%"), ZUTEXT("_"), ZUTEXT("!"), ZUTEXT("a")}) {
        wild.push_back(unit);
    }
    CompareWithThePlainForm(joining, wild, 60'000);
}

// A text in a buffer of two pages, at some place of it, so that it may go over the border between them or end there.
class Placed {
public:
    Placed(test::Random& random, const wstring16& text) : buffer_(3 * kPage, wchar16{'a'}) {
        const auto address = reinterpret_cast<std::uintptr_t>(buffer_.data());
        const std::size_t border = (kPage * sizeof(wchar16) - address % (kPage * sizeof(wchar16))) / sizeof(wchar16);
        const auto size = static_cast<int64>(text.size()) + 1;
        start_ = kPage + border - static_cast<std::size_t>(random.Between(random.OneIn(2) ? size : 0, size + 20));
        std::copy_n(text.c_str(), text.size() + 1, &buffer_[start_]);
    }
    const wchar16* Start() const { return &buffer_[start_]; }

private:
    static constexpr std::size_t kPage = 2048;

    std::vector<wchar16> buffer_;
    std::size_t start_;
};

// Pieces of the text, now and then a unit of them changed, with a few runs between them.
wstring16 PatternFor(test::Random& random, const wstring16& text, const std::vector<wstring16>& characters) {
    wstring16 pattern;
    std::size_t at = 0;
    for (int64 runs = random.Between(0, 3);; --runs) {
        const auto left = static_cast<int64>(text.size() - at);
        const auto taken = static_cast<std::size_t>(runs > 0 ? random.Between(0, left) : left);
        wstring16 piece = text.substr(at, taken);
        for (wchar16& unit : piece) {
            if (random.OneIn(12)) unit = '_';
            if (random.OneIn(200)) unit = characters[static_cast<std::size_t>(random.Between(0, 3))][0];
        }
        pattern += piece;
        at += taken;
        if (runs == 0) return pattern;
        pattern += '%';
        at += static_cast<std::size_t>(random.Between(0, static_cast<int64>(text.size() - at)));
    }
}

// Matches a text with a pattern whose escape is "!", both of them at the end of pages, and compares the answer and the
// errors with the plain form's; whether they match.
bool MatchesAsThePlainFormDoes(test::Random& random, const wstring16& text, const wstring16& pattern) {
    const Placed placedText(random, text);
    const Placed placedPattern(random, pattern);
    bool expected = true;
    int errors = 0;
    const bool isGood = PlainLike(text.c_str(), pattern.c_str(), ZUTEXT("!"), &expected, &errors);
    bool match = !expected;
    EXPECT_EQ(Like(placedText.Start(), placedPattern.Start(), ZUTEXT("!"), &match), isGood);
    EXPECT_EQ(match, expected);
    EXPECT_EQ(NumErrors(), errors);
    if (errors != 0) ClearErrors();
    return match;
}

// Rounds of random texts and patterns; how many of them match.
int CompareOnLongTexts(const std::vector<wstring16>& characters, int64 longest, int rounds) {
    test::Random random;
    SCOPED_TRACE(random.About());
    int matches = 0;
    for (int i = 0; i < rounds; ++i) {
        const wstring16 text = RandomFrom(random, characters, longest);
        const wstring16 pattern = PatternFor(random, text, characters);
        SCOPED_TRACE(i);
        matches += MatchesAsThePlainFormDoes(random, text, pattern);
        if (testing::Test::HasFailure()) return -1;
    }
    return matches;
}

TEST_F(LikeTest, AnswersAsThePlainFormDoesOnLongTexts) {
    const std::vector<wstring16> plain = {ZUTEXT("a"), ZUTEXT("b"), ZUTEXT("b"), ZUTEXT("c")};
    std::vector<wstring16> joining = plain;
    for (const wchar16* const unit : {ZUTEXT("\u0301"), ZUTEXT("\u0436"), ZUTEXT("\u00FF"), ZUTEXT("\uFE20")}) {
        joining.push_back(unit);
    }
    for (const std::vector<wstring16>& characters : {plain, joining}) {
        const int matches = CompareOnLongTexts(characters, 60, 10'000);
        EXPECT_GT(matches, 2'500) << "the patterns fit often enough";
        EXPECT_LT(matches, 9'500);
    }
}

// About as long as what is looked at in one go, with the highest units that have a byte and the first that have none.
TEST_F(LikeTest, AnswersAsThePlainFormDoesOnTextsAboutAsLongAsABlock) {
    const std::vector<wstring16> highest = {ZUTEXT("a"),      ZUTEXT("b"),      ZUTEXT("B"),     ZUTEXT("-"),
                                            ZUTEXT("\u00FE"), ZUTEXT("\u00FD"), ZUTEXT("\u0080")};
    EXPECT_GT(CompareOnLongTexts(highest, 36, 10'000), 2'500);
    std::vector<wstring16> beyond(20, ZUTEXT("a"));
    for (const wchar16* const unit : {ZUTEXT("\u00FF"), ZUTEXT("\u0100"), ZUTEXT("\u02FF"), ZUTEXT("\u8000")}) {
        beyond.push_back(unit);
    }
    EXPECT_GT(CompareOnLongTexts(beyond, 36, 10'000), 2'500);
}

TEST_F(LikeTest, AnswersAsThePlainFormDoesWithEscapesOnLongTexts) {
    EXPECT_GT(CompareOnLongTexts({ZUTEXT("a"), ZUTEXT("a"), ZUTEXT("b"), ZUTEXT("!"), ZUTEXT("_")}, 40, 10'000), 100);
    EXPECT_GT(CompareOnLongTexts({ZUTEXT("a"), ZUTEXT("b"), ZUTEXT("c"), ZUTEXT("%")}, 12, 10'000), 1'000);
}

// Texts full of wildcards, and patterns that escape them as they should, but for one in a hundred.
wstring16 EscapedPatternFor(test::Random& random, const wstring16& text) {
    wstring16 pattern;
    for (const wchar16 unit : text) {
        if (random.OneIn(10)) {
            pattern += random.OneIn(2) ? ZUTEXT("_") : ZUTEXT("%");
            continue;
        }
        const bool isWild = unit == '%' || unit == '_' || unit == '!';
        if (isWild != random.OneIn(100)) pattern += '!';
        pattern += unit;
    }
    return pattern;
}

TEST_F(LikeTest, AnswersAsThePlainFormDoesWithManyEscapes) {
    test::Random random;
    SCOPED_TRACE(random.About());
    int matches = 0;
    for (int i = 0; i < 20'000; ++i) {
        const wstring16 text =
            RandomFrom(random, {ZUTEXT("a"), ZUTEXT("b"), ZUTEXT("a"), ZUTEXT("%"), ZUTEXT("_"), ZUTEXT("!")}, 24);
        const wstring16 pattern = EscapedPatternFor(random, text);
        SCOPED_TRACE(i);
        matches += MatchesAsThePlainFormDoes(random, text, pattern);
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_GT(matches, 10'000);
}

// Every part of a text of every length up to beyond what is looked at in one go.
TEST_F(LikeTest, AnswersAsThePlainFormDoesAtEveryLength) {
    for (std::size_t length = 0; length < 36; ++length) {
        wstring16 text;
        for (std::size_t index = 0; index < length; ++index) text += static_cast<wchar16>('a' + index % 26);
        for (std::size_t first = 0; first <= length; ++first) {
            for (std::size_t count = 0; first + count <= length; ++count) {
                const wstring16 part = text.substr(first, count);
                const bool isEnd = first + count == length;
                const bool isLast = count == 0 || text.rfind(part) == length - count;
                EXPECT_EQ(Match(text, ZUTEXT("%") + part), isLast || isEnd ? "yes" : "no") << length << " " << first;
                const bool isNothing = count == 0 && length == 0;
                EXPECT_EQ(Match(text, ZUTEXT("%") + part + ZUTEXT("%")), isNothing ? "no" : "yes") << length;
                if (count == 0) continue;
                wstring16 other = part;
                other[count / 2] = '-';
                EXPECT_EQ(Match(text, ZUTEXT("%") + other + ZUTEXT("%")), "no") << length << " " << first;
                other[count / 2] = '_';
                EXPECT_EQ(Match(text, ZUTEXT("%") + other + ZUTEXT("%")), "yes") << length << " " << first;
            }
        }
    }
}

// The last part is looked for at the end of the text, where each character is one unit.
TEST_F(LikeTest, TheLastPartStandsAtTheEndOfALongText) {
    const wstring16 start(100, 'x');
    EXPECT_EQ(Match(start + ZUTEXT("abc"), ZUTEXT("%a%b_")), "yes");
    EXPECT_EQ(Match(start + ZUTEXT("abc"), ZUTEXT("%x%xxb_")), "no");
    EXPECT_EQ(Match(start + ZUTEXT("abcd"), ZUTEXT("%a%b_")), "no");
    EXPECT_EQ(Match(start, ZUTEXT("%x%") + start), "no") << "as long as the whole text";
    EXPECT_EQ(Match(start, ZUTEXT("%") + start), "yes");
    EXPECT_EQ(Match(start + ZUTEXT("!"), ZUTEXT("%x%xx!!"), ZUTEXT("!")), "yes");
    EXPECT_EQ(Match(start + ZUTEXT("%"), ZUTEXT("%xxy%xx!%"), ZUTEXT("!")), "no");
    EXPECT_EQ(Match(start, ZUTEXT("%x%xx!x"), ZUTEXT("!")), "bad");
}

TEST_F(LikeTest, TheLastPartIsLookedForAmongMarks) {
    const wstring16 start(100, 'x');
    const wchar16 marked[] = ZUTEXT("e\u0301x");
    if (zuNextChar(marked) == marked + 1) GTEST_SKIP() << "this system's CharNextW does not step over combining marks";
    EXPECT_EQ(Match(start + ZUTEXT("ae\u0301b"), ZUTEXT("%x%ae_")), "yes");
    EXPECT_EQ(Match(start + ZUTEXT("ae\u0301b"), ZUTEXT("%x%a__")), "yes");
    EXPECT_EQ(Match(start + ZUTEXT("aebe\u0301"), ZUTEXT("%x%e_e")), "yes");
    EXPECT_EQ(Match(start + ZUTEXT("aebe\u0301"), ZUTEXT("%x%e__")), "yes");
    EXPECT_EQ(Match(start + ZUTEXT("aebe\u0301"), ZUTEXT("%x%a__")), "no");
}

}  // namespace
}  // namespace like_test
