// Sparse sets beside a compressed bitmap (CRoaring), a flat one, and std::set. "step" is the time of one operation.
#include <Utility/memory_blocks.h>
#include <Utility/sparse_sets.h>
#include <roaring/roaring.h>

#include <memory>
#include <set>

#include "memory_probe.h"
#include "row_shapes.h"

namespace {

using namespace Torvo;
using namespace Torvo::bench;

// Every container under the same few names, so that one benchmark serves all. Ordinals count from 1.
class Sparse {
public:
    explicit Sparse(int32 /*reach*/) {}
    ~Sparse() { flist_destroy(list_); }
    Sparse(const Sparse&) = delete;
    Sparse& operator=(const Sparse&) = delete;
    void Add(int32 row) { flist_add(list_, row); }
    void AddRange(int32 first, int32 last) { flist_add_range(list_, first, last); }
    bool Member(int32 row) const { return flist_member(list_, row); }
    int32 ByIndex(int32 ordinal) const { return flist_getbyindex(list_, ordinal); }
    int32 Index(int32 row) const { return flist_getindex(list_, row); }
    void Finish() {}
    template <typename Visit>
    void Walk(Visit visit) const {
        for (int32 row = flist_next(list_, -1); row != -1; row = flist_next(list_, row)) visit(row);
    }

private:
    flist* list_ = flist_init();
};

class Roaring {
public:
    explicit Roaring(int32 /*reach*/) {}
    ~Roaring() { roaring_bitmap_free(bitmap_); }
    Roaring(const Roaring&) = delete;
    Roaring& operator=(const Roaring&) = delete;
    void Add(int32 row) { roaring_bitmap_add(bitmap_, static_cast<uint32>(row)); }
    void AddRange(int32 first, int32 last) {
        roaring_bitmap_add_range_closed(bitmap_, static_cast<uint32>(first), static_cast<uint32>(last));
    }
    bool Member(int32 row) const { return roaring_bitmap_contains(bitmap_, static_cast<uint32>(row)); }
    int32 ByIndex(int32 ordinal) const {
        uint32 row = 0;
        roaring_bitmap_select(bitmap_, static_cast<uint32>(ordinal - 1), &row);
        return static_cast<int32>(row);
    }
    int32 Index(int32 row) const { return static_cast<int32>(roaring_bitmap_rank(bitmap_, static_cast<uint32>(row))); }
    // Its best form for what follows.
    void Finish() { roaring_bitmap_run_optimize(bitmap_); }
    template <typename Visit>
    void Walk(Visit visit) const {
        roaring_uint32_iterator_t iterator;
        roaring_init_iterator(bitmap_, &iterator);
        while (iterator.has_value) {
            visit(static_cast<int32>(iterator.current_value));
            roaring_advance_uint32_iterator(&iterator);
        }
    }

private:
    roaring_bitmap_t* bitmap_ = roaring_bitmap_create();
};

class Flat {
public:
    explicit Flat(int32 reach) : bits_(static_cast<std::size_t>(reach)) {}
    void Add(int32 row) { bits_[static_cast<std::size_t>(row)] = true; }
    bool Member(int32 row) const { return bits_[static_cast<std::size_t>(row)]; }
    void Finish() {}
    template <typename Visit>
    void Walk(Visit visit) const {
        for (std::size_t row = 0; row < bits_.size(); ++row) {
            if (bits_[row]) visit(static_cast<int32>(row));
        }
    }

private:
    std::vector<bool> bits_;
};

class Tree {
public:
    explicit Tree(int32 /*reach*/) {}
    void Add(int32 row) { rows_.insert(row); }
    bool Member(int32 row) const { return rows_.count(row) != 0; }
    void Finish() {}
    template <typename Visit>
    void Walk(Visit visit) const {
        for (const int32 row : rows_) visit(row);
    }

private:
    std::set<int32> rows_;
};

template <typename Set>
std::unique_ptr<Set> Make(Shape shape) {
    auto set = std::make_unique<Set>(Rows(shape).back() + 1);
    for (const int32 row : Rows(shape)) set->Add(row);
    set->Finish();
    return set;
}

template <typename Set>
void BM_Member(benchmark::State& state, Shape shape) {
    const auto set = Make<Set>(shape);
    const std::vector<int32> probes = Probes(shape);
    for (auto _ : state) {
        uint32 found = 0;
        for (const int32 row : probes) found += set->Member(row) ? 1 : 0;
        benchmark::DoNotOptimize(found);
    }
    PerStep(state, probes.size());
}

template <typename Set>
void BM_AddAtRandom(benchmark::State& state, Shape shape) {
    const std::vector<int32> rows = Shuffled(Rows(shape));
    const int32 reach = Rows(shape).back() + 1;
    double bytes = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const double before = HeapBytes();
        auto set = std::make_unique<Set>(reach);
        state.ResumeTiming();
        for (const int32 row : rows) set->Add(row);
        state.PauseTiming();
        bytes = HeapBytes() - before;
        set.reset();
        state.ResumeTiming();
    }
    PerStep(state, rows.size());
    state.counters["bytes"] = bytes;
}

template <typename Set>
void BM_Walk(benchmark::State& state, Shape shape) {
    const auto set = Make<Set>(shape);
    for (auto _ : state) {
        uint32 sum = 0;
        set->Walk([&sum](int32 row) { sum += static_cast<uint32>(row); });
        benchmark::DoNotOptimize(sum);
    }
    PerStep(state, Rows(shape).size());
}

template <typename Set>
void BM_AddRange(benchmark::State& state, int32 size) {
    double bytes = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const double before = HeapBytes();
        auto set = std::make_unique<Set>(1000 + size);
        state.ResumeTiming();
        set->AddRange(1000, 1000 + size - 1);
        state.PauseTiming();
        bytes = HeapBytes() - before;
        set.reset();
        state.ResumeTiming();
    }
    state.counters["bytes"] = bytes;
}

template <typename Set>
void BM_Rank(benchmark::State& state, Shape shape) {
    const auto set = Make<Set>(shape);
    std::vector<int32> rows = Shuffled(Rows(shape));
    rows.resize(20'000);
    for (auto _ : state) {
        uint32 sum = 0;
        for (const int32 row : rows) sum += static_cast<uint32>(set->Index(row));
        benchmark::DoNotOptimize(sum);
    }
    PerStep(state, rows.size());
}

template <typename Set>
void BM_Select(benchmark::State& state, Shape shape) {
    const auto set = Make<Set>(shape);
    std::vector<int32> ordinals(20'000);
    std::mt19937 engine(3);
    for (int32& ordinal : ordinals) ordinal = std::uniform_int_distribution<int32>(1, kMembers)(engine);
    for (auto _ : state) {
        uint32 sum = 0;
        for (const int32 ordinal : ordinals) sum += static_cast<uint32>(set->ByIndex(ordinal));
        benchmark::DoNotOptimize(sum);
    }
    PerStep(state, ordinals.size());
}

// What is left, and what was needed, when the rows have been added at random.
template <typename Set>
void BM_Memory(benchmark::State& state, Shape shape) {
    const std::vector<int32> rows = Shuffled(Rows(shape));
    const int32 reach = Rows(shape).back() + 1;
    MeasureMemory(state, [&] {
        auto set = std::make_unique<Set>(reach);
        for (const int32 row : rows) set->Add(row);
        return set;
    });
}

// What a list of ten million consecutive rows takes.
template <typename Set>
void BM_MemoryOfARange(benchmark::State& state, int32 size) {
    MeasureMemory(state, [size] {
        auto set = std::make_unique<Set>(size);
        set->AddRange(0, size - 1);
        return set;
    });
}

template <typename Set>
void RegisterSet(const char* name) {
    for (const Shape shape : {kConsecutive, kDense, kClustered, kSparse}) {
        const auto add = [&](const char* what, void (*run)(benchmark::State&, Shape)) {
            const auto once = [run, shape](benchmark::State& state) { run(state, shape); };
            return benchmark::RegisterBenchmark(NameOf(what, kShapeNames[shape], name).c_str(), once)
                ->Unit(benchmark::kMillisecond);
        };
        add("Memory", BM_Memory<Set>)->Iterations(1);
        add("Member", BM_Member<Set>);
        add("AddAtRandom", BM_AddAtRandom<Set>);
        add("Walk", BM_Walk<Set>);
        if constexpr (requires(const Set& set) { set.Index(0); }) {
            add("Rank", BM_Rank<Set>);
            add("Select", BM_Select<Set>);
        }
    }
    if constexpr (requires(Set & set) { set.AddRange(0, 0); }) {
        benchmark::RegisterBenchmark(NameOf("AddRange", "1000000", name).c_str(), [](benchmark::State& state) {
            BM_AddRange<Set>(state, 1'000'000);
        })->Unit(benchmark::kMicrosecond);
        benchmark::RegisterBenchmark(NameOf("MemoryOfARange", "10000000", name).c_str(), [](benchmark::State& state) {
            BM_MemoryOfARange<Set>(state, 10'000'000);
        })->Iterations(1);
    }
}

const bool kRegistered = [] {
    RegisterSet<Sparse>("flist");
    RegisterSet<Roaring>("CRoaring");
    RegisterSet<Flat>("vector<bool>");
    RegisterSet<Tree>("set");
    return true;
}();

}  // namespace
