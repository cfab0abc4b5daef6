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

void srand(uint32 seed) {
    std::srand(seed);
}

int rand() {
    return std::rand();
}

}  // namespace Torvo::platform
