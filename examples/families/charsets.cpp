// What is known of a character set: its name, the code page behind it, the bytes that a text takes in it.
#include <Utility/charsets.h>
#include <Utility/instance.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    const wchar16* const names[] = {ZUTEXT("windowslatin2"), ZUTEXT("UTF-8"), ZUTEXT("MacRoman"),
                                    ZUTEXT("WindowsJapanese")};
    for (const wchar16* const name : names) {
        const ZUCHARSET set = Str2CS(name);
        std::printf("%2d  %-16s code page %5d  %s\n", set, Shown(CS2Str(set)).c_str(), GetWinCodePage(set),
                    CharsetDBCS(set) ? "up to two bytes a character" : "");
    }
    std::printf("no set of that name: %d\n", Str2CS(ZUTEXT("Klingon")));

    const wchar16* const city = ZUTEXT("\u0141\u00f3d\u017a");  // "Łódź"
    std::printf("%s takes %llu bytes in csWindowsLatin2 and %llu in csUTF8\n", Shown(city).c_str(),
                static_cast<unsigned long long>(StringByteLength(city, csWindowsLatin2)),
                static_cast<unsigned long long>(StringByteLength(city, csUTF8)));

    InstanceData::Destroy(false, false);
    return 0;
}
