// Copies a text that is nearly always short, without the cost of a call.
#pragma once

#include <Utility/platform/types.h>

#include <cstring>
#include <type_traits>

namespace Torvo::platform {

// Copies `count` units; the two places do not overlap. Up to 16 units are copied by two moves of a fixed size, which
// meet or overlap in the middle.
inline void CopyUnits(wchar16* target, const wchar16* source, std::size_t count) {
    const auto copyEnds = [=]<std::size_t Size>(std::integral_constant<std::size_t, Size>) {
        unsigned char head[Size * sizeof(wchar16)];
        unsigned char tail[Size * sizeof(wchar16)];
        std::memcpy(head, source, sizeof head);
        std::memcpy(tail, source + count - Size, sizeof tail);
        std::memcpy(target, head, sizeof head);
        std::memcpy(target + count - Size, tail, sizeof tail);
    };
    if (count > 16) {
        std::memcpy(target, source, count * sizeof(wchar16));
    } else if (count >= 8) {
        copyEnds(std::integral_constant<std::size_t, 8>());
    } else if (count >= 4) {
        copyEnds(std::integral_constant<std::size_t, 4>());
    } else if (count >= 2) {
        copyEnds(std::integral_constant<std::size_t, 2>());
    } else if (count == 1) {
        *target = *source;
    }
}

}  // namespace Torvo::platform
