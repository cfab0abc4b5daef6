#include <Utility/platform/modules.h>

namespace Torvo::platform {

HINSTANCE GetModuleHandleW(const wchar16* name) {
    return ::GetModuleHandleW(name);
}

bool GetModuleHandleExW(uint32 flags, const wchar16* name, HINSTANCE* module) {
    return ::GetModuleHandleExW(flags, name, module) != 0;
}

void* GetProcAddress(HINSTANCE module, const char* name) {
    return reinterpret_cast<void*>(::GetProcAddress(module, name));
}

uint32 GetModuleFileNameW(HINSTANCE module, wchar16* buffer, uint32 size) {
    return ::GetModuleFileNameW(module, buffer, size);
}

HINSTANCE LoadLibraryW(const wchar16* name) {
    return ::LoadLibraryW(name);
}

HINSTANCE LoadLibraryExW(const wchar16* name, void* reserved, uint32 flags) {
    return ::LoadLibraryExW(name, reserved, flags);
}

bool FreeLibrary(HINSTANCE module) {
    return ::FreeLibrary(module) != 0;
}

uint32 SetErrorMode(uint32 mode) {
    return ::SetErrorMode(mode);
}

int LoadStringW(HINSTANCE module, uint32 id, wchar16* buffer, int size) {
    return ::LoadStringW(module, id, buffer, size);
}

}  // namespace Torvo::platform
