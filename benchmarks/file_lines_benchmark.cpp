// Reading a text file by lines: fgets2 beside the line reader of ICU's ustdio, which is the usual way to read a file in
// a legacy character set on systems where ICU is at hand, and beside the runtime's fgets, which converts nothing.
//
// A run reads a file of a million lines from its start to its end; both readers keep their file open and go back to the
// start. The lines are rows of a table of places: a number, a name, two coordinates, in Windows-1252 with accented
// letters and in Shift-JIS with names in kanji and kana. The time of an item is that of a line.
#include <Utility/Utility.h>
#include <benchmark/benchmark.h>
#include <unicode/ustdio.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using namespace Torvo;

constexpr int Lines = 1'000'000;
constexpr int Room = 256;

void Require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "file_lines_benchmark: %s\n", what);
    std::exit(1);
}

struct TextKind {
    const char* path;
    const char* converter;
    ZUCHARSET charset;
    const char* names[4];
    const char* lineEnd;
};

const TextKind Western{"/tmp/torvo_lines_1252.txt",
                       "windows-1252",
                       csWindowsLatin1,
                       {"D\xFCsseldorf", "S\xE3o Paulo", "London", "M\xE1laga"},
                       "\n"};
const TextKind WesternPairs{"/tmp/torvo_lines_1252crlf.txt",
                            "windows-1252",
                            csWindowsLatin1,
                            {"D\xFCsseldorf", "S\xE3o Paulo", "London", "M\xE1laga"},
                            "\r\n"};
const TextKind Japanese{
    "/tmp/torvo_lines_932.txt",
    "ibm-943_P15A-2003",
    csWindowsJapanese,
    {"\x93\x8C\x8B\x9E\x93s", "\x91\xE5\x8D\xE3\x95{", "\x83T\x83\x93\x83p\x83\x45\x83\x8D", "London"},
    "\n"};

void WriteFile(const TextKind& kind) {
    std::FILE* const file = std::fopen(kind.path, "wb");
    Require(file != nullptr, "no room for the text");
    for (int i = 0; i < Lines; ++i) {
        std::fprintf(file, "%d;%s;%d.%04d;%d.%04d%s", i, kind.names[i % 4], i % 180, i % 10000, i % 90, i * 7 % 10000,
                     kind.lineEnd);
    }
    Require(std::fclose(file) == 0, "the text could not be written");
}

void ReadHere(benchmark::State& state, const TextKind& kind) {
    WriteFile(kind);
    const std::string path = kind.path;
    FILE* const file = fregister_file(wstring16(path.begin(), path.end()).c_str(), ftNone, true);
    Require(ffileopen(file, omRead, nullptr) == file, "the text could not be opened");
    file_put_charset(file, kind.charset);
    wchar16 line[Room];
    for ([[maybe_unused]] auto _ : state) {
        fseek2(file, 0, 0);
        int lines = 0;
        while (fgets2(line, Room, file) != nullptr) ++lines;
        Require(lines == Lines, "lines are missing");
    }
    state.SetItemsProcessed(state.iterations() * Lines);
    fclose2(file);
    funregister_file(file);
    std::remove(kind.path);
}

void ReadByIcu(benchmark::State& state, const TextKind& kind) {
    WriteFile(kind);
    UFILE* const file = u_fopen(kind.path, "rb", nullptr, kind.converter);
    Require(file != nullptr, "ICU could not open the text");
    UChar line[Room];
    for ([[maybe_unused]] auto _ : state) {
        u_frewind(file);
        int lines = 0;
        while (u_fgets(line, Room, file) != nullptr) ++lines;
        Require(lines == Lines, "ICU: lines are missing");
    }
    state.SetItemsProcessed(state.iterations() * Lines);
    u_fclose(file);
    std::remove(kind.path);
}

void ReadBytes(benchmark::State& state, const TextKind& kind) {
    WriteFile(kind);
    std::FILE* const file = std::fopen(kind.path, "rb");
    char line[Room];
    for ([[maybe_unused]] auto _ : state) {
        std::rewind(file);
        int lines = 0;
        while (std::fgets(line, Room, file) != nullptr) ++lines;
        Require(lines == Lines, "the runtime: lines are missing");
    }
    state.SetItemsProcessed(state.iterations() * Lines);
    std::fclose(file);
    std::remove(kind.path);
}

BENCHMARK_CAPTURE(ReadHere, windows_1252, Western)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadByIcu, windows_1252, Western)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadBytes, windows_1252, Western)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadHere, windows_1252_crlf, WesternPairs)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadByIcu, windows_1252_crlf, WesternPairs)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadHere, shift_jis, Japanese)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadByIcu, shift_jis, Japanese)->Unit(benchmark::kMillisecond);

}  // namespace
