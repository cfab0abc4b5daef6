#include <Utility/locale_info.h>
#include <Utility/platform/host.h>
#include <Utility/time_spans.h>
#include <gtest/gtest.h>

#include "support/guarded_buffer.h"
#include "support/thread_locale.h"
#include "support/time_locale.h"
#include "support/times.h"

namespace time_span_text_test {
namespace {

using namespace Torvo;
using namespace Torvo::test;

std::string Read(const wchar16* text) {
    const TimeLocale locale({});
    return ToldAndGone(CreateTimeSpanFromString(text));
}

wstring16 Written(zuTimeSpan* made, bool dot, const wchar16* picture = nullptr, uint64 size = 64) {
    const TimeSpan span(made);
    GuardedBuffer out(size);
    return span->ToString(out.Start(), size, picture, dot) ? out.Text() : ZUTEXT("refused");
}

class TimeSpanText : public testing::Test {
private:
    const ThreadLocale english{0x0409};
};

// ---- Writing

TEST_F(TimeSpanText, HasSignDaysPointAndTime) {
    EXPECT_EQ(Written(CreateTimeSpan(3, 12, 0, 0), true), ZUTEXT("3.12:00:00.0000000"));
    EXPECT_EQ(Written(CreateTimeSpan(-3, -12, 0, 0), true), ZUTEXT("-3.12:00:00.0000000"));
    EXPECT_EQ(Written(CreateTimeSpan(-1, -30, 0), true), ZUTEXT("-0.01:30:00.0000000"));
    EXPECT_EQ(Written(CreateTimeSpan(12, 0, 0), false), ZUTEXT("012:00:00.0000000"));
    EXPECT_EQ(Written(CreateTimeSpan(0, 0, -1), true), ZUTEXT("-0.00:00:01.0000000"));
    EXPECT_EQ(Written(CreateTimeSpan(0, 0, -1), false), ZUTEXT("-000:00:01.0000000"));
    EXPECT_EQ(Written(CreateTimeSpan(int64{0}), true), ZUTEXT("0.00:00:00.0000000"));
    EXPECT_EQ(Written(CreateTimeSpan(1, 25, 0, 0, 1234567), true), ZUTEXT("2.01:00:00.1234567")) << "below 24 hours";
    EXPECT_EQ(Written(CreateTimeSpan(HighestInt64), true), ZUTEXT("10675199.02:48:05.4775807"));
    EXPECT_EQ(Written(CreateTimeSpan(LowestInt64), true), ZUTEXT("-10675199.02:48:05.4775808"));
}

TEST_F(TimeSpanText, TakesAPictureInTwentyFourHoursWithoutAMark) {
    EXPECT_EQ(Written(CreateTimeSpan(1, 13, 5, 9, 1234567), true, ZUTEXT("h:mm")), ZUTEXT("1.13:05"));
    EXPECT_EQ(Written(CreateTimeSpan(1, 13, 5, 9, 1234567), true, ZUTEXT("hh:mm:ss.ff")), ZUTEXT("1.13:05:09.12"));
    EXPECT_EQ(Written(CreateTimeSpan(-1, -13, -5, -9, -1234567), true, ZUTEXT("ss.fff")), ZUTEXT("-1.09.123"));
    EXPECT_EQ(Written(CreateTimeSpan(1, 13, 5, 9), true, ZUTEXT("h:mm tt")), ZUTEXT("1.13:05"));
    EXPECT_EQ(Written(CreateTimeSpan(1, 13, 5, 9, 1234567), true, ZUTEXT("ffffffff HH")), ZUTEXT("1.1234567"));
    EXPECT_EQ(Written(CreateTimeSpan(1, 13, 5, 9), true, ZUTEXT("")), ZUTEXT("1."));
    EXPECT_EQ(Written(CreateTimeSpan(1, 13, 5, 9), false, ZUTEXT("")), ZUTEXT("1"));
}

TEST_F(TimeSpanText, TheTimeHasAtMost31Units) {
    const wstring16 longest = ZUTEXT("'") + wstring16(29, 'x') + ZUTEXT("'HH");
    EXPECT_EQ(Written(CreateTimeSpan(5, 0, 0), false, longest.c_str()),
              ZUTEXT("0") + wstring16(29, 'x') + ZUTEXT("05"));
    EXPECT_EQ(Written(CreateTimeSpan(5, 0, 0), false, (longest + ZUTEXT(":")).c_str()), ZUTEXT("refused"));
}

TEST_F(TimeSpanText, TakesASizeThatStandsForNoLimit) {
    const TimeSpan span(CreateTimeSpan(3, 12, 0, 0));
    for (const uint64 size : SizesWithoutALimit) {
        wchar16 out[32];
        EXPECT_TRUE(span->ToString(out, size, nullptr, true));
        EXPECT_EQ(wstring16(out), ZUTEXT("3.12:00:00.0000000")) << size;
    }
}

TEST_F(TimeSpanText, IsRefusedWhereItDoesNotFit) {
    // "3" and "12:00:00.0000000" are 17 units.
    EXPECT_EQ(Written(CreateTimeSpan(3, 12, 0, 0), false, nullptr, 18), ZUTEXT("312:00:00.0000000"));
    EXPECT_EQ(Written(CreateTimeSpan(3, 12, 0, 0), true, nullptr, 19), ZUTEXT("3.12:00:00.0000000"));
    EXPECT_EQ(Written(CreateTimeSpan(-3, -12, 0, 0), false, nullptr, 19), ZUTEXT("-312:00:00.0000000"));
    EXPECT_EQ(Written(CreateTimeSpan(-3, -12, 0, 0), true, nullptr, 20), ZUTEXT("-3.12:00:00.0000000"));
    const TimeSpan forward(CreateTimeSpan(3, 12, 0, 0));
    const TimeSpan back(CreateTimeSpan(-3, -12, 0, 0));
    for (const bool dot : {false, true}) {
        for (const uint64 size : {0u, 1u, 2u, 16u, 17u}) {
            GuardedBuffer out(size);
            out.Start()[0] = '#';
            EXPECT_FALSE(forward->ToString(out.Start(), size, nullptr, dot));
            EXPECT_EQ(*out.Start(), '#') << "left alone";
        }
        GuardedBuffer out(18);
        EXPECT_FALSE(back->ToString(out.Start(), 18, nullptr, dot));
        EXPECT_EQ(*out.Start(), '#');
    }
    EXPECT_FALSE(forward->ToString(nullptr, 40, nullptr, true));
    EXPECT_FALSE(forward->ToString(nullptr, 0, nullptr, true));
}

TEST_F(TimeSpanText, APointTooManyShowsWhileWriting) {
    GuardedBuffer out(18);
    EXPECT_FALSE(TimeSpan(CreateTimeSpan(3, 12, 0, 0))->ToString(out.Start(), 18, nullptr, true));
    EXPECT_EQ(out.Text(), ZUTEXT("3.12:00:00.000000")) << "cut";
    GuardedBuffer negative(19);
    EXPECT_FALSE(TimeSpan(CreateTimeSpan(-3, -12, 0, 0))->ToString(negative.Start(), 19, nullptr, true));
    EXPECT_EQ(negative.Text(), ZUTEXT("-3.12:00:00.000000"));
}

// ---- Reading literals

TEST_F(TimeSpanText, DigitsAreALiteral) {
    EXPECT_EQ(Read(ZUTEXT("31200000000000")), "3d 12h 0m 0s 0");
    EXPECT_EQ(Read(ZUTEXT("-31200000000000")), "-3d -12h 0m 0s 0");
    EXPECT_EQ(Read(ZUTEXT("+31200000000000")), "3d 12h 0m 0s 0");
    EXPECT_EQ(Read(ZUTEXT("-01205092500000")), "0d -12h -5m -9s -2500000");
    EXPECT_EQ(Read(ZUTEXT("00000000000000")), "0d 0h 0m 0s 0");
    EXPECT_EQ(Read(ZUTEXT("106751990248054775807")), "10675199d 2h 48m 5s 4775807");
    EXPECT_EQ(Read(ZUTEXT("-106751990248054775808")), "-10675199d -2h -48m -5s -4775808");
    EXPECT_EQ(Read((wstring16(1000, '0') + ZUTEXT("31200000000000")).c_str()), "3d 12h 0m 0s 0");
    EXPECT_EQ(Read(ZUTEXT("09999999999999")), "4d 4h 40m 39s 9999999") << "parts are not checked";
}

TEST_F(TimeSpanText, DigitsThatAreNoLiteralAreDays) {
    EXPECT_EQ(Read(ZUTEXT("106751990248054775808")), "none") << "too large as a literal, and as days";
    EXPECT_EQ(Read(ZUTEXT("21474836470000000000000")), "none");
    EXPECT_EQ(Read(ZUTEXT("21474836480000000000000")), "none");
    EXPECT_EQ(Read(ZUTEXT("1200000000000")), "none") << "thirteen digits: days";
    EXPECT_EQ(Read(ZUTEXT("-1200000000000")), "-10675199d -2h -48m -5s -4775808") << "fourteen units with the sign";
    EXPECT_EQ(Read(ZUTEXT("0000000000012")), "12d 0h 0m 0s 0");
    EXPECT_EQ(Read(ZUTEXT("-0000000000012")), "-12d 0h 0m 0s 0");
    EXPECT_EQ(Read(ZUTEXT("--31200000000000")), "none");
    EXPECT_EQ(Read(ZUTEXT(" 31200000000000")), "none") << "blanks make it no literal";
}

// ---- Reading the display form

TEST_F(TimeSpanText, DaysAndTime) {
    EXPECT_EQ(Read(ZUTEXT("3.12:00:00")), "3d 12h 0m 0s 0");
    EXPECT_EQ(Read(ZUTEXT("-3.12:00:00")), "-3d -12h 0m 0s 0");
    EXPECT_EQ(Read(ZUTEXT("3")), "3d 0h 0m 0s 0");
    EXPECT_EQ(Read(ZUTEXT("3.")), "3d 0h 0m 0s 0");
    EXPECT_EQ(Read(ZUTEXT("3.5")), "3d 5h 0m 0s 0");
    EXPECT_EQ(Read(ZUTEXT("3 5:30")), "3d 5h 30m 0s 0") << "the point may be missing";
    EXPECT_EQ(Read(ZUTEXT("3...5:30")), "3d 5h 30m 0s 0");
    EXPECT_EQ(Read(ZUTEXT("  3 . 5 : 30 : 15.5  ")), "3d 5h 30m 15s 5000000");
    EXPECT_EQ(Read(ZUTEXT("-3.12:30:15.25")), "-3d -12h -30m -15s -2500000");
    EXPECT_EQ(Read(ZUTEXT("3.1205092500000")), "3d 12h 5m 9s 2500000") << "a literal behind the point";
}

TEST_F(TimeSpanText, TheFirstNumberIsAlwaysDays) {
    EXPECT_EQ(Read(ZUTEXT("12:30:00")), "12d 0h 30m 0s 0");
    EXPECT_EQ(Read(ZUTEXT(":30")), "0d 0h 30m 0s 0");
    EXPECT_EQ(Read(ZUTEXT("")), "0d 0h 0m 0s 0");
    EXPECT_EQ(Read(ZUTEXT("   ")), "0d 0h 0m 0s 0");
    EXPECT_EQ(Read(ZUTEXT(".5:30")), "0d 5h 30m 0s 0");
}

TEST_F(TimeSpanText, TheSignIsThatOfTheDays) {
    EXPECT_EQ(Read(ZUTEXT("-0.01:00:00")), "0d 1h 0m 0s 0");
    EXPECT_EQ(Read(ZUTEXT("-1.01:00:00")), "-1d -1h 0m 0s 0");
    EXPECT_EQ(Read(ZUTEXT("+1.01:00:00")), "1d 1h 0m 0s 0");
}

TEST_F(TimeSpanText, ABadTimeIsRefused) {
    for (const wchar16* const bad : {ZUTEXT("3.25:00:00"), ZUTEXT("3.12:60"), ZUTEXT("3.12:00:60"), ZUTEXT("3.-1:00"),
                                     ZUTEXT("nonsense"), ZUTEXT("3.12:00 pm"), ZUTEXT("3x"), ZUTEXT("3.12:00:00 x"),
                                     ZUTEXT("2147483647.00:00:00"), ZUTEXT("10675199.03:00:00")}) {
        EXPECT_EQ(Read(bad), "none");
    }
    EXPECT_EQ(CreateTimeSpanFromString(nullptr), nullptr);
    // Too far back is the lowest span: its sign is the one that it should have.
    EXPECT_EQ(Read(ZUTEXT("-2147483648.00:00:00")), "-10675199d -2h -48m -5s -4775808");
}

TEST_F(TimeSpanText, Only255UnitsAreLookedAt) {
    EXPECT_EQ(Read((ZUTEXT("3") + wstring16(500, ' ') + ZUTEXT("nonsense")).c_str()), "3d 0h 0m 0s 0");
    EXPECT_EQ(Read((wstring16(254, ' ') + ZUTEXT("35")).c_str()), "3d 0h 0m 0s 0");
    EXPECT_EQ(Read((ZUTEXT("3.") + wstring16(95, ' ') + ZUTEXT("5:30")).c_str()), "3d 5h 30m 0s 0");
    EXPECT_EQ(Read((ZUTEXT("3.") + wstring16(96, ' ') + ZUTEXT("5:30")).c_str()), "none") << "the time has 100 units";
    EXPECT_EQ(Read(wstring16(100'000, '.').c_str()), "0d 0h 0m 0s 0");
    EXPECT_EQ(Read(wstring16(100'000, '9').c_str()), "none");
}

TEST_F(TimeSpanText, TheTimeFollowsTheLocalesSeparators) {
    TimeHabits habits;
    habits.separator = habits.separator2 = ZUTEXT(".");
    const TimeLocale locale(habits);
    EXPECT_EQ(ToldAndGone(CreateTimeSpanFromString(ZUTEXT("3.12.30.15.5"))), "3d 12h 30m 15s 5000000");
    EXPECT_EQ(ToldAndGone(CreateTimeSpanFromString(ZUTEXT("3.12:30"))), "none");
}

TEST_F(TimeSpanText, TextOfASpanReadsBack) {
    const TimeLocale locale({});
    for (const int64 ticks : {int64{0}, SecondTicks, -DayTicks - HourTicks, 100 * DayTicks + 12345 * MinuteTicks,
                              -5 * DayTicks, DayTicks + 5000000}) {
        GuardedBuffer out;
        const TimeSpan span(CreateTimeSpan(ticks));
        ASSERT_TRUE(span->ToString(out.Start(), 64, nullptr, true));
        const TimeSpan again(CreateTimeSpanFromString(out.Text().c_str()));
        ASSERT_NE(again, nullptr);
        EXPECT_EQ(again->GetTicks(), ticks);
    }
}

}  // namespace
}  // namespace time_span_text_test
