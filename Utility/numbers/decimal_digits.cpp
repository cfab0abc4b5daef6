#include <Utility/numbers/decimal_digits.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace Torvo {

namespace {

// More digits than any double has, so that a number printed with as many is exact. A double has at most 767 significant
// digits.
constexpr int ExactDigits = 770;

// A number in exponent form: its digits without the point, and its exponent.
class Scientific {
public:
    Scientific(double magnitude, int count) {
        const std::to_chars_result printed =
            std::to_chars(text, std::end(text), magnitude, std::chars_format::scientific, count - 1);
        const char* const letter = std::find(text, printed.ptr, 'e');
        // from_chars does not take the plus.
        std::from_chars(letter + (letter[1] == '+' ? 2 : 1), printed.ptr, exponent);
        if (count > 1) std::copy(text + 2, text + count + 1, text + 1);
    }
    const char* Digits() const { return text; }
    int Exponent() const { return exponent; }

private:
    char text[ExactDigits + 16];
    int exponent = 0;
};

// Adds one to the last of `count` digits. True if they overflow: they are then 1000...
bool Increment(char* digits, int count) {
    for (int index = count - 1; index >= 0; --index) {
        if (digits[index] != '9') {
            ++digits[index];
            return false;
        }
        digits[index] = '0';
    }
    if (count > 0) digits[0] = '1';
    return true;
}

}  // namespace

// One digit more than is wanted tells the direction of the rounding, unless it is a 5, which the number may have been
// rounded up to; then all digits do.
DecimalDigits::DecimalDigits(double value, int wanted) : count(wanted), point(0), negative(std::signbit(value)) {
    if (value == 0) {
        std::fill_n(digits, count, '0');
        return;
    }
    const double magnitude = std::fabs(value);
    const Scientific oneMore(magnitude, count + 1);
    if (oneMore.Digits()[count] != '5') {
        Round(oneMore.Digits(), oneMore.Exponent());
    } else {
        const Scientific exact(magnitude, ExactDigits);
        Round(exact.Digits(), exact.Exponent());
    }
}

void DecimalDigits::Round(const char* source, int exponent) {
    std::copy_n(source, count, digits);
    point = exponent + 1;
    if (source[count] >= '5' && Increment(digits, count)) ++point;
}

}  // namespace Torvo
