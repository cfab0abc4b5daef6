// Collation of Unicode text, as the ICU libraries have it, through their C interface.
//
// Where the library is linked with ICU the calls are simply there. On Windows they are found at first need: in the
// system's own `icu.dll`, else in the libraries of release 55, whose functions carry the release in their names.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo::platform {

struct Collator;

// How fine a collator tells texts apart: by letters, also by accents, ..., by everything.
enum class CollationStrength : int32 { Primary = 0, Secondary = 1, Quaternary = 3 };

// The status of a call: above 0 it failed, and this one says that the target was too small.
inline constexpr int32 CollationBufferOverflow = 15;

// The calls, by what they do. Lengths and sizes are in units, of keys in bytes. A call with a status does nothing when
// *status is above 0 at the start, and else leaves its own there; Compose and ToUpper return the length that the result
// has or would need, without a terminator, and then add one only where there is room.
struct CollationCalls {
    // A collator by the name of a locale, as in `pt_BR`; a name that means nothing gives the order common to all.
    Collator* (*open)(const char* locale, int32* status);
    void (*close)(Collator* collator);
    void (*setStrength)(Collator* collator, CollationStrength strength);
    // The key of a text that is composed. The bytes that it has or would need, a zero byte at its end included, which
    // is the only zero byte in it; 0 on failure.
    int32 (*getSortKey)(const Collator* collator, const wchar16* text, int32 length, uint8* key, int32 size);
    // -1, 0 or 1. It skips what the texts begin with alike, so where marks count from the end, or punctuation is passed
    // over, comparing the keys may give something else.
    int32 (*compare)(const Collator* collator, const wchar16* a, int32 lengthA, const wchar16* b, int32 lengthB);
    // Normalization form C.
    int32 (*compose)(const wchar16* text, int32 length, wchar16* target, int32 size, int32* status);
    // Capitals, by the rules that are common to all languages.
    int32 (*toUpper)(const wchar16* text, int32 length, wchar16* target, int32 size, int32* status);
};

// Brings a library into the process by its file name; null if it cannot.
using CollationLoader = HINSTANCE (*)(const wchar16* name);

// The calls, valid until the process ends; null if there are none, and then the next call tries again. `load` is asked
// for the libraries one by one, and no more once one is missing; it is not asked where ICU is linked, nor once the
// calls were found. Two threads that find them at once do so twice.
const CollationCalls* FindCollationCalls(CollationLoader load);

}  // namespace Torvo::platform
