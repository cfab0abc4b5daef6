// Finding, comparing, trimming, and the tokenizer that knows quotes and brackets.
#include <Utility/bounded_copy.h>
#include <Utility/instance.h>
#include <Utility/strings.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    wchar16 path[12];
    concat_backslash(ZUTEXT("C:\\maps"), path, 11);  // the room, less one for the backslash
    std::printf("%s\n", Shown(path).c_str());
    std::printf("the last backslash is unit %d\n", static_cast<int>(zuStrrchr(path, '\\') - path));
    std::printf("equal without case: %s\n", YesOrNo(striequ(path, ZUTEXT("c:\\MAPS\\"))));

    wchar16 padded[] = ZUTEXT("  two words \t");
    ltrim(padded);
    rtrim(padded);
    std::printf("[%s]\n", Shown(padded).c_str());

    wchar16 expression[] = ZUTEXT("max(a, b), 'it''s, so', c");
    wchar16* rest = expression;
    while (const wchar16* const token = zuStrtok(rest, ZUTEXT(","), true, &rest)) {
        std::printf("token: %s\n", Shown(token).c_str());
    }

    InstanceData::Destroy(false, false);
    return 0;
}
