// What this process has open at the system.
#pragma once

namespace Torvo::test {

// How many handles of the system there are: a test that ends with as many as it began with has left none open.
int OpenHandles();

}  // namespace Torvo::test
