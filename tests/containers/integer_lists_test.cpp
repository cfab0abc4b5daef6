#include <Utility/integer_lists.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <limits>
#include <memory>
#include <vector>

#include "containers/integer_list_kinds.h"
#include "reference/plain_integer_lists.h"
#include "support/random.h"
#include "support/vtable_slot.h"

namespace integer_lists_test {
namespace {

using namespace Torvo;
using test::MembersOf;
using test::PlainPairList;
using test::PlainRun;
using test::PlainTaggedList;

template <typename T>
using Runs = std::vector<PlainRun<T>>;

template <typename T>
using ListPtr = std::unique_ptr<ZUList<T>>;

template <typename T>
ListPtr<T> ListOf(std::initializer_list<T> members) {
    ListPtr<T> list(ZUList<T>::Create());
    for (const T item : members) EXPECT_TRUE(list->Add(item));
    return list;
}

template <typename T>
Runs<T> RunsOf(ZUList<T>& list) {
    const std::unique_ptr<ZUListRangeEnumerator<T>> enumerator(list.CreateRangeEnumerator());
    Runs<T> runs;
    T first = 0;
    T last = 0;
    while (enumerator->Next(first, last)) runs.push_back({first, last});
    return runs;
}

// What all three lists do alike.
template <typename T>
class IntegerList : public testing::Test {};

TYPED_TEST_SUITE(IntegerList, test::ElementTypes, test::ElementNames);

TYPED_TEST(IntegerList, OperationsStandInTheirPublishedOrder) {
    using List = ZUList<TypeParam>;
    using test::SlotOf;
    EXPECT_EQ(SlotOf(&List::Add), 2u);
    EXPECT_EQ(SlotOf(&List::AddRange), 3u);
    EXPECT_EQ(SlotOf(&List::Remove), 4u);
    EXPECT_EQ(SlotOf(&List::Clear), 5u);
    EXPECT_EQ(SlotOf(&List::Member), 6u);
    EXPECT_EQ(SlotOf(&List::MinMax), 7u);
    EXPECT_EQ(SlotOf(&List::Count), 8u);
    EXPECT_EQ(SlotOf(&List::Plurality), 9u);
    EXPECT_EQ(SlotOf(&List::Copy), 10u);
    EXPECT_EQ(SlotOf(&List::CreateEnumerator), 11u);
    EXPECT_EQ(SlotOf(&List::CreateRangeEnumerator), 12u);
    EXPECT_EQ(SlotOf(&List::CreateItem), 13u);
    EXPECT_EQ(SlotOf(&ZUListEnumerator<TypeParam>::Next), 2u);
    EXPECT_EQ(SlotOf(&ZUListRangeEnumerator<TypeParam>::Next), 2u);
    EXPECT_EQ(SlotOf(&ZUListItem<TypeParam>::GetItem), 2u);
}

TYPED_TEST(IntegerList, StartsEmpty) {
    const auto list = ListOf<TypeParam>({});
    TypeParam min = 7;
    TypeParam max = 8;
    bool oneRun = true;
    EXPECT_EQ(list->Count(), 0u);
    EXPECT_EQ(list->Plurality(), 0);
    EXPECT_FALSE(list->Member(0));
    EXPECT_FALSE(list->MinMax(min, max, &oneRun));
    EXPECT_EQ(min, TypeParam{7});
    EXPECT_EQ(max, TypeParam{8});
    EXPECT_TRUE(oneRun);
    EXPECT_TRUE(list->Remove(5));
    EXPECT_TRUE(list->Clear());
    EXPECT_TRUE(RunsOf(*list).empty());
    EXPECT_TRUE(MembersOf(*list).empty());
}

TYPED_TEST(IntegerList, NeighboursBecomeOneRun) {
    const auto list = ListOf<TypeParam>({1, 3, 2});
    EXPECT_EQ(RunsOf(*list), (Runs<TypeParam>{{1, 3}}));
    EXPECT_EQ(list->Count(), 3u);
}

TYPED_TEST(IntegerList, ValueBetweenTwoRunsJoinsThem) {
    const auto list = ListOf<TypeParam>({1, 2, 4, 5});
    EXPECT_EQ(RunsOf(*list), (Runs<TypeParam>{{1, 2}, {4, 5}}));
    EXPECT_TRUE(list->Add(3));
    EXPECT_EQ(RunsOf(*list), (Runs<TypeParam>{{1, 5}}));
}

TYPED_TEST(IntegerList, EveryKindOfNeighbourJoins) {
    EXPECT_EQ(RunsOf(*ListOf<TypeParam>({1, 2, 4, 3})), (Runs<TypeParam>{{1, 4}}));
    EXPECT_EQ(RunsOf(*ListOf<TypeParam>({1, 4, 3, 2})), (Runs<TypeParam>{{1, 4}}));
    EXPECT_EQ(RunsOf(*ListOf<TypeParam>({1, 3, 2})), (Runs<TypeParam>{{1, 3}}));
    EXPECT_EQ(RunsOf(*ListOf<TypeParam>({5, 4, 3})), (Runs<TypeParam>{{3, 5}}));
    EXPECT_EQ(RunsOf(*ListOf<TypeParam>({0, 9, 5})), (Runs<TypeParam>{{0, 0}, {5, 5}, {9, 9}}));
    EXPECT_EQ(RunsOf(*ListOf<TypeParam>({5, 3, 2, 8, 9, 6})), (Runs<TypeParam>{{2, 3}, {5, 6}, {8, 9}}));
}

TYPED_TEST(IntegerList, AddOfAMemberIsTrue) {
    const auto list = ListOf<TypeParam>({5, 6, 7, 9});
    for (const TypeParam item : std::initializer_list<TypeParam>{5, 6, 7, 9}) EXPECT_TRUE(list->Add(item));
    EXPECT_EQ(list->Count(), 4u);
}

TYPED_TEST(IntegerList, RemoveSplitsAndShrinks) {
    const auto list = ListOf<TypeParam>({1, 2, 3, 4, 5});
    EXPECT_TRUE(list->Remove(3));
    EXPECT_EQ(RunsOf(*list), (Runs<TypeParam>{{1, 2}, {4, 5}}));
    EXPECT_TRUE(list->Remove(2));
    EXPECT_EQ(RunsOf(*list), (Runs<TypeParam>{{1, 1}, {4, 5}}));
    EXPECT_TRUE(list->Remove(4));
    EXPECT_EQ(RunsOf(*list), (Runs<TypeParam>{{1, 1}, {5, 5}}));
    EXPECT_TRUE(list->Remove(1));
    EXPECT_TRUE(list->Remove(5));
    EXPECT_EQ(list->Count(), 0u);
    EXPECT_EQ(list->Plurality(), 0);
    EXPECT_TRUE(list->Add(7));
    EXPECT_EQ(RunsOf(*list), (Runs<TypeParam>{{7, 7}}));
}

TYPED_TEST(IntegerList, RemoveOfTheMiddleOfThreeLeavesTwoLoneValues) {
    const auto list = ListOf<TypeParam>({1, 2, 3});
    EXPECT_TRUE(list->Remove(2));
    EXPECT_EQ(RunsOf(*list), (Runs<TypeParam>{{1, 1}, {3, 3}}));
}

TYPED_TEST(IntegerList, RemoveOfWhatIsNotThereIsTrue) {
    const auto list = ListOf<TypeParam>({1, 2, 9});
    for (const TypeParam item : std::initializer_list<TypeParam>{0, 3, 8, 10}) EXPECT_TRUE(list->Remove(item));
    EXPECT_EQ(list->Count(), 3u);
}

TYPED_TEST(IntegerList, MemberKnowsRunsAndGaps) {
    const auto list = ListOf<TypeParam>({2, 4, 5, 6, 9});
    for (const TypeParam item : std::initializer_list<TypeParam>{2, 4, 5, 6, 9})
        EXPECT_TRUE(list->Member(item)) << item;
    for (const TypeParam item : std::initializer_list<TypeParam>{0, 1, 3, 7, 8, 10})
        EXPECT_FALSE(list->Member(item)) << item;
}

TYPED_TEST(IntegerList, MinMaxTellsOneRun) {
    TypeParam min = 0;
    TypeParam max = 0;
    bool oneRun = false;
    EXPECT_TRUE(ListOf<TypeParam>({1, 2, 3})->MinMax(min, max, &oneRun));
    EXPECT_EQ(min, TypeParam{1});
    EXPECT_EQ(max, TypeParam{3});
    EXPECT_TRUE(oneRun);
    EXPECT_TRUE(ListOf<TypeParam>({1, 3})->MinMax(min, max, &oneRun));
    EXPECT_FALSE(oneRun);
    EXPECT_TRUE(ListOf<TypeParam>({4})->MinMax(min, max, &oneRun));
    EXPECT_TRUE(oneRun);
    EXPECT_TRUE(ListOf<TypeParam>({1, 2, 4, 5})->MinMax(min, max, &oneRun));
    EXPECT_EQ(max, TypeParam{5});
    EXPECT_FALSE(oneRun);
    EXPECT_TRUE(ListOf<TypeParam>({1, 2, 7})->MinMax(min, max, nullptr));
    EXPECT_EQ(max, TypeParam{7});
}

TYPED_TEST(IntegerList, PluralityTellsNoneOneAndMore) {
    EXPECT_EQ(ListOf<TypeParam>({5})->Plurality(), 1);
    EXPECT_EQ(ListOf<TypeParam>({5, 6})->Plurality(), 2);
    EXPECT_EQ(ListOf<TypeParam>({5, 7})->Plurality(), 2);
    EXPECT_EQ(ListOf<TypeParam>({5, 6, 9})->Plurality(), 2);
}

TYPED_TEST(IntegerList, AddRangeTakesItsBoundsInEitherOrder) {
    const auto list = ListOf<TypeParam>({});
    EXPECT_TRUE(list->AddRange(9, 5));
    EXPECT_EQ(RunsOf(*list), (Runs<TypeParam>{{5, 9}}));
    EXPECT_TRUE(list->AddRange(6, 8));
    EXPECT_EQ(list->Count(), 5u);
    EXPECT_TRUE(list->AddRange(8, 12));
    EXPECT_TRUE(list->AddRange(3, 6));
    EXPECT_EQ(RunsOf(*list), (Runs<TypeParam>{{3, 12}}));
    EXPECT_TRUE(list->AddRange(20, 21));
    EXPECT_TRUE(list->AddRange(0, 1));
    EXPECT_EQ(RunsOf(*list), (Runs<TypeParam>{{0, 1}, {3, 12}, {20, 21}}));
    EXPECT_TRUE(list->AddRange(1, 30));
    EXPECT_EQ(RunsOf(*list), (Runs<TypeParam>{{0, 30}}));
}

TYPED_TEST(IntegerList, AddRangeMergesRunsThatTouchIt) {
    const auto list = ListOf<TypeParam>({2, 3, 4, 8, 9});
    EXPECT_TRUE(list->AddRange(5, 7));
    EXPECT_EQ(RunsOf(*list), (Runs<TypeParam>{{2, 9}}));
}

TYPED_TEST(IntegerList, ClearEmptiesForUseAnew) {
    const auto list = ListOf<TypeParam>({1, 2, 9});
    EXPECT_TRUE(list->Clear());
    EXPECT_EQ(list->Count(), 0u);
    EXPECT_EQ(list->Plurality(), 0);
    EXPECT_FALSE(list->Member(1));
    EXPECT_TRUE(list->Remove(1));
    EXPECT_TRUE(list->Add(4));
    EXPECT_EQ(RunsOf(*list), (Runs<TypeParam>{{4, 4}}));
    EXPECT_EQ(list->Count(), 1u);
}

TYPED_TEST(IntegerList, CopyStandsAlone) {
    const auto list = ListOf<TypeParam>({1, 2, 9, 20, 21, 22});
    const ListPtr<TypeParam> copy(list->Copy());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(RunsOf(*copy), RunsOf(*list));
    EXPECT_EQ(copy->Count(), 6u);
    EXPECT_TRUE(copy->Add(10));
    EXPECT_TRUE(copy->Remove(1));
    EXPECT_EQ(list->Count(), 6u);
    EXPECT_EQ(copy->Count(), 6u);
}

TYPED_TEST(IntegerList, CopyOfAnEmptyListActsAsEmpty) {
    const auto list = ListOf<TypeParam>({1});
    list->Clear();
    const ListPtr<TypeParam> copy(list->Copy());
    ASSERT_NE(copy, nullptr);
    EXPECT_FALSE(copy->Member(0));
    EXPECT_TRUE(copy->Remove(0));
    EXPECT_TRUE(copy->Add(3));
    EXPECT_EQ(RunsOf(*copy), (Runs<TypeParam>{{3, 3}}));
    EXPECT_EQ(copy->Count(), 1u);
}

TYPED_TEST(IntegerList, EnumeratorsStayAtTheEnd) {
    const auto list = ListOf<TypeParam>({3, 4, 9});
    EXPECT_EQ(MembersOf(*list), (std::vector<TypeParam>{3, 4, 9}));
    const std::unique_ptr<ZUListEnumerator<TypeParam>> members(list->CreateEnumerator());
    const std::unique_ptr<ZUListRangeEnumerator<TypeParam>> runs(list->CreateRangeEnumerator());
    TypeParam first = 0;
    TypeParam last = 0;
    while (members->Next(first)) {
    }
    while (runs->Next(first, last)) {
    }
    for (int again = 0; again < 3; ++again) {
        EXPECT_FALSE(members->Next(first));
        EXPECT_FALSE(runs->Next(first, last));
    }
}

// One object serves both kinds, so they share a position.
TYPED_TEST(IntegerList, RangeEnumeratorIsAnEnumeratorToo) {
    const auto list = ListOf<TypeParam>({3, 4, 9});
    const std::unique_ptr<ZUListEnumerator<TypeParam>> members(list->CreateEnumerator());
    auto* const runs = dynamic_cast<ZUListRangeEnumerator<TypeParam>*>(members.get());
    ASSERT_NE(runs, nullptr);
    TypeParam first = 0;
    TypeParam last = 0;
    EXPECT_TRUE(runs->Next(first, last));
    EXPECT_EQ(first, TypeParam{3});
    EXPECT_EQ(last, TypeParam{4});
    EXPECT_TRUE(runs->Next(first, last));
    EXPECT_EQ(first, TypeParam{9});
    EXPECT_FALSE(runs->Next(first, last));
    EXPECT_FALSE(members->Next(first));
}

TYPED_TEST(IntegerList, ItemRefusesOrdinalsOutsideTheList) {
    const auto list = ListOf<TypeParam>({3, 4, 9});
    const std::unique_ptr<ZUListItem<TypeParam>> item(list->CreateItem());
    TypeParam value = 0;
    EXPECT_FALSE(item->GetItem(0, value));
    EXPECT_FALSE(item->GetItem(4, value));
    EXPECT_FALSE(item->GetItem(~uint64{0}, value));
    const auto empty = ListOf<TypeParam>({});
    const std::unique_ptr<ZUListItem<TypeParam>> none(empty->CreateItem());
    EXPECT_FALSE(none->GetItem(1, value));
}

// A list may not change under its enumerators and items. What they answer then means nothing, but they end, and read
// nothing outside the list.
TYPED_TEST(IntegerList, ChangeUnderAWalkIsHarmless) {
    test::Random random;
    SCOPED_TRACE(random.About());
    for (int round = 0; round < 20; ++round) {
        const ListPtr<TypeParam> list(ZUList<TypeParam>::Create());
        for (TypeParam item = 0; item < 9000; item = static_cast<TypeParam>(item + 3)) list->Add(item);
        const std::unique_ptr<ZUListEnumerator<TypeParam>> members(list->CreateEnumerator());
        const std::unique_ptr<ZUListRangeEnumerator<TypeParam>> runs(list->CreateRangeEnumerator());
        const std::unique_ptr<ZUListItem<TypeParam>> finder(list->CreateItem());
        TypeParam first = 0;
        TypeParam last = 0;
        for (int step = 0; step < 1000; ++step) {
            members->Next(first);
            runs->Next(first, last);
            finder->GetItem(static_cast<uint64>(random.Between(0, 3000)), first);
            const auto item = static_cast<TypeParam>(random.Between(0, 9000));
            if (random.OneIn(2)) list->Remove(item);
            if (random.OneIn(3)) list->Add(item);
            if (random.OneIn(300)) list->AddRange(item, static_cast<TypeParam>(item + 500));
            if (random.OneIn(900)) list->Clear();
        }
        int64 left = 0;
        while (members->Next(first)) ++left;
        while (runs->Next(first, last)) ++left;
        EXPECT_LT(left, 20'000);
    }
}

// A class of the caller's own, to see what the base class offers.
template <typename T>
class BareList : public ZUList<T> {
public:
    bool Add(const T&) override { return false; }
    bool AddRange(const T&, const T&) override { return false; }
    bool Remove(const T&) override { return false; }
    bool Clear() override { return false; }
    bool Member(const T&) override { return false; }
    bool MinMax(T&, T&, bool*) override { return false; }
    uint64 Count() override { return 0; }
    int32 Plurality() override { return 0; }
    ZUList<T>* Copy() override { return nullptr; }
    ZUListEnumerator<T>* CreateEnumerator() override { return nullptr; }
    ZUListItem<T>* CreateItem() override { return nullptr; }
};

TYPED_TEST(IntegerList, BaseClassOffersNoRangeEnumerator) {
    BareList<TypeParam> list;
    EXPECT_EQ(list.CreateRangeEnumerator(), nullptr);
}

TEST(TaggedList, RefusesNegativeValues) {
    const auto list = ListOf<long32>({0});
    EXPECT_FALSE(list->Add(-1));
    EXPECT_FALSE(list->Add(std::numeric_limits<long32>::min()));
    EXPECT_FALSE(list->AddRange(-1, 5));
    EXPECT_FALSE(list->AddRange(5, -1));
    EXPECT_FALSE(list->AddRange(-1, -1));
    EXPECT_FALSE(list->Member(-1));
    EXPECT_TRUE(list->Remove(-1));
    EXPECT_EQ(list->Count(), 1u);
}

TEST(TaggedList, AddRangeWithEqualBoundsAddsTheValue) {
    const auto list = ListOf<long32>({4});
    EXPECT_TRUE(list->AddRange(5, 5));
    EXPECT_EQ(RunsOf(*list), (Runs<long32>{{4, 5}}));
}

TEST(TaggedList, AddRangeDropsLoneNeighbours) {
    const auto below = ListOf<long32>({4});
    EXPECT_TRUE(below->AddRange(5, 7));
    EXPECT_EQ(RunsOf(*below), (Runs<long32>{{5, 7}}));
    const auto above = ListOf<long32>({8});
    EXPECT_TRUE(above->AddRange(5, 7));
    EXPECT_EQ(RunsOf(*above), (Runs<long32>{{5, 7}}));
    const auto both = ListOf<long32>({1, 4, 6, 8, 10});
    EXPECT_TRUE(both->AddRange(7, 5));
    EXPECT_EQ(RunsOf(*both), (Runs<long32>{{1, 1}, {5, 7}, {10, 10}}));
    EXPECT_EQ(both->Count(), 5u);
    const auto run = ListOf<long32>({2, 3, 4});
    EXPECT_TRUE(run->AddRange(5, 7));
    EXPECT_EQ(RunsOf(*run), (Runs<long32>{{2, 7}}));
}

TEST(TaggedList, LargestValue) {
    constexpr long32 kLargest = std::numeric_limits<long32>::max();
    const auto list = ListOf<long32>({kLargest});
    EXPECT_TRUE(list->AddRange(kLargest - 5, kLargest));
    EXPECT_EQ(RunsOf(*list), (Runs<long32>{{kLargest - 5, kLargest}}));
    EXPECT_TRUE(list->Add(kLargest));
    EXPECT_TRUE(list->AddRange(0, kLargest));
    EXPECT_EQ(list->Count(), uint64{1} << 31);
    EXPECT_TRUE(list->Remove(kLargest));
    EXPECT_TRUE(list->Remove(0));
    EXPECT_EQ(RunsOf(*list), (Runs<long32>{{1, kLargest - 1}}));
}

TEST(TaggedList, FailedNextWritesMinusOne) {
    const auto list = ListOf<long32>({7});
    const std::unique_ptr<ZUListEnumerator<long32>> members(list->CreateEnumerator());
    const std::unique_ptr<ZUListRangeEnumerator<long32>> runs(list->CreateRangeEnumerator());
    long32 first = 0;
    long32 last = 0;
    EXPECT_TRUE(members->Next(first));
    EXPECT_FALSE(members->Next(first));
    EXPECT_EQ(first, -1);
    EXPECT_TRUE(runs->Next(first, last));
    EXPECT_FALSE(runs->Next(first, last));
    EXPECT_EQ(first, -1);
    EXPECT_EQ(last, -1);
}

// A step over a run does not end the run that a walk over members was in: its next member is the next value still.
TEST(TaggedList, StepOverARunLeavesTheMemberUnderWay) {
    const auto list = ListOf<long32>({1, 2, 3, 8, 9});
    const std::unique_ptr<ZUListEnumerator<long32>> members(list->CreateEnumerator());
    auto* const runs = dynamic_cast<ZUListRangeEnumerator<long32>*>(members.get());
    long32 first = 0;
    long32 last = 0;
    EXPECT_TRUE(members->Next(first));
    EXPECT_EQ(first, 1);
    EXPECT_TRUE(runs->Next(first, last));
    EXPECT_EQ(first, 1);
    EXPECT_EQ(last, 3);
    for (long32 expected = 2; expected <= 9; ++expected) {
        EXPECT_TRUE(members->Next(first));
        EXPECT_EQ(first, expected);
    }
    EXPECT_FALSE(members->Next(first));
}

TEST(TaggedList, ItemAnswersEveryOrdinal) {
    const auto list = ListOf<long32>({3, 5, 6, 7, 9, 20, 21});
    const std::unique_ptr<ZUListItem<long32>> item(list->CreateItem());
    const long32 members[] = {3, 5, 6, 7, 9, 20, 21};
    long32 value = 0;
    for (uint64 index = 1; index <= 7; ++index) {
        EXPECT_TRUE(item->GetItem(index, value));
        EXPECT_EQ(value, members[index - 1]);
    }
    EXPECT_FALSE(item->GetItem(8, value));
    EXPECT_EQ(value, -1);
    for (uint64 index = 7; index >= 1; --index) {
        EXPECT_TRUE(item->GetItem(index, value));
        EXPECT_EQ(value, members[index - 1]);
    }
    EXPECT_FALSE(item->GetItem(0, value));
    EXPECT_EQ(value, -1);
}

template <typename T>
class PairList : public testing::Test {};

using PairElementTypes = testing::Types<ulong32, uint64>;
TYPED_TEST_SUITE(PairList, PairElementTypes, test::ElementNames);

TYPED_TEST(PairList, AddRangeWithEqualBoundsIsRefused) {
    const auto list = ListOf<TypeParam>({4});
    EXPECT_FALSE(list->AddRange(5, 5));
    EXPECT_FALSE(list->AddRange(4, 4));
    EXPECT_EQ(list->Count(), 1u);
}

TYPED_TEST(PairList, AddRangeKeepsLoneNeighbours) {
    const auto list = ListOf<TypeParam>({4, 8});
    EXPECT_TRUE(list->AddRange(5, 7));
    EXPECT_EQ(RunsOf(*list), (Runs<TypeParam>{{4, 8}}));
}

TYPED_TEST(PairList, AddRangeToTheLargestValueEnds) {
    constexpr TypeParam kLargest = std::numeric_limits<TypeParam>::max();
    const auto list = ListOf<TypeParam>({5});
    EXPECT_TRUE(list->AddRange(kLargest - 3, kLargest));
    EXPECT_EQ(RunsOf(*list), (Runs<TypeParam>{{5, 5}, {kLargest - 3, kLargest}}));
    EXPECT_TRUE(list->AddRange(6, kLargest));
    EXPECT_EQ(RunsOf(*list), (Runs<TypeParam>{{5, kLargest}}));
    EXPECT_TRUE(list->Member(kLargest));
    EXPECT_TRUE(list->Add(kLargest));
    EXPECT_TRUE(list->Remove(kLargest));
    EXPECT_FALSE(list->Member(kLargest));
}

TYPED_TEST(PairList, ItemMissesTheLastValueOfARun) {
    const auto list = ListOf<TypeParam>({5, 9});
    const std::unique_ptr<ZUListItem<TypeParam>> item(list->CreateItem());
    TypeParam value = 77;
    EXPECT_TRUE(item->GetItem(1, value));
    EXPECT_EQ(value, TypeParam{8});
    value = 77;
    EXPECT_TRUE(item->GetItem(2, value));
    EXPECT_EQ(value, TypeParam{77});

    const auto longer = ListOf<TypeParam>({10, 11, 12, 20, 21});
    const std::unique_ptr<ZUListItem<TypeParam>> longerItem(longer->CreateItem());
    const TypeParam expected[] = {10, 11, 19, 20};
    for (uint64 index = 1; index <= 4; ++index) {
        EXPECT_TRUE(longerItem->GetItem(index, value));
        EXPECT_EQ(value, expected[index - 1]) << index;
    }
    value = 77;
    EXPECT_TRUE(longerItem->GetItem(5, value));
    EXPECT_EQ(value, TypeParam{77});
    EXPECT_FALSE(longerItem->GetItem(6, value));
}

TYPED_TEST(PairList, FailedNextWritesNothing) {
    const auto list = ListOf<TypeParam>({7});
    const std::unique_ptr<ZUListEnumerator<TypeParam>> members(list->CreateEnumerator());
    const std::unique_ptr<ZUListRangeEnumerator<TypeParam>> runs(list->CreateRangeEnumerator());
    TypeParam first = 0;
    TypeParam last = 0;
    EXPECT_TRUE(members->Next(first));
    first = 77;
    EXPECT_FALSE(members->Next(first));
    EXPECT_EQ(first, TypeParam{77});
    EXPECT_TRUE(runs->Next(first, last));
    first = last = 77;
    EXPECT_FALSE(runs->Next(first, last));
    EXPECT_EQ(first, TypeParam{77});
    EXPECT_EQ(last, TypeParam{77});
}

// The member that a walk stands on is its own, and starts at 0: a step over a run does not move it.
TYPED_TEST(PairList, MembersAfterARunGoOnFromTheLastMemberGiven) {
    const auto list = ListOf<TypeParam>({5, 6, 9});
    const std::unique_ptr<ZUListEnumerator<TypeParam>> members(list->CreateEnumerator());
    auto* const runs = dynamic_cast<ZUListRangeEnumerator<TypeParam>*>(members.get());
    TypeParam first = 0;
    TypeParam last = 0;
    EXPECT_TRUE(runs->Next(first, last));
    EXPECT_EQ(first, TypeParam{5});
    EXPECT_TRUE(members->Next(first));
    EXPECT_EQ(first, TypeParam{1});
    EXPECT_TRUE(runs->Next(first, last));
    EXPECT_EQ(first, TypeParam{9});
    EXPECT_TRUE(members->Next(first));
    EXPECT_EQ(first, TypeParam{2});
}

template <typename T>
struct PlainOf {
    using Type = PlainPairList<T>;
};
template <>
struct PlainOf<long32> {
    using Type = PlainTaggedList;
};

template <typename T, typename Plain>
void CompareAnswers(ZUList<T>& list, const Plain& plain, T item, test::Random& random) {
    ASSERT_EQ(list.Member(item), plain.Member(item)) << item;
    ASSERT_EQ(list.Count(), plain.Count());
    ASSERT_EQ(list.Plurality(), plain.Plurality());
    T min = 0;
    T max = 0;
    bool oneRun = false;
    ASSERT_EQ(list.MinMax(min, max, &oneRun), !plain.runs.empty());
    if (plain.runs.empty()) return;
    ASSERT_EQ(min, plain.runs.front().low);
    ASSERT_EQ(max, plain.runs.back().high);
    ASSERT_EQ(oneRun, plain.runs.size() == 1);
    if (!random.OneIn(10)) return;
    const std::unique_ptr<ZUListItem<T>> finder(list.CreateItem());
    for (int step = 0; step < 5; ++step) {
        const auto index = static_cast<uint64>(random.Between(0, static_cast<int64>(plain.Count()) + 1));
        T value = 77;
        T plainValue = 77;
        ASSERT_EQ(finder->GetItem(index, value), plain.GetItem(index, plainValue)) << index;
        ASSERT_EQ(value, plainValue) << index;
    }
}

template <typename T, typename Plain>
void ChangeBoth(ZUList<T>& list, Plain& plain, T item, test::Random& random) {
    switch (random.Between(0, 5)) {
        case 0:
        case 1:
        case 2:
            ASSERT_EQ(list.Add(item), plain.Add(item)) << item;
            break;
        case 3:
            ASSERT_TRUE(list.Remove(item)) << item;
            plain.Remove(item);
            break;
        default: {
            if (!random.OneIn(4)) return;
            const auto other = static_cast<T>(item + static_cast<T>(random.Between(0, 9)));
            ASSERT_EQ(list.AddRange(item, other), plain.AddRange(item, other)) << item << " " << other;
        }
    }
}

TYPED_TEST(IntegerList, AnswersAsThePlainFormDoes) {
    using T = TypeParam;
    test::Random random;
    SCOPED_TRACE(random.About());
    // Small lists, compared at each step with a form that looks at every run.
    int operations = 0;
    while (operations < test::kRandomOperations) {
        const ListPtr<T> list(ZUList<T>::Create());
        typename PlainOf<T>::Type plain;
        test::DriftingValues values(random, 1'000'000'000, 30, 2);
        for (int i = 0; i < 2000; ++i, ++operations) {
            const T item = static_cast<T>(values.Next());
            ChangeBoth(*list, plain, item, random);
            if (i % 8 == 0) CompareAnswers(*list, plain, static_cast<T>(values.Next()), random);
            if (this->HasFatalFailure()) return;
        }
        ASSERT_EQ(RunsOf(*list), plain.runs);
        const ListPtr<T> copy(list->Copy());
        ASSERT_EQ(RunsOf(*copy), plain.runs);
    }
}

// Lists large enough for many blocks, compared with a set of bits.
TYPED_TEST(IntegerList, LargeListsAnswerAsASetOfBitsDoes) {
    using T = TypeParam;
    constexpr int64 kReach = 60'000;
    test::Random random;
    SCOPED_TRACE(random.About());
    const ListPtr<T> list(ZUList<T>::Create());
    std::vector<bool> bits(kReach);
    uint64 count = 0;
    for (int i = 0; i < test::kRandomOperations / 5; ++i) {
        const int64 value = random.Between(0, kReach - 1);
        const auto place = static_cast<std::size_t>(value);
        const T item = static_cast<T>(value);
        ASSERT_EQ(list->Member(item), bits[place]) << value;
        // First mostly adds, then mostly removes, and so on.
        const bool add = random.Between(0, 9) < ((i / 50'000) % 2 == 0 ? 8 : 2);
        ASSERT_TRUE(add ? list->Add(item) : list->Remove(item));
        count += add && !bits[place] ? 1 : 0;
        count -= !add && bits[place] ? 1 : 0;
        bits[place] = add;
        ASSERT_EQ(list->Count(), count);
    }
    std::vector<T> members;
    for (std::size_t i = 0; i < bits.size(); ++i) {
        if (bits[i]) members.push_back(static_cast<T>(i));
    }
    ASSERT_EQ(MembersOf(*list), members);
    // A range over most of it, with a run of two at either end so that no lone neighbour is at stake.
    for (const int64 end : {98, 99, 59'900, 59'901}) ASSERT_TRUE(list->Add(static_cast<T>(end)));
    ASSERT_TRUE(list->AddRange(T{100}, T{59'899}));
    for (const T end : {T{98}, T{99}, T{100}, T{30'000}, T{59'899}, T{59'901}}) ASSERT_TRUE(list->Member(end));
    const auto outside =
        std::count_if(members.begin(), members.end(), [](T item) { return item < 98 || item > 59'901; });
    ASSERT_EQ(list->Count(), static_cast<uint64>(outside) + 59'804);
}

}  // namespace
}  // namespace integer_lists_test
