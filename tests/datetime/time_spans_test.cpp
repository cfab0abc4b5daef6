#include <Utility/time_spans.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/random.h"
#include "support/times.h"
#include "support/vtable_slot.h"

namespace time_spans_test {
namespace {

using namespace Torvo;
using namespace Torvo::test;

constexpr double Infinity = std::numeric_limits<double>::infinity();
const double NotANumber = std::nan("");

TimeSpan Span(int64 ticks) {
    return TimeSpan(CreateTimeSpan(ticks));
}

TEST(TimeSpanClass, OperationsStandInTheirOrder) {
    EXPECT_EQ(SlotOf(&zuTimeSpan::GetDays), 2u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::GetHours), 3u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::GetMinutes), 4u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::GetSeconds), 5u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::GetMilliseconds), 6u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::GetFraction), 7u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::GetTicks), 8u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::GetTotalDays), 9u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::GetTotalHours), 10u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::GetTotalMinutes), 11u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::GetTotalSeconds), 12u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::GetTotalMilliseconds), 13u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::SetParts), 14u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::SetTicks), 15u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::CompareTo), 16u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::AddSpan), 17u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::SubtractSpan), 18u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::AddDays), 19u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::AddHours), 20u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::AddMinutes), 21u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::AddSeconds), 22u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::AddTicks), 23u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::SubtractTicks), 24u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::Duration), 25u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::ToString), 26u);
    EXPECT_EQ(SlotOf(&zuTimeSpan::ToLiteral), 27u);
    EXPECT_EQ(sizeof(zuTimeSpan), sizeof(void*)) << "no data";
}

// ---- Parts

TEST(TimeSpanParts, AreCutTowardsZero) {
    EXPECT_EQ(ToldAndGone(CreateTimeSpan(1, 2, 3)), "0d 1h 2m 3s 0");
    EXPECT_EQ(ToldAndGone(CreateTimeSpan(1, 2, 3, 4)), "1d 2h 3m 4s 0");
    EXPECT_EQ(ToldAndGone(CreateTimeSpan(1, 2, 3, 4, 5)), "1d 2h 3m 4s 5");
    EXPECT_EQ(ToldAndGone(CreateTimeSpan(0, 90, 0)), "0d 1h 30m 0s 0");
    EXPECT_EQ(ToldAndGone(CreateTimeSpan(-1, -30, 0)), "0d -1h -30m 0s 0");
    EXPECT_EQ(ToldAndGone(CreateTimeSpan(int64{-1})), "0d 0h 0m 0s -1");
    EXPECT_EQ(ToldAndGone(CreateTimeSpan(HighestInt64)), "10675199d 2h 48m 5s 4775807");
    EXPECT_EQ(ToldAndGone(CreateTimeSpan(LowestInt64)), "-10675199d -2h -48m -5s -4775808");
    EXPECT_EQ(Span(19999)->GetMilliseconds(), 1);
    EXPECT_EQ(Span(-19999)->GetMilliseconds(), -1);
    EXPECT_EQ(Span(LowestInt64)->GetMilliseconds(), -477);
}

TEST(TimeSpanParts, OfAnySizeAndSignAreSummedUp) {
    EXPECT_EQ(Span(0)->GetTicks(), 0);
    EXPECT_EQ(ToldAndGone(CreateTimeSpan(-1, 90, 0)), "0d 0h 30m 0s 0");
    EXPECT_EQ(ToldAndGone(CreateTimeSpan(1, -24, 0, 0, 0)), "0d 0h 0m 0s 0");
    EXPECT_EQ(ToldAndGone(CreateTimeSpan(0, 0, 0, 0, HighestInt32)), "0d 0h 3m 34s 7483647");
    EXPECT_EQ(ToldAndGone(CreateTimeSpan(0, 0, HighestInt32)), "24855d 3h 14m 7s 0");
    EXPECT_EQ(ToldAndGone(CreateTimeSpan(0, HighestInt32, 0)), "1491308d 2h 7m 0s 0");
    EXPECT_EQ(ToldAndGone(CreateTimeSpan(10675199, 2, 48, 5, 4775807)), "10675199d 2h 48m 5s 4775807");
    EXPECT_EQ(ToldAndGone(CreateTimeSpan(-10675199, -2, -48, -5, -4775808)), "-10675199d -2h -48m -5s -4775808");
}

TEST(TimeSpanParts, ThatLeave64BitsAreRefusedBySign) {
    EXPECT_EQ(CreateTimeSpan(HighestInt32, 0, 0, 0), nullptr);
    EXPECT_EQ(CreateTimeSpan(LowestInt32, 0, 0, 0), nullptr);
    EXPECT_EQ(CreateTimeSpan(10675200, 0, 0, 0), nullptr) << "a product";
    EXPECT_EQ(CreateTimeSpan(-10675200, 0, 0, 0), nullptr);
    EXPECT_EQ(CreateTimeSpan(10675199, 3, 0, 0, 0), nullptr) << "a sum";
    EXPECT_EQ(CreateTimeSpan(10675199, 2, 49, 0, 0), nullptr);
    EXPECT_EQ(CreateTimeSpan(10675199, 2, 48, 6, 0), nullptr);
    EXPECT_EQ(CreateTimeSpan(10675199, 2, 48, 5, 4775808), nullptr);
    EXPECT_EQ(CreateTimeSpan(-10675199, -2, -48, -5, -4775809), nullptr);
    EXPECT_EQ(CreateTimeSpan(10675199, 3, 0, -3600, 0), nullptr) << "each partial sum is looked at";
}

TEST(TimeSpanParts, AProductThatComesBackWithItsSignPasses) {
    // 30,000,000 days are 2.592e19 ticks, which is 7473255926290448384 modulo 2^64.
    EXPECT_EQ(TimeSpan(CreateTimeSpan(30'000'000, 0, 0, 0))->GetTicks(), 7473255926290448384);
    EXPECT_EQ(TimeSpan(CreateTimeSpan(-30'000'000, 0, 0, 0))->GetTicks(), -7473255926290448384);
    EXPECT_EQ(TimeSpan(CreateTimeSpan(HighestInt32, 0, 0))->GetTicks(), 3522434997161793536);
}

TEST(TimeSpanParts, CanBeSetAndThrowWhereTheyDoNotFit) {
    const TimeSpan span(CreateTimeSpan(1, 0, 0));
    EXPECT_TRUE(span->SetParts(3, 12, 0, 0, 7));
    EXPECT_EQ(Told(span), "3d 12h 0m 0s 7");
    EXPECT_ANY_THROW(span->SetParts(HighestInt32, 0, 0, 0, 0));
    EXPECT_ANY_THROW(span->SetParts(10675199, 3, 0, 0, 0));
    EXPECT_EQ(Told(span), "3d 12h 0m 0s 7") << "nothing changed";
    EXPECT_TRUE(span->SetTicks(LowestInt64));
    EXPECT_EQ(span->GetTicks(), LowestInt64);
}

TEST(TimeSpanParts, GiveTheWholeInOneUnit) {
    const TimeSpan span(CreateTimeSpan(-1, -12, 0, 0));
    EXPECT_EQ(span->GetTotalDays(), -1.5);
    EXPECT_EQ(span->GetTotalHours(), -36.0);
    EXPECT_EQ(span->GetTotalMinutes(), -2160.0);
    EXPECT_EQ(span->GetTotalSeconds(), -129600.0);
    EXPECT_EQ(span->GetTotalMilliseconds(), -129600000.0);
    EXPECT_EQ(Span(1)->GetTotalMilliseconds(), 0.0001);
    EXPECT_EQ(Span(LowestInt64)->GetTotalDays(), -9223372036854775808.0 / 8.64e11);
}

// ---- Making spans

TEST(TimeSpanCreation, OfACopyIsAnotherObject) {
    const TimeSpan span(CreateTimeSpan(1, 2, 3));
    const TimeSpan copy(CreateTimeSpan(span.get()));
    EXPECT_NE(copy, span);
    EXPECT_EQ(copy->GetTicks(), span->GetTicks());
    EXPECT_EQ(CreateTimeSpan(static_cast<const zuTimeSpan*>(nullptr)), nullptr);
}

TEST(TimeSpanCreation, FromNumbersIsCutToWholeTicks) {
    EXPECT_EQ(ToldAndGone(CreateTimeSpanFromDays(1.5)), "1d 12h 0m 0s 0");
    EXPECT_EQ(ToldAndGone(CreateTimeSpanFromHours(-1.5)), "0d -1h -30m 0s 0");
    EXPECT_EQ(ToldAndGone(CreateTimeSpanFromMinutes(90.5)), "0d 1h 30m 30s 0");
    EXPECT_EQ(ToldAndGone(CreateTimeSpanFromSeconds(0.00000019)), "0d 0h 0m 0s 1");
    EXPECT_EQ(ToldAndGone(CreateTimeSpanFromSeconds(-0.00000019)), "0d 0h 0m 0s -1");
    EXPECT_EQ(ToldAndGone(CreateTimeSpanFromMilliseconds(1.23456)), "0d 0h 0m 0s 12345");
    EXPECT_EQ(ToldAndGone(CreateTimeSpanFromMilliseconds(-0.00009)), "0d 0h 0m 0s 0");
}

TEST(TimeSpanCreation, FromNumbersThatDoNotFit) {
    for (zuTimeSpan* (*const create)(double) :
         {CreateTimeSpanFromDays, CreateTimeSpanFromHours, CreateTimeSpanFromMinutes, CreateTimeSpanFromSeconds,
          CreateTimeSpanFromMilliseconds}) {
        EXPECT_EQ(create(1e300), nullptr);
        EXPECT_EQ(create(Infinity), nullptr);
        EXPECT_EQ(create(9.3e14), nullptr);
        // The lowest count of ticks has the sign that it should have.
        for (const double tooLow : {-1e300, -Infinity, NotANumber}) {
            const TimeSpan span(create(tooLow));
            ASSERT_NE(span, nullptr);
            EXPECT_EQ(span->GetTicks(), LowestInt64);
        }
    }
    EXPECT_EQ(CreateTimeSpanFromSeconds(922337203685.4776), nullptr) << "2^63 ticks";
    EXPECT_EQ(ToldAndGone(CreateTimeSpanFromSeconds(922337203685.4774)), "10675199d 2h 48m 5s 4773760");
    EXPECT_EQ(ToldAndGone(CreateTimeSpanFromSeconds(-922337203685.4776)), "-10675199d -2h -48m -5s -4775808");
}

TEST(TimeSpanLiteral, GoesBothWaysWithItsSign) {
    int32 days;
    int64 time;
    EXPECT_TRUE(TimeSpan(CreateTimeSpan(3, 12, 5, 9, 2500000))->ToLiteral(&days, &time));
    EXPECT_EQ(days, 3);
    EXPECT_EQ(time, 1205092500000);
    EXPECT_TRUE(TimeSpan(CreateTimeSpan(-3, -12, -5, -9, -2500000))->ToLiteral(&days, &time));
    EXPECT_EQ(days, -3);
    EXPECT_EQ(time, -1205092500000);
    EXPECT_EQ(ToldAndGone(CreateTimeSpanFromLiteral(3, 1205092500000)), "3d 12h 5m 9s 2500000");
    EXPECT_EQ(ToldAndGone(CreateTimeSpanFromLiteral(-3, -1205092500000)), "-3d -12h -5m -9s -2500000");
    for (const int64 ticks : {int64{0}, int64{1}, int64{-1}, HighestInt64, LowestInt64, DayTicks, -DayTicks - 1}) {
        EXPECT_TRUE(Span(ticks)->ToLiteral(&days, &time));
        EXPECT_EQ(TimeSpan(CreateTimeSpanFromLiteral(days, time))->GetTicks(), ticks);
    }
}

TEST(TimeSpanLiteral, PartsAreNotChecked) {
    EXPECT_EQ(ToldAndGone(CreateTimeSpanFromLiteral(0, 99000000000)), "0d 1h 39m 0s 0");
    EXPECT_EQ(ToldAndGone(CreateTimeSpanFromLiteral(0, 2500000000000)), "1d 1h 0m 0s 0");
    EXPECT_EQ(ToldAndGone(CreateTimeSpanFromLiteral(1, -100000000000)), "0d 23h 0m 0s 0");
    EXPECT_EQ(CreateTimeSpanFromLiteral(HighestInt32, 0), nullptr);
    // 92233720 hours, 36 minutes, 85 seconds and 4775807 ticks.
    EXPECT_EQ(ToldAndGone(CreateTimeSpanFromLiteral(0, HighestInt64)), "3843071d 16h 37m 25s 4775807");
    EXPECT_EQ(ToldAndGone(CreateTimeSpanFromLiteral(0, LowestInt64)), "-3843071d -16h -37m -25s -4775808");
}

TEST(TimeSpanLiteral, WithoutAPlaceIsRefused) {
    const TimeSpan span(CreateTimeSpan(1, 2, 3));
    int32 days = 77;
    int64 time = 78;
    EXPECT_FALSE(span->ToLiteral(nullptr, &time));
    EXPECT_FALSE(span->ToLiteral(&days, nullptr));
    EXPECT_EQ(days, 77);
    EXPECT_EQ(time, 78);
}

TEST(TimeSpanComparison, GoesByTicksAndKnowsTheMissing) {
    const TimeSpan less = Span(-1);
    const TimeSpan more = Span(0);
    EXPECT_EQ(zuTimeSpan::Compare(less.get(), more.get()), ZU_CMP_LESS);
    EXPECT_EQ(zuTimeSpan::Compare(more.get(), less.get()), ZU_CMP_GREATER);
    EXPECT_EQ(zuTimeSpan::Compare(more.get(), Span(0).get()), ZU_CMP_EQUAL);
    EXPECT_EQ(zuTimeSpan::Compare(Span(LowestInt64).get(), Span(HighestInt64).get()), ZU_CMP_LESS);
    EXPECT_EQ(zuTimeSpan::Compare(nullptr, nullptr), ZU_CMP_EQUAL);
    EXPECT_EQ(zuTimeSpan::Compare(nullptr, more.get()), ZU_CMP_INCOMPARABLE);
    EXPECT_EQ(zuTimeSpan::Compare(more.get(), nullptr), ZU_CMP_INCOMPARABLE);
    EXPECT_EQ(less->CompareTo(more.get()), ZU_CMP_LESS);
    EXPECT_EQ(less->CompareTo(nullptr), ZU_CMP_INCOMPARABLE);
}

// ---- Arithmetic

// What an operation answers and leaves, in ticks; nothing where it refuses and has left the span alone.
template <typename Operation>
std::string After(int64 ticks, Operation operation) {
    const TimeSpan span = Span(ticks);
    if (operation(*span)) return std::to_string(span->GetTicks());
    EXPECT_EQ(span->GetTicks(), ticks);
    return "refused";
}

std::string AfterAdding(int64 ticks, int64 delta) {
    const std::string result = After(ticks, [delta](zuTimeSpan& span) { return span.AddTicks(delta); });
    const TimeSpan other = Span(delta);
    EXPECT_EQ(After(ticks, [&other](zuTimeSpan& span) { return span.AddSpan(other.get()); }), result);
    return result;
}

std::string AfterSubtracting(int64 ticks, int64 delta) {
    return After(ticks, [delta](zuTimeSpan& span) { return span.SubtractTicks(delta); });
}

std::string AfterSubtractingSpan(int64 ticks, int64 delta) {
    const TimeSpan other = Span(delta);
    return After(ticks, [&other](zuTimeSpan& span) { return span.SubtractSpan(other.get()); });
}

TEST(TimeSpanArithmetic, AddsWithin64Bits) {
    EXPECT_EQ(AfterAdding(5, 6), "11");
    EXPECT_EQ(AfterAdding(5, -6), "-1");
    EXPECT_EQ(AfterAdding(-5, -6), "-11");
    EXPECT_EQ(AfterAdding(HighestInt64, 1), "refused");
    EXPECT_EQ(AfterAdding(HighestInt64 - 1, 1), std::to_string(HighestInt64));
    EXPECT_EQ(AfterAdding(HighestInt64, 0), std::to_string(HighestInt64));
    EXPECT_EQ(AfterAdding(0, HighestInt64), std::to_string(HighestInt64));
    EXPECT_EQ(AfterAdding(1, HighestInt64), "refused");
    EXPECT_EQ(AfterAdding(LowestInt64, -1), "refused");
    EXPECT_EQ(AfterAdding(-1, LowestInt64), "refused");
    EXPECT_EQ(AfterAdding(0, LowestInt64), std::to_string(LowestInt64));
    EXPECT_EQ(AfterAdding(LowestInt64 + 1, -1), std::to_string(LowestInt64));
    EXPECT_EQ(AfterAdding(LowestInt64, HighestInt64), "-1") << "signs that differ always fit";
    EXPECT_EQ(AfterAdding(HighestInt64, LowestInt64), "-1");
    EXPECT_FALSE(Span(1)->AddSpan(nullptr));
}

TEST(TimeSpanArithmetic, SubtractsSpansWithin64Bits) {
    EXPECT_EQ(AfterSubtractingSpan(5, 6), "-1");
    EXPECT_EQ(AfterSubtractingSpan(-5, 6), "-11");
    EXPECT_EQ(AfterSubtractingSpan(5, -6), "11");
    EXPECT_EQ(AfterSubtractingSpan(-1, 1), "-2");
    EXPECT_EQ(AfterSubtractingSpan(HighestInt64, -1), "refused");
    EXPECT_EQ(AfterSubtractingSpan(0, LowestInt64), "refused");
    EXPECT_EQ(AfterSubtractingSpan(-1, LowestInt64), std::to_string(HighestInt64));
    EXPECT_EQ(AfterSubtractingSpan(LowestInt64, 1), "refused");
    EXPECT_EQ(AfterSubtractingSpan(LowestInt64, 0), std::to_string(LowestInt64));
    EXPECT_EQ(AfterSubtractingSpan(-1, HighestInt64), std::to_string(LowestInt64));
    EXPECT_EQ(AfterSubtractingSpan(-2, HighestInt64), "refused");
    EXPECT_EQ(AfterSubtractingSpan(LowestInt64, LowestInt64), "0");
    EXPECT_FALSE(Span(1)->SubtractSpan(nullptr));
}

TEST(TimeSpanArithmetic, SubtractsTicksFromWhatIsNotNegative) {
    EXPECT_EQ(AfterSubtracting(5, 6), "-1");
    EXPECT_EQ(AfterSubtracting(5, -6), "11");
    EXPECT_EQ(AfterSubtracting(0, HighestInt64), std::to_string(-HighestInt64));
    EXPECT_EQ(AfterSubtracting(HighestInt64, -1), "refused");
    EXPECT_EQ(AfterSubtracting(HighestInt64 - 1, -1), std::to_string(HighestInt64));
    EXPECT_EQ(AfterSubtracting(0, LowestInt64), "refused");
    EXPECT_EQ(AfterSubtracting(-5, -6), "1");
    EXPECT_EQ(AfterSubtracting(-5, 0), "-5");
    EXPECT_EQ(AfterSubtracting(-1, LowestInt64), std::to_string(HighestInt64));
}

TEST(TimeSpanArithmetic, SubtractingTicksFromANegativeSpanGoesTheWrongWayRound) {
    EXPECT_EQ(AfterSubtracting(-1, 1), "refused");
    EXPECT_EQ(AfterSubtracting(-1, HighestInt64 - 1), "refused");
    EXPECT_EQ(AfterSubtracting(-1, HighestInt64), std::to_string(LowestInt64)) << "the figure itself passes";
    EXPECT_EQ(AfterSubtracting(-10, HighestInt64 - 10), "refused");
    EXPECT_EQ(AfterSubtracting(-10, HighestInt64 - 9), std::to_string(LowestInt64));
    EXPECT_EQ(AfterSubtracting(-10, HighestInt64 - 8), std::to_string(HighestInt64)) << "and more wraps around";
    EXPECT_EQ(AfterSubtracting(LowestInt64, 1), std::to_string(HighestInt64));
}

TEST(TimeSpanArithmetic, AddsNumbers) {
    const TimeSpan span = Span(0);
    EXPECT_TRUE(span->AddDays(1.5));
    EXPECT_TRUE(span->AddHours(-1.0));
    EXPECT_TRUE(span->AddMinutes(0.5));
    EXPECT_TRUE(span->AddSeconds(0.00000019));
    EXPECT_EQ(Told(span), "1d 11h 0m 30s 1");
    EXPECT_TRUE(span->AddSeconds(-0.00000009)) << "less than a tick";
    EXPECT_EQ(Told(span), "1d 11h 0m 30s 1");
}

TEST(TimeSpanArithmetic, NumbersThatDoNotFit) {
    for (bool (zuTimeSpan::*const add)(double) :
         {&zuTimeSpan::AddDays, &zuTimeSpan::AddHours, &zuTimeSpan::AddMinutes, &zuTimeSpan::AddSeconds}) {
        for (const double tooLarge : {1e300, Infinity}) {
            EXPECT_EQ(After(5, [=](zuTimeSpan& span) { return (span.*add)(tooLarge); }), "refused");
            EXPECT_EQ(After(-5, [=](zuTimeSpan& span) { return (span.*add)(tooLarge); }), "refused");
        }
        for (const double tooLow : {-1e300, -Infinity, NotANumber}) {
            EXPECT_EQ(After(5, [=](zuTimeSpan& span) { return (span.*add)(tooLow); }), std::to_string(LowestInt64 + 5));
            EXPECT_EQ(After(-5, [=](zuTimeSpan& span) { return (span.*add)(tooLow); }), "refused");
        }
    }
    EXPECT_EQ(After(HighestInt64, [](zuTimeSpan& span) { return span.AddSeconds(1); }), "refused");
}

TEST(TimeSpanArithmetic, MatchesSumsOf128Bits) {
    // Two numbers of 64 bits as one of doubles would be inexact, so the plain form splits them into halves.
    const auto fits = [](int64 a, int64 b) {
        const int64 high = (a >> 32) + (b >> 32);
        const int64 low = (a & 0xFFFFFFFF) + (b & 0xFFFFFFFF);
        const int64 sum = high + (low >> 32);
        return sum >= -0x80000000LL && sum <= 0x7FFFFFFFLL;
    };
    Random random;
    SCOPED_TRACE(random.About());
    for (int i = 0; i < 100'000; ++i) {
        const int64 a = random.Between(LowestInt64, HighestInt64);
        const int64 b = random.Between(LowestInt64 + 1, HighestInt64);
        ASSERT_EQ(Span(a)->AddTicks(b), fits(a, b)) << a << " " << b;
        ASSERT_EQ(Span(a)->SubtractSpan(Span(b).get()), fits(a, -b)) << a << " " << b;
    }
}

TEST(TimeSpanArithmetic, TheDurationHasNoSign) {
    EXPECT_EQ(ToldAndGone(Span(-5)->Duration()), "0d 0h 0m 0s 5");
    EXPECT_EQ(ToldAndGone(Span(5)->Duration()), "0d 0h 0m 0s 5");
    EXPECT_EQ(TimeSpan(Span(HighestInt64)->Duration())->GetTicks(), HighestInt64);
    EXPECT_EQ(TimeSpan(Span(-HighestInt64)->Duration())->GetTicks(), HighestInt64);
    EXPECT_EQ(TimeSpan(Span(LowestInt64)->Duration())->GetTicks(), LowestInt64) << "it has no counterpart";
    const TimeSpan span = Span(7);
    const TimeSpan duration(span->Duration());
    EXPECT_NE(duration, span) << "a new object";
}

}  // namespace
}  // namespace time_spans_test
