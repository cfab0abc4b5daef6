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

uint64 BlockIndex::HomeOf(int32 entry) const {
    return HomeOf(entries[entry].handle, entries[entry].block);
}

uint64 BlockIndex::PlaceOf(int32 entry) const {
    uint64 place = HomeOf(entry);
    while (places[place] != entry + 1) place = Next(place);
    return place;
}

}  // namespace Torvo
