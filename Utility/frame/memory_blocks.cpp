#include <Utility/memory_blocks.h>

#include <Utility/platform/runtime.h>

#include <algorithm>
#include <cstring>

// A heap may report more than was asked for, and the block's growth must be zero from what was asked for, not from what
// the heap reports. So whatever lies between the two is kept zero from the moment of allocation, and a block needs no
// header to remember its size in.

namespace platform = Torvo::platform;
using Torvo::uint64;

namespace {

uint64 HeapSize(void* block) {
    if (block == nullptr) return 0;
    const std::size_t size = platform::_msize(block);
    return size == static_cast<std::size_t>(-1) ? 0 : size;
}

// Clears the block from `begin` to the end that the heap reports.
void ClearFrom(uint64 begin, void* block) {
    const uint64 end = HeapSize(block);
    if (begin < end) std::memset(static_cast<char*>(block) + begin, 0, end - begin);
}

}  // namespace

bool falloc_(uint64 size, void** block, bool /*unused*/, bool zero) {
    // The heap knows what is zero already, so pages fresh from the system stay untouched until used.
    *block = zero ? platform::calloc(1, size) : platform::malloc(size);
    if (*block == nullptr) return false;
    ClearFrom(size, *block);
    return true;
}

void ffree_(void** block) {
    platform::free(*block);
    *block = nullptr;
}

bool frealloc_(uint64 size, void** block) {
    const uint64 oldSize = HeapSize(*block);
    *block = platform::realloc(*block, size);
    // Some heaps free the block and give none back for a size of 0.
    if (*block == nullptr && size == 0) *block = platform::malloc(0);
    if (*block == nullptr) return false;
    ClearFrom(std::min(oldSize, size), *block);
    return true;
}

bool GetMem_(uint64 size, void** block, bool keepIfLarger) {
    if (keepIfLarger && size <= HeapSize(*block)) return *block != nullptr;
    return frealloc_(size, block);
}

uint64 memSize(void const* block) {
    return HeapSize(const_cast<void*>(block));
}
