// A block that grows: what it held is kept, what is new is zero, and the call updates the caller's pointer.
#include <Utility/memory_blocks.h>

#include <cstdio>

int main() {
    void* block = nullptr;
    if (!falloc_(8, &block, false, true)) return 1;
    static_cast<unsigned char*>(block)[7] = 42;

    if (!frealloc_(16, &block)) return 1;
    const auto* const bytes = static_cast<const unsigned char*>(block);
    std::printf("byte 7 is %d, byte 8 is %d\n", bytes[7], bytes[8]);
    std::printf("the heap reports 16 bytes or more: %s\n", memSize(block) >= 16 ? "yes" : "no");

    // With the last argument true, a block that is large enough is left alone.
    void* const before = block;
    if (!GetMem_(10, &block, true)) return 1;
    std::printf("for 10 bytes it was moved: %s\n", block == before ? "no" : "yes");

    ffree_(&block);
    std::printf("after ffree_ the pointer is null: %s\n", block == nullptr ? "yes" : "no");
    return 0;
}
