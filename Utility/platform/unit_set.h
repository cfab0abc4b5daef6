// A set of 16-bit units, for searches that ask about many units.
#pragma once

#include <Utility/platform/types.h>

#include <algorithm>
#include <array>

namespace Torvo {

// Units below 256 are bits of a map. The others stay where the caller has them, and are searched only when one of 64
// bits says that they may be there.
class UnitSet {
public:
    // `units` is not copied.
    UnitSet(const wchar16* units, std::size_t count) : first(units), last(units + count) {
        std::for_each(first, last, [this](wchar16 unit) {
            if (unit < 256) {
                AddLow(static_cast<uint8>(unit));
            } else {
                high |= HighBit(unit);
            }
        });
    }

    void AddLow(uint8 unit) { low[unit / 64] |= uint64{1} << unit % 64; }

    bool Contains(wchar16 unit) const {
        if (unit < 256) return (low[unit / 64] >> unit % 64 & 1) != 0;
        return (high & HighBit(unit)) != 0 && std::find(first, last, unit) != last;
    }

private:
    static uint64 HighBit(wchar16 unit) { return uint64{1} << unit % 64; }

    const wchar16* first;
    const wchar16* last;
    std::array<uint64, 4> low{};
    uint64 high = 0;
};

}  // namespace Torvo
