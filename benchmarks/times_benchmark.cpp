// Moments from text and to text, beside absl::ParseTime and absl::FormatTime, which do the same by a format.
//
// Each of our readings makes an object on the heap and deletes it; the peer's result is a value. Each of our calls asks
// for the thread's locale, and reading for how it writes dates and times; the peer's are always in the same form. The
// texts of a run are different ones, so that no branch of either side learns them by heart. Run with the locale en-US.
#include <Utility/Utility.h>
#include <absl/time/time.h>
#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace Torvo;

constexpr std::size_t Moments = 256;
constexpr uint32 English = 0x0409;

// Moments of a century, the same in each run.
std::vector<int64> RandomTicks() {
    std::mt19937_64 random(5);
    std::uniform_int_distribution<int64> days(700'000, 740'000);
    std::uniform_int_distribution<int64> ticksOfDay(0, 864'000'000'000 - 1);
    std::vector<int64> ticks(Moments);
    for (int64& moment : ticks) moment = days(random) * 864'000'000'000 + ticksOfDay(random);
    return ticks;
}

// The moments in a form of printf, of month, day, year, hours, minutes, seconds and fraction.
std::vector<std::string> NarrowTexts(const char* form) {
    std::vector<std::string> texts;
    for (const int64 ticks : RandomTicks()) {
        const std::unique_ptr<zuDateTime> moment(CreateDateTime(ticks));
        char text[64];
        std::snprintf(text, sizeof text, form, moment->GetMonth(), moment->GetDay(), moment->GetYear(),
                      moment->GetHours(), moment->GetMinutes(), moment->GetSeconds(), moment->GetFraction());
        texts.emplace_back(text);
    }
    return texts;
}

std::vector<wstring16> WideTexts(const char* form) {
    std::vector<wstring16> texts;
    for (const std::string& text : NarrowTexts(form)) texts.emplace_back(text.begin(), text.end());
    return texts;
}

constexpr char WithSeconds[] = "%d/%d/%d %02d:%02d:%02d";
constexpr char WithFraction[] = "%d/%d/%d %02d:%02d:%02d.%07d";
constexpr char AsLiteral[] = "%3$04d%1$02d%2$02d%4$02d%5$02d%6$02d%7$07d";

// ---- Reading

void ReadDateTime(benchmark::State& state, const char* form) {
    platform::SetThreadLocale(English);
    const std::vector<wstring16> texts = WideTexts(form);
    std::size_t next = 0;
    for ([[maybe_unused]] auto _ : state) {
        zuDateTime* const moment = CreateDateTimeFromString(texts[next++ % Moments].c_str());
        if (moment == nullptr) state.SkipWithError("not read");
        benchmark::DoNotOptimize(moment);
        delete moment;
    }
}
BENCHMARK_CAPTURE(ReadDateTime, Seconds, WithSeconds);
BENCHMARK_CAPTURE(ReadDateTime, Fraction, WithFraction);
BENCHMARK_CAPTURE(ReadDateTime, Literal, AsLiteral);

void PeerReadDateTime(benchmark::State& state, const char* form, const char* format) {
    const std::vector<std::string> texts = NarrowTexts(form);
    std::size_t next = 0;
    absl::Time moment;
    std::string error;
    for ([[maybe_unused]] auto _ : state) {
        if (!absl::ParseTime(format, texts[next++ % Moments], &moment, &error)) state.SkipWithError("not read");
        benchmark::DoNotOptimize(moment);
    }
}
BENCHMARK_CAPTURE(PeerReadDateTime, AbslSeconds, WithSeconds, "%m/%d/%Y %H:%M:%S");
BENCHMARK_CAPTURE(PeerReadDateTime, AbslFraction, WithFraction, "%m/%d/%Y %H:%M:%E*S");

// ---- Writing

void WriteDateTime(benchmark::State& state, const wchar16* picture) {
    platform::SetThreadLocale(English);
    std::vector<std::unique_ptr<zuDateTime>> moments;
    for (const int64 ticks : RandomTicks()) moments.emplace_back(CreateDateTime(ticks));
    std::size_t next = 0;
    wchar16 text[64];
    for ([[maybe_unused]] auto _ : state) {
        const bool isWritten =
            moments[next++ % Moments]->ToString(text, 64, 2, ZUTEXT("-"), ZUTEXT("-"), picture, true);
        if (!isWritten) state.SkipWithError("not written");
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK_CAPTURE(WriteDateTime, Seconds, ZUTEXT("HH:mm:ss"));
BENCHMARK_CAPTURE(WriteDateTime, Fraction, ZUTEXT("HH:mm:ss.fffffff"));

// With the object that has been made for it, since a table holds literals.
void WriteNewDateTime(benchmark::State& state, const wchar16* picture) {
    platform::SetThreadLocale(English);
    const std::vector<int64> moments = RandomTicks();
    std::size_t next = 0;
    wchar16 text[64];
    for ([[maybe_unused]] auto _ : state) {
        const std::unique_ptr<zuDateTime> moment(CreateDateTime(moments[next++ % Moments]));
        const bool isWritten = moment->ToString(text, 64, 2, ZUTEXT("-"), ZUTEXT("-"), picture, true);
        if (!isWritten) state.SkipWithError("not written");
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK_CAPTURE(WriteNewDateTime, Seconds, ZUTEXT("HH:mm:ss"));
BENCHMARK_CAPTURE(WriteNewDateTime, Fraction, ZUTEXT("HH:mm:ss.fffffff"));

void PeerWriteDateTime(benchmark::State& state, const char* format) {
    constexpr int64 TicksToTheEpoch = 621'355'968'000'000'000;
    std::vector<absl::Time> moments;
    for (const int64 ticks : RandomTicks()) {
        moments.push_back(absl::UnixEpoch() + (ticks - TicksToTheEpoch) * absl::Nanoseconds(100));
    }
    const absl::TimeZone utc = absl::UTCTimeZone();
    std::size_t next = 0;
    for ([[maybe_unused]] auto _ : state) {
        std::string text = absl::FormatTime(format, moments[next++ % Moments], utc);
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK_CAPTURE(PeerWriteDateTime, AbslSeconds, "%Y-%m-%d %H:%M:%S");
BENCHMARK_CAPTURE(PeerWriteDateTime, AbslFraction, "%Y-%m-%d %H:%M:%E7S");

// ---- The halves, and what an object costs

void ReadTime(benchmark::State& state) {
    platform::SetThreadLocale(English);
    std::vector<wstring16> texts;
    for (const wstring16& text : WideTexts(WithFraction)) texts.push_back(text.substr(text.find(' ') + 1));
    std::size_t next = 0;
    for ([[maybe_unused]] auto _ : state) {
        const std::unique_ptr<zuTime> time(CreateTimeFromString(texts[next++ % Moments].c_str()));
        benchmark::DoNotOptimize(time->GetTicks());
    }
}
BENCHMARK(ReadTime);

void MakeDateTime(benchmark::State& state) {
    const std::vector<int64> moments = RandomTicks();
    std::size_t next = 0;
    for ([[maybe_unused]] auto _ : state) {
        const std::unique_ptr<zuDateTime> moment(CreateDateTime(moments[next++ % Moments]));
        benchmark::DoNotOptimize(moment->GetDay());
    }
}
BENCHMARK(MakeDateTime);

void AddToDateTime(benchmark::State& state) {
    const std::unique_ptr<zuDateTime> moment(CreateDateTime(2024, 2, 29));
    int64 step = 864'000'000'123;
    for ([[maybe_unused]] auto _ : state) {
        if (!moment->AddTicks(step)) step = -step;
        benchmark::DoNotOptimize(moment->GetDay());
    }
}
BENCHMARK(AddToDateTime);

void ReadSpan(benchmark::State& state) {
    platform::SetThreadLocale(English);
    for ([[maybe_unused]] auto _ : state) {
        const std::unique_ptr<zuTimeSpan> span(CreateTimeSpanFromString(ZUTEXT("-3.12:30:15.25")));
        benchmark::DoNotOptimize(span->GetTicks());
    }
}
BENCHMARK(ReadSpan);

void WriteSpan(benchmark::State& state) {
    platform::SetThreadLocale(English);
    const std::unique_ptr<zuTimeSpan> span(CreateTimeSpan(-3, -12, -30, -15, -2500000));
    wchar16 text[64];
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(span->ToString(text, 64, nullptr, true));
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(WriteSpan);

}  // namespace
