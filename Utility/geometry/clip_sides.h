// The four sides of a clipping rectangle: on which of them a point lies outside, and where a segment crosses one.
#pragma once

#include <Utility/geometry.h>
#include <Utility/numbers/rounding.h>

namespace Torvo::detail {

// In the order in which clipping takes them; the outcode's bit of a side is 1 << side.
enum Side { Left = 0, Right, LowY, HighY };

inline constexpr int SideCount = 4;

inline uint32 OutcodeOf(LPNT point, const LRECT& rect) {
    return static_cast<uint32>(point.x < rect.x1) << Left | static_cast<uint32>(point.x > rect.x2) << Right |
           static_cast<uint32>(point.y < rect.y1) << LowY | static_cast<uint32>(point.y > rect.y2) << HighY;
}

// The change of one coordinate from `from` to the crossing, when the other coordinate changes by `part` of `whole` and
// this one by `change` over the whole. Differences have wrapped already; `whole` is not 0.
inline int32 OffsetToCrossing(int32 change, int32 part, int32 whole) {
    return RoundToInt32(double(change) * double(part) / double(whole));
}

// Where the segment from a to b crosses a side that they lie on different sides of, counted from a.
template <Side S>
inline LPNT CrossingOf(LPNT a, LPNT b, const LRECT& rect) {
    const int32 dx = WrappingSubtract(b.x, a.x);
    const int32 dy = WrappingSubtract(b.y, a.y);
    if constexpr (S == Left || S == Right) {
        const int32 x = S == Left ? rect.x1 : rect.x2;
        return {x, WrappingAdd(a.y, OffsetToCrossing(dy, WrappingSubtract(x, a.x), dx))};
    } else {
        const int32 y = S == LowY ? rect.y1 : rect.y2;
        return {WrappingAdd(a.x, OffsetToCrossing(dx, WrappingSubtract(y, a.y), dy)), y};
    }
}

}  // namespace Torvo::detail
