// What a file has on disk at each moment, and what is left of it when the cache is lost, as it is with its process.

#include <gtest/gtest.h>
#include <support/fresh_files.h>

namespace Torvo::test {
namespace what_is_on_disk_test {
namespace {

constexpr int BlockSize = 2048;

class OnDisk : public testing::Test {
protected:
    OnDisk()
        : files({.blocks = 4, .blockSize = BlockSize}),
          file(fileopen(files.Register(ZUTEXT("x")), omCreate, nullptr)) {}

    std::string Content() const { return ContentOnDisk(file, files.directory, ZUTEXT("x")); }
    // All that the process holds is gone; what is on disk stays.
    static void LoseTheCache() {
        delete cFileCache::Instance();
        cFileCache::Instance(cFileCache::Create(5, BlockSize));
    }

    const FreshFiles files;
    const int file;
};

TEST_F(OnDisk, IsTheLengthAtFirst) {
    WriteBytes(file, std::string(1000, 'w'));
    EXPECT_EQ(Content(), std::string(1000, '\0'));
}

TEST_F(OnDisk, IsEverythingAfterAFlush) {
    WriteBytes(file, std::string(1000, 'w'));
    EXPECT_TRUE(cFileCache::Instance()->Flush(file));
    EXPECT_EQ(Content(), std::string(1000, 'w'));
    LoseTheCache();
    EXPECT_EQ(Content(), std::string(1000, 'w'));
}

TEST_F(OnDisk, StaysWhatWasFlushedWhenTheRestIsLost) {
    WriteBytes(file, std::string(1000, 'w'));
    cFileCache::Instance()->Flush(file);
    WriteBytes(file, std::string(100, 'l'));
    lseek2(file, 0, 0);
    WriteBytes(file, std::string(10, 'l'));
    LoseTheCache();
    EXPECT_EQ(Content(), std::string(1000, 'w') + std::string(100, '\0'));
    EXPECT_EQ(ReadBytes(file, 10), std::string(10, 'w'));
}

TEST_F(OnDisk, IsEverythingAfterTheLastClose) {
    ASSERT_EQ(fileopen(file, omReadWrite, nullptr), file);
    WriteBytes(file, std::string(1000, 'w'));
    close2(file);
    EXPECT_EQ(Content(), std::string(1000, '\0'));
    close2(file);
    EXPECT_EQ(Content(), std::string(1000, 'w'));
}

TEST_F(OnDisk, IsEverythingWhenTheCacheNeedsThePlaceOfOneBlock) {
    WriteBytes(file, std::string(3 * BlockSize, 'w'));
    const int other = fileopen(files.Make(ZUTEXT("other"), std::string(4 * BlockSize, 'o')), omRead, nullptr);
    ReadBytes(other, 2 * BlockSize);
    EXPECT_EQ(Content(), std::string(3 * BlockSize, 'w'));
}

TEST_F(OnDisk, DirtyBlocksOfAFileThatSomebodyHoldsAreLostWithTheFileSystem) {
    WriteBytes(file, std::string(1000, 'w'));
    const int descriptor = GetFileFD(file);
    delete cFileSystem::Instance();
    cFileSystem::Instance(cFileSystem::Create());
    EXPECT_EQ(BytesOfDescriptor(descriptor), std::string(1000, '\0'));
    CloseDescriptor(descriptor);
}

}  // namespace
}  // namespace what_is_on_disk_test
}  // namespace Torvo::test
