#include <Utility/geometry.h>
#include <Utility/geometry/triangle_turn.h>
#include <Utility/numbers/rounding.h>

#include <algorithm>

namespace Torvo {

namespace {

using detail::WrappingSubtract;

// A doubled signed area below this, of a triangle with integer corners, is 0 but for rounding.
constexpr double OnEdgeArea = 0.9;

struct Triangle {
    DPNT a;
    DPNT b;
    DPNT c;

    bool IsClockwise() const { return detail::TurnsClockwise(a, b, c); }

    bool Holds(LPNT point) const {
        const DPNT p = detail::ToDouble(point);
        const bool turn = detail::TurnsClockwise(p, a, b);
        return detail::TurnsClockwise(p, b, c) == turn && detail::TurnsClockwise(p, c, a) == turn;
    }

    LPNT Centroid() const {
        return {detail::TruncateToInt32((a.x + b.x + c.x) / 3.0), detail::TruncateToInt32((a.y + b.y + c.y) / 3.0)};
    }
};

struct Ring {
    const LPNT* points;
    int32 count;

    // The corner that begins at point i, with indices modulo count.
    Triangle CornerAt(int32 i) const {
        const auto at = [this](int64 index) { return detail::ToDouble(points[index % count]); };
        return {at(i), at(int64{i} + 1), at(int64{i} + 2)};
    }

    bool AnyOtherPointIn(const Triangle& triangle, int32 corner) const {
        const auto holds = [&triangle](LPNT point) { return triangle.Holds(point); };
        const int32 behind = static_cast<int32>(std::min<int64>(int64{corner} + 3, count));
        return std::any_of(points, points + corner, holds) || std::any_of(points + behind, points + count, holds);
    }
};

enum class EdgeSide { Skipped, OnEdge, NotCrossed, Crossed };

// What the ray from p to the right does with the edge a, b. The upper end does not belong to an edge, so that a vertex
// is not counted twice.
EdgeSide SideOfEdge(LPNT p, LPNT a, LPNT b) {
    const int32 lowY = std::min(a.y, b.y);
    const int32 highY = std::max(a.y, b.y);
    if (p.x > std::max(a.x, b.x) || p.y < lowY || p.y > highY) return EdgeSide::Skipped;
    const auto isPoint = [p](LPNT end) { return end.x == p.x && end.y == p.y; };
    if (isPoint(a) || isPoint(b)) return EdgeSide::OnEdge;
    const bool left = p.x < std::min(a.x, b.x);
    const bool horizontal = a.y == b.y;
    if (p.y == highY) return horizontal && !left ? EdgeSide::OnEdge : EdgeSide::Skipped;
    if (left) return EdgeSide::Crossed;
    if (horizontal || a.x == b.x) return EdgeSide::OnEdge;
    const LPNT low = a.y < b.y ? a : b;
    const LPNT high = a.y < b.y ? b : a;
    const double area = double(WrappingSubtract(high.x, low.x)) * double(WrappingSubtract(p.y, low.y)) -
                        double(WrappingSubtract(high.y, low.y)) * double(WrappingSubtract(p.x, low.x));
    if (area < OnEdgeArea && area > -OnEdgeArea) return EdgeSide::OnEdge;
    return area <= 0 ? EdgeSide::NotCrossed : EdgeSide::Crossed;
}

enum class Place { Inside, Outside, OnEdge };

Place PlaceOf(LPNT p, const Ring& ring) {
    bool inside = false;
    for (int32 i = 0; i + 1 < ring.count; ++i) {
        const EdgeSide side = SideOfEdge(p, ring.points[i], ring.points[i + 1]);
        if (side == EdgeSide::OnEdge) return Place::OnEdge;
        if (side == EdgeSide::Crossed) inside = !inside;
    }
    return inside ? Place::Inside : Place::Outside;
}

// Where the corner at point i lies, as told by its centre of gravity; OnEdge if the corner cannot tell. The cheap tests
// come first: rings of small steps have many corners whose centre, on whole numbers, falls out of the triangle.
Place PlaceOfCorner(const Ring& ring, const Triangle& triangle, int32 i) {
    const LPNT centroid = triangle.Centroid();
    if (!triangle.Holds(centroid) || ring.AnyOtherPointIn(triangle, i)) return Place::OnEdge;
    return PlaceOf(centroid, ring);
}

}  // namespace

bool IsClockwiseOrientation(const LPNT* points, int32 count, [[maybe_unused]] bool* unused) {
    if (count < 1) return false;
    const Ring ring{points, count};
    for (int32 i = 0; i < count; ++i) {
        const Triangle triangle = ring.CornerAt(i);
        const Place place = PlaceOfCorner(ring, triangle, i);
        if (place != Place::OnEdge) return triangle.IsClockwise() == (place == Place::Inside);
    }
    return ring.CornerAt(0).IsClockwise();
}

}  // namespace Torvo
