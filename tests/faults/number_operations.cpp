// Numbers: arithmetic, the clock, reading and printing.
#include <Utility/arithmetic.h>
#include <Utility/clock.h>
#include <Utility/geometry.h>
#include <Utility/number_parsing.h>
#include <Utility/number_printing.h>
#include <Utility/sql_numbers.h>
#include <faults/operations.h>

#include <climits>

namespace Torvo::test {

namespace number_operations {
namespace {

Operations ReadingOperations() {
    return {
        {"StringToInt32",
         [] {
             int32 value = 0;
             wchar16* end = nullptr;
             return StringToInt32(ZUTEXT("12"), &value, &end, 0, 100) && value == 12;
         }},
        {"StringToInt32FmtCtl",
         [] {
             int32 value = 0;
             return StringToInt32FmtCtl(ZUTEXT("12"), &value, true, 0, 100) && value == 12;
         }},
        {"StringToInt",
         [] {
             int value = 0;
             wchar16* end = nullptr;
             return StringToInt(ZUTEXT("12"), &value, &end) && value == 12;
         }},
        {"StringToIntFmtCtl",
         [] {
             int value = 0;
             return StringToIntFmtCtl(ZUTEXT("12"), &value, true) && value == 12;
         }},
        {"StringToShort",
         [] {
             int16 value = 0;
             wchar16* end = nullptr;
             return StringToShort(ZUTEXT("12"), &value, &end) && value == 12;
         }},
        {"StringToShortFmtCtl",
         [] {
             int16 value = 0;
             return StringToShortFmtCtl(ZUTEXT("12"), &value, true) && value == 12;
         }},
        {"StringToUnsignedInt32",
         [] {
             uint32 value = 0;
             wchar16* end = nullptr;
             return StringToUnsignedInt32(ZUTEXT("12"), &value, &end, 10) && value == 12;
         }},
        {"StringToUnsignedInt32FmtCtl",
         [] {
             uint32 value = 0;
             return StringToUnsignedInt32FmtCtl(ZUTEXT("12"), &value, true) && value == 12;
         }},
        {"StringToUnsignedInt",
         [] {
             unsigned int value = 0;
             wchar16* end = nullptr;
             return StringToUnsignedInt(ZUTEXT("12"), &value, &end) && value == 12;
         }},
        {"StringToUnsignedLong16",
         [] {
             uint32 value = 0;
             return StringToUnsignedLong16(ZUTEXT("c"), &value) && value == 12;
         }},
        {"StringToInt64",
         [] {
             int64 value = 0;
             return StringToInt64(ZUTEXT("12"), &value) && value == 12;
         }},
        {"StringToInt64FmtCtl",
         [] {
             int64 value = 0;
             return StringToInt64FmtCtl(ZUTEXT("12"), &value, true) && value == 12;
         }},
        {"StringToUnsignedInt64",
         [] {
             uint64 value = 0;
             return StringToUnsignedInt64(ZUTEXT("12"), &value) && value == 12;
         }},
        {"StringToUnsignedInt64FmtCtl",
         [] {
             uint64 value = 0;
             return StringToUnsignedInt64FmtCtl(ZUTEXT("12"), &value, true) && value == 12;
         }},
        {"StringToDouble",
         [] {
             double value = 0;
             wchar16* end = nullptr;
             return StringToDouble(ZUTEXT("1.5"), &value, &end) && value == 1.5;
         }},
        {"StringToDoubleFmtCtl",
         [] {
             double value = 0;
             return StringToDoubleFmtCtl(ZUTEXT("12"), &value, true) && value == 12;
         }},
        {"zuSQLStringToDouble",
         [] {
             double value = 77;
             return zuSQLStringToDouble(ZUTEXT("12.5"), ZUTEXT("99.9"), &value) && value == 12.5;
         }},
    };
}

Operations PrintingOperations() {
    return {
        {"DoubleToString",
         [] {
             TextBuffer text;
             return DoubleToString(1.5, text.units, 100, false, 2, PRINTF_FORMAT_F, 0) != nullptr &&
                    text.Is(ZUTEXT("1.50"));
         }},
        {"DoubleToDBString",
         [] {
             TextBuffer text;
             DoubleToDBString(text.units, 6, 2, 1.5);
             return text.Is(ZUTEXT("  1.50"));
         }},
        {"DoubleToStringEditCtl",
         [] {
             TextBuffer text;
             return DoubleToStringEditCtl(1.5, text.units, 100, false) != nullptr;
         }},
        {"CoordinateToString",
         [] {
             TextBuffer text;
             return CoordinateToString(1.5, text.units, 100) != nullptr;
         }},
        {"FormatNumberForUI",
         [] {
             TextBuffer text(ZUTEXT("1234.5"));
             FormatNumberForUI(text.units, 100);
             return text.units[0] == '1';
         }},
        {"DeformatNumberFromUI",
         [] {
             TextBuffer text;
             DeformatNumberFromUI(ZUTEXT("1234"), text.units);
             return text.Is(ZUTEXT("1234"));
         }},
        {"GetDecimalSeparator", [] { return GetDecimalSeparator() != 0; }},
        {"GetThousandsSeparator", [] { return GetThousandsSeparator() == GetThousandsSeparator(); }},
        {"GetThousandsGroupSize", [] { return GetThousandsGroupSize() == GetThousandsGroupSize(); }},
        {"zuSQLDoubleToString",
         [] {
             TextBuffer text;
             return zuSQLDoubleToString(12.5, ZUTEXT("99.9"), text.units, 100) && text.units[0] != 0;
         }},
    };
}

Operations ArithmeticOperations() {
    return {
        {"DoubleToINT32", [] { return DoubleToINT32(1.5) == 2; }},
        {"DoubleToINT32Clip", [] { return DoubleToINT32Clip(1e20) == INT_MAX; }},
        {"DoubleToShort", [] { return DoubleToShort(2.0) == 2; }},
        {"DoubleToShortClip", [] { return DoubleToShortClip(1e20) == SHRT_MAX; }},
        {"DoubleToInt64", [] { return DoubleToInt64(2.0) == 2; }},
        {"DoubleToInt64Clip", [] { return DoubleToInt64Clip(2.0) == 2; }},
        {"GetNaN", [] { return IsNaN(GetNaN()); }},
        {"SetNaN",
         [] {
             double value = 0;
             SetNaN(value);
             return IsNaN(value);
         }},
        {"IsNaN", [] { return !IsNaN(0); }},
        {"INT32Add", [] { return INT32Add(1, 2) == 3; }},
        {"INT32AddCoords", [] { return INT32AddCoords(1, 2, 0, 100) == 3; }},
        {"ShortAdd", [] { return ShortAdd(1, 2) == 3; }},
        {"INT32RoundDiv", [] { return INT32RoundDiv(10, 5) == 2; }},
        {"IntegerMulDiv", [] { return IntegerMulDiv(6, 2, 3) == 4; }},
        {"IntegerMulDivScale", [] { return IntegerMulDivScale(6, 2, 3, 1) == 4; }},
        {"RoundToPatternSize", [] { return RoundToPatternSize(8, true, 8) == 8; }},
        {"zu_round", [] { return zu_round(4, 2) == 4; }},
        {"calculate_crc16",
         [] {
             unsigned short table[256] = {};
             const unsigned char bytes[] = {1, 2, 3};
             return calculate_crc16(bytes, 3, table, true, 256) != 0;
         }},
        {"EqualDoubles", [] { return EqualDoubles(1, 1, SignificantDigits5); }},
        {"time_100", [] { return time_100() != 0; }},
        {"DoubleClickTime_100", [] { return DoubleClickTime_100() > 0; }},
        {"Sleep100",
         [] {
             Sleep100(0);
             return true;
         }},
        {"random_number", [] { return random_number(1) == 0; }},
        {"SystemPlatform", [] { return SystemPlatform() != PlatformOlder; }},
        {"GetDateTime",
         [] {
             SYSTEMTIME time = {};
             GetDateTime(&time);
             return time.wYear > 2000;
         }},
    };
}

}  // namespace
}  // namespace number_operations

Operations NumberOperations() {
    using namespace number_operations;
    Operations all = ArithmeticOperations();
    for (const Operation& operation : ReadingOperations()) all.push_back(operation);
    for (const Operation& operation : PrintingOperations()) all.push_back(operation);
    // A time that there is not, for another one would set the machine's clock.
    all.push_back({"SetDateTime", [] {
                       SYSTEMTIME time = {};
                       time.wMonth = 13;
                       return SetDateTime(&time) == 0;
                   }});
    return all;
}

}  // namespace Torvo::test
