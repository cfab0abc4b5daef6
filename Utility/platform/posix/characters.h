// What the Windows tables say of a unit, as rules on Unicode data.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo::platform {

// White space in the sense of iswspace.
bool IsSpace(wchar16 unit);
// The value of a decimal digit in the scripts whose digits the runtime's number readers take, -1 for any other unit.
int DigitValue(wchar16 unit);

}  // namespace Torvo::platform
