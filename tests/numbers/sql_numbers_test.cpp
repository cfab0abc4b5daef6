#include <Utility/errors.h>
#include <Utility/locale_info.h>
#include <Utility/sql_numbers.h>
#include <gtest/gtest.h>
#include <reference/plain_sql_numbers.h>
#include <support/user_locale.h>

#include <algorithm>
#include <limits>
#include <random>

namespace sql_numbers_test {
namespace {

using namespace Torvo;
using test::UserLocale;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr uint64 Size = 700;
constexpr int32 ErrorNumber = 5002;

// The resource identifier of the only error in the list, whose parameter must be the format; 0 if there is none.
int32 TakeError(const wstring16& format) {
    if (NumErrors() == 0) return 0;
    EXPECT_EQ(NumErrors(), 1);
    EXPECT_EQ(GetErrorNum(0), ErrorNumber);
    const int32 resource = GetResourceID(0);
    EXPECT_EQ(GetErrorGUID(0).Data1, 0xEE011B72u);
    wchar16 text[1024];
    GetErrorMsg(ZUTEXT("^0|^1|"), 0, text, std::size(text));
    EXPECT_EQ(wstring16(text), format + ZUTEXT("||"));
    ClearErrors();
    return resource;
}

// The text, or "error N" with the resource identifier, or "refused" where nothing is reported.
wstring16 Print(double value, const wstring16& format, uint64 size = Size) {
    ClearErrors();
    wstring16 buffer(Size + 8, '~');
    const bool result = zuSQLDoubleToString(value, format.c_str(), &buffer[4], size);
    EXPECT_EQ(buffer.substr(0, 4), wstring16(4, '~'));
    if (result) {
        const wstring16 text = &buffer[4];
        EXPECT_EQ(buffer.substr(5 + text.size()), wstring16(Size + 3 - text.size(), '~'));  // no clearing behind it
        EXPECT_EQ(TakeError(format), 0);
        return text;
    }
    EXPECT_EQ(buffer, wstring16(Size + 8, '~'));
    const int32 error = TakeError(format);
    if (error == 0) return ZUTEXT("refused");
    const std::string number = std::to_string(error);
    return ZUTEXT("error ") + wstring16(number.begin(), number.end());
}

constexpr double NoMatch = -987654321;  // what Read answers for error 67

double Read(const wstring16& text, const wstring16& format) {
    ClearErrors();
    double value = 77;
    if (zuSQLStringToDouble(text.c_str(), format.c_str(), &value)) {
        EXPECT_EQ(TakeError(format), 0);
        return value;
    }
    EXPECT_EQ(value, 77);
    EXPECT_EQ(TakeError(format), 67);
    return NoMatch;
}

class SqlNumbers : public testing::Test {
protected:
    UserLocale english{'.', ',', 3};
    void TearDown() override { ClearErrors(); }
};

TEST_F(SqlNumbers, DigitsAndSeparators) {
    EXPECT_EQ(Print(1234.5, ZUTEXT("9,999.99")), ZUTEXT("1,234.50"));
    EXPECT_EQ(Print(12.5, ZUTEXT("9,999.99")), ZUTEXT("   12.50"));
    EXPECT_EQ(Print(12.5, ZUTEXT("0,000.00")), ZUTEXT("0,012.50"));
    EXPECT_EQ(Print(12.5, ZUTEXT("0,999.99")), ZUTEXT("0,012.50"));  // right of a 0, each 9 is one
    EXPECT_EQ(Print(12.5, ZUTEXT("9,099.99")), ZUTEXT("  012.50"));
    EXPECT_EQ(Print(0, ZUTEXT("999")), ZUTEXT("   "));
    EXPECT_EQ(Print(0, ZUTEXT("990")), ZUTEXT("  0"));
    EXPECT_EQ(Print(0.5, ZUTEXT("9.99")), ZUTEXT(" .50"));
    EXPECT_EQ(Print(0.05, ZUTEXT("9.99")), ZUTEXT(" .05"));
    EXPECT_EQ(Print(0.005, ZUTEXT("9.999")), ZUTEXT(" .005"));
    EXPECT_EQ(Print(0.05, ZUTEXT("0.9999")), ZUTEXT("0.0500"));
    EXPECT_EQ(Print(1234567, ZUTEXT("9,999,999")), ZUTEXT("1,234,567"));
    EXPECT_EQ(Print(5, ZUTEXT(",999")), ZUTEXT(",  5"));  // the first unit has no neighbour
    EXPECT_EQ(Print(9999990, ZUTEXT("9,999,990.00")), ZUTEXT("9,999,990.00"));
    EXPECT_EQ(Print(0.1, ZUTEXT("9.909")), ZUTEXT(" .100"));
}

TEST_F(SqlNumbers, Rounding) {
    EXPECT_EQ(Print(2.5, ZUTEXT("9")), ZUTEXT("3"));
    EXPECT_EQ(Print(3.5, ZUTEXT("9")), ZUTEXT("4"));
    EXPECT_EQ(Print(-2.5, ZUTEXT("99")), ZUTEXT("-3"));
    EXPECT_EQ(Print(0.125, ZUTEXT("9.99")), ZUTEXT(" .13"));
    EXPECT_EQ(Print(9.96, ZUTEXT("99.9")), ZUTEXT("10.0"));
    EXPECT_EQ(Print(0.4, ZUTEXT("90")), ZUTEXT(" 0"));
    EXPECT_EQ(Print(-0.4, ZUTEXT("90")), ZUTEXT("-0"));  // the sign stays
}

TEST_F(SqlNumbers, WhatDoesNotFitShowsHashes) {
    EXPECT_EQ(Print(12345, ZUTEXT("999")), ZUTEXT("###"));
    EXPECT_EQ(Print(-123, ZUTEXT("999")), ZUTEXT("###"));
    EXPECT_EQ(Print(-12, ZUTEXT("999")), ZUTEXT("-12"));
    EXPECT_EQ(Print(12345, ZUTEXT("$9,990.99")), ZUTEXT("$#,###.##"));
    EXPECT_EQ(Print(12345, ZUTEXT("S999")), ZUTEXT(" ###"));
    EXPECT_EQ(Print(12345, ZUTEXT("999S")), ZUTEXT("###"));
    EXPECT_EQ(Print(999.96, ZUTEXT("999.9")), ZUTEXT("###.#"));
    EXPECT_EQ(Print(1e300, ZUTEXT("9.9E+9")), ZUTEXT("#.#E+#"));
    EXPECT_EQ(Print(5, ZUTEXT("")), ZUTEXT(""));
    for (double value : {Infinity, -Infinity, NaN}) {
        EXPECT_EQ(Print(value, ZUTEXT("S990.9")), ZUTEXT(" ###.#"));
        EXPECT_EQ(Print(value, ZUTEXT("9.9E99")), ZUTEXT("#.#E##"));
    }
}

TEST_F(SqlNumbers, Signs) {
    EXPECT_EQ(Print(5, ZUTEXT("S999")), ZUTEXT("+  5"));
    EXPECT_EQ(Print(-5, ZUTEXT("S999")), ZUTEXT("-  5"));
    EXPECT_EQ(Print(-555, ZUTEXT("s999")), ZUTEXT("-555"));
    EXPECT_EQ(Print(5, ZUTEXT("999S")), ZUTEXT("  5+"));
    EXPECT_EQ(Print(-5, ZUTEXT("999s")), ZUTEXT("  5-"));
    EXPECT_EQ(Print(5, ZUTEXT("999MI")), ZUTEXT("  5+"));
    EXPECT_EQ(Print(-555, ZUTEXT("999mi")), ZUTEXT("555-"));
    EXPECT_EQ(Print(-5, ZUTEXT("S999S")), ZUTEXT("-  5"));
    EXPECT_EQ(Print(-5, ZUTEXT("S999MI")), ZUTEXT("-  5"));
    EXPECT_EQ(Print(-5, ZUTEXT("099")), ZUTEXT("-05"));
    EXPECT_EQ(Print(-5, ZUTEXT("99I")), ZUTEXT("-5"));  // an I alone is nothing
    EXPECT_EQ(Print(-5, ZUTEXT("9S9")), ZUTEXT("-5"));  // nor an S in the middle
    EXPECT_EQ(Print(-5, ZUTEXT("99.9")), ZUTEXT("-5.0"));
    EXPECT_EQ(Print(-0.5, ZUTEXT(".9")), ZUTEXT(".#"));
}

TEST_F(SqlNumbers, Currency) {
    EXPECT_EQ(Print(1234.5, ZUTEXT("$99,990.00")), ZUTEXT("$ 1,234.50"));
    EXPECT_EQ(Print(5, ZUTEXT("99$")), ZUTEXT(" 5$"));
    EXPECT_EQ(Print(-5, ZUTEXT("$999")), ZUTEXT("$- 5"));
    EXPECT_EQ(Print(-5, ZUTEXT("999$")), ZUTEXT(" -5$"));  // the second unit, wherever the currency stands
    EXPECT_EQ(Print(5, ZUTEXT("S99$")), ZUTEXT("+ 5$"));
    EXPECT_EQ(Print(5, ZUTEXT("S$")), ZUTEXT(" $"));
    const UserLocale euro(',', '.', 3, ZUTEXT("\u20AC uro"));
    EXPECT_EQ(Print(5, ZUTEXT("L99")), ZUTEXT("\u20AC 5"));
    EXPECT_EQ(Print(5, ZUTEXT("$99")), ZUTEXT("$ 5"));
}

TEST_F(SqlNumbers, Exponents) {
    EXPECT_EQ(Print(1234, ZUTEXT("9.99E99")), ZUTEXT("1.23E 3"));
    EXPECT_EQ(Print(1234, ZUTEXT("9.99E00")), ZUTEXT("1.23E03"));
    EXPECT_EQ(Print(1234, ZUTEXT("9.99E+99")), ZUTEXT("1.23E+ 3"));
    EXPECT_EQ(Print(1234, ZUTEXT("9.99e-09")), ZUTEXT("1.23E+03"));
    EXPECT_EQ(Print(0.001234, ZUTEXT("9.99E99")), ZUTEXT("1.23E-3"));
    EXPECT_EQ(Print(0.001234, ZUTEXT("9.99E00")), ZUTEXT("1.23E-3"));
    EXPECT_EQ(Print(0.001234, ZUTEXT("9.99E999")), ZUTEXT("1.23E- 3"));
    EXPECT_EQ(Print(0.001234, ZUTEXT("9.99E000")), ZUTEXT("1.23E-03"));
    EXPECT_EQ(Print(0.001234, ZUTEXT("9.99E9")), ZUTEXT("#.##E#"));
    EXPECT_EQ(Print(0.001234, ZUTEXT("9.99E+9")), ZUTEXT("1.23E-3"));
    EXPECT_EQ(Print(1.25, ZUTEXT("9.9E9")), ZUTEXT("1.3E "));  // halves away from zero
    EXPECT_EQ(Print(9.996, ZUTEXT("9.99E99")), ZUTEXT("1.00E 1"));
    EXPECT_EQ(Print(-1234, ZUTEXT("99.9E99")), ZUTEXT("-1.2E 3"));
    EXPECT_EQ(Print(-1234, ZUTEXT("S9.9E99")), ZUTEXT("-1.2E 3"));
    EXPECT_EQ(Print(1234, ZUTEXT("999E9")), ZUTEXT("123E1"));
    EXPECT_EQ(Print(0, ZUTEXT("9.99E99")), ZUTEXT("0.00E-1"));  // the point of 0 stands before its digits
    EXPECT_EQ(Print(1, ZUTEXT("9E")), ZUTEXT("1E"));
    EXPECT_EQ(Print(10, ZUTEXT("9E")), ZUTEXT("#E"));
    EXPECT_EQ(Print(1e-300, ZUTEXT("9.9E+999")), ZUTEXT("1.0E-300"));
}

TEST_F(SqlNumbers, FaultsOfAFormat) {
    EXPECT_EQ(Print(1, ZUTEXT("9.9.9")), ZUTEXT("error 68"));
    EXPECT_EQ(Print(1, ZUTEXT("9.9D9")), ZUTEXT("error 68"));
    EXPECT_EQ(Print(1, ZUTEXT("9E9.9")), ZUTEXT("error 68"));  // an exponent counts as the point
    EXPECT_EQ(Print(1, ZUTEXT("9,9.9,9")), ZUTEXT("error 70"));
    EXPECT_EQ(Print(1, ZUTEXT("9E9,9")), ZUTEXT("error 70"));
    EXPECT_EQ(Print(1, ZUTEXT("9E9G9")), ZUTEXT("error 70"));
    EXPECT_EQ(Print(1, ZUTEXT("$$9")), ZUTEXT("error 71"));
    EXPECT_EQ(Print(1, ZUTEXT("L9$")), ZUTEXT("error 71"));
    EXPECT_EQ(Print(1, ZUTEXT("9$9")), ZUTEXT("error 71"));
    EXPECT_EQ(Print(1, ZUTEXT("S$9")), ZUTEXT("error 71"));
    EXPECT_EQ(Print(1, ZUTEXT("9E9E9")), ZUTEXT("error 72"));
    EXPECT_EQ(Print(1, ZUTEXT("9+9")), ZUTEXT("error 73"));
    EXPECT_EQ(Print(1, ZUTEXT("9E9-")), ZUTEXT("error 73"));
    EXPECT_EQ(Print(1, ZUTEXT("9E+-9")), ZUTEXT("error 73"));
    EXPECT_EQ(Print(1, ZUTEXT("S+9")), ZUTEXT("error 73"));
    EXPECT_EQ(Print(1, ZUTEXT("+9")), ZUTEXT("+1"));  // at the very start a sign passes
    EXPECT_EQ(Print(1, ZUTEXT("-9")), ZUTEXT("-1"));
    EXPECT_EQ(Print(1, ZUTEXT("++9")), ZUTEXT("error 73"));
}

TEST_F(SqlNumbers, OtherCharactersTakeNoPosition) {
    EXPECT_EQ(Print(12, ZUTEXT("1 9x_9\u00E4")), ZUTEXT("12"));
    EXPECT_EQ(Print(12, ZUTEXT("xyz")), ZUTEXT(""));
    EXPECT_EQ(Print(0, ZUTEXT("xyz")), ZUTEXT(""));
}

TEST_F(SqlNumbers, TheLocalesCharacters) {
    const UserLocale german(',', '.', 3);
    EXPECT_EQ(Print(1234.5, ZUTEXT("9g999d99")), ZUTEXT("1.234,50"));
    EXPECT_EQ(Print(1234.5, ZUTEXT("9,999.99")), ZUTEXT("1,234.50"));
    EXPECT_EQ(Print(12.5, ZUTEXT("9G999D99")), ZUTEXT("   12,50"));
    // The zeros are forced past a point that is not ".", through the integer part too.
    EXPECT_EQ(Print(0.5, ZUTEXT("999D90")), ZUTEXT(" 00,50"));
    EXPECT_EQ(Print(0.5, ZUTEXT("999.90")), ZUTEXT("   .50"));
    // A separator that the fraction's walk takes for the point.
    EXPECT_EQ(Print(0.5, ZUTEXT("99G99D90")), ZUTEXT("   00,50"));
}

TEST_F(SqlNumbers, WithoutALocaleThereAreDefaults) {
    UserLocale hidden(',', '.', 3, nullptr);
    hidden.HideTexts();
    EXPECT_EQ(Print(1234.5, ZUTEXT("L9G999D99")), ZUTEXT("$1,234.50"));
    EXPECT_EQ(Read(ZUTEXT("$1,234.50"), ZUTEXT("L9G999D99")), 1234.5);
    hidden.HideFormat();
    EXPECT_EQ(Print(1234.5, ZUTEXT("9G999D99")), ZUTEXT("1,234.50"));
    const UserLocale empty(0, 0, 3, ZUTEXT(""));
    EXPECT_EQ(Print(1234.5, ZUTEXT("L9G999D99")), ZUTEXT("$1,234.50"));
}

TEST_F(SqlNumbers, TheTextMustFitItsBuffer) {
    EXPECT_EQ(Print(12, ZUTEXT("999"), 4), ZUTEXT(" 12"));
    EXPECT_EQ(Print(12, ZUTEXT("999"), 3), ZUTEXT("refused"));
    EXPECT_EQ(Print(12, ZUTEXT("999S"), 4), ZUTEXT("refused"));
    EXPECT_EQ(Print(12, ZUTEXT("999S"), 5), ZUTEXT(" 12+"));
    EXPECT_EQ(Print(12, ZUTEXT(""), 0), ZUTEXT("refused"));
}

TEST_F(SqlNumbers, LongFormats) {
    EXPECT_EQ(Print(5, wstring16(511, '9')), wstring16(510, ' ') + ZUTEXT("5"));
    EXPECT_EQ(Print(5, wstring16(511, '9') + ZUTEXT("S")), wstring16(510, ' ') + ZUTEXT("5+"));
    EXPECT_EQ(Print(5, wstring16(512, '9')), ZUTEXT("refused"));
    EXPECT_EQ(Print(5, ZUTEXT("S") + wstring16(511, '9')), ZUTEXT("refused"));
    EXPECT_EQ(Print(5, wstring16(5000, 'x') + ZUTEXT("9")), ZUTEXT("5"));
    EXPECT_EQ(Print(0.5, ZUTEXT(".") + wstring16(400, '9')), ZUTEXT(".5") + wstring16(399, '0'));
    EXPECT_EQ(Print(1e308, wstring16(320, '9') + ZUTEXT(".99")).substr(0, 13), wstring16(11, ' ') + ZUTEXT("10"));
    EXPECT_EQ(Print(5, ZUTEXT("9E") + wstring16(509, '9')), ZUTEXT("5E") + wstring16(509, ' '));
}

TEST_F(SqlNumbers, NullsAreRefused) {
    wchar16 out[10];
    double value = 77;
    EXPECT_FALSE(zuSQLDoubleToString(1, nullptr, out, 10));
    EXPECT_FALSE(zuSQLDoubleToString(1, ZUTEXT("9"), nullptr, 10));
    EXPECT_FALSE(zuSQLStringToDouble(nullptr, ZUTEXT("9"), &value));
    EXPECT_FALSE(zuSQLStringToDouble(ZUTEXT("9"), nullptr, &value));
    EXPECT_FALSE(zuSQLStringToDouble(ZUTEXT("9"), ZUTEXT("9"), nullptr));
    EXPECT_EQ(value, 77);
    EXPECT_EQ(NumErrors(), 0);
}

TEST_F(SqlNumbers, ReadingDigits) {
    EXPECT_EQ(Read(ZUTEXT("1,234.50"), ZUTEXT("9,999.99")), 1234.5);
    EXPECT_EQ(Read(ZUTEXT("   12.50"), ZUTEXT("9,999.99")), 12.5);
    EXPECT_EQ(Read(ZUTEXT("12.50"), ZUTEXT("9,999.99")), NoMatch);
    EXPECT_EQ(Read(ZUTEXT("-12"), ZUTEXT("999")), -12);
    EXPECT_EQ(Read(ZUTEXT("12x"), ZUTEXT("99")), NoMatch);
    EXPECT_EQ(Read(ZUTEXT("12"), ZUTEXT("9999")), 12);  // positions may be left over
    EXPECT_EQ(Read(ZUTEXT(""), ZUTEXT("999")), 0);
    EXPECT_EQ(Read(ZUTEXT(""), ZUTEXT("")), 0);
    EXPECT_EQ(Read(ZUTEXT("12"), ZUTEXT("99.99")), 12);
    EXPECT_EQ(Read(ZUTEXT("12."), ZUTEXT("99.99")), 12);
    EXPECT_EQ(Read(ZUTEXT("1.5"), ZUTEXT("999.99")), 1.5);
    EXPECT_EQ(Read(ZUTEXT("1x2"), ZUTEXT("999")), 1);  // whatever stands at a digit position goes in
    EXPECT_EQ(Read(ZUTEXT("1.2 5"), ZUTEXT("9.999")), 1.25);
    EXPECT_EQ(Read(ZUTEXT("-1.5"), ZUTEXT("99.9")), -1.5);
    EXPECT_EQ(Read(ZUTEXT("-0.5"), ZUTEXT("99.9")), 0.5);
    EXPECT_EQ(Read(ZUTEXT("123"), ZUTEXT("S999MI")), 123);  // sign letters take nothing
    EXPECT_EQ(Read(ZUTEXT("+123"), ZUTEXT("S999")), NoMatch);
    EXPECT_EQ(Read(ZUTEXT("+123"), ZUTEXT("S9999")), 123);
}

TEST_F(SqlNumbers, ReadingSeparators) {
    EXPECT_EQ(Read(ZUTEXT("1 234"), ZUTEXT("9,999")), 1234);
    EXPECT_EQ(Read(ZUTEXT("1,234,567"), ZUTEXT("9,999,999")), 1234567);
    EXPECT_EQ(Read(ZUTEXT("1,234"), ZUTEXT("99,999")), 1234);     // the separator waits for its position
    EXPECT_EQ(Read(ZUTEXT("1,2,3"), ZUTEXT("9,99,9")), NoMatch);  // behind one position a digit's does not let it pass
    EXPECT_EQ(Read(ZUTEXT("1234"), ZUTEXT("9,999")), NoMatch);
    EXPECT_EQ(Read(ZUTEXT("1"), ZUTEXT("9,")), NoMatch);
    EXPECT_EQ(Read(ZUTEXT("1.5"), ZUTEXT("9.9.9")), NoMatch);
    EXPECT_EQ(Read(ZUTEXT("1x5"), ZUTEXT("9.9")), NoMatch);
}

TEST_F(SqlNumbers, ReadingCurrency) {
    EXPECT_EQ(Read(ZUTEXT("$12"), ZUTEXT("$99")), 12);
    EXPECT_EQ(Read(ZUTEXT("12$"), ZUTEXT("99L")), 12);
    EXPECT_EQ(Read(ZUTEXT("12"), ZUTEXT("$99")), NoMatch);
    EXPECT_EQ(Read(ZUTEXT("12"), ZUTEXT("99$")), NoMatch);
    const UserLocale euro(',', '.', 3, ZUTEXT("\u20AC"));
    EXPECT_EQ(Read(ZUTEXT("\u20AC12"), ZUTEXT("$99")), 12);
    EXPECT_EQ(Read(ZUTEXT("$12"), ZUTEXT("$99")), NoMatch);
    EXPECT_EQ(Read(ZUTEXT("1.234,5"), ZUTEXT("9,999.9")), 1234.5);
    EXPECT_EQ(Read(ZUTEXT("1,234.5"), ZUTEXT("9,999.9")), NoMatch);
}

// The digits of a format take any unit, and what they gathered is read as a number by itself.
TEST_F(SqlNumbers, ReadingTheLettersOfAnExponentAsDigits) {
    for (const wchar16* text : {ZUTEXT("9D2"), ZUTEXT("9d2"), ZUTEXT("9E2"), ZUTEXT("9e2")}) {
        EXPECT_EQ(Read(text, ZUTEXT("0000")), 900);
    }
}

TEST_F(SqlNumbers, ReadingANoBreakSpaceAsADigit) {
    EXPECT_EQ(Read(ZUTEXT("\u00A099"), ZUTEXT("0000")), 99);
    EXPECT_EQ(Read(ZUTEXT("9\u00A09"), ZUTEXT("0000")), 9);
}

TEST_F(SqlNumbers, ReadingExponents) {
    EXPECT_EQ(Read(ZUTEXT("1.5E3"), ZUTEXT("9.9E9")), 1500);
    EXPECT_EQ(Read(ZUTEXT("1.5e 3"), ZUTEXT("9.99E99")), 1500);
    EXPECT_EQ(Read(ZUTEXT("1.5E-3"), ZUTEXT("9.9e99")), 1.5 * 1e-3);
    EXPECT_EQ(Read(ZUTEXT("1.5E+3"), ZUTEXT("9.9E99")), 1500);
    EXPECT_EQ(Read(ZUTEXT("15E3"), ZUTEXT("99E9")), 15000);
    EXPECT_EQ(Read(ZUTEXT("1.5E"), ZUTEXT("9.9E9")), 1.5);
    EXPECT_EQ(Read(ZUTEXT("1.5"), ZUTEXT("9.9E9")), NoMatch);
    EXPECT_EQ(Read(ZUTEXT("1E2"), ZUTEXT("999E9")), NoMatch);  // before a point an E is taken in
    EXPECT_EQ(Read(ZUTEXT("1E2E"), ZUTEXT("9E9E")), NoMatch);
    EXPECT_EQ(Read(ZUTEXT("1E2.5"), ZUTEXT("9E9.9")), NoMatch);
    for (const wchar16* text : {ZUTEXT("9E+99"), ZUTEXT("1E+ 5"), ZUTEXT(""), ZUTEXT("1")}) {
        EXPECT_EQ(Read(text, ZUTEXT("9E+99")), NoMatch);
        EXPECT_EQ(Read(text, ZUTEXT("9E-99")), NoMatch);
    }
}

TEST_F(SqlNumbers, LongTexts) {
    EXPECT_EQ(Read(wstring16(511, '0'), wstring16(600, '9')), 0);
    EXPECT_EQ(Read(wstring16(512, '0'), wstring16(600, '9')), NoMatch);
    EXPECT_EQ(Read(wstring16(5000, ' '), wstring16(6000, '9')), 0);
    EXPECT_EQ(Read(wstring16(400, '9'), wstring16(400, '9')), Infinity);
    EXPECT_EQ(Read(ZUTEXT("0.") + wstring16(500, '9'), ZUTEXT("9.") + wstring16(600, '9')), 1);
    EXPECT_EQ(Read(ZUTEXT("0.25") + wstring16(500, '0'), ZUTEXT("9.") + wstring16(600, '9')), 0.25);
}

// Random formats and values against the plain form -------------------------------------------------------------------

class RandomNumbers {
public:
    explicit RandomNumbers(unsigned seed) : random(seed) {}

    std::size_t Below(std::size_t limit) { return random() % limit; }

    // Mostly formats that make sense, sometimes any mixture.
    wstring16 Format() {
        static const wchar16 any[] = ZUTEXT("99990000,GDL.$E+-SMIsegdl1x ");
        wstring16 format;
        if (Below(4) == 0) {
            for (auto length = Below(14); length > 0; --length) format += any[Below(std::size(any) - 1)];
            return format;
        }
        if (Below(6) == 0) format += Below(2) == 0 ? wchar16{'S'} : wchar16{'s'};
        if (format.empty() && Below(5) == 0) format += Below(2) == 0 ? wchar16{'$'} : wchar16{'L'};
        Digits(format, 7, true);
        if (Below(2) == 0) {
            format += Below(2) == 0 ? wchar16{'.'} : wchar16{'D'};
            Digits(format, 5, false);
        }
        if (Below(3) == 0) {
            format += 'E';
            if (Below(3) == 0) format += Below(2) == 0 ? wchar16{'+'} : wchar16{'-'};
            Digits(format, 4, false);
        }
        if (Below(6) == 0) format += Below(2) == 0 ? ZUTEXT("MI") : ZUTEXT("S");
        return format;
    }

    // Of all sizes, often exact halves, zeros and limits among them.
    double Value() {
        const double sign = Below(2) == 0 ? -1 : 1;
        switch (Below(8)) {
            case 0:
                return sign * static_cast<double>(Below(20));
            case 1:
                return sign * static_cast<double>(Below(100000)) / 8;
            case 2:
                return sign * static_cast<double>(Below(1000000)) / 1000;
            case 3:
                return sign * std::ldexp(static_cast<double>(random()), static_cast<int>(Below(120)) - 80);
            case 4:
                return sign * std::pow(10.0, static_cast<double>(Below(14)) - 6);
            case 5:
                return sign *
                       (std::pow(10.0, static_cast<double>(Below(8))) - std::pow(10.0, -static_cast<double>(Below(6))));
            case 6:
                return sign * std::ldexp(static_cast<double>(random()), static_cast<int>(Below(1800)) - 1000);
            default:
                return sign * 0.0;
        }
    }

    wstring16 Text() {
        static const wchar16 any[] = ZUTEXT("0123456789 ,.-+Ee$\u20AC");
        wstring16 text;
        for (auto length = Below(10); length > 0; --length) text += any[Below(std::size(any) - 1)];
        return text;
    }

private:
    void Digits(wstring16& format, std::size_t limit, bool grouped) {
        for (auto count = Below(limit); count > 0; --count) {
            format += Below(4) == 0 ? wchar16{'0'} : wchar16{'9'};
            if (grouped && Below(4) == 0) format += Below(2) == 0 ? wchar16{','} : wchar16{'G'};
        }
    }

    std::mt19937 random;
};

// The user's locales in turn: an ordinary one, one with the marks exchanged, and one whose characters have a meaning in
// formats themselves.
const test::PlainSymbols UsersSymbols[] = {{'.', ',', '$'}, {',', '.', 0x20AC}, {'D', 'E', '9'}};

class PlainComparison : public testing::TestWithParam<test::PlainSymbols> {
protected:
    const test::PlainSymbols symbols = GetParam();
    const wchar16 currency[2] = {symbols.currency, 0};
    const UserLocale locale{symbols.decimal, symbols.thousands, 3, currency};
    void TearDown() override { ClearErrors(); }
};

TEST_P(PlainComparison, Printing) {
    RandomNumbers random(21);
    int fitted = 0;
    for (int round = 0; round < 60000; ++round) {
        const wstring16 format = random.Format();
        const double value = random.Value();
        const test::PlainPrint expected = test::PlainSqlPrinter(format, symbols).Print(value);
        wchar16 out[64];
        const bool result = zuSQLDoubleToString(value, format.c_str(), out, std::size(out));
        ASSERT_EQ(result, expected.error == 0) << testing::PrintToString(format) << " " << value;
        if (result) {
            ASSERT_EQ(wstring16(out), expected.text) << testing::PrintToString(format) << " " << value;
            if (expected.text.find('#') == wstring16::npos) ++fitted;
        } else {
            ASSERT_EQ(TakeError(format), expected.error) << testing::PrintToString(format);
        }
    }
    EXPECT_GT(fitted, 10000);
}

TEST_P(PlainComparison, Reading) {
    RandomNumbers random(22);
    int matched = 0;
    for (int round = 0; round < 60000; ++round) {
        const wstring16 format = random.Format();
        wstring16 text = random.Text();
        wchar16 printed[64];
        if (random.Below(2) == 0 && zuSQLDoubleToString(random.Value(), format.c_str(), printed, 64)) text = printed;
        ClearErrors();
        const std::optional<double> expected = test::PlainSqlRead(text, format, symbols);
        double value = 77;
        const bool result = zuSQLStringToDouble(text.c_str(), format.c_str(), &value);
        ASSERT_EQ(result, expected.has_value()) << testing::PrintToString(format) << testing::PrintToString(text);
        if (result) {
            ++matched;
            const bool same = value == *expected || (std::isnan(value) && std::isnan(*expected));
            ASSERT_TRUE(same) << testing::PrintToString(format) << testing::PrintToString(text) << value;
        } else {
            ASSERT_EQ(TakeError(format), 67);
            ASSERT_EQ(value, 77);
        }
    }
    EXPECT_GT(matched, 5000);
}

INSTANTIATE_TEST_SUITE_P(SqlNumbers, PlainComparison, testing::ValuesIn(UsersSymbols));

}  // namespace
}  // namespace sql_numbers_test
