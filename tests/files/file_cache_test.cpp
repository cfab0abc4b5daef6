// The block cache as callers see it.

#include <Utility/Utility.h>
#include <files/own_cache.h>
#include <gtest/gtest.h>
#include <support/temp_directory.h>
#include <support/vtable_slot.h>

#include <cstddef>
#include <cstring>
#include <string>

namespace file_cache_test {
namespace {

using namespace Torvo;
using test::OwnCache;
using test::SlotOf;
using test::TempDirectory;

TEST(FileCacheService, OperationsStandInTheirOrder) {
    EXPECT_EQ(SlotOf(&cFileCache::Forget), 2u);
    EXPECT_EQ(SlotOf(&cFileCache::Flush), 3u);
    EXPECT_EQ(SlotOf(&cFileCache::BlockCount), 4u);
    EXPECT_EQ(SlotOf(&cFileCache::BlockSize), 5u);
    EXPECT_EQ(SlotOf(&cFileCache::Lookup), 6u);
    EXPECT_EQ(SlotOf(&cFileCache::EntryAt), 7u);
    EXPECT_EQ(SlotOf(&cFileCache::BlockData), 8u);
    EXPECT_EQ(SlotOf(&cFileCache::EvictAt), 9u);
}

TEST(FileCacheService, InstanceHas2047BlocksOf16Kilobytes) {
    ASSERT_NE(cFileCache::Instance(), nullptr);
    EXPECT_EQ(cFileCache::Instance()->BlockCount(), 2047);
    EXPECT_EQ(cFileCache::Instance()->BlockSize(), 16384);
}

TEST(FileCacheService, CacheThatCouldHoldNoBlockIsRefused) {
    EXPECT_EQ(cFileCache::Create(0, 16384), nullptr);
    EXPECT_EQ(cFileCache::Create(1, 16384), nullptr);
    EXPECT_EQ(cFileCache::Create(-1, 16384), nullptr);
    EXPECT_EQ(cFileCache::Create(16, 0), nullptr);
    // A pool of 2 GiB and more.
    EXPECT_EQ(cFileCache::Create(2048, 1 << 20), nullptr);
}

TEST(FileCacheService, EntriesHaveTheirPublishedLayout) {
    EXPECT_EQ(sizeof(CacheEntry), 32u);
    EXPECT_EQ(offsetof(CacheEntry, block), 0u);
    EXPECT_EQ(offsetof(CacheEntry, next), 8u);
    EXPECT_EQ(offsetof(CacheEntry, prev), 12u);
    EXPECT_EQ(offsetof(CacheEntry, handle), 16u);
    EXPECT_EQ(offsetof(CacheEntry, count), 20u);
    EXPECT_EQ(offsetof(CacheEntry, slot), 24u);
    EXPECT_EQ(offsetof(CacheEntry, flags), 28u);
}

TEST(FileCacheService, BlocksAreThoseOfTheRegisteredFile) {
    const TempDirectory directory;
    const OwnCache cache(5, 16);
    const wstring16 path = directory.Write(ZUTEXT("a.bin"), std::string(16, 'a') + std::string(16, 'b') + "cc");
    const int file = register_file(path.c_str(), ftNone, true);
    ASSERT_EQ(fileopen(file, omReadWrite, nullptr), file);

    CacheEntry* entry = nullptr;
    ASSERT_TRUE(cache->Lookup(file, 1, &entry, 2));
    EXPECT_EQ(entry->handle, file);
    EXPECT_EQ(entry->count, 16);
    EXPECT_EQ(std::string(static_cast<char*>(cache->BlockData(entry->slot)), 16), std::string(16, 'b'));
    ASSERT_TRUE(cache->Lookup(file, 2, &entry, 2));
    EXPECT_EQ(entry->count, 2);
    ASSERT_TRUE(cache->Lookup(file, 3, &entry, 2));
    EXPECT_EQ(entry->count, 0);

    ASSERT_TRUE(cache->Lookup(file, 0, &entry, 1));
    std::memset(cache->BlockData(entry->slot), 'z', 16);
    entry->count = 16;
    entry->flags |= 1;
    EXPECT_TRUE(cache->Flush(file));
    EXPECT_EQ(entry->flags, 0);

    EXPECT_EQ(close2(file), 0);
    EXPECT_EQ(directory.Read(ZUTEXT("a.bin")), std::string(16, 'z') + std::string(16, 'b') + "cc");
    unregister_file(file);
    EXPECT_FALSE(cache->Lookup(file, 0, &entry, 0));
}

TEST(FileCacheService, DirtyBlockOfAFileThatIsNotOpenIsNotTaken) {
    const TempDirectory directory;
    const OwnCache cache(4, 512);
    const int closed = register_file(directory.Path(ZUTEXT("closed")).c_str(), ftNone, true);
    const int other = register_file(directory.Path(ZUTEXT("other")).c_str(), ftNone, true);
    CacheEntry* dirty = nullptr;
    ASSERT_TRUE(cache->Lookup(closed, 0, &dirty, 1));
    dirty->count = 5;
    dirty->flags |= 1;
    CacheEntry* entry = nullptr;
    ASSERT_TRUE(cache->Lookup(other, 0, &entry, 1));
    ASSERT_TRUE(cache->Lookup(other, 1, &entry, 1));
    entry = nullptr;
    EXPECT_FALSE(cache->Lookup(other, 2, &entry, 1));
    EXPECT_EQ(entry, nullptr);
    EXPECT_EQ(dirty->handle, closed);
    EXPECT_EQ(dirty->count, 5);
    EXPECT_EQ(dirty->flags, 1);
    unregister_file(other);
    unregister_file(closed);
}

TEST(FileCacheService, NothingIsFoundForNobodyAndOutsideThePool) {
    const OwnCache cache(4, 512);
    for (const int mode : {0, 1, 2, 0, 1, 2}) EXPECT_FALSE(cache->Lookup(1000, 0, nullptr, mode));
    CacheEntry* entry = nullptr;
    EXPECT_FALSE(cache->Lookup(1000, 0, &entry, 0)) << "nothing was taken for it";
    EXPECT_TRUE(cache->Lookup(1000, 0, &entry, 1));
    EXPECT_FALSE(cache->Lookup(1000, 0, nullptr, 0));
    EXPECT_EQ(static_cast<char*>(cache->BlockData(2)) - static_cast<char*>(cache->BlockData(0)), 1024);
    EXPECT_EQ(cache->BlockData(-1), nullptr);
    EXPECT_EQ(cache->BlockData(4), nullptr);
}

TEST(FileCacheService, BlockOfAFileThatIsNotOpenCannotBeRead) {
    const OwnCache cache(5, 16);
    CacheEntry* entry = nullptr;
    EXPECT_FALSE(cache->Lookup(123'456, 0, &entry, 2));
    EXPECT_EQ(entry, nullptr);
    // It stays in the cache without content.
    EXPECT_TRUE(cache->Lookup(123'456, 0, &entry, 2));
    EXPECT_EQ(entry->count, 0);
    // And what is dirty of it cannot be written.
    entry->flags |= 1;
    EXPECT_FALSE(cache->Flush(123'456));
    EXPECT_FALSE(cache->Forget(123'456));
    EXPECT_TRUE(cache->Flush(-1));
}

}  // namespace
}  // namespace file_cache_test
