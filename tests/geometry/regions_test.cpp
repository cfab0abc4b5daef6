#include "geometry/random_shapes.h"

#include <Utility/regions.h>
#include <gtest/gtest.h>

#include <bitset>

namespace regions_test {
namespace {

using namespace Torvo;
using test::RandomShapes;

// A region that is destroyed at the end of the test.
class Region {
public:
    explicit Region(HRGN region = nullptr) : handle(region) {}
    explicit Region(const LRECT& rect) : handle(rgn_create(&rect)) {}
    ~Region() { rgn_destroy(handle); }
    Region(const Region&) = delete;
    Region& operator=(const Region&) = delete;

    HRGN Get() const { return handle; }
    LRECT Bounds() const {
        LRECT bounds{1, 2, 3, 4};
        rgn_bounding_rect(handle, &bounds);
        return bounds;
    }
    void Add(const LRECT& rect) { handle = rgn_unionrect(handle, &rect); }
    bool operator==(const Region& other) const { return rgn_equal(handle, other.handle); }

private:
    HRGN handle;
};

TEST(Regions, OfOneRectangleHaveItsBounds) {
    EXPECT_EQ(Region(LRECT{1, 2, 30, 40}).Bounds(), (LRECT{1, 2, 30, 40}));
    EXPECT_EQ(Region(LRECT{30, 40, 1, 2}).Bounds(), (LRECT{1, 2, 30, 40}));
    EXPECT_EQ(Region(LRECT{-50000000, -60000000, 50000000, 60000000}).Bounds(),
              (LRECT{-50000000, -60000000, 50000000, 60000000}));
}

TEST(Regions, WithoutAreaAreEmpty) {
    EXPECT_EQ(Region(LRECT{5, 5, 5, 9}).Bounds(), (LRECT{0, 0, 0, 0}));
    EXPECT_TRUE(Region(LRECT{5, 5, 5, 9}) == Region(LRECT{0, 0, 0, 0}));
}

TEST(Regions, NullHasZeroBounds) {
    EXPECT_EQ(Region().Bounds(), (LRECT{0, 0, 0, 0}));
    rgn_destroy(nullptr);
    EXPECT_EQ(rgn_create(nullptr), nullptr);
}

TEST(Regions, BoundsAreStoredNowhereForNull) {
    const Region region(LRECT{1, 2, 30, 40});
    rgn_bounding_rect(region.Get(), nullptr);
    rgn_bounding_rect(nullptr, nullptr);
    EXPECT_EQ(region.Bounds(), (LRECT{1, 2, 30, 40}));
}

TEST(Regions, EqualityOfNulls) {
    const Region region(LRECT{0, 0, 1, 1});
    EXPECT_TRUE(rgn_equal(nullptr, nullptr));
    EXPECT_FALSE(rgn_equal(nullptr, region.Get()));
    EXPECT_FALSE(rgn_equal(region.Get(), nullptr));
    EXPECT_TRUE(rgn_equal(region.Get(), region.Get()));
}

TEST(Regions, AreEqualWhenTheyCoverTheSame) {
    Region halves(LRECT{0, 0, 5, 10});
    halves.Add({5, 0, 10, 10});
    EXPECT_TRUE(halves == Region(LRECT{0, 0, 10, 10}));
    EXPECT_FALSE(halves == Region(LRECT{0, 0, 10, 11}));
}

TEST(Regions, IntersectionIsANewRegion) {
    const Region a(LRECT{0, 0, 10, 10});
    const Region b(LRECT{5, 5, 20, 20});
    const Region common(rgn_intersect(a.Get(), b.Get()));
    EXPECT_NE(common.Get(), a.Get());
    EXPECT_EQ(common.Bounds(), (LRECT{5, 5, 10, 10}));
    EXPECT_EQ(a.Bounds(), (LRECT{0, 0, 10, 10}));
    const Region apart(rgn_intersect(a.Get(), Region(LRECT{10, 0, 20, 10}).Get()));
    ASSERT_NE(apart.Get(), nullptr);
    EXPECT_EQ(apart.Bounds(), (LRECT{0, 0, 0, 0}));
}

TEST(Regions, IntersectionWithNullIsNull) {
    const Region region(LRECT{0, 0, 1, 1});
    EXPECT_EQ(rgn_intersect(region.Get(), nullptr), nullptr);
    EXPECT_EQ(rgn_intersect(nullptr, region.Get()), nullptr);
    EXPECT_EQ(rgn_intersect(nullptr, nullptr), nullptr);
}

TEST(Regions, UnionWithNullIsANewRegion) {
    const LRECT rect{1, 2, 3, 4};
    const Region region(rgn_unionrect(nullptr, &rect));
    EXPECT_EQ(region.Bounds(), rect);
}

TEST(Regions, UnionReturnsTheSameHandle) {
    const Region region(LRECT{0, 0, 10, 10});
    const LRECT rect{20, 20, 30, 30};
    EXPECT_EQ(rgn_unionrect(region.Get(), &rect), region.Get());
    EXPECT_EQ(region.Bounds(), (LRECT{0, 0, 30, 30}));
    EXPECT_FALSE(region == Region(LRECT{0, 0, 30, 30}));
    EXPECT_EQ(rgn_unionrect(region.Get(), nullptr), region.Get());
}

// Regions of a small grid, compared cell by cell with a set of bits.
class Grid {
public:
    static constexpr int Side = 12;

    void Add(const LRECT& rect) {
        for (int y = rect.y1; y < rect.y2; ++y) {
            for (int x = rect.x1; x < rect.x2; ++x) cells.set(static_cast<std::size_t>(y * Side + x));
        }
    }
    bool Has(int x, int y) const { return cells.test(static_cast<std::size_t>(y * Side + x)); }

    std::bitset<Side * Side> cells;
};

void ExpectCells(const Region& region, const Grid& grid) {
    for (int y = 0; y < Grid::Side; ++y) {
        for (int x = 0; x < Grid::Side; ++x) {
            const Region cell(LRECT{x, y, x + 1, y + 1});
            const Region common(rgn_intersect(region.Get(), cell.Get()));
            ASSERT_EQ(common == cell, grid.Has(x, y)) << x << ", " << y;
        }
    }
}

TEST(Regions, CoverTheCellsOfTheirRectangles) {
    RandomShapes random(101);
    for (int round = 0; round < 40; ++round) {
        Region a;
        Region b;
        Grid cellsA;
        Grid cellsB;
        for (int i = random.Int(1, 8); i > 0; --i) {
            LRECT rect;
            SortRectWithPoints(rect, LPNT{random.Int(0, Grid::Side), random.Int(0, Grid::Side)},
                               LPNT{random.Int(0, Grid::Side), random.Int(0, Grid::Side)});
            Region& region = i % 2 == 0 ? a : b;
            (i % 2 == 0 ? cellsA : cellsB).Add(rect);
            region.Add(rect);
        }
        if (a.Get() == nullptr) a.Add({0, 0, 0, 0});
        ExpectCells(a, cellsA);
        ExpectCells(b, cellsB);
        Grid both;
        both.cells = cellsA.cells & cellsB.cells;
        ExpectCells(Region(rgn_intersect(a.Get(), b.Get())), both);
        EXPECT_EQ(a == b, cellsA.cells == cellsB.cells);
    }
}

}  // namespace
}  // namespace regions_test
