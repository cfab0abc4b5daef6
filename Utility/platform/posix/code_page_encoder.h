// One character after the other, for the pages of code_page_tables.h: the plain road of EncodeSingle and EncodeDouble.
#pragma once

#include <Utility/platform/types.h>

#include "code_page_conversions.h"

namespace Torvo::platform {

// Whether the unit may make one character with the unit before it: some canonical decomposition ends with it.
bool MayCombine(wchar16 unit);
// The character made of both, 0 if there is none.
wchar16 Composed(wchar16 base, wchar16 mark);

class Encoder {
public:
    Encoder(const CodePage& page, EncodeRules rules) : page_(page), rules_(rules) {}

    // The code of the character at `at`, which is moved behind it.
    uint16 Next(const wchar16*& at, const wchar16* end) {
        if (rules_.composes && end - at > 1 && MayCombine(at[1])) {
            const wchar16 character = Composed(at[0], at[1]);
            if (character != 0) return Compose(character, at);
        }
        return CodeOrDefault(*at++);
    }
    // The code of a unit alone.
    uint16 CodeOrDefault(wchar16 unit) {
        const uint16 code = CodeOf(unit);
        return code != NoCode ? code : Default();
    }
    bool Composes() const { return rules_.composes; }
    bool UsedDefault() const { return usedDefault_; }

private:
    uint16 Compose(wchar16 character, const wchar16*& at) {
        const wchar16 base = *at++;
        const uint16 code = CodeOf(character);
        if (code == NoCode && rules_.unheld == Unheld::Separate) return CodeOrDefault(base);
        ++at;
        if (code != NoCode) return code;
        return rules_.unheld == Unheld::Base ? CodeOrDefault(base) : Default();
    }
    uint16 Default() {
        usedDefault_ = true;
        return rules_.defaultCode;
    }
    uint16 CodeOf(wchar16 unit) const {
        const uint16 code = page_.Code(unit);
        return rules_.exactOnly && code != NoCode && !page_.IsExact(unit, code) ? NoCode : code;
    }

    const CodePage& page_;
    const EncodeRules rules_;
    bool usedDefault_ = false;
};

}  // namespace Torvo::platform
