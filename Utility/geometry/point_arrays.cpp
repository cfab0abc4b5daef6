#include <Utility/geometry.h>
#include <Utility/geometry/coordinate_lanes.h>
#include <Utility/numbers/rounding.h>

#include <algorithm>
#include <cstring>

// Arrays of points. The functions over LPNT work on two points in a register and finish a last odd point by itself.

namespace Torvo {

namespace {

using detail::Clamp;
using detail::LimitLanes;
using detail::LoadPoints;
using detail::OffsetLanes;
using detail::PointsPerRegister;
using detail::RoundingLanes;
using detail::StorePoints;

LPNT ClampPoint(LPNT point, int32 low, int32 high) {
    return {Clamp(point.x, low, high), Clamp(point.y, low, high)};
}

bool SamePoint(LPNT a, LPNT b) {
    return a.x == b.x && a.y == b.y;
}

void ClampAll(const LPNT* source, LPNT* target, int32 count, int32 low, int32 high) {
    const LimitLanes limits(low, high);
    int32 i = 0;
    for (; i + PointsPerRegister <= count; i += PointsPerRegister) {
        StorePoints(target + i, limits.Clamp(LoadPoints(source + i)));
    }
    if (i < count) target[i] = ClampPoint(source[i], low, high);
}

// The same, without the points that are held where the one before them is; the result is how many are left.
int32 ClampDistinct(const LPNT* source, LPNT* target, int32 count, int32 low, int32 high) {
    const LimitLanes limits(low, high);
    int32 written = 0;
    const auto append = [&](LPNT point) {
        if (written == 0 || !SamePoint(point, target[written - 1])) target[written++] = point;
    };
    append(ClampPoint(source[0], low, high));
    int32 i = 1;
    // Only saves time: two points that differ from those before them are written at once.
    for (; i + PointsPerRegister <= count; i += PointsPerRegister) {
        const __m128i pair = limits.Clamp(LoadPoints(source + i));
        const __m128i last = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(target + written - 1));
        const __m128i equal = _mm_cmpeq_epi32(pair, _mm_unpacklo_epi64(last, pair));
        const int lanes = _mm_movemask_ps(_mm_castsi128_ps(equal));
        const bool repeats = (lanes & 3) == 3 || (lanes & 12) == 12;
        if (repeats) {
            LPNT points[PointsPerRegister];
            StorePoints(points, pair);
            for (const LPNT point : points) append(point);
        } else {
            StorePoints(target + written, pair);
            written += PointsPerRegister;
        }
    }
    if (i < count) append(ClampPoint(source[i], low, high));
    return written;
}

template <typename Point>
Point* CopyBytes(Point* target, const Point* source, uint64 count) {
    if (count != 0) std::memcpy(target, source, count * sizeof(Point));
    return target;
}

template <typename Point>
Point* MoveBytes(Point* target, const Point* source, uint64 count) {
    if (count != 0) std::memmove(target, source, count * sizeof(Point));
    return target;
}

template <typename Point>
void Reverse(Point* points, int32 count) {
    if (count > 1) std::reverse(points, points + count);
}

}  // namespace

void GetRectFromPoints(LRECT& rect, const LPNT* points, int32 count) {
    constexpr int32 PointsPerStep = 2 * PointsPerRegister;
    InitRectForMerging(rect);
    int32 i = 0;
    if (count >= PointsPerStep) {
        // Two registers for each bound, so that their chains of comparisons run side by side.
        __m128i low[2] = {LoadPoints(points), LoadPoints(points + PointsPerRegister)};
        __m128i high[2] = {low[0], low[1]};
        for (i = PointsPerStep; i + PointsPerStep <= count; i += PointsPerStep) {
            for (int part = 0; part < 2; ++part) {
                const __m128i lanes = LoadPoints(points + i + part * PointsPerRegister);
                low[part] = detail::Smaller(low[part], lanes);
                high[part] = detail::Larger(high[part], lanes);
            }
        }
        LPNT bounds[2 * PointsPerRegister];
        StorePoints(bounds, detail::Smaller(low[0], low[1]));
        StorePoints(bounds + PointsPerRegister, detail::Larger(high[0], high[1]));
        for (const LPNT bound : bounds) MergeRectWithPoint(rect, bound);
    }
    for (; i < count; ++i) MergeRectWithPoint(rect, points[i]);
}

void OffsetPoints(LPNT* points, int32 count, int32 dx, int32 dy, int32 low, int32 high) {
    const OffsetLanes offset(dx, dy);
    const LimitLanes limits(low, high);
    int32 i = 0;
    for (; i + PointsPerRegister <= count; i += PointsPerRegister) {
        StorePoints(points + i, limits.Clamp(offset.Add(LoadPoints(points + i))));
    }
    if (i < count) {
        points[i] = {detail::AddCoords(points[i].x, dx, low, high), detail::AddCoords(points[i].y, dy, low, high)};
    }
}

void OffsetPoints(DPNT* points, int32 count, double dx, double dy) {
    for (int32 i = 0; i < count; ++i) points[i] = {points[i].x + dx, points[i].y + dy};
}

void ClipToLongPoints(const LPNT* source, LPNT* target, int32 count, int* outCount, int32 low, int32 high) {
    if (outCount != nullptr) *outCount = count;
    if (count <= 0) return;
    if (outCount == nullptr) {
        ClampAll(source, target, count, low, high);
    } else {
        *outCount = ClampDistinct(source, target, count, low, high);
    }
}

void DoubleToLongPoints(const DPNT* source, LPNT* target, int32 count, int32 low, int32 high) {
    const RoundingLanes rounding(low, high);
    for (int32 i = 0; i < count; ++i) {
        const __m128i rounded = rounding.Round(_mm_loadu_pd(&source[i].x));
        _mm_storel_epi64(reinterpret_cast<__m128i*>(target + i), rounded);
    }
}

void LongToDoublePoints(const LPNT* source, DPNT* target, int32 count) {
    for (int32 i = 0; i < count; ++i) target[i] = {double(source[i].x), double(source[i].y)};
}

LPNT* CopyPoints(LPNT* target, const LPNT* source, uint64 count) {
    return CopyBytes(target, source, count);
}

DPNT* CopyPoints(DPNT* target, const DPNT* source, uint64 count) {
    return CopyBytes(target, source, count);
}

LPNT* MovePoints(LPNT* target, const LPNT* source, uint64 count) {
    return MoveBytes(target, source, count);
}

DPNT* MovePoints(DPNT* target, const DPNT* source, uint64 count) {
    return MoveBytes(target, source, count);
}

void ReverseNodes(LPNT* points, int32 count) {
    Reverse(points, count);
}

void ReverseNodes(DPNT* points, int32 count) {
    Reverse(points, count);
}

}  // namespace Torvo
