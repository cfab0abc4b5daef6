#include <Utility/clock.h>
#include <Utility/frame/clock.h>
#include <Utility/frame/process_guards.h>
#include <Utility/frame/system_version.h>
#include <Utility/numbers/rounding.h>
#include <Utility/platform/clock.h>

namespace Torvo {

namespace {

constexpr uint32 MillisecondsPerHundredth = 10;

bool generatorIsSeeded = false;  // guarded by randomGuard

// Seeds the runtime's generator, once in the process.
void SeedOnce() {
    platform::EnterCriticalSection(&randomGuard.section);
    if (!generatorIsSeeded) {
        platform::srand(platform::GetTickCount() / MillisecondsPerHundredth);
        generatorIsSeeded = true;
    }
    platform::LeaveCriticalSection(&randomGuard.section);
}

}  // namespace

int detail::SetDateTimeWith(bool (*set)(const SYSTEMTIME*), const SYSTEMTIME* time) {
    set(time);
    return set(time) ? 1 : 0;
}

int32 detail::PlatformOf(bool (*isAtLeast)(uint32 major, uint32 minor)) {
    if (isAtLeast(6, 0)) return PlatformVersion6;
    return isAtLeast(5, 1) ? PlatformVersion5 : PlatformOlder;
}

int64 time_100() {
    return platform::GetTickCount() / MillisecondsPerHundredth;
}

int64 DoubleClickTime_100() {
    return platform::GetDoubleClickTime() / MillisecondsPerHundredth;
}

void Sleep100(double hundredths) {
    const auto wait = static_cast<uint64>(detail::TruncateToInt64(hundredths));
    const auto end = static_cast<int64>(static_cast<uint64>(time_100()) + wait);
    while (time_100() < end) {
    }
}

int random_number(int n) {
    SeedOnce();
    const int number = platform::rand();
    return n == 0 ? 0 : number % n;
}

ZU_PLATFORM SystemPlatform() {
    return static_cast<ZU_PLATFORM>(detail::PlatformOf(SystemIsAtLeast));
}

void GetDateTime(SYSTEMTIME* time) {
    if (time != nullptr) platform::GetLocalTime(time);
}

int SetDateTime(SYSTEMTIME* time) {
    return time != nullptr ? detail::SetDateTimeWith(platform::SetLocalTime, time) : 0;
}

}  // namespace Torvo
