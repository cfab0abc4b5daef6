// A short table of names with a record each, in one block.
#include <Utility/memory_blocks.h>
#include <Utility/string_cache.h>

#include <cstdio>

#include "show.h"

namespace {

struct Country {
    int millions;
};

}  // namespace

int main() {
    using namespace Torvo;

    wchar16* names = nullptr;  // a cache without entries
    const Country sweden{10};
    const Country chile{19};
    const Country swedenAgain{11};
    CacheString(&names, ZUTEXT("Sweden"), &sweden, sizeof(Country), true);
    CacheString(&names, ZUTEXT("Chile"), &chile, sizeof(Country), true);
    CacheString(&names, ZUTEXT("SWEDEN"), &swedenAgain, sizeof(Country), true);  // the same name: a new record

    wchar16 name[40];
    Country country;
    for (int i = 0; GetIthCachedString(names, i, name, 40, &country, sizeof country); ++i) {
        std::printf("%s: %d\n", Shown(name).c_str(), country.millions);
    }
    std::printf("Peru is there: %s\n", YesOrNo(GetCachedStructure(names, ZUTEXT("Peru"), nullptr, sizeof country)));

    void* block = names;
    ffree_(&block);
    return 0;
}
