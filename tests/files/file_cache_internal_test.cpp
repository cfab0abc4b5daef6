#include <Utility/files/file_cache.h>
#include <files/memory_block_files.h>
#include <gtest/gtest.h>
#include <support/failing_heap.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace file_cache_internal_test {
namespace {

using namespace Torvo;
using Torvo::test::MemoryBlockFiles;
using Calls = std::vector<std::string>;

constexpr int kBlockSize = 16;

class FileCache : public ::testing::Test {
protected:
    // Files of five blocks, the last one short.
    FileCache() {
        blocks.files[1000] =
            std::string(16, 'a') + std::string(16, 'b') + std::string(16, 'c') + std::string(16, 'd') + "ee";
        blocks.files[1001] = std::string(16, 'A') + std::string(16, 'B');
    }

    CacheEntry* Get(int handle, int64 block, int mode = 2) {
        CacheEntry* entry = nullptr;
        return cache.Lookup(handle, block, &entry, mode) ? entry : nullptr;
    }
    bool Holds(int handle, int64 block) { return Get(handle, block, 0) != nullptr; }
    std::string TextOf(const CacheEntry* entry) {
        return {static_cast<const char*>(cache.BlockData(entry->slot)), static_cast<std::size_t>(entry->count)};
    }
    // Writes a whole block, as a caller does.
    void Fill(int handle, int64 block, char byte) {
        CacheEntry* const entry = Get(handle, block, 1);
        ASSERT_NE(entry, nullptr);
        std::memset(cache.BlockData(entry->slot), byte, kBlockSize);
        entry->count = kBlockSize;
        entry->flags |= DirtyFlag;
    }
    std::vector<std::pair<int, int64>> Keys() {
        std::vector<std::pair<int, int64>> keys;
        for (int i = 0; i < cache.BlockCount(); ++i)
            keys.emplace_back(cache.EntryAt(i)->handle, cache.EntryAt(i)->block);
        return keys;
    }

    MemoryBlockFiles blocks;
    FileCacheImpl cache{5, kBlockSize, blocks};  // four usable blocks
};

TEST_F(FileCache, OneBlockOfThoseAskedForIsTheSearchKey) {
    EXPECT_EQ(cache.BlockCount(), 4);
    EXPECT_EQ(cache.BlockSize(), kBlockSize);
}

TEST_F(FileCache, FreshEntriesHoldNothingAndStandInTheirOwnOrder) {
    for (int i = 0; i < 4; ++i) {
        const CacheEntry* const entry = cache.EntryAt(i);
        EXPECT_EQ(entry->handle, 0);
        EXPECT_EQ(entry->block, 0);
        EXPECT_EQ(entry->count, 0);
        EXPECT_EQ(entry->flags, 0);
        EXPECT_EQ(entry->slot, i);
        EXPECT_EQ(entry->next, (i + 1) % 4);
        EXPECT_EQ(entry->prev, (i + 3) % 4);
    }
    EXPECT_EQ(cache.EntryAt(-1), nullptr);
    EXPECT_EQ(cache.EntryAt(4), nullptr);
}

TEST_F(FileCache, FindOnlyOnAFreshCacheFindsNothingAndChangesNothing) {
    EXPECT_FALSE(Holds(1000, 0));
    for (int i = 0; i < 4; ++i) EXPECT_EQ(cache.EntryAt(i)->next, (i + 1) % 4);
    EXPECT_EQ(blocks.TakeCalls(), Calls());
    // The last entry is still the first to be taken.
    EXPECT_EQ(Get(1000, 0)->slot, 3);
}

TEST_F(FileCache, BlockIsReadFromTheFileOnce) {
    CacheEntry* const first = Get(1000, 1);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(TextOf(first), std::string(16, 'b'));
    EXPECT_EQ(blocks.TakeCalls(), Calls{"r 1000 @16 16"});
    EXPECT_EQ(Get(1000, 0), cache.EntryAt(2));
    EXPECT_EQ(blocks.TakeCalls(), Calls{"r 1000 @0 16"});
    EXPECT_EQ(Get(1000, 1), first);
    EXPECT_EQ(Get(1000, 1), first);
    EXPECT_EQ(blocks.TakeCalls(), Calls());
}

TEST_F(FileCache, SecondLookupMovesTheEntryBeforeAllOthers) {
    for (int64 block = 0; block < 4; ++block) Get(1000, block);
    Get(1000, 0);
    // The next two to go are the blocks 1 and 2.
    Get(1001, 0);
    EXPECT_FALSE(Holds(1000, 1));
    EXPECT_TRUE(Holds(1000, 0));
    Get(1001, 1);
    EXPECT_FALSE(Holds(1000, 2));
    EXPECT_TRUE(Holds(1000, 0));
    EXPECT_TRUE(Holds(1000, 3));
}

TEST_F(FileCache, ShortAndEmptyBlocksAtTheEndOfAFile) {
    EXPECT_EQ(TextOf(Get(1000, 4)), "ee");
    const CacheEntry* const behind = Get(1000, 5);
    ASSERT_NE(behind, nullptr);
    EXPECT_EQ(behind->count, 0);
}

TEST_F(FileCache, EntryForABlockThatIsOverwrittenIsNotRead) {
    const CacheEntry* const entry = Get(1000, 0, 1);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->count, 0);
    EXPECT_EQ(blocks.TakeCalls(), Calls());
    // It is there now: nothing is read for it any more.
    EXPECT_EQ(Get(1000, 0, 2)->count, 0);
    EXPECT_EQ(blocks.TakeCalls(), Calls());
}

TEST_F(FileCache, EntriesStandByHandleAndBlock) {
    Get(1001, 0);
    Get(1000, 3);
    Get(1000, 1);
    EXPECT_EQ(Keys(), (std::vector<std::pair<int, int64>>{{0, 0}, {1000, 1}, {1000, 3}, {1001, 0}}));
}

TEST_F(FileCache, HandlesKeepEqualBlockNumbersApart) {
    EXPECT_EQ(TextOf(Get(1000, 1)), std::string(16, 'b'));
    EXPECT_EQ(TextOf(Get(1001, 1)), std::string(16, 'B'));
    EXPECT_EQ(TextOf(Get(1000, 1)), std::string(16, 'b'));
}

TEST_F(FileCache, TakingADirtyBlockWritesAllDirtyBlocksOfItsFileInOrder) {
    Fill(1000, 3, 'x');
    Fill(1000, 0, 'y');
    Fill(1001, 1, 'z');
    Fill(1000, 2, 'w');
    blocks.TakeCalls();
    // The block of the other file stays dirty.
    Get(1001, 0);
    EXPECT_EQ(blocks.TakeCalls(), (Calls{"w 1000 @0 16", "w 1000 @32 16", "w 1000 @48 16", "r 1001 @0 16"}));
    EXPECT_FALSE(Holds(1000, 3));
    EXPECT_EQ(Get(1000, 0)->flags, 0);
    EXPECT_EQ(Get(1000, 2)->flags, 0);
    EXPECT_EQ(Get(1001, 1)->flags, DirtyFlag);
    EXPECT_EQ(blocks.files[1000].substr(0, 16), std::string(16, 'y'));
}

TEST_F(FileCache, TakingACleanBlockWritesNothing) {
    Get(1000, 0);
    Fill(1000, 1, 'x');
    Fill(1000, 2, 'x');
    Fill(1000, 3, 'x');
    blocks.TakeCalls();
    Get(1001, 0);
    EXPECT_EQ(blocks.TakeCalls(), Calls{"r 1001 @0 16"});
}

TEST_F(FileCache, BlockThatCannotBeWrittenIsNotTaken) {
    Fill(1000, 0, 'x');
    Fill(1000, 1, 'y');
    Fill(1001, 0, 'z');
    Fill(1001, 1, 'z');
    blocks.refuseAll = true;
    const auto before = Keys();
    CacheEntry untouched{};
    CacheEntry* out = &untouched;
    EXPECT_FALSE(cache.Lookup(1000, 4, &out, 2));
    EXPECT_EQ(out, &untouched);
    EXPECT_EQ(Keys(), before);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(cache.EntryAt(i)->flags, DirtyFlag);
    // Once the disk takes them, the same look-up works.
    blocks.refuseAll = false;
    EXPECT_EQ(TextOf(Get(1000, 4)), "ee");
    EXPECT_EQ(blocks.files[1000].substr(0, 32), std::string(16, 'x') + std::string(16, 'y'));
}

TEST_F(FileCache, BlockThatIsNotTakenLeavesThoseCleanThatCouldBeWritten) {
    Fill(1000, 1, 'y');
    Fill(1000, 0, 'x');
    Fill(1001, 0, 'z');
    Fill(1001, 1, 'z');
    blocks.callsUntilRefusal = 2;
    const auto before = Keys();
    EXPECT_EQ(Get(1000, 4), nullptr);
    EXPECT_EQ(Keys(), before);
    EXPECT_EQ(cache.EntryAt(0)->flags, 0);
    EXPECT_EQ(cache.EntryAt(1)->flags, DirtyFlag);
    EXPECT_EQ(blocks.files[1000].substr(0, 32), std::string(16, 'x') + std::string(16, 'b'));
}

TEST_F(FileCache, OnlyTheVictimOfAFileThatIsNotOpenIsDropped) {
    Fill(1000, 0, 'x');
    Fill(1000, 1, 'y');
    Get(1001, 0);
    EXPECT_FALSE(cache.DropVictimOfClosedFile()) << "an entry that holds nothing is the next";
    Get(1001, 1);
    EXPECT_FALSE(cache.DropVictimOfClosedFile()) << "the file is open";
    blocks.allAreClosed = true;
    blocks.refuseAll = true;
    EXPECT_TRUE(cache.DropVictimOfClosedFile());
    EXPECT_EQ(Keys(), (std::vector<std::pair<int, int64>>{{0, 0}, {0, 0}, {1001, 0}, {1001, 1}}));
    EXPECT_FALSE(cache.DropVictimOfClosedFile());
    blocks.refuseAll = false;
    EXPECT_NE(Get(1001, 2), nullptr);
    EXPECT_NE(Get(1001, 3), nullptr);
    EXPECT_FALSE(cache.DropVictimOfClosedFile()) << "it is not dirty";
}

TEST_F(FileCache, BytesAreFoundInABlockThatIsThere) {
    EXPECT_EQ(cache.Find(1000, 0, 1), nullptr);
    auto* const start = static_cast<char*>(cache.BlockData(Get(1000, 1)->slot));
    EXPECT_EQ(cache.Find(1000, 16, 16), start);
    EXPECT_EQ(cache.Find(1000, 31, 1), start + 15);
    EXPECT_EQ(cache.Find(1000, 15, 1), nullptr);
    EXPECT_EQ(cache.Find(1000, 32, 1), nullptr);
    EXPECT_EQ(cache.Find(1000, 31, 2), nullptr);
    EXPECT_EQ(cache.Find(1000, 17, 16), nullptr);
    EXPECT_EQ(cache.Find(1000, 16, ~uint64{0}), nullptr);
    EXPECT_EQ(cache.Find(1001, 16, 1), nullptr);
    auto* const end = static_cast<char*>(cache.BlockData(Get(1000, 4)->slot));  // two bytes
    EXPECT_EQ(cache.Find(1000, 65, 1), end + 1);
    EXPECT_EQ(cache.Find(1000, 66, 1), nullptr);
    EXPECT_EQ(cache.Find(1000, 67, 0), nullptr);
    EXPECT_EQ(cache.Find(1000, 20, 4), start + 4) << "not only in the last used";
    // What stands before the start is in no block, even if there is an entry under such a number.
    Get(1000, -1, 1)->count = kBlockSize;
    EXPECT_EQ(cache.Find(1000, -16, 1), nullptr);
}

TEST_F(FileCache, BytesOfABlockThatIsGoneAreNotFound) {
    Get(1000, 0);
    Get(1000, 1);
    cache.EvictAt(3);
    EXPECT_EQ(cache.Find(1000, 16, 1), nullptr);
    EXPECT_NE(cache.Find(1000, 0, 1), nullptr);
    EXPECT_TRUE(cache.Forget(1000));
    EXPECT_EQ(cache.Find(1000, 0, 1), nullptr);
    // Where there is one place only, the block used last is the one that is taken for another.
    FileCacheImpl single(2, kBlockSize, blocks);
    CacheEntry* entry = nullptr;
    ASSERT_TRUE(single.Lookup(1000, 0, &entry, 2));
    ASSERT_TRUE(single.Lookup(1000, 1, &entry, 2));
    EXPECT_EQ(single.Find(1000, 0, 1), nullptr);
    ASSERT_NE(single.Find(1000, 16, 1), nullptr);
    EXPECT_EQ(*single.Find(1000, 16, 1), 'b');
}

TEST_F(FileCache, BytesAreFoundUpToTheLastPosition) {
    constexpr int64 last = std::numeric_limits<int64>::max();
    constexpr int64 lowest = std::numeric_limits<int64>::min();
    for (const int64 block : {last / kBlockSize, last, lowest, int64{1} << 60}) {
        Get(1000, block, 1)->count = kBlockSize;
        EXPECT_EQ(cache.Find(1000, 0, 1), nullptr) << block;
        EXPECT_EQ(cache.Find(1000, lowest, 1), nullptr) << block;
        EXPECT_EQ(cache.Find(1000, -1, 1), nullptr) << block;
        EXPECT_EQ(cache.Find(1000, last, 2), nullptr) << block;
        EXPECT_EQ(cache.Find(1000, last - kBlockSize, 1), nullptr) << block;
    }
    CacheEntry* const entry = Get(1000, last / kBlockSize - 1, 1);
    entry->count = kBlockSize;
    EXPECT_EQ(cache.Find(1000, last - kBlockSize, 1),
              static_cast<char*>(cache.BlockData(entry->slot)) + kBlockSize - 1);
}

TEST_F(FileCache, FindingBytesIsAUseOfTheirBlock) {
    for (int64 block = 0; block < 4; ++block) Get(1000, block);
    EXPECT_NE(cache.Find(1000, 0, 1), nullptr);
    EXPECT_EQ(cache.Find(1000, 16, 0), nullptr) << "nothing is wanted";
    EXPECT_EQ(cache.Find(1000, 16, 17), nullptr) << "a look-up of the block would be one too";
    EXPECT_EQ(cache.Find(1001, 0, 1), nullptr);
    blocks.TakeCalls();
    Get(1001, 0);
    Get(1001, 1);
    EXPECT_FALSE(Holds(1000, 2));
    EXPECT_FALSE(Holds(1000, 3));
    EXPECT_TRUE(Holds(1000, 0));
    EXPECT_TRUE(Holds(1000, 1));
    EXPECT_EQ(blocks.TakeCalls(), (Calls{"r 1001 @0 16", "r 1001 @16 16"}));
}

TEST(FileCacheOfOddBlocks, BytesAreFoundByDivision) {
    MemoryBlockFiles blocks;
    blocks.files[1000] = "abcdefghijkl";
    FileCacheImpl cache(5, 6, blocks);
    CacheEntry* entry = nullptr;
    ASSERT_TRUE(cache.Lookup(1000, 0, &entry, 2));
    ASSERT_TRUE(cache.Lookup(1000, 1, &entry, 2));
    for (int64 position = 0; position < 12; ++position) {
        EXPECT_EQ(*cache.Find(1000, position, 1), static_cast<char>('a' + position));
    }
    EXPECT_EQ(cache.Find(1000, 5, 2), nullptr);
    EXPECT_EQ(cache.Find(1000, 12, 1), nullptr);
    EXPECT_EQ(cache.Find(1000, int64{1} << 32, 1), nullptr);
    EXPECT_EQ(cache.Find(1000, std::numeric_limits<int64>::max(), 1), nullptr);
}

TEST_F(FileCache, OrderOfKeysStandsThroughManyRoundsThroughTheFiles) {
    for (int round = 0; round < 10; ++round) {
        for (int64 block = 0; block < 5; ++block) {
            Get(1000 + round % 2, block);
            const auto keys = Keys();
            EXPECT_TRUE(std::is_sorted(keys.begin(), keys.end()));
            EXPECT_TRUE(std::binary_search(keys.begin(), keys.end(), std::pair<int, int64>(1000 + round % 2, block)));
        }
    }
}

TEST_F(FileCache, BlockThatCannotBeReadStaysWithoutContent) {
    blocks.refuseAll = true;
    CacheEntry untouched{};
    CacheEntry* out = &untouched;
    EXPECT_FALSE(cache.Lookup(1000, 1, &out, 2));
    EXPECT_EQ(out, &untouched);
    blocks.refuseAll = false;
    blocks.TakeCalls();
    const CacheEntry* const entry = Get(1000, 1);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->count, 0);
    EXPECT_EQ(blocks.TakeCalls(), Calls());
}

TEST_F(FileCache, BlockBeyondEveryOffsetCannotBeRead) {
    EXPECT_EQ(Get(1000, std::numeric_limits<int64>::max()), nullptr);
    EXPECT_EQ(Get(1000, -1), nullptr);
    EXPECT_EQ(blocks.TakeCalls(), Calls());
    EXPECT_TRUE(Holds(1000, -1));
    EXPECT_TRUE(Holds(1000, std::numeric_limits<int64>::max()));
}

TEST_F(FileCache, HandleThatIsNoFileIsNeverFound) {
    for (const int handle : {0, -1, std::numeric_limits<int>::min()}) {
        for (const int mode : {0, 1, 2}) EXPECT_EQ(Get(handle, 0, mode), nullptr);
        EXPECT_TRUE(cache.Forget(handle));
    }
    EXPECT_EQ(Get(1000, 0)->slot, 3);
}

TEST_F(FileCache, FlushWritesTheDirtyBlocksOfOneFile) {
    Fill(1001, 0, 'z');
    Fill(1000, 1, 'x');
    Fill(1000, 0, 'y');
    EXPECT_TRUE(cache.Flush(1000));
    EXPECT_EQ(blocks.TakeCalls(), (Calls{"w 1000 @0 16", "w 1000 @16 16"}));
    EXPECT_EQ(Get(1001, 0)->flags, DirtyFlag);
    EXPECT_TRUE(cache.Flush(1000));
    EXPECT_TRUE(cache.Flush(1002));
    EXPECT_EQ(blocks.TakeCalls(), Calls());
}

TEST_F(FileCache, FlushOfAllLeavesNothingDirty) {
    Fill(1001, 0, 'z');
    Fill(1000, 1, 'x');
    Fill(1000, 0, 'y');
    EXPECT_TRUE(cache.Flush(-1));
    EXPECT_EQ(blocks.TakeCalls(), (Calls{"w 1000 @0 16", "w 1000 @16 16", "w 1001 @0 16"}));
    for (int i = 0; i < 4; ++i) EXPECT_EQ(cache.EntryAt(i)->flags, 0);
}

TEST_F(FileCache, FlushStopsAtTheFirstBlockThatCannotBeWritten) {
    Fill(1000, 0, 'x');
    Fill(1000, 1, 'y');
    Fill(1000, 2, 'z');
    blocks.callsUntilRefusal = 2;
    EXPECT_FALSE(cache.Flush(1000));
    EXPECT_EQ(blocks.TakeCalls(), (Calls{"w 1000 @0 16", "w 1000 @16 16"}));
    EXPECT_EQ(Get(1000, 0)->flags, 0);
    EXPECT_EQ(Get(1000, 1)->flags, DirtyFlag);
    EXPECT_EQ(Get(1000, 2)->flags, DirtyFlag);
    EXPECT_TRUE(cache.Flush(1000));
    EXPECT_EQ(blocks.TakeCalls(), (Calls{"w 1000 @16 16", "w 1000 @32 16"}));
}

TEST_F(FileCache, OnlyTheValidBytesOfABlockAreWritten) {
    CacheEntry* const entry = Get(1000, 4);
    entry->flags |= DirtyFlag;
    EXPECT_TRUE(cache.Flush(1000));
    EXPECT_EQ(blocks.TakeCalls(), (Calls{"r 1000 @64 16", "w 1000 @64 2"}));
    EXPECT_EQ(blocks.files[1000].size(), 66u);
}

TEST_F(FileCache, ForgottenBlocksAreWrittenAndGone) {
    Fill(1000, 0, 'x');
    Get(1001, 0);
    Fill(1000, 2, 'y');
    blocks.TakeCalls();
    EXPECT_TRUE(cache.Forget(1000));
    EXPECT_EQ(blocks.TakeCalls(), (Calls{"w 1000 @0 16", "w 1000 @32 16"}));
    for (int64 block = 0; block < 5; ++block) EXPECT_FALSE(Holds(1000, block));
    EXPECT_TRUE(Holds(1001, 0));
    EXPECT_EQ(Keys(), (std::vector<std::pair<int, int64>>{{0, 0}, {0, 0}, {0, 0}, {1001, 0}}));
}

TEST_F(FileCache, ForgottenEntriesAreTakenFirstTheLastOneBeforeTheOthers) {
    const int first = Get(1000, 0)->slot;
    const int second = Get(1000, 1)->slot;
    Get(1001, 0);
    EXPECT_TRUE(cache.Forget(1000));
    EXPECT_EQ(cache.EntryAt(0)->slot, second);
    EXPECT_EQ(cache.EntryAt(1)->slot, first);
    EXPECT_EQ(Get(1001, 1)->slot, second);
    EXPECT_EQ(Get(1001, 2)->slot, first);
    EXPECT_EQ(Get(1001, 3)->slot, 0);
}

TEST_F(FileCache, ForgettingGoesOnPastABlockThatCannotBeWritten) {
    Fill(1000, 0, 'x');
    Fill(1000, 1, 'y');
    Fill(1000, 2, 'z');
    blocks.callsUntilRefusal = 2;
    EXPECT_FALSE(cache.Forget(1000));
    EXPECT_EQ(blocks.TakeCalls(), (Calls{"w 1000 @0 16", "w 1000 @16 16", "w 1000 @32 16"}));
    for (int64 block = 0; block < 3; ++block) EXPECT_FALSE(Holds(1000, block));
    EXPECT_EQ(blocks.files[1000].substr(16, 16), std::string(16, 'b'));
    EXPECT_EQ(blocks.files[1000].substr(32, 16), std::string(16, 'z'));
}

TEST_F(FileCache, EvictedEntryIsNotWrittenAndKeepsItsCount) {
    Get(1000, 1);
    Fill(1000, 0, 'x');
    blocks.TakeCalls();
    CacheEntry* const evicted = cache.EntryAt(2);
    ASSERT_EQ(evicted->block, 0);
    cache.EvictAt(2);
    EXPECT_EQ(blocks.TakeCalls(), Calls());
    EXPECT_EQ(cache.EntryAt(0), evicted);
    EXPECT_EQ(evicted->handle, 0);
    EXPECT_EQ(evicted->block, 0);
    EXPECT_EQ(evicted->flags, 0);
    EXPECT_EQ(evicted->count, kBlockSize);
    EXPECT_EQ(Get(1000, 2), evicted);
    cache.EvictAt(-1);
    cache.EvictAt(4);
    EXPECT_TRUE(Holds(1000, 2));
}

TEST_F(FileCache, EvictingAnEntryThatHoldsNothingPutsItFirst) {
    cache.EvictAt(1);
    EXPECT_EQ(cache.EntryAt(0)->slot, 1);
    EXPECT_EQ(Get(1000, 0)->slot, 1);
    EXPECT_EQ(Get(1000, 1)->slot, 3);
}

TEST_F(FileCache, DestructionWritesNothing) {
    {
        FileCacheImpl other(5, kBlockSize, blocks);
        CacheEntry* entry = nullptr;
        ASSERT_TRUE(other.Lookup(1000, 0, &entry, 1));
        entry->flags |= DirtyFlag;
    }
    EXPECT_EQ(blocks.TakeCalls(), Calls());
}

TEST(FileCacheOfOneBlock, TakesItAgainAndAgain) {
    MemoryBlockFiles blocks;
    blocks.files[1000] = "abcdef";
    FileCacheImpl cache(2, 2, blocks);
    CacheEntry* entry = nullptr;
    for (int64 block = 0; block < 3; ++block) {
        ASSERT_TRUE(cache.Lookup(1000, block, &entry, 2));
        EXPECT_EQ(entry, cache.EntryAt(0));
        EXPECT_EQ(entry->next, 0);
        EXPECT_EQ(entry->prev, 0);
    }
    EXPECT_TRUE(cache.Forget(1000));
    ASSERT_TRUE(cache.Lookup(1000, 1, &entry, 2));
    EXPECT_EQ(std::string(static_cast<char*>(cache.BlockData(entry->slot)), 2), "cd");
}

TEST(FileCacheCreation, ThrowsForNoBlocksAndForTooMuchMemory) {
    MemoryBlockFiles blocks;
    const auto errorOf = [&blocks](int count, long32 size) {
        try {
            const FileCacheImpl cache(count, size, blocks);
            return -1;
        } catch (FileCacheImpl::eCreateError error) {
            return static_cast<int>(error);
        }
    };
    EXPECT_EQ(errorOf(0, 16384), 1);
    EXPECT_EQ(errorOf(1, 16384), 1);
    EXPECT_EQ(errorOf(-5, 16384), 1);
    EXPECT_EQ(errorOf(std::numeric_limits<int>::min(), 16384), 1);
    EXPECT_EQ(errorOf(2048, 0), 0);
    EXPECT_EQ(errorOf(2048, -1), 0);
    // 65536 x 65536 is 0 in 32 bits, 131072 x 16384 negative.
    EXPECT_EQ(errorOf(65536, 65536), 0);
    EXPECT_EQ(errorOf(131072, 16384), 0);
    EXPECT_EQ(errorOf(2, 1), -1);
}

TEST(FileCacheCreation, EveryRefusedRequestFailsItWithoutALoss) {
    const int64 before = test::LiveBlocks();
    const uint64 requests = test::RefuseEachRequest([before](uint64 nth, test::FailingHeap::Mode mode) {
        std::unique_ptr<cFileCache> cache;
        bool refused = false;
        {
            const test::FailingHeap heap(nth, mode);
            cache.reset(cFileCache::Create(8, 16));
            refused = heap.Refused();
        }
        EXPECT_EQ(cache == nullptr, refused);
        cache.reset();
        EXPECT_EQ(test::LiveBlocks(), before);
        return refused;
    });
    EXPECT_EQ(requests, 5u);
}

}  // namespace
}  // namespace file_cache_internal_test
