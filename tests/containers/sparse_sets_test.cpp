#include <Utility/memory_blocks.h>
#include <Utility/sparse_sets.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <iterator>
#include <set>
#include <vector>

#include "reference/plain_sparse_set.h"
#include "support/random.h"

namespace sparse_sets_test {
namespace {

using namespace Torvo;
using test::PlainSparseSet;

constexpr int32 kPage = 262144;
constexpr int32 kLargest = 0x7FFFFFFF;

// A list that is destroyed at the end of the test.
struct List {
    flist* list = flist_init();
    List() = default;
    List(std::initializer_list<int32> members) {
        for (const int32 item : members) EXPECT_TRUE(flist_add(list, item));
    }
    List(const List&) = delete;
    List& operator=(const List&) = delete;
    ~List() { flist_destroy(list); }
    operator flist*() const { return list; }
    flist* operator->() const { return list; }
};

std::vector<int32> MembersOf(flist* list) {
    std::vector<int32> members;
    for (int32 item = flist_next(list, -1); item != -1; item = flist_next(list, item)) members.push_back(item);
    return members;
}

using Members = std::vector<int32>;

TEST(SparseSet, StartsEmptyWith250Pages) {
    const List list;
    ASSERT_NE(list.list, nullptr);
    EXPECT_EQ(list->capacity, 250);
    EXPECT_EQ(list->count, 0);
    EXPECT_EQ(list->min, 0);
    EXPECT_EQ(list->max, 0);
    EXPECT_EQ(list->cachedIndex, 0);
    for (int page = 0; page < 250; ++page) {
        EXPECT_EQ(list->pages[page].count, 0u);
        EXPECT_EQ(list->pages[page].bits, nullptr);
    }
    EXPECT_GE(memSize(list->pages), 4000u);
}

TEST(SparseSet, DestroyNullsTheReference) {
    flist* list = flist_init();
    flist_add(list, 5);
    EXPECT_TRUE(flist_destroy(list));
    EXPECT_EQ(list, nullptr);
    EXPECT_FALSE(flist_destroy(list));
}

TEST(SparseSet, NullListGivesTheNeutralResults) {
    flist* const list = nullptr;
    int32 first = 7;
    int32 last = 7;
    flist_enumerate_status status{7};
    EXPECT_EQ(flist_copy(list), nullptr);
    EXPECT_FALSE(flist_add(list, 1));
    EXPECT_FALSE(flist_add_range(list, 1, 2));
    EXPECT_FALSE(flist_remove(list, 1));
    EXPECT_FALSE(flist_member(list, 1));
    EXPECT_FALSE(flist_member_in_range(list, 1));
    EXPECT_EQ(flist_count(list), 0);
    EXPECT_EQ(flist_plurality(list), 0);
    EXPECT_FALSE(flist_minmax(list, &first, &last));
    EXPECT_EQ(first, 7);
    EXPECT_EQ(last, 7);
    EXPECT_EQ(flist_next(list, -1), -1);
    EXPECT_EQ(flist_prev(list, 100), -1);
    EXPECT_EQ(flist_next_range(list, -1, first, last), -1);
    EXPECT_EQ(first, -1);
    EXPECT_EQ(last, -1);
    EXPECT_EQ(flist_enumerate(list, true, &status), -1);
    EXPECT_EQ(status.current, 7);
    EXPECT_EQ(flist_getbyindex(list, 0), -1);
    EXPECT_EQ(flist_getbyindex_brute(list, 0), -1);
    EXPECT_EQ(flist_getindex(list, 1), -1);
}

TEST(SparseSet, InvalidListGivesTheNeutralResults) {
    flist invalid{};
    flist* list = &invalid;
    int32 first = 7;
    int32 last = 7;
    EXPECT_FALSE(flist_add(list, 1));
    EXPECT_FALSE(flist_add_range(list, 1, 2));
    EXPECT_FALSE(flist_remove(list, 1));
    EXPECT_FALSE(flist_remove(list, 0));
    EXPECT_EQ(invalid.min, 0);
    EXPECT_FALSE(flist_member(list, 1));
    EXPECT_FALSE(flist_member_in_range(list, 1));
    EXPECT_EQ(flist_count(list), 0);
    EXPECT_EQ(flist_plurality(list), 0);
    EXPECT_FALSE(flist_minmax(list, &first, &last));
    EXPECT_EQ(flist_next(list, -1), -1);
    EXPECT_EQ(flist_prev(list, 100), -1);
    EXPECT_EQ(flist_next_range(list, -1, first, last), -1);
    EXPECT_EQ(flist_getbyindex(list, 0), -1);
    EXPECT_EQ(flist_getbyindex(list, 1), -1);
    EXPECT_EQ(flist_getindex(list, 0), -1);
    EXPECT_FALSE(flist_destroy(list));
    EXPECT_EQ(list, &invalid);
    flist* copy = flist_copy(list);
    EXPECT_EQ(flist_count(copy), 0);
    EXPECT_TRUE(flist_destroy(copy));
}

TEST(SparseSet, CountsAreNeutralForAnInvalidListWhateverItsFieldsSay) {
    const List list{1, 2, 3};
    list->capacity = 0;
    EXPECT_EQ(flist_count(list), 0);
    EXPECT_EQ(flist_plurality(list), 0);
    EXPECT_FALSE(flist_minmax(list, nullptr, nullptr));
    EXPECT_FALSE(flist_member(list, 1));
    EXPECT_EQ(flist_next(list, -1), -1);
    EXPECT_EQ(flist_prev(list, 9), -1);
    EXPECT_EQ(flist_getindex(list, 1), -1);
    list->capacity = 250;
    EXPECT_EQ(flist_count(list), 3);
}

TEST(SparseSet, AddKeepsCountAndBounds) {
    const List list{50, 10, 90};
    EXPECT_EQ(flist_count(list), 3);
    EXPECT_EQ(list->min, 10);
    EXPECT_EQ(list->max, 90);
    EXPECT_EQ(MembersOf(list), (Members{10, 50, 90}));
}

TEST(SparseSet, AddOfAMemberIsTrueAndChangesNothing) {
    const List list{10, 20};
    EXPECT_EQ(flist_getbyindex(list, 2), 20);
    EXPECT_TRUE(flist_add(list, 10));
    EXPECT_EQ(flist_count(list), 2);
    EXPECT_EQ(list->cachedIndex, 2);
    EXPECT_EQ(list->cachedItem, 20);
}

TEST(SparseSet, NegativeItemIsRefused) {
    const List list;
    EXPECT_FALSE(flist_add(list, -1));
    EXPECT_FALSE(flist_add(list, INT32_MIN));
    EXPECT_EQ(flist_count(list), 0);
    EXPECT_FALSE(flist_member(list, -1));
    EXPECT_FALSE(flist_member(list, INT32_MIN));
    EXPECT_FALSE(flist_remove(list, -1));
    EXPECT_FALSE(flist_member_in_range(list, -1));
    EXPECT_FALSE(flist_member_in_range(list, INT32_MIN));
}

TEST(SparseSet, NegativeItemIsNoMemberOfAListOfAllPages) {
    const List list{kLargest};
    EXPECT_EQ(list->capacity, 8191 + 250);
    for (const int32 item : {-1, -kPage, -250 * kPage, INT32_MIN}) {
        EXPECT_FALSE(flist_member(list, item));
        EXPECT_FALSE(flist_remove(list, item));
    }
    EXPECT_TRUE(flist_member(list, kLargest));
    EXPECT_FALSE(flist_member_in_range(list, kLargest));
    flist_add(list, kLargest - 1);
    EXPECT_TRUE(flist_member_in_range(list, kLargest));
}

TEST(SparseSet, BitsLieWherePublished) {
    const List list{37, kPage + 262143};
    ASSERT_NE(list->pages[0].bits, nullptr);
    EXPECT_EQ(list->pages[0].count, 1u);
    EXPECT_EQ(list->pages[0].bits[2], 1 << 5);
    EXPECT_EQ(list->pages[1].bits[16383], 0x8000);
    EXPECT_GE(memSize(list->pages[0].bits), 32768u);
}

TEST(SparseSet, FullPageHasNoBitmap) {
    const List list;
    for (int32 item = 0; item < kPage - 1; ++item) ASSERT_TRUE(flist_add(list, item));
    EXPECT_NE(list->pages[0].bits, nullptr);
    EXPECT_TRUE(flist_add(list, kPage - 1));
    EXPECT_EQ(list->pages[0].count, 262144u);
    EXPECT_EQ(list->pages[0].bits, nullptr);
    EXPECT_TRUE(flist_member(list, 0));
    EXPECT_TRUE(flist_member(list, kPage - 1));
    EXPECT_FALSE(flist_member(list, kPage));
    EXPECT_TRUE(flist_add(list, 100));

    EXPECT_TRUE(flist_remove(list, 100));
    ASSERT_NE(list->pages[0].bits, nullptr);
    EXPECT_EQ(list->pages[0].count, 262143u);
    for (int word = 0; word < 16384; ++word) {
        ASSERT_EQ(list->pages[0].bits[word], word == 6 ? 0xFFEF : 0xFFFF) << word;
    }

    for (int32 item = 0; item < kPage; ++item) ASSERT_EQ(flist_remove(list, item), item != 100);
    EXPECT_EQ(list->pages[0].count, 0u);
    EXPECT_EQ(list->pages[0].bits, nullptr);
    EXPECT_EQ(flist_count(list), 0);
}

TEST(SparseSet, FullPageThatStillHasABitmapReadsAsFull) {
    const List list{1};
    list->pages[0].count = kPage;
    EXPECT_TRUE(flist_member(list, 99));
    EXPECT_TRUE(flist_add(list, 99));
    EXPECT_EQ(list->count, 1);
    EXPECT_TRUE(flist_remove(list, 99));
    EXPECT_FALSE(flist_member(list, 99));
    EXPECT_TRUE(flist_member(list, 98));
}

TEST(SparseSet, CapacityGrowsToThePageAnd250) {
    const List list{65'535'999};
    EXPECT_EQ(list->capacity, 250);
    EXPECT_FALSE(flist_member(list, 65'536'000));
    EXPECT_FALSE(flist_remove(list, 65'536'000));
    EXPECT_TRUE(flist_add(list, 65'536'000));
    EXPECT_EQ(list->capacity, 500);
    EXPECT_TRUE(flist_member(list, 65'535'999));
    for (int page = 251; page < 500; ++page) {
        ASSERT_EQ(list->pages[page].count, 0u);
        ASSERT_EQ(list->pages[page].bits, nullptr);
    }
    EXPECT_EQ(MembersOf(list), (Members{65'535'999, 65'536'000}));
}

TEST(SparseSet, AddRangeTakesItsBoundsInEitherOrder) {
    const List list;
    EXPECT_TRUE(flist_add_range(list, 10, 5));
    EXPECT_EQ(MembersOf(list), (Members{5, 6, 7, 8, 9, 10}));
    EXPECT_TRUE(flist_add_range(list, 7, 7));
    EXPECT_TRUE(flist_add_range(list, 12, 12));
    EXPECT_EQ(flist_count(list), 7);
}

TEST(SparseSet, AddRangeBelowZeroAddsNothing) {
    const List list;
    EXPECT_FALSE(flist_add_range(list, -1, 5));
    EXPECT_FALSE(flist_add_range(list, 5, -1));
    EXPECT_EQ(flist_count(list), 0);
    EXPECT_EQ(list->pages[0].bits, nullptr);
}

TEST(SparseSet, AddRangeOfMembersKeepsTheRememberedOrdinal) {
    const List list;
    flist_add_range(list, 10, 20);
    EXPECT_EQ(flist_getbyindex(list, 3), 12);
    EXPECT_TRUE(flist_add_range(list, 12, 18));
    EXPECT_EQ(list->cachedIndex, 3);
    EXPECT_TRUE(flist_add_range(list, 12, 21));
    EXPECT_EQ(list->cachedIndex, 0);
}

TEST(SparseSet, AddRangeOverPagesFillsThemWithoutBitmaps) {
    const List list{kPage + 5};
    EXPECT_TRUE(flist_add_range(list, kPage - 10, 3 * kPage + 9));
    EXPECT_EQ(flist_count(list), 2 * kPage + 20);
    EXPECT_EQ(list->min, kPage - 10);
    EXPECT_EQ(list->max, 3 * kPage + 9);
    EXPECT_EQ(list->pages[0].count, 10u);
    EXPECT_EQ(list->pages[1].count, 262144u);
    EXPECT_EQ(list->pages[1].bits, nullptr);
    EXPECT_EQ(list->pages[2].bits, nullptr);
    EXPECT_EQ(list->pages[3].count, 10u);
    EXPECT_EQ(flist_next(list, kPage - 20), kPage - 10);
    int32 first = 0;
    int32 last = 0;
    EXPECT_EQ(flist_next_range(list, -1, first, last), 3 * kPage + 9);
    EXPECT_EQ(first, kPage - 10);
}

TEST(SparseSet, AddRangeThatCompletesAPageFreesItsBitmap) {
    const List list;
    EXPECT_TRUE(flist_add_range(list, 0, 1000));
    EXPECT_NE(list->pages[0].bits, nullptr);
    EXPECT_TRUE(flist_add_range(list, 500, kPage - 1));
    EXPECT_EQ(list->pages[0].bits, nullptr);
    EXPECT_EQ(flist_count(list), kPage);
}

TEST(SparseSet, AddRangeGrowsThePagesAsOneByOneWould) {
    const List list;
    EXPECT_TRUE(flist_add_range(list, 249 * kPage, 751 * kPage));
    EXPECT_EQ(list->capacity, 1000);
    EXPECT_EQ(flist_count(list), 502 * kPage + 1);
}

TEST(SparseSet, RangeUpToTheLargestValueEnds) {
    const List list;
    EXPECT_TRUE(flist_add_range(list, kLargest - 2, kLargest));
    EXPECT_EQ(MembersOf(list), (Members{kLargest - 2, kLargest - 1, kLargest}));
    EXPECT_EQ(flist_next(list, kLargest), -1);
    EXPECT_EQ(flist_prev(list, kLargest), kLargest - 1);
    int32 first = 0;
    int32 last = 0;
    EXPECT_EQ(flist_next_range(list, -1, first, last), kLargest);
    EXPECT_EQ(last, kLargest);
    EXPECT_EQ(flist_next_range(list, kLargest, first, last), -1);
}

TEST(SparseSet, AllValuesMakeTheCountWrap) {
    const List list;
    EXPECT_TRUE(flist_add_range(list, 0, kLargest));
    EXPECT_EQ(flist_count(list), INT32_MIN);
    EXPECT_EQ(flist_plurality(list), 2);
    EXPECT_TRUE(flist_member_in_range(list, kLargest));
    EXPECT_TRUE(flist_remove(list, 0));
    EXPECT_EQ(flist_count(list), kLargest);
    EXPECT_EQ(flist_getbyindex(list, kLargest), kLargest);
    EXPECT_EQ(flist_getindex(list, kLargest), kLargest);
}

TEST(SparseSet, RemoveMovesTheBounds) {
    const List list{5, 10, 20};
    EXPECT_TRUE(flist_remove(list, 5));
    EXPECT_EQ(list->min, 10);
    EXPECT_TRUE(flist_remove(list, 20));
    EXPECT_EQ(list->max, 10);
    EXPECT_FALSE(flist_remove(list, 20));
    EXPECT_EQ(flist_count(list), 1);
}

TEST(SparseSet, RemoveOfTheOnlyMemberEmptiesTheList) {
    const List list{5};
    EXPECT_TRUE(flist_remove(list, 5));
    int32 min = 7;
    int32 max = 7;
    EXPECT_FALSE(flist_minmax(list, &min, &max));
    EXPECT_EQ(min, 7);
    EXPECT_EQ(max, 7);
    EXPECT_EQ(list->min, -1);
    EXPECT_EQ(list->max, -1);
    EXPECT_TRUE(flist_add(list, 9));
    EXPECT_TRUE(flist_minmax(list, &min, &max));
    EXPECT_EQ(min, 9);
    EXPECT_EQ(max, 9);
}

TEST(SparseSet, RemoveFromAnEmptyListLooksAtTheBoundsAllTheSame) {
    const List list;
    EXPECT_FALSE(flist_remove(list, 0));
    EXPECT_EQ(list->min, -1);
    EXPECT_EQ(list->max, -1);
}

TEST(SparseSet, MemberInRangeNeedsANeighbour) {
    const List list{1, 2, 3, 7, 262143, 262144};
    for (const int32 item : {1, 2, 3, 262143, 262144}) EXPECT_TRUE(flist_member_in_range(list, item)) << item;
    for (const int32 item : {0, 4, 6, 7, 8}) EXPECT_FALSE(flist_member_in_range(list, item)) << item;
}

TEST(SparseSet, PluralityTellsNoneOneAndMore) {
    const List list;
    EXPECT_EQ(flist_plurality(list), 0);
    flist_add(list, 3);
    EXPECT_EQ(flist_plurality(list), 1);
    flist_add(list, 4);
    EXPECT_EQ(flist_plurality(list), 2);
    flist_add(list, 5);
    EXPECT_EQ(flist_plurality(list), 2);
}

TEST(SparseSet, MinMaxAcceptsNullPointers) {
    const List list{3, 8};
    int32 value = 0;
    EXPECT_TRUE(flist_minmax(list, &value, nullptr));
    EXPECT_EQ(value, 3);
    EXPECT_TRUE(flist_minmax(list, nullptr, &value));
    EXPECT_EQ(value, 8);
    EXPECT_TRUE(flist_minmax(list, nullptr, nullptr));
}

TEST(SparseSet, NextWalksUp) {
    const List list{1, 5};
    EXPECT_EQ(flist_next(list, -1), 1);
    EXPECT_EQ(flist_next(list, INT32_MIN), 1);
    EXPECT_EQ(flist_next(list, 0), 1);
    EXPECT_EQ(flist_next(list, 1), 5);
    EXPECT_EQ(flist_next(list, 3), 5);
    EXPECT_EQ(flist_next(list, 5), -1);
    EXPECT_EQ(flist_next(list, 6), -1);
    EXPECT_EQ(flist_next(list, kLargest), -1);
    EXPECT_EQ(flist_next(List(), -1), -1);
}

TEST(SparseSet, PrevWalksDown) {
    const List list{1, 5};
    EXPECT_EQ(flist_prev(list, 100), 5);
    EXPECT_EQ(flist_prev(list, kLargest), 5);
    EXPECT_EQ(flist_prev(list, 5), 1);
    EXPECT_EQ(flist_prev(list, 3), 1);
    EXPECT_EQ(flist_prev(list, 1), -1);
    EXPECT_EQ(flist_prev(list, 0), -1);
    EXPECT_EQ(flist_prev(list, -1), -1);
    EXPECT_EQ(flist_prev(List{0, 4}, 0), -1);
    EXPECT_EQ(flist_prev(List{0, 4}, 1), -1 + 1);
    EXPECT_EQ(flist_prev(List(), 100), -1);
}

TEST(SparseSet, WalksCrossEmptyPages) {
    const List list{3, 100 * kPage + 7, 249 * kPage};
    EXPECT_EQ(flist_next(list, 3), 100 * kPage + 7);
    EXPECT_EQ(flist_next(list, 100 * kPage + 7), 249 * kPage);
    EXPECT_EQ(flist_prev(list, 249 * kPage), 100 * kPage + 7);
    EXPECT_EQ(flist_prev(list, 100 * kPage + 7), 3);
}

TEST(SparseSet, NextRangeTellsRunsFromLoneMembers) {
    const List list{1, 2, 3, 7};
    int32 first = 0;
    int32 last = 0;
    EXPECT_EQ(flist_next_range(list, -1, first, last), 3);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(last, 3);
    EXPECT_EQ(flist_next_range(list, 3, first, last), 7);
    EXPECT_EQ(first, 7);
    EXPECT_EQ(last, -1);
    EXPECT_EQ(flist_next_range(list, 7, first, last), -1);
    EXPECT_EQ(first, -1);
    EXPECT_EQ(last, -1);
}

TEST(SparseSet, NextRangeFromInsideARunGivesTheRestOfIt) {
    const List list{1, 2, 3, 7};
    int32 first = 0;
    int32 last = 0;
    EXPECT_EQ(flist_next_range(list, 1, first, last), 3);
    EXPECT_EQ(first, 2);
    EXPECT_EQ(flist_next_range(list, 2, first, last), 3);
    EXPECT_EQ(first, 3);
    EXPECT_EQ(last, 3);
}

TEST(SparseSet, EnumerateSurvivesChangesAndStartsAgainAfterTheEnd) {
    const List list{1, 5, 9};
    flist_enumerate_status status{1234};
    EXPECT_EQ(flist_enumerate(list, true, &status), 1);
    flist_remove(list, 1);
    flist_add(list, 3);
    EXPECT_EQ(flist_enumerate(list, false, &status), 3);
    EXPECT_EQ(flist_enumerate(list, false, &status), 5);
    EXPECT_EQ(status.current, 5);
    flist_remove(list, 9);
    EXPECT_EQ(flist_enumerate(list, false, &status), -1);
    EXPECT_EQ(status.current, -1);
    EXPECT_EQ(flist_enumerate(list, false, &status), 3);
    EXPECT_EQ(flist_enumerate(list, true, &status), 3);
    EXPECT_EQ(flist_enumerate(list, true, nullptr), -1);
}

TEST(SparseSet, OrdinalsCountFromOne) {
    const List list{10, 20, kPage, 5 * kPage + 3};
    const int32 members[] = {10, 20, kPage, 5 * kPage + 3};
    for (int32 i = 0; i < 4; ++i) {
        EXPECT_EQ(flist_getindex(list, members[i]), i + 1);
        EXPECT_EQ(flist_getbyindex(list, i + 1), members[i]);
        EXPECT_EQ(flist_getbyindex_brute(list, i + 1), members[i]);
    }
    EXPECT_EQ(flist_getbyindex(list, 5), -1);
    EXPECT_EQ(flist_getbyindex_brute(list, 5), -1);
    for (const int32 item : {-1, 9, 11, 5 * kPage + 4, kLargest}) EXPECT_EQ(flist_getindex(list, item), -1) << item;
}

TEST(SparseSet, OrdinalPastTheEndKeepsTheRememberedOne) {
    const List list{10, 20};
    EXPECT_EQ(flist_getbyindex(list, 1), 10);
    EXPECT_EQ(flist_getbyindex(list, 3), -1);
    EXPECT_EQ(list->cachedIndex, 1);
}

TEST(SparseSet, ChangesForgetTheRememberedOrdinal) {
    const List list{10, 20, 30};
    EXPECT_EQ(flist_getbyindex(list, 2), 20);
    EXPECT_EQ(list->cachedIndex, 2);
    EXPECT_EQ(list->cachedItem, 20);
    flist_add(list, 15);
    EXPECT_EQ(list->cachedIndex, 0);
    EXPECT_EQ(flist_getbyindex(list, 2), 15);
    flist_remove(list, 10);
    EXPECT_EQ(list->cachedIndex, 0);
    EXPECT_EQ(flist_getbyindex(list, 2), 20);
    EXPECT_FALSE(flist_remove(list, 10));
    EXPECT_EQ(list->cachedIndex, 2);
}

TEST(SparseSet, OrdinalZeroGivesTheValueBelowThePageOfMin) {
    const List low{10};
    EXPECT_EQ(flist_getbyindex(low, 0), -1);
    const List high{3 * kPage + 10};
    EXPECT_EQ(flist_getbyindex(high, 0), 3 * kPage - 1);
    EXPECT_EQ(high->cachedIndex, 0);
    EXPECT_EQ(high->cachedItem, 3 * kPage - 1);
    EXPECT_EQ(flist_getbyindex(high, 1), 3 * kPage + 10);
}

TEST(SparseSet, OrdinalsOfAnEmptyList) {
    const List list;
    EXPECT_EQ(flist_getbyindex_brute(list, 0), 0);
    EXPECT_EQ(flist_getbyindex_brute(list, -5), 0);
    EXPECT_EQ(flist_getbyindex(list, 1), -1);
    EXPECT_EQ(flist_getbyindex_brute(list, 1), -1);
    EXPECT_EQ(flist_getbyindex(list, 0), -1);
    flist_remove(list, 0);
    EXPECT_EQ(flist_getbyindex_brute(list, 0), -1);
}

TEST(SparseSet, BruteOrdinalBelowTwoIsMin) {
    const List list{10, 20};
    EXPECT_EQ(flist_getbyindex_brute(list, 0), 10);
    EXPECT_EQ(flist_getbyindex_brute(list, -3), 10);
    EXPECT_EQ(flist_getbyindex_brute(list, 1), 10);
    EXPECT_EQ(list->cachedIndex, 0);
}

// What is remembered is not asked whether it is an ordinal at all.
TEST(SparseSet, NegativeOrdinalIsRememberedLikeAnyOther) {
    const List list{3 * kPage + 10};
    EXPECT_EQ(flist_getbyindex(list, -4), 3 * kPage - 1);
    EXPECT_EQ(list->cachedIndex, -4);
    EXPECT_EQ(flist_getbyindex(list, -3), 3 * kPage + 10);
    EXPECT_EQ(list->cachedIndex, -3);
}

TEST(SparseSet, CopyHasTheSameMembersAndItsOwnLayout) {
    List list{70'000'000, 5};
    flist_add_range(list, kPage, 3 * kPage);
    flist_remove(list, 70'000'000);
    EXPECT_GT(list->capacity, 250);
    flist* copy = flist_copy(list);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->capacity, 250);
    EXPECT_EQ(copy->count, list->count);
    EXPECT_EQ(copy->min, 5);
    EXPECT_EQ(copy->max, 3 * kPage);
    EXPECT_EQ(copy->pages[1].bits, nullptr);
    EXPECT_NE(copy->pages[3].bits, nullptr);
    EXPECT_EQ(copy->pages[3].count, 1u);
    EXPECT_EQ(MembersOf(copy), MembersOf(list));
    flist_remove(copy, 5);
    EXPECT_TRUE(flist_member(list, 5));
    EXPECT_TRUE(flist_destroy(copy));
}

TEST(SparseSet, CopyOfAnEmptyListIsEmpty) {
    flist* copy = flist_copy(List());
    EXPECT_EQ(flist_count(copy), 0);
    EXPECT_EQ(copy->capacity, 250);
    EXPECT_TRUE(flist_destroy(copy));
}

// Everything that can be seen, compared with the plain form.
void ExpectSame(flist* list, const PlainSparseSet& plain) {
    ASSERT_EQ(list->count, plain.Count());
    ASSERT_EQ(list->min, plain.min);
    ASSERT_EQ(list->max, plain.max);
    ASSERT_EQ(list->cachedIndex, plain.cachedIndex);
    ASSERT_EQ(list->cachedItem, plain.cachedItem);
    ASSERT_EQ(list->capacity, plain.capacity);
}

void ExpectSamePages(flist* list, const PlainSparseSet& plain) {
    ASSERT_EQ(MembersOf(list), plain.members);
    for (int32 page = 0; page < list->capacity; ++page) {
        const auto count = static_cast<uint32>(plain.PageCount(page));
        ASSERT_EQ(list->pages[page].count, count) << page;
        ASSERT_EQ(list->pages[page].bits != nullptr, count > 0 && count < kPage) << page;
    }
}

void ChangeBoth(flist* list, PlainSparseSet& plain, test::Random& random, int32 item) {
    switch (random.Between(0, 4)) {
        case 0:
        case 1:
            ASSERT_EQ(flist_add(list, item), plain.Add(item)) << item;
            break;
        case 2:
        case 3:
            ASSERT_EQ(flist_remove(list, item), plain.Remove(item)) << item;
            break;
        default: {
            const auto last = static_cast<int32>(random.Between(item - 20, item + 20));
            ASSERT_EQ(flist_add_range(list, item, last), plain.AddRange(item, last)) << item << " " << last;
        }
    }
}

void AskBoth(flist* list, PlainSparseSet& plain, test::Random& random, int32 item) {
    int32 first = 0;
    int32 last = 0;
    int32 plainFirst = 0;
    int32 plainLast = 0;
    ASSERT_EQ(flist_member(list, item), plain.Member(item)) << item;
    ASSERT_EQ(flist_member_in_range(list, item), plain.MemberInRange(item)) << item;
    ASSERT_EQ(flist_next(list, item), plain.Next(item)) << item;
    ASSERT_EQ(flist_prev(list, item), plain.Prev(item)) << item;
    ASSERT_EQ(flist_getindex(list, item), plain.GetIndex(item)) << item;
    ASSERT_EQ(flist_next_range(list, item, first, last), plain.NextRange(item, plainFirst, plainLast)) << item;
    ASSERT_EQ(first, plainFirst);
    ASSERT_EQ(last, plainLast);
    // Mostly neighbours of the last ordinal, which the remembered one answers.
    const auto nearby = static_cast<int32>(plain.cachedIndex + random.Between(-2, 2));
    const auto ordinal = random.OneIn(20) ? static_cast<int32>(random.Between(-2, plain.Count() + 2)) : nearby;
    ASSERT_EQ(flist_getbyindex(list, ordinal), plain.GetByIndex(ordinal)) << ordinal;
    if (random.OneIn(100)) {
        ASSERT_EQ(flist_getbyindex_brute(list, ordinal), plain.GetByIndexBrute(ordinal)) << ordinal;
    }
}

void CompareCopies(flist* list, const PlainSparseSet& plain) {
    flist* copy = flist_copy(list);
    const PlainSparseSet plainCopy = plain.Copy();
    ExpectSame(copy, plainCopy);
    ExpectSamePages(copy, plainCopy);
    flist_destroy(copy);
}

TEST(SparseSetProperty, AnswersAsThePlainFormDoes) {
    test::Random random;
    SCOPED_TRACE(random.About());
    // A few pages round the point where the array of pages must grow, so that every kind of edge is near.
    const int32 base = 247 * kPage;
    test::DriftingValues values(random, 6 * kPage, 300, 40);
    int operations = 0;
    while (operations < test::kRandomOperations) {
        const List list;
        PlainSparseSet plain;
        for (int i = 0; i < 50'000; ++i, ++operations) {
            const auto item = static_cast<int32>(base + values.Next());
            if (random.OneIn(3)) {
                AskBoth(list, plain, random, item);
            } else {
                ChangeBoth(list, plain, random, item);
            }
            ExpectSame(list, plain);
            if (HasFatalFailure()) return;
        }
        ExpectSamePages(list, plain);
        CompareCopies(list, plain);
        if (HasFatalFailure()) return;
    }
}

TEST(SparseSetProperty, WholePagesAnswerAsThePlainFormDoes) {
    test::Random random;
    SCOPED_TRACE(random.About());
    for (int round = 0; round < 1 + test::kRandomOperations / 200'000; ++round) {
        const List list;
        PlainSparseSet plain;
        for (int i = 0; i < 40; ++i) {
            // Ranges whose ends lie at, or a little off, the ends of pages; then holes in what became full.
            const auto first = static_cast<int32>(random.Between(0, 4) * kPage + random.Between(0, 3));
            const auto last = static_cast<int32>(random.Between(1, 4) * kPage - random.Between(-2, 2));
            if (random.OneIn(3) && plain.Count() < kPage) {
                ASSERT_EQ(flist_add_range(list, first, last), plain.AddRange(first, last)) << first << " " << last;
            } else {
                ChangeBoth(list, plain, random, first);
            }
            AskBoth(list, plain, random, last);
            AskBoth(list, plain, random, first);
            ExpectSame(list, plain);
            if (HasFatalFailure()) return;
        }
        ExpectSamePages(list, plain);
        CompareCopies(list, plain);
        if (HasFatalFailure()) return;
    }
}

// More partly filled pages than a list has blocks for, whose bitmaps come and go.
TEST(SparseSetProperty, ManyPagesComeAndGo) {
    test::Random random;
    SCOPED_TRACE(random.About());
    const List list;
    PlainSparseSet plain;
    for (int i = 0; i < 40'000; ++i) {
        // By turns mostly adding and mostly removing, so that the list empties in between.
        const bool adds = i / 10'000 % 2 == 0;
        const auto item = static_cast<int32>(random.Between(0, 400) * kPage + random.Between(0, 1) * (kPage - 1));
        if (random.OneIn(8) != adds) {
            ASSERT_EQ(flist_add(list, item), plain.Add(item));
        } else {
            ASSERT_EQ(flist_remove(list, item), plain.Remove(item));
        }
        ASSERT_EQ(flist_next(list, item), plain.Next(item));
        ASSERT_EQ(flist_prev(list, item), plain.Prev(item));
        ExpectSame(list, plain);
        if (i % 5'000 == 0) CompareCopies(list, plain);
        if (HasFatalFailure()) return;
    }
    ASSERT_EQ(MembersOf(list), plain.members);
}

// A walk that looks ahead over lone members, runs, and full and empty pages finds them as they are when it gets there.
TEST(SparseSetProperty, WalksSeeWhatChangesAheadOfThem) {
    test::Random random;
    SCOPED_TRACE(random.About());
    const int32 pages = 300;
    const auto anyItem = [&random, pages] { return static_cast<int32>(random.Between(0, pages * int64{kPage})); };
    for (int round = 0; round < 10; ++round) {
        const List list;
        PlainSparseSet plain;
        for (int i = 0; i < 2'000; ++i) {
            const int32 item = anyItem();
            const auto last = item + static_cast<int32>(random.OneIn(10) ? random.Between(1, 300) : 0);
            ASSERT_EQ(flist_add_range(list, item, last), plain.AddRange(item, last));
        }
        const auto full = static_cast<int32>(random.Between(0, pages - 1)) * kPage;
        flist_add_range(list, full, full + kPage - 1);
        plain.AddRange(full, full + kPage - 1);
        int32 item = -1;
        do {
            if (random.OneIn(30)) {
                ChangeBoth(list, plain, random, item + static_cast<int32>(random.Between(21, 3 * kPage)));
            }
            const int32 next = plain.Next(item);
            ASSERT_EQ(flist_next(list, item), next);
            // Over most of a long run.
            item = next != -1 && random.OneIn(200) ? next + static_cast<int32>(random.Between(0, kPage / 2)) : next;
            if (HasFatalFailure()) return;
        } while (item != -1);
    }
}

// Ordinals over many groups of pages, full, partly filled and empty, while the set changes.
TEST(SparseSetProperty, OrdinalsHoldOverTheWholeValueSpace) {
    test::Random random;
    SCOPED_TRACE(random.About());
    const List list;
    PlainSparseSet plain;
    for (int i = 0; i < 20'000; ++i) {
        const auto item = static_cast<int32>(random.Between(0, kLargest));
        ASSERT_EQ(flist_add(list, item), plain.Add(item));
        if (i % 10 != 0) continue;
        const auto ordinal = static_cast<int32>(random.Between(1, plain.Count()));
        const int32 member = plain.members[static_cast<std::size_t>(ordinal - 1)];
        ASSERT_EQ(flist_getbyindex(list, ordinal), member);
        ASSERT_EQ(flist_getindex(list, member), ordinal);
        ASSERT_EQ(flist_next(list, item), plain.Next(item));
        ASSERT_EQ(flist_prev(list, item), plain.Prev(item));
        if (random.OneIn(3)) {
            ASSERT_TRUE(flist_remove(list, member));
            plain.Remove(member);
        }
    }
    ASSERT_EQ(MembersOf(list), plain.members);
}

TEST(SparseSetProperty, OrdinalsHoldWhereFullStretchesBreakAndFill) {
    test::Random random;
    SCOPED_TRACE(random.About());
    const List list;
    constexpr int32 kReach = 3 * kPage + 40'000;
    ASSERT_TRUE(flist_add_range(list, 0, kReach - 1));
    std::set<int32> gone;
    for (int round = 0; round < 400; ++round) {
        // Often the same few places, so that some come back.
        const int32 item = static_cast<int32>(random.Between(0, 60)) * (kReach / 61) + static_cast<int32>(round % 3);
        const bool add = random.OneIn(2);
        if (add) {
            ASSERT_TRUE(random.OneIn(2) ? flist_add(list, item) : flist_add_range(list, item, item));
            gone.erase(item);
        } else {
            ASSERT_EQ(flist_remove(list, item), gone.insert(item).second);
        }
        for (int question = 0; question < 10; ++question) {
            const int32 asked = static_cast<int32>(random.Between(0, kReach - 1));
            const auto below = static_cast<int32>(std::distance(gone.begin(), gone.upper_bound(asked)));
            ASSERT_EQ(flist_getindex(list, asked), gone.count(asked) != 0 ? -1 : asked + 1 - below) << asked;
            if (gone.count(asked) == 0) {
                ASSERT_EQ(flist_getbyindex(list, asked + 1 - below), asked);
            }
        }
        ASSERT_EQ(flist_getbyindex(list, flist_count(list)), list->max);
    }
}

TEST(SparseSet, AWalkEndsAtTheLargestValue) {
    flist* list = flist_init();
    constexpr int32 largest = 0x7FFFFFFF;
    flist_add_range(list, largest - 61, largest);
    flist_add(list, 5);
    int32 members = 0;
    for (int32 item = flist_next(list, 5); item != -1; item = flist_next(list, item)) ++members;
    EXPECT_EQ(members, 62);
    flist_destroy(list);
}

}  // namespace
}  // namespace sparse_sets_test
