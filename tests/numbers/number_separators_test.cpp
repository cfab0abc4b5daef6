#include <Utility/number_printing.h>
#include <gtest/gtest.h>
#include <support/user_locale.h>

#include <algorithm>
#include <random>

namespace number_separators_test {
namespace {

using namespace Torvo;
using test::UserLocale;

// Formats a text in a buffer of its own size, between guards.
wstring16 Formatted(const wstring16& text, uint64 size = 64) {
    wstring16 buffer(128, '#');
    std::copy_n(text.c_str(), text.size() + 1, &buffer[8]);
    FormatNumberForUI(&buffer[8], size);
    EXPECT_EQ(buffer.substr(0, 8), wstring16(8, '#'));
    const uint64 used = std::max<uint64>(size, text.size() + 1);
    EXPECT_EQ(buffer.substr(8 + used), wstring16(120 - used, '#'));
    return &buffer[8];
}

wstring16 Deformatted(const wstring16& text) {
    wstring16 buffer(128, '#');
    DeformatNumberFromUI(text.c_str(), &buffer[8]);
    EXPECT_EQ(buffer.substr(0, 8), wstring16(8, '#'));
    EXPECT_EQ(buffer.substr(9 + text.size()), wstring16(119 - text.size(), '#'));
    return &buffer[8];
}

TEST(NumberSeparators, GettersAnswerForTheUsersLocale) {
    UserLocale german(',', '.', 2);
    EXPECT_EQ(GetDecimalSeparator(), ',');
    EXPECT_EQ(GetThousandsSeparator(), '.');
    EXPECT_EQ(GetThousandsGroupSize(), 2);
}

int asked;

TEST(NumberSeparators, TheCallbackIsAskedAtEachLookUp) {
    UserLocale german(',', '.', 2);
    SetNumberFormatCallback([] {
        ++asked;
        return true;
    });
    asked = 0;
    EXPECT_EQ(GetDecimalSeparator(), '.');
    EXPECT_EQ(GetThousandsSeparator(), ',');
    EXPECT_EQ(GetThousandsGroupSize(), 3);
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(Formatted(ZUTEXT("1234.5")), ZUTEXT("1,234.5"));
    EXPECT_EQ(asked, 6);
    EXPECT_EQ(Formatted(ZUTEXT("1234")), ZUTEXT("1,234"));
    EXPECT_EQ(asked, 8);
    EXPECT_EQ(Deformatted(ZUTEXT("1,234.5")), ZUTEXT("1234.5"));
    EXPECT_EQ(asked, 10);

    SetNumberFormatCallback([] { return false; });
    EXPECT_EQ(GetDecimalSeparator(), ',');
}

TEST(NumberSeparators, GroupsOfThree) {
    UserLocale english('.', ',', 3);
    EXPECT_EQ(Formatted(ZUTEXT("1234567.25")), ZUTEXT("1,234,567.25"));
    EXPECT_EQ(Formatted(ZUTEXT("1234567")), ZUTEXT("1,234,567"));
    EXPECT_EQ(Formatted(ZUTEXT("123")), ZUTEXT("123"));
    EXPECT_EQ(Formatted(ZUTEXT("-123")), ZUTEXT("-123"));
    EXPECT_EQ(Formatted(ZUTEXT("-1234")), ZUTEXT("-1,234"));
    EXPECT_EQ(Formatted(ZUTEXT("1.5e+20")), ZUTEXT("1.5e+20"));
    EXPECT_EQ(Formatted(ZUTEXT("123456")), ZUTEXT("123,456"));
    EXPECT_EQ(Formatted(ZUTEXT("$1234.00")), ZUTEXT("$1,234.00"));
    EXPECT_EQ(Formatted(ZUTEXT("")), ZUTEXT(""));
    EXPECT_EQ(Formatted(ZUTEXT(".5")), ZUTEXT(".5"));
    EXPECT_EQ(Formatted(ZUTEXT("inf")), ZUTEXT("inf"));
    EXPECT_EQ(Formatted(ZUTEXT("1e+100")), ZUTEXT("1e+100"));
}

TEST(NumberSeparators, GroupingGoesOnLeftOfTheLeftmostSeparator) {
    UserLocale english('.', ',', 3);
    EXPECT_EQ(Formatted(ZUTEXT("1234567,890.5")), ZUTEXT("1,234,567,890.5"));
    EXPECT_EQ(Formatted(ZUTEXT("12,34567.5")), ZUTEXT("12,34567.5"));
}

TEST(NumberSeparators, GroupsOfOtherSizes) {
    UserLocale two('.', ',', 2);
    EXPECT_EQ(Formatted(ZUTEXT("12345.5")), ZUTEXT("1,23,45.5"));
    UserLocale one('.', ',', 1);
    EXPECT_EQ(Formatted(ZUTEXT("123")), ZUTEXT("1,2,3"));
    UserLocale none('.', ',', 0);
    EXPECT_EQ(Formatted(ZUTEXT("1234567.25")), ZUTEXT("1234567.25"));
    UserLocale negative('.', ',', -1);
    EXPECT_EQ(Formatted(ZUTEXT("1234567.25")), ZUTEXT("1234567.25"));
}

TEST(NumberSeparators, SeparatorsThatTradePlaces) {
    UserLocale german(',', '.', 3);
    EXPECT_EQ(Formatted(ZUTEXT("1234567.25")), ZUTEXT("1.234.567,25"));
    EXPECT_EQ(Formatted(ZUTEXT("1234567")), ZUTEXT("1.234.567"));
    EXPECT_EQ(Formatted(ZUTEXT("12.25")), ZUTEXT("12,25"));
    EXPECT_EQ(Deformatted(ZUTEXT("1.234.567,5")), ZUTEXT("1234567.5"));
}

TEST(NumberSeparators, ASeparatorThatTheLocaleDoesNotHave) {
    UserLocale nothing(0, 0, 3);
    EXPECT_EQ(Formatted(ZUTEXT("1234567.25")), ZUTEXT("1234567.25"));
    EXPECT_EQ(Deformatted(ZUTEXT("1,234.5")), ZUTEXT("1,234.5"));
}

TEST(NumberSeparators, InsertionStopsWhenTheBufferIsFull) {
    UserLocale german(',', '.', 3);
    EXPECT_EQ(Formatted(ZUTEXT("1234567.25"), 13), ZUTEXT("1.234.567,25"));
    EXPECT_EQ(Formatted(ZUTEXT("1234567.25"), 12), ZUTEXT("1234.567,25"));
    EXPECT_EQ(Formatted(ZUTEXT("1234567.25"), 11), ZUTEXT("1234567,25"));  // one free unit: the decimal point alone
    EXPECT_EQ(Formatted(ZUTEXT("1234567.25"), 10), ZUTEXT("1234567,25"));
    EXPECT_EQ(Formatted(ZUTEXT("1234.5"), 1), ZUTEXT("1234,5"));
    EXPECT_EQ(Formatted(ZUTEXT("1234.5"), 0), ZUTEXT("1234,5"));
}

TEST(NumberSeparators, DeformattingRemovesAllSeparatorsAndTurnsTheLastDecimal) {
    UserLocale english('.', ',', 3);
    EXPECT_EQ(Deformatted(ZUTEXT("1,2,,34,")), ZUTEXT("1234"));
    EXPECT_EQ(Deformatted(ZUTEXT("")), ZUTEXT(""));
    UserLocale german(',', '.', 3);
    EXPECT_EQ(Deformatted(ZUTEXT("1,5,25")), ZUTEXT("1,5.25"));
    UserLocale space(',', 0x202F, 3);
    EXPECT_EQ(Deformatted(ZUTEXT("1\u202F234,5")), ZUTEXT("1234.5"));
    UserLocale equal(',', ',', 3);
    EXPECT_EQ(Deformatted(ZUTEXT("1,5")), ZUTEXT("15"));
}

TEST(NumberSeparators, NullTextsAreLeftAlone) {
    wchar16 text[] = ZUTEXT("x");
    FormatNumberForUI(nullptr, 10);
    FormatNumberForUI(text, 0);
    DeformatNumberFromUI(nullptr, text);
    DeformatNumberFromUI(text, nullptr);
    EXPECT_EQ(wstring16(text), ZUTEXT("x"));
}

// Whatever is formatted reads back, and what stands between the separators has the size of a group.
TEST(NumberSeparators, RandomNumbersReadBack) {
    std::mt19937 random(3);
    for (int round = 0; round < 20000; ++round) {
        const bool german = random() % 2 == 0;
        UserLocale locale(german ? ',' : '.', german ? '.' : ',', static_cast<int16>(random() % 5));
        wstring16 number(random() % 2 == 0 ? ZUTEXT("-") : ZUTEXT(""));
        for (auto digits = random() % 12 + 1; digits > 0; --digits) number += static_cast<wchar16>('0' + random() % 10);
        if (random() % 2 == 0) number += ZUTEXT(".25");
        const wstring16 formatted = Formatted(number, number.size() + 1 + random() % 12);
        // A point that is a separator of groups is gone from the neutral form, so only a decimal one decides.
        EXPECT_EQ(Deformatted(formatted), number);
    }
}

}  // namespace
}  // namespace number_separators_test
