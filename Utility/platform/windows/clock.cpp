#include <Utility/platform/clock.h>

#include <cstdlib>

namespace Torvo::platform {

uint32 GetTickCount() {
    return ::GetTickCount();
}

uint32 GetDoubleClickTime() {
    return ::GetDoubleClickTime();
}

void GetLocalTime(SYSTEMTIME* time) {
    ::GetLocalTime(time);
}

bool SetLocalTime(const SYSTEMTIME* time) {
    return ::SetLocalTime(time) != 0;
}

int64 _time64() {
    return ::_time64(nullptr);
}

bool _localtime64(int64 seconds, std::tm* parts) {
    std::tm broken{};
    const __time64_t time = seconds;
    if (::_localtime64_s(&broken, &time) != 0) return false;
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
