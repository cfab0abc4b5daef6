#include <Utility/point_containers.h>
#include <gtest/gtest.h>

#include <memory>

#include "containers/container_failures.h"
#include "containers/points.h"

// Point containers and parsers while memory is short.

namespace point_containers_internal_test {
namespace {

using namespace Torvo;
using test::FailingHeap;
using test::Points;
using test::PointsOf;

using PointFailures = test::ContainerFailures;

using Container = std::unique_ptr<DPNTContainer>;

const DPNT kPoints[] = {{1, 2}, {3, 4}, {5, 6}};

TEST_F(PointFailures, CreateGivesAContainerOrNull) {
    const uint64 requests = test::RefuseEachRequest([](uint64 nth, FailingHeap::Mode mode) {
        const FailingHeap heap(nth, mode);
        const Container container(DPNTContainer::Create(10, 10));
        EXPECT_EQ(container == nullptr, heap.Refused());
        return heap.Refused();
    });
    EXPECT_EQ(requests, 2u);
}

TEST_F(PointFailures, CreateGivesAParserOrNull) {
    const Container container(DPNTContainer::Create(10, 10));
    // Sets too long for a string to hold in itself.
    const wstring16 coordinate(100, ',');
    const wstring16 point(100, ';');
    const uint64 requests = test::RefuseEachRequest([&](uint64 nth, FailingHeap::Mode mode) {
        const FailingHeap heap(nth, mode);
        const std::unique_ptr<PointParserFactory> parser(
            PointParserFactory::Create(container.get(), coordinate.c_str(), point.c_str(), true));
        EXPECT_EQ(parser == nullptr, heap.Refused());
        return heap.Refused();
    });
    EXPECT_GE(requests, 3u);
}

template <typename Ask>
void ExpectEmptyWhenRefused(Ask ask) {
    const Container container(DPNTContainer::Create(3, 3));
    ASSERT_TRUE(container->Append(kPoints, 3));
    {
        const FailingHeap heap(1);
        EXPECT_FALSE(ask(*container));
        EXPECT_TRUE(heap.Refused());
    }
    uint64 count = 77;
    EXPECT_EQ(container->GetPoints(count), nullptr);
    EXPECT_EQ(count, 0u);
    EXPECT_TRUE(container->Append(kPoints, 2));
    EXPECT_EQ(PointsOf(*container), (Points{{1, 2}, {3, 4}}));
}

TEST_F(PointFailures, FailedGrowthLosesThePointsAndNoMemory) {
    ExpectEmptyWhenRefused([](DPNTContainer& container) { return container.Reserve(1000); });
    ExpectEmptyWhenRefused([](DPNTContainer& container) { return container.Reset(1000); });
    ExpectEmptyWhenRefused([](DPNTContainer& container) {
        for (int i = 0; i < 100; ++i) {
            if (!container.Append(kPoints, 3)) return false;
        }
        return true;
    });
    ExpectEmptyWhenRefused([](DPNTContainer& container) {
        uint64 count = 0;
        while (container.Append(container.GetPoints(count), count)) {
        }
        return false;
    });
}

TEST_F(PointFailures, NothingIsReadWithoutRoom) {
    const Container container(DPNTContainer::Create(1, 1));
    const std::unique_ptr<PointParserFactory> parser(
        PointParserFactory::Create(container.get(), ZUTEXT(","), ZUTEXT(" "), false));
    const wstring16 text = ZUTEXT("1,2 3,4") + wstring16(2000, ' ');
    for (const bool reset : {true, false}) {
        {
            const FailingHeap heap(1);
            EXPECT_FALSE(parser->ParsePoints(text.c_str(), text.size(), reset));
            EXPECT_TRUE(heap.Refused());
        }
        EXPECT_EQ(PointsOf(*container), Points());
        EXPECT_TRUE(parser->ParsePoints(text.c_str(), text.size(), reset));
        EXPECT_EQ(PointsOf(*container), (Points{{1, 2}, {3, 4}}));
        EXPECT_TRUE(parser->ParsePoints(text.c_str(), text.size(), true));
    }
}

// The growth that fails on the way loses the points before it; those behind it are stored.
TEST_F(PointFailures, PointsThatFoundNoRoomAreMissingAndNothingTells) {
    const Container container(DPNTContainer::Create(1, 1));
    const std::unique_ptr<PointParserFactory> parser(
        PointParserFactory::Create(container.get(), ZUTEXT(","), ZUTEXT(" "), false));
    wstring16 text;
    for (int i = 0; i < 3000; ++i) text += ZUTEXT("1,2 ");
    {
        // The first request is for the room of 600 points; the second comes when these are used up.
        const FailingHeap heap(2, FailingHeap::Mode::kOnce);
        EXPECT_TRUE(parser->ParsePoints(text.c_str(), text.size(), true));
        EXPECT_TRUE(heap.Refused());
    }
    uint64 count = 0;
    container->GetPoints(count);
    EXPECT_GT(count, 0u);
    EXPECT_LT(count, 3000u);
}

}  // namespace
}  // namespace point_containers_internal_test
