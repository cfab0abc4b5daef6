// Time spans from text, as the numbers from which they are made.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// The two halves of the literal in a text that is an optional sign and at least fourteen digits. False for any other
// text, and when the days do not fit.
bool ReadSpanLiteral(const wchar16* text, int32* days, int64* time);

// The seconds in a text of days and a time of day; see CreateTimeSpanFromString. False for any other text.
bool ReadSpanSeconds(const wchar16* text, double* seconds);

}  // namespace Torvo
