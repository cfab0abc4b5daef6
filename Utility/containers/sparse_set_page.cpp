#include <Utility/containers/sparse_set_page.h>
#include <Utility/memory_blocks.h>

#include <exception>
#include <new>

namespace Torvo::pages {

namespace {

void* NewBitmap(bool zero) {
    void* bitmap = nullptr;
    if (!falloc_(kBitmapBytes + kMapBytes, &bitmap, false, zero)) throw std::bad_alloc();
    return bitmap;
}

// How many map words ahead of a search the words of a thinly filled bitmap are asked for. Each map word stands for
// eight cache lines, of which a set that is strewn thinly enough for this to matter occupies about four; so some twenty
// are on their way, which is what it takes to hide the memory's delay behind the steps of a walk.
constexpr uint32 kAhead = 6;

// Reads a map word, and tells the processor that the occupied words of another one (if there is such a one) will be
// wanted soon, since they are too far apart for it to guess. That saves time and does nothing else; so it stands beside
// a result that is used, because compilers take out calls that do nothing else.
uint64 ReadMap(const uint16* bitmap, uint32 mapWord, uint32 announced) {
    uint64 occupied = announced < kMapWords ? bits::LoadWord(MapOf(bitmap), announced) : 0;
    while (occupied != 0) {
        const auto bit = static_cast<uint32>(std::countr_zero(occupied));
        const uint16* const word = bitmap + std::size_t{announced * bits::kWordBits + bit} * 4;
        _mm_prefetch(reinterpret_cast<const char*>(word), _MM_HINT_T0);
        // The eight words of a line come at once.
        occupied &= ~(uint64{0xFF} << (bit & 56u));
    }
    return bits::LoadWord(MapOf(bitmap), mapWord);
}

// The lowest word above this one that is not zero, or kWords.
uint32 OccupiedWordAbove(const uint16* bitmap, uint32 word) {
    uint32 mapWord = word / bits::kWordBits;
    uint64 occupied = bits::LoadWord(MapOf(bitmap), mapWord) & (~uint64{1} << (word % bits::kWordBits));
    while (occupied == 0) {
        if (++mapWord == kMapWords) return kWords;
        occupied = ReadMap(bitmap, mapWord, mapWord + kAhead);
    }
    return mapWord * bits::kWordBits + static_cast<uint32>(std::countr_zero(occupied));
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

// Makes the map of a bitmap that was written to directly.
void MakeMap(uint16* bitmap) {
    for (uint32 mapWord = 0; mapWord < kMapWords; ++mapWord) {
        uint64 occupied = 0;
        for (uint32 bit = 0; bit < bits::kWordBits; ++bit) {
            const bool isOccupied = bits::LoadWord(bitmap, mapWord * bits::kWordBits + bit) != 0;
            occupied |= uint64{isOccupied ? 1u : 0u} << bit;
        }
        bits::StoreWord(MapOf(bitmap), mapWord, occupied);
    }
}

}  // namespace

bool MakeBitmap(flist_page& page) {
    try {
        page.bits = static_cast<uint16*>(NewBitmap(true));
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

bool MakeFullBitmap(flist_page& page) {
    try {
        void* const bitmap = NewBitmap(false);
        std::memset(bitmap, 0xFF, kBitmapBytes + kMapBytes);
        FreeBitmap(page);
        page.bits = static_cast<uint16*>(bitmap);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

void FreeBitmap(flist_page& page) {
    void* bitmap = page.bits;
    ffree_(&bitmap);
    page.bits = nullptr;
}

bool Remove(flist_page& page, uint32 place) {
    if (IsEmpty(page)) return false;
    if (IsFull(page) && !MakeFullBitmap(page)) return false;
    uint16& word = page.bits[place >> 4];
    const uint32 bit = uint32{1} << (place & 15);
    if ((word & bit) == 0) return false;
    word = static_cast<uint16>(word & ~bit);
    const uint32 wholeWord = place / bits::kWordBits;
    if (bits::LoadWord(page.bits, wholeWord) == 0) bits::FillRange(MapOf(page.bits), wholeWord, wholeWord, false);
    if (--page.count == 0) FreeBitmap(page);
    return true;
}

bool AddRange(flist_page& page, uint32 first, uint32 last) {
    const uint32 size = last - first + 1;
    const uint32 added = size - CountOfRange(page, first, last);
    if (added == 0) return true;
    if (page.count + added == kPlaces) {
        FreeBitmap(page);
        page.count = kPlaces;
        return true;
    }
    if (page.bits == nullptr && !MakeBitmap(page)) return false;
    bits::FillRange(page.bits, first, last, true);
    bits::FillRange(MapOf(page.bits), first / bits::kWordBits, last / bits::kWordBits, true);
    page.count += added;
    return true;
}

bool CopyRange(flist_page& page, const flist_page& source, uint32 first, uint32 last) {
    if (IsFull(source)) return AddRange(page, first, last);
    const uint32 count = CountOfRange(source, first, last);
    if (count == 0) return true;
    if (!MakeBitmap(page)) return false;
    std::memcpy(page.bits, source.bits, kBitmapBytes);
    if (first > 0) bits::FillRange(page.bits, 0, first - 1, false);
    if (last < kPlaces - 1) bits::FillRange(page.bits, last + 1, kPlaces - 1, false);
    MakeMap(page.bits);
    page.count = count;
    return true;
}

uint32 FirstSetBit(const uint16* bitmap) {
    uint64 any = 0;
    for (uint32 mapWord = 0; mapWord < kAhead; ++mapWord) any |= ReadMap(bitmap, mapWord, mapWord);
    return SetBitFrom(bitmap, any != 0 ? 0 : kAhead * bits::kWordBits * bits::kWordBits - 1);
}

uint32 SetBitBehindWordOf(const uint16* bitmap, uint32 place) {
    const uint32 word = OccupiedWordAbove(bitmap, place / bits::kWordBits);
    if (word == kWords) return kNone;
    return word * bits::kWordBits + static_cast<uint32>(std::countr_zero(bits::LoadWord(bitmap, word)));
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

uint32 CountOfRange(const flist_page& page, uint32 first, uint32 last) {
    if (IsFull(page)) return last - first + 1;
    if (IsEmpty(page)) return 0;
    return bits::CountOfRange(page.bits, first, last);
}

}  // namespace Torvo::pages
