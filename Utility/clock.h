// The clock and the system: up-time, waiting, the local time, a random number, the generation of the system.
//
// Times of this family are in hundredths of a second. They come from the system's count of milliseconds since its
// start, which has 32 bits: up-times begin again at 0 after some 49.7 days, and their grain is that of the count, up to
// 16 milliseconds.
//
// All of it may be called on any thread.
//
// Example: examples/families/clock.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// What SystemPlatform answers.
enum ZU_PLATFORM : int32 {
    PlatformOlder = 0,     // before 5.1
    PlatformVersion5 = 5,  // from version 5.1 on
    PlatformVersion6 = 6,  // from version 6.0 on
};

// The up-time of the system.
ZUAPI int64 time_100();
// The longest time between the two clicks of a double click.
ZUAPI int64 DoubleClickTime_100();
// Waits until the up-time has reached the present one plus `hundredths`, cut to a whole number. It never gives up the
// processor, so that it comes back at the very tick; a long wait is not for it. An amount below 1, one that no 64-bit
// integer holds, and a NaN do not wait. An end that the up-time cannot reach, because the count begins again first, is
// never reached.
ZUAPI void Sleep100(double hundredths);

// A number from 0 to n - 1: the runtime's next random number modulo n, so that it is not even for n near the runtime's
// limit (32767 on Windows). The first call of the process seeds the runtime's generator with the up-time; where the
// runtime has a generator for each thread, that seeds the calling thread's. n is not to be 0; the result for it is 0.
ZUAPI int random_number(int n);

// The generation of the system that the library runs on.
ZUAPI ZU_PLATFORM SystemPlatform();

// Stores the local time; nothing where `time` is null.
ZUAPI void GetDateTime(SYSTEMTIME* time);
// Sets the local time; not 0 if that succeeded, 0 if the time is null or none or the caller has no right to. The system
// is asked twice, because the first call goes by the daylight saving rule of the old date, and the second by that of
// the new one; the result is the second call's.
ZUAPI int SetDateTime(SYSTEMTIME* time);

}  // namespace Torvo
