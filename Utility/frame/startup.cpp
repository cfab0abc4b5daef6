#include <Utility/startup.h>

#include <Utility/bounded_copy.h>
#include <Utility/charsets.h>
#include <Utility/errors/string_resources.h>
#include <Utility/frame/storage.h>
#include <Utility/platform/platform.h>
#include <Utility/resources.h>

// The static objects of the library, all in this file, because their order is that of their definitions: each may rely
// on those above it, and they are cleaned up in the reverse order. None of the clean-ups touches a service.

namespace Torvo {

StorageFrame storageFrame;

namespace {

constexpr uint64 FontBufferSize = 32;

// The font by system charset, under the charset's number + 1; 0 ends the table. The two rows of numbers are stored unit
// for unit as they always were: they are the bytes of two Asian names seen through a Western character set.
cStringTable::sStringTable fontNames[] = {
    {1, ZUTEXT("Helvetica")},
    {2, ZUTEXT("Helvetica")},
    {3, ZUTEXT("Helvetica")},
    {4, ZUTEXT("Helvetica")},
    {5, ZUTEXT("Helvetica")},
    {6, ZUTEXT("Helvetica")},
    {7, ZUTEXT("Helvetica")},
    {8, ZUTEXT("Helvetica")},
    {9, ZUTEXT("Helvetica")},
    {10, ZUTEXT("Helvetica")},
    {11, ZUTEXT("Arial")},
    {12, ZUTEXT("Arial CE")},
    {13, ZUTEXT("Arial")},
    {14, ZUTEXT("Arial Cyr")},
    {15, ZUTEXT("Arial")},
    {16, ZUTEXT("Miriam")},
    {17, ZUTEXT("Arial")},
    {18, ZUTEXT("Arial")},
    {19, ZUTEXT("Arial")},
    {20, ZUTEXT("\u00C3\u00AC\u00C3\u00B2\u0020\u00D6\u00BE\u00D2\u00A9")},
    {21, ZUTEXT("\u00DA\u2122\u00C6\u0081\u00C3\u00BC")},
    {22, ZUTEXT("Helvetica")},
    {23, ZUTEXT("Helvetica")},
    {24, ZUTEXT("Helvetica")},
    {25, ZUTEXT("Helvetica")},
    {26, ZUTEXT("Helvetica")},
    {27, ZUTEXT("Helvetica")},
    {28, ZUTEXT("Helvetica")},
    {29, ZUTEXT("Helvetica")},
    {30, ZUTEXT("Helvetica")},
    {31, ZUTEXT("Helvetica")},
    {32, ZUTEXT("Helvetica")},
    {33, ZUTEXT("Helvetica")},
    {34, ZUTEXT("Helvetica")},
    {35, ZUTEXT("Trad. Chinese")},
    {36, ZUTEXT("Simple Chinese")},
    {37, ZUTEXT("Japanese")},
    {38, ZUTEXT("Korean")},
    {39, ZUTEXT("Browallia New")},
    {40, ZUTEXT("Arial")},
    {41, ZUTEXT("Arial")},
    {0, nullptr},
};

// Answers whether it has a text, which the look-up of the public class never denies.
class FontTable final : public cStringTable {
public:
    using cStringTable::cStringTable;
    bool Find(int id, wchar16* text) const { return FindString(id, text); }
};

FontTable fontTable{fontNames};
ZUGuard literalsGuard;

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
