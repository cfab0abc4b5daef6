// The calls of an application's start: neighbouring libraries, and the font for the user's character set.
#include <Utility/instance.h>
#include <Utility/platform/host.h>
#include <Utility/startup.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    platform::SetThreadLocale(0x0409);  // before the first call that makes the services
    UtilDllEnsureInit();                // none of the sibling libraries is loaded, so nothing is called

    std::printf("before: [%s]\n", Shown(GetDefaultRotatableFont()).c_str());
    std::printf("a font is chosen: %s\n", YesOrNo(InitLiterals()));
    std::printf("after: [%s]\n", Shown(GetDefaultRotatableFont()).c_str());

    HINSTANCE library = nullptr;
    std::printf("a neighbour that is not there: %s\n", YesOrNo(LoadZULibrary(ZUTEXT("missing.dll"), nullptr, library)));

    InstanceData::Destroy(false, false);
    return 0;
}
