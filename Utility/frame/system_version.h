// What version the running system is.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// Whether the system's version is at least major.minor without a service pack.
bool SystemIsAtLeast(uint32 major, uint32 minor);
// Whether it is a workstation.
bool SystemIsWorkstation();

}  // namespace Torvo
