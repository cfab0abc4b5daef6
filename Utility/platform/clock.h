// The clock, the pointer's double click, and the runtime's random numbers.
#pragma once

#include <Utility/platform/types.h>

#include <ctime>

namespace Torvo::platform {

// Milliseconds since the system started; wraps after 2^32 of them, some 49.7 days.
uint32 GetTickCount();
// The longest time between two clicks that make a double click, in milliseconds; 500 where the system has no such
// setting.
uint32 GetDoubleClickTime();

// The local time.
void GetLocalTime(SYSTEMTIME* time);
// Sets it; the day of the week is not looked at. False if the time is none, or the caller may not.
bool SetLocalTime(const SYSTEMTIME* time);

// Seconds since 1 January 1970, UTC.
int64 _time64();
// The local date and time of such a second, in the C library's structure. False, with nothing written, for a time that
// cannot be broken down.
bool _localtime64(int64 seconds, std::tm* parts);

// The runtime's random numbers: the seed, and the next number, from 0 up to the runtime's own limit.
void srand(uint32 seed);
int rand();

}  // namespace Torvo::platform
