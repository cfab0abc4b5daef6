#include <Utility/platform/threads.h>

#include <unistd.h>

#include <bit>

namespace Torvo::platform {

constinit thread_local std::array<ThreadSlot, ThreadSlotCount> threadSlots{};
constinit std::array<std::atomic<uint32>, ThreadSlotCount> threadSlotGenerations{};

namespace {

std::atomic<uint64> allocatedSlots{0};
thread_local uint32 lastError = 0;

bool IsAllocated(uint32 index) {
    return index < ThreadSlotCount - 1 && (allocatedSlots.load(std::memory_order_acquire) >> index & 1) != 0;
}

}  // namespace

void InitializeCriticalSection(CRITICAL_SECTION* section) {
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
    pthread_mutex_init(&section->mutex, &attributes);
    pthread_mutexattr_destroy(&attributes);
}

void DeleteCriticalSection(CRITICAL_SECTION* section) {
    pthread_mutex_destroy(&section->mutex);
}

void EnterCriticalSection(CRITICAL_SECTION* section) {
    pthread_mutex_lock(&section->mutex);
}

void LeaveCriticalSection(CRITICAL_SECTION* section) {
    pthread_mutex_unlock(&section->mutex);
}

uint32 TlsAlloc() {
    uint64 taken = allocatedSlots.load();
    for (;;) {
        const auto index = static_cast<uint32>(std::countr_one(taken));
        if (index == ThreadSlotCount - 1) {
            SetLastError(ERROR_NOT_ENOUGH_MEMORY);
            return TlsOutOfIndexes;
        }
        if (allocatedSlots.compare_exchange_weak(taken, taken | uint64{1} << index)) {
            threadSlotGenerations[index].fetch_add(1);
            return index;
        }
    }
}

bool TlsFree(uint32 index) {
    if (!IsAllocated(index)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    threadSlotGenerations[index].fetch_add(1);
    allocatedSlots.fetch_and(~(uint64{1} << index));
    return true;
}

bool TlsSetValue(uint32 index, void* value) {
    if (!IsAllocated(index)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    threadSlots[index] = {value, threadSlotGenerations[index].load()};
    return true;
}

uint32 GetLastError() {
    return lastError;
}

void SetLastError(uint32 error) {
    lastError = error;
}

uint32 GetCurrentProcessId() {
    return static_cast<uint32>(getpid());
}

uint32 GetCurrentThreadId() {
    return static_cast<uint32>(gettid());
}

}  // namespace Torvo::platform
