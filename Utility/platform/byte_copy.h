// Copies bytes or units that are nearly always few, without the cost of a call.
#pragma once

#include <Utility/platform/types.h>

#include <cstring>

namespace Torvo::platform {

// Copies the first and the last `Size` of `count` bytes, which meet or overlap in the middle.
template <std::size_t Size>
inline void CopyEnds(char* target, const char* source, std::size_t count) {
    char head[Size];
    char tail[Size];
    std::memcpy(head, source, Size);
    std::memcpy(tail, source + count - Size, Size);
    std::memcpy(target, head, Size);
    std::memcpy(target + count - Size, tail, Size);
}

inline constexpr std::size_t FewBytes = 64;

// Copies at most FewBytes by a few moves of a fixed size; the two places do not overlap.
inline void CopyFewBytes(void* to, const void* from, std::size_t count) {
    auto* const target = static_cast<char*>(to);
    const auto* const source = static_cast<const char*>(from);
    if (count >= 32) {
        // Two times two, since no more than 16 bytes are one move.
        CopyEnds<16>(target, source, 32);
        CopyEnds<16>(target + count - 32, source + count - 32, 32);
    } else if (count >= 16) {
        CopyEnds<16>(target, source, count);
    } else if (count >= 8) {
        CopyEnds<8>(target, source, count);
    } else if (count >= 4) {
        CopyEnds<4>(target, source, count);
    } else if (count >= 2) {
        CopyEnds<2>(target, source, count);
    } else if (count == 1) {
        *target = *source;
    }
}

// Copies `count` bytes; the two places do not overlap.
inline void CopyBytes(void* to, const void* from, std::size_t count) {
    if (count > FewBytes) {
        std::memcpy(to, from, count);
    } else {
        CopyFewBytes(to, from, count);
    }
}

// The same for units.
inline void CopyUnits(wchar16* target, const wchar16* source, std::size_t count) {
    CopyBytes(target, source, count * sizeof(wchar16));
}

}  // namespace Torvo::platform
