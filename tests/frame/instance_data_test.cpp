#include <Utility/Utility.h>
#include <gtest/gtest.h>
#include <support/vtable_slot.h>

#include <set>
#include <thread>

namespace instance_data_test {
namespace {

using namespace Torvo;

// Runs a body on a thread of its own, so that it begins without an instance, and destroys what it leaves.
template <typename Body>
void OnFreshThread(Body body) {
    std::thread([&] {
        body();
        InstanceData::Destroy(false, true);
    }).join();
}

// A host's store with a single place, as a host with one thread would have it.
InstanceData* hostInstance = nullptr;
int hostGets = 0;
int hostSets = 0;

InstanceData* HostGet() {
    ++hostGets;
    return hostInstance;
}

bool HostSet(InstanceData* instance) {
    ++hostSets;
    hostInstance = instance;
    return true;
}

InstanceData* OtherGet() {
    ADD_FAILURE() << "callbacks passed by a nested call are never used";
    return nullptr;
}

bool OtherSet(InstanceData*) {
    ADD_FAILURE() << "callbacks passed by a nested call are never used";
    return false;
}

// The services of an instance, to be deleted when the instance itself is gone.
class Services {
public:
    explicit Services(InstanceData* instance)
        : checkEsc(static_cast<cCheckEsc*>(instance->GetSlot(1))),
          localeInfo(static_cast<cLocaleInfo*>(instance->GetSlot(3))),
          charsetConverter(static_cast<cCharsetConverter*>(instance->GetSlot(4))),
          charsetInfo(static_cast<cCharsetInfo*>(instance->GetSlot(5))),
          errorSystem(static_cast<cErrorSystem*>(instance->GetSlot(7))),
          fileCache(static_cast<cFileCache*>(instance->GetSlot(8))),
          fileSystem(static_cast<cFileSystem*>(instance->GetSlot(2))),
          normalizers(static_cast<StringNormalizerManager*>(instance->GetSlot(13))),
          stringBuffers(static_cast<cStringResourceBuffers*>(instance->GetSlot(9))) {}

    void Delete() const {
        delete checkEsc;
        delete localeInfo;
        delete charsetConverter;
        delete charsetInfo;
        delete errorSystem;
        delete normalizers;
        delete stringBuffers;
        delete fileSystem;
        delete fileCache;
    }

private:
    cCheckEsc* const checkEsc;
    cLocaleInfo* const localeInfo;
    cCharsetConverter* const charsetConverter;
    cCharsetInfo* const charsetInfo;
    cErrorSystem* const errorSystem;
    cFileCache* const fileCache;
    cFileSystem* const fileSystem;
    StringNormalizerManager* const normalizers;
    cStringResourceBuffers* const stringBuffers;
};

class HostStore : public testing::Test {
protected:
    void SetUp() override {
        hostInstance = nullptr;
        hostGets = hostSets = 0;
    }
};

TEST(Instance, OperationsStandInTheirPublishedOrder) {
    using test::SlotOf;
    EXPECT_EQ(SlotOf(&InstanceData::SetSlot), 2u);
    EXPECT_EQ(SlotOf(&InstanceData::GetSlot), 3u);
    EXPECT_EQ(SlotOf(&InstanceData::GetAutoDestroy), 4u);
    EXPECT_EQ(SlotOf(&InstanceData::ClearAutoDestroy), 5u);
}

TEST(Instance, IsTheSameAtEveryCallOfAThread) {
    OnFreshThread([] { EXPECT_EQ(GetInstanceData(), GetInstanceData()); });
}

TEST(Instance, IsPrivateToEachThread) {
    InstanceData* const here = GetInstanceData();
    OnFreshThread([&] { EXPECT_NE(GetInstanceData(), here); });
    EXPECT_EQ(GetInstanceData(), here);
}

TEST(Instance, HasAllServicesUnderTheirKeys) {
    OnFreshThread([] {
        InstanceData* const instance = GetInstanceData();
        EXPECT_EQ(instance->GetSlot(1), cCheckEsc::Instance());
        EXPECT_EQ(instance->GetSlot(3), cLocaleInfo::Instance());
        EXPECT_EQ(instance->GetSlot(4), cCharsetConverter::Instance());
        EXPECT_EQ(instance->GetSlot(5), cCharsetInfo::Instance());
        EXPECT_EQ(instance->GetSlot(7), cErrorSystem::Instance());
        EXPECT_EQ(instance->GetSlot(9), cStringResourceBuffers::Instance());
        EXPECT_EQ(instance->GetSlot(13), StringNormalizerManager::Instance());
        EXPECT_EQ(instance->GetSlot(2), cFileSystem::Instance());
        EXPECT_EQ(instance->GetSlot(8), cFileCache::Instance());
        for (const unsigned int key : {1u, 2u, 3u, 4u, 5u, 7u, 8u, 9u, 13u}) {
            EXPECT_NE(instance->GetSlot(key), nullptr) << key;
        }
        for (const unsigned int key : {0u, 6u, 10u, 11u, 12u, 14u, 1000u}) EXPECT_EQ(instance->GetSlot(key), nullptr);
    });
}

TEST(Instance, ServiceIsReplacedThroughItsSetterAndNotDestroyed) {
    OnFreshThread([] {
        cStringResourceBuffers* const own = cStringResourceBuffers::Instance();
        cStringResourceBuffers* const other = cStringResourceBuffers::Create();
        EXPECT_TRUE(cStringResourceBuffers::Instance(other));
        EXPECT_EQ(cStringResourceBuffers::Instance(), other);
        own->GetNextBuffer()[0] = 'x';  // still alive
        delete own;
    });
}

TEST(Instance, CreateMakesOneWithoutServices) {
    OnFreshThread([] {
        InstanceData* const instance = InstanceData::Create();
        EXPECT_EQ(GetInstanceData(), instance);
        EXPECT_EQ(cCheckEsc::Instance(), nullptr);
        EXPECT_TRUE(instance->GetAutoDestroy());
    });
}

TEST(Instance, CreateInstanceDataOverwritesTheFormerInTheStoreWithoutDestroyingIt) {
    OnFreshThread([] {
        InstanceData* const former = GetInstanceData();
        cCheckEsc* const formerService = cCheckEsc::Instance();
        InstanceData* const next = CreateInstanceData();
        EXPECT_NE(next, former);
        EXPECT_EQ(GetInstanceData(), next);
        EXPECT_EQ(former->GetSlot(1), formerService);
        InstanceData::Destroy(false, false);
        EXPECT_TRUE(SetInstanceData(former));
        EXPECT_EQ(cCheckEsc::Instance(), formerService);
    });
}

TEST(Instance, DestroyTakesTheInstanceOutOfTheStore) {
    OnFreshThread([] {
        InstanceData* const first = GetInstanceData();
        first->SetSlot(77, &hostGets);
        InstanceData::Destroy(false, false);
        EXPECT_EQ(GetInstanceData()->GetSlot(77), nullptr);
    });
}

TEST(Instance, DestroyRespectsAClearedFlagOnlyWhenAskedTo) {
    OnFreshThread([] {
        InstanceData* const instance = GetInstanceData();
        cCheckEsc* const service = cCheckEsc::Instance();
        instance->ClearAutoDestroy();
        InstanceData::Destroy(true, false);
        EXPECT_EQ(GetInstanceData(), instance);
        EXPECT_EQ(cCheckEsc::Instance(), service);
        EXPECT_FALSE(CheckEsc());
        InstanceData::Destroy(true, true);
        EXPECT_EQ(GetInstanceData(), instance);
        instance->SetSlot(77, &hostGets);
        InstanceData::Destroy(false, false);
        EXPECT_EQ(GetInstanceData()->GetSlot(77), nullptr);
    });
}

TEST(Instance, DestroyWithTheFlagSetDestroysWhenAskedToRespectIt) {
    OnFreshThread([] {
        GetInstanceData()->SetSlot(77, &hostGets);
        InstanceData::Destroy(true, true);
        EXPECT_EQ(GetInstanceData()->GetSlot(77), nullptr);
    });
}

TEST(Instance, DestroyOnAFreshThreadLeavesNothing) {
    OnFreshThread([] {
        InstanceData::Destroy(false, false);
        InstanceData::Destroy(false, true);  // nothing there: nothing happens
    });
}

TEST_F(HostStore, AClearWithoutACounterpartMakesTheNextCallOnlyCount) {
    OnFreshThread([] {
        ClearExternalDataStorage();
        SetExternalDataStorage(HostGet, HostSet);
        EXPECT_NE(GetInstanceData(), nullptr);
        EXPECT_EQ(hostGets, 0);
        EXPECT_EQ(hostInstance, nullptr);
        InstanceData::Destroy(false, false);  // the count is 0 again
    });
}

TEST_F(HostStore, ThatRefusesLeavesTheThreadsInstanceAloneWhenAnotherIsCreated) {
    OnFreshThread([] {
        InstanceData* const threads = GetInstanceData();
        void* const buffers = threads->GetSlot(9);
        SetExternalDataStorage(nullptr, nullptr);
        InstanceData* const created = CreateInstanceData();
        EXPECT_NE(created->GetSlot(9), nullptr);
        EXPECT_EQ(threads->GetSlot(9), buffers);
        ClearExternalDataStorage();
        for (InstanceData* const instance : {threads, created}) {
            SetInstanceData(instance);
            InstanceData::Destroy(false, false);
        }
    });
}

TEST_F(HostStore, TakesOverTheInstanceThatAThreadAlreadyHas) {
    OnFreshThread([] {
        InstanceData* const own = GetInstanceData();
        SetExternalDataStorage(HostGet, HostSet);
        EXPECT_EQ(GetInstanceData(), own);
        EXPECT_EQ(hostInstance, own);
        EXPECT_EQ(hostSets, 1);
        InstanceData::Destroy(false, true);  // the thread's own slot is empty now
        EXPECT_EQ(hostInstance, own);
        InstanceData::Destroy(false, false);
        EXPECT_EQ(hostInstance, nullptr);
        ClearExternalDataStorage();
    });
}

TEST_F(HostStore, DestroyMovesTheThreadsInstanceOverBeforeDestroyingIt) {
    OnFreshThread([] {
        GetInstanceData();
        SetExternalDataStorage(HostGet, HostSet);
        InstanceData::Destroy(false, false);
        EXPECT_EQ(hostInstance, nullptr);
        EXPECT_EQ(hostSets, 2);  // once to take it, once to forget it
        ClearExternalDataStorage();
    });
}

TEST_F(HostStore, HoldsWhatIsCreatedUnderIt) {
    OnFreshThread([] {
        SetExternalDataStorage(HostGet, HostSet);
        InstanceData* const instance = GetInstanceData();
        EXPECT_EQ(hostInstance, instance);
        std::thread([&] { EXPECT_EQ(GetInstanceData(), instance); }).join();
        InstanceData::Destroy(false, false);
        ClearExternalDataStorage();
    });
}

TEST_F(HostStore, OnlyTheFirstOfNestedCallsCounts) {
    OnFreshThread([] {
        SetExternalDataStorage(HostGet, HostSet);
        SetExternalDataStorage(OtherGet, OtherSet);
        InstanceData* const instance = GetInstanceData();
        EXPECT_EQ(hostInstance, instance);
        ClearExternalDataStorage();
        // The thread has taken the instance back, and the host's callbacks are still current.
        EXPECT_EQ(hostInstance, nullptr);
        const int gets = hostGets;
        EXPECT_EQ(GetInstanceData(), instance);
        EXPECT_GT(hostGets, gets);
        EXPECT_EQ(hostInstance, instance);
        InstanceData::Destroy(false, false);
        ClearExternalDataStorage();
    });
}

TEST_F(HostStore, KeepsItsInstanceAtTheLastClear) {
    OnFreshThread([] {
        SetExternalDataStorage(HostGet, HostSet);
        InstanceData* const instance = GetInstanceData();
        ClearExternalDataStorage();
        EXPECT_EQ(hostInstance, instance);
        EXPECT_NE(GetInstanceData(), instance);
        InstanceData::Destroy(false, false);
        SetInstanceData(instance);
    });
}

TEST_F(HostStore, ClearLeavesTheThreadsOwnInstanceAlone) {
    OnFreshThread([] {
        SetExternalDataStorage(HostGet, HostSet);
        SetExternalDataStorage(HostGet, HostSet);
        InstanceData* const hosts = GetInstanceData();
        ClearExternalDataStorage();  // the thread takes it
        const int sets = hostSets;
        ClearExternalDataStorage();  // and keeps it
        EXPECT_EQ(hostSets, sets);
        EXPECT_EQ(GetInstanceData(), hosts);
    });
}

TEST_F(HostStore, FromThreadStoreDestroysTheServicesOfTheCurrentStore) {
    OnFreshThread([] {
        InstanceData* const threads = GetInstanceData();
        cCheckEsc* const threadsService = cCheckEsc::Instance();
        hostInstance = nullptr;
        SetExternalDataStorage(HostGet, HostSet);
        CreateInstanceData();  // the host's; the thread's stays in its slot
        EXPECT_EQ(hostInstance->GetSlot(1), cCheckEsc::Instance());
        InstanceData* const hosts = hostInstance;
        const Services threadsServices(threads);
        InstanceData::Destroy(false, true);
        // The thread's instance is gone with its table; its services live, the host's do not.
        EXPECT_EQ(hostInstance, nullptr);
        EXPECT_FALSE(threadsService->CheckEsc());
        threadsServices.Delete();
        delete hosts;
        ClearExternalDataStorage();
        SetInstanceData(nullptr);
    });
}

// A store that can keep nothing must not make the services create each other's instances without end.
TEST_F(HostStore, WithoutCallbacksEveryCallWorksOnANewInstance) {
    OnFreshThread([] {
        SetExternalDataStorage(nullptr, nullptr);
        EXPECT_FALSE(SetInstanceData(nullptr));
        InstanceData* const first = GetInstanceData();
        InstanceData* const second = GetInstanceData();
        EXPECT_NE(first, nullptr);
        EXPECT_NE(first, second);
        EXPECT_NE(first->GetSlot(1), nullptr);
        ClearExternalDataStorage();
        for (InstanceData* const instance : {first, second}) {
            SetInstanceData(instance);
            InstanceData::Destroy(false, false);
        }
    });
}

TEST_F(HostStore, WithoutCallbacksDestroyEndsAndLeavesNothing) {
    OnFreshThread([] {
        SetExternalDataStorage(nullptr, nullptr);
        InstanceData::Destroy(false, false);
        ClearExternalDataStorage();
    });
}

}  // namespace
}  // namespace instance_data_test
