#include <Utility/errors/raise.h>
#include <Utility/numbers/number_symbols.h>
#include <Utility/numbers/powers_of_ten.h>
#include <Utility/platform/number_text.h>
#include <Utility/sql_numbers.h>

#include <algorithm>
#include <cmath>

namespace Torvo {

namespace {

// One of the three parts of a number, gathered unit by unit.
class NumberPart {
public:
    // False when the part is full.
    bool Add(wchar16 unit) {
        if (length == MaxLength) return false;
        units[length++] = unit;
        return true;
    }
    double Value() {
        units[length] = 0;
        return platform::_wtof(units);
    }
    // The part as places behind a point. Places beyond those that a power of ten reaches are left out: they cannot be
    // told from 0, while the digits and the power would both become infinite.
    double FractionValue() {
        length = std::min(length, MaxPlaces);
        return Value() / PowerOfTen(int64{length});
    }

private:
    static constexpr int MaxLength = 511;
    static constexpr int MaxPlaces = 308;

    wchar16 units[MaxLength + 1];
    int length = 0;
};

// Walks a text along a format. Each step tells whether text and format still agree.
class FormattedNumberReader {
public:
    explicit FormattedNumberReader(const wchar16* text) : cursor(text) {}

    bool Read(const wchar16* format) {
        for (; *format != 0; ++format) {
            if (!Step(UpperFormatUnit(*format))) return false;
        }
        return *cursor == 0;
    }

    double Value() {
        double value = integer.Value();
        if (pointPassed) {
            const double places = fraction.FractionValue();
            value = value < 0 ? value - places : value + places;
        }
        return exponentPassed ? value * PowerOfTen(exponent.Value()) : value;
    }

private:
    bool Step(wchar16 unit) {
        switch (unit) {
            case '$':
            case 'L':
                return *cursor == symbols.Currency() && Advance();
            case '+':
            case '-':
                return false;
            case ',':
            case 'G':
                return StepSeparator();
            case '.':
            case 'D':
                return StepPoint();
            case '0':
            case '9':
                return *cursor == 0 || StepDigit();
            case 'E':
                return StepExponent();
            default:
                return true;
        }
    }

    bool Advance() {
        ++cursor;
        return true;
    }

    bool StepSeparator() {
        mayGroup = false;
        return (*cursor == ' ' || *cursor == symbols.Thousands()) && Advance();
    }

    bool StepPoint() {
        if (pointPassed || exponentPassed) return false;
        pointPassed = true;
        mayGroup = false;
        return *cursor == 0 || (*cursor == symbols.Decimal() && Advance());
    }

    bool StepExponent() {
        if (exponentPassed || UpperFormatUnit(*cursor) != 'E') return false;
        exponentPassed = true;
        mayGroup = false;
        return Advance();
    }

    bool StepDigit() {
        if (exponentPassed) return Gather(exponent);
        if (*cursor == ' ') return Advance();
        if (pointPassed) return UpperFormatUnit(*cursor) == 'E' || Gather(fraction);
        if (*cursor == symbols.Thousands()) return mayGroup;
        return *cursor == symbols.Decimal() || Gather(integer);
    }

    bool Gather(NumberPart& part) { return part.Add(*cursor) && Advance(); }

    const wchar16* cursor;
    NumberSymbols symbols;
    NumberPart integer;
    NumberPart fraction;
    NumberPart exponent;
    bool pointPassed = false;
    bool exponentPassed = false;
    bool mayGroup = true;
};

constexpr int32 TextDoesNotMatch = 67;

}  // namespace

bool zuSQLStringToDouble(const wchar16* text, const wchar16* format, double* value) {
    if (text == nullptr || format == nullptr || value == nullptr) return false;
    FormattedNumberReader reader(text);
    if (!reader.Read(format)) {
        RaiseError(ERRORLEVEL_ERROR, 5002, TextDoesNotMatch, format);
        return false;
    }
    *value = reader.Value();
    return true;
}

}  // namespace Torvo
