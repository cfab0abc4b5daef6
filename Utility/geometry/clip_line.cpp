#include <Utility/clipping.h>
#include <Utility/geometry/sides.h>

#include <utility>

namespace Torvo {

namespace {

using detail::CrossingOf;
using detail::OutcodeOf;

bool SamePoint(LPNT a, LPNT b) {
    return a.x == b.x && a.y == b.y;
}

// Where differences wrap, moving an end to a side may carry it out beyond another one, and so on for ever. Such a
// segment comes back to a state that it was in: the watch keeps one to compare with, and takes a later one each time
// the number of steps has doubled (R. Brent, An improved Monte Carlo factorization algorithm, BIT 20, 1980).
class LoopWatch {
public:
    bool ComesRound(LPNT a, LPNT b) {
        if (SamePoint(a, keptA) && SamePoint(b, keptB)) return true;
        if (++steps == nextKeep) {
            keptA = a;
            keptB = b;
            nextKeep *= 2;
        }
        return false;
    }

private:
    LPNT keptA{};
    LPNT keptB{};
    uint64 steps = 0;
    uint64 nextKeep = 1;
};

// Moves an outside point along the segment to `other`, to the first side that it lies outside of.
LPNT MovedToSide(LPNT point, uint32 outcode, LPNT other, const LRECT& rect) {
    if ((outcode & 1 << detail::Left) != 0) return CrossingOf<detail::Left>(point, other, rect);
    if ((outcode & 1 << detail::Right) != 0) return CrossingOf<detail::Right>(point, other, rect);
    if ((outcode & 1 << detail::LowY) != 0) return CrossingOf<detail::LowY>(point, other, rect);
    return CrossingOf<detail::HighY>(point, other, rect);
}

// Without wrapping each end moves at most twice.
constexpr int StepsWithoutWrap = 4;

}  // namespace

bool ClipLine(LPNT* a, LPNT* b, const LRECT* rect) {
    LPNT outside = *a;
    LPNT other = *b;
    bool swapped = false;
    bool visible = false;
    LoopWatch watch;
    for (int step = 0;;) {
        uint32 outcode = OutcodeOf(outside, *rect);
        const uint32 otherOutcode = OutcodeOf(other, *rect);
        visible = (outcode | otherOutcode) == 0;
        if (visible || (outcode & otherOutcode) != 0) break;
        if (outcode == 0) {
            std::swap(outside, other);
            swapped = !swapped;
            outcode = otherOutcode;
        }
        outside = MovedToSide(outside, outcode, other, *rect);
        if (step < StepsWithoutWrap) {
            ++step;
        } else if (watch.ComesRound(outside, other)) {
            break;
        }
    }
    *a = swapped ? other : outside;
    *b = swapped ? outside : other;
    return visible;
}

}  // namespace Torvo
