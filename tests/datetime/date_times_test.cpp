#include <Utility/date_times.h>
#include <Utility/errors.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/random.h"
#include "support/times.h"
#include "support/vtable_slot.h"

namespace date_times_test {
namespace {

using namespace Torvo;
using namespace Torvo::test;

constexpr double Infinity = std::numeric_limits<double>::infinity();
const double NotANumber = std::nan("");
constexpr int64 LeapDayTicks = 638447616000000000;  // 29 February 2024

TEST(DateTimeClass, OperationsStandInTheirOrder) {
    EXPECT_EQ(SlotOf(&zuDateTime::GetYear), 2u);
    EXPECT_EQ(SlotOf(&zuDateTime::GetMonth), 3u);
    EXPECT_EQ(SlotOf(&zuDateTime::GetDay), 4u);
    EXPECT_EQ(SlotOf(&zuDateTime::GetHours), 5u);
    EXPECT_EQ(SlotOf(&zuDateTime::GetMinutes), 6u);
    EXPECT_EQ(SlotOf(&zuDateTime::GetSeconds), 7u);
    EXPECT_EQ(SlotOf(&zuDateTime::GetMilliseconds), 8u);
    EXPECT_EQ(SlotOf(&zuDateTime::GetFraction), 9u);
    EXPECT_EQ(SlotOf(&zuDateTime::GetTicks), 10u);
    EXPECT_EQ(SlotOf(&zuDateTime::GetTotalDays), 11u);
    EXPECT_EQ(SlotOf(&zuDateTime::GetTotalHours), 12u);
    EXPECT_EQ(SlotOf(&zuDateTime::GetTotalMinutes), 13u);
    EXPECT_EQ(SlotOf(&zuDateTime::GetTotalSeconds), 14u);
    EXPECT_EQ(SlotOf(&zuDateTime::GetTotalMilliseconds), 15u);
    EXPECT_EQ(SlotOf(&zuDateTime::GetDate), 16u);
    EXPECT_EQ(SlotOf(&zuDateTime::GetTime), 17u);
    EXPECT_EQ(SlotOf(&zuDateTime::GetDayOfWeek), 18u);
    EXPECT_EQ(SlotOf(&zuDateTime::SetDateTime), 19u);
    EXPECT_EQ(SlotOf(&zuDateTime::SetTicks), 20u);
    EXPECT_EQ(SlotOf(&zuDateTime::AddSpan), 21u);
    EXPECT_EQ(SlotOf(&zuDateTime::AddDays), 22u);
    EXPECT_EQ(SlotOf(&zuDateTime::AddHours), 23u);
    EXPECT_EQ(SlotOf(&zuDateTime::AddMinutes), 24u);
    EXPECT_EQ(SlotOf(&zuDateTime::AddSeconds), 25u);
    EXPECT_EQ(SlotOf(&zuDateTime::AddTicks), 26u);
    EXPECT_EQ(SlotOf(&zuDateTime::SubtractSpan), 27u);
    EXPECT_EQ(SlotOf(&zuDateTime::SubtractDateTime), 28u);
    EXPECT_EQ(SlotOf(&zuDateTime::SubtractTicks), 29u);
    EXPECT_EQ(SlotOf(&zuDateTime::ToLiteral), 30u);
    EXPECT_EQ(SlotOf(&zuDateTime::ToString), 31u);
    EXPECT_EQ(sizeof(zuDateTime), sizeof(void*)) << "no data";
}

// ---- Making date-times

TEST(DateTimeCreation, FromParts) {
    EXPECT_EQ(ToldAndGone(CreateDateTime(2024, 2, 29)), "2024-02-29 00:00:00.0000000");
    EXPECT_EQ(ToldAndGone(CreateDateTime(2024, 2, 29, 13, 5, 9)), "2024-02-29 13:05:09.0000000");
    EXPECT_EQ(ToldAndGone(CreateDateTime(2024, 2, 29, 13, 5, 9, 2500000)), "2024-02-29 13:05:09.2500000");
    EXPECT_EQ(ToldAndGone(CreateDateTime(1, 1, 1)), "0001-01-01 00:00:00.0000000");
    EXPECT_EQ(DateTime(CreateDateTime(1, 1, 1))->GetTicks(), 0);
    EXPECT_EQ(DateTime(CreateDateTime(2024, 2, 29))->GetTicks(), LeapDayTicks);
    const DateTime last(CreateDateTime(9999, 12, 31, 23, 59, 59, 9999999));
    EXPECT_EQ(last->GetTicks(), LastTickOfCalendar);
    EXPECT_FALSE(last->AddTicks(1));
    EXPECT_EQ(Told(last), "9999-12-31 23:59:59.9999999");
}

TEST(DateTimeCreation, RefusesPartsThatAreNoDateOrTime) {
    EXPECT_EQ(CreateDateTime(2023, 2, 29), nullptr);
    EXPECT_EQ(CreateDateTime(10000, 1, 1), nullptr);
    EXPECT_EQ(CreateDateTime(-1, 1, 1), nullptr);
    EXPECT_EQ(CreateDateTime(2024, 0, 1), nullptr);
    EXPECT_EQ(CreateDateTime(2024, 13, 1), nullptr);
    EXPECT_EQ(CreateDateTime(2024, 1, 0), nullptr);
    EXPECT_EQ(CreateDateTime(2024, 1, 32), nullptr);
    EXPECT_EQ(CreateDateTime(2024, 1, 1, 24, 0, 0), nullptr);
    EXPECT_EQ(CreateDateTime(2024, 1, 1, 0, 60, 0), nullptr);
    EXPECT_EQ(CreateDateTime(2024, 1, 1, 0, 0, 60), nullptr);
    EXPECT_EQ(CreateDateTime(2024, 1, 1, -1, 0, 0, 0), nullptr);
    EXPECT_EQ(CreateDateTime(2024, 1, 1, 0, 0, 0, 10000000), nullptr);
}

TEST(DateTimeCreation, PartsOfTheDateAreCutToTheirWidths) {
    EXPECT_EQ(ToldAndGone(CreateDateTime(65536 + 2024, 256 + 2, 512 + 29)), "2024-02-29 00:00:00.0000000");
    EXPECT_EQ(CreateDateTime(65536, 1, 32768), nullptr) << "a day of 0";
}

TEST(DateTimeCreation, YearZeroHasTicksOutsideTheCalendar) {
    const DateTime march(CreateDateTime(0, 3, 1));
    ASSERT_NE(march, nullptr);
    EXPECT_EQ(march->GetTicks(), -306 * DayTicks);
    EXPECT_EQ(march->GetYear(), 0);
    EXPECT_EQ(CreateDateTime(march.get()), nullptr) << "a copy goes by the ticks";
    EXPECT_FALSE(march->AddTicks(1));
    EXPECT_FALSE(march->SubtractTicks(1));
    EXPECT_EQ(march->GetTicks(), -306 * DayTicks);
    EXPECT_TRUE(march->AddDays(306)) << "back in the calendar";
    EXPECT_EQ(Told(march), "0001-01-01 00:00:00.0000000");
}

// Their days are counted as if they belonged to the leap year that follows.
TEST(DateTimeCreation, JanuaryAndFebruaryOfYearZeroHaveTicksOfYearFour) {
    const DateTime first(CreateDateTime(0, 1, 1));
    EXPECT_EQ(Told(first), "0000-01-01 00:00:00.0000000");
    EXPECT_EQ(first->GetTicks(), 1095 * DayTicks);
    EXPECT_EQ(ToldAndGone(CreateDateTime(first.get())), "0004-01-01 00:00:00.0000000") << "a copy goes by the ticks";
    EXPECT_TRUE(first->AddHours(1));
    EXPECT_EQ(Told(first), "0004-01-01 01:00:00.0000000");
    EXPECT_EQ(ToldAndGone(CreateDateTime(DateTime(CreateDateTime(0, 2, 29)).get())), "0004-02-29 00:00:00.0000000");
}

TEST(DateTimeCreation, FromADateAndATime) {
    zuDATE date = {2024, 2, 29};
    EXPECT_EQ(ToldAndGone(CreateDateTime(&date)), "2024-02-29 00:00:00.0000000");
    EXPECT_EQ(ToldAndGone(CreateDateTime(&date, nullptr)), "2024-02-29 00:00:00.0000000");
    const Time time(CreateTime(13, 5, 9, 7));
    const DateTime dateTime(CreateDateTime(&date, time.get()));
    EXPECT_EQ(Told(dateTime), "2024-02-29 13:05:09.0000007");
    EXPECT_NE(dateTime->GetTime(), time.get()) << "copied";
    EXPECT_NE(dateTime->GetDate(), &date);
    date.day = 30;
    EXPECT_EQ(CreateDateTime(&date), nullptr);
    EXPECT_EQ(CreateDateTime(&date, time.get()), nullptr);
    date = {};
    EXPECT_EQ(CreateDateTime(&date), nullptr);
    EXPECT_EQ(CreateDateTime(static_cast<zuDATE*>(nullptr)), nullptr);
    EXPECT_EQ(CreateDateTime(nullptr, time.get()), nullptr);
}

TEST(DateTimeCreation, FromTicks) {
    EXPECT_EQ(ToldAndGone(CreateDateTime(int64{0})), "0001-01-01 00:00:00.0000000");
    EXPECT_EQ(ToldAndGone(CreateDateTime(LeapDayTicks + 1)), "2024-02-29 00:00:00.0000001");
    EXPECT_EQ(ToldAndGone(CreateDateTime(LastTickOfCalendar)), "9999-12-31 23:59:59.9999999");
    for (const int64 bad : {int64{-1}, int64{3155378976000000000}, LowestInt64, HighestInt64}) {
        EXPECT_EQ(CreateDateTime(bad), nullptr) << bad;
    }
}

TEST(DateTimeCreation, OfACopyIsAnotherObject) {
    const DateTime dateTime(CreateDateTime(2024, 2, 29, 13, 5, 9, 7));
    const DateTime copy(CreateDateTime(dateTime.get()));
    EXPECT_NE(copy, dateTime);
    EXPECT_EQ(Told(copy), "2024-02-29 13:05:09.0000007");
    EXPECT_EQ(CreateDateTime(static_cast<const zuDateTime*>(nullptr)), nullptr);
}

TEST(DateTimeCreation, FromNumbersIsCutToWholeTicks) {
    EXPECT_EQ(ToldAndGone(CreateDateTimeFromDays(1.5)), "0001-01-02 12:00:00.0000000");
    EXPECT_EQ(ToldAndGone(CreateDateTimeFromHours(25.5)), "0001-01-02 01:30:00.0000000");
    EXPECT_EQ(ToldAndGone(CreateDateTimeFromMinutes(1441.25)), "0001-01-02 00:01:15.0000000");
    EXPECT_EQ(ToldAndGone(CreateDateTimeFromSeconds(0.00000019)), "0001-01-01 00:00:00.0000001");
    EXPECT_EQ(ToldAndGone(CreateDateTimeFromMilliseconds(1500.0)), "0001-01-01 00:00:01.5000000");
    EXPECT_EQ(ToldAndGone(CreateDateTimeFromSeconds(-0.00000009)), "0001-01-01 00:00:00.0000000") << "less than a tick";
    EXPECT_EQ(ToldAndGone(CreateDateTimeFromDays(3652058.0)), "9999-12-31 00:00:00.0000000");
}

TEST(DateTimeCreation, FromNumbersRoundsTwice) {
    // 0.7 days are 60479.99999999999 seconds as a double; in one step they would be 604800000000 ticks.
    for (const double days : {0.7, 1e-7, 123456.789, 738000.123456789}) {
        const DateTime dateTime(CreateDateTimeFromDays(days));
        EXPECT_EQ(dateTime->GetTicks(), static_cast<int64>((days * 86400.0) * 1e7)) << days;
    }
    EXPECT_EQ(DateTime(CreateDateTimeFromMilliseconds(0.0029))->GetTicks(),
              static_cast<int64>((0.0029 / 1000.0) * 1e7));
}

TEST(DateTimeCreation, RefusesNumbersOutsideTheCalendar) {
    EXPECT_EQ(CreateDateTimeFromDays(3652059.0), nullptr);
    EXPECT_EQ(CreateDateTimeFromSeconds(315537897600.0), nullptr);
    for (zuDateTime* (*const create)(double) :
         {CreateDateTimeFromDays, CreateDateTimeFromHours, CreateDateTimeFromMinutes, CreateDateTimeFromSeconds,
          CreateDateTimeFromMilliseconds}) {
        for (const double bad : {-1.0, 1e15, 1e300, -1e300, Infinity, -Infinity, NotANumber}) {
            EXPECT_EQ(create(bad), nullptr) << bad;
        }
    }
}

TEST(DateTimeCreation, OfTheLimits) {
    const DateTime first(zuDateTime::MinValue());
    const DateTime last(zuDateTime::MaxValue());
    EXPECT_EQ(Told(first), "0001-01-01 00:00:00.0000000");
    EXPECT_EQ(first->GetDayOfWeek(), 2) << "a Monday";
    EXPECT_EQ(Told(last), "9999-12-31 23:59:59.9999999");
    EXPECT_EQ(last->GetTicks(), 3155378975999999999);
    EXPECT_NE(first, DateTime(zuDateTime::MinValue())) << "a new object each time";
}

TEST(DateTimeCreation, FromTheClockIsOfWholeSeconds) {
    const DateTime now(CreateDateTimeFromSystemTime());
    ASSERT_NE(now, nullptr);
    EXPECT_EQ(now->GetFraction(), 0);
    const DateTime later(CreateDateTimeFromSystemTime());
    EXPECT_LE(later->GetTicks() - now->GetTicks(), 60 * SecondTicks);
    EXPECT_GE(now->GetYear(), 2024);
    zuDATE today;
    SystemDate(&today);
    EXPECT_LE(DateDiff(&today, now->GetDate()), 1);
}

TEST(DateTimeCreation, PartsAndTicksAgree) {
    Random random;
    SCOPED_TRACE(random.About());
    for (int i = 0; i < 50'000; ++i) {
        const int64 ticks = random.Between(0, LastTickOfCalendar);
        const DateTime dateTime(CreateDateTime(ticks));
        zuDATE date;
        ASSERT_TRUE(Days2MDY(static_cast<int32>(ticks / DayTicks), &date));
        ASSERT_EQ(DateCmp(&date, dateTime->GetDate()), 0);
        ASSERT_EQ(dateTime->GetTime()->GetTicks(), ticks % DayTicks);
        const DateTime same(CreateDateTime(dateTime->GetYear(), dateTime->GetMonth(), dateTime->GetDay(),
                                           dateTime->GetHours(), dateTime->GetMinutes(), dateTime->GetSeconds(),
                                           dateTime->GetFraction()));
        ASSERT_EQ(same->GetTicks(), ticks);
        int32 dateLiteral;
        int64 timeLiteral;
        ASSERT_TRUE(dateTime->ToLiteral(&dateLiteral, &timeLiteral));
        const DateTime again(CreateDateTimeFromLiteral(dateLiteral, timeLiteral));
        ASSERT_EQ(again->GetTicks(), ticks);
    }
}

// ---- Literals

TEST(DateTimeLiteral, GoesBothWays) {
    EXPECT_EQ(ToldAndGone(CreateDateTimeFromLiteral(20240229, 1305092500000)), "2024-02-29 13:05:09.2500000");
    EXPECT_EQ(ToldAndGone(CreateDateTimeFromLiteral(10101, 0)), "0001-01-01 00:00:00.0000000");
    int32 date;
    int64 time;
    EXPECT_TRUE(DateTime(CreateDateTime(2024, 2, 29, 13, 5, 9, 2500000))->ToLiteral(&date, &time));
    EXPECT_EQ(date, 20240229);
    EXPECT_EQ(time, 1305092500000);
}

TEST(DateTimeLiteral, ThatIsNoneIsRefused) {
    ClearErrors();
    EXPECT_EQ(CreateDateTimeFromLiteral(0, 0), nullptr) << "the null date";
    EXPECT_EQ(CreateDateTimeFromLiteral(-20240229, 0), nullptr);
    EXPECT_EQ(CreateDateTimeFromLiteral(20240229, 2400000000000), nullptr);
    EXPECT_EQ(CreateDateTimeFromLiteral(20240229, HighestInt64), nullptr);
    EXPECT_EQ(NumErrors(), 0);
    EXPECT_EQ(CreateDateTimeFromLiteral(20230229, 0), nullptr);
    EXPECT_EQ(NumErrors(), 1) << "the record of the date";
    ClearErrors();
}

TEST(DateTimeLiteral, ANegativeTimeMeansNoTimePart) {
    const DateTime dateTime(CreateDateTimeFromLiteral(20240229, -1));
    ASSERT_NE(dateTime, nullptr);
    EXPECT_EQ(dateTime->GetTicks(), LeapDayTicks);
    EXPECT_EQ(dateTime->GetTime(), nullptr);
    EXPECT_EQ(Told(dateTime), "2024-02-29 no time");
    EXPECT_EQ(dateTime->GetDayOfWeek(), 5);
    const DateTime another(CreateDateTimeFromLiteral(20240229, LowestInt64));
    EXPECT_EQ(another->GetTime(), nullptr);
    EXPECT_EQ(dateTime->GetTotalDays(), static_cast<double>(LeapDayTicks) / 8.64e11);
    EXPECT_EQ(zuDateTime::Compare(dateTime.get(), another.get()), ZU_CMP_EQUAL);
    EXPECT_EQ(ToldAndGone(CreateDateTime(dateTime.get())), "2024-02-29 00:00:00.0000000") << "a copy has one";
}

TEST(DateTimeLiteral, AValueWithoutATimePartAnswersAllTheSame) {
    const DateTime dateTime(CreateDateTimeFromLiteral(20240229, -1));
    EXPECT_EQ(dateTime->GetHours(), 0);
    EXPECT_EQ(dateTime->GetMinutes(), 0);
    EXPECT_EQ(dateTime->GetSeconds(), 0);
    EXPECT_EQ(dateTime->GetMilliseconds(), 0);
    EXPECT_EQ(dateTime->GetFraction(), 0);
    int32 date;
    int64 time;
    EXPECT_TRUE(dateTime->ToLiteral(&date, &time));
    EXPECT_EQ(date, 20240229);
    EXPECT_EQ(time, -1) << "as it came";
    EXPECT_TRUE(dateTime->AddHours(1));
    EXPECT_EQ(Told(dateTime), "2024-02-29 01:00:00.0000000") << "and now it has one";
    const DateTime set(CreateDateTimeFromLiteral(20240229, -1));
    EXPECT_TRUE(set->SetDateTime(2025, 1, 2, 3, 4, 5, 6));
    EXPECT_EQ(Told(set), "2025-01-02 03:04:05.0000006");
}

TEST(DateTimeLiteral, YearsBeyondTheCalendarPass) {
    const DateTime dateTime(CreateDateTimeFromLiteral(123450101, 0));
    ASSERT_NE(dateTime, nullptr);
    EXPECT_EQ(dateTime->GetYear(), 12345);
    EXPECT_GT(dateTime->GetTicks(), LastTickOfCalendar);
    EXPECT_FALSE(dateTime->AddTicks(0));
    EXPECT_FALSE(dateTime->AddTicks(1));
    EXPECT_TRUE(dateTime->SubtractTicks(dateTime->GetTicks() - LastTickOfCalendar));
    EXPECT_EQ(Told(dateTime), "9999-12-31 23:59:59.9999999");
}

TEST(DateTimeLiteral, WithoutAPlaceIsRefused) {
    const DateTime dateTime(CreateDateTime(2024, 2, 29));
    int32 date = 77;
    int64 time = 78;
    EXPECT_FALSE(dateTime->ToLiteral(nullptr, &time));
    EXPECT_FALSE(dateTime->ToLiteral(&date, nullptr));
    EXPECT_EQ(date, 77);
    EXPECT_EQ(time, 78);
}

// ---- Getters, comparing

TEST(DateTimeGetters, TellThePartsAndTheWhole) {
    const DateTime dateTime(CreateDateTime(2, 1, 1, 12, 30, 15, 5000000));
    EXPECT_EQ(dateTime->GetMilliseconds(), 500);
    EXPECT_EQ(dateTime->GetTotalDays(), 315810155000000 / 8.64e11);
    EXPECT_EQ(dateTime->GetTotalHours(), 315810155000000 / 3.6e10);
    EXPECT_EQ(dateTime->GetTotalMinutes(), 315810155000000 / 6e8);
    EXPECT_EQ(dateTime->GetTotalSeconds(), 31581015.5);
    EXPECT_EQ(dateTime->GetTotalMilliseconds(), 31581015500.0);
    EXPECT_EQ(DateTime(CreateDateTime(2024, 3, 2))->GetDayOfWeek(), 7) << "a Saturday";
    EXPECT_EQ(DateTime(CreateDateTime(2024, 3, 3, 23, 59, 59))->GetDayOfWeek(), 1) << "a Sunday";
}

TEST(DateTimeGetters, HandOutTheObjectsOwnParts) {
    const DateTime dateTime(CreateDateTime(2024, 2, 29));
    EXPECT_EQ(dateTime->GetDate(), dateTime->GetDate());
    EXPECT_EQ(dateTime->GetTime(), dateTime->GetTime());
    dateTime->GetDate()->day = 1;
    EXPECT_TRUE(dateTime->GetTime()->SetTime(1, 2, 3, 4));
    EXPECT_EQ(dateTime->GetDay(), 1);
    EXPECT_EQ(dateTime->GetHours(), 1);
    EXPECT_EQ(dateTime->GetTicks(), LeapDayTicks) << "the ticks do not notice";
}

TEST(DateTimeComparison, GoesByTicksAndKnowsTheMissing) {
    const DateTime early(CreateDateTime(2024, 2, 29));
    const DateTime late(CreateDateTime(2024, 2, 29, 0, 0, 0, 1));
    const DateTime same(CreateDateTime(early.get()));
    EXPECT_EQ(zuDateTime::Compare(early.get(), late.get()), ZU_CMP_LESS);
    EXPECT_EQ(zuDateTime::Compare(late.get(), early.get()), ZU_CMP_GREATER);
    EXPECT_EQ(zuDateTime::Compare(early.get(), same.get()), ZU_CMP_EQUAL);
    EXPECT_EQ(zuDateTime::Compare(nullptr, nullptr), ZU_CMP_EQUAL);
    EXPECT_EQ(zuDateTime::Compare(nullptr, early.get()), ZU_CMP_INCOMPARABLE);
    EXPECT_EQ(zuDateTime::Compare(early.get(), nullptr), ZU_CMP_INCOMPARABLE);
}

// ---- Setting

TEST(DateTimeSetting, ReplacesBothRepresentations) {
    const DateTime dateTime(zuDateTime::MinValue());
    EXPECT_TRUE(dateTime->SetDateTime(2024, 2, 29, 13, 5, 9, 7));
    EXPECT_EQ(Told(dateTime), "2024-02-29 13:05:09.0000007");
    EXPECT_TRUE(dateTime->SetTicks(LastTickOfCalendar));
    EXPECT_EQ(Told(dateTime), "9999-12-31 23:59:59.9999999");
    for (const int64 bad : {int64{-1}, LastTickOfCalendar + 1, LowestInt64, HighestInt64}) {
        EXPECT_FALSE(dateTime->SetTicks(bad)) << bad;
        EXPECT_EQ(Told(dateTime), "9999-12-31 23:59:59.9999999");
    }
}

TEST(DateTimeSetting, ABadDateLeavesTheNullDateAndTheTicks) {
    const DateTime dateTime(CreateDateTime(2024, 2, 29, 13, 5, 9));
    const int64 ticks = dateTime->GetTicks();
    EXPECT_FALSE(dateTime->SetDateTime(2023, 2, 29, 1, 2, 3, 4));
    EXPECT_EQ(dateTime->GetYear(), 0);
    EXPECT_EQ(dateTime->GetMonth(), 0);
    EXPECT_EQ(dateTime->GetDay(), 0);
    EXPECT_EQ(Told(dateTime->GetTime()), "13:05:09.0000000");
    EXPECT_EQ(dateTime->GetTicks(), ticks);
    EXPECT_TRUE(dateTime->SetDateTime(2023, 2, 28, 1, 2, 3, 4));
    EXPECT_EQ(Told(dateTime), "2023-02-28 01:02:03.0000004");
}

TEST(DateTimeSetting, ABadTimeLeavesTheNewDateAndTheOldTicks) {
    const DateTime dateTime(CreateDateTime(2024, 2, 29, 13, 5, 9));
    const int64 ticks = dateTime->GetTicks();
    EXPECT_FALSE(dateTime->SetDateTime(2023, 2, 28, 24, 2, 3, 4));
    EXPECT_EQ(dateTime->GetYear(), 2023);
    EXPECT_EQ(dateTime->GetDay(), 28);
    EXPECT_EQ(Told(dateTime->GetTime()), "13:05:09.0000000");
    EXPECT_EQ(dateTime->GetTicks(), ticks);
}

// ---- Arithmetic

TEST(DateTimeArithmetic, MovesWithinTheCalendar) {
    const DateTime dateTime(CreateDateTime(2024, 2, 28, 23, 0, 0));
    EXPECT_TRUE(dateTime->AddHours(2));
    EXPECT_EQ(Told(dateTime), "2024-02-29 01:00:00.0000000");
    EXPECT_TRUE(dateTime->AddDays(1.5));
    EXPECT_EQ(Told(dateTime), "2024-03-01 13:00:00.0000000");
    EXPECT_TRUE(dateTime->AddMinutes(-0.5));
    EXPECT_TRUE(dateTime->AddSeconds(-0.5));
    EXPECT_EQ(Told(dateTime), "2024-03-01 12:59:29.5000000");
    EXPECT_TRUE(dateTime->AddTicks(1));
    EXPECT_TRUE(dateTime->SubtractTicks(-1));
    EXPECT_EQ(Told(dateTime), "2024-03-01 12:59:29.5000002");
    EXPECT_TRUE(dateTime->SubtractTicks(2));
    const TimeSpan span(CreateTimeSpan(366, 0, 0, 0));
    EXPECT_TRUE(dateTime->SubtractSpan(span.get()));
    EXPECT_EQ(Told(dateTime), "2023-03-01 12:59:29.5000000");
    EXPECT_TRUE(dateTime->AddSpan(span.get()));
    EXPECT_EQ(Told(dateTime), "2024-03-01 12:59:29.5000000");
    EXPECT_FALSE(dateTime->AddSpan(nullptr));
    EXPECT_FALSE(dateTime->SubtractSpan(nullptr));
}

TEST(DateTimeArithmetic, NeverLeavesTheCalendar) {
    const DateTime first(zuDateTime::MinValue());
    const DateTime last(zuDateTime::MaxValue());
    EXPECT_FALSE(first->AddTicks(-1));
    EXPECT_FALSE(first->SubtractTicks(1));
    EXPECT_FALSE(last->AddTicks(1));
    EXPECT_FALSE(last->SubtractTicks(-1));
    for (const int64 much : {LowestInt64, HighestInt64, LowestInt64 + 1}) {
        EXPECT_FALSE(first->AddTicks(much)) << much;
        EXPECT_FALSE(first->SubtractTicks(much)) << much;
        EXPECT_FALSE(last->AddTicks(much)) << much;
        EXPECT_FALSE(last->SubtractTicks(much)) << much;
    }
    EXPECT_EQ(Told(first), "0001-01-01 00:00:00.0000000");
    EXPECT_EQ(Told(last), "9999-12-31 23:59:59.9999999");
    EXPECT_TRUE(first->AddTicks(LastTickOfCalendar));
    EXPECT_TRUE(last->SubtractTicks(LastTickOfCalendar));
    EXPECT_EQ(Told(first), "9999-12-31 23:59:59.9999999");
    EXPECT_EQ(Told(last), "0001-01-01 00:00:00.0000000");
}

TEST(DateTimeArithmetic, NumbersThatDoNotFit) {
    for (bool (zuDateTime::*const add)(double) :
         {&zuDateTime::AddDays, &zuDateTime::AddHours, &zuDateTime::AddMinutes, &zuDateTime::AddSeconds}) {
        const DateTime dateTime(CreateDateTime(2024, 2, 29));
        for (const double bad : {1e300, -1e300, Infinity, -Infinity, NotANumber, 1e12, -1e12}) {
            EXPECT_FALSE((dateTime.get()->*add)(bad)) << bad;
            EXPECT_EQ(Told(dateTime), "2024-02-29 00:00:00.0000000");
        }
        EXPECT_TRUE((dateTime.get()->*add)(1e-13));
        EXPECT_TRUE((dateTime.get()->*add)(-1e-13));
        EXPECT_EQ(Told(dateTime), "2024-02-29 00:00:00.0000000");
    }
}

TEST(DateTimeArithmetic, TheDifferenceIsASpanWithItsSign) {
    const DateTime early(CreateDateTime(2024, 2, 28, 12, 0, 0));
    const DateTime late(CreateDateTime(2024, 3, 1));
    EXPECT_EQ(ToldAndGone(late->SubtractDateTime(early.get())), "1d 12h 0m 0s 0");
    EXPECT_EQ(ToldAndGone(early->SubtractDateTime(late.get())), "-1d -12h 0m 0s 0");
    EXPECT_EQ(late->SubtractDateTime(nullptr), nullptr);
    const DateTime first(zuDateTime::MinValue());
    const DateTime last(zuDateTime::MaxValue());
    EXPECT_EQ(TimeSpan(last->SubtractDateTime(first.get()))->GetTicks(), LastTickOfCalendar);
    EXPECT_EQ(TimeSpan(first->SubtractDateTime(last.get()))->GetTicks(), -LastTickOfCalendar);
}

}  // namespace
}  // namespace date_times_test
