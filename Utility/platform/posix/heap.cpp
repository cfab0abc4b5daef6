#include <Utility/platform/runtime.h>

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>

namespace Torvo::platform {

void* malloc(std::size_t size) {
    return std::malloc(size);
}

void* calloc(std::size_t count, std::size_t size) {
    return std::calloc(count, size);
}

void* realloc(void* block, std::size_t size) {
    return std::realloc(block, size);
}

void free(void* block) {
    std::free(block);
}

std::size_t _msize(void* block) {
    return ::malloc_usable_size(block);
}

std::size_t LargePageBytes() {
    return std::size_t{2} << 20;
}

void WantLargePages(void* block, std::size_t size) {
    const int error = errno;
    const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    const auto start = reinterpret_cast<std::uintptr_t>(block);
    // Whole pages only: what lies beside the block is not ours.
    const std::uintptr_t first = (start + page - 1) / page * page;
    const std::uintptr_t end = (start + size) / page * page;
    if (first < end) ::madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE);
    errno = error;
}

}  // namespace Torvo::platform
