// Bounds by merging, sums that hold at limits, segments, and which way round a polygon goes.
#include <Utility/geometry.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    LRECT bounds;
    InitRectForMerging(bounds);
    std::printf("empty: %s\n", YesOrNo(RectIsEmpty(bounds)));
    for (const LPNT point : {LPNT{30, 10}, LPNT{-5, 40}, LPNT{12, 12}}) MergeRectWithPoint(bounds, point);
    std::printf("bounds (%d, %d) to (%d, %d)\n", bounds.x1, bounds.y1, bounds.x2, bounds.y2);
    std::printf("a point on a side is inside: %s\n", YesOrNo(PointInRect(LPNT{30, 20}, bounds)));

    OffsetRect(bounds, 2147483647, 0, -1000000000, 1000000000);
    std::printf("moved far: x from %d to %d\n", bounds.x1, bounds.x2);

    DPNT crossing{};
    const bool cross = CrossDLines({0, 0}, {4, 4}, {0, 4}, {4, 0}, crossing);
    std::printf("they cross: %s, at (%g, %g)\n", YesOrNo(cross), crossing.x, crossing.y);

    const LPNT ring[] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}};
    std::printf("clockwise: %s\n", YesOrNo(IsClockwiseOrientation(ring, 5, nullptr)));
    std::printf("1 and 1.000001 agree in six digits: %s, in seven: %s\n",
                YesOrNo(EqualDoubles(1.0, 1.000001, SignificantDigits6)),
                YesOrNo(EqualDoubles(1.0, 1.000001, SignificantDigits7)));
    return 0;
}
