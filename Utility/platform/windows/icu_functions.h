// The functions of the ICU libraries, looked up by name.
#pragma once

#include <Utility/platform/collation.h>

namespace Torvo::platform {

// What was found: the calls, and the functions that two of them are made of, as ICU declares them but for a status,
// which is the number of an enumeration there.
struct IcuFunctions {
    const void* (*getComposer)(int32* status) = nullptr;
    int32 (*normalize)(const void* composer, const wchar16* text, int32 length, wchar16* target, int32 size,
                       int32* status) = nullptr;
    int32 (*toUpper)(wchar16* target, int32 size, const wchar16* text, int32 length, const char* locale,
                     int32* status) = nullptr;
    CollationCalls calls{};
};

// Looks for them in the system's own library, then in those of release 55. False if neither has them all.
bool FindIcuFunctions(CollationLoader load, IcuFunctions& icu);

}  // namespace Torvo::platform
