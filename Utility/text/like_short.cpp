// The pattern match behind a run, on a short text and a short pattern: both are looked at as a whole.
//
// Of up to 31 units, one bit for each tells whether it is a certain one. So the runs of a pattern are bits, and its
// parts lie between them. A part may stand where the text has its first unit and, as far behind it as it should be, its
// last one; only there the two are compared. Of several places the first one counts (see like_steps.cpp), and for the
// last part the one at the end of the text.

#include <Utility/text/like_match.h>
#include <Utility/text/like_scan.h>

#include <algorithm>
#include <optional>

namespace Torvo::like {

namespace {

// A text has more units if it is not short.
constexpr uint32 mostUnits = 31;

#if defined(TORVO_PLAIN_LOOPS)

constexpr uint32 lanes = 16;

// Units of a text that all stand alone and have a byte.
class ShortText {
public:
    explicit ShortText(const wchar16* text) : text_(text) {
        while (length_ <= mostUnits && text[length_] != 0 && text[length_] <= highestUnit) ++length_;
        isShort_ = length_ <= mostUnits && text[length_] == 0;
    }

    bool IsShort() const { return isShort_; }
    uint32 Length() const { return length_; }
    uint32 Where(wchar16 unit) const {
        uint32 places = 0;
        for (uint32 index = 0; index < length_; ++index) places |= static_cast<uint32>(text_[index] == unit) << index;
        return places;
    }

    static constexpr wchar16 highestUnit = 0xFE;

private:
    const wchar16* text_;
    uint32 length_ = 0;
    bool isShort_ = false;
};

// One bit for each of up to sixteen units that are the same.
uint32 SameUnits(const wchar16* a, const wchar16* b, uint32 count) {
    uint32 same = 0;
    for (uint32 index = 0; index < count; ++index) same |= static_cast<uint32>(a[index] == b[index]) << index;
    return same;
}

#else

class ShortText {
public:
    explicit ShortText(const wchar16* text) {
        // Wherever a part of it is compared, sixteen units are read.
        if (!CanRead(text, 2 * lanes)) return;
        low_ = LoadBytes(text);
        // Units that have no byte became the highest or the lowest one.
        uint32 others = scan::Mask(IsEither(low_));
        if (others == 0) {
            high_ = LoadBytes(text + lanes);
            others = scan::Mask(IsEither(high_)) << lanes;
            if (others == 0) return;
        }
        length_ = static_cast<uint32>(std::countr_zero(others));
        isShort_ = text[length_] == 0;
    }

    bool IsShort() const { return isShort_; }
    uint32 Length() const { return length_; }
    // One bit for each unit that is this one, which has a byte. What lies behind the text may be any.
    uint32 Where(wchar16 unit) const {
        const __m128i wanted = _mm_set1_epi8(static_cast<char>(unit));
        const uint32 low = scan::Mask(_mm_cmpeq_epi8(low_, wanted));
        if (length_ < lanes) return low;
        return low | scan::Mask(_mm_cmpeq_epi8(high_, wanted)) << lanes;
    }

    // The highest byte stands for units that have none.
    static constexpr wchar16 highestUnit = 0xFE;

private:
    // All ones where a byte is the highest or the lowest one.
    static __m128i IsEither(__m128i bytes) {
        const __m128i one = _mm_set1_epi8(1);
        return _mm_cmpeq_epi8(_mm_subs_epu8(_mm_add_epi8(bytes, one), one), _mm_setzero_si128());
    }

    __m128i low_ = _mm_setzero_si128();
    __m128i high_ = _mm_setzero_si128();
    uint32 length_ = 0;
    bool isShort_ = false;
};

// One bit for each of sixteen units that are the same.
uint32 SameUnits(const wchar16* a, const wchar16* b, uint32 /*count*/) {
    const auto same = [=](std::size_t at) { return _mm_cmpeq_epi16(scan::LoadAny(a + at), scan::LoadAny(b + at)); };
    return scan::Mask(_mm_packs_epi16(same(0), same(lanes / 2)));
}

#endif

// The bits from a place on up to another one, which is not ahead of it.
uint32 Bits(uint32 first, uint32 last) {
    return ~uint32{0} << first & ~(~uint32{1} << last);
}

// What stands between two runs, or behind the last one: where in the pattern, and how many units of text it takes.
struct Part {
    uint32 first;
    uint32 end;
    uint32 count;
};

// A pattern that begins with a run.
class ShortPattern {
public:
    ShortPattern(const wchar16* pattern, EscapeUnit escape) : pattern_(pattern), units_(pattern) {
        if (!units_.IsShort()) return;
        const uint32 all = ~(~uint32{0} << units_.Length());
        const bool mayEscape = escape != 0 && escape <= ShortText::highestUnit;
        isKnown_ = !mayEscape || FindEscapes(escape, units_.Where(static_cast<wchar16>(escape)) & all);
        const uint32 standFor = all & ~(escapes_ | escapes_ << 1);
        runs_ = units_.Where(anyRun) & standFor;
        ones_ = units_.Where(anyOne) & standFor;
    }

    // Whether all of its units have a byte, and there is no bad escape.
    bool IsKnown() const { return isKnown_; }
    bool IsEnd(uint32 at) const { return at == units_.Length(); }
    // The part that begins here.
    Part PartAt(uint32 first) const {
        const uint32 end = std::min(first + static_cast<uint32>(std::countr_zero(runs_ >> first)), units_.Length());
        uint32 count = end - first;
        for (uint32 left = escapes_ & ~uint32{0} << first; left != 0; left &= left - 1) {
            count -= static_cast<uint32>(std::countr_zero(left)) < end;
        }
        return {first, end, count};
    }
    bool IsLast(const Part& part) const { return IsEnd(part.end); }

    // Where the part may stand as far as its first and its last unit tell.
    uint32 Places(const ShortText& text, const Part& part) const {
        const uint32 first = part.first + (escapes_ >> part.first & 1);
        const uint32 last = part.end - 1;
        const uint32 places = IsOne(first) ? ~uint32{0} : text.Where(pattern_[first]);
        return part.count == 1 || IsOne(last) ? places : places & text.Where(pattern_[last]) >> (part.count - 1);
    }
    // Whether the part stands here, where the text has as many units.
    bool Stands(const wchar16* text, const Part& part) const {
        for (uint32 first = part.first;; ++first) {
            const uint32 end = std::min(first + static_cast<uint32>(std::countr_zero(escapes_ >> first)), part.end);
            if (!Takes(text, first, end)) return false;
            if (end == part.end) return true;
            text += end - first;
            first = end;
        }
    }

private:
    bool IsOne(uint32 at) const { return (ones_ >> at & 1) != 0; }
    // False if one of them escapes what it must not. `places` are those of the escape character.
    bool FindEscapes(EscapeUnit escape, uint32 places) {
        while (places != 0) {
            const auto at = static_cast<uint32>(std::countr_zero(places));
            const wchar16 unit = pattern_[at + 1];
            if (unit != anyRun && unit != anyOne && unit != escape) return false;
            escapes_ |= uint32{1} << at;
            places &= ~(uint32{3} << at);
        }
        return true;
    }
    // Whether units of the pattern without an escape among them take as many of the text.
    bool Takes(const wchar16* text, uint32 first, uint32 end) const {
        for (; first < end; first += lanes, text += lanes) {
            const uint32 count = std::min<uint32>(end - first, lanes);
            const uint32 taken = SameUnits(text, pattern_ + first, count) | ones_ >> first;
            if ((~taken & Bits(0, count - 1)) != 0) return false;
        }
        return true;
    }

    const wchar16* pattern_;
    ShortText units_;
    uint32 runs_ = 0;
    uint32 ones_ = 0;
    uint32 escapes_ = 0;  // the escape characters themselves
    bool isKnown_ = false;
};

// The first place from `from` on where the part stands; there is room for it at one place at least.
std::optional<uint32> FindPart(const wchar16* start, const ShortText& text, uint32 from, const ShortPattern& pattern,
                               const Part& part) {
    uint32 places = pattern.Places(text, part) & Bits(from, text.Length() - part.count);
    for (; places != 0; places &= places - 1) {
        const auto place = static_cast<uint32>(std::countr_zero(places));
        // Two units have been compared already.
        if (part.count <= 2 || pattern.Stands(start + place, part)) return place;
    }
    return std::nullopt;
}

// Nothing where it takes a closer look: one of the two is not short, or something in it joins or has no byte, or there
// is a bad escape.
std::optional<bool> MatchShort(const wchar16* start, const wchar16* begin, EscapeUnit escape) {
    const ShortText text(start);
    if (!text.IsShort()) return std::nullopt;
    const ShortPattern pattern(begin, escape);
    if (!pattern.IsKnown()) return std::nullopt;
    uint32 from = 0;
    // Behind a run each time.
    for (uint32 at = 1; !pattern.IsEnd(at);) {
        const Part part = pattern.PartAt(at);
        // Between two runs there may be nothing, but not where the text has ended.
        if (from + std::max<uint32>(part.count, 1) > text.Length()) return false;
        if (pattern.IsLast(part)) return pattern.Stands(start + text.Length() - part.count, part);
        if (part.count != 0) {
            const std::optional<uint32> place = FindPart(start, text, from, pattern, part);
            if (!place) return false;
            from = *place + part.count;
        }
        at = part.end + 1;
    }
    return true;
}

}  // namespace

bool MatchRun(const wchar16* text, const wchar16* pattern, EscapeUnit escape, bool* match) {
    const std::optional<bool> answer = pattern[1] == 0 ? true : MatchShort(text, pattern, escape);
    if (!answer) return MatchSteps(text, pattern, escape, match);
    *match = *answer;
    return true;
}

}  // namespace Torvo::like
