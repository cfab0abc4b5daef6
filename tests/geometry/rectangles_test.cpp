#include "geometry/random_shapes.h"

#include <Utility/arithmetic.h>
#include <Utility/geometry.h>
#include <gtest/gtest.h>

#include <bit>
#include <type_traits>

namespace rectangles_test {
namespace {

using namespace Torvo;
using test::Highest;
using test::Lowest;
using test::RandomShapes;

constexpr double Infinity = std::numeric_limits<double>::infinity();

// The layouts are part of the interface: arrays of points are copied as bytes.
static_assert(sizeof(LPNT) == 8 && sizeof(DPNT) == 16 && sizeof(LRECT) == 16 && sizeof(DRECT) == 32 &&
              sizeof(SRECT) == 8);
static_assert(sizeof(SIGNIFICANTDIGITS) == 4);
static_assert(std::is_trivially_copyable_v<LRECT> && std::is_aggregate_v<DPNT>);

LRECT Rect(int32 x1, int32 y1, int32 x2, int32 y2) {
    return {x1, y1, x2, y2};
}

DRECT RealRect(double x1, double y1, double x2, double y2) {
    return {x1, y1, x2, y2};
}

SIGNIFICANTDIGITS Digits(int value) {
    return static_cast<SIGNIFICANTDIGITS>(value);
}

// Comparison ----------------------------------------------------------------------------------------------------------

TEST(RectangleComparison, IsByteForByte) {
    EXPECT_TRUE(Rect(1, 2, 3, 4) == Rect(1, 2, 3, 4));
    EXPECT_FALSE(Rect(1, 2, 3, 4) == Rect(1, 2, 3, 5));
    EXPECT_TRUE((SRECT{1, 2, 3, 4} == SRECT{1, 2, 3, 4}));
    EXPECT_FALSE((SRECT{1, 2, 3, 4} == SRECT{0, 2, 3, 4}));
    EXPECT_TRUE(RealRect(0.0, 1, 2, 3) == RealRect(0.0, 1, 2, 3));
    EXPECT_FALSE(RealRect(0.0, 1, 2, 3) == RealRect(-0.0, 1, 2, 3));
    const double otherNaN = std::bit_cast<double>(uint64{0x7FF8000000000000});
    EXPECT_TRUE(RealRect(GetNaN(), 1, 2, 3) == RealRect(GetNaN(), 1, 2, 3));
    EXPECT_FALSE(RealRect(GetNaN(), 1, 2, 3) == RealRect(otherNaN, 1, 2, 3));
}

TEST(EqualDoubles, ComparesMantissasWithinOnePowerOfTwo) {
    for (int digits = 0; digits <= 14; ++digits) {
        EXPECT_TRUE(EqualDoubles(1.0, 1.0, Digits(digits)));
        EXPECT_TRUE(EqualDoubles(0.0, -0.0, Digits(digits)));
        EXPECT_FALSE(EqualDoubles(1.0, 0.9999999, Digits(digits)));
        EXPECT_FALSE(EqualDoubles(1.5, -1.5, Digits(digits)));
    }
    // Mantissas 0.75 and 0.75000005.
    for (int digits = 0; digits <= 14; ++digits) {
        EXPECT_EQ(EqualDoubles(1.5, 1.5000001, Digits(digits)), digits <= 6) << digits;
    }
    EXPECT_TRUE(EqualDoubles(1.5e300, 1.5000001e300, SignificantDigits7));
    EXPECT_TRUE(EqualDoubles(-1.5, -1.5000001, SignificantDigits7));
}

// No two doubles differ by a tolerance exactly, so these are the nearest on either side of the first and the last.
TEST(EqualDoubles, TheToleranceIsTheLimit) {
    EXPECT_TRUE(EqualDoubles(0.5, 0.6, SignificantDigits1));
    EXPECT_FALSE(EqualDoubles(0.5, 0.6000000000000001, SignificantDigits1));
    EXPECT_TRUE(EqualDoubles(0.5, 0.5 + 9 * 0x1p-53, SignificantDigits15));
    EXPECT_FALSE(EqualDoubles(0.5, 0.5 + 10 * 0x1p-53, SignificantDigits15));
}

TEST(EqualDoubles, NaNAndInfinities) {
    EXPECT_FALSE(EqualDoubles(GetNaN(), GetNaN(), SignificantDigits1));
    EXPECT_FALSE(EqualDoubles(GetNaN(), 1.0, SignificantDigits1));
    EXPECT_FALSE(EqualDoubles(0.5, GetNaN(), SignificantDigits1));
    EXPECT_TRUE(EqualDoubles(Infinity, Infinity, SignificantDigits1));
    EXPECT_FALSE(EqualDoubles(Infinity, -Infinity, SignificantDigits1));
    EXPECT_FALSE(EqualDoubles(Infinity, 0.5, SignificantDigits1));
}

TEST(EqualDoubles, DigitsOutsideTheTableLeaveExactEquality) {
    EXPECT_TRUE(EqualDoubles(1.5, 1.5, Digits(15)));
    EXPECT_FALSE(EqualDoubles(1.5, 1.5000001, Digits(15)));
    EXPECT_FALSE(EqualDoubles(1.5, 1.5000001, Digits(-1)));
}

TEST(RectangleTests, EmptyAndPointInRectDifferOnPurpose) {
    EXPECT_TRUE(RectIsEmpty(Rect(3, 0, 3, 9)));
    EXPECT_TRUE(PointInRect(LPNT{3, 5}, Rect(3, 0, 3, 9)));
    EXPECT_TRUE(RectIsEmpty(Rect(0, 3, 9, 3)));
    EXPECT_TRUE(RectIsEmpty(Rect(1, 0, 0, 1)));
    EXPECT_FALSE(RectIsEmpty(Rect(0, 0, 1, 1)));
    EXPECT_TRUE(RectIsEmpty(RealRect(3, 0, 3, 9)));
    EXPECT_TRUE(PointInRect(DPNT{3, 5}, RealRect(3, 0, 3, 9)));
    EXPECT_FALSE(RectIsEmpty(RealRect(0, 0, 0.1, 0.1)));
    EXPECT_FALSE(RectIsEmpty(RealRect(GetNaN(), 0, 1, 1)));
}

TEST(RectangleTests, ZeroMeansAllFour) {
    EXPECT_TRUE(RectIsZero(Rect(0, 0, 0, 0)));
    EXPECT_FALSE(RectIsZero(Rect(0, 0, 0, 1)));
    EXPECT_TRUE(RectIsZero(RealRect(0, -0.0, 0, 0)));
    EXPECT_FALSE(RectIsZero(RealRect(1e-300, 0, 0, 0)));
    EXPECT_FALSE(RectIsZero(RealRect(GetNaN(), 0, 0, 0)));
}

template <typename Rectangle, typename Point>
void PointIsInsideOnAllSides() {
    const Rectangle rect{0, 0, 10, 20};
    for (const Point p : {Point{0, 0}, Point{10, 20}, Point{0, 20}, Point{10, 0}, Point{5, 5}}) {
        EXPECT_TRUE(PointInRect(p, rect)) << p;
    }
    for (const Point p : {Point{-1, 5}, Point{11, 5}, Point{5, -1}, Point{5, 21}})
        EXPECT_FALSE(PointInRect(p, rect)) << p;
}

TEST(RectangleTests, PointInRectIncludesAllSides) {
    PointIsInsideOnAllSides<LRECT, LPNT>();
    PointIsInsideOnAllSides<DRECT, DPNT>();
    EXPECT_FALSE(PointInRect(DPNT{GetNaN(), 5}, RealRect(0, 0, 10, 20)));
}

template <typename Rectangle>
void RectInRectIsInclusive() {
    const Rectangle outer{0, 0, 10, 10};
    EXPECT_TRUE(RectInRect(outer, outer));
    EXPECT_TRUE(RectInRect(Rectangle{2, 2, 3, 3}, outer));
    EXPECT_FALSE(RectInRect(Rectangle{-1, 0, 10, 10}, outer));
    EXPECT_FALSE(RectInRect(Rectangle{0, -1, 10, 10}, outer));
    EXPECT_FALSE(RectInRect(Rectangle{0, 0, 11, 10}, outer));
    EXPECT_FALSE(RectInRect(Rectangle{0, 0, 10, 11}, outer));
}

TEST(RectangleTests, RectInRectIsInclusive) {
    RectInRectIsInclusive<LRECT>();
    RectInRectIsInclusive<DRECT>();
    // A NaN is neither below nor above.
    EXPECT_TRUE(RectInRect(RealRect(GetNaN(), 1, 2, 2), RealRect(0, 0, 10, 10)));
}

template <typename Rectangle>
void TouchingRectanglesOverlap() {
    const Rectangle rect{0, 0, 10, 10};
    for (const Rectangle other : {Rectangle{10, 10, 20, 20}, Rectangle{-5, -5, 0, 0}, Rectangle{2, 2, 3, 3},
                                  Rectangle{-5, 4, 15, 5}, Rectangle{10, 0, 11, 1}}) {
        EXPECT_TRUE(RectsOverlap(rect, other)) << other;
        EXPECT_TRUE(RectsOverlap(other, rect)) << other;
    }
    for (const Rectangle other :
         {Rectangle{11, 0, 20, 10}, Rectangle{-5, 0, -1, 10}, Rectangle{0, 11, 10, 20}, Rectangle{0, -5, 10, -1}}) {
        EXPECT_FALSE(RectsOverlap(rect, other)) << other;
        EXPECT_FALSE(RectsOverlap(other, rect)) << other;
    }
}

TEST(RectangleTests, TouchingCountsAsOverlapping) {
    TouchingRectanglesOverlap<LRECT>();
    TouchingRectanglesOverlap<DRECT>();
}

// Construction and merging --------------------------------------------------------------------------------------------

TEST(RectangleConstruction, SetRectStoresUnsorted) {
    LRECT rect{};
    SetRect(rect, 4, 3, 2, 1);
    EXPECT_EQ(rect, Rect(4, 3, 2, 1));
    DRECT real{};
    SetRect(real, 4.5, 3, 2, 1);
    EXPECT_EQ(real, RealRect(4.5, 3, 2, 1));
}

TEST(RectangleConstruction, SortRectTreatsTheAxesApart) {
    LRECT rect = Rect(4, 1, 2, 3);
    SortRect(rect);
    EXPECT_EQ(rect, Rect(2, 1, 4, 3));
    rect = Rect(2, 3, 4, 1);
    SortRect(rect);
    EXPECT_EQ(rect, Rect(2, 1, 4, 3));
    DRECT real = RealRect(4, 3, 2, 1);
    SortRect(real);
    EXPECT_EQ(real, RealRect(2, 1, 4, 3));
}

TEST(RectangleConstruction, SortRectWithPointsTakesAnyTwoCorners) {
    LRECT rect{};
    SortRectWithPoints(rect, LPNT{4, 1}, LPNT{2, 3});
    EXPECT_EQ(rect, Rect(2, 1, 4, 3));
    DRECT real{};
    SortRectWithPoints(real, DPNT{2, 3}, DPNT{4, 1});
    EXPECT_EQ(real, RealRect(2, 1, 4, 3));
}

TEST(Merging, StartsInsideOut) {
    LRECT rect{};
    InitRectForMerging(rect);
    EXPECT_EQ(rect, Rect(Highest, Highest, Lowest, Lowest));
    InitShortRectForMerging(rect);
    EXPECT_EQ(rect, Rect(32767, 32767, -32768, -32768));
    DRECT real{};
    InitRectForMerging(real);
    EXPECT_EQ(std::bit_cast<uint64>(real.x1), 0x7FEFFFFFFFFFFFFFu);
    EXPECT_EQ(std::bit_cast<uint64>(real.y1), 0x7FEFFFFFFFFFFFFFu);
    EXPECT_EQ(std::bit_cast<uint64>(real.x2), 0xFFEFFFFFFFFFFFFFu);
    EXPECT_EQ(std::bit_cast<uint64>(real.y2), 0xFFEFFFFFFFFFFFFFu);
}

TEST(Merging, GrowsToHoldBoth) {
    LRECT rect{};
    InitRectForMerging(rect);
    MergeRects(rect, Rect(1, 2, 3, 4));
    EXPECT_EQ(rect, Rect(1, 2, 3, 4));
    MergeRects(rect, Rect(0, 3, 2, 9));
    EXPECT_EQ(rect, Rect(0, 2, 3, 9));
    MergeRectWithPoint(rect, LPNT{5, -5});
    EXPECT_EQ(rect, Rect(0, -5, 5, 9));
    MergeRects(rect, rect);
    EXPECT_EQ(rect, Rect(0, -5, 5, 9));

    DRECT real{};
    InitRectForMerging(real);
    MergeRectWithPoint(real, DPNT{1.5, 2.5});
    EXPECT_EQ(real, RealRect(1.5, 2.5, 1.5, 2.5));
    MergeRects(real, RealRect(0, 3, 2, 9));
    EXPECT_EQ(real, RealRect(0, 2.5, 2, 9));
    MergeRectWithPoint(real, DPNT{GetNaN(), GetNaN()});
    EXPECT_EQ(real, RealRect(0, 2.5, 2, 9));
}

TEST(Merging, IntersectionMayComeOutInsideOut) {
    LRECT rect = Rect(0, 0, 10, 10);
    IntersectRects(rect, Rect(5, -5, 20, 5));
    EXPECT_EQ(rect, Rect(5, 0, 10, 5));
    IntersectRects(rect, Rect(20, 20, 30, 30));
    EXPECT_EQ(rect, Rect(20, 20, 10, 5));
    DRECT real = RealRect(0, 0, 10, 10);
    IntersectRects(real, RealRect(11, 2, 12, 3));
    EXPECT_EQ(real, RealRect(11, 2, 10, 3));
}

TEST(RectangleConstruction, CornersGoRoundFromTheFirst) {
    LPNT corners[4];
    GetCornersOfRect(Rect(1, 2, 3, 4), corners);
    EXPECT_EQ(corners[0], (LPNT{1, 2}));
    EXPECT_EQ(corners[1], (LPNT{1, 4}));
    EXPECT_EQ(corners[2], (LPNT{3, 4}));
    EXPECT_EQ(corners[3], (LPNT{3, 2}));
    DPNT real[4];
    GetCornersOfRect(RealRect(1, 2, 3, 4), real);
    EXPECT_EQ(real[1], (DPNT{1, 4}));
    EXPECT_EQ(real[3], (DPNT{3, 2}));
}

LPNT Center(LPNT a, LPNT b) {
    LPNT center{};
    GetCenterOfPoints(a, b, center);
    return center;
}

TEST(Centers, CutTowardsZero) {
    EXPECT_EQ(Center({0, 0}, {3, -3}), (LPNT{1, -1}));
    EXPECT_EQ(Center({-5, 4}, {-2, 8}), (LPNT{-3, 6}));
}

TEST(Centers, SurviveSumsThatSaturate) {
    EXPECT_EQ(Center({Highest, Lowest}, {Highest - 2, Lowest + 2}), (LPNT{Highest - 1, Lowest + 1}));
    EXPECT_EQ(Center({Highest, Highest}, {Highest, 0}), (LPNT{Highest, Highest - Highest / 2}));
}

// The sum is exactly a limit without having been held there; the way is that of a held sum all the same.
TEST(Centers, ASumThatIsALimitIsTakenForAHeldOne) {
    EXPECT_EQ(Center({0, 0}, {Highest, 1}), (LPNT{Highest / 2, 0}));
    EXPECT_EQ(Center({Highest, 0}, {0, 1}), (LPNT{Highest / 2 + 1, 0}));
    EXPECT_EQ(Center({Lowest, 0}, {0, 0}).x, 1073741824);  // the difference wraps to the lowest value
}

TEST(Centers, OutMayBeOneOfThePoints) {
    LPNT a{2, 4};
    GetCenterOfPoints(a, LPNT{4, 8}, a);
    EXPECT_EQ(a, (LPNT{3, 6}));
}

TEST(Centers, OfRectanglesAndReals) {
    LPNT center{};
    GetCenterOfRect(Rect(0, 0, 3, -3), center);
    EXPECT_EQ(center, (LPNT{1, -1}));
    DPNT real{};
    GetCenterOfRect(RealRect(0, 0, 3, -3), real);
    EXPECT_EQ(real, (DPNT{1.5, -1.5}));
    GetCenterOfPoints(DPNT{1, 1}, DPNT{2, 4}, real);
    EXPECT_EQ(real, (DPNT{1.5, 2.5}));
}

TEST(WidthHeight, IntegersWrap) {
    int32 width = 0;
    int32 height = 0;
    GetWidthHeightOfRect(Rect(1, 2, 11, 22), width, height);
    EXPECT_EQ(width, 10);
    EXPECT_EQ(height, 20);
    GetWidthHeightOfRect(Rect(Lowest, 5, Highest, -5), width, height);
    EXPECT_EQ(width, -1);
    EXPECT_EQ(height, -10);
    double realWidth = 0;
    double realHeight = 0;
    GetWidthHeightOfRect(RealRect(1, 2, 1.5, 0), realWidth, realHeight);
    EXPECT_EQ(realWidth, 0.5);
    EXPECT_EQ(realHeight, -2);
}

// Moving, growing, holding at limits ----------------------------------------------------------------------------------

TEST(OffsetRect, SaturatesThenHoldsAndDoesNotSort) {
    LRECT rect = Rect(5, 6, 1, 2);
    OffsetRect(rect, 10, -10, -1000, 1000);
    EXPECT_EQ(rect, Rect(15, -4, 11, -8));
    rect = Rect(Highest, Lowest, 5, 5);
    OffsetRect(rect, 1, -1, -1000, 1000);
    EXPECT_EQ(rect, Rect(1000, -1000, 6, 4));
    DRECT real = RealRect(5, 6, 1, 2);
    OffsetRect(real, 0.5, -10);
    EXPECT_EQ(real, RealRect(5.5, -4, 1.5, -8));
}

TEST(ExpandRect, ANegativeAmountPastTheCentreGivesASortedRectangle) {
    LRECT rect = Rect(0, 0, 10, 10);
    ExpandRect(rect, 2, 3, -1000, 1000);
    EXPECT_EQ(rect, Rect(-2, -3, 12, 13));
    rect = Rect(0, 0, 10, 10);
    ExpandRect(rect, -7, -2, -1000, 1000);
    EXPECT_EQ(rect, Rect(3, 2, 7, 8));
    DRECT real = RealRect(0, 0, 10, 10);
    ExpandRect(real, -7.5, 1);
    EXPECT_EQ(real, RealRect(2.5, -1, 7.5, 11));
}

TEST(ExpandRect, HoldsAtTheLimitsOfTheCaller) {
    LRECT rect = Rect(-900, Lowest, 900, Highest);
    ExpandRect(rect, 200, 1, -1000, 1000);
    EXPECT_EQ(rect, Rect(-1000, -1000, 1000, 1000));
    rect = Rect(0, 0, 0, 0);
    ExpandRect(rect, Lowest, 0, Lowest, Highest);  // the negated amount wraps to itself
    EXPECT_EQ(rect, Rect(Lowest, 0, Lowest, 0));
}

TEST(ExpandPoint, GivesTheRectangleAroundIt) {
    LRECT rect{};
    ExpandPointIntoRect(LPNT{5, 6}, rect, 2, -3, -1000, 1000);
    EXPECT_EQ(rect, Rect(3, 3, 7, 9));
    ExpandPointIntoRect(LPNT{Highest, Lowest}, rect, 10, 10, -1000, 1000);
    EXPECT_EQ(rect, Rect(1000, -1000, 1000, -1000));
    DRECT real{};
    ExpandPointIntoRect(DPNT{5, 6}, real, -2, 0.5);
    EXPECT_EQ(real, RealRect(3, 5.5, 7, 6.5));
}

TEST(ClipPoint, TestsTheLowSideFirst) {
    LPNT point{-5, 50};
    ClipPointToRect(point, Rect(0, 0, 10, 10));
    EXPECT_EQ(point, (LPNT{0, 10}));
    point = {4, 7};
    ClipPointToRect(point, Rect(0, 0, 10, 10));
    EXPECT_EQ(point, (LPNT{4, 7}));
    point = {5, 30};
    ClipPointToRect(point, Rect(10, 20, 0, 2));  // inside out
    EXPECT_EQ(point, (LPNT{10, 2}));
    DPNT real{GetNaN(), -1};
    ClipPointToRect(real, RealRect(0, 0, 10, 10));
    EXPECT_TRUE(IsNaN(real.x));
    EXPECT_EQ(real.y, 0);
}

TEST(ClipToLongRect, HoldsWithoutSorting) {
    LRECT rect = Rect(500, -500, -2000, 2000);
    ClipToLongRect(rect, rect, -1000, 1000);
    EXPECT_EQ(rect, Rect(500, -500, -1000, 1000));
}

TEST(DoubleToLongRect, HoldsAsDoublesAndRounds) {
    LRECT rect{};
    DoubleToLongRect(RealRect(2.5, -2.5, 1e300, -Infinity), rect, -1000, 1000);
    EXPECT_EQ(rect, Rect(3, -3, 1000, -1000));
    DoubleToLongRect(RealRect(GetNaN(), 0.4, 1e10, -1e10), rect, Lowest, Highest);
    EXPECT_EQ(rect, Rect(Lowest, 0, Highest, Lowest));
    DoubleToLongRect(RealRect(GetNaN(), 0, 0, 0), rect, -1000, 1000);
    EXPECT_EQ(rect.x1, Lowest);
}

TEST(LongToDoubleRect, IsExact) {
    DRECT real{};
    LongToDoubleRect(Rect(Lowest, Highest, -1, 1), real);
    EXPECT_EQ(real, RealRect(-2147483648.0, 2147483647.0, -1, 1));
}

TEST(Saturation, AgreesWith64BitArithmeticOnRandomRectangles) {
    RandomShapes random(11);
    for (int i = 0; i < 100000; ++i) {
        const LRECT rect{random.Coordinate(), random.Coordinate(), random.Coordinate(), random.Coordinate()};
        const int32 dx = random.Coordinate();
        const int32 low = random.Coordinate();
        const int32 high = random.Coordinate();
        const auto plain = [&](int32 value) {
            const int64 sum = int64{value} + dx;
            const int64 held = sum > Highest ? Highest : sum < Lowest ? Lowest : sum;
            return held < low ? low : held < high ? static_cast<int32>(held) : high;
        };
        LRECT moved = rect;
        OffsetRect(moved, dx, dx, low, high);
        ASSERT_EQ(moved, Rect(plain(rect.x1), plain(rect.y1), plain(rect.x2), plain(rect.y2)))
            << rect << " by " << dx << " within " << low << ".." << high;
    }
}

}  // namespace
}  // namespace rectangles_test
