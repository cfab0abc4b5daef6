// Day numbers and literals against an incremental calendar and against the plain form.
#include <Utility/dates.h>
#include <gtest/gtest.h>
#include <reference/plain_calendar.h>
#include <support/dates.h>
#include <support/random.h>

#include <limits>

namespace day_numbers_test {
namespace {

using namespace Torvo;
using test::Told;

constexpr int32 LastDay = 3652058;
constexpr int32 Highest = std::numeric_limits<int32>::max();

bool Same(const zuDATE& a, const zuDATE& b) {
    return a.year == b.year && a.month == b.month && a.day == b.day;
}

TEST(DayNumbers, EveryDayOfTheCalendarRoundTrips) {
    zuDATE expected = {1, 1, 1};
    int failures = 0;
    for (int32 days = 0; days <= LastDay && failures < 5; ++days, expected = test::Tomorrow(expected)) {
        zuDATE date;
        zuDATE decoded;
        const bool isSame = MDY2Days(&expected) == days && Days2MDY(days, &date) && Same(date, expected) &&
                            IsValidDate(&date) && LiteralToDate(DateToLiteral(&date), &decoded) &&
                            Same(decoded, date) && DayOfWeek(days) == 1 + (days + 1) % 7;
        if (!isSame) {
            ADD_FAILURE() << days << ' ' << Told(expected) << ' ' << Told(date);
            ++failures;
        }
    }
    EXPECT_EQ(Told(expected), "10000-1-1");
    EXPECT_EQ(NumErrors(), 0);
}

TEST(DayNumbers, FieldsOutOfRangeGiveWhatThePlainFormGives) {
    int failures = 0;
    for (int year = -1; year <= 32767 && failures < 5; year += year < 2500 ? 1 : 97) {
        for (int month = -128; month <= 127; ++month) {
            for (const int day : {-128, -1, 0, 1, 2, 28, 29, 31, 32, 60, 127}) {
                const zuDATE date = {static_cast<int16>(year), static_cast<int8>(month), static_cast<int8>(day)};
                if (!test::HasBlockMonth(date)) continue;
                if (MDY2Days(&date) != test::PlainDayNumber(date)) {
                    ADD_FAILURE() << Told(date) << ' ' << MDY2Days(&date) << ' ' << test::PlainDayNumber(date);
                    ++failures;
                }
            }
        }
    }
}

TEST(DayNumbers, NumbersBeyondTheCalendarGiveWhatThePlainFormGives) {
    test::Random random;
    SCOPED_TRACE(random.About());
    for (int i = 0; i < 200'000; ++i) {
        const auto days =
            static_cast<int32>(random.OneIn(2) ? random.Between(0, Highest) : random.Between(LastDay, 12'000'000));
        zuDATE date;
        ASSERT_TRUE(Days2MDY(days, &date));
        ASSERT_EQ(Told(date), Told(test::PlainDate(days))) << days;
    }
    for (const int32 days : {Highest, Highest - 305, Highest - 306, Highest - 307, 11967899, 11967900}) {
        zuDATE date;
        ASSERT_TRUE(Days2MDY(days, &date));
        ASSERT_EQ(Told(date), Told(test::PlainDate(days))) << days;
    }
}

TEST(DayNumbers, DatesOfAllYearsThatTheFieldHoldsRoundTrip) {
    for (int year = 1; year <= 32767; ++year) {
        for (const zuDATE& date : {zuDATE{static_cast<int16>(year), 1, 1}, zuDATE{static_cast<int16>(year), 2, 28},
                                   zuDATE{static_cast<int16>(year), 3, 1}, zuDATE{static_cast<int16>(year), 12, 31}}) {
            zuDATE back;
            ASSERT_TRUE(Days2MDY(MDY2Days(&date), &back));
            ASSERT_TRUE(Same(back, date)) << Told(date) << ' ' << Told(back);
        }
    }
}

TEST(DayNumbers, LiteralsAgreeWithThePlainCheck) {
    test::Random random;
    SCOPED_TRACE(random.About());
    for (int i = 0; i < 300'000; ++i) {
        const auto literal = static_cast<int32>(
            random.OneIn(20) ? random.Between(-Highest - int64{1}, Highest)
                             : random.Between(0, 9999) * 10000 + random.Between(0, 14) * 100 + random.Between(0, 33));
        const auto year = static_cast<int16>(literal / 10000);
        const int month = literal / 100 % 100;
        const int day = literal % 100;
        const bool isDate = literal == 0 || (year >= 0 && month >= 1 && month <= 12 && day >= 1 &&
                                             day <= test::PlainDaysInMonth(month, year));
        zuDATE date;
        ASSERT_EQ(LiteralToDate(literal, &date), isDate) << literal;
        ASSERT_EQ(NumErrors(), isDate ? 0 : 1) << literal;
        ASSERT_TRUE(Same(date, {year, static_cast<int8>(month), static_cast<int8>(day)})) << literal;
        if (!isDate) ClearErrors();
    }
}

TEST(DayNumbers, ValidityAgreesWithThePlainCheck) {
    for (int year = -2; year <= 10001; ++year) {
        for (int month = -1; month <= 14; ++month) {
            for (const int day : {-128, -1, 0, 1, 27, 28, 29, 30, 31, 32, 127}) {
                const zuDATE date = {static_cast<int16>(year), static_cast<int8>(month), static_cast<int8>(day)};
                const bool isDate = year >= 0 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 &&
                                    day <= test::PlainDaysInMonth(month, year);
                ASSERT_EQ(IsValidDate(&date), isDate) << Told(date);
            }
        }
    }
}

}  // namespace
}  // namespace day_numbers_test
