// Uses a piece of every kind that the library exports: global functions, free functions, a class, a service.
#include <Utility/Utility.h>

#include <cstdio>

int main() {
    void* block = nullptr;
    if (!falloc_(100, &block, false, true) || memSize(block) < 100) return 1;
    ffree_(&block);

    const Torvo::cStringTable none;
    const Torvo::wstring16 text = none[59];
    if (text != ZUTEXT("System Error")) return 2;

    if (Torvo::CheckEsc() || Torvo::GetInstanceData() == nullptr) return 3;
    Torvo::InstanceData::Destroy(false, false);

    std::puts("Torvo Utility " TORVO_UTILITY_VERSION);
    return 0;
}
