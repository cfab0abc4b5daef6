// What separates the components of a path in the Windows form.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo::platform {

inline bool IsPathSeparator(wchar16 unit) {
    return unit == '\\' || unit == '/';
}

}  // namespace Torvo::platform
