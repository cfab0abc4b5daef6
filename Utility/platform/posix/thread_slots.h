// Slots of thread-local storage with run-time indices. In a header, because reading one is part of every call's road.
//
// The indices come from a bitmap and the values from an array per thread. An index that was freed and allocated again
// must hold null on every thread, so each allocation gets a generation of its own and a value counts only with the
// generation that it was set under. The array is small, and its place in a thread's memory is fixed when the library is
// loaded (the initial-exec model): a read is then a load or two, not a call of the dynamic loader.
#pragma once

#include <Utility/platform/types.h>

#include <algorithm>
#include <array>
#include <atomic>

namespace Torvo::platform {

// The last slot is never allocated. An index that is none (TlsOutOfIndexes) leads there, where every thread finds null.
inline constexpr uint32 ThreadSlotCount = 16;

struct ThreadSlot {
    void* value;
    uint32 generation;
};

extern constinit thread_local std::array<ThreadSlot, ThreadSlotCount> threadSlots
    __attribute__((tls_model("initial-exec")));
extern constinit std::array<std::atomic<uint32>, ThreadSlotCount> threadSlotGenerations;

// The calling thread's value; null when it never set one, or when there is no such index.
inline void* TlsGetValue(uint32 index) {
    const uint32 place = std::min(index, ThreadSlotCount - 1);
    const ThreadSlot& slot = threadSlots[place];
    return slot.generation == threadSlotGenerations[place].load(std::memory_order_relaxed) ? slot.value : nullptr;
}

}  // namespace Torvo::platform
