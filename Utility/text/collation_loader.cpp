#include <Utility/text/collation_loader.h>

#include <Utility/platform/modules.h>
#include <Utility/platform/runtime.h>
#include <Utility/startup.h>

#include <iterator>

namespace Torvo {

namespace {

constexpr uint32 PathSize = 260;

// The file name of this library, without its directory; false when the system does not tell, or tells part of it.
bool OwnFileName(wchar16 (&name)[PathSize]) {
    // Any address inside the library serves.
    const auto* const address = reinterpret_cast<const wchar16*>(&LoadCollation);
    constexpr uint32 flags = platform::HandleFromAddress | platform::HandleUnchangedRefcount;
    HINSTANCE module = nullptr;
    if (!platform::GetModuleHandleExW(flags, address, &module)) return false;
    wchar16 path[PathSize];
    const uint32 length = platform::GetModuleFileNameW(module, path, PathSize);
    if (length == 0 || length >= PathSize) return false;
    platform::PathParts parts;
    return platform::_wsplitpath(path, &parts) &&
           platform::_wmakepath(name, PathSize, nullptr, nullptr, parts.name, parts.extension);
}

// Loads a library from where the system looks for libraries, else from beside this one.
HINSTANCE LoadNearby(const wchar16* library) {
    const HINSTANCE found = platform::LoadLibraryW(library);
    if (found != nullptr) return found;
    wchar16 ownName[PathSize];
    HINSTANCE beside = nullptr;
    if (OwnFileName(ownName)) LoadZULibrary(library, ownName, beside);
    return beside;
}

}  // namespace

const platform::CollationCalls* LoadCollation() {
    return platform::FindCollationCalls(LoadNearby);
}

}  // namespace Torvo
