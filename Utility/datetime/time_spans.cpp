#include <Utility/datetime/time_spans.h>

#include <Utility/datetime/span_reader.h>
#include <Utility/datetime/time_printer.h>
#include <Utility/platform/date_format.h>
#include <Utility/platform/formatted_text.h>
#include <Utility/platform/runtime.h>

#include <cstdlib>
#include <iterator>

using namespace Torvo;

namespace {

constexpr wchar16 UsualPicture[] = ZUTEXT("hh:mm:ss.fffffff");

// A part times its unit. What does not fit is noticed by its sign alone: a product that wraps around and comes back
// with the sign it ought to have passes.
int64 Product(int32 part, int64 unit) {
    const auto product = static_cast<int64>(static_cast<uint64>(int64{part}) * static_cast<uint64>(unit));
    if ((part > 0 && product < 0) || (part < 0 && product > 0)) throw zuTimeSpanImpl::Overflow;
    return product;
}

int64 Sum(int64 a, int64 b) {
    if (!CanAdd(a, b)) throw zuTimeSpanImpl::Overflow;
    return a + b;
}

int64 SumOfParts(int32 days, int32 hours, int32 minutes, int32 seconds, int32 fraction) {
    int64 sum = Product(days, TicksPerDay);
    sum = Sum(sum, Product(hours, TicksPerHour));
    sum = Sum(sum, Product(minutes, TicksPerMinute));
    sum = Sum(sum, Product(seconds, TicksPerSecond));
    return Sum(sum, fraction);
}

zuTimeSpan* CreateFromNumber(double value, int64 ticksPerUnit) {
    const int64 ticks = TicksOfNumber(value, ticksPerUnit);
    return HasTurned(value, ticks) ? nullptr : CreateTimeSpan(ticks);
}

}  // namespace

zuTimeSpanImpl::zuTimeSpanImpl(int32 days, int32 hours, int32 minutes, int32 seconds, int32 fraction)
    : ticks(SumOfParts(days, hours, minutes, seconds, fraction)) {}

int32 zuTimeSpanImpl::GetDays() const {
    return static_cast<int32>(ticks / TicksPerDay);
}

int32 zuTimeSpanImpl::GetHours() const {
    return static_cast<int32>(ticks % TicksPerDay / TicksPerHour);
}

int32 zuTimeSpanImpl::GetMinutes() const {
    return static_cast<int32>(ticks % TicksPerHour / TicksPerMinute);
}

int32 zuTimeSpanImpl::GetSeconds() const {
    return static_cast<int32>(ticks % TicksPerMinute / TicksPerSecond);
}

int32 zuTimeSpanImpl::GetMilliseconds() const {
    return static_cast<int32>(ticks % TicksPerSecond / TicksPerMillisecond);
}

int32 zuTimeSpanImpl::GetFraction() const {
    return static_cast<int32>(ticks % TicksPerSecond);
}

double zuTimeSpanImpl::GetTotalDays() const {
    return NumberOfUnits(ticks, TicksPerDay);
}

double zuTimeSpanImpl::GetTotalHours() const {
    return NumberOfUnits(ticks, TicksPerHour);
}

double zuTimeSpanImpl::GetTotalMinutes() const {
    return NumberOfUnits(ticks, TicksPerMinute);
}

double zuTimeSpanImpl::GetTotalSeconds() const {
    return NumberOfUnits(ticks, TicksPerSecond);
}

double zuTimeSpanImpl::GetTotalMilliseconds() const {
    return NumberOfUnits(ticks, TicksPerMillisecond);
}

bool zuTimeSpanImpl::SetParts(int32 days, int32 hours, int32 minutes, int32 seconds, int32 fraction) {
    return SetTicks(SumOfParts(days, hours, minutes, seconds, fraction));
}

bool zuTimeSpanImpl::SetTicks(int64 newTicks) {
    ticks = newTicks;
    return true;
}

ZU_CMP zuTimeSpanImpl::CompareTo(const zuTimeSpan* other) const {
    return Compare(this, other);
}

bool zuTimeSpanImpl::AddSpan(const zuTimeSpan* span) {
    return span != nullptr && AddTicks(span->GetTicks());
}

bool zuTimeSpanImpl::SubtractSpan(const zuTimeSpan* span) {
    if (span == nullptr || !CanSubtract(ticks, span->GetTicks())) return false;
    ticks -= span->GetTicks();
    return true;
}

bool zuTimeSpanImpl::AddDays(double value) {
    return AddUnits(*this, value, TicksPerDay);
}

bool zuTimeSpanImpl::AddHours(double value) {
    return AddUnits(*this, value, TicksPerHour);
}

bool zuTimeSpanImpl::AddMinutes(double value) {
    return AddUnits(*this, value, TicksPerMinute);
}

bool zuTimeSpanImpl::AddSeconds(double value) {
    return AddUnits(*this, value, TicksPerSecond);
}

bool zuTimeSpanImpl::AddTicks(int64 delta) {
    if (!CanAdd(ticks, delta)) return false;
    ticks += delta;
    return true;
}

// The test of a negative span runs the wrong way round, and callers know it: what would stay above the lowest span is
// refused, what leads just there passes, and what has no room wraps around.
bool zuTimeSpanImpl::SubtractTicks(int64 delta) {
    const bool isRefused = ticks < 0 && delta > 0 ? delta < ticks - LowestTicks : !CanSubtract(ticks, delta);
    if (isRefused) return false;
    ticks = WrappingSubtract(ticks, delta);
    return true;
}

zuTimeSpan* zuTimeSpanImpl::Duration() const {
    return CreateTimeSpan(ticks < 0 ? WrappingSubtract(0, ticks) : ticks);
}

bool zuTimeSpanImpl::ToString(wchar16* out, uint64 outSize, const wchar16* pattern, bool dot) const {
    SYSTEMTIME parts{};
    parts.wHour = static_cast<uint16>(std::abs(GetHours()));
    parts.wMinute = static_cast<uint16>(std::abs(GetMinutes()));
    parts.wSecond = static_cast<uint16>(std::abs(GetSeconds()));
    parts.wMilliseconds = static_cast<uint16>(std::abs(GetMilliseconds()));
    wchar16 time[32];
    const wchar16* const picture = pattern != nullptr ? pattern : UsualPicture;
    if (!PrintTime(parts, std::abs(GetFraction()), TIME_FORCE24HOURFORMAT | TIME_NOTIMEMARKER, picture, time,
                   static_cast<int32>(std::size(time)))) {
        return false;
    }
    wchar16 days[16];
    const auto daysLength =
        static_cast<uint64>(platform::swprintf(days, std::size(days), ZUTEXT("%d"), std::abs(GetDays())));
    // The point is not counted, so that a text may be found too long only while it is written.
    const uint64 length = (ticks < 0 ? 1 : 0) + daysLength + platform::wcslen(time);
    if (out == nullptr || length >= outSize) return false;
    return platform::swprintf(out, outSize, ZUTEXT("%ls%ls%ls%ls"), ticks < 0 ? ZUTEXT("-") : ZUTEXT(""), days,
                              dot ? ZUTEXT(".") : ZUTEXT(""), time) > 0;
}

bool zuTimeSpanImpl::ToLiteral(int32* days, int64* time) const {
    if (days == nullptr || time == nullptr) return false;
    *days = GetDays();
    *time = LiteralOfParts(GetHours(), GetMinutes(), GetSeconds(), GetFraction());
    return true;
}

namespace Torvo {

ZU_CMP zuTimeSpan::Compare(const zuTimeSpan* a, const zuTimeSpan* b) {
    return CompareByTicks(a, b);
}

zuTimeSpan* CreateTimeSpan(int32 hours, int32 minutes, int32 seconds) {
    return CreateTimeSpan(0, hours, minutes, seconds, 0);
}

zuTimeSpan* CreateTimeSpan(int32 days, int32 hours, int32 minutes, int32 seconds) {
    return CreateTimeSpan(days, hours, minutes, seconds, 0);
}

zuTimeSpan* CreateTimeSpan(int32 days, int32 hours, int32 minutes, int32 seconds, int32 fraction) {
    return CreateOrNull<zuTimeSpanImpl>(days, hours, minutes, seconds, fraction);
}

zuTimeSpan* CreateTimeSpan(const zuTimeSpan* other) {
    return other == nullptr ? nullptr : CreateTimeSpan(other->GetTicks());
}

zuTimeSpan* CreateTimeSpan(int64 ticks) {
    return new (std::nothrow) zuTimeSpanImpl(ticks);
}

zuTimeSpan* CreateTimeSpanFromDays(double days) {
    return CreateFromNumber(days, TicksPerDay);
}

zuTimeSpan* CreateTimeSpanFromHours(double hours) {
    return CreateFromNumber(hours, TicksPerHour);
}

zuTimeSpan* CreateTimeSpanFromMinutes(double minutes) {
    return CreateFromNumber(minutes, TicksPerMinute);
}

zuTimeSpan* CreateTimeSpanFromSeconds(double seconds) {
    return CreateFromNumber(seconds, TicksPerSecond);
}

zuTimeSpan* CreateTimeSpanFromMilliseconds(double milliseconds) {
    return CreateFromNumber(milliseconds, TicksPerMillisecond);
}

zuTimeSpan* CreateTimeSpanFromLiteral(int32 days, int64 time) {
    const LiteralParts parts(time);
    return CreateTimeSpan(days, parts.hours, parts.minutes, parts.seconds, parts.fraction);
}

zuTimeSpan* CreateTimeSpanFromString(const wchar16* text) {
    if (text == nullptr) return nullptr;
    int32 days;
    int64 time;
    if (ReadSpanLiteral(text, &days, &time)) {
        if (zuTimeSpan* const span = CreateTimeSpanFromLiteral(days, time)) return span;
    }
    double seconds;
    return ReadSpanSeconds(text, &seconds) ? CreateTimeSpanFromSeconds(seconds) : nullptr;
}

}  // namespace Torvo
