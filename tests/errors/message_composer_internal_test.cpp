#include <Utility/errors/message_composer.h>
#include <Utility/strings.h>
#include <gtest/gtest.h>

namespace message_composer_internal_test {
namespace {

using namespace Torvo;

wstring16 Composed(const wchar16* format, uint64 limit = 1000, const wstring16& start = {}) {
    wstring16 message = start;
    ComposeMessage(&message, format, ZUTEXT("<first>"), ZUTEXT("<second>"), limit);
    return message;
}

TEST(MessageComposer, AppendsToWhatStands) {
    EXPECT_EQ(Composed(ZUTEXT("a^0"), 1000, ZUTEXT("start ")), ZUTEXT("start a<first>"));
    EXPECT_EQ(Composed(ZUTEXT(""), 1000, ZUTEXT("start ")), ZUTEXT("start "));
}

TEST(MessageComposer, FillsParametersInAnyOrderAndNumber) {
    EXPECT_EQ(Composed(ZUTEXT("^1^0^1")), ZUTEXT("<second><first><second>"));
    EXPECT_EQ(Composed(ZUTEXT("^^0 ^^^0")), ZUTEXT("^0 ^<first>"));
}

TEST(MessageComposer, EndsAtACaretBeforeAnyOtherUnit) {
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const wchar16 format[] = {'a', '^', static_cast<wchar16>(unit), 'b', 0};
        const bool isPair = unit == '0' || unit == '1' || unit == '^';
        if (isPair) continue;
        ASSERT_EQ(Composed(format), ZUTEXT("a")) << unit;
    }
}

TEST(MessageComposer, EndsAtItsLimitWithoutCuttingAParameter) {
    EXPECT_EQ(Composed(ZUTEXT("abcdef"), 3), ZUTEXT("abc"));
    EXPECT_EQ(Composed(ZUTEXT("ab^0def"), 3), ZUTEXT("ab<first>"));
    EXPECT_EQ(Composed(ZUTEXT("a"), 3, ZUTEXT("xyz")), ZUTEXT("xyz"));
    EXPECT_EQ(Composed(ZUTEXT("^^^^^^"), 2), ZUTEXT("^^"));
}

TEST(MessageComposer, CopiesTheFirstUnitOfEachCharacter) {
    const wchar16* const format = ZUTEXT("e\u0301x\U0001F600\u0301^0\u0302z");
    wstring16 expected;
    for (const wchar16* p = format; *p != 0; p = zuNextChar(p)) {
        if (*p == '^') {
            expected += ZUTEXT("<first>");
            // The pair is stepped over as two units, so a mark behind it counts as a character.
            ++p;
            expected += p[1];
            p += 1;
        } else {
            expected += *p;
        }
    }
    EXPECT_EQ(Composed(format), expected);
}

}  // namespace
}  // namespace message_composer_internal_test
