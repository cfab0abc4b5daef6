// The properties of the character sets, as data.
#pragma once

#include <Utility/charsets.h>

namespace Torvo {

inline constexpr int32 charsetCount = 59;

struct sCharsetEntry {
    const wchar16* name;
    bool isDBCS;
    uint8 unknownCode;
    const wchar16* newline;
};

// Indexed by ZUCHARSET.
extern const sCharsetEntry charsetTable[charsetCount];
extern const int32 charsetCodePages[charsetCount];

// Whether the value is the number of a set, 0 to 58.
constexpr bool IsCharset(ZUCHARSET cs) {
    return static_cast<uint32>(cs) < static_cast<uint32>(charsetCount);
}

}  // namespace Torvo
