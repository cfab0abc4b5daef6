// The readers of times, spans and date-times, the first two beside their plain form; and what they have read written
// again. The first byte chooses how the locale writes, the second the size of the buffer; the rest is the text and, for
// writing, the picture. It stands in a block of its exact size, so that a unit too far is seen.
#include <Utility/date_times.h>
#include <Utility/errors.h>
#include <reference/plain_time_reader.h>
#include <support/time_locale.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include "input_text.h"
#include "require.h"

namespace {

using namespace Torvo;
using fuzz::Require;
using fuzz::TextOf;

constexpr test::TimeHabits Habits[] = {
    {},
    {ZUTEXT("a.m."), ZUTEXT("p.m."), 1, ZUTEXT("."), ZUTEXT("."), 1, '.'},
    {ZUTEXT(""), ZUTEXT(""), 0, ZUTEXT(":"), ZUTEXT(":"), 2, '-'},
    {ZUTEXT("\u5348\u524D"), ZUTEXT("\u5348\u5F8C"), 1, ZUTEXT("h"), ZUTEXT(" m "), 5, ' '},
};

// Writes into a block of exactly the size; a success is a text within it.
template <typename Write>
void RequireWithin(std::size_t size, Write write) {
    const auto out = std::make_unique<wchar16[]>(size);
    if (write(out.get()) && size > 0) Require(std::find(out.get(), out.get() + size, wchar16{0}) != out.get() + size);
}

void Times(const wchar16* text, const test::TimeHabits& habits, std::size_t size) {
    const test::PlainTimeReader plain(habits);
    const std::unique_ptr<zuTime> time(CreateTimeFromString(text));
    const std::optional<int64> expected = plain.ReadTime(text);
    Require((time != nullptr) == expected.has_value());
    if (time == nullptr) return;
    Require(time->GetTicks() == *expected);
    const std::unique_ptr<zuTime> again(CreateTimeFromLiteral(time->ToLiteral()));
    Require(again != nullptr && again->GetTicks() == time->GetTicks());
    RequireWithin(size, [&](wchar16* out) { return time->ToString(out, static_cast<int32>(size), text); });
}

void Numbers(const wchar16* text, const test::TimeHabits& habits) {
    int32 hours = 7;
    int32 minutes = 8;
    double seconds = 9.5;
    int32 expectedHours = 7;
    int32 expectedMinutes = 8;
    double expectedSeconds = 9.5;
    const bool expected = test::PlainTimeReader(habits).Parse(text, &expectedHours, &expectedMinutes, &expectedSeconds);
    Require(ParseTimeString(text, &hours, &minutes, &seconds) == expected);
    Require(hours == expectedHours && minutes == expectedMinutes);
    Require(std::memcmp(&seconds, &expectedSeconds, sizeof seconds) == 0);
}

void Spans(const wchar16* text, const test::TimeHabits& habits, std::size_t size) {
    const std::unique_ptr<zuTimeSpan> span(CreateTimeSpanFromString(text));
    const std::optional<int64> expected = test::PlainTimeReader(habits).ReadSpan(text);
    Require((span != nullptr) == expected.has_value());
    if (span == nullptr) return;
    Require(span->GetTicks() == *expected);
    int32 days;
    int64 literal;
    Require(span->ToLiteral(&days, &literal));
    const std::unique_ptr<zuTimeSpan> again(CreateTimeSpanFromLiteral(days, literal));
    Require(again != nullptr && again->GetTicks() == span->GetTicks());
    RequireWithin(size, [&](wchar16* out) { return span->ToString(out, size, text, size % 2 != 0); });
    RequireWithin(size, [&](wchar16* out) { return span->ToString(out, size, nullptr, size % 2 != 0); });
}

void DateTimes(const wchar16* text, std::size_t size) {
    const std::unique_ptr<zuDateTime> moment(CreateDateTimeFromString(text));
    ClearErrors();
    if (moment == nullptr) return;
    Require(IsValidDate(moment->GetDate()) && moment->GetTime() != nullptr);
    Require(moment->GetTicks() == MDY2Days(moment->GetDate()) * int64{864'000'000'000} + moment->GetTime()->GetTicks());
    int32 date;
    int64 time;
    Require(moment->ToLiteral(&date, &time));
    const std::unique_ptr<zuDateTime> again(CreateDateTimeFromLiteral(date, time));
    Require(again != nullptr && again->GetTicks() == moment->GetTicks());
    const auto order = static_cast<int16>(size % 6);
    RequireWithin(size, [&](wchar16* out) { return moment->ToString(out, size, order, text, text, text, true); });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const test::TimeHabits& habits = Habits[data[0] % std::size(Habits)];
    const test::TimeLocale locale(habits);
    const std::vector<wchar16> text = TextOf(data + 2, size - 2, (data[0] & 0x80) != 0);
    Times(text.data(), habits, data[1]);
    Numbers(text.data(), habits);
    Spans(text.data(), habits, data[1]);
    DateTimes(text.data(), data[1]);
    return 0;
}
