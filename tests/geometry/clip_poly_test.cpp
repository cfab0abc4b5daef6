#include "geometry/random_shapes.h"
#include "reference/plain_clip.h"

#include <Utility/clipping.h>
#include <gtest/gtest.h>

namespace clip_poly_test {
namespace {

using namespace Torvo;
using test::Highest;
using test::Lowest;
using test::Points;
using test::RandomShapes;

constexpr LRECT Window = {0, 0, 100, 100};
constexpr LPNT Guard = {0x5A5A5A5A, -0x5A5A5A5A};

struct Clipped {
    bool fitted;
    int count;
    Points points;
};

// Clips into a buffer of exactly `room` points with a guard behind it; all room that any result needs when below 0.
Clipped Clip(const Points& input, const LRECT& rect = Window, int room = -1) {
    const int size = static_cast<int>(input.size());
    if (room < 0) room = 6 * size + 6;
    Points copy = input;
    Points buffer(static_cast<std::size_t>(room) + 1, Guard);
    Clipped result{false, size, {}};
    result.fitted = ClipPoly(copy.data(), buffer.data(), &rect, &result.count, room);
    EXPECT_EQ(copy, input);
    const auto written = static_cast<std::size_t>(std::min(result.count, room));
    for (std::size_t i = written; i < buffer.size(); ++i) EXPECT_EQ(buffer[i], Guard);
    buffer.resize(written);
    result.points = buffer;
    EXPECT_EQ(result.fitted, result.count <= room);
    return result;
}

void ExpectClipped(const Points& input, const Points& expected) {
    const Clipped result = Clip(input);
    EXPECT_TRUE(result.fitted);
    EXPECT_EQ(result.points, expected);
    EXPECT_EQ(result.count, static_cast<int>(expected.size()));
}

// Inside and outside --------------------------------------------------------------------------------------------------

TEST(ClipPoly, APolygonInsideComesOutAsItIs) {
    const Points triangle = {{10, 10}, {90, 20}, {50, 80}, {10, 10}};
    ExpectClipped(triangle, triangle);
    const Points onTheSides = {{0, 0}, {0, 100}, {100, 100}, {100, 0}, {0, 0}};
    ExpectClipped(onTheSides, onTheSides);
}

TEST(ClipPoly, RepeatedPointsComeOutOnce) {
    ExpectClipped({{10, 10}, {10, 10}, {90, 20}, {90, 20}, {90, 20}, {50, 80}, {10, 10}, {10, 10}},
                  {{10, 10}, {90, 20}, {50, 80}, {10, 10}});
    ExpectClipped({{5, 5}, {5, 5}, {5, 5}}, {{5, 5}});
    ExpectClipped({{5, 5}}, {{5, 5}});
}

TEST(ClipPoly, APolygonBeyondOneSideIsNotVisible) {
    ExpectClipped({{-10, 10}, {-50, 20}, {-30, 80}, {-10, 10}}, {});
    ExpectClipped({{110, 10}, {150, 20}, {130, 80}, {110, 10}}, {});
    ExpectClipped({{10, -10}, {50, -20}, {30, -80}, {10, -10}}, {});
    ExpectClipped({{10, 110}, {50, 120}, {30, 180}, {10, 110}}, {});
    ExpectClipped({{-10, 10}, {-50, 20}, {-30, 80}}, {});
}

TEST(ClipPoly, NothingComesOfNothing) {
    for (const int given : {0, -5}) {
        LPNT buffer = Guard;
        int count = given;
        EXPECT_TRUE(ClipPoly(nullptr, &buffer, &Window, &count, 1));
        EXPECT_EQ(count, 0);
        EXPECT_EQ(buffer, Guard);
        count = given;
        EXPECT_TRUE(ClipPoly(nullptr, nullptr, &Window, &count, 0));
    }
}

// Sides and corners ---------------------------------------------------------------------------------------------------

TEST(ClipPoly, ASquareRoundTheRectangleBecomesItsCorners) {
    ExpectClipped({{-50, -50}, {-50, 150}, {150, 150}, {150, -50}, {-50, -50}},
                  {{100, 100}, {100, 0}, {0, 0}, {0, 100}, {100, 100}});
}

TEST(ClipPoly, OneSideCutsAPolygon) {
    ExpectClipped({{50, 10}, {150, 10}, {150, 90}, {50, 90}, {50, 10}},
                  {{50, 10}, {100, 10}, {100, 90}, {50, 90}, {50, 10}});
    ExpectClipped({{50, 10}, {-50, 10}, {-50, 90}, {50, 90}, {50, 10}},
                  {{50, 10}, {0, 10}, {0, 90}, {50, 90}, {50, 10}});
    ExpectClipped({{10, 50}, {10, 150}, {90, 150}, {90, 50}, {10, 50}},
                  {{10, 50}, {10, 100}, {90, 100}, {90, 50}, {10, 50}});
    ExpectClipped({{10, 50}, {10, -50}, {90, -50}, {90, 50}, {10, 50}},
                  {{10, 50}, {10, 0}, {90, 0}, {90, 50}, {10, 50}});
}

TEST(ClipPoly, GoingRoundACornerOutsideMakesTheCorner) {
    ExpectClipped({{50, 50}, {150, 50}, {150, 150}, {50, 150}, {50, 50}},
                  {{50, 50}, {100, 50}, {100, 100}, {50, 100}, {50, 50}});
}

TEST(ClipPoly, TwoVisiblePartsAreOneRingWithBridges) {
    // A letter U lying on its side, whose arms reach in and whose back is out on the right.
    ExpectClipped({{150, 10}, {50, 10}, {50, 30}, {120, 30}, {120, 70}, {50, 70}, {50, 90}, {150, 90}, {150, 10}},
                  {{100, 10}, {50, 10}, {50, 30}, {100, 30}, {100, 70}, {50, 70}, {50, 90}, {100, 90}, {100, 10}});
}

TEST(ClipPoly, ThePolygonMayBeginOutside) {
    ExpectClipped({{150, 10}, {150, 90}, {50, 90}, {50, 10}, {150, 10}},
                  {{100, 90}, {50, 90}, {50, 10}, {100, 10}, {100, 90}});
}

TEST(ClipPoly, CrossingsCountFromTheVertexThatIsFed) {
    // Halfway up a step of one unit: the offset 0.5 is counted from the later vertex, and goes away from zero there.
    ExpectClipped({{1, 10}, {-1, 11}}, {{1, 10}, {0, 10}});
    ExpectClipped({{-1, 11}, {1, 10}}, {{0, 11}, {1, 10}});
    ExpectClipped({{10, 1}, {11, -1}}, {{10, 1}, {10, 0}});
    ExpectClipped({{99, 10}, {101, 11}}, {{99, 10}, {100, 10}});
    ExpectClipped({{10, 101}, {11, 99}}, {{10, 100}, {11, 99}});
}

// Lines ---------------------------------------------------------------------------------------------------------------

TEST(ClipPoly, ALineThatLeavesAndComesBackIsOneChain) {
    ExpectClipped({{50, 10}, {150, 10}, {150, 90}, {50, 90}}, {{50, 10}, {100, 10}, {100, 90}, {50, 90}});
}

TEST(ClipPoly, ALineIsNotClosed) {
    ExpectClipped({{50, 10}, {150, 10}, {150, 90}}, {{50, 10}, {100, 10}});
    ExpectClipped({{150, 10}, {50, 10}, {50, 90}}, {{100, 10}, {50, 10}, {50, 90}});
    ExpectClipped({{-10, 50}, {110, 50}}, {{0, 50}, {100, 50}});
}

// Room ----------------------------------------------------------------------------------------------------------------

TEST(ClipPoly, WithoutRoomNothingIsWritten) {
    const Clipped result = Clip({{10, 10}, {90, 20}, {50, 80}, {10, 10}}, Window, 0);
    EXPECT_FALSE(result.fitted);
    EXPECT_GT(result.count, 0);
}

TEST(ClipPoly, ANegativeRoomNeverFits) {
    LPNT buffer = Guard;
    LPNT outside[] = {{-1, -1}, {-2, -2}};
    int count = 2;
    EXPECT_FALSE(ClipPoly(outside, &buffer, &Window, &count, -1));
    EXPECT_EQ(count, 0);
    EXPECT_EQ(buffer, Guard);
}

TEST(ClipPoly, TheClosingPointNeedsRoomToo) {
    const Points square = {{150, 10}, {150, 90}, {50, 90}, {50, 10}, {150, 10}};  // four points and the closing one
    EXPECT_TRUE(Clip(square, Window, 5).fitted);
    const Clipped result = Clip(square, Window, 4);
    EXPECT_FALSE(result.fitted);
    EXPECT_EQ(result.count, 5);
    EXPECT_EQ(result.points, (Points{{100, 90}, {50, 90}, {50, 10}, {100, 10}}));
}

TEST(ClipPoly, AClosingPointThatRepeatsTheLastNeedsNone) {
    const Points triangle = {{10, 10}, {90, 20}, {50, 80}, {10, 10}};
    EXPECT_TRUE(Clip(triangle, Window, 4).fitted);
    EXPECT_FALSE(Clip(triangle, Window, 3).fitted);
}

TEST(ClipPoly, AFullBufferCountsRepeatedPoints) {
    const Points line = {{10, 10}, {20, 20}, {20, 20}};
    EXPECT_TRUE(Clip(line, Window, 3).fitted);
    EXPECT_EQ(Clip(line, Window, 3).count, 2);
    EXPECT_FALSE(Clip(line, Window, 2).fitted);
    EXPECT_EQ(Clip(line, Window, 2).count, 3);
}

TEST(ClipPoly, TheWalkStopsWhenTheBufferIsPassed) {
    const Points line = {{10, 10}, {20, 20}, {30, 30}, {40, 40}, {50, 50}, {60, 60}};
    EXPECT_EQ(Clip(line, Window, 2).count, 3);
    EXPECT_EQ(Clip(line, Window, 2).points, (Points{{10, 10}, {20, 20}}));
}

// Against the plain form ----------------------------------------------------------------------------------------------

void ExpectLikePlain(const Points& input, const LRECT& rect, int room) {
    test::plain::PolyClip plain;
    plain.rect = rect;
    plain.maxOutput = room;
    const bool fitted = plain.Run(input);
    const Clipped result = Clip(input, rect, room);
    ASSERT_EQ(result.fitted, fitted) << testing::PrintToString(input) << " in " << rect << " with room " << room;
    ASSERT_EQ(result.count, plain.count) << testing::PrintToString(input) << " in " << rect << " with room " << room;
    ASSERT_EQ(result.points, plain.written) << testing::PrintToString(input) << " in " << rect << " with room " << room;
    if (room >= static_cast<int>(6 * input.size() + 6)) {
        ASSERT_TRUE(fitted);
    }
}

TEST(ClipPoly, AgreesWithThePlainFormOnSmallGrids) {
    RandomShapes random(61);
    for (int i = 0; i < 60000; ++i) {
        Points input = random.Path(random.Int(0, 14), random.Int(1, 8));
        if (!input.empty() && random.OneIn(2)) input.push_back(input.front());
        const int whole = static_cast<int>(6 * input.size() + 6);
        const int room = random.OneIn(2) ? whole : random.Int(0, 20);
        ExpectLikePlain(input, random.SortedRectWithin(6), room);
        if (HasFatalFailure()) return;
    }
}

TEST(ClipPoly, AgreesWithThePlainFormAtTheLimitsOf32Bits) {
    RandomShapes random(62);
    for (int i = 0; i < 60000; ++i) {
        Points input;
        for (int k = random.Int(0, 10); k > 0; --k) input.push_back(random.Point());
        if (!input.empty() && random.OneIn(2)) input.push_back(input.front());
        LRECT rect;
        SortRectWithPoints(rect, random.Point(), random.Point());
        ExpectLikePlain(input, rect, random.Int(0, static_cast<int>(6 * input.size() + 6)));
        if (HasFatalFailure()) return;
    }
}

TEST(ClipPoly, AgreesWithThePlainFormOnLongRuns) {
    RandomShapes random(63);
    for (int i = 0; i < 3000; ++i) {
        Points input;
        LPNT at = random.PointWithin(60);
        for (int k = random.Int(1, 300); k > 0; --k) {
            at = {at.x + random.Int(-4, 4), at.y + random.Int(-4, 4)};
            input.push_back(at);
        }
        if (random.OneIn(2)) input.push_back(input.front());
        const int whole = static_cast<int>(6 * input.size() + 6);
        ExpectLikePlain(input, random.SortedRectWithin(40), random.OneIn(2) ? whole : random.Int(0, 300));
        if (HasFatalFailure()) return;
    }
}

TEST(ClipPoly, AgreesWithThePlainFormOnRectanglesInsideOut) {
    RandomShapes random(64);
    for (int i = 0; i < 20000; ++i) {
        const LPNT a = random.PointWithin(6);
        const LPNT b = random.PointWithin(6);
        ExpectLikePlain(random.Path(random.Int(1, 10), 8), {a.x, a.y, b.x, b.y}, random.Int(0, 66));
        if (HasFatalFailure()) return;
    }
}

}  // namespace
}  // namespace clip_poly_test
