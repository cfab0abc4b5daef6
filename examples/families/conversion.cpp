// The three roads: bytes to system text and back, byte to byte by a table, and line ends.
#include <Utility/conversion.h>
#include <Utility/instance.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    // One unit less than there is: the terminator comes on top.
    wchar16 text[20];
    if (!ConvertMBCSCharToSystem("\xCC\xE8\xED\xF1\xEA", csWindowsCyrillic, text, 19)) return 1;
    std::printf("%s\n", Shown(text).c_str());

    // What the set does not hold becomes "_".
    char bytes[20];
    if (!ConvertSystemToMBCSChar(ZUTEXT("Minsk \u041C"), bytes, csWindowsLatin1, sizeof bytes, false)) return 1;
    std::printf("%s\n", bytes);

    // Room for four bytes: refused, or cut.
    std::printf("it fits: %s\n", YesOrNo(ConvertSystemToMBCSChar(ZUTEXT("Minsk"), bytes, csWindowsLatin1, 4, false)));
    std::printf("it may be cut: %s, %.4s\n",
                YesOrNo(ConvertSystemToMBCSChar(ZUTEXT("Minsk"), bytes, csWindowsLatin1, 4, true)), bytes);

    // csMacRoman has no code page but a table: byte 0x8E means what byte 0xE9 means in csWindowsLatin1.
    unsigned char* table = nullptr;
    int unmapped = 0;
    if (!ConvertCharset(csMacRoman, csWindowsLatin1, &unmapped, &table)) return 1;
    std::printf("0x8E becomes 0x%X; %d bytes have no counterpart\n", table[0x8E], unmapped);

    wchar16 lines[] = ZUTEXT("one\rtwo\r\n");
    void* block = ConvertPlatformCRLFToLF(lines);
    std::printf("%s", Shown(static_cast<const wchar16*>(block)).c_str());
    ffree_(&block);

    InstanceData::Destroy(false, false);
    return 0;
}
