// A number printed in the neutral form, by the rules of the C runtime's printf but with no locale.
#pragma once

#include <Utility/number_printing.h>

namespace Torvo {

class NeutralText {
public:
    // A negative precision stands for 6. A width of 0 does not pad, a negative one pads on the right. A text that does
    // not fit is empty.
    NeutralText(double value, PRINTF_FORMAT format, int32 precision, int32 width = 0);

    // Cuts at `limit` units.
    void CutAt(uint64 limit);
    // Removes the zeros at the end, and then a point there, if there is a point at all.
    void DropTrailingZeros();
    // Copies to `out`, at most `size` - 1 units, and fills the rest with zeros.
    void CopyTo(wchar16* out, uint64 size);

private:
    static constexpr uint64 Capacity = 511;
    static constexpr uint64 Block = 16;

    void PrintSpecial(double value);
    void PrintDigits(double value, PRINTF_FORMAT format, int32 precision);
    void Pad(int32 width);

    char text[Capacity + Block];
    uint64 length = 0;
};

}  // namespace Torvo
