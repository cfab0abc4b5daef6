#include <Utility/platform/path_separator.h>
#include <Utility/platform/platform.h>
#include <Utility/startup.h>

namespace Torvo {

namespace {

constexpr uint32 PathSize = 260;

// The file name of a module; false when it does not fit, since a path that was cut leads nowhere.
bool ModuleFileName(HINSTANCE module, wchar16 (&path)[PathSize]) {
    const uint32 length = platform::GetModuleFileNameW(module, path, PathSize);
    return length > 0 && length < PathSize;
}

// The file name alone. Only this much is split, so that the directory, which plays no part, may be of any length.
const wchar16* FileName(const wchar16* path) {
    const wchar16* name = path;
    for (; *path != 0; ++path) {
        if (platform::IsPathSeparator(*path)) name = path + 1;
    }
    return name;
}

}  // namespace

bool LoadZULibrary(wchar16 const* library, wchar16 const* siblingModule, HINSTANCE& result) {
    if (library == nullptr) return false;
    HINSTANCE sibling = platform::GetModuleHandleW(siblingModule);
    if (sibling == nullptr) sibling = platform::GetModuleHandleW(nullptr);
    if (sibling == nullptr) return false;

    wchar16 siblingPath[PathSize];
    platform::PathParts place;
    platform::PathParts file;
    wchar16 path[PathSize];
    result = nullptr;
    if (!ModuleFileName(sibling, siblingPath)) return false;
    if (!platform::_wsplitpath(siblingPath, &place) || !platform::_wsplitpath(FileName(library), &file)) return false;
    const wchar16* const extension = file.extension[0] != 0 ? file.extension : ZUTEXT("dll");
    if (!platform::_wmakepath(path, PathSize, place.drive, place.directory, file.name, extension)) return false;

    const uint32 formerMode = platform::SetErrorMode(platform::FailCriticalErrors);
    result = platform::LoadLibraryExW(path, nullptr, platform::LoadWithAlteredSearchPath);
    platform::SetErrorMode(formerMode);
    return result != nullptr;
}

}  // namespace Torvo
