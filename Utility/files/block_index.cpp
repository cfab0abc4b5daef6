#include <Utility/files/block_index.h>

#include <bit>

namespace Torvo {

bool BlockIndex::Allocate(const CacheEntry* table, int32 count) {
    const uint64 size = std::bit_ceil(static_cast<uint64>(count) * 2);
    if (!places.Allocate(static_cast<int64>(size))) return false;
    entries = table;
    mask = size - 1;
    shift = 64 - std::countr_zero(size);
    return true;
}

int32 BlockIndex::Find(int32 handle, int64 block) const {
    for (uint64 place = HomeOf(handle, block); places[place] != 0; place = Next(place)) {
        const CacheEntry& entry = entries[places[place] - 1];
        if (entry.block == block && entry.handle == handle) return places[place] - 1;
    }
    return -1;
}

void BlockIndex::Add(int32 entry) {
    uint64 place = HomeOf(entry);
    while (places[place] != 0) place = Next(place);
    places[place] = entry + 1;
}

// Whatever follows without a gap, and could stand at the hole, moves into it, which leaves the hole further on.
void BlockIndex::Remove(int32 entry) {
    uint64 hole = PlaceOf(entry);
    for (uint64 place = Next(hole); places[place] != 0; place = Next(place)) {
        const uint64 home = HomeOf(places[place] - 1);
        const bool homeIsBehindTheHole = ((place - home) & mask) < ((place - hole) & mask);
        if (homeIsBehindTheHole) continue;
        places[hole] = places[place];
        hole = place;
    }
    places[hole] = 0;
}

// Multiplicative hashing by the golden ratio (Knuth, The Art of Computer Programming, volume 3, section 6.4): blocks
// that follow each other come to lie far apart. The factor of the handle is another odd number, so that the runs of two
// files do not meet.
uint64 BlockIndex::HomeOf(int32 handle, int64 block) const {
    const uint64 ofBlock = static_cast<uint64>(block) * 0x9E37'79B9'7F4A'7C15u;
    const uint64 ofHandle = static_cast<uint64>(handle) * 0xD1B5'4A32'D192'ED03u;
    return (ofBlock + ofHandle) >> shift;
}

uint64 BlockIndex::HomeOf(int32 entry) const {
    return HomeOf(entries[entry].handle, entries[entry].block);
}

uint64 BlockIndex::PlaceOf(int32 entry) const {
    uint64 place = HomeOf(entry);
    while (places[place] != entry + 1) place = Next(place);
    return place;
}

}  // namespace Torvo
