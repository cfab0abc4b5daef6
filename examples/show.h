// What the small examples print with: system text as UTF-8 bytes.
#pragma once

#include <Utility/memory_blocks.h>
#include <Utility/text_tools.h>

#include <string>

inline std::string Shown(const Torvo::wchar16* text) {
    int length = 0;
    void* bytes = Torvo::WStringToNewUTF8String(text, length);
    std::string shown = bytes == nullptr ? "(null)" : std::string(static_cast<const char*>(bytes));
    ffree_(&bytes);
    return shown;
}

inline const char* YesOrNo(bool answer) {
    return answer ? "yes" : "no";
}
