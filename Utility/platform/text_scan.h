// Scanning and comparing 16-bit text sixteen bytes at a time, for every system whose pages have 4 KiB.
//
// A scan loads aligned blocks, and a comparison loads a block only when it lies within one page. Such a load may take
// in bytes before the text or behind its terminator, but never a page that the text does not reach. A sanitizer cannot
// know that; under one the same functions are plain loops, which also shows it a text whose terminator is missing.
#pragma once

#include <Utility/platform/types.h>

#include <algorithm>
#include <bit>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define TORVO_PLAIN_LOOPS 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
#define TORVO_PLAIN_LOOPS 1
#endif
#endif

#if !defined(TORVO_PLAIN_LOOPS)
#include <emmintrin.h>
#endif

namespace Torvo::platform::scan {

inline wchar16 FoldUnit(wchar16 unit) {
    return unit >= 'A' && unit <= 'Z' ? static_cast<wchar16>(unit + 0x20) : unit;
}

// For a comparison that only the terminator ends. A type of its own, so that such a comparison is compiled apart.
struct WithoutLimit {
    constexpr operator std::size_t() const { return static_cast<std::size_t>(-1); }
};

// The index of the first pair of units from `index` to before `end` that differ or are both the terminator; `end` when
// there is none. With IgnoreCase, A to Z count as a to z.
template <bool IgnoreCase>
std::size_t FirstDifferenceByUnit(const wchar16* a, const wchar16* b, std::size_t index, std::size_t end) {
    for (; index < end; ++index) {
        const wchar16 left = IgnoreCase ? FoldUnit(a[index]) : a[index];
        const wchar16 right = IgnoreCase ? FoldUnit(b[index]) : b[index];
        if (left != right || left == 0) return index;
    }
    return end;
}

#if defined(TORVO_PLAIN_LOOPS)

// Matches a unit that equals one of two.
class EitherOf {
public:
    EitherOf(wchar16 a, wchar16 b) : first(a), second(b) {}
    bool operator()(wchar16 unit) const { return unit == first || unit == second; }

private:
    wchar16 first;
    wchar16 second;
};

inline bool Either(bool a, bool b) {
    return a || b;
}

// The first unit at or after `text` that matches. There must be one.
template <typename Matcher>
const wchar16* FindFirst(const wchar16* text, const Matcher& matches) {
    while (!matches(*text)) ++text;
    return text;
}

inline const wchar16* FindEnd(const wchar16* text) {
    return FindFirst(text, [](wchar16 unit) { return unit == 0; });
}

// The length of a text, at most `count`.
inline std::size_t LengthWithin(const wchar16* text, std::size_t count) {
    std::size_t length = 0;
    while (length < count && text[length] != 0) ++length;
    return length;
}

// The last of the units from `text` to before `end` that equals `unit`, or null.
inline const wchar16* FindLast(const wchar16* text, const wchar16* end, wchar16 unit) {
    while (end > text) {
        if (*--end == unit) return end;
    }
    return nullptr;
}

template <bool IgnoreCase, typename Limit>
std::size_t FirstDifferenceOrEnd(const wchar16* a, const wchar16* b, Limit limit) {
    return FirstDifferenceByUnit<IgnoreCase>(a, b, 0, limit);
}

#else

inline constexpr std::uintptr_t PageBytes = 4096;
inline constexpr std::size_t BlockBytes = sizeof(__m128i);
inline constexpr std::size_t BlockUnits = BlockBytes / sizeof(wchar16);

inline __m128i Broadcast(wchar16 unit) {
    return _mm_set1_epi16(static_cast<short>(unit));
}

// Matches a unit that equals one of two.
class EitherOf {
public:
    EitherOf(wchar16 a, wchar16 b) : left(Broadcast(a)), right(Broadcast(b)) {}
    __m128i operator()(__m128i block) const {
        return _mm_or_si128(_mm_cmpeq_epi16(block, left), _mm_cmpeq_epi16(block, right));
    }

private:
    __m128i left;
    __m128i right;
};

inline __m128i Either(__m128i a, __m128i b) {
    return _mm_or_si128(a, b);
}

// Two bits per unit of a block of all-ones and all-zeros; for a block of all-ones the whole mask.
inline constexpr unsigned WholeMask = 0xFFFF;

inline unsigned Mask(__m128i block) {
    return static_cast<unsigned>(_mm_movemask_epi8(block));
}

inline unsigned FirstUnit(unsigned mask) {
    return static_cast<unsigned>(std::countr_zero(mask)) / 2;
}

// The aligned block that holds the start of a text, and how many of its bytes lie before the text.
inline const __m128i* BlockOf(const wchar16* text) {
    return reinterpret_cast<const __m128i*>(reinterpret_cast<std::uintptr_t>(text) & ~(BlockBytes - 1));
}

inline unsigned BytesBefore(const wchar16* text) {
    return static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(text) & (BlockBytes - 1));
}

// The first unit at or after `text` that matches. There must be one.
template <typename Matcher>
const wchar16* FindFirst(const wchar16* text, const Matcher& matches) {
    const __m128i* block = BlockOf(text);
    const unsigned head = Mask(matches(_mm_load_si128(block))) >> BytesBefore(text);
    if (head != 0) return text + FirstUnit(head);
    for (;;) {
        ++block;
        const unsigned mask = Mask(matches(_mm_load_si128(block)));
        if (mask != 0) return reinterpret_cast<const wchar16*>(block) + FirstUnit(mask);
    }
}

// The terminator. Long texts are taken a cache line at a time, which never crosses a page either.
inline const wchar16* FindEnd(const wchar16* text) {
    constexpr std::size_t LineBlocks = 4;
    const __m128i zero = _mm_setzero_si128();
    const auto isEnd = [zero](__m128i block) { return _mm_cmpeq_epi16(block, zero); };
    const __m128i* block = BlockOf(text);
    const unsigned head = Mask(isEnd(_mm_load_si128(block))) >> BytesBefore(text);
    if (head != 0) return text + FirstUnit(head);
    ++block;
    while (reinterpret_cast<std::uintptr_t>(block) % (LineBlocks * BlockBytes) != 0) {
        const unsigned mask = Mask(isEnd(_mm_load_si128(block)));
        if (mask != 0) return reinterpret_cast<const wchar16*>(block) + FirstUnit(mask);
        ++block;
    }
    for (;; block += LineBlocks) {
        const __m128i left = _mm_or_si128(isEnd(_mm_load_si128(block)), isEnd(_mm_load_si128(block + 1)));
        const __m128i right = _mm_or_si128(isEnd(_mm_load_si128(block + 2)), isEnd(_mm_load_si128(block + 3)));
        if (Mask(_mm_or_si128(left, right)) != 0) break;
    }
    return FindFirst(reinterpret_cast<const wchar16*>(block), isEnd);
}

// The length of a text, at most `count`.
inline std::size_t LengthWithin(const wchar16* text, std::size_t count) {
    if (count == 0) return 0;
    const __m128i zero = _mm_setzero_si128();
    const __m128i* block = BlockOf(text);
    unsigned mask = Mask(_mm_cmpeq_epi16(_mm_load_si128(block), zero)) >> BytesBefore(text);
    if (mask != 0) return std::min<std::size_t>(FirstUnit(mask), count);
    std::size_t length = (BlockBytes - BytesBefore(text)) / sizeof(wchar16);
    for (; length < count; length += BlockUnits) {
        mask = Mask(_mm_cmpeq_epi16(_mm_load_si128(++block), zero));
        if (mask != 0) return std::min(length + FirstUnit(mask), count);
    }
    return count;
}

// The last of the units from `text` to before `end` that equals `unit`, or null.
inline const wchar16* FindLast(const wchar16* text, const wchar16* end, wchar16 unit) {
    const __m128i wanted = Broadcast(unit);
    const __m128i* const first = BlockOf(text);
    const __m128i* block = BlockOf(end);
    unsigned inside = (1u << BytesBefore(end)) - 1;
    for (;; --block) {
        if (block == first) inside &= 0xFFFFu << BytesBefore(text);
        const unsigned mask = Mask(_mm_cmpeq_epi16(_mm_load_si128(block), wanted)) & inside;
        if (mask != 0) return reinterpret_cast<const wchar16*>(block) + (std::bit_width(mask) - 1) / 2;
        if (block == first) return nullptr;
        inside = WholeMask;
    }
}

inline __m128i LoadAny(const wchar16* text) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
}

// All ones where two units are the same. With IgnoreCase, also where they differ in the bit of case alone and are
// letters from A to Z: with that bit set the letter lies in a to z, which one signed comparison tells once that range
// is moved to the top of the signed numbers.
template <bool IgnoreCase>
__m128i SameUnits(__m128i a, __m128i b) {
    if constexpr (!IgnoreCase) return _mm_cmpeq_epi16(a, b);
    constexpr wchar16 caseBit = 0x20;
    constexpr wchar16 top = 0x7FFF;
    const __m128i moved = _mm_add_epi16(_mm_or_si128(a, Broadcast(caseBit)), Broadcast(top - 'z'));
    const __m128i isLetter = _mm_cmpgt_epi16(moved, Broadcast(top - 26));
    const __m128i ignored = _mm_and_si128(isLetter, Broadcast(caseBit));
    return _mm_cmpeq_epi16(_mm_andnot_si128(ignored, _mm_xor_si128(a, b)), _mm_setzero_si128());
}

// Whether so many bytes can be read at a place, wherever the text ends that is there.
inline bool CanRead(const void* place, std::size_t bytes) {
    return reinterpret_cast<std::uintptr_t>(place) % PageBytes <= PageBytes - bytes;
}

// How many units lie before the end of the page.
inline std::size_t UnitsInPage(const wchar16* text) {
    return (PageBytes - reinterpret_cast<std::uintptr_t>(text) % PageBytes) / sizeof(wchar16);
}

inline std::size_t WholeBlocks(std::size_t units) {
    return units - units % BlockUnits;
}

// Two bits for each unit of a block at which two texts differ or the first one ends.
template <bool IgnoreCase>
unsigned Stops(const wchar16* a, const wchar16* b) {
    const __m128i left = LoadAny(a);
    const __m128i goesOn = _mm_and_si128(SameUnits<IgnoreCase>(left, LoadAny(b)), left);
    return Mask(_mm_cmpeq_epi16(goesOn, _mm_setzero_si128()));
}

// The same as FirstDifferenceByUnit from 0 to the limit: by blocks while both texts stay within a page, the last of
// which may reach beyond the limit, then by unit to the end of the page that ends first. Most texts differ or end in
// the first blocks, for which one test of each text tells that they lie within its page.
template <bool IgnoreCase, typename Limit>
static std::size_t FirstDifferenceOrEnd(const wchar16* a, const wchar16* b, Limit limit) {
    constexpr std::size_t firstUnits = 3 * BlockUnits;
    const std::size_t count = limit;
    std::size_t index = 0;
    if (count != 0 && CanRead(a, firstUnits * sizeof(wchar16)) && CanRead(b, firstUnits * sizeof(wchar16))) {
        for (; index < firstUnits; index += BlockUnits) {
            const unsigned stops = Stops<IgnoreCase>(a + index, b + index);
            if (stops != 0) return std::min(index + FirstUnit(stops), count);
        }
    }
    while (index < count) {
        const std::size_t pageEnd = index + std::min(UnitsInPage(a + index), UnitsInPage(b + index));
        const std::size_t end = std::min(pageEnd, count);
        const std::size_t blocksEnd = std::min(index + WholeBlocks(pageEnd - index), count);
        for (; index < blocksEnd; index += BlockUnits) {
            const unsigned stops = Stops<IgnoreCase>(a + index, b + index);
            if (stops != 0) return std::min(index + FirstUnit(stops), count);
        }
        index = FirstDifferenceByUnit<IgnoreCase>(a, b, index, end);
        if (index < end) return index;
    }
    return count;
}

#endif

// Matches a unit that equals one of up to four; with fewer, some are named twice.
class OneOf {
public:
    OneOf(wchar16 a, wchar16 b, wchar16 c, wchar16 d) : first(a, b), second(c, d) {}
    template <typename Units>
    auto operator()(Units units) const {
        return Either(first(units), second(units));
    }

private:
    EitherOf first;
    EitherOf second;
};

}  // namespace Torvo::platform::scan
