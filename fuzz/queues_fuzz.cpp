// Operations on a queue and on a linked list, compared with a plain sequence.
#include <Utility/linked_lists.h>
#include <Utility/queues.h>

#include <algorithm>
#include <deque>
#include <vector>

#include "operation_stream.h"
#include "require.h"

using namespace Torvo;
using fuzz::Require;

namespace {

void RunQueue(fuzz::OperationStream stream) {
    std::vector<Q_ELEM> elements(32);
    std::vector<Q_ELEM*> spare;
    for (Q_ELEM& element : elements) spare.push_back(&element);
    QUEUE queue;
    InitQueue(&queue);
    std::deque<Q_ELEM*> plain;
    while (!stream.AtEnd()) {
        const uint32 operation = stream.Byte() % 6;
        const auto size = static_cast<int32>(plain.size());
        const int32 index = static_cast<int32>(stream.Byte() % 40) - 2;
        if (operation < 3 && !spare.empty()) {
            Q_ELEM* const element = spare.back();
            spare.pop_back();
            const int32 at = operation == 0 ? 0 : operation == 1 || index < 0 || index > size ? size : index;
            plain.insert(plain.begin() + at, element);
            if (operation < 2) Enqueue(&queue, element, static_cast<int>(operation));
            if (operation == 2) EnqueueAtIndex(&queue, element, index);
        } else if (operation >= 3) {
            const int32 at = operation == 3 ? 0 : operation == 4 ? size - 1 : index;
            Q_ELEM* const expected = at >= 0 && at < size ? plain[static_cast<std::size_t>(at)] : nullptr;
            Q_ELEM* out = nullptr;
            const bool taken = operation == 5 ? DequeueAtIndex(&queue, &out, index)
                                              : Dequeue(&queue, &out, static_cast<int>(operation) - 3);
            Require(taken == (expected != nullptr) && out == expected);
            if (!taken) continue;
            Require(out->next == nullptr);
            plain.erase(plain.begin() + at);
            spare.push_back(out);
        }
        Require(CountQueueElements(&queue) == static_cast<int32>(plain.size()));
        Require(queue.tail == (plain.empty() ? nullptr : plain.back()));
        for (std::size_t i = 0; i < plain.size(); ++i) {
            Require(GetQueueElement(&queue, static_cast<int32>(i)) == plain[i]);
            Require(InQueuePosition(&queue, plain[i]) == static_cast<int32>(i));
        }
    }
}

void RunLinkedList(fuzz::OperationStream stream) {
    char items[256];
    LINKEDLIST list;
    LL_Init(&list);
    LINKEDLIST_ENUMERATOR* walk = LLEnum_Get(&list);
    std::deque<void*> plain;
    while (!stream.AtEnd()) {
        const uint32 operation = stream.Byte() % 3;
        const uint32 argument = stream.Byte();
        LLEnum_Reset(walk);
        if (operation == 0) {
            void* item = &items[argument];
            LL_InsertFront(&list, &item);
            plain.push_front(item);
        } else if (operation == 1) {
            Require(LL_RemoveFront(&list) == (plain.empty() ? nullptr : plain.front()));
            if (!plain.empty()) plain.pop_front();
        } else if (!plain.empty()) {
            const auto at = static_cast<std::ptrdiff_t>(argument % plain.size());
            for (std::ptrdiff_t i = 0; i <= at; ++i) Require(LLEnum_Next(walk) == plain[static_cast<std::size_t>(i)]);
            LL_MoveFront(&list, walk);
            std::rotate(plain.begin(), plain.begin() + at, plain.begin() + at + 1);
        }
        Require(LL_GetFirst(&list) == (plain.empty() ? nullptr : plain.front()));
    }
    LLEnum_Reset(walk);
    for (void* item : plain) Require(LLEnum_Next(walk) == item);
    Require(LLEnum_Next(walk) == nullptr);
    LLEnum_Delete(&walk);
    while (LL_RemoveFront(&list) != nullptr) {
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8* data, std::size_t size) {
    RunQueue({data, size});
    RunLinkedList({data, size});
    return 0;
}
