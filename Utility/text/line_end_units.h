// The two units of which line ends are made.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

inline constexpr wchar16 CR = '\r';
inline constexpr wchar16 LF = '\n';

}  // namespace Torvo
