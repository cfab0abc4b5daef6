// Reading points from 50 MB of coordinate text, beside the usual ways of doing it: narrow each number by hand and give
// it to fast_float, or go through a text that is narrow already with strtod. All of them fill an array that has room
// from the start. "point" is the time of one point.
//   short    "12.345678,-98.765432 ...", six digits behind the point, as map files have them
//   mixed    six to twelve digits behind the point
//   full     as many digits as a double needs, 15 to 17
//   thirds   as "short", with a third number in each point
#include <Utility/point_containers.h>
#include <benchmark/benchmark.h>
#include <fast_float/fast_float.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "memory_probe.h"

namespace {

using namespace Torvo;

enum Form { kShort, kMixed, kFull, kThirds };
constexpr const char* kFormNames[] = {"short", "mixed", "full", "thirds"};

constexpr std::size_t kBytes = 50'000'000;
constexpr std::size_t kUnits = kBytes / sizeof(wchar16);

struct Text {
    std::string narrow;
    wstring16 units;
    std::size_t points = 0;
};

Text MakeText(Form form) {
    std::mt19937_64 random(20240229);
    std::uniform_real_distribution<double> coordinate(-180, 180);
    const auto print = [&](std::string& text) {
        char number[64];
        const double value = coordinate(random);
        const int places = form == kMixed ? static_cast<int>(6 + random() % 7) : 6;
        const char* const end = form == kFull ? std::to_chars(number, number + sizeof number, value).ptr
                                              : number + std::snprintf(number, sizeof number, "%.*f", places, value);
        text.append(number, static_cast<std::size_t>(end - number));
    };
    Text text;
    text.narrow.reserve(kUnits + 100);
    for (; text.narrow.size() < kUnits; ++text.points) {
        print(text.narrow);
        for (int more = form == kThirds ? 2 : 1; more > 0; --more) print(text.narrow += ',');
        text.narrow += ' ';
    }
    text.units.assign(text.narrow.begin(), text.narrow.end());
    return text;
}

const Text& TextOf(Form form) {
    static std::unique_ptr<Text> texts[4];
    if (texts[form] == nullptr) texts[form] = std::make_unique<Text>(MakeText(form));
    return *texts[form];
}

void Report(benchmark::State& state, const Text& text, std::size_t points) {
    if (points != text.points) return state.SkipWithError("points are missing");
    state.counters["point"] = benchmark::Counter(
        static_cast<double>(text.points), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.units.size() * sizeof(wchar16)));
}

void BM_ParsePoints(benchmark::State& state, Form form) {
    const Text& text = TextOf(form);
    const std::unique_ptr<DPNTContainer> container(DPNTContainer::Create(text.points, 1000));
    const std::unique_ptr<PointParserFactory> parser(
        PointParserFactory::Create(container.get(), ZUTEXT(","), ZUTEXT(" "), false));
    for (auto _ : state) benchmark::DoNotOptimize(parser->ParsePoints(text.units.c_str(), text.units.size(), true));
    uint64 count = 0;
    container->GetPoints(count);
    Report(state, text, count);
}

// The same with a container that is new each time, and so with all the memory to be had.
void BM_ParsePointsAnew(benchmark::State& state, Form form) {
    const Text& text = TextOf(form);
    uint64 count = 0;
    for (auto _ : state) {
        const std::unique_ptr<DPNTContainer> container(DPNTContainer::Create(0, 1000));
        const std::unique_ptr<PointParserFactory> parser(
            PointParserFactory::Create(container.get(), ZUTEXT(","), ZUTEXT(" "), false));
        benchmark::DoNotOptimize(parser->ParsePoints(text.units.c_str(), text.units.size(), true));
        container->GetPoints(count);
    }
    Report(state, text, count);
}

// What the points take beside the text.
void BM_ParsePointsMemory(benchmark::State& state, Form form) {
    const Text& text = TextOf(form);
    bench::MeasureMemory(state, [&text] {
        std::unique_ptr<DPNTContainer> container(DPNTContainer::Create(0, 1000));
        const std::unique_ptr<PointParserFactory> parser(
            PointParserFactory::Create(container.get(), ZUTEXT(","), ZUTEXT(" "), false));
        benchmark::DoNotOptimize(parser->ParsePoints(text.units.c_str(), text.units.size(), true));
        return container;
    });
}

double ReadNarrowed(const wchar16*& cursor) {
    char narrow[64];
    char* end = narrow;
    while (*cursor != ',' && *cursor != ' ') *end++ = static_cast<char>(*cursor++);
    double value = 0;
    fast_float::from_chars(narrow, end, value);
    ++cursor;
    return value;
}

void BM_FastFloat(benchmark::State& state, Form form) {
    const Text& text = TextOf(form);
    std::vector<DPNT> points;
    points.reserve(text.points);
    for (auto _ : state) {
        points.clear();
        for (const wchar16* cursor = text.units.c_str(); *cursor != 0;) {
            const double x = ReadNarrowed(cursor);
            const double y = ReadNarrowed(cursor);
            points.push_back({x, y});
            if (form == kThirds) ReadNarrowed(cursor);
        }
        benchmark::DoNotOptimize(points.data());
    }
    Report(state, text, points.size());
}

double ReadByStrtod(const char*& cursor) {
    char* end;
    const double value = std::strtod(cursor, &end);
    cursor = end + 1;
    return value;
}

void BM_Strtod(benchmark::State& state, Form form) {
    const Text& text = TextOf(form);
    std::vector<DPNT> points;
    points.reserve(text.points);
    for (auto _ : state) {
        points.clear();
        for (const char* cursor = text.narrow.c_str(); *cursor != 0;) {
            const double x = ReadByStrtod(cursor);
            const double y = ReadByStrtod(cursor);
            points.push_back({x, y});
            if (form == kThirds) ReadByStrtod(cursor);
        }
        benchmark::DoNotOptimize(points.data());
    }
    Report(state, text, points.size());
}

const bool kRegistered = [] {
    for (const Form form : {kShort, kMixed, kFull, kThirds}) {
        const auto add = [form](std::string name, void (*run)(benchmark::State&, Form)) {
            name.append("/").append(kFormNames[form]);
            const auto once = [run, form](benchmark::State& state) { run(state, form); };
            return benchmark::RegisterBenchmark(name.c_str(), once)->Unit(benchmark::kMillisecond);
        };
        add("ParsePoints", BM_ParsePoints);
        add("ParsePointsAnew", BM_ParsePointsAnew);
        add("ParsePointsMemory", BM_ParsePointsMemory)->Iterations(1);
        add("FastFloat", BM_FastFloat);
        add("Strtod", BM_Strtod);
    }
    return true;
}();

}  // namespace
