#include <Utility/memory_blocks.h>
#include <Utility/queues.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <memory>
#include <new>
#include <vector>

#include "support/random.h"

namespace queues_test {
namespace {

using namespace Torvo;

struct Item : Q_ELEM {
    explicit Item(int value_, int* deleted_ = nullptr) : value(value_), deleted(deleted_) {}
    Item(const Item&) = default;
    Item& operator=(const Item&) = default;
    ~Item() override {
        if (deleted != nullptr) ++*deleted;
    }
    int value;
    int* deleted;
};

int CompareItems(Q_ELEM* a, Q_ELEM* b) {
    const int left = static_cast<Item*>(a)->value;
    const int right = static_cast<Item*>(b)->value;
    return left < right ? -1 : left > right ? 1 : 0;
}

// A queue that deletes its elements at the end of the test.
struct Queue : QUEUE {
    Queue() { InitQueue(this); }
    Queue(std::initializer_list<int> values) : Queue() {
        for (const int value : values) Enqueue(this, new Item(value), 1);
    }
    Queue(const Queue&) = delete;
    Queue& operator=(const Queue&) = delete;
    ~Queue() { DeleteQueue(this); }
};

std::vector<int> ValuesOf(const QUEUE& queue) {
    std::vector<int> values;
    for (const Q_ELEM* walk = queue.head; walk != nullptr; walk = QueueNext(walk)) {
        values.push_back(static_cast<const Item*>(walk)->value);
    }
    return values;
}

using Values = std::vector<int>;

// The head, the links and the tail agree.
void ExpectSound(const QUEUE& queue) {
    const Q_ELEM* last = nullptr;
    for (const Q_ELEM* walk = queue.head; walk != nullptr; walk = walk->next) last = walk;
    EXPECT_EQ(queue.tail, last);
}

// What lies behind the head is not looked at: here it leads to itself, and a walk would not end.
TEST(Queue, TheHeadIsTakenOutWithoutAWalk) {
    Item head(1);
    Item behind(2);
    for (const bool byIndex : {false, true}) {
        head.next = &behind;
        behind.next = &behind;
        QUEUE queue{&head, &behind};
        Q_ELEM* out = nullptr;
        EXPECT_TRUE(byIndex ? DequeueAtIndex(&queue, &out, 0) : DequeueThisElement(&queue, &head));
        EXPECT_EQ(queue.head, &behind);
        EXPECT_EQ(queue.tail, &behind);
        EXPECT_EQ(head.next, nullptr);
    }
}

TEST(Queue, ElementStartsUnlinkedAndCopiesItsLink) {
    Item a(1);
    Item b(2);
    EXPECT_EQ(a.next, nullptr);
    a.next = &b;
    const Item copy(a);
    EXPECT_EQ(copy.next, &b);
    Item assigned(3);
    assigned = a;
    EXPECT_EQ(assigned.next, &b);
    EXPECT_EQ(QueueNext(&a), &b);
    EXPECT_EQ(QueueNext(&b), nullptr);
}

TEST(Queue, StartsEmpty) {
    QUEUE queue;
    InitQueue(&queue);
    EXPECT_TRUE(NullQueue(&queue));
    EXPECT_EQ(queue.head, nullptr);
    EXPECT_EQ(queue.tail, nullptr);
    EXPECT_EQ(CountQueueElements(&queue), 0);
}

TEST(Queue, EnqueueAtBothEnds) {
    Queue queue;
    Enqueue(&queue, new Item(2), 0);
    EXPECT_EQ(queue.head, queue.tail);
    EXPECT_FALSE(NullQueue(&queue));
    Enqueue(&queue, new Item(1), 0);
    Enqueue(&queue, new Item(3), 1);
    EXPECT_EQ(ValuesOf(queue), (Values{1, 2, 3}));
    EXPECT_EQ(CountQueueElements(&queue), 3);
    ExpectSound(queue);
}

TEST(Queue, EnqueueAtTheBackOfAnEmptyQueue) {
    Queue queue;
    auto* const element = new Item(1);
    element->next = element;
    Enqueue(&queue, element, 1);
    EXPECT_EQ(queue.head, element);
    EXPECT_EQ(queue.tail, element);
    EXPECT_EQ(element->next, nullptr);
}

// As a duplicate of an element has it: linked to where the original was.
TEST(Queue, TailEndsTheQueueWhereverItsLinkLeads) {
    Item stranger(9);
    Item first(1);
    first.next = &stranger;
    QUEUE queue{&first, &first};
    Item second(2);
    Enqueue(&queue, &second, 1);
    EXPECT_EQ(first.next, &second);
    EXPECT_EQ(second.next, nullptr);
    EXPECT_EQ(queue.tail, &second);

    second.next = &stranger;
    Q_ELEM* out = nullptr;
    EXPECT_TRUE(Dequeue(&queue, &out, 1));
    EXPECT_EQ(out, &second);
    EXPECT_EQ(second.next, nullptr);
    EXPECT_EQ(first.next, nullptr);

    first.next = &stranger;
    EXPECT_TRUE(Dequeue(&queue, &out, 0));
    EXPECT_EQ(first.next, nullptr);
    EXPECT_EQ(queue.head, nullptr);
    EXPECT_EQ(queue.tail, nullptr);
    EXPECT_EQ(stranger.next, nullptr);
}

TEST(Queue, EnqueueElsewhereDoesNothing) {
    Queue queue{1};
    Item element(2);
    element.next = &element;
    for (const int where : {2, -1, 100}) Enqueue(&queue, &element, where);
    EXPECT_EQ(ValuesOf(queue), (Values{1}));
    EXPECT_EQ(element.next, &element);
}

TEST(Queue, EnqueueAtIndex) {
    Queue queue;
    EnqueueAtIndex(&queue, new Item(5), 0);
    EXPECT_EQ(queue.head, queue.tail);
    ExpectSound(queue);
    EnqueueAtIndex(&queue, new Item(3), 0);
    EnqueueAtIndex(&queue, new Item(4), 1);
    EnqueueAtIndex(&queue, new Item(6), 3);
    EnqueueAtIndex(&queue, new Item(7), 100);
    EXPECT_EQ(static_cast<Item*>(queue.tail)->value, 7);
    EnqueueAtIndex(&queue, new Item(8), -1);
    EXPECT_EQ(ValuesOf(queue), (Values{3, 4, 5, 6, 7, 8}));
    ExpectSound(queue);
}

TEST(Queue, EnqueueAtNegativeIndexIntoAnEmptyQueue) {
    Queue queue;
    EnqueueAtIndex(&queue, new Item(5), -1);
    EXPECT_EQ(ValuesOf(queue), (Values{5}));
    ExpectSound(queue);
}

TEST(Queue, EnqueueSortedKeepsOrder) {
    Queue queue;
    for (const int value : {5, 1, 9, 3, 7}) EnqueueSorted(&queue, new Item(value), CompareItems);
    EXPECT_EQ(ValuesOf(queue), (Values{1, 3, 5, 7, 9}));
    ExpectSound(queue);
}

TEST(Queue, EnqueueSortedPutsEqualsFirst) {
    Queue queue{1, 3, 3, 5};
    for (const int value : {1, 3, 5}) {
        auto* const element = new Item(value);
        const auto before = ValuesOf(queue);
        EnqueueSorted(&queue, element, CompareItems);
        const auto first = std::find(before.begin(), before.end(), value) - before.begin();
        EXPECT_EQ(InQueuePosition(&queue, element), first) << value;
    }
    EXPECT_EQ(ValuesOf(queue), (Values{1, 1, 3, 3, 3, 5, 5}));
    ExpectSound(queue);
}

// Below the tail, but above everything that the walk meets.
int g_contradictions = 0;
int CompareContradicting(Q_ELEM*, Q_ELEM*) {
    return ++g_contradictions == 2 ? -1 : 1;
}

TEST(Queue, ComparisonThatContradictsItselfLeavesTheElementOut) {
    Queue queue{1, 2, 3};
    Item element(9);
    g_contradictions = 0;
    EnqueueSorted(&queue, &element, CompareContradicting);
    EXPECT_EQ(g_contradictions, 5);
    EXPECT_EQ(ValuesOf(queue), (Values{1, 2, 3}));
}

TEST(Queue, DequeueFromTheFront) {
    Queue queue{1, 2};
    Q_ELEM* out = nullptr;
    EXPECT_TRUE(Dequeue(&queue, &out, 0));
    const std::unique_ptr<Item> first(static_cast<Item*>(out));
    EXPECT_EQ(first->value, 1);
    EXPECT_EQ(first->next, nullptr);
    EXPECT_TRUE(Dequeue(&queue, &out, 0));
    const std::unique_ptr<Item> second(static_cast<Item*>(out));
    EXPECT_EQ(queue.head, nullptr);
    EXPECT_EQ(queue.tail, nullptr);
    EXPECT_FALSE(Dequeue(&queue, &out, 0));
    EXPECT_EQ(out, nullptr);
}

TEST(Queue, DequeueFromTheBack) {
    Queue queue{1, 2, 3};
    Q_ELEM* out = nullptr;
    EXPECT_TRUE(Dequeue(&queue, &out, 1));
    const std::unique_ptr<Item> third(static_cast<Item*>(out));
    EXPECT_EQ(third->value, 3);
    EXPECT_EQ(static_cast<Item*>(queue.tail)->value, 2);
    EXPECT_EQ(queue.tail->next, nullptr);
    EXPECT_TRUE(Dequeue(&queue, &out, 1));
    const std::unique_ptr<Item> second(static_cast<Item*>(out));
    EXPECT_TRUE(Dequeue(&queue, &out, 1));
    const std::unique_ptr<Item> first(static_cast<Item*>(out));
    EXPECT_EQ(first->value, 1);
    EXPECT_EQ(queue.head, nullptr);
    EXPECT_EQ(queue.tail, nullptr);
    out = first.get();
    EXPECT_FALSE(Dequeue(&queue, &out, 1));
    EXPECT_EQ(out, nullptr);
}

TEST(Queue, DequeueElsewhereIsTrueAndTakesNothing) {
    Queue queue{1};
    Item marker(9);
    Q_ELEM* out = &marker;
    EXPECT_TRUE(Dequeue(&queue, &out, 2));
    EXPECT_EQ(out, &marker);
    EXPECT_EQ(ValuesOf(queue), (Values{1}));
    Queue empty;
    EXPECT_FALSE(Dequeue(&empty, &out, 2));
    EXPECT_EQ(out, nullptr);
}

TEST(Queue, DequeueAtIndex) {
    Queue queue{1, 2, 3, 4};
    Item marker(9);
    for (const int32 index : {-1, 4, 100}) {
        Q_ELEM* out = &marker;
        EXPECT_FALSE(DequeueAtIndex(&queue, &out, index)) << index;
        EXPECT_EQ(out, nullptr);
    }
    for (const int32 index : {3, 1, 0, 0}) {
        Q_ELEM* out = nullptr;
        EXPECT_TRUE(DequeueAtIndex(&queue, &out, index));
        EXPECT_EQ(out->next, nullptr);
        ExpectSound(queue);
        delete out;
    }
    EXPECT_TRUE(NullQueue(&queue));
}

TEST(Queue, DequeueThisElement) {
    Queue queue{1, 2, 3};
    Item stranger(9);
    EXPECT_FALSE(DequeueThisElement(&queue, &stranger));
    EXPECT_FALSE(DequeueThisElement(&queue, nullptr));
    const std::unique_ptr<Q_ELEM> middle(queue.head->next);
    EXPECT_TRUE(DequeueThisElement(&queue, middle.get()));
    EXPECT_EQ(middle->next, nullptr);
    EXPECT_FALSE(DequeueThisElement(&queue, middle.get()));
    EXPECT_EQ(ValuesOf(queue), (Values{1, 3}));
    const std::unique_ptr<Q_ELEM> tail(queue.tail);
    EXPECT_TRUE(DequeueThisElement(&queue, tail.get()));
    EXPECT_EQ(queue.tail, queue.head);
    const std::unique_ptr<Q_ELEM> head(queue.head);
    EXPECT_TRUE(DequeueThisElement(&queue, head.get()));
    EXPECT_TRUE(NullQueue(&queue));
    EXPECT_EQ(queue.tail, nullptr);
    EXPECT_FALSE(DequeueThisElement(&queue, head.get()));
}

TEST(Queue, PositionsCountFromZero) {
    Queue queue{4, 5, 6};
    EXPECT_EQ(InQueuePosition(&queue, queue.head), 0);
    EXPECT_EQ(InQueuePosition(&queue, queue.tail), 2);
    Item stranger(9);
    EXPECT_EQ(InQueuePosition(&queue, &stranger), -1);
    EXPECT_EQ(InQueuePosition(&queue, nullptr), -1);
    EXPECT_EQ(GetQueueElement(&queue, 0), queue.head);
    EXPECT_EQ(GetQueueElement(&queue, 2), queue.tail);
    EXPECT_EQ(GetQueueElement(&queue, 3), nullptr);
    EXPECT_EQ(GetQueueElement(&queue, -1), nullptr);
    EXPECT_EQ(GetQueueElement(&queue, INT32_MIN), nullptr);
}

TEST(Queue, MergeAtTheBack) {
    Queue target{1, 2};
    Queue source{3, 4};
    Q_ELEM* const sourceHead = source.head;
    Q_ELEM* const sourceTail = source.tail;
    MergeQueues(&target, &source, 1);
    EXPECT_EQ(ValuesOf(target), (Values{1, 2, 3, 4}));
    EXPECT_EQ(target.tail, sourceTail);
    EXPECT_EQ(source.head, sourceHead);
    EXPECT_EQ(source.tail, sourceTail);
    InitQueue(&source);
}

TEST(Queue, MergeAtTheFront) {
    Queue target{3, 4};
    Queue source{1, 2};
    MergeQueues(&target, &source, 0);
    InitQueue(&source);
    EXPECT_EQ(ValuesOf(target), (Values{1, 2, 3, 4}));
    ExpectSound(target);
}

TEST(Queue, MergeWithEmptyQueues) {
    for (const int where : {0, 1}) {
        Queue target;
        Queue source{1, 2};
        MergeQueues(&target, &source, where);
        InitQueue(&source);
        EXPECT_EQ(ValuesOf(target), (Values{1, 2}));
        ExpectSound(target);
        MergeQueues(&target, &source, where);
        EXPECT_EQ(ValuesOf(target), (Values{1, 2}));
    }
}

TEST(Queue, MergeElsewhereDoesNothing) {
    Queue target{1};
    Queue empty;
    Queue source{2};
    MergeQueues(&target, &source, 2);
    MergeQueues(&empty, &source, 2);
    EXPECT_EQ(ValuesOf(target), (Values{1}));
    EXPECT_TRUE(NullQueue(&empty));
}

TEST(Queue, MergeWithItselfDoesNothing) {
    for (const int where : {0, 1}) {
        Queue queue{1, 2, 3};
        MergeQueues(&queue, &queue, where);
        EXPECT_EQ(CountQueueElements(&queue), 3);
        EXPECT_EQ(ValuesOf(queue), (Values{1, 2, 3}));
        ExpectSound(queue);
    }
}

TEST(Queue, NullIsNoElement) {
    const auto never = [](Q_ELEM*, Q_ELEM*) {
        ADD_FAILURE() << "nothing to compare";
        return 0;
    };
    Queue empty;
    Queue queue{1, 2};
    for (QUEUE* const each : {static_cast<QUEUE*>(&empty), static_cast<QUEUE*>(&queue)}) {
        Enqueue(each, nullptr, 0);
        Enqueue(each, nullptr, 1);
        EnqueueAtIndex(each, nullptr, 0);
        EnqueueAtIndex(each, nullptr, 1);
        EnqueueAtIndex(each, nullptr, 9);
        EnqueueSorted(each, nullptr, never);
    }
    EXPECT_TRUE(NullQueue(&empty));
    EXPECT_EQ(ValuesOf(queue), (Values{1, 2}));
    ExpectSound(queue);
}

TEST(Queue, DeleteCallsTheDestructors) {
    int deleted = 0;
    QUEUE queue;
    InitQueue(&queue);
    for (int i = 0; i < 3; ++i) Enqueue(&queue, new Item(i, &deleted), 1);
    DeleteQueue(&queue);
    EXPECT_EQ(deleted, 3);
    EXPECT_EQ(queue.head, nullptr);
    EXPECT_EQ(queue.tail, nullptr);
    DeleteQueue(&queue);
}

TEST(Queue, FreeCallsNone) {
    int deleted = 0;
    QUEUE queue;
    InitQueue(&queue);
    for (int i = 0; i < 3; ++i) {
        void* block = nullptr;
        ASSERT_TRUE(falloc_(sizeof(Item), &block, false, true));
        Enqueue(&queue, new (block) Item(i, &deleted), 1);
    }
    FreeQueue(&queue);
    EXPECT_EQ(deleted, 0);
    EXPECT_EQ(queue.head, nullptr);
    EXPECT_EQ(queue.tail, nullptr);
    FreeQueue(&queue);
}

// Blocks that were never constructed are elements as well.
TEST(Queue, RawBlocksAreElements) {
    QUEUE queue;
    InitQueue(&queue);
    for (int i = 0; i < 3; ++i) {
        void* block = nullptr;
        ASSERT_TRUE(falloc_(sizeof(Item), &block, false, true));
        Enqueue(&queue, static_cast<Q_ELEM*>(block), i % 2);
    }
    EXPECT_EQ(CountQueueElements(&queue), 3);
    FreeQueue(&queue);
}

TEST(Queue, DuplicateCopiesTheBlockWithItsLink) {
    void* block = nullptr;
    ASSERT_TRUE(falloc_(sizeof(Item), &block, false, true));
    auto* const original = new (block) Item(42);
    Item other(1);
    original->next = &other;
    Q_ELEM* const duplicate = DuplicateBlock(original);
    ASSERT_NE(duplicate, nullptr);
    EXPECT_NE(duplicate, original);
    EXPECT_EQ(duplicate->next, &other);
    EXPECT_EQ(static_cast<Item*>(duplicate)->value, 42);
    EXPECT_GE(memSize(duplicate), sizeof(Item));
    void* copy = duplicate;
    ffree_(&copy);
    ffree_(&block);
    EXPECT_EQ(DuplicateBlock(nullptr), nullptr);
}

TEST(QueueProperty, AnswersAsADequeDoes) {
    test::Random random;
    SCOPED_TRACE(random.About());
    std::vector<Item> items(40, Item(0));
    for (int i = 0; i < 40; ++i) items[static_cast<std::size_t>(i)].value = i;
    QUEUE queue;
    InitQueue(&queue);
    std::deque<Item*> plain;
    std::vector<Item*> free;
    for (Item& item : items) free.push_back(&item);
    for (int i = 0; i < test::kRandomOperations; ++i) {
        const auto size = static_cast<int32>(plain.size());
        const auto index = static_cast<int32>(random.Between(-1, size + 1));
        const auto at = plain.begin() + std::min(index < 0 ? size : index, size);
        if (!free.empty() && random.Between(0, 40) > size) {
            Item* const item = free.back();
            free.pop_back();
            switch (random.Between(0, 2)) {
                case 0:
                    Enqueue(&queue, item, 0);
                    plain.push_front(item);
                    break;
                case 1:
                    Enqueue(&queue, item, 1);
                    plain.push_back(item);
                    break;
                default:
                    EnqueueAtIndex(&queue, item, index);
                    plain.insert(at, item);
            }
        } else {
            Q_ELEM* out = nullptr;
            Item* expected = nullptr;
            switch (random.Between(0, 2)) {
                case 0:
                    if (size > 0) expected = plain.front();
                    ASSERT_EQ(Dequeue(&queue, &out, 0), size > 0);
                    break;
                case 1:
                    if (size > 0) expected = plain.back();
                    ASSERT_EQ(Dequeue(&queue, &out, 1), size > 0);
                    break;
                default:
                    if (index >= 0 && index < size) expected = *at;
                    ASSERT_EQ(DequeueAtIndex(&queue, &out, index), expected != nullptr);
            }
            ASSERT_EQ(out, expected);
            if (expected == nullptr) continue;
            ASSERT_EQ(expected->next, nullptr);
            plain.erase(std::find(plain.begin(), plain.end(), expected));
            free.push_back(expected);
        }
        ASSERT_EQ(queue.head, plain.empty() ? nullptr : plain.front());
        ASSERT_EQ(queue.tail, plain.empty() ? nullptr : plain.back());
        if (i % 16 == 0) {
            Values values;
            for (const Item* item : plain) values.push_back(item->value);
            ASSERT_EQ(ValuesOf(queue), values);
        }
    }
}

}  // namespace
}  // namespace queues_test
