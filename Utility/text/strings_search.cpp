#include <Utility/charsets.h>
#include <Utility/platform/runtime.h>
#include <Utility/platform/text.h>
#include <Utility/strings.h>
#include <Utility/text/character_walk.h>

namespace Torvo {

namespace {

// Whether text is walked. Asked once in every call.
bool Walks() {
    return CharsetDBCS(system_charset());
}

}  // namespace

uint64 zuStrLen(const wchar16* s) {
    return Walks() ? character_walk::Length(s) : platform::wcslen(s);
}

wchar16* zuStrchr(const wchar16* s, wchar16 c) {
    return Walks() ? character_walk::Strchr(s, c) : platform::wcschr(s, c);
}

wchar16* zuStrrchr(const wchar16* s, wchar16 c) {
    return Walks() ? character_walk::Strrchr(s, c) : platform::wcsrchr(s, c);
}

wchar16* zuStrstr(const wchar16* s, const wchar16* sub) {
    return Walks() ? character_walk::Strstr(s, sub) : platform::wcsstr(s, sub);
}

wchar16* zuStrpbrk(const wchar16* s, const wchar16* set) {
    return Walks() ? character_walk::Strpbrk(s, set) : platform::wcspbrk(s, set);
}

uint64 zuStrspn(const wchar16* s, const wchar16* set) {
    return Walks() ? character_walk::Strspn(s, set) : platform::wcsspn(s, set);
}

uint64 zuStrcspn(const wchar16* s, const wchar16* set) {
    return Walks() ? character_walk::Strcspn(s, set) : platform::wcscspn(s, set);
}

// Goes on behind a whole character in both cases: a mark that follows a member of the set is never found.
int64 strrcspn(const wchar16* s, const wchar16* set) {
    const bool walks = Walks();
    int64 last = -1;
    for (const wchar16* p = s; *p != 0; p = platform::CharNextW(p)) {
        p += walks ? character_walk::Strcspn(p, set) : platform::wcscspn(p, set);
        if (*p == 0) break;
        last = p - s;
    }
    return last;
}

wchar16* zuLastChar(const wchar16* s) {
    if (Walks()) return character_walk::LastChar(s);
    const uint64 length = platform::wcslen(s);
    return const_cast<wchar16*>(length > 0 ? s + length - 1 : s);
}

wchar16* zuStrtok(wchar16* s, const wchar16* delimiters, wchar16** context) {
    return Walks() ? character_walk::Strtok(s, delimiters, context) : platform::wcstok(s, delimiters);
}

wchar16* zuNextChar(const wchar16* s) {
    return platform::CharNextW(s);
}

wchar16* zuPrevChar(const wchar16* start, const wchar16* p) {
    return platform::CharPrevW(start, p);
}

bool zuIsLeadByte(const wchar16*) {
    return false;
}

wchar16* fast_strchr(const wchar16* s, wchar16 c) {
    return platform::wcschr(s, c);
}

wchar16* fast_strpbrk(const wchar16* s, const wchar16* set) {
    return platform::wcspbrk(s, set);
}

}  // namespace Torvo
