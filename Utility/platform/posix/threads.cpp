#include <Utility/platform/threads.h>

#include <array>
#include <atomic>
#include <bit>

namespace Torvo::platform {

namespace {

// The indices come from a bitmap and the values from an array per thread. An index that was freed and allocated again
// must hold null on every thread, so each allocation gets a generation of its own and a value counts only with the
// generation that it was set under.
constexpr uint32 SlotCount = 64;

struct Slot {
    void* value;
    uint32 generation;
};

std::atomic<uint64> allocatedSlots{0};
std::array<std::atomic<uint32>, SlotCount> slotGenerations{};
thread_local std::array<Slot, SlotCount> threadSlots{};
thread_local uint32 lastError = 0;

bool IsAllocated(uint32 index) {
    return index < SlotCount && (allocatedSlots.load(std::memory_order_acquire) >> index & 1) != 0;
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
        if (index == SlotCount) {
            SetLastError(ERROR_NOT_ENOUGH_MEMORY);
            return TlsOutOfIndexes;
        }
        if (allocatedSlots.compare_exchange_weak(taken, taken | uint64{1} << index)) {
            slotGenerations[index].fetch_add(1);
            return index;
        }
    }
}

bool TlsFree(uint32 index) {
    if (!IsAllocated(index)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    slotGenerations[index].fetch_add(1);
    allocatedSlots.fetch_and(~(uint64{1} << index));
    return true;
}

void* TlsGetValue(uint32 index) {
    if (index >= SlotCount) return nullptr;
    const Slot& slot = threadSlots[index];
    return slot.generation == slotGenerations[index].load(std::memory_order_relaxed) ? slot.value : nullptr;
}

bool TlsSetValue(uint32 index, void* value) {
    if (!IsAllocated(index)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    threadSlots[index] = {value, slotGenerations[index].load()};
    return true;
}

uint32 GetLastError() {
    return lastError;
}

void SetLastError(uint32 error) {
    lastError = error;
}

}  // namespace Torvo::platform
