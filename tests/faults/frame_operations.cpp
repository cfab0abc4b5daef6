// Instances and their services, cancel checking, start-up.
#include <Utility/Utility.h>
#include <Utility/platform/modules.h>
#include <faults/operations.h>

namespace Torvo::test {

namespace frame_operations {
namespace {

InstanceData* hostsInstance = nullptr;

InstanceData* GetOfHost() {
    return hostsInstance;
}
bool SetOfHost(InstanceData* instance) {
    hostsInstance = instance;
    return true;
}

// Makes an instance in the place of the thread's, and destroys it: whether all of its services were there. The last of
// them is the cache.
bool MakeAndDestroy(InstanceData* (*make)()) {
    constexpr unsigned int lastService = 8;
    InstanceData* const made = make();
    if (made == nullptr) return false;
    const bool isComplete = made->GetSlot(lastService) != nullptr;
    InstanceData::Destroy(false, false);
    return isComplete;
}

void TryToMakeInstance(Trial& trial, InstanceData* (*make)()) {
    InstanceData* const former = GetInstanceData();
    trial.Try([&] {
        SetInstanceData(nullptr);
        const bool isComplete = MakeAndDestroy(make);
        SetInstanceData(former);
        return isComplete;
    });
}

Operations InstanceOperations() {
    return {
        {"GetInstanceData, of a thread without one", [](Trial& trial) { TryToMakeInstance(trial, GetInstanceData); }},
        {"GetInstanceData", [] { return GetInstanceData() != nullptr; }},
        {"CreateInstanceData", [](Trial& trial) { TryToMakeInstance(trial, CreateInstanceData); }},
        {"InstanceData::Create",
         [](Trial& trial) {
             InstanceData* const former = GetInstanceData();
             TryToMake(trial, [] { return InstanceData::Create(); });
             SetInstanceData(former);
         }},
        {"InstanceData::Destroy", [](Trial& trial) { TryToMakeInstance(trial, CreateInstanceData); }},
        {"InstanceData::SetSlot, of the library's own", [] { return GetInstanceData()->SetSlot(12, nullptr); }},
        {"InstanceData::SetSlot",
         [](Trial& trial) {
             InstanceData* const former = GetInstanceData();
             InstanceData* const own = InstanceData::Create();
             SetInstanceData(former);
             int value = 0;
             trial.Try([&] { return own->SetSlot(1000, &value); }, [&] { return own->GetSlot(1000) == nullptr; });
             EXPECT_EQ(own->GetSlot(1000), &value);
             delete own;
         }},
        {"SetInstanceData", [] { return SetInstanceData(GetInstanceData()); }},
        {"SetExternalDataStorage",
         [] {
             InstanceData* const former = GetInstanceData();
             hostsInstance = former;
             SetExternalDataStorage(GetOfHost, SetOfHost);
             const bool isCurrent = GetInstanceData() == former;
             ClearExternalDataStorage();
             SetInstanceData(former);
             return isCurrent;
         }},
        {"ClearExternalDataStorage",
         [] {
             InstanceData* const former = GetInstanceData();
             hostsInstance = former;
             SetExternalDataStorage(GetOfHost, SetOfHost);
             ClearExternalDataStorage();
             return SetInstanceData(former);
         }},
    };
}

Operations StartOperations() {
    return {
        {"cCheckEsc::Create", [](Trial& trial) { TryToMake(trial, [] { return cCheckEsc::Create(); }); }},
        {"cCheckEsc::Instance", [] { return cCheckEsc::Instance(cCheckEsc::Instance()); }},
        {"InitCheckEscCallback",
         [] {
             InitCheckEscCallback(nullptr);
             return true;
         }},
        {"CheckEsc", [] { return !CheckEsc(); }},
        {"CheckEsc4Update", [] { return !CheckEsc4Update(true); }},
        {"CancelConfirmed",
         [] {
             CancelConfirmed();
             return true;
         }},
        {"UtilDllEnsureInit",
         [](Trial& trial) {
             trial.Try([] {
                 UtilDllEnsureInit();
                 return true;
             });
         }},
        {"UtilDllForceTerm",
         [](Trial& trial) {
             trial.Try([] {
                 UtilDllForceTerm();
                 return true;
             });
         }},
        {"InitLiterals", [] { return InitLiterals() == InitLiterals(); }},
        {"GetDefaultRotatableFont", [] { return GetDefaultRotatableFont() != nullptr; }},
        {"LoadZULibrary",
         [](Trial& trial) {
             HINSTANCE library = nullptr;
             trial.Try([&] { return LoadZULibrary(ZUTEXT("raster.dll"), nullptr, library); },
                       [&] { return library == nullptr; });
             if (library != nullptr) platform::FreeLibrary(library);
         }},
    };
}

}  // namespace
}  // namespace frame_operations

Operations FrameOperations() {
    using namespace frame_operations;
    Operations all = InstanceOperations();
    for (const Operation& operation : StartOperations()) all.push_back(operation);
    return all;
}

}  // namespace Torvo::test
