// Dates under a format, printed and read.
#include <Utility/errors.h>
#include <Utility/instance.h>
#include <Utility/platform/host.h>
#include <Utility/sql_dates.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    platform::SetThreadLocale(0x0409);  // English names
    const zuDATE date{2024, 2, 29};
    for (const wchar16* const format : {ZUTEXT("dd-mmm-yyyy"), ZUTEXT("dddd, mmmm d, yyyy"), ZUTEXT("mm/dd/yy")}) {
        wchar16 text[60];
        if (!zuSQLDateToString(date, format, text, 60)) return 1;
        std::printf("%-20s %s\n", Shown(format).c_str(), Shown(text).c_str());
    }

    zuDATE read{};
    if (!zuSQLStringToDate(ZUTEXT("29-feb-1999"), ZUTEXT("dd-mmm-yyyy"), &read)) return 1;
    std::printf("read: %d, a date: %s\n", DateToLiteral(&read), YesOrNo(IsValidDate(&read)));  // it is not checked

    const bool understood = zuSQLStringToDate(ZUTEXT("29-foo-1999"), ZUTEXT("dd-mmm-yyyy"), &read);
    std::printf("29-foo-1999 understood: %s, resource %d\n", YesOrNo(understood), GetResourceID(0));

    InstanceData::Destroy(false, false);
    return 0;
}
