// The block cache in its plainest form: one array kept sorted by key, walked for everything, and one circle in the
// order of use. What the library's cache shows must be what this one shows.
#pragma once

#include <Utility/file_cache.h>
#include <Utility/files/block_files.h>

#include <vector>

namespace Torvo::test {

class PlainFileCache final : public cFileCache {
public:
    PlainFileCache(int blocks, int size, BlockFiles& blockFiles)
        : files(blockFiles),
          usable(blocks - 1),
          blockSize(size),
          entries(static_cast<std::size_t>(blocks)),
          pool(static_cast<std::size_t>(blocks * size)),
          sorted(static_cast<std::size_t>(blocks)) {
        for (int i = 0; i < usable; ++i) {
            entries[Index(i)].next = (i + 1) % usable;
            entries[Index(i)].prev = (i + usable - 1) % usable;
            entries[Index(i)].slot = i;
            sorted[Index(i)] = i;
        }
        head = 0;
        tail = usable - 1;
    }

    int BlockCount() override { return usable; }
    int BlockSize() override { return blockSize; }
    CacheEntry* EntryAt(int position) override { return &entries[Index(sorted[Index(position)])]; }
    void* BlockData(int slot) override { return &pool[Index(slot * blockSize)]; }

    bool Flush(int handle) override {
        for (int position = 0; position < usable; ++position) {
            CacheEntry& entry = *EntryAt(position);
            if ((entry.flags & 1) == 0) continue;
            if (handle != -1 && entry.handle != handle) continue;
            if (!WriteBlock(entry)) return false;
        }
        return true;
    }

    bool Forget(int handle) override {
        bool written = true;
        for (int position = 0; position < usable; ++position) {
            CacheEntry& entry = *EntryAt(position);
            if (entry.handle != handle) continue;
            if ((entry.flags & 1) != 0 && !WriteBlock(entry)) written = false;
            EvictAt(position);
        }
        return written;
    }

    bool Lookup(int handle, int64 block, CacheEntry** out, int mode) override {
        int low = 1;
        int high = usable;
        while (low <= high) {
            const int middle = (low + high) / 2;
            const CacheEntry& entry = *EntryAt(middle - 1);
            if (handle < entry.handle || (handle == entry.handle && block < entry.block)) {
                high = middle - 1;
            } else if (handle > entry.handle || block > entry.block) {
                low = middle + 1;
            } else {
                Touch(middle - 1);
                *out = EntryAt(middle - 1);
                return true;
            }
        }
        if (mode == 0) return false;
        const int victim = tail;
        CacheEntry& taken = entries[Index(victim)];
        if ((taken.flags & 1) != 0 && !Flush(taken.handle)) return false;
        taken.handle = handle;
        taken.block = block;
        taken.count = 0;
        taken.flags = 0;
        int position = 0;
        while (sorted[Index(position)] != victim) ++position;
        const int insertion = low - 1;
        if (position != insertion) {
            sorted.erase(sorted.begin() + position);
            const int target = insertion > position ? insertion - 1 : insertion;
            sorted.insert(sorted.begin() + target, victim);
            position = target;
        }
        Touch(position);
        if (mode == 2) {
            const int got = files.Read(handle, block * blockSize, BlockData(taken.slot), blockSize);
            if (got == -1) return false;
            taken.count = got;
        }
        *out = &taken;
        return true;
    }

    void EvictAt(int position) override {
        const int index = sorted[Index(position)];
        CacheEntry& entry = entries[Index(index)];
        entry.handle = 0;
        entry.block = 0;
        entry.flags = 0;
        if (index != tail) {
            Unlink(index);
            if (index == head) head = entry.next;
            Link(index);
            tail = index;
        }
        sorted.erase(sorted.begin() + position);
        sorted.insert(sorted.begin(), index);
    }

private:
    static std::size_t Index(int i) { return static_cast<std::size_t>(i); }

    void Touch(int position) {
        const int index = sorted[Index(position)];
        if (index == head) return;
        Unlink(index);
        if (index == tail) tail = entries[Index(index)].prev;
        Link(index);
        head = index;
    }
    void Unlink(int index) {
        CacheEntry& entry = entries[Index(index)];
        entries[Index(entry.prev)].next = entry.next;
        entries[Index(entry.next)].prev = entry.prev;
    }
    void Link(int index) {
        entries[Index(index)].next = head;
        entries[Index(index)].prev = tail;
        entries[Index(tail)].next = index;
        entries[Index(head)].prev = index;
    }

    bool WriteBlock(CacheEntry& entry) {
        if (!files.Write(entry.handle, entry.block * blockSize, BlockData(entry.slot), entry.count)) return false;
        entry.flags = 0;
        return true;
    }

    BlockFiles& files;
    int usable;
    int blockSize;
    int head;
    int tail;
    std::vector<CacheEntry> entries;
    std::vector<char> pool;
    std::vector<int> sorted;
};

}  // namespace Torvo::test
