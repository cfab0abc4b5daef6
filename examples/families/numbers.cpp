// Numbers for a data file and for a user, and read back from both.
#include <Utility/instance.h>
#include <Utility/number_parsing.h>
#include <Utility/number_printing.h>
#include <Utility/platform/host.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    platform::SetThreadLocale(0x0407);  // Germany
    wchar16 text[32];
    std::printf("neutral: %s\n", Shown(DoubleToString(1234567.25, text, 32, false, 2, PRINTF_FORMAT_F, -1)).c_str());
    std::printf("for a user: %s\n", Shown(DoubleToString(1234567.25, text, 32, true, 2, PRINTF_FORMAT_F, -1)).c_str());

    double value = 0;
    if (!StringToDoubleFmtCtl(text, &value, true)) return 1;
    std::printf("read back: %.2f\n", value);

    DoubleToDBString(text, 6, 2, 12345.678);
    std::printf("in a field of 6 units: %s\n", Shown(text).c_str());

    int number = 0;
    wchar16* end = nullptr;
    const wchar16* const input = ZUTEXT("12abc");
    const bool isNumber = StringToInt(input, &number, &end);
    std::printf("12abc: %s, %d, %d units read\n", YesOrNo(isNumber), number, static_cast<int>(end - input));
    const bool fits = StringToInt(ZUTEXT("3000000000"), &number, nullptr);
    std::printf("3000000000 fits 32 bits: %s\n", YesOrNo(fits));

    InstanceData::Destroy(false, false);
    return 0;
}
