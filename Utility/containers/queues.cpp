#include <Utility/memory_blocks.h>
#include <Utility/queues.h>

#include <cstring>

namespace Torvo {

namespace {

constexpr int kFront = 0;
constexpr int kBack = 1;

static_assert(sizeof(QUEUE) == 2 * sizeof(void*) && offsetof(QUEUE, tail) == sizeof(void*));
static_assert(sizeof(Q_ELEM) == 2 * sizeof(void*));

// The link of an element. It is reached without looking at the element's dynamic type, because a block from falloc_
// that was never constructed may stand in a queue too.
Q_ELEM*& Next(Q_ELEM* element) {
    constexpr Q_ELEM* Q_ELEM::*link = &Q_ELEM::next;
    return element->*link;
}

Q_ELEM* Next(const Q_ELEM* element) {
    return Next(const_cast<Q_ELEM*>(element));
}

void PushFront(QUEUE* queue, Q_ELEM* element) {
    Next(element) = queue->head;
    queue->head = element;
    if (queue->tail == nullptr) queue->tail = element;
}

// Links the element behind another of the queue, or to the front for null.
void InsertBehind(QUEUE* queue, Q_ELEM* previous, Q_ELEM* element) {
    if (previous == nullptr) return PushFront(queue, element);
    Next(element) = Next(previous);
    Next(previous) = element;
    if (queue->tail == previous) queue->tail = element;
}

// The tail ends the queue, even if its own link leads on, as that of a duplicate or of a merged source does.
void PushBack(QUEUE* queue, Q_ELEM* element) {
    InsertBehind(queue, queue->tail, element);
    Next(element) = nullptr;
}

// Unlinks the element behind another of the queue, or at the front for null; there must be one.
Q_ELEM* RemoveBehind(QUEUE* queue, Q_ELEM* previous) {
    Q_ELEM*& link = previous == nullptr ? queue->head : Next(previous);
    Q_ELEM* const element = link;
    const bool isTail = queue->tail == element;
    link = isTail ? nullptr : Next(element);
    if (isTail) queue->tail = previous;
    Next(element) = nullptr;
    return element;
}

// The element before this one; null if there is none, or if the queue does not hold it.
Q_ELEM* Before(const QUEUE* queue, const Q_ELEM* element) {
    for (Q_ELEM* walk = queue->head; walk != nullptr; walk = Next(walk)) {
        if (Next(walk) == element) return walk;
    }
    return nullptr;
}

}  // namespace

void InitQueue(QUEUE* queue) {
    *queue = {nullptr, nullptr};
}

bool NullQueue(QUEUE* queue) {
    return queue->head == nullptr;
}

int32 CountQueueElements(const QUEUE* queue) {
    int32 count = 0;
    for (const Q_ELEM* walk = queue->head; walk != nullptr; walk = Next(walk)) ++count;
    return count;
}

Q_ELEM* QueueNext(const Q_ELEM* element) {
    return element != nullptr ? Next(element) : nullptr;
}

void Enqueue(QUEUE* queue, Q_ELEM* element, int where) {
    if (element == nullptr) return;
    if (where == kFront) PushFront(queue, element);
    if (where == kBack) PushBack(queue, element);
}

void EnqueueAtIndex(QUEUE* queue, Q_ELEM* element, int32 index) {
    if (element == nullptr) return;
    // A negative index is larger than any position.
    auto rest = static_cast<uint32>(index);
    Q_ELEM* previous = nullptr;
    for (Q_ELEM* walk = queue->head; walk != nullptr && rest > 0; walk = Next(walk), --rest) previous = walk;
    InsertBehind(queue, previous, element);
}

void EnqueueSorted(QUEUE* queue, Q_ELEM* element, int (*compare)(Q_ELEM*, Q_ELEM*)) {
    if (element == nullptr) return;
    if (queue->head == nullptr || compare(element, queue->head) <= 0) return PushFront(queue, element);
    if (compare(element, queue->tail) >= 1) return PushBack(queue, element);
    Q_ELEM* previous = nullptr;
    for (Q_ELEM* walk = queue->head; walk != nullptr; previous = walk, walk = Next(walk)) {
        if (compare(element, walk) <= 0) return InsertBehind(queue, previous, element);
    }
}

bool Dequeue(QUEUE* queue, Q_ELEM** out, int where) {
    if (queue->head == nullptr) {
        *out = nullptr;
        return false;
    }
    if (where == kFront) *out = RemoveBehind(queue, nullptr);
    if (where == kBack) *out = RemoveBehind(queue, Before(queue, queue->tail));
    return true;
}

bool DequeueAtIndex(QUEUE* queue, Q_ELEM** out, int32 index) {
    *out = GetQueueElement(queue, index);
    return *out != nullptr && DequeueThisElement(queue, *out);
}

bool DequeueThisElement(QUEUE* queue, Q_ELEM* element) {
    if (element == nullptr || queue->head == nullptr) return false;
    // The head needs no walk, and whoever empties a queue from the front takes nothing else.
    Q_ELEM* const previous = queue->head == element ? nullptr : Before(queue, element);
    if (previous == nullptr && queue->head != element) return false;
    RemoveBehind(queue, previous);
    return true;
}

Q_ELEM* GetQueueElement(const QUEUE* queue, int32 index) {
    if (index < 0) return nullptr;
    Q_ELEM* walk = queue->head;
    for (; walk != nullptr && index > 0; --index) walk = Next(walk);
    return walk;
}

int32 InQueuePosition(const QUEUE* queue, const Q_ELEM* element) {
    int32 position = 0;
    for (const Q_ELEM* walk = queue->head; walk != nullptr; walk = Next(walk), ++position) {
        if (walk == element) return position;
    }
    return -1;
}

void MergeQueues(QUEUE* target, QUEUE* source, int where) {
    // Merged with itself, a queue would become a ring.
    if (target == source || source->head == nullptr || (where != kFront && where != kBack)) return;
    if (target->head == nullptr) {
        *target = *source;
    } else if (where == kFront) {
        Next(source->tail) = target->head;
        target->head = source->head;
    } else {
        Next(target->tail) = source->head;
        target->tail = source->tail;
    }
}

void DeleteQueue(QUEUE* queue) {
    for (Q_ELEM* walk = queue->head; walk != nullptr;) {
        Q_ELEM* const next = Next(walk);
        delete walk;
        walk = next;
    }
    InitQueue(queue);
}

void FreeQueue(QUEUE* queue) {
    for (Q_ELEM* walk = queue->head; walk != nullptr;) {
        Q_ELEM* const next = Next(walk);
        void* block = walk;
        ffree_(&block);
        walk = next;
    }
    InitQueue(queue);
}

Q_ELEM* DuplicateBlock(Q_ELEM* element) {
    if (element == nullptr) return nullptr;
    const uint64 size = memSize(element);
    void* block = nullptr;
    if (!falloc_(size, &block, false, true)) return nullptr;
    std::memcpy(block, static_cast<const void*>(element), size);
    return static_cast<Q_ELEM*>(block);
}

}  // namespace Torvo
