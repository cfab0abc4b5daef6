// A segment and a polygon cut down to a window.
#include <Utility/clipping.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    const LRECT window{0, 0, 100, 100};
    LPNT a{-50, 50};
    LPNT b{50, 250};
    std::printf("visible: %s\n", YesOrNo(ClipLine(&a, &b, &window)));

    a = {-50, 20};
    b = {150, 60};
    const bool through = ClipLine(&a, &b, &window);
    std::printf("visible: %s, (%d, %d) to (%d, %d)\n", YesOrNo(through), a.x, a.y, b.x, b.y);

    // A triangle that sticks out at the right. Its first point is repeated at the end: it is a polygon.
    LPNT triangle[] = {{50, 20}, {150, 50}, {50, 80}, {50, 20}};
    LPNT visible[6 * 4 + 6];  // always enough for four points
    int count = 4;
    if (!ClipPoly(triangle, visible, &window, &count, 30)) return 1;
    for (int i = 0; i < count; ++i) std::printf("(%d, %d) ", visible[i].x, visible[i].y);
    std::printf("\n");

    count = 4;
    const bool fits = ClipPoly(triangle, visible, &window, &count, 3);
    std::printf("room for three: %s\n", YesOrNo(fits));
    return 0;
}
