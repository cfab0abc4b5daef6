// What is left of a polygon, compared with what an independent library leaves of it: the area, and which points of the
// rectangle are inside. On coordinates so large that rounding to whole numbers does not matter.
#include "geometry/random_shapes.h"

#include <Utility/clipping.h>
#include <gtest/gtest.h>

#if defined(TORVO_TEST_WITH_GEOS)
#include <geos_c.h>

#include <cmath>
#include <memory>

namespace clip_area_test {
namespace {

using namespace Torvo;
using test::Points;
using test::RandomShapes;

using Geometry = std::unique_ptr<GEOSGeometry, void (*)(GEOSGeometry*)>;

Geometry Own(GEOSGeometry* geometry) {
    return {geometry, GEOSGeom_destroy};
}

Geometry ToGeos(const Points& ring) {
    GEOSCoordSequence* sequence = GEOSCoordSeq_create(static_cast<unsigned>(ring.size()), 2);
    for (unsigned i = 0; i < ring.size(); ++i) GEOSCoordSeq_setXY(sequence, i, ring[i].x, ring[i].y);
    return Own(GEOSGeom_createPolygon(GEOSGeom_createLinearRing(sequence), nullptr, 0));
}

Geometry ToGeos(const LRECT& rect) {
    return ToGeos(
        Points{{rect.x1, rect.y1}, {rect.x1, rect.y2}, {rect.x2, rect.y2}, {rect.x2, rect.y1}, {rect.x1, rect.y1}});
}

double AreaOf(const Geometry& geometry) {
    double area = 0;
    GEOSArea(geometry.get(), &area);
    return area;
}

double SignedArea(const Points& ring) {
    double twice = 0;
    for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
        twice += double(ring[i].x) * ring[i + 1].y - double(ring[i + 1].x) * ring[i].y;
    }
    return twice / 2;
}

double PerimeterOf(const Points& ring) {
    double length = 0;
    for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
        length += std::hypot(double(ring[i + 1].x) - ring[i].x, double(ring[i + 1].y) - ring[i].y);
    }
    return length;
}

// By counting crossings of a ray to the right; not for points on an edge.
bool Holds(const Points& ring, double x, double y) {
    bool inside = false;
    for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
        const LPNT a = ring[i];
        const LPNT b = ring[i + 1];
        if ((a.y > y) == (b.y > y)) continue;
        if (x < a.x + (y - a.y) * (double(b.x) - a.x) / (double(b.y) - a.y)) inside = !inside;
    }
    return inside;
}

Points Clipped(Points ring, const LRECT& rect) {
    Points result(6 * ring.size() + 6);
    int count = static_cast<int>(ring.size());
    EXPECT_TRUE(ClipPoly(ring.data(), result.data(), &rect, &count, static_cast<int>(result.size())));
    result.resize(static_cast<std::size_t>(count));
    return result;
}

class ClippedArea : public testing::Test {
protected:
    void SetUp() override { initGEOS(nullptr, nullptr); }
    void TearDown() override { finishGEOS(); }
};

TEST_F(ClippedArea, OfSimplePolygonsIsThatOfTheIntersection) {
    RandomShapes random(91);
    int cut = 0;
    for (int i = 0; i < 3000; ++i) {
        const Points star = random.Star(random.Int(3, 80), 1e7, random.PointWithin(2000000));
        const LRECT rect = random.SortedRectWithin(10000000);
        const Points clipped = Clipped(star, rect);
        const Geometry expected = Own(GEOSIntersection(ToGeos(star).get(), ToGeos(rect).get()));
        ASSERT_TRUE(expected);
        const double area = AreaOf(expected);
        for (const LPNT p : clipped) ASSERT_TRUE(PointInRect(p, rect));
        // Each crossing may be off by a rounding, and moves the area by that times the length of its edges.
        ASSERT_NEAR(SignedArea(clipped), area, 2 * PerimeterOf(clipped) + 1) << i;
        cut += area > 0 && area < 0.999 * SignedArea(star);
    }
    EXPECT_GT(cut, 1000);
}

TEST_F(ClippedArea, HoldsThePointsThatTheIntersectionHolds) {
    RandomShapes random(92);
    int inside = 0;
    for (int i = 0; i < 500; ++i) {
        const Points star = random.Star(random.Int(3, 40), 1e7, random.PointWithin(2000000));
        const LRECT rect = random.SortedRectWithin(10000000);
        const Points clipped = Clipped(star, rect);
        const Geometry expected = Own(GEOSIntersection(ToGeos(star).get(), ToGeos(rect).get()));
        const Geometry boundary = Own(GEOSBoundary(expected.get()));
        for (int k = 0; k < 40; ++k) {
            const double x = random.Real(-1.2e7, 1.2e7);
            const double y = random.Real(-1.2e7, 1.2e7);
            const Geometry point = Own(GEOSGeom_createPointFromXY(x, y));
            double distance = 0;
            if (!GEOSisEmpty(boundary.get()) && GEOSDistance(boundary.get(), point.get(), &distance) && distance < 4) {
                continue;
            }
            const bool expectedInside = GEOSContains(expected.get(), point.get()) == 1;
            ASSERT_EQ(Holds(clipped, x, y), expectedInside) << i << ": " << x << " " << y;
            inside += expectedInside;
        }
    }
    EXPECT_GT(inside, 500);
}

TEST_F(ClippedArea, OfASegmentIsTheLengthThatIsLeft) {
    RandomShapes random(93);
    for (int i = 0; i < 5000; ++i) {
        const LRECT rect = random.SortedRectWithin(1000000);
        LPNT a = random.PointWithin(2000000);
        LPNT b = random.PointWithin(2000000);
        GEOSCoordSequence* sequence = GEOSCoordSeq_create(2, 2);
        GEOSCoordSeq_setXY(sequence, 0, a.x, a.y);
        GEOSCoordSeq_setXY(sequence, 1, b.x, b.y);
        const Geometry line = Own(GEOSGeom_createLineString(sequence));
        const Geometry expected = Own(GEOSIntersection(line.get(), ToGeos(rect).get()));
        double length = 0;
        GEOSLength(expected.get(), &length);
        const bool visible = ClipLine(&a, &b, &rect);
        const double left = visible ? std::hypot(double(b.x) - a.x, double(b.y) - a.y) : 0;
        ASSERT_NEAR(left, length, 20 + 1e-5 * length);
    }
}

}  // namespace
}  // namespace clip_area_test

#else

TEST(ClippedArea, OfSimplePolygonsIsThatOfTheIntersection) {
    GTEST_SKIP() << "no independent geometry library (GEOS) for this target";
}

#endif
