#include <Utility/arcs.h>
#include <Utility/geometry/radians.h>
#include <Utility/numbers/rounding.h>

#include <cmath>
#include <utility>

namespace Torvo {

namespace {

using detail::WrappingAdd;
using detail::WrappingSubtract;

constexpr int FullTurn = 3600;
constexpr int HalfTurn = 1800;
// Cross products below this count as 0.
constexpr double CollinearLimit = 1e-13;

double DegreesOf(double y, double x) {
    if (x == 0.0) return y > 0 ? 90.0 : 270.0;
    if (y == 0.0) return x > 0 ? 0.0 : detail::DegreesPerHalfTurn;
    const double degrees = std::atan2(y, x) * detail::DegreesPerHalfTurn / detail::Pi;
    return degrees < 0 ? degrees + 360.0 : degrees;
}

int16 DirectionAngle(double y, double x) {
    return static_cast<int16>(detail::RoundToInt32(DegreesOf(y, x) * 10.0));
}

int16 Shorten(int angle) {
    return static_cast<int16>(angle);
}

// The end of an arc lies above its start.
void RaiseAbove(int16 start, int16& end) {
    while (end <= start) end = Shorten(end + FullTurn);
}

// The ellipse in a rectangle.
struct Ellipse {
    LPNT center{};
    double rx;
    double ry;

    explicit Ellipse(const LRECT& rect)
        : rx((double(rect.x2) - double(rect.x1)) * 0.5), ry((double(rect.y2) - double(rect.y1)) * 0.5) {
        GetCenterOfRect(rect, center);
    }

    // Scaling each axis by the other's half-length makes the direction that of the parameter.
    int16 AngleOf(LPNT point) const {
        return DirectionAngle(WrappingSubtract(point.y, center.y) * rx, WrappingSubtract(point.x, center.x) * ry);
    }

    LPNT PointAt(int angle) const {
        const double radians = detail::RadiansOfTenths(angle);
        return {WrappingAdd(center.x, detail::RoundToInt32(std::cos(radians) * rx)),
                WrappingAdd(center.y, detail::RoundToInt32(std::sin(radians) * ry))};
    }
};

}  // namespace

void CalcArcAngles(const LRECT& rect, const LPNT& start, const LPNT& end, int16* a, int16* b, bool swap) {
    const Ellipse ellipse(rect);
    *a = ellipse.AngleOf(start);
    *b = ellipse.AngleOf(end);
    if (swap) std::swap(*a, *b);
    RaiseAbove(*a, *b);
}

bool CirclePointsToMBRAngles(const DPNT& p1, const DPNT& p2, const DPNT& p3, DRECT& mbr, int16& start, int16& end) {
    const double ax = p2.x - p1.x;
    const double ay = p2.y - p1.y;
    const double bx = p3.x - p1.x;
    const double by = p3.y - p1.y;
    const double determinant = ay * bx - ax * by;
    if (std::fabs(determinant) < CollinearLimit) return false;
    const double k = 0.5 / determinant;
    const double a2 = ay * ay + ax * ax;
    const double b2 = by * by + bx * bx;
    const double cy = (a2 * bx - b2 * ax) * k + p1.y;
    const double cx = (b2 * ay - a2 * by) * k + p1.x;
    const double r = std::sqrt((p1.x - cx) * (p1.x - cx) + (p1.y - cy) * (p1.y - cy));
    start = DirectionAngle(p1.y - cy, p1.x - cx);
    end = DirectionAngle(p3.y - cy, p3.x - cx);
    mbr = {cx - r, cy - r, cx + r, cy + r};
    return true;
}

void FlipArcAngles(int16* a, int16* b, bool flipX, bool flipY) {
    if (flipX) {
        *a = Shorten(HalfTurn - *a);
        *b = Shorten(HalfTurn - *b);
    }
    if (flipY) {
        *a = Shorten(FullTurn - *a);
        *b = Shorten(FullTurn - *b);
    }
    if (flipX != flipY) std::swap(*a, *b);
    while (*a < 0) *a = Shorten(*a + FullTurn);
    while (*a >= FullTurn) *a = Shorten(*a - FullTurn);
    while (*b >= FullTurn) *b = Shorten(*b - FullTurn);
    RaiseAbove(*a, *b);
}

void LogCalcArcPoints(const LRECT& rect, int a, int b, LPNT* start, LPNT* end) {
    const Ellipse ellipse(rect);
    *start = ellipse.PointAt(a);
    *end = ellipse.PointAt(b);
}

}  // namespace Torvo
