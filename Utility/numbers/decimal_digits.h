// The digits of a double and the place of its point, as the C runtime's _ecvt gives them, without its shared buffer.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

struct DecimalDigits {
    static constexpr int Capacity = 512;

    // Rounds a finite `value` to `count` significant digits, 0 to Capacity, halves away from zero.
    DecimalDigits(double value, int count);

    char digits[Capacity];
    int count;
    // The point stands before digits[point]: 12.5 has 2, 0.05 has -1. 0 for the value 0, whose digits are zeros.
    int point;
    // Whether the sign bit is set, also that of 0.
    bool negative;

private:
    // Takes the first `count` of more digits, rounded by the one behind them.
    void Round(const char* source, int exponent);
};

}  // namespace Torvo
