#include <Utility/memory_blocks.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

namespace memory_blocks_test {
namespace {

using Torvo::uint64;

// A block that is freed at the end of the test.
struct Block {
    void* data = nullptr;
    ~Block() { ffree_(&data); }
    char* bytes() const { return static_cast<char*>(data); }
    std::string text(std::size_t begin, std::size_t end) const { return {bytes() + begin, bytes() + end}; }
};

std::string Zeros(std::size_t count) {
    return std::string(count, '\0');
}

TEST(MemoryBlocks, AllocationZeroesOnRequestWhateverTheThirdArgumentSays) {
    for (const bool unused : {false, true}) {
        {
            Block dirty;  // what the heap is likely to give out again
            ASSERT_TRUE(falloc_(100, &dirty.data, unused, false));
            std::memset(dirty.data, 'x', 100);
        }
        Block block;
        ASSERT_TRUE(falloc_(100, &block.data, unused, true));
        EXPECT_EQ(block.text(0, 100), Zeros(100));
    }
}

TEST(MemoryBlocks, AllocationOfNothingGivesWhatTheHeapGives) {
    Block block;
    const bool succeeded = falloc_(0, &block.data, true, true);
    EXPECT_EQ(succeeded, block.data != nullptr);
}

TEST(MemoryBlocks, AllocationThatCannotSucceedGivesNull) {
    void* block = &block;
    EXPECT_FALSE(falloc_(uint64{1} << 62, &block, false, true));
    EXPECT_EQ(block, nullptr);
}

TEST(MemoryBlocks, FreeingLeavesNullAndAcceptsNull) {
    void* block = nullptr;
    ffree_(&block);
    EXPECT_EQ(block, nullptr);
    ASSERT_TRUE(falloc_(8, &block, false, false));
    ffree_(&block);
    EXPECT_EQ(block, nullptr);
}

TEST(MemoryBlocks, ResizingToNothingLeavesAMinimalBlock) {
    Block block;
    ASSERT_TRUE(falloc_(50, &block.data, false, false));
    EXPECT_TRUE(frealloc_(0, &block.data));
    EXPECT_NE(block.data, nullptr);

    Block fromNull;
    EXPECT_TRUE(frealloc_(0, &fromNull.data));
    EXPECT_NE(fromNull.data, nullptr);
}

TEST(MemoryBlocks, GrowthKeepsTheOldBytesAndZeroesTheNew) {
    Block block;
    ASSERT_TRUE(falloc_(8, &block.data, false, false));
    std::memcpy(block.data, "12345678", 8);
    ASSERT_TRUE(frealloc_(16, &block.data));
    EXPECT_EQ(block.text(0, 8), "12345678");
    EXPECT_EQ(block.text(8, 16), Zeros(8));
}

TEST(MemoryBlocks, GrowthFromNullIsAllZero) {
    Block block;
    ASSERT_TRUE(frealloc_(16, &block.data));
    EXPECT_EQ(block.text(0, 16), Zeros(16));
}

// Every pair of sizes, through shrinking and growing, with old content where the new bytes come to lie.
TEST(MemoryBlocks, WhatLiesBeyondTheSizeLastAskedForIsZeroAfterGrowth) {
    for (uint64 first = 0; first < 64; ++first) {
        for (uint64 second = 0; second < 64; ++second) {
            Block block;
            ASSERT_TRUE(frealloc_(64, &block.data));
            std::memset(block.data, 'x', 64);
            ASSERT_TRUE(frealloc_(first, &block.data));
            std::memset(block.data, 'y', first);
            ASSERT_TRUE(frealloc_(second, &block.data));
            const uint64 kept = std::min(first, second);
            EXPECT_EQ(block.text(0, kept), std::string(kept, 'y'));
            if (second > first) {
                EXPECT_EQ(block.text(first, second), Zeros(second - first)) << first << " " << second;
            }
        }
    }
}

TEST(MemoryBlocks, FailedResizeLosesTheBlock) {
    Block old;
    ASSERT_TRUE(falloc_(16, &old.data, false, false));
    void* block = old.data;
    EXPECT_FALSE(frealloc_(uint64{1} << 62, &block));
    EXPECT_EQ(block, nullptr);
}

TEST(MemoryBlocks, GetMemKeepsABlockThatIsLargeEnough) {
    Block block;
    ASSERT_TRUE(falloc_(16, &block.data, false, false));
    std::memcpy(block.data, "0123456789abcdef", 16);
    const void* const before = block.data;
    const uint64 size = memSize(block.data);
    EXPECT_TRUE(GetMem_(10, &block.data, true));
    EXPECT_EQ(block.data, before);
    EXPECT_EQ(memSize(block.data), size);
    EXPECT_EQ(block.text(0, 16), "0123456789abcdef");
}

TEST(MemoryBlocks, GetMemGrowsABlockThatIsTooSmall) {
    Block block;
    ASSERT_TRUE(GetMem_(10, &block.data, true));
    std::memset(block.data, 'x', 10);
    ASSERT_TRUE(GetMem_(1000, &block.data, true));
    EXPECT_GE(memSize(block.data), 1000u);
    EXPECT_EQ(block.text(0, 10), std::string(10, 'x'));
    EXPECT_EQ(block.text(10, 1000), Zeros(990));
}

TEST(MemoryBlocks, GetMemShrinksWhenNotToldToKeep) {
    Block block;
    ASSERT_TRUE(falloc_(100000, &block.data, false, false));
    ASSERT_TRUE(GetMem_(10, &block.data, false));
    EXPECT_LT(memSize(block.data), 100000u);
}

TEST(MemoryBlocks, GetMemShrinksASmallBlockToWhatIsAskedFor) {
    Block block;
    ASSERT_TRUE(falloc_(16, &block.data, true, false));
    std::memcpy(block.data, "0123456789abcdef", 16);
    ASSERT_TRUE(GetMem_(10, &block.data, false));
    EXPECT_EQ(block.text(0, 10), "0123456789");
    ASSERT_TRUE(frealloc_(16, &block.data));
    EXPECT_EQ(block.text(10, 16), Zeros(6)) << "ten bytes were asked for last";
}

TEST(MemoryBlocks, GetMemOfNothingOnNullKeepsNull) {
    void* block = nullptr;
    EXPECT_FALSE(GetMem_(0, &block, true));
    EXPECT_EQ(block, nullptr);
    EXPECT_TRUE(GetMem_(0, &block, false));
    EXPECT_NE(block, nullptr);
    ffree_(&block);
}

TEST(MemoryBlocks, SizeOfNullIsZero) {
    EXPECT_EQ(memSize(nullptr), 0u);
}

TEST(MemoryBlocks, SizeIsAtLeastWhatWasAskedFor) {
    Block block;
    ASSERT_TRUE(falloc_(33, &block.data, false, false));
    EXPECT_GE(memSize(block.data), 33u);
}

}  // namespace
}  // namespace memory_blocks_test
