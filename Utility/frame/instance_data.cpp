#include <Utility/frame/instance_data.h>

#include <Utility/cancel.h>
#include <Utility/charsets.h>
#include <Utility/conversion.h>
#include <Utility/errors.h>
#include <Utility/file_cache.h>
#include <Utility/files.h>
#include <Utility/frame/storage.h>
#include <Utility/locale_info.h>
#include <Utility/normalizers.h>
#include <Utility/resources.h>

#include <new>

namespace Torvo {

namespace {

// The instance that the calling thread is building or destroying at this moment. A store may be unable to keep it (a
// host's callback that refuses, no slot left); the services' own constructors and destructors must find it all the
// same, or each of them would build another one without end.
thread_local InstanceData* instanceInWork = nullptr;
thread_local bool isBuilding = false;

class InstanceInWork {
public:
    enum class Work { Build, Destroy };

    InstanceInWork(InstanceData* instance, Work work) : former(instanceInWork), wasBuilding(isBuilding) {
        instanceInWork = instance;
        isBuilding = work == Work::Build;
    }
    ~InstanceInWork() {
        instanceInWork = former;
        isBuilding = wasBuilding;
    }
    InstanceInWork(const InstanceInWork&) = delete;
    InstanceInWork& operator=(const InstanceInWork&) = delete;

private:
    InstanceData* const former;
    const bool wasBuilding;
};

// The file cache of an instance: 32 MiB.
constexpr int FileCacheBlocks = 2048;
constexpr long32 FileCacheBlockSize = 16384;

template <typename T>
bool Install(T* created) {
    if (created == nullptr) return false;
    T::Instance(created);
    return true;
}

// Creates every service in the order in which they need each other, up to the first that cannot be created.
InstanceData* CreateServices() {
    InstanceData* const instance = InstanceData::Create();
    if (instance == nullptr) return nullptr;
    const InstanceInWork inWork(instance, InstanceInWork::Work::Build);
    static_cast<void>(Install(cStringResourceBuffers::Create()) &&   //
                      Install(cErrorSystem::Create()) &&             //
                      Install(cLocaleInfo::Create()) &&              //
                      Install(cCharsetInfo::Create()) &&             //
                      Install(cCharsetConverter::Create()) &&        //
                      Install(StringNormalizerManager::Create()) &&  //
                      Install(cCheckEsc::Create()) &&                //
                      Install(cFileSystem::Create()) &&              //
                      Install(cFileCache::Create(FileCacheBlocks, FileCacheBlockSize)));
    return instance;
}

// The instance that this thread had before the host's store became current, moved into the host's store; or null.
InstanceData* MoveThreadInstanceToHost() {
    if (storageFrame.current != &storageFrame.external) return nullptr;
    InstanceData* const instance = storageFrame.threadLocal.GetData();
    if (instance == nullptr) return nullptr;
    storageFrame.threadLocal.SetData(nullptr);
    storageFrame.external.SetData(instance);
    return instance;
}

}  // namespace

InstanceData* FindOrCreateInstance() {
    // What is being built gets its services itself where the store did not take it.
    if (isBuilding) return instanceInWork;
    if (InstanceData* const moved = MoveThreadInstanceToHost()) return moved;
    if (instanceInWork != nullptr) return instanceInWork;
    return CreateServices();
}

bool InstanceDataImpl::SetSlot(unsigned int key, void* value) {
    if (key < services.size()) {
        services[key] = value;
        return true;
    }
    try {
        others[key] = value;
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

void* InstanceDataImpl::GetOther(unsigned int key) const {
    const auto found = others.find(key);
    return found != others.end() ? found->second : nullptr;
}

InstanceData* GetInstanceData() {
    return CurrentInstance();
}

bool SetInstanceData(InstanceData* instance) {
    return storageFrame.current.load()->SetData(instance);
}

InstanceData* CreateInstanceData() {
    return CreateServices();
}

void SetExternalDataStorage(InstanceData* (*get)(), bool (*set)(InstanceData*)) {
    platform::EnterCriticalSection(&storageFrame.guard.section);
    if (storageFrame.externalCount == 0) {
        storageFrame.external.get = get;
        storageFrame.external.set = set;
        storageFrame.current = &storageFrame.external;
    }
    ++storageFrame.externalCount;
    platform::LeaveCriticalSection(&storageFrame.guard.section);
}

void ClearExternalDataStorage() {
    platform::EnterCriticalSection(&storageFrame.guard.section);
    if (storageFrame.externalCount == 1) {
        storageFrame.current = &storageFrame.threadLocal;
        storageFrame.external.get = nullptr;
        storageFrame.external.set = nullptr;
    }
    --storageFrame.externalCount;
    platform::LeaveCriticalSection(&storageFrame.guard.section);

    if (storageFrame.threadLocal.GetData() != nullptr) return;
    storageFrame.threadLocal.SetData(storageFrame.external.GetData());
    storageFrame.external.SetData(nullptr);
}

InstanceData* InstanceData::Create() {
    InstanceData* const instance = new (std::nothrow) InstanceDataImpl;
    if (instance != nullptr) storageFrame.current.load()->SetData(instance);
    return instance;
}

void InstanceData::Destroy(bool onlyIfAutoDestroy, bool fromThreadStore) {
    InstanceData* const target = fromThreadStore ? storageFrame.threadLocal.GetData() : GetInstanceData();
    if (target == nullptr) return;
    if (onlyIfAutoDestroy && !target->GetAutoDestroy()) return;
    {
        // Each getter travels the ordinary road, so these are the services of the current store's instance.
        const InstanceInWork inWork(target, InstanceInWork::Work::Destroy);
        delete cStringResourceBuffers::Instance();
        delete cErrorSystem::Instance();
        delete StringNormalizerManager::Instance();
        delete cCharsetInfo::Instance();
        delete cCharsetConverter::Instance();
        delete cLocaleInfo::Instance();
        delete cCheckEsc::Instance();
        // The file system closes its idle files through the cache.
        delete cFileSystem::Instance();
        delete cFileCache::Instance();
    }
    storageFrame.current.load()->SetData(nullptr);
    delete target;
}

}  // namespace Torvo
