// The error list: raising and clearing, errors already in the list, reading a group.
//
// Peers: GLib's GError, which formats its text when it is set, and a plain list of records with two strings each, kept
// in a vector and searched for repeats as ours is.
#include <Utility/Utility.h>
#include <benchmark/benchmark.h>
#include <glib.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using namespace Torvo;

constexpr GUID Component = {0xEE011B72, 0x700B, 0x11D2, {0xBB, 0x9D, 0x00, 0x60, 0x08, 0x9F, 0x5A, 0x53}};
constexpr const wchar16* Name = ZUTEXT("roads.map");
constexpr const wchar16* Number = ZUTEXT("13");

void Raise(int32 number) {
    SetError(ERRORLEVEL_ERROR, 55, nullptr, Component, number, Name, Number);
}

void RaiseAndClear(benchmark::State& state) {
    ClearErrors();
    for ([[maybe_unused]] auto _ : state) {
        Raise(13);
        ClearErrors();
    }
}
BENCHMARK(RaiseAndClear);

// The error stands behind `range` - 1 others.
void RaiseOneAlreadyInTheList(benchmark::State& state) {
    ClearErrors();
    const int32 count = static_cast<int32>(state.range(0));
    for (int32 i = 0; i < count; ++i) Raise(100 + i);
    for ([[maybe_unused]] auto _ : state) Raise(100 + count - 1);
    ClearErrors();
}
BENCHMARK(RaiseOneAlreadyInTheList)->Arg(1)->Arg(5)->Arg(30);

void ReadAGroupOfFive(benchmark::State& state) {
    ClearErrors();
    for (int32 i = 0; i < 5; ++i) {
        SetError(ERRORLEVEL_ERROR, ZUTEXT("The file ^0 could not be read, error ^1."), Component, 100 + i, Name,
                 Number);
    }
    wchar16 buffer[500];
    for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(GetNextError(true, buffer, std::size(buffer)));
    ClearErrors();
}
BENCHMARK(ReadAGroupOfFive);

void PeerGErrorSetAndClear(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        GError* error = nullptr;
        g_set_error(&error, 55, 13, "%s %s", "roads.map", "13");
        benchmark::DoNotOptimize(error);
        g_clear_error(&error);
    }
}
BENCHMARK(PeerGErrorSetAndClear);

struct PlainRecord {
    int level;
    int resourceId;
    GUID guid;
    int number;
    std::u16string param0;
    std::u16string param1;
};

class PlainList {
public:
    PlainList() { records.reserve(30); }
    void Raise(int number, const char16_t* param0, const char16_t* param1) {
        const auto standing = std::find_if(records.begin(), records.end(),
                                           [&](const PlainRecord& record) { return record.number == number; });
        if (standing != records.end())
            standing->level = std::max(standing->level, 4);
        else
            records.push_back({4, 55, Component, number, param0, param1});
    }
    void Clear() { records.clear(); }

private:
    std::vector<PlainRecord> records;
};

void PeerPlainListRaiseAndClear(benchmark::State& state) {
    PlainList list;
    for ([[maybe_unused]] auto _ : state) {
        list.Raise(13, Name, Number);
        benchmark::ClobberMemory();
        list.Clear();
    }
}
BENCHMARK(PeerPlainListRaiseAndClear);

void PeerPlainListRaiseOneAlreadyInTheList(benchmark::State& state) {
    PlainList list;
    const int count = static_cast<int>(state.range(0));
    for (int i = 0; i < count; ++i) list.Raise(100 + i, Name, Number);
    for ([[maybe_unused]] auto _ : state) {
        list.Raise(100 + count - 1, Name, Number);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(PeerPlainListRaiseOneAlreadyInTheList)->Arg(1)->Arg(5)->Arg(30);

}  // namespace
