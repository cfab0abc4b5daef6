// The union of a region with a rectangle, with the system's call as an argument, so that a test can make it fail.
#pragma once

#include <Utility/regions.h>

namespace Torvo::detail {

using CombineCall = int (*)(HRGN target, HRGN a, HRGN b, int mode);

// rgn_unionrect on a region that is there.
HRGN UnionWithRect(HRGN region, const LRECT& rect, CombineCall combine);

}  // namespace Torvo::detail
