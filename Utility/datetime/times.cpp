#include <Utility/datetime/times.h>

#include <Utility/datetime/calendar.h>
#include <Utility/datetime/time_printer.h>
#include <Utility/datetime/time_reader.h>
#include <Utility/platform/date_format.h>
#include <Utility/platform/runtime.h>
#include <Utility/time_spans.h>

using namespace Torvo;

namespace {

// As unsigned numbers, so that a negative part is too large.
constexpr bool AreParts(int32 hours, int32 minutes, int32 seconds, int32 fraction) {
    return static_cast<uint32>(hours) < 24 && static_cast<uint32>(minutes) < 60 && static_cast<uint32>(seconds) < 60 &&
           static_cast<uint32>(fraction) < TicksPerSecond;
}

constexpr bool IsTickOfDay(int64 ticks) {
    return static_cast<uint64>(ticks) <= static_cast<uint64>(zuTimeImpl::LastTick);
}

zuTime* CreateFromNumber(double value, int64 ticksPerUnit) {
    const int64 ticks = TicksOfNumber(value, ticksPerUnit);
    return value < 0 || ticks < 0 ? nullptr : CreateTime(ticks);
}

}  // namespace

zuTimeImpl::zuTimeImpl(int64 fromTicks) {
    if (!SetTicks(fromTicks)) throw TicksOutOfRange;
}

zuTimeImpl::zuTimeImpl(int32 fromHours, int32 fromMinutes, int32 fromSeconds, int32 fromFraction) {
    if (!SetTime(fromHours, fromMinutes, fromSeconds, fromFraction)) throw BadPart;
}

int32 zuTimeImpl::GetMilliseconds() const {
    return static_cast<int32>(fraction / TicksPerMillisecond);
}

double zuTimeImpl::GetTotalHours() const {
    return NumberOfUnits(ticks, TicksPerHour);
}

double zuTimeImpl::GetTotalMinutes() const {
    return NumberOfUnits(ticks, TicksPerMinute);
}

double zuTimeImpl::GetTotalSeconds() const {
    return NumberOfUnits(ticks, TicksPerSecond);
}

double zuTimeImpl::GetTotalMilliseconds() const {
    return NumberOfUnits(ticks, TicksPerMillisecond);
}

ZU_CMP zuTimeImpl::CompareTo(const zuTime* other) const {
    return Compare(this, other);
}

bool zuTimeImpl::AddSpan(const zuTimeSpan* span) {
    return span != nullptr && AddTicks(span->GetTicks());
}

bool zuTimeImpl::AddHours(double value) {
    return AddUnits(*this, value, TicksPerHour);
}

bool zuTimeImpl::AddMinutes(double value) {
    return AddUnits(*this, value, TicksPerMinute);
}

bool zuTimeImpl::AddSeconds(double value) {
    return AddUnits(*this, value, TicksPerSecond);
}

bool zuTimeImpl::AddTicks(int64 delta) {
    return CanAdd(ticks, delta) && TurnTo(ticks + delta);
}

bool zuTimeImpl::SubtractSpan(const zuTimeSpan* span) {
    return span != nullptr && SubtractTicks(span->GetTicks());
}

zuTimeSpan* zuTimeImpl::SubtractTime(const zuTime* other) const {
    return other == nullptr ? nullptr : CreateTimeSpan(WrappingSubtract(ticks, other->GetTicks()));
}

bool zuTimeImpl::SubtractTicks(int64 delta) {
    return CanSubtract(ticks, delta) && TurnTo(ticks - delta);
}

// Sets a clock of 24 hours to any number of ticks. Whether it stays on the same day.
bool zuTimeImpl::TurnTo(int64 sum) {
    const int64 rest = sum % TicksPerDay;
    SetTicks(rest < 0 ? rest + TicksPerDay : rest);
    return IsTickOfDay(sum);
}

bool zuTimeImpl::SetTicks(int64 newTicks) {
    if (!IsTickOfDay(newTicks)) return false;
    const auto allSeconds = static_cast<uint32>(newTicks / TicksPerSecond);
    const uint32 allMinutes = allSeconds / 60;
    ticks = newTicks;
    hours = static_cast<uint8>(allMinutes / 60);
    minutes = static_cast<uint8>(allMinutes % 60);
    seconds = static_cast<uint8>(allSeconds % 60);
    fraction = static_cast<int32>(newTicks - allSeconds * TicksPerSecond);
    return true;
}

bool zuTimeImpl::SetTime(int32 newHours, int32 newMinutes, int32 newSeconds, int32 newFraction) {
    if (!AreParts(newHours, newMinutes, newSeconds, newFraction)) return false;
    ticks = TicksOfParts(newHours, newMinutes, newSeconds, newFraction);
    hours = static_cast<uint8>(newHours);
    minutes = static_cast<uint8>(newMinutes);
    seconds = static_cast<uint8>(newSeconds);
    fraction = newFraction;
    return true;
}

int64 zuTimeImpl::ToLiteral() const {
    return LiteralOfParts(hours, minutes, seconds, fraction);
}

bool zuTimeImpl::ToString(wchar16* out, int32 outSize, const wchar16* pattern) const {
    const bool is24Hours = pattern != nullptr && platform::wcsstr(pattern, ZUTEXT("tt")) == nullptr;
    SYSTEMTIME time{};
    time.wHour = hours;
    time.wMinute = minutes;
    time.wSecond = seconds;
    time.wMilliseconds = static_cast<uint16>(GetMilliseconds());
    return PrintTime(time, fraction, is24Hours ? TIME_FORCE24HOURFORMAT : 0, pattern, out, outSize);
}

namespace Torvo {

zuTime* zuTime::MinValue() {
    return CreateTime(int64{0});
}

zuTime* zuTime::MaxValue() {
    return CreateTime(zuTimeImpl::LastTick);
}

ZU_CMP zuTime::Compare(const zuTime* a, const zuTime* b) {
    return CompareByTicks(a, b);
}

zuTime* CreateTime(int32 hours, int32 minutes, int32 seconds) {
    return CreateTime(hours, minutes, seconds, 0);
}

zuTime* CreateTime(int32 hours, int32 minutes, int32 seconds, int32 fraction) {
    return CreateOrNull<zuTimeImpl>(hours, minutes, seconds, fraction);
}

zuTime* CreateTime(const zuTime* other) {
    return other == nullptr ? nullptr : CreateTime(other->GetTicks());
}

zuTime* CreateTime(int64 ticks) {
    return CreateOrNull<zuTimeImpl>(ticks);
}

zuTime* CreateTimeFromHours(double hours) {
    return CreateFromNumber(hours, TicksPerHour);
}

zuTime* CreateTimeFromMinutes(double minutes) {
    return CreateFromNumber(minutes, TicksPerMinute);
}

zuTime* CreateTimeFromSeconds(double seconds) {
    return CreateFromNumber(seconds, TicksPerSecond);
}

zuTime* CreateTimeFromMilliseconds(double milliseconds) {
    return CreateFromNumber(milliseconds, TicksPerMillisecond);
}

zuTime* CreateTimeFromLiteral(int64 literal) {
    int64 ticks;
    return TicksOfLiteral(literal, &ticks) ? CreateTime(ticks) : nullptr;
}

zuTime* CreateTimeFromString(const wchar16* text) {
    if (text == nullptr) return nullptr;
    int64 ticks;
    return ReadTime(text, platform::wcsnlen(text, LongestTimeText + 1), &ticks) ? CreateTime(ticks) : nullptr;
}

zuTime* CreateTimeByClock(bool (*clock)(std::tm*)) {
    std::tm now{};
    if (!clock(&now)) now = {};
    return CreateTime(now.tm_hour, now.tm_min, now.tm_sec);
}

zuTime* CreateTimeFromSystemTime() {
    return CreateTimeByClock(LocalClock);
}

bool ParseTimeString(const wchar16* text, int32* hours, int32* minutes, double* seconds) {
    return text != nullptr && hours != nullptr && minutes != nullptr && seconds != nullptr &&
           ReadTimeNumbers(text, hours, minutes, seconds);
}

}  // namespace Torvo
