#include <Utility/platform/host.h>
#include <Utility/platform/regions.h>

namespace Torvo::platform {

HRGN CreateRectRgn(int32 x1, int32 y1, int32 x2, int32 y2) {
    return ::CreateRectRgn(x1, y1, x2, y2);
}

bool SetRectRgn(HRGN region, int32 x1, int32 y1, int32 x2, int32 y2) {
    return ::SetRectRgn(region, x1, y1, x2, y2) != 0;
}

int CombineRgn(HRGN target, HRGN a, HRGN b, int mode) {
    return ::CombineRgn(target, a, b, mode);
}

bool EqualRgn(HRGN a, HRGN b) {
    return ::EqualRgn(a, b) != 0;
}

int GetRgnBox(HRGN region, RECT* box) {
    return ::GetRgnBox(region, box);
}

bool DeleteObject(HRGN region) {
    return ::DeleteObject(region) != 0;
}

HMETAFILE SetMetaFileBitsEx(uint32 size, const void* bits) {
    return ::SetMetaFileBitsEx(size, static_cast<const BYTE*>(bits));
}

HENHMETAFILE SetEnhMetaFileBits(uint32 size, const void* bits) {
    return ::SetEnhMetaFileBits(size, static_cast<const BYTE*>(bits));
}

bool DeleteMetaFile(HMETAFILE metafile) {
    return ::DeleteMetaFile(metafile) != 0;
}

bool DeleteEnhMetaFile(HENHMETAFILE metafile) {
    return ::DeleteEnhMetaFile(metafile) != 0;
}

uint32 GetMetaFileBitsEx(HMETAFILE metafile, uint32 size, void* buffer) {
    return ::GetMetaFileBitsEx(metafile, size, buffer);
}

uint32 GetEnhMetaFileBits(HENHMETAFILE metafile, uint32 size, void* buffer) {
    return ::GetEnhMetaFileBits(metafile, size, static_cast<BYTE*>(buffer));
}

void* GlobalAlloc(uint32 flags, uint64 size) {
    return ::GlobalAlloc(flags, size);
}

void* GlobalLock(void* block) {
    return ::GlobalLock(block);
}

bool GlobalUnlock(void* block) {
    return ::GlobalUnlock(block) != 0;
}

uint64 GlobalSize(void* block) {
    return ::GlobalSize(block);
}

void* GlobalFree(void* block) {
    return ::GlobalFree(block);
}

}  // namespace Torvo::platform
