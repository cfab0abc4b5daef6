// Changes of a text in place that are not of case.

#include <Utility/bounded_copy.h>
#include <Utility/charsets.h>
#include <Utility/platform/path_separator.h>
#include <Utility/platform/runtime.h>
#include <Utility/platform/text.h>
#include <Utility/strings.h>

namespace Torvo {

// The charset is asked for, as in every function that could walk, so that a host's own service sees each of the calls;
// the answer makes no difference.
wchar16* zuStrrev(wchar16* s) {
    system_charset();
    return platform::_wcsrev(s);
}

void concat_backslash(const wchar16* src, wchar16* dst, uint64 size) {
    strcpyn(dst, src, size);
    if (*dst == 0) return;
    wchar16* const end = dst + platform::wcslen(dst);
    const wchar16 last = *platform::CharPrevW(dst, end);
    if (platform::IsPathSeparator(last)) return;
    end[0] = '\\';
    end[1] = 0;
}

}  // namespace Torvo
