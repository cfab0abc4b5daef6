#include <Utility/clock.h>
#include <Utility/frame/clock.h>
#include <gtest/gtest.h>

#include <vector>

namespace frame_clock_internal_test {
namespace {

using namespace Torvo;

std::vector<const SYSTEMTIME*> asked;

bool FailOnlyFirst(const SYSTEMTIME* time) {
    asked.push_back(time);
    return asked.size() > 1;
}

bool FailOnlySecond(const SYSTEMTIME* time) {
    asked.push_back(time);
    return asked.size() == 1;
}

TEST(SettingTheTime, AsksTwiceAndGivesTheSecondAnswer) {
    const SYSTEMTIME time{};
    asked.clear();
    EXPECT_EQ(detail::SetDateTimeWith(FailOnlyFirst, &time), 1);
    EXPECT_EQ(asked, (std::vector<const SYSTEMTIME*>{&time, &time}));
    asked.clear();
    EXPECT_EQ(detail::SetDateTimeWith(FailOnlySecond, &time), 0);
    EXPECT_EQ(asked, (std::vector<const SYSTEMTIME*>{&time, &time}));
}

// A system of the version in the template arguments.
template <uint32 Major, uint32 Minor>
bool ReachesVersion(uint32 major, uint32 minor) {
    return Major > major || (Major == major && Minor >= minor);
}

TEST(Platform, IsToldByTheVersion) {
    EXPECT_EQ((detail::PlatformOf(ReachesVersion<10, 0>)), 6);
    EXPECT_EQ((detail::PlatformOf(ReachesVersion<6, 0>)), 6);
    EXPECT_EQ((detail::PlatformOf(ReachesVersion<5, 2>)), 5);
    EXPECT_EQ((detail::PlatformOf(ReachesVersion<5, 1>)), 5);
    EXPECT_EQ((detail::PlatformOf(ReachesVersion<5, 0>)), 0);
    EXPECT_EQ((detail::PlatformOf(ReachesVersion<4, 10>)), 0);
}

}  // namespace
}  // namespace frame_clock_internal_test
