// Dates: day numbers beside std::chrono's conversions behind the same kind of boundary, texts beside strptime and
// strftime. Each iteration takes the next of 1,024 dates between 1900 and 2099, so that branches cannot be learnt by
// heart.
#include <Utility/date_strings.h>
#include <Utility/dates.h>
#include <Utility/platform/host.h>
#include <Utility/sql_dates.h>
#include <benchmark/benchmark.h>

#include <cstdio>
#include <ctime>
#include <random>
#include <string>
#include <vector>

#include "peers/calendar.h"

namespace {

using namespace Torvo;

constexpr std::size_t Count = 1024;  // a power of two
constexpr uint32 English = 0x409;
constexpr int32 FirstDay = 693595;  // 1 January 1900
constexpr int32 LastDay = 766644;   // 31 December 2099
constexpr int32 UnixEpoch = 719162;

const std::vector<int32>& Days() {
    static const std::vector<int32> days = [] {
        std::mt19937 random(1);
        std::vector<int32> made(Count);
        for (int32& day : made) day = std::uniform_int_distribution<int32>(FirstDay, LastDay)(random);
        return made;
    }();
    return days;
}

const std::vector<zuDATE>& Dates() {
    static const std::vector<zuDATE> dates = [] {
        std::vector<zuDATE> made(Count);
        for (std::size_t i = 0; i < Count; ++i) Days2MDY(Days()[i], &made[i]);
        return made;
    }();
    return dates;
}

template <typename Call>
void ForEachDate(benchmark::State& state, Call call) {
    const std::vector<zuDATE>& dates = Dates();
    std::size_t index = 0;
    for (auto _ : state) {
        zuDATE date = dates[index++ % Count];
        call(&date);
        benchmark::ClobberMemory();
    }
}

void Days_MDY2Days(benchmark::State& state) {
    ForEachDate(state, [](zuDATE* date) { benchmark::DoNotOptimize(MDY2Days(date)); });
}
void Days_Chrono(benchmark::State& state) {
    ForEachDate(state,
                [](zuDATE* date) { benchmark::DoNotOptimize(ChronoDays(reinterpret_cast<const PeerDate*>(date))); });
}

template <typename Call>
void ForEachDay(benchmark::State& state, int32 epoch, Call call) {
    std::vector<int32> days = Days();
    for (int32& day : days) day -= epoch;
    std::size_t index = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(call(days[index++ % Count]));
        benchmark::ClobberMemory();
    }
}

void Date_Days2MDY(benchmark::State& state) {
    ForEachDay(state, 0, [](int32 days) {
        zuDATE date;
        Days2MDY(days, &date);
        return date;
    });
}
void Date_Chrono(benchmark::State& state) {
    ForEachDay(state, UnixEpoch, [](int32 days) {
        PeerDate date;
        ChronoDate(days, &date);
        return date;
    });
}

void Literal_DateToLiteral(benchmark::State& state) {
    ForEachDate(state, [](zuDATE* date) { benchmark::DoNotOptimize(DateToLiteral(date)); });
}
void Literal_LiteralToDate(benchmark::State& state) {
    std::vector<int32> literals;
    for (const zuDATE& date : Dates()) literals.push_back(DateToLiteral(&date));
    std::size_t index = 0;
    for (auto _ : state) {
        zuDATE date;
        benchmark::DoNotOptimize(LiteralToDate(literals[index++ % Count], &date));
        benchmark::DoNotOptimize(date);
    }
}

// ---- Texts

struct Texts {
    std::vector<wstring16> wide;
    std::vector<std::string> narrow;
};

Texts MakeTexts(const char* format, bool monthFirst) {
    Texts texts;
    for (const zuDATE& date : Dates()) {
        char text[40];
        const int length = monthFirst ? std::snprintf(text, sizeof text, format, date.month, date.day, date.year)
                                      : std::snprintf(text, sizeof text, format, date.year, date.month, date.day);
        texts.narrow.emplace_back(text, text + length);
        texts.wide.emplace_back(text, text + length);
    }
    return texts;
}

const Texts& Literals() {
    static const Texts texts = MakeTexts("%04d%02d%02d", false);
    return texts;
}
const Texts& IsoTexts() {
    static const Texts texts = MakeTexts("%04d-%02d-%02d", false);
    return texts;
}
const Texts& LocaleTexts() {
    static const Texts texts = MakeTexts("%d/%d/%04d", true);
    return texts;
}

void ReadAll(benchmark::State& state, const Texts& texts) {
    platform::SetThreadLocale(English);
    std::size_t index = 0;
    for (auto _ : state) {
        zuDATE date;
        if (Str2Date(texts.wide[index++ % Count].c_str(), &date) == nullptr) state.SkipWithError("not read");
        benchmark::DoNotOptimize(date);
    }
}

void ReadAllByStrptime(benchmark::State& state, const Texts& texts, const char* format) {
    std::size_t index = 0;
    for (auto _ : state) {
        std::tm parts{};
        if (strptime(texts.narrow[index++ % Count].c_str(), format, &parts) == nullptr) state.SkipWithError("not read");
        benchmark::DoNotOptimize(parts);
    }
}

void Read_Literal_Str2Date(benchmark::State& state) {
    ReadAll(state, Literals());
}
void Read_Literal_Strptime(benchmark::State& state) {
    ReadAllByStrptime(state, Literals(), "%Y%m%d");
}
void Read_Iso_Str2Date(benchmark::State& state) {
    ReadAll(state, IsoTexts());
}
void Read_Iso_Strptime(benchmark::State& state) {
    ReadAllByStrptime(state, IsoTexts(), "%Y-%m-%d");
}
void Read_Locale_Str2Date(benchmark::State& state) {
    ReadAll(state, LocaleTexts());
}
void Read_Locale_Strptime(benchmark::State& state) {
    ReadAllByStrptime(state, LocaleTexts(), "%m/%d/%Y");
}

void Print_MakeDateString(benchmark::State& state) {
    wchar16 text[20];
    ForEachDate(state, [&text](zuDATE* date) {
        MakeDateString(text, 20, date, DATEORDER_YMD, '-');
        benchmark::DoNotOptimize(text);
    });
}
void Print_MakeDateStringEx(benchmark::State& state) {
    wchar16 text[20];
    ForEachDate(state, [&text](zuDATE* date) {
        MakeDateStringEx(text, 20, date, DATEORDER_YMD, ZUTEXT("-"), ZUTEXT("-"));
        benchmark::DoNotOptimize(text);
    });
}
void Print_Strftime(benchmark::State& state) {
    char text[20];
    ForEachDate(state, [&text](zuDATE* date) {
        std::tm parts{};
        parts.tm_year = date->year - 1900;
        parts.tm_mon = date->month - 1;
        parts.tm_mday = date->day;
        benchmark::DoNotOptimize(std::strftime(text, sizeof text, "%Y-%m-%d", &parts));
    });
}

void Print_FormatDateString(benchmark::State& state) {
    platform::SetThreadLocale(English);
    wchar16 text[60];
    ForEachDate(state, [&text](zuDATE* date) {
        benchmark::DoNotOptimize(FormatDateString(text, 60, *date, ZUTEXT("dddd, d MMMM yyyy")));
    });
}
void Print_StrftimeWithNames(benchmark::State& state) {
    char text[60];
    ForEachDate(state, [&text](zuDATE* date) {
        std::tm parts{};
        parts.tm_year = date->year - 1900;
        parts.tm_mon = date->month - 1;
        parts.tm_mday = date->day;
        benchmark::DoNotOptimize(std::strftime(text, sizeof text, "%A, %d %B %Y", &parts));
    });
}

void Sql_Print(benchmark::State& state) {
    platform::SetThreadLocale(English);
    wchar16 text[60];
    ForEachDate(state, [&text](zuDATE* date) {
        benchmark::DoNotOptimize(zuSQLDateToString(*date, ZUTEXT("dd-mmm-yyyy"), text, 60));
    });
}
void Sql_Read(benchmark::State& state) {
    platform::SetThreadLocale(English);
    for (auto _ : state) {
        zuDATE date;
        benchmark::DoNotOptimize(zuSQLStringToDate(ZUTEXT("29-Jul-2024"), ZUTEXT("dd-mmm-yyyy"), &date));
    }
}

BENCHMARK(Days_MDY2Days);
BENCHMARK(Days_Chrono);
BENCHMARK(Date_Days2MDY);
BENCHMARK(Date_Chrono);
BENCHMARK(Literal_DateToLiteral);
BENCHMARK(Literal_LiteralToDate);
BENCHMARK(Read_Literal_Str2Date);
BENCHMARK(Read_Literal_Strptime);
BENCHMARK(Read_Iso_Str2Date);
BENCHMARK(Read_Iso_Strptime);
BENCHMARK(Read_Locale_Str2Date);
BENCHMARK(Read_Locale_Strptime);
BENCHMARK(Print_MakeDateString);
BENCHMARK(Print_MakeDateStringEx);
BENCHMARK(Print_Strftime);
BENCHMARK(Print_FormatDateString);
BENCHMARK(Print_StrftimeWithNames);
BENCHMARK(Sql_Print);
BENCHMARK(Sql_Read);

}  // namespace
