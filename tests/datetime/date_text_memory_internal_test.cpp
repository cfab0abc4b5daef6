// Dates and memory: reading and plain printing need none, and where there is none the rest fails cleanly.
#include <Utility/date_strings.h>
#include <Utility/locale_info.h>
#include <Utility/sql_dates.h>
#include <gtest/gtest.h>
#include <support/dates.h>
#include <support/failing_heap.h>

namespace date_text_memory_internal_test {
namespace {

using namespace Torvo;
using test::FailingHeap;
using test::Told;

constexpr zuDATE LeapDay = {2024, 2, 29};

// What is made once, at the first call, is not meant: the tables of the locale, the list of delimiters.
void WarmUp() {
    wchar16 text[40];
    FormatDateString(text, 40, LeapDay, ZUTEXT("dddd"));
    zuSQLDateToString(LeapDay, ZUTEXT("d"), text, 40);
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

// A call that is told how its heap fails: whether it succeeded.
template <typename Call>
bool Succeeds(uint64 nth, FailingHeap::Mode mode, bool* refused, Call call) {
    const FailingHeap heap(nth, mode);
    const bool isDone = call();
    *refused = heap.Refused();
    return isDone;
}

TEST(DateTextMemory, FormattingFailsWithoutIt) {
    WarmUp();
    const int64 before = test::LiveBlocks();
    const uint64 requests = test::RefuseEachRequest([](uint64 nth, FailingHeap::Mode mode) {
        wchar16 text[] = ZUTEXT("#########");
        bool refused;
        const bool isDone =
            Succeeds(nth, mode, &refused, [&text] { return FormatDateString(text, 9, LeapDay, ZUTEXT("d.M.")); });
        EXPECT_EQ(isDone, !refused);
        EXPECT_EQ(wstring16(text), isDone ? ZUTEXT("29.2.") : ZUTEXT(""));
        return refused;
    });
    EXPECT_EQ(requests, 1u);
    EXPECT_EQ(test::LiveBlocks(), before);
}

TEST(DateTextMemory, SqlFormatsArePrintedOrNot) {
    WarmUp();
    const int64 before = test::LiveBlocks();
    const uint64 requests = test::RefuseEachRequest([](uint64 nth, FailingHeap::Mode mode) {
        wchar16 text[] = ZUTEXT("as it was, and longer than any short text");
        bool refused;
        const bool isDone = Succeeds(nth, mode, &refused, [&text] {
            return zuSQLDateToString(LeapDay, ZUTEXT("dd-mm-yyyy 'and a long literal'"), text, 40);
        });
        EXPECT_EQ(isDone, !refused);
        EXPECT_EQ(wstring16(text), isDone ? ZUTEXT("29-02-2024 'and a long literal'")
                                          : ZUTEXT("as it was, and longer than any short text"));
        return refused;
    });
    EXPECT_GT(requests, 0u);
    EXPECT_EQ(test::LiveBlocks(), before);
}

TEST(DateTextMemory, SqlFormatsAreReadOrNot) {
    WarmUp();
    const int64 before = test::LiveBlocks();
    const uint64 requests = test::RefuseEachRequest([](uint64 nth, FailingHeap::Mode mode) {
        zuDATE date = {77, 7, 7};
        bool refused;
        const bool isDone = Succeeds(nth, mode, &refused, [&date] {
            return zuSQLStringToDate(ZUTEXT("29-02-2024"), ZUTEXT("dd-mm-yyyy"), &date);
        });
        EXPECT_EQ(isDone, !refused);
        EXPECT_EQ(Told(date), isDone ? "2024-2-29" : "77-7-7");
        return refused;
    });
    EXPECT_GT(requests, 0u);
    EXPECT_EQ(test::LiveBlocks(), before);
    EXPECT_EQ(NumErrors(), 0);
}

}  // namespace
}  // namespace date_text_memory_internal_test
