#include <Utility/integer_lists.h>
#include <Utility/linked_lists.h>
#include <Utility/memory_blocks.h>
#include <Utility/queues.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <new>
#include <vector>

#include "containers/container_failures.h"
#include "containers/integer_list_kinds.h"
#include "support/random.h"

// Integer lists, queues and linked lists while memory is short.

namespace integer_lists_internal_test {
namespace {

using namespace Torvo;
using test::ContainerFailures;
using test::FailingHeap;
using test::MembersOf;

template <typename T>
class IntegerListFailures : public ContainerFailures {};

TYPED_TEST_SUITE(IntegerListFailures, test::ElementTypes, test::ElementNames);

template <typename Create>
void ExpectNullWhenRefused(Create create) {
    const uint64 requests = test::RefuseEachRequest([create](uint64 nth, FailingHeap::Mode mode) {
        FailingHeap heap(nth, mode);
        const auto* const object = create();
        EXPECT_EQ(object == nullptr, heap.Refused());
        delete object;
        return heap.Refused();
    });
    EXPECT_GT(requests, 0u);
}

TYPED_TEST(IntegerListFailures, WhatCannotBeCreatedIsNull) {
    ExpectNullWhenRefused([] { return ZUList<TypeParam>::Create(); });
    const std::unique_ptr<ZUList<TypeParam>> list(ZUList<TypeParam>::Create());
    for (TypeParam item = 0; item < 3000; ++item) ASSERT_TRUE(list->Add(item * 3));
    ExpectNullWhenRefused([&list] { return list->Copy(); });
    ExpectNullWhenRefused([&list] { return list->CreateEnumerator(); });
    ExpectNullWhenRefused([&list] { return list->CreateRangeEnumerator(); });
    ExpectNullWhenRefused([&list] { return list->CreateItem(); });
}

// Lone values and holes in a long run, in random order, with the heap refusing now and then.
TYPED_TEST(IntegerListFailures, RefusedChangeLeavesTheListAsItWas) {
    test::Random random;
    SCOPED_TRACE(random.About());
    const std::unique_ptr<ZUList<TypeParam>> list(ZUList<TypeParam>::Create());
    constexpr int64 kReach = 30'000;
    ASSERT_TRUE(list->AddRange(0, static_cast<TypeParam>(kReach / 2)));
    std::vector<bool> bits(kReach);
    std::fill(bits.begin(), bits.begin() + kReach / 2 + 1, true);
    int refusals = 0;
    for (int i = 0; i < 60'000; ++i) {
        const int64 value = random.Between(0, kReach - 1);
        const auto item = static_cast<TypeParam>(value);
        const bool add = random.OneIn(2);
        bool changed = false;
        bool refused = false;
        {
            const FailingHeap heap(static_cast<uint64>(random.Between(1, 3)));
            changed = add ? list->Add(item) : list->Remove(item);
            refused = heap.Refused();
        }
        // A heap that refuses to take a part of a block back does not hinder a change.
        ASSERT_TRUE(changed || refused) << value;
        refusals += changed ? 0 : 1;
        if (changed) bits[static_cast<std::size_t>(value)] = add;
        ASSERT_EQ(list->Member(item), bits[static_cast<std::size_t>(value)]);
        ASSERT_EQ(list->Count() == 0, list->Plurality() == 0);
    }
    EXPECT_GT(refusals, 0);
    std::vector<TypeParam> expected;
    for (std::size_t i = 0; i < bits.size(); ++i) {
        if (bits[i]) expected.push_back(static_cast<TypeParam>(i));
    }
    EXPECT_EQ(MembersOf(*list), expected);
    EXPECT_EQ(list->Count(), expected.size());
}

TYPED_TEST(IntegerListFailures, RefusedRangeLeavesTheListAsItWas) {
    const std::unique_ptr<ZUList<TypeParam>> list(ZUList<TypeParam>::Create());
    bool added = true;
    int refusals = 0;
    TypeParam next = 10;
    // Each range lies apart from the others, so that room for it must be found.
    for (int i = 0; i < 2000; ++i, next += 10) {
        const std::vector<TypeParam> before = i % 100 == 0 ? MembersOf(*list) : std::vector<TypeParam>();
        bool refused = false;
        {
            const FailingHeap heap(1);
            added = list->AddRange(next, next + 2);
            refused = heap.Refused();
        }
        // All of the range or nothing. A range may find its room although the split of a block was refused.
        ASSERT_TRUE(added || refused);
        ASSERT_EQ(list->Count(), uint64{3} * static_cast<uint64>(i) + (added ? 3 : 0));
        ASSERT_EQ(list->Member(next) && list->Member(next + 2), added);
        refusals += added ? 0 : 1;
        if (i % 100 == 0 && !added) {
            ASSERT_EQ(MembersOf(*list), before);
        }
        if (!added) {
            ASSERT_TRUE(list->AddRange(next, next + 2));
        }
    }
    EXPECT_GT(refusals, 0);
    EXPECT_EQ(list->Count(), 6000u);
}

using QueueFailures = ContainerFailures;

TEST_F(QueueFailures, DuplicateIsNull) {
    void* block = nullptr;
    ASSERT_TRUE(falloc_(100, &block, false, true));
    auto* const element = new (block) Q_ELEM;
    {
        const FailingHeap heap(1);
        EXPECT_EQ(DuplicateBlock(element), nullptr);
    }
    ffree_(&block);
}

using LinkedListFailures = ContainerFailures;

TEST_F(LinkedListFailures, InsertLeavesTheListAsItWas) {
    LINKEDLIST list;
    LL_Init(&list);
    int number = 0;
    void* item = &number;
    LL_InsertFront(&list, &item);
    LINKEDLIST_NODE* const head = list.head;
    {
        const FailingHeap heap(1);
        LL_InsertFront(&list, &item);
        EXPECT_EQ(LLEnum_Get(&list), nullptr);
    }
    EXPECT_EQ(list.head, head);
    EXPECT_EQ(head->next, nullptr);
    LL_RemoveFront(&list);
}

}  // namespace
}  // namespace integer_lists_internal_test
