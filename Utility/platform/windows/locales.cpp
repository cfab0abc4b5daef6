#include <Utility/platform/locales.h>

#include <Utility/platform/host.h>

namespace Torvo::platform {

uint32 GetThreadLocale() {
    return ::GetThreadLocale();
}

bool SetThreadLocale(uint32 locale) {
    return ::SetThreadLocale(locale) != 0;
}

int GetLocaleInfoW(uint32 locale, uint32 type, wchar16* buffer, int size) {
    return ::GetLocaleInfoW(locale, type, buffer, size);
}

bool LocaleValuesAreFixed() {
    return false;
}

int LCIDToLocaleName(uint32 locale, wchar16* name, int size, uint32 flags) {
    return ::LCIDToLocaleName(locale, name, size, flags);
}

uint32 LocaleNameToLCID(const wchar16* name, uint32 flags) {
    return ::LocaleNameToLCID(name, flags);
}

int GetSystemDefaultLocaleName(wchar16* name, int size) {
    return ::GetSystemDefaultLocaleName(name, size);
}

}  // namespace Torvo::platform
