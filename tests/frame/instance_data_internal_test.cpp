#include <Utility/frame/instance_data.h>
#include <gtest/gtest.h>

namespace instance_data_internal_test {
namespace {

using Torvo::InstanceDataImpl;

TEST(InstanceDataTable, LastValueUnderAKeyWins) {
    InstanceDataImpl instance;
    int first = 0;
    int second = 0;
    for (const unsigned int key : {0u, 3u, 15u, 16u, 12345u, 0xFFFFFFFFu}) {
        EXPECT_EQ(instance.GetSlot(key), nullptr);
        EXPECT_TRUE(instance.SetSlot(key, &first));
        EXPECT_TRUE(instance.SetSlot(key, &second));
        EXPECT_EQ(instance.GetSlot(key), &second);
    }
    EXPECT_EQ(instance.GetSlot(14), nullptr);
    EXPECT_EQ(instance.GetSlot(17), nullptr);
}

TEST(InstanceDataTable, AutoDestroyIsTrueUntilCleared) {
    InstanceDataImpl instance;
    EXPECT_TRUE(instance.GetAutoDestroy());
    instance.ClearAutoDestroy();
    EXPECT_FALSE(instance.GetAutoDestroy());
}

}  // namespace
}  // namespace instance_data_internal_test
