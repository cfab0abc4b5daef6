// Sixteen bytes or units at a time, with the vector instructions that every x86-64 has.
#pragma once

#include <Utility/platform/types.h>

#include <emmintrin.h>

#include "code_page_tables.h"

namespace Torvo::platform {

inline constexpr std::size_t Lanes = 16;
inline constexpr std::ptrdiff_t LaneCount = Lanes;  // for the distance between two places

inline __m128i LoadBytes(const uint8* text) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
}

// One bit per byte, set where the byte is 80 or above.
inline uint32 HighBytes(__m128i bytes) {
    return static_cast<uint32>(_mm_movemask_epi8(bytes));
}

// Sixteen bytes as units of the same numbers.
inline void StoreWidened(wchar16* target, __m128i bytes) {
    const __m128i zero = _mm_setzero_si128();
    _mm_storeu_si128(reinterpret_cast<__m128i*>(target), _mm_unpacklo_epi8(bytes, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(target + Lanes / 2), _mm_unpackhi_epi8(bytes, zero));
}

struct UnitLanes {
    __m128i low, high;
};

inline UnitLanes LoadUnits(const wchar16* text) {
    return {_mm_loadu_si128(reinterpret_cast<const __m128i*>(text)),
            _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + Lanes / 2))};
}

// Sixteen units below 100 as bytes of the same numbers; anything above becomes some byte.
inline void StoreNarrowed(uint8* target, UnitLanes units) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(target), _mm_packus_epi16(units.low, units.high));
}

// One bit per unit, set where the unit is 80 or above.
inline uint32 NonAscii(UnitLanes units) {
    const __m128i high = _mm_set1_epi16(static_cast<short>(0xFF80));
    const __m128i zero = _mm_setzero_si128();
    const __m128i ascii = _mm_packs_epi16(_mm_cmpeq_epi16(_mm_and_si128(units.low, high), zero),
                                          _mm_cmpeq_epi16(_mm_and_si128(units.high, high), zero));
    return ~HighBytes(ascii) & 0xFFFF;
}

// A row of bytes and units that go with each other, as lanes.
class LinearLanes {
public:
    explicit LinearLanes(LinearBytes row)
        : firstByte_(_mm_set1_epi8(static_cast<char>(row.first))),
          byteSpan_(_mm_set1_epi8(static_cast<char>(row.last - row.first))),
          firstUnit_(_mm_set1_epi16(static_cast<short>(row.unit))),
          unitSpan_(_mm_set1_epi16(static_cast<short>(row.last - row.first))),
          shift_(_mm_set1_epi16(static_cast<short>(row.Shift()))) {}

    // One bit per byte or unit that is neither below 80 nor in the row.
    uint32 Foreign(__m128i bytes) const { return HighBytes(bytes) & ~HighBytes(BytesInRow(bytes)); }
    uint32 Foreign(UnitLanes units) const {
        return NonAscii(units) & ~HighBytes(_mm_packs_epi16(UnitsInRow(units.low), UnitsInRow(units.high)));
    }
    // Sixteen bytes as units, and units as bytes; anything foreign becomes something else.
    void Store(wchar16* target, __m128i bytes) const {
        const __m128i zero = _mm_setzero_si128();
        const __m128i inRow = BytesInRow(bytes);
        const auto shifted = [&](__m128i units, __m128i shifts) {
            return _mm_add_epi16(units, _mm_and_si128(shifts, shift_));
        };
        _mm_storeu_si128(reinterpret_cast<__m128i*>(target),
                         shifted(_mm_unpacklo_epi8(bytes, zero), _mm_unpacklo_epi8(inRow, inRow)));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(target + Lanes / 2),
                         shifted(_mm_unpackhi_epi8(bytes, zero), _mm_unpackhi_epi8(inRow, inRow)));
    }
    void Store(uint8* target, UnitLanes units) const {
        const auto shifted = [&](__m128i lanes) {
            return _mm_sub_epi16(lanes, _mm_and_si128(UnitsInRow(lanes), shift_));
        };
        StoreNarrowed(target, {shifted(units.low), shifted(units.high)});
    }

private:
    __m128i BytesInRow(__m128i bytes) const {
        const __m128i beyond = _mm_subs_epu8(_mm_sub_epi8(bytes, firstByte_), byteSpan_);
        return _mm_cmpeq_epi8(beyond, _mm_setzero_si128());
    }
    __m128i UnitsInRow(__m128i units) const {
        const __m128i beyond = _mm_subs_epu16(_mm_sub_epi16(units, firstUnit_), unitSpan_);
        return _mm_cmpeq_epi16(beyond, _mm_setzero_si128());
    }

    __m128i firstByte_;
    __m128i byteSpan_;
    __m128i firstUnit_;
    __m128i unitSpan_;
    __m128i shift_;
};

// Copies whole vectors while they are ASCII, at most `count` of them in elements; how many elements were copied.
inline std::size_t WidenAscii(const uint8* from, wchar16* to, std::size_t count) {
    std::size_t done = 0;
    for (; count - done >= 2 * Lanes; done += 2 * Lanes) {
        const __m128i first = LoadBytes(from + done);
        const __m128i second = LoadBytes(from + done + Lanes);
        if (HighBytes(_mm_or_si128(first, second)) != 0) break;
        StoreWidened(to + done, first);
        StoreWidened(to + done + Lanes, second);
    }
    for (; count - done >= Lanes; done += Lanes) {
        const __m128i bytes = LoadBytes(from + done);
        if (HighBytes(bytes) != 0) break;
        StoreWidened(to + done, bytes);
    }
    return done;
}

inline std::size_t NarrowAscii(const wchar16* from, uint8* to, std::size_t count) {
    std::size_t done = 0;
    for (; count - done >= 2 * Lanes; done += 2 * Lanes) {
        const UnitLanes first = LoadUnits(from + done);
        const UnitLanes second = LoadUnits(from + done + Lanes);
        const UnitLanes both{_mm_or_si128(first.low, second.low), _mm_or_si128(first.high, second.high)};
        if (NonAscii(both) != 0) break;
        StoreNarrowed(to + done, first);
        StoreNarrowed(to + done + Lanes, second);
    }
    for (; count - done >= Lanes; done += Lanes) {
        const UnitLanes units = LoadUnits(from + done);
        if (NonAscii(units) != 0) break;
        StoreNarrowed(to + done, units);
    }
    return done;
}

}  // namespace Torvo::platform
