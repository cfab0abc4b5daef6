// The collation calls, found at first need.
#pragma once

#include <Utility/platform/collation.h>

namespace Torvo {

// The calls of the ICU libraries, or null where there are none. Nothing is reported, and the next call tries again.
const platform::CollationCalls* LoadCollation();

}  // namespace Torvo
