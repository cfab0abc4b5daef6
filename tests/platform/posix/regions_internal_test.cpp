// Regions and metafiles of this system's layer: what is no region and no metafile is refused.
#include <Utility/platform/host.h>
#include <Utility/platform/regions.h>
#include <geometry/metafile_samples.h>
#include <gtest/gtest.h>

#include <memory>

namespace posix_regions_internal_test {
namespace {

using namespace Torvo;
using test::Bytes;

struct DeleteRegion {
    using pointer = HRGN;
    void operator()(HRGN region) const { platform::DeleteObject(region); }
};
using Region = std::unique_ptr<HRGN_, DeleteRegion>;

TEST(RegionCalls, RefuseWhatIsNoRegion) {
    const Region region(platform::CreateRectRgn(0, 0, 10, 10));
    const HRGN some = region.get();
    platform::RECT box = {1, 2, 3, 4};
    EXPECT_FALSE(platform::SetRectRgn(nullptr, 0, 0, 1, 1));
    EXPECT_EQ(platform::CombineRgn(nullptr, some, some, RGN_OR), 0);
    EXPECT_EQ(platform::CombineRgn(some, nullptr, some, RGN_OR), 0);
    EXPECT_EQ(platform::CombineRgn(some, some, nullptr, RGN_AND), 0);
    EXPECT_FALSE(platform::EqualRgn(nullptr, some));
    EXPECT_FALSE(platform::EqualRgn(some, nullptr));
    EXPECT_EQ(platform::GetRgnBox(nullptr, &box), 0);
    EXPECT_EQ(box.left, 1);
    EXPECT_FALSE(platform::DeleteObject(nullptr));
    EXPECT_EQ(platform::GetRgnBox(some, &box), SIMPLEREGION);
    EXPECT_EQ(box.right, 10);
}

TEST(RegionCalls, RefuseAWayOfCombiningThatThereIsNot) {
    const Region region(platform::CreateRectRgn(0, 0, 10, 10));
    EXPECT_EQ(platform::CombineRgn(region.get(), region.get(), region.get(), 99), 0);
}

bool IsTaken(const Bytes& bytes) {
    const HMETAFILE metafile = platform::SetMetaFileBitsEx(static_cast<uint32>(bytes.size()), bytes.data());
    return platform::DeleteMetaFile(metafile);
}
bool IsTakenAsEnhanced(const Bytes& bytes) {
    const HENHMETAFILE metafile = platform::SetEnhMetaFileBits(static_cast<uint32>(bytes.size()), bytes.data());
    return platform::DeleteEnhMetaFile(metafile);
}

TEST(MetaFileHeaders, AreLookedAt) {
    const Bytes good = test::SmallMetaFile();
    EXPECT_TRUE(IsTaken(good));
    Bytes onDisk = good;
    onDisk[0] = 2;
    EXPECT_TRUE(IsTaken(onDisk));
    Bytes otherType = good;
    otherType[0] = 3;
    EXPECT_FALSE(IsTaken(otherType));
    Bytes otherHeader = good;
    otherHeader[2] = 8;
    EXPECT_FALSE(IsTaken(otherHeader));
    Bytes odd = good;
    odd.push_back(0);
    EXPECT_FALSE(IsTaken(odd));
    EXPECT_FALSE(IsTaken(Bytes(good.begin(), good.begin() + 16)));
    EXPECT_EQ(platform::SetMetaFileBitsEx(24, nullptr), nullptr);
}

TEST(MetaFileHeaders, AreLookedAtInTheEnhancedFormToo) {
    const Bytes good = test::SmallEnhMetaFile();
    EXPECT_TRUE(IsTakenAsEnhanced(good));
    Bytes otherType = good;
    otherType[0] = 2;
    EXPECT_FALSE(IsTakenAsEnhanced(otherType));
    Bytes otherSignature = good;
    otherSignature[40] = '!';
    EXPECT_FALSE(IsTakenAsEnhanced(otherSignature));
    EXPECT_FALSE(IsTakenAsEnhanced(Bytes(good.begin(), good.begin() + 87)));
    EXPECT_EQ(platform::SetEnhMetaFileBits(108, nullptr), nullptr);
}

}  // namespace
}  // namespace posix_regions_internal_test
