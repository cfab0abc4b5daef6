// Integers as runs, of the three element types; two designs stand behind them, which differ at the edges.
#include <Utility/integer_lists.h>

#include <cstdio>
#include <memory>

#include "show.h"

int main() {
    using namespace Torvo;

    const std::unique_ptr<ZUList<uint64>> list(ZUList<uint64>::Create());
    list->Add(5);
    list->AddRange(20, 10);
    list->Remove(15);
    std::printf("%llu members, 15 is one: %s\n", static_cast<unsigned long long>(list->Count()),
                YesOrNo(list->Member(15)));

    const std::unique_ptr<ZUListRangeEnumerator<uint64>> runs(list->CreateRangeEnumerator());
    uint64 first = 0;
    uint64 last = 0;
    while (runs->Next(first, last)) {
        std::printf("%llu to %llu\n", static_cast<unsigned long long>(first), static_cast<unsigned long long>(last));
    }

    const std::unique_ptr<ZUList<long32>> words(ZUList<long32>::Create());
    words->Add(4);
    words->AddRange(5, 7);  // in this list, and in no other, the lone neighbour 4 is dropped
    std::printf("ZUList<long32> holds 4: %s, takes -1: %s\n", YesOrNo(words->Member(4)), YesOrNo(words->Add(-1)));

    const std::unique_ptr<ZUListItem<long32>> items(words->CreateItem());
    long32 item = 0;
    for (uint64 ordinal = 1; items->GetItem(ordinal, item); ++ordinal) {
        std::printf("number %d is %d\n", static_cast<int>(ordinal), static_cast<int>(item));
    }
    return 0;
}
