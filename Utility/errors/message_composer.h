// Fills the parameters into a message format.
#pragma once

#include <Utility/platform/types.h>

#include <string_view>

namespace Torvo {

// Appends what `format` says to `message`: "^0" and "^1" give the parameters, "^^" a caret. Ends at the format's end,
// at a caret before anything else, or as soon as `message` has `limit` units, though a parameter is never cut.
void ComposeMessage(wstring16* message, const wchar16* format, std::basic_string_view<wchar16> param0,
                    std::basic_string_view<wchar16> param1, uint64 limit);

}  // namespace Torvo
