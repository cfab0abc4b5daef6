// The copying of a metafile, with the system's calls as arguments, so that a test can make each of them fail.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo::detail {

struct GlobalCalls {
    void* (*alloc)(uint32 flags, uint64 size);
    void* (*lock)(void* block);
    bool (*unlock)(void* block);
};

// The flags 66: movable, and filled with zeros.
inline constexpr uint32 BlockFlags = 66;

template <typename Handle>
void* CopyToBlock(Handle metafile, uint32 (*getBits)(Handle metafile, uint32 size, void* buffer),
                  const GlobalCalls& calls) {
    const uint32 size = getBits(metafile, 0, nullptr);
    if (size == 0) return nullptr;
    void* const block = calls.alloc(BlockFlags, size);
    void* const memory = calls.lock(block);
    if (memory == nullptr) return nullptr;
    const uint32 copied = getBits(metafile, size, memory);
    calls.unlock(block);
    // A block that stays empty is left alone, as <Utility/metafiles.h> says.
    return copied == 0 ? nullptr : block;
}

}  // namespace Torvo::detail
