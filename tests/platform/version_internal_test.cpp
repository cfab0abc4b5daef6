#include <Utility/platform/version.h>
#include <gtest/gtest.h>

namespace version_internal_test {
namespace {

using namespace Torvo;

bool IsAtLeast(uint32 major, uint32 minor) {
    platform::OSVERSIONINFOEXW version{};
    version.dwOSVersionInfoSize = sizeof version;
    version.dwMajorVersion = major;
    version.dwMinorVersion = minor;
    uint64 mask = 0;
    for (const uint32 member : {uint32{VER_MAJORVERSION}, uint32{VER_MINORVERSION}, uint32{VER_SERVICEPACKMAJOR}}) {
        mask = platform::VerSetConditionMask(mask, member, VER_GREATER_EQUAL);
    }
    return platform::VerifyVersionInfoW(&version, VER_MAJORVERSION | VER_MINORVERSION | VER_SERVICEPACKMAJOR, mask);
}

bool ProductTypeIs(uint8 type) {
    platform::OSVERSIONINFOEXW version{};
    version.dwOSVersionInfoSize = sizeof version;
    version.wProductType = type;
    return platform::VerifyVersionInfoW(&version, VER_PRODUCT_TYPE,
                                        platform::VerSetConditionMask(0, VER_PRODUCT_TYPE, VER_EQUAL));
}

TEST(SystemVersion, IsComparedFromTheHighestMemberDown) {
    EXPECT_TRUE(IsAtLeast(4, 0));
    EXPECT_TRUE(IsAtLeast(4, 10));
    EXPECT_TRUE(IsAtLeast(5, 99)) << "a higher major version decides, whatever the minor one is";
    EXPECT_FALSE(IsAtLeast(100, 0));
}

TEST(SystemVersion, HasOneProductType) {
    EXPECT_EQ(ProductTypeIs(1) + ProductTypeIs(2) + ProductTypeIs(3), 1);
}

}  // namespace
}  // namespace version_internal_test
