// The characters that a picture format takes from the locale.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

struct NumberSymbols {
    wchar16 decimal = '.';
    wchar16 thousands = ',';
    wchar16 currency = '$';
};

// Asks the locale service. A character that the locale does not have keeps the value above.
NumberSymbols LookUpNumberSymbols();

// The upper-case form of a format's letter; other units are left alone.
inline wchar16 UpperFormatUnit(wchar16 unit) {
    return unit >= 'a' && unit <= 'z' ? static_cast<wchar16>(unit - ('a' - 'A')) : unit;
}

}  // namespace Torvo
