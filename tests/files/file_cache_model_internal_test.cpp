// The cache against its plain form, over random operations on the same files.

#include <Utility/files/file_cache.h>
#include <files/memory_block_files.h>
#include <gtest/gtest.h>
#include <reference/plain_file_cache.h>
#include <support/random.h>

#include <memory>

namespace file_cache_model_internal_test {
namespace {

using namespace Torvo;
using Torvo::test::DriftingValues;
using Torvo::test::MemoryBlockFiles;
using Torvo::test::PlainFileCache;
using Torvo::test::Random;

constexpr int kFirstHandle = 1000;
constexpr int kFiles = 5;

class Pair {
public:
    Pair(Random& chance, int blocks, int size)
        : random(chance),
          blockSize(size),
          places(chance, 40, 6, 2),
          plain(blocks, size, plainFiles),
          clever(blocks, size, cleverFiles) {
        for (int file = kFirstHandle; file < kFirstHandle + kFiles; ++file) {
            std::string content(static_cast<std::size_t>(random.Between(0, 40 * blockSize)), ' ');
            for (char& byte : content) byte = static_cast<char>(random.Between('a', 'z'));
            plainFiles.files[file] = cleverFiles.files[file] = content;
        }
    }

    void RunOne() {
        if (random.OneIn(50)) plainFiles.callsUntilRefusal = cleverFiles.callsUntilRefusal = Small(1, 4);
        if (random.OneIn(500)) plainFiles.refuseAll = cleverFiles.refuseAll = !plainFiles.refuseAll;
        switch (Small(0, 19)) {
            case 0:
                EXPECT_EQ(plain.Forget(handle), clever.Forget(handle));
                break;
            case 1:
                EXPECT_EQ(plain.Flush(handle), clever.Flush(handle));
                break;
            case 2:
                EXPECT_EQ(plain.Flush(-1), clever.Flush(-1));
                break;
            case 3:
                Evict();
                break;
            case 4:
                handle = Small(kFirstHandle, kFirstHandle + kFiles - 1);
                break;
            case 5:
            case 6:
                FindBytes();
                break;
            default:
                LookUp();
        }
        Compare();
    }

private:
    int Small(int low, int high) { return static_cast<int>(random.Between(low, high)); }

    void Evict() {
        const int position = Small(0, plain.BlockCount() - 1);
        plain.EvictAt(position);
        clever.EvictAt(position);
    }

    // What is found is what a look-up gives, and is used by it in any case.
    void FindBytes() {
        const int64 position = places.Next() * blockSize + Small(0, blockSize - 1);
        const int count = Small(0, 3);
        const char* const bytes = clever.Find(handle, position, static_cast<uint64>(count));
        CacheEntry* entry = nullptr;
        if (count == 0 || !plain.Lookup(handle, position / blockSize, &entry, 0)) {
            ASSERT_TRUE(count == 0 || bytes == nullptr);
            return;
        }
        const int64 offset = position % blockSize;
        ASSERT_EQ(bytes != nullptr, offset + count <= entry->count);
        if (bytes == nullptr) return;
        const char* const expected = static_cast<const char*>(plain.BlockData(entry->slot)) + offset;
        ASSERT_EQ(std::memcmp(bytes, expected, static_cast<std::size_t>(count)), 0);
    }

    void LookUp() {
        const int64 block = places.Next();
        const int mode = Small(0, 2);
        CacheEntry* ofPlain = nullptr;
        CacheEntry* ofClever = nullptr;
        const bool found = plain.Lookup(handle, block, &ofPlain, mode);
        ASSERT_EQ(clever.Lookup(handle, block, &ofClever, mode), found);
        ASSERT_EQ(ofPlain != nullptr, found);
        ASSERT_EQ(ofClever != nullptr, found);
        if (!found || random.OneIn(2)) return;
        const char byte = static_cast<char>(random.Between('A', 'Z'));
        const int count = mode == 1 ? blockSize : Small(0, blockSize);
        Change(plain, ofPlain, byte, count);
        Change(clever, ofClever, byte, count);
    }

    static void Change(cFileCache& cache, CacheEntry* entry, char byte, int count) {
        std::memset(cache.BlockData(entry->slot), byte, static_cast<std::size_t>(count));
        entry->count = std::max(entry->count, count);
        entry->flags |= 1;
    }

    void Compare() {
        ASSERT_EQ(plainFiles.TakeCalls(), cleverFiles.TakeCalls());
        for (int position = 0; position < plain.BlockCount(); ++position) {
            const CacheEntry& expected = *plain.EntryAt(position);
            const CacheEntry& entry = *clever.EntryAt(position);
            ASSERT_EQ(std::memcmp(&expected, &entry, sizeof entry), 0) << "position " << position;
            ASSERT_EQ(std::memcmp(plain.BlockData(expected.slot), clever.BlockData(entry.slot),
                                  static_cast<std::size_t>(entry.count)),
                      0);
        }
#if defined(TORVO_CHECK_INVARIANTS) || !defined(NDEBUG)
        ASSERT_TRUE(clever.InvariantsHold());
#endif
        ASSERT_EQ(plainFiles.files, cleverFiles.files);
    }

    Random& random;
    const int blockSize;
    DriftingValues places;
    MemoryBlockFiles plainFiles;
    MemoryBlockFiles cleverFiles;
    PlainFileCache plain;
    FileCacheImpl clever;
    int handle = kFirstHandle;
};

TEST(FileCacheModel, RandomOperationsAgreeWithThePlainForm) {
    Random random;
    SCOPED_TRACE(random.About());
    constexpr int kRounds = 50;
    constexpr int kOperations = 150'000;
    for (int round = 0; round < kRounds; ++round) {
        Pair pair(random, static_cast<int>(random.Between(2, 24)), round % 3 == 0 ? 6 : 8);
        for (int i = 0; i < kOperations / kRounds; ++i) {
            pair.RunOne();
            ASSERT_FALSE(::testing::Test::HasFatalFailure()) << "operation " << i << " of round " << round;
        }
    }
}

}  // namespace
}  // namespace file_cache_model_internal_test
