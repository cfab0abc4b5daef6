// The characters that a picture format takes from the locale.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// Each is looked up when it is first asked for, since a look-up reads all of the locale and most formats need none. A
// character that the locale does not have is ".", "," or "$".
class NumberSymbols {
public:
    wchar16 Decimal() { return Numbers().decimal; }
    wchar16 Thousands() { return Numbers().thousands; }
    wchar16 Currency();

private:
    struct Separators {
        wchar16 decimal = '.';
        wchar16 thousands = ',';
    };
    const Separators& Numbers() {
        if (!hasSeparators) LookUpSeparators();
        return separators;
    }
    void LookUpSeparators();

    Separators separators;
    wchar16 currency = '$';
    bool hasSeparators = false;
    bool hasCurrency = false;
};

// The upper-case form of a format's letter; other units are left alone.
inline wchar16 UpperFormatUnit(wchar16 unit) {
    return unit >= 'a' && unit <= 'z' ? static_cast<wchar16>(unit - ('a' - 'A')) : unit;
}

}  // namespace Torvo
