// Dates and memory: reading and plain printing need none, and where there is none the rest fails cleanly.
#include <Utility/date_strings.h>
#include <Utility/locale_info.h>
#include <Utility/sql_dates.h>
#include <gtest/gtest.h>
#include <support/dates.h>
#include <support/failing_heap.h>

namespace {

using namespace Torvo;
using test::FailingHeap;
using test::Told;

constexpr zuDATE LeapDay = {2024, 2, 29};

// The tables of the locale, made at the first question, are not meant.
void WarmUp() {
    wchar16 text[40];
    FormatDateString(text, 40, LeapDay, ZUTEXT("dddd"));
    GetDateOrder();
}

TEST(DateTextMemory, ReadingAndPrintingNeedNone) {
    WarmUp();
    zuDATE date = LeapDay;
    wchar16 text[40];
    wchar16* end;
    const FailingHeap heap(1);
    for (const wchar16* const read : {ZUTEXT("20240229"), ZUTEXT("2024-02-29"), ZUTEXT("2/3"), ZUTEXT("x"),
                                      ZUTEXT("1.2.2024"), ZUTEXT("2024-2 -29")}) {
        Str2Date(read, &date);
        Str2DateEx(read, &date, &end);
    }
    MakeDateString(text, 40, &date, DATEORDER_YMD, '-');
    MakeDateStringEx(text, 40, &date, DATEORDER_YMD, ZUTEXT("-"), ZUTEXT("-"));
    EXPECT_FALSE(heap.Refused());
}

TEST(DateTextMemory, FormattingFailsWithoutIt) {
    WarmUp();
    const int64 before = test::LiveBlocks();
    const uint64 requests = test::RefuseEachRequest([](uint64 nth, FailingHeap::Mode mode) {
        wchar16 text[] = ZUTEXT("#########");
        const FailingHeap heap(nth, mode);
        const bool isDone = FormatDateString(text, 9, LeapDay, ZUTEXT("d.M."));
        EXPECT_EQ(isDone, !heap.Refused());
        EXPECT_EQ(wstring16(text), isDone ? ZUTEXT("29.2.") : ZUTEXT(""));
        return heap.Refused();
    });
    EXPECT_EQ(requests, 1u);
    EXPECT_EQ(test::LiveBlocks(), before);
}

TEST(DateTextMemory, SqlFormatsFailWithoutIt) {
    WarmUp();
    const int64 before = test::LiveBlocks();
    const uint64 toPrint = test::RefuseEachRequest([](uint64 nth, FailingHeap::Mode mode) {
        wchar16 text[] = ZUTEXT("as it was, and longer than any short text");
        const FailingHeap heap(nth, mode);
        const bool isDone = zuSQLDateToString(LeapDay, ZUTEXT("dd-mm-yyyy 'and a long literal'"), text, 40);
        EXPECT_EQ(isDone, !heap.Refused());
        EXPECT_EQ(wstring16(text), isDone ? ZUTEXT("29-02-2024 'and a long literal'")
                                          : ZUTEXT("as it was, and longer than any short text"));
        return heap.Refused();
    });
    EXPECT_GT(toPrint, 0u);
    const uint64 toRead = test::RefuseEachRequest([](uint64 nth, FailingHeap::Mode mode) {
        zuDATE date = {77, 7, 7};
        const FailingHeap heap(nth, mode);
        const bool isDone = zuSQLStringToDate(ZUTEXT("29-02-2024"), ZUTEXT("dd-mm-yyyy"), &date);
        EXPECT_EQ(isDone, !heap.Refused());
        EXPECT_EQ(Told(date), isDone ? "2024-2-29" : "77-7-7");
        return heap.Refused();
    });
    EXPECT_GT(toRead, 0u);
    EXPECT_EQ(test::LiveBlocks(), before);
    ClearErrors();
}

}  // namespace
