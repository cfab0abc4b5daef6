// One page of a sparse set: 262144 places, empty, full, or with a bitmap. See flist_page for what the fields say.
//
// A place is a value less the first value of its page. Nothing here knows of lists; keeping `flist::count` and its
// bounds right is the caller's part.
#pragma once

#include <Utility/containers/bit_words.h>
#include <Utility/sparse_sets.h>

namespace Torvo::pages {

constexpr uint32 kShift = 18;
constexpr uint32 kPlaces = uint32{1} << kShift;
constexpr uint32 kBitmapBytes = kPlaces / 8;
constexpr uint32 kWords = kPlaces / bits::kWordBits;
// What a search says when it found nothing: the place behind the last.
constexpr uint32 kNone = kPlaces;

inline bool IsEmpty(const flist_page& page) {
    return page.count == 0;
}

inline bool IsFull(const flist_page& page) {
    return page.count == kPlaces;
}

// The bit of a place in a bitmap.
inline bool TestBit(const uint16* bitmap, uint32 place) {
    return ((bitmap[place >> 4] >> (place & 15)) & 1) != 0;
}

inline bool Holds(const flist_page& page, uint32 place) {
    if (IsFull(page)) return true;
    return page.bits != nullptr && TestBit(page.bits, place);
}

// Gives an empty page a bitmap of zeros; false if memory is short.
bool MakeBitmap(flist_page& page);
// Gives a full page a bitmap of ones; false if memory is short.
bool MakeFullBitmap(flist_page& page);
// Frees the bitmap, if there is one; the count stays.
void FreeBitmap(flist_page& page);

// Adds a place; whether it was newly added. False too if memory is short: then the place is no member.
inline bool Add(flist_page& page, uint32 place) {
    if (IsFull(page)) return false;
    if (page.bits == nullptr && !MakeBitmap(page)) return false;
    uint16& word = page.bits[place >> 4];
    const uint32 bit = uint32{1} << (place & 15);
    if ((word & bit) != 0) return false;
    word = static_cast<uint16>(word | bit);
    if (++page.count == kPlaces) FreeBitmap(page);
    return true;
}

// Removes a place; whether it was removed. False too if memory is short: then the place is still a member.
bool Remove(flist_page& page, uint32 place);

// Adds [first, last]; false, with nothing changed, if memory is short. A page that becomes full needs no memory.
bool AddRange(flist_page& page, uint32 first, uint32 last);

// Makes an empty page hold the members that `source` has in [first, last]; false if memory is short.
bool CopyRange(flist_page& page, const flist_page& source, uint32 first, uint32 last);

// The lowest member at or above the place, or kNone.
uint32 MemberFrom(const flist_page& page, uint32 place);
// The highest member at or below the place, or kNone.
uint32 MemberDownFrom(const flist_page& page, uint32 place);
// The lowest place at or above this one that is no member, or kNone.
uint32 GapFrom(const flist_page& page, uint32 place);
// How many members are in [first, last].
uint32 CountOfRange(const flist_page& page, uint32 first, uint32 last);

}  // namespace Torvo::pages
