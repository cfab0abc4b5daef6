// The loops of the pattern match that take sixteen units at a time (see <Utility/platform/text_scan.h>).
//
// A unit is plain here if it stands for itself in a pattern, and joins nothing: it is no mark and no surrogate. So it
// begins a character wherever it is found.
#pragma once

#include <Utility/platform/text_scan.h>
#include <Utility/text/like_match.h>
#include <Utility/text/next_character.h>

namespace Torvo::like {

inline bool Joins(wchar16 unit) {
    return unit >= firstJoiningUnit;
}

inline bool IsPlain(wchar16 unit, EscapeUnit escape) {
    return unit != 0 && !Joins(unit) && unit != anyRun && unit != anyOne && unit != escape;
}

// Whether the escape character may stand before the unit.
inline bool MayBeEscaped(wchar16 unit, EscapeUnit escape) {
    return unit == anyRun || unit == anyOne || unit == escape;
}

// Whether a unit of the pattern takes one of the text, where neither joins another: a plain unit its equal, and "_" any
// but the terminator.
inline bool Takes(wchar16 unit, wchar16 text, EscapeUnit escape) {
    if (unit == anyOne && unit != escape) return text != 0 && !Joins(text);
    return unit == text && IsPlain(unit, escape);
}

#if defined(TORVO_PLAIN_LOOPS)

// How many units at the start of the pattern take one of the text each.
class Taker {
public:
    explicit Taker(EscapeUnit escape) : escape_(escape) {}

    std::size_t Count(const wchar16* text, const wchar16* pattern) const {
        std::size_t count = 0;
        while (Takes(pattern[count], text[count], escape_)) ++count;
        return count;
    }

private:
    EscapeUnit escape_;
};

// Where in a text a part of the pattern may stand, as far as its first one or two units tell. Between the two there may
// be marks in the text, which belong to the first.
class PartStart {
public:
    // For a part that begins with a plain unit.
    PartStart(const wchar16* part, EscapeUnit escape)
        : first_(part[0]), second_(part[1]), hasSecond_(IsPlain(second_, escape)) {}

    // The first place from `at` on, or the terminator.
    const wchar16* Find(const wchar16* at) const {
        while (*at != 0 && !IsPlace(at)) ++at;
        return at;
    }

private:
    bool IsPlace(const wchar16* at) const { return *at == first_ && (!hasSecond_ || at[1] == second_ || Joins(at[1])); }

    wchar16 first_;
    wchar16 second_;
    bool hasSecond_;
};

#else

namespace scan = platform::scan;

inline constexpr std::size_t lanes = 16;

// Whether sixteen units can be read at `text`, whatever its length.
inline bool CanRead(const wchar16* text) {
    return scan::CanRead(text, lanes * sizeof(wchar16));
}

// Units made bytes: those that have none become the highest or the lowest one.
inline __m128i Bytes(__m128i low, __m128i high) {
    return _mm_packus_epi16(low, high);
}

inline __m128i EachByte(wchar16 unit) {
    return Bytes(scan::Broadcast(unit), scan::Broadcast(unit));
}

// All ones where a unit is neither the terminator nor one that joins.
inline __m128i StandsAlone(__m128i units) {
    const __m128i fromZero = _mm_add_epi16(units, scan::Broadcast(0xFFFF));
    return _mm_cmpeq_epi16(_mm_subs_epu16(fromZero, scan::Broadcast(firstJoiningUnit - 2)), _mm_setzero_si128());
}

class Taker {
public:
    explicit Taker(EscapeUnit escape)
        : escape_(escape), escapes_(EachByte(static_cast<wchar16>(std::min(escape, highestByte)))) {}

    std::size_t Count(const wchar16* text, const wchar16* pattern) const {
        std::size_t count = 0;
        for (;;) {
            if (CanRead(text + count) && CanRead(pattern + count)) {
                const unsigned others = TakesNot(pattern + count, text + count);
                count += others != 0 ? static_cast<unsigned>(std::countr_zero(others)) : lanes;
                if (others == 0) continue;
                if (HasByte(escape_)) return count;
            }
            if (!Takes(pattern[count], text[count], escape_)) return count;
            ++count;
        }
    }

private:
    static constexpr EscapeUnit highestByte = 0xFF;

    // An escape character without a byte is taken for every other unit that has none.
    static bool HasByte(EscapeUnit escape) { return escape < highestByte; }
    // One bit for each of sixteen units of the pattern that does not take the one of the text, or may be the escape
    // character.
    unsigned TakesNot(const wchar16* pattern, const wchar16* text) const {
        const __m128i patternLow = scan::LoadAny(pattern);
        const __m128i patternHigh = scan::LoadAny(pattern + lanes / 2);
        const __m128i textLow = scan::LoadAny(text);
        const __m128i textHigh = scan::LoadAny(text + lanes / 2);
        const __m128i isEqual =
            _mm_packs_epi16(_mm_cmpeq_epi16(patternLow, textLow), _mm_cmpeq_epi16(patternHigh, textHigh));
        const __m128i isCharacter = _mm_packs_epi16(StandsAlone(textLow), StandsAlone(textHigh));
        const __m128i units = Bytes(patternLow, patternHigh);
        const __m128i isOne = _mm_cmpeq_epi8(units, _mm_set1_epi8(anyOne));
        const __m128i isOther =
            _mm_or_si128(_mm_cmpeq_epi8(units, _mm_set1_epi8(anyRun)), _mm_cmpeq_epi8(units, escapes_));
        const __m128i takes = _mm_and_si128(_mm_or_si128(isEqual, isOne), isCharacter);
        return scan::Mask(_mm_andnot_si128(isOther, takes)) ^ scan::WholeMask;
    }

    EscapeUnit escape_;
    __m128i escapes_;
};

// Looks at units made bytes, so it may also find a place that turns out to be none, but misses none.
class PartStart {
public:
    // For a part that begins with a plain unit.
    PartStart(const wchar16* part, EscapeUnit escape)
        : first_(EachByte(part[0])),
          second_(EachByte(part[1])),
          notLooked_(IsPlain(part[1], escape) ? lastUnit : scan::WholeMask) {}

    const wchar16* Find(const wchar16* at) const {
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

    // One bit for each unit that may be a place, or the terminator. What is behind the last unit is not known.
    unsigned Stops(const __m128i* blocks) const {
        const __m128i units = Bytes(_mm_load_si128(blocks), _mm_load_si128(blocks + 1));
        const __m128i lowest = _mm_cmpeq_epi8(units, _mm_setzero_si128());
        const __m128i joins = _mm_or_si128(lowest, _mm_cmpeq_epi8(units, _mm_set1_epi8(-1)));
        const unsigned first = scan::Mask(_mm_cmpeq_epi8(units, first_));
        const unsigned follows = scan::Mask(_mm_or_si128(joins, _mm_cmpeq_epi8(units, second_)));
        return (first & (follows >> 1 | notLooked_)) | scan::Mask(lowest);
    }

    __m128i first_;
    __m128i second_;
    unsigned notLooked_;  // behind these units it is not looked whether the second one follows
};

#endif

// How many units of the pattern, up to its end, take one unit each where the text joins nothing; 0 if there is anything
// else among them.
inline std::size_t CountToEnd(const wchar16* pattern, EscapeUnit escape) {
    // Most parts that are not the last one are known by the run behind them.
    if (*platform::scan::FindFirst(pattern, platform::scan::EitherOf(0, anyRun)) != 0) return 0;
    std::size_t count = 0;
    while (IsPlain(pattern[count], escape) || (pattern[count] == anyOne && anyOne != escape)) ++count;
    return pattern[count] == 0 ? count : 0;
}

}  // namespace Torvo::like
