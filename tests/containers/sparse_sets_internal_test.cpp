#include <Utility/sparse_sets.h>
#include <gtest/gtest.h>

#include <vector>

#include "containers/container_failures.h"
#include "reference/plain_sparse_set.h"
#include "support/random.h"

// Sparse sets while memory is short.

namespace sparse_sets_internal_test {
namespace {

using namespace Torvo;
using test::FailingHeap;
using test::PlainSparseSet;

constexpr int32 kPage = 262144;

using SparseSetFailures = test::ContainerFailures;

TEST_F(SparseSetFailures, CopyLeavesOutWhatLiesOutsideTheBoundsOfABitmap) {
    flist* list = flist_init();
    flist_add_range(list, 0, kPage - 1);
    {
        const FailingHeap heap(1);
        EXPECT_FALSE(flist_remove(list, 0));
        EXPECT_FALSE(flist_remove(list, kPage - 1));
    }
    EXPECT_TRUE(flist_remove(list, 100));  // a bitmap now, with a member beyond either bound
    flist* copy = flist_copy(list);
    EXPECT_EQ(flist_count(copy), kPage - 3);
    EXPECT_FALSE(flist_member(copy, 0));
    EXPECT_FALSE(flist_member(copy, kPage - 1));
    int32 members = 0;
    for (int32 item = flist_next(copy, -1); item != -1; item = flist_next(copy, item)) ++members;
    EXPECT_EQ(members, kPage - 3);
    flist_destroy(copy);
    flist_destroy(list);
}

TEST_F(SparseSetFailures, InitGivesNull) {
    const uint64 requests = test::RefuseEachRequest([](uint64 nth, FailingHeap::Mode mode) {
        FailingHeap heap(nth, mode);
        flist* list = flist_init();
        EXPECT_EQ(list == nullptr, heap.Refused());
        flist_destroy(list);
        return heap.Refused();
    });
    EXPECT_EQ(requests, 2u);
}

TEST_F(SparseSetFailures, FailedAddWidensTheBounds) {
    flist* list = flist_init();
    flist_add(list, kPage + 5);
    {
        const FailingHeap heap(1);
        EXPECT_FALSE(flist_add(list, 3));
        EXPECT_FALSE(flist_add(list, 4 * kPage));
        // Neither needs memory.
        EXPECT_TRUE(flist_add(list, kPage + 5));
        EXPECT_TRUE(flist_add(list, kPage + 9));
    }
    EXPECT_EQ(list->count, 2);
    EXPECT_EQ(list->min, 3);
    EXPECT_EQ(list->max, 4 * kPage);
    EXPECT_FALSE(flist_member(list, 3));
    EXPECT_EQ(flist_next(list, -1), 3);
    EXPECT_EQ(flist_next(list, 3), kPage + 5);
    EXPECT_EQ(flist_next(list, kPage + 9), -1);
    EXPECT_EQ(flist_prev(list, 5 * kPage), 4 * kPage);
    EXPECT_EQ(flist_prev(list, 4 * kPage), kPage + 9);
    int32 first = 0;
    int32 last = 0;
    EXPECT_EQ(flist_next_range(list, -1, first, last), 3);
    EXPECT_EQ(first, 3);
    EXPECT_EQ(last, -1);
    EXPECT_EQ(flist_getbyindex(list, 1), kPage + 5);
    EXPECT_EQ(flist_getindex(list, kPage + 9), 2);
    // A copy takes `min` for a member; a remove puts the bounds right.
    flist* copy = flist_copy(list);
    EXPECT_EQ(flist_count(copy), 3);
    EXPECT_TRUE(flist_member(copy, 3));
    EXPECT_EQ(copy->max, kPage + 9);
    EXPECT_FALSE(flist_remove(list, 3));
    EXPECT_FALSE(flist_remove(list, 4 * kPage));
    EXPECT_EQ(list->min, kPage + 5);
    EXPECT_EQ(list->max, kPage + 9);
    flist_destroy(copy);
    flist_destroy(list);
}

TEST_F(SparseSetFailures, FailedAddToAnEmptyListSetsTheBounds) {
    flist* list = flist_init();
    {
        const FailingHeap heap(1);
        EXPECT_FALSE(flist_add(list, 7));
    }
    EXPECT_EQ(list->count, 0);
    EXPECT_EQ(list->min, 7);
    EXPECT_EQ(list->max, 7);
    EXPECT_EQ(flist_next(list, -1), -1);
    flist_destroy(list);
}

TEST_F(SparseSetFailures, FailedRemoveFromAFullPage) {
    flist* list = flist_init();
    flist_add_range(list, 0, kPage - 1);
    flist_getbyindex(list, 2);
    {
        const FailingHeap heap(1);
        EXPECT_FALSE(flist_remove(list, 100));
        EXPECT_EQ(list->min, 0);
        EXPECT_FALSE(flist_remove(list, 0));
    }
    EXPECT_EQ(list->count, kPage);
    EXPECT_EQ(list->cachedIndex, 2);
    EXPECT_TRUE(flist_member(list, 0));
    EXPECT_EQ(list->min, 1);
    EXPECT_EQ(flist_next(list, -1), 1);
    EXPECT_EQ(flist_getindex(list, 0), -1);
    EXPECT_EQ(flist_getindex(list, 1), 2);
    flist_destroy(list);
}

TEST_F(SparseSetFailures, FailedGrowthLosesTheMembersAndNoMemory) {
    flist* list = flist_init();
    flist_add_range(list, 0, 3 * kPage + 5);
    flist_getindex(list, 3 * kPage);
    {
        const FailingHeap heap(1);
        EXPECT_FALSE(flist_add(list, 250 * kPage));
    }
    EXPECT_EQ(list->capacity, 500);
    EXPECT_FALSE(flist_member(list, 0));
    EXPECT_FALSE(flist_add(list, 0));
    EXPECT_FALSE(flist_add_range(list, 0, 5));
    EXPECT_FALSE(flist_remove(list, 0));
    EXPECT_EQ(flist_next(list, 0), -1);
    EXPECT_EQ(flist_prev(list, 3), -1);
    EXPECT_EQ(flist_getindex(list, 0), -1);
    EXPECT_EQ(flist_getbyindex(list, 5), -1);
    flist* copy = flist_copy(list);
    flist_destroy(copy);
    EXPECT_TRUE(flist_destroy(list));
}

TEST_F(SparseSetFailures, AddRangeKeepsWhatWasAdded) {
    test::RefuseEachRequest([](uint64 nth, FailingHeap::Mode mode) {
        flist* list = flist_init();
        bool added = false;
        bool refused = false;
        {
            const FailingHeap heap(nth, mode);
            added = flist_add_range(list, kPage - 3, 3 * kPage + 3);
            refused = heap.Refused();
        }
        EXPECT_EQ(added, !refused);
        // The first and the last page need a bitmap; the full ones between do not.
        const int32 expected = !refused ? 2 * kPage + 7 : nth == 1 ? 0 : 2 * kPage + 3;
        EXPECT_EQ(list->count, expected);
        EXPECT_EQ(list->min, kPage - 3);
        EXPECT_EQ(list->max, !refused ? 3 * kPage + 3 : nth == 1 ? kPage - 3 : 3 * kPage);
        flist_destroy(list);
        return refused;
    });
}

TEST_F(SparseSetFailures, CopyIsWholeOrNull) {
    flist* list = flist_init();
    for (const int32 item : {5, kPage, kPage + 1, 3 * kPage, 260 * kPage}) flist_add(list, item);
    const uint64 requests = test::RefuseEachRequest([list](uint64 nth, FailingHeap::Mode mode) {
        flist* copy = nullptr;
        bool refused = false;
        {
            const FailingHeap heap(nth, mode);
            copy = flist_copy(list);
            refused = heap.Refused();
        }
        EXPECT_EQ(copy == nullptr, refused);
        if (!refused) {
            EXPECT_EQ(flist_count(copy), 5);
        }
        flist_destroy(copy);
        return refused;
    });
    EXPECT_EQ(requests, 7u);
    flist_destroy(list);
}

TEST_F(SparseSetFailures, OrdinalsAreFoundWhereABoundLiesOnAnEmptyPage) {
    flist* list = flist_init();
    flist_add_range(list, 0, kPage - 1);
    EXPECT_EQ(flist_getindex(list, 5), 6);
    {
        const FailingHeap heap(1);
        EXPECT_FALSE(flist_remove(list, 0));
        EXPECT_FALSE(flist_add(list, 2 * kPage + 75712));
    }
    EXPECT_EQ(list->min, 1);
    EXPECT_EQ(list->max, 2 * kPage + 75712);
    EXPECT_EQ(flist_getbyindex(list, kPage), -1);
    EXPECT_EQ(flist_getbyindex(list, kPage - 1), kPage - 1);
    // The same at the lower end.
    {
        const FailingHeap heap(1);
        EXPECT_FALSE(flist_add(list, 250 * kPage - 1));
    }
    EXPECT_EQ(flist_getbyindex(list, kPage - 1), kPage - 1);
    flist_destroy(list);

    list = flist_init();
    flist_add(list, 3 * kPage + 7);
    {
        const FailingHeap heap(1);
        EXPECT_FALSE(flist_add(list, kPage + 9));
    }
    EXPECT_EQ(list->min, kPage + 9);
    EXPECT_EQ(flist_getbyindex(list, 1), 3 * kPage + 7);
    EXPECT_EQ(flist_getindex(list, 3 * kPage + 7), 1);
    EXPECT_EQ(flist_getindex(list, kPage + 9), -1);
    flist_destroy(list);
}

TEST_F(SparseSetFailures, OrdinalsNeedNoMemory) {
    for (const uint64 granted : {uint64{0}, uint64{1}}) {
        flist* list = flist_init();
        for (int32 item = 0; item < 3000; ++item) flist_add(list, item * 977);
        {
            const FailingHeap heap(granted + 1);
            for (int32 ordinal = 3000; ordinal > 0; ordinal -= 7) {
                ASSERT_EQ(flist_getbyindex(list, ordinal), (ordinal - 1) * 977);
                ASSERT_EQ(flist_getindex(list, (ordinal - 1) * 977), ordinal);
            }
            EXPECT_TRUE(heap.Refused());
        }
        flist_destroy(list);
    }
}

int32 Ask(int64 operation, flist* list, int32 item, int32 ordinal) {
    switch (operation) {
        case 0:
            return flist_add_range(list, item, item + 3) ? 1 : 0;
        case 1:
        case 2:
            return flist_add(list, item) ? 1 : 0;
        case 3:
        case 4:
            return flist_remove(list, item) ? 1 : 0;
        case 5:
            return flist_next(list, item);
        case 6:
            return flist_prev(list, item);
        case 7:
            return flist_getindex(list, item);
        default:
            return flist_getbyindex(list, ordinal);
    }
}

int32 Ask(int64 operation, PlainSparseSet& plain, int32 item, int32 ordinal) {
    switch (operation) {
        case 0:
            return plain.AddRange(item, item + 3) ? 1 : 0;
        case 1:
        case 2:
            return plain.Add(item) ? 1 : 0;
        case 3:
        case 4:
            return plain.Remove(item) ? 1 : 0;
        case 5:
            return plain.Next(item);
        case 6:
            return plain.Prev(item);
        case 7:
            return plain.GetIndex(item);
        default:
            return plain.GetByIndex(ordinal);
    }
}

// Random operations while the heap comes and goes, compared with the plain form under the same misfortune.
TEST_F(SparseSetFailures, AnswersAsThePlainFormDoes) {
    test::Random random;
    SCOPED_TRACE(random.About());
    for (int round = 0; round < 20; ++round) {
        flist* list = flist_init();
        PlainSparseSet plain;
        // One full page or two, the lowest of all among them or not.
        const int32 firstFull = round % 2;
        const int32 full = 1 + round / 2 % 2;
        flist_add_range(list, firstFull * kPage, (firstFull + full) * kPage - 1);
        plain.AddRange(firstFull * kPage, (firstFull + full) * kPage - 1);
        for (int i = 0; i < test::kRandomOperations / 2000; ++i) {
            const auto item = static_cast<int32>(random.Between(0, 4) * kPage + random.Between(-3, 3));
            plain.heapExhausted = random.OneIn(2);
            const auto nearby = static_cast<int32>(plain.cachedIndex + random.Between(-2, 2));
            const int32 ordinal = random.OneIn(4) ? plain.Count() - nearby : nearby;
            const int64 operation = random.Between(0, 8);
            int32 answer = 0;
            {
                const FailingHeap heap(plain.heapExhausted ? 1 : ~uint64{0} >> 1);
                answer = Ask(operation, list, item, ordinal);
            }
            ASSERT_EQ(answer, Ask(operation, plain, item, ordinal)) << operation << " " << item << " " << ordinal;
            ASSERT_EQ(list->count, plain.Count());
            ASSERT_EQ(list->min, plain.min);
            ASSERT_EQ(list->max, plain.max);
            ASSERT_EQ(list->cachedIndex, plain.cachedIndex);
            ASSERT_EQ(list->cachedItem, plain.cachedItem);
        }
        flist_destroy(list);
    }
}

}  // namespace
}  // namespace sparse_sets_internal_test
