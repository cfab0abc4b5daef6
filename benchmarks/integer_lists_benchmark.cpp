// The integer lists beside boost::icl's set of intervals. "step" is the time of one operation on one value.
#include <Utility/integer_lists.h>

#include <boost/icl/interval_set.hpp>
#include <memory>

#include "memory_probe.h"
#include "row_shapes.h"

namespace {

using namespace Torvo;
using namespace Torvo::bench;

// Every container under the same few names, so that one benchmark serves all.
template <typename T>
class List {
public:
    void Add(int32 row) { list_->Add(static_cast<T>(row)); }
    bool Member(int32 row) const { return list_->Member(static_cast<T>(row)); }
    template <typename Visit>
    void Walk(Visit visit) const {
        const std::unique_ptr<ZUListEnumerator<T>> enumerator(list_->CreateEnumerator());
        T item = 0;
        while (enumerator->Next(item)) visit(static_cast<uint32>(item));
    }

private:
    std::unique_ptr<ZUList<T>> list_{ZUList<T>::Create()};
};

class Intervals {
public:
    using Interval = boost::icl::closed_interval<int32>;
    void Add(int32 row) { set_.add(Interval(row, row)); }
    bool Member(int32 row) const { return boost::icl::contains(set_, row); }
    template <typename Visit>
    void Walk(Visit visit) const {
        for (const Interval& run : set_) {
            for (int32 row = run.lower(); row <= run.upper(); ++row) visit(static_cast<uint32>(row));
        }
    }

private:
    boost::icl::interval_set<int32, std::less, Interval> set_;
};

// The first rows of a shape, as many as are asked for.
std::vector<int32> FirstRows(Shape shape, std::size_t count) {
    return {Rows(shape).begin(), Rows(shape).begin() + static_cast<std::ptrdiff_t>(count)};
}

template <typename Set>
void Fill(Set& set, const std::vector<int32>& rows) {
    for (const int32 row : rows) set.Add(row);
}

template <typename Set>
void BM_Add(benchmark::State& state, const std::vector<int32>& rows) {
    MeasureFilling(
        state, [] { return std::make_unique<Set>(); }, [&rows](Set& set) { Fill(set, rows); });
    PerStep(state, rows.size());
}

template <typename Set>
void BM_Memory(benchmark::State& state, const std::vector<int32>& rows) {
    MeasureMemory(state, [&rows] {
        auto set = std::make_unique<Set>();
        Fill(*set, rows);
        return set;
    });
}

template <typename Set>
void BM_Member(benchmark::State& state, const std::vector<int32>& rows) {
    Set set;
    Fill(set, rows);
    MeasureMembers(state, set, rows);
}

template <typename Set>
void BM_Walk(benchmark::State& state, const std::vector<int32>& rows) {
    Set set;
    Fill(set, rows);
    for (auto _ : state) {
        uint32 sum = 0;
        // Each member is looked at, and not summed up a run at a time.
        set.Walk([&sum](uint32 row) { benchmark::DoNotOptimize(sum += row); });
        benchmark::DoNotOptimize(sum);
    }
    PerStep(state, rows.size());
}

// Ten thousand rows, and a million.
template <typename Set>
void RegisterSet(const char* name) {
    for (const std::size_t count : {std::size_t{10'000}, std::size_t{kMembers}}) {
        for (const Shape shape : {kDense, kClustered, kSparse}) {
            const auto add = [&](const char* what, void (*run)(benchmark::State&, const std::vector<int32>&),
                                 bool mix) {
                std::string full = NameOf(what, kShapeNames[shape], name);
                full.append("/").append(std::to_string(count));
                auto* const benchmark =
                    benchmark::RegisterBenchmark(full.c_str(), [run, shape, count, mix](benchmark::State& state) {
                        const std::vector<int32> rows = FirstRows(shape, count);
                        run(state, mix ? Shuffled(rows) : rows);
                    });
                return benchmark->Unit(benchmark::kMillisecond);
            };
            add("Memory", BM_Memory<Set>, true)->Iterations(1);
            add("Member", BM_Member<Set>, false);
            add("AddInOrder", BM_Add<Set>, false);
            add("AddAtRandom", BM_Add<Set>, true);
            add("Walk", BM_Walk<Set>, false);
        }
    }
}

const bool kRegistered = [] {
    RegisterSet<List<long32>>("long32");
    RegisterSet<List<ulong32>>("ulong32");
    RegisterSet<List<uint64>>("uint64");
    RegisterSet<Intervals>("icl");
    return true;
}();

}  // namespace
