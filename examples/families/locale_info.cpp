// How the user writes: the locale of the thread, asked anew each time, or the fixed form.
#include <Utility/instance.h>
#include <Utility/locale_info.h>
#include <Utility/platform/host.h>

#include <cstdio>

#include "show.h"

namespace {

void Tell(const char* what, bool useLocale) {
    using namespace Torvo;

    wchar16 decimal[2] = {};
    wchar16 thousand[2] = {};
    wchar16 separator[2] = {};
    int16 group = 0;
    int16 order = 0;
    GetZULocaleNumInfo(useLocale, decimal, thousand, &group);
    GetZULocaleDateInfo(useLocale, &order, separator);
    std::printf("%s: 1%s234%s5, the date's order is %d with \"%s\"\n", what, Shown(thousand).c_str(),
                Shown(decimal).c_str(), order, Shown(separator).c_str());
}

}  // namespace

int main() {
    Torvo::platform::SetThreadLocale(0x0409);
    Tell("United States", true);
    Torvo::platform::SetThreadLocale(0x0407);  // nothing to reset: the next query sees it
    Tell("Germany      ", true);
    std::printf("its currency: %s\n", Shown(Torvo::GetCurrencySymbol()).c_str());
    Tell("fixed        ", false);

    Torvo::InstanceData::Destroy(false, false);
    return 0;
}
