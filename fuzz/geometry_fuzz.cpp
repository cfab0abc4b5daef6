// A stream of operations over clipping, intersections, arcs and arrays of points: whatever the coordinates, nothing may
// be written out of bounds and nothing may overflow, and clipping has to agree with its plain form.
#include "reference/plain_clip.h"
#include "require.h"

#include <Utility/arcs.h>
#include <Utility/clipping.h>
#include <Utility/geometry.h>

#include <cstring>
#include <memory>

namespace {

using namespace Torvo;
using fuzz::Require;

// Takes values from the input, zeros when it is used up.
class Reader {
public:
    Reader(const uint8_t* data, std::size_t size) : at(data), left(size) {}

    bool IsEmpty() const { return left == 0; }

    template <typename T>
    T Take() {
        T value{};
        const std::size_t taken = sizeof value < left ? sizeof value : left;
        if (taken != 0) std::memcpy(&value, at, taken);
        at += taken;
        left -= taken;
        return value;
    }

    // A coordinate of one byte or of four, so that values meet.
    int32 Coordinate() { return (Take<uint8_t>() & 1) != 0 ? Take<int32>() : Take<int8_t>(); }
    LPNT Point() { return {Coordinate(), Coordinate()}; }
    DPNT RealPoint() { return {Take<double>(), Take<double>()}; }
    LRECT Rect() { return {Coordinate(), Coordinate(), Coordinate(), Coordinate()}; }

    std::vector<LPNT> Points() {
        std::vector<LPNT> points(Take<uint8_t>() % 40);
        for (LPNT& point : points) point = !points.empty() && Take<uint8_t>() % 8 == 0 ? points.front() : Point();
        return points;
    }

private:
    const uint8_t* at;
    std::size_t left;
};

// A buffer of exactly `size` points, so that one too far is seen.
std::unique_ptr<LPNT[]> Exactly(std::size_t size) {
    return std::unique_ptr<LPNT[]>(new LPNT[size]);
}

void ClipPolygon(Reader& reader) {
    std::vector<LPNT> input = reader.Points();
    test::plain::PolyClip plain;
    plain.rect = reader.Rect();
    plain.maxOutput = reader.Take<uint8_t>();
    const bool fits = plain.Run(input);
    int count = static_cast<int>(input.size());
    const auto output = Exactly(static_cast<std::size_t>(plain.maxOutput));
    Require(ClipPoly(input.data(), output.get(), &plain.rect, &count, plain.maxOutput) == fits);
    Require(count == plain.count);
    for (std::size_t i = 0; i < plain.written.size(); ++i) Require(test::plain::Same(output[i], plain.written[i]));
    const auto bound = static_cast<long long>(6 * input.size() + 6);
    Require(plain.count <= bound);
}

void ClipSegment(Reader& reader) {
    LPNT a = reader.Point();
    LPNT b = reader.Point();
    const LRECT rect = reader.Rect();
    LPNT plainA = a;
    LPNT plainB = b;
    bool ended = false;
    const bool plainVisible = test::plain::ClipLine(plainA, plainB, rect, 1000, ended);
    const bool visible = ClipLine(&a, &b, &rect);
    if (visible) Require(PointInRect(a, rect) && PointInRect(b, rect));
    if (ended) Require(visible == plainVisible && test::plain::Same(a, plainA) && test::plain::Same(b, plainB));
}

void Intersect(Reader& reader) {
    const LPNT p1 = reader.Point(), p2 = reader.Point(), q1 = reader.Point(), q2 = reader.Point();
    LPNT out{};
    LRECT bounds;
    if (LineIntersection(p1, p2, q1, q2, out)) {
        SortRectWithPoints(bounds, p1, p2);
        Require(PointInRect(out, bounds));
        SortRectWithPoints(bounds, q1, q2);
        Require(PointInRect(out, bounds));
    }
    DPNT realOut{};
    const DPNT r1 = reader.RealPoint(), r2 = reader.RealPoint();
    CrossDLines(r1, r2, reader.RealPoint(), reader.RealPoint(), realOut);
}

void Arcs(Reader& reader) {
    const LRECT rect = reader.Rect();
    int16 a = 0;
    int16 b = 0;
    CalcArcAngles(rect, reader.Point(), reader.Point(), &a, &b, (reader.Take<uint8_t>() & 1) != 0);
    Require(0 <= a && a <= 3600 && a < b && b <= a + 3600);
    a = reader.Take<int16>();
    b = reader.Take<int16>();
    const auto flags = reader.Take<uint8_t>();
    FlipArcAngles(&a, &b, (flags & 1) != 0, (flags & 2) != 0);
    Require(0 <= a && a < 3600 && a < b && b <= a + 3600);
    LPNT start{};
    LPNT end{};
    LogCalcArcPoints(rect, reader.Take<int32>(), reader.Take<int32>(), &start, &end);
    DRECT mbr{};
    const DPNT p1 = reader.RealPoint(), p2 = reader.RealPoint(), p3 = reader.RealPoint();
    CirclePointsToMBRAngles(p1, p2, p3, mbr, a, b);
    LRECT circle{};
    CreateCircleMBR(circle, reader.Point(), reader.Point(), reader.Take<double>(), reader.Take<double>());
}

void Arrays(Reader& reader) {
    std::vector<LPNT> points = reader.Points();
    const auto count = static_cast<int32>(points.size());
    IsClockwiseOrientation(points.data(), count, nullptr);
    const int32 low = reader.Coordinate();
    const int32 high = reader.Coordinate();
    OffsetPoints(points.data(), count, reader.Coordinate(), reader.Coordinate(), low, high);
    const auto target = Exactly(points.size());
    int left = 0;
    ClipToLongPoints(points.data(), target.get(), count, (low & 1) != 0 ? &left : nullptr, low, high);
    LRECT rect{};
    GetRectFromPoints(rect, points.data(), count);
    for (const LPNT point : points) Require(PointInRect(point, rect));
    const DPNT real = reader.RealPoint();
    DoubleToLongPoints(&real, points.data(), count == 0 ? 0 : 1, low, high);
    ExpandRect(rect, reader.Coordinate(), reader.Coordinate(), low, high);
    LPNT center{};
    GetCenterOfRect(rect, center);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    Reader reader(data, size);
    while (!reader.IsEmpty()) {
        switch (reader.Take<uint8_t>() % 5) {
            case 0:
                ClipPolygon(reader);
                break;
            case 1:
                ClipSegment(reader);
                break;
            case 2:
                Intersect(reader);
                break;
            case 3:
                Arcs(reader);
                break;
            default:
                Arrays(reader);
                break;
        }
    }
    return 0;
}
