// What a program that uses the library needs of the layer between the library and the system.
//
// On Windows these calls are the system's own. Elsewhere they stand in for them, so that one program serves both.
//
// Example: examples/families/locale_info.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo::platform {

// The identifier of the calling thread's locale (LCID): the one that SetThreadLocale set last on this thread, else the
// one that the user's environment asks for (LC_ALL, LC_CTYPE, LANG in this order; 0x0C00 if that one has no number of
// its own), else 0x0409, English of the United States.
ZUAPI uint32 GetThreadLocale();

// Sets the calling thread's locale. A language without a territory becomes the one that stands for it (0x07, German, is
// set as 0x0407, German of Germany). False, and no change, for an identifier that names no locale. The library's locale
// queries follow at once; what is read without a query (the pictures by number in <Utility/date_strings.h>) follows
// after ResetZULocaleInfo, and the system charset stays what it was when the thread's services were created.
ZUAPI bool SetThreadLocale(uint32 locale);

// Metafiles: a handle of a metafile made from its bytes, for a caller that has no other source of one. The header must
// be that of a metafile; null if it is not, or if memory is short. Each has its call to free it, false for null.
ZUAPI HMETAFILE SetMetaFileBitsEx(uint32 size, const void* bits);
ZUAPI HENHMETAFILE SetEnhMetaFileBits(uint32 size, const void* bits);
ZUAPI bool DeleteMetaFile(HMETAFILE metafile);
ZUAPI bool DeleteEnhMetaFile(HENHMETAFILE metafile);

// Movable memory blocks, in which the library hands out the contents of metafiles. Locking gives the address, or null,
// and counts; unlocking counts back, and tells whether the block is still locked. The size is at least what was asked
// for. Freeing gives null, or the block itself if that failed. Calls on one block must not overlap.
ZUAPI void* GlobalLock(void* block);
ZUAPI bool GlobalUnlock(void* block);
ZUAPI uint64 GlobalSize(void* block);
ZUAPI void* GlobalFree(void* block);

}  // namespace Torvo::platform
