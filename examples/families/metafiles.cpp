// The bytes of a metafile, copied to a block of movable memory.
#include <Utility/metafiles.h>
#include <Utility/platform/host.h>

#include <cstdio>
#include <cstring>

#include "show.h"

int main() {
    using namespace Torvo;

    // The smallest metafile in the older form, in 16-bit words: a header of nine words, and the record that ends it.
    const uint16 words[] = {1, 9, 0x0300, 12, 0, 0, 3, 0, 0, 3, 0, 0};
    const HMETAFILE metafile = platform::SetMetaFileBitsEx(sizeof words, words);
    if (metafile == nullptr) return 1;

    void* const block = GetMetaFileBits(metafile);
    const void* const bytes = platform::GlobalLock(block);
    std::printf("at least as large: %s, the same bytes: %s\n", YesOrNo(platform::GlobalSize(block) >= sizeof words),
                YesOrNo(bytes != nullptr && std::memcmp(bytes, words, sizeof words) == 0));
    platform::GlobalUnlock(block);
    std::printf("freed: %s\n", YesOrNo(platform::GlobalFree(block) == nullptr));

    platform::DeleteMetaFile(metafile);
    std::printf("of null: %s\n", GetMetaFileBits(nullptr) == nullptr ? "null" : "a block");
    return 0;
}
