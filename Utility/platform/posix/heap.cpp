#include <Utility/platform/runtime.h>

#include <malloc.h>
#include <sys/mman.h>

#include <cerrno>
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

void WantLargePages(void* begin, std::size_t size) {
    const int error = errno;
    ::madvise(begin, size, MADV_HUGEPAGE);
    errno = error;
}

}  // namespace Torvo::platform
