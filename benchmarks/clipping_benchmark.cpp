// Clipping to a rectangle, beside Clipper, GEOS (clip by rectangle) and Boost.Geometry. Compare the time per item: a
// vertex of the input, or a segment. The peers get their input in their own form beforehand; what they return is theirs
// to build, and is freed inside the measurement, as their callers have to.
//
// Polygons: `Inside` is a ring wholly in the rectangle; `Half` the same ring with the rectangle's side through its
// middle; `Zigzag` a ring whose outline crosses one side of the rectangle with every step.
#include <Utility/clipping.h>
#include <benchmark/benchmark.h>
#include <geos_c.h>
#include <polyclipping/clipper.hpp>

#include <boost/geometry.hpp>
#include <boost/geometry/geometries/box.hpp>
#include <boost/geometry/geometries/linestring.hpp>
#include <boost/geometry/geometries/multi_linestring.hpp>
#include <boost/geometry/geometries/multi_polygon.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/polygon.hpp>

#include <cmath>
#include <random>
#include <vector>

namespace {

using namespace Torvo;
namespace bg = boost::geometry;
using BoostPoint = bg::model::d2::point_xy<double>;
using BoostPolygon = bg::model::polygon<BoostPoint>;
using BoostLine = bg::model::linestring<BoostPoint>;
using BoostBox = bg::model::box<BoostPoint>;

struct Task {
    std::vector<LPNT> ring;  // closed
    LRECT rect;
};

constexpr int32 Radius = 100000000;

// Points round a centre at distances that vary, as an outline on a map.
std::vector<LPNT> Outline(int64_t vertices) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> distance(0.98, 1.0);
    std::vector<LPNT> ring;
    for (int64_t i = 0; i + 1 < vertices; ++i) {
        const double angle = 2 * 3.141592653589793 * static_cast<double>(i) / static_cast<double>(vertices - 1);
        const double r = Radius * distance(random);
        ring.push_back({static_cast<int32>(r * std::cos(angle)), static_cast<int32>(r * std::sin(angle))});
    }
    ring.push_back(ring.front());
    return ring;
}

Task Inside(int64_t vertices) {
    return {Outline(vertices), {-Radius, -Radius, Radius, Radius}};
}

Task Half(int64_t vertices) {
    return {Outline(vertices), {-Radius, -Radius, 0, Radius}};
}

Task Zigzag(int64_t vertices) {
    Task task{{}, {0, 0, 200 * static_cast<int32>(vertices), 1000}};
    for (int32 i = 0; i + 3 < vertices; ++i) task.ring.push_back({100 * i, i % 2 == 0 ? -50 : 51});
    task.ring.push_back({100 * static_cast<int32>(vertices), 900});
    task.ring.push_back({0, 900});
    task.ring.push_back(task.ring.front());
    return task;
}

using MakeTask = Task (*)(int64_t);

void CountVertices(benchmark::State& state, const Task& task) {
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(task.ring.size()));
    state.counters["per_vertex"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * static_cast<double>(task.ring.size()),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void Torvo_ClipPoly(benchmark::State& state, MakeTask make) {
    Task task = make(state.range(0));
    std::vector<LPNT> output(2 * task.ring.size() + 16);
    for (auto _ : state) {
        int count = static_cast<int>(task.ring.size());
        if (!ClipPoly(task.ring.data(), output.data(), &task.rect, &count, static_cast<int>(output.size()))) {
            state.SkipWithError("the result did not fit");
        }
        benchmark::DoNotOptimize(count);
        benchmark::ClobberMemory();
    }
    CountVertices(state, task);
}

void Geos_ClipByRect(benchmark::State& state, MakeTask make) {
    const Task task = make(state.range(0));
    initGEOS(nullptr, nullptr);
    GEOSCoordSequence* sequence = GEOSCoordSeq_create(static_cast<unsigned>(task.ring.size()), 2);
    for (unsigned i = 0; i < task.ring.size(); ++i) GEOSCoordSeq_setXY(sequence, i, task.ring[i].x, task.ring[i].y);
    GEOSGeometry* polygon = GEOSGeom_createPolygon(GEOSGeom_createLinearRing(sequence), nullptr, 0);
    for (auto _ : state) {
        GEOSGeometry* clipped = GEOSClipByRect(polygon, task.rect.x1, task.rect.y1, task.rect.x2, task.rect.y2);
        if (clipped == nullptr) state.SkipWithError("no result");
        GEOSGeom_destroy(clipped);
    }
    GEOSGeom_destroy(polygon);
    CountVertices(state, task);
}

void Clipper_Intersection(benchmark::State& state, MakeTask make) {
    const Task task = make(state.range(0));
    ClipperLib::Path ring;
    for (std::size_t i = 0; i + 1 < task.ring.size(); ++i) ring.emplace_back(task.ring[i].x, task.ring[i].y);
    const auto& r = task.rect;
    const ClipperLib::Path rect = {{r.x1, r.y1}, {r.x1, r.y2}, {r.x2, r.y2}, {r.x2, r.y1}};
    for (auto _ : state) {
        ClipperLib::Clipper clipper;
        clipper.AddPath(ring, ClipperLib::ptSubject, true);
        clipper.AddPath(rect, ClipperLib::ptClip, true);
        ClipperLib::Paths result;
        if (!clipper.Execute(ClipperLib::ctIntersection, result)) state.SkipWithError("no result");
        benchmark::DoNotOptimize(result.data());
    }
    CountVertices(state, task);
}

void Boost_Intersection(benchmark::State& state, MakeTask make) {
    const Task task = make(state.range(0));
    BoostPolygon polygon;
    for (const LPNT p : task.ring) bg::append(polygon.outer(), BoostPoint(p.x, p.y));
    bg::correct(polygon);
    const BoostBox box(BoostPoint(task.rect.x1, task.rect.y1), BoostPoint(task.rect.x2, task.rect.y2));
    for (auto _ : state) {
        bg::model::multi_polygon<BoostPolygon> result;
        bg::intersection(polygon, box, result);
        benchmark::DoNotOptimize(result.data());
    }
    CountVertices(state, task);
}

// Segments: `Anywhere` begin and end anywhere on a square four times the rectangle, so that no processor can predict
// how many cuts the next one takes; `Cut` begin inside and end beyond one side; `Uncut` lie inside.
struct Segment {
    LPNT a;
    LPNT b;
};

constexpr LRECT Window = {-500000, -500000, 500000, 500000};

std::vector<Segment> Segments(int32 limitA, LPNT centerB, int32 limitB) {
    std::mt19937 random(2);
    const auto around = [&random](LPNT center, int32 limit) {
        std::uniform_int_distribution<int32> offset(-limit, limit);
        return LPNT{center.x + offset(random), center.y + offset(random)};
    };
    std::vector<Segment> segments(1 << 16);
    for (Segment& s : segments) s = {around({0, 0}, limitA), around(centerB, limitB)};
    return segments;
}

std::vector<Segment> Anywhere() {
    return Segments(1000000, {0, 0}, 1000000);
}

std::vector<Segment> Cut() {
    return Segments(499999, {700000, 0}, 199999);
}

std::vector<Segment> Uncut() {
    return Segments(499999, {0, 0}, 499999);
}

using MakeSegments = std::vector<Segment> (*)();

void Torvo_ClipLine(benchmark::State& state, MakeSegments make) {
    const auto segments = make();
    for (auto _ : state) {
        int visible = 0;
        for (Segment s : segments) visible += ClipLine(&s.a, &s.b, &Window);
        benchmark::DoNotOptimize(visible);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(segments.size()));
}

// The step inside Boost.Geometry that clips one segment, without the building of a result.
void Boost_ClipLine(benchmark::State& state, MakeSegments make) {
    using BoostSegment = bg::model::segment<BoostPoint>;
    std::vector<BoostSegment> segments;
    for (const Segment& s : make()) segments.emplace_back(BoostPoint(s.a.x, s.a.y), BoostPoint(s.b.x, s.b.y));
    const BoostBox box(BoostPoint(Window.x1, Window.y1), BoostPoint(Window.x2, Window.y2));
    const bg::strategy::intersection::liang_barsky<BoostBox, BoostPoint> strategy;
    for (auto _ : state) {
        int visible = 0;
        for (const BoostSegment& s : segments) {
            BoostPoint a = s.first;
            BoostPoint b = s.second;
            bool firstCut = false;
            bool secondCut = false;
            bg::model::referring_segment<BoostPoint> cut(a, b);
            visible += strategy.clip_segment(box, cut, firstCut, secondCut);
        }
        benchmark::DoNotOptimize(visible);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(segments.size()));
}

// The same through Boost.Geometry's public call, which builds a line of its own.
void Boost_IntersectionLine(benchmark::State& state, MakeSegments make) {
    std::vector<BoostLine> lines;
    for (const Segment& s : make()) lines.push_back({BoostPoint(s.a.x, s.a.y), BoostPoint(s.b.x, s.b.y)});
    const BoostBox box(BoostPoint(Window.x1, Window.y1), BoostPoint(Window.x2, Window.y2));
    bg::model::multi_linestring<BoostLine> result;
    for (auto _ : state) {
        std::size_t visible = 0;
        for (const BoostLine& line : lines) {
            result.clear();
            bg::intersection(line, box, result);
            visible += result.size();
        }
        benchmark::DoNotOptimize(visible);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(lines.size()));
}

constexpr int Thousand = 1000;
constexpr int Million = 1000000;

// GEOS takes the square of the number of crossings, and the two general engines some seconds for the large polygons;
// they are measured where an iteration ends within a tenth of a second.
BENCHMARK_CAPTURE(Torvo_ClipPoly, Inside, Inside)->Arg(Thousand)->Arg(Million);
BENCHMARK_CAPTURE(Torvo_ClipPoly, Half, Half)->Arg(Thousand)->Arg(Million);
BENCHMARK_CAPTURE(Torvo_ClipPoly, Zigzag, Zigzag)->Arg(Thousand)->Arg(Million);
BENCHMARK_CAPTURE(Geos_ClipByRect, Inside, Inside)->Arg(Thousand)->Arg(Million);
BENCHMARK_CAPTURE(Geos_ClipByRect, Half, Half)->Arg(Thousand)->Arg(Million);
BENCHMARK_CAPTURE(Geos_ClipByRect, Zigzag, Zigzag)->Arg(Thousand);
BENCHMARK_CAPTURE(Clipper_Intersection, Inside, Inside)->Arg(Thousand);
BENCHMARK_CAPTURE(Clipper_Intersection, Half, Half)->Arg(Thousand);
BENCHMARK_CAPTURE(Clipper_Intersection, Zigzag, Zigzag)->Arg(Thousand);
BENCHMARK_CAPTURE(Boost_Intersection, Inside, Inside)->Arg(Thousand);
BENCHMARK_CAPTURE(Boost_Intersection, Half, Half)->Arg(Thousand);
BENCHMARK_CAPTURE(Boost_Intersection, Zigzag, Zigzag)->Arg(Thousand);
BENCHMARK_CAPTURE(Torvo_ClipLine, Anywhere, Anywhere);
BENCHMARK_CAPTURE(Torvo_ClipLine, Cut, Cut);
BENCHMARK_CAPTURE(Torvo_ClipLine, Uncut, Uncut);
BENCHMARK_CAPTURE(Boost_ClipLine, Anywhere, Anywhere);
BENCHMARK_CAPTURE(Boost_ClipLine, Cut, Cut);
BENCHMARK_CAPTURE(Boost_ClipLine, Uncut, Uncut);
BENCHMARK_CAPTURE(Boost_IntersectionLine, Anywhere, Anywhere);
BENCHMARK_CAPTURE(Boost_IntersectionLine, Cut, Cut);
BENCHMARK_CAPTURE(Boost_IntersectionLine, Uncut, Uncut);

}  // namespace
