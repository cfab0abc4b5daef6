#include <Utility/date_times.h>
#include <Utility/errors.h>
#include <Utility/locale_info.h>
#include <Utility/platform/host.h>
#include <gtest/gtest.h>

#include <memory>

#include "support/guarded_buffer.h"
#include "support/thread_locale.h"
#include "support/time_locale.h"
#include "support/times.h"

namespace date_time_text_test {
namespace {

using namespace Torvo;
using namespace Torvo::test;

std::string Read(const wchar16* text) {
    return ToldAndGone(CreateDateTimeFromString(text));
}

class DateTimeText : public testing::Test {
protected:
    DateTimeText() { ClearErrors(); }
    ~DateTimeText() override {
        SetDateFormatCallback(nullptr);
        ClearErrors();
    }

private:
    const ThreadLocale english{0x0409};
};

// The current year, as the reader of dates puts it in.
std::string ThisYear() {
    zuDATE today;
    SystemDate(&today);
    return std::to_string(today.year);
}

// ---- Writing

struct Writing {
    int16 order = 2;
    const wchar16* delimiter1 = ZUTEXT("-");
    const wchar16* delimiter2 = ZUTEXT("-");
    const wchar16* picture = ZUTEXT("HH:mm:ss");
    bool blank = true;
};

// The text in a buffer of a size, and whether it was a success.
std::pair<bool, wstring16> Written(const zuDateTime& dateTime, const Writing& how, uint64 size = 64) {
    GuardedBuffer out(size);
    const bool isWritten =
        dateTime.ToString(out.Start(), size, how.order, how.delimiter1, how.delimiter2, how.picture, how.blank);
    return {isWritten, out.Text()};
}

using Result = std::pair<bool, wstring16>;

TEST_F(DateTimeText, IsTheDateABlankAndTheTime) {
    const DateTime dateTime(CreateDateTime(2024, 2, 29, 13, 5, 9, 1234567));
    EXPECT_EQ(Written(*dateTime, {}), Result(true, ZUTEXT("2024-02-29 13:05:09")));
    Writing how;
    how.blank = false;
    EXPECT_EQ(Written(*dateTime, how), Result(true, ZUTEXT("2024-02-2913:05:09")));
    how.picture = ZUTEXT("THH.fff");
    EXPECT_EQ(Written(*dateTime, how), Result(true, ZUTEXT("2024-02-29T13.123")));
    how.order = 0;
    how.delimiter1 = ZUTEXT("/");
    how.delimiter2 = ZUTEXT(" of ");
    how.picture = ZUTEXT(" h:mm tt");
    EXPECT_EQ(Written(*dateTime, how), Result(true, ZUTEXT("02/29 of 2024 1:05 PM")));
    how.order = 1;
    EXPECT_EQ(Written(*dateTime, how), Result(true, ZUTEXT("29/02 of 2024 1:05 PM")));
    how.order = 5;
    EXPECT_EQ(Written(*dateTime, how), Result(true, ZUTEXT("2024/29 of 02 1:05 PM")));
    how.picture = nullptr;
    how.blank = true;
    EXPECT_EQ(Written(*dateTime, how), Result(true, ZUTEXT("2024/29 of 02 1:05:09 PM"))) << "the locale's own time";
    EXPECT_EQ(Written(*DateTime(zuDateTime::MinValue()), {}), Result(true, ZUTEXT("0001-01-01 00:00:00")));
}

TEST_F(DateTimeText, ABadOrderWritesNothing) {
    const DateTime dateTime(CreateDateTime(2024, 2, 29));
    for (const int16 order : {int16{3}, int16{4}, int16{-1}, int16{6}}) {
        GuardedBuffer out(64);
        EXPECT_FALSE(dateTime->ToString(out.Start(), 64, order, ZUTEXT("-"), ZUTEXT("-"), nullptr, true));
        EXPECT_EQ(*out.Start(), '#');
        EXPECT_FALSE(dateTime->ToString(nullptr, 0, order, ZUTEXT("-"), ZUTEXT("-"), nullptr, true));
    }
}

TEST_F(DateTimeText, ADateThatFillsItsBufferIsASuccess) {
    const DateTime dateTime(CreateDateTime(2024, 2, 29, 13, 5, 9));
    EXPECT_EQ(Written(*dateTime, {}, 11), Result(true, ZUTEXT("2024-02-29")));
    EXPECT_EQ(Written(*dateTime, {}, 8), Result(true, ZUTEXT("2024-02"))) << "cut";
    EXPECT_EQ(Written(*dateTime, {}, 1), Result(true, ZUTEXT("")));
    EXPECT_EQ(Written(*dateTime, {}, 0), Result(true, ZUTEXT("")));
    EXPECT_EQ(Written(*dateTime, {}, 12), Result(true, ZUTEXT("2024-02-29 "))) << "so is the blank behind it";
    Writing how;
    how.blank = false;
    EXPECT_EQ(Written(*dateTime, how, 11), Result(true, ZUTEXT("2024-02-29")));
    EXPECT_TRUE(dateTime->ToString(nullptr, 0, 2, ZUTEXT("-"), ZUTEXT("-"), nullptr, true));
    EXPECT_FALSE(dateTime->ToString(nullptr, 20, 2, ZUTEXT("-"), ZUTEXT("-"), nullptr, true));
}

TEST_F(DateTimeText, TakesASizeThatStandsForNoLimit) {
    const std::unique_ptr<zuDateTime> moment(CreateDateTime(2024, 2, 29, 13, 5, 9));
    for (const uint64 size : SizesWithoutALimit) {
        wchar16 out[32];
        EXPECT_TRUE(moment->ToString(out, size, 2, ZUTEXT("-"), ZUTEXT("-"), ZUTEXT("HH:mm:ss"), true));
        EXPECT_EQ(wstring16(out), ZUTEXT("2024-02-29 13:05:09")) << size;
    }
}

TEST_F(DateTimeText, ATimeThatDoesNotFitIsAFailureBehindTheDate) {
    const DateTime dateTime(CreateDateTime(2024, 2, 29, 13, 5, 9));
    EXPECT_EQ(Written(*dateTime, {}, 20), Result(true, ZUTEXT("2024-02-29 13:05:09"))) << "just fits";
    for (const uint64 size : {13u, 14u, 19u}) {
        EXPECT_EQ(Written(*dateTime, {}, size), Result(false, ZUTEXT("2024-02-29 "))) << size;
    }
    Writing how;
    how.blank = false;
    EXPECT_EQ(Written(*dateTime, how, 19), Result(true, ZUTEXT("2024-02-2913:05:09")));
    EXPECT_EQ(Written(*dateTime, how, 18), Result(false, ZUTEXT("2024-02-29")));
    EXPECT_EQ(Written(*dateTime, how, 12), Result(false, ZUTEXT("2024-02-29")));
}

TEST_F(DateTimeText, AValueWithoutATimePartIsItsDate) {
    const DateTime dateTime(CreateDateTimeFromLiteral(20240229, -1));
    EXPECT_EQ(Written(*dateTime, {}), Result(true, ZUTEXT("2024-02-29"))) << "no blank either";
    Writing how;
    how.blank = false;
    EXPECT_EQ(Written(*dateTime, how), Result(true, ZUTEXT("2024-02-29")));
}

// ---- Reading literals

TEST_F(DateTimeText, TwentyOneDigitsAreALiteral) {
    EXPECT_EQ(Read(ZUTEXT("202402291305092500000")), "2024-02-29 13:05:09.2500000");
    EXPECT_EQ(Read(ZUTEXT("000101010000000000000")), "0001-01-01 00:00:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("999912312359599999999")), "9999-12-31 23:59:59.9999999");
    EXPECT_EQ(NumErrors(), 0);
}

TEST_F(DateTimeText, TwentyOneDigitsThatAreNoDateTimeAreRefused) {
    EXPECT_EQ(Read(ZUTEXT("000000001305092500000")), "none");
    EXPECT_EQ(Read(ZUTEXT("202402292400000000000")), "none");
    EXPECT_EQ(NumErrors(), 0);
    EXPECT_EQ(Read(ZUTEXT("202302291305092500000")), "none");
    EXPECT_EQ(NumErrors(), 1) << "the record of the date";
    EXPECT_EQ(GetResourceID(0), 9986);
    EXPECT_EQ(Read(ZUTEXT("20240229130509250000")), "none") << "twenty";
    EXPECT_EQ(Read(ZUTEXT("2024022913050925000000")), "none") << "twenty-two";
    EXPECT_EQ(Read(ZUTEXT("20240229 30509250000x")), "none");
}

TEST_F(DateTimeText, EightDigitsAreTheLiteralOfADate) {
    EXPECT_EQ(Read(ZUTEXT("20240229")), "2024-02-29 00:00:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("00000000")), "none") << "the null date";
}

// ---- Reading dates and times

TEST_F(DateTimeText, ADateInTheLocalesFormAndATime) {
    const TimeLocale locale({});
    EXPECT_EQ(Read(ZUTEXT("2/29/2024 13:05")), "2024-02-29 13:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("2/29/2024 1:05:09.25 pm")), "2024-02-29 13:05:09.2500000");
    EXPECT_EQ(Read(ZUTEXT("2/29/2024")), "2024-02-29 00:00:00.0000000");
    EXPECT_EQ(Read(ZUTEXT(" 2 / 29 / 2024   13:05  ")), "2024-02-29 13:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("2/29/2024 1305092500000")), "2024-02-29 13:05:09.2500000");
    EXPECT_EQ(Read(ZUTEXT("2/29/2024\t1305092500000")), "2024-02-29 00:00:00.0000000") << "no literal with a tab";
    EXPECT_EQ(Read(ZUTEXT("2/29/2024\t13:05")), "2024-02-29 13:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("12/31/9999 23:59:59.9999999")), "9999-12-31 23:59:59.9999999");
}

TEST_F(DateTimeText, ATimeThatIsNoneIsMidnight) {
    const TimeLocale locale({});
    EXPECT_EQ(Read(ZUTEXT("2/29/2024 nonsense")), "2024-02-29 00:00:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("2/29/2024 25:00")), "2024-02-29 00:00:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("2/29/2024 13 pm")), "2024-02-29 00:00:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("2/29/2024 \t\u00A0\u3000")), "2024-02-29 00:00:00.0000000");
    EXPECT_EQ(Read((ZUTEXT("2/29/2024 ") + wstring16(1000, '1')).c_str()), "2024-02-29 00:00:00.0000000");
    EXPECT_EQ(Read((ZUTEXT("2/29/2024 ") + wstring16(1000, ' ') + ZUTEXT("13:05")).c_str()),
              "2024-02-29 13:05:00.0000000")
        << "the date takes the spaces along";
}

TEST_F(DateTimeText, ADateThatIsNoneIsRefused) {
    const TimeLocale locale({});
    for (const wchar16* const bad :
         {ZUTEXT(""), ZUTEXT(" "), ZUTEXT("nonsense"), ZUTEXT("13:05"), ZUTEXT("2/30/2024 13:05"), ZUTEXT("2-29-2024"),
          ZUTEXT("13/1/2024"), ZUTEXT("1/1/10000"), ZUTEXT("2024-02-29"), ZUTEXT("2/")}) {
        EXPECT_EQ(CreateDateTimeFromString(bad), nullptr);
    }
    EXPECT_EQ(CreateDateTimeFromString(nullptr), nullptr);
}

TEST_F(DateTimeText, ADateOfTwoFieldsTakesTheNextCharacterAlong) {
    const TimeLocale locale({});
    const std::string fourthOfMarch = ThisYear() + "-03-04 ";
    // The spaces behind the day are skipped, and then one character is gone.
    EXPECT_EQ(Read(ZUTEXT("3/4x13:05")), fourthOfMarch + "13:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("3/4 13:05")), fourthOfMarch + "03:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("3/4  x 13:05")), fourthOfMarch + "13:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("3/4 x")), fourthOfMarch + "00:00:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("3/4 7")), fourthOfMarch + "00:00:00.0000000");
}

TEST_F(DateTimeText, NothingIsReadBehindTheEndOfATextOfTwoFields) {
    const TimeLocale locale({});
    const std::string fourthOfMarch = ThisYear() + "-03-04 00:00:00.0000000";
    // Behind the terminator stands what would be a time.
    EXPECT_EQ(Read(ZUTEXT("3/4\0"
                          "13:05")),
              fourthOfMarch);
    EXPECT_EQ(Read(ZUTEXT("3/4   \0"
                          "13:05")),
              fourthOfMarch);
    // And here nothing at all: the sanitizers would see a read.
    const wstring16 text = ZUTEXT("3/4");
    const auto exact = std::make_unique<wchar16[]>(text.size() + 1);
    text.copy(exact.get(), text.size());
    exact[text.size()] = 0;
    EXPECT_EQ(Read(exact.get()), fourthOfMarch);
}

TEST_F(DateTimeText, FollowsTheLocalesOrderAndSeparators) {
    TimeHabits habits;
    habits.dateOrder = 1;
    habits.dateSeparator = '.';
    habits.separator = habits.separator2 = ZUTEXT(".");
    const TimeLocale locale(habits);
    EXPECT_EQ(Read(ZUTEXT("29.2.2024 13.05.09")), "2024-02-29 13:05:09.0000000");
    EXPECT_EQ(Read(ZUTEXT("2/29/2024 13:05")), "none");
}

int questions = 0;

TEST_F(DateTimeText, TheCallbackIsAskedOnceForEachHalf) {
    TimeHabits habits;
    habits.dateSeparator = '.';
    const TimeLocale locale(habits);
    SetDateFormatCallback([] { return ++questions, true; });
    questions = 0;
    EXPECT_EQ(Read(ZUTEXT("2/29/2024 1:05 PM")), "2024-02-29 13:05:00.0000000");
    EXPECT_EQ(questions, 2);
    questions = 0;
    EXPECT_EQ(Read(ZUTEXT("2/29/2024 ")), "2024-02-29 00:00:00.0000000");
    EXPECT_EQ(questions, 1);
    SetDateFormatCallback([] { return ++questions, false; });
    questions = 0;
    EXPECT_EQ(Read(ZUTEXT("2.29.2024 1:05 PM")), "2024-02-29 13:05:00.0000000");
    EXPECT_EQ(questions, 2);
    questions = 0;
    EXPECT_EQ(Read(ZUTEXT("202402291305092500000")), "2024-02-29 13:05:09.2500000");
    EXPECT_EQ(questions, 0);
}

TEST_F(DateTimeText, TextOfADateTimeReadsBack) {
    const TimeLocale locale({});
    for (const int64 ticks :
         {int64{315537897600000000}, int64{638447616000000000} + 1234567, LastTickOfCalendar, 100 * 366 * DayTicks}) {
        const DateTime dateTime(CreateDateTime(ticks));
        GuardedBuffer out;
        ASSERT_TRUE(dateTime->ToString(out.Start(), 64, 0, ZUTEXT("/"), ZUTEXT("/"), ZUTEXT("HH:mm:ss.fffffff"), true));
        const DateTime again(CreateDateTimeFromString(out.Text().c_str()));
        ASSERT_NE(again, nullptr);
        EXPECT_EQ(again->GetTicks(), ticks);
    }
}

}  // namespace
}  // namespace date_time_text_test
