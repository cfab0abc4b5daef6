#include <Utility/startup.h>

#include <Utility/bounded_copy.h>
#include <Utility/charsets.h>
#include <Utility/errors/resources.h>
#include <Utility/files/handle_limit.h>
#include <Utility/frame/font_names.h>
#include <Utility/frame/process_guards.h>
#include <Utility/frame/storage.h>
#include <Utility/platform/platform.h>
#include <Utility/resources.h>
#include <Utility/text/folding_tables.h>
#include <Utility/text/normalization_table.h>

// The static objects of the library above the platform layer, all in this file, because their order is that of their
// definitions: each may rely on those above it, and they are cleaned up in the reverse order. None of the clean-ups
// touches a service. What the platform layer keeps for the process needs no initialisation when the library is loaded.

namespace Torvo {

// Complete before anything runs: their codes are computed by the compiler.
constinit const NormalizationTable normalizationTables[NormalizationTableCount] = {
    NormalizationTable(anyFolding),
    NormalizationTable(latin1Folding),
    NormalizationTable(latin2Folding),
    NormalizationTable(cyrillicFolding),
    NormalizationTable(greekFolding),
    NormalizationTable(turkishFolding),
    NormalizationTable(danishFolding),
    NormalizationTable(danishNationalFolding),
    NormalizationTable(swedishFolding),
    NormalizationTable(swedishCollapsedFolding),
    NormalizationTable(swedishNationalFolding),
};

ZUGuard handleLimitGuard;

namespace {

const cMaxFileHandleHelper maxFileHandleHelper;

}  // namespace

StorageFrame storageFrame;

namespace {

constexpr uint64 FontBufferSize = 32;

// Answers whether it has a text, which the look-up of the public class never denies.
class FontTable final : public cStringTable {
public:
    using cStringTable::cStringTable;
    bool Find(int id, wchar16* text) const { return FindString(id, text); }
};

FontTable fontTable{fontNames};
ZUGuard literalsGuard;

}  // namespace

ZUGuard randomGuard;

namespace {

wchar16 defaultRotatableFont[FontBufferSize];
bool literalsFilled = false;  // guarded by literalsGuard

constexpr const wchar16* SiblingLibraries[] = {ZUTEXT("dbinfo.dll"), ZUTEXT("raster.dll"), ZUTEXT("daengine.dll")};

// The address of an entry of a sibling library, or null when the library is not in the process or has none.
void* FindSiblingEntry(const wchar16* library, const char* entry) {
    const HINSTANCE module = platform::GetModuleHandleW(library);
    return module != nullptr ? platform::GetProcAddress(module, entry) : nullptr;
}

}  // namespace

void UtilDllEnsureInit() {
    for (const wchar16* library : SiblingLibraries) {
        if (void* const entry = FindSiblingEntry(library, "DllEnsureInit")) reinterpret_cast<void (*)()>(entry)();
    }
}

void UtilDllForceTerm() {
    for (const wchar16* library : SiblingLibraries) FindSiblingEntry(library, "DllForceTerm");
}

bool InitLiterals() {
    platform::EnterCriticalSection(&literalsGuard.section);
    if (!literalsFilled) {
        wchar16 font[ResourceTextSize];
        if (fontTable.Find(system_charset() + 1, font)) {
            strcpyn(defaultRotatableFont, font, FontBufferSize);
            literalsFilled = true;
        }
    }
    const bool filled = literalsFilled;
    platform::LeaveCriticalSection(&literalsGuard.section);
    return filled;
}

wchar16 const* GetDefaultRotatableFont() {
    return defaultRotatableFont;
}

}  // namespace Torvo
