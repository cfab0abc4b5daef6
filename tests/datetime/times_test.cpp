#include <Utility/times.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/random.h"
#include "support/times.h"
#include "support/vtable_slot.h"

namespace times_test {
namespace {

using namespace Torvo;
using namespace Torvo::test;

constexpr double Infinity = std::numeric_limits<double>::infinity();
const double NotANumber = std::nan("");

TEST(TimeClass, OperationsStandInTheirOrder) {
    EXPECT_EQ(SlotOf(&zuTime::GetHours), 2u);
    EXPECT_EQ(SlotOf(&zuTime::GetMinutes), 3u);
    EXPECT_EQ(SlotOf(&zuTime::GetSeconds), 4u);
    EXPECT_EQ(SlotOf(&zuTime::GetMilliseconds), 5u);
    EXPECT_EQ(SlotOf(&zuTime::GetFraction), 6u);
    EXPECT_EQ(SlotOf(&zuTime::GetTicks), 7u);
    EXPECT_EQ(SlotOf(&zuTime::GetTotalHours), 8u);
    EXPECT_EQ(SlotOf(&zuTime::GetTotalMinutes), 9u);
    EXPECT_EQ(SlotOf(&zuTime::GetTotalSeconds), 10u);
    EXPECT_EQ(SlotOf(&zuTime::GetTotalMilliseconds), 11u);
    EXPECT_EQ(SlotOf(&zuTime::CompareTo), 12u);
    EXPECT_EQ(SlotOf(&zuTime::AddSpan), 13u);
    EXPECT_EQ(SlotOf(&zuTime::AddHours), 14u);
    EXPECT_EQ(SlotOf(&zuTime::AddMinutes), 15u);
    EXPECT_EQ(SlotOf(&zuTime::AddSeconds), 16u);
    EXPECT_EQ(SlotOf(&zuTime::AddTicks), 17u);
    EXPECT_EQ(SlotOf(&zuTime::SubtractSpan), 18u);
    EXPECT_EQ(SlotOf(&zuTime::SubtractTime), 19u);
    EXPECT_EQ(SlotOf(&zuTime::SubtractTicks), 20u);
    EXPECT_EQ(SlotOf(&zuTime::SetTicks), 21u);
    EXPECT_EQ(SlotOf(&zuTime::SetTime), 22u);
    EXPECT_EQ(SlotOf(&zuTime::ToLiteral), 23u);
    EXPECT_EQ(SlotOf(&zuTime::ToString), 24u);
    EXPECT_EQ(sizeof(zuTime), sizeof(void*)) << "no data";
}

TEST(TimeClass, ResultsOfComparisonsHaveTheirNumbers) {
    EXPECT_EQ(sizeof(ZU_CMP), 4u);
    EXPECT_EQ(ZU_CMP_INCOMPARABLE, -2);
    EXPECT_EQ(ZU_CMP_LESS, -1);
    EXPECT_EQ(ZU_CMP_EQUAL, 0);
    EXPECT_EQ(ZU_CMP_GREATER, 1);
}

// ---- Making times

TEST(TimeCreation, FromParts) {
    EXPECT_EQ(ToldAndGone(CreateTime(13, 5, 9)), "13:05:09.0000000");
    EXPECT_EQ(ToldAndGone(CreateTime(13, 5, 9, 2500000)), "13:05:09.2500000");
    EXPECT_EQ(ToldAndGone(CreateTime(0, 0, 0)), "00:00:00.0000000");
    EXPECT_EQ(ToldAndGone(CreateTime(23, 59, 59, 9999999)), "23:59:59.9999999");
}

TEST(TimeCreation, RefusesPartsOutsideTheirRange) {
    for (const int32 bad : {-1, LowestInt32, HighestInt32}) {
        EXPECT_EQ(CreateTime(bad, 0, 0), nullptr);
        EXPECT_EQ(CreateTime(0, bad, 0), nullptr);
        EXPECT_EQ(CreateTime(0, 0, bad), nullptr);
        EXPECT_EQ(CreateTime(0, 0, 0, bad), nullptr);
    }
    EXPECT_EQ(CreateTime(24, 0, 0), nullptr);
    EXPECT_EQ(CreateTime(0, 60, 0), nullptr);
    EXPECT_EQ(CreateTime(0, 0, 60), nullptr);
    EXPECT_EQ(CreateTime(0, 0, 0, 10000000), nullptr);
}

TEST(TimeCreation, FromTicks) {
    EXPECT_EQ(ToldAndGone(CreateTime(int64{0})), "00:00:00.0000000");
    EXPECT_EQ(ToldAndGone(CreateTime(int64{863999999999})), "23:59:59.9999999");
    EXPECT_EQ(ToldAndGone(CreateTime(int64{9999999})), "00:00:00.9999999");
    EXPECT_EQ(ToldAndGone(CreateTime(MinuteTicks - 1)), "00:00:59.9999999");
    EXPECT_EQ(ToldAndGone(CreateTime(HourTicks)), "01:00:00.0000000");
    for (const int64 bad : {int64{864000000000}, int64{-1}, LowestInt64, HighestInt64}) {
        EXPECT_EQ(CreateTime(bad), nullptr) << bad;
    }
}

TEST(TimeCreation, PartsAndTicksAgree) {
    Random random;
    SCOPED_TRACE(random.About());
    for (int i = 0; i < 100'000; ++i) {
        const int64 ticks = random.Between(0, LastTickOfDay);
        const Time time(CreateTime(ticks));
        ASSERT_EQ(time->GetTicks(), ticks);
        const auto fraction = static_cast<int32>(ticks % SecondTicks);
        const auto seconds = static_cast<int32>(ticks / SecondTicks);
        ASSERT_EQ(time->GetHours(), seconds / 3600);
        ASSERT_EQ(time->GetMinutes(), seconds / 60 % 60);
        ASSERT_EQ(time->GetSeconds(), seconds % 60);
        ASSERT_EQ(time->GetFraction(), fraction);
        const Time same(CreateTime(seconds / 3600, seconds / 60 % 60, seconds % 60, fraction));
        ASSERT_EQ(same->GetTicks(), ticks);
        const Time again(CreateTimeFromLiteral(time->ToLiteral()));
        ASSERT_EQ(again->GetTicks(), ticks);
    }
}

TEST(TimeCreation, OfACopyIsAnotherObject) {
    const Time time(CreateTime(1, 2, 3, 4));
    const Time copy(CreateTime(time.get()));
    EXPECT_NE(copy, time);
    EXPECT_EQ(Told(copy), "01:02:03.0000004");
    EXPECT_TRUE(copy->SetTicks(0));
    EXPECT_EQ(Told(time), "01:02:03.0000004");
    EXPECT_EQ(CreateTime(static_cast<const zuTime*>(nullptr)), nullptr);
}

TEST(TimeCreation, FromNumbersIsCutToWholeTicks) {
    EXPECT_EQ(ToldAndGone(CreateTimeFromHours(1.5)), "01:30:00.0000000");
    EXPECT_EQ(ToldAndGone(CreateTimeFromMinutes(1439.5)), "23:59:30.0000000");
    EXPECT_EQ(ToldAndGone(CreateTimeFromSeconds(0.00000019)), "00:00:00.0000001");
    EXPECT_EQ(ToldAndGone(CreateTimeFromSeconds(86399.5)), "23:59:59.5000000");
    EXPECT_EQ(ToldAndGone(CreateTimeFromMilliseconds(1.23456)), "00:00:00.0012345");
    EXPECT_EQ(ToldAndGone(CreateTimeFromMilliseconds(0.00009)), "00:00:00.0000000");
    EXPECT_EQ(ToldAndGone(CreateTimeFromHours(0.0)), "00:00:00.0000000");
    EXPECT_EQ(ToldAndGone(CreateTimeFromHours(-0.0)), "00:00:00.0000000");
}

TEST(TimeCreation, RefusesNumbersOutsideTheDay) {
    EXPECT_EQ(CreateTimeFromHours(24.0), nullptr);
    EXPECT_EQ(CreateTimeFromMinutes(1440.0), nullptr);
    EXPECT_EQ(CreateTimeFromSeconds(86400.0), nullptr);
    EXPECT_EQ(CreateTimeFromMilliseconds(86400000.0), nullptr);
    for (zuTime* (*const create)(double) :
         {CreateTimeFromHours, CreateTimeFromMinutes, CreateTimeFromSeconds, CreateTimeFromMilliseconds}) {
        // A negative number is none even where nothing would be left of it.
        for (const double bad : {-1.0, -1e-300, 1e18, 1e300, -1e300, Infinity, -Infinity, NotANumber}) {
            EXPECT_EQ(create(bad), nullptr) << bad;
        }
    }
}

TEST(TimeCreation, FromALiteral) {
    EXPECT_EQ(ToldAndGone(CreateTimeFromLiteral(1305092500000)), "13:05:09.2500000");
    EXPECT_EQ(ToldAndGone(CreateTimeFromLiteral(0)), "00:00:00.0000000");
    EXPECT_EQ(ToldAndGone(CreateTimeFromLiteral(2359599999999)), "23:59:59.9999999");
    EXPECT_EQ(ToldAndGone(CreateTimeFromLiteral(930150000000)), "09:30:15.0000000");
    EXPECT_EQ(Time(CreateTime(9, 30, 15))->ToLiteral(), 930150000000);
    EXPECT_EQ(Time(CreateTime(13, 5, 9, 2500000))->ToLiteral(), 1305092500000);
    EXPECT_EQ(Time(zuTime::MinValue())->ToLiteral(), 0);
    EXPECT_EQ(Time(zuTime::MaxValue())->ToLiteral(), 2359599999999);
    for (const int64 bad : {int64{2400000000000}, int64{60000000000}, int64{600000000}, int64{2360000000000},
                            int64{2359600000000}, int64{-1}, LowestInt64, HighestInt64}) {
        EXPECT_EQ(CreateTimeFromLiteral(bad), nullptr) << bad;
    }
}

TEST(TimeCreation, OfTheLimits) {
    const Time first(zuTime::MinValue());
    const Time last(zuTime::MaxValue());
    EXPECT_EQ(Told(first), "00:00:00.0000000");
    EXPECT_EQ(last->GetTicks(), 863999999999);
    EXPECT_EQ(Told(last), "23:59:59.9999999");
    EXPECT_NE(first, Time(zuTime::MinValue())) << "a new object each time";
}

TEST(TimeCreation, FromTheClockIsOfWholeSeconds) {
    const Time now(CreateTimeFromSystemTime());
    ASSERT_NE(now, nullptr);
    EXPECT_EQ(now->GetFraction(), 0);
    const Time later(CreateTimeFromSystemTime());
    const int64 passed = (later->GetTicks() - now->GetTicks() + DayTicks) % DayTicks;
    EXPECT_LE(passed, 60 * SecondTicks);
}

TEST(TimeGetters, GiveTheWholeInOneUnit) {
    const Time time(CreateTime(18, 30, 0, 5000000));
    EXPECT_EQ(time->GetTotalHours(), 666005000000 / 3.6e10);
    EXPECT_EQ(time->GetTotalMinutes(), 666005000000 / 6e8);
    EXPECT_EQ(time->GetTotalSeconds(), 66600.5);
    EXPECT_EQ(time->GetTotalMilliseconds(), 66600500.0);
    EXPECT_EQ(Time(CreateTime(int64{19999}))->GetMilliseconds(), 1) << "cut";
    EXPECT_EQ(Time(CreateTime(int64{1}))->GetTotalMilliseconds(), 0.0001);
}

// ---- Comparing

TEST(TimeComparison, GoesByTicksAndKnowsTheMissing) {
    const Time early(CreateTime(1, 0, 0));
    const Time late(CreateTime(1, 0, 0, 1));
    const Time same(CreateTime(early.get()));
    EXPECT_EQ(zuTime::Compare(early.get(), late.get()), ZU_CMP_LESS);
    EXPECT_EQ(zuTime::Compare(late.get(), early.get()), ZU_CMP_GREATER);
    EXPECT_EQ(zuTime::Compare(early.get(), same.get()), ZU_CMP_EQUAL);
    EXPECT_EQ(zuTime::Compare(nullptr, nullptr), ZU_CMP_EQUAL);
    EXPECT_EQ(zuTime::Compare(early.get(), nullptr), ZU_CMP_INCOMPARABLE);
    EXPECT_EQ(zuTime::Compare(nullptr, early.get()), ZU_CMP_INCOMPARABLE);
    EXPECT_EQ(early->CompareTo(late.get()), ZU_CMP_LESS);
    EXPECT_EQ(late->CompareTo(early.get()), ZU_CMP_GREATER);
    EXPECT_EQ(early->CompareTo(nullptr), ZU_CMP_INCOMPARABLE);
}

// ---- Arithmetic on the dial

TEST(TimeArithmetic, TellsWhetherTheTimeStayedOnItsDay) {
    const Time time(CreateTime(22, 0, 0));
    EXPECT_TRUE(time->AddHours(1));
    EXPECT_EQ(Told(time), "23:00:00.0000000");
    EXPECT_FALSE(time->AddHours(2));
    EXPECT_EQ(Told(time), "01:00:00.0000000");
    EXPECT_FALSE(time->AddHours(-1.5));
    EXPECT_EQ(Told(time), "23:30:00.0000000");
    EXPECT_TRUE(time->AddMinutes(29.5));
    EXPECT_EQ(Told(time), "23:59:30.0000000");
    EXPECT_TRUE(time->AddSeconds(29.9999999));
    EXPECT_FALSE(time->AddTicks(1));
    EXPECT_EQ(Told(time), "00:00:00.0000000");
    EXPECT_FALSE(time->AddTicks(-1));
    EXPECT_EQ(Told(time), "23:59:59.9999999");
    EXPECT_TRUE(time->AddTicks(0));
}

TEST(TimeArithmetic, AWholeDayLeavesTheTimeAndIsAnotherDay) {
    const Time time(CreateTime(5, 6, 7, 8));
    for (const int64 days : {1, -1, 2, 365, -365}) {
        EXPECT_FALSE(time->AddTicks(days * DayTicks)) << days;
        EXPECT_EQ(Told(time), "05:06:07.0000008");
        EXPECT_FALSE(time->SubtractTicks(days * DayTicks)) << days;
        EXPECT_EQ(Told(time), "05:06:07.0000008");
    }
    const Time midnight(zuTime::MinValue());
    EXPECT_FALSE(midnight->AddTicks(-DayTicks));
    EXPECT_EQ(Told(midnight), "00:00:00.0000000");
    EXPECT_FALSE(midnight->AddTicks(DayTicks));
    EXPECT_EQ(Told(midnight), "00:00:00.0000000");
}

TEST(TimeArithmetic, SumsBeyond64BitsAreRefused) {
    const Time time(CreateTime(int64{1}));
    EXPECT_FALSE(time->AddTicks(HighestInt64));
    EXPECT_EQ(time->GetTicks(), 1) << "nothing changed";
    EXPECT_FALSE(time->AddTicks(HighestInt64 - 1));
    EXPECT_EQ(time->GetTicks(), HighestInt64 % DayTicks) << "turned";
    EXPECT_TRUE(time->SetTicks(0));
    EXPECT_FALSE(time->AddTicks(LowestInt64));
    EXPECT_EQ(time->GetTicks(), DayTicks + LowestInt64 % DayTicks);
    EXPECT_TRUE(time->SetTicks(0));
    EXPECT_FALSE(time->SubtractTicks(LowestInt64));
    EXPECT_EQ(time->GetTicks(), 0) << "nothing changed";
    EXPECT_FALSE(time->SubtractTicks(HighestInt64));
    EXPECT_EQ(time->GetTicks(), DayTicks - HighestInt64 % DayTicks);
}

TEST(TimeArithmetic, MatchesAWalkAroundTheDial) {
    Random random;
    SCOPED_TRACE(random.About());
    for (int i = 0; i < 100'000; ++i) {
        const int64 start = random.Between(0, LastTickOfDay);
        const int64 span = random.OneIn(2) ? DayTicks : 100 * DayTicks;
        const int64 delta = random.Between(-span, span);
        const bool subtracts = random.OneIn(2);
        const int64 sum = subtracts ? start - delta : start + delta;
        const Time time(CreateTime(start));
        ASSERT_EQ(subtracts ? time->SubtractTicks(delta) : time->AddTicks(delta), sum >= 0 && sum < DayTicks);
        ASSERT_EQ(time->GetTicks(), (sum % DayTicks + DayTicks) % DayTicks);
    }
}

TEST(TimeArithmetic, SpansAreAddedAndSubtracted) {
    const Time time(CreateTime(1, 0, 0));
    const TimeSpan span(CreateTimeSpan(2, 0, 0));
    EXPECT_TRUE(time->AddSpan(span.get()));
    EXPECT_EQ(Told(time), "03:00:00.0000000");
    EXPECT_TRUE(time->SubtractSpan(span.get()));
    EXPECT_FALSE(time->SubtractSpan(span.get()));
    EXPECT_EQ(Told(time), "23:00:00.0000000");
    EXPECT_FALSE(time->AddSpan(nullptr));
    EXPECT_FALSE(time->SubtractSpan(nullptr));
    EXPECT_EQ(Told(time), "23:00:00.0000000");
}

TEST(TimeArithmetic, TheDifferenceIsASpanWithItsSign) {
    const Time early(CreateTime(1, 0, 0));
    const Time late(CreateTime(2, 30, 0));
    EXPECT_EQ(ToldAndGone(late->SubtractTime(early.get())), "0d 1h 30m 0s 0");
    EXPECT_EQ(ToldAndGone(early->SubtractTime(late.get())), "0d -1h -30m 0s 0");
    EXPECT_EQ(ToldAndGone(late->SubtractTime(late.get())), "0d 0h 0m 0s 0");
    EXPECT_EQ(late->SubtractTime(nullptr), nullptr);
}

TEST(TimeArithmetic, NumbersThatDoNotFit) {
    for (bool (zuTime::*const add)(double) : {&zuTime::AddHours, &zuTime::AddMinutes, &zuTime::AddSeconds}) {
        const Time time(CreateTime(12, 0, 0));
        // A positive number becomes the lowest count of ticks, and is refused by its sign.
        for (const double tooLarge : {1e300, Infinity}) {
            EXPECT_FALSE((time.get()->*add)(tooLarge));
            EXPECT_EQ(Told(time), "12:00:00.0000000");
        }
        // A negative one keeps its sign, and the clock turns back by that count; so it does for what is no number.
        constexpr int64 turned = 331145224192;
        static_assert(turned == DayTicks + (12 * HourTicks + LowestInt64) % DayTicks);
        for (const double tooLow : {-1e300, -Infinity, NotANumber}) {
            EXPECT_TRUE(time->SetTime(12, 0, 0, 0));
            EXPECT_FALSE((time.get()->*add)(tooLow));
            EXPECT_EQ(time->GetTicks(), turned);
        }
        EXPECT_TRUE(time->SetTime(12, 0, 0, 0));
        EXPECT_TRUE((time.get()->*add)(1e-12)) << "less than a tick";
        EXPECT_TRUE((time.get()->*add)(-1e-12));
        EXPECT_EQ(Told(time), "12:00:00.0000000");
    }
}

// ---- Setting

TEST(TimeSetting, ReplacesBothRepresentations) {
    const Time time(zuTime::MinValue());
    EXPECT_TRUE(time->SetTicks(LastTickOfDay));
    EXPECT_EQ(Told(time), "23:59:59.9999999");
    EXPECT_TRUE(time->SetTime(1, 2, 3, 4));
    EXPECT_EQ(Told(time), "01:02:03.0000004");
}

TEST(TimeSetting, RefusesWhatIsNoTimeAndChangesNothing) {
    const Time time(CreateTime(1, 2, 3, 4));
    for (const int64 bad : {int64{-1}, DayTicks, LowestInt64, HighestInt64}) EXPECT_FALSE(time->SetTicks(bad));
    EXPECT_FALSE(time->SetTime(24, 0, 0, 0));
    EXPECT_FALSE(time->SetTime(-1, 0, 0, 0));
    EXPECT_FALSE(time->SetTime(0, 60, 0, 0));
    EXPECT_FALSE(time->SetTime(0, -1, 0, 0));
    EXPECT_FALSE(time->SetTime(0, 0, 60, 0));
    EXPECT_FALSE(time->SetTime(0, 0, -1, 0));
    EXPECT_FALSE(time->SetTime(0, 0, 0, 10000000));
    EXPECT_FALSE(time->SetTime(0, 0, 0, -1));
    EXPECT_EQ(Told(time), "01:02:03.0000004");
}

}  // namespace
}  // namespace times_test
