#include <Utility/platform/number_text.h>

#include <langinfo.h>
#include <locale.h>

namespace Torvo::platform {

namespace {

// The decimal mark of the locale "C", as an address inside the C library's built-in data, which every use of that
// locale shares. A locale's data are never freed once setlocale has made them current, while the name that setlocale
// answers may be, by another thread's next call; so the address is what is compared.
const char* BuiltInDecimalMark() {
    const locale_t builtIn = newlocale(LC_ALL_MASK, "C", nullptr);
    return builtIn == nullptr ? nullptr : nl_langinfo_l(RADIXCHAR, builtIn);
}

const char* const builtInDecimalMark = BuiltInDecimalMark();

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
