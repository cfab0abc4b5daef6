// A short cut past the conversions: what single units of system text fold to, for a charset in which that is fixed.
//
// Folding text means to convert it to bytes, to put each byte through the table, and for a normal form to convert it
// back. Where each unit of a text becomes one byte with no regard to its neighbours, all that is a look-up per unit.
// The look-up serves the first 0x500 units, which hold the letters of the Latin, Greek and Cyrillic sets. It does not
// know (answers 0 for) units beyond them, combining marks, which may make one byte with the letter before them, and
// anything where the charset's page is not one of fixed meaning or not one byte to a character; text with such a unit
// takes the long road. Removing the short cut changes the time that things take and nothing else.
#pragma once

#include <Utility/charsets.h>
#include <Utility/text/normalization_table.h>

namespace Torvo {

class UnitFolding {
public:
    UnitFolding(ZUCHARSET cs, const NormalizationTable& table);

    // The byte that the unit folds to when no combining mark follows it; 0 for the terminator and where not known.
    uint8 Byte(wchar16 unit) const { return unit < Known ? bytes[unit] : uint8{0}; }
    // What the byte means in system text, for a byte that Byte gave.
    wchar16 Unit(uint8 byte) const { return meanings[byte]; }
    // Whether a unit before this one is known to be folded for itself.
    bool LeavesAlone(wchar16 next) const { return next < FirstMark || Byte(next) != 0; }

private:
    static constexpr uint32 Known = 0x500;
    static constexpr wchar16 FirstMark = 0x300;

    void ForgetMarks();

    uint8 bytes[Known]{};
    wchar16 meanings[256]{};
};

}  // namespace Torvo
