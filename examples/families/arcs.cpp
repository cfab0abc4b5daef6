// Angles in tenths of a degree, the circle through three points, and where segments meet.
#include <Utility/arcs.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    const LRECT circle{0, 0, 200, 200};
    int16 start = 0;
    int16 end = 0;
    CalcArcAngles(circle, {200, 100}, {100, 200}, &start, &end, false);
    std::printf("from %d to %d\n", start, end);
    FlipArcAngles(&start, &end, true, false);
    std::printf("mirrored: from %d to %d\n", start, end);

    LPNT first{};
    LPNT last{};
    LogCalcArcPoints(circle, 0, 450, &first, &last);
    std::printf("an eighth: (%d, %d) to (%d, %d)\n", first.x, first.y, last.x, last.y);

    DRECT bounds{};
    const bool isCircle = CirclePointsToMBRAngles({1, 0}, {0, 1}, {-1, 0}, bounds, start, end);
    std::printf("a circle: %s, (%g, %g) to (%g, %g), from %d to %d\n", YesOrNo(isCircle), bounds.x1, bounds.y1,
                bounds.x2, bounds.y2, start, end);

    LPNT meeting{};
    const bool meet = LineIntersection({0, 0}, {10, 10}, {0, 9}, {9, 0}, meeting);
    std::printf("they meet: %s, at (%d, %d)\n", YesOrNo(meet), meeting.x, meeting.y);  // rounded from 4.5
    return 0;
}
