// Where instances are kept: one thread-local store, one that forwards to a host, and which of them is current.
#pragma once

#include <Utility/frame/guard.h>
#include <Utility/instance.h>

#include <atomic>

namespace Torvo {

class InstanceDataStorage {
public:
    virtual ~InstanceDataStorage() = default;
    // The instance held for the caller, or null.
    virtual InstanceData* GetData() = 0;
    // Holds it; whether that succeeded.
    virtual bool SetData(InstanceData* instance) = 0;
};

// Forwards to the host's callbacks. A null `get` answers null, a null `set` refuses.
class ExternalInstanceDataStorage final : public InstanceDataStorage {
public:
    using Get = InstanceData* (*)();
    using Set = bool (*)(InstanceData*);

    InstanceData* GetData() override {
        const Get callback = get.load(std::memory_order_acquire);
        return callback != nullptr ? callback() : nullptr;
    }
    bool SetData(InstanceData* instance) override {
        const Set callback = set.load(std::memory_order_acquire);
        return callback != nullptr && callback(instance);
    }

    // Read without the guard, so that the last clear on one thread does not pull them away under a call of another.
    std::atomic<Get> get = nullptr;
    std::atomic<Set> set = nullptr;
};

// One instance per thread, in a slot of thread-local storage that is allocated when the first instance is stored.
class TlsInstanceDataStorage final : public InstanceDataStorage {
public:
    ~TlsInstanceDataStorage() override;
    InstanceData* GetData() override {
        return static_cast<InstanceData*>(platform::TlsGetValue(index.load(std::memory_order_acquire)));
    }
    bool SetData(InstanceData* instance) override;

private:
    bool AllocateIndex();

    std::atomic<uint32> index = platform::TlsOutOfIndexes;  // not allocated; every thread finds null under it
    ZUGuard guard;
};

// The storage frame: everything process-wide that the road of a call depends on. There is one object of it.
struct StorageFrame {
    ZUGuard guard;  // protects the switch between stores: externalCount, the callbacks and `current`
    int32 externalCount = 0;
    ExternalInstanceDataStorage external;
    TlsInstanceDataStorage threadLocal;
    std::atomic<InstanceDataStorage*> current = &threadLocal;
};

extern StorageFrame storageFrame;

// The caller's instance when the current store does not hold one: moved from the thread-local store, or created.
InstanceData* FindOrCreateInstance();

// The instance that the current store holds for the caller, or null. The thread-local store is asked directly, which
// only saves time: it is the one that nearly every call finds.
inline InstanceData* HeldInstance() {
    InstanceDataStorage* const current = storageFrame.current.load(std::memory_order_acquire);
    return current == &storageFrame.threadLocal ? storageFrame.threadLocal.GetData() : current->GetData();
}

// The same, found without a call, but null as well where the current store is another than the thread-local one.
inline InstanceData* InstanceHeldByThread() {
    const bool isCurrent = storageFrame.current.load(std::memory_order_acquire) == &storageFrame.threadLocal;
    return isCurrent ? storageFrame.threadLocal.GetData() : nullptr;
}

}  // namespace Torvo
