// Printing and reading numbers allocates nothing.
#include <Utility/number_parsing.h>
#include <Utility/number_printing.h>
#include <Utility/sql_numbers.h>
#include <gtest/gtest.h>
#include <support/failing_heap.h>
#include <support/user_locale.h>

namespace number_allocations_internal_test {
namespace {

using namespace Torvo;

TEST(NumberAllocations, NoneWhilePrintingAndReading) {
    const test::UserLocale german(',', '.', 3);  // makes the instance too
    const wstring16 longNumber = ZUTEXT("1.") + wstring16(3000, '7') + ZUTEXT("e-5");
    wchar16 text[600];
    double real;
    int32 number;
    int64 wide;
    uint32 bits;

    const test::FailingHeap heap(1);
    for (double value : {0.0, -0.5, 1234567.25, 1e300, 5e-324}) {
        for (PRINTF_FORMAT format : {PRINTF_FORMAT_E, PRINTF_FORMAT_F, PRINTF_FORMAT_G}) {
            DoubleToString(value, text, 600, true, -1, format, -1);
            DoubleToString(value, text, 600, false, 150, format, 400);
        }
        DoubleToStringEditCtl(value, text, 600, true);
        CoordinateToString(value, text, 600);
        StringToDouble(text, &real, nullptr);
        zuSQLDoubleToString(value, ZUTEXT("L9G999G999D99"), text, 600);
        zuSQLDoubleToString(value, ZUTEXT("S9.99999999999999999999999E+999"), text, 600);
        zuSQLStringToDouble(text, ZUTEXT("99.99999999999999999999999E9999"), &real);
    }
    StringToDouble(longNumber.c_str(), &real, nullptr);
    StringToDouble(ZUTEXT("0x1.8p3"), &real, nullptr);
    StringToDoubleFmtCtl(ZUTEXT("1.234.567,25"), &real, true);
    StringToInt32(ZUTEXT("-123456"), &number, nullptr, -1000000, 1000000);
    StringToInt64(ZUTEXT("99999999999999999999"), &wide);
    StringToUnsignedLong16(ZUTEXT("ffff"), &bits);
    StringToIntFmtCtl(ZUTEXT("123.456"), &number, true);
    EXPECT_FALSE(heap.Refused());
}

}  // namespace
}  // namespace number_allocations_internal_test
