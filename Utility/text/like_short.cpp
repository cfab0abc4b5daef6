// The pattern match behind a run, on a short text: all places are tried at once.
//
// Of a text of up to 31 units, one bit for each place tells whether the part of the pattern that is read can still
// stand there. Each element of the part keeps the places behind which it finds what it takes, which one comparison of
// all units tells. Of several that are left at its
// end the first one counts (see like_steps.cpp).

#include <Utility/text/like_match.h>
#include <Utility/text/like_scan.h>

namespace Torvo::like {

namespace {

#if defined(TORVO_PLAIN_LOOPS)

// Units of a text that all stand alone and have a byte.
class ShortText {
public:
    explicit ShortText(const wchar16* text) : text_(text) {
        while (length_ < mostUnits && text[length_] != 0 && text[length_] <= highestUnit) ++length_;
        isShort_ = length_ < mostUnits && text[length_] == 0;
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
    static constexpr uint32 mostUnits = 32;

    const wchar16* text_;
    uint32 length_ = 0;
    bool isShort_ = false;
};

#else

class ShortText {
public:
    explicit ShortText(const wchar16* text) {
        if (!CanRead(text, lanes)) return;
        low_ = LoadBytes(text);
        high_ = LoadBytes(text + lanes);
        // Units that have no byte became the highest or the lowest one.
        const uint32 others = scan::Mask(IsEither(low_)) | scan::Mask(IsEither(high_)) << lanes;
        if (others == 0) return;
        length_ = static_cast<uint32>(std::countr_zero(others));
        isShort_ = text[length_] == 0;
    }

    bool IsShort() const { return isShort_; }
    uint32 Length() const { return length_; }
    // One bit for each unit that is this one, of those that have a byte.
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

    __m128i low_;
    __m128i high_;
    uint32 length_ = 0;
    bool isShort_ = false;
};

#endif

enum class Answer { No, Yes, Unknown };

// The places of a part that is read, and how much of the part has been taken there. Ahead of a run it is the start.
class Places {
public:
    explicit Places(const ShortText& text) : text_(text), all_((uint32{1} << text.Length()) - 1) {}

    // Whether any is left.
    bool IsAny() const { return places_ != 0; }
    // Takes a unit, or any.
    void Take(wchar16 unit) { Keep(text_.Where(unit)); }
    void TakeAny() { Keep(all_); }
    // Begins with the next part, behind the first place where the last one stands.
    void Next() {
        places_ = all_ & ~uint32{0} << (static_cast<uint32>(std::countr_zero(places_)) + taken_);
        taken_ = 0;
    }
    // Whether one of them ends where the text does.
    bool IsEnd() const { return (places_ >> (text_.Length() - taken_) & 1) != 0; }

private:
    void Keep(uint32 behind) { places_ &= behind >> taken_++; }

    const ShortText& text_;
    const uint32 all_;
    uint32 places_ = 1;
    uint32 taken_ = 0;
};

// Unknown where it takes a closer look: the text is not short, or the pattern has something that joins or has no byte,
// or a bad escape.
Answer MatchShort(const wchar16* start, const wchar16* pattern, EscapeUnit escape) {
    const ShortText text(start);
    if (!text.IsShort()) return Answer::Unknown;
    Places places(text);
    for (; places.IsAny(); ++pattern) {
        wchar16 unit = *pattern;
        if (unit == 0) return places.IsEnd() ? Answer::Yes : Answer::No;
        // Also where it is the escape character: what joins the unit before it escapes nothing.
        if (unit > ShortText::highestUnit) return Answer::Unknown;
        if (unit == escape) {
            unit = *++pattern;
            if (unit != anyRun && unit != anyOne && unit != escape) return Answer::Unknown;
        } else if (unit == anyRun) {
            if (pattern[1] == 0) return Answer::Yes;
            // What joins the run stands for nothing, also at the end of the pattern.
            if (Joins(pattern[1])) return Answer::Unknown;
            places.Next();
            continue;
        } else if (unit == anyOne) {
            places.TakeAny();
            continue;
        }
        places.Take(unit);
    }
    return Answer::No;
}

}  // namespace

bool MatchRun(const wchar16* text, const wchar16* pattern, EscapeUnit escape, bool* match) {
    const Answer answer = pattern[1] == 0 ? Answer::Yes : MatchShort(text, pattern, escape);
    if (answer == Answer::Unknown) return MatchSteps(text, pattern, escape, match);
    *match = answer == Answer::Yes;
    return true;
}

}  // namespace Torvo::like
