// Sizes that the string resources share with the rest of the library.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// Room for a resource text: 255 units and the terminator.
inline constexpr uint64 ResourceTextSize = 256;

}  // namespace Torvo
