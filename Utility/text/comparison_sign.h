// What a comparison answers.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// -1, 0 or 1.
inline int32 Sign(int difference) {
    return (difference > 0) - (difference < 0);
}

}  // namespace Torvo
