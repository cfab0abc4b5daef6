// MakeDateString, MakeDateStringEx and FormatDateString.
#include <Utility/date_strings.h>
#include <Utility/locale_info.h>
#include <Utility/platform/host.h>
#include <gtest/gtest.h>
#include <support/date_names.h>
#include <support/guarded_buffer.h>
#include <support/random.h>

#include <cstdio>

namespace date_printing_test {
namespace {

using namespace Torvo;
using test::German;
using test::GuardedBuffer;
using test::Japanese;
using test::Polish;

constexpr zuDATE LeapDay = {2024, 2, 29};
constexpr uint64 Size = 40;
constexpr int16 ShortDate = 31;  // LOCALE_SSHORTDATE
constexpr int16 LongDate = 32;   // LOCALE_SLONGDATE

wstring16 Print(zuDATE date, int16 order, wchar16 delimiter, uint64 size = Size) {
    GuardedBuffer buffer(size);
    MakeDateString(buffer.Start(), size, &date, order, delimiter);
    return buffer.Text();
}

wstring16 PrintEx(zuDATE date, int16 order, const wchar16* delimiter1, const wchar16* delimiter2, uint64 size = Size) {
    GuardedBuffer buffer(size);
    EXPECT_TRUE(MakeDateStringEx(buffer.Start(), size, &date, order, delimiter1, delimiter2));
    return buffer.Text();
}

TEST(MakeDateString, PrintsTheFieldsInOrder) {
    EXPECT_EQ(Print(LeapDay, 0, '/'), ZUTEXT("02/29/2024"));
    EXPECT_EQ(Print(LeapDay, 1, '.'), ZUTEXT("29.02.2024"));
    EXPECT_EQ(Print(LeapDay, 2, '-'), ZUTEXT("2024-02-29"));
    EXPECT_EQ(Print(LeapDay, 5, 0x5E74), ZUTEXT("2024\u5E7429\u5E7402"));
}

TEST(MakeDateString, PrintsWithoutADelimiter) {
    EXPECT_EQ(Print(LeapDay, 0, 0), ZUTEXT("02292024"));
    EXPECT_EQ(Print(LeapDay, 1, 0), ZUTEXT("29022024"));
    EXPECT_EQ(Print(LeapDay, 2, 0), ZUTEXT("20240229"));
    EXPECT_EQ(Print(LeapDay, 5, 0), ZUTEXT("20242902"));
}

TEST(MakeDateString, YearHasFourDigits) {
    EXPECT_EQ(Print({987, 6, 5}, 2, '-'), ZUTEXT("0987-06-05"));
    EXPECT_EQ(Print({1, 1, 1}, 0, '/'), ZUTEXT("01/01/0001"));
    EXPECT_EQ(Print({0, 0, 0}, 0, '/'), ZUTEXT("00/00/0000"));
}

TEST(MakeDateString, FieldsAreNotChecked) {
    EXPECT_EQ(Print({32767, 127, 127}, 0, '/'), ZUTEXT("127/127/32767"));
    EXPECT_EQ(Print({-32768, -128, -128}, 2, '-'), ZUTEXT("-32768--128--128"));
    EXPECT_EQ(Print({-1, -1, -1}, 1, '/'), ZUTEXT("-1/-1/-001"));
}

TEST(MakeDateString, IsCutAtTheSize) {
    EXPECT_EQ(Print(LeapDay, 0, '/', 11), ZUTEXT("02/29/2024"));
    EXPECT_EQ(Print(LeapDay, 0, '/', 10), ZUTEXT("02/29/202"));
    EXPECT_EQ(Print(LeapDay, 0, '/', 4), ZUTEXT("02/"));
    EXPECT_EQ(Print(LeapDay, 0, '/', 1), ZUTEXT(""));
    zuDATE date = LeapDay;
    GuardedBuffer nothing(0);
    MakeDateString(nothing.Start(), 0, &date, 0, '/');
    MakeDateString(nullptr, 0, &date, 0, '/');
}

TEST(MakeDateString, TakesASizeThatStandsForNoLimit) {
    for (const uint64 size : test::SizesWithoutALimit) {
        wchar16 buffer[12];
        zuDATE date = LeapDay;
        MakeDateString(buffer, size, &date, 2, '-');
        EXPECT_EQ(wstring16(buffer), ZUTEXT("2024-02-29")) << size;
    }
}

TEST(MakeDateString, FailsWithoutADateOrABuffer) {
    wchar16 buffer[] = ZUTEXT("as it was");
    zuDATE date = LeapDay;
    MakeDateString(nullptr, 9, &date, 0, '/');
    EXPECT_FALSE(MakeDateStringEx(nullptr, 9, &date, 0, ZUTEXT("/"), ZUTEXT("/")));
    EXPECT_FALSE(MakeDateStringEx(buffer, 9, nullptr, 0, ZUTEXT("/"), ZUTEXT("/")));
    EXPECT_EQ(wstring16(buffer), ZUTEXT("as it was"));
}

TEST(MakeDateString, NothingBehindTheTerminatorIsTouched) {
    wchar16 buffer[20];
    std::fill_n(buffer, 20, wchar16{'#'});
    zuDATE date = LeapDay;
    MakeDateString(buffer, 20, &date, 2, '-');
    EXPECT_EQ(wstring16(buffer, 20), wstring16(ZUTEXT("2024-02-29")) + wchar16{0} + wstring16(9, '#'));
}

TEST(MakeDateString, OtherOrdersWriteNothing) {
    for (const int16 order : std::initializer_list<int16>{3, 4, 6, -1, 256, 32767}) {
        wchar16 buffer[] = ZUTEXT("as it was");
        zuDATE date = LeapDay;
        MakeDateString(buffer, 9, &date, order, '/');
        EXPECT_EQ(wstring16(buffer), ZUTEXT("as it was"));
        EXPECT_FALSE(MakeDateStringEx(buffer, 9, &date, order, ZUTEXT("/"), ZUTEXT("/")));
        EXPECT_EQ(wstring16(buffer), ZUTEXT("as it was"));
    }
}

TEST(MakeDateStringEx, HasTwoDelimiters) {
    EXPECT_EQ(PrintEx(LeapDay, 0, ZUTEXT("/"), ZUTEXT("-")), ZUTEXT("02/29-2024"));
    EXPECT_EQ(PrintEx(LeapDay, 1, ZUTEXT(". "), ZUTEXT(" of ")), ZUTEXT("29. 02 of 2024"));
    EXPECT_EQ(PrintEx(LeapDay, 2, ZUTEXT(""), ZUTEXT("")), ZUTEXT("20240229"));
    EXPECT_EQ(PrintEx(LeapDay, 5, ZUTEXT("\u5E74"), ZUTEXT("%d%s")), ZUTEXT("2024\u5E7429%d%s02"));
}

TEST(MakeDateStringEx, IsCutAtTheSize) {
    for (uint64 size = 1; size <= 16; ++size) {
        const wstring16 whole = ZUTEXT("29---02+++2024");
        EXPECT_EQ(PrintEx(LeapDay, 1, ZUTEXT("---"), ZUTEXT("+++"), size), whole.substr(0, size - 1));
    }
    GuardedBuffer nothing(0);
    zuDATE date = LeapDay;
    EXPECT_TRUE(MakeDateStringEx(nothing.Start(), 0, &date, 1, ZUTEXT("-"), ZUTEXT("-")));
}

TEST(MakeDateStringEx, TakesDelimitersOfAnyLength) {
    const wstring16 longText(5000, 'x');
    EXPECT_EQ(PrintEx(LeapDay, 2, longText.c_str(), ZUTEXT("-"), 6000), ZUTEXT("2024") + longText + ZUTEXT("02-29"));
    EXPECT_EQ(PrintEx(LeapDay, 2, longText.c_str(), ZUTEXT("-"), 20), (ZUTEXT("2024") + longText).substr(0, 19));
}

TEST(MakeDateStringEx, MissingDelimiterPrintsAsTheRuntimePrintsOne) {
    EXPECT_EQ(PrintEx(LeapDay, 2, nullptr, ZUTEXT("-")), ZUTEXT("2024(null)02-29"));
}

TEST(MakeDateString, PrintsWhatPrintfPrints) {
    test::Random random;
    SCOPED_TRACE(random.About());
    for (int i = 0; i < 5'000; ++i) {
        const zuDATE date = {static_cast<int16>(random.Between(-32768, 32767)),
                             static_cast<int8>(random.Between(-128, 127)),
                             static_cast<int8>(random.Between(-128, 127))};
        const auto size = static_cast<uint64>(random.Between(1, 20));
        char expected[40];
        std::snprintf(expected, size, "%02d/%02d/%04d", date.month, date.day, date.year);
        const std::string text = expected;
        EXPECT_EQ(Print(date, 0, '/', size), wstring16(text.begin(), text.end()));
        std::snprintf(expected, size, "%04d%02d%02d", date.year, date.month, date.day);
        const std::string plain = expected;
        EXPECT_EQ(Print(date, 2, 0, size), wstring16(plain.begin(), plain.end()));
    }
}

// ---- Pictures of the system

class FormatDate : public test::DateNames {};

// The text; the rest of the buffer has to be cleared.
template <typename Picture>
wstring16 Format(zuDATE date, Picture picture, uint64 size = 100) {
    GuardedBuffer buffer(size);
    EXPECT_TRUE(FormatDateString(buffer.Start(), size, date, picture));
    EXPECT_TRUE(size == 0 || buffer.IsCleared());
    return buffer.Text();
}

TEST_F(FormatDate, PrintsAPicture) {
    EXPECT_EQ(Format(LeapDay, ZUTEXT("yyyy-MM-dd")), ZUTEXT("2024-02-29"));
    EXPECT_EQ(Format(LeapDay, ZUTEXT("dddd, MMMM d, yyyy")), ZUTEXT("Thursday, February 29, 2024"));
    EXPECT_EQ(Format(LeapDay, ZUTEXT("ddd d MMM yy")), ZUTEXT("Thu 29 Feb 24"));
    EXPECT_EQ(Format(LeapDay, ZUTEXT("d 'of' MMMM")), ZUTEXT("29 of February"));
    EXPECT_EQ(Format(LeapDay, ZUTEXT("")), ZUTEXT(""));
    EXPECT_EQ(Format({9999, 12, 31}, ZUTEXT("d.M.yyyy dddd")), ZUTEXT("31.12.9999 Friday"));
    EXPECT_EQ(Format({1601, 1, 1}, ZUTEXT("d.M.yyyy dddd")), ZUTEXT("1.1.1601 Monday"));
}

TEST_F(FormatDate, FollowsTheLocaleOfTheThread) {
    platform::SetThreadLocale(German);
    EXPECT_EQ(Format(LeapDay, ZUTEXT("dddd, d. MMMM yyyy")), ZUTEXT("Donnerstag, 29. Februar 2024"));
    platform::SetThreadLocale(Polish);
    EXPECT_EQ(Format(LeapDay, ZUTEXT("d MMMM yyyy")), ZUTEXT("29 lutego 2024"));
    platform::SetThreadLocale(Japanese);
    EXPECT_EQ(Format(LeapDay, ZUTEXT("dddd")), ZUTEXT("\u6728\u66DC\u65E5"));
}

TEST_F(FormatDate, IsCutAtTheSizeAndClearsTheRest) {
    EXPECT_EQ(Format(LeapDay, ZUTEXT("yyyy-MM-dd"), 11), ZUTEXT("2024-02-29"));
    EXPECT_EQ(Format(LeapDay, ZUTEXT("yyyy-MM-dd"), 10), ZUTEXT("2024-02-2"));
    EXPECT_EQ(Format(LeapDay, ZUTEXT("yyyy-MM-dd"), 1), ZUTEXT(""));
    EXPECT_EQ(Format(LeapDay, ZUTEXT("yyyy-MM-dd"), 0), ZUTEXT(""));
}

TEST_F(FormatDate, RefusedDateLeavesTheBufferCleared) {
    for (const zuDATE& date :
         {zuDATE{1600, 12, 31}, zuDATE{987, 6, 5}, zuDATE{0, 0, 0}, zuDATE{2024, 2, 30}, zuDATE{2024, 13, 1},
          zuDATE{2024, 0, 1}, zuDATE{2024, 1, 0}, zuDATE{-2024, 1, 1}, zuDATE{2024, -1, 1}, zuDATE{2024, 1, -1},
          zuDATE{2023, 2, 29}, zuDATE{1900, 2, 29}, zuDATE{2023, 4, 31}}) {
        GuardedBuffer buffer(20);
        EXPECT_FALSE(FormatDateString(buffer.Start(), 20, date, ZUTEXT("d"))) << test::Told(date);
        EXPECT_EQ(buffer.Text(), ZUTEXT(""));
        EXPECT_TRUE(buffer.IsCleared());
    }
}

TEST_F(FormatDate, NullPictureIsTheShortDate) {
    platform::SetThreadLocale(German);
    EXPECT_EQ(Format(LeapDay, static_cast<const wchar16*>(nullptr)), ZUTEXT("29.2.2024"));
}

TEST_F(FormatDate, PrintsAPictureOfTheLocale) {
    ResetZULocaleInfo();
    EXPECT_EQ(Format(LeapDay, ShortDate), ZUTEXT("2/29/2024"));
    EXPECT_EQ(Format(LeapDay, LongDate), ZUTEXT("Thursday, February 29, 2024"));
    platform::SetThreadLocale(German);
    ResetZULocaleInfo();
    EXPECT_EQ(Format(LeapDay, ShortDate), ZUTEXT("29.2.2024"));
    EXPECT_EQ(Format(LeapDay, LongDate), ZUTEXT("Donnerstag, 29. Februar 2024"));
}

TEST_F(FormatDate, PictureIsTheOneOfTheLastRefreshAndTheNamesAreTheThreads) {
    ResetZULocaleInfo();
    platform::SetThreadLocale(German);
    EXPECT_EQ(Format(LeapDay, LongDate), ZUTEXT("Donnerstag, Februar 29, 2024"));
    EXPECT_EQ(Format(LeapDay, LongDate), ZUTEXT("Donnerstag, 29. Februar 2024"));  // which has asked for the locale
}

TEST_F(FormatDate, FailsWithoutABuffer) {
    EXPECT_FALSE(FormatDateString(nullptr, 20, LeapDay, ZUTEXT("d")));
    EXPECT_FALSE(FormatDateString(nullptr, 20, LeapDay, ShortDate));
    EXPECT_TRUE(FormatDateString(nullptr, 0, LeapDay, ZUTEXT("d")));
}

TEST_F(FormatDate, UnknownItemLeavesTheBuffer) {
    for (const int16 item : {int16{0x2000}, int16{-1}}) {
        wchar16 buffer[] = ZUTEXT("as it was");
        EXPECT_FALSE(FormatDateString(buffer, 9, LeapDay, item));
        EXPECT_EQ(wstring16(buffer), ZUTEXT("as it was"));
    }
}

}  // namespace
}  // namespace date_printing_test
