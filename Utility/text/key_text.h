// The layout of a key text: a collation key that poses as system text.
//
//   bytes 0 to 3   EF BB BF BA, the mark
//   then           the bytes of the key, the last of which is zero
//   then           a zero byte if the number of bytes so far is odd
//   then           a zero unit
#pragma once

#include <Utility/platform/text_scan.h>
#include <Utility/text/comparison_sign.h>

#include <cstring>

namespace Torvo::keytext {

inline constexpr uint8 Mark[4] = {0xEF, 0xBB, 0xBF, 0xBA};
// What a key text takes besides its key: the mark and the terminator.
inline constexpr uint64 Overhead = sizeof Mark + sizeof(wchar16);

// The units of the key text of a key of `keyBytes` bytes, terminator included.
constexpr uint64 Units(uint64 keyBytes) {
    return (keyBytes + Overhead + 1) / sizeof(wchar16);
}

// Whether `text`, which may be null, begins with the mark, whose four bytes are these two units.
inline bool HasMark(const wchar16* text) {
    return text != nullptr && text[0] == 0xBBEF && text[1] == 0xBABF;
}

// The key in a text that has the mark. A zero byte ends it, that of the terminator at the latest.
inline const uint8* KeyOf(const wchar16* text) {
    return reinterpret_cast<const uint8*>(text) + sizeof Mark;
}

// Compares two keys: -1, 0 or 1. They end at their first zero bytes, and their bytes compare as unsigned ones, just as
// strcmp does it. The keys of most names have less than 48 bytes, which take less time than a call here (see
// <Utility/platform/text_scan.h>).
#if defined(TORVO_PLAIN_LOOPS)

inline int32 CompareKeys(const uint8* a, const uint8* b) {
    return Sign(std::strcmp(reinterpret_cast<const char*>(a), reinterpret_cast<const char*>(b)));
}

#else

// One bit for each of sixteen bytes at which two keys go on alike.
inline uint32 GoesOn(const uint8* a, const uint8* b) {
    const __m128i left = _mm_loadu_si128(reinterpret_cast<const __m128i*>(a));
    const __m128i same = _mm_cmpeq_epi8(left, _mm_loadu_si128(reinterpret_cast<const __m128i*>(b)));
    return platform::scan::Mask(_mm_andnot_si128(_mm_cmpeq_epi8(left, _mm_setzero_si128()), same));
}

// How the first bytes that do not go on alike compare.
inline int32 CompareAt(const uint8* a, const uint8* b, uint32 stops) {
    const int index = std::countr_zero(stops);
    return (a[index] > b[index]) - (a[index] < b[index]);
}

inline int32 CompareKeys(const uint8* a, const uint8* b) {
    using namespace platform::scan;
    if (CanRead(a, 3 * BlockBytes) && CanRead(b, 3 * BlockBytes)) {
        // Two blocks at once, since keys that differ in the second one are as frequent as others.
        const uint32 stops = ~(GoesOn(a, b) | GoesOn(a + BlockBytes, b + BlockBytes) << BlockBytes);
        if (stops != 0) return CompareAt(a, b, stops);
        a += 2 * BlockBytes;
        b += 2 * BlockBytes;
        const uint32 more = GoesOn(a, b) ^ WholeMask;
        if (more != 0) return CompareAt(a, b, more);
    }
    return Sign(std::strcmp(reinterpret_cast<const char*>(a), reinterpret_cast<const char*>(b)));
}

#endif

// Writes the mark and the key to `text`, whose units are zero from there on and enough.
inline void Write(wchar16* text, const uint8* key, uint64 keyBytes) {
    auto* const bytes = reinterpret_cast<uint8*>(text);
    std::memcpy(bytes, Mark, sizeof Mark);
    std::memcpy(bytes + sizeof Mark, key, keyBytes);
}

}  // namespace Torvo::keytext
