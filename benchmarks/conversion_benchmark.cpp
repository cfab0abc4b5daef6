// Re-coding between two single-byte sets: making a table, and applying it, beside iconv between the same two sets.
//
// How to read it: BuildTable is the cost of the first call for a pair, through the shared library and the service,
// never answered from the ten kept tables. CachedTable is the cost of every later call. RecodeByTable and RecodeByIconv
// turn the same 64 KiB of CodePage850 text into WindowsLatin1.
#include <Utility/conversion.h>
#include <benchmark/benchmark.h>
#include <iconv.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace Torvo;

constexpr std::size_t textSize = 64 * 1024;

// Letters of western Europe with a line end now and then; every character exists in both sets.
std::vector<char> Text() {
    static constexpr unsigned char accented[] = {0x81, 0x82, 0x84, 0x94, 0xE1, 0x87, 0x8A, 0x85};
    std::vector<char> text(textSize);
    for (std::size_t i = 0; i < textSize; ++i) {
        const std::size_t kind = i * 2654435761u >> 7;
        text[i] = i % 64 == 63    ? '\n'
                  : kind % 9 == 0 ? static_cast<char>(accented[kind % std::size(accented)])
                  : kind % 6 == 0 ? ' '
                                  : static_cast<char>('a' + kind % 26);
    }
    return text;
}

void Recode(const std::vector<char>& text, std::vector<char>& out) {
    unsigned char* table = nullptr;
    if (!ConvertCharset(csCodePage850, csWindowsLatin1, nullptr, &table)) throw std::logic_error("no table");
    for (std::size_t i = 0; i < text.size(); ++i) {
        out[i] = static_cast<char>(table[static_cast<unsigned char>(text[i])]);
    }
}

class Iconv {
public:
    Iconv() : descriptor(iconv_open("CP1252", "CP850")) {
        if (descriptor == reinterpret_cast<iconv_t>(-1)) throw std::runtime_error("iconv does not know the sets");
    }
    ~Iconv() { iconv_close(descriptor); }
    Iconv(const Iconv&) = delete;
    Iconv& operator=(const Iconv&) = delete;

    bool operator()(std::vector<char>& text, std::vector<char>& out) {
        char* in = text.data();
        char* to = out.data();
        std::size_t inLeft = text.size();
        std::size_t outLeft = out.size();
        return iconv(descriptor, &in, &inLeft, &to, &outLeft) == 0 && inLeft == 0 && outLeft == 0;
    }

private:
    iconv_t descriptor;
};

void BuildTable(benchmark::State& state) {
    // Twelve pairs in turn, over all runs, so that none is among the ten kept ones when it comes round again.
    static constexpr ZUCHARSET targets[] = {csISO8859_1,     csISO8859_2,     csISO8859_5, csISO8859_7,
                                            csWindowsLatin1, csWindowsLatin2, csMacRoman,  csMacIcelandic,
                                            csCodePage437,   csCodePage852,   csLICS,      csLMBCS2};
    static std::size_t next = 0;
    for (auto _ : state) {
        int unmapped = -1;
        unsigned char* table = nullptr;
        ConvertCharset(csCodePage850, targets[next], &unmapped, &table);
        benchmark::DoNotOptimize(table[65]);
        if (unmapped < 0) state.SkipWithError("answered from the kept tables");
        next = (next + 1) % std::size(targets);
    }
}
BENCHMARK(BuildTable);

void CachedTable(benchmark::State& state) {
    for (auto _ : state) {
        unsigned char* table = nullptr;
        ConvertCharset(csCodePage850, csWindowsLatin1, nullptr, &table);
        benchmark::DoNotOptimize(table);
    }
}
BENCHMARK(CachedTable);

void RecodeByTable(benchmark::State& state) {
    const std::vector<char> text = Text();
    std::vector<char> out(textSize);
    for (auto _ : state) {
        Recode(text, out);
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(textSize));
}
BENCHMARK(RecodeByTable);

void RecodeByIconv(benchmark::State& state) {
    std::vector<char> text = Text();
    std::vector<char> out(textSize);
    std::vector<char> byTable(textSize);
    Iconv convert;
    Recode(text, byTable);
    if (!convert(text, out) || out != byTable) state.SkipWithError("the two results differ");
    for (auto _ : state) {
        convert(text, out);
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(textSize));
}
BENCHMARK(RecodeByIconv);

void BytesToSystemText(benchmark::State& state) {
    const std::vector<char> text = Text();
    std::vector<wchar16> out(textSize + 1);
    for (auto _ : state) {
        if (!ConvertMBCSCharToSystem(text.data(), text.size(), csCodePage850, out.data(), textSize)) {
            state.SkipWithError("not converted");
        }
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(textSize));
}
BENCHMARK(BytesToSystemText);

}  // namespace
