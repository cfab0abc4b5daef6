// The order in which an instance's services are created, seen by letting memory run out at every point: those before
// that point are there, those behind it are not.
#include <Utility/instance.h>
#include <gtest/gtest.h>
#include <support/failing_heap.h>

#include <algorithm>
#include <iterator>
#include <thread>

namespace service_creation_internal_test {
namespace {

using namespace Torvo;
using test::FailingHeap;

constexpr unsigned int orderOfCreation[] = {9, 7, 3, 5, 4, 13, 1, 2, 8};

// How many services are there, counted in the order of creation up to the first that lacks.
std::size_t CountBeforeTheFirstGap(InstanceData* instance) {
    std::size_t count = 0;
    while (count < std::size(orderOfCreation) && instance->GetSlot(orderOfCreation[count]) != nullptr) ++count;
    return count;
}

bool AreAllBehindMissing(InstanceData* instance, std::size_t count) {
    return std::all_of(orderOfCreation + count, std::end(orderOfCreation),
                       [&](unsigned int key) { return instance->GetSlot(key) == nullptr; });
}

TEST(ServiceCreation, StopsAtTheFirstThatCannotBeMade) {
    bool wasCount[std::size(orderOfCreation) + 1] = {};  // no container, whose blocks would count as live ones
    std::size_t complete = 0;
    std::thread([&] {
        complete = CountBeforeTheFirstGap(GetInstanceData());
        InstanceData::Destroy(false, false);
        const int64 blocks = test::LiveBlocks();
        test::RefuseEachRequest([&](uint64 nth, FailingHeap::Mode mode) {
            InstanceData* instance = nullptr;
            bool refused = false;
            {
                const FailingHeap heap(nth, mode);
                instance = CreateInstanceData();
                refused = heap.Refused();
            }
            if (instance == nullptr) {
                EXPECT_TRUE(refused);
                return true;
            }
            const std::size_t count = CountBeforeTheFirstGap(instance);
            EXPECT_TRUE(AreAllBehindMissing(instance, count)) << nth;
            EXPECT_TRUE(refused || count == complete);
            wasCount[count] = true;
            InstanceData::Destroy(false, false);
            return refused;
        });
        EXPECT_EQ(test::LiveBlocks(), blocks);
    }).join();
    // Every service was once the first that lacked.
    for (std::size_t count = 0; count <= complete; ++count) EXPECT_TRUE(wasCount[count]) << count;
    EXPECT_EQ(complete, std::size(orderOfCreation));
}

}  // namespace
}  // namespace service_creation_internal_test
