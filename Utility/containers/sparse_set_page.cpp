#include <Utility/containers/sparse_set_page.h>

#include <exception>
#include <new>

namespace Torvo::pages {

namespace {

uint16* NewBitmap(BitmapStore& store, bool zero) {
    uint16* const bitmap = store.New(zero);
    if (bitmap == nullptr) throw std::bad_alloc();
    return bitmap;
}

// The highest word below this one that is not zero, or kWords.
uint32 OccupiedWordBelow(const uint16* bitmap, uint32 word) {
    while (word > 0) {
        --word;
        const uint32 bit = word % bits::kWordBits;
        const uint64 occupied = bits::LoadWord(MapOf(bitmap), word / bits::kWordBits) & bits::MaskOf(0, bit);
        if (occupied != 0) return word - bit + bits::kWordBits - 1 - static_cast<uint32>(std::countl_zero(occupied));
        word -= bit;
    }
    return kWords;
}

}  // namespace

bool MakeBitmap(BitmapStore& store, flist_page& page) {
    try {
        page.bits = NewBitmap(store, true);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

bool MakeFullBitmap(BitmapStore& store, flist_page& page) {
    try {
        uint16* const bitmap = NewBitmap(store, false);
        std::memset(bitmap, 0xFF, kBitmapBytes + kMapBytes);
        FreeBitmap(store, page);
        page.bits = bitmap;
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

void FreeBitmap(BitmapStore& store, flist_page& page) {
    store.Free(page.bits);
    page.bits = nullptr;
}

bool Remove(BitmapStore& store, flist_page& page, uint32 place) {
    if (IsEmpty(page)) return false;
    if (IsFull(page) && !MakeFullBitmap(store, page)) return false;
    uint16& word = page.bits[place >> 4];
    const uint32 bit = uint32{1} << (place & 15);
    if ((word & bit) == 0) return false;
    word = static_cast<uint16>(word & ~bit);
    const uint32 wholeWord = place / bits::kWordBits;
    if (bits::LoadWord(page.bits, wholeWord) == 0) bits::FillRange(MapOf(page.bits), wholeWord, wholeWord, false);
    if (--page.count == 0) FreeBitmap(store, page);
    return true;
}

bool AddRange(BitmapStore& store, flist_page& page, uint32 first, uint32 last) {
    const uint32 size = last - first + 1;
    const uint32 added = size - CountOfRange(page, first, last);
    if (added == 0) return true;
    if (page.count + added == kPlaces) {
        FreeBitmap(store, page);
        page.count = kPlaces;
        return true;
    }
    if (page.bits == nullptr && !MakeBitmap(store, page)) return false;
    bits::FillRange(page.bits, first, last, true);
    bits::FillRange(MapOf(page.bits), first / bits::kWordBits, last / bits::kWordBits, true);
    page.count += added;
    return true;
}

bool CopyRange(BitmapStore& store, flist_page& page, const flist_page& source, uint32 first, uint32 last) {
    if (IsFull(source)) return AddRange(store, page, first, last);
    const uint32 count = CountOfRange(source, first, last);
    if (count == 0) return true;
    if (!MakeBitmap(store, page)) return false;
    // By the words that the map tells of, so that of a thinly filled page little is read and written.
    const uint32 firstWord = first / bits::kWordBits;
    const uint32 lastWord = last / bits::kWordBits;
    for (uint32 mapWord = firstWord / bits::kWordBits; mapWord <= lastWord / bits::kWordBits; ++mapWord) {
        uint64 occupied = 0;
        for (uint64 rest = bits::LoadWord(MapOf(source.bits), mapWord); rest != 0; rest &= rest - 1) {
            const uint32 word = mapWord * bits::kWordBits + static_cast<uint32>(std::countr_zero(rest));
            if (word < firstWord || word > lastWord) continue;
            uint64 members = bits::LoadWord(source.bits, word);
            if (word == firstWord) members &= bits::MaskOf(first % bits::kWordBits, bits::kWordBits - 1);
            if (word == lastWord) members &= bits::MaskOf(0, last % bits::kWordBits);
            if (members == 0) continue;
            bits::StoreWord(page.bits, word, members);
            occupied |= rest & (0 - rest);
        }
        bits::StoreWord(MapOf(page.bits), mapWord, occupied);
    }
    page.count = count;
    return true;
}

uint32 MemberDownFrom(const flist_page& page, uint32 place) {
    if (IsFull(page)) return place;
    if (IsEmpty(page)) return kNone;
    uint32 word = place / bits::kWordBits;
    uint64 rest = bits::LoadWord(page.bits, word) & bits::MaskOf(0, place % bits::kWordBits);
    if (rest == 0) {
        word = OccupiedWordBelow(page.bits, word);
        if (word == kWords) return kNone;
        rest = bits::LoadWord(page.bits, word);
    }
    return word * bits::kWordBits + bits::kWordBits - 1 - static_cast<uint32>(std::countl_zero(rest));
}

uint32 GapFrom(const flist_page& page, uint32 place) {
    if (IsFull(page)) return kNone;
    if (IsEmpty(page)) return place;
    uint32 word = place / bits::kWordBits;
    uint64 gaps = ~bits::LoadWord(page.bits, word) & bits::MaskOf(place % bits::kWordBits, bits::kWordBits - 1);
    while (gaps == 0) {
        if (++word == kWords) return kNone;
        gaps = ~bits::LoadWord(page.bits, word);
    }
    return word * bits::kWordBits + static_cast<uint32>(std::countr_zero(gaps));
}

uint32 PlaceOfRank(const uint16* bitmap, uint32 word, uint32 rank) {
    for (;; ++word) {
        const uint64 members = bits::LoadWord(bitmap, word);
        const uint32 count = bits::CountOf(members);
        if (rank < count) return word * bits::kWordBits + bits::PlaceOf(members, rank);
        rank -= count;
    }
}

uint32 CountOfRange(const flist_page& page, uint32 first, uint32 last) {
    if (IsFull(page)) return last - first + 1;
    if (IsEmpty(page)) return 0;
    if (last - first == kPlaces - 1) return page.count;
    return bits::CountOfRange(page.bits, first, last);
}

}  // namespace Torvo::pages
