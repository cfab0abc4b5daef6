#include <Utility/files/idle_order.h>

#include <gtest/gtest.h>
#include <support/random.h>

#include <iterator>
#include <map>

namespace Torvo::test {
namespace idle_order_internal_test {
namespace {

TEST(IdleOrder, TheOldestIsTheOneOfTheGreatestAge) {
    IdleOrder idle;
    idle.Reserve(10);
    EXPECT_EQ(idle.Oldest(), -1);
    idle.Add(5, 1);
    idle.AgeAll();
    idle.Add(3, 1);
    EXPECT_EQ(idle.Oldest(), 5);
    EXPECT_EQ(idle.AgeOf(5), 2);
    EXPECT_EQ(idle.AgeOf(3), 1);
    EXPECT_EQ(idle.Remove(5), 2);
    EXPECT_EQ(idle.Oldest(), 3);
    EXPECT_FALSE(idle.Contains(5));
    idle.AgeAll();
    EXPECT_EQ(idle.Remove(3), 2);
    EXPECT_EQ(idle.Count(), 0u);
}

TEST(IdleOrder, OfEqualAgesTheLowestEntryIsTheOldest) {
    IdleOrder idle;
    idle.Reserve(10);
    for (const int32 entry : {7, 2, 9, 4}) idle.Add(entry, 1);
    for (const int32 expected : {2, 4, 7, 9}) {
        EXPECT_EQ(idle.Oldest(), expected);
        idle.Remove(expected);
    }
}

TEST(IdleOrder, AFileThatWasOldWhenItBecameIdleStaysAheadOfYoungerOnes) {
    IdleOrder idle;
    idle.Reserve(10);
    idle.Add(1, 1);
    idle.Add(2, 100);
    EXPECT_EQ(idle.Oldest(), 2);
}

// The plain form: a map of ages, all of which are counted up.
TEST(IdleOrder, AgesAsThePlainFormDoes) {
    Random random;
    SCOPED_TRACE(random.About());
    constexpr int32 Size = 40;
    IdleOrder idle;
    idle.Reserve(Size);
    std::map<int32, int32> ages;
    for (int step = 0; step < 20'000; ++step) {
        const auto entry = static_cast<int32>(random.Between(0, Size - 1));
        if (random.OneIn(3)) {
            idle.AgeAll();
            for (auto& [each, age] : ages) ++age;
        } else if (ages.contains(entry)) {
            ASSERT_EQ(idle.Remove(entry), ages.at(entry));
            ages.erase(entry);
        } else {
            const auto age = static_cast<int32>(random.Between(1, 30));
            idle.Add(entry, age);
            ages[entry] = age;
        }
        int32 oldest = -1;
        for (const auto& [each, age] : ages) {
            ASSERT_EQ(idle.AgeOf(each), age);
            if (oldest == -1 || age > ages.at(oldest)) oldest = each;
        }
        ASSERT_EQ(idle.Oldest(), oldest);
        ASSERT_EQ(idle.Count(), ages.size());
        ASSERT_TRUE(idle.IsSound());
    }
}

}  // namespace
}  // namespace idle_order_internal_test
}  // namespace Torvo::test
