// Random coordinates and shapes for property tests. The values are made to meet: small ranges, ranges round the limits
// of 32 bits, and repeated points come up as often as wide ones. Everything follows from the seed.
#pragma once

#include <Utility/geometry.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <ostream>
#include <random>
#include <vector>

namespace Torvo {

// How the test framework prints them, and compares points, which the library does not.
inline std::ostream& operator<<(std::ostream& out, const LPNT& p) {
    return out << '(' << p.x << ", " << p.y << ')';
}
inline std::ostream& operator<<(std::ostream& out, const DPNT& p) {
    return out << '(' << p.x << ", " << p.y << ')';
}
inline std::ostream& operator<<(std::ostream& out, const LRECT& r) {
    return out << '[' << r.x1 << ", " << r.y1 << ", " << r.x2 << ", " << r.y2 << ']';
}
inline std::ostream& operator<<(std::ostream& out, const DRECT& r) {
    return out << '[' << r.x1 << ", " << r.y1 << ", " << r.x2 << ", " << r.y2 << ']';
}
inline bool operator==(const LPNT& a, const LPNT& b) {
    return a.x == b.x && a.y == b.y;
}
inline bool operator==(const DPNT& a, const DPNT& b) {
    return a.x == b.x && a.y == b.y;
}

namespace test {

inline constexpr int32 Lowest = std::numeric_limits<int32>::min();
inline constexpr int32 Highest = std::numeric_limits<int32>::max();

using Points = std::vector<LPNT>;

class RandomShapes {
public:
    explicit RandomShapes(uint64 seed) : random(seed) {}

    int32 Int(int32 low, int32 high) { return std::uniform_int_distribution<int32>(low, high)(random); }
    double Real(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random); }
    bool OneIn(int32 n) { return Int(1, n) == 1; }

    // A coordinate from a small range, near a limit of 32 bits, or from anywhere.
    int32 Coordinate() {
        switch (Int(0, 4)) {
            case 0:
                return Int(Lowest, Highest);
            case 1:
                return Int(Lowest, Lowest + 5);
            case 2:
                return Int(Highest - 5, Highest);
            default:
                return Int(-12, 12);
        }
    }

    LPNT Point() { return {Coordinate(), Coordinate()}; }
    LPNT PointWithin(int32 limit) { return {Int(-limit, limit), Int(-limit, limit)}; }

    LRECT SortedRectWithin(int32 limit) {
        LRECT rect;
        SortRectWithPoints(rect, PointWithin(limit), PointWithin(limit));
        return rect;
    }

    // A line of points within a square, with runs of repeated points and of points in one row or column.
    Points Path(int32 count, int32 limit) {
        Points points;
        for (int32 i = 0; i < count; ++i) {
            LPNT point = PointWithin(limit);
            if (i > 0 && OneIn(6)) point = points.back();
            if (i > 0 && OneIn(5)) point.x = points.back().x;
            if (i > 0 && OneIn(5)) point.y = points.back().y;
            points.push_back(point);
        }
        return points;
    }

    // A closed ring without self-intersections, given counterclockwise: points at growing angles round the centre. Each
    // gap between two angles stays below half a turn, so that the centre is inside.
    Points Star(int32 count, double radius, LPNT centre) {
        Points points;
        for (int32 i = 0; i < count; ++i) {
            const double angle = (i + Real(0.0, 0.8)) * 2.0 * 3.141592653589793 / count;
            const double r = radius * Real(0.2, 1.0);
            points.push_back({centre.x + static_cast<int32>(std::lround(r * std::cos(angle))),
                              centre.y + static_cast<int32>(std::lround(r * std::sin(angle)))});
        }
        points.push_back(points.front());
        return points;
    }

private:
    std::mt19937_64 random;
};

}  // namespace test
}  // namespace Torvo
