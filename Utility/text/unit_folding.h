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

    // False if either unit is beyond what Byte may be asked for.
    static bool MayKnowBoth(wchar16 a, wchar16 b) { return (a | b) < Room; }
    // Whether Byte may be asked for the unit.
    static bool MayKnow(wchar16 unit) { return unit < Room; }

    // The byte that the unit folds to when no combining mark follows it; 0 for the terminator and where not known.
    uint8 Byte(wchar16 unit) const { return bytes[unit]; }
    // What the byte means in system text, for a byte that Byte gave.
    wchar16 Unit(uint8 byte) const { return meanings[byte]; }
    // Whether units before these two are known to be folded each for itself.
    bool LeaveAlone(wchar16 nextA, wchar16 nextB) const {
        return (nextA | nextB) < BelowMarks || (LeavesAlone(nextA) && LeavesAlone(nextB));
    }

private:
    static constexpr uint32 Known = 0x500;
    // A power of two, so that one look tells of two units whether both are below it.
    static constexpr uint32 Room = 0x800;
    static constexpr wchar16 BelowMarks = 0x200;

    bool LeavesAlone(wchar16 next) const { return next < BelowMarks || (MayKnow(next) && Byte(next) != 0); }
    void ForgetMarks();

    uint8 bytes[Room]{};
    wchar16 meanings[256]{};
};

}  // namespace Torvo
