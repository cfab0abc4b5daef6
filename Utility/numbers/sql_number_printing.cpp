#include <Utility/errors/raise.h>
#include <Utility/numbers/decimal_digits.h>
#include <Utility/numbers/powers_of_ten.h>
#include <Utility/numbers/sql_number_picture.h>
#include <Utility/sql_numbers.h>

#include <algorithm>
#include <cmath>

namespace Torvo {

namespace {

bool IsDigitPosition(wchar16 unit) {
    return unit == '0' || unit == '9';
}

// Halves away from zero, as far as doubles can tell. Where the places lie beyond what a double holds, there is nothing
// to round.
double RoundToPlaces(double value, int places) {
    const double power = places > 0 ? PowerOfTen(int64{places}) : 1.0;
    const double scaled = value * power;
    if (!std::isfinite(scaled)) return value;
    return (value < 0 ? std::ceil(scaled - 0.5) : std::floor(scaled + 0.5)) / power;
}

// Fills a picture with a finite number.
class PictureFiller {
public:
    PictureFiller(NumberPicture& toFill, double value)
        : picture(toFill), mantissa(value, toFill.integerDigits + toFill.fractionDigits), point(mantissa.point) {
        if (picture.HasExponent()) LayOutExponent();
    }

    bool Fits() const {
        if (point > picture.integerDigits) return false;
        if (point == picture.integerDigits && mantissa.negative && !picture.HasSignPosition()) return false;
        if (!picture.HasExponent()) return true;
        const DecimalDigits digits(exponent, picture.exponentDigits);
        if (digits.point > picture.exponentDigits) return false;
        return digits.point < picture.exponentDigits || exponent >= 0 || picture.exponentSignAt >= 0;
    }

    void Fill() {
        const int end = picture.pointAt >= 0 ? picture.pointAt : picture.length;
        FillInteger(end);
        BlankSeparators(end);
        if (picture.pointAt >= 0 && picture.pointAt != picture.exponentAt) FillFraction();
        if (picture.HasExponent()) FillExponent();
        SetSign();
    }

private:
    // The mantissa fills the integer positions. A minus without a position of its own takes one of them.
    void LayOutExponent() {
        const int spare = mantissa.negative && !picture.HasSignPosition() ? 1 : 0;
        exponent = point + spare - picture.integerDigits;
        point = picture.integerDigits - spare;
    }

    // A digit of the mantissa; before its start, and behind its end, there are zeros.
    wchar16 Digit(int index) const {
        return index >= 0 && index < mantissa.count ? static_cast<wchar16>(mantissa.digits[index]) : wchar16{'0'};
    }

    void FillInteger(int end) {
        int next = point - 1;
        for (int index = end - 1; index >= picture.First(); --index) {
            wchar16& unit = picture.units[index];
            if (!IsDigitPosition(unit)) continue;
            if (next >= 0) {
                unit = Digit(next--);
            } else if (unit == '9') {
                unit = ' ';
            }
        }
    }

    void BlankSeparators(int end) {
        for (int index = picture.First() + 1; index < end; ++index) {
            wchar16& unit = picture.units[index];
            if (picture.IsSeparator(unit) && picture.units[index - 1] == ' ') unit = ' ';
        }
    }

    void FillFraction() {
        const int end = picture.HasExponent() ? picture.exponentAt : picture.length;
        int next = point;
        for (int index = picture.pointAt + 1; index < end; ++index) {
            if (IsDigitPosition(picture.units[index])) picture.units[index] = Digit(next++);
        }
    }

    void FillExponent() {
        const DecimalDigits digits(exponent, picture.exponentDigits);
        int left = digits.point;
        for (int index = picture.length - 1; index > picture.exponentAt; --index) {
            wchar16& unit = picture.units[index];
            const bool isSign = unit == '+' || unit == '-';
            if (!isSign && !IsDigitPosition(unit)) continue;
            if (left > 0) {
                unit = static_cast<wchar16>(digits.digits[--left]);
            } else if (isSign) {
                unit = exponent < 0 ? '-' : '+';
            } else if (exponent < 0 && index == picture.exponentAt + 1) {
                unit = '-';
            } else if (unit == '9') {
                unit = ' ';
            }
        }
    }

    void SetSign() {
        const wchar16 sign = mantissa.negative ? '-' : '+';
        if (picture.leadingSign) {
            picture.units[0] = sign;
        } else if (picture.trailingSign) {
            picture.units[picture.length++] = sign;
            picture.units[picture.length] = 0;
        } else if (mantissa.negative) {
            picture.units[picture.currencyAt >= 0 ? 1 : 0] = sign;
        }
    }

    NumberPicture& picture;
    const DecimalDigits mantissa;
    int point;  // where it stands among the digits that are shown
    int exponent = 0;
};

void ShowOverflow(NumberPicture& picture) {
    std::replace_if(picture.units + picture.First(), picture.units + picture.length, IsDigitPosition, wchar16{'#'});
}

void FillPicture(NumberPicture& picture, double value) {
    const double rounded = picture.HasExponent() ? value : RoundToPlaces(value, picture.fractionDigits);
    if (!std::isfinite(rounded)) return ShowOverflow(picture);
    PictureFiller filler(picture, rounded);
    if (!filler.Fits()) return ShowOverflow(picture);
    filler.Fill();
}

}  // namespace

bool zuSQLDoubleToString(double value, const wchar16* format, wchar16* out, uint64 outSize) {
    if (format == nullptr || out == nullptr) return false;
    NumberSymbols symbols;
    NumberPicture picture;
    const FormatFault fault = picture.Compile(format, symbols);
    if (fault == FormatFault::TooLong) return false;
    if (fault != FormatFault::None) {
        RaiseError(ERRORLEVEL_ERROR, 5002, static_cast<int32>(fault), format);
        return false;
    }
    FillPicture(picture, value);
    const auto length = static_cast<uint64>(picture.length);
    if (length >= outSize) return false;
    std::copy_n(picture.units, length + 1, out);
    return true;
}

}  // namespace Torvo
