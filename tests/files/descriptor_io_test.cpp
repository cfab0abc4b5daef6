#include <Utility/instance.h>
#include <gtest/gtest.h>
#include <support/fresh_files.h>

#include <limits>
#include <vector>

namespace Torvo::test {
namespace descriptor_io_test {
namespace {

constexpr int32 BlockSize = 16384;

// Bytes that tell where they are from.
std::string Numbered(std::size_t count, std::size_t from = 0) {
    std::string bytes(count, 0);
    for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<char>((from + i) * 7 + (from + i) / 251);
    return bytes;
}

class DescriptorIo : public testing::Test {
protected:
    int OpenNew(const wchar16* name = ZUTEXT("x.dat")) const {
        return fileopen(files.Register(name), omCreate, nullptr);
    }
    int Open(std::string_view content, eOpenMode mode = omReadWrite) const {
        return fileopen(files.Make(ZUTEXT("x.dat"), content), mode, nullptr);
    }
    // Of the first file that is registered.
    std::string OnDisk() const { return ContentOnDisk(1000, files.directory, ZUTEXT("x.dat")); }
    // The entry of a block that the cache holds, or null.
    static CacheEntry* Held(int file, int64 block) {
        CacheEntry* entry = nullptr;
        return cFileCache::Instance()->Lookup(file, block, &entry, 0) ? entry : nullptr;
    }

    const FreshFiles files;
};

// The position ------------------------------------------------------------------------------------------------------

TEST_F(DescriptorIo, ThePositionIsSetFromStartPositionAndEnd) {
    const int file = Open("content");
    EXPECT_EQ(tell2(file), 0);
    EXPECT_EQ(lseek2(file, 5, 0), 5);
    EXPECT_EQ(lseek2(file, -2, 1), 3);
    EXPECT_EQ(tell2(file), 3);
    EXPECT_EQ(lseek2(file, -1, 2), 6);
    EXPECT_EQ(lseek2(file, 10, 2), 17);
    EXPECT_EQ(lseek2(file, 99, 5), 17);
    EXPECT_EQ(lseek2(file, 99, -1), 17);
    EXPECT_EQ(lseek2(file, 99, 3), 17);
    EXPECT_EQ(tell2(file), 17);
    close2(file);
}

TEST_F(DescriptorIo, NeitherPositionNorLengthNeedsAnOpenFile) {
    const int file = Open("content");
    close2(file);
    EXPECT_EQ(filelength2(file), 7);
    EXPECT_EQ(lseek2(file, -3, 2), 4);
    EXPECT_EQ(tell2(file), 4);
}

TEST_F(DescriptorIo, AnUnknownHandleIsRefused) {
    char byte = 'x';
    EXPECT_EQ(lseek2(1000, 0, 0), -1);
    EXPECT_EQ(tell2(1000), -1);
    EXPECT_EQ(filelength2(1000), -1);
    EXPECT_EQ(read2(1000, &byte, 1), -1);
    EXPECT_EQ(read2(1000, &byte, 0), -1);
    EXPECT_EQ(write2(1000, &byte, 1), -1);
    EXPECT_EQ(chsize2(1000, 0), -1);
    EXPECT_EQ(byte, 'x');
}

// Reading -----------------------------------------------------------------------------------------------------------

TEST_F(DescriptorIo, ReadsAcrossBlocks) {
    const std::string content = Numbered(3 * BlockSize + 100);
    const int file = Open(content, omRead);
    EXPECT_EQ(ReadBytes(file, 10), content.substr(0, 10));
    EXPECT_EQ(ReadBytes(file, 2 * BlockSize), content.substr(10, 2 * BlockSize));
    EXPECT_EQ(tell2(file), 10 + 2 * BlockSize);
    lseek2(file, BlockSize - 1, 0);
    EXPECT_EQ(ReadBytes(file, 2), content.substr(BlockSize - 1, 2));
    lseek2(file, 0, 0);
    EXPECT_EQ(ReadBytes(file, content.size() + 1000), content);
    close2(file);
}

TEST_F(DescriptorIo, ReadingPastTheEndGivesNothingAndLeavesThePosition) {
    const int file = Open("content");
    for (const int64 position : {int64{7}, int64{8}, int64{16384}, int64{1} << 40}) {
        lseek2(file, position, 0);
        EXPECT_EQ(ReadBytes(file, 10), "");
        EXPECT_EQ(tell2(file), position);
    }
    lseek2(file, 5, 0);
    EXPECT_EQ(ReadBytes(file, 10), "nt");
    EXPECT_EQ(tell2(file), 7);
    close2(file);
}

TEST_F(DescriptorIo, ReadingNothingGivesNothing) {
    const int file = Open("content");
    EXPECT_EQ(read2(file, nullptr, 0), 0);
    EXPECT_EQ(tell2(file), 0);
    close2(file);
}

TEST_F(DescriptorIo, ReadsNoMoreThanWasAskedFor) {
    const int file = Open(Numbered(2 * BlockSize));
    lseek2(file, BlockSize - 10, 0);
    std::string buffer(22, '#');
    EXPECT_EQ(read2(file, &buffer[1], 20), 20);
    EXPECT_EQ(buffer, '#' + Numbered(20, BlockSize - 10) + '#');
    close2(file);
}

TEST_F(DescriptorIo, AFileOfWholeBlocksIsReadToItsEnd) {
    const std::string content = Numbered(2 * BlockSize);
    const int file = Open(content);
    EXPECT_EQ(ReadBytes(file, content.size() + 1), content);
    EXPECT_EQ(tell2(file), 2 * BlockSize);
    close2(file);
}

TEST_F(DescriptorIo, ANegativePositionReadsAndWritesNothing) {
    const int file = Open("content");
    lseek2(file, -5, 0);
    EXPECT_EQ(ReadBytes(file, 10), "");
    EXPECT_EQ(WriteBytes(file, "abc"), -1);
    EXPECT_EQ(tell2(file), -5);
    lseek2(file, std::numeric_limits<int64>::max(), 0);
    EXPECT_EQ(ReadBytes(file, 10), "");
    EXPECT_EQ(WriteBytes(file, "abc"), -1);
    close2(file);
    EXPECT_EQ(OnDisk(), "content");
}

// Writing -----------------------------------------------------------------------------------------------------------

TEST_F(DescriptorIo, WhatIsWrittenIsReadAndReachesTheDiskWhenTheFileIsClosed) {
    const int file = OpenNew();
    const std::string content = Numbered(100);
    EXPECT_EQ(WriteBytes(file, content), 100);
    EXPECT_EQ(filelength2(file), 100);
    EXPECT_EQ(tell2(file), 100);
    EXPECT_EQ(OnDisk(), "");
    lseek2(file, 0, 0);
    EXPECT_EQ(ReadBytes(file, 1000), content);
    close2(file);
    EXPECT_EQ(OnDisk(), content);
}

TEST_F(DescriptorIo, AFileGrowsOnDiskWhenItPassesAMultipleOf512) {
    const int file = OpenNew();
    WriteBytes(file, Numbered(511));
    EXPECT_EQ(OnDisk().size(), 0u);
    WriteBytes(file, "x");
    EXPECT_EQ(OnDisk().size(), 512u);
    WriteBytes(file, Numbered(511));
    EXPECT_EQ(OnDisk().size(), 512u);
    WriteBytes(file, Numbered(2));
    EXPECT_EQ(OnDisk().size(), 1025u);
    EXPECT_EQ(filelength2(file), 1025);
    close2(file);
}

TEST_F(DescriptorIo, AWriteOf513BytesExtendsTheFileAtOnce) {
    const int file = OpenNew();
    EXPECT_EQ(WriteBytes(file, Numbered(513)), 513);
    EXPECT_EQ(OnDisk(), std::string(513, '\0'));
    cFileCache::Instance()->Flush(file);
    EXPECT_EQ(OnDisk(), Numbered(513));
    close2(file);
}

TEST_F(DescriptorIo, ABlockThatIsWrittenWholeIsNotRead) {
    const int file = Open(Numbered(2 * BlockSize));
    EXPECT_EQ(WriteBytes(file, std::string(BlockSize, 'w')), BlockSize);
    ASSERT_NE(Held(file, 0), nullptr);
    EXPECT_EQ(Held(file, 0)->count, BlockSize);
    EXPECT_EQ(Held(file, 1), nullptr);
    close2(file);
    EXPECT_EQ(OnDisk(), std::string(BlockSize, 'w') + Numbered(BlockSize, BlockSize));
}

TEST_F(DescriptorIo, AWriteAcrossBlocksKeepsWhatIsAroundIt) {
    std::string content = Numbered(3 * BlockSize);
    const int file = Open(content);
    lseek2(file, 100, 0);
    const std::string patch(2 * BlockSize, 'p');
    EXPECT_EQ(WriteBytes(file, patch), 2 * BlockSize);
    content.replace(100, patch.size(), patch);
    EXPECT_EQ(filelength2(file), 3 * BlockSize);
    lseek2(file, 0, 0);
    EXPECT_EQ(ReadBytes(file, content.size()), content);
    close2(file);
    EXPECT_EQ(OnDisk(), content);
}

TEST_F(DescriptorIo, WritingNothingChangesNothing) {
    const int file = Open("content");
    lseek2(file, 1000, 0);
    EXPECT_EQ(write2(file, nullptr, 0), 0);
    EXPECT_EQ(filelength2(file), 7);
    EXPECT_EQ(tell2(file), 1000);
    close2(file);
    EXPECT_EQ(OnDisk(), "content");
}

TEST_F(DescriptorIo, AGapInsideABlockReadsAsZeros) {
    // The block was another file's before, and its bytes must not show.
    const int other = fileopen(files.Make(ZUTEXT("other"), std::string(BlockSize, 'o')), omRead, nullptr);
    for (int i = 0; i < 64; ++i) {
        lseek2(other, 0, 0);
        ReadBytes(other, BlockSize);
    }
    cFileCache::Instance()->Forget(other);
    close2(other);

    const int file = Open("abc");
    lseek2(file, 10, 0);
    WriteBytes(file, "xyz");
    lseek2(file, 0, 0);
    const std::string expected("abc\0\0\0\0\0\0\0xyz", 13);
    EXPECT_EQ(ReadBytes(file, 100), expected);
    close2(file);
    EXPECT_EQ(OnDisk(), expected);
}

TEST_F(DescriptorIo, AShortBlockEndsTheReading) {
    const int file = Open("abc");
    ReadBytes(file, 3);
    lseek2(file, BlockSize, 0);
    WriteBytes(file, "behind");
    lseek2(file, 0, 0);
    EXPECT_EQ(ReadBytes(file, 2 * BlockSize), "abc");
    EXPECT_EQ(tell2(file), 3);
    lseek2(file, BlockSize, 0);
    EXPECT_EQ(ReadBytes(file, 100), "behind");
    close2(file);
    std::string expected(BlockSize, '\0');
    expected.replace(0, 3, "abc");
    EXPECT_EQ(OnDisk(), expected + "behind");
}

TEST_F(DescriptorIo, AFileThatIsNotOpenToWriteIsNotWritten) {
    const int file = Open("content", omRead);
    EXPECT_EQ(WriteBytes(file, "new"), -1);
    EXPECT_EQ(WriteBytes(file, std::string(BlockSize, 'n')), -1);
    EXPECT_EQ(tell2(file), 0);
    close2(file);
    EXPECT_EQ(WriteBytes(file, std::string(BlockSize, 'n')), -1);
    EXPECT_EQ(OnDisk(), "content");
}

// The size ----------------------------------------------------------------------------------------------------------

TEST_F(DescriptorIo, AFileIsCutInsideABlock) {
    const std::string content = Numbered(2 * BlockSize);
    const int file = Open(content);
    ReadBytes(file, content.size());
    lseek2(file, 5, 0);
    EXPECT_EQ(chsize2(file, 100), 0);
    EXPECT_EQ(filelength2(file), 100);
    EXPECT_EQ(tell2(file), 5);
    EXPECT_EQ(OnDisk(), content.substr(0, 100));
    EXPECT_EQ(Held(file, 1), nullptr);
    ASSERT_NE(Held(file, 0), nullptr);
    EXPECT_EQ(Held(file, 0)->count, 100);
    EXPECT_EQ(Held(file, 0)->flags, 1);
    lseek2(file, 0, 0);
    EXPECT_EQ(ReadBytes(file, content.size()), content.substr(0, 100));
    close2(file);
    EXPECT_EQ(OnDisk(), content.substr(0, 100));
}

TEST_F(DescriptorIo, AFileIsCutAtTheEndOfABlock) {
    const std::string content = Numbered(2 * BlockSize);
    const int file = Open(content);
    ReadBytes(file, content.size());
    EXPECT_EQ(chsize2(file, BlockSize), 0);
    EXPECT_EQ(Held(file, 1), nullptr);
    ASSERT_NE(Held(file, 0), nullptr);
    EXPECT_EQ(Held(file, 0)->flags, 0);
    close2(file);
    EXPECT_EQ(OnDisk(), content.substr(0, BlockSize));
}

TEST_F(DescriptorIo, AFileIsCutToNothing) {
    const int file = Open(Numbered(2 * BlockSize));
    ReadBytes(file, 2 * BlockSize);
    EXPECT_EQ(chsize2(file, 0), 0);
    EXPECT_EQ(filelength2(file), 0);
    lseek2(file, 0, 0);
    EXPECT_EQ(ReadBytes(file, 10), "");
    EXPECT_EQ(OnDisk(), "");
    WriteBytes(file, "new");
    close2(file);
    EXPECT_EQ(OnDisk(), "new");
}

TEST_F(DescriptorIo, DirtyBlocksBeyondTheNewEndAreNotWritten) {
    const int file = OpenNew();
    WriteBytes(file, Numbered(3 * BlockSize));
    EXPECT_EQ(chsize2(file, 10), 0);
    EXPECT_EQ(Held(file, 1), nullptr);
    EXPECT_EQ(Held(file, 2), nullptr);
    close2(file);
    EXPECT_EQ(OnDisk(), Numbered(10));
}

TEST_F(DescriptorIo, AFormerLastBlockIsDirtyAlsoIfItWasWhole) {
    const int file = Open(Numbered(BlockSize));
    ReadBytes(file, BlockSize);
    ASSERT_NE(Held(file, 0), nullptr);
    EXPECT_EQ(Held(file, 0)->flags, 0);
    EXPECT_EQ(chsize2(file, 2 * BlockSize + 10), 0);
    EXPECT_EQ(Held(file, 0)->count, BlockSize);
    EXPECT_EQ(Held(file, 0)->flags, 1);
    close2(file);
    EXPECT_EQ(OnDisk(), Numbered(BlockSize) + std::string(BlockSize + 10, '\0'));
}

TEST_F(DescriptorIo, NothingIsWrittenInAnUnknownMode) {
    for (const int mode : {0, 4, -1}) {
        const int file = files.Register(ZUTEXT("mode.dat"));
        files.directory.Write(ZUTEXT("mode.dat"), "content");
        EXPECT_EQ(fileopen(file, static_cast<eOpenMode>(mode), nullptr), file);
        EXPECT_EQ(WriteBytes(file, "C"), -1);
        EXPECT_EQ(ReadBytes(file, 100), "content");
        EXPECT_EQ(close2(file), 0);
        EXPECT_EQ(files.directory.Read(ZUTEXT("mode.dat")), "content");
        unregister_file(file);
    }
}

TEST_F(DescriptorIo, AFileGrowsByZerosAlsoInTheCache) {
    const int file = Open("content");
    ReadBytes(file, 100);
    const int64 length = 2 * BlockSize + 10;
    EXPECT_EQ(chsize2(file, length), 0);
    EXPECT_EQ(filelength2(file), length);
    ASSERT_NE(Held(file, 0), nullptr);
    EXPECT_EQ(Held(file, 0)->count, BlockSize);
    EXPECT_EQ(Held(file, 0)->flags, 1);
    std::string expected(static_cast<std::size_t>(length), '\0');
    expected.replace(0, 7, "content");
    lseek2(file, 0, 0);
    EXPECT_EQ(ReadBytes(file, 3 * BlockSize), expected);
    close2(file);
    EXPECT_EQ(OnDisk(), expected);
}

TEST_F(DescriptorIo, AFileGrowsInsideItsLastBlock) {
    const int file = OpenNew();
    WriteBytes(file, "abc");
    EXPECT_EQ(chsize2(file, 6), 0);
    ASSERT_NE(Held(file, 0), nullptr);
    EXPECT_EQ(Held(file, 0)->count, 6);
    lseek2(file, 0, 0);
    EXPECT_EQ(ReadBytes(file, 10), std::string("abc\0\0\0", 6));
    close2(file);
    EXPECT_EQ(OnDisk(), std::string("abc\0\0\0", 6));
}

TEST_F(DescriptorIo, OtherFilesKeepTheirBlocksWhenOneIsCut) {
    const int first = OpenNew(ZUTEXT("first"));
    const int second = OpenNew(ZUTEXT("second"));
    const int third = OpenNew(ZUTEXT("third"));
    for (const int file : {first, second, third}) WriteBytes(file, Numbered(3 * BlockSize));
    EXPECT_EQ(chsize2(second, 1), 0);
    for (const int file : {first, third}) {
        for (const int64 block : {0, 1, 2}) EXPECT_NE(Held(file, block), nullptr);
    }
    for (const int file : {first, second, third}) close2(file);
    EXPECT_EQ(files.directory.Read(ZUTEXT("third")), Numbered(3 * BlockSize));
}

TEST_F(DescriptorIo, ASizeThatCannotBeHadIsRefused) {
    const int file = Open("content");
    EXPECT_EQ(chsize2(file, -1), -1);
    EXPECT_EQ(filelength2(file), 7);
    close2(file);
    EXPECT_EQ(chsize2(file, 3), -1);
    EXPECT_EQ(OnDisk(), "content");
}

// A host's cache ----------------------------------------------------------------------------------------------------

// One that takes nothing in.
class DecliningCache final : public cFileCache {
public:
    bool Forget(int /*handle*/) override { return true; }
    bool Flush(int /*handle*/) override { return true; }
    int BlockCount() override { return 0; }
    int BlockSize() override { return 512; }
    bool Lookup(int /*handle*/, int64 /*block*/, CacheEntry** /*out*/, int mode) override {
        modes.push_back(mode);
        return false;
    }
    CacheEntry* EntryAt(int /*position*/) override { return nullptr; }
    void* BlockData(int /*slot*/) override { return nullptr; }
    void EvictAt(int /*position*/) override {}

    std::vector<int> modes;
};

TEST_F(DescriptorIo, WithACacheThatDeclinesBytesAreWrittenThroughAndNotRead) {
    DecliningCache cache;
    cFileCache* const former = cFileCache::Instance();
    cFileCache::Instance(&cache);
    const int file = OpenNew();
    const std::string content = Numbered(1100);
    EXPECT_EQ(WriteBytes(file, content), 1100);
    EXPECT_EQ(filelength2(file), 1100);
    EXPECT_EQ(tell2(file), 1100);
    EXPECT_EQ(cache.modes, (std::vector<int>{1, 1, 2})) << "asked once for each block";
    lseek2(file, 0, 0);
    EXPECT_EQ(ReadBytes(file, 1100), "");
    EXPECT_EQ(tell2(file), 0);
    EXPECT_EQ(cache.modes, (std::vector<int>{1, 1, 2, 2}));
    EXPECT_EQ(OnDisk(), content);
    close2(file);
    cFileCache::Instance(former);
}

TEST_F(DescriptorIo, AClosedFileIsNotResized) {
    const int file = Open("content");
    close2(file);
    EXPECT_EQ(chsize2(file, 3), -1);
    EXPECT_EQ(filelength2(file), 7);
    EXPECT_EQ(OnDisk(), "content");
}

TEST_F(DescriptorIo, ACacheIsLeftForAnotherBetweenTwoReadsOfOneBlock) {
    DecliningCache cache;
    cFileCache* const own = cFileCache::Instance();
    const int file = Open("content");
    EXPECT_EQ(ReadBytes(file, 3), "con");
    cFileCache::Instance(&cache);
    EXPECT_EQ(ReadBytes(file, 3), "");
    EXPECT_EQ(cache.modes, std::vector<int>{2});
    EXPECT_EQ(WriteBytes(file, "T"), 1);
    EXPECT_EQ(cache.modes, (std::vector<int>{2, 2}));
    EXPECT_EQ(OnDisk(), "conTent");
    cFileCache::Instance(own);
    EXPECT_EQ(ReadBytes(file, 100), "ent") << "of the block that its cache still holds";
    close2(file);
}

// A host's instance, which has another's services.
class AskedInstance final : public InstanceData {
public:
    explicit AskedInstance(InstanceData& asked) : asked_(asked) {}
    bool SetSlot(unsigned int key, void* value) override { return asked_.SetSlot(key, value); }
    void* GetSlot(unsigned int key) override {
        ++questions;
        return asked_.GetSlot(key);
    }
    bool GetAutoDestroy() override { return asked_.GetAutoDestroy(); }
    void ClearAutoDestroy() override { asked_.ClearAutoDestroy(); }

    int questions = 0;

private:
    InstanceData& asked_;
};

TEST_F(DescriptorIo, AHostsInstanceIsAskedForTheServicesByEachCall) {
    const int file = Open("content");
    InstanceData* const own = GetInstanceData();
    AskedInstance host(*own);
    ASSERT_TRUE(SetInstanceData(&host));
    const auto Asks = [&](auto call) {
        const int before = host.questions;
        call();
        return host.questions > before;
    };
    char bytes[3] = {};
    EXPECT_TRUE(Asks([&] { EXPECT_EQ(read2(file, bytes, 3), 3); }));
    EXPECT_EQ(std::string_view(bytes, 3), "con");
    EXPECT_TRUE(Asks([&] { EXPECT_EQ(read2(file, bytes, 3), 3); })) << "of the block used last";
    EXPECT_TRUE(Asks([&] { EXPECT_EQ(lseek2(file, 0, 0), 0); }));
    EXPECT_TRUE(Asks([&] { EXPECT_EQ(write2(file, "C", 1), 1); }));
    ASSERT_TRUE(SetInstanceData(own));
    const int before = host.questions;
    EXPECT_EQ(ReadBytes(file, 100), "ontent");
    EXPECT_EQ(host.questions, before);
    close2(file);
}

// A cache of one block writes as it goes, and one of odd blocks divides as it should --------------------------------

TEST(SmallCache, OfOneBlockIsEnough) {
    const FreshFiles files({.blocks = 1, .blockSize = 100});
    const int file = fileopen(files.Register(ZUTEXT("x.dat")), omCreate, nullptr);
    const std::string content = Numbered(1234);
    EXPECT_EQ(WriteBytes(file, content), 1234);
    lseek2(file, 50, 0);
    EXPECT_EQ(ReadBytes(file, 5000), content.substr(50));
    EXPECT_EQ(chsize2(file, 333), 0);
    close2(file);
    EXPECT_EQ(files.directory.Read(ZUTEXT("x.dat")), content.substr(0, 333));
}

// Without a cache ---------------------------------------------------------------------------------------------------

class NoCache : public testing::Test {
protected:
    NoCache() : files({.blocks = 0}) {}

    const FreshFiles files;
};

TEST_F(NoCache, BytesGoStraightToTheFile) {
    const int file = fileopen(files.Make(ZUTEXT("x.dat"), "content"), omReadWrite, nullptr);
    EXPECT_EQ(ReadBytes(file, 3), "con");
    EXPECT_EQ(tell2(file), 3);
    EXPECT_EQ(WriteBytes(file, "TE"), 2);
    EXPECT_EQ(ContentOnDisk(file, files.directory, ZUTEXT("x.dat")), "conTEnt");
    EXPECT_EQ(filelength2(file), 7);
    lseek2(file, 0, 2);
    EXPECT_EQ(WriteBytes(file, "!!"), 2);
    EXPECT_EQ(filelength2(file), 9);
    EXPECT_EQ(tell2(file), 9);
    EXPECT_EQ(ReadBytes(file, 1), "");
    EXPECT_EQ(chsize2(file, 4), 0);
    EXPECT_EQ(filelength2(file), 4);
    EXPECT_EQ(close2(file), 0);
    EXPECT_EQ(files.directory.Read(ZUTEXT("x.dat")), "conT");
}

TEST_F(NoCache, AWriteOfNothingBehindTheEndChangesNothing) {
    const int file = fileopen(files.Make(ZUTEXT("x.dat"), "content"), omReadWrite, nullptr);
    EXPECT_EQ(lseek2(file, 1000, 0), 1000);
    EXPECT_EQ(write2(file, "", 0), 0);
    EXPECT_EQ(tell2(file), 1000);
    EXPECT_EQ(filelength2(file), 7);
    close2(file);
    EXPECT_EQ(files.directory.Read(ZUTEXT("x.dat")), "content");
}

TEST_F(NoCache, ANegativePositionReadsAndWritesNothing) {
    const int file = fileopen(files.Make(ZUTEXT("x.dat"), "0123456789"), omReadWrite, nullptr);
    lseek2(file, -5, 0);
    EXPECT_EQ(WriteBytes(file, "XYZ"), -1);
    EXPECT_EQ(tell2(file), -5);
    char bytes[4] = {};
    EXPECT_EQ(read2(file, bytes, 3), -1);
    EXPECT_EQ(tell2(file), 4294967290);
    close2(file);
    EXPECT_EQ(files.directory.Read(ZUTEXT("x.dat")), "0123456789");
}

TEST_F(NoCache, AFailedReadMovesThePositionByFourGigabytesLessOne) {
    const int file = fileopen(files.Make(ZUTEXT("x.dat"), "content"), omRead, nullptr);
    close2(file);
    char byte = 0;
    EXPECT_EQ(read2(file, &byte, 1), -1);
    EXPECT_EQ(tell2(file), 4294967295);
    EXPECT_EQ(write2(file, &byte, 1), -1);
    EXPECT_EQ(tell2(file), 4294967295);
}

}  // namespace
}  // namespace descriptor_io_test
}  // namespace Torvo::test
