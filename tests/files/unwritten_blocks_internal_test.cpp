// Blocks that are dirty while their file cannot be written: whom they may harm, and what is not lost with them.

#include <gtest/gtest.h>
#include <support/failing_files.h>
#include <support/fresh_files.h>

#include <chrono>
#include <filesystem>
#include <limits>
#include <memory>

namespace Torvo::test {
namespace unwritten_blocks_internal_test {
namespace {

constexpr int BlockSize = 512;
constexpr int Blocks = 4;

std::string Lettered(std::size_t count) {
    std::string bytes(count, 0);
    for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<char>('a' + i % 23);
    return bytes;
}

class FileFaultsOfDirtyBlocks : public testing::Test {
protected:
    explicit FileFaultsOfDirtyBlocks(FileRetryCallback retry = nullptr)
        : files({.retry = retry, .blocks = Blocks, .blockSize = BlockSize}) {}

    // Lets no transfer move a byte for as long as it lives.
    static FailingFiles NothingIsMoved() { return FailingFiles::Short(1, FailingFiles::Mode::kFromThenOn, 0); }
    // A closed file whose bytes could not be written at its close.
    int MakeClosedWithDirtyBlock(const wchar16* name) const {
        const int file = files.Register(name);
        fileopen(file, omCreate, nullptr);
        EXPECT_EQ(WriteBytes(file, "unwritten"), 9);
        const FailingFiles faults = NothingIsMoved();
        EXPECT_EQ(close2(file), 0);
        return file;
    }
    static CacheEntry* Held(int file, int64 block) {
        CacheEntry* entry = nullptr;
        return cFileCache::Instance()->Lookup(file, block, &entry, 0) ? entry : nullptr;
    }

    const FreshFiles files;
};

TEST_F(FileFaultsOfDirtyBlocks, OfAClosedFileStayUntilTheirPlaceIsNeeded) {
    const int closed = MakeClosedWithDirtyBlock(ZUTEXT("closed"));
    EXPECT_NE(Held(closed, 0), nullptr);
    const std::string content = Lettered(10 * BlockSize + 100);
    const int other = files.Make(ZUTEXT("other"), content);
    fileopen(other, omRead, nullptr);
    EXPECT_EQ(ReadBytes(other, content.size()), content);
    EXPECT_EQ(Held(closed, 0), nullptr);
    EXPECT_NE(Held(other, 10), nullptr);
    close2(other);
    EXPECT_EQ(fileopen(closed, omReadWrite, nullptr), closed);
    EXPECT_EQ(ReadBytes(closed, 100), "");
    close2(closed);
}

TEST_F(FileFaultsOfDirtyBlocks, OfAnOpenFileDoNotCutWhatIsReadOfAnother) {
    const int held = files.Make(ZUTEXT("held"), "held");
    fileopen(held, omRead, nullptr);
    EXPECT_EQ(ReadBytes(held, 4), "held");
    ASSERT_NE(Held(held, 0), nullptr);
    Held(held, 0)->flags |= 1;  // which the descriptor will not take
    const std::string content = Lettered(10 * BlockSize + 100);
    const int other = files.Make(ZUTEXT("other"), content);
    fileopen(other, omRead, nullptr);
    EXPECT_EQ(ReadBytes(other, content.size() + 50), content);
    EXPECT_EQ(tell2(other), static_cast<int64>(content.size()));
    EXPECT_EQ(ReadBytes(other, 10), "");
    EXPECT_EQ(lseek2(other, 8 * BlockSize - 7, 0), 8 * BlockSize - 7);
    EXPECT_EQ(ReadBytes(other, 20), content.substr(8 * BlockSize - 7, 20));
    close2(other);
    ASSERT_NE(Held(held, 0), nullptr);
    Held(held, 0)->flags &= ~1;
    close2(held);
}

TEST_F(FileFaultsOfDirtyBlocks, AreNotWrittenOverWhatSomebodyElseWrote) {
    const int file = MakeClosedWithDirtyBlock(ZUTEXT("x"));
    files.directory.Write(ZUTEXT("x"), "content of another");
    const auto path = files.directory.Native(ZUTEXT("x"));
    std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) + std::chrono::hours(1));
    int changed = 0;
    EXPECT_EQ(fileopen(file, omReadWrite, &changed), file);
    EXPECT_EQ(changed, 1);
    EXPECT_EQ(ReadBytes(file, 100), "content of another");
    close2(file);
    EXPECT_EQ(files.directory.Read(ZUTEXT("x")), "content of another");
}

TEST_F(FileFaultsOfDirtyBlocks, GoToTheDiskWhenNobodyElseWrote) {
    const int file = MakeClosedWithDirtyBlock(ZUTEXT("x"));
    EXPECT_EQ(files.directory.Read(ZUTEXT("x")), "");
    int changed = 0;
    EXPECT_EQ(fileopen(file, omReadWrite, &changed), file);
    EXPECT_EQ(changed, 0);
    close2(file);
    EXPECT_EQ(files.directory.Read(ZUTEXT("x")), "unwritten");
}

TEST_F(FileFaultsOfDirtyBlocks, ArePartOfTheFileThatIsOpenedAgain) {
    const int file = MakeClosedWithDirtyBlock(ZUTEXT("x"));
    EXPECT_EQ(filelength2(file), 9);
    EXPECT_EQ(fileopen(file, omReadWrite, nullptr), file);
    EXPECT_EQ(filelength2(file), 9);
    EXPECT_EQ(lseek2(file, 0, 2), 9);
    EXPECT_EQ(WriteBytes(file, " tail"), 5);
    EXPECT_EQ(filelength2(file), 14);
    close2(file);
    EXPECT_EQ(files.directory.Read(ZUTEXT("x")), "unwritten tail");
    EXPECT_EQ(fileopen(file, omReadWrite, nullptr), file);
    EXPECT_EQ(chsize2(file, 4), 0);
    close2(file);
    EXPECT_EQ(fileopen(file, omRead, nullptr), file);
    EXPECT_EQ(filelength2(file), 4) << "nothing is owed any more";
    close2(file);
}

TEST_F(FileFaultsOfDirtyBlocks, ArePartOfAFileThatIsOpenedToReadAndThenToWrite) {
    const int file = MakeClosedWithDirtyBlock(ZUTEXT("x"));
    EXPECT_EQ(fileopen(file, omRead, nullptr), file);
    EXPECT_EQ(filelength2(file), 9);
    EXPECT_EQ(ReadBytes(file, 100), "unwritten");
    EXPECT_EQ(fileopen(file, omReadWrite, nullptr), file);
    EXPECT_EQ(filelength2(file), 9);
    close2(file);
    close2(file);
    EXPECT_EQ(files.directory.Read(ZUTEXT("x")), "unwritten");
}

TEST_F(FileFaultsOfDirtyBlocks, DoNotShortenAFileThatIsLongerOnDisk) {
    const std::string content = Lettered(3 * BlockSize);
    const int file = files.Make(ZUTEXT("x"), content);
    fileopen(file, omReadWrite, nullptr);
    EXPECT_EQ(ReadBytes(file, 100), content.substr(0, 100));
    lseek2(file, BlockSize, 0);
    EXPECT_EQ(WriteBytes(file, "#"), 1);
    {
        const FailingFiles faults = NothingIsMoved();
        EXPECT_EQ(close2(file), 0);
    }
    EXPECT_EQ(fileopen(file, omReadWrite, nullptr), file);
    EXPECT_EQ(filelength2(file), 3 * BlockSize);
    close2(file);
    EXPECT_EQ(files.directory.Read(ZUTEXT("x")), std::string(content).replace(BlockSize, 1, "#"));
}

TEST_F(FileFaultsOfDirtyBlocks, GoToTheDiskBeforeAStreamWritesThere) {
    const int file = MakeClosedWithDirtyBlock(ZUTEXT("x"));
    EXPECT_TRUE(touch(file));
    EXPECT_EQ(files.directory.Read(ZUTEXT("x")), "unwritten");
}

TEST_F(FileFaultsOfDirtyBlocks, ArePartOfTheFileAlsoIfAnotherCacheWasThereAtItsClose) {
    cFileCache* const own = cFileCache::Instance();
    const std::unique_ptr<cFileCache> other(cFileCache::Create(4, 512));
    const int file = files.Register(ZUTEXT("x"));
    for (cFileCache* const atTheClose : {static_cast<cFileCache*>(nullptr), other.get()}) {
        EXPECT_EQ(fileopen(file, omCreate, nullptr), file);
        EXPECT_EQ(WriteBytes(file, "unwritten"), 9);
        cFileCache::Instance(atTheClose);
        EXPECT_EQ(close2(file), 0);
        cFileCache::Instance(own);
        EXPECT_EQ(fileopen(file, omReadWrite, nullptr), file);
        EXPECT_EQ(filelength2(file), 9);
        EXPECT_EQ(lseek2(file, 0, 2), 9);
        EXPECT_EQ(WriteBytes(file, " tail"), 5);
        close2(file);
        EXPECT_EQ(files.directory.Read(ZUTEXT("x")), "unwritten tail");
    }
}

TEST_F(FileFaultsOfDirtyBlocks, BehindAllPositionsAreNoneOfTheFile) {
    const int file = files.Make(ZUTEXT("x"), "content");
    fileopen(file, omReadWrite, nullptr);
    const int64 farBlock = std::numeric_limits<int64>::max() / 4;
    CacheEntry* entry = nullptr;
    ASSERT_TRUE(cFileCache::Instance()->Lookup(file, farBlock, &entry, 1));
    entry->count = 5;
    entry->flags |= 1;
    EXPECT_EQ(close2(file), 0);
    EXPECT_EQ(fileopen(file, omReadWrite, nullptr), file);
    EXPECT_EQ(filelength2(file), 7);
    ASSERT_NE(Held(file, farBlock), nullptr);
    Held(file, farBlock)->flags &= ~1;
    close2(file);
}

// A host that answers a denied access by closing what is in the way, and has another cache from then on.
class FileFaultsOfDirtyBlocksAndRetry : public FileFaultsOfDirtyBlocks {
protected:
    FileFaultsOfDirtyBlocksAndRetry() : FileFaultsOfDirtyBlocks(&ChangeCache) {}

    static bool ChangeCache(eOpenMode /*mode*/, const wchar16* /*name*/, int64& /*state*/) {
        close2(inTheWay);
        const cFileCache* const former = cFileCache::Instance();
        cFileCache::Instance(cFileCache::Create(Blocks, BlockSize));
        delete former;
        return true;
    }
    static inline int inTheWay = 0;
};

TEST_F(FileFaultsOfDirtyBlocksAndRetry, AreNotLookedForInACacheThatIsGone) {
    const int file = MakeClosedWithDirtyBlock(ZUTEXT("x"));
    inTheWay = register_file(files.directory.Path(ZUTEXT("x")).c_str(), ftNone, false);
    ASSERT_NE(inTheWay, file);
    EXPECT_EQ(fileopen(inTheWay, omReadWrite, nullptr), inTheWay);
    EXPECT_EQ(fileopen(file, omReadWrite, nullptr), file);
    EXPECT_EQ(filelength2(file), 0);
    close2(file);
}

TEST_F(FileFaultsOfDirtyBlocks, LetACopyFailThatWouldMissThem) {
    const int from = files.Make(ZUTEXT("from"), "content");
    const int to = files.Make(ZUTEXT("to"), "before");
    fileopen(from, omReadWrite, nullptr);
    WriteBytes(from, "C");
    {
        const FailingFiles faults = NothingIsMoved();
        EXPECT_FALSE(filecopy(from, to, false));
        EXPECT_FALSE(filecopy(from, 1234, false));
    }
    EXPECT_EQ(TakeErrors(), OneError(7, 49, ZUTEXT("to")));
    EXPECT_EQ(files.directory.Read(ZUTEXT("to")), "before");
    EXPECT_TRUE(filecopy(from, to, false));
    EXPECT_EQ(files.directory.Read(ZUTEXT("to")), "Content");
    close2(from);
}

TEST_F(FileFaultsOfDirtyBlocks, AreNotLostByRenaming) {
    const int before = files.Make(ZUTEXT("old"), "content");
    int file = before;
    fileopen(file, omReadWrite, nullptr);
    WriteBytes(file, "C");
    {
        const FailingFiles faults = NothingIsMoved();
        EXPECT_FALSE(renamefile(&file, ZUTEXT("new"), ftNone));
    }
    EXPECT_EQ(file, before);
    EXPECT_NE(GetFileFD(file), -1);
    EXPECT_EQ(TakeErrors(), NoErrors);
    EXPECT_TRUE(renamefile(&file, ZUTEXT("new"), ftNone));
    EXPECT_EQ(files.directory.Read(ZUTEXT("new")), "Content");
    EXPECT_FALSE(files.directory.Has(ZUTEXT("old")));
}

}  // namespace
}  // namespace unwritten_blocks_internal_test
}  // namespace Torvo::test
