// A critical section with a life of its own. Entered and left directly on the member at the point of use.
#pragma once

#include <Utility/platform/threads.h>

namespace Torvo {

class ZUGuard {
public:
    ZUGuard() { platform::InitializeCriticalSection(&section); }
    virtual ~ZUGuard() { platform::DeleteCriticalSection(&section); }
    ZUGuard(const ZUGuard&) = delete;
    ZUGuard& operator=(const ZUGuard&) = delete;

    platform::CRITICAL_SECTION section;
};

}  // namespace Torvo
