#include <Utility/platform/clock.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <time.h>

#include <filesystem>
#include <optional>
#include <string>

namespace posix_clock_internal_test {
namespace {

using namespace Torvo;

// The zone that local times are in, of a test's choosing until it goes out of scope.
class TimeZone {
public:
    explicit TimeZone(const char* name) {
        if (const char* const set = ::getenv("TZ")) former = set;
        ::setenv("TZ", name, 1);
        ::tzset();
    }
    ~TimeZone() {
        former ? ::setenv("TZ", former->c_str(), 1) : ::unsetenv("TZ");
        ::tzset();
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;

private:
    std::optional<std::string> former;
};

TEST(LocalTimeOfTheRuntime, ALeapSecondIsTheFiftyNinthAgain) {
    if (!std::filesystem::exists("/usr/share/zoneinfo/right/UTC")) GTEST_SKIP() << "no zones that count leap seconds";
    const TimeZone zone("right/UTC");
    for (const int64 second : {78796799, 78796800}) {  // 23:59:59 and 23:59:60 on 30 June 1972
        std::tm parts{};
        ASSERT_TRUE(platform::_localtime64(second, &parts));
        EXPECT_EQ(parts.tm_mon, 5);
        EXPECT_EQ(parts.tm_mday, 30);
        EXPECT_EQ(parts.tm_min, 59);
        EXPECT_EQ(parts.tm_sec, 59);
    }
    std::tm parts{};
    ASSERT_TRUE(platform::_localtime64(78796801, &parts));
    EXPECT_EQ(parts.tm_mday, 1);
    EXPECT_EQ(parts.tm_sec, 0);
}

}  // namespace
}  // namespace posix_clock_internal_test
