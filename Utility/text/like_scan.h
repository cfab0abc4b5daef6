// The loops of the pattern match that take eight units at a time (see <Utility/platform/text_scan.h>).
//
// A unit is plain here if it stands for itself in a pattern, and joins nothing: it is no mark and no surrogate. So it
// begins a character wherever it is found.
#pragma once

#include <Utility/platform/text_scan.h>
#include <Utility/text/next_character.h>

namespace Torvo::like {

inline constexpr wchar16 anyRun = '%';
inline constexpr wchar16 anyOne = '_';

// The escape character, 0 where there is none. As wide as a register, which is read faster than half of one.
using EscapeUnit = uint32;

inline bool IsPlain(wchar16 unit, EscapeUnit escape) {
    return unit != 0 && unit < firstJoiningUnit && unit != anyRun && unit != anyOne && unit != escape;
}

// Whether a unit of the pattern takes one of the text, where neither joins another: a plain unit its equal, and "_" any
// but the terminator.
inline bool Takes(wchar16 unit, wchar16 text, EscapeUnit escape) {
    if (unit == anyOne && unit != escape) return text != 0 && text < firstJoiningUnit;
    return unit == text && IsPlain(unit, escape);
}

#if defined(TORVO_PLAIN_LOOPS)

// How many units at the start of the pattern take one of the text each.
inline std::size_t CountTaken(const wchar16* text, const wchar16* pattern, EscapeUnit escape) {
    std::size_t count = 0;
    while (Takes(pattern[count], text[count], escape)) ++count;
    return count;
}

// Where in a text a part of the pattern may stand, as far as its first one or two units tell if they are plain. Between
// the two there may be marks in the text, which belong to the first.
class PartStart {
public:
    PartStart(const wchar16* part, EscapeUnit escape)
        : first_(part[0]),
          hasFirst_(IsPlain(first_, escape)),
          second_(hasFirst_ ? part[1] : wchar16{0}),
          hasSecond_(IsPlain(second_, escape)) {}

    // The first place from `at` on, or the terminator.
    const wchar16* Find(const wchar16* at) const {
        while (*at != 0 && !IsPlace(at)) ++at;
        return at;
    }

private:
    bool IsPlace(const wchar16* at) const {
        if (!hasFirst_) return true;
        return *at == first_ && (!hasSecond_ || at[1] == second_ || at[1] >= firstJoiningUnit);
    }

    wchar16 first_;
    bool hasFirst_;
    wchar16 second_;
    bool hasSecond_;
};

#else

namespace scan = platform::scan;

// All ones where a unit is neither 0 nor one that joins.
inline __m128i Stands(__m128i units) {
    const __m128i fromZero = _mm_sub_epi16(units, scan::Broadcast(1));
    return _mm_cmpeq_epi16(_mm_subs_epu16(fromZero, scan::Broadcast(firstJoiningUnit - 2)), _mm_setzero_si128());
}

inline bool HasBlock(const wchar16* text) {
    return scan::UnitsInPage(text) >= scan::BlockUnits;
}

// So many units are looked at one by one first. Where no more are needed the processor guesses how many, and goes on,
// while it would wait for what a block answers.
inline constexpr std::ptrdiff_t oneByOne = 4;

// Takes for eight units at a time.
class BlockTaker {
public:
    explicit BlockTaker(EscapeUnit escape) : escape_(scan::Broadcast(static_cast<wchar16>(escape))) {}

    // Two bits for each unit that takes one.
    unsigned operator()(__m128i pattern, __m128i text) const {
        const __m128i isOne = _mm_cmpeq_epi16(pattern, scan::Broadcast(anyOne));
        const __m128i isWildcard = _mm_or_si128(isOne, _mm_cmpeq_epi16(pattern, scan::Broadcast(anyRun)));
        const __m128i isEqual = _mm_andnot_si128(isWildcard, _mm_cmpeq_epi16(pattern, text));
        const __m128i takes = _mm_and_si128(_mm_or_si128(isEqual, isOne), Stands(text));
        return scan::Mask(_mm_andnot_si128(_mm_cmpeq_epi16(pattern, escape_), takes));
    }

private:
    __m128i escape_;
};

inline std::size_t CountTaken(const wchar16* text, const wchar16* pattern, EscapeUnit escape) {
    std::size_t count = 0;
    for (; count < static_cast<std::size_t>(oneByOne); ++count) {
        if (!Takes(pattern[count], text[count], escape)) return count;
    }
    const BlockTaker takes(escape);
    for (;;) {
        if (!HasBlock(text + count) || !HasBlock(pattern + count)) {
            if (!Takes(pattern[count], text[count], escape)) return count;
            ++count;
            continue;
        }
        const unsigned mask = takes(scan::LoadAny(pattern + count), scan::LoadAny(text + count));
        if (mask != scan::WholeMask) return count + scan::FirstUnit(~mask);
        count += scan::BlockUnits;
    }
}

// Looks at sixteen units at a time, made bytes. Those that have no byte become the highest or the lowest one, so it may
// also find a place that turns out to be none, but misses none.
class PartStart {
public:
    PartStart(const wchar16* part, EscapeUnit escape)
        : hasFirst_(IsPlain(part[0], escape)),
          unit_(part[0]),
          first_(Byte(part[0])),
          second_(Byte(hasFirst_ ? part[1] : wchar16{0})),
          notLooked_(hasFirst_ && IsPlain(part[1], escape) ? lastUnit : scan::WholeMask) {}

    const wchar16* Find(const wchar16* at) const {
        if (!hasFirst_) return at;
        for (const wchar16* const farther = at + oneByOne; at != farther; ++at) {
            if (*at == unit_ || *at == 0) return at;
        }
        const auto before = reinterpret_cast<std::uintptr_t>(at) % (2 * scan::BlockBytes);
        const auto* blocks = reinterpret_cast<const __m128i*>(reinterpret_cast<std::uintptr_t>(at) - before);
        const unsigned head = Stops(blocks) >> before / sizeof(wchar16);
        if (head != 0) return at + std::countr_zero(head);
        for (;;) {
            blocks += 2;
            const unsigned stops = Stops(blocks);
            if (stops != 0) return reinterpret_cast<const wchar16*>(blocks) + std::countr_zero(stops);
        }
    }

private:
    static constexpr unsigned lastUnit = 0x8000;
    static constexpr wchar16 highest = 0xFF;

    static __m128i Byte(wchar16 unit) { return _mm_set1_epi8(static_cast<char>(std::min(unit, highest))); }

    // One bit for each unit that may be a place, or the terminator. What is behind the last unit is not known.
    unsigned Stops(const __m128i* blocks) const {
        const __m128i units = _mm_packus_epi16(_mm_load_si128(blocks), _mm_load_si128(blocks + 1));
        const __m128i lowest = _mm_cmpeq_epi8(units, _mm_setzero_si128());
        const __m128i joins = _mm_or_si128(lowest, _mm_cmpeq_epi8(units, Byte(highest)));
        const unsigned first = scan::Mask(_mm_cmpeq_epi8(units, first_));
        const unsigned follows = scan::Mask(_mm_or_si128(joins, _mm_cmpeq_epi8(units, second_)));
        return (first & (follows >> 1 | notLooked_)) | scan::Mask(lowest);
    }

    bool hasFirst_;
    wchar16 unit_;
    __m128i first_;
    __m128i second_;
    unsigned notLooked_;  // behind these units it is not looked whether the second one follows
};

#endif

}  // namespace Torvo::like
