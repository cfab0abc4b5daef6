#include <Utility/files/file_cache.h>

#include <Utility/platform/runtime.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

namespace Torvo {

namespace {

constexpr int32 kMostBlocks = 0x6666666;

bool IsDirty(const CacheEntry& entry) {
    return (entry.flags & DirtyFlag) != 0;
}

}  // namespace

FileCacheImpl::FileCacheImpl(int blocks, long32 size, BlockFiles& blockFiles)
    : totalBlocks(std::clamp(blocks, 0, kMostBlocks)),
      usableBlocks(totalBlocks - 1),
      blockSize(size),
      blockShift(std::has_single_bit(static_cast<uint32>(size)) ? std::countr_zero(static_cast<uint32>(size)) : -1),
      lastBlock(size > 0 ? std::numeric_limits<int64>::max() / size : 0),
      files(blockFiles) {
    if (totalBlocks < 2) throw NoBlocks;
    // The pool's size is counted in 32 bits: a larger one cannot be had.
    const int64 poolSize = static_cast<int64>(blockSize) * totalBlocks;
    if (blockSize < 1 || poolSize > std::numeric_limits<int32>::max()) throw OutOfMemory;
    const bool allocated = entries.Allocate(totalBlocks) && pool.Allocate(poolSize) &&
                           sortedRoom.Allocate(2 * int64{totalBlocks}) && index.Allocate(entries.Start(), totalBlocks);
    if (!allocated) throw OutOfMemory;
    LinkAll();
}

void FileCacheImpl::LinkAll() {
    sorted = sortedRoom.Start();
    for (int32 i = 0; i < usableBlocks; ++i) {
        entries[i].next = (i + 1) % usableBlocks;
        entries[i].prev = (i + usableBlocks - 1) % usableBlocks;
        entries[i].slot = i;
        sorted[i] = i;
    }
    SetHead(0);
    tail = usableBlocks - 1;
}

// The order of use.

void FileCacheImpl::MakeTail(int entry) {
    if (entry == tail) return;
    if (entry == head) {
        SetHead(entries[entry].next);
    } else {
        Unlink(entry);
        LinkBetweenTailAndHead(entry);
    }
    tail = entry;
}

// The order of keys.

int FileCacheImpl::Compare(const int* a, const int* b) const {
    const CacheEntry& left = entries[*a];
    const CacheEntry& right = entries[*b];
    if (left.handle != right.handle) return left.handle < right.handle ? -1 : 1;
    if (left.block != right.block) return left.block < right.block ? -1 : 1;
    return 0;
}

// The first position whose key is not below this one.
int FileCacheImpl::FirstPositionFrom(int handle, int64 block) {
    const int key = usableBlocks;
    entries[key].handle = handle;
    entries[key].block = block;
    int low = usableBlocks - heldBlocks;
    int high = usableBlocks;
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (Compare(&key, &sorted[middle]) > 0) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

FileCacheImpl::Range FileCacheImpl::PositionsOf(int handle) {
    const int begin = FirstPositionFrom(handle, std::numeric_limits<int64>::min());
    int end = begin;
    while (end < usableBlocks && entries[sorted[end]].handle == handle) ++end;
    return {begin, end};
}

// Where the entry to be taken stands, which is the tail. Of those that hold nothing, one that was dropped went to the
// front of both orders, last dropped first, and those that were never used go from the highest on: so the next of them
// is either the first of `sorted` or the last that holds nothing.
int FileCacheImpl::PositionOf(int entry) {
    if (sorted[0] == entry) return 0;
    if (!IsFull(entry)) return usableBlocks - heldBlocks - 1;
    // Who reads a file again in its order takes what he has left of it the last time.
    const int behind = lastPlace + 1;
    if (behind < usableBlocks && sorted[behind] == entry) return behind;
    return FirstPositionFrom(entries[entry].handle, entries[entry].block);
}

// The position at which a key belongs that no entry has.
int FileCacheImpl::PlaceFor(int handle, int64 block) {
    const int key = usableBlocks;
    entries[key].handle = handle;
    entries[key].block = block;
    // Who reads a file in its order goes on behind the block before.
    const int behind = lastPlace + 1;
    const bool isThere =
        Compare(&key, &sorted[lastPlace]) > 0 && (behind == usableBlocks || Compare(&key, &sorted[behind]) < 0);
    return isThere ? behind : FirstPositionFrom(handle, block);
}

// Takes the item at one position out and puts it in at another, as counted without it.
void FileCacheImpl::Move(int from, int to) {
    const int32 item = sorted[from];
    if (from > to) {
        MoveItems(to, from, to + 1);
    } else if (to - from <= usableBlocks / 2) {
        MoveItems(from + 1, to + 1, from);
    } else {
        // Who reads much in order takes the first and puts it in last: rather than that nearly all go down by one, the
        // others go up by one, and the whole begins one later.
        if (sorted == sortedRoom.Start() + totalBlocks) BeginAtTheStart();
        MoveItems(to + 1, usableBlocks, to + 2);
        MoveItems(0, from, 1);
        ++sorted;
    }
    sorted[to] = item;
    lastPlace = to;
}

void FileCacheImpl::MoveItems(int begin, int end, int to) {
    std::memmove(sorted + to, sorted + begin, static_cast<std::size_t>(end - begin) * sizeof(int32));
}

void FileCacheImpl::BeginAtTheStart() {
    // Never negative, which a compiler cannot know.
    const std::size_t count = static_cast<uint32>(usableBlocks);
    std::memmove(sortedRoom.Start(), sorted, count * sizeof(int32));
    sorted = sortedRoom.Start();
}

CacheEntry* FileCacheImpl::EntryAt(int position) {
    return position >= 0 && position < usableBlocks ? &entries[sorted[position]] : nullptr;
}

// Finding and taking.

bool FileCacheImpl::Lookup(int handle, int64 block, CacheEntry** out, int mode) {
    if (out == nullptr) return false;
    // Saves time only: a caller mostly goes on in the block that it used last.
    if (entries[head].handle == handle && entries[head].block == block && handle > 0) {
        *out = &entries[head];
        return true;
    }
    if (handle < 1) return false;
    const int32 found = index.Find(handle, block);
    if (found >= 0) {
        Touch(found);
    } else {
        if (mode == 0 || !TakeVictim(handle, block)) return false;
        if (mode == 2 && !ReadBlock(entries[head])) return false;
        CountFilledBytes(mode == 2 ? entries[head].count : blockSize);
    }
    *out = &entries[head];
    return true;
}

bool FileCacheImpl::DropVictimOfClosedFile() {
    const CacheEntry& victim = entries[tail];
    if (!IsDirty(victim) || files.IsOpen(victim.handle)) return false;
    Forget(victim.handle);
    return true;
}

// Makes the least recently used entry the most recently used one, holding this block without content. False if it is
// dirty and its file cannot be written.
bool FileCacheImpl::TakeVictim(int handle, int64 block) {
    if (IsDirty(entries[tail]) && !Flush(entries[tail].handle)) return false;
    const int taken = tail;
    CacheEntry& victim = entries[taken];

    const int from = PositionOf(taken);
    const int before = PlaceFor(handle, block);
    Move(from, before > from ? before - 1 : before);

    if (IsFull(taken)) {
        index.Remove(taken);
    } else {
        ++heldBlocks;
    }
    victim.handle = handle;
    victim.block = block;
    victim.count = 0;
    victim.flags &= ~DirtyFlag;
    index.Add(taken);
    Touch(taken);
    SetHead(taken);  // where it was the head before, as the only one, it has another key now
    return true;
}

// An instance that reads little, or a little of each of many files, shall not pay for more memory than that; one that
// fills the pool gets it faster in large pages, and reaches what it holds faster.
void FileCacheImpl::CountFilledBytes(int32 count) {
    constexpr int64 enoughForLargePages = 2 << 20;
    const int64 before = filledBytes;
    filledBytes += count;
    if (before < enoughForLargePages && filledBytes >= enoughForLargePages) {
        platform::WantLargePages(pool.Start(), static_cast<std::size_t>(blockSize) * static_cast<uint32>(totalBlocks));
    }
}

// Dropping.

void FileCacheImpl::DropContent(int entry) {
    CacheEntry& dropped = entries[entry];
    if (IsFull(entry)) {
        index.Remove(entry);
        --heldBlocks;
    }
    dropped.handle = 0;
    dropped.block = 0;
    dropped.flags &= ~DirtyFlag;
    MakeTail(entry);
}

void FileCacheImpl::EvictAt(int position) {
    if (position < 0 || position >= usableBlocks) return;
    DropContent(sorted[position]);
    Move(position, 0);
}

bool FileCacheImpl::Forget(int handle) {
    if (handle < 1) return true;
    const Range own = PositionsOf(handle);
    bool written = true;
    for (int position = own.begin; position < own.end; ++position) {
        CacheEntry& entry = entries[sorted[position]];
        if (IsDirty(entry) && !WriteBlock(entry)) written = false;
    }
    for (int position = own.begin; position < own.end; ++position) DropContent(sorted[position]);
    // As dropping one after the other leaves them: all in front, the last first.
    std::reverse(&sorted[own.begin], &sorted[own.end]);
    std::rotate(&sorted[0], &sorted[own.begin], &sorted[own.end]);
    return written;
}

// Reading and writing.

bool FileCacheImpl::Flush(int handle) {
    if (handle == -1) return WriteDirtyFrom({usableBlocks - heldBlocks, usableBlocks});
    return handle < 1 || WriteDirtyFrom(PositionsOf(handle));
}

bool FileCacheImpl::WriteDirtyFrom(Range positions) {
    for (int position = positions.begin; position < positions.end; ++position) {
        CacheEntry& entry = entries[sorted[position]];
        if (IsDirty(entry) && !WriteBlock(entry)) return false;
    }
    return true;
}

// -1 for a block whose place no file offset can tell.
int64 FileCacheImpl::OffsetOf(const CacheEntry& entry) const {
    const bool canBeTold = entry.block >= 0 && entry.block <= lastBlock;
    return canBeTold ? entry.block * blockSize : -1;
}

bool FileCacheImpl::ReadBlock(CacheEntry& entry) {
    const int64 offset = OffsetOf(entry);
    if (offset < 0) return false;
    const int got = files.Read(entry.handle, offset, BytesOf(entry.slot), blockSize);
    if (got < 0) return false;
    entry.count = got;
    return true;
}

bool FileCacheImpl::WriteBlock(CacheEntry& entry) {
    const int64 offset = OffsetOf(entry);
    if (offset < 0 || !files.Write(entry.handle, offset, BytesOf(entry.slot), entry.count)) return false;
    entry.flags &= ~DirtyFlag;
    return true;
}

}  // namespace Torvo
