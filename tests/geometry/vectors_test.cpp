#include "geometry/random_shapes.h"

#include <Utility/arithmetic.h>
#include <Utility/geometry.h>
#include <gtest/gtest.h>

namespace vectors_test {
namespace {

using namespace Torvo;
using test::Highest;
using test::Lowest;
using test::RandomShapes;

TEST(Vectors, Subtraction) {
    DPNT difference{};
    SubtractPoints(DPNT{3, 1}, DPNT{1, 2.5}, difference);
    EXPECT_EQ(difference, (DPNT{2, -1.5}));
    SubtractPoints(LPNT{3, 1}, LPNT{1, 2}, difference);
    EXPECT_EQ(difference, (DPNT{2, -1}));
    SubtractPoints(LPNT{Highest, Lowest}, LPNT{-1, 1}, difference);
    EXPECT_EQ(difference, (DPNT{double(Lowest), double(Highest)}));
    DPNT a{5, 5};
    SubtractPoints(a, DPNT{1, 2}, a);
    EXPECT_EQ(a, (DPNT{4, 3}));
}

TEST(Vectors, Products) {
    EXPECT_EQ(CrossProductVecs({2, 3}, {5, 7}), -1);
    EXPECT_EQ(DotProductVecs({2, 3}, {5, 7}), 31);
    EXPECT_EQ(NormL1Vec({-2, 3.5}), 5.5);
}

// Segments ------------------------------------------------------------------------------------------------------------

constexpr DPNT Untouched = {123, 456};

struct Crossing {
    DPNT point = Untouched;
    bool found;

    Crossing(DPNT p1, DPNT p2, DPNT q1, DPNT q2) : found(CrossDLines(p1, p2, q1, q2, point)) {}
};

TEST(CrossDLines, FindsThePointInside) {
    const Crossing crossing({0, 0}, {10, 10}, {0, 10}, {10, 0});
    EXPECT_TRUE(crossing.found);
    EXPECT_EQ(crossing.point, (DPNT{5, 5}));
}

TEST(CrossDLines, TouchingEndPointsCount) {
    EXPECT_EQ(Crossing({0, 0}, {10, 0}, {10, 0}, {10, 10}).point, (DPNT{10, 0}));
    EXPECT_EQ(Crossing({0, 0}, {10, 0}, {0, -5}, {0, 0}).point, (DPNT{0, 0}));
    EXPECT_EQ(Crossing({0, 0}, {10, 0}, {4, 0}, {4, 9}).point, (DPNT{4, 0}));
}

TEST(CrossDLines, LeavesOutAloneWhenThereIsNone) {
    const Crossing crossings[] = {
        {{0, 0}, {1, 1}, {5, 0}, {0, 5}},    // t above 1
        {{9, 9}, {7, 7}, {5, 0}, {0, 5}},    // t above 1, turned round
        {{3, 3}, {9, 9}, {5, 0}, {0, 5}},    // t below 0
        {{0, 0}, {10, 10}, {9, 0}, {8, 1}},  // u above 1
        {{0, 0}, {10, 10}, {8, 1}, {9, 0}},  // u below 0
        {{0, 0}, {10, 0}, {0, 1}, {10, 1}},  // parallel
        {{0, 0}, {10, 0}, {5, 0}, {15, 0}},  // on one line
        {{4, 4}, {4, 4}, {0, 0}, {10, 10}},  // the first has no length
        {{0, 0}, {10, 10}, {4, 4}, {4, 4}},  // the second has none
    };
    for (const Crossing& crossing : crossings) {
        EXPECT_FALSE(crossing.found);
        EXPECT_EQ(crossing.point, Untouched);
    }
}

TEST(CrossDLines, OnlyTheFirstSegmentEntersTheTestForParallels) {
    const DPNT longSegment[] = {{-1e6, 0}, {1e6, 0}};
    const DPNT shortSegment[] = {{0, -1e-5}, {0, 1e-5}};
    EXPECT_FALSE(Crossing(longSegment[0], longSegment[1], shortSegment[0], shortSegment[1]).found);
    EXPECT_TRUE(Crossing(shortSegment[0], shortSegment[1], longSegment[0], longSegment[1]).found);
}

TEST(CrossDLines, NaNIsNotOutside) {
    const Crossing crossing({0, GetNaN()}, {10, 10}, {0, 10}, {10, 0});
    EXPECT_TRUE(crossing.found);
    EXPECT_TRUE(IsNaN(crossing.point.x));
    EXPECT_TRUE(IsNaN(crossing.point.y));
}

TEST(CrossDLines, RandomCrossingsLieOnBothSegments) {
    RandomShapes random(31);
    const auto point = [&random] { return DPNT{random.Real(-100, 100), random.Real(-100, 100)}; };
    int found = 0;
    for (int i = 0; i < 20000; ++i) {
        const DPNT p1 = point(), p2 = point(), q1 = point(), q2 = point();
        const Crossing crossing(p1, p2, q1, q2);
        const auto side = [](DPNT a, DPNT b, DPNT c) { return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x); };
        const bool across = side(p1, p2, q1) * side(p1, p2, q2) < 0 && side(q1, q2, p1) * side(q1, q2, p2) < 0;
        ASSERT_EQ(crossing.found, across);
        if (!across) continue;
        ++found;
        EXPECT_NEAR(side(p1, p2, crossing.point), 0, 1e-7);
        EXPECT_NEAR(side(q1, q2, crossing.point), 0, 1e-7);
    }
    EXPECT_GT(found, 1000);
}

// Bounds of circles and of turned rectangles --------------------------------------------------------------------------

TEST(CircleMBR, OnASquareGrid) {
    LRECT out{};
    CreateCircleMBR(out, {10, 20}, {13, 24}, 1, 1);
    EXPECT_EQ(out, (LRECT{5, 15, 15, 25}));
}

TEST(CircleMBR, OnAGridOfTallCells) {
    LRECT out{};
    // Cells twice as tall as wide: 8 rows are 4 units of x, and a radius of 5 is 10 rows.
    CreateCircleMBR(out, {0, 0}, {3, 8}, 1, 2);
    EXPECT_EQ(out, (LRECT{-5, -10, 5, 10}));
}

TEST(CircleMBR, IsHeldAtAThousandMillion) {
    LRECT out{};
    CreateCircleMBR(out, {999999999, -999999999}, {999999999, -999999989}, 1, 1);
    EXPECT_EQ(out, (LRECT{999999989, -1000000000, 1000000000, -999999989}));
    // The difference in x wraps to -1, so that the circle has a radius of 1.
    CreateCircleMBR(out, {Highest, 0}, {Lowest, 0}, 1, 1);
    EXPECT_EQ(out, (LRECT{1000000000, -1, 1000000000, 1}));
}

TEST(RotatedMBR, TurnsAboutTheFirstCorner) {
    const DRECT rect{10, 20, 14, 22};
    DPNT out[4];
    GetRotatedMBRPnts(&rect, 0, 1, 1, out);
    EXPECT_EQ(out[0], (DPNT{10, 20}));
    EXPECT_EQ(out[1], (DPNT{14, 20}));
    EXPECT_EQ(out[2], (DPNT{14, 22}));
    EXPECT_EQ(out[3], (DPNT{10, 22}));
    GetRotatedMBRPnts(&rect, 900, 1, 1, out);
    const DPNT quarter[] = {{10, 20}, {10, 16}, {12, 16}, {12, 20}};
    for (int i = 0; i < 4; ++i) {
        EXPECT_NEAR(out[i].x, quarter[i].x, 1e-12) << i;
        EXPECT_NEAR(out[i].y, quarter[i].y, 1e-12) << i;
    }
}

TEST(RotatedMBR, TheFactorsCarryFromOneAxisToTheOther) {
    const DRECT rect{0, 0, 4, 2};
    DPNT out[4];
    GetRotatedMBRPnts(&rect, 300, 3, 0.5, out);
    const double c = std::cos(300 / 10.0 * 3.141592653589793 / 180.0);
    const double s = std::sin(300 / 10.0 * 3.141592653589793 / 180.0);
    const DPNT expected[] = {
        {0, 0}, {4 * c, -4 * 0.5 * s}, {4 * c + 2 * 3 * s, -4 * 0.5 * s + 2 * c}, {2 * 3 * s, 2 * c}};
    for (int i = 0; i < 4; ++i) {
        EXPECT_NEAR(out[i].x, expected[i].x, 1e-12) << i;
        EXPECT_NEAR(out[i].y, expected[i].y, 1e-12) << i;
    }
}

TEST(RotatedMBR, BoundsOfTheTurnedText) {
    DRECT rect{10, 20, 14, 22};
    RotateTextMBR(&rect, -900, 1, 1);
    EXPECT_NEAR(rect.x1, 8, 1e-12);
    EXPECT_NEAR(rect.y1, 20, 1e-12);
    EXPECT_NEAR(rect.x2, 10, 1e-12);
    EXPECT_NEAR(rect.y2, 24, 1e-12);
    rect = {14, 22, 10, 20};  // unsorted goes in, sorted comes out
    RotateTextMBR(&rect, 0, 1, 1);
    EXPECT_EQ(rect, (DRECT{10, 20, 14, 22}));
}

}  // namespace
}  // namespace vectors_test
