#include <Utility/number_parsing.h>
#include <gtest/gtest.h>
#include <support/user_locale.h>

#include <cerrno>
#include <cmath>
#include <functional>
#include <limits>

namespace number_parsing_test {
namespace {

using namespace Torvo;
using test::UserLocale;

constexpr int32 Min = std::numeric_limits<int32>::min();
constexpr int32 Max = std::numeric_limits<int32>::max();

// What one of the functions made of a text. Before the call, value and end hold something else.
template <typename T>
struct Answer {
    bool result;
    T value;
    std::ptrdiff_t end;  // how many units were read, -1 for null, 0 for a function without an end
    bool operator==(const Answer&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Answer& answer) {
        return out << answer.result << ", value " << +answer.value << ", end " << answer.end;
    }
};

template <typename T>
Answer<T> Failure() {
    return {false, 0, -1};
}

template <typename T>
Answer<T> Ask(const wstring16& text, const std::function<bool(const wchar16*, T*, wchar16**)>& function) {
    wchar16 elsewhere;
    wchar16* end = &elsewhere;
    T value = 77;
    const bool result = function(text.c_str(), &value, &end);
    T again = 77;
    EXPECT_EQ(function(text.c_str(), &again, nullptr), result);  // an end is not needed
    EXPECT_EQ(again, value);
    return {result, value, end == nullptr ? -1 : end - text.c_str()};
}

// The functions without an end.
template <typename T>
Answer<T> AskShort(const wstring16& text, const std::function<bool(const wchar16*, T*)>& function) {
    T value = 77;
    const bool result = function(text.c_str(), &value);
    return {result, value, 0};
}

Answer<int32> Int32(const wstring16& text, int32 min = Min, int32 max = Max) {
    return Ask<int32>(text, [&](auto t, auto v, auto e) { return StringToInt32(t, v, e, min, max); });
}

Answer<int> Int(const wstring16& text) {
    return Ask<int>(text, StringToInt);
}

Answer<int16> Short(const wstring16& text) {
    return Ask<int16>(text, StringToShort);
}

Answer<uint32> UInt32(const wstring16& text, int base = 10) {
    return Ask<uint32>(text, [&](auto t, auto v, auto e) { return StringToUnsignedInt32(t, v, e, base); });
}

Answer<double> Double(const wstring16& text) {
    return Ask<double>(text, StringToDouble);
}

TEST(NumberParsing, ANumberEndsWhereTheTextGoesOn) {
    EXPECT_EQ(Int32(ZUTEXT("12abc")), (Answer<int32>{true, 12, 2}));
    EXPECT_EQ(Int(ZUTEXT("  42  ")), (Answer<int>{true, 42, 4}));
    EXPECT_EQ(Int(ZUTEXT("+7.5")), (Answer<int>{true, 7, 2}));
    EXPECT_EQ(Short(ZUTEXT("-7-")), (Answer<int16>{true, -7, 2}));
    EXPECT_EQ(UInt32(ZUTEXT("7 8")), (Answer<uint32>{true, 7, 1}));
    EXPECT_EQ(Ask<unsigned int>(ZUTEXT("7x"), StringToUnsignedInt), (Answer<unsigned int>{true, 7, 1}));
    EXPECT_EQ(Double(ZUTEXT("1.5x")), (Answer<double>{true, 1.5, 3}));
}

TEST(NumberParsing, NoNumberFails) {
    for (const wchar16* text : {ZUTEXT(""), ZUTEXT("abc"), ZUTEXT(" "), ZUTEXT("-"), ZUTEXT("x1")}) {
        EXPECT_EQ(Int32(text), Failure<int32>());
        EXPECT_EQ(Int(text), Failure<int>());
        EXPECT_EQ(Short(text), Failure<int16>());
        EXPECT_EQ(UInt32(text), Failure<uint32>());
        EXPECT_EQ(Ask<unsigned int>(text, StringToUnsignedInt), Failure<unsigned int>());
        EXPECT_EQ(Double(text), Failure<double>());
        EXPECT_EQ(AskShort<int64>(text, StringToInt64), (Answer<int64>{false, 0, 0}));
        EXPECT_EQ(AskShort<uint64>(text, StringToUnsignedInt64), (Answer<uint64>{false, 0, 0}));
    }
    EXPECT_EQ(AskShort<uint32>(ZUTEXT("g"), StringToUnsignedLong16), (Answer<uint32>{false, 0, 0}));
}

// Calls a function with a null text and checks what it leaves.
template <typename T>
void ExpectNullFails(const std::function<bool(const wchar16*, T*, wchar16**)>& function) {
    wchar16 elsewhere;
    wchar16* end = &elsewhere;
    T value = 77;
    errno = 5;
    EXPECT_FALSE(function(nullptr, &value, &end));
    EXPECT_EQ(value, T{0});
    EXPECT_EQ(end, nullptr);
    EXPECT_EQ(errno, 5);
    EXPECT_FALSE(function(ZUTEXT("1"), nullptr, &end));
    EXPECT_EQ(end, nullptr);
}

template <typename T>
void ExpectNullFails(const std::function<bool(const wchar16*, T*)>& function) {
    T value = 77;
    errno = 5;
    EXPECT_FALSE(function(nullptr, &value));
    EXPECT_EQ(value, T{0});
    EXPECT_EQ(errno, 5);
    EXPECT_FALSE(function(ZUTEXT("1"), nullptr));
}

TEST(NumberParsing, ANullTextFails) {
    ExpectNullFails<int32>([](auto t, auto v, auto e) { return StringToInt32(t, v, e, Min, Max); });
    ExpectNullFails<int>(StringToInt);
    ExpectNullFails<int16>(StringToShort);
    ExpectNullFails<uint32>([](auto t, auto v, auto e) { return StringToUnsignedInt32(t, v, e, 10); });
    ExpectNullFails<unsigned int>(StringToUnsignedInt);
    ExpectNullFails<double>(StringToDouble);
    ExpectNullFails<uint32>(std::function<bool(const wchar16*, uint32*)>(StringToUnsignedLong16));
    ExpectNullFails<int64>(std::function<bool(const wchar16*, int64*)>(StringToInt64));
    ExpectNullFails<uint64>(std::function<bool(const wchar16*, uint64*)>(StringToUnsignedInt64));
    for (bool deformat : {false, true}) {
        const auto fails = [deformat]<typename T>(bool (*function)(const wchar16*, T*, bool)) {
            ExpectNullFails<T>(std::function<bool(const wchar16*, T*)>(
                [=](const wchar16* text, T* value) { return function(text, value, deformat); }));
        };
        fails(StringToIntFmtCtl);
        fails(StringToShortFmtCtl);
        fails(StringToUnsignedInt32FmtCtl);
        fails(StringToInt64FmtCtl);
        fails(StringToUnsignedInt64FmtCtl);
        fails(StringToDoubleFmtCtl);
        int32 value = 77;
        EXPECT_FALSE(StringToInt32FmtCtl(nullptr, &value, deformat, Min, Max));
        EXPECT_EQ(value, 0);
    }
}

TEST(NumberParsing, NumbersOutsideTheirRangeFail) {
    EXPECT_EQ(Int32(ZUTEXT("2147483647")), (Answer<int32>{true, Max, 10}));
    EXPECT_EQ(Int32(ZUTEXT("2147483648")), Failure<int32>());
    EXPECT_EQ(errno, ERANGE);
    EXPECT_EQ(Int32(ZUTEXT("-2147483648")), (Answer<int32>{true, Min, 11}));
    EXPECT_EQ(Int32(ZUTEXT("-2147483649")), Failure<int32>());
    EXPECT_EQ(Int32(ZUTEXT("10"), 10, 20), (Answer<int32>{true, 10, 2}));
    EXPECT_EQ(errno, 0);
    EXPECT_EQ(Int32(ZUTEXT("20"), 10, 20), (Answer<int32>{true, 20, 2}));
    EXPECT_EQ(Int32(ZUTEXT("9"), 10, 20), Failure<int32>());
    EXPECT_EQ(Int32(ZUTEXT("21"), 10, 20), Failure<int32>());
    EXPECT_EQ(Int32(ZUTEXT("15"), 20, 10), Failure<int32>());
    EXPECT_EQ(Int(ZUTEXT("2147483647")), (Answer<int>{true, Max, 10}));
    EXPECT_EQ(Int(ZUTEXT("2147483648")), Failure<int>());
    EXPECT_EQ(Short(ZUTEXT("32767")), (Answer<int16>{true, 32767, 5}));
    EXPECT_EQ(Short(ZUTEXT("32768")), Failure<int16>());
    EXPECT_EQ(Short(ZUTEXT("-32768")), (Answer<int16>{true, -32768, 6}));
    EXPECT_EQ(Short(ZUTEXT("-32769")), Failure<int16>());
    EXPECT_EQ(Short(ZUTEXT("40000")), Failure<int16>());
    EXPECT_EQ(UInt32(ZUTEXT("4294967295")), (Answer<uint32>{true, 4294967295u, 10}));
    EXPECT_EQ(UInt32(ZUTEXT("4294967296")), Failure<uint32>());
    EXPECT_EQ(Ask<unsigned int>(ZUTEXT("4294967296"), StringToUnsignedInt), Failure<unsigned int>());
}

TEST(NumberParsing, ErrnoIsWhatTheRuntimesReaderLeaves) {
    const auto left = [](auto read) {
        errno = 5;
        read();
        return errno;
    };
    int32 value;
    int16 small;
    uint32 bits;
    int64 wide;
    double real;
    EXPECT_EQ(left([&] { StringToShort(ZUTEXT("40000"), &small, nullptr); }), 0) << "it fits 32 bits";
    EXPECT_EQ(left([&] { StringToShort(ZUTEXT("+40000"), &small, nullptr); }), 0);
    EXPECT_EQ(left([&] { StringToShort(ZUTEXT("4000000000"), &small, nullptr); }), ERANGE);
    EXPECT_EQ(left([&] { StringToInt32(ZUTEXT("21"), &value, nullptr, 10, 20); }), 0);
    EXPECT_EQ(left([&] { StringToInt32(ZUTEXT("none"), &value, nullptr, 10, 20); }), 0);
    EXPECT_EQ(left([&] { StringToInt32(ZUTEXT("-2147483649"), &value, nullptr, 10, 20); }), ERANGE);
    EXPECT_EQ(left([&] { StringToUnsignedInt32(ZUTEXT("1"), &bits, nullptr, 37); }), EINVAL);
    EXPECT_EQ(left([&] { StringToUnsignedInt32(ZUTEXT("1"), &bits, nullptr, 36); }), 0);
    EXPECT_EQ(left([&] { StringToUnsignedInt(ZUTEXT("4294967296"), &bits, nullptr); }), ERANGE);
    EXPECT_EQ(left([&] { StringToInt64(ZUTEXT("1"), &wide); }), 5);
    EXPECT_EQ(left([&] { StringToInt64(ZUTEXT("99999999999999999999"), &wide); }), ERANGE);
    EXPECT_EQ(left([&] { StringToDouble(ZUTEXT("1"), &real, nullptr); }), 0);
    EXPECT_EQ(left([&] { StringToDouble(ZUTEXT("1e999"), &real, nullptr); }), ERANGE);
    const wstring16 tooLong(200, '1');
    EXPECT_EQ(left([&] { StringToIntFmtCtl(tooLong.c_str(), &value, true); }), 5) << "it is not read";
    EXPECT_EQ(left([&] { StringToDoubleFmtCtl(tooLong.c_str(), &real, true); }), 5);
}

TEST(NumberParsing, UnsignedNumbersTakeAMinusAndABase) {
    EXPECT_EQ(UInt32(ZUTEXT("-1")), (Answer<uint32>{true, 4294967295u, 2}));
    EXPECT_EQ(Ask<unsigned int>(ZUTEXT("-1"), StringToUnsignedInt), (Answer<unsigned int>{true, 4294967295u, 2}));
    EXPECT_EQ(UInt32(ZUTEXT("ff"), 16), (Answer<uint32>{true, 255, 2}));
    EXPECT_EQ(UInt32(ZUTEXT("0xff"), 16), (Answer<uint32>{true, 255, 4}));
    EXPECT_EQ(UInt32(ZUTEXT("0xff"), 0), (Answer<uint32>{true, 255, 4}));
    EXPECT_EQ(UInt32(ZUTEXT("010"), 0), (Answer<uint32>{true, 8, 3}));
    EXPECT_EQ(UInt32(ZUTEXT("10"), 0), (Answer<uint32>{true, 10, 2}));
    EXPECT_EQ(UInt32(ZUTEXT("1012"), 2), (Answer<uint32>{true, 5, 3}));
    for (int base : {1, 37, -10}) EXPECT_EQ(UInt32(ZUTEXT("1"), base), Failure<uint32>());
    EXPECT_EQ(AskShort<uint32>(ZUTEXT("ff"), StringToUnsignedLong16), (Answer<uint32>{true, 255, 0}));
    EXPECT_EQ(AskShort<uint32>(ZUTEXT(" 0XfFz"), StringToUnsignedLong16), (Answer<uint32>{true, 255, 0}));
    EXPECT_EQ(AskShort<uint32>(ZUTEXT("ffffffff"), StringToUnsignedLong16), (Answer<uint32>{true, 4294967295u, 0}));
    EXPECT_EQ(AskShort<uint32>(ZUTEXT("100000000"), StringToUnsignedLong16), (Answer<uint32>{false, 0, 0}));
}

TEST(NumberParsing, NumbersOf64BitsDoNotOverflow) {
    constexpr int64 Min64 = std::numeric_limits<int64>::min();
    constexpr int64 Max64 = std::numeric_limits<int64>::max();
    constexpr uint64 MaxU64 = std::numeric_limits<uint64>::max();
    errno = 5;
    EXPECT_EQ(AskShort<int64>(ZUTEXT("-12abc"), StringToInt64), (Answer<int64>{true, -12, 0}));
    EXPECT_EQ(errno, 5);  // neither read nor cleared
    EXPECT_EQ(AskShort<int64>(ZUTEXT("99999999999999999999"), StringToInt64), (Answer<int64>{true, Max64, 0}));
    EXPECT_EQ(AskShort<int64>(ZUTEXT("-99999999999999999999"), StringToInt64), (Answer<int64>{true, Min64, 0}));
    EXPECT_EQ(AskShort<int64>(ZUTEXT("9223372036854775807"), StringToInt64), (Answer<int64>{true, Max64, 0}));
    EXPECT_EQ(AskShort<uint64>(ZUTEXT("18446744073709551615"), StringToUnsignedInt64),
              (Answer<uint64>{true, MaxU64, 0}));
    EXPECT_EQ(AskShort<uint64>(ZUTEXT("99999999999999999999"), StringToUnsignedInt64),
              (Answer<uint64>{true, MaxU64, 0}));
    EXPECT_EQ(AskShort<uint64>(ZUTEXT("-1"), StringToUnsignedInt64), (Answer<uint64>{true, MaxU64, 0}));
}

TEST(NumberParsing, WhatAUserTypedIsDeformattedFirst) {
    UserLocale english('.', ',', 3);
    int32 number = 77;
    EXPECT_TRUE(StringToInt32FmtCtl(ZUTEXT("1,234"), &number, true, Min, Max));
    EXPECT_EQ(number, 1234);
    EXPECT_TRUE(StringToInt32FmtCtl(ZUTEXT("1,234"), &number, false, Min, Max));
    EXPECT_EQ(number, 1);
    EXPECT_FALSE(StringToInt32FmtCtl(ZUTEXT("1,234"), &number, true, 0, 1000));
    EXPECT_EQ(number, 0);
    int plain = 77;
    EXPECT_TRUE(StringToIntFmtCtl(ZUTEXT("-2,147,483,648"), &plain, true));
    EXPECT_EQ(plain, Min);
    EXPECT_FALSE(StringToIntFmtCtl(ZUTEXT("2,147,483,648"), &plain, true));
    EXPECT_EQ(plain, 0);
    int16 small = 77;
    EXPECT_TRUE(StringToShortFmtCtl(ZUTEXT("32,767"), &small, true));
    EXPECT_EQ(small, 32767);
    EXPECT_FALSE(StringToShortFmtCtl(ZUTEXT("32,768"), &small, true));
    EXPECT_EQ(small, 0);
    EXPECT_TRUE(StringToShortFmtCtl(ZUTEXT("32,768"), &small, false));
    EXPECT_EQ(small, 32);
    uint32 positive = 77;
    EXPECT_TRUE(StringToUnsignedInt32FmtCtl(ZUTEXT("4,294,967,295"), &positive, true));
    EXPECT_EQ(positive, 4294967295u);
    EXPECT_FALSE(StringToUnsignedInt32FmtCtl(ZUTEXT("4,294,967,296"), &positive, true));
    EXPECT_EQ(positive, 0u);
    int64 wide = 77;
    EXPECT_TRUE(StringToInt64FmtCtl(ZUTEXT("-1,000,000,000,000"), &wide, true));
    EXPECT_EQ(wide, -1000000000000);
    uint64 wideUnsigned = 77;
    EXPECT_TRUE(StringToUnsignedInt64FmtCtl(ZUTEXT("1,000,000,000,000"), &wideUnsigned, true));
    EXPECT_EQ(wideUnsigned, 1000000000000u);
    EXPECT_FALSE(StringToUnsignedInt64FmtCtl(ZUTEXT(",,"), &wideUnsigned, true));
    EXPECT_EQ(wideUnsigned, 0u);
    double real = 77;
    EXPECT_TRUE(StringToDoubleFmtCtl(ZUTEXT("1,234.5"), &real, true));
    EXPECT_EQ(real, 1234.5);
    UserLocale german(',', '.', 3);
    EXPECT_TRUE(StringToDoubleFmtCtl(ZUTEXT("1.234,5"), &real, true));
    EXPECT_EQ(real, 1234.5);
    EXPECT_TRUE(StringToDoubleFmtCtl(ZUTEXT("1.234,5"), &real, false));
    EXPECT_EQ(real, 1.234);
}

TEST(NumberParsing, ATypedTextHasAtMostNinetyNineUnits) {
    UserLocale english('.', ',', 3);
    const wstring16 longest = wstring16(98, ',') + ZUTEXT("5");
    int value = 77;
    EXPECT_TRUE(StringToIntFmtCtl(longest.c_str(), &value, true));
    EXPECT_EQ(value, 5);
    const wstring16 tooLong = wstring16(99, ',') + ZUTEXT("5");
    EXPECT_FALSE(StringToIntFmtCtl(tooLong.c_str(), &value, true));
    EXPECT_EQ(value, 0);
    const wstring16 spaces = wstring16(5000, ' ') + ZUTEXT("5");
    EXPECT_TRUE(StringToIntFmtCtl(spaces.c_str(), &value, false));
    EXPECT_EQ(value, 5);
}

TEST(NumberParsing, Doubles) {
    EXPECT_EQ(Double(ZUTEXT("1.5")), (Answer<double>{true, 1.5, 3}));
    EXPECT_EQ(Double(ZUTEXT("  -1.5e-3 ")), (Answer<double>{true, -0.0015, 9}));
    EXPECT_EQ(Double(ZUTEXT("1.5d2")), (Answer<double>{true, 150, 5}));
    EXPECT_EQ(Double(ZUTEXT(".5")), (Answer<double>{true, 0.5, 2}));
    EXPECT_EQ(Double(ZUTEXT("5.")), (Answer<double>{true, 5, 2}));
    EXPECT_EQ(Double(ZUTEXT("1,5")), (Answer<double>{true, 1, 1}));
    EXPECT_EQ(Double(ZUTEXT("1.5.5")), (Answer<double>{true, 1.5, 3}));
    EXPECT_EQ(Double(ZUTEXT("-122.332071234567")), (Answer<double>{true, -122.332071234567, 17}));
    EXPECT_EQ(Double(ZUTEXT("0.30000000000000004")), (Answer<double>{true, 0.30000000000000004, 19}));
    for (const wchar16* nothing : {ZUTEXT("."), ZUTEXT("-."), ZUTEXT("e5"), ZUTEXT("--1")}) {
        EXPECT_EQ(Double(nothing), Failure<double>());
    }
}

TEST(NumberParsing, DoublesThatDoNotFitFail) {
    EXPECT_EQ(Double(ZUTEXT("1e999")), Failure<double>());
    EXPECT_EQ(errno, ERANGE);
    EXPECT_EQ(Double(ZUTEXT("-1e999")), Failure<double>());
    EXPECT_EQ(Double(ZUTEXT("1e-999")), Failure<double>());
    EXPECT_EQ(Double(ZUTEXT("0e999")), (Answer<double>{true, 0, 5}));
    EXPECT_EQ(errno, 0);
    EXPECT_EQ(Double(ZUTEXT("5e-324")), (Answer<double>{true, 5e-324, 6}));
}

TEST(NumberParsing, OtherFormsOfDoublesInTheLocaleCalledC) {
    EXPECT_EQ(Double(ZUTEXT("0x1.8p3")), (Answer<double>{true, 12, 7}));
    EXPECT_EQ(Double(ZUTEXT("-inf")), (Answer<double>{true, -std::numeric_limits<double>::infinity(), 4}));
    double value = 77;
    EXPECT_TRUE(StringToDouble(ZUTEXT("nan"), &value, nullptr));
    EXPECT_TRUE(std::isnan(value));
}

}  // namespace
}  // namespace number_parsing_test
