// Regions of rectangles; null stands for one that is not there yet.
#include <Utility/regions.h>

#include <cstdio>

#include "show.h"

namespace {

void Tell(const char* what, Torvo::HRGN region) {
    Torvo::LRECT bounds{};
    Torvo::rgn_bounding_rect(region, &bounds);
    std::printf("%s: (%d, %d) to (%d, %d)\n", what, bounds.x1, bounds.y1, bounds.x2, bounds.y2);
}

}  // namespace

int main() {
    using namespace Torvo;

    const LRECT left{0, 0, 10, 10};
    const LRECT right{20, 0, 30, 10};
    HRGN both = rgn_unionrect(nullptr, &left);
    both = rgn_unionrect(both, &right);
    Tell("both", both);

    const LRECT strip{5, 2, 25, 4};
    HRGN band = rgn_create(&strip);
    HRGN shared = rgn_intersect(both, band);
    Tell("shared", shared);
    std::printf("equal: %s\n", YesOrNo(rgn_equal(shared, band)));  // the gap is not in it
    Tell("none", nullptr);

    rgn_destroy(shared);
    rgn_destroy(band);
    rgn_destroy(both);
    return 0;
}
