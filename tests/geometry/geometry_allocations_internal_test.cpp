// Clipping and the functions over arrays of points allocate nothing.
#include <Utility/clipping.h>
#include <Utility/geometry.h>
#include <gtest/gtest.h>
#include <support/failing_heap.h>

#include <vector>

namespace geometry_allocations_internal_test {
namespace {

using namespace Torvo;

// A ring whose outline crosses the lower side of the rectangle below with every step.
std::vector<LPNT> Zigzag(int32 vertices) {
    std::vector<LPNT> ring;
    ring.reserve(static_cast<std::size_t>(vertices) + 3);
    for (int32 i = 0; i < vertices; ++i) ring.push_back({100 * i, i % 2 == 0 ? -50 : 51});
    ring.push_back({100 * vertices, 900});
    ring.push_back({0, 900});
    ring.push_back(ring.front());
    return ring;
}

TEST(GeometryAllocations, NoneWhileClippingAndConverting) {
    constexpr LRECT rect = {0, 0, 200000, 1000};
    std::vector<LPNT> ring = Zigzag(1000);
    const auto size = static_cast<int32>(ring.size());
    std::vector<LPNT> target(4 * ring.size());
    std::vector<DPNT> reals(ring.size());
    int clipped = size;
    int32 distinct = 0;
    LRECT bounds;
    LPNT a = {-100, -100};
    LPNT b = {300, 300};

    const test::FailingHeap heap(1);
    const bool isClipped = ClipPoly(ring.data(), target.data(), &rect, &clipped, static_cast<int>(target.size()));
    const bool isVisible = ClipLine(&a, &b, &rect);
    OffsetPoints(ring.data(), size, 3, -3, -1000000, 1000000);
    ClipToLongPoints(ring.data(), target.data(), size, &distinct, -900000, 900000);
    LongToDoublePoints(ring.data(), reals.data(), size);
    DoubleToLongPoints(reals.data(), target.data(), size, -900000, 900000);
    GetRectFromPoints(bounds, ring.data(), size);
    EXPECT_FALSE(heap.Refused());
    EXPECT_TRUE(isClipped && isVisible);
    EXPECT_GT(clipped, size) << "each step across the side makes a vertex";
    EXPECT_EQ(distinct, size);
    EXPECT_EQ(target.front().x, 3);
    EXPECT_EQ(bounds.y1, -53);
}

}  // namespace
}  // namespace geometry_allocations_internal_test
