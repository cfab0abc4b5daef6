// Moving a text inside its own buffer.
#pragma once

#include <Utility/platform/runtime.h>
#include <Utility/platform/types.h>

#include <cstring>

namespace Torvo {

// Moves the text from `from` on, terminator included, down to `to`, which lies not behind it.
inline void MoveTextDown(wchar16* to, const wchar16* from) {
    if (from != to) std::memmove(to, from, (platform::wcslen(from) + 1) * sizeof(wchar16));
}

}  // namespace Torvo
