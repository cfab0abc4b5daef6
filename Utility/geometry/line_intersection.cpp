#include <Utility/arcs.h>
#include <Utility/numbers/rounding.h>

#include <algorithm>

namespace Torvo {

namespace {

using detail::RoundToInt32;
using detail::WrappingSubtract;

bool SamePoint(LPNT a, LPNT b) {
    return a.x == b.x && a.y == b.y;
}

// Whether a value lies between two others, in either order, or equals one of them.
bool IsBetween(int32 value, int32 end1, int32 end2) {
    return std::min(end1, end2) <= value && value <= std::max(end1, end2);
}

bool AreApart(int32 p1, int32 p2, int32 q1, int32 q2) {
    return std::max(p1, p2) < std::min(q1, q2) || std::min(p1, p2) > std::max(q1, q2);
}

struct Segment {
    LPNT a;
    LPNT b;

    int32 Width() const { return WrappingSubtract(b.x, a.x); }
    int32 Height() const { return WrappingSubtract(b.y, a.y); }
    bool IsVertical() const { return Width() == 0; }
    double Slope() const { return double(Height()) / double(Width()); }
    double YAt0(double slope) const { return a.y - a.x * slope; }
    // The rounded y at an x that need not be whole.
    int32 YAt(double x, double slope) const { return RoundToInt32((x - a.x) * slope + a.y); }

    bool BoundsHold(LPNT point) const { return IsBetween(point.x, a.x, b.x) && IsBetween(point.y, a.y, b.y); }
};

// A point of the overlap of two segments on one line, compared along the coordinate `along`.
LPNT OverlapPoint(const Segment& p, const Segment& q, int32 LPNT::*along) {
    const auto liesOn = [along](LPNT point, const Segment& s) {
        return IsBetween(point.*along, s.a.*along, s.b.*along);
    };
    if (liesOn(p.a, q)) return p.a;
    if (liesOn(p.b, q)) return p.b;
    return liesOn(q.a, p) ? q.a : q.b;
}

enum class Lines { Parallel, OverlapKnown, CrossingKnown };

// Of lines neither of which is vertical.
Lines MeetSlopes(const Segment& p, const Segment& q, LPNT& out) {
    const double m1 = p.Slope();
    const double m2 = q.Slope();
    if (m1 == m2) {
        if (p.YAt0(m1) != q.YAt0(m2)) return Lines::Parallel;
        out = OverlapPoint(p, q, &LPNT::x);
        return Lines::OverlapKnown;
    }
    const double x = (p.a.x * m1 - q.a.x * m2 + q.a.y - p.a.y) / (m1 - m2);
    out = {RoundToInt32(x), p.YAt(x, m1)};
    return Lines::CrossingKnown;
}

Lines Meet(const Segment& p, const Segment& q, LPNT& out) {
    if (!p.IsVertical() && !q.IsVertical()) return MeetSlopes(p, q, out);
    if (p.IsVertical() && q.IsVertical()) {
        out = OverlapPoint(p, q, &LPNT::y);
        return Lines::OverlapKnown;
    }
    const Segment& vertical = p.IsVertical() ? p : q;
    const Segment& other = p.IsVertical() ? q : p;
    out = {vertical.a.x, other.YAt(vertical.a.x, other.Slope())};
    return Lines::CrossingKnown;
}

}  // namespace

bool LineIntersection(const LPNT& p1, const LPNT& p2, const LPNT& q1, const LPNT& q2, LPNT& out) {
    if (AreApart(p1.x, p2.x, q1.x, q2.x) || AreApart(p1.y, p2.y, q1.y, q2.y)) return false;
    // Copies, because `out` may be one of the points.
    const Segment p{p1, p2};
    const Segment q{q1, q2};
    for (const LPNT end : {p.a, p.b}) {
        if (SamePoint(end, q.a) || SamePoint(end, q.b)) {
            out = end;
            return true;
        }
    }
    switch (Meet(p, q, out)) {
        case Lines::Parallel:
            return false;
        case Lines::OverlapKnown:
            return true;
        default:
            return p.BoundsHold(out) && q.BoundsHold(out);
    }
}

}  // namespace Torvo
