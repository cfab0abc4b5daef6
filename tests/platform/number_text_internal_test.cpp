#include <Utility/platform/number_text.h>
#include <gtest/gtest.h>

#include <bit>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace number_text_internal_test {
namespace {

using namespace Torvo;
using platform::NumberForms;

wstring16 Widen(const std::string& text) {
    return {text.begin(), text.end()};
}

// What a reader made of a text: the number, how many units it read, and errno.
template <typename T>
struct Answer {
    T number;
    std::ptrdiff_t read;
    int error;
    bool operator==(const Answer&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Answer& answer) {
        return out << answer.number << " after " << answer.read << " units, errno " << answer.error;
    }
};

template <typename T>
Answer<T> Ask(T (*reader)(const wchar16*, wchar16**, int), const wstring16& text, int base = 10) {
    wchar16* end = nullptr;
    errno = 0;
    const T number = reader(text.c_str(), &end, base);
    return {number, end - text.c_str(), errno};
}

Answer<double> AskDouble(const wstring16& text, NumberForms forms = NumberForms::All, wchar16 mark = '.') {
    wchar16* end = nullptr;
    errno = 0;
    const double number = platform::ReadDouble(text.c_str(), &end, mark, forms);
    return {number, end - text.c_str(), errno};
}

using Long = Answer<long32>;
using ULong = Answer<ulong32>;
using I64 = Answer<int64>;
using U64 = Answer<uint64>;
using Double = Answer<double>;

constexpr double Infinity = std::numeric_limits<double>::infinity();

TEST(NumberText, IntegersEndWhereTheirDigitsDo) {
    EXPECT_EQ(Ask(platform::wcstol, ZUTEXT("12abc")), (Long{12, 2, 0}));
    EXPECT_EQ(Ask(platform::wcstol, ZUTEXT("  42  ")), (Long{42, 4, 0}));
    EXPECT_EQ(Ask(platform::wcstol, ZUTEXT("+5")), (Long{5, 2, 0}));
    EXPECT_EQ(Ask(platform::wcstol, ZUTEXT("-5")), (Long{-5, 2, 0}));
    for (const wchar16* nothing :
         {ZUTEXT(""), ZUTEXT("abc"), ZUTEXT("--5"), ZUTEXT("+-5"), ZUTEXT("- 5"), ZUTEXT(" ")}) {
        EXPECT_EQ(Ask(platform::wcstol, nothing), (Long{0, 0, 0}));
        EXPECT_EQ(Ask(platform::_wcstoui64, nothing), (U64{0, 0, 0}));
    }
}

TEST(NumberText, IntegersStopAtTheLimitsOfTheirType) {
    EXPECT_EQ(Ask(platform::wcstol, ZUTEXT("2147483647")), (Long{2147483647, 10, 0}));
    EXPECT_EQ(Ask(platform::wcstol, ZUTEXT("2147483648")), (Long{2147483647, 10, ERANGE}));
    EXPECT_EQ(Ask(platform::wcstol, ZUTEXT("-2147483648")), (Long{std::numeric_limits<int32>::min(), 11, 0}));
    EXPECT_EQ(Ask(platform::wcstol, ZUTEXT("-2147483649")), (Long{std::numeric_limits<int32>::min(), 11, ERANGE}));
    EXPECT_EQ(Ask(platform::wcstoul, ZUTEXT("4294967295")), (ULong{4294967295u, 10, 0}));
    EXPECT_EQ(Ask(platform::wcstoul, ZUTEXT("4294967296")), (ULong{4294967295u, 10, ERANGE}));
    EXPECT_EQ(Ask(platform::_wcstoi64, ZUTEXT("9223372036854775807")), (I64{std::numeric_limits<int64>::max(), 19, 0}));
    EXPECT_EQ(Ask(platform::_wcstoi64, ZUTEXT("9223372036854775808")),
              (I64{std::numeric_limits<int64>::max(), 19, ERANGE}));
    EXPECT_EQ(Ask(platform::_wcstoi64, ZUTEXT("-9223372036854775808")),
              (I64{std::numeric_limits<int64>::min(), 20, 0}));
    EXPECT_EQ(Ask(platform::_wcstoi64, ZUTEXT("-9223372036854775809")),
              (I64{std::numeric_limits<int64>::min(), 20, ERANGE}));
    EXPECT_EQ(Ask(platform::_wcstoui64, ZUTEXT("18446744073709551615")),
              (U64{std::numeric_limits<uint64>::max(), 20, 0}));
    EXPECT_EQ(Ask(platform::_wcstoui64, ZUTEXT("18446744073709551616")),
              (U64{std::numeric_limits<uint64>::max(), 20, ERANGE}));
    EXPECT_EQ(Ask(platform::_wcstoui64, ZUTEXT("99999999999999999999x")),
              (U64{std::numeric_limits<uint64>::max(), 20, ERANGE}));
}

TEST(NumberText, AnUnsignedNumberTakesAMinusModuloItsRange) {
    EXPECT_EQ(Ask(platform::wcstoul, ZUTEXT("-1")), (ULong{4294967295u, 2, 0}));
    EXPECT_EQ(Ask(platform::wcstoul, ZUTEXT("-4294967295")), (ULong{1, 11, 0}));
    EXPECT_EQ(Ask(platform::wcstoul, ZUTEXT("-4294967296")), (ULong{4294967295u, 11, ERANGE}));
    EXPECT_EQ(Ask(platform::_wcstoui64, ZUTEXT("-1")), (U64{std::numeric_limits<uint64>::max(), 2, 0}));
    EXPECT_EQ(Ask(platform::_wcstoui64, ZUTEXT("-99999999999999999999")),
              (U64{std::numeric_limits<uint64>::max(), 21, ERANGE}));
}

TEST(NumberText, ABaseBringsItsDigitsAndPrefix) {
    EXPECT_EQ(Ask(platform::wcstoul, ZUTEXT("0x1F"), 16), (ULong{31, 4, 0}));
    EXPECT_EQ(Ask(platform::wcstoul, ZUTEXT("1f"), 16), (ULong{31, 2, 0}));
    EXPECT_EQ(Ask(platform::wcstol, ZUTEXT("-0X10"), 16), (Long{-16, 5, 0}));
    EXPECT_EQ(Ask(platform::wcstoul, ZUTEXT("0x1F"), 10), (ULong{0, 1, 0}));
    EXPECT_EQ(Ask(platform::wcstoul, ZUTEXT("0x1F"), 0), (ULong{31, 4, 0}));
    EXPECT_EQ(Ask(platform::wcstoul, ZUTEXT("077"), 0), (ULong{63, 3, 0}));
    EXPECT_EQ(Ask(platform::wcstoul, ZUTEXT("08"), 0), (ULong{0, 1, 0}));
    EXPECT_EQ(Ask(platform::wcstoul, ZUTEXT("99"), 0), (ULong{99, 2, 0}));
    EXPECT_EQ(Ask(platform::wcstoul, ZUTEXT("zz"), 36), (ULong{1295, 2, 0}));
    EXPECT_EQ(Ask(platform::wcstoul, ZUTEXT("0x1F"), 36), (ULong{42819, 4, 0}));
    EXPECT_EQ(Ask(platform::wcstoul, ZUTEXT("102"), 2), (ULong{2, 2, 0}));
    for (int base : {0, 16}) {  // a prefix alone is no number
        EXPECT_EQ(Ask(platform::wcstoul, ZUTEXT("0x"), base), (ULong{0, 0, 0}));
        EXPECT_EQ(Ask(platform::wcstoul, ZUTEXT("0xg"), base), (ULong{0, 0, 0}));
    }
    for (int base : {1, 37, -1}) EXPECT_EQ(Ask(platform::wcstoul, ZUTEXT("1"), base), (ULong{0, 0, EINVAL}));
}

TEST(NumberText, DigitsOfOtherScriptsAreDigitsForIntegers) {
    EXPECT_EQ(Ask(platform::wcstol, ZUTEXT("\u0661\u0662")), (Long{12, 2, 0}));
    EXPECT_EQ(Ask(platform::wcstol, ZUTEXT("1\uFF12\u0663")), (Long{123, 3, 0}));
    EXPECT_EQ(Ask(platform::wcstol, ZUTEXT("\uFF0F")), (Long{0, 0, 0}));
    EXPECT_EQ(Ask(platform::wcstol, ZUTEXT("\uFF1A")), (Long{0, 0, 0}));
    EXPECT_EQ(Ask(platform::wcstol, ZUTEXT("\uFF21"), 16), (Long{0, 0, 0}));
    EXPECT_EQ(AskDouble(ZUTEXT("\uFF11")), (Double{0, 0, 0}));
}

TEST(NumberText, WhiteSpaceIsThatOfUnicode) {
    for (wchar16 space : wstring16(ZUTEXT("\t\n\v\f\r \u00A0\u1680\u2000\u200A\u2028\u202F\u205F\u3000"))) {
        EXPECT_TRUE(platform::iswspace(space)) << int(space);
        EXPECT_EQ(Ask(platform::wcstol, wstring16(1, space) + ZUTEXT("7")), (Long{7, 2, 0})) << int(space);
        EXPECT_EQ(AskDouble(wstring16(1, space) + ZUTEXT("7")), (Double{7, 2, 0})) << int(space);
        const bool plain = space < 0x80;
        EXPECT_EQ(AskDouble(wstring16(1, space) + ZUTEXT("7"), NumberForms::Decimal).read, plain ? 2 : 0) << int(space);
    }
    for (wchar16 other : wstring16(ZUTEXT("\x1F\u0085\u200B\uFEFF\u180E"))) {
        EXPECT_FALSE(platform::iswspace(other)) << int(other);
        EXPECT_EQ(Ask(platform::wcstol, wstring16(1, other) + ZUTEXT("7")), (Long{0, 0, 0})) << int(other);
    }
}

TEST(NumberText, DoublesInDecimal) {
    for (NumberForms forms : {NumberForms::Decimal, NumberForms::All}) {
        EXPECT_EQ(AskDouble(ZUTEXT("1.5"), forms), (Double{1.5, 3, 0}));
        EXPECT_EQ(AskDouble(ZUTEXT("1.5e2"), forms), (Double{150, 5, 0}));
        EXPECT_EQ(AskDouble(ZUTEXT("1.5d2"), forms), (Double{150, 5, 0}));
        EXPECT_EQ(AskDouble(ZUTEXT("1.5D+2"), forms), (Double{150, 6, 0}));
        EXPECT_EQ(AskDouble(ZUTEXT("1.5e"), forms), (Double{1.5, 3, 0}));
        EXPECT_EQ(AskDouble(ZUTEXT("1.5e+"), forms), (Double{1.5, 3, 0}));
        EXPECT_EQ(AskDouble(ZUTEXT("1.5e-x"), forms), (Double{1.5, 3, 0}));
        EXPECT_EQ(AskDouble(ZUTEXT(".5"), forms), (Double{0.5, 2, 0}));
        EXPECT_EQ(AskDouble(ZUTEXT("5."), forms), (Double{5, 2, 0}));
        EXPECT_EQ(AskDouble(ZUTEXT("-.5e-1x"), forms), (Double{-0.05, 6, 0}));
        EXPECT_EQ(AskDouble(ZUTEXT("1,5"), forms), (Double{1, 1, 0}));
        EXPECT_EQ(AskDouble(ZUTEXT("1,5"), forms, ','), (Double{1.5, 3, 0}));
        EXPECT_EQ(AskDouble(ZUTEXT("1.5"), forms, ','), (Double{1, 1, 0}));
        for (const wchar16* nothing :
             {ZUTEXT(""), ZUTEXT("."), ZUTEXT("-"), ZUTEXT("e5"), ZUTEXT("-.e5"), ZUTEXT("+-1")}) {
            EXPECT_EQ(AskDouble(nothing, forms), (Double{0, 0, 0}));
        }
        EXPECT_TRUE(std::signbit(AskDouble(ZUTEXT("-0"), forms).number));
    }
}

TEST(NumberText, DoublesAtTheEndsOfTheirRange) {
    EXPECT_EQ(AskDouble(ZUTEXT("1e999")), (Double{Infinity, 5, ERANGE}));
    EXPECT_EQ(AskDouble(ZUTEXT("-1e99999999999999999999")), (Double{-Infinity, 23, ERANGE}));
    EXPECT_EQ(AskDouble(ZUTEXT("1e-999")), (Double{0, 6, ERANGE}));
    EXPECT_EQ(AskDouble(ZUTEXT("0e999")), (Double{0, 5, 0}));
    EXPECT_EQ(AskDouble(ZUTEXT("1.7976931348623157e308")), (Double{std::numeric_limits<double>::max(), 22, 0}));
    EXPECT_EQ(AskDouble(ZUTEXT("1.7976931348623159e308")), (Double{Infinity, 22, ERANGE}));
    EXPECT_EQ(AskDouble(ZUTEXT("1e-310")), (Double{1e-310, 6, 0}));
    EXPECT_EQ(AskDouble(ZUTEXT("4.9e-324")), (Double{std::numeric_limits<double>::denorm_min(), 8, 0}));
    EXPECT_EQ(AskDouble(ZUTEXT("2e-324")), (Double{0, 6, ERANGE}));
    // A long text whose exponent has the other sign than its size.
    EXPECT_EQ(AskDouble(wstring16(800, '9') + ZUTEXT("e-100")), (Double{Infinity, 805, ERANGE}));
    EXPECT_EQ(AskDouble(ZUTEXT("0.") + wstring16(800, '0') + ZUTEXT("1e100")), (Double{0, 807, ERANGE}));
    EXPECT_EQ(AskDouble(ZUTEXT("0.") + wstring16(800, '0') + ZUTEXT("1e801")), (Double{1, 807, 0}));
    EXPECT_EQ(AskDouble(ZUTEXT("1") + wstring16(800, '0') + ZUTEXT("e-800")), (Double{1, 806, 0}));
}

TEST(NumberText, DoublesAreRoundedByAllTheirDigits) {
    EXPECT_EQ(AskDouble(ZUTEXT("1e23")).number, 1e23);
    EXPECT_EQ(AskDouble(ZUTEXT("9007199254740993")).number, 9007199254740992.0);
    EXPECT_EQ(AskDouble(ZUTEXT("9007199254740993.") + wstring16(2000, '0')).number, 9007199254740992.0);
    EXPECT_EQ(AskDouble(ZUTEXT("9007199254740993.") + wstring16(2000, '0') + ZUTEXT("1")).number, 9007199254740994.0);
    EXPECT_EQ(AskDouble(ZUTEXT("2.2250738585072011e-308")).number, 2.2250738585072011e-308);
}

TEST(NumberText, OtherFormsOfDoubles) {
    EXPECT_EQ(AskDouble(ZUTEXT("0x10")), (Double{16, 4, 0}));
    EXPECT_EQ(AskDouble(ZUTEXT("-0X1.8P3z")), (Double{-12, 8, 0}));
    EXPECT_EQ(AskDouble(ZUTEXT("0x.8")), (Double{0.5, 4, 0}));
    EXPECT_EQ(AskDouble(ZUTEXT("0x")), (Double{0, 1, 0}));
    EXPECT_EQ(AskDouble(ZUTEXT("0xg")), (Double{0, 1, 0}));
    EXPECT_EQ(AskDouble(ZUTEXT("0x1p99999")), (Double{Infinity, 9, ERANGE}));
    EXPECT_EQ(AskDouble(ZUTEXT("0x1p-99999")), (Double{0, 10, ERANGE}));
    EXPECT_EQ(AskDouble(ZUTEXT("0x1p-1074")), (Double{std::numeric_limits<double>::denorm_min(), 9, 0}));
    EXPECT_EQ(AskDouble(ZUTEXT("0x1.00000000000008") + wstring16(900, '0') + ZUTEXT("1")).number,
              1 + std::numeric_limits<double>::epsilon());
    EXPECT_EQ(AskDouble(ZUTEXT("0x1.00000000000008") + wstring16(900, '0')).number, 1);
    EXPECT_EQ(AskDouble(ZUTEXT("inf")), (Double{Infinity, 3, 0}));
    EXPECT_EQ(AskDouble(ZUTEXT("-INFINITYx")), (Double{-Infinity, 9, 0}));
    EXPECT_EQ(AskDouble(ZUTEXT("infinit")), (Double{Infinity, 3, 0}));
    EXPECT_TRUE(std::isnan(AskDouble(ZUTEXT("nan")).number));
    EXPECT_EQ(AskDouble(ZUTEXT("NaN(a_1)x")).read, 8);
    EXPECT_EQ(AskDouble(ZUTEXT("nan(a-1)")).read, 3);
    EXPECT_EQ(AskDouble(ZUTEXT("nan(")).read, 3);
    for (const wchar16* other : {ZUTEXT("inf"), ZUTEXT("nan")}) {
        EXPECT_EQ(AskDouble(other, NumberForms::Decimal), (Double{0, 0, 0}));
    }
    EXPECT_EQ(AskDouble(ZUTEXT("0x10"), NumberForms::Decimal), (Double{0, 1, 0}));
}

// Every double, printed in any number of digits, is read as the standard library reads the same text.
TEST(NumberText, RandomDoublesAgreeWithTheStandardLibrary) {
    std::mt19937_64 random(7);
    for (int round = 0; round < 200000; ++round) {
        double value;
        const uint64 bits = random();
        if (round % 2 == 0) {
            value = static_cast<double>(static_cast<int64>(bits) >> (bits % 60)) / std::pow(10.0, random() % 20);
        } else {
            value = std::bit_cast<double>(bits);
        }
        if (!std::isfinite(value)) continue;
        char text[1200];
        const auto format = random() % 3 == 0 ? std::chars_format::fixed : std::chars_format::scientific;
        const auto printed = std::to_chars(text, std::end(text), value, format, static_cast<int>(random() % 24));
        ASSERT_EQ(printed.ec, std::errc());
        const std::string narrow(text, printed.ptr);
        double expected = 0;
        const auto read = std::from_chars(text, printed.ptr, expected);
        const Double answer = AskDouble(Widen(narrow));
        ASSERT_EQ(answer.read, read.ptr - text) << narrow;
        if (read.ec == std::errc()) {
            ASSERT_EQ(std::signbit(answer.number), std::signbit(expected)) << narrow;
            ASSERT_EQ(answer.number, expected) << narrow;
            ASSERT_EQ(answer.error, 0) << narrow;
        } else {
            ASSERT_EQ(answer.error, ERANGE) << narrow;
        }
    }
}

TEST(NumberText, RandomIntegersAgreeWithTheStandardLibrary) {
    std::mt19937_64 random(8);
    for (int round = 0; round < 100000; ++round) {
        const int base = static_cast<int>(random() % 35) + 2;
        std::string text(random() % 2 == 0 ? "" : "-");
        for (auto digits = random() % 22 + 1; digits > 0; --digits) {
            text += "0123456789abcdefghijklmnopqrstuvwxyz"[random() % 36];
        }
        if (base == 16 && text.find('x') < 3) continue;
        int64 expected = 0;
        const auto read = std::from_chars(text.data(), text.data() + text.size(), expected, base);
        const I64 answer = Ask(platform::_wcstoi64, Widen(text), base);
        if (read.ec == std::errc::invalid_argument) {
            ASSERT_EQ(answer, (I64{0, 0, 0})) << text << " in base " << base;
        } else if (read.ec == std::errc()) {
            ASSERT_EQ(answer, (I64{expected, read.ptr - text.data(), 0})) << text << " in base " << base;
        } else {
            ASSERT_EQ(answer.error, ERANGE) << text << " in base " << base;
            ASSERT_EQ(answer.read, read.ptr - text.data()) << text << " in base " << base;
        }
    }
}

}  // namespace
}  // namespace number_text_internal_test
