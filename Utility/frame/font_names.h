// The names of the default rotatable font.
#pragma once

#include <Utility/resources.h>

namespace Torvo {

inline constexpr int32 FontNameRows = 42;

// A row per system charset, under the charset's number + 1, and the row of id 0 that ends the table.
extern cStringTable::sStringTable fontNames[FontNameRows];

}  // namespace Torvo
