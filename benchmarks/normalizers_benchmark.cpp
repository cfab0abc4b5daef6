// Normalizers beside ICU called directly, on names of twenty units: two Swedish place names each, cut to that length.
//
// How to read it: the argument of a comparison says how many units the two names share at their beginning. ByTable is
// the Swedish table normalizer, Unicode the Unicode normalizer of Swedish; Icu is the same collator of ICU at the same
// strength. Each iteration takes another of 256 names, so that no branch is learnt by heart. KeyTexts compares what
// Normalize wrote, and its peer is memcmp over the keys, whose lengths it is told.

#include <Utility/memory_blocks.h>
#include <Utility/normalizers.h>
#include <benchmark/benchmark.h>
#include <unicode/ucol.h>
#include <unicode/unorm2.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace Torvo;

constexpr std::size_t nameCount = 256;
constexpr std::size_t nameUnits = 20;
constexpr uint16 swedishTable = 1298;
constexpr uint32 swedish = 0x041D;

std::vector<wstring16> Names(std::size_t step) {
    static const wstring16 places[] = {
        u"Alingsås", u"Borlänge",   u"Gävle",    u"Göteborg", u"Hässleholm", u"Jönköping", u"Kristianstad", u"Luleå",
        u"Malmö",    u"Norrköping", u"Nyköping", u"Skövde",   u"Uppsala",    u"Västerås",  u"Ängelholm",    u"Örebro"};
    std::vector<wstring16> names;
    for (std::size_t index = 0; index < nameCount; ++index) {
        wstring16 name;
        for (std::size_t part = index * step; name.size() < nameUnits; part = part / 16 + 5) {
            name += places[part % std::size(places)] + u' ';
        }
        names.push_back(name.substr(0, nameUnits));
    }
    return names;
}

// Pairs of names of which the second has the first's beginning.
struct Pairs {
    explicit Pairs(std::size_t shared) : first(Names(7)), second(Names(11)) {
        for (std::size_t index = 0; index < nameCount; ++index) {
            second[index] = first[index].substr(0, shared) + second[index].substr(shared);
            if (shared < nameUnits && second[index][shared] == first[index][shared]) second[index][shared] = u'q';
        }
    }
    std::vector<wstring16> first;
    std::vector<wstring16> second;
};

class IcuCollator {
public:
    IcuCollator() {
        UErrorCode status = U_ZERO_ERROR;
        collator = ucol_open("sv_SE", &status);
        if (U_FAILURE(status)) throw std::runtime_error("no collator");
        ucol_setStrength(collator, UCOL_SECONDARY);
    }
    ~IcuCollator() { ucol_close(collator); }
    IcuCollator(const IcuCollator&) = delete;
    IcuCollator& operator=(const IcuCollator&) = delete;

    UCollator* collator;
};

StringNormalizer& TableNormalizer() {
    return *GetNormalizer(csWindowsLatin1, swedishTable, 0);
}

StringNormalizer& UnicodeNormalizer() {
    return *GetNormalizer(csUTF16, 1, swedish);
}

void CompareWith(benchmark::State& state, StringNormalizer& normalizer) {
    const Pairs pairs(static_cast<std::size_t>(state.range(0)));
    std::size_t at = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(normalizer.Compare(pairs.first[at].c_str(), pairs.second[at].c_str()));
        at = (at + 1) % nameCount;
    }
}

void CompareByTable(benchmark::State& state) {
    CompareWith(state, TableNormalizer());
}

void CompareUnicode(benchmark::State& state) {
    CompareWith(state, UnicodeNormalizer());
}

void CompareIcu(benchmark::State& state) {
    const Pairs pairs(static_cast<std::size_t>(state.range(0)));
    const IcuCollator icu;
    std::size_t at = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(ucol_strcoll(icu.collator, pairs.first[at].c_str(), -1, pairs.second[at].c_str(), -1));
        at = (at + 1) % nameCount;
    }
}

BENCHMARK(CompareByTable)->Arg(0)->Arg(10)->Arg(20);
BENCHMARK(CompareUnicode)->Arg(0)->Arg(10)->Arg(20);
BENCHMARK(CompareIcu)->Arg(0)->Arg(10)->Arg(20);

void NormalizeInPlaceByTable(benchmark::State& state) {
    const std::vector<wstring16> names = Names(7);
    StringNormalizer& normalizer = TableNormalizer();
    wchar16 text[nameUnits + 1] = {};
    std::size_t at = 0;
    for (auto _ : state) {
        std::memcpy(text, names[at].c_str(), sizeof text);
        normalizer.NormalizeInPlace(text, 0);
        benchmark::ClobberMemory();
        at = (at + 1) % nameCount;
    }
}
BENCHMARK(NormalizeInPlaceByTable);

void SortKeyIcu(benchmark::State& state) {
    const std::vector<wstring16> names = Names(7);
    const IcuCollator icu;
    uint8 key[200];
    std::size_t at = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            ucol_getSortKey(icu.collator, names[at].c_str(), -1, key, static_cast<int32_t>(sizeof key)));
        benchmark::ClobberMemory();
        at = (at + 1) % nameCount;
    }
}
BENCHMARK(SortKeyIcu);

// Names as they are (0), or with each accent as a mark of its own (1).
std::vector<wstring16> ComposedOrNot(const benchmark::State& state) {
    std::vector<wstring16> names = Names(7);
    if (state.range(0) == 0) return names;
    UErrorCode status = U_ZERO_ERROR;
    for (wstring16& name : names) {
        wchar16 decomposed[100];
        const int32_t units =
            unorm2_normalize(unorm2_getNFDInstance(&status), name.c_str(), -1, decomposed, 100, &status);
        name.assign(decomposed, static_cast<std::size_t>(units));
    }
    return names;
}

void NormalizeUnicode(benchmark::State& state) {
    const std::vector<wstring16> names = ComposedOrNot(state);
    StringNormalizer& normalizer = UnicodeNormalizer();
    std::size_t at = 0;
    for (auto _ : state) {
        wchar16* key = nullptr;
        uint64 units = 0;
        normalizer.Normalize(names[at].c_str(), &key, &units);
        benchmark::DoNotOptimize(key);
        void* block = key;
        ffree_(&block);
        at = (at + 1) % nameCount;
    }
}

// The same work: composed text, its key, and a block of its own that holds the key.
void NormalizeIcu(benchmark::State& state) {
    const std::vector<wstring16> names = ComposedOrNot(state);
    const IcuCollator icu;
    UErrorCode status = U_ZERO_ERROR;
    const UNormalizer2* const composer = unorm2_getNFCInstance(&status);
    std::size_t at = 0;
    for (auto _ : state) {
        wchar16 composed[200];
        uint8 key[400];
        const int32_t length = unorm2_normalize(composer, names[at].c_str(), static_cast<int32_t>(names[at].size()),
                                                composed, static_cast<int32_t>(std::size(composed)), &status);
        const int32_t size = ucol_getSortKey(icu.collator, composed, length, key, static_cast<int32_t>(sizeof key));
        void* const block = std::malloc(static_cast<std::size_t>(size));
        std::memcpy(block, key, static_cast<std::size_t>(size));
        benchmark::DoNotOptimize(block);
        std::free(block);
        at = (at + 1) % nameCount;
    }
}

BENCHMARK(NormalizeUnicode)->Arg(0)->Arg(1);
BENCHMARK(NormalizeIcu)->Arg(0)->Arg(1);

struct Keys {
    explicit Keys(const std::vector<wstring16>& names) {
        for (const wstring16& name : names) {
            wchar16* key = nullptr;
            uint64 units = 0;
            UnicodeNormalizer().Normalize(name.c_str(), &key, &units);
            texts.emplace_back(key, units);
            void* block = key;
            ffree_(&block);
        }
    }
    std::vector<wstring16> texts;
};

void CompareKeyTexts(benchmark::State& state) {
    const Pairs pairs(static_cast<std::size_t>(state.range(0)));
    const Keys first(pairs.first);
    const Keys second(pairs.second);
    StringNormalizer& normalizer = UnicodeNormalizer();
    std::size_t at = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(normalizer.Compare(first.texts[at].c_str(), second.texts[at].c_str()));
        at = (at + 1) % nameCount;
    }
}

void CompareKeysMemcmp(benchmark::State& state) {
    const Pairs pairs(static_cast<std::size_t>(state.range(0)));
    const Keys first(pairs.first);
    const Keys second(pairs.second);
    std::size_t at = 0;
    for (auto _ : state) {
        const wstring16& a = first.texts[at];
        const wstring16& b = second.texts[at];
        benchmark::DoNotOptimize(std::memcmp(a.data(), b.data(), 2 * std::min(a.size(), b.size())));
        at = (at + 1) % nameCount;
    }
}

BENCHMARK(CompareKeyTexts)->Arg(0)->Arg(10)->Arg(20);
BENCHMARK(CompareKeysMemcmp)->Arg(0)->Arg(10)->Arg(20);

}  // namespace
