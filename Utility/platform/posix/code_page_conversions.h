// The conversions behind MultiByteToWideChar and WideCharToMultiByte, by kind of page. Arguments are checked, lengths
// known and not 0; `target` is null where only the size is asked for.
//
// The fast paths store whole vectors and advance by less where a vector holds something that needs a closer look. What
// they store in excess lies within the target and is always overwritten: they run only where so much of the source
// and of the target is left that the conversion cannot end before that place.
#pragma once

#include <Utility/platform/types.h>

#include "code_page_tables.h"

namespace Torvo::platform {

struct Conversion {
    // Written, or needed where there is no target.
    std::size_t count;
    // 0, or why the conversion is incomplete or refused.
    uint32 error;
};

struct ByteText {
    const uint8* text;
    std::size_t size;
};

struct UnitText {
    const wchar16* text;
    std::size_t size;
};

struct UnitTarget {
    wchar16* text;
    std::size_t size;
};

struct ByteTarget {
    uint8* text;
    std::size_t size;
};

// What becomes of a base and a mark that make one character which the page does not hold.
enum class Unheld : uint8 {
    Separate,  // both, each for itself: WC_SEPCHARS, and without a flag
    Base,      // the base alone: WC_DISCARDNS
    Default,   // the default character: WC_DEFAULTCHAR
};

// How text is to be written in a page: what the flags and the default character say.
struct EncodeRules {
    bool composes;  // WC_COMPOSITECHECK
    Unheld unheld;
    bool exactOnly;  // WC_NO_BEST_FIT_CHARS
    uint16 defaultCode;
};

Conversion DecodeSingle(const CodePage& page, ByteText source, UnitTarget target, bool strict);
Conversion DecodeDouble(const CodePage& page, ByteText source, UnitTarget target, bool strict);
Conversion DecodeUtf8(ByteText source, UnitTarget target, bool strict);

// `usedDefault` is set, never cleared.
Conversion EncodeSingle(const CodePage& page, UnitText source, ByteTarget target, EncodeRules rules, bool& usedDefault);
Conversion EncodeDouble(const CodePage& page, UnitText source, ByteTarget target, EncodeRules rules, bool& usedDefault);
Conversion EncodeUtf8(UnitText source, ByteTarget target, bool strict);

}  // namespace Torvo::platform
