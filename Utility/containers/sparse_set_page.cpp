#include <Utility/containers/sparse_set_page.h>
#include <Utility/memory_blocks.h>

#include <exception>
#include <new>

namespace Torvo::pages {

namespace {

void* NewBitmap(bool zero) {
    void* bitmap = nullptr;
    if (!falloc_(kBitmapBytes, &bitmap, false, zero)) throw std::bad_alloc();
    return bitmap;
}

// The first word from `word` on that is not zero, or kWords. Eight words, a cache line, are looked at together, so that
// an empty stretch costs a few instructions a line.
uint32 NonZeroWordFrom(const uint16* bitmap, uint32 word) {
    for (; word % 8 != 0; ++word) {
        if (bits::LoadWord(bitmap, word) != 0) return word;
    }
    for (; word < kWords; word += 8) {
        const auto* const line = reinterpret_cast<const __m128i*>(bitmap + std::size_t{word} * 4);
        const __m128i a = _mm_or_si128(_mm_loadu_si128(line), _mm_loadu_si128(line + 1));
        const __m128i b = _mm_or_si128(_mm_loadu_si128(line + 2), _mm_loadu_si128(line + 3));
        const __m128i zeros = _mm_cmpeq_epi8(_mm_or_si128(a, b), _mm_setzero_si128());
        if (_mm_movemask_epi8(zeros) != 0xFFFF) break;
    }
    while (word < kWords && bits::LoadWord(bitmap, word) == 0) ++word;
    return word;
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
        std::memset(bitmap, 0xFF, kBitmapBytes);
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
    page.count = count;
    return true;
}

uint32 MemberFrom(const flist_page& page, uint32 place) {
    if (IsFull(page)) return place;
    if (IsEmpty(page)) return kNone;
    const uint32 word = place / bits::kWordBits;
    const uint64 rest = bits::LoadWord(page.bits, word) >> (place % bits::kWordBits);
    if (rest != 0) return place + static_cast<uint32>(std::countr_zero(rest));
    const uint32 found = NonZeroWordFrom(page.bits, word + 1);
    if (found >= kWords) return kNone;
    return found * bits::kWordBits + static_cast<uint32>(std::countr_zero(bits::LoadWord(page.bits, found)));
}

uint32 MemberDownFrom(const flist_page& page, uint32 place) {
    if (IsFull(page)) return place;
    if (IsEmpty(page)) return kNone;
    uint32 word = place / bits::kWordBits;
    uint64 rest = bits::LoadWord(page.bits, word) & bits::MaskOf(0, place % bits::kWordBits);
    while (rest == 0) {
        if (word == 0) return kNone;
        rest = bits::LoadWord(page.bits, --word);
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
