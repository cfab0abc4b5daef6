#include <Utility/geometry.h>
#include <Utility/geometry/radians.h>
#include <Utility/geometry/triangle_turn.h>
#include <Utility/numbers/rounding.h>

#include <cmath>

namespace Torvo {

namespace {

using detail::WrappingSubtract;

// The share of the first segment's squared L1 length below which a determinant counts as 0.
constexpr double ParallelTolerance = 1e-10;
// Circles are held at this distance from the origin.
constexpr int32 CircleLimit = 1000000000;

// A NaN lies outside of nothing.
bool LiesOutside(double value) {
    return value < 0.0 || value > 1.0;
}

}  // namespace

void SubtractPoints(LPNT a, LPNT b, DPNT& difference) {
    difference = {double(WrappingSubtract(a.x, b.x)), double(WrappingSubtract(a.y, b.y))};
}

void SubtractPoints(DPNT a, DPNT b, DPNT& difference) {
    difference = {a.x - b.x, a.y - b.y};
}

double CrossProductVecs(DPNT a, DPNT b) {
    return a.x * b.y - a.y * b.x;
}

double DotProductVecs(DPNT a, DPNT b) {
    return a.x * b.x + a.y * b.y;
}

double NormL1Vec(DPNT a) {
    return std::fabs(a.x) + std::fabs(a.y);
}

bool CrossDLines(DPNT p1, DPNT p2, DPNT q1, DPNT q2, DPNT& out) {
    const DPNT d = {p2.x - p1.x, p2.y - p1.y};
    const DPNT e = {q2.x - q1.x, q2.y - q1.y};
    const DPNT between = {q1.x - p1.x, q1.y - p1.y};
    const double determinant = e.y * d.x - e.x * d.y;
    const double length = NormL1Vec(d);
    if (length * ParallelTolerance * length >= std::fabs(determinant)) return false;
    const double t = (between.x * e.y - between.y * e.x) / determinant;
    if (LiesOutside(t)) return false;
    const double u = (between.x * d.y - between.y * d.x) / determinant;
    if (LiesOutside(u)) return false;
    out = {p1.x + d.x * t, p1.y + d.y * t};
    return true;
}

bool IsClockwiseTriangle(DPNT a, DPNT b, DPNT c) {
    return detail::TurnsClockwise(a, b, c);
}

bool IsClockwiseTriangle(LPNT a, LPNT b, LPNT c) {
    return detail::TurnsClockwise(detail::ToDouble(a), detail::ToDouble(b), detail::ToDouble(c));
}

void CreateCircleMBR(LRECT& out, LPNT center, LPNT rim, double xUnit, double yUnit) {
    const double ratio = yUnit / xUnit;
    DPNT radius;
    SubtractPoints(center, rim, radius);
    radius.y /= ratio;
    const double r = std::sqrt(radius.y * radius.y + radius.x * radius.x);
    ExpandPointIntoRect(center, out, detail::RoundToInt32(r), detail::RoundToInt32(r * ratio), -CircleLimit,
                        CircleLimit);
}

void GetRotatedMBRPnts(const DRECT* rect, int16 angle, double a, double b, DPNT* out) {
    const double radians = detail::RadiansOfTenths(angle);
    const double c = std::cos(radians);
    const double s = std::sin(radians);
    const double x1 = rect->x1;
    const double y1 = rect->y1;
    const double w = rect->x2 - x1;
    const double h = rect->y2 - y1;
    out[0] = {x1, y1};
    out[1] = {x1 + w * c, y1 - w * b * s};
    out[2] = {x1 + w * c + h * a * s, y1 - w * b * s + h * c};
    out[3] = {x1 + h * a * s, y1 + h * c};
}

void RotateTextMBR(DRECT* rect, int16 angle, double a, double b) {
    DPNT corners[4];
    GetRotatedMBRPnts(rect, angle, a, b, corners);
    InitRectForMerging(*rect);
    for (const DPNT corner : corners) MergeRectWithPoint(*rect, corner);
}

}  // namespace Torvo
