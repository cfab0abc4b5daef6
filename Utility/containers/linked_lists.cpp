#include <Utility/linked_lists.h>
#include <Utility/memory_blocks.h>

namespace Torvo {

static_assert(sizeof(LINKEDLIST) == sizeof(void*));
static_assert(sizeof(LINKEDLIST_NODE) == 2 * sizeof(void*) && offsetof(LINKEDLIST_NODE, data) == sizeof(void*));
static_assert(sizeof(LINKEDLIST_ENUMERATOR) == 3 * sizeof(void*));
static_assert(offsetof(LINKEDLIST_ENUMERATOR, previous) == sizeof(void*));
static_assert(offsetof(LINKEDLIST_ENUMERATOR, current) == 2 * sizeof(void*));

void LL_Init(LINKEDLIST* list) {
    list->head = nullptr;
}

void LL_InsertFront(LINKEDLIST* list, void** item) {
    void* block = nullptr;
    if (!falloc_(sizeof(LINKEDLIST_NODE), &block, false, true)) return;
    auto* const node = static_cast<LINKEDLIST_NODE*>(block);
    node->data = *item;
    node->next = list->head;
    list->head = node;
}

void* LL_GetFirst(LINKEDLIST* list) {
    return list->head != nullptr ? list->head->data : nullptr;
}

void* LL_RemoveFront(LINKEDLIST* list) {
    if (list->head == nullptr) return nullptr;
    void* node = list->head;
    void* const data = list->head->data;
    list->head = list->head->next;
    ffree_(&node);
    return data;
}

void LL_MoveFront(LINKEDLIST* list, LINKEDLIST_ENUMERATOR* enumerator) {
    if (enumerator == nullptr || enumerator->previous == nullptr) return;
    LINKEDLIST_NODE* const node = enumerator->current;
    // Not so after an earlier move without a reset; moving again would tie the list into a ring.
    if (enumerator->previous->next != node) return;
    enumerator->previous->next = node->next;
    node->next = list->head;
    list->head = node;
}

void LL_Destroy(LINKEDLIST* list) {
    while (void* item = LL_RemoveFront(list)) ffree_(&item);
}

LINKEDLIST_ENUMERATOR* LLEnum_Get(LINKEDLIST* list) {
    void* block = nullptr;
    if (!falloc_(sizeof(LINKEDLIST_ENUMERATOR), &block, false, true)) return nullptr;
    auto* const enumerator = static_cast<LINKEDLIST_ENUMERATOR*>(block);
    enumerator->list = list;
    return enumerator;
}

void* LLEnum_Next(LINKEDLIST_ENUMERATOR* enumerator) {
    if (enumerator == nullptr) return nullptr;
    LINKEDLIST_NODE* const current = enumerator->current;
    LINKEDLIST_NODE* const next = current != nullptr ? current->next : enumerator->list->head;
    if (next == nullptr) return nullptr;
    if (current != nullptr) enumerator->previous = current;
    enumerator->current = next;
    return next->data;
}

bool LLEnum_Reset(LINKEDLIST_ENUMERATOR* enumerator) {
    if (enumerator == nullptr) return false;
    enumerator->current = nullptr;
    enumerator->previous = nullptr;
    return true;
}

void LLEnum_MoveToEnd(LINKEDLIST_ENUMERATOR* enumerator) {
    while (LLEnum_Next(enumerator) != nullptr) {
    }
}

void LLEnum_Delete(LINKEDLIST_ENUMERATOR** enumerator) {
    if (enumerator == nullptr) return;
    void* block = *enumerator;
    ffree_(&block);
    *enumerator = nullptr;
}

}  // namespace Torvo
