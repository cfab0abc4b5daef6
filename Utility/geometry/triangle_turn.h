// The turn of three points, for loops over many of them; IsClockwiseTriangle of <Utility/geometry.h> says what it
// means.
#pragma once

#include <Utility/geometry.h>

namespace Torvo::detail {

inline DPNT ToDouble(LPNT point) {
    return {double(point.x), double(point.y)};
}

inline bool TurnsClockwise(DPNT a, DPNT b, DPNT c) {
    return (c.y - a.y) * b.x + (b.y - c.y) * a.x + (a.y - b.y) * c.x <= 0;
}

}  // namespace Torvo::detail
