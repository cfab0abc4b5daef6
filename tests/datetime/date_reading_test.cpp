// Str2Date and Str2DateEx.
#include <Utility/date_strings.h>
#include <Utility/locale_info.h>
#include <Utility/platform/host.h>
#include <gtest/gtest.h>
#include <reference/plain_date_reader.h>
#include <support/dates.h>
#include <support/random_text.h>
#include <support/time_locale.h>

namespace date_reading_test {
namespace {

using namespace Torvo;
using test::BadDateError;
using test::TakeDateErrors;
using test::TimeLocale;
using test::Told;

constexpr zuDATE Garbage = {77, 7, 7};

int questions = 0;
// What the callback answers at its first question and at every later one.
bool firstAnswer = false;
bool laterAnswer = false;

bool AsksForFixedForm() {
    return questions++ == 0 ? firstAnswer : laterAnswer;
}

class DateReading : public testing::Test {
protected:
    void SetUp() override { ClearErrors(); }
    void TearDown() override {
        SetDateFormatCallback(nullptr);
        EXPECT_EQ(TakeDateErrors(), "");
    }

    static void SetCallback(bool first, bool later) {
        questions = 0;
        firstAnswer = first;
        laterAnswer = later;
        SetDateFormatCallback(AsksForFixedForm);
    }
};

// The date, or "null", in which case *date has to be cleared.
std::string Read(const wchar16* text) {
    zuDATE date = Garbage;
    if (Str2Date(text, &date) == &date) return Told(date);
    EXPECT_EQ(Told(date), "0-0-0");
    return "null";
}

// The same in an order, with a separator.
std::string Read(const wchar16* text, int16 order, wchar16 separator = '/') {
    const TimeLocale locale({.dateOrder = order, .dateSeparator = separator});
    return Read(text);
}

// The date of Str2DateEx or "null", behind that how far *end is from the start of the text.
std::string ReadEx(const wchar16* text, int16 order = 0, wchar16 separator = '/') {
    const TimeLocale locale({.dateOrder = order, .dateSeparator = separator});
    zuDATE date = Garbage;
    wchar16* end = nullptr;
    const bool isRead = Str2DateEx(text, &date, &end) == &date;
    if (!isRead) {
        EXPECT_EQ(Told(date), "0-0-0");
    }
    return (isRead ? Told(date) : "null") + (end != nullptr ? " end " + std::to_string(end - text) : " no end");
}

std::string ReadExWithoutEnd(const wchar16* text, int16 order = 0) {
    const TimeLocale locale({.dateOrder = order});
    zuDATE date = Garbage;
    const bool isRead = Str2DateEx(text, &date, nullptr) == &date;
    if (!isRead) {
        EXPECT_EQ(Told(date), "0-0-0");
    }
    return isRead ? Told(date) : "null";
}

int ThisYear() {
    zuDATE today;
    return SystemDate(&today)->year;
}

std::string ThisYears(const std::string& monthAndDay) {
    return std::to_string(ThisYear()) + '-' + monthAndDay;
}

std::string ThisCenturys(int year, const std::string& monthAndDay) {
    return std::to_string(ThisYear() / 100 * 100 + year) + '-' + monthAndDay;
}

TEST_F(DateReading, NullTextIsNoDate) {
    EXPECT_EQ(Read(nullptr), "null");
    zuDATE date = Garbage;
    wchar16 unit = 'x';
    wchar16* end = &unit;
    EXPECT_EQ(Str2DateEx(nullptr, &date, &end), nullptr);
    EXPECT_EQ(Told(date), "0-0-0");
    EXPECT_EQ(end, &unit);
}

// ---- The literal

TEST_F(DateReading, LiteralIsReadInEveryLocale) {
    for (const int16 order : std::initializer_list<int16>{0, 1, 2, 5, 3, 99})
        EXPECT_EQ(Read(ZUTEXT("20240229"), order), "2024-2-29");
    EXPECT_EQ(Read(ZUTEXT("00010101")), "1-1-1");
    EXPECT_EQ(Read(ZUTEXT("00000229")), "0-2-29");  // year 0, as LiteralToDate has it
}

TEST_F(DateReading, LiteralOfZerosIsTheNullDate) {
    EXPECT_EQ(Read(ZUTEXT("00000000")), "0-0-0");
    EXPECT_EQ(ReadEx(ZUTEXT("00000000")), "0-0-0 end 8");
}

TEST_F(DateReading, RefusedLiteralLeavesTheErrorAndIsTriedFurther) {
    EXPECT_EQ(Read(ZUTEXT("20230229"), 0), "null");
    EXPECT_EQ(TakeDateErrors(), BadDateError);
    EXPECT_EQ(ReadEx(ZUTEXT("20241301")), "null no end");
    EXPECT_EQ(TakeDateErrors(), BadDateError);
}

TEST_F(DateReading, LiteralIsEightDigitsAndNothingElse) {
    for (const wchar16* const text :
         {ZUTEXT("2024022"), ZUTEXT("202402290"), ZUTEXT(" 20240229"), ZUTEXT("20240229 "), ZUTEXT("+2024022"),
          ZUTEXT("2024022x"), ZUTEXT("\uFF12\uFF10240229"), ZUTEXT("-2024022")}) {
        EXPECT_EQ(Read(text, 0), "null");
    }
}

TEST_F(DateReading, LiteralDoesNotAskTheCallback) {
    SetCallback(true, true);
    EXPECT_EQ(Read(ZUTEXT("20240229")), "2024-2-29");
    EXPECT_EQ(Read(ZUTEXT("2024-02-29")), "2024-2-29");
    EXPECT_EQ(questions, 0);
}

// ---- The ISO form

TEST_F(DateReading, IsoFormIsReadInEveryLocale) {
    for (const int16 order : std::initializer_list<int16>{0, 1, 2, 5, 3})
        EXPECT_EQ(Read(ZUTEXT("2024-02-29"), order), "2024-2-29");
    EXPECT_EQ(Read(ZUTEXT("9999-12-31"), 0), "9999-12-31");
    EXPECT_EQ(Read(ZUTEXT("1000-01-01"), 0), "1000-1-1");
}

TEST_F(DateReading, IsoFormTakesWhatNumbersTake) {
    EXPECT_EQ(Read(ZUTEXT("2024- 2-29"), 0), "2024-2-29");
    EXPECT_EQ(Read(ZUTEXT("2024-2 - 9"), 0), "2024-2-9");
    EXPECT_EQ(Read(ZUTEXT(" 2024-2-29"), 0), "2024-2-29");
    EXPECT_EQ(Read(ZUTEXT("+2024-2-29"), 0), "2024-2-29");
    EXPECT_EQ(Read(ZUTEXT("2024-+2-29"), 0), "2024-2-29");
    EXPECT_EQ(Read(ZUTEXT("2024-\t2-29"), 0), "2024-2-29");
    EXPECT_EQ(Read(ZUTEXT("2024-2-29 "), 0), "2024-2-29");
    EXPECT_EQ(Read(ZUTEXT("2024-2-  9"), 0), "2024-2-9");
    EXPECT_EQ(Read(ZUTEXT("2024-002-9"), 0), "2024-2-9");
    EXPECT_EQ(Read(ZUTEXT("02024-2-29"), 0), "2024-2-29");
    EXPECT_EQ(Read(ZUTEXT("\uFF12024-02-29"), 0), "2024-2-29");
    EXPECT_EQ(Read(ZUTEXT("\uFF12\u0660\uFF12\u06F4-02-29"), 0), "2024-2-29");
}

TEST_F(DateReading, IsoFormHasTenUnits) {
    EXPECT_EQ(Read(ZUTEXT("2024-2-9"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("2024-02-290"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("2024-2-2\t "), 0), "null");
}

TEST_F(DateReading, IsoYearHasFourDigits) {
    EXPECT_EQ(Read(ZUTEXT("0987-01-01"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("10000-1-01"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("-999-01-01"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("0987-01-01"), 2, '-'), "987-1-1");  // as a date of a locale
}

TEST_F(DateReading, IsoFormThatIsNoDateLeavesTheErrorAndIsTriedInTheLocale) {
    EXPECT_EQ(Read(ZUTEXT("2023-02-30"), 0), "null");
    EXPECT_EQ(TakeDateErrors(), BadDateError);
    EXPECT_EQ(Read(ZUTEXT("2023-04-31"), 5, '-'), "null");
    EXPECT_EQ(TakeDateErrors(), BadDateError);
    EXPECT_EQ(Read(ZUTEXT("2023-02-30"), 0, '-'), "null");
    EXPECT_EQ(TakeDateErrors(), BadDateError);
}

TEST_F(DateReading, IsoFieldsOutOfRangeAreTriedInTheLocaleWithoutAnError) {
    EXPECT_EQ(Read(ZUTEXT("2023-30-04"), 5, '-'), "2023-4-30");
    EXPECT_EQ(Read(ZUTEXT("2023-13-01"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("2023-00-01"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("2023-01-00"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("2023-01-32"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("2023/01/02"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("2023/01/02"), 2), "2023-1-2");
}

TEST_F(DateReading, ExKnowsNoIsoForm) {
    EXPECT_EQ(ReadEx(ZUTEXT("2024-02-29")), "null no end");
    EXPECT_EQ(ReadEx(ZUTEXT("2024-02-29"), 2, '-'), "2024-2-29 end 10");
}

// ---- Three numbers

TEST_F(DateReading, ThreeNumbersStandInTheLocalesOrder) {
    EXPECT_EQ(Read(ZUTEXT("2/3/2024"), 0), "2024-2-3");
    EXPECT_EQ(Read(ZUTEXT("2/3/2024"), 1), "2024-3-2");
    EXPECT_EQ(Read(ZUTEXT("2024/3/4"), 2), "2024-3-4");
    EXPECT_EQ(Read(ZUTEXT("2024/3/4"), 5), "2024-4-3");
    for (const int16 order : std::initializer_list<int16>{3, 4, -1, 6, 256})
        EXPECT_EQ(Read(ZUTEXT("2/3/2024"), order), "null");
}

TEST_F(DateReading, LocalesAreReadThroughTheService) {
    const uint32 former = platform::GetThreadLocale();
    platform::SetThreadLocale(0x0409);
    EXPECT_EQ(Read(ZUTEXT("2/3/2024")), "2024-2-3");
    platform::SetThreadLocale(0x0407);
    EXPECT_EQ(Read(ZUTEXT("2.3.2024")), "2024-3-2");
    EXPECT_EQ(Read(ZUTEXT("2/3/2024")), "null");
    platform::SetThreadLocale(0x0411);
    EXPECT_EQ(Read(ZUTEXT("2024/3/4")), "2024-3-4");
    platform::SetThreadLocale(former);
}

TEST_F(DateReading, TwoDigitYearGetsTheHundredsOfTheCurrentOne) {
    EXPECT_EQ(Read(ZUTEXT("2/28/24"), 0), ThisCenturys(24, "2-28"));
    EXPECT_EQ(Read(ZUTEXT("1/1/99"), 0), ThisCenturys(99, "1-1"));
    EXPECT_EQ(Read(ZUTEXT("1/1/51"), 0), ThisCenturys(51, "1-1"));  // no pivot here
    EXPECT_EQ(Read(ZUTEXT("1/1/0"), 0), ThisCenturys(0, "1-1"));
    EXPECT_EQ(Read(ZUTEXT("1/1/00"), 0), ThisCenturys(0, "1-1"));
    EXPECT_EQ(Read(ZUTEXT("1/1/100"), 0), "100-1-1");
    EXPECT_EQ(Read(ZUTEXT("1/1/"), 0), ThisCenturys(0, "1-1"));  // no number reads as 0
}

TEST_F(DateReading, LeapDayOfATwoDigitYearGoesByTheExpandedYear) {
    const int century = ThisYear() / 100;
    EXPECT_EQ(Read(ZUTEXT("2/29/24"), 0), ThisCenturys(24, "2-29"));
    EXPECT_EQ(Read(ZUTEXT("2/29/23"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("2/29/0"), 0), century % 4 == 0 ? ThisCenturys(0, "2-29") : "null");
}

TEST_F(DateReading, YearsOutOfRangeAreRefused) {
    EXPECT_EQ(Read(ZUTEXT("1/1/10000"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("1/1/-1"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("1/1/-2024"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("1/1/9999"), 0), "9999-1-1");
    EXPECT_EQ(Read(ZUTEXT("1/1/4294969320"), 0), "null");  // 2^32 + 2024
    EXPECT_EQ(Read(ZUTEXT("1/1/99999999999999999999999"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("1/1/-99999999999999999999999"), 0), "null");
}

TEST_F(DateReading, MonthAndDayAreChecked) {
    for (const wchar16* const text :
         {ZUTEXT("0/1/2024"), ZUTEXT("13/1/2024"), ZUTEXT("-1/1/2024"), ZUTEXT("1/0/2024"), ZUTEXT("1/32/2024"),
          ZUTEXT("1/-1/2024"), ZUTEXT("4/31/2024"), ZUTEXT("2/30/2024"), ZUTEXT("2/29/1900"), ZUTEXT("257/1/2024"),
          ZUTEXT("1/257/2024"), ZUTEXT("2/30/24"), ZUTEXT("1/-2147483648/2024"), ZUTEXT("1/-99999999999999999999/2024"),
          ZUTEXT("-2147483648/1/2024"), ZUTEXT("1/-2147483648")}) {
        EXPECT_EQ(Read(text, 0), "null");
    }
    EXPECT_EQ(Read(ZUTEXT("2/29/2000"), 0), "2000-2-29");
}

TEST_F(DateReading, NumbersTakeWhiteSpaceAndASignBeforeAndSpacesBehind) {
    EXPECT_EQ(Read(ZUTEXT(" 2 / 3 / 2024 "), 0), "2024-2-3");
    EXPECT_EQ(Read(ZUTEXT("\t+2/\n+3/\r2024"), 0), "2024-2-3");
    EXPECT_EQ(Read(ZUTEXT("2\t/3/2024"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("2/3\t/2024"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("2/3/2024\t"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("002/0003/02024"), 0), "2024-2-3");
    EXPECT_EQ(Read(ZUTEXT("\u0662/\u0663/\uFF12024"), 0), "2024-2-3");  // digits of other scripts
    EXPECT_EQ(Read(ZUTEXT("1\uFF12/3/2024"), 0), "2024-12-3");
}

TEST_F(DateReading, TextMustEndBehindTheDate) {
    EXPECT_EQ(Read(ZUTEXT("3/4/2024 x"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("3/4/2024/"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("3/4 x"), 0), "null");
    EXPECT_EQ(ReadExWithoutEnd(ZUTEXT("3/4/2024 x")), "null");
    EXPECT_EQ(ReadExWithoutEnd(ZUTEXT("3/4 x")), "null");
    EXPECT_EQ(ReadExWithoutEnd(ZUTEXT("3/4/2024")), "2024-3-4");
    EXPECT_EQ(ReadExWithoutEnd(ZUTEXT("3/4")), ThisYears("3-4"));
    EXPECT_EQ(ReadExWithoutEnd(ZUTEXT("20240229")), "2024-2-29");
}

TEST_F(DateReading, SeparatorIsTheLocalesInBothPlaces) {
    EXPECT_EQ(Read(ZUTEXT("2-3/2024"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("2/3-2024"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("2-3-2024"), 0, '-'), "2024-2-3");
    EXPECT_EQ(Read(ZUTEXT("2\u5E743\u5E742024"), 0, 0x5E74), "2024-2-3");
    EXPECT_EQ(Read(ZUTEXT("2 3 2024"), 0, ' '), "null");  // the spaces have been passed over
}

TEST_F(DateReading, WithoutASeparatorNothingIsReadAndNothingBehindTheTextIs) {
    EXPECT_EQ(Read(ZUTEXT("2/3/2024"), 0, 0), "null");
    EXPECT_EQ(Read(ZUTEXT("2"), 0, 0), "null");
    EXPECT_EQ(ReadEx(ZUTEXT("2"), 0, 0), "null no end");
}

TEST_F(DateReading, WhatIsNoDateIsRefused) {
    for (const wchar16* const text : {ZUTEXT(""), ZUTEXT(" "), ZUTEXT("/"), ZUTEXT("//"), ZUTEXT("3"), ZUTEXT("x/y/z"),
                                      ZUTEXT("March 4, 2024"), ZUTEXT("a3/4/2024")}) {
        EXPECT_EQ(Read(text, 0), "null");
        zuDATE date = Garbage;
        EXPECT_EQ(Str2DateEx(text, &date, nullptr), nullptr);
        EXPECT_EQ(Told(date), "0-0-0");
    }
}

// ---- Two numbers

TEST_F(DateReading, TwoNumbersAreADayOfTheCurrentYear) {
    EXPECT_EQ(Read(ZUTEXT("3/4"), 0), ThisYears("3-4"));
    EXPECT_EQ(Read(ZUTEXT("3/4"), 1), ThisYears("4-3"));
    EXPECT_EQ(Read(ZUTEXT("3/4"), 2), ThisYears("3-4"));
    EXPECT_EQ(Read(ZUTEXT("3/4"), 5), ThisYears("4-3"));
    EXPECT_EQ(Read(ZUTEXT("3/4"), 3), "null");
    EXPECT_EQ(Read(ZUTEXT(" 3 / 4  "), 0), ThisYears("3-4"));
    EXPECT_EQ(Read(ZUTEXT("13/4"), 0), "null");
    EXPECT_EQ(Read(ZUTEXT("3/"), 0), "null");  // day 0
}

// ---- The end

TEST_F(DateReading, EndIsBehindTheSpacesAfterThreeNumbers) {
    EXPECT_EQ(ReadEx(ZUTEXT("3/4/2024 x")), "2024-3-4 end 9");
    EXPECT_EQ(ReadEx(ZUTEXT("3/4/2024")), "2024-3-4 end 8");
    EXPECT_EQ(ReadEx(ZUTEXT("3/4/2024   13:05")), "2024-3-4 end 11");
    EXPECT_EQ(ReadEx(ZUTEXT("3/4/2024/5")), "2024-3-4 end 8");
    EXPECT_EQ(ReadEx(ZUTEXT("3/4/2024\tx")), "2024-3-4 end 8");
    EXPECT_EQ(ReadEx(ZUTEXT("20240229")), "2024-2-29 end 8");
    EXPECT_EQ(ReadEx(ZUTEXT("3/4/x")), ThisCenturys(0, "3-4") + " end 4");
}

TEST_F(DateReading, EndIsOnePastTheUnitBehindTwoNumbers) {
    EXPECT_EQ(ReadEx(ZUTEXT("3/4 x")), ThisYears("3-4") + " end 5");
    EXPECT_EQ(ReadEx(ZUTEXT("3/4")), ThisYears("3-4") + " end 4");
    EXPECT_EQ(ReadEx(ZUTEXT("3/4   ")), ThisYears("3-4") + " end 7");
    EXPECT_EQ(ReadEx(ZUTEXT("3/4-5")), ThisYears("3-4") + " end 4");
    EXPECT_EQ(ReadEx(ZUTEXT("3/4x5"), 1), ThisYears("4-3") + " end 4");
}

TEST_F(DateReading, EndIsSetBeforeTheFieldsAreChecked) {
    EXPECT_EQ(ReadEx(ZUTEXT("13/4/2024 x")), "null end 10");
    EXPECT_EQ(ReadEx(ZUTEXT("2/30/2024")), "null end 9");
    EXPECT_EQ(ReadEx(ZUTEXT("3/4/2024 x"), 3), "null end 9");
    EXPECT_EQ(ReadEx(ZUTEXT("13/4 x")), "null end 6");
    EXPECT_EQ(ReadEx(ZUTEXT("13/4")), "null end 5");
    EXPECT_EQ(ReadEx(ZUTEXT("3/4"), 3), "null end 4");
}

TEST_F(DateReading, EndIsLeftAloneWhereNothingIsRead) {
    EXPECT_EQ(ReadEx(ZUTEXT("3-4")), "null no end");
    EXPECT_EQ(ReadEx(ZUTEXT("")), "null no end");
    EXPECT_EQ(ReadEx(ZUTEXT("202402290")), "null no end");
}

// ---- The callback and the fixed form

TEST_F(DateReading, CallbackThatAnswersFalseIsAskedTwice) {
    const TimeLocale locale({.dateOrder = 1, .dateSeparator = '.'});
    SetCallback(false, false);
    EXPECT_EQ(Read(ZUTEXT("3.4.2024")), "2024-4-3");
    EXPECT_EQ(questions, 2);
}

TEST_F(DateReading, SecondAnswerDecidesBetweenTheLocaleAndTheFixedOrder) {
    const TimeLocale locale({.dateOrder = 1, .dateSeparator = '.'});
    SetCallback(false, true);
    EXPECT_EQ(Read(ZUTEXT("3.4.2024")), "null");
    SetCallback(false, true);
    EXPECT_EQ(Read(ZUTEXT("3/4/2024")), "2024-3-4");
    EXPECT_EQ(questions, 2);
}

TEST_F(DateReading, CallbackThatAnswersTrueIsAskedOnce) {
    SetCallback(true, false);
    EXPECT_EQ(Read(ZUTEXT("3-4-2024")), "2024-3-4");
    EXPECT_EQ(questions, 1);
}

TEST_F(DateReading, ExAsksTheCallbackOnceAndKnowsNoFixedForm) {
    const TimeLocale locale({.dateOrder = 1, .dateSeparator = '.'});
    zuDATE date;
    wchar16* end;
    SetCallback(true, true);
    EXPECT_EQ(Str2DateEx(ZUTEXT("3-4-2024"), &date, &end), nullptr);
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(Str2DateEx(ZUTEXT("3/4/2024"), &date, &end), &date);
    EXPECT_EQ(Told(date), "2024-3-4");
    SetCallback(false, false);
    EXPECT_EQ(Str2DateEx(ZUTEXT("3.4.2024"), &date, &end), &date);
    EXPECT_EQ(Told(date), "2024-4-3");
    EXPECT_EQ(questions, 1);
}

class FixedDateReading : public DateReading {
protected:
    void SetUp() override {
        DateReading::SetUp();
        SetCallback(true, true);
    }
    // Nothing of it shows.
    TimeLocale locale{{.dateOrder = 1, .dateSeparator = '.'}};
};

TEST_F(FixedDateReading, MonthDayYearBehindHyphenOrSlash) {
    EXPECT_EQ(Read(ZUTEXT("3-4-2024")), "2024-3-4");
    EXPECT_EQ(Read(ZUTEXT("3/4/2024")), "2024-3-4");
    EXPECT_EQ(Read(ZUTEXT(" 3 / 4 / 2024 ")), "2024-3-4");
    EXPECT_EQ(Read(ZUTEXT("+3/+4/+2024")), "2024-3-4");
    EXPECT_EQ(Read(ZUTEXT("3.4.2024")), "null");
    EXPECT_EQ(Read(ZUTEXT("3 4 2024")), "null");
    EXPECT_EQ(Read(ZUTEXT("3")), "null");
    EXPECT_EQ(Read(ZUTEXT("")), "null");
}

TEST_F(FixedDateReading, SecondSeparatorRepeatsTheFirst) {
    EXPECT_EQ(Read(ZUTEXT("3-4/2024")), "null");
    EXPECT_EQ(Read(ZUTEXT("3/4-2024")), "null");
}

TEST_F(FixedDateReading, WithoutAYearItIsTheCurrentOne) {
    EXPECT_EQ(Read(ZUTEXT("3-4")), ThisYears("3-4"));
    EXPECT_EQ(Read(ZUTEXT("3/4  ")), ThisYears("3-4"));
}

TEST_F(FixedDateReading, YearsAreExpandedAndRefusedAlike) {
    EXPECT_EQ(Read(ZUTEXT("3-4-24")), ThisCenturys(24, "3-4"));
    EXPECT_EQ(Read(ZUTEXT("3-4-99")), ThisCenturys(99, "3-4"));
    EXPECT_EQ(Read(ZUTEXT("3-4-0")), ThisCenturys(0, "3-4"));
    EXPECT_EQ(Read(ZUTEXT("3-4-")), ThisCenturys(0, "3-4"));
    EXPECT_EQ(Read(ZUTEXT("3-4-100")), "100-3-4");
    EXPECT_EQ(Read(ZUTEXT("3-4-9999")), "9999-3-4");
    EXPECT_EQ(Read(ZUTEXT("3-4-10000")), "null");
    EXPECT_EQ(Read(ZUTEXT("3-4--5")), "null");
    EXPECT_EQ(Read(ZUTEXT("3/4/-2024")), "null");
}

TEST_F(FixedDateReading, MonthDayAndEndAreChecked) {
    for (const wchar16* const text :
         {ZUTEXT("0-4-2024"), ZUTEXT("13-4-2024"), ZUTEXT("-3-4-2024"), ZUTEXT("3-0-2024"), ZUTEXT("3-32-2024"),
          ZUTEXT("2-30-2024"), ZUTEXT("2-29-2023"), ZUTEXT("3-4-2024 x"), ZUTEXT("3-4x"), ZUTEXT("3-4-2024-"),
          ZUTEXT("3- 4\t-2024"), ZUTEXT("3--2147483648-2024")}) {
        EXPECT_EQ(Read(text), "null");
    }
    EXPECT_EQ(Read(ZUTEXT("2-29-2024")), "2024-2-29");
}

// ---- All of it against the plain form

TEST_F(DateReading, RandomTextsReadAsThePlainFormReadsThem) {
    test::RandomText random(5, {ZUTEXT("0"), ZUTEXT("1"), ZUTEXT("2"), ZUTEXT("3"), ZUTEXT("12"), ZUTEXT("29"),
                                ZUTEXT("2024"), ZUTEXT("-"), ZUTEXT("/"), ZUTEXT("-"), ZUTEXT("/"), ZUTEXT(" "),
                                ZUTEXT("+"), ZUTEXT("\t"), ZUTEXT("x"), ZUTEXT("\uFF12"), ZUTEXT("9")});
    const int16 orders[] = {0, 1, 2, 5, 3};
    int read = 0;
    for (int i = 0; i < 30'000; ++i) {
        const wstring16 text = random.Text(9);
        const int16 order = orders[random.Number(5)];
        const wchar16 separator = random.Number(2) == 0 ? '/' : '-';
        const bool isFixed = random.Number(4) == 0;
        SetCallback(isFixed, isFixed);
        const test::PlainDateReader reader{order, separator, isFixed};
        const std::string expected = reader.Read(text);
        const std::string narrow(text.begin(), text.end());
        ASSERT_EQ(Read(text.c_str(), order, separator), expected) << narrow << " order " << order;
        ASSERT_EQ(TakeDateErrors(), reader.Errors()) << narrow;
        ASSERT_EQ(ReadEx(text.c_str(), order, separator), reader.ReadEx(text)) << narrow << " order " << order;
        ASSERT_EQ(TakeDateErrors(), reader.Errors()) << narrow;
        read += expected != "null" ? 1 : 0;
    }
    EXPECT_GT(read, 100);
}

}  // namespace
}  // namespace date_reading_test
