// Byte text in the machine's ANSI code page, and in UTF-8 for those who ask for it.

#include <Utility/frame/new_block.h>
#include <Utility/platform/runtime.h>
#include <Utility/platform/text.h>
#include <Utility/text_tools.h>

#include <climits>
#include <cstring>
#include <new>

namespace Torvo {

namespace {

constexpr int toTerminator = -1;

// The platform counts in 32 bits. What is left of a larger size may be too small or below 0, which the platform
// refuses; it is never larger than the buffer.
int PlatformSize(uint64 size) {
    return static_cast<int>(static_cast<uint32>(size));
}

int ToUnits(const char* source, int bytes, wchar16* target, int units) {
    return platform::MultiByteToWideChar(CP_ACP, 0, source, bytes, target, units);
}

int ToBytes(uint32 codePage, const wchar16* source, int units, char* target, int bytes) {
    return platform::WideCharToMultiByte(codePage, 0, source, units, target, bytes, nullptr, nullptr);
}

// A new block with all of `source`, and its size in `bytes`; null where the platform tells no size.
char* NewBytes(uint32 codePage, const wchar16* source, int& bytes) {
    const int needed = ToBytes(codePage, source, toTerminator, nullptr, 0);
    if (needed <= 0) return nullptr;
    char* const block = NewBlock<char>(static_cast<uint64>(needed));
    if (block == nullptr) return nullptr;
    *block = 0;
    ToBytes(codePage, source, toTerminator, block, needed);
    bytes = needed;
    return block;
}

// A string of as many elements as the conversion tells when it has no target. Empty where it tells none, and where
// memory is short: what is thrown then stays in here.
template <typename String, typename Convert>
String Converted(Convert convert) {
    try {
        const int needed = convert(nullptr, 0);
        if (needed <= 0) return {};
        String result(static_cast<std::size_t>(needed), 0);
        convert(result.data(), needed);
        return result;
    } catch (const std::bad_alloc&) {
        return {};
    }
}

wstring16 NewText(const char* source, std::size_t bytes) {
    if (bytes > INT_MAX) return {};
    return Converted<wstring16>([source, count = static_cast<int>(bytes)](wchar16* target, int size) {
        return ToUnits(source, count, target, size);
    });
}

std::string NewByteText(const wchar16* source, std::size_t units) {
    if (units > INT_MAX) return {};
    return Converted<std::string>([source, count = static_cast<int>(units)](char* target, int size) {
        return ToBytes(CP_ACP, source, count, target, size);
    });
}

}  // namespace

wchar16* StringToExistingWString(wchar16* dst, uint64 size, const char* src) {
    if (src == nullptr) return nullptr;
    ToUnits(src, toTerminator, dst, PlatformSize(size));
    return dst;
}

wchar16* StringToNewWString(const char* src) {
    if (src == nullptr) return nullptr;
    const uint64 units = std::strlen(src) + 1;
    wchar16* const block = NewBlock<wchar16>(units);
    if (block == nullptr) return nullptr;
    *block = 0;
    ToUnits(src, toTerminator, block, PlatformSize(units));
    return block;
}

wstring16 StringToWString(const char* src) {
    return src != nullptr ? NewText(src, std::strlen(src)) : wstring16();
}

wstring16 StringToWString(const std::string& src) {
    return NewText(src.data(), src.size());
}

char* WStringToExistingString(char* dst, uint64 size, const wchar16* src) {
    if (src == nullptr) return nullptr;
    ToBytes(CP_ACP, src, toTerminator, dst, PlatformSize(size));
    return dst;
}

char* WStringToNewString(const wchar16* src) {
    int bytes = 0;
    return src != nullptr ? NewBytes(CP_ACP, src, bytes) : nullptr;
}

char* WStringToNewUTF8String(const wchar16* src, int& length) {
    if (src == nullptr) return nullptr;
    int bytes = 0;
    char* const block = NewBytes(CP_UTF8, src, bytes);
    if (block != nullptr) length = bytes - 1;
    return block;
}

std::string WStringToString(const wchar16* src) {
    return src != nullptr ? NewByteText(src, platform::wcslen(src)) : std::string();
}

std::string WStringToString(const wstring16& src) {
    return NewByteText(src.data(), src.size());
}

}  // namespace Torvo
