#include <Utility/frame/new_block.h>
#include <Utility/platform/runtime.h>
#include <Utility/text/line_end_units.h>
#include <Utility/text_tools.h>

#include <algorithm>

namespace Torvo {

namespace {

struct UnitPair {
    wchar16 first;
    wchar16 second;
};

constexpr UnitPair lineEnd = {CR, LF};
constexpr UnitPair escaped = {'\\', 'n'};

// Copies `length` units, with `to` for each `from`.
void CopyWithPairs(wchar16* dst, const wchar16* src, uint64 length, UnitPair from, UnitPair to) {
    uint64 at = 0;
    while (at < length) {
        const bool isPair = length - at > 1 && src[at] == from.first && src[at + 1] == from.second;
        dst[at] = isPair ? to.first : src[at];
        if (isPair) dst[at + 1] = to.second;
        at += isPair ? 2 : 1;
    }
}

}  // namespace

void FilterNewline(wchar16* dst, const wchar16* src, uint64 length, bool decode) {
    if (dst == nullptr || src == nullptr) return;
    if (decode) {
        CopyWithPairs(dst, src, length, escaped, lineEnd);
    } else {
        CopyWithPairs(dst, src, length, lineEnd, escaped);
    }
}

uint64 TextAddCrs(wchar16** out, const wchar16* text, uint64 length) {
    if (out == nullptr) return 0;
    *out = nullptr;
    if (text == nullptr && length > 0) return 0;
    const wchar16* const last = text + length;
    const auto added = static_cast<uint64>(std::count(text, last, LF));
    wchar16* to = NewBlock<wchar16>(added + length + 1);
    *out = to;
    if (to == nullptr) return 0;
    for (; text != last; ++text) {
        if (*text == LF) *to++ = CR;
        *to++ = *text;
    }
    *to = 0;
    return added + length;
}

uint64 TextRemoveCrs(wchar16* s) {
    if (s == nullptr) return 0;
    const wchar16* from = platform::wcschr(s, CR);
    if (from == nullptr) return platform::wcslen(s);
    wchar16* to = const_cast<wchar16*>(from);
    for (; *from != 0; ++from) {
        if (from[0] != CR || from[1] != LF) *to++ = *from;
    }
    *to = 0;
    return static_cast<uint64>(to - s);
}

}  // namespace Torvo
