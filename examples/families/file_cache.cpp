// What the block cache holds of a file, and when the disk gets it.
#include <Utility/file_cache.h>
#include <Utility/file_io.h>
#include <Utility/files.h>
#include <Utility/instance.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    cFileCache* const cache = cFileCache::Instance();
    std::printf("%d blocks of %d bytes\n", cache->BlockCount(), cache->BlockSize());

    const int file = register_file(ZUTEXT("blocks.dat"), ftNone, true);
    if (fileopen(file, omCreate, nullptr) == -1) return 1;
    lseek2(file, 16384, 0);
    write2(file, "in the second block", 19);

    CacheEntry* entry = nullptr;
    std::printf("block 1 is here: %s\n", YesOrNo(cache->Lookup(file, 1, &entry, 0)));
    std::printf("%d bytes of it, dirty: %s\n", entry->count, YesOrNo((entry->flags & 1) != 0));
    std::printf("%s\n", static_cast<const char*>(cache->BlockData(entry->slot)));

    std::printf("flushed: %s", YesOrNo(cache->Flush(file)));
    std::printf(", dirty: %s\n", YesOrNo((entry->flags & 1) != 0));
    std::printf("block 9 is here: %s\n", YesOrNo(cache->Lookup(file, 9, &entry, 0)));

    fileremove(file);
    unregister_file(file);
    InstanceData::Destroy(false, false);
    return 0;
}
