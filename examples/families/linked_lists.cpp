// A stack of pointers, and a walk that brings what it finds to the front.
#include <Utility/linked_lists.h>

#include <cstdio>

int main() {
    using namespace Torvo;

    LINKEDLIST list;
    LL_Init(&list);
    int numbers[] = {1, 2, 3};
    for (int& number : numbers) {
        void* item = &number;
        LL_InsertFront(&list, &item);
    }

    LINKEDLIST_ENUMERATOR* walk = LLEnum_Get(&list);
    while (const void* const item = LLEnum_Next(walk)) std::printf("%d\n", *static_cast<const int*>(item));
    LL_MoveFront(&list, walk);  // the walk stands on the last one
    LLEnum_Delete(&walk);

    std::printf("the first is now %d\n", *static_cast<const int*>(LL_GetFirst(&list)));
    int count = 0;
    while (LL_RemoveFront(&list) != nullptr) ++count;  // the items are the caller's
    std::printf("%d taken out\n", count);
    return 0;
}
