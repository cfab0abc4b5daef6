// What of the clock functions takes the system's call as an argument, so that a test can stand in for the system.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo::detail {

// Calls `set` twice with the time; the second result.
int SetDateTimeWith(bool (*set)(const SYSTEMTIME*), const SYSTEMTIME* time);

// The platform for a system of which `isAtLeast` tells whether its version reaches a major and a minor number.
int32 PlatformOf(bool (*isAtLeast)(uint32 major, uint32 minor));

}  // namespace Torvo::detail
