// The clock in hundredths of a second, the local time, a random number.
#include <Utility/clock.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    const int64 before = time_100();
    Sleep100(3);
    std::printf("three hundredths have passed: %s\n", YesOrNo(time_100() - before >= 3));

    SYSTEMTIME now{};
    GetDateTime(&now);
    std::printf("a month: %s, an hour: %s\n", YesOrNo(now.wMonth >= 1 && now.wMonth <= 12), YesOrNo(now.wHour < 24));

    bool isInRange = true;
    for (int i = 0; i < 1000; ++i) {
        const int number = random_number(6);
        isInRange = isInRange && number >= 0 && number < 6;
    }
    std::printf("a die from 0 to 5: %s\n", YesOrNo(isInRange));
    std::printf("version 6 or later: %s\n", YesOrNo(SystemPlatform() == PlatformVersion6));
    return 0;
}
