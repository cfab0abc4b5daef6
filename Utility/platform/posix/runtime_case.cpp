#include <Utility/platform/posix/builtin_locale.h>
#include <Utility/platform/posix/runtime_case.h>
#include <Utility/platform/runtime.h>
#include <Utility/platform/text.h>
#include <Utility/platform/text_scan.h>

namespace Torvo::platform {

namespace {

bool CharacterLocaleIsC() {
    static const char* const builtInCodeset = BuiltInLocaleItem(CODESET);
    return nl_langinfo(CODESET) == builtInCodeset;
}

}  // namespace

// The locale is asked for once, not for each unit.
int CompareByCharacterLocale(const wchar16* a, const wchar16* b, std::size_t count) {
    const auto fold = CharacterLocaleIsC() ? scan::FoldUnit : static_cast<wchar16 (*)(wchar16)>(CharLowerW);
    for (std::size_t index = 0; index < count; ++index) {
        const wchar16 left = fold(a[index]);
        const wchar16 right = fold(b[index]);
        if (left != right || left == 0) return left - right;
    }
    return 0;
}

wchar16 towlower(wchar16 unit) {
    return unit < 0x80 || CharacterLocaleIsC() ? scan::FoldUnit(unit) : CharLowerW(unit);
}

}  // namespace Torvo::platform
