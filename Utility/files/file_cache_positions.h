// Where the blocks of one file stand in a cache: together, in the order of their numbers.
#pragma once

#include <Utility/file_cache.h>

namespace Torvo {

// The first position whose key is not below (handle, block), or BlockCount(). For handles above 0.
inline int FirstPositionFrom(cFileCache& cache, int handle, int64 block) {
    int low = 0;
    int high = cache.BlockCount();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        const CacheEntry* const entry = cache.EntryAt(middle);
        const bool before = entry->handle != handle ? entry->handle < handle : entry->block < block;
        if (before) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

}  // namespace Torvo
