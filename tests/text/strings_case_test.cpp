#include <Utility/strings.h>
#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "support/random_text.h"

namespace strings_case_test {
namespace {

using namespace Torvo;
using Torvo::test::RandomText;

int Sign(int32 value) {
    return (value > 0) - (value < 0);
}

// Sets the runtime's character locale while it lives: the environment's, or where that is "C", one that is always
// there.
class CharacterLocale {
public:
    CharacterLocale() : former(std::setlocale(LC_CTYPE, nullptr)) {
        if (std::setlocale(LC_CTYPE, "") == nullptr || !IsNotC()) std::setlocale(LC_CTYPE, "C.UTF-8");
    }
    ~CharacterLocale() { std::setlocale(LC_CTYPE, former.c_str()); }
    CharacterLocale(const CharacterLocale&) = delete;
    CharacterLocale& operator=(const CharacterLocale&) = delete;

    bool IsNotC() const { return std::string(std::setlocale(LC_CTYPE, nullptr)) != "C"; }

private:
    std::string former;
};

TEST(StringCase, Classes) {
    EXPECT_EQ(zuIsAlpha('a'), 1);
    EXPECT_EQ(zuIsAlpha('Z'), 1);
    EXPECT_EQ(zuIsAlpha('0'), 0);
    EXPECT_EQ(zuIsAlpha('_'), 0);
    EXPECT_EQ(zuIsAlpha(0), 0);
    EXPECT_EQ(zuIsAlpha(0x00E9), 1);
    EXPECT_EQ(zuIsAlpha(0x0416), 1);
    EXPECT_EQ(zuIsAlpha(0x3042), 1);
    EXPECT_EQ(zuIsAlphaNum('0'), 1);
    EXPECT_EQ(zuIsAlphaNum('a'), 1);
    EXPECT_EQ(zuIsAlphaNum('-'), 0);
    EXPECT_EQ(zuIsAlphaNum(0x0661), 1);
    EXPECT_EQ(zuIsLower('a'), 1);
    EXPECT_EQ(zuIsLower('A'), 0);
    EXPECT_EQ(zuIsLower('1'), 0);
    EXPECT_EQ(zuIsUpper('A'), 1);
    EXPECT_EQ(zuIsUpper('a'), 0);
    EXPECT_EQ(zuIsUpper(0x0416), 1);
    EXPECT_EQ(zuIsLower(0x0436), 1);
}

TEST(StringCase, UnitsChangeCaseInPairsAlone) {
    EXPECT_EQ(zuToLower('A'), 'a');
    EXPECT_EQ(zuToLower('a'), 'a');
    EXPECT_EQ(zuToLower('['), '[');
    EXPECT_EQ(zuToUpper('z'), 'Z');
    EXPECT_EQ(zuToLower(0), 0);
    EXPECT_EQ(zuToUpper(0), 0);
    EXPECT_EQ(zuToUpper(0x00E9), 0x00C9);
    EXPECT_EQ(zuToLower(0x0416), 0x0436);
    EXPECT_EQ(zuToUpper(0x00DF), 0x00DF);  // sharp s has no capital of its own
    EXPECT_EQ(zuToUpper(0x00FF), 0x0178);
    EXPECT_EQ(zuToUpper(0x0131), 0x0131);  // dotless i would come back as i
    EXPECT_EQ(zuToUpper(0x03C2), 0x03C2);  // final sigma likewise
    for (unsigned unit = 1; unit <= 0xFFFF; ++unit) {
        const auto c = static_cast<wchar16>(unit);
        ASSERT_EQ(zuToLower(zuToUpper(zuToLower(c))), zuToLower(c)) << unit;
    }
}

TEST(StringCase, TextsChangeInPlace) {
    wchar16 text[] = ZUTEXT("aBc \u0416\u00E9 1\U0001F600");
    EXPECT_EQ(zuStrLwr(text), text);
    EXPECT_EQ(wstring16(text), ZUTEXT("abc \u0436\u00E9 1\U0001F600"));
    EXPECT_EQ(zuStrUpr(text), text);
    EXPECT_EQ(wstring16(text), ZUTEXT("ABC \u0416\u00C9 1\U0001F600"));
    wchar16 empty[] = ZUTEXT("");
    EXPECT_EQ(zuStrLwr(empty), empty);
    EXPECT_EQ(zuStrUpr(empty), empty);
}

TEST(StringComparison, WithCaseIsByUnsignedUnit) {
    EXPECT_EQ(zuStrCmp(ZUTEXT(""), ZUTEXT("")), 0);
    EXPECT_EQ(zuStrCmp(ZUTEXT("abc"), ZUTEXT("abc")), 0);
    EXPECT_EQ(zuStrCmp(ZUTEXT("abc"), ZUTEXT("abz")), -1);
    EXPECT_EQ(zuStrCmp(ZUTEXT("abz"), ZUTEXT("abc")), 1);
    EXPECT_EQ(zuStrCmp(ZUTEXT("ab"), ZUTEXT("abc")), -1);
    EXPECT_EQ(zuStrCmp(ZUTEXT("abc"), ZUTEXT("ab")), 1);
    EXPECT_EQ(zuStrCmp(ZUTEXT("\uFFFD"), ZUTEXT("a")), 1);
    EXPECT_EQ(zuStrCmp(ZUTEXT("A"), ZUTEXT("a")), -1);
}

TEST(StringComparison, EqualityWithCase) {
    EXPECT_TRUE(strequ(ZUTEXT("abc"), ZUTEXT("abc")));
    EXPECT_FALSE(strequ(ZUTEXT("abc"), ZUTEXT("abC")));
    EXPECT_FALSE(strequ(ZUTEXT("abc"), ZUTEXT("ab")));
    EXPECT_TRUE(strnequ(ZUTEXT("abcd"), ZUTEXT("abcx"), 3));
    EXPECT_FALSE(strnequ(ZUTEXT("abcd"), ZUTEXT("abcx"), 4));
    EXPECT_TRUE(strnequ(ZUTEXT("abc"), ZUTEXT("abc"), 100));
    EXPECT_FALSE(strnequ(ZUTEXT("abc"), ZUTEXT("abcd"), 100));
    EXPECT_TRUE(strnequ(ZUTEXT("a"), ZUTEXT("b"), 0));
}

TEST(StringComparison, WithoutCase) {
    EXPECT_EQ(zuStrICmp(ZUTEXT("aBc"), ZUTEXT("AbC")), 0);
    EXPECT_LT(zuStrICmp(ZUTEXT("abc"), ZUTEXT("ABD")), 0);
    EXPECT_GT(zuStrICmp(ZUTEXT("ABD"), ZUTEXT("abc")), 0);
    EXPECT_GT(zuStrICmp(ZUTEXT("abc"), ZUTEXT("AB")), 0);
    EXPECT_LT(zuStrICmp(ZUTEXT("_"), ZUTEXT("A")), 0);  // capitals are compared as small letters
    EXPECT_EQ(zuStrNICmp(ZUTEXT("abX"), ZUTEXT("ABy"), 2), 0);
    EXPECT_LT(zuStrNICmp(ZUTEXT("abX"), ZUTEXT("ABy"), 3), 0);
    EXPECT_EQ(zuStrNICmp(ZUTEXT("a"), ZUTEXT("b"), 0), 0);
    EXPECT_TRUE(striequ(ZUTEXT("aBc"), ZUTEXT("AbC")));
    EXPECT_FALSE(striequ(ZUTEXT("aBc"), ZUTEXT("AbCd")));
}

TEST(StringComparison, PrefixWithoutCase) {
    EXPECT_TRUE(strniequ(ZUTEXT("ABCD"), ZUTEXT("abcx"), 3));
    EXPECT_FALSE(strniequ(ZUTEXT("ABCD"), ZUTEXT("abcx"), 4));
    EXPECT_TRUE(strniequ(ZUTEXT("a"), ZUTEXT("b"), 0));
    EXPECT_TRUE(strniequ(ZUTEXT("ab"), ZUTEXT("AB"), 3));
    EXPECT_FALSE(strniequ(ZUTEXT("ab"), ZUTEXT("ABC"), 3));
    EXPECT_TRUE(strniequ(ZUTEXT("ab"), ZUTEXT("ABC"), 2));
    // Beyond the 256 units that a copy on the stack could hold, and beyond any memory.
    for (const uint64 length : {uint64{255}, uint64{256}, uint64{257}, uint64{300}, uint64{5000}}) {
        const wstring16 lower(length, 'x');
        const wstring16 upper(length, 'X');
        EXPECT_TRUE(strniequ((lower + ZUTEXT("a")).c_str(), (upper + ZUTEXT("b")).c_str(), length));
        EXPECT_FALSE(strniequ((lower + ZUTEXT("a")).c_str(), (upper + ZUTEXT("b")).c_str(), length + 1));
        EXPECT_TRUE(strniequ(lower.c_str(), upper.c_str(), uint64{1} << 32));
        EXPECT_FALSE(strniequ((lower + ZUTEXT("a")).c_str(), upper.c_str(), uint64{1} << 31));
    }
}

TEST(StringComparison, OnlyAToZFoldInTheCLocale) {
    ASSERT_STREQ(std::setlocale(LC_CTYPE, nullptr), "C");
    EXPECT_FALSE(striequ(ZUTEXT("\u00E9"), ZUTEXT("\u00C9")));
    EXPECT_FALSE(striequ(ZUTEXT("\u0436"), ZUTEXT("\u0416")));
    EXPECT_FALSE(strniequ(ZUTEXT("x\u0436"), ZUTEXT("X\u0416"), 2));
    EXPECT_GT(zuStrICmp(ZUTEXT("\u0436"), ZUTEXT("\u0416")), 0);
    EXPECT_FALSE(striequ(ZUTEXT("K"), ZUTEXT("\u212A")));
}

TEST(StringComparison, OtherLettersFoldInAnotherLocale) {
    const CharacterLocale locale;
    if (!locale.IsNotC()) GTEST_SKIP() << "there is no character locale but \"C\" here";
    EXPECT_TRUE(striequ(ZUTEXT("a\u00E9z"), ZUTEXT("A\u00C9Z")));
    EXPECT_TRUE(striequ(ZUTEXT("\u0436\u0416"), ZUTEXT("\u0416\u0436")));
    EXPECT_EQ(zuStrICmp(ZUTEXT("\u0436"), ZUTEXT("\u0416")), 0);
    EXPECT_EQ(zuStrNICmp(ZUTEXT("\u0436a"), ZUTEXT("\u0416b"), 1), 0);
    EXPECT_LT(zuStrICmp(ZUTEXT("\u0436a"), ZUTEXT("\u0416b")), 0);
    EXPECT_TRUE(strniequ(ZUTEXT("x\u0436"), ZUTEXT("X\u0416"), 2));
    EXPECT_FALSE(striequ(ZUTEXT("\u0436"), ZUTEXT("\u0417")));
    EXPECT_FALSE(strequ(ZUTEXT("\u0436"), ZUTEXT("\u0416")));
}

// The plain forms.

wchar16 Folded(wchar16 c) {
    return c >= 'A' && c <= 'Z' ? static_cast<wchar16>(c - 'A' + 'a') : c;
}

int PlainCompare(const wstring16& a, const wstring16& b, uint64 n, bool fold) {
    for (uint64 index = 0; index < n; ++index) {
        const wchar16 left = fold ? Folded(a.c_str()[index]) : a.c_str()[index];
        const wchar16 right = fold ? Folded(b.c_str()[index]) : b.c_str()[index];
        if (left != right) return left < right ? -1 : 1;
        if (left == 0) return 0;
    }
    return 0;
}

TEST(StringComparison, AgreesWithThePlainForm) {
    ASSERT_STREQ(std::setlocale(LC_CTYPE, nullptr), "C");
    RandomText random(5, {ZUTEXT("a"), ZUTEXT("A"), ZUTEXT("a"), ZUTEXT("A"), ZUTEXT("["), ZUTEXT("@"), ZUTEXT("{"),
                          ZUTEXT("\u0141"), ZUTEXT("\uFF41"), ZUTEXT("\u8041"), ZUTEXT("z"), ZUTEXT("Z")});
    constexpr uint64 all = ~uint64{0};
    for (int round = 0; round < 50000; ++round) {
        // Long common beginnings, and every alignment of one text to the other.
        const wstring16 common = random.Text(40);
        wstring16 other = common;
        for (wchar16& unit : other) {
            if (unit == 'a' && random.Number(2) == 1) unit = 'A';
        }
        const wstring16 a = common + random.Text(3);
        const wstring16 b = other + random.Text(3);
        const std::size_t leftOffset = random.Number(8);
        const std::size_t rightOffset = random.Number(8);
        const wstring16 leftBuffer = wstring16(leftOffset, '-') + a;
        const wstring16 rightBuffer = wstring16(rightOffset, '-') + b;
        const wchar16* const left = leftBuffer.c_str() + leftOffset;
        const wchar16* const right = rightBuffer.c_str() + rightOffset;
        const uint64 n = random.Number(48);
        ASSERT_EQ(zuStrCmp(left, right), PlainCompare(a, b, all, false)) << round;
        ASSERT_EQ(strequ(left, right), a == b) << round;
        ASSERT_EQ(strnequ(left, right, n), PlainCompare(a, b, n, false) == 0) << round;
        ASSERT_EQ(Sign(zuStrICmp(left, right)), PlainCompare(a, b, all, true)) << round;
        ASSERT_EQ(Sign(zuStrNICmp(left, right, n)), PlainCompare(a, b, n, true)) << round;
        ASSERT_EQ(striequ(left, right), PlainCompare(a, b, all, true) == 0) << round;
        ASSERT_EQ(strniequ(left, right, n), PlainCompare(a, b, n, true) == 0) << round;
    }
}

}  // namespace
}  // namespace strings_case_test
