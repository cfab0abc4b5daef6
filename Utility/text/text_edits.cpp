// Bounded searches and edits in place.

#include <Utility/platform/runtime.h>
#include <Utility/text/byte_walk.h>
#include <Utility/text/next_character.h>
#include <Utility/text/unit_classes.h>
#include <Utility/text_tools.h>

#include <algorithm>

namespace Torvo {

namespace {

// A byte of 128 or above is never blank, whatever its page makes of it.
bool IsBlankByte(char byte) {
    const auto unit = static_cast<unsigned char>(byte);
    return unit < 128 && IsBlank(unit);
}

}  // namespace

// Counted in units and not by an end pointer, so that any `n` will do.
wchar16* strnchr(const wchar16* s, wchar16 c, uint64 n) {
    if (s == nullptr) return nullptr;
    const wchar16* p = s;
    const auto passed = [s, &p] { return static_cast<uint64>(p - s); };
    while (passed() < n && *p != 0 && *p != c) p = NextCharacter(p);
    const bool isFound = passed() > n || (passed() < n && *p != 0);
    return isFound ? const_cast<wchar16*>(p) : nullptr;
}

const wchar16* skipwhite(const wchar16* s) {
    if (s == nullptr) return nullptr;
    while (IsWhite(*s)) ++s;
    return *s != 0 ? s : nullptr;
}

void* memrev(void* p, uint64 n) {
    if (p == nullptr) return nullptr;
    auto* const bytes = static_cast<unsigned char*>(p);
    std::reverse(bytes, bytes + n);
    return p;
}

void zuCharReplace(wchar16* s, const wchar16* set, wchar16 c) {
    if (s == nullptr || set == nullptr) return;
    while ((s = platform::wcspbrk(s, set)) != nullptr) *s++ = c;
}

// Where a character ends is found before its first unit changes.
void TextReplaceChar(wchar16* s, wchar16 from, wchar16 to) {
    if (s == nullptr) return;
    while (*s != 0) {
        wchar16* const next = const_cast<wchar16*>(NextCharacter(s));
        if (*s == from) *s = to;
        s = next;
    }
}

uint64 rtrimA(char* s, int cs) {
    if (s == nullptr) return 0;
    char* end = s;  // behind the last character that is not blank
    for (char* p = s; *p != 0;) {
        const bool isBlank = IsBlankByte(*p);
        p = CharsetNextChar(p, cs);
        if (!isBlank) end = p;
    }
    *end = 0;
    return static_cast<uint64>(end - s);
}

}  // namespace Torvo
