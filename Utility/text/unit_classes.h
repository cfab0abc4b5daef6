// The two classes of units that trimming and tokenizing know.
#pragma once

#include <Utility/bounded_copy.h>

namespace Torvo {

// Tab, line feed, form feed, carriage return and space.
inline bool IsWhite(wchar16 c) {
    return c == 9 || c == 10 || c == 12 || c == 13 || c == 32;
}

// White, or refused by zuIsPrint: a control below 128. The terminator is blank too.
inline bool IsBlank(wchar16 c) {
    return IsWhite(c) || zuIsPrint(c) == 0;
}

}  // namespace Torvo
