// The table of services behind InstanceData, the keys, and the two static members that every service class has.
#pragma once

#include <Utility/frame/storage.h>
#include <Utility/instance.h>

#include <array>
#include <map>

namespace Torvo {

// The key of each service. The numbers are fixed; those that are missing have no service in this library.
enum class ServiceKey : unsigned int {
    CheckEsc = 1,
    FileSystem = 2,
    LocaleInfo = 3,
    CharsetConverter = 4,
    CharsetInfo = 5,
    ErrorSystem = 7,
    FileCache = 8,
    StringResourceBuffers = 9,
    StringNormalizerManager = 13,
};

// The keys in use are small numbers, so they index an array; any other key goes into the map. GetSlot is in the header
// because it is part of every call's road: a compiler that sees it can guess which GetSlot a call means.
class InstanceDataImpl final : public InstanceData {
public:
    bool SetSlot(unsigned int key, void* value) override;
    void* GetSlot(unsigned int key) override { return key < services.size() ? services[key] : GetOther(key); }
    bool GetAutoDestroy() override { return autoDestroy; }
    void ClearAutoDestroy() override { autoDestroy = false; }

private:
    void* GetOther(unsigned int key) const;

    std::array<void*, 16> services{};
    std::map<unsigned int, void*> others;
    bool autoDestroy = true;
};

// The caller's instance, as GetInstanceData finds it.
inline InstanceData* CurrentInstance() {
    InstanceData* const held = HeldInstance();
    return held != nullptr ? held : FindOrCreateInstance();
}

// The service under a key of an instance, which may be known to be the library's own.
template <typename T, ServiceKey Key, typename Instance>
inline T* ServiceOf(Instance& instance) {
    return static_cast<T*>(instance.GetSlot(static_cast<unsigned int>(Key)));
}

// The getter and the setter behind T::Instance() and T::Instance(T*).
template <typename T, ServiceKey Key>
inline T* ServiceInstance() {
    return ServiceOf<T, Key>(*CurrentInstance());
}

template <typename T, ServiceKey Key>
bool SetServiceInstance(T* service) {
    return GetInstanceData()->SetSlot(static_cast<unsigned int>(Key), service);
}

}  // namespace Torvo
