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

    // Where the bytes from a position of a file on are, if one block that is there holds `count` of them; else null. A
    // block with that position is the last used then in either case, as after a Lookup with mode 0. Saves time only.
    char* Find(int handle, int64 position, uint64 count) {
        int32 found = head;
        if (!HoldsPosition(entries[found], handle, position)) {
            if (count == 0 || position < 0) return nullptr;
            found = index.Find(handle, BlockOf(position));
            if (found < 0) return nullptr;
            Touch(found);
        }
        return BytesIn(entries[found], position, count);
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

    // Of a position that is not negative.
    int64 BlockOf(int64 position) const {
        return blockShift >= 0 ? position >> blockShift : position / blockSize;
    }
    bool HoldsPosition(const CacheEntry& entry, int handle, int64 position) const {
        return entry.handle == handle && position >= 0 && entry.block == BlockOf(position);
    }
    char* BytesIn(const CacheEntry& entry, int64 position, uint64 count) const {
        const int64 offset = position - entry.block * blockSize;
        const bool isThere = offset <= entry.count && count <= static_cast<uint64>(entry.count - offset);
        return isThere ? BytesOf(entry.slot) + offset : nullptr;
    }

    void LinkAll();
    void Unlink(int entry) {
        const CacheEntry& taken = entries[entry];
        entries[taken.prev].next = taken.next;
        entries[taken.next].prev = taken.prev;
    }
    // Closes the circle through an entry that stands in it nowhere; the caller makes it the head or the tail.
    void LinkBetweenTailAndHead(int entry) {
        entries[entry].next = head;
        entries[entry].prev = tail;
        entries[tail].next = entry;
        entries[head].prev = entry;
    }
    void Touch(int entry) {
        if (entry == head) return;
        if (entry == tail) {
            // The tail precedes the head in the circle already: only the names change.
            tail = entries[entry].prev;
        } else {
            Unlink(entry);
            LinkBetweenTailAndHead(entry);
        }
        head = entry;
    }
    void CountHeldBlock();
    void MakeTail(int entry);

    int FirstPositionFrom(int handle, int64 block);
    Range PositionsOf(int handle);
    int PositionOf(int entry);
    int PlaceFor(int handle, int64 block);
    void Move(int from, int to);
    void MoveItems(int begin, int end, int to);
    void BeginAtTheStart();

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
    // From a position to the number of its block; -1 where that takes a division.
    int blockShift;
    ZeroedTable<CacheEntry> entries;
    ZeroedTable<char> pool;
    ZeroedTable<int32> sortedRoom;
    int32* sorted = nullptr;  // begins anywhere in its room, which is twice as large; see Move
    int32 head = 0;
    int32 tail = 0;
    int32 heldBlocks = 0;
    int32 lastPlace = 0;  // the position to which an entry was moved last
    BlockIndex index;
    BlockFiles& files;
};

}  // namespace Torvo
