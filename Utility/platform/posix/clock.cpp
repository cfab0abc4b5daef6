#include <Utility/platform/clock.h>
#include <Utility/platform/threads.h>
#include <time.h>

#include <algorithm>
#include <cstdlib>

namespace Torvo::platform {

namespace {

constexpr uint32 UsualDoubleClickTime = 500;
constexpr int FirstYearOfTm = 1900;

// The years that the system's time structure is documented for.
constexpr uint16 FirstYear = 1601;
constexpr uint16 LastYear = 30827;

tm ToTm(const SYSTEMTIME& time) {
    tm parts{};
    parts.tm_year = time.wYear - FirstYearOfTm;
    parts.tm_mon = time.wMonth - 1;
    parts.tm_mday = time.wDay;
    parts.tm_hour = time.wHour;
    parts.tm_min = time.wMinute;
    parts.tm_sec = time.wSecond;
    parts.tm_isdst = -1;
    return parts;
}

// Zones that count leap seconds have a second 60, which the system's times do not have: it is told as 59.
bool BreakDown(time_t time, tm* parts) {
    if (::localtime_r(&time, parts) == nullptr) return false;
    parts->tm_sec = std::min(parts->tm_sec, 59);
    return true;
}

bool IsTimeOfDay(const SYSTEMTIME& time) {
    return time.wHour < 24 && time.wMinute < 60 && time.wSecond < 60 && time.wMilliseconds < 1000;
}

}  // namespace

uint32 GetTickCount() {
    timespec now{};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    return static_cast<uint32>(uint64(now.tv_sec) * 1000 + uint64(now.tv_nsec) / 1000000);
}

uint32 GetDoubleClickTime() {
    return UsualDoubleClickTime;
}

void GetLocalTime(SYSTEMTIME* time) {
    timespec now{};
    tm parts{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    BreakDown(now.tv_sec, &parts);
    *time = {static_cast<uint16>(parts.tm_year + FirstYearOfTm),
             static_cast<uint16>(parts.tm_mon + 1),
             static_cast<uint16>(parts.tm_wday),
             static_cast<uint16>(parts.tm_mday),
             static_cast<uint16>(parts.tm_hour),
             static_cast<uint16>(parts.tm_min),
             static_cast<uint16>(parts.tm_sec),
             static_cast<uint16>(now.tv_nsec / 1000000)};
}

bool SetLocalTime(const SYSTEMTIME* time) {
    tm parts = ToTm(*time);
    const time_t seconds = ::mktime(&parts);
    // mktime takes 31 February for a day of March; a date that it had to move is none.
    const bool isDate = time->wYear >= FirstYear && time->wYear <= LastYear && parts.tm_mday == time->wDay &&
                        parts.tm_mon + 1 == time->wMonth;
    if (!isDate || !IsTimeOfDay(*time)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    const timespec target{seconds, time->wMilliseconds * 1000000};
    return ::clock_settime(CLOCK_REALTIME, &target) == 0;
}

int64 _time64() {
    return ::time(nullptr);
}

bool _localtime64(int64 seconds, std::tm* parts) {
    // The other runtime ends with the year 3000, and does not begin before the epoch but for the time zone.
    constexpr int64 LastSecond = 32535215999;
    constexpr int64 HalfADay = 43200;
    std::tm broken{};
    if (seconds < -HalfADay || seconds > LastSecond + HalfADay || !BreakDown(seconds, &broken)) return false;
    *parts = broken;
    return true;
}

void srand(uint32 seed) {
    std::srand(seed);
}

int rand() {
    return std::rand();
}

}  // namespace Torvo::platform
