#include <Utility/clock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <limits>
#include <set>
#include <thread>

namespace clock_test {
namespace {

using namespace Torvo;

static_assert(PlatformOlder == 0 && PlatformVersion5 == 5 && PlatformVersion6 == 6);

TEST(UpTime, GrowsByHundredthsOfASecond) {
    const int64 before = time_100();
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    const int64 passed = time_100() - before;
    EXPECT_GE(passed, 18);
    EXPECT_LT(passed, 2000);  // a loaded machine may take its time
    EXPECT_GE(before, 0);
    EXPECT_LE(before, 0xFFFFFFFFll / 10);
}

TEST(DoubleClick, IsAFractionOfASecond) {
    EXPECT_GE(DoubleClickTime_100(), 10);
    EXPECT_LE(DoubleClickTime_100(), 500);
}

TEST(Sleep100, WaitsAtLeastTheTime) {
    const int64 before = time_100();
    Sleep100(7.9);  // cut to 7
    EXPECT_GE(time_100() - before, 7);
}

TEST(Sleep100, DoesNotWaitForWhatIsNoTime) {
    const auto before = std::chrono::steady_clock::now();
    for (const double hundredths : {0.0, 0.99, -5.0, 1e30, -1e30, std::numeric_limits<double>::quiet_NaN(),
                                    std::numeric_limits<double>::infinity()}) {
        Sleep100(hundredths);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(5));
}

TEST(RandomNumber, LiesBelowTheLimitAndTakesEveryValue) {
    std::set<int> seen;
    for (int i = 0; i < 2000; ++i) {
        const int number = random_number(6);
        ASSERT_GE(number, 0);
        ASSERT_LT(number, 6);
        seen.insert(number);
    }
    EXPECT_EQ(seen.size(), 6u);
    EXPECT_EQ(random_number(1), 0);
    EXPECT_EQ(random_number(0), 0);
}

TEST(RandomNumber, MayBeAskedForOnManyThreads) {
    std::thread threads[4];
    for (std::thread& thread : threads) {
        thread = std::thread([] {
            for (int i = 0; i < 1000; ++i) random_number(10);
        });
    }
    for (std::thread& thread : threads) thread.join();
}

TEST(SystemPlatform, IsOfThisCentury) {
    EXPECT_EQ(SystemPlatform(), PlatformVersion6);
}

TEST(DateTime, IsTheLocalTime) {
    const std::time_t before = std::time(nullptr);
    SYSTEMTIME now{};
    GetDateTime(&now);
    std::tm parts{};
    parts.tm_year = now.wYear - 1900;
    parts.tm_mon = now.wMonth - 1;
    parts.tm_mday = now.wDay;
    parts.tm_hour = now.wHour;
    parts.tm_min = now.wMinute;
    parts.tm_sec = now.wSecond;
    parts.tm_isdst = -1;
    const std::time_t told = std::mktime(&parts);
    EXPECT_GE(told, before - 1);
    EXPECT_LE(told, before + 60);
    EXPECT_EQ(now.wDayOfWeek, parts.tm_wday);
    EXPECT_LT(now.wMilliseconds, 1000);
}

TEST(DateTime, NoTimeIsNoHarm) {
    GetDateTime(nullptr);
    EXPECT_EQ(SetDateTime(nullptr), 0);
}

// Only times that no system takes: a test does not move the clock of the machine that it runs on.
TEST(DateTime, WhatIsNoTimeIsRefused) {
    SYSTEMTIME base{};
    GetDateTime(&base);
    const auto refused = [&base](auto change) {
        SYSTEMTIME time = base;
        change(time);
        return SetDateTime(&time) == 0;
    };
    EXPECT_TRUE(refused([](SYSTEMTIME& t) { t.wMonth = 13; }));
    EXPECT_TRUE(refused([](SYSTEMTIME& t) { t.wMonth = 0; }));
    EXPECT_TRUE(refused([](SYSTEMTIME& t) { t.wDay = 32; }));
    EXPECT_TRUE(refused([](SYSTEMTIME& t) { t.wDay = 0; }));
    EXPECT_TRUE(refused([](SYSTEMTIME& t) { t.wMonth = 2, t.wDay = 30; }));
    EXPECT_TRUE(refused([](SYSTEMTIME& t) { t.wHour = 24; }));
    EXPECT_TRUE(refused([](SYSTEMTIME& t) { t.wMinute = 60; }));
    EXPECT_TRUE(refused([](SYSTEMTIME& t) { t.wSecond = 60; }));
    EXPECT_TRUE(refused([](SYSTEMTIME& t) { t.wMilliseconds = 1000; }));
}

}  // namespace
}  // namespace clock_test
