#include <Utility/clipping.h>
#include <Utility/geometry/clip_sides.h>

#include <bit>

namespace Torvo {

namespace {

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

// The coordinate of each side, in the order of the outcode's bits.
struct SideCoordinates {
    int32 of[detail::SideCount];

    explicit SideCoordinates(const LRECT& rect) : of{rect.x1, rect.x2, rect.y1, rect.y2} {}
};

// Moves an outside point along the segment to `other`, to the first side that it lies outside of. CrossingOf with the
// side as a value and without a branch: which side comes first cannot be predicted.
LPNT MovedToSide(LPNT point, uint32 outcode, LPNT other, const SideCoordinates& sides) {
    // There is always a bit; the last one stands in so that the compiler sees it.
    const int side = std::countr_zero(outcode | 1u << detail::HighY);
    const bool vertical = side <= detail::Right;
    const int32 dx = detail::WrappingSubtract(other.x, point.x);
    const int32 dy = detail::WrappingSubtract(other.y, point.y);
    const int32 target = sides.of[side];
    const int32 part = detail::WrappingSubtract(target, vertical ? point.x : point.y);
    const int32 offset = detail::OffsetToCrossing(vertical ? dy : dx, part, vertical ? dx : dy);
    const int32 moved = detail::WrappingAdd(vertical ? point.y : point.x, offset);
    return {vertical ? target : moved, vertical ? moved : target};
}

// Without wrapping each end moves at most twice.
constexpr int StepsWithoutWrap = 4;

}  // namespace

bool ClipLine(LPNT* a, LPNT* b, const LRECT* rect) {
    const SideCoordinates sides(*rect);
    LPNT endA = *a;
    LPNT endB = *b;
    uint32 codeA = OutcodeOf(endA, *rect);
    uint32 codeB = OutcodeOf(endB, *rect);
    LoopWatch watch;
    for (int step = 0; (codeA | codeB) != 0 && (codeA & codeB) == 0; ++step) {
        if (step >= StepsWithoutWrap && watch.ComesRound(endA, endB)) break;
        // The first end as long as it is outside, then the second; selections, as above.
        const bool first = codeA != 0;
        const LPNT moved = MovedToSide(first ? endA : endB, first ? codeA : codeB, first ? endB : endA, sides);
        const uint32 movedCode = OutcodeOf(moved, *rect);
        endA = first ? moved : endA;
        codeA = first ? movedCode : codeA;
        endB = first ? endB : moved;
        codeB = first ? codeB : movedCode;
    }
    *a = endA;
    *b = endB;
    return (codeA | codeB) == 0;
}

}  // namespace Torvo
