// What the Windows tables say of a unit, as rules on Unicode data.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo::platform {

// The other case of a unit where the two lead to each other, else the unit itself: the case tables of Windows hold only
// such pairs.
wchar16 LowerCaseOf(wchar16 unit);
wchar16 UpperCaseOf(wchar16 unit);
// White space in the sense of iswspace.
bool IsSpace(wchar16 unit);
// The value of a decimal digit in the scripts whose digits the runtime's number readers take, -1 for any other unit.
int DigitValue(wchar16 unit);

}  // namespace Torvo::platform
