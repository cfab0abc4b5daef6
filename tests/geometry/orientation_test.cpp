#include "geometry/random_shapes.h"

#include <Utility/arithmetic.h>
#include <Utility/geometry.h>
#include <gtest/gtest.h>

#include <cmath>

namespace orientation_test {
namespace {

using namespace Torvo;
using test::Highest;
using test::Lowest;
using test::Points;
using test::RandomShapes;

// The walk as it is told, step by step ------------------------------------------------------------------------------

namespace plain {

bool InTriangle(LPNT p, LPNT a, LPNT b, LPNT c) {
    const bool first = IsClockwiseTriangle(p, a, b);
    return first == IsClockwiseTriangle(p, b, c) && first == IsClockwiseTriangle(p, c, a);
}

bool Inside(LPNT p, const LPNT* points, int count, int& status) {
    bool inside = false;
    status = 2;
    for (int i = 0; i < count - 1; ++i) {
        const LPNT a = points[i];
        const LPNT b = points[i + 1];
        if (p.x > std::max(a.x, b.x) || p.y < std::min(a.y, b.y) || p.y > std::max(a.y, b.y)) continue;
        if (p == a || p == b) {
            status = 0;
            return true;
        }
        const bool left = p.x < std::min(a.x, b.x);
        if (p.y == std::max(a.y, b.y)) {
            if (a.y == b.y && !left) {
                status = 0;
                return true;
            }
            continue;
        }
        if (!left) {
            if (a.x == b.x || a.y == b.y) {
                status = 0;
                return true;
            }
            const LPNT lo = a.y < b.y ? a : b;
            const LPNT hi = a.y < b.y ? b : a;
            const auto wrapped = [](int32 u, int32 v) {
                return double(static_cast<int32>(static_cast<uint32>(u) - static_cast<uint32>(v)));
            };
            const double value = wrapped(hi.x, lo.x) * wrapped(p.y, lo.y) - wrapped(hi.y, lo.y) * wrapped(p.x, lo.x);
            if (std::fabs(value) < 0.9) {
                status = 0;
                return true;
            }
            if (value <= 0) {
                status = 2;
                continue;
            }
        }
        status = 1;
        inside = !inside;
    }
    return inside;
}

bool IsClockwise(const Points& points) {
    const int count = static_cast<int>(points.size());
    const auto at = [&](int i) { return points[static_cast<std::size_t>(i % count)]; };
    bool inside = true;
    int i = 0;
    for (; i < count; ++i) {
        const LPNT a = at(i), b = at(i + 1), c = at(i + 2);
        bool holdsAnother = false;
        for (int j = 0; j < count; ++j) {
            if (i <= j && j <= i + 2) continue;
            if (InTriangle(at(j), a, b, c)) holdsAnother = true;
        }
        if (holdsAnother) continue;
        const LPNT g = {static_cast<int32>(std::trunc((double(a.x) + double(b.x) + double(c.x)) / 3.0)),
                        static_cast<int32>(std::trunc((double(a.y) + double(b.y) + double(c.y)) / 3.0))};
        if (!InTriangle(g, a, b, c)) continue;
        int status = 0;
        inside = Inside(g, points.data(), count, status);
        if (status != 0) break;
    }
    return IsClockwiseTriangle(at(i), at(i + 1), at(i + 2)) == inside;
}

}  // namespace plain

bool IsClockwise(const Points& points) {
    bool untouched = false;
    const bool result = IsClockwiseOrientation(points.data(), static_cast<int32>(points.size()), &untouched);
    EXPECT_FALSE(untouched);
    return result;
}

Points Reversed(Points points) {
    std::reverse(points.begin(), points.end());
    return points;
}

// Triangles -----------------------------------------------------------------------------------------------------------

TEST(ClockwiseTriangle, TurnsOnAGridWithYUpwards) {
    EXPECT_TRUE(IsClockwiseTriangle(LPNT{0, 0}, LPNT{0, 1}, LPNT{1, 1}));
    EXPECT_FALSE(IsClockwiseTriangle(LPNT{0, 0}, LPNT{1, 1}, LPNT{0, 1}));
    EXPECT_TRUE(IsClockwiseTriangle(DPNT{0, 0}, DPNT{0, 0.1}, DPNT{0.1, 0.1}));
    EXPECT_FALSE(IsClockwiseTriangle(DPNT{0, 0}, DPNT{0.1, 0.1}, DPNT{0, 0.1}));
}

TEST(ClockwiseTriangle, WithoutAreaCountsAsClockwise) {
    EXPECT_TRUE(IsClockwiseTriangle(LPNT{0, 0}, LPNT{1, 1}, LPNT{2, 2}));
    EXPECT_TRUE(IsClockwiseTriangle(LPNT{2, 2}, LPNT{1, 1}, LPNT{0, 0}));
    EXPECT_TRUE(IsClockwiseTriangle(DPNT{3, 3}, DPNT{3, 3}, DPNT{3, 3}));
}

TEST(ClockwiseTriangle, DoesNotOverflowAtTheLimits) {
    EXPECT_TRUE(IsClockwiseTriangle(LPNT{Lowest, Lowest}, LPNT{Lowest, Highest}, LPNT{Highest, Highest}));
    EXPECT_FALSE(IsClockwiseTriangle(LPNT{Lowest, Lowest}, LPNT{Highest, Lowest}, LPNT{Highest, Highest}));
}

TEST(ClockwiseTriangle, NaNIsNotAtMostZero) {
    EXPECT_FALSE(IsClockwiseTriangle(DPNT{GetNaN(), 0}, DPNT{0, 1}, DPNT{1, 1}));
}

// Polygons ------------------------------------------------------------------------------------------------------------

TEST(ClockwiseOrientation, OfASquareBothWaysRound) {
    const Points square = {{0, 0}, {0, 90}, {90, 90}, {90, 0}, {0, 0}};
    EXPECT_TRUE(IsClockwise(square));
    EXPECT_FALSE(IsClockwise(Reversed(square)));
}

TEST(ClockwiseOrientation, OfAConcavePolygonFromEveryStart) {
    // A letter C, with corners that turn either way.
    Points ring = {{0, 0}, {0, 90}, {90, 90}, {90, 60}, {30, 60}, {30, 30}, {90, 30}, {90, 0}};
    for (std::size_t start = 0; start < ring.size(); ++start) {
        Points closed = ring;
        closed.push_back(ring.front());
        EXPECT_TRUE(IsClockwise(closed)) << start;
        EXPECT_FALSE(IsClockwise(Reversed(closed))) << start;
        std::rotate(ring.begin(), ring.begin() + 1, ring.end());
    }
}

TEST(ClockwiseOrientation, ACornerOutsideThePolygonDecidesTheOtherWay) {
    // The first corner lies outside, with nothing of the polygon to its right.
    const Points ring = {{0, 0}, {0, 10}, {10, 10}, {10, 20}, {-10, 20}, {-10, 0}, {0, 0}};
    EXPECT_FALSE(IsClockwise(ring));
    EXPECT_TRUE(IsClockwise(Reversed(ring)));
}

TEST(ClockwiseOrientation, OfAThinSliverNearTheLimits) {
    const Points ring = {{Lowest, Lowest}, {Highest, Highest}, {Highest, Highest - 1000}, {Lowest, Lowest}};
    EXPECT_TRUE(IsClockwise(ring));
    EXPECT_FALSE(IsClockwise(Reversed(ring)));
}

TEST(ClockwiseOrientation, WithoutADecidingCornerTheFirstTurnsCount) {
    EXPECT_TRUE(IsClockwise({{5, 5}, {5, 5}, {5, 5}, {5, 5}, {5, 5}}));
    EXPECT_TRUE(IsClockwise({{0, 0}, {3, 0}, {6, 0}, {9, 0}, {0, 0}}));
}

TEST(ClockwiseOrientation, ACountBelowOneIsFalse) {
    EXPECT_FALSE(IsClockwiseOrientation(nullptr, 0, nullptr));
    EXPECT_FALSE(IsClockwiseOrientation(nullptr, -1, nullptr));
}

TEST(ClockwiseOrientation, SimplePolygonsAreToldRight) {
    RandomShapes random(41);
    for (int i = 0; i < 2000; ++i) {
        const Points star = random.Star(random.Int(3, 60), random.Real(3000, 1e8), random.PointWithin(1000000));
        ASSERT_FALSE(IsClockwise(star)) << i;
        ASSERT_TRUE(IsClockwise(Reversed(star))) << i;
    }
}

TEST(ClockwiseOrientation, AgreesWithThePlainWalkOnWhateverRing) {
    RandomShapes random(42);
    for (int i = 0; i < 30000; ++i) {
        Points ring;
        const int32 count = random.Int(1, 12);
        const int32 limit = random.Int(1, 10);
        for (int32 k = 0; k < count; ++k) ring.push_back(random.OneIn(3) ? random.Point() : random.PointWithin(limit));
        if (random.OneIn(2)) ring.push_back(ring.front());
        ASSERT_EQ(IsClockwise(ring), plain::IsClockwise(ring)) << testing::PrintToString(ring);
    }
}

// Steps of one unit: almost no corner has a centre on whole numbers inside it, so nearly all are looked at.
TEST(ClockwiseOrientation, OfManySmallStepsIsFast) {
    Points ring;
    for (int32 i = 0; i < 200000; ++i) ring.push_back({i, i % 2});
    ring.push_back({200000, 1000000});
    ring.push_back({0, 1000000});
    ring.push_back(ring.front());
    EXPECT_FALSE(IsClockwise(ring));
    EXPECT_TRUE(IsClockwise(Reversed(ring)));
}

}  // namespace
}  // namespace orientation_test
