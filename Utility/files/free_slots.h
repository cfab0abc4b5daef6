// Which entries of the file table are free, the lowest first.
//
// Entries are taken from the lowest one up, so those that were never used are all behind those that were. Of the others
// the free ones form a heap with the lowest on top.
#pragma once

#include <Utility/platform/types.h>

#include <vector>

namespace Torvo {

class FreeSlots {
public:
    // Makes room for giving back `size` slots, so that GiveBack needs no memory. Throws std::bad_alloc.
    void Reserve(int32 size);
    // The lowest free slot; it may lie behind the end of the table.
    int32 Lowest() const { return returned.empty() ? neverUsed : returned.front(); }
    // Takes that slot.
    void TakeLowest();
    // Gives back a slot that was taken.
    void GiveBack(int32 slot);
    // Whether a slot is free; walks all that were given back.
    bool IsFree(int32 slot) const;

private:
    std::vector<int32> returned;
    int32 neverUsed = 0;
};

}  // namespace Torvo
