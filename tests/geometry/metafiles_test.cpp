#include "geometry/metafile_samples.h"

#include <Utility/metafiles.h>
#include <Utility/platform/host.h>
#include <gtest/gtest.h>

namespace metafiles_test {
namespace {

using namespace Torvo;
using test::Bytes;

// What a block holds, up to `size` bytes; the block is freed.
Bytes Taken(void* block, std::size_t size) {
    EXPECT_NE(block, nullptr);
    if (block == nullptr) return {};
    EXPECT_GE(platform::GlobalSize(block), size);
    const auto* const memory = static_cast<const unsigned char*>(platform::GlobalLock(block));
    EXPECT_NE(static_cast<const void*>(memory), nullptr);
    Bytes bytes(memory, memory + size);
    EXPECT_FALSE(platform::GlobalUnlock(block));  // it came back unlocked, so ours was the only lock
    EXPECT_EQ(platform::GlobalFree(block), nullptr);
    return bytes;
}

TEST(MetaFiles, TheBlockHoldsTheBytes) {
    const Bytes bytes = test::SmallMetaFile();
    const HMETAFILE metafile = platform::SetMetaFileBitsEx(static_cast<uint32>(bytes.size()), bytes.data());
    ASSERT_NE(metafile, nullptr);
    EXPECT_EQ(Taken(GetMetaFileBits(metafile), bytes.size()), bytes);
    EXPECT_TRUE(platform::DeleteMetaFile(metafile));
}

TEST(MetaFiles, TheBlockHoldsTheBytesOfAnEnhancedOne) {
    const Bytes bytes = test::SmallEnhMetaFile();
    const HENHMETAFILE metafile = platform::SetEnhMetaFileBits(static_cast<uint32>(bytes.size()), bytes.data());
    ASSERT_NE(metafile, nullptr);
    EXPECT_EQ(Taken(GetEnhancedMetaFileBits(metafile), bytes.size()), bytes);
    EXPECT_TRUE(platform::DeleteEnhMetaFile(metafile));
}

TEST(MetaFiles, NullGivesNull) {
    EXPECT_EQ(GetMetaFileBits(nullptr), nullptr);
    EXPECT_EQ(GetEnhancedMetaFileBits(nullptr), nullptr);
}

TEST(MetaFiles, OtherBytesAreNoMetafile) {
    const Bytes zeros(200, 0);
    EXPECT_EQ(platform::SetMetaFileBitsEx(200, zeros.data()), nullptr);
    EXPECT_EQ(platform::SetEnhMetaFileBits(200, zeros.data()), nullptr);
    EXPECT_FALSE(platform::DeleteMetaFile(nullptr));
    EXPECT_FALSE(platform::DeleteEnhMetaFile(nullptr));
}

}  // namespace
}  // namespace metafiles_test
