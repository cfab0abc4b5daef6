#include <Utility/datetime/calendar.h>

#include <Utility/platform/clock.h>
#include <gtest/gtest.h>
#include <support/dates.h>

#include <limits>

namespace calendar_internal_test {
namespace {

using namespace Torvo;
using test::Told;

TEST(Calendar, TodayIsWhatTheClockSays) {
    const auto clock = [](std::tm* parts) {
        *parts = {};
        parts->tm_year = 126;
        parts->tm_mon = 10;
        parts->tm_mday = 21;
        return true;
    };
    EXPECT_EQ(Told(TodayOf(clock)), "2026-11-21");
}

TEST(Calendar, TodayIsTheEndOfShortClocksWhenTheClockFails) {
    EXPECT_EQ(Told(TodayOf([](std::tm*) { return false; })), "2038-1-19");
}

TEST(Calendar, ClockBreaksDownTheSecondsThatItIsDocumentedFor) {
    std::tm parts{};
    EXPECT_TRUE(platform::_localtime64(1709208000, &parts));  // noon of 29 February 2024, in UTC
    EXPECT_EQ(parts.tm_year, 124);
    parts.tm_year = 7;
    EXPECT_FALSE(platform::_localtime64(std::numeric_limits<int64>::max(), &parts));
    EXPECT_FALSE(platform::_localtime64(-1'000'000, &parts));
    EXPECT_EQ(parts.tm_year, 7);
    EXPECT_GT(platform::_time64(), 1'700'000'000);
}

TEST(Calendar, MonthsHaveTheirDays) {
    const int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 1; month <= 12; ++month) {
        EXPECT_EQ(DaysInMonth(month, false), days[month - 1]);
        EXPECT_EQ(DaysInMonth(month, true), month == 2 ? 29 : days[month - 1]);
    }
}

static_assert(!IsDayOfMonth(2024, 1, std::numeric_limits<int32>::min()));
static_assert(!IsDayOfMonth(2024, std::numeric_limits<int32>::min(), 1));

TEST(Calendar, LeapYearsFollowTheFullRule) {
    for (int year = 0; year < 32768; ++year) {
        EXPECT_EQ(IsLeapYear(year), (year % 4 == 0 && year % 100 != 0) || year % 400 == 0);
    }
}

}  // namespace
}  // namespace calendar_internal_test
