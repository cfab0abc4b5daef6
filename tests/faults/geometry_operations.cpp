// Rectangles, points, clipping, arcs: none of them needs anything. Regions and metafiles are records of the system's.
#include <Utility/arcs.h>
#include <Utility/clipping.h>
#include <Utility/geometry.h>
#include <Utility/metafiles.h>
#include <Utility/platform/host.h>
#include <Utility/regions.h>
#include <faults/operations.h>
#include <geometry/metafile_samples.h>

#include <climits>

namespace Torvo::test {

namespace geometry_operations {
namespace {

constexpr LRECT Square = {0, 0, 10, 10};
constexpr DRECT RealSquare = {0, 0, 10, 10};
constexpr LPNT Triangle[] = {{0, 0}, {0, 10}, {10, 0}};
constexpr DPNT RealTriangle[] = {{0, 0}, {0, 10}, {10, 0}};
constexpr int32 Low = INT_MIN;
constexpr int32 High = INT_MAX;

Operations RectangleOperations() {
    return {
        {"operator==", [] { return Square == Square && RealSquare == RealSquare && SRECT{} == SRECT{}; }},
        {"RectIsEmpty", [] { return !RectIsEmpty(Square) && !RectIsEmpty(RealSquare); }},
        {"RectIsZero", [] { return !RectIsZero(Square) && !RectIsZero(RealSquare); }},
        {"PointInRect",
         [] {
             return PointInRect(LPNT{1, 1}, Square) && PointInRect(DPNT{1, 1}, RealSquare);
         }},
        {"RectInRect", [] { return RectInRect(Square, Square) && RectInRect(RealSquare, RealSquare); }},
        {"RectsOverlap", [] { return RectsOverlap(Square, Square) && RectsOverlap(RealSquare, RealSquare); }},
        {"SetRect",
         [] {
             LRECT rect;
             DRECT real;
             SetRect(rect, 0, 0, 10, 10);
             SetRect(real, 0, 0, 10, 10);
             return rect == Square && real == RealSquare;
         }},
        {"SortRect",
         [] {
             LRECT rect = {10, 0, 0, 10};
             DRECT real = {10, 0, 0, 10};
             SortRect(rect);
             SortRect(real);
             return rect == Square && real == RealSquare;
         }},
        {"SortRectWithPoints",
         [] {
             LRECT rect;
             DRECT real;
             SortRectWithPoints(rect, LPNT{10, 0}, LPNT{0, 10});
             SortRectWithPoints(real, DPNT{10, 0}, DPNT{0, 10});
             return rect == Square && real == RealSquare;
         }},
        {"MergeRects",
         [] {
             LRECT rect;
             DRECT real;
             InitRectForMerging(rect);
             InitRectForMerging(real);
             MergeRects(rect, Square);
             MergeRects(real, RealSquare);
             return rect == Square && real == RealSquare;
         }},
        {"InitRectForMerging",
         [] {
             LRECT rect;
             InitRectForMerging(rect);
             return rect.x1 > rect.x2;
         }},
        {"InitShortRectForMerging",
         [] {
             LRECT rect;
             InitShortRectForMerging(rect);
             return rect.x1 > rect.x2;
         }},
        {"MergeRectWithPoint",
         [] {
             LRECT rect = Square;
             DRECT real = RealSquare;
             MergeRectWithPoint(rect, LPNT{20, 5});
             MergeRectWithPoint(real, DPNT{20, 5});
             return rect.x2 == 20 && real.x2 == 20;
         }},
        {"IntersectRects",
         [] {
             LRECT rect = Square;
             DRECT real = RealSquare;
             IntersectRects(rect, Square);
             IntersectRects(real, RealSquare);
             return rect == Square && real == RealSquare;
         }},
        {"GetRectFromPoints",
         [] {
             LRECT rect;
             GetRectFromPoints(rect, Triangle, 3);
             return rect == Square;
         }},
        {"GetCornersOfRect",
         [] {
             LPNT corners[4];
             DPNT real[4];
             GetCornersOfRect(Square, corners);
             GetCornersOfRect(RealSquare, real);
             return corners[0].x == 0 && real[0].x == 0;
         }},
        {"GetCenterOfRect",
         [] {
             LPNT center;
             DPNT real;
             GetCenterOfRect(Square, center);
             GetCenterOfRect(RealSquare, real);
             return center.x == 5 && real.x == 5;
         }},
        {"GetWidthHeightOfRect",
         [] {
             int32 width = 0;
             int32 height = 0;
             double realWidth = 0;
             double realHeight = 0;
             GetWidthHeightOfRect(Square, width, height);
             GetWidthHeightOfRect(RealSquare, realWidth, realHeight);
             return width == 10 && realWidth == 10;
         }},
        {"OffsetRect",
         [] {
             LRECT rect = Square;
             DRECT real = RealSquare;
             OffsetRect(rect, 1, 1, Low, High);
             OffsetRect(real, 1, 1);
             return rect.x1 == 1 && real.x1 == 1;
         }},
        {"ExpandRect",
         [] {
             LRECT rect = Square;
             DRECT real = RealSquare;
             ExpandRect(rect, 1, 1, Low, High);
             ExpandRect(real, 1, 1);
             return rect.x1 == -1 && real.x1 == -1;
         }},
        {"ExpandPointIntoRect",
         [] {
             LRECT rect;
             DRECT real;
             ExpandPointIntoRect(LPNT{5, 5}, rect, 5, 5, Low, High);
             ExpandPointIntoRect(DPNT{5, 5}, real, 5, 5);
             return rect == Square && real == RealSquare;
         }},
        {"ClipToLongRect",
         [] {
             LRECT rect;
             ClipToLongRect(Square, rect, 0, 5);
             return rect.x2 == 5;
         }},
        {"DoubleToLongRect",
         [] {
             LRECT rect;
             DoubleToLongRect(RealSquare, rect, Low, High);
             return rect == Square;
         }},
        {"LongToDoubleRect",
         [] {
             DRECT rect;
             LongToDoubleRect(Square, rect);
             return rect == RealSquare;
         }},
        {"CreateCircleMBR",
         [] {
             LRECT rect = {};
             CreateCircleMBR(rect, LPNT{5, 5}, LPNT{10, 5}, 1, 1);
             return rect.x2 > rect.x1;
         }},
        {"GetRotatedMBRPnts",
         [] {
             DPNT corners[4] = {};
             GetRotatedMBRPnts(&RealSquare, 450, 1, 1, corners);
             return true;
         }},
        {"RotateTextMBR",
         [] {
             DRECT rect = RealSquare;
             RotateTextMBR(&rect, 0, 1, 1);
             return true;
         }},
    };
}

Operations PointArrayOperations() {
    return {
        {"GetCenterOfPoints",
         [] {
             LPNT center;
             DPNT real;
             GetCenterOfPoints(LPNT{0, 0}, LPNT{10, 10}, center);
             GetCenterOfPoints(DPNT{0, 0}, DPNT{10, 10}, real);
             return center.x == 5 && real.x == 5;
         }},
        {"OffsetPoints",
         [] {
             LPNT points[] = {{1, 1}};
             DPNT real[] = {{1, 1}};
             OffsetPoints(points, 1, 1, 1, Low, High);
             OffsetPoints(real, 1, 1, 1);
             return points[0].x == 2 && real[0].x == 2;
         }},
        {"ClipPointToRect",
         [] {
             LPNT point = {20, 20};
             DPNT real = {20, 20};
             ClipPointToRect(point, Square);
             ClipPointToRect(real, RealSquare);
             return point.x == 10 && real.x == 10;
         }},
        {"ClipToLongPoints",
         [] {
             LPNT points[3];
             int count = 0;
             ClipToLongPoints(Triangle, points, 3, &count, 0, 5);
             return count > 0;
         }},
        {"DoubleToLongPoints",
         [] {
             LPNT points[3];
             DoubleToLongPoints(RealTriangle, points, 3, Low, High);
             return points[1].y == 10;
         }},
        {"LongToDoublePoints",
         [] {
             DPNT points[3];
             LongToDoublePoints(Triangle, points, 3);
             return points[1].y == 10;
         }},
        {"CopyPoints",
         [] {
             LPNT points[3];
             DPNT real[3];
             return CopyPoints(points, Triangle, 3) == points && CopyPoints(real, RealTriangle, 3) == real;
         }},
        {"MovePoints",
         [] {
             LPNT points[3];
             DPNT real[3];
             return MovePoints(points, Triangle, 3) == points && MovePoints(real, RealTriangle, 3) == real;
         }},
        {"ReverseNodes",
         [] {
             LPNT points[] = {{1, 1}, {2, 2}};
             DPNT real[] = {{1, 1}, {2, 2}};
             ReverseNodes(points, 2);
             ReverseNodes(real, 2);
             return points[0].x == 2 && real[0].x == 2;
         }},
        {"SubtractPoints",
         [] {
             DPNT difference;
             SubtractPoints(LPNT{3, 3}, LPNT{1, 1}, difference);
             SubtractPoints(DPNT{3, 3}, DPNT{1, 1}, difference);
             return difference.x == 2;
         }},
        {"CrossProductVecs",
         [] {
             return CrossProductVecs({1, 0}, {0, 1}) == 1;
         }},
        {"DotProductVecs",
         [] {
             return DotProductVecs({1, 0}, {0, 1}) == 0;
         }},
        {"NormL1Vec",
         [] {
             return NormL1Vec({3, 4}) == 7;
         }},
        {"CrossDLines",
         [] {
             DPNT out;
             return CrossDLines({0, 0}, {10, 10}, {0, 10}, {10, 0}, out);
         }},
        {"IsClockwiseTriangle",
         [] {
             return IsClockwiseTriangle(Triangle[0], Triangle[1], Triangle[2]) ==
                    IsClockwiseTriangle(RealTriangle[0], RealTriangle[1], RealTriangle[2]);
         }},
        {"IsClockwiseOrientation",
         [] {
             bool unused = false;
             return IsClockwiseOrientation(Triangle, 3, &unused) ==
                    IsClockwiseTriangle(Triangle[0], Triangle[1], Triangle[2]);
         }},
        {"ClipLine",
         [] {
             LPNT a = {-5, 5};
             LPNT b = {5, 5};
             return ClipLine(&a, &b, &Square) && a.x == 0;
         }},
        {"ClipPoly",
         [] {
             LPNT input[] = {{0, 0}, {0, 10}, {10, 0}, {0, 0}};
             LPNT output[20];
             int count = 4;
             return ClipPoly(input, output, &Square, &count, 20);
         }},
        {"CalcArcAngles",
         [] {
             int16 a = -1;
             int16 b = -1;
             CalcArcAngles(Square, LPNT{10, 5}, LPNT{5, 0}, &a, &b, false);
             return a >= 0 && b >= 0;
         }},
        {"CirclePointsToMBRAngles",
         [] {
             DRECT mbr;
             int16 start;
             int16 end;
             return CirclePointsToMBRAngles({0, 5}, {5, 10}, {10, 5}, mbr, start, end);
         }},
        {"FlipArcAngles",
         [] {
             int16 a = 0;
             int16 b = 900;
             FlipArcAngles(&a, &b, true, false);
             return true;
         }},
        {"LineIntersection",
         [] {
             LPNT out;
             return LineIntersection({0, 0}, {10, 10}, {0, 10}, {10, 0}, out) && out.x == 5;
         }},
        {"LogCalcArcPoints",
         [] {
             LPNT start;
             LPNT end;
             LogCalcArcPoints(Square, 0, 900, &start, &end);
             return true;
         }},
    };
}

// A region of two rectangles, which ends with the object.
struct SmallRegion {
    SmallRegion() {
        const LRECT away = {20, 20, 30, 30};
        region = rgn_unionrect(rgn_create(&Square), &away);
    }
    ~SmallRegion() { rgn_destroy(region); }
    SmallRegion(const SmallRegion&) = delete;
    SmallRegion& operator=(const SmallRegion&) = delete;
    HRGN region;
};

Operations RegionOperations() {
    return {
        {"rgn_create",
         [](Trial& trial) {
             HRGN region = nullptr;
             trial.Try(
                 [&] {
                     region = rgn_create(&Square);
                     return region != nullptr;
                 },
                 [&] { return region == nullptr; });
             rgn_destroy(region);
         }},
        {"rgn_destroy",
         [] {
             rgn_destroy(nullptr);
             return true;
         }},
        {"rgn_bounding_rect",
         [] {
             static const SmallRegion small;
             LRECT bounds = {};
             rgn_bounding_rect(small.region, &bounds);
             return bounds.x2 == 30;
         }},
        {"rgn_equal",
         [] {
             static const SmallRegion small;
             return rgn_equal(small.region, small.region);
         }},
        {"rgn_intersect",
         [](Trial& trial) {
             const SmallRegion small;
             HRGN region = nullptr;
             trial.Try(
                 [&] {
                     region = rgn_intersect(small.region, small.region);
                     return region != nullptr;
                 },
                 [&] { return region == nullptr; });
             EXPECT_TRUE(rgn_equal(region, small.region));
             rgn_destroy(region);
         }},
        {"rgn_unionrect",
         [](Trial& trial) {
             const SmallRegion small;
             const SmallRegion whole;
             const LRECT more = {40, 40, 50, 50};
             const LRECT bounds = {0, 0, 30, 30};
             rgn_unionrect(whole.region, &more);
             const HRGN box = rgn_create(&bounds);
             bool isShapeLost = false;
             trial.Try(
                 [&] {
                     EXPECT_EQ(rgn_unionrect(small.region, &more), small.region);
                     return rgn_equal(small.region, isShapeLost ? box : whole.region);
                 },
                 // It has lost its shape, and covers all that it covered.
                 [&] {
                     isShapeLost = rgn_equal(small.region, box);
                     rgn_unionrect(box, &more);
                     return isShapeLost;
                 });
             rgn_destroy(box);
         }},
    };
}

// A block of movable memory is freed by its own call.
void TryToGetBits(Trial& trial, const std::function<void*()>& call) {
    void* block = nullptr;
    trial.Try(
        [&] {
            block = call();
            return block != nullptr;
        },
        [&] { return block == nullptr; });
    EXPECT_GT(platform::GlobalSize(block), 0u);
    platform::GlobalFree(block);
}

// A block that is there once for all.
void* SomeBlock() {
    static void* const block = [] {
        const Bytes bytes = SmallMetaFile();
        const HMETAFILE metafile = platform::SetMetaFileBitsEx(static_cast<uint32>(bytes.size()), bytes.data());
        void* const bits = GetMetaFileBits(metafile);
        platform::DeleteMetaFile(metafile);
        return bits;
    }();
    return block;
}

Operations MetafileOperations() {
    return {
        {"platform::SetMetaFileBitsEx",
         [](Trial& trial) {
             const Bytes bytes = SmallMetaFile();
             HMETAFILE metafile = nullptr;
             trial.Try([&] {
                 metafile = platform::SetMetaFileBitsEx(static_cast<uint32>(bytes.size()), bytes.data());
                 return metafile != nullptr;
             });
             platform::DeleteMetaFile(metafile);
         }},
        {"platform::SetEnhMetaFileBits",
         [](Trial& trial) {
             const Bytes bytes = SmallEnhMetaFile();
             HENHMETAFILE metafile = nullptr;
             trial.Try([&] {
                 metafile = platform::SetEnhMetaFileBits(static_cast<uint32>(bytes.size()), bytes.data());
                 return metafile != nullptr;
             });
             platform::DeleteEnhMetaFile(metafile);
         }},
        {"platform::DeleteMetaFile", [] { return !platform::DeleteMetaFile(nullptr); }},
        {"platform::DeleteEnhMetaFile", [] { return !platform::DeleteEnhMetaFile(nullptr); }},
        {"GetMetaFileBits",
         [](Trial& trial) {
             const Bytes bytes = SmallMetaFile();
             const HMETAFILE metafile = platform::SetMetaFileBitsEx(static_cast<uint32>(bytes.size()), bytes.data());
             TryToGetBits(trial, [&] { return GetMetaFileBits(metafile); });
             platform::DeleteMetaFile(metafile);
         }},
        {"GetEnhancedMetaFileBits",
         [](Trial& trial) {
             const Bytes bytes = SmallEnhMetaFile();
             const HENHMETAFILE metafile =
                 platform::SetEnhMetaFileBits(static_cast<uint32>(bytes.size()), bytes.data());
             TryToGetBits(trial, [&] { return GetEnhancedMetaFileBits(metafile); });
             platform::DeleteEnhMetaFile(metafile);
         }},
        {"platform::GlobalLock", [] { return platform::GlobalLock(SomeBlock()) != nullptr; }},
        {"platform::GlobalUnlock",
         [] {
             platform::GlobalLock(SomeBlock());
             platform::GlobalLock(SomeBlock());
             return platform::GlobalUnlock(SomeBlock());
         }},
        {"platform::GlobalSize", [] { return platform::GlobalSize(SomeBlock()) > 0; }},
        {"platform::GlobalFree", [] { return platform::GlobalFree(nullptr) == nullptr; }},
    };
}

}  // namespace
}  // namespace geometry_operations

Operations GeometryOperations() {
    using namespace geometry_operations;
    Operations all = RectangleOperations();
    for (const auto family : {PointArrayOperations, RegionOperations, MetafileOperations}) {
        for (const Operation& operation : family()) all.push_back(operation);
    }
    return all;
}

}  // namespace Torvo::test
