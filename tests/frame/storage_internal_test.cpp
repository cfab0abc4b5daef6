#include <Utility/Utility.h>
#include <Utility/frame/storage.h>
#include <gtest/gtest.h>
#include <support/failing_heap.h>

#include <thread>
#include <vector>

namespace storage_internal_test {
namespace {

using namespace Torvo;
using test::FailingHeap;

// A stand-in whose address is all that counts.
InstanceData* const someInstance = reinterpret_cast<InstanceData*>(&storageFrame);

TEST(ThreadStore, KeepsAnInstancePerThread) {
    TlsInstanceDataStorage store;
    EXPECT_EQ(store.GetData(), nullptr);
    EXPECT_TRUE(store.SetData(someInstance));
    EXPECT_EQ(store.GetData(), someInstance);
    std::thread([&] { EXPECT_EQ(store.GetData(), nullptr); }).join();
    EXPECT_TRUE(store.SetData(nullptr));
    EXPECT_EQ(store.GetData(), nullptr);
}

// All indices of thread-local storage that are left.
class ExhaustedThreadSlots {
public:
    ExhaustedThreadSlots() {
        for (uint32 index = platform::TlsAlloc(); index != platform::TlsOutOfIndexes; index = platform::TlsAlloc()) {
            indices.push_back(index);
        }
    }
    ~ExhaustedThreadSlots() {
        for (const uint32 index : indices) platform::TlsFree(index);
    }
    void GiveOneBack() {
        platform::TlsFree(indices.back());
        indices.pop_back();
    }

private:
    std::vector<uint32> indices;
};

TEST(ThreadStore, WithoutAnIndexKeepsNothing) {
    ExhaustedThreadSlots slots;
    TlsInstanceDataStorage store;
    EXPECT_FALSE(store.SetData(someInstance));
    EXPECT_EQ(store.GetData(), nullptr);
    slots.GiveOneBack();
    EXPECT_TRUE(store.SetData(someInstance)) << "a later call tries again";
}

TEST(ThreadStore, GivesItsIndexBack) {
    ExhaustedThreadSlots slots;
    slots.GiveOneBack();
    for (int i = 0; i < 3; ++i) {
        TlsInstanceDataStorage store;
        EXPECT_TRUE(store.SetData(someInstance));
    }
}

TEST(HostsStore, WithoutCallbacksAnswersNullAndRefuses) {
    ExternalInstanceDataStorage store;
    EXPECT_EQ(store.GetData(), nullptr);
    EXPECT_FALSE(store.SetData(someInstance));
}

TEST(Instance, DestroyOnAFreshThreadCreatesEverythingAndDeletesItAgain) {
    std::thread([] {
        GetInstanceData();
        InstanceData::Destroy(false, false);  // what is built once for the process is built now
        const int64 before = test::LiveBlocks();
        InstanceData::Destroy(false, false);
        EXPECT_EQ(test::LiveBlocks(), before);
    }).join();
}

// Creates a set of services while the nth allocation fails, and tells which services there are, in creation order.
std::vector<bool> ServicesWhenRefused(uint64 nth, bool& refused) {
    std::vector<bool> services;
    std::thread([&] {
        InstanceData* instance = nullptr;
        {
            const FailingHeap heap(nth, FailingHeap::Mode::kOnce);
            instance = CreateInstanceData();
            refused = heap.Refused();
        }
        if (instance == nullptr) return;
        for (const unsigned int key : {9u, 7u, 3u, 5u, 4u, 1u, 2u, 8u})
            services.push_back(instance->GetSlot(key) != nullptr);
        InstanceData::Destroy(false, false);
    }).join();
    return services;
}

TEST(Instance, StopsAtTheFirstServiceThatCannotBeCreated) {
    bool refused = true;
    for (uint64 nth = 1; refused; ++nth) {
        ASSERT_LT(nth, 100u);
        const std::vector<bool> services = ServicesWhenRefused(nth, refused);
        if (nth == 1) {
            EXPECT_TRUE(services.empty()) << "without an instance there is nothing";
            continue;
        }
        const auto missing = std::find(services.begin(), services.end(), false);
        EXPECT_EQ(missing == services.end(), !refused);
        EXPECT_EQ(std::count(missing, services.end(), true), 0) << "those behind it are missing too";
    }
}

// A locale service that cannot be asked for a character set stops the creation there.
TEST(Instance, WithoutCharsetInfoTheCancelCheckAndTheFilesAreMissingAndTheErrorListIsNot) {
    bool found = false;
    bool refused = true;
    for (uint64 nth = 2; refused && !found; ++nth) {
        const std::vector<bool> services = ServicesWhenRefused(nth, refused);
        if (services.size() != 8 || !services[2] || services[3]) continue;
        found = true;
        EXPECT_TRUE(services[1]);
        EXPECT_FALSE(services[5]);
        EXPECT_FALSE(services[6]);
    }
    EXPECT_TRUE(found);
}

}  // namespace
}  // namespace storage_internal_test
