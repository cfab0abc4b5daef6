#include <Utility/bounded_copy.h>

#include <Utility/platform/runtime.h>
#include <Utility/text/text_moves.h>
#include <Utility/text/unit_classes.h>

#include <algorithm>
#include <cstring>

namespace Torvo {

wchar16* strcpyn(wchar16* dst, const wchar16* src, uint64 size) {
    if (size == 0) return dst;
    const uint64 length = platform::wcsnlen(src, size - 1);
    std::memmove(dst, src, length * sizeof(wchar16));
    std::fill(dst + length, dst + size, wchar16{0});
    return dst;
}

uint64 ltrim(wchar16* s) {
    const wchar16* first = s;
    while (*first != 0 && IsBlank(*first)) ++first;
    const auto removed = static_cast<uint64>(first - s);
    if (*first != 0) MoveTextDown(s, first);
    return removed;
}

uint64 ltrim2(wchar16* s) {
    const wchar16* first = s;
    while (*first == ' ') ++first;
    MoveTextDown(s, first);
    return static_cast<uint64>(first - s);
}

uint64 rtrim(wchar16* s) {
    uint64 length = platform::wcslen(s);
    while (length > 0 && IsBlank(s[length - 1])) s[--length] = 0;
    return length;
}

int32 zuIsPrint(wchar16 c) {
    return c >= 128 || platform::iswprint(c) ? 1 : 0;
}

}  // namespace Torvo
