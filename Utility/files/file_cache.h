// The block cache's inside. docs/file_cache.md tells what stands where and why.
#pragma once

#include <Utility/file_cache.h>
#include <Utility/files/block_files.h>
#include <Utility/files/block_index.h>

namespace Torvo {

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
    void* BlockData(int slot) override { return &pool[static_cast<int64>(slot) * blockSize]; }
    void EvictAt(int position) override;

    // The entry that was used last; a Lookup of its block gives it and changes nothing.
    CacheEntry& LastUsed() { return entries[head]; }

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

    void LinkAll();
    void Unlink(int entry);
    void LinkBetweenTailAndHead(int entry);
    void Touch(int entry);
    void MakeTail(int entry);

    int FirstPositionFrom(int handle, int64 block);
    Range PositionsOf(int handle);
    int PositionOf(int entry);
    void Move(int from, int to);

    bool IsFull(int entry) const {
        return entries[entry].handle != 0;
    }
    bool CleanTail();
    bool TakeVictim(int handle, int64 block);
    void DropContent(int entry);
    bool ReadBlock(CacheEntry& entry);
    bool WriteBlock(CacheEntry& entry);
    bool WriteDirtyFrom(Range positions);
    int64 OffsetOf(const CacheEntry& entry) const;

    int32 totalBlocks;
    int32 usableBlocks;
    int32 blockSize;
    ZeroedTable<CacheEntry> entries;
    ZeroedTable<char> pool;
    ZeroedTable<int32> sorted;
    int32 head = 0;
    int32 tail = 0;
    int32 heldBlocks = 0;
    BlockIndex index;
    BlockFiles& files;
};

}  // namespace Torvo
