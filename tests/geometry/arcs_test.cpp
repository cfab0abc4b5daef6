#include "geometry/random_shapes.h"

#include <Utility/arcs.h>
#include <Utility/arithmetic.h>
#include <gtest/gtest.h>

#include <cmath>

namespace arcs_test {
namespace {

using namespace Torvo;
using test::Highest;
using test::Lowest;
using test::RandomShapes;

struct Angles {
    int16 a;
    int16 b;
    bool operator==(const Angles&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Angles& angles) {
    return out << angles.a << ".." << angles.b;
}

Angles Calc(const LRECT& rect, LPNT start, LPNT end, bool swap = false) {
    Angles angles{};
    CalcArcAngles(rect, start, end, &angles.a, &angles.b, swap);
    return angles;
}

Angles Flip(Angles angles, bool flipX, bool flipY) {
    FlipArcAngles(&angles.a, &angles.b, flipX, flipY);
    return angles;
}

constexpr LRECT Round = {-100, -100, 100, 100};

// Angles of points ----------------------------------------------------------------------------------------------------

TEST(CalcArcAngles, OnTheAxesAndBetween) {
    EXPECT_EQ(Calc(Round, {100, 0}, {0, 100}), (Angles{0, 900}));
    EXPECT_EQ(Calc(Round, {-100, 0}, {0, -100}), (Angles{1800, 2700}));
    EXPECT_EQ(Calc(Round, {70, 70}, {-70, 70}), (Angles{450, 1350}));
    EXPECT_EQ(Calc(Round, {-70, -70}, {70, -70}), (Angles{2250, 3150}));
}

TEST(CalcArcAngles, TheEndLiesAboveTheStart) {
    EXPECT_EQ(Calc(Round, {0, 100}, {100, 0}), (Angles{900, 3600}));
    EXPECT_EQ(Calc(Round, {0, -100}, {0, 100}), (Angles{2700, 4500}));
}

TEST(CalcArcAngles, TheSamePointTwiceIsAWholeCircle) {
    EXPECT_EQ(Calc(Round, {0, 100}, {0, 100}), (Angles{900, 4500}));
    EXPECT_EQ(Calc(Round, {100, 0}, {100, 0}), (Angles{0, 3600}));
}

TEST(CalcArcAngles, SwapExchangesBeforeTheEndIsRaised) {
    EXPECT_EQ(Calc(Round, {100, 0}, {0, 100}, true), (Angles{900, 3600}));
    EXPECT_EQ(Calc(Round, {0, 100}, {100, 0}, true), (Angles{0, 900}));
}

TEST(CalcArcAngles, AtTheCentreTheAngleIs270Degrees) {
    EXPECT_EQ(Calc(Round, {0, 0}, {0, 100}), (Angles{2700, 4500}));
    EXPECT_EQ(Calc(Round, {0, 0}, {0, 0}), (Angles{2700, 6300}));
}

TEST(CalcArcAngles, AreTheAnglesOfTheParameter) {
    // On an ellipse twice as wide as high the point (100, 50) lies at 45 degrees of the parameter.
    EXPECT_EQ(Calc({-200, -100, 200, 100}, {100, 50}, {-100, 50}), (Angles{450, 1350}));
    // The axes are scaled: in a rectangle without height every point lies on an axis.
    EXPECT_EQ(Calc({-200, 0, 200, 0}, {100, 50}, {100, -50}), (Angles{900, 2700}));
}

TEST(CalcArcAngles, JustBelowAFullTurnIsRoundedUp) {
    const LRECT large{-100000, -100000, 100000, 100000};
    EXPECT_EQ(Calc(large, {100000, -50}, {100000, 50}), (Angles{3600, 7200}));  // 0.03 degrees: 0.3 tenths
    EXPECT_EQ(Calc(large, {100000, -100}, {0, 1}), (Angles{3599, 4500}));       // 0.06 degrees: 0.6 tenths
}

TEST(CalcArcAngles, DifferencesToTheCentreWrap) {
    const LRECT rect{Highest - 2, -1, Highest, 1};
    EXPECT_EQ(Calc(rect, {Lowest, 0}, {Highest, 0}), (Angles{0, 3600}));  // the start is 2 to the right of the centre
}

TEST(CalcArcAngles, AreRightToTheTenth) {
    RandomShapes random(71);
    for (int i = 0; i < 20000; ++i) {
        const LPNT start = random.PointWithin(1000000);
        const LPNT end = random.PointWithin(1000000);
        const Angles angles = Calc({-1000, -1000, 1000, 1000}, start, end);
        ASSERT_GE(angles.a, 0);
        ASSERT_LE(angles.a, 3600);
        ASSERT_GT(angles.b, angles.a);
        ASSERT_LE(angles.b, angles.a + 3600);
        const double radians = angles.a / 10.0 * 3.141592653589793 / 180.0;
        const double length = std::hypot(double(start.x), double(start.y));
        if (length == 0) continue;
        ASSERT_NEAR(std::cos(radians), start.x / length, 0.0009) << start;
        ASSERT_NEAR(std::sin(radians), start.y / length, 0.0009) << start;
    }
}

// The circle through three points -------------------------------------------------------------------------------------

TEST(CircleOfPoints, HasBoundsAndDirections) {
    DRECT mbr{};
    int16 start = -1;
    int16 end = -1;
    ASSERT_TRUE(CirclePointsToMBRAngles({15, 20}, {10, 25}, {5, 20}, mbr, start, end));
    EXPECT_NEAR(mbr.x1, 5, 1e-12);
    EXPECT_NEAR(mbr.y1, 15, 1e-12);
    EXPECT_NEAR(mbr.x2, 15, 1e-12);
    EXPECT_NEAR(mbr.y2, 25, 1e-12);
    EXPECT_EQ(start, 0);
    EXPECT_EQ(end, 1800);
}

TEST(CircleOfPoints, TheSecondPointPlaysNoPartInTheAngles) {
    DRECT mbr{};
    int16 start = -1;
    int16 end = -1;
    ASSERT_TRUE(CirclePointsToMBRAngles({0, 5}, {0, -5}, {5, 0}, mbr, start, end));
    EXPECT_EQ(start, 900);
    EXPECT_EQ(end, 0);  // not raised above the start
    ASSERT_TRUE(CirclePointsToMBRAngles({0, 5}, {-5, 0}, {5, 0}, mbr, start, end));
    EXPECT_EQ(start, 900);
    EXPECT_EQ(end, 0);
}

TEST(CircleOfPoints, PointsOnALineHaveNone) {
    DRECT mbr{1, 2, 3, 4};
    int16 start = 5;
    int16 end = 6;
    EXPECT_FALSE(CirclePointsToMBRAngles({0, 0}, {1, 1}, {2, 2}, mbr, start, end));
    EXPECT_FALSE(CirclePointsToMBRAngles({3, 3}, {3, 3}, {2, 2}, mbr, start, end));
    EXPECT_FALSE(CirclePointsToMBRAngles({0, 0}, {1e-7, 0}, {0, 0.9e-6}, mbr, start, end));
    EXPECT_EQ(mbr, (DRECT{1, 2, 3, 4}));
    EXPECT_EQ(start, 5);
    EXPECT_EQ(end, 6);
    EXPECT_TRUE(CirclePointsToMBRAngles({0, 0}, {1e-7, 0}, {0, 1.1e-6}, mbr, start, end));
}

TEST(CircleOfPoints, NaNIsNotBelowTheLimit) {
    DRECT mbr{};
    int16 start = 5;
    int16 end = 6;
    EXPECT_TRUE(CirclePointsToMBRAngles({GetNaN(), 0}, {1, 1}, {2, 0}, mbr, start, end));
    EXPECT_TRUE(IsNaN(mbr.x1));
}

TEST(CircleOfPoints, IsFoundFromRandomPointsOfIt) {
    RandomShapes random(72);
    for (int i = 0; i < 5000; ++i) {
        const DPNT center{random.Real(-1000, 1000), random.Real(-1000, 1000)};
        const double r = random.Real(1, 1000);
        const double first = random.Real(0, 359.9);
        const auto at = [&](double degrees) {
            const double radians = degrees * 3.141592653589793 / 180.0;
            return DPNT{center.x + r * std::cos(radians), center.y + r * std::sin(radians)};
        };
        DRECT mbr{};
        int16 start = -1;
        int16 end = -1;
        ASSERT_TRUE(CirclePointsToMBRAngles(at(first), at(first + 100), at(first + 200), mbr, start, end));
        ASSERT_NEAR(mbr.x1, center.x - r, 1e-8);
        ASSERT_NEAR(mbr.y2, center.y + r, 1e-8);
        ASSERT_NEAR(start, first * 10, 0.5001);
        ASSERT_NEAR(std::remainder(end - (first + 200) * 10, 3600.0), 0, 0.5001);
    }
}

// Mirroring -----------------------------------------------------------------------------------------------------------

TEST(FlipArcAngles, LeftAndRight) {
    EXPECT_EQ(Flip({100, 200}, true, false), (Angles{1600, 1700}));
    EXPECT_EQ(Flip({0, 900}, true, false), (Angles{900, 1800}));
    EXPECT_EQ(Flip({2000, 3000}, true, false), (Angles{2400, 3400}));
}

TEST(FlipArcAngles, UpAndDown) {
    EXPECT_EQ(Flip({100, 200}, false, true), (Angles{3400, 3500}));
    EXPECT_EQ(Flip({0, 900}, false, true), (Angles{2700, 3600}));
    EXPECT_EQ(Flip({2700, 4500}, false, true), (Angles{2700, 4500}));
}

TEST(FlipArcAngles, BothTurnByHalfATurnAndKeepTheDirection) {
    EXPECT_EQ(Flip({100, 200}, true, true), (Angles{1900, 2000}));
    EXPECT_EQ(Flip({2000, 3000}, true, true), (Angles{200, 1200}));
    EXPECT_EQ(Flip({0, 3600}, true, true), (Angles{1800, 5400}));
}

TEST(FlipArcAngles, WithoutAFlagAnglesAreOnlyBroughtIntoRange) {
    EXPECT_EQ(Flip({100, 200}, false, false), (Angles{100, 200}));
    EXPECT_EQ(Flip({-100, 7300}, false, false), (Angles{3500, 3700}));
    EXPECT_EQ(Flip({3600, 3600}, false, false), (Angles{0, 3600}));
    EXPECT_EQ(Flip({5000, 5000}, false, false), (Angles{1400, 5000}));
}

TEST(FlipArcAngles, AnyAnglesComeIntoRange) {
    for (int a = -32768; a <= 32767; a += 97) {
        for (int b = -32768; b <= 32767; b += 193) {
            for (int flags = 0; flags < 4; ++flags) {
                const Angles flipped =
                    Flip({static_cast<int16>(a), static_cast<int16>(b)}, (flags & 1) != 0, (flags & 2) != 0);
                ASSERT_TRUE(0 <= flipped.a && flipped.a < 3600 && flipped.a < flipped.b &&
                            flipped.b <= flipped.a + 3600)
                    << a << ".." << b << " gave " << flipped;
            }
        }
    }
}

TEST(FlipArcAngles, TwiceTheSameWayGivesTheArcBack) {
    for (int16 a = 0; a < 3600; a = static_cast<int16>(a + 7)) {
        for (int length = 1; length <= 3600; length += 13) {
            const Angles arc{a, static_cast<int16>(a + length)};
            ASSERT_EQ(Flip(Flip(arc, true, false), true, false), arc);
            ASSERT_EQ(Flip(Flip(arc, false, true), false, true), arc);
            ASSERT_EQ(Flip(Flip(arc, true, false), false, true), Flip(arc, true, true));
        }
    }
}

// Points of angles ----------------------------------------------------------------------------------------------------

TEST(LogCalcArcPoints, LieOnTheEllipse) {
    LPNT start{};
    LPNT end{};
    LogCalcArcPoints({0, 0, 200, 100}, 0, 900, &start, &end);
    EXPECT_EQ(start, (LPNT{200, 50}));
    EXPECT_EQ(end, (LPNT{100, 100}));
    LogCalcArcPoints({0, 0, 200, 100}, 1800, -900, &start, &end);
    EXPECT_EQ(start, (LPNT{0, 50}));
    EXPECT_EQ(end, (LPNT{100, 0}));
    LogCalcArcPoints({0, 0, 200, 100}, 300, 36000 + 450, &start, &end);
    EXPECT_EQ(start, (LPNT{187, 75}));  // 86.6 and 25.0
    EXPECT_EQ(end, (LPNT{171, 85}));    // 70.7 and 35.4
}

TEST(LogCalcArcPoints, OffsetsAreRoundedByThemselves) {
    LPNT start{};
    LPNT end{};
    // The centre of 0..5 is 2 and half its width 2.5: the offsets are 3 and -3.
    LogCalcArcPoints({0, 0, 5, 5}, 0, 1800, &start, &end);
    EXPECT_EQ(start, (LPNT{5, 2}));
    EXPECT_EQ(end, (LPNT{-1, 2}));
}

TEST(LogCalcArcPoints, SumsWrap) {
    LPNT start{};
    LPNT end{};
    // Unsorted, so that the centre is nearer the limit than half the width, rounded.
    LogCalcArcPoints({Highest, 0, Highest - 5, 0}, 1800, 0, &start, &end);
    EXPECT_EQ(start.x, Lowest);
}

}  // namespace
}  // namespace arcs_test
