// Finding one's way in the text of a path.
#pragma once

#include <Utility/platform/path_separator.h>
#include <Utility/platform/runtime.h>
#include <Utility/platform/types.h>

namespace Torvo {

using platform::IsPathSeparator;

// The start of the last component: the place behind the last separator or colon. No such character is ever part of a
// character of several units, so nothing needs to be walked.
template <typename Unit>
Unit* LastComponent(Unit* path) {
    Unit* component = path;
    for (Unit* unit = path; *unit != 0; ++unit) {
        if (IsPathSeparator(*unit) || *unit == ':') component = unit + 1;
    }
    return component;
}

// Copies as much of a path as fits into a buffer of `size` units with its terminator, and touches nothing behind that.
// Whether the whole path fitted. The two may overlap.
bool CopyPath(const wchar16* source, wchar16* target, uint64 size);
// The same behind a path that the buffer holds already.
bool AppendPath(const wchar16* more, wchar16* target, uint64 size);

}  // namespace Torvo
