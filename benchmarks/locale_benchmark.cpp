// What a locale query costs: a refresh with all its reads, a single read, and how others hand out the same values.
//
// The service asks the system anew at every query, so that a refresh is the price of each number or date that is read
// or written in the locale's form. The peers are what a program would call instead: the C runtime's localeconv, which
// knows one locale for the whole process, and ICU's formats, which have to be opened for a locale before they answer.
#include <Utility/Utility.h>
#include <benchmark/benchmark.h>
#include <unicode/udat.h>
#include <unicode/unum.h>

#include <clocale>

namespace {

using namespace Torvo;

constexpr uint32 German = 0x407;
constexpr uint32 French = 0x40C;

void RefreshWithAllReads(benchmark::State& state) {
    platform::SetThreadLocale(German);
    for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(ResetZULocaleInfo());
}
BENCHMARK(RefreshWithAllReads);

// The thread's locale changes before each refresh.
void RefreshAfterAChange(benchmark::State& state) {
    uint32 locale = German;
    for ([[maybe_unused]] auto _ : state) {
        locale ^= German ^ French;
        platform::SetThreadLocale(locale);
        benchmark::DoNotOptimize(ResetZULocaleInfo());
    }
}
BENCHMARK(RefreshAfterAChange);

void NumberInfo(benchmark::State& state) {
    platform::SetThreadLocale(German);
    wchar16 decimal;
    wchar16 thousand;
    int16 group;
    for ([[maybe_unused]] auto _ : state) {
        GetZULocaleNumInfo(true, &decimal, &thousand, &group);
        benchmark::DoNotOptimize(decimal);
    }
}
BENCHMARK(NumberInfo);

void NumberInfoFixed(benchmark::State& state) {
    wchar16 decimal;
    wchar16 thousand;
    int16 group;
    for ([[maybe_unused]] auto _ : state) {
        GetZULocaleNumInfo(false, &decimal, &thousand, &group);
        benchmark::DoNotOptimize(decimal);
    }
}
BENCHMARK(NumberInfoFixed);

// One text through the service: the road of a call and one query of the platform layer.
void SingleText(benchmark::State& state) {
    platform::SetThreadLocale(German);
    GetLocaleIdentifier();
    wchar16 buffer[40];
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(GetLocaleString(0x1003, buffer, 40));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(SingleText);

void SingleNumber(benchmark::State& state) {
    platform::SetThreadLocale(German);
    GetLocaleIdentifier();
    uint32 number;
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(GetLocaleInt(0x1004, &number));
        benchmark::DoNotOptimize(number);
    }
}
BENCHMARK(SingleNumber);

void PeerLocaleconv(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(std::localeconv());
}
BENCHMARK(PeerLocaleconv);

void PeerIcuSymbolOfAnOpenFormat(benchmark::State& state) {
    UErrorCode status = U_ZERO_ERROR;
    UNumberFormat* const format = unum_open(UNUM_DECIMAL, nullptr, 0, "de_DE", nullptr, &status);
    char16_t buffer[40];
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(unum_getSymbol(format, UNUM_DECIMAL_SEPARATOR_SYMBOL, buffer, 40, &status));
        benchmark::ClobberMemory();
    }
    unum_close(format);
}
BENCHMARK(PeerIcuSymbolOfAnOpenFormat);

void PeerIcuOpenNumberFormat(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        UErrorCode status = U_ZERO_ERROR;
        UNumberFormat* const format = unum_open(UNUM_CURRENCY, nullptr, 0, "de_DE", nullptr, &status);
        benchmark::DoNotOptimize(format);
        unum_close(format);
    }
}
BENCHMARK(PeerIcuOpenNumberFormat);

void PeerIcuOpenDateFormat(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        UErrorCode status = U_ZERO_ERROR;
        UDateFormat* const format = udat_open(UDAT_MEDIUM, UDAT_SHORT, "de_DE", nullptr, 0, nullptr, 0, &status);
        benchmark::DoNotOptimize(format);
        udat_close(format);
    }
}
BENCHMARK(PeerIcuOpenDateFormat);

}  // namespace
