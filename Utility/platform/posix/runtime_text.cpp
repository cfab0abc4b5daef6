#include <Utility/platform/runtime.h>

#include <cwctype>

namespace Torvo::platform {

std::size_t wcslen(const wchar16* text) {
    const wchar16* end = text;
    while (*end != 0) ++end;
    return static_cast<std::size_t>(end - text);
}

bool iswprint(wchar16 unit) {
    return std::iswprint(unit) != 0;
}

}  // namespace Torvo::platform
