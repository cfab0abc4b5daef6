#include "support/failing_heap.h"

#include <atomic>
#include <cstddef>
#include <new>

// The linker resolves a call of malloc to __wrap_malloc, and __real_malloc to malloc.
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void __real_free(void* block);
}

namespace {

using Torvo::int64;
using Torvo::uint64;
using Torvo::test::FailingHeap;

// How many requests to grant before the first refusal; below 0 nothing is refused.
std::atomic<int64> g_granted{-1};
std::atomic<bool> g_onwards{false};
std::atomic<bool> g_refused{false};
std::atomic<int64> g_live{0};

bool Refuse() {
    if (g_granted < 0) return false;
    if (g_granted > 0) {
        --g_granted;
        return false;
    }
    if (!g_onwards) g_granted = -1;
    g_refused = true;
    return true;
}

void* Counted(void* block) {
    if (block != nullptr) ++g_live;
    return block;
}

}  // namespace

extern "C" {

void* __wrap_malloc(std::size_t size) {
    return Refuse() ? nullptr : Counted(__real_malloc(size));
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
    return Refuse() ? nullptr : Counted(__real_calloc(count, size));
}

void* __wrap_realloc(void* block, std::size_t size) {
    if (Refuse()) return nullptr;
    void* const result = __real_realloc(block, size);
    if (block == nullptr) return Counted(result);
    // A size of 0 frees the block on some heaps.
    if (result == nullptr && size == 0) --g_live;
    return result;
}

void __wrap_free(void* block) {
    if (block != nullptr) --g_live;
    __real_free(block);
}

}  // extern "C"

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return __wrap_malloc(size > 0 ? size : 1);
}

void* operator new(std::size_t size) {
    if (void* const block = operator new(size, std::nothrow)) return block;
    throw std::bad_alloc();
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return operator new(size, std::nothrow);
}

void* operator new[](std::size_t size) {
    return operator new(size);
}

void operator delete(void* block) noexcept {
    __wrap_free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    __wrap_free(block);
}

// Called where a constructor throws behind a new that does not.
void operator delete(void* block, const std::nothrow_t&) noexcept {
    __wrap_free(block);
}

void operator delete[](void* block, const std::nothrow_t&) noexcept {
    __wrap_free(block);
}

void operator delete[](void* block) noexcept {
    __wrap_free(block);
}

void operator delete[](void* block, std::size_t) noexcept {
    __wrap_free(block);
}

namespace Torvo::test {

FailingHeap::FailingHeap(uint64 nth, Mode mode) {
    g_refused = false;
    g_onwards = mode == Mode::kFromThenOn;
    g_granted = static_cast<int64>(nth) - 1;
}

FailingHeap::~FailingHeap() {
    g_granted = -1;
}

bool FailingHeap::Refused() const {
    return g_refused;
}

int64 LiveBlocks() {
    return g_live;
}

}  // namespace Torvo::test
