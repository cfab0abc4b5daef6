// A name in an old file, its bytes in the Polish character set of its time.
#include <Utility/Utility.h>

#include <cstdio>

int main() {
    using namespace Torvo;

    const char bytes[] = "\xA3\xF3\x64\x9F";  // "Łódź"
    const ZUCHARSET set = Str2CS(ZUTEXT("WindowsLatin2"));

    wchar16 text[20];
    if (!ConvertMBCSCharToSystem(bytes, set, text, 19)) return 1;
    std::printf("%llu characters, %llu bytes as UTF-8\n", static_cast<unsigned long long>(zuStrLen(text)),
                static_cast<unsigned long long>(StringByteLength(text, Str2CS(ZUTEXT("UTF-8")))));

    char utf8[40];
    if (!ConvertSystemToMBCSChar(zuStrUpr(text), utf8, Str2CS(ZUTEXT("UTF-8")), sizeof utf8, false)) return 1;
    std::printf("%s\n", utf8);

    InstanceData::Destroy(false, false);  // this thread is done with the library
    return 0;
}
