// The fast lane of the fixed form: the numbers that files are full of, printed by integer arithmetic alone.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// The most places behind the point that the lane prints, and the units that a text of it takes at most.
inline constexpr int32 MostFixedPlaces = 17;
inline constexpr uint64 FixedTextRoom = 1 + 20 + 1 + MostFixedPlaces;

// Prints a finite `value` with `places` digits behind the point as "%.*f" does, exactly, ties to even. Where the text
// ends, or null if the number is not for the lane: one of 2^64 or more, or with more than MostFixedPlaces places.
char* PrintFixed(double value, int32 places, char* text);

}  // namespace Torvo
