// The count in the names of temporary files.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// How many counts there are before the count begins again at 0.
inline constexpr uint32 TempSerialLimit = 1000000;

// The present count; the serial moves on to the next.
inline uint32 TakeTempSerial(uint32* serial) {
    const uint32 taken = *serial;
    *serial = taken + 1 < TempSerialLimit ? taken + 1 : 0;
    return taken;
}

}  // namespace Torvo
