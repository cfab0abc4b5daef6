#include <Utility/platform/host.h>
#include <Utility/platform/regions.h>
#include <Utility/platform/threads.h>
#include <pixman.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace Torvo {

// A region is one of pixman's, which keeps the same bands of rectangles.
struct HRGN_ {
    pixman_region32_t region;
};

namespace {

// The bytes that a metafile was made from, behind the record.
struct MetaFileBytes {
    uint32 size;
    unsigned char* bytes;

    MetaFileBytes(uint32 byteCount, const void* bits)
        : size(byteCount), bytes(static_cast<unsigned char*>(std::malloc(byteCount))) {
        if (bytes != nullptr) std::memcpy(bytes, bits, byteCount);
    }
    ~MetaFileBytes() { std::free(bytes); }
    MetaFileBytes(const MetaFileBytes&) = delete;
    MetaFileBytes& operator=(const MetaFileBytes&) = delete;
};

}  // namespace

struct HMETAFILE_ : MetaFileBytes {
    using MetaFileBytes::MetaFileBytes;
};

struct HENHMETAFILE_ : MetaFileBytes {
    using MetaFileBytes::MetaFileBytes;
};

namespace platform {

namespace {

void InitWithRect(pixman_region32_t* region, int32 x1, int32 y1, int32 x2, int32 y2) {
    if (x1 > x2) std::swap(x1, x2);
    if (y1 > y2) std::swap(y1, y2);
    // pixman takes a rectangle without area for a fault of the caller.
    if (x1 == x2 || y1 == y2) {
        pixman_region32_init(region);
    } else {
        pixman_region32_init_rect(region, x1, y1, static_cast<uint32>(x2) - static_cast<uint32>(x1),
                                  static_cast<uint32>(y2) - static_cast<uint32>(y1));
    }
}

int KindOf(pixman_region32_t* region) {
    if (!pixman_region32_not_empty(region)) return NULLREGION;
    return pixman_region32_n_rects(region) == 1 ? SIMPLEREGION : COMPLEXREGION;
}

template <typename T>
T FieldAt(const void* bits, std::size_t offset) {
    T field;
    std::memcpy(&field, static_cast<const unsigned char*>(bits) + offset, sizeof field);
    return field;
}

// The header of a metafile: its type, in memory or on disk, and its own length of nine words. The whole is in words.
bool IsMetaFile(uint32 size, const void* bits) {
    constexpr uint32 HeaderSize = 18;
    constexpr uint16 HeaderWords = HeaderSize / 2;
    if (bits == nullptr || size < HeaderSize || size % 2 != 0) return false;
    const auto type = FieldAt<uint16>(bits, 0);
    return (type == 1 || type == 2) && FieldAt<uint16>(bits, 2) == HeaderWords;
}

// The first record of an enhanced metafile has type 1 and holds the signature " EMF".
bool IsEnhMetaFile(uint32 size, const void* bits) {
    constexpr uint32 HeaderSize = 88;
    constexpr std::size_t SignatureOffset = 40;
    constexpr uint32 Signature = 0x464D4520;
    if (bits == nullptr || size < HeaderSize) return false;
    return FieldAt<uint32>(bits, 0) == 1 && FieldAt<uint32>(bits, SignatureOffset) == Signature;
}

template <typename Record>
Record* NewMetaFile(bool isValid, uint32 size, const void* bits) {
    if (!isValid) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto* const metafile = new (std::nothrow) Record(size, bits);
    if (metafile != nullptr && metafile->bytes != nullptr) return metafile;
    delete metafile;
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
}

template <typename Record>
bool Delete(Record* record) {
    delete record;
    return record != nullptr;
}

template <typename Record>
uint32 CopyBits(const Record* metafile, uint32 size, void* buffer) {
    if (metafile == nullptr) {
        SetLastError(ERROR_INVALID_HANDLE);
        return 0;
    }
    if (buffer == nullptr) return metafile->size;
    const uint32 copied = std::min(size, metafile->size);
    std::memcpy(buffer, metafile->bytes, copied);
    return copied;
}

// A movable block: the handle is the record, and the memory does not really move.
struct GlobalBlock {
    uint64 size;
    uint32 locks;
    void* memory;
};

GlobalBlock* BlockOf(void* handle) {
    if (handle == nullptr) SetLastError(ERROR_INVALID_HANDLE);
    return static_cast<GlobalBlock*>(handle);
}

}  // namespace

HRGN CreateRectRgn(int32 x1, int32 y1, int32 x2, int32 y2) {
    auto* const region = new (std::nothrow) HRGN_;
    if (region != nullptr) InitWithRect(&region->region, x1, y1, x2, y2);
    return region;
}

bool SetRectRgn(HRGN region, int32 x1, int32 y1, int32 x2, int32 y2) {
    if (region == nullptr) return false;
    pixman_region32_fini(&region->region);
    InitWithRect(&region->region, x1, y1, x2, y2);
    return true;
}

int CombineRgn(HRGN target, HRGN a, HRGN b, int mode) {
    if (target == nullptr || a == nullptr || b == nullptr || (mode != RGN_AND && mode != RGN_OR)) return 0;
    // Into a region apart, because pixman leaves a broken one when memory is short.
    pixman_region32_t combined;
    pixman_region32_init(&combined);
    const auto combine = mode == RGN_AND ? pixman_region32_intersect : pixman_region32_union;
    if (!combine(&combined, &a->region, &b->region)) {
        pixman_region32_fini(&combined);
        return 0;
    }
    std::swap(target->region, combined);
    pixman_region32_fini(&combined);
    return KindOf(&target->region);
}

bool EqualRgn(HRGN a, HRGN b) {
    return a != nullptr && b != nullptr && pixman_region32_equal(&a->region, &b->region);
}

int GetRgnBox(HRGN region, RECT* box) {
    if (region == nullptr) return 0;
    *box = {};
    if (pixman_region32_not_empty(&region->region)) {
        const pixman_box32_t* const extents = pixman_region32_extents(&region->region);
        *box = {extents->x1, extents->y1, extents->x2, extents->y2};
    }
    return KindOf(&region->region);
}

bool DeleteObject(HRGN region) {
    if (region == nullptr) return false;
    pixman_region32_fini(&region->region);
    delete region;
    return true;
}

HMETAFILE SetMetaFileBitsEx(uint32 size, const void* bits) {
    return NewMetaFile<HMETAFILE_>(IsMetaFile(size, bits), size, bits);
}

HENHMETAFILE SetEnhMetaFileBits(uint32 size, const void* bits) {
    return NewMetaFile<HENHMETAFILE_>(IsEnhMetaFile(size, bits), size, bits);
}

bool DeleteMetaFile(HMETAFILE metafile) {
    return Delete(metafile);
}

bool DeleteEnhMetaFile(HENHMETAFILE metafile) {
    return Delete(metafile);
}

uint32 GetMetaFileBitsEx(HMETAFILE metafile, uint32 size, void* buffer) {
    return CopyBits(metafile, size, buffer);
}

uint32 GetEnhMetaFileBits(HENHMETAFILE metafile, uint32 size, void* buffer) {
    return CopyBits(metafile, size, buffer);
}

void* GlobalAlloc([[maybe_unused]] uint32 flags, uint64 size) {
    auto* const block = new (std::nothrow) GlobalBlock{size, 0, std::calloc(size, 1)};
    if (block != nullptr && block->memory != nullptr) return block;
    delete block;
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
}

void* GlobalLock(void* handle) {
    GlobalBlock* const block = BlockOf(handle);
    if (block == nullptr) return nullptr;
    ++block->locks;
    return block->memory;
}

bool GlobalUnlock(void* handle) {
    GlobalBlock* const block = BlockOf(handle);
    if (block == nullptr) return false;
    if (block->locks == 0) {
        SetLastError(ERROR_NOT_LOCKED);
        return false;
    }
    SetLastError(ERROR_SUCCESS);
    return --block->locks != 0;
}

uint64 GlobalSize(void* handle) {
    const GlobalBlock* const block = BlockOf(handle);
    return block == nullptr ? 0 : block->size;
}

void* GlobalFree(void* handle) {
    if (handle == nullptr) return nullptr;
    GlobalBlock* const block = BlockOf(handle);
    std::free(block->memory);
    delete block;
    return nullptr;
}

}  // namespace platform
}  // namespace Torvo
