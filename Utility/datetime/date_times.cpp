#include <Utility/datetime/date_times.h>

#include <Utility/date_strings.h>
#include <Utility/datetime/calendar.h>
#include <Utility/datetime/time_reader.h>
#include <Utility/platform/number_text.h>
#include <Utility/platform/runtime.h>

#include <algorithm>

using namespace Torvo;

static_assert(sizeof(zuDateTimeImpl) <= 48);

namespace {

constexpr std::size_t DateDigits = 8;
constexpr std::size_t TimeDigits = 13;

constexpr int FirstYearOfTm = 1900;

int64 TicksOfDate(const zuDATE& date) {
    return MDY2Days(&date) * TicksPerDay;
}

// The moment of a text that is the digits of a literal and nothing else.
zuDateTime* CreateFromDigits(const wchar16* text, std::size_t length) {
    if (length != DateDigits + TimeDigits) return nullptr;
    const int64 date = ReadDigits(text, DateDigits);
    const int64 time = ReadDigits(text + DateDigits, TimeDigits);
    return date < 0 || time < 0 ? nullptr : CreateDateTimeFromLiteral(static_cast<int32>(date), time);
}

bool HasMoreThanSpace(const wchar16* text) {
    while (*text != 0 && platform::iswspace(*text)) ++text;
    return *text != 0;
}

}  // namespace

zuDateTimeImpl::zuDateTimeImpl(int64 fromTicks) {
    if (!SetTicks(fromTicks)) throw TicksOutOfRange;
}

zuDateTimeImpl::zuDateTimeImpl(int32 year, int32 month, int32 day, int32 hours, int32 minutes, int32 seconds,
                               int32 fraction) {
    if (!SetDateTime(static_cast<int16>(year), static_cast<int8>(month), static_cast<int8>(day), hours, minutes,
                     seconds, fraction)) {
        throw BadPart;
    }
}

zuDateTimeImpl::zuDateTimeImpl(const zuDATE* fromDate, const zuTime* fromTime) {
    if (fromDate == nullptr || !IsValidDate(fromDate)) throw BadPart;
    if (fromTime != nullptr && !time.SetTicks(fromTime->GetTicks())) throw BadPart;
    date = *fromDate;
    ticks = TicksOfDate(date) + time.GetTicks();
}

zuDateTimeImpl::zuDateTimeImpl(zuDATE fromDate) : date(fromDate), hasTime(false), ticks(TicksOfDate(fromDate)) {}

zuDateTimeImpl::zuDateTimeImpl(zuDATE fromDate, int64 ticksOfTime)
    : date(fromDate), ticks(TicksOfDate(fromDate) + ticksOfTime) {
    if (!time.SetTicks(ticksOfTime)) throw BadPart;
}

double zuDateTimeImpl::GetTotalDays() const {
    return NumberOfUnits(ticks, TicksPerDay);
}

double zuDateTimeImpl::GetTotalHours() const {
    return NumberOfUnits(ticks, TicksPerHour);
}

double zuDateTimeImpl::GetTotalMinutes() const {
    return NumberOfUnits(ticks, TicksPerMinute);
}

double zuDateTimeImpl::GetTotalSeconds() const {
    return NumberOfUnits(ticks, TicksPerSecond);
}

double zuDateTimeImpl::GetTotalMilliseconds() const {
    return NumberOfUnits(ticks, TicksPerMillisecond);
}

int32 zuDateTimeImpl::GetDayOfWeek() const {
    return DayOfWeek(static_cast<int32>(ticks / TicksPerDay));
}

// A failure of either half leaves what the other has done: callers are told.
bool zuDateTimeImpl::SetDateTime(int16 year, int8 month, int8 day, int32 hours, int32 minutes, int32 seconds,
                                 int32 fraction) {
    if (!SetDate(year, month, day, &date) || !time.SetTime(hours, minutes, seconds, fraction)) return false;
    hasTime = true;
    ticks = TicksOfDate(date) + time.GetTicks();
    return true;
}

bool zuDateTimeImpl::SetTicks(int64 newTicks) {
    if (newTicks < 0 || newTicks > LastTick) return false;
    const int64 days = newTicks / TicksPerDay;
    ticks = newTicks;
    hasTime = true;
    return Days2MDY(static_cast<int32>(days), &date) && time.SetTicks(newTicks - days * TicksPerDay);
}

bool zuDateTimeImpl::AddSpan(const zuTimeSpan* span) {
    return span != nullptr && AddTicks(span->GetTicks());
}

bool zuDateTimeImpl::AddDays(double value) {
    return AddUnits(*this, value, TicksPerDay);
}

bool zuDateTimeImpl::AddHours(double value) {
    return AddUnits(*this, value, TicksPerHour);
}

bool zuDateTimeImpl::AddMinutes(double value) {
    return AddUnits(*this, value, TicksPerMinute);
}

bool zuDateTimeImpl::AddSeconds(double value) {
    return AddUnits(*this, value, TicksPerSecond);
}

bool zuDateTimeImpl::AddTicks(int64 delta) {
    return CanAdd(ticks, delta) && SetTicks(ticks + delta);
}

bool zuDateTimeImpl::SubtractSpan(const zuTimeSpan* span) {
    return span != nullptr && SubtractTicks(span->GetTicks());
}

zuTimeSpan* zuDateTimeImpl::SubtractDateTime(const zuDateTime* other) const {
    if (other == nullptr || !CanSubtract(ticks, other->GetTicks())) return nullptr;
    return CreateTimeSpan(ticks - other->GetTicks());
}

bool zuDateTimeImpl::SubtractTicks(int64 delta) {
    return CanSubtract(ticks, delta) && SetTicks(ticks - delta);
}

bool zuDateTimeImpl::ToLiteral(int32* dateLiteral, int64* timeLiteral) const {
    if (dateLiteral == nullptr || timeLiteral == nullptr) return false;
    *dateLiteral = DateToLiteral(&date);
    *timeLiteral = hasTime ? time.ToLiteral() : -1;
    return true;
}

bool zuDateTimeImpl::ToString(wchar16* out, uint64 outSize, int16 order, const wchar16* delimiter1,
                              const wchar16* delimiter2, const wchar16* timePattern, bool blank) const {
    zuDATE copy = date;
    if (!MakeDateStringEx(out, outSize, &copy, order, delimiter1, delimiter2)) return false;
    uint64 length = platform::wcsnlen(out, outSize);
    if (blank && hasTime && length + 1 < outSize) {
        out[length++] = ' ';
        out[length] = 0;
    }
    // One unit is the terminator's.
    const bool hasRoom = length + 1 < outSize;
    if (!hasRoom || !hasTime) return true;
    constexpr uint64 largest = detail::HighestInt32;
    return time.ToString(out + length, static_cast<int32>(std::min(outSize - length, largest)), timePattern);
}

namespace Torvo {

zuDateTime* zuDateTime::MinValue() {
    return CreateDateTime(int64{0});
}

zuDateTime* zuDateTime::MaxValue() {
    return CreateDateTime(zuDateTimeImpl::LastTick);
}

ZU_CMP zuDateTime::Compare(const zuDateTime* a, const zuDateTime* b) {
    return CompareByTicks(a, b);
}

zuDateTime* CreateDateTime(int32 year, int32 month, int32 day) {
    return CreateDateTime(year, month, day, 0, 0, 0, 0);
}

zuDateTime* CreateDateTime(int32 year, int32 month, int32 day, int32 hours, int32 minutes, int32 seconds) {
    return CreateDateTime(year, month, day, hours, minutes, seconds, 0);
}

zuDateTime* CreateDateTime(int32 year, int32 month, int32 day, int32 hours, int32 minutes, int32 seconds,
                           int32 fraction) {
    return CreateOrNull<zuDateTimeImpl>(year, month, day, hours, minutes, seconds, fraction);
}

zuDateTime* CreateDateTime(zuDATE* date) {
    return CreateDateTime(date, nullptr);
}

zuDateTime* CreateDateTime(zuDATE* date, zuTime* time) {
    return CreateOrNull<zuDateTimeImpl>(static_cast<const zuDATE*>(date), static_cast<const zuTime*>(time));
}

zuDateTime* CreateDateTime(const zuDateTime* other) {
    return other == nullptr ? nullptr : CreateDateTime(other->GetTicks());
}

zuDateTime* CreateDateTime(int64 ticks) {
    return CreateOrNull<zuDateTimeImpl>(ticks);
}

zuDateTime* CreateDateTimeFromDays(double days) {
    return CreateDateTimeFromSeconds(days * 86400.0);
}

zuDateTime* CreateDateTimeFromHours(double hours) {
    return CreateDateTimeFromSeconds(hours * 3600.0);
}

zuDateTime* CreateDateTimeFromMinutes(double minutes) {
    return CreateDateTimeFromSeconds(minutes * 60.0);
}

zuDateTime* CreateDateTimeFromSeconds(double seconds) {
    const int64 ticks = TicksOfNumber(seconds, TicksPerSecond);
    return HasTurned(seconds, ticks) ? nullptr : CreateDateTime(ticks);
}

zuDateTime* CreateDateTimeFromMilliseconds(double milliseconds) {
    return CreateDateTimeFromSeconds(milliseconds / 1000.0);
}

zuDateTime* CreateDateTimeFromLiteral(int32 date, int64 time) {
    zuDATE decoded;
    if (date <= 0 || !LiteralToDate(date, &decoded)) return nullptr;
    if (time < 0) return CreateOrNull<zuDateTimeImpl>(decoded);
    int64 ticksOfTime;
    return TicksOfLiteral(time, &ticksOfTime) ? CreateOrNull<zuDateTimeImpl>(decoded, ticksOfTime) : nullptr;
}

zuDateTime* CreateDateTimeFromString(const wchar16* text) {
    if (text == nullptr) return nullptr;
    const std::size_t length = platform::wcslen(text);
    if (zuDateTime* const dateTime = CreateFromDigits(text, length)) return dateTime;
    zuDATE date;
    wchar16* end;
    if (Str2DateEx(text, &date, &end) == nullptr) return nullptr;
    // Behind a date of two fields, `end` may lie behind the terminator.
    const wchar16* const last = text + length;
    int64 ticksOfTime = 0;
    if (end < last && HasMoreThanSpace(end)) ReadTime(end, static_cast<std::size_t>(last - end), &ticksOfTime);
    return IsValidDate(&date) ? CreateOrNull<zuDateTimeImpl>(date, ticksOfTime) : nullptr;
}

zuDateTime* CreateDateTimeByClock(bool (*clock)(std::tm*)) {
    std::tm now{};
    if (!clock(&now)) return nullptr;
    return CreateDateTime(now.tm_year + FirstYearOfTm, now.tm_mon + 1, now.tm_mday, now.tm_hour, now.tm_min,
                          now.tm_sec);
}

zuDateTime* CreateDateTimeFromSystemTime() {
    return CreateDateTimeByClock(LocalClock);
}

}  // namespace Torvo
