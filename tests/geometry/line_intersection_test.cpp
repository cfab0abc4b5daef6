#include "geometry/random_shapes.h"

#include <Utility/arcs.h>
#include <Utility/arithmetic.h>
#include <gtest/gtest.h>

#include <cmath>

namespace line_intersection_test {
namespace {

using namespace Torvo;
using test::Highest;
using test::Lowest;
using test::RandomShapes;

constexpr LPNT Untouched = {0x5A5A5A5A, -0x5A5A5A5A};

struct Meeting {
    LPNT point = Untouched;
    bool found;

    Meeting(LPNT p1, LPNT p2, LPNT q1, LPNT q2) : found(LineIntersection(p1, p2, q1, q2, point)) {}
};

// The steps as they are told.
bool Plain(LPNT p1, LPNT p2, LPNT q1, LPNT q2, LPNT& out) {
    const auto below = [](int32 a, int32 b, int32 c, int32 d) { return a < c && a < d && b < c && b < d; };
    if (below(p1.x, p2.x, q1.x, q2.x) || below(q1.x, q2.x, p1.x, p2.x)) return false;
    if (below(p1.y, p2.y, q1.y, q2.y) || below(q1.y, q2.y, p1.y, p2.y)) return false;
    if (p1 == q1 || p1 == q2) return out = p1, true;
    if (p2 == q1 || p2 == q2) return out = p2, true;
    const auto difference = [](int32 a, int32 b) {
        return static_cast<int32>(static_cast<uint32>(a) - static_cast<uint32>(b));
    };
    const int32 dx1 = difference(p2.x, p1.x), dy1 = difference(p2.y, p1.y);
    const int32 dx2 = difference(q2.x, q1.x), dy2 = difference(q2.y, q1.y);
    const auto between = [](int32 v, int32 a, int32 b) { return (a <= v && v <= b) || (b <= v && v <= a); };
    const auto overlap = [&](bool alongX) {
        const auto value = [alongX](LPNT p) { return alongX ? p.x : p.y; };
        if (between(value(p1), value(q1), value(q2))) return p1;
        if (between(value(p2), value(q1), value(q2))) return p2;
        if (between(value(q1), value(p1), value(p2))) return q1;
        return q2;
    };
    double y = 0;
    if (dx1 != 0 && dx2 != 0) {
        const double m1 = double(dy1) / dx1;
        const double m2 = double(dy2) / dx2;
        if (m1 == m2) {
            if (p1.y - p1.x * m1 != q1.y - q1.x * m2) return false;
            return out = overlap(true), true;
        }
        const double x = (p1.x * m1 - q1.x * m2 + q1.y - p1.y) / (m1 - m2);
        out.x = DoubleToINT32(x);
        y = (x - p1.x) * m1 + p1.y;
    } else if (dx1 != 0) {
        out.x = q1.x;
        y = (double(q1.x) - p1.x) * (double(dy1) / dx1) + p1.y;
    } else if (dx2 != 0) {
        out.x = p1.x;
        y = (double(p1.x) - q1.x) * (double(dy2) / dx2) + q1.y;
    } else {
        return out = overlap(false), true;
    }
    out.y = DoubleToINT32(y);
    return between(out.x, p1.x, p2.x) && between(out.x, q1.x, q2.x) && between(out.y, p1.y, p2.y) &&
           between(out.y, q1.y, q2.y);
}

TEST(LineIntersection, OfCrossingSegments) {
    const Meeting meeting({0, 0}, {10, 10}, {0, 10}, {10, 0});
    EXPECT_TRUE(meeting.found);
    EXPECT_EQ(meeting.point, (LPNT{5, 5}));
}

TEST(LineIntersection, IsRounded) {
    EXPECT_EQ(Meeting({0, 0}, {10, 1}, {3, -5}, {7, 5}).point, (LPNT{5, 1}));  // (5.2, 0.52)
    EXPECT_EQ(Meeting({0, 0}, {5, 5}, {0, 5}, {5, 0}).point, (LPNT{3, 3}));    // (2.5, 2.5)
}

TEST(LineIntersection, YComesFromTheUnroundedX) {
    // The lines cross at x 2.5, where the steep one is at y 25, not 30.
    EXPECT_EQ(Meeting({0, 0}, {10, 100}, {0, 25}, {10, 25}).point, (LPNT{3, 25}));
}

TEST(LineIntersection, ASharedEndPointIsExact) {
    const LPNT shared{Highest, Lowest};
    const LPNT a{Lowest, Highest};
    const LPNT b{12345, 678};
    for (const Meeting& meeting : {Meeting(shared, a, shared, b), Meeting(shared, a, b, shared),
                                   Meeting(a, shared, shared, b), Meeting(a, shared, b, shared)}) {
        EXPECT_TRUE(meeting.found);
        EXPECT_EQ(meeting.point, shared);
    }
    // The first point of p is asked first, even on one line.
    EXPECT_EQ(Meeting({0, 0}, {4, 0}, {4, 0}, {0, 0}).point, (LPNT{0, 0}));
}

TEST(LineIntersection, ATouchingEndPointCounts) {
    EXPECT_EQ(Meeting({0, 0}, {10, 0}, {4, 0}, {4, 9}).point, (LPNT{4, 0}));
    EXPECT_TRUE(Meeting({0, 0}, {10, 0}, {4, 0}, {4, 9}).found);
}

TEST(LineIntersection, WithVerticalSegments) {
    EXPECT_EQ(Meeting({0, 0}, {10, 10}, {5, -10}, {5, 10}).point, (LPNT{5, 5}));
    EXPECT_EQ(Meeting({5, -10}, {5, 10}, {0, 0}, {10, 10}).point, (LPNT{5, 5}));
    EXPECT_EQ(Meeting({0, 0}, {10, 1}, {4, -5}, {4, 5}).point, (LPNT{4, 0}));
    EXPECT_EQ(Meeting({0, 0}, {10, 1}, {5, -5}, {5, 5}).point, (LPNT{5, 1}));  // 0.5 is rounded up
}

TEST(LineIntersection, OfOverlappingSegmentsIsTheFirstPointThatLiesOnTheOther) {
    EXPECT_EQ(Meeting({2, 2}, {9, 9}, {0, 0}, {5, 5}).point, (LPNT{2, 2}));  // p1 on q
    EXPECT_EQ(Meeting({9, 9}, {2, 2}, {0, 0}, {5, 5}).point, (LPNT{2, 2}));  // p2 on q
    EXPECT_EQ(Meeting({0, 0}, {9, 9}, {2, 2}, {5, 5}).point, (LPNT{2, 2}));  // q1 on p
    EXPECT_EQ(Meeting({0, 3}, {0, 9}, {0, 0}, {0, 5}).point, (LPNT{0, 3}));  // the same on a vertical line
    EXPECT_EQ(Meeting({0, 9}, {0, 3}, {0, 0}, {0, 5}).point, (LPNT{0, 3}));
    EXPECT_EQ(Meeting({0, 0}, {0, 9}, {0, 4}, {0, 5}).point, (LPNT{0, 4}));
}

TEST(LineIntersection, SegmentsApartLeaveOutAlone) {
    for (const Meeting& meeting : {
             Meeting({0, 0}, {10, 10}, {11, 0}, {20, 10}),  // beyond on x
             Meeting({0, 0}, {10, 10}, {0, 11}, {10, 20}),  // beyond on y
             Meeting({0, 0}, {10, 10}, {1, 0}, {11, 10}),   // parallel, beside each other
             Meeting({0, 0}, {0, 10}, {1, 0}, {1, 10}),     // both vertical
             Meeting({0, 0}, {10, 0}, {0, 1}, {10, 1}),
         }) {
        EXPECT_FALSE(meeting.found);
        EXPECT_EQ(meeting.point, Untouched);
    }
}

TEST(LineIntersection, BeyondAnEndTheCrossingOfTheLinesIsStored) {
    const Meeting meeting({0, 0}, {4, 4}, {0, 10}, {10, 0});
    EXPECT_FALSE(meeting.found);
    EXPECT_EQ(meeting.point, (LPNT{5, 5}));
}

TEST(LineIntersection, OutMayBeOneOfThePoints) {
    LPNT p1{0, 0};
    EXPECT_TRUE(LineIntersection(p1, {10, 10}, {0, 10}, {10, 0}, p1));
    EXPECT_EQ(p1, (LPNT{5, 5}));
    LPNT q1{0, 10};
    EXPECT_TRUE(LineIntersection({0, 0}, {10, 10}, q1, {10, 0}, q1));
    EXPECT_EQ(q1, (LPNT{5, 5}));
}

TEST(LineIntersection, AgreesWithThePlainForm) {
    RandomShapes random(81);
    int found = 0;
    for (int i = 0; i < 500000; ++i) {
        const bool wide = random.OneIn(2);
        const auto point = [&] { return wide ? random.Point() : random.PointWithin(7); };
        const LPNT p1 = point(), p2 = point(), q1 = point(), q2 = point();
        const Meeting meeting(p1, p2, q1, q2);
        LPNT expected = Untouched;
        ASSERT_EQ(meeting.found, Plain(p1, p2, q1, q2, expected)) << p1 << p2 << q1 << q2;
        ASSERT_EQ(meeting.point, expected) << p1 << p2 << q1 << q2;
        found += meeting.found;
    }
    EXPECT_GT(found, 50000);
}

TEST(LineIntersection, IsNearTheTrueCrossing) {
    RandomShapes random(82);
    int found = 0;
    for (int i = 0; i < 50000; ++i) {
        const LPNT p1 = random.PointWithin(1000000), p2 = random.PointWithin(1000000);
        const LPNT q1 = random.PointWithin(1000000), q2 = random.PointWithin(1000000);
        const double dx = p2.x - p1.x, dy = p2.y - p1.y, ex = q2.x - q1.x, ey = q2.y - q1.y;
        const double determinant = dx * ey - dy * ex;
        if (std::fabs(determinant) < 1e-3 * std::hypot(dx, dy) * std::hypot(ex, ey)) continue;
        const double t = ((q1.x - p1.x) * ey - (q1.y - p1.y) * ex) / determinant;
        const double u = ((q1.x - p1.x) * dy - (q1.y - p1.y) * dx) / determinant;
        if (t < 0 || t > 1 || u < 0 || u > 1) continue;
        const Meeting meeting(p1, p2, q1, q2);
        ASSERT_TRUE(meeting.found);
        ASSERT_NEAR(meeting.point.x, p1.x + t * dx, 0.501);
        ASSERT_NEAR(meeting.point.y, p1.y + t * dy, 0.501);
        ++found;
    }
    EXPECT_GT(found, 5000);
}

}  // namespace
}  // namespace line_intersection_test
