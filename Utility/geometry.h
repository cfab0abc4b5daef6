// Points and rectangles: plain structures on integer and on floating coordinates, and functions over them.
//
// Most functions come in two overloads, one on 32-bit integers (LPNT, LRECT) and one on doubles (DPNT, DRECT). Map
// coordinates on integers may come near the limits of 32 bits, so the integer functions that move or grow something add
// with saturation (INT32AddCoords in <Utility/arithmetic.h>) and take two limits, `low` and `high`, to which each
// coordinate is held afterwards. Where a difference of two integers is said to wrap, it is taken modulo 2^32.
//
// Words. A rectangle is *sorted* when x1 <= x2 and y1 <= y2; nothing forces that except the functions that say so, and
// one made for merging is inside out on purpose. To *hold* a value at limits is to answer `low` if low > value, else
// `high` if high < value, else the value, in this order; a NaN passes. *Angles* are signed 16-bit integers in tenths of
// a degree: 900 is a quarter turn. A *count* below 1 means an empty array, whose pointer is then not looked at.
//
// Precision. Integer results are exact or held as told. On doubles every step is one IEEE operation in the order that
// is given, without a tolerance unless one is named; the tests of orientation use determinants of coordinates as they
// stand, so that they are exact for integers up to 2^25 and may call a triangle of almost no area either way above
// that.
//
// Nothing here fails, except where a bool result says so; nothing keeps state or allocates; all of it may be called on
// any thread. Out arguments may be the same objects as the arguments by value.
//
// Example: examples/families/geometry.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// Points on integers and on doubles.
struct LPNT {
    int32 x;
    int32 y;
};

struct DPNT {
    double x;
    double y;
};

// Rectangles on 32-bit integers, on doubles and on 16-bit integers, by two corners.
struct LRECT {
    int32 x1;
    int32 y1;
    int32 x2;
    int32 y2;
};

struct DRECT {
    double x1;
    double y1;
    double x2;
    double y2;
};

struct SRECT {
    int16 x1;
    int16 y1;
    int16 x2;
    int16 y2;
};

// How many decimal digits of two mantissas EqualDoubles compares: value k stands for the tolerance 10^-(k + 1).
enum SIGNIFICANTDIGITS : int32 {
    SignificantDigits1 = 0,
    SignificantDigits2,
    SignificantDigits3,
    SignificantDigits4,
    SignificantDigits5,
    SignificantDigits6,
    SignificantDigits7,
    SignificantDigits8,
    SignificantDigits9,
    SignificantDigits10,
    SignificantDigits11,
    SignificantDigits12,
    SignificantDigits13,
    SignificantDigits14,
    SignificantDigits15,
};

// Comparison ------------------------------------------------------------------------------------------------------

// Whether the two are equal byte for byte: on doubles 0.0 and -0.0 differ, and a NaN equals the same NaN.
ZUAPI bool operator==(const LRECT& a, const LRECT& b);
ZUAPI bool operator==(const DRECT& a, const DRECT& b);
ZUAPI bool operator==(const SRECT& a, const SRECT& b);

// Whether two values agree in `digits`: equal, or of the same binary exponent with mantissas (from 0.5 up to 1) that
// differ by less than the tolerance. Two values on either side of a power of two are thus unequal however near they
// are: EqualDoubles(1.0, 0.9999999, digits) is false for all digits. A NaN is unequal to everything. A value of
// `digits` outside the enumeration leaves exact equality alone.
ZUAPI bool EqualDoubles(double a, double b, SIGNIFICANTDIGITS digits);

// Whether x1 >= x2 or y1 >= y2. A rectangle of no width is empty, although PointInRect finds the points on it.
ZUAPI bool RectIsEmpty(const LRECT& rect);
ZUAPI bool RectIsEmpty(const DRECT& rect);
// Whether all four are zero.
ZUAPI bool RectIsZero(const LRECT& rect);
ZUAPI bool RectIsZero(const DRECT& rect);
// Whether the point lies in the rectangle, its four sides included.
ZUAPI bool PointInRect(LPNT point, const LRECT& rect);
ZUAPI bool PointInRect(DPNT point, const DRECT& rect);
// Whether x1 and y1 of `inner` are not below those of `outer`, and x2 and y2 not above.
ZUAPI bool RectInRect(const LRECT& inner, const LRECT& outer);
ZUAPI bool RectInRect(const DRECT& inner, const DRECT& outer);
// Whether two sorted rectangles share a point; one that they only touch in counts.
ZUAPI bool RectsOverlap(const LRECT& a, const LRECT& b);
ZUAPI bool RectsOverlap(const DRECT& a, const DRECT& b);

// Construction and merging ----------------------------------------------------------------------------------------

// Stores the four as they are, unsorted.
ZUAPI void SetRect(LRECT& rect, int32 x1, int32 y1, int32 x2, int32 y2);
ZUAPI void SetRect(DRECT& rect, double x1, double y1, double x2, double y2);
// Exchanges x1 with x2, and y1 with y2, where they are out of order.
ZUAPI void SortRect(LRECT& rect);
ZUAPI void SortRect(DRECT& rect);
// The sorted rectangle with the corners a and b.
ZUAPI void SortRectWithPoints(LRECT& rect, LPNT a, LPNT b);
ZUAPI void SortRectWithPoints(DRECT& rect, DPNT a, DPNT b);

// The rectangle that merging starts from: x1 and y1 the largest value of the type (the largest finite double), x2 and
// y2 the lowest. It holds nothing, and the first merge makes it equal to what is merged.
ZUAPI void InitRectForMerging(LRECT& rect);
ZUAPI void InitRectForMerging(DRECT& rect);
// The same with 32767 and -32768, the limits of 16 bits, in a rectangle of 32.
ZUAPI void InitShortRectForMerging(LRECT& rect);
// Grows `rect` to hold the other one too. A NaN in `other` changes nothing, one in `rect` stays.
ZUAPI void MergeRects(LRECT& rect, const LRECT& other);
ZUAPI void MergeRects(DRECT& rect, const DRECT& other);
// Grows `rect` to hold the point too.
ZUAPI void MergeRectWithPoint(LRECT& rect, LPNT point);
ZUAPI void MergeRectWithPoint(DRECT& rect, DPNT point);
// Cuts `rect` down to what it shares with the other one. Where they share nothing the result is inside out.
ZUAPI void IntersectRects(LRECT& rect, const LRECT& other);
ZUAPI void IntersectRects(DRECT& rect, const DRECT& other);
// The bounds of `count` points; of none, the rectangle of InitRectForMerging.
ZUAPI void GetRectFromPoints(LRECT& rect, const LPNT* points, int32 count);

// The corners (x1, y1), (x1, y2), (x2, y2), (x2, y1) into corners[0..3].
ZUAPI void GetCornersOfRect(const LRECT& rect, LPNT* corners);
ZUAPI void GetCornersOfRect(const DRECT& rect, DPNT* corners);
// The centre of the two corners, as GetCenterOfPoints.
ZUAPI void GetCenterOfRect(const LRECT& rect, LPNT& center);
ZUAPI void GetCenterOfRect(const DRECT& rect, DPNT& center);
// The middle between a and b. On doubles (a + b) * 0.5. On integers s / 2 of the saturated sum s, cut towards zero;
// where s is one of the two limits of 32 bits it may have been held there, and the result is (b - a) / 2 + a with a
// difference that wraps. So 0x7FFFFFFF and 0x7FFFFFFD give 0x7FFFFFFE.
ZUAPI void GetCenterOfPoints(LPNT a, LPNT b, LPNT& center);
ZUAPI void GetCenterOfPoints(DPNT a, DPNT b, DPNT& center);
// x2 - x1 and y2 - y1; the integer form wraps.
ZUAPI void GetWidthHeightOfRect(const LRECT& rect, int32& width, int32& height);
ZUAPI void GetWidthHeightOfRect(const DRECT& rect, double& width, double& height);

// Moving, growing, holding at limits ------------------------------------------------------------------------------

// Adds (dx, dy) to both corners, without sorting.
ZUAPI void OffsetRect(LRECT& rect, int32 dx, int32 dy, int32 low, int32 high);
ZUAPI void OffsetRect(DRECT& rect, double dx, double dy);
// Adds (dx, dy) to each point.
ZUAPI void OffsetPoints(LPNT* points, int32 count, int32 dx, int32 dy, int32 low, int32 high);
ZUAPI void OffsetPoints(DPNT* points, int32 count, double dx, double dy);
// Moves the left and right sides out by dx, the others by dy, then sorts: a negative amount beyond half the size gives
// a sorted rectangle with its sides exchanged. Subtracting is adding the negated amount, and -2147483648 negated wraps
// to itself.
ZUAPI void ExpandRect(LRECT& rect, int32 dx, int32 dy, int32 low, int32 high);
ZUAPI void ExpandRect(DRECT& rect, double dx, double dy);
// The sorted rectangle around `point` that reaches dx and dy to either side.
ZUAPI void ExpandPointIntoRect(LPNT point, LRECT& rect, int32 dx, int32 dy, int32 low, int32 high);
ZUAPI void ExpandPointIntoRect(DPNT point, DRECT& rect, double dx, double dy);
// Holds both coordinates at the sides of the rectangle.
ZUAPI void ClipPointToRect(LPNT& point, const LRECT& rect);
ZUAPI void ClipPointToRect(DPNT& point, const DRECT& rect);

// Holds the four at low and high, without sorting. Source and target may be the same.
ZUAPI void ClipToLongRect(const LRECT& source, LRECT& target, int32 low, int32 high);
// Holds the coordinates of `count` points at low and high, from `source` to `target`, which may be the same array and
// must not overlap otherwise. With `outCount` null, target receives `count` points. With one, a run of points that are
// held at the same place becomes one point, *outCount tells how many are left, and nothing is written behind them. A
// count below 1 sets *outCount to that count and writes nothing else.
ZUAPI void ClipToLongPoints(const LPNT* source, LPNT* target, int32 count, int* outCount, int32 low, int32 high);
// Holds each coordinate at low and high as a double, then rounds it (DoubleToINT32): a NaN becomes -2147483648,
// whatever the limits.
ZUAPI void DoubleToLongRect(const DRECT& source, LRECT& target, int32 low, int32 high);
ZUAPI void DoubleToLongPoints(const DPNT* source, LPNT* target, int32 count, int32 low, int32 high);
// Exact conversions.
ZUAPI void LongToDoubleRect(const LRECT& source, DRECT& target);
ZUAPI void LongToDoublePoints(const LPNT* source, DPNT* target, int32 count);

// Copies `count` points as bytes and returns `target`. The arrays of CopyPoints must not overlap, those of MovePoints
// may.
ZUAPI LPNT* CopyPoints(LPNT* target, const LPNT* source, uint64 count);
ZUAPI DPNT* CopyPoints(DPNT* target, const DPNT* source, uint64 count);
ZUAPI LPNT* MovePoints(LPNT* target, const LPNT* source, uint64 count);
ZUAPI DPNT* MovePoints(DPNT* target, const DPNT* source, uint64 count);
// Reverses the order of the points in place.
ZUAPI void ReverseNodes(LPNT* points, int32 count);
ZUAPI void ReverseNodes(DPNT* points, int32 count);

// Vectors and orientation -----------------------------------------------------------------------------------------

// a - b. The difference of integers wraps before it is converted.
ZUAPI void SubtractPoints(LPNT a, LPNT b, DPNT& difference);
ZUAPI void SubtractPoints(DPNT a, DPNT b, DPNT& difference);
// a.x * b.y - a.y * b.x.
ZUAPI double CrossProductVecs(DPNT a, DPNT b);
// a.x * b.x + a.y * b.y.
ZUAPI double DotProductVecs(DPNT a, DPNT b);
// |a.x| + |a.y|.
ZUAPI double NormL1Vec(DPNT a);

// The point that two segments share, their end points included. Method: with d and e their directions and p and q their
// first points, p + t * d = q + u * e is solved by Cramer's rule, and t and u must lie in 0..1. The segments count as
// parallel, and the result is false, when the determinant is at most 1e-10 of the square of |d.x| + |d.y|; only the
// first segment enters that measure, so a first segment of no length is parallel to everything, and the answer may
// change when the two are exchanged. `out` is untouched when the result is false. A NaN lies outside of nothing: with
// one among the coordinates the result is true, and `out` is a NaN.
ZUAPI bool CrossDLines(DPNT p1, DPNT p2, DPNT q1, DPNT q2, DPNT& out);

// Whether a, b, c turn clockwise, with y growing upwards: the doubled signed area is at most 0. Three points on a line
// therefore count as clockwise.
ZUAPI bool IsClockwiseTriangle(LPNT a, LPNT b, LPNT c);
ZUAPI bool IsClockwiseTriangle(DPNT a, DPNT b, DPNT c);

// Whether a simple polygon of `count` points turns clockwise. Its first point should be repeated at its end: the test
// of what is inside does not walk from the last point to the first. The method looks for a corner, three points in a
// row, whose triangle holds no other point and whose centre of gravity is known to be inside or outside the polygon;
// such a corner turns as the polygon does, or against it. Where no corner decides, as in polygons that collapse to a
// line, the result is the turn of the first three points. Usually the cost is a few walks over the points; a polygon of
// which almost every corner holds other points costs a walk for each. The third argument is neither read nor written. A
// count below 1 gives false.
ZUAPI bool IsClockwiseOrientation(const LPNT* points, int32 count, bool* unused);

// The bounds of the circle with the given centre through `rim`, on a grid whose cells measure xUnit by yUnit. The
// differences of the two points wrap; the radius is rounded on each axis; the bounds are held at plus and minus
// 1,000,000,000.
ZUAPI void CreateCircleMBR(LRECT& out, LPNT center, LPNT rim, double xUnit, double yUnit);

// The four corners of a rectangle turned about its first corner by `angle`, into out[0..3]: that corner, then the one
// along the width, the opposite one, the one along the height. `a` and `b` carry an offset from one axis to the other,
// so that the turn comes out right on a grid with unequal units: what the height adds to x is multiplied by a, what the
// width adds to y by -b.
ZUAPI void GetRotatedMBRPnts(const DRECT* rect, int16 angle, double a, double b, DPNT* out);
// Replaces the rectangle by the bounds of those four points.
ZUAPI void RotateTextMBR(DRECT* rect, int16 angle, double a, double b);

}  // namespace Torvo
