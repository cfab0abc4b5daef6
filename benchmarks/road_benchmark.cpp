// The road of a call: free function, store, slot, virtual call; and what a thread's set of services costs.
#include <Utility/Utility.h>
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <thread>

namespace peer_global_dynamic {
void Prepare();
bool Ask();
}  // namespace peer_global_dynamic
namespace peer_initial_exec {
void Prepare();
bool Ask();
}  // namespace peer_initial_exec

namespace {

using namespace Torvo;

void RoadOfACall(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(CheckEsc());
}
BENCHMARK(RoadOfACall);

void PeerThreadLocalAsLibrariesDo(benchmark::State& state) {
    peer_global_dynamic::Prepare();
    for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(peer_global_dynamic::Ask());
}
BENCHMARK(PeerThreadLocalAsLibrariesDo);

void PeerThreadLocalInitialExec(benchmark::State& state) {
    peer_initial_exec::Prepare();
    for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(peer_initial_exec::Ask());
}
BENCHMARK(PeerThreadLocalInitialExec);

// Resident memory of the process, in bytes.
double ResidentBytes() {
    long pages = 0;
    long resident = 0;
    if (std::FILE* const file = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(file, "%ld %ld", &pages, &resident) != 2) resident = 0;
        std::fclose(file);
    }
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

// A thread's first call until it is served, and the end of its services.
void CompleteSetOfServices(benchmark::State& state) {
    std::thread([&] {
        for ([[maybe_unused]] auto _ : state) {
            benchmark::DoNotOptimize(GetInstanceData());
            InstanceData::Destroy(false, false);
        }
        constexpr int kept = 16;
        InstanceData* instances[kept];
        const double before = ResidentBytes();
        for (InstanceData*& instance : instances) instance = CreateInstanceData();
        state.counters["touched_bytes_each"] = (ResidentBytes() - before) / kept;
        for (InstanceData* const instance : instances) {
            SetInstanceData(instance);
            InstanceData::Destroy(false, false);
        }
    }).join();
}
BENCHMARK(CompleteSetOfServices)->Unit(benchmark::kMicrosecond);

}  // namespace
