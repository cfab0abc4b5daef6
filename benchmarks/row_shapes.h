// The sets of row numbers that the container benchmarks run on, and what they measure in common.
#pragma once

#include <Utility/platform/types.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "memory_probe.h"

namespace Torvo::bench {

// Each set has a million members.
//   consecutive  one run
//   dense        about every second value, at random
//   clustered    a thousand runs of a thousand, strewn over 2^30
//   sparse       lone values, strewn over 2^30
enum Shape { kConsecutive, kDense, kClustered, kSparse };
constexpr const char* kShapeNames[] = {"consecutive", "dense", "clustered", "sparse"};

constexpr int32 kMembers = 1'000'000;

inline std::vector<int32> MakeRows(Shape shape) {
    std::mt19937 engine(20240229);
    const auto below = [&engine](int32 end) { return std::uniform_int_distribution<int32>(0, end - 1)(engine); };
    std::vector<int32> rows;
    rows.reserve(kMembers);
    const auto finish = [&rows] {
        std::sort(rows.begin(), rows.end());
        rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    };
    while (rows.size() < static_cast<std::size_t>(kMembers)) {
        const std::size_t missing = static_cast<std::size_t>(kMembers) - rows.size();
        switch (shape) {
            case kConsecutive:
                for (std::size_t i = 0; i < missing; ++i) rows.push_back(static_cast<int32>(i));
                break;
            case kDense:
                for (std::size_t i = 0; i < missing; ++i) rows.push_back(below(2 * kMembers));
                break;
            case kClustered:
                for (std::size_t run = 0; run < (missing + 999) / 1000; ++run) {
                    const int32 first = below(1 << 30);
                    for (int32 i = 0; i < 1000; ++i) rows.push_back(first + i);
                }
                break;
            case kSparse:
                for (std::size_t i = 0; i < missing; ++i) rows.push_back(below(1 << 30));
                break;
        }
        finish();
    }
    rows.resize(kMembers);
    return rows;
}

// The set of a shape, made once.
inline const std::vector<int32>& Rows(Shape shape) {
    static const std::vector<int32> rows[] = {MakeRows(kConsecutive), MakeRows(kDense), MakeRows(kClustered),
                                              MakeRows(kSparse)};
    return rows[shape];
}

inline std::vector<int32> Shuffled(std::vector<int32> values) {
    std::shuffle(values.begin(), values.end(), std::mt19937(7));
    return values;
}

// What to ask for: members and random values of the same reach, by turns, in random order.
inline std::vector<int32> Probes(const std::vector<int32>& rows) {
    std::vector<int32> probes = Shuffled(rows);
    std::mt19937 engine(11);
    std::uniform_int_distribution<int32> any(rows.front(), rows.back());
    for (std::size_t i = 0; i < probes.size(); i += 2) probes[i] = any(engine);
    return probes;
}

// Reports the time of one of `count` equal steps that an iteration makes.
inline void PerStep(benchmark::State& state, std::size_t count) {
    state.counters["step"] = benchmark::Counter(
        static_cast<double>(count), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// Measures the filling of a new container, and counts the bytes that it then holds.
template <typename Make, typename Fill>
void MeasureFilling(benchmark::State& state, Make make, Fill fill) {
    double bytes = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const double before = HeapBytes();
        auto set = make();
        state.ResumeTiming();
        fill(*set);
        state.PauseTiming();
        bytes = HeapBytes() - before;
        set.reset();
        state.ResumeTiming();
    }
    state.counters["bytes"] = bytes;
}

// Measures the question whether a row is a member of a container that was made of `rows`.
template <typename Set>
void MeasureMembers(benchmark::State& state, const Set& set, const std::vector<int32>& rows) {
    const std::vector<int32> probes = Probes(rows);
    for (auto _ : state) {
        uint32 found = 0;
        for (const int32 row : probes) found += set.Member(row) ? 1 : 0;
        benchmark::DoNotOptimize(found);
    }
    PerStep(state, probes.size());
}

// The name of a benchmark: what is done, to what, by which container.
inline std::string NameOf(std::string what, const char* shape, const char* container) {
    return what.append("/").append(shape).append("/").append(container);
}

}  // namespace Torvo::bench
