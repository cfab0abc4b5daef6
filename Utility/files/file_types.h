// The table of file types.
#pragma once

#include <Utility/file_names.h>

#include <cstddef>

namespace Torvo {

inline constexpr int32 FileTypeCount = 75;
// The units of the longest extension, with its dot.
inline constexpr std::size_t LongestExtension = 5;

// The extension of a type, with its dot; null for a type without one, and for a number that is none.
const wchar16* ExtensionOf(FILETYPE type);
// Whether names of a type are forced to bear its extension; false for a number that is none.
bool ForcesExtension(FILETYPE type);
// The lowest type with that extension, case ignored; ftNone if there is none.
FILETYPE TypeOfExtension(const wchar16* extension);

}  // namespace Torvo
