#include <Utility/geometry.h>
#include <Utility/numbers/rounding.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

// Each operation is written once, for both kinds of coordinates; the exported overloads follow at the end.

namespace Torvo {

namespace {

using detail::AddCoords;
using detail::Clamp;
using detail::WrappingNegate;
using detail::WrappingSubtract;

template <typename Rect>
bool SameBytes(const Rect& a, const Rect& b) {
    // Equal byte for byte is what is meant, -0.0 and NaN included.
    // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison)
    return std::memcmp(&a, &b, sizeof(Rect)) == 0;
}

template <typename Rect>
bool IsEmpty(const Rect& rect) {
    return rect.x1 >= rect.x2 || rect.y1 >= rect.y2;
}

template <typename Rect>
bool IsZero(const Rect& rect) {
    return rect.x1 == 0 && rect.y1 == 0 && rect.x2 == 0 && rect.y2 == 0;
}

template <typename Point, typename Rect>
bool Contains(const Rect& rect, Point point) {
    return point.x >= rect.x1 && point.x <= rect.x2 && point.y >= rect.y1 && point.y <= rect.y2;
}

template <typename Rect>
bool LiesWithin(const Rect& inner, const Rect& outer) {
    return !(inner.x1 < outer.x1) && !(inner.y1 < outer.y1) && !(inner.x2 > outer.x2) && !(inner.y2 > outer.y2);
}

template <typename Rect>
bool Overlap(const Rect& a, const Rect& b) {
    return a.x1 <= b.x2 && b.x1 <= a.x2 && a.y1 <= b.y2 && b.y1 <= a.y2;
}

template <typename Rect>
void Sort(Rect& rect) {
    if (rect.x1 > rect.x2) std::swap(rect.x1, rect.x2);
    if (rect.y1 > rect.y2) std::swap(rect.y1, rect.y2);
}

template <typename Rect, typename Value>
void InitForMerging(Rect& rect, Value lowest, Value highest) {
    rect = {highest, highest, lowest, lowest};
}

template <typename T>
void LowerTo(T& value, T other) {
    if (other < value) value = other;
}

template <typename T>
void RaiseTo(T& value, T other) {
    if (other > value) value = other;
}

template <typename Rect>
void Merge(Rect& rect, const Rect& other) {
    LowerTo(rect.x1, other.x1);
    LowerTo(rect.y1, other.y1);
    RaiseTo(rect.x2, other.x2);
    RaiseTo(rect.y2, other.y2);
}

template <typename Rect>
void Intersect(Rect& rect, const Rect& other) {
    RaiseTo(rect.x1, other.x1);
    RaiseTo(rect.y1, other.y1);
    LowerTo(rect.x2, other.x2);
    LowerTo(rect.y2, other.y2);
}

template <typename Rect, typename Point>
void CornersOf(const Rect& rect, Point* corners) {
    corners[0] = {rect.x1, rect.y1};
    corners[1] = {rect.x1, rect.y2};
    corners[2] = {rect.x2, rect.y2};
    corners[3] = {rect.x2, rect.y1};
}

int32 Middle(int32 a, int32 b) {
    const int32 sum = detail::SaturatingAdd(a, b);
    // At a limit the sum may have been held there.
    const bool exact = sum != detail::HighestInt32 && sum != detail::LowestInt32;
    return exact ? sum / 2 : detail::WrappingAdd(WrappingSubtract(b, a) / 2, a);
}

double Middle(double a, double b) {
    return (a + b) * 0.5;
}

template <typename Point>
Point MiddlePoint(Point a, Point b) {
    return {Middle(a.x, b.x), Middle(a.y, b.y)};
}

template <typename Rect, typename Point>
Point CenterOf(const Rect& rect) {
    return MiddlePoint(Point{rect.x1, rect.y1}, Point{rect.x2, rect.y2});
}

template <typename Point, typename Rect>
void HoldInside(Point& point, const Rect& rect) {
    point = {Clamp(point.x, rect.x1, rect.x2), Clamp(point.y, rect.y1, rect.y2)};
}

}  // namespace

// Comparison ------------------------------------------------------------------------------------------------------

bool operator==(const LRECT& a, const LRECT& b) {
    return SameBytes(a, b);
}

bool operator==(const DRECT& a, const DRECT& b) {
    return SameBytes(a, b);
}

bool operator==(const SRECT& a, const SRECT& b) {
    return SameBytes(a, b);
}

bool EqualDoubles(double a, double b, SIGNIFICANTDIGITS digits) {
    static constexpr double Tolerances[] = {1e-1, 1e-2,  1e-3,  1e-4,  1e-5,  1e-6,  1e-7, 1e-8,
                                            1e-9, 1e-10, 1e-11, 1e-12, 1e-13, 1e-14, 1e-15};
    if (a == b) return true;
    if (digits < SignificantDigits1 || digits > SignificantDigits15) return false;
    int exponentA = 0;
    int exponentB = 0;
    const double mantissaA = std::frexp(a, &exponentA);
    const double mantissaB = std::frexp(b, &exponentB);
    return exponentA == exponentB && std::fabs(mantissaA - mantissaB) < Tolerances[digits];
}

bool RectIsEmpty(const LRECT& rect) {
    return IsEmpty(rect);
}

bool RectIsEmpty(const DRECT& rect) {
    return IsEmpty(rect);
}

bool RectIsZero(const LRECT& rect) {
    return IsZero(rect);
}

bool RectIsZero(const DRECT& rect) {
    return IsZero(rect);
}

bool PointInRect(LPNT point, const LRECT& rect) {
    return Contains(rect, point);
}

bool PointInRect(DPNT point, const DRECT& rect) {
    return Contains(rect, point);
}

bool RectInRect(const LRECT& inner, const LRECT& outer) {
    return LiesWithin(inner, outer);
}

bool RectInRect(const DRECT& inner, const DRECT& outer) {
    return LiesWithin(inner, outer);
}

bool RectsOverlap(const LRECT& a, const LRECT& b) {
    return Overlap(a, b);
}

bool RectsOverlap(const DRECT& a, const DRECT& b) {
    return Overlap(a, b);
}

// Construction and merging ----------------------------------------------------------------------------------------

void SetRect(LRECT& rect, int32 x1, int32 y1, int32 x2, int32 y2) {
    rect = {x1, y1, x2, y2};
}

void SetRect(DRECT& rect, double x1, double y1, double x2, double y2) {
    rect = {x1, y1, x2, y2};
}

void SortRect(LRECT& rect) {
    Sort(rect);
}

void SortRect(DRECT& rect) {
    Sort(rect);
}

void SortRectWithPoints(LRECT& rect, LPNT a, LPNT b) {
    rect = {a.x, a.y, b.x, b.y};
    Sort(rect);
}

void SortRectWithPoints(DRECT& rect, DPNT a, DPNT b) {
    rect = {a.x, a.y, b.x, b.y};
    Sort(rect);
}

void InitRectForMerging(LRECT& rect) {
    InitForMerging(rect, detail::LowestInt32, detail::HighestInt32);
}

void InitRectForMerging(DRECT& rect) {
    InitForMerging(rect, std::numeric_limits<double>::lowest(), std::numeric_limits<double>::max());
}

void InitShortRectForMerging(LRECT& rect) {
    InitForMerging<LRECT, int32>(rect, -32768, 32767);
}

void MergeRects(LRECT& rect, const LRECT& other) {
    Merge(rect, other);
}

void MergeRects(DRECT& rect, const DRECT& other) {
    Merge(rect, other);
}

void MergeRectWithPoint(LRECT& rect, LPNT point) {
    Merge(rect, LRECT{point.x, point.y, point.x, point.y});
}

void MergeRectWithPoint(DRECT& rect, DPNT point) {
    Merge(rect, DRECT{point.x, point.y, point.x, point.y});
}

void IntersectRects(LRECT& rect, const LRECT& other) {
    Intersect(rect, other);
}

void IntersectRects(DRECT& rect, const DRECT& other) {
    Intersect(rect, other);
}

void GetCornersOfRect(const LRECT& rect, LPNT* corners) {
    CornersOf(rect, corners);
}

void GetCornersOfRect(const DRECT& rect, DPNT* corners) {
    CornersOf(rect, corners);
}

void GetCenterOfRect(const LRECT& rect, LPNT& center) {
    center = CenterOf<LRECT, LPNT>(rect);
}

void GetCenterOfRect(const DRECT& rect, DPNT& center) {
    center = CenterOf<DRECT, DPNT>(rect);
}

void GetCenterOfPoints(LPNT a, LPNT b, LPNT& center) {
    center = MiddlePoint(a, b);
}

void GetCenterOfPoints(DPNT a, DPNT b, DPNT& center) {
    center = MiddlePoint(a, b);
}

void GetWidthHeightOfRect(const LRECT& rect, int32& width, int32& height) {
    width = WrappingSubtract(rect.x2, rect.x1);
    height = WrappingSubtract(rect.y2, rect.y1);
}

void GetWidthHeightOfRect(const DRECT& rect, double& width, double& height) {
    width = rect.x2 - rect.x1;
    height = rect.y2 - rect.y1;
}

// Moving, growing, holding at limits ------------------------------------------------------------------------------

void OffsetRect(LRECT& rect, int32 dx, int32 dy, int32 low, int32 high) {
    rect = {AddCoords(rect.x1, dx, low, high), AddCoords(rect.y1, dy, low, high), AddCoords(rect.x2, dx, low, high),
            AddCoords(rect.y2, dy, low, high)};
}

void OffsetRect(DRECT& rect, double dx, double dy) {
    rect = {rect.x1 + dx, rect.y1 + dy, rect.x2 + dx, rect.y2 + dy};
}

void ExpandRect(LRECT& rect, int32 dx, int32 dy, int32 low, int32 high) {
    rect = {AddCoords(rect.x1, WrappingNegate(dx), low, high), AddCoords(rect.y1, WrappingNegate(dy), low, high),
            AddCoords(rect.x2, dx, low, high), AddCoords(rect.y2, dy, low, high)};
    Sort(rect);
}

void ExpandRect(DRECT& rect, double dx, double dy) {
    rect = {rect.x1 - dx, rect.y1 - dy, rect.x2 + dx, rect.y2 + dy};
    Sort(rect);
}

void ExpandPointIntoRect(LPNT point, LRECT& rect, int32 dx, int32 dy, int32 low, int32 high) {
    rect = {point.x, point.y, point.x, point.y};
    ExpandRect(rect, dx, dy, low, high);
}

void ExpandPointIntoRect(DPNT point, DRECT& rect, double dx, double dy) {
    rect = {point.x, point.y, point.x, point.y};
    ExpandRect(rect, dx, dy);
}

void ClipPointToRect(LPNT& point, const LRECT& rect) {
    HoldInside(point, rect);
}

void ClipPointToRect(DPNT& point, const DRECT& rect) {
    HoldInside(point, rect);
}

void ClipToLongRect(const LRECT& source, LRECT& target, int32 low, int32 high) {
    target = {Clamp(source.x1, low, high), Clamp(source.y1, low, high), Clamp(source.x2, low, high),
              Clamp(source.y2, low, high)};
}

void DoubleToLongRect(const DRECT& source, LRECT& target, int32 low, int32 high) {
    const auto round = [low, high](double value) { return detail::RoundToInt32(Clamp<double>(value, low, high)); };
    target = {round(source.x1), round(source.y1), round(source.x2), round(source.y2)};
}

void LongToDoubleRect(const LRECT& source, DRECT& target) {
    target = {double(source.x1), double(source.y1), double(source.x2), double(source.y2)};
}

}  // namespace Torvo
