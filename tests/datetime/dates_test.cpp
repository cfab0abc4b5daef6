#include <Utility/dates.h>
#include <Utility/locale_info.h>
#include <Utility/platform/host.h>
#include <gtest/gtest.h>
#include <support/dates.h>
#include <support/time_locale.h>

#include <chrono>
#include <cstring>
#include <ctime>
#include <limits>
#include <type_traits>

namespace dates_test {
namespace {

using namespace Torvo;
using test::BadDateError;
using test::TakeDateErrors;
using test::Told;

static_assert(sizeof(zuDATE) == 4 && std::is_trivial_v<zuDATE> && std::is_standard_layout_v<zuDATE>);
static_assert(offsetof(zuDATE, year) == 0 && offsetof(zuDATE, month) == 2 && offsetof(zuDATE, day) == 3);
static_assert(DATEORDER_MDY == 0 && DATEORDER_DMY == 1 && DATEORDER_YMD == 2 && DATEORDER_YDM == 5);

constexpr int32 Highest = std::numeric_limits<int32>::max();
constexpr int32 Lowest = std::numeric_limits<int32>::min();
constexpr zuDATE LeapDay = {2024, 2, 29};

int32 DaysOf(const zuDATE& date) {
    return MDY2Days(&date);
}

std::string DateOf(int32 days) {
    zuDATE date = {77, 7, 7};
    EXPECT_TRUE(Days2MDY(days, &date));
    return Told(date);
}

class Dates : public testing::Test {
protected:
    void SetUp() override { ClearErrors(); }
    void TearDown() override { EXPECT_EQ(TakeDateErrors(), ""); }
};

// ---- The null date

TEST_F(Dates, AreNullWithoutMonthOrDay) {
    for (const zuDATE& date : {zuDATE{0, 0, 0}, zuDATE{2024, 0, 29}, zuDATE{2024, 5, 0}}) EXPECT_TRUE(NullDate(&date));
    for (const zuDATE& date : {LeapDay, zuDATE{0, 1, 1}, zuDATE{0, -1, -1}}) EXPECT_FALSE(NullDate(&date));
}

TEST_F(Dates, NullDateIsAllZeros) {
    zuDATE date;
    std::memset(&date, 0xFF, sizeof date);
    SetNullDate(&date);
    const zuDATE zeros = {};
    EXPECT_EQ(std::memcmp(&date, &zeros, sizeof date), 0);
}

// ---- Day numbers

TEST_F(Dates, DayNumbersCountFromTheFirstOfJanuaryOfYear1) {
    EXPECT_EQ(DaysOf({1, 1, 1}), 0);
    EXPECT_EQ(DaysOf({1, 1, 2}), 1);
    EXPECT_EQ(DaysOf({9999, 12, 31}), 3652058);
    EXPECT_EQ(DateOf(0), "1-1-1");
    EXPECT_EQ(DateOf(3652058), "9999-12-31");
    EXPECT_EQ(DaysOf({1970, 1, 1}), 719162);
}

TEST_F(Dates, LastDayOfFourHundredYearsIsALeapDay) {
    EXPECT_EQ(DateOf(146096 - 306), "400-2-29");
    EXPECT_EQ(DateOf(146096 - 305), "400-3-1");
    EXPECT_EQ(DateOf(146096 - 306 + 4 * 146097), "2000-2-29");
    EXPECT_EQ(DateOf(DaysOf({1900, 2, 28}) + 1), "1900-3-1");
}

TEST_F(Dates, NumbersAboveTheCalendarGoOn) {
    EXPECT_EQ(DateOf(3652059), "10000-1-1");
    EXPECT_EQ(DateOf(11967899), "32767-12-31");
    EXPECT_EQ(DateOf(11967900), "-32768-1-1");  // cut to 16 bits
}

TEST_F(Dates, NegativeNumbersAreRefused) {
    for (const int32 days : {-1, -306, -307, Lowest}) {
        zuDATE date = LeapDay;
        EXPECT_FALSE(Days2MDY(days, &date));
        EXPECT_EQ(Told(date), "0-0-0");
        EXPECT_EQ(TakeDateErrors(), BadDateError);
    }
}

TEST_F(Dates, NullDatesAndNegativeYearsHaveNoNumber) {
    for (const zuDATE& date : {zuDATE{2024, 0, 1}, zuDATE{2024, 1, 0}, zuDATE{-1, 1, 1}, zuDATE{-32768, 12, 31}}) {
        EXPECT_EQ(DaysOf(date), -1);
    }
}

TEST_F(Dates, ExcessOfMonthAndDayCarriesForward) {
    EXPECT_EQ(DaysOf({2023, 13, 1}), DaysOf({2024, 1, 1}));
    EXPECT_EQ(DaysOf({2023, 1, 32}), DaysOf({2023, 2, 1}));
    EXPECT_EQ(DaysOf({2023, 2, 29}), DaysOf({2023, 3, 1}));
    EXPECT_EQ(DaysOf({1999, 14, 29}), DaysOf({2000, 2, 29}));
    EXPECT_EQ(DaysOf({2023, 1, -1}), DaysOf({2022, 12, 30}));
}

TEST_F(Dates, YearZeroHasNumbersWithoutAMeaning) {
    EXPECT_EQ(DaysOf({0, 3, 1}), -306);
    EXPECT_EQ(DaysOf({0, 12, 31}), -1);
    EXPECT_EQ(DaysOf({0, 1, 1}), 1095);
    EXPECT_EQ(DaysOf({0, 2, 29}), 1095 + 59);
}

// ---- Arithmetic

TEST_F(Dates, DaysAreAddedAndSubtracted) {
    zuDATE date = LeapDay;
    EXPECT_EQ(DateAdd(1, &date), &date);
    EXPECT_EQ(Told(date), "2024-3-1");
    EXPECT_EQ(DateSubtract(366, &date), &date);
    EXPECT_EQ(Told(date), "2023-3-1");
    DateAdd(-1, &date);
    EXPECT_EQ(Told(date), "2023-2-28");
    DateSubtract(-1, &date);
    EXPECT_EQ(Told(date), "2023-3-1");
    DateAdd(0, &date);
    EXPECT_EQ(Told(date), "2023-3-1");
}

TEST_F(Dates, SumsBeforeTheCalendarAreRefused) {
    zuDATE date = {1, 1, 1};
    EXPECT_EQ(DateSubtract(1, &date), &date);
    EXPECT_EQ(Told(date), "0-0-0");
    EXPECT_EQ(TakeDateErrors(), BadDateError);
}

TEST_F(Dates, SumsBeyondEveryNumberAreRefused) {
    for (const int32 days : {Highest, Lowest}) {
        zuDATE date = LeapDay;
        DateAdd(days, &date);
        EXPECT_EQ(Told(date), "0-0-0") << days;
        EXPECT_EQ(TakeDateErrors(), BadDateError);
        date = LeapDay;
        DateSubtract(days, &date);
        EXPECT_EQ(Told(date), "0-0-0") << days;
        EXPECT_EQ(TakeDateErrors(), BadDateError);
    }
    zuDATE none = {};
    DateAdd(Lowest, &none);
    EXPECT_EQ(Told(none), "0-0-0");
    EXPECT_EQ(TakeDateErrors(), BadDateError);
}

TEST_F(Dates, NullDateCountsAsTheDayBeforeTheCalendar) {
    zuDATE date = {};
    DateAdd(1, &date);
    EXPECT_EQ(Told(date), "1-1-1");
    SetNullDate(&date);
    DateAdd(0, &date);
    EXPECT_EQ(Told(date), "0-0-0");
    EXPECT_EQ(TakeDateErrors(), BadDateError);
}

TEST_F(Dates, DifferenceIsInDays) {
    const zuDATE first = {2024, 3, 1};
    const zuDATE null = {};
    EXPECT_EQ(DateDiff(&first, &LeapDay), 1);
    EXPECT_EQ(DateDiff(&LeapDay, &first), -1);
    EXPECT_EQ(DateDiff(&null, &null), 0);
    const zuDATE origin = {1, 1, 1};
    EXPECT_EQ(DateDiff(&origin, &null), 1);
    EXPECT_EQ(DateDiff(&null, &origin), -1);
}

// ---- Comparison

int32 Compare(const zuDATE& a, const zuDATE& b) {
    return DateCmp(&a, &b);
}

TEST_F(Dates, CompareByYearThenMonthThenDay) {
    EXPECT_EQ(Compare(LeapDay, LeapDay), 0);
    EXPECT_EQ(Compare({2023, 12, 31}, {2024, 1, 1}), -1);
    EXPECT_EQ(Compare({2024, 1, 1}, {2023, 12, 31}), 1);
    EXPECT_EQ(Compare({2024, 1, 31}, {2024, 2, 1}), -1);
    EXPECT_EQ(Compare({2024, 2, 2}, {2024, 2, 1}), 1);
}

TEST_F(Dates, NullDatesCompareOnlyWithEachOther) {
    EXPECT_EQ(Compare({}, LeapDay), -2);
    EXPECT_EQ(Compare(LeapDay, {}), -2);
    EXPECT_EQ(Compare({2024, 5, 0}, {0, 0, 0}), 0);
    EXPECT_EQ(Compare({2024, 5, 0}, {1999, 0, 7}), 0);
}

TEST_F(Dates, CompareFieldsThatAreNoDate) {
    EXPECT_EQ(Compare({2024, 2, 31}, {2024, 3, 1}), -1);
    EXPECT_EQ(Compare({2024, 1, 127}, {2024, 2, -128}), -1);
    EXPECT_EQ(Compare({-1, 127, 127}, {0, -128, -128}), -1);
    EXPECT_EQ(Compare({32767, 127, 127}, {-32768, -128, -128}), 1);
    EXPECT_EQ(Compare({5, -1, 1}, {5, 1, 1}), -1);
    EXPECT_EQ(Compare({5, 1, 1}, {5, 1, -1}), 1);
}

// ---- Days of the week

TEST_F(Dates, WeekBeginsWithSunday) {
    EXPECT_EQ(DayOfWeek(0), 2);
    EXPECT_EQ(DayOfWeek(5), 7);
    EXPECT_EQ(DayOfWeek(6), 1);
    EXPECT_EQ(DayOfWeek(DaysOf(LeapDay)), 5);  // a Thursday
    EXPECT_EQ(DayOfWeek(3652058), 6);
    EXPECT_EQ(DayOfWeek(-1), 1);
    EXPECT_EQ(DayOfWeek(-2), 0);  // the remainder is cut towards zero
    EXPECT_EQ(DayOfWeek(-8), 1);
}

// ---- Literals

std::string Decoded(int32 literal) {
    zuDATE date = {77, 7, 7};
    const bool isDate = LiteralToDate(literal, &date);
    return Told(date) + (isDate ? "" : " refused");
}

TEST_F(Dates, LiteralIsTheDigits) {
    EXPECT_EQ(DateToLiteral(&LeapDay), 20240229);
    EXPECT_EQ(Decoded(20240229), "2024-2-29");
    const zuDATE early = {1, 1, 1};
    EXPECT_EQ(DateToLiteral(&early), 10101);
    EXPECT_EQ(Decoded(10101), "1-1-1");
}

TEST_F(Dates, LiteralZeroIsTheNullDate) {
    const zuDATE null = {};
    EXPECT_EQ(DateToLiteral(&null), 0);
    EXPECT_EQ(Decoded(0), "0-0-0");
}

TEST_F(Dates, LiteralOfWhatIsNoDateIsComputedAllTheSame) {
    const zuDATE null = {2024, 0, 5};
    EXPECT_EQ(DateToLiteral(&null), 20240005);
    const zuDATE negative = {-1, -1, -1};
    EXPECT_EQ(DateToLiteral(&negative), -10101);
    const zuDATE highest = {32767, 127, 127};
    EXPECT_EQ(DateToLiteral(&highest), 327682827);
}

TEST_F(Dates, RefusedLiteralStaysDecoded) {
    EXPECT_EQ(Decoded(20230229), "2023-2-29 refused");
    EXPECT_EQ(TakeDateErrors(), BadDateError);
    EXPECT_EQ(Decoded(20241301), "2024-13-1 refused");
    EXPECT_EQ(TakeDateErrors(), BadDateError);
    EXPECT_EQ(Decoded(20240001), "2024-0-1 refused");
    EXPECT_EQ(TakeDateErrors(), BadDateError);
    EXPECT_EQ(Decoded(20240100), "2024-1-0 refused");
    EXPECT_EQ(TakeDateErrors(), BadDateError);
    EXPECT_EQ(Decoded(-20240229), "-2024--2--29 refused");
    EXPECT_EQ(TakeDateErrors(), BadDateError);
    EXPECT_EQ(Decoded(1), "0-0-1 refused");
    EXPECT_EQ(TakeDateErrors(), BadDateError);
}

TEST_F(Dates, LiteralHasNoUpperYear) {
    EXPECT_EQ(Decoded(101), "0-1-1");  // year 0 passes
    EXPECT_EQ(Decoded(229), "0-2-29");
    EXPECT_EQ(Decoded(123450131), "12345-1-31");
    EXPECT_EQ(Decoded(327671231), "32767-12-31");
    EXPECT_EQ(Decoded(655370101), "1-1-1");  // cut to 16 bits
    EXPECT_EQ(Decoded(327680101), "-32768-1-1 refused");
    EXPECT_EQ(TakeDateErrors(), BadDateError);
    EXPECT_EQ(Decoded(655360000), "0-0-0 refused");  // all zeros, but not the literal 0
    EXPECT_EQ(TakeDateErrors(), BadDateError);
}

// ---- Validity

bool IsValid(const zuDATE& date) {
    return IsValidDate(&date);
}

TEST_F(Dates, ValidityKnowsTheCalendar) {
    EXPECT_TRUE(IsValid({2000, 2, 29}));
    EXPECT_FALSE(IsValid({1900, 2, 29}));
    EXPECT_TRUE(IsValid({0, 2, 29}));
    EXPECT_TRUE(IsValid({0, 1, 1}));
    EXPECT_TRUE(IsValid({9999, 12, 31}));
    EXPECT_FALSE(IsValid({10000, 1, 1}));
    EXPECT_FALSE(IsValid({-1, 1, 1}));
    EXPECT_FALSE(IsValid({2024, 0, 1}));
    EXPECT_FALSE(IsValid({2024, 13, 1}));
    EXPECT_FALSE(IsValid({2024, 4, 31}));
    EXPECT_FALSE(IsValid({2024, 1, 0}));
    EXPECT_FALSE(IsValid({2024, 1, 32}));
    EXPECT_FALSE(IsValid({2024, -1, 1}));
    EXPECT_FALSE(IsValid({2024, 1, -1}));
}

TEST_F(Dates, SetDateStoresWhatIsValid) {
    zuDATE date = {77, 7, 7};
    EXPECT_TRUE(SetDate(2024, 2, 29, &date));
    EXPECT_EQ(Told(date), "2024-2-29");
    EXPECT_FALSE(SetDate(2023, 2, 29, &date));
    EXPECT_EQ(Told(date), "0-0-0");
    EXPECT_TRUE(SetDate(0, 1, 1, &date));
    EXPECT_EQ(Told(date), "0-1-1");
    EXPECT_FALSE(SetDate(0, 0, 0, &date));
    EXPECT_EQ(Told(date), "0-0-0");
}

// ---- The clock

TEST_F(Dates, SystemDateIsToday) {
    zuDATE date;
    std::string before;
    std::string after;
    const auto today = [] {
        const std::time_t now = std::time(nullptr);
        const std::tm parts = *std::localtime(&now);
        return Told({static_cast<int16>(parts.tm_year + 1900), static_cast<int8>(parts.tm_mon + 1),
                     static_cast<int8>(parts.tm_mday)});
    };
    do {  // again when midnight passes
        before = today();
        EXPECT_EQ(SystemDate(&date), &date);
        after = today();
    } while (before != after);
    EXPECT_EQ(Told(date), before);
}

// ---- Order and delimiter

int questions = 0;
bool answer = false;

bool IsFixed() {
    ++questions;
    return answer;
}

class DateOrder : public Dates {
protected:
    void SetUp() override {
        Dates::SetUp();
        questions = 0;
    }
    void TearDown() override {
        SetDateFormatCallback(nullptr);
        Dates::TearDown();
    }
};

TEST_F(DateOrder, IsTheLocales) {
    const uint32 former = platform::GetThreadLocale();
    constexpr uint32 German = 0x407;
    constexpr uint32 Japanese = 0x411;
    platform::SetThreadLocale(German);
    EXPECT_EQ(GetDateOrder(), DATEORDER_DMY);
    EXPECT_EQ(GetDateDelim(), '.');
    platform::SetThreadLocale(Japanese);
    EXPECT_EQ(GetDateOrder(), DATEORDER_YMD);
    EXPECT_EQ(GetDateDelim(), '/');
    platform::SetThreadLocale(former);
}

TEST_F(DateOrder, IsFixedWhenTheCallbackSaysSo) {
    const test::TimeLocale locale({.dateOrder = 5, .dateSeparator = '_'});
    EXPECT_EQ(GetDateOrder(), DATEORDER_YDM);
    EXPECT_EQ(GetDateDelim(), '_');
    SetDateFormatCallback(IsFixed);
    answer = false;
    EXPECT_EQ(GetDateOrder(), DATEORDER_YDM);
    EXPECT_EQ(GetDateDelim(), '_');
    EXPECT_EQ(questions, 2);
    answer = true;
    EXPECT_EQ(GetDateOrder(), DATEORDER_MDY);
    EXPECT_EQ(GetDateDelim(), '/');
    EXPECT_EQ(questions, 4);  // each call asks anew
}

}  // namespace
}  // namespace dates_test
