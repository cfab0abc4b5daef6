// The pattern match beside SQLite's sqlite3_strlike on the same texts and patterns, and the string cache beside a plain
// loop over a list of names.
//
// SQLite's match ignores the case of A to Z and works on UTF-8, ours counts case and works on UTF-16; the texts are
// ASCII, so that both look at as many characters. Each pair is checked to give the same verdict. Names are
// Like/case/who; the texts are names of places, and for "long" a paragraph.
//
// The string cache is a linear scan by its format. Its peer keeps the names one after the other, each with its
// terminator, compares with the library's own _wcsicmp (zuStrICmp) and steps over each name by its length, which is
// what a plain reader of the same format does; "strings" is the same loop over a vector of strings, which knows where
// each begins.
#include <Utility/memory_blocks.h>
#include <Utility/string_cache.h>
#include <Utility/strings.h>
#include <Utility/text_tools.h>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using namespace Torvo;

void Require(bool holds, const std::string& what) {
    if (holds) return;
    std::fprintf(stderr, "text_tools_benchmark: %s\n", what.c_str());
    std::exit(1);
}

wstring16 Wide(const std::string& text) {
    return {text.begin(), text.end()};
}

struct MatchCase {
    const char* name;
    std::string text;
    std::string pattern;
    bool matches;
};

const std::string paragraph =
    "All human beings are born free and equal in dignity and rights. They are endowed with reason and conscience and "
    "should act towards one another in a spirit of brotherhood. Everyone is entitled to all the rights and freedoms "
    "set forth in this Declaration, without distinction of any kind, such as race, colour, sex, language, religion, "
    "political or other opinion, national or social origin, property, birth or other status.";

const std::vector<MatchCase>& MatchCases() {
    static const std::vector<MatchCase> cases = {
        {"equal", "Stratford-upon-Avon", "Stratford-upon-Avon", true},
        {"first-differs", "Stratford-upon-Avon", "Kingston%", false},
        {"prefix", "Stratford-upon-Avon", "Stratford%", true},
        {"suffix", "Stratford-upon-Avon", "%Avon", true},
        {"suffix-not", "Stratford-upon-Avon", "%Trent", false},
        {"inside", "Stratford-upon-Avon", "%upon%", true},
        {"inside-not", "Stratford-upon-Avon", "%under%", false},
        {"three-runs", "Stratford-upon-Avon", "S%-u%-A%n", true},
        {"underlines", "Stratford-upon-Avon", "Str_tf_rd-%-Av_n", true},
        {"escaped", "a discount of 100% today", "%100!%%", true},
        {"long-inside", paragraph, "%distinction of any kind%", true},
        {"long-inside-not", paragraph, "%distinction of one kind%", false},
        {"long-suffix", paragraph, "%other status.", true},
        {"long-two-runs", paragraph, "All%spirit%opinion%status_", true},
        {"hostile", std::string(1'000, 'a'), "%a%a%a%a%b", false},
    };
    return cases;
}

void LibraryLike(benchmark::State& state, const MatchCase& which) {
    const wstring16 text = Wide(which.text);
    const wstring16 pattern = Wide(which.pattern);
    const wchar16* s = text.c_str();
    const wchar16* p = pattern.c_str();
    bool match = false;
    for (auto _ : state) {
        benchmark::DoNotOptimize(s);
        benchmark::DoNotOptimize(p);
        benchmark::DoNotOptimize(Like(s, p, ZUTEXT("!"), &match));
    }
    Require(match == which.matches, std::string("the library's verdict on ") + which.name);
}

void PeerLike(benchmark::State& state, const MatchCase& which) {
    const char* s = which.text.c_str();
    const char* p = which.pattern.c_str();
    int result = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(s);
        benchmark::DoNotOptimize(p);
        benchmark::DoNotOptimize(result = sqlite3_strlike(p, s, '!'));
    }
    Require((result == 0) == which.matches, std::string("the peer's verdict on ") + which.name);
}

const bool registered = [] {
    for (const MatchCase& which : MatchCases()) {
        const std::string name = std::string("Like/") + which.name;
        // SQLite tries every place again for every run, so it is left out where that takes a minute for each match.
        benchmark::RegisterBenchmark((name + "/library").c_str(), LibraryLike, which);
        if (which.text != std::string(1'000, 'a')) {
            benchmark::RegisterBenchmark((name + "/sqlite").c_str(), PeerLike, which);
        }
    }
    return true;
}();

// A thousand names: numbered ones, of which each begins like the next, or words that differ from the first letter on.
std::vector<wstring16> Names(bool numbered) {
    std::vector<wstring16> names;
    for (int i = 0; i < 1'000; ++i) {
        if (numbered) {
            names.push_back(Wide("Customer " + std::to_string(10'000 + i)));
            continue;
        }
        std::string name;
        for (unsigned mixed = static_cast<unsigned>(i) * 2654435761u | 1; name.size() < 6 + mixed % 8; mixed /= 3) {
            name += static_cast<char>('a' + mixed % 26);
        }
        names.push_back(Wide(name + std::to_string(i)));
    }
    return names;
}

std::vector<wstring16> OtherCase(std::vector<wstring16> names) {
    for (wstring16& name : names) zuStrUpr(name.data());
    return names;
}

class Cache {
public:
    ~Cache() {
        void* owned = block;
        ffree_(&owned);
    }
    void Add(const std::vector<wstring16>& names, bool sorted) {
        for (const wstring16& name : names) {
            Require(CacheString(&block, name.c_str(), nullptr, 0, sorted) != 0, "a name did not fit");
        }
    }
    wchar16* block = nullptr;
};

// The names one behind the other, as a reader of the format without any care would walk them.
const wchar16* PlainFind(const wchar16* names, const wchar16* wanted) {
    for (; *names != 0; names += zuStrLen(names) + 1) {
        if (zuStrICmp(names, wanted) == 0) return names;
    }
    return nullptr;
}

void CacheNames(benchmark::State& state) {
    const std::vector<wstring16> names = Names(state.range(0) != 0);
    for (auto _ : state) {
        Cache cache;
        cache.Add(names, state.range(1) != 0);
        benchmark::DoNotOptimize(cache.block);
    }
}

void CacheNamesPlain(benchmark::State& state) {
    const std::vector<wstring16> names = Names(state.range(0) != 0);
    for (auto _ : state) {
        wstring16 packed;
        for (const wstring16& name : names) {
            if (PlainFind(packed.c_str(), name.c_str()) == nullptr) packed.append(name).push_back(0);
        }
        benchmark::DoNotOptimize(packed.data());
    }
}

void CacheNamesStrings(benchmark::State& state) {
    const std::vector<wstring16> names = Names(state.range(0) != 0);
    for (auto _ : state) {
        std::vector<wstring16> list;
        for (const wstring16& name : names) {
            bool known = false;
            for (const wstring16& entry : list) {
                known = zuStrICmp(entry.c_str(), name.c_str()) == 0;
                if (known) break;
            }
            if (!known) list.push_back(name);
        }
        benchmark::DoNotOptimize(list.data());
    }
}

void LookUpEach(benchmark::State& state) {
    const std::vector<wstring16> names = Names(state.range(0) != 0);
    const std::vector<wstring16> wanted = OtherCase(names);
    Cache cache;
    cache.Add(names, false);
    for (auto _ : state) {
        for (const wstring16& name : wanted) {
            benchmark::DoNotOptimize(GetCachedStructure(cache.block, name.c_str(), nullptr, 0));
        }
    }
}

void LookUpEachPlain(benchmark::State& state) {
    const std::vector<wstring16> names = Names(state.range(0) != 0);
    const std::vector<wstring16> wanted = OtherCase(names);
    wstring16 packed;
    for (const wstring16& name : names) packed.append(name).push_back(0);
    for (auto _ : state) {
        for (const wstring16& name : wanted) benchmark::DoNotOptimize(PlainFind(packed.c_str(), name.c_str()));
    }
}

void LookUpEachStrings(benchmark::State& state) {
    const std::vector<wstring16> names = Names(state.range(0) != 0);
    const std::vector<wstring16> wanted = OtherCase(names);
    for (auto _ : state) {
        for (const wstring16& name : wanted) {
            const wstring16* found = nullptr;
            for (const wstring16& entry : names) {
                if (zuStrICmp(entry.c_str(), name.c_str()) != 0) continue;
                found = &entry;
                break;
            }
            benchmark::DoNotOptimize(found);
        }
    }
}

BENCHMARK(CacheNames)->ArgNames({"numbered", "sorted"})->Args({0, 0})->Args({1, 0})->Args({0, 1})->Args({1, 1});
BENCHMARK(CacheNamesPlain)->ArgName("numbered")->Arg(0)->Arg(1);
BENCHMARK(CacheNamesStrings)->ArgName("numbered")->Arg(0)->Arg(1);
BENCHMARK(LookUpEach)->ArgName("numbered")->Arg(0)->Arg(1);
BENCHMARK(LookUpEachPlain)->ArgName("numbered")->Arg(0)->Arg(1);
BENCHMARK(LookUpEachStrings)->ArgName("numbered")->Arg(0)->Arg(1);

}  // namespace
