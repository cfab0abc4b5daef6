#include <Utility/platform/text.h>

namespace Torvo::platform {

int MultiByteToWideChar(uint32 codePage, uint32 flags, const char* source, int sourceBytes, wchar16* target,
                        int targetUnits) {
    return ::MultiByteToWideChar(codePage, flags, source, sourceBytes, target, targetUnits);
}

int WideCharToMultiByte(uint32 codePage, uint32 flags, const wchar16* source, int sourceUnits, char* target,
                        int targetBytes, const char* defaultChar, bool* usedDefault) {
    BOOL used = FALSE;
    const int written = ::WideCharToMultiByte(codePage, flags, source, sourceUnits, target, targetBytes, defaultChar,
                                              usedDefault != nullptr ? &used : nullptr);
    if (usedDefault != nullptr) *usedDefault = used != FALSE;
    return written;
}

bool IsValidCodePage(uint32 codePage) {
    return ::IsValidCodePage(codePage) != 0;
}

bool IsDBCSLeadByteEx(uint32 codePage, uint8 byte) {
    return ::IsDBCSLeadByteEx(codePage, byte) != 0;
}

wchar16* CharNextW(const wchar16* text) {
    return ::CharNextW(text);
}

wchar16* CharPrevW(const wchar16* start, const wchar16* current) {
    return ::CharPrevW(start, current);
}

char* CharNextExA(uint16 codePage, const char* text, uint32 flags) {
    return ::CharNextExA(codePage, text, flags);
}

bool CharNextStepsOverMarks() {
    // "e" with a combining acute accent: Windows takes both as one character, its stand-ins may not.
    static const wchar16 text[] = L"e\x0301x";
    static const bool stepsOver = ::CharNextW(text) == text + 2;
    return stepsOver;
}

wchar16* CharLowerW(wchar16* text) {
    return ::CharLowerW(text);
}

wchar16* CharUpperW(wchar16* text) {
    return ::CharUpperW(text);
}

// A single unit travels in the low half of the pointer argument, and back in that of the result.
wchar16 CharLowerW(wchar16 unit) {
    return static_cast<wchar16>(reinterpret_cast<ULONG_PTR>(::CharLowerW(reinterpret_cast<LPWSTR>(ULONG_PTR{unit}))));
}

wchar16 CharUpperW(wchar16 unit) {
    return static_cast<wchar16>(reinterpret_cast<ULONG_PTR>(::CharUpperW(reinterpret_cast<LPWSTR>(ULONG_PTR{unit}))));
}

bool IsCharLowerW(wchar16 unit) {
    return ::IsCharLowerW(unit) != 0;
}

bool IsCharUpperW(wchar16 unit) {
    return ::IsCharUpperW(unit) != 0;
}

}  // namespace Torvo::platform
