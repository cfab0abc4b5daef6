// Short texts at one go: whether a text is short, and where two texts first differ.
//
// Texts that are compared are mostly names. Looking at the first 24 units of both with a few vector instructions tells
// what takes two searches for terminators and a walk otherwise. The loads reach beyond the terminator, never beyond the
// page that the text lies in; a sanitizer cannot know that, so under one there are plain loops.
#pragma once

#include <Utility/platform/text_scan.h>

#include <cstring>

namespace Torvo {

// Texts with fewer units are short.
inline constexpr uint32 ShortTextUnits = 24;

#if defined(TORVO_PLAIN_LOOPS)

inline bool CanReadAhead(const wchar16* /*text*/) {
    return true;
}

inline bool IsShortText(const wchar16* text) {
    return platform::scan::LengthWithin(text, ShortTextUnits) < ShortTextUnits;
}

inline uint32 FirstDifference(const wchar16* a, const wchar16* b) {
    return static_cast<uint32>(platform::scan::FirstDifferenceByUnit<false>(a, b, 0, ShortTextUnits));
}

inline uint32 UnitAndNext(const wchar16* text) {
    return *text == 0 ? 0 : uint32{*text} | uint32{text[1]} << 16;
}

#else

// Whether 24 units from here on, and one more, can be loaded, whatever the text's length.
inline bool CanReadAhead(const wchar16* text) {
    return platform::scan::CanRead(text, (ShortTextUnits + 1) * sizeof(wchar16));
}

// Whether the text has fewer than 24 units. CanReadAhead must hold.
inline bool IsShortText(const wchar16* text) {
    using namespace platform::scan;
    __m128i ends = _mm_setzero_si128();
    for (uint32 at = 0; at < ShortTextUnits; at += BlockUnits) {
        ends = _mm_or_si128(ends, _mm_cmpeq_epi16(LoadAny(text + at), _mm_setzero_si128()));
    }
    return Mask(ends) != 0;
}

// The first index at which the two differ or both end, 24 if that lies behind. CanReadAhead must hold for both.
inline uint32 FirstDifference(const wchar16* a, const wchar16* b) {
    using namespace platform::scan;
    for (uint32 at = 0; at < ShortTextUnits; at += BlockUnits) {
        const uint32 stops = Stops<false>(a + at, b + at);
        if (stops != 0) return at + FirstUnit(stops);
    }
    return ShortTextUnits;
}

// One of the first 24 units, and in the upper half the one behind it, which is any where the unit is the terminator.
// CanReadAhead must hold for the text.
inline uint32 UnitAndNext(const wchar16* text) {
    uint32 both;
    std::memcpy(&both, text, sizeof both);
    return both;
}

#endif

}  // namespace Torvo
