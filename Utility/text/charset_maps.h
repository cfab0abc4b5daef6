// The byte tables of the character sets: what each of the 256 bytes of a set means.
#pragma once

#include <Utility/charsets.h>
#include <Utility/text/charset_table.h>

#include <stdexcept>
#include <string_view>

namespace Torvo {

// An entry below this is the UTF-16 unit of the byte. Any other means that the byte has no mapping; some pages have
// private-use values and presentation forms there, which count as none too.
inline constexpr uint16 firstUnmapped = 0xF000;

struct sCharsetMap {
    uint16 entries[256];
};

// Reads a map written as 256 entries of four hexadecimal digits, or four dots for no mapping, with a blank after each
// but the last. At compile time: an entry that cannot be read does not compile.
consteval sCharsetMap ParseCharsetMap(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    if (text.size() != 256 * 5 - 1) throw std::invalid_argument("256 entries");
    sCharsetMap map{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        const std::string_view entry = text.substr(byte * 5, 4);
        if (entry == "....") {
            map.entries[byte] = firstUnmapped;
            continue;
        }
        uint32 unit = 0;
        for (const char digit : entry) {
            const std::size_t value = digits.find(digit);
            if (value == std::string_view::npos) throw std::invalid_argument("a hexadecimal digit");
            unit = unit * 16 + static_cast<uint32>(value);
        }
        map.entries[byte] = static_cast<uint16>(unit);
    }
    return map;
}

// The 256 entries of each set, indexed by ZUCHARSET; null for a set without a byte table.
extern const uint16* const sCharsetMapTable[charsetCount];

}  // namespace Torvo
