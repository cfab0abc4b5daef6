// The idle files in the order in which they are to be closed.
//
// The age of an idle file grows by one with each real open of any file, which would mean to touch all of them each
// time. But all ages grow together, so their order never changes while the files are idle: what is kept for a file is
// the number of opens before which its age would have been 0, its BIRTH. The file with the lowest birth is the oldest;
// of equal ones it is the one with the lowest place in the table. A heap keeps them so.
#pragma once

#include <Utility/platform/types.h>

#include <utility>
#include <vector>

namespace Torvo {

class IdleOrder {
public:
    // Makes room for the entries 0 to `size` - 1, so that Add needs no memory. Throws std::bad_alloc.
    void Reserve(int32 size);

    // A real open: every idle file becomes older by one.
    void AgeAll() { ++opens; }
    // A file becomes idle, with the age that it had when it became busy.
    void Add(int32 entry, int32 age);
    // It is idle no longer; returns its age.
    int32 Remove(int32 entry);

    // The oldest file, or -1.
    int32 Oldest() const { return heap.empty() ? -1 : heap.front().second; }
    bool Contains(int32 entry) const { return places[static_cast<std::size_t>(entry)] != NoPlace; }
    // The age of a file that is idle.
    int32 AgeOf(int32 entry) const;
    std::size_t Count() const { return heap.size(); }
    // Whether the heap is one and knows the place of each of its files; walks all of it.
    bool IsSound() const;

private:
    using Item = std::pair<int64, int32>;  // birth and entry
    static constexpr std::size_t NoPlace = ~std::size_t{0};

    void Put(std::size_t place, Item item);
    void Settle(std::size_t place, Item item);

    std::vector<Item> heap;           // the lowest item on top
    std::vector<std::size_t> places;  // by entry: where it is in the heap
    int64 opens = 0;
};

}  // namespace Torvo
