#include <Utility/platform/modules.h>
namespace Torvo::platform {
HINSTANCE LoadLibraryW(const wchar16*) {
    return nullptr;
}
bool FreeLibrary(HINSTANCE) {
    return false;
}
int LoadStringW(HINSTANCE, uint32, wchar16*, int) {
    return 0;
}
}  // namespace Torvo::platform
