// The table of services behind InstanceData, the keys, and the two static members that every service class has.
#pragma once

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

// The keys in use are small numbers, so they index an array; any other key goes into the map.
class InstanceDataImpl final : public InstanceData {
public:
    bool SetSlot(unsigned int key, void* value) override;
    void* GetSlot(unsigned int key) override;
    bool GetAutoDestroy() override { return autoDestroy; }
    void ClearAutoDestroy() override { autoDestroy = false; }

private:
    std::array<void*, 16> services{};
    std::map<unsigned int, void*> others;
    bool autoDestroy = true;
};

// The getter and the setter behind T::Instance() and T::Instance(T*).
template <typename T>
T* ServiceInstance(ServiceKey key) {
    return static_cast<T*>(GetInstanceData()->GetSlot(static_cast<unsigned int>(key)));
}

template <typename T>
bool ServiceInstance(ServiceKey key, T* service) {
    return GetInstanceData()->SetSlot(static_cast<unsigned int>(key), service);
}

}  // namespace Torvo
