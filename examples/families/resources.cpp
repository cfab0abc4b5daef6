// Texts by number, from a table that is compiled into the program, and what comes back for a number that is not there.
#include <Utility/instance.h>
#include <Utility/resources.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    cStringTable::sStringTable rows[] = {
        {101, ZUTEXT("The table ^0 is open.")}, {102, ZUTEXT("The table ^0 has no rows.")}, {0, nullptr},  // the end
    };
    const cStringTable texts(rows);

    // Both pointers stay good: a text is kept for the next nine look-ups.
    const wchar16* const first = texts[101];
    const wchar16* const second = texts[102];
    std::printf("%s\n%s\n", Shown(first).c_str(), Shown(second).c_str());

    std::printf("%s\n", Shown(texts[7]).c_str());
    std::printf("%s\n", Shown(texts[59]).c_str());

    InstanceData::Destroy(false, false);
    return 0;
}
