// Times, spans and date-times for tests: owned, and told in words.
#pragma once

#include <Utility/date_times.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <limits>
#include <memory>
#include <string>

namespace Torvo::test {

using Time = std::unique_ptr<zuTime>;
using TimeSpan = std::unique_ptr<zuTimeSpan>;
using DateTime = std::unique_ptr<zuDateTime>;

constexpr int64 SecondTicks = 10'000'000;
constexpr int64 MinuteTicks = 60 * SecondTicks;
constexpr int64 HourTicks = 60 * MinuteTicks;
constexpr int64 DayTicks = 24 * HourTicks;
constexpr int64 LastTickOfDay = DayTicks - 1;
constexpr int64 LastTickOfCalendar = 3155378975999999999;
constexpr int64 HighestInt64 = std::numeric_limits<int64>::max();
constexpr int64 LowestInt64 = std::numeric_limits<int64>::min();
constexpr int32 HighestInt32 = std::numeric_limits<int32>::max();
constexpr int32 LowestInt32 = std::numeric_limits<int32>::min();

// "13:05:09.2500000", or "none". The ticks have to say the same as the parts.
inline std::string Told(const zuTime* time) {
    if (time == nullptr) return "none";
    const int64 ticks = time->GetHours() * HourTicks + time->GetMinutes() * MinuteTicks +
                        time->GetSeconds() * SecondTicks + time->GetFraction();
    EXPECT_EQ(time->GetTicks(), ticks);
    EXPECT_EQ(time->GetMilliseconds(), time->GetFraction() / 10000);
    char text[64];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d.%07d", time->GetHours(), time->GetMinutes(), time->GetSeconds(),
                  time->GetFraction());
    return text;
}

inline std::string Told(const Time& time) {
    return Told(time.get());
}

// The same of a new object, which is deleted.
inline std::string ToldAndGone(zuTime* time) {
    return Told(Time(time));
}

// "3d 12h 0m 0s 0", with the sign at each part that has one, or "none".
inline std::string Told(const TimeSpan& span) {
    if (span == nullptr) return "none";
    char text[96];
    std::snprintf(text, sizeof text, "%dd %dh %dm %ds %d", span->GetDays(), span->GetHours(), span->GetMinutes(),
                  span->GetSeconds(), span->GetFraction());
    return text;
}

inline std::string ToldAndGone(zuTimeSpan* span) {
    return Told(TimeSpan(span));
}

// "2024-02-29 13:05:09.2500000", or "none". The ticks have to say the same as the parts.
inline std::string Told(const DateTime& dateTime) {
    if (dateTime == nullptr) return "none";
    const zuDATE date = *dateTime->GetDate();
    EXPECT_EQ(date.year, dateTime->GetYear());
    EXPECT_EQ(date.month, dateTime->GetMonth());
    EXPECT_EQ(date.day, dateTime->GetDay());
    const zuTime* const time = dateTime->GetTime();
    EXPECT_EQ(dateTime->GetTicks(), MDY2Days(&date) * DayTicks + (time != nullptr ? time->GetTicks() : 0));
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d ", date.year, date.month, date.day);
    return text + (time != nullptr ? Told(time) : "no time");
}

inline std::string ToldAndGone(zuDateTime* dateTime) {
    return Told(DateTime(dateTime));
}

}  // namespace Torvo::test
