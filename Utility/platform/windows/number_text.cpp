#include <Utility/platform/number_text.h>

#include <clocale>
#include <cwchar>

namespace Torvo::platform {

bool NumericLocaleIsC() {
    const wchar_t* const name = ::_wsetlocale(LC_NUMERIC, nullptr);
    return name == nullptr || std::wcscmp(name, L"C") == 0;
}

wchar16 NumericDecimalMark() {
    return static_cast<unsigned char>(std::localeconv()->decimal_point[0]);
}

}  // namespace Torvo::platform
