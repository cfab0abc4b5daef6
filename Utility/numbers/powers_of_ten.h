// Powers of ten, correctly rounded. The runtimes' own pow differs in the last bit from system to system, even where the
// power is a number of few digits.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// 10 to the given power; 0 and infinity beyond what a double holds.
double PowerOfTen(int64 exponent);
// The same for any exponent; one that is not whole goes through the runtime's pow.
double PowerOfTen(double exponent);

}  // namespace Torvo
