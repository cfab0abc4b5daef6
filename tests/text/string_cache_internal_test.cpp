// A string cache while memory is short.
#include <Utility/memory_blocks.h>
#include <Utility/string_cache.h>
#include <gtest/gtest.h>
#include <support/failing_heap.h>

namespace string_cache_internal_test {
namespace {

using namespace Torvo;
using test::FailingHeap;

TEST(StringCacheFailures, TheFirstEntry) {
    const int64 blocks = test::LiveBlocks();
    const uint64 requests = test::RefuseEachRequest([](uint64 nth, FailingHeap::Mode mode) {
        wchar16* cache = nullptr;
        bool refused = false;
        uint64 position = 0;
        {
            const FailingHeap heap(nth, mode);
            position = CacheString(&cache, ZUTEXT("a"), "rec", 4, false);
            refused = heap.Refused();
        }
        EXPECT_EQ(position, refused ? 0u : 1u);
        EXPECT_EQ(cache == nullptr, refused);
        void* block = cache;
        ffree_(&block);
        return refused;
    });
    EXPECT_EQ(requests, 1u);
    EXPECT_EQ(test::LiveBlocks(), blocks);
}

TEST(StringCacheFailures, AnotherEntryLeavesTheCacheAsItWas) {
    const int64 blocks = test::LiveBlocks();
    const uint64 requests = test::RefuseEachRequest([](uint64 nth, FailingHeap::Mode mode) {
        wchar16* cache = nullptr;
        CacheString(&cache, ZUTEXT("m"), "mmm", 4, true);
        const wchar16* const before = cache;
        bool refused = false;
        uint64 position = 0;
        {
            const FailingHeap heap(nth, mode);
            position = CacheString(&cache, ZUTEXT("a"), "aaa", 4, true);
            refused = heap.Refused();
        }
        EXPECT_EQ(position, refused ? 0u : 1u);
        if (refused) {
            EXPECT_EQ(cache, before);
        }
        char record[4] = {};
        EXPECT_TRUE(GetCachedStructure(cache, ZUTEXT("m"), record, 4));
        EXPECT_STREQ(record, "mmm");
        EXPECT_EQ(GetCachedStructure(cache, ZUTEXT("a"), record, 4), !refused);
        EXPECT_EQ(CacheString(&cache, ZUTEXT("z"), "zzz", 4, true), refused ? 7u : 13u) << "it goes on";
        void* block = cache;
        ffree_(&block);
        return refused;
    });
    EXPECT_EQ(requests, 1u);
    EXPECT_EQ(test::LiveBlocks(), blocks);
}

}  // namespace
}  // namespace string_cache_internal_test
