// The layout of a key text: a collation key that poses as system text.
//
//   bytes 0 to 3   EF BB BF BA, the mark
//   then           the bytes of the key, the last of which is zero
//   then           a zero byte if the number of bytes so far is odd
//   then           a zero unit
#pragma once

#include <Utility/platform/types.h>

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
inline const char* KeyOf(const wchar16* text) {
    return reinterpret_cast<const char*>(text) + sizeof Mark;
}

// Writes the mark and the key to `text`, whose units are zero from there on and enough.
inline void Write(wchar16* text, const uint8* key, uint64 keyBytes) {
    auto* const bytes = reinterpret_cast<uint8*>(text);
    std::memcpy(bytes, Mark, sizeof Mark);
    std::memcpy(bytes + sizeof Mark, key, keyBytes);
}

}  // namespace Torvo::keytext
