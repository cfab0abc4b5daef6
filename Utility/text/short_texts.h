// Two short texts at one go: whether both are short, and where they first differ.
//
// Texts that are compared are mostly names. Looking at the first 24 units of both with a few vector instructions tells
// what takes two searches for terminators and a walk otherwise. The loads reach beyond the terminator, never beyond the
// page that the text lies in; a sanitizer cannot know that, so under one there are plain loops.
#pragma once

#include <Utility/platform/types.h>

#include <bit>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define TORVO_PLAIN_SHORT_TEXTS 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
#define TORVO_PLAIN_SHORT_TEXTS 1
#endif
#endif

#if !defined(TORVO_PLAIN_SHORT_TEXTS)
#include <emmintrin.h>
#endif

namespace Torvo {

// Texts with fewer units are short.
inline constexpr uint32 ShortTextUnits = 24;

#if defined(TORVO_PLAIN_SHORT_TEXTS)

inline bool IsShortText(const wchar16* text) {
    uint32 units = 0;
    while (units < ShortTextUnits && text[units] != 0) ++units;
    return units < ShortTextUnits;
}

inline bool AreShortTexts(const wchar16* a, const wchar16* b) {
    return IsShortText(a) && IsShortText(b);
}

inline uint32 ShortTextsDifference(const wchar16* a, const wchar16* b) {
    uint32 index = 0;
    while (a[index] == b[index] && a[index] != 0) ++index;
    return index;
}

#else

namespace shorttexts {

inline constexpr uint32 BlockUnits = 8;

inline __m128i Block(const wchar16* text, uint32 number) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(text) + number);
}

// Two bits per unit of a block of all-ones and all-zeros.
inline uint32 Mask(__m128i block) {
    return static_cast<uint32>(_mm_movemask_epi8(block));
}

inline bool LiesInOnePage(const wchar16* text) {
    constexpr std::uintptr_t pageBytes = 4096;
    return reinterpret_cast<std::uintptr_t>(text) % pageBytes <= pageBytes - ShortTextUnits * sizeof(wchar16);
}

inline bool HasEnd(const wchar16* text) {
    const __m128i zero = _mm_setzero_si128();
    const auto ends = [&](uint32 number) { return _mm_cmpeq_epi16(Block(text, number), zero); };
    return Mask(_mm_or_si128(_mm_or_si128(ends(0), ends(1)), ends(2))) != 0;
}

}  // namespace shorttexts

// Whether both texts are short and lie where they can be looked at in this way.
inline bool AreShortTexts(const wchar16* a, const wchar16* b) {
    using namespace shorttexts;
    return LiesInOnePage(a) && LiesInOnePage(b) && HasEnd(a) && HasEnd(b);
}

// The first index at which two short texts differ, or that of the terminator of both.
inline uint32 ShortTextsDifference(const wchar16* a, const wchar16* b) {
    using namespace shorttexts;
    for (uint32 number = 0;; ++number) {
        const __m128i left = Block(a, number);
        const __m128i same = _mm_cmpeq_epi16(left, Block(b, number));
        const uint32 goesOn = Mask(_mm_andnot_si128(_mm_cmpeq_epi16(left, _mm_setzero_si128()), same));
        if (goesOn != 0xFFFF) return number * BlockUnits + static_cast<uint32>(std::countr_one(goesOn)) / 2;
    }
}

#endif

}  // namespace Torvo
