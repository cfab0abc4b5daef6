#include "geometry/random_shapes.h"

#include <Utility/arithmetic.h>
#include <Utility/geometry.h>
#include <gtest/gtest.h>

#include <cstring>

namespace point_arrays_test {
namespace {

using namespace Torvo;
using test::Highest;
using test::Lowest;
using test::Points;
using test::RandomShapes;

constexpr LPNT Guard = {0x5A5A5A5A, -0x5A5A5A5A};
constexpr double Infinity = std::numeric_limits<double>::infinity();

int32 Size(const Points& points) {
    return static_cast<int32>(points.size());
}

// The steps of the contract of each function, one point after the other ----------------------------------------------

LPNT PlainClamp(LPNT p, int32 low, int32 high) {
    const auto clamp = [=](int32 v) { return v < low ? low : v < high ? v : high; };
    return {clamp(p.x), clamp(p.y)};
}

Points PlainClipToLong(const Points& source, bool collapse, int32 low, int32 high) {
    Points target;
    for (const LPNT point : source) {
        const LPNT clamped = PlainClamp(point, low, high);
        if (!collapse || target.empty() || !(clamped == target.back())) target.push_back(clamped);
    }
    return target;
}

LRECT PlainBounds(const Points& points) {
    LRECT bounds;
    InitRectForMerging(bounds);
    for (const LPNT point : points) MergeRectWithPoint(bounds, point);
    return bounds;
}

Points RandomPoints(RandomShapes& random, int32 count) {
    Points points;
    for (int32 i = 0; i < count; ++i) {
        points.push_back(i > 0 && random.OneIn(4) ? points.back() : random.Point());
    }
    return points;
}

// Bounds --------------------------------------------------------------------------------------------------------------

TEST(RectFromPoints, OfNoPointsIsTheMergingState) {
    LRECT rect{};
    GetRectFromPoints(rect, nullptr, 0);
    EXPECT_EQ(rect, (LRECT{Highest, Highest, Lowest, Lowest}));
    GetRectFromPoints(rect, nullptr, -3);
    EXPECT_EQ(rect, (LRECT{Highest, Highest, Lowest, Lowest}));
}

TEST(RectFromPoints, AgreesWithMergingOneByOne) {
    RandomShapes random(21);
    for (int32 count = 0; count < 60; ++count) {
        for (int round = 0; round < 50; ++round) {
            const Points points = RandomPoints(random, count);
            LRECT rect{};
            GetRectFromPoints(rect, points.data(), count);
            ASSERT_EQ(rect, PlainBounds(points)) << count;
        }
    }
}

// Offsets -------------------------------------------------------------------------------------------------------------

TEST(OffsetPoints, AddsSaturatesAndHolds) {
    Points points = {{1, 2}, {Highest, Lowest}, {-990, 990}, Guard};
    OffsetPoints(points.data(), 3, 20, -20, -1000, 1000);
    EXPECT_EQ(points, (Points{{21, -18}, {1000, -1000}, {-970, 970}, Guard}));
}

TEST(OffsetPoints, AgreesWithAdditionOneByOne) {
    RandomShapes random(22);
    for (int32 count = 0; count < 40; ++count) {
        for (int round = 0; round < 200; ++round) {
            const Points before = RandomPoints(random, count);
            const LPNT by = random.Point();
            const int32 low = random.Coordinate();
            const int32 high = random.Coordinate();
            Points points = before;
            points.push_back(Guard);
            OffsetPoints(points.data(), count, by.x, by.y, low, high);
            for (std::size_t i = 0; i < before.size(); ++i) {
                ASSERT_EQ(points[i], (LPNT{INT32AddCoords(before[i].x, by.x, low, high),
                                           INT32AddCoords(before[i].y, by.y, low, high)}));
            }
            ASSERT_EQ(points.back(), Guard);
        }
    }
}

TEST(OffsetPoints, OnDoublesOnlyAdds) {
    DPNT points[] = {{1, 2}, {1e300, -1}, {7, 7}};
    OffsetPoints(points, 2, 0.5, -2);
    EXPECT_EQ(points[0], (DPNT{1.5, 0}));
    EXPECT_EQ(points[1], (DPNT{1e300, -3}));
    EXPECT_EQ(points[2], (DPNT{7, 7}));
    OffsetPoints(points, 0, 1, 1);
    OffsetPoints(points, -1, 1, 1);
    EXPECT_EQ(points[0], (DPNT{1.5, 0}));
}

// Holding at limits ---------------------------------------------------------------------------------------------------

TEST(ClipToLongPoints, ARunHeldAtOnePlaceBecomesOnePoint) {
    const Points source = {{5, 5}, {7, 7}, {9, 9}};
    Points target(4, Guard);
    int count = -1;
    ClipToLongPoints(source.data(), target.data(), 3, &count, 0, 3);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(target, (Points{{3, 3}, Guard, Guard, Guard}));
}

TEST(ClipToLongPoints, WithoutACountNothingCollapses) {
    const Points source = {{5, 5}, {7, 7}, {9, 9}};
    Points target(4, Guard);
    ClipToLongPoints(source.data(), target.data(), 3, nullptr, 0, 3);
    EXPECT_EQ(target, (Points{{3, 3}, {3, 3}, {3, 3}, Guard}));
}

TEST(ClipToLongPoints, PointsThatWereEqualBeforeCollapseToo) {
    const Points source = {{1, 1}, {1, 1}, {2, 2}, {1, 1}};
    Points target(4, Guard);
    int count = 0;
    ClipToLongPoints(source.data(), target.data(), 4, &count, 0, 3);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(target, (Points{{1, 1}, {2, 2}, {1, 1}, Guard}));
}

TEST(ClipToLongPoints, ACountBelowOneIsPassedOn) {
    for (const int32 given : {0, -7}) {
        LPNT target = Guard;
        int count = 99;
        ClipToLongPoints(nullptr, &target, given, &count, 0, 3);
        EXPECT_EQ(count, given);
        ClipToLongPoints(nullptr, &target, given, nullptr, 0, 3);
        EXPECT_EQ(target, Guard);
    }
}

TEST(ClipToLongPoints, AgreesWithThePlainFormAlsoInPlace) {
    RandomShapes random(23);
    for (int32 count = 1; count < 50; ++count) {
        for (int round = 0; round < 200; ++round) {
            const Points source = RandomPoints(random, count);
            const int32 low = random.Coordinate();
            const int32 high = random.Coordinate();
            for (const bool collapse : {false, true}) {
                Points expected = PlainClipToLong(source, collapse, low, high);
                Points target(source.size() + 1, Guard);
                int left = 0;
                ClipToLongPoints(source.data(), target.data(), count, collapse ? &left : nullptr, low, high);
                if (collapse) {
                    ASSERT_EQ(left, Size(expected));
                }
                Points inPlace = source;
                ClipToLongPoints(inPlace.data(), inPlace.data(), count, collapse ? &left : nullptr, low, high);
                inPlace.resize(expected.size());
                ASSERT_EQ(inPlace, expected);
                expected.resize(target.size(), Guard);
                ASSERT_EQ(target, expected) << count << " within " << low << ".." << high;
            }
        }
    }
}

// Conversions ---------------------------------------------------------------------------------------------------------

TEST(DoubleToLongPoints, HoldsAndRounds) {
    const DPNT source[] = {{2.5, -2.5}, {Infinity, -Infinity}, {GetNaN(), 0.49}, {1e10, -1e10}};
    Points target(5, Guard);
    DoubleToLongPoints(source, target.data(), 4, -1000, 1000);
    EXPECT_EQ(target, (Points{{3, -3}, {1000, -1000}, {Lowest, 0}, {1000, -1000}, Guard}));
    DoubleToLongPoints(source, target.data(), 4, Lowest, Highest);
    EXPECT_EQ(target[3], (LPNT{Highest, Lowest}));
    DoubleToLongPoints(source, target.data(), 0, 0, 0);
    DoubleToLongPoints(nullptr, nullptr, -1, 0, 0);
    EXPECT_EQ(target[0], (LPNT{3, -3}));
}

TEST(DoubleToLongPoints, AgreesWithDoubleToLongRectOnRandomValues) {
    RandomShapes random(24);
    const double special[] = {GetNaN(), Infinity, -Infinity, 0.5, -0.5, 0.0, -0.0, 2147483647.5, -2147483648.5, 1e-310};
    for (int round = 0; round < 100000; ++round) {
        DPNT points[2];
        for (DPNT& p : points) {
            p = {std::ldexp(random.Real(-1, 1), random.Int(-3, 40)), random.Coordinate() + 0.5 * random.Int(-1, 1)};
            if (random.OneIn(4)) p.x = special[random.Int(0, 9)];
        }
        const int32 low = random.Coordinate();
        const int32 high = random.Coordinate();
        LPNT target[2];
        LRECT rect;
        DoubleToLongPoints(points, target, 2, low, high);
        DoubleToLongRect({points[0].x, points[0].y, points[1].x, points[1].y}, rect, low, high);
        ASSERT_EQ(rect, (LRECT{target[0].x, target[0].y, target[1].x, target[1].y}))
            << points[0] << points[1] << " within " << low << ".." << high;
    }
}

TEST(LongToDoublePoints, IsExact) {
    const Points source = {{Lowest, Highest}, {-1, 1}};
    DPNT target[3] = {{7, 7}, {7, 7}, {7, 7}};
    LongToDoublePoints(source.data(), target, 2);
    EXPECT_EQ(target[0], (DPNT{-2147483648.0, 2147483647.0}));
    EXPECT_EQ(target[1], (DPNT{-1, 1}));
    EXPECT_EQ(target[2], (DPNT{7, 7}));
    LongToDoublePoints(nullptr, nullptr, 0);
}

// Copying -------------------------------------------------------------------------------------------------------------

TEST(CopyPoints, CopiesBytesAndReturnsTheTarget) {
    const Points source = {{1, 2}, {3, 4}, {5, 6}};
    Points target(3, Guard);
    EXPECT_EQ(CopyPoints(target.data(), source.data(), 2), target.data());
    EXPECT_EQ(target, (Points{{1, 2}, {3, 4}, Guard}));
    EXPECT_EQ(CopyPoints(target.data(), nullptr, 0), target.data());
    const DPNT real[] = {{GetNaN(), -0.0}};
    DPNT copy[1];
    EXPECT_EQ(CopyPoints(copy, real, 1), copy);
    EXPECT_EQ(std::memcmp(copy, real, sizeof real), 0);
}

TEST(MovePoints, AllowsOverlapBothWays) {
    Points points = {{1, 1}, {2, 2}, {3, 3}, {4, 4}};
    EXPECT_EQ(MovePoints(points.data() + 1, points.data(), 3), points.data() + 1);
    EXPECT_EQ(points, (Points{{1, 1}, {1, 1}, {2, 2}, {3, 3}}));
    MovePoints(points.data(), points.data() + 1, 3);
    EXPECT_EQ(points, (Points{{1, 1}, {2, 2}, {3, 3}, {3, 3}}));
    DPNT real[] = {{1, 1}, {2, 2}, {3, 3}};
    EXPECT_EQ(MovePoints(real + 1, real, 2), real + 1);
    EXPECT_EQ(real[2], (DPNT{2, 2}));
    EXPECT_EQ(MovePoints(real, nullptr, 0), real);
}

TEST(ReverseNodes, ReversesInPlace) {
    Points points = {{1, 1}, {2, 2}, {3, 3}, Guard};
    ReverseNodes(points.data(), 3);
    EXPECT_EQ(points, (Points{{3, 3}, {2, 2}, {1, 1}, Guard}));
    ReverseNodes(points.data(), 2);
    EXPECT_EQ(points, (Points{{2, 2}, {3, 3}, {1, 1}, Guard}));
    for (const int32 count : {1, 0, -4}) ReverseNodes(points.data(), count);
    EXPECT_EQ(points, (Points{{2, 2}, {3, 3}, {1, 1}, Guard}));
    DPNT real[] = {{1, 1}, {2, 2}};
    ReverseNodes(real, 2);
    EXPECT_EQ(real[0], (DPNT{2, 2}));
}

}  // namespace
}  // namespace point_arrays_test
