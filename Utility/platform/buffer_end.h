// The end of a buffer whose size a caller has told.
#pragma once

#include <Utility/platform/types.h>

#include <algorithm>

namespace Torvo::platform {

// Where a buffer of `size` units ends. A size beyond any address space, by which a caller says that there is no limit,
// counts as the largest that an address can be moved by without wrapping around.
template <typename Unit>
Unit* BufferEnd(Unit* buffer, uint64 size) {
    constexpr uint64 most = uint64{1} << 46;
    return buffer + std::min(size, most);
}

}  // namespace Torvo::platform
