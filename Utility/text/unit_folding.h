// A short cut past the conversions: what single units of system text fold to, for a charset in which that is fixed.
//
// Folding text means to convert it to bytes, to put each byte through the table, and for a normal form to convert it
// back. Where each unit of a text becomes one byte with no regard to its neighbours, all that is a look-up per unit.
// The look-up serves the first 0x500 units, which hold the letters of the Latin, Greek and Cyrillic sets. It does not
// know (answers Unknown for) units beyond them, combining marks, which may make one byte with the letter before them,
// and anything where the charset's page is not one of fixed meaning or not one byte to a character; text with such a
// unit takes the long road. Removing the short cut changes the time that things take and nothing else.
#pragma once

#include <Utility/charsets.h>
#include <Utility/text/normalization_table.h>

namespace Torvo {

class UnitFolding {
public:
    UnitFolding(ZUCHARSET cs, const NormalizationTable& table);

    // Whether Fold may be asked for the unit.
    static bool MayKnow(wchar16 unit) { return unit < Room; }
    // Whether it may be asked for two units, and no combining mark is behind them. Each of the two is followed, in the
    // upper half, by the unit behind it.
    static bool StandAlone(uint32 a, uint32 b) { return ((a | b) & ~((BelowMarks - 1) << 16 | (Room - 1))) == 0; }

    // The byte that the unit folds to when no combining mark follows it, 0 for the terminator alone; Unknown where that
    // is not known.
    static constexpr uint16 Unknown = 0x100;
    uint16 Fold(wchar16 unit) const { return folds[unit]; }
    // Whether both of two are known, and differ.
    static bool Differ(uint16 a, uint16 b) { return (uint32{a} ^ b) - 1 < Unknown - 1; }
    // What the byte means in system text, for a byte that Fold gave.
    wchar16 Unit(uint16 byte) const { return meanings[byte]; }
    // Whether units before these two are known to be folded each for itself.
    bool LeaveAlone(wchar16 nextA, wchar16 nextB) const {
        return (nextA | nextB) < BelowMarks || (LeavesAlone(nextA) && LeavesAlone(nextB));
    }

private:
    static constexpr uint32 Known = 0x500;
    // Powers of two, so that one look tells of two units whether both are below them.
    static constexpr uint32 Room = 0x800;
    static constexpr uint32 BelowMarks = 0x200;

    bool LeavesAlone(wchar16 next) const { return next < BelowMarks || (MayKnow(next) && Fold(next) != Unknown); }
    void ForgetMarks();

    uint16 folds[Room];
    wchar16 meanings[256]{};
};

}  // namespace Torvo
