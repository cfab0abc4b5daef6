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
    InstanceData* GetData() override { return get != nullptr ? get() : nullptr; }
    bool SetData(InstanceData* instance) override { return set != nullptr && set(instance); }

    InstanceData* (*get)() = nullptr;
    bool (*set)(InstanceData*) = nullptr;
};

// One instance per thread, in a slot of thread-local storage that is allocated at first use.
class TlsInstanceDataStorage final : public InstanceDataStorage {
public:
    ~TlsInstanceDataStorage() override;
    InstanceData* GetData() override;
    bool SetData(InstanceData* instance) override;

private:
    bool EnsureIndex();

    std::atomic<int32> index = -1;
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

}  // namespace Torvo
