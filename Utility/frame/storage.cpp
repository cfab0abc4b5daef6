#include <Utility/frame/storage.h>

namespace Torvo {

TlsInstanceDataStorage::~TlsInstanceDataStorage() {
    platform::EnterCriticalSection(&guard.section);
    if (index != -1) platform::TlsFree(static_cast<uint32>(index.load()));
    index = -1;
    platform::LeaveCriticalSection(&guard.section);
}

// Whether there is an index; allocates it if not.
bool TlsInstanceDataStorage::EnsureIndex() {
    if (index.load(std::memory_order_acquire) != -1) return true;
    platform::EnterCriticalSection(&guard.section);
    if (index == -1) index = static_cast<int32>(platform::TlsAlloc());  // -1 again when none is left
    platform::LeaveCriticalSection(&guard.section);
    return index != -1;
}

InstanceData* TlsInstanceDataStorage::GetData() {
    if (!EnsureIndex()) return nullptr;
    return static_cast<InstanceData*>(
        platform::TlsGetValue(static_cast<uint32>(index.load(std::memory_order_relaxed))));
}

bool TlsInstanceDataStorage::SetData(InstanceData* instance) {
    return EnsureIndex() && platform::TlsSetValue(static_cast<uint32>(index.load()), instance);
}

}  // namespace Torvo
