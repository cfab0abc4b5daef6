// What a file holds whose descriptor is open, in a way that nobody else may open it.
#pragma once

#include <string>

namespace Torvo::test {

// All bytes behind a descriptor of the runtime's, whose position is moved.
std::string BytesOfDescriptor(int descriptor);
// Closes one that nobody owns any more.
void CloseDescriptor(int descriptor);

}  // namespace Torvo::test
