// zuSQLDateToString and zuSQLStringToDate.
#include <Utility/locale_info.h>
#include <Utility/platform/host.h>
#include <Utility/sql_dates.h>
#include <gtest/gtest.h>
#include <support/date_names.h>

namespace sql_dates_test {
namespace {

using namespace Torvo;
using test::English;
using test::German;
using test::Russian;
using test::TakeDateErrors;
using test::Told;

constexpr zuDATE LeapDay = {2024, 2, 29};

class SqlDates : public test::DateNames {};

wstring16 Print(zuDATE date, const wchar16* format) {
    wstring16 buffer(300, '~');
    EXPECT_TRUE(zuSQLDateToString(date, format, buffer.data(), buffer.size()));
    const wstring16 text = buffer.c_str();
    EXPECT_EQ(buffer.substr(text.size() + 1), wstring16(299 - text.size(), '~'));
    return text;
}

// The date, or the errors, with *date untouched.
std::string Read(const wchar16* text, const wchar16* format) {
    zuDATE date = {77, 7, 7};
    if (zuSQLStringToDate(text, format, &date)) {
        EXPECT_EQ(TakeDateErrors(), "");
        return Told(date);
    }
    EXPECT_EQ(Told(date), "77-7-7");
    return TakeDateErrors();
}

// ---- Printing

TEST_F(SqlDates, PrintsNumbers) {
    EXPECT_EQ(Print(LeapDay, ZUTEXT("dd-mm-yyyy")), ZUTEXT("29-02-2024"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("d/m/yy")), ZUTEXT("29/2/24"));
    EXPECT_EQ(Print({2005, 11, 3}, ZUTEXT("d/m/yy")), ZUTEXT("3/11/05"));
    EXPECT_EQ(Print({2005, 11, 3}, ZUTEXT("dd/mm/yyyy")), ZUTEXT("03/11/2005"));
}

TEST_F(SqlDates, PrintsNames) {
    EXPECT_EQ(Print(LeapDay, ZUTEXT("dddd, mmmm d, yyyy")), ZUTEXT("Thursday, February 29, 2024"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("ddd d mmm")), ZUTEXT("Thu 29 Feb"));
    platform::SetThreadLocale(German);
    EXPECT_EQ(Print(LeapDay, ZUTEXT("dddd, d. mmmm yyyy")), ZUTEXT("Donnerstag, 29. Februar 2024"));
    platform::SetThreadLocale(Russian);
    EXPECT_EQ(Print(LeapDay, ZUTEXT("d mmmm")), ZUTEXT("29 \u0444\u0435\u0432\u0440\u0430\u043B\u044C"));
}

TEST_F(SqlDates, PrintsAllNames) {
    const wchar16* const months[] = {ZUTEXT("January Jan"), ZUTEXT("February Feb"), ZUTEXT("March Mar"),
                                     ZUTEXT("April Apr"),   ZUTEXT("May May"),      ZUTEXT("June Jun"),
                                     ZUTEXT("July Jul"),    ZUTEXT("August Aug"),   ZUTEXT("September Sep"),
                                     ZUTEXT("October Oct"), ZUTEXT("November Nov"), ZUTEXT("December Dec")};
    for (int8 month = 1; month <= 12; ++month)
        EXPECT_EQ(Print({2024, month, 1}, ZUTEXT("mmmm mmm")), months[month - 1]);
    const wchar16* const days[] = {ZUTEXT("Monday Mon"),   ZUTEXT("Tuesday Tue"), ZUTEXT("Wednesday Wed"),
                                   ZUTEXT("Thursday Thu"), ZUTEXT("Friday Fri"),  ZUTEXT("Saturday Sat"),
                                   ZUTEXT("Sunday Sun")};
    for (int8 day = 1; day <= 7; ++day) EXPECT_EQ(Print({2024, 1, day}, ZUTEXT("dddd ddd")), days[day - 1]);
}

TEST_F(SqlDates, WordsMatchIgnoringCase) {
    EXPECT_EQ(Print(LeapDay, ZUTEXT("DD-MMM-YYYY")), ZUTEXT("29-Feb-2024"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("DDDD MMMM YY")), ZUTEXT("Thursday February 24"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("D M")), ZUTEXT("29 2"));
}

TEST_F(SqlDates, WordsOfDateLettersAreCutAtRuns) {
    EXPECT_EQ(Print(LeapDay, ZUTEXT("yyyymmdd")), ZUTEXT("20240229"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("ddmmyyyy")), ZUTEXT("29022024"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("Mmm")), ZUTEXT("202"));  // "M" and "mm"
    EXPECT_EQ(Print(LeapDay, ZUTEXT("hhmm")), ZUTEXT("hh02"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("Hhfstd")), ZUTEXT("Hhfst29"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("dTHH")), ZUTEXT("dTHH"));  // "T" is none of the letters
    EXPECT_EQ(Print(LeapDay, ZUTEXT("dtHH")), ZUTEXT("29tHH"));
}

TEST_F(SqlDates, RunsThatAreNoWordsAreLiteral) {
    EXPECT_EQ(Print(LeapDay, ZUTEXT("y yyy yyyyy")), ZUTEXT("y yyy yyyyy"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("ddddd mmmmm")), ZUTEXT("ddddd mmmmm"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("day month ymd1")), ZUTEXT("day month ymd1"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("d\u00E9")), ZUTEXT("d\u00E9"));
}

TEST_F(SqlDates, DelimitersAreCopied) {
    EXPECT_EQ(Print(LeapDay, ZUTEXT("(d)[m]{yy}")), ZUTEXT("(29)[2]{24}"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("d`~!@#$%^&*()-+=[]{}:;<>,.|/\\m")), ZUTEXT("29`~!@#$%^&*()-+=[]{}:;<>,.|/\\2"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("d _ m")), ZUTEXT("29 _ 2"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("  d  m")), ZUTEXT("  29  2"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("d\tm\nyy")), ZUTEXT("29\t2\n24"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("d?m")), ZUTEXT("d?m"));  // no delimiter, so it is one piece
    EXPECT_EQ(Print(LeapDay, ZUTEXT("")), ZUTEXT(""));
}

TEST_F(SqlDates, QuotesKeepDelimitersTogether) {
    EXPECT_EQ(Print(LeapDay, ZUTEXT("'d m' d")), ZUTEXT("'d m' 29"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("\"d m\" m")), ZUTEXT("\"d m\" 2"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("d 'm m")), ZUTEXT("29 'm m"));
}

TEST_F(SqlDates, YearsOfOtherThanFourDigitsArePrintedAsTheyAre) {
    EXPECT_EQ(Print({987, 1, 1}, ZUTEXT("yyyy yy")), ZUTEXT("987 7"));
    EXPECT_EQ(Print({12345, 1, 1}, ZUTEXT("yyyy yy")), ZUTEXT("12345 34"));
    EXPECT_EQ(Print({5, 1, 1}, ZUTEXT("yyyy|yy|")), ZUTEXT("5||"));
    EXPECT_EQ(Print({-123, 1, 1}, ZUTEXT("yyyy yy")), ZUTEXT("-123 23"));
}

TEST_F(SqlDates, FieldsAreNotChecked) {
    EXPECT_EQ(Print({2024, 0, 0}, ZUTEXT("d dd m mm mmmm mmm dddd ddd")), ZUTEXT("0 00 0 00 January Jan Sunday Sun"));
    EXPECT_EQ(Print({2024, 13, 40}, ZUTEXT("d dd m mm")), ZUTEXT("40 40 13 13"));
    EXPECT_EQ(Print({2024, 13, 1}, ZUTEXT("mmmm|mmm")), ZUTEXT("|"));  // the thirteenth month has no name here
    EXPECT_EQ(Print({2024, 14, 1}, ZUTEXT("mmmm")), ZUTEXT("January"));
    EXPECT_EQ(Print({2024, -5, -3}, ZUTEXT("mmmm m mm d dd")), ZUTEXT("January -5 -5 -3 -3"));
    EXPECT_EQ(Print({0, 3, 1}, ZUTEXT("dddd")), ZUTEXT("Sunday"));  // a negative day number has no weekday
}

TEST_F(SqlDates, TextMustFitWithItsTerminator) {
    wchar16 buffer[] = ZUTEXT("##########");
    EXPECT_FALSE(zuSQLDateToString(LeapDay, ZUTEXT("dd-mm-yyyy"), buffer, 10));
    EXPECT_FALSE(zuSQLDateToString(LeapDay, ZUTEXT("dd-mm-yyyy"), buffer, 0));
    EXPECT_FALSE(zuSQLDateToString(LeapDay, ZUTEXT(""), buffer, 0));
    EXPECT_EQ(wstring16(buffer), ZUTEXT("##########"));
    EXPECT_TRUE(zuSQLDateToString(LeapDay, ZUTEXT("dd-mm-yyyy"), buffer, 11));
    EXPECT_EQ(wstring16(buffer), ZUTEXT("29-02-2024"));
    EXPECT_TRUE(zuSQLDateToString(LeapDay, ZUTEXT(""), buffer, 1));
    EXPECT_EQ(wstring16(buffer), ZUTEXT(""));
    EXPECT_FALSE(zuSQLDateToString(LeapDay, nullptr, buffer, 11));
    EXPECT_FALSE(zuSQLDateToString(LeapDay, ZUTEXT("d"), nullptr, 11));
}

TEST_F(SqlDates, LongFormatsArePrinted) {
    wstring16 format;
    wstring16 expected;
    for (int i = 0; i < 500; ++i) {
        format += ZUTEXT("dddd ");
        expected += ZUTEXT("Thursday ");
    }
    wstring16 buffer(5000, '~');
    EXPECT_TRUE(zuSQLDateToString(LeapDay, format.c_str(), buffer.data(), buffer.size()));
    EXPECT_EQ(wstring16(buffer.c_str()), expected);
}

// ---- Reading

TEST_F(SqlDates, ReadsNumbers) {
    EXPECT_EQ(Read(ZUTEXT("29-02-2024"), ZUTEXT("dd-mm-yyyy")), "2024-2-29");
    EXPECT_EQ(Read(ZUTEXT("2/29/2024"), ZUTEXT("m/d/yyyy")), "2024-2-29");
    EXPECT_EQ(Read(ZUTEXT("2024.2.29"), ZUTEXT("YYYY.MM.DD")), "2024-2-29");
}

TEST_F(SqlDates, ReadsNamesOfMonths) {
    EXPECT_EQ(Read(ZUTEXT("01-Feb-99"), ZUTEXT("dd-mmm-yy")), "1999-2-1");
    EXPECT_EQ(Read(ZUTEXT("01-Feb-03"), ZUTEXT("dd-mmm-yy")), "2003-2-1");
    EXPECT_EQ(Read(ZUTEXT("1 september 2003"), ZUTEXT("d mmmm yyyy")), "2003-9-1");
    EXPECT_EQ(Read(ZUTEXT("DECEMBER"), ZUTEXT("mmmm")), "0-12-0");
    platform::SetThreadLocale(German);
    EXPECT_EQ(Read(ZUTEXT("1 Mai 2003"), ZUTEXT("d mmmm yyyy")), "2003-5-1");
    EXPECT_EQ(Read(ZUTEXT("1 M\u00E4rz 2003"), ZUTEXT("d mmmm yyyy")), "2003-3-1");
}

TEST_F(SqlDates, UnknownMonthsAreErrors) {
    EXPECT_EQ(Read(ZUTEXT("1 Feb 2003"), ZUTEXT("d mmmm yyyy")), "65(Feb, ) ");
    EXPECT_EQ(Read(ZUTEXT("1 February 2003"), ZUTEXT("d mmm yyyy")), "66(February, ) ");
    EXPECT_EQ(Read(ZUTEXT("1 2 2003"), ZUTEXT("d mmm yyyy")), "66(2, ) ");
    EXPECT_EQ(Read(ZUTEXT("-"), ZUTEXT("mmmm")), "65(-, ) ");
}

TEST_F(SqlDates, WhiteSpaceAtTheEndIsDroppedButForOne) {
    EXPECT_EQ(Print(LeapDay, ZUTEXT("d   ")), ZUTEXT("29 "));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("d \t ")), ZUTEXT("29 "));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("  ")), ZUTEXT(""));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("d , ")), ZUTEXT("29 ,"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("d--")), ZUTEXT("29--"));
    EXPECT_EQ(Print(LeapDay, ZUTEXT("dd,\r")), ZUTEXT("29,"));
    EXPECT_EQ(Read(ZUTEXT("5  "), ZUTEXT("d ")), "0-0-5");
    EXPECT_EQ(Read(ZUTEXT("5 "), ZUTEXT("d")), "64(d, ) ");
    EXPECT_EQ(Read(ZUTEXT("5--"), ZUTEXT("d-")), "64(d-, ) ");
}

TEST_F(SqlDates, DayNamesAreNotLookedAt) {
    EXPECT_EQ(Read(ZUTEXT("Mon 05"), ZUTEXT("ddd mm")), "0-5-0");
    EXPECT_EQ(Read(ZUTEXT("nonsense 05"), ZUTEXT("dddd mm")), "0-5-0");
    EXPECT_EQ(Read(ZUTEXT("12 05"), ZUTEXT("ddd dd")), "0-0-5");
}

TEST_F(SqlDates, TwoDigitYearHasAFixedPivot) {
    EXPECT_EQ(Read(ZUTEXT("51"), ZUTEXT("yy")), "1951-0-0");
    EXPECT_EQ(Read(ZUTEXT("50"), ZUTEXT("yy")), "2050-0-0");
    EXPECT_EQ(Read(ZUTEXT("0"), ZUTEXT("yy")), "2000-0-0");
    EXPECT_EQ(Read(ZUTEXT("99"), ZUTEXT("yy")), "1999-0-0");
    EXPECT_EQ(Read(ZUTEXT("100"), ZUTEXT("yy")), "2000-0-0");
    EXPECT_EQ(Read(ZUTEXT("2024"), ZUTEXT("yy")), "3924-0-0");
    EXPECT_EQ(Read(ZUTEXT("x"), ZUTEXT("yy")), "2000-0-0");
    EXPECT_EQ(Read(ZUTEXT("40000"), ZUTEXT("yy")), "-23536-0-0");  // negative in 16 bits
    EXPECT_EQ(Read(ZUTEXT("51"), ZUTEXT("yyyy")), "51-0-0");
}

TEST_F(SqlDates, LiteralTextIsComparedIgnoringCase) {
    EXPECT_EQ(Read(ZUTEXT("DAY 5 of 3"), ZUTEXT("day d OF m")), "0-3-5");
    EXPECT_EQ(Read(ZUTEXT("29/02/2024"), ZUTEXT("dd-mm-yyyy")), "63(/, dd-mm-yyyy) ");
    EXPECT_EQ(Read(ZUTEXT("5 x 3"), ZUTEXT("d of m")), "63(x, d of m) ");
    EXPECT_EQ(Read(ZUTEXT("hh02"), ZUTEXT("hhmm")), "64(hhmm, ) ");  // one piece and two
}

TEST_F(SqlDates, NumbersOfPiecesMustAgree) {
    EXPECT_EQ(Read(ZUTEXT("20240229"), ZUTEXT("yyyymmdd")), "64(yyyymmdd, ) ");
    EXPECT_EQ(Read(ZUTEXT(""), ZUTEXT("d")), "64(d, ) ");
    EXPECT_EQ(Read(ZUTEXT("5"), ZUTEXT("")), "64(, ) ");
    EXPECT_EQ(Read(ZUTEXT("5 6"), ZUTEXT("d")), "64(d, ) ");
    EXPECT_EQ(Read(ZUTEXT("5-6"), ZUTEXT("d--m")), "64(d--m, ) ");
}

TEST_F(SqlDates, EmptyTextUnderAnEmptyFormatIsTheNullDate) {
    EXPECT_EQ(Read(ZUTEXT(""), ZUTEXT("")), "0-0-0");
    EXPECT_EQ(Read(ZUTEXT("  "), ZUTEXT("\t")), "0-0-0");  // neither has a piece
}

TEST_F(SqlDates, DateIsNotChecked) {
    EXPECT_EQ(Read(ZUTEXT("31-02-2024"), ZUTEXT("dd-mm-yyyy")), "2024-2-31");
    EXPECT_EQ(Read(ZUTEXT("x-y-z"), ZUTEXT("d-m-yyyy")), "0-0-0");
    EXPECT_EQ(Read(ZUTEXT("300-257-65537"), ZUTEXT("d-m-yyyy")), "1-1-44");  // cut to their widths
    EXPECT_EQ(Read(ZUTEXT("12abc 7"), ZUTEXT("d m")), "0-7-12");
    EXPECT_EQ(Read(ZUTEXT("99999999999 7"), ZUTEXT("yyyy m")), "-1-7-0");
}

TEST_F(SqlDates, LaterWordsOverwriteEarlierOnes) {
    EXPECT_EQ(Read(ZUTEXT("1 2 3 4"), ZUTEXT("d d m m")), "0-4-2");
    EXPECT_EQ(Read(ZUTEXT("Feb 5"), ZUTEXT("mmm m")), "0-5-0");
}

TEST_F(SqlDates, NullTextsFailWithoutAnError) {
    EXPECT_EQ(Read(nullptr, ZUTEXT("d")), "");
    EXPECT_EQ(Read(ZUTEXT("d"), nullptr), "");
    EXPECT_FALSE(zuSQLStringToDate(ZUTEXT("5"), ZUTEXT("d"), nullptr));
}

TEST_F(SqlDates, WhatIsPrintedIsReadBack) {
    for (const wchar16* const format : {ZUTEXT("dd-mm-yyyy"), ZUTEXT("dddd, mmmm d, yyyy"), ZUTEXT("d.mmm.yyyy"),
                                        ZUTEXT("(yyyy) m/d"), ZUTEXT("mmm d yyyy (ddd)")}) {
        for (const uint32 locale : {English, Russian}) {
            platform::SetThreadLocale(locale);
            for (int32 days = 600'000; days < 760'000; days += 3'571) {
                zuDATE date;
                Days2MDY(days, &date);
                const wstring16 text = Print(date, format);
                // A name with a point in it is two pieces.
                if (locale == Russian && text.find('.') != wstring16::npos) continue;
                EXPECT_EQ(Read(text.c_str(), format), Told(date));
            }
        }
    }
}

}  // namespace
}  // namespace sql_dates_test
