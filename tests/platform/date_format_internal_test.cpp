#include <Utility/platform/date_format.h>

#include <Utility/platform/platform.h>
#include <golden/compare_answers.h>
#include <golden/date_format_probe.h>
#include <gtest/gtest.h>
#include <support/fixture_path.h>
#include <support/guarded_buffer.h>

#include <vector>

namespace date_format_internal_test {
namespace {

using namespace Torvo;

constexpr uint32 English = 0x0409;
constexpr SYSTEMTIME LeapDay = {2024, 2, 0, 29, 13, 5, 9, 250};

TEST(DateFormatCalls, VectorsAreWhatTheirSystemStillAnswers) {
    const std::string vectors = test::ReadTextFile(test::SourcePath("tests/golden/date_format_vectors.txt"));
    if (!test::AreOfThisSystem(vectors)) GTEST_SKIP() << "the vectors come from another system than this one";
    test::ExpectTheVectorsAreStillAnswered(vectors, test::DateFormatProbe().Run());
}

wstring16 Date(const SYSTEMTIME& date, const wchar16* picture, uint32 locale = English) {
    wchar16 text[100] = {};
    EXPECT_NE(platform::GetDateFormatW(locale, 0, &date, picture, text, 100), 0);
    return text;
}

wstring16 Time(const SYSTEMTIME& time, const wchar16* picture, uint32 flags = 0) {
    wchar16 text[100] = {};
    EXPECT_NE(platform::GetTimeFormatW(English, flags, &time, picture, text, 100), 0);
    return text;
}

TEST(DateFormatCalls, LettersOfADate) {
    EXPECT_EQ(Date(LeapDay, ZUTEXT("d dd ddd dddd")), ZUTEXT("29 29 Thu Thursday"));
    EXPECT_EQ(Date(LeapDay, ZUTEXT("M MM MMM MMMM")), ZUTEXT("2 02 Feb February"));
    EXPECT_EQ(Date(LeapDay, ZUTEXT("yy yyyy yyyyy g")), ZUTEXT("24 2024 2024 AD"));
}

TEST(DateFormatCalls, LettersOfATime) {
    EXPECT_EQ(Time(LeapDay, ZUTEXT("h hh H HH m mm s ss t tt")), ZUTEXT("1 01 13 13 5 05 9 09 P PM"));
    EXPECT_EQ(Time({0, 0, 0, 0, 0, 0, 0, 0}, ZUTEXT("h H tt")), ZUTEXT("12 0 AM"));
    EXPECT_EQ(Time({0, 0, 0, 0, 12, 0, 0, 0}, ZUTEXT("h H tt")), ZUTEXT("12 12 PM"));
    EXPECT_EQ(Time(LeapDay, ZUTEXT("h:mm tt"), TIME_FORCE24HOURFORMAT), ZUTEXT("13:05 PM"));
}

TEST(DateFormatCalls, TheLettersOfTheOtherStandForThemselves) {
    EXPECT_EQ(Date(LeapDay, ZUTEXT("dHmst")), ZUTEXT("29Hmst"));
    EXPECT_EQ(Time(LeapDay, ZUTEXT("HdMyg.fff")), ZUTEXT("13dMyg.fff"));
}

TEST(DateFormatCalls, ApostrophesEncloseText) {
    EXPECT_EQ(Date(LeapDay, ZUTEXT("d 'de' MMMM")), ZUTEXT("29 de February"));
    EXPECT_EQ(Date(LeapDay, ZUTEXT("'d''d' d")), ZUTEXT("d'd 29"));
    EXPECT_EQ(Date(LeapDay, ZUTEXT("d''d")), ZUTEXT("2929"));
    EXPECT_EQ(Date(LeapDay, ZUTEXT("d 'd")), ZUTEXT("29 d"));
    EXPECT_EQ(Date(LeapDay, ZUTEXT("'")), ZUTEXT(""));
}

TEST(DateFormatCalls, MonthHasItsGenitiveBesideADay) {
    constexpr uint32 Polish = 0x0415;
    EXPECT_EQ(Date(LeapDay, ZUTEXT("d MMMM yyyy"), Polish), ZUTEXT("29 lutego 2024"));
    EXPECT_EQ(Date(LeapDay, ZUTEXT("yyyy MMMM"), Polish), ZUTEXT("2024 luty"));
    EXPECT_EQ(Date(LeapDay, ZUTEXT("'d' MMMM"), Polish), ZUTEXT("d luty"));
}

TEST(DateFormatCalls, SizesCountTheTerminator) {
    test::GuardedBuffer buffer(10);
    EXPECT_EQ(platform::GetDateFormatW(English, 0, &LeapDay, ZUTEXT("yyyy-MM-dd"), nullptr, 0), 11);
    platform::SetLastError(0);
    EXPECT_EQ(platform::GetDateFormatW(English, 0, &LeapDay, ZUTEXT("yyyy-MM-dd"), buffer.Start(), 10), 0);
    EXPECT_EQ(platform::GetLastError(), uint32{ERROR_INSUFFICIENT_BUFFER});
    EXPECT_EQ(platform::GetDateFormatW(English, 0, &LeapDay, ZUTEXT("yyyy-M-dd"), buffer.Start(), 10), 10);
    EXPECT_EQ(buffer.Text(), ZUTEXT("2024-2-29"));
    EXPECT_EQ(platform::GetTimeFormatW(English, 0, &LeapDay, ZUTEXT("HH:mm"), nullptr, 0), 6);
    EXPECT_EQ(platform::GetTimeFormatW(English, 0, &LeapDay, ZUTEXT("HH:mm"), buffer.Start(), 5), 0);
    EXPECT_EQ(platform::GetTimeFormatW(English, 0, &LeapDay, ZUTEXT(""), buffer.Start(), 1), 1);
    EXPECT_EQ(buffer.Text(), ZUTEXT(""));
}

void ExpectDateFails(const SYSTEMTIME& date, uint32 error, uint32 flags = 0, const wchar16* picture = ZUTEXT("d")) {
    wchar16 text[100] = {};
    platform::SetLastError(0);
    EXPECT_EQ(platform::GetDateFormatW(English, flags, &date, picture, text, 100), 0);
    EXPECT_EQ(platform::GetLastError(), error);
}

TEST(DateFormatCalls, TakePicturesOfAnyLengthOrRefuseThem) {
    const wstring16 literal(3000, 'x');
    wstring16 names;
    for (int i = 0; i < 100; ++i) names += ZUTEXT("dddd ");
    std::vector<wchar16> text(4000);
    for (const wstring16& picture : {literal, names}) {
        const int written = platform::GetDateFormatW(English, 0, &LeapDay, picture.c_str(), text.data(), 4000);
        const int time = platform::GetTimeFormatW(English, 0, &LeapDay, literal.c_str(), text.data(), 4000);
        if (!platform::TakesLongPictures()) {
            EXPECT_EQ(written, 0);
            EXPECT_EQ(time, 0);
            EXPECT_EQ(platform::GetLastError(), uint32{ERROR_INSUFFICIENT_BUFFER});
        } else {
            EXPECT_EQ(written, picture == literal ? 3001 : 901);
            EXPECT_EQ(time, 3001);
        }
    }
    // What a person would write is taken everywhere.
    EXPECT_EQ(Date(LeapDay, ZUTEXT("dddd, d 'de' MMMM 'de' yyyy 'and some words more, in full' ddd")),
              ZUTEXT("Thursday, 29 de February de 2024 and some words more, in full Thu"));
    EXPECT_EQ(Date(LeapDay, ZUTEXT("'the third letter attests to that:' d")),
              ZUTEXT("the third letter attests to that: 29"));
    EXPECT_EQ(Date(LeapDay, ZUTEXT("t t t t t t t t t d")), ZUTEXT("t t t t t t t t t 29"));
}

TEST(DateFormatCalls, LongPicturesOfMonthsTakeNoLongerThanTheirLength) {
    if (!platform::TakesLongPictures()) GTEST_SKIP() << "the system takes no long pictures";
    wstring16 picture;
    for (int i = 0; i < 100'000; ++i) picture += ZUTEXT("MMM ");
    EXPECT_EQ(platform::GetDateFormatW(English, 0, &LeapDay, picture.c_str(), nullptr, 0), 400'001);
}

TEST(DateFormatCalls, RefuseWhatIsNoDateOrTime) {
    for (const SYSTEMTIME& date : {SYSTEMTIME{1600, 12, 0, 31, 0, 0, 0, 0}, SYSTEMTIME{2024, 13, 0, 1, 0, 0, 0, 0},
                                   SYSTEMTIME{2024, 0, 0, 1, 0, 0, 0, 0}, SYSTEMTIME{2024, 1, 0, 0, 0, 0, 0, 0},
                                   SYSTEMTIME{2024, 2, 0, 30, 0, 0, 0, 0}, SYSTEMTIME{2024, 257, 0, 1, 0, 0, 0, 0},
                                   SYSTEMTIME{2024, 1, 0, 257, 0, 0, 0, 0}, SYSTEMTIME{65535, 1, 0, 1, 0, 0, 0, 0}}) {
        ExpectDateFails(date, ERROR_INVALID_PARAMETER);
    }
    wchar16 text[100];
    for (const SYSTEMTIME& time : {SYSTEMTIME{2024, 1, 0, 1, 24, 0, 0, 0}, SYSTEMTIME{2024, 1, 0, 1, 0, 60, 0, 0},
                                   SYSTEMTIME{2024, 1, 0, 1, 0, 0, 60, 0}, SYSTEMTIME{2024, 1, 0, 1, 0, 0, 0, 1000}}) {
        platform::SetLastError(0);
        EXPECT_EQ(platform::GetTimeFormatW(English, 0, &time, ZUTEXT("H"), text, 100), 0);
        EXPECT_EQ(platform::GetLastError(), uint32{ERROR_INVALID_PARAMETER});
    }
}

TEST(DateFormatCalls, RefuseFlagsBesideAPictureAndTwoPicturesAtOnce) {
    ExpectDateFails(LeapDay, ERROR_INVALID_FLAGS, DATE_SHORTDATE);
    ExpectDateFails(LeapDay, ERROR_INVALID_FLAGS, LOCALE_NOUSEROVERRIDE);
    ExpectDateFails(LeapDay, ERROR_INVALID_FLAGS, DATE_SHORTDATE | DATE_LONGDATE, nullptr);
}

}  // namespace
}  // namespace date_format_internal_test
