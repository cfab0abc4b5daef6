// Where the blocks of one file stand in a cache: together, in the order of their numbers.
#pragma once

#include <Utility/file_cache.h>

#include <limits>

namespace Torvo {

// The bit of CacheEntry::flags.
inline constexpr int32 DirtyFlag = 1;

// The first position whose key is not below (handle, block), or BlockCount(). For handles above 0.
inline int FirstPositionFrom(cFileCache& cache, int handle, int64 block) {
    int low = 0;
    int high = cache.BlockCount();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        const CacheEntry* const entry = cache.EntryAt(middle);
        if (entry == nullptr) return cache.BlockCount();  // a host's that does not show them
        const bool before = entry->handle != handle ? entry->handle < handle : entry->block < block;
        if (before) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

// Where the last byte of a file that waits to be written ends; 0 if there is none.
inline int64 EndOfDirtyBlocks(cFileCache& cache, int handle) {
    int64 end = 0;
    for (int position = FirstPositionFrom(cache, handle, 0);; ++position) {
        const CacheEntry* const entry = cache.EntryAt(position);
        if (entry == nullptr || entry->handle != handle) return end;
        // A block whose end no position can tell is none of the file's.
        const bool canBeTold = entry->block < std::numeric_limits<int64>::max() / cache.BlockSize();
        if ((entry->flags & DirtyFlag) != 0 && canBeTold) end = entry->block * cache.BlockSize() + entry->count;
    }
}

}  // namespace Torvo
