// Finds the entry that holds a block: a hash table over the entries of a block cache.
#pragma once

#include <Utility/file_cache.h>
#include <Utility/files/zeroed_table.h>

namespace Torvo {

// Linear probing in a table at least twice as large as the number of entries, so that a search meets a free place soon.
// A removed item leaves no mark: those behind it move up instead.
class BlockIndex {
public:
    // Makes room for `count` entries, which lie at `entries` and keep lying there. False if memory is short.
    bool Allocate(const CacheEntry* entries, int32 count);

    // The index of the entry with this key, or -1.
    int32 Find(int32 handle, int64 block) const {
        for (uint64 place = HomeOf(handle, block); places[place] != 0; place = Next(place)) {
            const CacheEntry& entry = entries[places[place] - 1];
            if (entry.block == block && entry.handle == handle) return places[place] - 1;
        }
        return -1;
    }
    // Adds an entry under the key that it has; no other has it.
    void Add(int32 entry);
    // Removes an entry that was added and still has its key.
    void Remove(int32 entry);

private:
    // Multiplicative hashing by the golden ratio (Knuth, The Art of Computer Programming, volume 3, section 6.4):
    // blocks that follow each other come to lie far apart. The factor of the handle is another odd number, so that the
    // runs of two files do not meet.
    uint64 HomeOf(int32 handle, int64 block) const {
        const uint64 ofBlock = static_cast<uint64>(block) * 0x9E37'79B9'7F4A'7C15u;
        const uint64 ofHandle = static_cast<uint64>(handle) * 0xD1B5'4A32'D192'ED03u;
        return (ofBlock + ofHandle) >> shift;
    }
    uint64 HomeOf(int32 entry) const;
    uint64 PlaceOf(int32 entry) const;
    uint64 Next(uint64 place) const { return (place + 1) & mask; }

    const CacheEntry* entries = nullptr;
    ZeroedTable<int32> places;  // index + 1 of the entry at each place, 0 where there is none
    uint64 mask = 0;            // the number of places, a power of two, less one
    int shift = 0;              // from a hash of 64 bits to a place
};

}  // namespace Torvo
