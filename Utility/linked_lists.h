// Linked lists of untyped pointers.
//
// A LINKEDLIST is a stack: items come in and go out at the front. The list allocates a node for each item and owns the
// nodes; the items are the caller's, but for LL_Destroy, which frees them too and so wants them made by falloc_
// (Utility/memory_blocks.h). An enumerator is a separate object that walks a list from front to back, and can bring the
// node that it stands on to the front.
//
// No call throws or leaves an error record. A list may not be null. Calls on one list, and on its enumerators, may not
// overlap, and a node may not be taken out while an enumerator stands on it.
//
// Example: examples/families/linked_lists.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// One item of a list.
struct LINKEDLIST_NODE {
    LINKEDLIST_NODE* next;  // null at the end
    void* data;             // the caller's pointer
};

// A list. `head` is null when it is empty.
struct LINKEDLIST {
    LINKEDLIST_NODE* head;
};

// A walk through a list.
struct LINKEDLIST_ENUMERATOR {
    LINKEDLIST* list;
    LINKEDLIST_NODE* previous;  // the node before `current`, or null
    LINKEDLIST_NODE* current;   // the node last given; null before the first step
};

// Makes the list empty. What it held is not touched.
ZUAPI void LL_Init(LINKEDLIST* list);

// Puts *item at the front. If memory is short the list stays as it is, and nothing tells.
ZUAPI void LL_InsertFront(LINKEDLIST* list, void** item);

// The first item, or null for an empty list.
ZUAPI void* LL_GetFirst(LINKEDLIST* list);

// Takes the first item out and gives it; null for an empty list.
ZUAPI void* LL_RemoveFront(LINKEDLIST* list);

// Brings the node that the enumerator stands on to the front of the list. Nothing happens for a null enumerator, or for
// one that has not made two steps. The enumerator is not put right: call LLEnum_Reset before going on with it.
ZUAPI void LL_MoveFront(LINKEDLIST* list, LINKEDLIST_ENUMERATOR* enumerator);

// Takes the items out from the front and frees each with ffree_, up to the first null item, which is taken out too, or
// to the end. What stands behind a null item stays in the list.
ZUAPI void LL_Destroy(LINKEDLIST* list);

// A new enumerator before the first item of the list, to be given back by LLEnum_Delete; null if memory is short.
ZUAPI LINKEDLIST_ENUMERATOR* LLEnum_Get(LINKEDLIST* list);

// Steps to the next item and gives it. Null at the end, where the enumerator stays on the last node, on an empty list,
// and for a null enumerator. (A null item gives null as well, but is stepped over by the next call.)
ZUAPI void* LLEnum_Next(LINKEDLIST_ENUMERATOR* enumerator);

// Goes back to before the first item; false for a null enumerator.
ZUAPI bool LLEnum_Reset(LINKEDLIST_ENUMERATOR* enumerator);

// Steps on until the last node, or until a node with a null item.
ZUAPI void LLEnum_MoveToEnd(LINKEDLIST_ENUMERATOR* enumerator);

// Frees the enumerator and sets the pointer to null. A null argument is left at that.
ZUAPI void LLEnum_Delete(LINKEDLIST_ENUMERATOR** enumerator);

}  // namespace Torvo
