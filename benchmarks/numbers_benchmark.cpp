// Reading and printing numbers, beside the usual ways of doing it: narrow the text and use fast_float or from_chars,
// use the C runtime, or use to_chars and widen nothing. Each iteration takes the next of 1,024 texts or values, so that
// branches cannot be learnt by heart. Coordinates have six to twelve digits behind the point, as files have them;
// "full" ones have the 15 to 17 digits of a double printed to the last.
#include <Utility/instance.h>
#include <Utility/number_parsing.h>
#include <Utility/number_printing.h>
#include <Utility/sql_numbers.h>
#include <benchmark/benchmark.h>
#include <fast_float/fast_float.h>

#include <charconv>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace Torvo;

constexpr std::size_t Count = 1024;  // a power of two

struct Samples {
    std::vector<double> values;
    std::vector<wstring16> texts;
    std::vector<std::wstring> wide;  // the same for the C library, whose wide units have 32 bits
};

template <typename Print>
Samples MakeSamples(Print print) {
    std::mt19937_64 random(1);
    Samples samples;
    for (std::size_t index = 0; index < Count; ++index) {
        char text[64];
        const double value = std::uniform_real_distribution<double>(-180, 180)(random);
        const int length = print(text, sizeof text, value, random);
        samples.values.push_back(std::strtod(text, nullptr));
        samples.texts.emplace_back(text, text + length);
        samples.wide.emplace_back(text, text + length);
    }
    return samples;
}

const Samples& Coordinates() {
    static const Samples samples = MakeSamples([](char* text, std::size_t size, double value, auto& random) {
        return std::snprintf(text, size, "%.*f", static_cast<int>(6 + random() % 7), value);
    });
    return samples;
}

const Samples& FullCoordinates() {
    static const Samples samples = MakeSamples([](char* text, std::size_t size, double value, auto&) {
        return static_cast<int>(std::to_chars(text, text + size, value).ptr - text);
    });
    return samples;
}

const Samples& Integers() {
    static const Samples samples = MakeSamples([](char* text, std::size_t size, double, auto& random) {
        return std::snprintf(text, size, "%d", static_cast<int>(random() >> (32 + random() % 31)));
    });
    return samples;
}

// What a caller writes who has 16-bit text and a narrow reader.
const char* Narrow(const wchar16* text, char* narrow) {
    while (*text != 0) *narrow++ = static_cast<char>(*text++);
    return narrow;
}

template <typename Read, typename Texts>
void ReadAll(benchmark::State& state, const Texts& texts, Read read) {
    std::size_t index = 0;
    for (auto _ : state) benchmark::DoNotOptimize(read(texts[index++ % Count].c_str()));
}

double ReadByLibrary(const wchar16* text) {
    double value;
    wchar16* end;
    StringToDouble(text, &value, &end);
    return value;
}

double ReadByFastFloat(const wchar16* text) {
    char narrow[64];
    double value = 0;
    const char* const end = Narrow(text, narrow);
    fast_float::from_chars(narrow, end, value);
    return value;
}

double ReadByFromChars(const wchar16* text) {
    char narrow[64];
    double value = 0;
    const char* const end = Narrow(text, narrow);
    std::from_chars(narrow, end, value);
    return value;
}

double ReadByWcstod(const wchar_t* text) {
    return std::wcstod(text, nullptr);
}

void StringToDouble_Coordinates(benchmark::State& state) {
    ReadAll(state, Coordinates().texts, ReadByLibrary);
}
void FastFloat_Coordinates(benchmark::State& state) {
    ReadAll(state, Coordinates().texts, ReadByFastFloat);
}
void FromChars_Coordinates(benchmark::State& state) {
    ReadAll(state, Coordinates().texts, ReadByFromChars);
}
void Wcstod_Coordinates(benchmark::State& state) {
    ReadAll(state, Coordinates().wide, ReadByWcstod);
}
void StringToDouble_Full(benchmark::State& state) {
    ReadAll(state, FullCoordinates().texts, ReadByLibrary);
}
void FastFloat_Full(benchmark::State& state) {
    ReadAll(state, FullCoordinates().texts, ReadByFastFloat);
}
void Wcstod_Full(benchmark::State& state) {
    ReadAll(state, FullCoordinates().wide, ReadByWcstod);
}

void StringToInt32_Any(benchmark::State& state) {
    ReadAll(state, Integers().texts, [](const wchar16* text) {
        int32 value;
        wchar16* end;
        StringToInt32(text, &value, &end, -2147483647 - 1, 2147483647);
        return value;
    });
}
void FromChars_Int32(benchmark::State& state) {
    ReadAll(state, Integers().texts, [](const wchar16* text) {
        char narrow[64];
        int32 value = 0;
        const char* const end = Narrow(text, narrow);
        std::from_chars(narrow, end, value);
        return value;
    });
}
void Wcstol_Int32(benchmark::State& state) {
    ReadAll(state, Integers().wide, [](const wchar_t* text) { return std::wcstol(text, nullptr, 10); });
}

template <typename Print>
void PrintAll(benchmark::State& state, Print print) {
    const std::vector<double>& values = FullCoordinates().values;
    std::size_t index = 0;
    for (auto _ : state) {
        print(values[index++ % Count]);
        benchmark::ClobberMemory();
    }
}

void DoubleToString_Fixed6(benchmark::State& state) {
    wchar16 text[40];
    PrintAll(state, [&](double value) {
        benchmark::DoNotOptimize(DoubleToString(value, text, 40, false, 6, PRINTF_FORMAT_F, -1));
    });
}
void ToChars_Fixed6(benchmark::State& state) {
    char text[400];
    PrintAll(state, [&](double value) {
        benchmark::DoNotOptimize(std::to_chars(text, text + 400, value, std::chars_format::fixed, 6));
    });
}
void Snprintf_Fixed6(benchmark::State& state) {
    char text[400];
    PrintAll(state, [&](double value) { benchmark::DoNotOptimize(std::snprintf(text, 400, "%.6f", value)); });
}
void DoubleToString_General(benchmark::State& state) {
    wchar16 text[40];
    PrintAll(state, [&](double value) {
        benchmark::DoNotOptimize(DoubleToString(value, text, 40, false, -1, PRINTF_FORMAT_G, -1));
    });
}
void ToChars_General6(benchmark::State& state) {
    char text[400];
    PrintAll(state, [&](double value) {
        benchmark::DoNotOptimize(std::to_chars(text, text + 400, value, std::chars_format::general, 6));
    });
}
void CoordinateToString_Full(benchmark::State& state) {
    wchar16 text[40];
    PrintAll(state, [&](double value) { benchmark::DoNotOptimize(CoordinateToString(value, text, 40)); });
}
void ToChars_Fixed12(benchmark::State& state) {
    char text[400];
    PrintAll(state, [&](double value) {
        benchmark::DoNotOptimize(std::to_chars(text, text + 400, value, std::chars_format::fixed, 12));
    });
}
void Snprintf_Fixed12(benchmark::State& state) {
    char text[400];
    PrintAll(state, [&](double value) { benchmark::DoNotOptimize(std::snprintf(text, 400, "%.12f", value)); });
}

void SQLDoubleToString_Money(benchmark::State& state) {
    wchar16 text[40];
    for (auto _ : state) {
        benchmark::DoNotOptimize(zuSQLDoubleToString(9999990.0, u"9,999,990.00", text, 40));
        benchmark::ClobberMemory();
    }
}
void SQLStringToDouble_Money(benchmark::State& state) {
    double value = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(zuSQLStringToDouble(u"9,999,990.00", u"9,999,990.00", &value));
        benchmark::ClobberMemory();
    }
}
void GroupedForUI(benchmark::State& state) {
    wchar16 text[40];
    PrintAll(state, [&](double value) {
        benchmark::DoNotOptimize(DoubleToString(value * 1e6, text, 40, true, 2, PRINTF_FORMAT_F, -1));
    });
}

BENCHMARK(StringToDouble_Coordinates);
BENCHMARK(FastFloat_Coordinates);
BENCHMARK(FromChars_Coordinates);
BENCHMARK(Wcstod_Coordinates);
BENCHMARK(StringToDouble_Full);
BENCHMARK(FastFloat_Full);
BENCHMARK(Wcstod_Full);
BENCHMARK(StringToInt32_Any);
BENCHMARK(FromChars_Int32);
BENCHMARK(Wcstol_Int32);
BENCHMARK(DoubleToString_Fixed6);
BENCHMARK(ToChars_Fixed6);
BENCHMARK(Snprintf_Fixed6);
BENCHMARK(DoubleToString_General);
BENCHMARK(ToChars_General6);
BENCHMARK(CoordinateToString_Full);
BENCHMARK(ToChars_Fixed12);
BENCHMARK(Snprintf_Fixed12);
BENCHMARK(GroupedForUI);
BENCHMARK(SQLDoubleToString_Money);
BENCHMARK(SQLStringToDouble_Money);

}  // namespace
