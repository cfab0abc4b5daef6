#include <Utility/geometry/regions.h>
#include <Utility/platform/regions.h>
#include <gtest/gtest.h>

namespace geometry_regions_internal_test {
namespace {

using namespace Torvo;

int calls = 0;
int failingCalls = 0;

// The system's call, of which the first few fail.
int FailFirst(HRGN target, HRGN a, HRGN b, int mode) {
    EXPECT_EQ(mode, RGN_OR);
    return ++calls <= failingCalls ? 0 : platform::CombineRgn(target, a, b, mode);
}

class RegionTooComplex : public testing::Test {
protected:
    void SetUp() override {
        calls = 0;
        const LRECT first{0, 0, 10, 10};
        const LRECT second{20, 20, 30, 30};
        region = rgn_unionrect(rgn_create(&first), &second);
    }
    void TearDown() override { rgn_destroy(region); }

    void ExpectCovers(const LRECT& bounds, bool isFull) const {
        LRECT box{};
        rgn_bounding_rect(region, &box);
        EXPECT_EQ(box, bounds);
        const HRGN full = rgn_create(&bounds);
        EXPECT_EQ(rgn_equal(region, full), isFull);
        rgn_destroy(full);
    }

    HRGN region = nullptr;
};

TEST_F(RegionTooComplex, AUnionThatSucceedsKeepsTheShape) {
    failingCalls = 0;
    EXPECT_EQ(detail::UnionWithRect(region, {40, 0, 50, 10}, FailFirst), region);
    EXPECT_EQ(calls, 1);
    ExpectCovers({0, 0, 50, 30}, false);
}

TEST_F(RegionTooComplex, AUnionThatFailsOnceCoversTheBoundsAndTheRectangle) {
    failingCalls = 1;
    EXPECT_EQ(detail::UnionWithRect(region, {30, 0, 50, 30}, FailFirst), region);
    EXPECT_EQ(calls, 2);
    ExpectCovers({0, 0, 50, 30}, true);
}

TEST_F(RegionTooComplex, AUnionThatFailsTwiceStillCoversWhatTheRegionCovered) {
    failingCalls = 2;
    EXPECT_EQ(detail::UnionWithRect(region, {40, 0, 50, 10}, FailFirst), region);
    EXPECT_EQ(calls, 2);
    ExpectCovers({0, 0, 30, 30}, true);
}

}  // namespace
}  // namespace geometry_regions_internal_test
