// Intrusive queues.
//
// The objects of a queue derive from Q_ELEM, as their first base, and carry the link themselves; an object lies in one
// queue at a time. Elements are put in and taken out at either end or by position. A queue does not own its elements
// until it is asked to delete or to free them, and those two differ on purpose: DeleteQueue is for elements made by
// `new`, FreeQueue for blocks made by falloc_ (Utility/memory_blocks.h). The caller picks the one that matches.
//
// The words used below. `where` is 0 for the front and 1 for the back. Positions count from 0 at the front. The link
// leads one way, so whatever needs the element before another walks from the front.
//
// No call allocates but DuplicateBlock, none throws, and none leaves an error record. A queue may not be null. A null
// element is not put in. Calls on one queue may not overlap.
//
// Example: examples/families/queues.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// What an element of a queue derives from.
class Q_ELEM {
public:
    Q_ELEM() : next(nullptr) {}
    // A copy is linked to where the original is.
    Q_ELEM(const Q_ELEM&) = default;
    Q_ELEM& operator=(const Q_ELEM&) = default;
    virtual ~Q_ELEM() = default;

    Q_ELEM* next;  // the element behind this one; null at the end
};

// A queue. Both fields are null when it is empty.
struct QUEUE {
    Q_ELEM* head;
    Q_ELEM* tail;
};

// Makes the queue empty. What it held is not touched.
ZUAPI void InitQueue(QUEUE* queue);

// Whether the queue is empty.
ZUAPI bool NullQueue(QUEUE* queue);

// The number of elements, found by walking.
ZUAPI int32 CountQueueElements(const QUEUE* queue);

// The element behind this one, or null.
ZUAPI Q_ELEM* QueueNext(const Q_ELEM* element);

// Puts the element at the front (0) or at the back (1). Any other `where` does nothing.
ZUAPI void Enqueue(QUEUE* queue, Q_ELEM* element, int where);

// Puts the element before the one at that position. An index past the end, or below 0, puts it at the back.
ZUAPI void EnqueueAtIndex(QUEUE* queue, Q_ELEM* element, int32 index);

// Puts the element before the first that does not sort before it, so also before its equals. compare(a, b) is above 0
// where a sorts after b; the queue must be in that order. A comparison that contradicts itself may leave the element
// out.
ZUAPI void EnqueueSorted(QUEUE* queue, Q_ELEM* element, int (*compare)(Q_ELEM*, Q_ELEM*));

// Takes the element at the front (0) or at the back (1) out, unlinked, and writes it to *out. An empty queue writes
// null and gives false. Any other `where` gives true on a queue that is not empty, and neither it nor *out is touched.
ZUAPI bool Dequeue(QUEUE* queue, Q_ELEM** out, int where);

// Takes the element at that position out; false, with null in *out, if there is none.
ZUAPI bool DequeueAtIndex(QUEUE* queue, Q_ELEM** out, int32 index);

// Takes this element out; false if the queue does not hold it.
ZUAPI bool DequeueThisElement(QUEUE* queue, Q_ELEM* element);

// The element at that position, or null.
ZUAPI Q_ELEM* GetQueueElement(const QUEUE* queue, int32 index);

// The position of the element, or -1 if the queue does not hold it.
ZUAPI int32 InQueuePosition(const QUEUE* queue, const Q_ELEM* element);

// Puts all elements of the source before (0) or behind (1) those of the target, in their order. Any other `where` does
// nothing, nor does a queue merged with itself. The source is left as it is and leads to the same elements: InitQueue
// it before using it again.
ZUAPI void MergeQueues(QUEUE* target, QUEUE* source, int where);

// Deletes every element through its destructor, and makes the queue empty.
ZUAPI void DeleteQueue(QUEUE* queue);

// Frees every element's block without calling a destructor, and makes the queue empty.
ZUAPI void FreeQueue(QUEUE* queue);

// A copy of the block that the element is the start of, byte for byte, `next` included; the caller frees it with
// ffree_. The block must come from falloc_ or its like, which know its size. Null for null and if memory is short.
ZUAPI Q_ELEM* DuplicateBlock(Q_ELEM* element);

}  // namespace Torvo
