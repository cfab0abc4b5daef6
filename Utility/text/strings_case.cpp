// Case and class of units, and every comparison.

#include <Utility/platform/runtime.h>
#include <Utility/platform/text.h>
#include <Utility/strings.h>

namespace Torvo {

namespace {

constexpr uint64 noLimit = ~uint64{0};

}  // namespace

int32 zuIsAlpha(wchar16 c) {
    return platform::iswalpha(c) ? 1 : 0;
}

int32 zuIsAlphaNum(wchar16 c) {
    return platform::iswalnum(c) ? 1 : 0;
}

int32 zuIsLower(wchar16 c) {
    return platform::IsCharLowerW(c) ? 1 : 0;
}

int32 zuIsUpper(wchar16 c) {
    return platform::IsCharUpperW(c) ? 1 : 0;
}

wchar16 zuToLower(wchar16 c) {
    return platform::CharLowerW(c);
}

wchar16 zuToUpper(wchar16 c) {
    return platform::CharUpperW(c);
}

wchar16* zuStrLwr(wchar16* s) {
    return platform::CharLowerW(s);
}

wchar16* zuStrUpr(wchar16* s) {
    return platform::CharUpperW(s);
}

int32 zuStrCmp(const wchar16* a, const wchar16* b) {
    const int order = platform::wcsncmp(a, b, noLimit);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

int32 zuStrICmp(const wchar16* a, const wchar16* b) {
    return platform::_wcsicmp(a, b);
}

int32 zuStrNICmp(const wchar16* a, const wchar16* b, uint64 n) {
    return platform::_wcsnicmp(a, b, n);
}

bool strequ(const wchar16* a, const wchar16* b) {
    return platform::wcsncmp(a, b, noLimit) == 0;
}

bool striequ(const wchar16* a, const wchar16* b) {
    return platform::_wcsicmp(a, b) == 0;
}

bool strnequ(const wchar16* a, const wchar16* b, uint64 n) {
    return platform::wcsncmp(a, b, n) == 0;
}

bool strniequ(const wchar16* a, const wchar16* b, uint64 n) {
    return platform::_wcsnicmp(a, b, n) == 0;
}

}  // namespace Torvo
