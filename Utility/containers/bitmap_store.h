// Where the bitmaps of a sparse set lie.
//
// A list with few bitmaps has each of them in a block of its own. A list with many is one whose members are strewn over
// a wide range, and there the system's pages would be what costs most: each is made at its first touch and has to be
// looked up at most later ones. So its further bitmaps lie side by side in slabs, blocks of some megabytes that the
// system is asked to back by large pages. Where there are no large pages to be had, there are no slabs.
//
// A slab is never needed: where memory for one is short, a block for the single bitmap is tried. A slab that has become
// empty is kept for the next bitmap, one of them at most, until the list has shrunk to few bitmaps; any other is given
// back.
#pragma once

#include <Utility/platform/types.h>

#include <cstddef>

namespace Torvo {

struct BitmapSlab;

// Zero-filled memory is an empty store.
class BitmapStore {
public:
    // What a bitmap and its map take (see sparse_set_page.h).
    static constexpr std::size_t kContentBytes = 32768 + 512;
    // The bitmaps that a list has in blocks of their own before it gets slabs: about as much as a slab takes.
    static constexpr uint32 kSingles = 64;

    // Memory for a bitmap, zeroed or not; null if memory is short.
    uint16* New(bool zero);
    // Gives it back; null is none.
    void Free(uint16* bitmap);
    // Gives everything back that has no bitmap in it, at the end of a list.
    void Close();

private:
    uint16* NewSingle(bool zero);
    // A slab with room, at the head of the list; null if memory is short.
    BitmapSlab* SlabWithRoom();
    BitmapSlab* NewSlab();
    void FreeInSlab(BitmapSlab& slab, uint16* bitmap);
    void Link(BitmapSlab& slab, bool atHead);
    void Unlink(BitmapSlab& slab);
    static void Release(BitmapSlab*& slab);

    // The slabs in use: those with room come first.
    BitmapSlab* first_;
    BitmapSlab* last_;
    BitmapSlab* spare_;  // an empty one, kept for the next bitmap; or null
    uint32 slabs_;       // how many are in use
    uint32 singles_;
};

}  // namespace Torvo
