// What the C runtime's numeric locale changes in printing and reading: nothing, but the forms that wcstod takes.
#include <Utility/instance.h>
#include <Utility/number_parsing.h>
#include <Utility/number_printing.h>
#include <gtest/gtest.h>
#include <support/numeric_locale.h>
#include <support/user_locale.h>

#include <atomic>
#include <clocale>
#include <cstdlib>
#include <thread>

namespace numeric_locale_test {
namespace {

using namespace Torvo;
using test::NumericLocale;
using test::UserLocale;

constexpr uint64 Size = 64;

wstring16 Printed(double value, int32 precision, PRINTF_FORMAT format, bool group = false) {
    wchar16 text[Size];
    return DoubleToString(value, text, Size, group, precision, format, -1);
}

wstring16 Coordinate(double value) {
    wchar16 text[Size];
    return CoordinateToString(value, text, Size);
}

// Reads a number; *read becomes how many units it took, -1 on failure.
double Read(const wchar16* text, std::ptrdiff_t* read) {
    double value;
    wchar16* end;
    *read = StringToDouble(text, &value, &end) ? end - text : -1;
    return value;
}

void ExpectRead(const wchar16* text, double value, std::ptrdiff_t length) {
    std::ptrdiff_t read;
    EXPECT_EQ(Read(text, &read), value);
    EXPECT_EQ(read, length);
}

class NumericLocales : public testing::TestWithParam<std::string (*)()> {};

TEST_P(NumericLocales, PrintingIsNeutralAndReadingToo) {
    const std::string name = GetParam()();
    const NumericLocale locale(name);
    if (!locale.IsSet()) GTEST_SKIP() << "the runtime has no locale \"" << name << "\"";

    const UserLocale english('.', ',', 3);
    EXPECT_EQ(Printed(1234.5, 2, PRINTF_FORMAT_F), ZUTEXT("1234.50"));
    EXPECT_EQ(Printed(1234567.25, 2, PRINTF_FORMAT_F, true), ZUTEXT("1,234,567.25"));
    EXPECT_EQ(Printed(1.5e20, -1, PRINTF_FORMAT_E), ZUTEXT("1.500000e+20"));
    EXPECT_EQ(Printed(1234567.5, -1, PRINTF_FORMAT_G), ZUTEXT("1234567.5"));
    EXPECT_EQ(Coordinate(-0.5), ZUTEXT("-0.5"));
    EXPECT_EQ(Coordinate(1234567), ZUTEXT("1234567"));
    wchar16 field[7];
    DoubleToDBString(field, 6, 2, 12.5);
    EXPECT_EQ(wstring16(field), ZUTEXT(" 12.50"));
    wchar16 edited[Size];
    EXPECT_EQ(wstring16(DoubleToStringEditCtl(1234.5, edited, Size, true)), ZUTEXT("1,234.5"));

    ExpectRead(ZUTEXT("1.5"), 1.5, 3);
    ExpectRead(ZUTEXT("1,5"), 1, 1);
    ExpectRead(ZUTEXT("1.5d2"), 150, 5);
    ExpectRead(ZUTEXT("1.5D-1x"), 0.15, 6);
    ExpectRead(ZUTEXT("\t\n -.5e1"), -5, 8);
    ExpectRead(ZUTEXT("1.5e+"), 1.5, 3);
    ExpectRead(ZUTEXT("1e999"), 0, -1);
    ExpectRead(ZUTEXT("1e-999"), 0, -1);
    ExpectRead(ZUTEXT("."), 0, -1);
    ExpectRead(ZUTEXT(",5"), 0, -1);
    ExpectRead(ZUTEXT("x"), 0, -1);
    ExpectRead(ZUTEXT(""), 0, -1);
    // Only where the locale is "C" a number may be anything but decimal digits.
    const bool isC = name == "C";
    ExpectRead(ZUTEXT("0x10"), isC ? 16 : 0, isC ? 4 : 1);
    ExpectRead(ZUTEXT("inf"), isC ? std::numeric_limits<double>::infinity() : 0, isC ? 3 : -1);
    ExpectRead(ZUTEXT("\u00A05"), isC ? 5 : 0, isC ? 2 : -1);

    double value = 77;
    EXPECT_FALSE(StringToDouble(nullptr, &value, nullptr));
    EXPECT_EQ(value, 0);
}

// The text is a constant in memory that cannot be written, of a length that no buffer holds.
TEST_P(NumericLocales, TheTextStaysUnchanged) {
    const std::string name = GetParam()();
    const NumericLocale locale(name);
    if (!locale.IsSet()) GTEST_SKIP() << "the runtime has no locale \"" << name << "\"";
    static const wchar16 text[] = ZUTEXT("1.5d2 rest");
    ExpectRead(text, 150, 5);
    EXPECT_EQ(wstring16(text), ZUTEXT("1.5d2 rest"));
    const wstring16 longText = ZUTEXT("1.") + wstring16(100000, '0') + ZUTEXT("5e1,");
    const wstring16 before = longText;
    ExpectRead(longText.c_str(), 10, 100005);
    EXPECT_EQ(longText, before);
}

std::string LocaleC() {
    return "C";
}

INSTANTIATE_TEST_SUITE_P(Numbers, NumericLocales,
                         testing::Values(LocaleC, test::CommaLocale, test::WideGroupLocale, test::PointLocale));

// Where the user writes as the runtime does, what is printed for the user is what the runtime's own printf prints.
TEST(NumericLocale, ACommaForTheUserAndForTheRuntime) {
    const NumericLocale locale(test::CommaLocale());
    if (!locale.IsSet()) GTEST_SKIP() << "the runtime has no locale \"" << test::CommaLocale() << "\"";
    const UserLocale german(',', '.', 3);
    EXPECT_EQ(Printed(1234567.25, 2, PRINTF_FORMAT_F, true), ZUTEXT("1.234.567,25"));
    EXPECT_EQ(Printed(1234567.25, 2, PRINTF_FORMAT_F, false), ZUTEXT("1234567.25"));
    double value;
    EXPECT_TRUE(StringToDoubleFmtCtl(ZUTEXT("1.234.567,25"), &value, true));
    EXPECT_EQ(value, 1234567.25);
}

// Two threads read and print numbers while a third one changes the locale under their hands.
TEST(NumericLocale, ThreadsDoNotMind) {
    const std::string comma = test::CommaLocale();
    if (const NumericLocale probe(comma); !probe.IsSet())
        GTEST_SKIP() << "the runtime has no locale \"" << comma << "\"";
    std::atomic<bool> done = false;
    std::atomic<int> wrong = 0;
    const auto work = [&wrong](double offset) {
        for (int round = 0; round < 20000; ++round) {
            const double number = offset + round / 8.0;
            wchar16 text[Size];
            CoordinateToString(number, text, Size);
            double read;
            wchar16* end;
            if (!StringToDouble(text, &read, &end) || read != number || *end != 0) ++wrong;
        }
        InstanceData::Destroy(false, false);
    };
    std::thread changer([&] {
        while (!done) {
            std::setlocale(LC_NUMERIC, comma.c_str());
            std::setlocale(LC_NUMERIC, "C");
        }
    });
    std::thread first(work, 1000.5);
    std::thread second(work, -70000.25);
    first.join();
    second.join();
    done = true;
    changer.join();
    EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace numeric_locale_test
