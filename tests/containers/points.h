// Points in tests: how they are compared and shown, and what a container holds.
#pragma once

#include <Utility/point_containers.h>
#include <gtest/gtest.h>

#include <cstring>
#include <ostream>
#include <vector>

namespace Torvo::test {

// A point that is equal to another of the same bits, NaN and minus zero included.
struct Point : DPNT {
    Point() = default;
    Point(double px, double py) : DPNT{px, py} {}
    Point(const DPNT& point) : DPNT(point) {}
    bool operator==(const Point& other) const {
        return std::memcmp(&x, &other.x, sizeof x) == 0 && std::memcmp(&y, &other.y, sizeof y) == 0;
    }
};

inline std::ostream& operator<<(std::ostream& out, const Point& point) {
    return out << "(" << point.x << ", " << point.y << ")";
}

using Points = std::vector<Point>;

inline Points PointsOf(DPNTContainer& container) {
    uint64 count = 77;
    const DPNT* const points = container.GetPoints(count);
    return {points, points + count};
}

}  // namespace Torvo::test
