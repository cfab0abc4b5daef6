// The block cache's inside. docs/file_cache.md tells what stands where and why.
#pragma once

#include <Utility/file_cache.h>
#include <Utility/files/block_files.h>
#include <Utility/files/block_index.h>
#include <Utility/files/file_cache_positions.h>

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
    void* BlockData(int slot) override { return slot >= 0 && slot < totalBlocks ? BytesOf(slot) : nullptr; }
    void EvictAt(int position) override;

    // Where the bytes from a position of a file on are, if one block that is there holds `count` of them; else, and for
    // no bytes, null. A block with that position is the last used then in either case, as after a Lookup with mode 0.
    // Saves time only.
    char* Find(int handle, int64 position, uint64 count) {
        char* const bytes = FindInLastUsed(handle, position, count);
        return bytes != nullptr ? bytes : FindElsewhere(handle, position, count);
    }
    // The same, of the last used block alone.
    char* FindInLastUsed(int handle, int64 position, uint64 count) const {
        const CacheEntry& entry = *lastUsed.entry;
        const uint64 offset = static_cast<uint64>(position) - lastUsed.start;
        if (entry.handle != handle || offset >= lastUsed.size) return nullptr;
        const int64 held = entry.count - static_cast<int64>(offset);
        // A count of 0 wraps to one that no block holds.
        return held > 0 && count - 1 < static_cast<uint64>(held) ? lastUsed.bytes + offset : nullptr;
    }
    // The same, of any block; the last used one is looked for as all others.
    char* FindElsewhere(int handle, int64 position, uint64 count) {
        if (count == 0 || position < 0) return nullptr;
        const int32 found = index.Find(handle, BlockOf(position));
        if (found < 0) return nullptr;
        Touch(found);
        return FindInLastUsed(handle, position, count);
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
    // What FindInLastUsed has to know of the entry at the head, at hand.
    struct LastUsed {
        CacheEntry* entry;
        uint64 start;  // of its block in the file
        uint64 size;   // of a block; 0 for one whose end no position can tell, in which nothing is to be found
        char* bytes;
    };

    // Of a position that is not negative.
    int64 BlockOf(int64 position) const {
        return blockShift >= 0 ? position >> blockShift : position / blockSize;
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
        SetHead(entry);
    }
    void SetHead(int entry) {
        head = entry;
        CacheEntry& used = entries[entry];
        const bool canBeTold = used.block >= 0 && used.block < lastBlock;
        const uint64 size = static_cast<uint32>(blockSize);
        lastUsed = {.entry = &used,
                    .start = static_cast<uint64>(used.block) * size,
                    .size = canBeTold ? size : 0,
                    .bytes = BytesOf(used.slot)};
    }
    void CountFilledBytes(int32 count);
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
    int64 lastBlock;  // the last whose start a position can tell
    LastUsed lastUsed{};
    ZeroedTable<CacheEntry> entries;
    ZeroedTable<char> pool;
    ZeroedTable<int32> sortedRoom;
    int32* sorted = nullptr;  // begins anywhere in its room, which is twice as large; see Move
    // Apart from each other, so that no compiler reads both at once: the processor would wait for the head just stored.
    int32 head = 0;
    int32 heldBlocks = 0;
    int32 tail = 0;
    int64 filledBytes = 0;  // that were ever read into the pool, or a caller was given room for
    int32 lastPlace = 0;    // the position to which an entry was moved last
    BlockIndex index;
    BlockFiles& files;
};

}  // namespace Torvo
