#include <Utility/files/free_slots.h>

#include <gtest/gtest.h>
#include <support/random.h>

#include <iterator>
#include <set>

namespace Torvo::test {
namespace free_slots_internal_test {
namespace {

TEST(FreeSlots, AreTakenFromTheLowestOn) {
    FreeSlots slots;
    slots.Reserve(100);
    for (int32 slot = 0; slot < 5; ++slot) {
        EXPECT_EQ(slots.Lowest(), slot);
        slots.TakeLowest();
    }
    slots.GiveBack(3);
    slots.GiveBack(1);
    EXPECT_TRUE(slots.IsFree(1));
    EXPECT_FALSE(slots.IsFree(2));
    EXPECT_TRUE(slots.IsFree(5));
    for (const int32 slot : {1, 3, 5}) {
        EXPECT_EQ(slots.Lowest(), slot);
        slots.TakeLowest();
    }
}

TEST(FreeSlots, AreThoseOfASortedSet) {
    Random random;
    SCOPED_TRACE(random.About());
    constexpr int32 Size = 300;
    FreeSlots slots;
    slots.Reserve(Size);
    std::set<int32> free;
    for (int32 slot = 0; slot < Size; ++slot) free.insert(slot);
    std::set<int32> taken;
    for (int step = 0; step < 20'000; ++step) {
        const bool take = taken.empty() || (!free.empty() && random.OneIn(2));
        if (take) {
            ASSERT_EQ(slots.Lowest(), *free.begin());
            taken.insert(free.extract(free.begin()).value());
            slots.TakeLowest();
        } else {
            const auto given = std::next(taken.begin(), random.Between(0, static_cast<int64>(taken.size()) - 1));
            slots.GiveBack(*given);
            free.insert(taken.extract(given).value());
        }
    }
    for (int32 slot = 0; slot < Size; ++slot) EXPECT_EQ(slots.IsFree(slot), free.contains(slot));
}

}  // namespace
}  // namespace free_slots_internal_test
}  // namespace Torvo::test
