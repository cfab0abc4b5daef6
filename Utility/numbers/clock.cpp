#include <Utility/clock.h>
#include <Utility/frame/guard.h>
#include <Utility/numbers/clock.h>
#include <Utility/numbers/rounding.h>
#include <Utility/platform/clock.h>
#include <Utility/platform/version.h>

namespace Torvo {

namespace {

constexpr uint32 MillisecondsPerHundredth = 10;

// The seeding of the runtime's generator, once in the process. The guard is apart from the static objects of the frame,
// because nothing of them depends on it.
struct RandomSeed {
    ZUGuard guard;
    bool isDone = false;
};

RandomSeed randomSeed;

void SeedOnce() {
    platform::EnterCriticalSection(&randomSeed.guard.section);
    if (!randomSeed.isDone) {
        platform::srand(platform::GetTickCount() / MillisecondsPerHundredth);
        randomSeed.isDone = true;
    }
    platform::LeaveCriticalSection(&randomSeed.guard.section);
}

bool SystemIsAtLeast(uint32 major, uint32 minor) {
    platform::OSVERSIONINFOEXW version{};
    version.dwOSVersionInfoSize = sizeof version;
    version.dwMajorVersion = major;
    version.dwMinorVersion = minor;
    uint64 condition = 0;
    for (const uint32 member : {uint32{VER_MAJORVERSION}, uint32{VER_MINORVERSION}, uint32{VER_SERVICEPACKMAJOR}}) {
        condition = platform::VerSetConditionMask(condition, member, VER_GREATER_EQUAL);
    }
    return platform::VerifyVersionInfoW(&version, VER_MAJORVERSION | VER_MINORVERSION | VER_SERVICEPACKMAJOR,
                                        condition);
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
    platform::GetLocalTime(time);
}

int SetDateTime(SYSTEMTIME* time) {
    return detail::SetDateTimeWith(platform::SetLocalTime, time);
}

}  // namespace Torvo
