// What a program that uses the library needs of the layer between the library and the system.
//
// On Windows these calls are the system's own. Elsewhere they stand in for them, so that one program serves both.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo::platform {

// The identifier of the calling thread's locale (LCID): the one that SetThreadLocale set last on this thread, else the
// one that the user's environment asks for (LC_ALL, LC_CTYPE, LANG in this order), else 0x0409, English of the United
// States.
ZUAPI uint32 GetThreadLocale();

// Sets the calling thread's locale. False, and no change, for an identifier that names no locale. The library's locale
// queries follow at once; its system charset stays what it was when the thread's services were created.
ZUAPI bool SetThreadLocale(uint32 locale);

}  // namespace Torvo::platform
