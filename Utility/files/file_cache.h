// The block cache's inside. docs/file_cache.md tells what stands where and why.
#pragma once

#include <Utility/file_cache.h>
#include <Utility/files/block_files.h>
#include <Utility/files/block_index.h>

namespace Torvo {

// The bit of CacheEntry::flags.
inline constexpr int32 DirtyFlag = 1;

// An order on items that are given by pointer: -1, 0 or 1.
template <typename T>
class BSearch {
public:
    virtual ~BSearch() = default;
    virtual int Compare(const T* a, const T* b) const = 0;
};

// Every usable entry stands once in `sorted`, ascending by key, and once in the circle of `next` and `prev`, from
// `head`, the last used, to `tail`. Those that hold nothing are the first `usableBlocks - heldBlocks` of `sorted` and
// the last as many of the circle, and both orders agree on them (PositionOf says how); only those that hold a block are
// in `index`. The last entry of the table holds no data: it is the key that is searched for.
class FileCacheImpl final : public cFileCache, public BSearch<int> {
public:
    // What the constructor throws.
    enum eCreateError { OutOfMemory = 0, NoBlocks = 1 };

    // Reads and writes blocks through `files`, which outlives the cache.
    FileCacheImpl(int blocks, long32 blockSize, BlockFiles& files);

    bool Forget(int handle) override;
    bool Flush(int handle) override;
    int BlockCount() override { return usableBlocks; }
    int BlockSize() override { return blockSize; }
    bool Lookup(int handle, int64 block, CacheEntry** out, int mode) override;
    CacheEntry* EntryAt(int position) override;
    void* BlockData(int slot) override { return slot >= 0 && slot < totalBlocks ? BytesOf(slot) : nullptr; }
    void EvictAt(int position) override;

    // Where the bytes from a position of a file on are, if one block holds `count` of them, which is the last used
    // then; else null. Saves time only: it is what a Lookup with mode 0 of the block leads to. It does not find
    // everything.
    char* Find(int handle, int64 position, uint64 count) {
        char* const bytes = FindInLastUsed(handle, position, count);
        return bytes != nullptr || count == 0 || !Use(handle, position) ? bytes
                                                                        : FindInLastUsed(handle, position, count);
    }
    // For who has changed what Find gave.
    void MarkLastUsedDirty() { entries[head].flags |= DirtyFlag; }

    // Whether a block is there, which is no use of it.
    bool Holds(int handle, int64 block) const { return index.Find(handle, block) >= 0; }
    // Drops the blocks of the file whose block is the next to be taken, if that is dirty and the file is not open:
    // nobody holds it, and all others would run against its block. Whether it was so.
    bool DropVictimOfClosedFile();

    int Compare(const int* a, const int* b) const override;

#if defined(TORVO_CHECK_INVARIANTS) || !defined(NDEBUG)
    // Whether all that is said above of the data holds. For assertions.
    bool InvariantsHold() const;
#endif

private:
    struct Range {
        int begin;
        int end;
    };

    char* FindInLastUsed(int handle, int64 position, uint64 count) const {
        const CacheEntry& entry = entries[head];
        const auto offset = static_cast<int64>(static_cast<uint64>(position) & ((uint64{1} << blockShift) - 1));
        const bool isThere = entry.handle == handle && entry.block == position >> blockShift && position >= 0 &&
                             offset <= entry.count && count <= static_cast<uint64>(entry.count - offset);
        return isThere ? BytesOf(entry.slot) + offset : nullptr;
    }
    // Makes the block with that position the last used; false if it is not there.
    bool Use(int handle, int64 position);

    void LinkAll();
    void Unlink(int entry);
    void LinkBetweenTailAndHead(int entry);
    void Touch(int entry);
    void CountHeldBlock();
    void MakeTail(int entry);

    int FirstPositionFrom(int handle, int64 block);
    Range PositionsOf(int handle);
    int PositionOf(int entry);
    int PlaceFor(int handle, int64 block);
    void Move(int from, int to);

    bool IsFull(int entry) const {
        return entries[entry].handle != 0;
    }
    char* BytesOf(int slot) const {
        return &pool[static_cast<int64>(slot) * blockSize];
    }
    bool TakeVictim(int handle, int64 block);
    void DropContent(int entry);
    bool ReadBlock(CacheEntry& entry);
    bool WriteBlock(CacheEntry& entry);
    bool WriteDirtyFrom(Range positions);
    int64 OffsetOf(const CacheEntry& entry) const;

    int32 totalBlocks;
    int32 usableBlocks;
    int32 blockSize;
    // From a position to the number of its block; where that takes a division, only positions of block 0 come out
    // right.
    int blockShift;
    ZeroedTable<CacheEntry> entries;
    ZeroedTable<char> pool;
    ZeroedTable<int32> sorted;
    int32 head = 0;
    int32 tail = 0;
    int32 heldBlocks = 0;
    int32 lastPlace = 0;  // the position to which an entry was moved last
    BlockIndex index;
    BlockFiles& files;
};

}  // namespace Torvo
