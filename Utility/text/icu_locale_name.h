// The name of a locale as ICU writes it: bytes, with an underline for each hyphen.
#pragma once

#include <Utility/conversion.h>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace Torvo {

// The room for the name of a locale, terminator included.
inline constexpr int32 LocaleNameSize = 85;

class IcuLocaleName {
public:
    // `name` is that of the system, as pt-BR.
    explicit IcuLocaleName(const wchar16* name) {
        ConvertSystemToMBCSChar(name, bytes, system_charset(), LocaleNameSize, false);
        std::replace(bytes, bytes + std::strlen(bytes), '-', '_');
    }
    const char* Text() const { return bytes; }
    bool IsJapanese() const { return std::string_view(bytes).substr(0, 2) == "ja"; }

private:
    char bytes[LocaleNameSize + 1] = {};
};

}  // namespace Torvo
