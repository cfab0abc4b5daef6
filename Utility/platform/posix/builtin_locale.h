// Whether a part of the runtime's locale is the one called "C", asked in a way that any thread may use.
#pragma once

#include <langinfo.h>
#include <locale.h>

namespace Torvo::platform {

// An item of the locale "C", as an address inside the C library's built-in data, which every use of that locale shares.
// A locale's data are never freed once setlocale has made them current, while the name that setlocale answers may be,
// by another thread's next call; so nl_langinfo's address is what is compared with this one. Null only if memory is
// short.
inline const char* BuiltInLocaleItem(nl_item item) {
    const locale_t builtIn = newlocale(LC_ALL_MASK, "C", nullptr);
    return builtIn == nullptr ? nullptr : nl_langinfo_l(item, builtIn);
}

}  // namespace Torvo::platform
