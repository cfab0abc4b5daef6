// The choice among the entries of a directory.
#pragma once

#include <Utility/platform/files.h>

namespace Torvo {

// Whether an entry has an attribute of the mask. One without any becomes one with FILE_ATTRIBUTE_NORMAL.
inline bool EntryPasses(WIN32_FIND_DATAW* entry, ulong32 mask) {
    if (entry->dwFileAttributes == 0) entry->dwFileAttributes = FILE_ATTRIBUTE_NORMAL;
    return (entry->dwFileAttributes & mask) != 0;
}

}  // namespace Torvo
