#include <Utility/clipping.h>
#include <Utility/geometry/clip_sides.h>
#include <Utility/geometry/coordinate_lanes.h>

#include <algorithm>
#include <bit>
#include <cstddef>

// The polygon runs through four stages, one for each side, and each stage hands on what lies within its side: a vertex
// inside as it is, and the crossing wherever the path goes from one side of it to the other. A stage remembers the
// first and the last vertex that it saw; of a closed polygon, the edge from the last to the first is tested at the end.
//
// Most points of large polygons lie in runs, all inside or all beyond the same sides. The pipeline does nothing with
// such a run but remember its last point, so runs are found and passed over two points at a time. Removing those two
// shortcuts changes the speed and nothing else.

namespace Torvo {

namespace {

using detail::CrossingOf;
using detail::LoadPoints;
using detail::OutcodeOf;
using detail::PointsPerRegister;
using detail::Side;
using detail::SideCount;
using detail::StorePoints;

struct ClipVertex {
    LPNT point;
    uint32 outcode;
};

bool SamePoint(LPNT a, LPNT b) {
    return a.x == b.x && a.y == b.y;
}

bool Differ(uint32 outcodeA, uint32 outcodeB, Side side) {
    return ((outcodeA ^ outcodeB) >> side & 1) != 0;
}

bool IsOutside(uint32 outcode, Side side) {
    return (outcode >> side & 1) != 0;
}

// The caller's buffer, and the count that goes on when it is full.
class Output {
public:
    Output(LPNT* target, int maxOutput) : buffer(target), next(target), capacity(maxOutput) {}

    int64 Count() const { return count; }
    int64 Room() const { return capacity - count; }
    bool Overflowed() const { return count > capacity; }

    void Emit(LPNT point) {
        if (!isFirstSet) {
            first = point;
            isFirstSet = true;
        }
        // A full buffer counts what would repeat the last point, too.
        if (count >= capacity || !RepeatsLast(point)) Append(point);
    }

    // Repeats the first point, unless it is the last one too.
    void Close() {
        if (isFirstSet && !RepeatsLast(first)) Append(first);
    }

    // For a writer that fills the buffer itself: where the next point goes, and how many it has put there. Emit has
    // been called before, and there is room for them.
    LPNT* Next() const { return next; }
    void Wrote(int64 points) {
        next += points;
        count += points;
    }

private:
    bool RepeatsLast(LPNT point) const { return next != buffer && SamePoint(point, next[-1]); }

    void Append(LPNT point) {
        if (count < capacity) *next++ = point;
        ++count;
    }

    LPNT* const buffer;
    LPNT* next;
    const int64 capacity;
    int64 count = 0;
    LPNT first{};
    bool isFirstSet = false;
};

class Pipeline {
public:
    Pipeline(const LRECT& clipRect, Output& target) : rect(clipRect), output(target) {}

    // The way of every point.
    void Pass(LPNT point, uint32 outcode) { Feed<detail::Left>({point, outcode}); }

    // The short way of a point inside that follows one inside, or nothing: no stage has anything to cut.
    void PassInside(LPNT point) {
        output.Emit(point);
        RememberLast({point, 0}, detail::HighY);
        for (int side = detail::HighY; side >= 0 && !seen[side]; --side) {
            first[side] = {point, 0};
            seen[side] = true;
        }
    }

    // Makes the vertex the last one that the stages up to `deepest` have seen.
    void RememberLast(const ClipVertex& vertex, int deepest) { std::fill(last, last + deepest + 1, vertex); }

    // The edge from each stage's last vertex to its first.
    void CloseStages() {
        CloseStage<detail::Left>();
        CloseStage<detail::Right>();
        CloseStage<detail::LowY>();
        CloseStage<detail::HighY>();
    }

private:
    template <Side S>
    void Feed(const ClipVertex& vertex) {
        if (!seen[S]) {
            first[S] = vertex;
            seen[S] = true;
        } else if (Differ(vertex.outcode, last[S].outcode, S)) {
            HandOnCrossing<S>(vertex.point, last[S].point);
        }
        last[S] = vertex;
        if (!IsOutside(vertex.outcode, S)) HandOn<S>(vertex);
    }

    template <Side S>
    void HandOn(const ClipVertex& vertex) {
        if constexpr (S == detail::HighY) {
            output.Emit(vertex.point);
        } else {
            Feed<static_cast<Side>(S + 1)>(vertex);
        }
    }

    // The crossing gets an outcode of its own: rounding may have put it just outside another side.
    template <Side S>
    void HandOnCrossing(LPNT a, LPNT b) {
        const LPNT crossing = CrossingOf<S>(a, b, rect);
        HandOn<S>({crossing, OutcodeOf(crossing, rect)});
    }

    template <Side S>
    void CloseStage() {
        if (seen[S] && Differ(first[S].outcode, last[S].outcode, S)) {
            HandOnCrossing<S>(last[S].point, first[S].point);
        }
    }

    const LRECT& rect;
    Output& output;
    ClipVertex first[SideCount];
    ClipVertex last[SideCount];
    bool seen[SideCount] = {};
};

// Finds runs of points, two at a time, so that the length of a run is even and may fall short of the whole by one.
class Runs {
public:
    explicit Runs(const LRECT& rect)
        : low(_mm_set_epi32(rect.y1, rect.x1, rect.y1, rect.x1)),
          high(_mm_set_epi32(rect.y2, rect.x2, rect.y2, rect.x2)) {}

    // How many of the points from `begin` on have the outcode of the one before them.
    std::ptrdiff_t LikeTheOneBefore(const LPNT* begin, const LPNT* end) const {
        const __m128i one = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(begin - 1));
        const __m128i reference = _mm_unpacklo_epi64(one, one);
        const __m128i below = Below(reference);
        const __m128i above = Above(reference);
        const LPNT* at = begin;
        for (; end - at >= PointsPerRegister; at += PointsPerRegister) {
            const __m128i points = LoadPoints(at);
            const __m128i sameBelow = _mm_cmpeq_epi32(Below(points), below);
            const __m128i sameAbove = _mm_cmpeq_epi32(Above(points), above);
            if (_mm_movemask_epi8(_mm_and_si128(sameBelow, sameAbove)) != AllBytes) break;
        }
        return at - begin;
    }

    // Copies those of the points from `begin` on that lie inside and do not repeat the one before them, and tells how
    // many they were. The point before them has to be the last in the output.
    std::ptrdiff_t CopyInside(const LPNT* begin, const LPNT* end, LPNT* target) const {
        const LPNT* at = begin;
        for (; end - at >= PointsPerRegister; at += PointsPerRegister) {
            const __m128i points = LoadPoints(at);
            const __m128i outside = _mm_or_si128(Below(points), Above(points));
            const __m128i equal = _mm_cmpeq_epi32(points, LoadPoints(at - 1));
            // Both coordinates of a point: the lanes beside each other.
            const __m128i repeats = _mm_and_si128(equal, _mm_shuffle_epi32(equal, _MM_SHUFFLE(2, 3, 0, 1)));
            if (_mm_movemask_epi8(_mm_or_si128(outside, repeats)) != 0) break;
            StorePoints(target + (at - begin), points);
        }
        return at - begin;
    }

private:
    static constexpr int AllBytes = 0xFFFF;

    __m128i Below(__m128i points) const { return _mm_cmpgt_epi32(low, points); }
    __m128i Above(__m128i points) const { return _mm_cmpgt_epi32(points, high); }

    const __m128i low;
    const __m128i high;
};

class PolygonClipper {
public:
    PolygonClipper(const LRECT& clipRect, LPNT* target, int maxOutput)
        : rect(clipRect), runs(clipRect), output(target, maxOutput), pipeline(clipRect, output) {}

    void Clip(const LPNT* points, int count) {
        const LPNT* const end = points + count;
        const bool closed = SamePoint(points[0], end[-1]);
        PassAll(points, end);
        if (!closed) return;
        pipeline.CloseStages();
        output.Close();
    }

    int64 Count() const { return output.Count(); }
    bool Fitted() const { return !output.Overflowed(); }

private:
    void PassAll(const LPNT* at, const LPNT* end) {
        uint32 previous = 0;
        while (at < end && !output.Overflowed()) {
            const LPNT point = *at++;
            const uint32 outcode = OutcodeOf(point, rect);
            if ((outcode | previous) == 0) {
                pipeline.PassInside(point);
                at += PassRunInside(at, end);
            } else {
                pipeline.Pass(point, outcode);
                if (outcode != 0) at += PassRunOutside(at, end, outcode);
            }
            previous = outcode;
        }
    }

    std::ptrdiff_t PassRunInside(const LPNT* begin, const LPNT* end) {
        if (output.Room() < PointsPerRegister) return 0;
        const LPNT* const stop = begin + std::min<int64>(end - begin, output.Room());
        const std::ptrdiff_t length = runs.CopyInside(begin, stop, output.Next());
        output.Wrote(length);
        if (length != 0) pipeline.RememberLast({begin[length - 1], 0}, detail::HighY);
        return length;
    }

    // The stages up to the first side that the points lie beyond see them, and those behind it do not.
    std::ptrdiff_t PassRunOutside(const LPNT* begin, const LPNT* end, uint32 outcode) {
        if (output.Overflowed()) return 0;
        const std::ptrdiff_t length = runs.LikeTheOneBefore(begin, end);
        if (length != 0) pipeline.RememberLast({begin[length - 1], outcode}, std::countr_zero(outcode));
        return length;
    }

    const LRECT& rect;
    const Runs runs;
    Output output;
    Pipeline pipeline;
};

}  // namespace

bool ClipPoly(LPNT* input, LPNT* output, const LRECT* rect, int* count, int maxOutput) {
    PolygonClipper clipper(*rect, output, maxOutput);
    if (*count > 0) clipper.Clip(input, *count);
    *count = static_cast<int>(clipper.Count());
    return clipper.Fitted();
}

}  // namespace Torvo
