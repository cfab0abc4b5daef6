// Arrays of points, beside the bandwidth of memcpy on as many bytes. Compare bytes_per_second: what is read counts for
// GetRectFromPoints, what is read or written, whichever is more, for the others, and what is copied for memcpy. Small
// arrays stay in the caches, large ones (64 MiB) do not.
#include <Utility/arcs.h>
#include <Utility/geometry.h>
#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <vector>

namespace {

using namespace Torvo;

constexpr int Small = 1 << 10;
constexpr int Large = 1 << 23;

std::vector<LPNT> RandomPoints(std::size_t count) {
    std::mt19937 random(1);
    std::vector<LPNT> points(count);
    for (LPNT& p : points) {
        p = {static_cast<int32>(random() % 2000000) - 1000000, static_cast<int32>(random() % 2000000) - 1000000};
    }
    return points;
}

std::vector<DPNT> RandomRealPoints(std::size_t count) {
    std::vector<DPNT> points;
    for (const LPNT p : RandomPoints(count)) points.push_back({p.x + 0.25, p.y - 0.75});
    return points;
}

void CountBytes(benchmark::State& state, std::size_t bytesPerPoint) {
    state.SetBytesProcessed(state.iterations() * state.range(0) * static_cast<int64_t>(bytesPerPoint));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Memcpy(benchmark::State& state) {
    const auto source = RandomPoints(static_cast<std::size_t>(state.range(0)));
    auto target = source;
    for (auto _ : state) {
        std::memcpy(target.data(), source.data(), source.size() * sizeof(LPNT));
        benchmark::ClobberMemory();
    }
    CountBytes(state, sizeof(LPNT));
}

void Offset(benchmark::State& state) {
    auto points = RandomPoints(static_cast<std::size_t>(state.range(0)));
    int32 step = 3;
    for (auto _ : state) {
        OffsetPoints(points.data(), static_cast<int32>(state.range(0)), step, -step, -1000000000, 1000000000);
        step = -step;
        benchmark::ClobberMemory();
    }
    CountBytes(state, sizeof(LPNT));
}

void ClipToLong(benchmark::State& state) {
    const auto source = RandomPoints(static_cast<std::size_t>(state.range(0)));
    auto target = source;
    for (auto _ : state) {
        ClipToLongPoints(source.data(), target.data(), static_cast<int32>(state.range(0)), nullptr, -900000, 900000);
        benchmark::ClobberMemory();
    }
    CountBytes(state, sizeof(LPNT));
}

void ClipToLongDistinct(benchmark::State& state) {
    const auto source = RandomPoints(static_cast<std::size_t>(state.range(0)));
    auto target = source;
    for (auto _ : state) {
        int count = 0;
        ClipToLongPoints(source.data(), target.data(), static_cast<int32>(state.range(0)), &count, -900000, 900000);
        benchmark::ClobberMemory();
    }
    CountBytes(state, sizeof(LPNT));
}

void DoubleToLong(benchmark::State& state) {
    const auto source = RandomRealPoints(static_cast<std::size_t>(state.range(0)));
    auto target = RandomPoints(source.size());
    for (auto _ : state) {
        DoubleToLongPoints(source.data(), target.data(), static_cast<int32>(state.range(0)), -900000, 900000);
        benchmark::ClobberMemory();
    }
    CountBytes(state, sizeof(DPNT));
}

void Bounds(benchmark::State& state) {
    const auto points = RandomPoints(static_cast<std::size_t>(state.range(0)));
    LRECT rect{};
    for (auto _ : state) {
        GetRectFromPoints(rect, points.data(), static_cast<int32>(state.range(0)));
        benchmark::DoNotOptimize(rect);
    }
    CountBytes(state, sizeof(LPNT));
}

// A ring of many small steps, in which most corners are too thin to decide.
void Orientation(benchmark::State& state) {
    const auto size = static_cast<int32>(state.range(0));
    std::vector<LPNT> ring;
    for (int32 i = 0; i < size; ++i) ring.push_back({i, i % 2});
    ring.push_back({size, 1000000});
    ring.push_back({0, 1000000});
    ring.push_back(ring.front());
    for (auto _ : state) {
        benchmark::DoNotOptimize(IsClockwiseOrientation(ring.data(), static_cast<int32>(ring.size()), nullptr));
    }
    CountBytes(state, sizeof(LPNT));
}

void Intersection(benchmark::State& state) {
    const auto points = RandomPoints(4096);
    std::size_t i = 0;
    LPNT out{};
    for (auto _ : state) {
        const LPNT* p = &points[i];
        benchmark::DoNotOptimize(LineIntersection(p[0], p[1], p[2], p[3], out));
        i = (i + 4) % points.size();
    }
}

BENCHMARK(Memcpy)->Arg(Small)->Arg(Large);
BENCHMARK(Offset)->Arg(Small)->Arg(Large);
BENCHMARK(ClipToLong)->Arg(Small)->Arg(Large);
BENCHMARK(ClipToLongDistinct)->Arg(Small)->Arg(Large);
BENCHMARK(DoubleToLong)->Arg(Small)->Arg(Large);
BENCHMARK(Bounds)->Arg(Small)->Arg(Large);
BENCHMARK(Orientation)->Arg(1000)->Arg(100000);
BENCHMARK(Intersection);

}  // namespace
