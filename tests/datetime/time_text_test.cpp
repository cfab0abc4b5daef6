#include <Utility/bounded_copy.h>
#include <Utility/locale_info.h>
#include <Utility/platform/host.h>
#include <Utility/times.h>
#include <gtest/gtest.h>

#include "support/guarded_buffer.h"
#include "support/time_locale.h"
#include "support/times.h"

namespace time_text_test {
namespace {

using namespace Torvo;
using namespace Torvo::test;

std::string Read(const wchar16* text) {
    return ToldAndGone(CreateTimeFromString(text));
}

// The text of a time, or "refused".
wstring16 Written(const zuTime& time, const wchar16* picture) {
    GuardedBuffer out(64);
    return time.ToString(out.Start(), 64, picture) ? out.Text() : ZUTEXT("refused");
}

class TimeText : public testing::Test {
protected:
    TimeText() { platform::SetThreadLocale(0x0409); }
    ~TimeText() override {
        platform::SetThreadLocale(former);
        SetDateFormatCallback(nullptr);
    }

private:
    const uint32 former = platform::GetThreadLocale();
};

// ---- Writing

TEST_F(TimeText, PicturesAreThePlatformsWithDigitsOfTheFraction) {
    const Time time(CreateTime(13, 5, 9, 1234567));
    EXPECT_EQ(Written(*time, ZUTEXT("HH:mm:ss.fffffff")), ZUTEXT("13:05:09.1234567"));
    EXPECT_EQ(Written(*time, ZUTEXT("HH:mm:ss.fff")), ZUTEXT("13:05:09.123"));
    EXPECT_EQ(Written(*time, ZUTEXT("H:m:s.f")), ZUTEXT("13:5:9.1"));
    EXPECT_EQ(Written(*time, ZUTEXT("HH:mm")), ZUTEXT("13:05"));
    EXPECT_EQ(Written(*time, ZUTEXT("f-f-f HH")), ZUTEXT("1-2-3 13")) << "wherever they stand";
}

TEST_F(TimeText, TheFractionIsCutNotRounded) {
    EXPECT_EQ(Written(*Time(CreateTime(0, 0, 0, 9999999)), ZUTEXT("ss.fff")), ZUTEXT("00.999"));
    EXPECT_EQ(Written(*Time(CreateTime(0, 0, 0, 1)), ZUTEXT("ss.fffffff")), ZUTEXT("00.0000001"));
    EXPECT_EQ(Written(*Time(CreateTime(0, 0, 0, 0)), ZUTEXT("ss.ff")), ZUTEXT("00.00"));
}

TEST_F(TimeText, TheEighthDigitEndsTheText) {
    const Time time(CreateTime(13, 5, 9, 1234567));
    EXPECT_EQ(Written(*time, ZUTEXT("ss.ffffffff")), ZUTEXT("09.1234567"));
    EXPECT_EQ(Written(*time, ZUTEXT("ffff ffff ffff HH")), ZUTEXT("1234 567"));
    EXPECT_EQ(Written(*time, ZUTEXT("fffffff HH")), ZUTEXT("1234567 13"));
}

TEST_F(TimeText, DigitsReplaceEveryFThatThePlatformLeaves) {
    const Time time(CreateTime(13, 5, 9, 1234567));
    EXPECT_EQ(Written(*time, ZUTEXT("'of' HH 'f'")), ZUTEXT("o1 13 2")) << "quoted ones too";
    EXPECT_EQ(Written(*time, ZUTEXT("F HH")), ZUTEXT("F 13")) << "but not capitals";
}

TEST_F(TimeText, HoursAreOfTwentyFourWithoutAMarkInThePicture) {
    const Time time(CreateTime(13, 5, 9));
    EXPECT_EQ(Written(*time, ZUTEXT("h:mm")), ZUTEXT("13:05"));
    EXPECT_EQ(Written(*time, ZUTEXT("h:mm t")), ZUTEXT("13:05 P")) << "one t is not enough";
    EXPECT_EQ(Written(*time, ZUTEXT("h:mm tt")), ZUTEXT("1:05 PM"));
    EXPECT_EQ(Written(*time, ZUTEXT("h:mm 'tt'")), ZUTEXT("1:05 tt")) << "in quotes it counts";
    EXPECT_EQ(Written(*time, nullptr), ZUTEXT("1:05:09 PM")) << "the locale's own";
    EXPECT_EQ(Written(*Time(CreateTime(0, 5, 9)), ZUTEXT("h:mm tt")), ZUTEXT("12:05 AM"));
    EXPECT_EQ(Written(*time, ZUTEXT("")), ZUTEXT(""));
}

TEST_F(TimeText, IsWrittenWithinItsSize) {
    const Time time(CreateTime(13, 5, 9, 1234567));
    {
        GuardedBuffer exact(9);
        EXPECT_TRUE(time->ToString(exact.Start(), 9, ZUTEXT("HH:mm:ss")));
        EXPECT_EQ(exact.Text(), ZUTEXT("13:05:09"));
    }
    for (const int32 size : {8, 2, 1}) {
        GuardedBuffer tooSmall(static_cast<uint64>(size));
        EXPECT_FALSE(time->ToString(tooSmall.Start(), size, ZUTEXT("HH:mm:ss"))) << size;
        EXPECT_EQ(*tooSmall.Start(), 0);
    }
    GuardedBuffer out;
    EXPECT_TRUE(time->ToString(out.Start(), 0, ZUTEXT("HH:mm:ss.fff"))) << "nothing to write";
    EXPECT_EQ(*out.Start(), '#');
    EXPECT_TRUE(time->ToString(nullptr, 0, ZUTEXT("HH:mm:ss.fff")));
    EXPECT_FALSE(time->ToString(out.Start(), -1, ZUTEXT("HH:mm:ss")));
    EXPECT_FALSE(time->ToString(nullptr, 20, ZUTEXT("HH:mm:ss")));
    EXPECT_EQ(*out.Start(), '#');
}

TEST_F(TimeText, FollowsTheThreadsLocale) {
    const Time time(CreateTime(13, 5, 9));
    platform::SetThreadLocale(0x0407);
    EXPECT_EQ(Written(*time, nullptr), ZUTEXT("13:05:09"));
    platform::SetThreadLocale(0x040B);
    EXPECT_EQ(Written(*time, nullptr), ZUTEXT("13.05.09"));
    platform::SetThreadLocale(0x0411);
    EXPECT_EQ(Written(*time, ZUTEXT("tt h:mm")), ZUTEXT("\u5348\u5F8C 1:05"));
}

// ---- Reading literals

TEST_F(TimeText, ThirteenDigitsAreALiteral) {
    EXPECT_EQ(Read(ZUTEXT("0930150000000")), "09:30:15.0000000");
    EXPECT_EQ(Read(ZUTEXT("1305092500000")), "13:05:09.2500000");
    EXPECT_EQ(Read(ZUTEXT("0000000000000")), "00:00:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("2359599999999")), "23:59:59.9999999");
}

TEST_F(TimeText, ThirteenDigitsThatAreNoTimeAreAnHourTooLarge) {
    EXPECT_EQ(Read(ZUTEXT("2400000000000")), "none");
    EXPECT_EQ(Read(ZUTEXT("0060000000000")), "none");
    EXPECT_EQ(Read(ZUTEXT("0000600000000")), "none");
    EXPECT_EQ(Read(ZUTEXT("9999999999999")), "none");
}

TEST_F(TimeText, OtherNumbersOfDigitsAreHours) {
    EXPECT_EQ(Read(ZUTEXT("093015000000")), "none") << "twelve";
    EXPECT_EQ(Read(ZUTEXT("09301500000000")), "none") << "fourteen";
    EXPECT_EQ(Read(ZUTEXT("000000000012")), "12:00:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("00000000000000000000000000012")), "12:00:00.0000000");
    EXPECT_EQ(Read(ZUTEXT(" 0930150000000")), "none") << "blanks make it no literal";
    EXPECT_EQ(Read(ZUTEXT("0930150000000 ")), "none");
}

// ---- Reading times

TEST_F(TimeText, HoursMinutesAndSecondsAreReadAsFarAsTheyGo) {
    const TimeLocale locale({});
    EXPECT_EQ(Read(ZUTEXT("10:20:30")), "10:20:30.0000000");
    EXPECT_EQ(Read(ZUTEXT("10:20")), "10:20:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("12")), "12:00:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("0")), "00:00:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("")), "00:00:00.0000000") << "an hour that is missing is 0";
    EXPECT_EQ(Read(ZUTEXT("   ")), "00:00:00.0000000");
    EXPECT_EQ(Read(ZUTEXT(":30:15")), "00:30:15.0000000");
    EXPECT_EQ(Read(ZUTEXT("10:")), "10:00:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("10:20:")), "10:20:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("7:5:3")), "07:05:03.0000000");
}

TEST_F(TimeText, SecondsHaveAFractionBehindAPointWhateverTheLocale) {
    const TimeLocale locale({});
    EXPECT_EQ(Read(ZUTEXT("10:20:30.5")), "10:20:30.5000000");
    EXPECT_EQ(Read(ZUTEXT("10:20:30.1234567")), "10:20:30.1234567");
    EXPECT_EQ(Read(ZUTEXT("10:20:59.99999999")), "10:20:59.9999999") << "cut";
    EXPECT_EQ(Read(ZUTEXT("23:59:59.99999999999999")), "23:59:59.9999999");
    EXPECT_EQ(Read(ZUTEXT("10:20:.5")), "10:20:00.5000000");
    EXPECT_EQ(Read(ZUTEXT("10:20:3e1")), "10:20:30.0000000");
    EXPECT_EQ(Read(ZUTEXT("10:20:3d1")), "10:20:30.0000000");
    EXPECT_EQ(Read(ZUTEXT("10:20:0x10")), "10:20:16.0000000");
    EXPECT_EQ(Read(ZUTEXT("10:20:30,5")), "none");
    EXPECT_EQ(Read(ZUTEXT("10.5")), "none");
    platform::SetThreadLocale(0x0407);
    EXPECT_EQ(Read(ZUTEXT("10:20:30.5")), "10:20:30.5000000");
}

TEST_F(TimeText, BlanksMayStandAroundEachPart) {
    const TimeLocale locale({});
    EXPECT_EQ(Read(ZUTEXT("  10 : 20 : 30.5  PM ")), "22:20:30.5000000");
    EXPECT_EQ(Read(ZUTEXT("\t10\t:\t20\t:\t30\t")), "10:20:30.0000000");
    EXPECT_EQ(Read(ZUTEXT("10:20:30.5\u0001")), "10:20:30.5000000") << "a control is blank";
    EXPECT_EQ(Read(ZUTEXT("\u00A010:20")), "10:20:00.0000000") << "the reader of numbers skips this space";
    EXPECT_EQ(Read(ZUTEXT("10:20\u00A0")), "none") << "but it is no blank";
}

TEST_F(TimeText, PartsOutsideTheirRangeAreRefused) {
    const TimeLocale locale({});
    for (const wchar16* const bad :
         {ZUTEXT("24:00"), ZUTEXT("10:60"), ZUTEXT("10:20:60"), ZUTEXT("10:20:59.9999999999999999999"), ZUTEXT("-1:00"),
          ZUTEXT("10:-1"), ZUTEXT("10:20:-1"), ZUTEXT("10:20:nan"), ZUTEXT("10:20:inf"), ZUTEXT("10:20:1e400"),
          ZUTEXT("99999999999999999999:00"), ZUTEXT("-99999999999999999999:00"), ZUTEXT("2147483647"),
          ZUTEXT("-2147483648:59")}) {
        EXPECT_EQ(CreateTimeFromString(bad), nullptr);
    }
    EXPECT_EQ(Read(ZUTEXT("-0:30")), "00:30:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("+7:+30")), "07:30:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("10:20:-0.0")), "10:20:00.0000000");
}

TEST_F(TimeText, WhatIsNoTimeIsRefused) {
    const TimeLocale locale({});
    for (const wchar16* const bad : {ZUTEXT("nonsense"), ZUTEXT("10:20:30:40"), ZUTEXT("10::20"), ZUTEXT("10-20"),
                                     ZUTEXT("10:20 x"), ZUTEXT("10 20"), ZUTEXT("x10:20"), ZUTEXT("10:20:30 30")}) {
        EXPECT_EQ(CreateTimeFromString(bad), nullptr);
    }
    EXPECT_EQ(CreateTimeFromString(nullptr), nullptr);
}

TEST_F(TimeText, TextOfAHundredUnitsIsRefused) {
    const TimeLocale locale({});
    const wstring16 longest = wstring16(94, ' ') + ZUTEXT("10:20");
    ASSERT_EQ(longest.size(), 99u);
    EXPECT_EQ(Read(longest.c_str()), "10:20:00.0000000");
    EXPECT_EQ(Read((longest + ZUTEXT(" ")).c_str()), "none");
    EXPECT_EQ(Read(wstring16(100'000, '1').c_str()), "none");
}

// ---- Separators

TEST_F(TimeText, SeparatorsAreMatchedWhole) {
    TimeHabits habits;
    habits.separator = habits.separator2 = ZUTEXT("::.");
    const TimeLocale locale(habits);
    EXPECT_EQ(Read(ZUTEXT("10::.20::.30")), "10:20:30.0000000");
    EXPECT_EQ(Read(ZUTEXT("10::20")), "none") << "too few";
    EXPECT_EQ(Read(ZUTEXT("10:.:20")), "none") << "another order";
    EXPECT_EQ(Read(ZUTEXT("10::.:20")), "none") << "too many";
}

TEST_F(TimeText, TheTwoSeparatorsMayDiffer) {
    TimeHabits habits;
    habits.separator = ZUTEXT("h");
    habits.separator2 = ZUTEXT("m");
    const TimeLocale locale(habits);
    EXPECT_EQ(Read(ZUTEXT("10h20m30")), "10:20:30.0000000");
    EXPECT_EQ(Read(ZUTEXT("10H20M30")), "10:20:30.0000000") << "the text is read in small letters";
    EXPECT_EQ(Read(ZUTEXT("10m30")), "10:00:30.0000000") << "seconds without minutes";
    EXPECT_EQ(Read(ZUTEXT("10m20h30")), "none");
}

TEST_F(TimeText, ACapitalSeparatorIsNeverMet) {
    TimeHabits habits;
    habits.separator = ZUTEXT("H");
    const TimeLocale locale(habits);
    EXPECT_EQ(Read(ZUTEXT("10H20")), "none");
}

TEST_F(TimeText, AnEmptySeparatorLeavesHoursAlone) {
    TimeHabits habits;
    habits.separator = habits.separator2 = ZUTEXT("");
    const TimeLocale locale(habits);
    EXPECT_EQ(Read(ZUTEXT("10")), "10:00:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("10:20")), "none");
}

// ---- Marks

TEST_F(TimeText, TwelveTurnsWithItsMark) {
    const TimeLocale locale({});
    EXPECT_EQ(Read(ZUTEXT("12:30 am")), "00:30:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("12:30 pm")), "12:30:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("12:30")), "12:30:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("1:05 p")), "13:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("1:05 a")), "01:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("13:00 pm")), "none");
    EXPECT_EQ(Read(ZUTEXT("13:00 am")), "13:00:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("0:30 pm")), "12:30:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("11:59:59 PM")), "23:59:59.0000000");
    EXPECT_EQ(Read(ZUTEXT("5pm")), "17:00:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("5:30Pm")), "17:30:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("5:30:10.25PM")), "17:30:10.2500000");
    EXPECT_EQ(Read(ZUTEXT("-1 pm")), "11:00:00.0000000") << "twelve more";
    EXPECT_EQ(Read(ZUTEXT("-13 pm")), "none");
}

TEST_F(TimeText, UnitsOfTheMarksThatAreNoMarkArePassedOver) {
    const TimeLocale locale({});
    EXPECT_EQ(Read(ZUTEXT("1:05 mm")), "01:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("1:05 m")), "01:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("1:05 p m")), "01:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("1:05 pmpm")), "01:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("12:05 maap")), "12:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("1:05 pm.")), "none");
    EXPECT_EQ(Read(ZUTEXT("1:05 p.m.")), "none");
}

TEST_F(TimeText, TheMarkMayComeFirst) {
    TimeHabits habits;
    habits.markPosition = 1;
    const TimeLocale locale(habits);
    EXPECT_EQ(Read(ZUTEXT("pm 1:05")), "13:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("p1:05")), "13:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("AM 12:05")), "00:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("1:05")), "01:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("mm 1:05")), "01:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("1:05 pm")), "none") << "and only first";
    EXPECT_EQ(Read(ZUTEXT("pm")), "12:00:00.0000000");
}

TEST_F(TimeText, MarksOfOtherScripts) {
    TimeHabits habits;
    habits.am = ZUTEXT("\uC624\uC804");
    habits.pm = ZUTEXT("\uC624\uD6C4");
    habits.markPosition = 1;
    const TimeLocale locale(habits);
    EXPECT_EQ(Read(ZUTEXT("\uC624\uD6C4 1:05")), "13:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("\uC624\uC804 12:05")), "00:05:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("\uC624 12:05")), "00:05:00.0000000") << "the first of both is the morning's";
    EXPECT_EQ(Read(ZUTEXT("\uD6C4 1:05")), "01:05:00.0000000") << "no mark";
}

TEST_F(TimeText, AnEmptyMarkMarksNothing) {
    TimeHabits habits;
    habits.am = habits.pm = ZUTEXT("");
    {
        const TimeLocale locale(habits);
        EXPECT_EQ(Read(ZUTEXT("12:30")), "12:30:00.0000000");
        EXPECT_EQ(Read(ZUTEXT("1:30 pm")), "none");
    }
    habits.pm = ZUTEXT("PM");
    {
        const TimeLocale locale(habits);
        EXPECT_EQ(Read(ZUTEXT("12:30")), "12:30:00.0000000");
        EXPECT_EQ(Read(ZUTEXT("1:30 pm")), "13:30:00.0000000");
    }
    habits = {};
    habits.pm = ZUTEXT("");
    const TimeLocale locale(habits);
    EXPECT_EQ(Read(ZUTEXT("12:30")), "12:30:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("12:30 am")), "00:30:00.0000000");
}

// ---- The host's callback

int questions = 0;

TEST_F(TimeText, TheCallbackChoosesTheFixedForm) {
    TimeHabits habits;
    habits.separator = habits.separator2 = ZUTEXT("-");
    const TimeLocale locale(habits);
    EXPECT_EQ(Read(ZUTEXT("10-20")), "10:20:00.0000000");
    SetDateFormatCallback([] { return ++questions, true; });
    questions = 0;
    EXPECT_EQ(Read(ZUTEXT("10:20")), "10:20:00.0000000");
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(Read(ZUTEXT("1:20 PM")), "13:20:00.0000000");
    EXPECT_EQ(Read(ZUTEXT("10-20")), "none");
    SetDateFormatCallback([] { return ++questions, false; });
    questions = 0;
    EXPECT_EQ(Read(ZUTEXT("10-20")), "10:20:00.0000000");
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(Read(ZUTEXT("1305092500000")), "13:05:09.2500000");
    EXPECT_EQ(questions, 1) << "a literal asks nobody";
    EXPECT_EQ(locale.FixedQuestions(), 3);
    EXPECT_EQ(locale.UserQuestions(), 2);
}

// ---- Into numbers

struct Numbers {
    int32 hours = 91;
    int32 minutes = 42;
    double seconds = 43.5;
    bool isTime = false;
};

Numbers Parse(const wchar16* text) {
    Numbers numbers;
    numbers.isTime = ParseTimeString(text, &numbers.hours, &numbers.minutes, &numbers.seconds);
    return numbers;
}

void ExpectNumbers(const Numbers& numbers, bool isTime, int32 hours, int32 minutes, double seconds) {
    EXPECT_EQ(numbers.isTime, isTime);
    EXPECT_EQ(numbers.hours, hours);
    EXPECT_EQ(numbers.minutes, minutes);
    EXPECT_EQ(numbers.seconds, seconds);
}

TEST_F(TimeText, NumbersThatTheTextDoesNotHoldStay) {
    const TimeLocale locale({});
    ExpectNumbers(Parse(ZUTEXT("1:2")), true, 1, 2, 43.5);
    ExpectNumbers(Parse(ZUTEXT("1")), true, 1, 42, 43.5);
    ExpectNumbers(Parse(ZUTEXT("1:2:3.25")), true, 1, 2, 3.25);
    ExpectNumbers(Parse(ZUTEXT("")), true, 0, 42, 43.5);
    ExpectNumbers(Parse(ZUTEXT(" 1 : 2 ")), true, 1, 2, 43.5);
}

TEST_F(TimeText, NumbersAreWrittenAsTheyAreRead) {
    const TimeLocale locale({});
    ExpectNumbers(Parse(ZUTEXT("24:2:3")), false, 24, 2, 3.0);
    ExpectNumbers(Parse(ZUTEXT("1:60")), false, 1, 60, 43.5);
    ExpectNumbers(Parse(ZUTEXT("1:2:60")), false, 1, 2, 60.0);
    ExpectNumbers(Parse(ZUTEXT("-1")), false, -1, 42, 43.5);
    ExpectNumbers(Parse(ZUTEXT("1:-2")), false, 1, -2, 43.5);
    ExpectNumbers(Parse(ZUTEXT("1:2:-3")), false, 1, 2, -3.0);
    ExpectNumbers(Parse(ZUTEXT("1::2")), false, 1, 42, 43.5);
    ExpectNumbers(Parse(ZUTEXT("1:2::3")), false, 1, 2, 43.5);
    // There is no mark here.
    ExpectNumbers(Parse(ZUTEXT("1:2 pm")), false, 1, 2, 43.5);
    ExpectNumbers(Parse(ZUTEXT("nonsense")), false, 0, 42, 43.5);
    ExpectNumbers(Parse(ZUTEXT("99999999999")), false, HighestInt32, 42, 43.5);
    ExpectNumbers(Parse(nullptr), false, 91, 42, 43.5);
    ExpectNumbers(Parse(wstring16(100, '1').c_str()), false, 91, 42, 43.5);
}

TEST_F(TimeText, NumbersThatStayHaveToBeInRangeToo) {
    const TimeLocale locale({});
    Numbers numbers;
    numbers.minutes = 60;
    EXPECT_FALSE(ParseTimeString(ZUTEXT("1"), &numbers.hours, &numbers.minutes, &numbers.seconds));
    numbers = {};
    numbers.seconds = 60.0;
    EXPECT_FALSE(ParseTimeString(ZUTEXT("1:2"), &numbers.hours, &numbers.minutes, &numbers.seconds));
    EXPECT_EQ(numbers.minutes, 2);
}

TEST_F(TimeText, ALiteralIntoNumbers) {
    ExpectNumbers(Parse(ZUTEXT("1305092500000")), true, 13, 5, 9.25);
    ExpectNumbers(Parse(ZUTEXT("2359599999999")), true, 23, 59, 9999999 / 1e7 + 59);
    ExpectNumbers(Parse(ZUTEXT("2360015000000")), false, HighestInt32, 60, 1.5);
}

TEST_F(TimeText, NumbersWithoutAPlaceAreRefused) {
    Numbers numbers;
    EXPECT_FALSE(ParseTimeString(ZUTEXT("1"), nullptr, &numbers.minutes, &numbers.seconds));
    EXPECT_FALSE(ParseTimeString(ZUTEXT("1"), &numbers.hours, nullptr, &numbers.seconds));
    EXPECT_FALSE(ParseTimeString(ZUTEXT("1"), &numbers.hours, &numbers.minutes, nullptr));
    EXPECT_EQ(numbers.hours, 91);
}

}  // namespace
}  // namespace time_text_test
