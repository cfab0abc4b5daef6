#include <Utility/platform/runtime.h>
#include <Utility/platform/text.h>
#include <Utility/platform/threads.h>

#include <cstring>
#include <limits>

#include "code_page_conversions.h"
#include "code_page_tables.h"
#include "locale_table.h"

namespace Torvo::platform {

namespace {

// The flags that either call takes. The ones without a meaning here are taken and ignored.
constexpr uint32 MB_COMPOSITE = 0x02;
constexpr uint32 MB_USEGLYPHCHARS = 0x04;
constexpr uint32 WC_ERR_INVALID_CHARS = 0x80;
constexpr uint32 ToTextFlags = MB_PRECOMPOSED | MB_COMPOSITE | MB_USEGLYPHCHARS | MB_ERR_INVALID_CHARS;
constexpr uint32 ToBytesFlags =
    WC_DISCARDNS | WC_SEPCHARS | WC_DEFAULTCHAR | WC_ERR_INVALID_CHARS | WC_COMPOSITECHECK | WC_NO_BEST_FIT_CHARS;

constexpr uint8 PlainDefault = '?';

// The page that a symbolic number stands for at the moment; other numbers stand for themselves.
uint32 ResolvedCodePage(uint32 codePage) {
    switch (codePage) {
        case CP_ACP:
        case CP_THREAD_ACP:
            return ThreadAnsiCodePage();
        case CP_OEMCP:
            return ThreadOemCodePage();
        default:
            return codePage;
    }
}

int Fail(uint32 error) {
    SetLastError(error);
    return 0;
}

// What both calls ask of their arguments before they look at the page.
bool AreUsable(const void* source, int sourceSize, const void* target, int targetSize) {
    return source != nullptr && sourceSize != 0 && targetSize >= 0 &&
           (targetSize == 0 || (target != nullptr && target != source));
}

// UTF-8 knows no default character and has nobody to tell about it; of the flags it takes one.
uint32 WhyNotUtf8(uint32 flags, const char* defaultChar, const bool* usedDefault) {
    if (defaultChar != nullptr || usedDefault != nullptr) return ERROR_INVALID_PARAMETER;
    return (flags & ~WC_ERR_INVALID_CHARS) != 0 ? ERROR_INVALID_FLAGS : 0;
}

int Result(Conversion conversion) {
    if (conversion.error != 0) return Fail(conversion.error);
    if (conversion.count > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    return static_cast<int>(conversion.count);
}

// Why a number leads to no page: it has none, or memory for its tables is short.
uint32 WhyNoPage(uint32 codePage) {
    return CodePage::Exists(codePage) ? ERROR_NOT_ENOUGH_MEMORY : ERROR_INVALID_PARAMETER;
}

// One byte, or two in a page that has pairs.
uint16 DefaultCode(const CodePage& page, const char* defaultChar) {
    if (defaultChar == nullptr) return PlainDefault;
    const auto first = static_cast<uint8>(defaultChar[0]);
    if (!page.HasPairs() || first == 0 || defaultChar[1] == 0) return first;
    return static_cast<uint16>(first << 8 | static_cast<uint8>(defaultChar[1]));
}

Unheld UnheldBy(uint32 flags) {
    if ((flags & WC_DEFAULTCHAR) != 0) return Unheld::Default;
    return (flags & WC_DISCARDNS) != 0 ? Unheld::Base : Unheld::Separate;
}

std::size_t LengthOf(const char* source, int size) {
    return size < 0 ? std::strlen(source) + 1 : static_cast<std::size_t>(size);
}

std::size_t LengthOf(const wchar16* source, int size) {
    return size < 0 ? wcslen(source) + 1 : static_cast<std::size_t>(size);
}

}  // namespace

int MultiByteToWideChar(uint32 codePage, uint32 flags, const char* source, int sourceBytes, wchar16* target,
                        int targetUnits) {
    if (!AreUsable(source, sourceBytes, target, targetUnits)) return Fail(ERROR_INVALID_PARAMETER);
    const uint32 number = ResolvedCodePage(codePage);
    const CodePage* page = number == CP_UTF8 ? nullptr : CodePage::Find(number);
    if (number != CP_UTF8 && page == nullptr) return Fail(WhyNoPage(number));
    if ((flags & ~(page == nullptr ? MB_ERR_INVALID_CHARS : ToTextFlags)) != 0) return Fail(ERROR_INVALID_FLAGS);

    const ByteText text{reinterpret_cast<const uint8*>(source), LengthOf(source, sourceBytes)};
    const UnitTarget units{targetUnits == 0 ? nullptr : target, static_cast<std::size_t>(targetUnits)};
    const bool strict = (flags & MB_ERR_INVALID_CHARS) != 0;
    if (page == nullptr) return Result(DecodeUtf8(text, units, strict));
    return Result(page->HasPairs() ? DecodeDouble(*page, text, units, strict)
                                   : DecodeSingle(*page, text, units, strict));
}

int WideCharToMultiByte(uint32 codePage, uint32 flags, const wchar16* source, int sourceUnits, char* target,
                        int targetBytes, const char* defaultChar, bool* usedDefault) {
    if (usedDefault != nullptr) *usedDefault = false;
    if (!AreUsable(source, sourceUnits, target, targetBytes)) return Fail(ERROR_INVALID_PARAMETER);
    const uint32 number = ResolvedCodePage(codePage);
    const CodePage* page = number == CP_UTF8 ? nullptr : CodePage::Find(number);
    if (number != CP_UTF8 && page == nullptr) return Fail(WhyNoPage(number));
    if (page == nullptr) {
        const uint32 error = WhyNotUtf8(flags, defaultChar, usedDefault);
        if (error != 0) return Fail(error);
    }
    if ((flags & ~ToBytesFlags) != 0) return Fail(ERROR_INVALID_FLAGS);

    const UnitText text{source, LengthOf(source, sourceUnits)};
    const ByteTarget bytes{targetBytes == 0 ? nullptr : reinterpret_cast<uint8*>(target),
                           static_cast<std::size_t>(targetBytes)};
    if (page == nullptr) return Result(EncodeUtf8(text, bytes, (flags & WC_ERR_INVALID_CHARS) != 0));
    const EncodeRules rules{(flags & WC_COMPOSITECHECK) != 0, UnheldBy(flags), (flags & WC_NO_BEST_FIT_CHARS) != 0,
                            DefaultCode(*page, defaultChar)};
    bool used = false;
    const Conversion conversion = page->HasPairs() ? EncodeDouble(*page, text, bytes, rules, used)
                                                   : EncodeSingle(*page, text, bytes, rules, used);
    if (usedDefault != nullptr) *usedDefault = used;
    return Result(conversion);
}

bool IsValidCodePage(uint32 codePage) {
    return codePage == CP_UTF8 || CodePage::Exists(codePage);
}

bool IsDBCSLeadByteEx(uint32 codePage, uint8 byte) {
    return CodePage::IsLeadByte(ResolvedCodePage(codePage), byte);
}

}  // namespace Torvo::platform
