#include <Utility/frame/storage.h>

namespace Torvo {

TlsInstanceDataStorage::~TlsInstanceDataStorage() {
    platform::EnterCriticalSection(&guard.section);
    if (index != platform::TlsOutOfIndexes) platform::TlsFree(index);
    index = platform::TlsOutOfIndexes;
    platform::LeaveCriticalSection(&guard.section);
}

// Allocates the index unless another thread just did; whether there is one.
bool TlsInstanceDataStorage::AllocateIndex() {
    platform::EnterCriticalSection(&guard.section);
    if (index == platform::TlsOutOfIndexes) index = platform::TlsAlloc();
    platform::LeaveCriticalSection(&guard.section);
    return index != platform::TlsOutOfIndexes;
}

bool TlsInstanceDataStorage::SetData(InstanceData* instance) {
    if (index.load(std::memory_order_acquire) == platform::TlsOutOfIndexes && !AllocateIndex()) return false;
    return platform::TlsSetValue(index, instance);
}

}  // namespace Torvo
