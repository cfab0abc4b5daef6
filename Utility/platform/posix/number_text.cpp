#include <Utility/platform/number_text.h>

#include <Utility/platform/posix/builtin_locale.h>

namespace Torvo::platform {

namespace {

const char* const builtInDecimalMark = BuiltInLocaleItem(RADIXCHAR);

// The first unit of a character in UTF-8, or a single byte as it stands.
wchar16 FirstUnit(const char* character) {
    const auto byte = [character](int index) { return static_cast<unsigned char>(character[index]); };
    const auto tail = [byte](int index) { return byte(index) & 0x3Fu; };
    if (byte(0) >= 0xC0 && byte(0) < 0xE0 && byte(1) != 0) {
        return static_cast<wchar16>((byte(0) & 0x1Fu) << 6 | tail(1));
    }
    if (byte(0) >= 0xE0 && byte(0) < 0xF0 && byte(1) != 0 && byte(2) != 0) {
        return static_cast<wchar16>((byte(0) & 0x0Fu) << 12 | tail(1) << 6 | tail(2));
    }
    return byte(0);
}

}  // namespace

bool NumericLocaleIsC() {
    return nl_langinfo(RADIXCHAR) == builtInDecimalMark;
}

wchar16 NumericDecimalMark() {
    return FirstUnit(nl_langinfo(RADIXCHAR));
}

}  // namespace Torvo::platform
