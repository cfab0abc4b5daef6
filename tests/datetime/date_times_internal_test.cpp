// What is not exported: how large the objects are, what their constructors throw, what they do when memory is short,
// and how they follow a clock.
#include <Utility/datetime/date_times.h>
#include <Utility/datetime/time_spans.h>
#include <Utility/datetime/times.h>
#include <gtest/gtest.h>

#include "support/failing_heap.h"
#include "support/times.h"

namespace date_times_internal_test {
namespace {

using namespace Torvo;
using namespace Torvo::test;

TEST(DateTimeObjects, AreSmall) {
    EXPECT_LE(sizeof(zuDateTimeImpl), 48u) << "with its time part";
    EXPECT_LE(sizeof(zuTimeImpl), 24u);
    EXPECT_EQ(sizeof(zuTimeSpanImpl), 2 * sizeof(void*)) << "one word of data";
}

TEST(DateTimeObjects, ConstructorsThrowWhatTheyRefuse) {
    EXPECT_EQ(zuTimeImpl::TicksOutOfRange, 1);
    EXPECT_EQ(zuTimeImpl::BadPart, 2);
    EXPECT_THROW(zuTimeImpl(int64{-1}), zuTimeImpl::eCreateError);
    EXPECT_THROW(zuTimeImpl(0, 0, 60, 0), zuTimeImpl::eCreateError);
    EXPECT_EQ(zuDateTimeImpl::TicksOutOfRange, 1);
    EXPECT_EQ(zuDateTimeImpl::BadPart, 2);
    EXPECT_THROW(zuDateTimeImpl(int64{-1}), zuDateTimeImpl::eCreateError);
    EXPECT_THROW(zuDateTimeImpl(2023, 2, 29, 0, 0, 0, 0), zuDateTimeImpl::eCreateError);
    EXPECT_THROW(zuDateTimeImpl(zuDATE{2024, 2, 29}, DayTicks), zuDateTimeImpl::eCreateError);
    EXPECT_EQ(zuTimeSpanImpl::Overflow, 1);
    EXPECT_THROW(zuTimeSpanImpl(HighestInt32, 0, 0, 0, 0), zuTimeSpanImpl::eCreateError);
}

TEST(DateTimeObjects, SetPartsLetsItsErrorOut) {
    const TimeSpan span(CreateTimeSpan(int64{5}));
    try {
        span->SetParts(HighestInt32, 0, 0, 0, 0);
        FAIL() << "nothing was thrown";
    } catch (zuTimeSpanImpl::eCreateError error) {
        EXPECT_EQ(error, zuTimeSpanImpl::Overflow);
    }
    EXPECT_EQ(span->GetTicks(), 5);
}

// A time whose ticks may be anything: what a caller might have derived.
class OddTime final : public zuTime {
public:
    explicit OddTime(int64 ticksToAnswer) : ticks(ticksToAnswer) {}
    int32 GetHours() const override { return 0; }
    int32 GetMinutes() const override { return 0; }
    int32 GetSeconds() const override { return 0; }
    int32 GetMilliseconds() const override { return 0; }
    int32 GetFraction() const override { return 0; }
    int64 GetTicks() const override { return ticks; }
    double GetTotalHours() const override { return 0; }
    double GetTotalMinutes() const override { return 0; }
    double GetTotalSeconds() const override { return 0; }
    double GetTotalMilliseconds() const override { return 0; }
    ZU_CMP CompareTo(const zuTime*) const override { return ZU_CMP_EQUAL; }
    bool AddSpan(const zuTimeSpan*) override { return false; }
    bool AddHours(double) override { return false; }
    bool AddMinutes(double) override { return false; }
    bool AddSeconds(double) override { return false; }
    bool AddTicks(int64) override { return false; }
    bool SubtractSpan(const zuTimeSpan*) override { return false; }
    zuTimeSpan* SubtractTime(const zuTime*) const override { return nullptr; }
    bool SubtractTicks(int64) override { return false; }
    bool SetTicks(int64) override { return false; }
    bool SetTime(int32, int32, int32, int32) override { return false; }
    int64 ToLiteral() const override { return 0; }
    bool ToString(wchar16*, int32, const wchar16*) const override { return false; }

private:
    const int64 ticks;
};

TEST(DateTimeObjects, TakeTimesOfOthersByTheirTicks) {
    OddTime good(HourTicks);
    OddTime bad(DayTicks);
    OddTime worse(LowestInt64);
    EXPECT_EQ(ToldAndGone(CreateTime(&good)), "01:00:00.0000000");
    EXPECT_EQ(CreateTime(&bad), nullptr);
    EXPECT_EQ(CreateTime(&worse), nullptr);
    zuDATE date = {2024, 2, 29};
    EXPECT_EQ(ToldAndGone(CreateDateTime(&date, &good)), "2024-02-29 01:00:00.0000000");
    EXPECT_EQ(CreateDateTime(&date, &bad), nullptr);
    const Time time(CreateTime(2, 0, 0));
    EXPECT_EQ(ToldAndGone(time->SubtractTime(&good)), "0d 1h 0m 0s 0");
    EXPECT_EQ(time->CompareTo(&worse), ZU_CMP_GREATER);
    EXPECT_NE(TimeSpan(time->SubtractTime(&worse)), nullptr) << "wraps around";
}

// ---- Memory

// Calls a creator with a heap that refuses the first request.
template <typename Create>
void ExpectNullWithoutMemory(Create create) {
    const int64 before = LiveBlocks();
    {
        const FailingHeap heap(1);
        EXPECT_EQ(create(), nullptr);
        EXPECT_TRUE(heap.Refused());
    }
    EXPECT_EQ(LiveBlocks(), before);
    delete create();
    EXPECT_EQ(LiveBlocks(), before);
}

TEST(DateTimeMemory, NoObjectWhereTheRequestIsRefused) {
    ExpectNullWithoutMemory([] { return CreateTime(1, 2, 3); });
    ExpectNullWithoutMemory([] { return CreateTime(int64{5}); });
    ExpectNullWithoutMemory([] { return CreateTimeFromHours(1.0); });
    ExpectNullWithoutMemory([] { return CreateTimeFromLiteral(0); });
    ExpectNullWithoutMemory([] { return CreateTimeFromSystemTime(); });
    ExpectNullWithoutMemory([] { return zuTime::MinValue(); });
    ExpectNullWithoutMemory([] { return zuTime::MaxValue(); });
    ExpectNullWithoutMemory([] { return CreateTimeSpan(1, 2, 3); });
    ExpectNullWithoutMemory([] { return CreateTimeSpan(int64{5}); });
    ExpectNullWithoutMemory([] { return CreateTimeSpanFromDays(1.0); });
    ExpectNullWithoutMemory([] { return CreateTimeSpanFromLiteral(1, 0); });
    ExpectNullWithoutMemory([] { return CreateDateTime(2024, 2, 29); });
    ExpectNullWithoutMemory([] { return CreateDateTime(int64{5}); });
    ExpectNullWithoutMemory([] { return CreateDateTimeFromDays(1.0); });
    ExpectNullWithoutMemory([] { return CreateDateTimeFromLiteral(20240229, 0); });
    ExpectNullWithoutMemory([] { return CreateDateTimeFromLiteral(20240229, -1); });
    ExpectNullWithoutMemory([] { return CreateDateTimeFromSystemTime(); });
    ExpectNullWithoutMemory([] { return zuDateTime::MinValue(); });
    ExpectNullWithoutMemory([] { return zuDateTime::MaxValue(); });
    const Time time(CreateTime(1, 2, 3));
    const TimeSpan span(CreateTimeSpan(1, 2, 3));
    const DateTime dateTime(CreateDateTime(2024, 2, 29));
    ExpectNullWithoutMemory([&] { return CreateTime(time.get()); });
    ExpectNullWithoutMemory([&] { return time->SubtractTime(time.get()); });
    ExpectNullWithoutMemory([&] { return CreateTimeSpan(span.get()); });
    ExpectNullWithoutMemory([&] { return span->Duration(); });
    ExpectNullWithoutMemory([&] { return CreateDateTime(dateTime.get()); });
    ExpectNullWithoutMemory([&] { return CreateDateTime(dateTime->GetDate(), time.get()); });
    ExpectNullWithoutMemory([&] { return dateTime->SubtractDateTime(dateTime.get()); });
}

// The instance and the locale's values are there before the heap runs out.
TEST(DateTimeMemory, ReadingTextAsksForTheObjectAlone) {
    delete CreateDateTimeFromString(ZUTEXT("1/1/2024 1:00"));
    ExpectNullWithoutMemory([] { return CreateTimeFromString(ZUTEXT("13:05:09.25")); });
    ExpectNullWithoutMemory([] { return CreateTimeFromString(ZUTEXT("1305092500000")); });
    ExpectNullWithoutMemory([] { return CreateTimeSpanFromString(ZUTEXT("3.12")); });
    ExpectNullWithoutMemory([] { return CreateTimeSpanFromString(ZUTEXT("31200000000000")); });
    ExpectNullWithoutMemory([] { return CreateDateTimeFromString(ZUTEXT("20240229")); });
    ExpectNullWithoutMemory([] { return CreateDateTimeFromString(ZUTEXT("202402291305092500000")); });
}

// ---- Clocks

bool BrokenClock(std::tm*) {
    return false;
}

bool LeapDayClock(std::tm* parts) {
    parts->tm_year = 2024 - 1900;
    parts->tm_mon = 1;
    parts->tm_mday = 29;
    parts->tm_hour = 13;
    parts->tm_min = 5;
    parts->tm_sec = 9;
    return true;
}

bool LeapSecondClock(std::tm* parts) {
    LeapDayClock(parts);
    parts->tm_sec = 60;
    return true;
}

TEST(DateTimeClocks, GiveTheLocalTimeOrMidnight) {
    EXPECT_EQ(ToldAndGone(CreateTimeByClock(LeapDayClock)), "13:05:09.0000000");
    EXPECT_EQ(ToldAndGone(CreateTimeByClock(BrokenClock)), "00:00:00.0000000");
    EXPECT_EQ(CreateTimeByClock(LeapSecondClock), nullptr);
}

TEST(DateTimeClocks, GiveTheLocalDateAndTimeOrNothing) {
    EXPECT_EQ(ToldAndGone(CreateDateTimeByClock(LeapDayClock)), "2024-02-29 13:05:09.0000000");
    EXPECT_EQ(CreateDateTimeByClock(BrokenClock), nullptr);
    EXPECT_EQ(CreateDateTimeByClock(LeapSecondClock), nullptr);
}

}  // namespace
}  // namespace date_times_internal_test
