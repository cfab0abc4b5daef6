// Queues, linked lists, integer lists, sparse sets, point containers, and blocks of memory.
#include <Utility/integer_lists.h>
#include <Utility/linked_lists.h>
#include <Utility/memory_blocks.h>
#include <Utility/point_containers.h>
#include <Utility/queues.h>
#include <Utility/sparse_sets.h>
#include <faults/operations.h>

#include <memory>

namespace Torvo::test {

namespace container_operations {
namespace {

// A queue of two elements of the caller's own.
struct SmallQueue {
    SmallQueue() {
        InitQueue(&queue);
        Enqueue(&queue, &first, 1);
        Enqueue(&queue, &second, 1);
    }
    Q_ELEM first;
    Q_ELEM second;
    Q_ELEM third;
    QUEUE queue;
    Q_ELEM* out = nullptr;
};

Operations QueueOperations() {
    return {
        {"InitQueue",
         [] {
             QUEUE queue;
             InitQueue(&queue);
             return queue.head == nullptr;
         }},
        {"NullQueue",
         [] {
             SmallQueue small;
             return !NullQueue(&small.queue);
         }},
        {"CountQueueElements",
         [] {
             const SmallQueue small;
             return CountQueueElements(&small.queue) == 2;
         }},
        {"QueueNext",
         [] {
             const SmallQueue small;
             return QueueNext(&small.first) == &small.second;
         }},
        {"Enqueue",
         [] {
             SmallQueue small;
             Enqueue(&small.queue, &small.third, 0);
             return small.queue.head == &small.third;
         }},
        {"EnqueueAtIndex",
         [] {
             SmallQueue small;
             EnqueueAtIndex(&small.queue, &small.third, 1);
             return small.first.next == &small.third;
         }},
        {"EnqueueSorted",
         [] {
             SmallQueue small;
             EnqueueSorted(&small.queue, &small.third, [](Q_ELEM*, Q_ELEM*) { return 0; });
             return small.queue.head == &small.third;
         }},
        {"Dequeue",
         [] {
             SmallQueue small;
             return Dequeue(&small.queue, &small.out, 0) && small.out == &small.first;
         }},
        {"DequeueAtIndex",
         [] {
             SmallQueue small;
             return DequeueAtIndex(&small.queue, &small.out, 1) && small.out == &small.second;
         }},
        {"DequeueThisElement",
         [] {
             SmallQueue small;
             return DequeueThisElement(&small.queue, &small.second);
         }},
        {"GetQueueElement",
         [] {
             const SmallQueue small;
             return GetQueueElement(&small.queue, 1) == &small.second;
         }},
        {"InQueuePosition",
         [] {
             const SmallQueue small;
             return InQueuePosition(&small.queue, &small.second) == 1;
         }},
        {"MergeQueues",
         [] {
             SmallQueue small;
             SmallQueue other;
             MergeQueues(&small.queue, &other.queue, 1);
             return CountQueueElements(&small.queue) == 4;
         }},
        {"DeleteQueue",
         [] {
             QUEUE queue;
             InitQueue(&queue);
             DeleteQueue(&queue);
             return NullQueue(&queue);
         }},
        {"FreeQueue",
         [] {
             QUEUE queue;
             InitQueue(&queue);
             FreeQueue(&queue);
             return NullQueue(&queue);
         }},
        {"DuplicateBlock",
         [](Trial& trial) {
             void* block = nullptr;
             falloc_(sizeof(Q_ELEM), &block, false, true);
             Q_ELEM* copy = nullptr;
             trial.Try(
                 [&] {
                     copy = DuplicateBlock(static_cast<Q_ELEM*>(block));
                     return copy != nullptr;
                 },
                 [&] { return copy == nullptr; });
             void* copied = copy;
             ffree_(&copied);
             ffree_(&block);
         }},
    };
}

// A list with two items, which are the caller's.
struct SmallList {
    SmallList() {
        LL_Init(&list);
        for (void* item : {static_cast<void*>(&items[0]), static_cast<void*>(&items[1])}) LL_InsertFront(&list, &item);
    }
    ~SmallList() {
        while (LL_RemoveFront(&list) != nullptr) continue;
    }
    SmallList(const SmallList&) = delete;
    SmallList& operator=(const SmallList&) = delete;

    int items[2] = {};
    LINKEDLIST list;
};

// Calls on a list that exists already, so that what they ask for themselves is seen.
bool OnAList(bool (*call)(SmallList&, LINKEDLIST_ENUMERATOR&)) {
    static SmallList small;
    LINKEDLIST_ENUMERATOR walk{&small.list, nullptr, nullptr};
    return call(small, walk);
}

Operations LinkedListOperations() {
    return {
        {"LL_Init",
         [] {
             LINKEDLIST list;
             LL_Init(&list);
             return list.head == nullptr;
         }},
        {"LL_InsertFront",
         [](Trial& trial) {
             SmallList small;
             void* item = &small;
             trial.Try(
                 [&] {
                     LL_InsertFront(&small.list, &item);
                     return LL_GetFirst(&small.list) == item;
                 },
                 [&] { return LL_GetFirst(&small.list) == &small.items[1]; });
         }},
        {"LL_GetFirst",
         [] { return OnAList([](SmallList& small, auto&) { return LL_GetFirst(&small.list) != nullptr; }); }},
        {"LL_RemoveFront",
         [] {
             LINKEDLIST list;
             LL_Init(&list);
             return LL_RemoveFront(&list) == nullptr;
         }},
        {"LL_MoveFront",
         [] {
             return OnAList([](SmallList& small, LINKEDLIST_ENUMERATOR& walk) {
                 LLEnum_Next(&walk);
                 void* const second = LLEnum_Next(&walk);
                 LL_MoveFront(&small.list, &walk);
                 return LL_GetFirst(&small.list) == second;
             });
         }},
        {"LL_Destroy",
         [] {
             LINKEDLIST list;
             LL_Init(&list);
             LL_Destroy(&list);
             return list.head == nullptr;
         }},
        {"LLEnum_Get",
         [](Trial& trial) {
             SmallList small;
             LINKEDLIST_ENUMERATOR* walk = nullptr;
             trial.Try(
                 [&] {
                     walk = LLEnum_Get(&small.list);
                     return walk != nullptr;
                 },
                 [&] { return walk == nullptr; });
             LLEnum_Delete(&walk);
         }},
        {"LLEnum_Next",
         [] { return OnAList([](auto&, LINKEDLIST_ENUMERATOR& walk) { return LLEnum_Next(&walk) != nullptr; }); }},
        {"LLEnum_Reset",
         [] { return OnAList([](auto&, LINKEDLIST_ENUMERATOR& walk) { return LLEnum_Reset(&walk); }); }},
        {"LLEnum_MoveToEnd",
         [] {
             return OnAList([](auto&, LINKEDLIST_ENUMERATOR& walk) {
                 LLEnum_MoveToEnd(&walk);
                 return LLEnum_Next(&walk) == nullptr;
             });
         }},
        {"LLEnum_Delete",
         [](Trial& trial) {
             SmallList small;
             trial.Try([&] {
                 LINKEDLIST_ENUMERATOR* walk = LLEnum_Get(&small.list);
                 if (walk == nullptr) return false;
                 LLEnum_Delete(&walk);
                 return walk == nullptr;
             });
         }},
    };
}

// Tries a call on a list of two runs; a failure leaves it as it was.
void TryOnList(Trial& trial, bool (*call)(ZUList<long32>&)) {
    const std::unique_ptr<ZUList<long32>> list(ZUList<long32>::Create());
    ASSERT_TRUE(list->AddRange(10, 20) && list->AddRange(40, 50));
    trial.Try([&] { return call(*list); }, [&] { return list->Count() == 22 && list->Member(45); });
}

// Adds members apart from each other until the list has had to grow; what was added before a failure stays.
template <typename T>
void TryToFill(Trial& trial) {
    const std::unique_ptr<ZUList<T>> list(ZUList<T>::Create());
    constexpr T members = 1000;
    T added = 0;
    trial.Try(
        [&] {
            while (added < members && list->Add((added + 1) << 8)) ++added;
            return added == members;
        },
        [&] { return list->Count() == static_cast<uint64>(added) && !list->Member((added + 1) << 8); });
    EXPECT_EQ(list->Count(), static_cast<uint64>(members));
    EXPECT_TRUE(list->Member(1 << 8) && list->Member(members << 8));
}

Operations IntegerListOperations() {
    return {
        {"ZUList<int>::Create", [](Trial& trial) { TryToMake(trial, [] { return ZUList<long32>::Create(); }); }},
        {"ZUList<unsigned int>::Create",
         [](Trial& trial) { TryToMake(trial, [] { return ZUList<ulong32>::Create(); }); }},
        {"ZUList<unsigned long>::Create",
         [](Trial& trial) { TryToMake(trial, [] { return ZUList<uint64>::Create(); }); }},
        {"ZUList::Add, to tagged words", [](Trial& trial) { TryToFill<long32>(trial); }},
        {"ZUList::Add, to pairs", [](Trial& trial) { TryToFill<uint64>(trial); }},
        {"ZUList::AddRange",
         [](Trial& trial) { TryOnList(trial, [](ZUList<long32>& list) { return list.AddRange(500, 9000); }); }},
        {"ZUList::Remove",
         [](Trial& trial) { TryOnList(trial, [](ZUList<long32>& list) { return list.Remove(15); }); }},
        {"ZUList::Copy",
         [](Trial& trial) {
             const std::unique_ptr<ZUList<long32>> list(ZUList<long32>::Create());
             list->AddRange(10, 20);
             TryToMake(trial, [&] { return list->Copy(); });
         }},
        {"ZUList::CreateEnumerator",
         [](Trial& trial) {
             const std::unique_ptr<ZUList<long32>> list(ZUList<long32>::Create());
             TryToMake(trial, [&] { return list->CreateEnumerator(); });
         }},
        {"ZUList::CreateRangeEnumerator",
         [](Trial& trial) {
             const std::unique_ptr<ZUList<long32>> list(ZUList<long32>::Create());
             TryToMake(trial, [&] { return list->CreateRangeEnumerator(); });
         }},
        {"ZUList::CreateItem",
         [](Trial& trial) {
             const std::unique_ptr<ZUList<long32>> list(ZUList<long32>::Create());
             TryToMake(trial, [&] { return list->CreateItem(); });
         }},
    };
}

// A set with members on two pages, which ends with the object.
struct SmallSet {
    SmallSet() {
        flist_add_range(set, 10, 20);
        flist_add(set, 300000);
    }
    ~SmallSet() { flist_destroy(set); }
    SmallSet(const SmallSet&) = delete;
    SmallSet& operator=(const SmallSet&) = delete;

    flist* set = flist_init();
};

flist* SetOfAll() {
    static SmallSet small;
    return small.set;
}

Operations SparseSetOperations() {
    return {
        {"flist_init",
         [](Trial& trial) {
             flist* set = nullptr;
             trial.Try(
                 [&] {
                     set = flist_init();
                     return set != nullptr;
                 },
                 [&] { return set == nullptr; });
             flist_destroy(set);
         }},
        {"flist_destroy",
         [] {
             flist* none = nullptr;
             flist_destroy(none);
             return none == nullptr;
         }},
        {"flist_copy",
         [](Trial& trial) {
             const SmallSet small;
             flist* copy = nullptr;
             trial.Try(
                 [&] {
                     copy = flist_copy(small.set);
                     return copy != nullptr;
                 },
                 [&] { return copy == nullptr; });
             EXPECT_EQ(flist_count(copy), 12);
             flist_destroy(copy);
         }},
        {"flist_add",
         [](Trial& trial) {
             const SmallSet small;
             trial.Try([&] { return flist_add(small.set, 1000000); },
                       [&] {
                           // The bounds are widened all the same, and nothing else.
                           int32 min = 0;
                           int32 max = 0;
                           return !flist_member(small.set, 1000000) && flist_count(small.set) == 12 &&
                                  flist_minmax(small.set, &min, &max) && min == 10 && max == 1000000;
                       });
             EXPECT_EQ(flist_count(small.set), 13);
         }},
        {"flist_add, beyond the pages that there are",
         [](Trial& trial) {
             SmallSet small;
             trial.Try([&] { return flist_add(small.set, 100000000); },
                       [&] {
                           if (small.set->pages != nullptr) {
                               return flist_count(small.set) == 12 && flist_member(small.set, 300000) &&
                                      !flist_member(small.set, 100000000);
                           }
                           // A set whose array could not grow has no members, and is good for nothing but to be
                           // destroyed.
                           const bool isLost = !flist_member(small.set, 15) && !flist_add(small.set, 15) &&
                                               !flist_remove(small.set, 15);
                           const bool isGone = flist_destroy(small.set) && small.set == nullptr;
                           small.set = flist_init();
                           return isLost && isGone && flist_add_range(small.set, 10, 20) &&
                                  flist_add(small.set, 300000);
                       });
             EXPECT_TRUE(flist_member(small.set, 100000000));
             EXPECT_EQ(flist_count(small.set), 13);
         }},
        {"flist_add_range",
         [](Trial& trial) {
             const SmallSet small;
             trial.Try([&] { return flist_add_range(small.set, 200000, 2000000); },
                       [&] { return flist_member(small.set, 15) && flist_member(small.set, 300000); });
             EXPECT_EQ(flist_count(small.set), 11 + 1800001);
         }},
        {"flist_remove",
         [](Trial& trial) {
             const SmallSet small;
             flist_add_range(small.set, 0, 262143);
             trial.Try([&] { return flist_remove(small.set, 77); }, [&] { return flist_member(small.set, 77); });
         }},
        {"flist_member", [] { return flist_member(SetOfAll(), 15); }},
        {"flist_member_in_range", [] { return flist_member_in_range(SetOfAll(), 15); }},
        {"flist_count", [] { return flist_count(SetOfAll()) == 12; }},
        {"flist_plurality", [] { return flist_plurality(SetOfAll()) == 2; }},
        {"flist_minmax",
         [] {
             int32 min = 0;
             int32 max = 0;
             return flist_minmax(SetOfAll(), &min, &max) && min == 10 && max == 300000;
         }},
        {"flist_next", [] { return flist_next(SetOfAll(), 20) == 300000; }},
        {"flist_prev", [] { return flist_prev(SetOfAll(), 300000) == 20; }},
        {"flist_next_range",
         [] {
             int32 first = 0;
             int32 last = 0;
             flist_next_range(SetOfAll(), 0, first, last);
             return first == 10;
         }},
        {"flist_enumerate",
         [] {
             flist_enumerate_status status;
             return flist_enumerate(SetOfAll(), true, &status) == 10;
         }},
        {"flist_getbyindex", [] { return flist_getbyindex(SetOfAll(), 1) == 10; }},
        {"flist_getbyindex_brute", [] { return flist_getbyindex_brute(SetOfAll(), 1) == 10; }},
        {"flist_getindex", [] { return flist_getindex(SetOfAll(), 10) == 1; }},
    };
}

constexpr DPNT points[] = {{1, 2}, {3, 4}, {5, 6}};

Operations PointOperations() {
    return {
        {"DPNTContainer::Create", [](Trial& trial) { TryToMake(trial, [] { return DPNTContainer::Create(2, 2); }); }},
        {"DPNTContainer::Append",
         [](Trial& trial) {
             const std::unique_ptr<DPNTContainer> container(DPNTContainer::Create(1, 1));
             uint64 count = 77;
             trial.Try([&] { return container->Append(points, 3); },
                       [&] { return container->GetPoints(count) == nullptr && count == 0; });
             const DPNT* const stored = container->GetPoints(count);
             EXPECT_TRUE(count == 3 && stored[2].y == 6);
         }},
        {"DPNTContainer::Reset",
         [](Trial& trial) {
             const std::unique_ptr<DPNTContainer> container(DPNTContainer::Create(1, 1));
             EXPECT_TRUE(container->Append(points, 1));
             uint64 count = 77;
             trial.Try([&] { return container->Reset(1000); },
                       [&] { return container->GetPoints(count) == nullptr && count == 0; });
             EXPECT_TRUE(container->GetPoints(count) != nullptr && count == 0);
         }},
        {"DPNTContainer::Reserve",
         [](Trial& trial) {
             const std::unique_ptr<DPNTContainer> container(DPNTContainer::Create(1, 1));
             EXPECT_TRUE(container->Append(points, 1));
             uint64 count = 77;
             // The array is lost with what it held.
             const bool isReserved = trial.Try([&] { return container->Reserve(1000); },
                                               [&] { return container->GetPoints(count) == nullptr && count == 0; });
             EXPECT_TRUE(container->GetPoints(count) != nullptr && count == (isReserved ? 1u : 0u));
         }},
        {"PointParserFactory::Create",
         [](Trial& trial) {
             const std::unique_ptr<DPNTContainer> container(DPNTContainer::Create(1, 1));
             TryToMake(trial,
                       [&] { return PointParserFactory::Create(container.get(), ZUTEXT(","), ZUTEXT(" "), true); });
         }},
        {"PointParserFactory::ParsePoints",
         [](Trial& trial) {
             const std::unique_ptr<DPNTContainer> container(DPNTContainer::Create(1, 1));
             const std::unique_ptr<PointParserFactory> parser(
                 PointParserFactory::Create(container.get(), ZUTEXT(","), ZUTEXT(" "), true));
             // So long that room is made for all before the first is read.
             const wstring16 text =
                 ZUTEXT("1.0000000000000000,2.0000000000000000 3.0000000000000000,4.0000000000000000 ")
                     ZUTEXT("5.0000000000000000,6.0000000000000000");
             uint64 count = 0;
             trial.Try([&] { return parser->ParsePoints(text.c_str(), text.size(), true); },
                       [&] { return container->GetPoints(count) == nullptr && count == 0; });
             const DPNT* const read = container->GetPoints(count);
             EXPECT_TRUE(count == 3 && read[2].y == 6);
         }},
        {"PointParserFactory::ParsePoints, whose points find no room",
         [](Trial& trial) {
             const std::unique_ptr<DPNTContainer> container(DPNTContainer::Create(1, 1));
             const std::unique_ptr<PointParserFactory> parser(
                 PointParserFactory::Create(container.get(), ZUTEXT(","), ZUTEXT(" "), true));
             bool isParsed = false;
             uint64 count = 0;
             trial.Try(
                 [&] {
                     isParsed = parser->ParsePoints(ZUTEXT("1,2 3,4 5,6"), 11, true);
                     container->GetPoints(count);
                     return isParsed && count == 3;
                 },
                 // A point that cannot be kept loses those before it, and the parser does not look.
                 [&] {
                     const DPNT* const kept = container->GetPoints(count);
                     return isParsed && count < 3 && (kept != nullptr) == (count > 0);
                 });
         }},
    };
}

Operations BlockOperations() {
    return {
        {"falloc_",
         [](Trial& trial) {
             void* block = nullptr;
             trial.Try([&] { return falloc_(100, &block, false, true); }, [&] { return block == nullptr; });
             ffree_(&block);
         }},
        {"frealloc_",
         [](Trial& trial) {
             void* block = nullptr;
             falloc_(100, &block, false, true);
             void* const before = block;
             trial.Try([&] { return frealloc_(100000, &block); },
                       [&] {
                           // The former block stays the caller's.
                           const bool isTold = block == nullptr;
                           void* former = before;
                           ffree_(&former);
                           return isTold;
                       });
             ffree_(&block);
         }},
        {"GetMem_",
         [](Trial& trial) {
             void* block = nullptr;
             trial.Try([&] { return GetMem_(100, &block, true); }, [&] { return block == nullptr; });
             ffree_(&block);
         }},
        {"ffree_",
         [] {
             void* block = nullptr;
             ffree_(&block);
             return block == nullptr;
         }},
        {"memSize", [] { return memSize(nullptr) == 0; }},
    };
}

}  // namespace
}  // namespace container_operations

Operations ContainerOperations() {
    using namespace container_operations;
    Operations all = QueueOperations();
    for (const auto family :
         {LinkedListOperations, IntegerListOperations, SparseSetOperations, PointOperations, BlockOperations}) {
        for (const Operation& operation : family()) all.push_back(operation);
    }
    return all;
}

}  // namespace Torvo::test
