// One character after the other, for the pages of code_page_tables.h: the plain road of EncodeSingle and EncodeDouble.
#pragma once

#include <Utility/platform/types.h>

#include <array>

#include "code_page_conversions.h"

namespace Torvo::platform {

struct UnitRange {
    wchar16 first, last;
};

// The second units of the canonical decompositions in the basic plane, with what lies between them in one script. The
// vowels and final consonants of Hangul are not among them: the calls leave those alone.
inline constexpr UnitRange combiningUnits[] = {
    {0x0300, 0x0345}, {0x05B4, 0x05C2}, {0x0653, 0x0655}, {0x093C, 0x093C}, {0x09BC, 0x09BE}, {0x09D7, 0x09D7},
    {0x0A3C, 0x0A3C}, {0x0B3C, 0x0B3E}, {0x0B56, 0x0B57}, {0x0BBE, 0x0BBE}, {0x0BD7, 0x0BD7}, {0x0C56, 0x0C56},
    {0x0CC2, 0x0CC2}, {0x0CD5, 0x0CD6}, {0x0D3E, 0x0D3E}, {0x0D57, 0x0D57}, {0x0DCA, 0x0DDF}, {0x0F72, 0x0F80},
    {0x0FB5, 0x0FB7}, {0x102E, 0x102E}, {0x1B35, 0x1B35}, {0x3099, 0x309A},
};

// One bit for each unit of the basic plane. Text touches few of its lines.
inline constexpr auto combiningBits = [] {
    std::array<uint64, 65536 / 64> bits{};
    for (const UnitRange& range : combiningUnits) {
        for (uint32 unit = range.first; unit <= range.last; ++unit) bits[unit / 64] |= uint64{1} << unit % 64;
    }
    return bits;
}();

// Whether the unit may make one character with the unit before it.
inline bool MayCombine(wchar16 unit) {
    return (combiningBits[unit / 64] >> unit % 64 & 1) != 0;
}
class Encoder {
public:
    Encoder(const CodePage& page, EncodeRules rules) : page_(page), codes_(page.UnitCodes()), rules_(rules) {}

    // The code of the character at `at`, which is moved behind it.
    uint16 Next(const wchar16*& at, const wchar16* end) {
        if (rules_.composes && end - at > 1 && MayCombine(at[1])) [[unlikely]] {
            const Step step = Compose(at);
            at += step.units;
            return step.code;
        }
        return CodeOrDefault(*at++);
    }
    // The code of a unit alone.
    uint16 CodeOrDefault(wchar16 unit) {
        const uint16 code = CodeOf(unit);
        return code != NoCode ? code : Default();
    }
    bool Composes() const { return rules_.composes; }
    // Whether the table alone tells the code of a unit, but for those that it gives none.
    bool TakesTable() const { return !rules_.exactOnly; }
    CodePage::Codes UnitCodes() const { return codes_; }
    // For a page that has pairs.
    const uint16* WideCodes() const { return page_.WideCodes(); }
    bool UsedDefault() const { return usedDefault_; }

private:
    struct Step {
        uint16 code;
        int units;
    };

    // A unit and one behind it that may combine.
    Step Compose(const wchar16* at);
    uint16 Default() {
        usedDefault_ = true;
        return rules_.defaultCode;
    }
    uint16 CodeOf(wchar16 unit) const {
        const uint16 code = codes_[unit];
        return rules_.exactOnly && code != NoCode && !page_.IsExact(unit, code) ? NoCode : code;
    }

    const CodePage& page_;
    const CodePage::Codes codes_;
    const EncodeRules rules_;
    bool usedDefault_ = false;
};

}  // namespace Torvo::platform
