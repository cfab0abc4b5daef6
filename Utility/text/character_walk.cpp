#include <Utility/text/character_walk.h>

#include <Utility/platform/runtime.h>
#include <Utility/platform/text.h>

namespace Torvo::character_walk {

namespace {

wchar16* Writable(const wchar16* text) {
    return const_cast<wchar16*>(text);
}

// What Strchr searches for: the low byte, extended by its sign. Kept from a time when text was made of bytes.
wchar16 Narrowed(wchar16 c) {
    const int low = c & 0xFF;
    return static_cast<wchar16>(low < 0x80 ? low : low | 0xFF00);
}

// The first character, from `s` on, that begins with `unit`, or the terminator.
const wchar16* FindUnit(const wchar16* s, wchar16 unit) {
    while (*s != 0 && *s != unit) s = platform::CharNextW(s);
    return s;
}

bool IsInSet(wchar16 unit, const wchar16* set) {
    return *FindUnit(set, unit) != 0;
}

// The first character, from `s` on, that is in the set or is not, as `wanted` says; else the terminator.
const wchar16* FindMember(const wchar16* s, const wchar16* set, bool wanted) {
    while (*s != 0 && IsInSet(*s, set) != wanted) s = platform::CharNextW(s);
    return s;
}

}  // namespace

uint64 Length(const wchar16* s) {
    uint64 count = 0;
    for (; *s != 0; s = platform::CharNextW(s)) ++count;
    return count;
}

wchar16* Strchr(const wchar16* s, wchar16 c) {
    const wchar16 wanted = Narrowed(c);
    const wchar16* const found = FindUnit(s, wanted);
    return *found == wanted ? Writable(found) : nullptr;
}

wchar16* Strrchr(const wchar16* s, wchar16 c) {
    const wchar16* last = nullptr;
    for (; *s != 0; s = platform::CharNextW(s)) {
        if (*s == c) last = s;
    }
    return Writable(c == 0 ? s : last);
}

wchar16* Strstr(const wchar16* s, const wchar16* sub) {
    const uint64 length = platform::wcslen(sub);
    if (length == 0) return Writable(s);
    // A first unit whose narrowed form is 0 leads to the terminator, where no text but the empty one is found.
    for (;; s = platform::CharNextW(s)) {
        s = Strchr(s, *sub);
        if (s == nullptr || *s == 0) return nullptr;
        if (platform::wcsncmp(s, sub, length) == 0) return Writable(s);
    }
}

wchar16* Strpbrk(const wchar16* s, const wchar16* set) {
    const wchar16* const found = FindMember(s, set, true);
    return *found != 0 ? Writable(found) : nullptr;
}

uint64 Strspn(const wchar16* s, const wchar16* set) {
    return static_cast<uint64>(FindMember(s, set, false) - s);
}

uint64 Strcspn(const wchar16* s, const wchar16* set) {
    return static_cast<uint64>(FindMember(s, set, true) - s);
}

wchar16* LastChar(const wchar16* s) {
    const wchar16* last = s;
    for (; *s != 0; s = platform::CharNextW(s)) last = s;
    return Writable(last);
}

wchar16* Strtok(wchar16* s, const wchar16* delimiters, wchar16** context) {
    static constexpr wchar16 nothing[] = ZUTEXT("");
    if (context == nullptr) return nullptr;  // nowhere to keep the place; such a caller has never met a walk
    wchar16* token = s != nullptr ? s : *context;
    if (token == nullptr) return nullptr;  // a first call without a text
    token += Strspn(token, delimiters);
    if (*token == 0) {
        *context = Writable(nothing);  // read, but never written to: it ends at once
        return nullptr;
    }
    wchar16* end = token + Strcspn(token, delimiters);
    if (*end != 0) *end++ = 0;
    *context = end;
    return token;
}

}  // namespace Torvo::character_walk
