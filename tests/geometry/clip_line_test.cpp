#include "geometry/random_shapes.h"
#include "reference/plain_clip.h"

#include <Utility/clipping.h>
#include <gtest/gtest.h>

#include <cmath>

namespace clip_line_test {
namespace {

using namespace Torvo;
using test::Highest;
using test::Lowest;
using test::RandomShapes;

constexpr LRECT Window = {0, 0, 100, 50};

struct Segment {
    LPNT a;
    LPNT b;

    bool Clip(const LRECT& rect = Window) { return ClipLine(&a, &b, &rect); }
    bool operator==(const Segment& other) const { return a == other.a && b == other.b; }
};

std::ostream& operator<<(std::ostream& out, const Segment& s) {
    return out << s.a << " to " << s.b;
}

void ExpectVisible(Segment segment, Segment expected) {
    const Segment before = segment;
    EXPECT_TRUE(segment.Clip()) << before;
    EXPECT_EQ(segment, expected) << before;
}

TEST(ClipLine, LeavesASegmentInsideAlone) {
    ExpectVisible({{1, 2}, {99, 49}}, {{1, 2}, {99, 49}});
    ExpectVisible({{0, 0}, {100, 50}}, {{0, 0}, {100, 50}});
    ExpectVisible({{7, 7}, {7, 7}}, {{7, 7}, {7, 7}});
}

TEST(ClipLine, RejectsWhatLiesBeyondOneSideAtOnce) {
    for (const Segment before :
         {Segment{{-5, 10}, {-1, 40}}, Segment{{101, 10}, {300, 40}}, Segment{{10, -5}, {90, -1}},
          Segment{{10, 51}, {90, 70}}, Segment{{-5, -5}, {-5, -5}}}) {
        Segment segment = before;
        EXPECT_FALSE(segment.Clip()) << before;
        EXPECT_EQ(segment, before);  // nothing was shortened
    }
}

TEST(ClipLine, RejectsWhatPassesACornerOutside) {
    for (Segment segment : {Segment{{-30, 10}, {10, -30}}, Segment{{90, 70}, {130, 30}}, Segment{{-20, 40}, {20, 80}},
                            Segment{{80, -30}, {130, 20}}, Segment{{-200, 10}, {40, -300}}}) {
        EXPECT_FALSE(segment.Clip()) << segment;
    }
}

TEST(ClipLine, KeepsItsDirectionAndTheInsideEnd) {
    ExpectVisible({{50, 25}, {150, 25}}, {{50, 25}, {100, 25}});
    ExpectVisible({{150, 25}, {50, 25}}, {{100, 25}, {50, 25}});
    ExpectVisible({{50, 25}, {50, -100}}, {{50, 25}, {50, 0}});
    ExpectVisible({{-50, 25}, {150, 25}}, {{0, 25}, {100, 25}});
    ExpectVisible({{50, 80}, {50, -100}}, {{50, 50}, {50, 0}});
}

TEST(ClipLine, TouchingASideIsVisible) {
    ExpectVisible({{-10, 0}, {110, 0}}, {{0, 0}, {100, 0}});
    ExpectVisible({{-10, 10}, {10, -10}}, {{0, 0}, {0, 0}});
}

TEST(ClipLine, RoundsHalvesAwayFromZeroFromTheOutsideEnd) {
    ExpectVisible({{-1, 10}, {1, 11}}, {{0, 11}, {1, 11}});  // 10 + 0.5
    ExpectVisible({{1, 11}, {-1, 10}}, {{1, 11}, {0, 11}});  // the same, turned round
    ExpectVisible({{-1, 11}, {1, 10}}, {{0, 10}, {1, 10}});  // 11 - 0.5
    ExpectVisible({{10, -1}, {11, 1}}, {{11, 0}, {11, 1}});
}

TEST(ClipLine, TakesTheSidesInOrder) {
    // From beyond left and low y: x first, then y from there.
    ExpectVisible({{-10, -3}, {20, 7}}, {{0, 0}, {20, 7}});
    ExpectVisible({{-10, -11}, {20, 13}}, {{4, 0}, {20, 13}});  // (0, -3), then 3.75
}

TEST(ClipLine, ClipsToARectangleWithoutArea) {
    Segment segment{{0, 0}, {10, 10}};
    EXPECT_TRUE(segment.Clip({5, 5, 5, 5}));
    EXPECT_EQ(segment, (Segment{{5, 5}, {5, 5}}));
}

TEST(ClipLine, AgreesWithThePlainFormEverywhereThatEnds) {
    RandomShapes random(51);
    for (int i = 0; i < 300000; ++i) {
        LRECT rect = random.SortedRectWithin(10);
        Segment segment{random.PointWithin(20), random.PointWithin(20)};
        if (random.OneIn(2)) {
            SortRectWithPoints(rect, random.Point(), random.Point());
            segment = {random.Point(), random.Point()};
        }
        Segment expected = segment;
        bool ended = false;
        const bool visible = test::plain::ClipLine(expected.a, expected.b, rect, 20000, ended);
        const Segment before = segment;
        ASSERT_EQ(segment.Clip(rect), visible && ended) << before << " in " << rect;
        if (ended) {
            ASSERT_EQ(segment, expected) << before << " in " << rect;
        }
    }
}

// Its steps, with differences that wrap, come back to where they were.
TEST(ClipLine, EndsWhereTheStepsWouldGoOnForEver) {
    const LRECT rect{-439, -389, 1772669420, 277};
    Segment segment{{2147483644, -2147483646}, {9, Highest}};
    bool ended = true;
    Segment plain = segment;
    test::plain::ClipLine(plain.a, plain.b, rect, 100000, ended);
    ASSERT_FALSE(ended);
    EXPECT_FALSE(segment.Clip(rect));
}

TEST(ClipLine, EndsOnARectangleThatIsInsideOut) {
    RandomShapes random(52);
    int visible = 0;
    for (int i = 0; i < 20000; ++i) {
        const LRECT rect{random.Coordinate(), random.Coordinate(), random.Coordinate(), random.Coordinate()};
        Segment segment{random.Point(), random.Point()};
        visible += segment.Clip(rect);
    }
    EXPECT_GT(visible, 0);
}

TEST(ClipLine, EachCutMovesTheSegmentByHalfAUnitAtMost) {
    RandomShapes random(53);
    for (int i = 0; i < 50000; ++i) {
        const LRECT rect = random.SortedRectWithin(1000000);
        const Segment before{random.PointWithin(10000000), random.PointWithin(10000000)};
        Segment segment = before;
        if (!segment.Clip(rect)) continue;
        const double dx = before.b.x - before.a.x;
        const double dy = before.b.y - before.a.y;
        const double length = std::hypot(dx, dy);
        for (const LPNT p : {segment.a, segment.b}) {
            ASSERT_TRUE(PointInRect(p, rect));
            const double distance = std::fabs(dx * (p.y - before.a.y) - dy * (p.x - before.a.x)) / length;
            ASSERT_LE(distance, 2.0) << before << " in " << rect;  // of four cuts
        }
    }
}

}  // namespace
}  // namespace clip_line_test
