#include <Utility/memory_blocks.h>
#include <Utility/point_containers.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <numeric>

#include "containers/points.h"
#include "support/random.h"
#include "support/vtable_slot.h"

namespace point_container_test {
namespace {

using namespace Torvo;
using test::Point;
using test::Points;
using test::PointsOf;

using Container = std::unique_ptr<DPNTContainer>;

constexpr uint64 kMost = std::numeric_limits<uint64>::max();

Container Make(uint64 initialCapacity, uint64 growBy) {
    Container container(DPNTContainer::Create(initialCapacity, growBy));
    EXPECT_NE(container, nullptr);
    return container;
}

// Points (first, -first), (first + 1, -first - 1), ...
Points Ascending(int first, uint64 count) {
    Points points;
    for (uint64 i = 0; i < count; ++i) {
        const double x = first + static_cast<double>(i);
        points.emplace_back(x, -x);
    }
    return points;
}

bool Append(DPNTContainer& container, const Points& points) {
    return container.Append(points.data(), points.size());
}

const DPNT* ArrayOf(DPNTContainer& container) {
    uint64 count;
    return container.GetPoints(count);
}

uint64 CountOf(DPNTContainer& container) {
    uint64 count = 77;
    container.GetPoints(count);
    return count;
}

// The room, in points: what the heap gave.
uint64 RoomOf(DPNTContainer& container) {
    return memSize(ArrayOf(container)) / sizeof(DPNT);
}

TEST(PointContainer, OperationsStandInTheirPublishedOrder) {
    using test::SlotOf;
    EXPECT_EQ(SlotOf(&DPNTContainer::Append), 2u);
    EXPECT_EQ(SlotOf(&DPNTContainer::Reset), 3u);
    EXPECT_EQ(SlotOf(&DPNTContainer::Reserve), 4u);
    EXPECT_EQ(SlotOf(&DPNTContainer::GetPoints), 5u);
}

TEST(PointContainer, StartsEmptyWithTheRoomThatWasAskedFor) {
    const Container container = Make(100, 10);
    EXPECT_EQ(CountOf(*container), 0u);
    EXPECT_GE(RoomOf(*container), 100u);
}

TEST(PointContainer, MayStartWithoutRoomAndWithoutAGrowth) {
    const Container container = Make(0, 0);
    EXPECT_EQ(CountOf(*container), 0u);
    for (int i = 0; i < 100; ++i) ASSERT_TRUE(Append(*container, {{i * 1.0, i * -1.0}}));
    EXPECT_EQ(PointsOf(*container), Ascending(0, 100));
}

TEST(PointContainer, IsNullWhereNoHeapHasThatMuch) {
    EXPECT_EQ(Container(DPNTContainer::Create(kMost, 1)), nullptr);
    EXPECT_EQ(Container(DPNTContainer::Create(kMost / 16 + 1, 1)), nullptr);
    EXPECT_EQ(Container(DPNTContainer::Create(kMost / 16, 1)), nullptr);
}

TEST(PointContainer, AppendCopiesBehindTheLastPoint) {
    const Container container = Make(2, 4);
    EXPECT_TRUE(Append(*container, Ascending(0, 2)));
    EXPECT_TRUE(Append(*container, Ascending(2, 3)));
    EXPECT_EQ(PointsOf(*container), Ascending(0, 5));
}

TEST(PointContainer, AppendCopiesEveryBit) {
    const Container container = Make(1, 1);
    const Points points{{-0.0, std::numeric_limits<double>::quiet_NaN()},
                        {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::denorm_min()}};
    EXPECT_TRUE(Append(*container, points));
    EXPECT_EQ(PointsOf(*container), points);
}

TEST(PointContainer, AppendOfNoPointsIsTrue) {
    const Container container = Make(4, 4);
    const DPNT point{1, 2};
    EXPECT_TRUE(container->Append(&point, 0));
    EXPECT_TRUE(container->Append(nullptr, 0));
    EXPECT_EQ(CountOf(*container), 0u);
}

TEST(PointContainer, AppendThatFitsLeavesTheArrayWhereItIs) {
    const Container container = Make(50, 10);
    const DPNT* const array = ArrayOf(*container);
    EXPECT_TRUE(Append(*container, Ascending(0, 50)));
    EXPECT_EQ(ArrayOf(*container), array);
}

TEST(PointContainer, AppendBeyondTheRoomGrowsByTheSmallestGrowthAtLeast) {
    const Container container = Make(10, 1000);
    const uint64 room = RoomOf(*container);
    EXPECT_TRUE(Append(*container, Ascending(0, room)));
    EXPECT_EQ(RoomOf(*container), room);
    EXPECT_TRUE(Append(*container, {{0, 0}}));
    EXPECT_GE(RoomOf(*container), room + 1000);
    EXPECT_EQ(CountOf(*container), room + 1);
}

TEST(PointContainer, AppendBeyondTheRoomGrowsByWhatIsMissingAtLeast) {
    const Container container = Make(10, 1);
    EXPECT_TRUE(Append(*container, Ascending(0, 5000)));
    EXPECT_GE(RoomOf(*container), 5000u);
    EXPECT_EQ(PointsOf(*container), Ascending(0, 5000));
}

TEST(PointContainer, AppendOfItsOwnPoints) {
    const Container container = Make(4, 1);
    EXPECT_TRUE(Append(*container, Ascending(0, 3)));
    Points expected = Ascending(0, 3);
    // Doubled until the array has moved many times.
    for (int round = 0; round < 12; ++round) {
        uint64 count = 0;
        const DPNT* const points = container->GetPoints(count);
        EXPECT_TRUE(container->Append(points + 1, count - 1));
        expected.insert(expected.end(), expected.begin() + 1, expected.begin() + static_cast<std::ptrdiff_t>(count));
        ASSERT_EQ(PointsOf(*container), expected);
    }
}

TEST(PointContainer, ReserveKeepsThePoints) {
    const Container container = Make(4, 4);
    EXPECT_TRUE(Append(*container, Ascending(0, 4)));
    EXPECT_TRUE(container->Reserve(10'000));
    EXPECT_GE(RoomOf(*container), 10'000u);
    EXPECT_EQ(PointsOf(*container), Ascending(0, 4));
}

TEST(PointContainer, ReserveOfWhatIsThereChangesNothing) {
    const Container container = Make(100, 1'000'000);
    const DPNT* const array = ArrayOf(*container);
    const uint64 room = RoomOf(*container);
    for (const uint64 wanted : {uint64{0}, uint64{1}, room}) EXPECT_TRUE(container->Reserve(wanted));
    EXPECT_EQ(ArrayOf(*container), array);
    EXPECT_EQ(RoomOf(*container), room);
    EXPECT_TRUE(container->Reserve(room + 1));
    EXPECT_GE(RoomOf(*container), room + 1'000'000);
}

TEST(PointContainer, ResetEmptiesAndKeepsTheArray) {
    const Container container = Make(100, 10);
    EXPECT_TRUE(Append(*container, Ascending(0, 100)));
    const DPNT* const array = ArrayOf(*container);
    const uint64 room = RoomOf(*container);
    EXPECT_TRUE(container->Reset(0));
    EXPECT_EQ(CountOf(*container), 0u);
    EXPECT_EQ(ArrayOf(*container), array);
    EXPECT_TRUE(Append(*container, Ascending(7, 2)));
    EXPECT_TRUE(container->Reset(5));
    EXPECT_EQ(CountOf(*container), 0u);
    EXPECT_EQ(ArrayOf(*container), array);
    EXPECT_EQ(RoomOf(*container), room) << "it never shrinks";
    EXPECT_TRUE(container->Reset(room + 500));
    EXPECT_GE(RoomOf(*container), room + 500);
    EXPECT_EQ(CountOf(*container), 0u);
}

// What no heap grants loses the points; the container is empty then, and works on.
template <typename Ask>
void ExpectRefusedAndUsable(Ask ask) {
    const Container container = Make(10, 10);
    EXPECT_TRUE(Append(*container, Ascending(0, 10)));
    EXPECT_FALSE(ask(*container));
    EXPECT_EQ(CountOf(*container), 0u);
    EXPECT_EQ(ArrayOf(*container), nullptr);
    EXPECT_TRUE(container->Reset(0));
    EXPECT_TRUE(Append(*container, Ascending(3, 25)));
    EXPECT_EQ(PointsOf(*container), Ascending(3, 25));
}

TEST(PointContainer, RefusesRoomThatNoHeapHas) {
    for (const uint64 wanted : {kMost, kMost - 1, kMost / 16 + 1, kMost / 16, kMost / 32}) {
        ExpectRefusedAndUsable([wanted](DPNTContainer& container) { return container.Reserve(wanted); });
        ExpectRefusedAndUsable([wanted](DPNTContainer& container) { return container.Reset(wanted); });
    }
}

TEST(PointContainer, RefusesCountsThatAddUpToMoreThanThereIs) {
    const DPNT point{1, 2};
    for (const uint64 count : {kMost, kMost - 9, kMost - 10, kMost / 16}) {
        ExpectRefusedAndUsable([&](DPNTContainer& container) { return container.Append(&point, count); });
    }
}

TEST(PointContainer, RefusesAGrowthThatNoHeapHas) {
    for (const uint64 growBy : {kMost, kMost / 16, kMost - 5}) {
        const Container container = Make(10, growBy);
        const uint64 room = RoomOf(*container);
        EXPECT_TRUE(Append(*container, Ascending(0, room)));
        EXPECT_FALSE(Append(*container, {{0, 0}}));
        EXPECT_EQ(CountOf(*container), 0u);
    }
}

TEST(PointContainer, NullPointsAreRefused) {
    const Container container = Make(10, 10);
    EXPECT_TRUE(Append(*container, Ascending(0, 3)));
    EXPECT_FALSE(container->Append(nullptr, 1));
    EXPECT_FALSE(container->Append(nullptr, 100));
    EXPECT_EQ(PointsOf(*container), Ascending(0, 3));
}

TEST(PointContainerProperty, AnswersAsAVectorDoes) {
    test::Random random;
    SCOPED_TRACE(random.About());
    for (int operations = 0; operations < test::kRandomOperations;) {
        const auto growBy = static_cast<uint64>(random.Between(0, 40));
        const Container container = Make(static_cast<uint64>(random.Between(0, 40)), growBy);
        Points plain;
        for (int i = 0; i < 500; ++i, ++operations) {
            const uint64 room = RoomOf(*container);
            const DPNT* const array = ArrayOf(*container);
            uint64 wanted = static_cast<uint64>(random.Between(0, 400));
            const int64 operation = random.Between(0, 30);
            if (operation == 0) {
                ASSERT_TRUE(container->Reset(wanted));
                plain.clear();
            } else if (operation == 1) {
                ASSERT_TRUE(container->Reserve(wanted));
            } else {
                const Points more = Ascending(operations, static_cast<uint64>(random.Between(0, 5)));
                wanted = plain.size() + more.size();
                ASSERT_TRUE(Append(*container, more));
                plain.insert(plain.end(), more.begin(), more.end());
            }
            if (wanted <= room) {
                ASSERT_EQ(ArrayOf(*container), array);
            } else {
                ASSERT_GE(RoomOf(*container), room + std::max(wanted - room, growBy));
            }
            ASSERT_EQ(CountOf(*container), plain.size());
        }
        ASSERT_EQ(PointsOf(*container), plain);
    }
}

}  // namespace
}  // namespace point_container_test
