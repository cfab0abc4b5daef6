// One page of a sparse set: 262144 places, empty, full, or with a bitmap. See flist_page for what the fields say.
//
// A place is a value less the first value of its page. Nothing here knows of lists; keeping `flist::count` and its
// bounds right is the caller's part.
//
// Behind a bitmap, in the same block and out of the caller's sight, lies its map: a bit for each 64-bit word of the
// bitmap, set where the word is not zero. A search looks for the next word in the map, and so reads of a thinly filled
// bitmap only what has members.
#pragma once

#include <Utility/containers/bit_words.h>
#include <Utility/containers/bitmap_store.h>
#include <Utility/sparse_sets.h>

namespace Torvo::pages {

constexpr uint32 kShift = 18;
constexpr uint32 kPlaces = uint32{1} << kShift;
constexpr uint32 kBitmapBytes = kPlaces / 8;
constexpr uint32 kWords = kPlaces / bits::kWordBits;
constexpr uint32 kMapBytes = kWords / 8;
constexpr uint32 kMapWords = kWords / bits::kWordBits;
static_assert(kBitmapBytes + kMapBytes == BitmapStore::kContentBytes);
// What a search says when it found nothing: the place behind the last.
constexpr uint32 kNone = kPlaces;

// The page of an item, its place there, and the way back.
inline uint32 PageOf(int32 item) {
    return static_cast<uint32>(item) >> kShift;
}

inline uint32 PlaceOf(int32 item) {
    return static_cast<uint32>(item) % kPlaces;
}

inline int32 ItemAt(uint32 page, uint32 place) {
    return static_cast<int32>((page << kShift) + place);
}

// The page slots that may be read. The array is gone after it failed to grow.
inline uint32 SlotsOf(const flist* list) {
    return list->pages != nullptr ? list->capacity : 0;
}

inline bool IsEmpty(const flist_page& page) {
    return page.count == 0;
}

inline bool IsFull(const flist_page& page) {
    return page.count == kPlaces;
}

// The map of a bitmap, to be read by bits::LoadWord.
inline uint16* MapOf(uint16* bitmap) {
    return bitmap + kBitmapBytes / sizeof(uint16);
}

inline const uint16* MapOf(const uint16* bitmap) {
    return bitmap + kBitmapBytes / sizeof(uint16);
}

inline void MarkWordOf(uint16* bitmap, uint32 place) {
    const uint32 word = place / bits::kWordBits;
    uint16& mapped = MapOf(bitmap)[word >> 4];
    mapped = static_cast<uint16>(mapped | uint32{1} << (word & 15));
}

// A bitmap's word for an empty page, and for a full one.
inline constexpr uint16 kWholeWords[] = {0, 0xFFFF};

// The word is chosen by arithmetic and not by a branch on the page's state, which is as good as random where pages
// differ.
inline bool Holds(const flist_page& page, uint32 place) {
    const auto inBitmap = reinterpret_cast<std::uintptr_t>(page.bits) + std::size_t{place >> 4} * sizeof(uint16);
    const auto whole = reinterpret_cast<std::uintptr_t>(kWholeWords + (page.count >> kShift));
    const std::uintptr_t hasBitmap = page.count - 1 < kPlaces - 1 ? 1 : 0;
    const auto* const word = reinterpret_cast<const uint16*>(whole ^ ((whole ^ inBitmap) & (0 - hasBitmap)));
    return ((*word >> (place & 15)) & 1) != 0;
}

// Gives an empty page a bitmap of zeros; false if memory is short.
bool MakeBitmap(BitmapStore& store, flist_page& page);
// Gives a full page a bitmap of ones; false if memory is short.
bool MakeFullBitmap(BitmapStore& store, flist_page& page);
// Frees the bitmap, if there is one; the count stays.
void FreeBitmap(BitmapStore& store, flist_page& page);

// Adds a place; whether it was newly added. False too if memory is short: then the place is no member.
inline bool Add(BitmapStore& store, flist_page& page, uint32 place) {
    if (IsFull(page)) return false;
    if (page.bits == nullptr && !MakeBitmap(store, page)) return false;
    uint16& word = page.bits[place >> 4];
    const uint32 bit = uint32{1} << (place & 15);
    if ((word & bit) != 0) return false;
    word = static_cast<uint16>(word | bit);
    MarkWordOf(page.bits, place);
    if (++page.count == kPlaces) FreeBitmap(store, page);
    return true;
}

// Removes a place; whether it was removed. False too if memory is short: then the place is still a member.
bool Remove(BitmapStore& store, flist_page& page, uint32 place);

// Adds [first, last]; false, with nothing changed, if memory is short. A page that becomes full needs no memory.
bool AddRange(BitmapStore& store, flist_page& page, uint32 first, uint32 last);

// Makes an empty page hold the members that `source` has in [first, last]; false if memory is short.
bool CopyRange(BitmapStore& store, flist_page& page, const flist_page& source, uint32 first, uint32 last);

// The highest member at or below the place, or kNone.
uint32 MemberDownFrom(const flist_page& page, uint32 place);
// The lowest place at or above this one that is no member, or kNone.
uint32 GapFrom(const flist_page& page, uint32 place);
// The place of the member of which `rank` members are below, from the start of this word on; there is such a member.
uint32 PlaceOfRank(const uint16* bitmap, uint32 word, uint32 rank);
// How many members are in [first, last].
uint32 CountOfRange(const flist_page& page, uint32 first, uint32 last);

}  // namespace Torvo::pages
