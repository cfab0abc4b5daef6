// Regions, metafiles and movable memory, as the graphics system has them.
//
// What a caller of the library needs of metafiles and of memory blocks (SetMetaFileBitsEx, GlobalLock and so on) is in
// <Utility/platform/host.h>.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// How regions are combined, what kind of region came out, and how a block is allocated. Macros of the same names on
// Windows.
#if !defined(_WIN32)
inline constexpr int RGN_AND = 1;
inline constexpr int RGN_OR = 2;
inline constexpr int NULLREGION = 1;
inline constexpr int SIMPLEREGION = 2;
inline constexpr int COMPLEXREGION = 3;
inline constexpr uint32 GMEM_MOVEABLE = 0x02;
inline constexpr uint32 GMEM_ZEROINIT = 0x40;
#endif

namespace platform {

#if defined(_WIN32)
using ::RECT;
#else
struct RECT {
    long32 left;
    long32 top;
    long32 right;
    long32 bottom;
};
#endif

// A region of one rectangle, whose corners may be given in any order; right and bottom sides do not belong to it, so
// that a rectangle without width or height gives an empty region. Null if memory is short.
HRGN CreateRectRgn(int32 x1, int32 y1, int32 x2, int32 y2);
// Replaces what the region holds by a rectangle.
bool SetRectRgn(HRGN region, int32 x1, int32 y1, int32 x2, int32 y2);
// Stores the intersection (RGN_AND) or the union (RGN_OR) of two regions in `target`, which may be one of them. The
// kind of region that came out; 0, with `target` as it was, on failure.
int CombineRgn(HRGN target, HRGN a, HRGN b, int mode);
// Whether two regions cover the same.
bool EqualRgn(HRGN a, HRGN b);
// The bounds of a region, all zero of an empty one, and its kind; 0 on failure.
int GetRgnBox(HRGN region, RECT* box);
// Frees a region.
bool DeleteObject(HRGN region);

// Copies at most `size` bytes of a metafile to `buffer` and tells how many; with `buffer` null how many there are. 0 on
// failure.
uint32 GetMetaFileBitsEx(HMETAFILE metafile, uint32 size, void* buffer);
uint32 GetEnhMetaFileBits(HENHMETAFILE metafile, uint32 size, void* buffer);
// A movable block of memory, by its handle; `flags` holds GMEM_MOVEABLE. Null if memory is short.
void* GlobalAlloc(uint32 flags, uint64 size);

}  // namespace platform
}  // namespace Torvo
