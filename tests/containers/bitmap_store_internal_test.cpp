#include <Utility/containers/bitmap_store.h>
#include <Utility/platform/runtime.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "containers/container_failures.h"
#include "support/random.h"

// The blocks and slabs that the bitmaps of sparse sets lie in.

namespace bitmap_store_internal_test {
namespace {

using namespace Torvo;
using test::FailingHeap;

constexpr std::size_t kBytes = BitmapStore::kContentBytes;
// More than the first slabs hold.
constexpr std::size_t kMany = 400;

bool AllBytesAre(const uint16* bitmap, uint8 value) {
    const auto* const bytes = reinterpret_cast<const uint8*>(bitmap);
    return std::all_of(bytes, bytes + kBytes, [value](uint8 byte) { return byte == value; });
}

class BitmapStores : public test::ContainerFailures {
protected:
    void TearDown() override {
        for (uint16* const bitmap : bitmaps_) store_.Free(bitmap);
        store_.Close();
        std::vector<uint16*>().swap(bitmaps_);
        // The framework keeps the reason of a skip.
        if (!IsSkipped()) test::ContainerFailures::TearDown();
    }

    uint16* Take(bool zero = true) {
        uint16* const bitmap = store_.New(zero);
        if (bitmap != nullptr) bitmaps_.push_back(bitmap);
        return bitmap;
    }

    void TakeMany(std::size_t count) {
        bitmaps_.reserve(count);
        while (bitmaps_.size() < count) ASSERT_NE(Take(), nullptr);
    }

    void FreeLast() {
        store_.Free(bitmaps_.back());
        bitmaps_.pop_back();
    }

    static bool HasSlabs() { return platform::LargePageBytes() != 0; }

    BitmapStore store_{};
    std::vector<uint16*> bitmaps_;
};

TEST_F(BitmapStores, TheFirstHaveBlocksOfTheirOwn) {
    bitmaps_.reserve(kMany);
    const int64 before = test::LiveBlocks();
    TakeMany(BitmapStore::kSingles);
    EXPECT_EQ(test::LiveBlocks() - before, BitmapStore::kSingles);
    while (!bitmaps_.empty()) FreeLast();
    EXPECT_EQ(test::LiveBlocks(), before);
}

TEST_F(BitmapStores, FurtherOnesShareSlabs) {
    if (!HasSlabs()) GTEST_SKIP() << "the system gives no large pages";
    bitmaps_.reserve(kMany);
    TakeMany(BitmapStore::kSingles);
    const int64 before = test::LiveBlocks();
    TakeMany(BitmapStore::kSingles + 60);
    EXPECT_EQ(test::LiveBlocks() - before, 1);
    TakeMany(kMany);
    EXPECT_LT(test::LiveBlocks() - before, 10);
    for (std::size_t i = BitmapStore::kSingles; i < kMany; ++i) {
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(bitmaps_[i]) % 64, 0u);
    }
}

TEST_F(BitmapStores, AnEmptySlabIsKeptForTheNextBitmapAlone) {
    if (!HasSlabs()) GTEST_SKIP() << "the system gives no large pages";
    bitmaps_.reserve(kMany);
    TakeMany(BitmapStore::kSingles);
    const int64 before = test::LiveBlocks();
    TakeMany(kMany);
    while (bitmaps_.size() > BitmapStore::kSingles) FreeLast();
    EXPECT_EQ(test::LiveBlocks() - before, 1);
    {
        const FailingHeap heap(1);
        EXPECT_NE(Take(), nullptr);
        EXPECT_FALSE(heap.Refused());
    }
    FreeLast();
    EXPECT_EQ(test::LiveBlocks() - before, 1);
    // A list that has shrunk to half of the blocks of its own is not likely to want it.
    while (bitmaps_.size() >= BitmapStore::kSingles / 2) FreeLast();
    EXPECT_EQ(test::LiveBlocks() - before, int64{BitmapStore::kSingles / 2 - 1} - int64{BitmapStore::kSingles});
}

TEST_F(BitmapStores, AnEmptySlabIsKeptBesideOneWithRoom) {
    if (!HasSlabs()) GTEST_SKIP() << "the system gives no large pages";
    bitmaps_.reserve(kMany);
    TakeMany(BitmapStore::kSingles + 1);
    const int64 oneSlab = test::LiveBlocks();
    while (test::LiveBlocks() == oneSlab) TakeMany(bitmaps_.size() + 1);
    // First one of the full slab goes, then the only one of the second.
    std::swap(bitmaps_.back(), bitmaps_[bitmaps_.size() - 2]);
    FreeLast();
    FreeLast();
    EXPECT_EQ(test::LiveBlocks(), oneSlab + 1);
    const FailingHeap heap(1);
    EXPECT_NE(Take(), nullptr);
    EXPECT_NE(Take(), nullptr);
    EXPECT_FALSE(heap.Refused());
}

TEST_F(BitmapStores, WithoutMemoryForASlabABlockWillDo) {
    bitmaps_.reserve(kMany);
    TakeMany(BitmapStore::kSingles);
    const int64 before = test::LiveBlocks();
    {
        const FailingHeap heap(1, FailingHeap::Mode::kOnce);
        EXPECT_EQ(Take() != nullptr, HasSlabs());
        EXPECT_TRUE(heap.Refused());
    }
    EXPECT_EQ(test::LiveBlocks() - before, HasSlabs() ? 1 : 0);
    {
        const FailingHeap heap(1);
        EXPECT_EQ(Take(), nullptr);
    }
    TakeMany(kMany);
}

TEST_F(BitmapStores, NullIsNoBitmap) {
    store_.Free(nullptr);
    EXPECT_NE(Take(), nullptr);
}

// Random taking and giving back: what is asked for zeroed is zero, and no two overlap.
TEST_F(BitmapStores, KeepTheirContent) {
    test::Random random;
    SCOPED_TRACE(random.About());
    bitmaps_.reserve(kMany);
    std::vector<uint8> contents;
    contents.reserve(kMany);
    for (int step = 0; step < 3000; ++step) {
        const bool grows = step / 1000 % 2 == 0 ? random.Between(0, 3) > 0 : random.Between(0, 3) == 0;
        if (grows && bitmaps_.size() < kMany) {
            const bool zero = random.OneIn(2);
            uint16* const bitmap = Take(zero);
            ASSERT_NE(bitmap, nullptr);
            if (zero) {
                ASSERT_TRUE(AllBytesAre(bitmap, 0));
            }
            contents.push_back(static_cast<uint8>(random.Between(1, 255)));
            std::memset(bitmap, contents.back(), kBytes);
        } else if (!bitmaps_.empty()) {
            const auto at = static_cast<std::size_t>(random.Between(0, static_cast<int64>(bitmaps_.size()) - 1));
            ASSERT_TRUE(AllBytesAre(bitmaps_[at], contents[at]));
            std::swap(bitmaps_[at], bitmaps_.back());
            std::swap(contents[at], contents.back());
            contents.pop_back();
            FreeLast();
        }
    }
    for (std::size_t i = 0; i < bitmaps_.size(); ++i) ASSERT_TRUE(AllBytesAre(bitmaps_[i], contents[i]));
}

}  // namespace
}  // namespace bitmap_store_internal_test
