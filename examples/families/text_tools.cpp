// Quotes, the pattern match of SQL, and line ends written as a backslash and an "n".
#include <Utility/errors.h>
#include <Utility/instance.h>
#include <Utility/text_tools.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    wchar16 quoted[20];
    wchar16 plain[20];
    quotestring(quoted, ZUTEXT("it's"), 20, ZUTEXT("'"));
    unquotestring(plain, quoted, 20, ZUTEXT("'"));
    std::printf("%s and back: %s\n", Shown(quoted).c_str(), Shown(plain).c_str());

    bool match = false;
    Like(ZUTEXT("Liechtenstein"), ZUTEXT("L%ein"), ZUTEXT(""), &match);
    std::printf("like L%%ein: %s\n", YesOrNo(match));
    Like(ZUTEXT("100%"), ZUTEXT("100!%"), ZUTEXT("!"), &match);
    std::printf("like 100!%% with the escape !: %s\n", YesOrNo(match));
    const bool good = Like(ZUTEXT("100%"), ZUTEXT("1!0"), ZUTEXT("!"), &match);
    std::printf("the pattern 1!0 is good: %s, error %d\n", YesOrNo(good), GetErrorNum(0));

    wchar16 lines[] = ZUTEXT("one\r\ntwo");
    FilterNewline(lines, lines, 8, false);
    std::printf("%s\n", Shown(lines).c_str());

    InstanceData::Destroy(false, false);
    return 0;
}
