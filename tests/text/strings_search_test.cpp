#include <Utility/instance.h>
#include <Utility/platform/host.h>
#include <Utility/strings.h>
#include <gtest/gtest.h>

#include <functional>
#include <thread>

#include "support/random_text.h"
#include "support/system_charset.h"

namespace strings_search_test {
namespace {

using namespace Torvo;
using Torvo::test::MixedCharacters;
using Torvo::test::RandomText;
using Torvo::test::SystemCharset;

// The plain forms: the rules of walking, a step at a time, on the system's own idea of a character.

wchar16 LowByteExtended(wchar16 c) {
    return static_cast<wchar16>(static_cast<signed char>(c & 0xFF));
}

uint64 PlainLength(const wchar16* s) {
    uint64 steps = 0;
    while (*s != 0) {
        s = zuNextChar(s);
        ++steps;
    }
    return steps;
}

const wchar16* PlainStrchr(const wchar16* s, wchar16 c) {
    c = LowByteExtended(c);
    for (;; s = zuNextChar(s)) {
        if (*s == c) return s;
        if (*s == 0) return nullptr;
    }
}

const wchar16* PlainStrrchr(const wchar16* s, wchar16 c) {
    const wchar16* last = nullptr;
    for (; *s != 0; s = zuNextChar(s)) {
        if (*s == c) last = s;
    }
    return c == 0 ? s : last;
}

const wchar16* PlainStrstr(const wchar16* s, const wchar16* sub) {
    if (*sub == 0) return s;
    const wstring16 wanted = sub;
    for (const wchar16* place = PlainStrchr(s, *sub); place != nullptr && *place != 0;
         place = PlainStrchr(zuNextChar(place), *sub)) {
        if (wstring16(place).substr(0, wanted.size()) == wanted) return place;
    }
    return nullptr;
}

bool PlainIsIn(wchar16 c, const wchar16* set) {
    for (; *set != 0; set = zuNextChar(set)) {
        if (*set == c) return true;
    }
    return false;
}

uint64 PlainSpan(const wchar16* s, const wchar16* set, bool inSet) {
    const wchar16* p = s;
    while (*p != 0 && PlainIsIn(*p, set) == inSet) p = zuNextChar(p);
    return static_cast<uint64>(p - s);
}

const wchar16* PlainStrpbrk(const wchar16* s, const wchar16* set) {
    const wchar16* const found = s + PlainSpan(s, set, false);
    return *found != 0 ? found : nullptr;
}

// `spanWithout` counts the units before the first member of the set.
int64 PlainLastIn(const wchar16* s, const std::function<uint64(const wchar16*)>& spanWithout) {
    int64 result = -1;
    if (*s == 0) return result;
    const wchar16* p = s;
    for (;;) {
        p += spanWithout(p);
        if (*p == 0) return result;
        result = p - s;
        p = zuNextChar(p);
        if (*p == 0) return result;
    }
}

const wchar16* PlainLastChar(const wchar16* s) {
    const wchar16* last = s;
    while (*s != 0) {
        last = s;
        s = zuNextChar(s);
    }
    return last;
}

// What a text is taken apart into, and what is left of it.
std::vector<wstring16> Tokens(wstring16& text, const wchar16* delimiters) {
    std::vector<wstring16> tokens;
    wchar16* context = nullptr;
    for (const wchar16* token = zuStrtok(text.data(), delimiters, &context); token != nullptr;
         token = zuStrtok(nullptr, delimiters, &context)) {
        tokens.emplace_back(token);
    }
    return tokens;
}

class OnEverySystem : public testing::TestWithParam<ZUCHARSET> {
protected:
    SystemCharset charset{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(StringSearch, OnEverySystem,
                         testing::Values(csNeutral, csWindowsLatin1, csWindowsTradChinese, csWindowsSimpChinese,
                                         csWindowsJapanese, csWindowsKorean, csWindowsThai));

TEST_P(OnEverySystem, Length) {
    EXPECT_EQ(zuStrLen(ZUTEXT("")), 0u);
    EXPECT_EQ(zuStrLen(ZUTEXT("abc")), 3u);
}

TEST_P(OnEverySystem, SearchForZeroFindsTheTerminator) {
    const wchar16 text[] = ZUTEXT("abc");
    EXPECT_EQ(zuStrchr(text, 0), text + 3);
    EXPECT_EQ(zuStrrchr(text, 0), text + 3);
    EXPECT_EQ(zuStrchr(text + 3, 0), text + 3);
    EXPECT_EQ(fast_strchr(text, 0), text + 3);
}

TEST_P(OnEverySystem, FirstAndLastPosition) {
    const wchar16 text[] = ZUTEXT("abcabc");
    EXPECT_EQ(zuStrchr(text, 'a'), text);
    EXPECT_EQ(zuStrchr(text, 'c'), text + 2);
    EXPECT_EQ(zuStrchr(text, 'x'), nullptr);
    EXPECT_EQ(zuStrrchr(text, 'a'), text + 3);
    EXPECT_EQ(zuStrrchr(text, 'c'), text + 5);
    EXPECT_EQ(zuStrrchr(text, 'x'), nullptr);
    EXPECT_EQ(zuStrchr(ZUTEXT(""), 'a'), nullptr);
    EXPECT_EQ(zuStrrchr(ZUTEXT(""), 'a'), nullptr);
}

TEST_P(OnEverySystem, SearchFromTheBackTakesAll16Bits) {
    const wchar16 text[] = ZUTEXT("\u3042B\u3042B");
    EXPECT_EQ(zuStrrchr(text, 0x3042), text + 2);
    EXPECT_EQ(zuStrrchr(text, 0x3142), nullptr);
}

TEST_P(OnEverySystem, PartOfAText) {
    const wchar16 text[] = ZUTEXT("ababc");
    EXPECT_EQ(zuStrstr(text, ZUTEXT("")), text);
    EXPECT_EQ(zuStrstr(text, ZUTEXT("abc")), text + 2);
    EXPECT_EQ(zuStrstr(text, ZUTEXT("c")), text + 4);
    EXPECT_EQ(zuStrstr(text, ZUTEXT("abcd")), nullptr);
    EXPECT_EQ(zuStrstr(ZUTEXT(""), ZUTEXT("a")), nullptr);
    const wchar16 empty[] = ZUTEXT("");
    EXPECT_EQ(zuStrstr(empty, ZUTEXT("")), empty);
}

TEST_P(OnEverySystem, Sets) {
    const wchar16 text[] = ZUTEXT("aab/c");
    EXPECT_EQ(zuStrpbrk(text, ZUTEXT("/b")), text + 2);
    EXPECT_EQ(zuStrpbrk(text, ZUTEXT("xyz")), nullptr);
    EXPECT_EQ(zuStrpbrk(text, ZUTEXT("")), nullptr);
    EXPECT_EQ(zuStrpbrk(ZUTEXT(""), ZUTEXT("a")), nullptr);
    EXPECT_EQ(zuStrspn(text, ZUTEXT("ba")), 3u);
    EXPECT_EQ(zuStrspn(text, ZUTEXT("")), 0u);
    EXPECT_EQ(zuStrspn(text, ZUTEXT("abc/")), 5u);
    EXPECT_EQ(zuStrcspn(text, ZUTEXT("/b")), 2u);
    EXPECT_EQ(zuStrcspn(text, ZUTEXT("")), 5u);
    EXPECT_EQ(zuStrcspn(text, ZUTEXT("x")), 5u);
    EXPECT_EQ(fast_strpbrk(text, ZUTEXT("/b")), text + 2);
}

TEST_P(OnEverySystem, LastOfASet) {
    EXPECT_EQ(strrcspn(ZUTEXT("a/b/c"), ZUTEXT("/")), 3);
    EXPECT_EQ(strrcspn(ZUTEXT("abc"), ZUTEXT("/")), -1);
    EXPECT_EQ(strrcspn(ZUTEXT(""), ZUTEXT("/")), -1);
    EXPECT_EQ(strrcspn(ZUTEXT("a/"), ZUTEXT("/")), 1);
    EXPECT_EQ(strrcspn(ZUTEXT("/"), ZUTEXT("/")), 0);
    EXPECT_EQ(strrcspn(ZUTEXT("abc"), ZUTEXT("")), -1);
}

TEST_P(OnEverySystem, LastCharacter) {
    const wchar16 empty[] = ZUTEXT("");
    const wchar16 text[] = ZUTEXT("ab");
    EXPECT_EQ(zuLastChar(empty), empty);
    EXPECT_EQ(zuLastChar(text), text + 1);
}

TEST_P(OnEverySystem, StepsStayWithinTheText) {
    const wchar16 text[] = ZUTEXT("ab");
    EXPECT_EQ(zuNextChar(text), text + 1);
    EXPECT_EQ(zuNextChar(text + 2), text + 2);
    EXPECT_EQ(zuPrevChar(text, text + 2), text + 1);
    EXPECT_EQ(zuPrevChar(text, text), text);
}

TEST_P(OnEverySystem, SystemTextHasNoLeadBytes) {
    EXPECT_FALSE(zuIsLeadByte(ZUTEXT("")));
    EXPECT_FALSE(zuIsLeadByte(ZUTEXT("\u0081a")));
    EXPECT_FALSE(zuIsLeadByte(ZUTEXT("\u3042")));
}

TEST_P(OnEverySystem, FastSearchesTakeTheUnitAsItIs) {
    const wchar16 text[] = ZUTEXT("B\u3042");
    EXPECT_EQ(fast_strchr(text, 0x3042), text + 1);
    EXPECT_EQ(fast_strpbrk(text, ZUTEXT("x\u3042")), text + 1);
    EXPECT_EQ(charset.Queries(), 0);
}

TEST_P(OnEverySystem, CharsetIsAskedForOnceInEveryCall) {
    wchar16 text[] = ZUTEXT("a/b/c");
    wchar16* context = nullptr;
    const auto queriesOf = [this](const std::function<void()>& call) {
        const int before = charset.Queries();
        call();
        return charset.Queries() - before;
    };
    EXPECT_EQ(queriesOf([&] { zuStrLen(text); }), 1);
    EXPECT_EQ(queriesOf([&] { zuStrchr(text, 'c'); }), 1);
    EXPECT_EQ(queriesOf([&] { zuStrrchr(text, 'c'); }), 1);
    EXPECT_EQ(queriesOf([&] { zuStrstr(text, ZUTEXT("c")); }), 1);
    EXPECT_EQ(queriesOf([&] { zuStrpbrk(text, ZUTEXT("c")); }), 1);
    EXPECT_EQ(queriesOf([&] { zuStrspn(text, ZUTEXT("a")); }), 1);
    EXPECT_EQ(queriesOf([&] { zuStrcspn(text, ZUTEXT("a")); }), 1);
    EXPECT_EQ(queriesOf([&] { strrcspn(text, ZUTEXT("/")); }), 1);
    EXPECT_EQ(queriesOf([&] { zuLastChar(text); }), 1);
    EXPECT_EQ(queriesOf([&] { zuStrtok(text, ZUTEXT("/"), &context); }), 1);
}

TEST_P(OnEverySystem, TokensOfThePlainTokenizer) {
    using List = std::vector<wstring16>;
    wstring16 text = ZUTEXT(",a,,b;c,");
    EXPECT_EQ(Tokens(text, ZUTEXT(",;")), (List{ZUTEXT("a"), ZUTEXT("b"), ZUTEXT("c")}));
    text = ZUTEXT(",,,");
    EXPECT_EQ(Tokens(text, ZUTEXT(",")), List{});
    text = ZUTEXT("");
    EXPECT_EQ(Tokens(text, ZUTEXT(",")), List{});
    text = ZUTEXT("a b");
    EXPECT_EQ(Tokens(text, ZUTEXT("")), List{ZUTEXT("a b")});
}

TEST(StringSteps, GoOverACharacterWithItsMarksAndBack) {
    const wchar16 text[] = ZUTEXT("\U0001F600e\u0301\u0323x");
    if (zuNextChar(text) == text + 1) GTEST_SKIP() << "this system's CharNextW steps by unit";
    const std::vector<std::ptrdiff_t> starts = {0, 2, 5, 6};
    for (std::size_t index = 1; index < starts.size(); ++index) {
        EXPECT_EQ(zuNextChar(text + starts[index - 1]), text + starts[index]);
        EXPECT_EQ(zuPrevChar(text, text + starts[index]), text + starts[index - 1]);
    }
    EXPECT_EQ(zuPrevChar(text + 4, text + 5), text + 4) << "not before the start, even within a character";
}

TEST(StringSearchPlain, LengthCountsUnits) {
    const SystemCharset western(csWindowsLatin1);
    EXPECT_EQ(zuStrLen(ZUTEXT("e\u0301")), 2u);
    EXPECT_EQ(zuStrLen(ZUTEXT("\U0001F600")), 2u);
}

TEST(StringSearchPlain, SearchTakesTheWholeUnit) {
    const SystemCharset western(csWindowsLatin1);
    const wchar16 text[] = ZUTEXT("aB\u3042\u0301");
    EXPECT_EQ(zuStrchr(text, 0x3042), text + 2);
    EXPECT_EQ(zuStrchr(text, 0x0301), text + 3);
    EXPECT_EQ(zuStrstr(text, ZUTEXT("\u3042")), text + 2);
    EXPECT_EQ(zuLastChar(text), text + 3);
}

TEST(StringSearchPlain, TokenizerNeverTouchesTheContext) {
    const SystemCharset western(csWindowsLatin1);
    wchar16 text[] = ZUTEXT("a,b");
    wchar16 other[] = ZUTEXT("x,y");
    wchar16* context = other;
    EXPECT_EQ(zuStrtok(text, ZUTEXT(","), &context), text);
    EXPECT_EQ(context, other);
    EXPECT_EQ(zuStrtok(nullptr, ZUTEXT(","), &context), text + 2);
    EXPECT_EQ(zuStrtok(nullptr, ZUTEXT(","), &context), nullptr);
    EXPECT_EQ(context, other);
    EXPECT_EQ(zuStrtok(text, ZUTEXT(","), nullptr), text);
}

TEST(StringSearchPlain, TokenizerHasOnePlacePerThread) {
    const SystemCharset western(csWindowsLatin1);
    wchar16 first[] = ZUTEXT("a,b");
    wchar16 second[] = ZUTEXT("x,y");
    wchar16* firstContext = nullptr;
    wchar16* secondContext = nullptr;
    EXPECT_EQ(zuStrtok(first, ZUTEXT(","), &firstContext), first);
    EXPECT_EQ(zuStrtok(second, ZUTEXT(","), &secondContext), second);
    EXPECT_EQ(zuStrtok(nullptr, ZUTEXT(","), &firstContext), second + 2);  // the second text, not the first

    EXPECT_EQ(zuStrtok(first, ZUTEXT(","), &firstContext), first);
    std::thread([&] {
        {
            const SystemCharset alsoWestern(csWindowsLatin1);
            EXPECT_EQ(zuStrtok(nullptr, ZUTEXT(","), &firstContext), nullptr);
        }
        InstanceData::Destroy(false, false);
    }).join();
}

class StringSearchWalking : public testing::Test {
protected:
    SystemCharset japanese{csWindowsJapanese};
};

TEST_F(StringSearchWalking, LengthCountsCharacters) {
    const wchar16 text[] = ZUTEXT("e\u0301");
    if (zuNextChar(text) == text + 1) GTEST_SKIP() << "this system's CharNextW does not step over combining marks";
    EXPECT_EQ(zuStrLen(text), 1u);
    EXPECT_EQ(zuStrLen(ZUTEXT("\U0001F600e\u0301\u0323x")), 3u);
    EXPECT_EQ(zuLastChar(text), text);
    EXPECT_EQ(zuStrchr(ZUTEXT("a\u0082\u3099"), 0x99), nullptr);
    EXPECT_EQ(zuStrrchr(text, 0x0301), nullptr);
    EXPECT_EQ(zuStrcspn(ZUTEXT("e\u0301x"), ZUTEXT("\u0301")), 3u);
    EXPECT_EQ(zuStrspn(ZUTEXT("e\u0301x"), ZUTEXT("e")), 2u);
}

TEST_F(StringSearchWalking, SearchTakesTheLowByteAlone) {
    const wchar16 text[] = ZUTEXT("a\u3042B\uFF82");
    EXPECT_EQ(zuStrchr(text, 0x3042), text + 2);
    EXPECT_EQ(zuStrchr(text, 0x0082), text + 3);
    EXPECT_EQ(zuStrchr(text, 0xFF82), text + 3);
    EXPECT_EQ(zuStrchr(ZUTEXT("\u0082"), 0x0082), nullptr);
    EXPECT_EQ(zuStrchr(ZUTEXT("\u3042"), 0x3042), nullptr);
    EXPECT_EQ(zuStrchr(text, 0x3000), text + 4);  // its low byte is 0
}

TEST_F(StringSearchWalking, PartIsLookedForByItsNarrowedFirstUnit) {
    const wchar16 text[] = ZUTEXT("xA\u3042B\uFF82y");
    EXPECT_EQ(zuStrstr(text, ZUTEXT("B\uFF82")), text + 3);
    EXPECT_EQ(zuStrstr(text, ZUTEXT("\u3042B")), nullptr);
    EXPECT_EQ(zuStrstr(text, ZUTEXT("\uFF82y")), text + 4);
    EXPECT_EQ(zuStrstr(text, ZUTEXT("\u3042")), nullptr);
}

TEST_F(StringSearchWalking, PartWhoseNarrowedFirstUnitIsZeroIsNotFound) {
    EXPECT_EQ(zuStrstr(ZUTEXT("a\u3000b"), ZUTEXT("\u3000")), nullptr);
    EXPECT_EQ(zuStrstr(ZUTEXT(""), ZUTEXT("\u0100x")), nullptr);
}

TEST_F(StringSearchWalking, TokenizerKeepsItsPlaceInTheContext) {
    wchar16 first[] = ZUTEXT("a,b");
    wchar16 second[] = ZUTEXT("x,y");
    wchar16* firstContext = nullptr;
    wchar16* secondContext = nullptr;
    EXPECT_EQ(zuStrtok(first, ZUTEXT(","), &firstContext), first);
    EXPECT_EQ(firstContext, first + 2);
    EXPECT_EQ(zuStrtok(second, ZUTEXT(","), &secondContext), second);
    EXPECT_EQ(zuStrtok(nullptr, ZUTEXT(","), &firstContext), first + 2);
    EXPECT_EQ(firstContext, first + 3);
    EXPECT_EQ(zuStrtok(nullptr, ZUTEXT(","), &secondContext), second + 2);
    EXPECT_EQ(zuStrtok(nullptr, ZUTEXT(","), &firstContext), nullptr);
    ASSERT_NE(firstContext, nullptr);
    EXPECT_EQ(*firstContext, 0);
    EXPECT_EQ(zuStrtok(nullptr, ZUTEXT(","), &firstContext), nullptr);
}

TEST_F(StringSearchWalking, TokenizerWithoutAPlaceToGoOnHasNoToken) {
    wchar16 text[] = ZUTEXT("a,b");
    EXPECT_EQ(zuStrtok(text, ZUTEXT(","), nullptr), nullptr);
    EXPECT_EQ(wstring16(text), ZUTEXT("a,b"));
    wchar16* context = nullptr;
    EXPECT_EQ(zuStrtok(nullptr, ZUTEXT(","), &context), nullptr);
    EXPECT_EQ(context, nullptr);
}

TEST_F(StringSearchWalking, TokenizerStepsOneUnitPastTheDelimiter) {
    wchar16 text[] = ZUTEXT("a,\u0301b");
    wchar16* context = nullptr;
    EXPECT_EQ(zuStrtok(text, ZUTEXT(","), &context), text);
    EXPECT_EQ(context, text + 2);
    EXPECT_EQ(zuStrtok(nullptr, ZUTEXT(","), &context), text + 2);
}

TEST_F(StringSearchWalking, AgreesWithThePlainForms) {
    RandomText random(1, MixedCharacters());
    for (int round = 0; round < 20000; ++round) {
        const wstring16 text = random.Text(16);
        const wstring16 set = random.Text(3);
        const wchar16* const s = text.c_str();
        const wstring16 drawn = random.Text(1);
        const wchar16 c = drawn.empty() ? wchar16{0} : drawn[0];
        ASSERT_EQ(zuStrLen(s), PlainLength(s)) << round;
        ASSERT_EQ(zuStrchr(s, c), PlainStrchr(s, c)) << round;
        ASSERT_EQ(zuStrrchr(s, c), PlainStrrchr(s, c)) << round;
        ASSERT_EQ(zuStrstr(s, set.c_str()), PlainStrstr(s, set.c_str())) << round;
        ASSERT_EQ(zuStrpbrk(s, set.c_str()), PlainStrpbrk(s, set.c_str())) << round;
        ASSERT_EQ(zuStrspn(s, set.c_str()), PlainSpan(s, set.c_str(), true)) << round;
        ASSERT_EQ(zuStrcspn(s, set.c_str()), PlainSpan(s, set.c_str(), false)) << round;
        const auto walked = [&set](const wchar16* p) { return PlainSpan(p, set.c_str(), false); };
        ASSERT_EQ(strrcspn(s, set.c_str()), PlainLastIn(s, walked)) << round;
        ASSERT_EQ(zuLastChar(s), PlainLastChar(s)) << round;
    }
}

// Without walking, the standard library's own searches are the plain form.
TEST(StringSearchPlain, AgreesWithTheStandardLibrary) {
    const SystemCharset western(csWindowsLatin1);
    RandomText random(4, MixedCharacters());
    const auto at = [](const wchar16* s, std::size_t index) { return index == wstring16::npos ? nullptr : s + index; };
    for (int round = 0; round < 20000; ++round) {
        const wstring16 text = random.Text(40);
        const wstring16 set = random.Text(6);
        const wchar16* const s = text.c_str();
        const wstring16 drawn = random.Text(1);
        const wchar16 c = drawn.empty() ? wchar16{0} : drawn[0];
        const std::size_t none = text.size();
        ASSERT_EQ(zuStrLen(s), text.size()) << round;
        ASSERT_EQ(zuStrchr(s, c), c == 0 ? s + none : at(s, text.find(c))) << round;
        ASSERT_EQ(zuStrrchr(s, c), c == 0 ? s + none : at(s, text.rfind(c))) << round;
        ASSERT_EQ(zuStrstr(s, set.c_str()), at(s, text.find(set))) << round;
        ASSERT_EQ(zuStrpbrk(s, set.c_str()), at(s, text.find_first_of(set))) << round;
        ASSERT_EQ(zuStrspn(s, set.c_str()), std::min(none, text.find_first_not_of(set))) << round;
        ASSERT_EQ(zuStrcspn(s, set.c_str()), std::min(none, text.find_first_of(set))) << round;
        const auto byUnit = [&](const wchar16* p) {
            return std::min(wstring16(p).size(), wstring16(p).find_first_of(set));
        };
        ASSERT_EQ(strrcspn(s, set.c_str()), PlainLastIn(s, byUnit)) << round;
        ASSERT_EQ(zuLastChar(s), text.empty() ? s : s + none - 1) << round;
    }
}

// The road through the thread's locale, instead of a stand-in for the service.
TEST(StringSearchWalking932, ThreadWithAJapaneseLocaleWalks) {
    std::thread([] {
        ASSERT_TRUE(platform::SetThreadLocale(0x0411));
        EXPECT_EQ(system_charset(), csWindowsJapanese);
        const wchar16 text[] = ZUTEXT("\u3042B");
        EXPECT_EQ(zuStrchr(text, 0x3042), text + 1);
        InstanceData::Destroy(false, false);
    }).join();
}

}  // namespace
}  // namespace strings_search_test
