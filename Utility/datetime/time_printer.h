// Times of day as text: the platform's pictures, and the digits of the fraction that they do not have.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// Writes a time by a picture into `out`, `size` units with the terminator, by the locale of the calling thread; see
// zuTime::ToString. `flags` are those of GetTimeFormatW, `fraction` the ticks within the second, not negative.
bool PrintTime(const SYSTEMTIME& time, int32 fraction, uint32 flags, const wchar16* picture, wchar16* out, int32 size);

}  // namespace Torvo
