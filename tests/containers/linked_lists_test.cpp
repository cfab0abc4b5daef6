#include <Utility/linked_lists.h>
#include <Utility/memory_blocks.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <vector>

#include "support/random.h"

namespace linked_lists_test {
namespace {

using namespace Torvo;

using Items = std::vector<void*>;

// A list of pointers to its own chars, first given first; nodes are freed at the end of the test.
struct List : LINKEDLIST {
    char chars[8] = {};
    List() { LL_Init(this); }
    explicit List(int size) : List() {
        for (int i = size - 1; i >= 0; --i) Insert(&chars[i]);
    }
    List(const List&) = delete;
    List& operator=(const List&) = delete;
    ~List() {
        while (head != nullptr) LL_RemoveFront(this);
    }
    void Insert(void* item) { LL_InsertFront(this, &item); }
};

struct Enumerator {
    LINKEDLIST_ENUMERATOR* walk;
    explicit Enumerator(LINKEDLIST& list) : walk(LLEnum_Get(&list)) {}
    Enumerator(const Enumerator&) = delete;
    Enumerator& operator=(const Enumerator&) = delete;
    ~Enumerator() { LLEnum_Delete(&walk); }
    operator LINKEDLIST_ENUMERATOR*() const { return walk; }
};

Items ItemsOf(const LINKEDLIST& list) {
    Items items;
    for (const LINKEDLIST_NODE* node = list.head; node != nullptr; node = node->next) items.push_back(node->data);
    return items;
}

void* NewBlock() {
    void* block = nullptr;
    EXPECT_TRUE(falloc_(16, &block, false, true));
    return block;
}

TEST(LinkedList, IsAStack) {
    List list;
    EXPECT_EQ(LL_GetFirst(&list), nullptr);
    EXPECT_EQ(LL_RemoveFront(&list), nullptr);
    list.Insert(&list.chars[1]);
    list.Insert(&list.chars[0]);
    EXPECT_EQ(LL_GetFirst(&list), &list.chars[0]);
    EXPECT_EQ(LL_RemoveFront(&list), &list.chars[0]);
    EXPECT_EQ(LL_RemoveFront(&list), &list.chars[1]);
    EXPECT_EQ(LL_RemoveFront(&list), nullptr);
    EXPECT_EQ(list.head, nullptr);
}

TEST(LinkedList, EnumeratorStaysOnTheLastNode) {
    List list(3);
    const Enumerator walk(list);
    EXPECT_EQ(walk.walk->list, &list);
    EXPECT_EQ(walk.walk->previous, nullptr);
    EXPECT_EQ(walk.walk->current, nullptr);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(LLEnum_Next(walk), &list.chars[i]);
    EXPECT_EQ(LLEnum_Next(walk), nullptr);
    EXPECT_EQ(LLEnum_Next(walk), nullptr);
    EXPECT_EQ(walk.walk->current->data, &list.chars[2]);
    EXPECT_EQ(walk.walk->previous->data, &list.chars[1]);
}

TEST(LinkedList, EnumeratorSeesWhatComesBehindItsNode) {
    List list;
    const Enumerator walk(list);
    EXPECT_EQ(LLEnum_Next(walk), nullptr);
    list.Insert(&list.chars[0]);
    EXPECT_EQ(LLEnum_Next(walk), &list.chars[0]);
}

TEST(LinkedList, ResetStartsAgain) {
    List list(2);
    const Enumerator walk(list);
    LLEnum_Next(walk);
    LLEnum_Next(walk);
    EXPECT_TRUE(LLEnum_Reset(walk));
    EXPECT_EQ(walk.walk->current, nullptr);
    EXPECT_EQ(walk.walk->previous, nullptr);
    EXPECT_EQ(LLEnum_Next(walk), &list.chars[0]);
}

TEST(LinkedList, NullEnumerator) {
    List list(2);
    EXPECT_EQ(LLEnum_Next(nullptr), nullptr);
    EXPECT_FALSE(LLEnum_Reset(nullptr));
    LLEnum_MoveToEnd(nullptr);
    LL_MoveFront(&list, nullptr);
    EXPECT_EQ(ItemsOf(list), (Items{&list.chars[0], &list.chars[1]}));
}

TEST(LinkedList, DeleteNullsThePointer) {
    List list;
    LINKEDLIST_ENUMERATOR* walk = LLEnum_Get(&list);
    ASSERT_NE(walk, nullptr);
    LLEnum_Delete(&walk);
    EXPECT_EQ(walk, nullptr);
    LLEnum_Delete(&walk);
    LLEnum_Delete(nullptr);
}

TEST(LinkedList, MoveToEnd) {
    List list(3);
    const Enumerator walk(list);
    LLEnum_MoveToEnd(walk);
    EXPECT_EQ(walk.walk->current->data, &list.chars[2]);
    LLEnum_MoveToEnd(walk);
    EXPECT_EQ(walk.walk->current->data, &list.chars[2]);
    List empty;
    const Enumerator none(empty);
    LLEnum_MoveToEnd(none);
    EXPECT_EQ(none.walk->current, nullptr);
}

TEST(LinkedList, MoveToEndStopsAtANullItem) {
    List list(2);
    list.Insert(nullptr);
    list.Insert(&list.chars[7]);
    const Enumerator walk(list);
    LLEnum_MoveToEnd(walk);
    EXPECT_EQ(walk.walk->current, list.head->next);
    EXPECT_EQ(walk.walk->current->data, nullptr);
    LLEnum_MoveToEnd(walk);
    EXPECT_EQ(walk.walk->current->data, &list.chars[1]);
}

TEST(LinkedList, MoveFrontBringsTheCurrentNodeForward) {
    List list(4);
    const Enumerator walk(list);
    for (int step = 0; step < 3; ++step) LLEnum_Next(walk);
    LINKEDLIST_NODE* const previous = walk.walk->previous;
    LL_MoveFront(&list, walk);
    EXPECT_EQ(ItemsOf(list), (Items{&list.chars[2], &list.chars[0], &list.chars[1], &list.chars[3]}));
    EXPECT_EQ(walk.walk->previous, previous);
    EXPECT_EQ(walk.walk->current, list.head);
    // Once more without a reset: the node is in front already.
    LL_MoveFront(&list, walk);
    EXPECT_EQ(ItemsOf(list), (Items{&list.chars[2], &list.chars[0], &list.chars[1], &list.chars[3]}));
}

TEST(LinkedList, MoveFrontWithoutAPreviousNodeDoesNothing) {
    List list(2);
    const Enumerator walk(list);
    LL_MoveFront(&list, walk);
    LLEnum_Next(walk);
    LL_MoveFront(&list, walk);
    EXPECT_EQ(ItemsOf(list), (Items{&list.chars[0], &list.chars[1]}));
    LLEnum_Next(walk);
    LL_MoveFront(&list, walk);
    EXPECT_EQ(ItemsOf(list), (Items{&list.chars[1], &list.chars[0]}));
}

TEST(LinkedList, DestroyFreesTheItems) {
    List list;
    for (int i = 0; i < 3; ++i) list.Insert(NewBlock());
    LL_Destroy(&list);
    EXPECT_EQ(list.head, nullptr);
    LL_Destroy(&list);
}

TEST(LinkedList, DestroyStopsBehindANullItem) {
    List list;
    void* const kept = NewBlock();
    list.Insert(kept);
    list.Insert(nullptr);
    list.Insert(NewBlock());
    LL_Destroy(&list);
    EXPECT_EQ(ItemsOf(list), (Items{kept}));
    LL_Destroy(&list);
    EXPECT_EQ(list.head, nullptr);
}

TEST(LinkedListProperty, AnswersAsADequeDoes) {
    test::Random random;
    SCOPED_TRACE(random.About());
    List list;
    std::deque<void*> plain;
    char items[256];
    for (int i = 0; i < test::kRandomOperations; ++i) {
        const auto size = static_cast<int64>(plain.size());
        if (size == 0 || random.Between(0, 30) > size) {
            void* const item = &items[random.Between(0, 255)];
            list.Insert(item);
            plain.push_front(item);
        } else if (random.OneIn(2)) {
            ASSERT_EQ(LL_RemoveFront(&list), plain.front());
            plain.pop_front();
        } else {
            const Enumerator walk(list);
            const int64 steps = random.Between(1, size);
            for (int64 step = 0; step < steps; ++step) {
                ASSERT_EQ(LLEnum_Next(walk), plain[static_cast<std::size_t>(step)]);
            }
            LL_MoveFront(&list, walk);
            std::rotate(plain.begin(), plain.begin() + steps - 1, plain.begin() + steps);
        }
        ASSERT_EQ(LL_GetFirst(&list), plain.empty() ? nullptr : plain.front());
    }
    ASSERT_EQ(ItemsOf(list), Items(plain.begin(), plain.end()));
}

}  // namespace
}  // namespace linked_lists_test
