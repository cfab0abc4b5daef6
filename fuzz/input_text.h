// A fuzzer's input, read as text.
#pragma once

#include <Utility/platform/types.h>

#include <cstddef>
#include <vector>

namespace Torvo::fuzz {

// Terminated text of units of two bytes, or of one where the text is to be mostly ASCII. There is no terminator inside,
// and the block has exactly the size of the text, so that a unit too far is seen.
inline std::vector<wchar16> TextOf(const uint8* data, std::size_t size, bool wide) {
    const std::size_t step = wide ? 2 : 1;
    std::vector<wchar16> units;
    for (std::size_t at = 0; at + step <= size; at += step) {
        const auto unit = static_cast<wchar16>(wide ? data[at] | data[at + 1] << 8 : data[at]);
        if (unit != 0) units.push_back(unit);
    }
    units.push_back(0);
    units.shrink_to_fit();
    return units;
}

}  // namespace Torvo::fuzz
