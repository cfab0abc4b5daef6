// The string functions beside ICU's and the C library's, on a western system, so on the plain branch and with the query
// of the charset in every call that makes one. The C library's wide text has 32-bit units: its peers move twice the
// bytes, but do the same work per unit.
//
// In short texts the road of a call counts, in long ones the loop.

#include <Utility/charsets.h>
#include <Utility/strings.h>
#include <benchmark/benchmark.h>
#include <unicode/uchar.h>
#include <unicode/ustring.h>

#include <cwchar>
#include <string>

namespace {

using namespace Torvo;

class Western final : public cCharsetInfo {
public:
    ZUCHARSET system_charset() override { return csWindowsLatin1; }
};

// The system charset of the benchmark's thread, whatever the machine's locale is.
const bool isWestern = cCharsetInfo::Instance(new Western);

// Text of mixed case without a comma or a slash.
wstring16 Letters(std::size_t length) {
    wstring16 text(length, 'a');
    for (std::size_t index = 0; index < length; ++index) {
        text[index] = static_cast<wchar16>((index % 3 == 0 ? 'A' : 'a') + index % 26);
    }
    return text;
}

wstring16 OtherCase(wstring16 text) {
    for (wchar16& unit : text) unit = static_cast<wchar16>(unit ^ 0x20);
    return text;
}

std::wstring Wide(const wstring16& text) {
    return {text.begin(), text.end()};
}

std::size_t LengthOf(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0));
}

void Length(benchmark::State& state) {
    const wstring16 text = Letters(LengthOf(state));
    const wchar16* s = text.c_str();
    for (auto _ : state) {
        benchmark::DoNotOptimize(s);
        benchmark::DoNotOptimize(zuStrLen(s));
    }
}

void LengthIcu(benchmark::State& state) {
    const wstring16 text = Letters(LengthOf(state));
    const wchar16* s = text.c_str();
    for (auto _ : state) {
        benchmark::DoNotOptimize(s);
        benchmark::DoNotOptimize(u_strlen(s));
    }
}

void LengthLibc(benchmark::State& state) {
    const std::wstring text = Wide(Letters(LengthOf(state)));
    const wchar_t* s = text.c_str();
    for (auto _ : state) {
        benchmark::DoNotOptimize(s);
        benchmark::DoNotOptimize(std::wcslen(s));
    }
}

void EqualIgnoringCase(benchmark::State& state) {
    const wstring16 left = Letters(LengthOf(state));
    const wstring16 right = OtherCase(left);
    const wchar16* a = left.c_str();
    const wchar16* b = right.c_str();
    for (auto _ : state) {
        benchmark::DoNotOptimize(a);
        benchmark::DoNotOptimize(b);
        benchmark::DoNotOptimize(striequ(a, b));
    }
}

void CompareIgnoringCase(benchmark::State& state) {
    const wstring16 left = Letters(LengthOf(state));
    const wstring16 right = OtherCase(left);
    const wchar16* a = left.c_str();
    const wchar16* b = right.c_str();
    for (auto _ : state) {
        benchmark::DoNotOptimize(a);
        benchmark::DoNotOptimize(b);
        benchmark::DoNotOptimize(zuStrICmp(a, b));
    }
}

void CompareIgnoringCaseIcu(benchmark::State& state) {
    const wstring16 left = Letters(LengthOf(state));
    const wstring16 right = OtherCase(left);
    const wchar16* a = left.c_str();
    const wchar16* b = right.c_str();
    for (auto _ : state) {
        benchmark::DoNotOptimize(a);
        benchmark::DoNotOptimize(b);
        benchmark::DoNotOptimize(u_strcasecmp(a, b, U_FOLD_CASE_DEFAULT));
    }
}

void CompareIgnoringCaseLibc(benchmark::State& state) {
    const std::wstring left = Wide(Letters(LengthOf(state)));
    const std::wstring right = Wide(OtherCase(Letters(LengthOf(state))));
    const wchar_t* a = left.c_str();
    const wchar_t* b = right.c_str();
    for (auto _ : state) {
        benchmark::DoNotOptimize(a);
        benchmark::DoNotOptimize(b);
        benchmark::DoNotOptimize(wcscasecmp(a, b));
    }
}

void Equal(benchmark::State& state) {
    const wstring16 left = Letters(LengthOf(state));
    const wstring16 right = left;
    const wchar16* a = left.c_str();
    const wchar16* b = right.c_str();
    for (auto _ : state) {
        benchmark::DoNotOptimize(a);
        benchmark::DoNotOptimize(b);
        benchmark::DoNotOptimize(strequ(a, b));
    }
}

void EqualIcu(benchmark::State& state) {
    const wstring16 left = Letters(LengthOf(state));
    const wstring16 right = Letters(LengthOf(state));
    const wchar16* a = left.c_str();
    const wchar16* b = right.c_str();
    for (auto _ : state) {
        benchmark::DoNotOptimize(a);
        benchmark::DoNotOptimize(b);
        benchmark::DoNotOptimize(u_strcmp(a, b));
    }
}

void EqualLibc(benchmark::State& state) {
    const std::wstring left = Wide(Letters(LengthOf(state)));
    const std::wstring right = Wide(Letters(LengthOf(state)));
    const wchar_t* a = left.c_str();
    const wchar_t* b = right.c_str();
    for (auto _ : state) {
        benchmark::DoNotOptimize(a);
        benchmark::DoNotOptimize(b);
        benchmark::DoNotOptimize(std::wcscmp(a, b));
    }
}

// The character that is searched for is the last.
wstring16 WithComma(std::size_t length) {
    return Letters(length - 1) + u",";
}

void Find(benchmark::State& state) {
    const wstring16 text = WithComma(LengthOf(state));
    const wchar16* s = text.c_str();
    for (auto _ : state) {
        benchmark::DoNotOptimize(s);
        benchmark::DoNotOptimize(zuStrchr(s, ','));
    }
}

void FindIcu(benchmark::State& state) {
    const wstring16 text = WithComma(LengthOf(state));
    const wchar16* s = text.c_str();
    for (auto _ : state) {
        benchmark::DoNotOptimize(s);
        benchmark::DoNotOptimize(u_strchr(s, ','));
    }
}

void FindLibc(benchmark::State& state) {
    const std::wstring text = Wide(WithComma(LengthOf(state)));
    const wchar_t* s = text.c_str();
    for (auto _ : state) {
        benchmark::DoNotOptimize(s);
        benchmark::DoNotOptimize(std::wcschr(s, L','));
    }
}

// A set of as many members as the second argument says, the last of which is found.
wstring16 Set(const benchmark::State& state) {
    return wstring16(u";:!?/|").substr(0, static_cast<std::size_t>(state.range(1)) - 1) + u",";
}

void FindOfSet(benchmark::State& state) {
    const wstring16 text = WithComma(LengthOf(state));
    const wstring16 set = Set(state);
    const wchar16* s = text.c_str();
    for (auto _ : state) {
        benchmark::DoNotOptimize(s);
        benchmark::DoNotOptimize(zuStrpbrk(s, set.c_str()));
    }
}

void FindOfSetIcu(benchmark::State& state) {
    const wstring16 text = WithComma(LengthOf(state));
    const wstring16 set = Set(state);
    const wchar16* s = text.c_str();
    for (auto _ : state) {
        benchmark::DoNotOptimize(s);
        benchmark::DoNotOptimize(u_strpbrk(s, set.c_str()));
    }
}

void FindOfSetLibc(benchmark::State& state) {
    const std::wstring text = Wide(WithComma(LengthOf(state)));
    const std::wstring set = Wide(Set(state));
    const wchar_t* s = text.c_str();
    for (auto _ : state) {
        benchmark::DoNotOptimize(s);
        benchmark::DoNotOptimize(std::wcspbrk(s, set.c_str()));
    }
}

// A list of names, taken apart whole.
const wstring16 list = u"alpha, beta, \"gamma, delta\", epsilon, zeta, eta, theta, iota, kappa, lambda, mu, nu";

void TokensByPosition(benchmark::State& state) {
    const wstring16 delimiters = u",";
    for (auto _ : state) {
        uint64 next = 0;
        uint64 start = 0;
        uint64 length = 0;
        while (next != ~uint64{0} && zuStrtok(list, next, delimiters, &start, &length, &next, u"\"\"")) {
            benchmark::DoNotOptimize(length);
        }
    }
}

void TokensOfAnExpression(benchmark::State& state) {
    wstring16 text = list;
    for (auto _ : state) {
        text.assign(list);
        wchar16* context = text.data();
        while (wchar16* token = zuStrtok(context, u",", true, &context)) benchmark::DoNotOptimize(token);
    }
}

// ICU's tokenizer knows no quotes and does not trim.
void TokensIcu(benchmark::State& state) {
    wstring16 text = list;
    for (auto _ : state) {
        text.assign(list);
        wchar16* saved = nullptr;
        for (wchar16* token = u_strtok_r(text.data(), u",", &saved); token != nullptr;
             token = u_strtok_r(nullptr, u",", &saved)) {
            benchmark::DoNotOptimize(token);
        }
    }
}

void Lengths(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(20)->Arg(4096);
}

void LengthsAndSets(benchmark::internal::Benchmark* benchmark) {
    benchmark->Args({20, 2})->Args({4096, 2})->Args({4096, 6});
}

BENCHMARK(Length)->Apply(Lengths);
BENCHMARK(LengthIcu)->Apply(Lengths);
BENCHMARK(LengthLibc)->Apply(Lengths);
BENCHMARK(EqualIgnoringCase)->Apply(Lengths);
BENCHMARK(CompareIgnoringCase)->Apply(Lengths);
BENCHMARK(CompareIgnoringCaseIcu)->Apply(Lengths);
BENCHMARK(CompareIgnoringCaseLibc)->Apply(Lengths);
BENCHMARK(Equal)->Apply(Lengths);
BENCHMARK(EqualIcu)->Apply(Lengths);
BENCHMARK(EqualLibc)->Apply(Lengths);
BENCHMARK(Find)->Apply(Lengths);
BENCHMARK(FindIcu)->Apply(Lengths);
BENCHMARK(FindLibc)->Apply(Lengths);
BENCHMARK(FindOfSet)->Apply(LengthsAndSets);
BENCHMARK(FindOfSetIcu)->Apply(LengthsAndSets);
BENCHMARK(FindOfSetLibc)->Apply(LengthsAndSets);
BENCHMARK(TokensByPosition);
BENCHMARK(TokensOfAnExpression);
BENCHMARK(TokensIcu);

}  // namespace
