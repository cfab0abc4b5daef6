// The readers of times and spans beside their plain form, on random texts that are nearly times.
#include <Utility/date_times.h>
#include <gtest/gtest.h>
#include <reference/plain_time_reader.h>

#include <cstring>
#include <string>

#include "support/random.h"
#include "support/time_locale.h"
#include "support/times.h"

namespace time_reader_internal_test {
namespace {

using namespace Torvo;
using namespace Torvo::test;

// Pieces that times and spans are made of, and some that do not belong there.
wstring16 RandomPiece(Random& random, const TimeHabits& habits) {
    switch (random.Between(0, 11)) {
        case 0:
            return habits.separator;
        case 1:
            return habits.separator2;
        case 2:
            return ZUTEXT(" ");
        case 3:
            return ZUTEXT(".");
        case 4:
            return habits.am;
        case 5:
            return habits.pm;
        case 6:
            return wstring16(1, static_cast<wchar16>(random.Between(1, 0x80)));
        case 7:
            return random.OneIn(2) ? ZUTEXT("-") : ZUTEXT("+");
        case 8:
            return wstring16(static_cast<std::size_t>(random.Between(1, 14)), '0' + random.OneIn(2));
        default: {
            const std::string number = std::to_string(random.Between(0, random.OneIn(4) ? 99999 : 61));
            return {number.begin(), number.end()};
        }
    }
}

wstring16 RandomText(Random& random, const TimeHabits& habits) {
    wstring16 text;
    if (random.OneIn(3)) {
        // Mostly right: hours, separator, minutes, separator, seconds.
        const auto number = [&](int64 highest) {
            const std::string digits = std::to_string(random.Between(0, highest));
            text.append(digits.begin(), digits.end());
        };
        if (random.OneIn(4)) {
            number(9);
            text += '.';
        }
        number(25);
        text += habits.separator;
        number(61);
        if (random.OneIn(2)) {
            text += habits.separator2;
            number(61);
        }
        if (random.OneIn(3)) {
            text += '.';
            number(99999999);
        }
        if (random.OneIn(2)) text += ' ';
        if (random.OneIn(2)) text += random.OneIn(2) ? habits.am : habits.pm;
        return text;
    }
    const int64 pieces = random.Between(0, 8);
    for (int64 i = 0; i < pieces; ++i) text += RandomPiece(random, habits);
    return text;
}

std::string Shown(const wstring16& text) {
    std::string shown;
    for (const wchar16 unit : text) {
        shown += unit < 0x80 ? std::string(1, static_cast<char>(unit)) : '<' + std::to_string(unit) + '>';
    }
    return shown;
}

bool SameBits(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

void Compare(const TimeHabits& habits, const wstring16& text) {
    SCOPED_TRACE(Shown(text));
    const PlainTimeReader plain(habits);
    const std::optional<int64> expectedTime = plain.ReadTime(text.c_str());
    const Time time(CreateTimeFromString(text.c_str()));
    ASSERT_EQ(time != nullptr, expectedTime.has_value());
    if (time != nullptr) {
        ASSERT_EQ(time->GetTicks(), *expectedTime);
    }

    int32 expectedHours = 7;
    int32 expectedMinutes = 8;
    double expectedSeconds = 9.5;
    int32 hours = 7;
    int32 minutes = 8;
    double seconds = 9.5;
    const bool expected = plain.Parse(text.c_str(), &expectedHours, &expectedMinutes, &expectedSeconds);
    ASSERT_EQ(ParseTimeString(text.c_str(), &hours, &minutes, &seconds), expected);
    ASSERT_EQ(hours, expectedHours);
    ASSERT_EQ(minutes, expectedMinutes);
    ASSERT_TRUE(SameBits(seconds, expectedSeconds));

    const std::optional<int64> expectedSpan = plain.ReadSpan(text.c_str());
    const TimeSpan span(CreateTimeSpanFromString(text.c_str()));
    ASSERT_EQ(span != nullptr, expectedSpan.has_value());
    if (span != nullptr) {
        ASSERT_EQ(span->GetTicks(), *expectedSpan);
    }
}

void CompareManyTexts(const TimeHabits& habits) {
    const TimeLocale locale(habits);
    Random random;
    SCOPED_TRACE(random.About());
    for (int i = 0; i < 10'000 && !testing::Test::HasFatalFailure(); ++i) Compare(habits, RandomText(random, habits));
}

TEST(TimeReaders, AnswerAsTheirPlainForm) {
    CompareManyTexts({});
}

TEST(TimeReaders, AnswerAsTheirPlainFormWithTheMarkFirst) {
    TimeHabits habits;
    habits.am = ZUTEXT("\uC624\uC804");
    habits.pm = ZUTEXT("\uC624\uD6C4");
    habits.markPosition = 1;
    CompareManyTexts(habits);
}

TEST(TimeReaders, AnswerAsTheirPlainFormWithOtherSeparators) {
    TimeHabits habits;
    habits.am = ZUTEXT("");
    habits.pm = ZUTEXT("p.m.");
    habits.separator = ZUTEXT(".");
    habits.separator2 = ZUTEXT("::");
    CompareManyTexts(habits);
}

TEST(TimeReaders, AnswerAsTheirPlainFormForLiteralsOfSpans) {
    const TimeHabits habits;
    const TimeLocale locale(habits);
    Random random;
    SCOPED_TRACE(random.About());
    for (int i = 0; i < 10'000 && !HasFatalFailure(); ++i) {
        const int64 highest = random.OneIn(2) ? 12'000'000 : 3'000'000'000;
        std::string digits = std::to_string(random.Between(0, highest));
        for (int digit = 0; digit < 13; ++digit) digits += static_cast<char>('0' + random.Between(0, 9));
        if (random.OneIn(2)) digits.insert(0, random.OneIn(4) ? "+" : "-");
        Compare(habits, wstring16(digits.begin(), digits.end()));
    }
}

}  // namespace
}  // namespace time_reader_internal_test
