// Numbers under a picture: what does not fit shows as "#", what does not match leaves an error.
#include <Utility/errors.h>
#include <Utility/instance.h>
#include <Utility/sql_numbers.h>

#include <cstdio>

#include "show.h"

namespace {

void Print(double value, const Torvo::wchar16* format) {
    Torvo::wchar16 text[40];
    const bool printed = Torvo::zuSQLDoubleToString(value, format, text, 40);
    std::printf("%-12s [%s]\n", Shown(format).c_str(), printed ? Shown(text).c_str() : "");
}

}  // namespace

int main() {
    using namespace Torvo;

    Print(1234.5, ZUTEXT("$9,999.99"));
    Print(12.5, ZUTEXT("9,999.99"));
    Print(-5, ZUTEXT("S999"));
    Print(5, ZUTEXT("999MI"));
    Print(1234, ZUTEXT("9.99E99"));
    Print(12345, ZUTEXT("999"));

    double value = 0;
    if (!zuSQLStringToDouble(ZUTEXT("1,234.50"), ZUTEXT("9,999.99"), &value)) return 1;
    std::printf("read: %.2f\n", value);
    const bool matches = zuSQLStringToDouble(ZUTEXT("12x"), ZUTEXT("99"), &value);
    std::printf("12x under 99 matches: %s, resource %d\n", YesOrNo(matches), GetResourceID(0));

    InstanceData::Destroy(false, false);
    return 0;
}
