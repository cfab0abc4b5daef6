// Bytes of any kind in every code page, to text and back. What must hold for any input: a size query tells what a
// conversion writes; a target of exactly that size is enough and one element less is not; nothing is written behind the
// size (the blocks end there, so the sanitizer would see it); and text made of valid bytes returns to text that makes
// the same bytes again.
#include <Utility/platform/text.h>
#include <Utility/platform/threads.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

#include "require.h"

namespace {

using namespace Torvo;
using fuzz::Require;

constexpr uint32 Pages[] = {28591, 28592, 28593, 28594, 28595, 28596, 28597, 28598, 28599, 1250, 1251,
                            1252,  1253,  1254,  1255,  1256,  1257,  1258,  874,   437,   720,  737,
                            775,   850,   852,   855,   857,   860,   861,   862,   863,   864,  865,
                            866,   869,   20127, 932,   936,   949,   950,   65001, 0,     1,    3};

// A block of exactly `size` elements.
template <typename Unit>
std::unique_ptr<Unit[]> Block(std::size_t size) {
    return std::unique_ptr<Unit[]>(new Unit[size]);
}

using Units = std::vector<wchar16>;
using Bytes = std::vector<char>;

bool ToText(uint32 page, uint32 flags, const char* source, int length, Units& text) {
    const int needed = platform::MultiByteToWideChar(page, flags, source, length, nullptr, 0);
    if (needed == 0) return false;
    const auto size = static_cast<std::size_t>(needed);
    const auto exact = Block<wchar16>(size);
    Require(platform::MultiByteToWideChar(page, flags, source, length, exact.get(), needed) == needed);
    if (needed > 1) {
        const auto shorter = Block<wchar16>(size - 1);
        Require(platform::MultiByteToWideChar(page, flags, source, length, shorter.get(), needed - 1) == 0);
        Require(platform::GetLastError() == ERROR_INSUFFICIENT_BUFFER);
    }
    text.assign(exact.get(), exact.get() + needed);
    return true;
}

Bytes ToBytes(uint32 page, uint32 flags, const Units& source, const char* defaultChar) {
    const auto text = Block<wchar16>(source.size());
    std::copy(source.begin(), source.end(), text.get());
    const int length = static_cast<int>(source.size());
    const int needed = platform::WideCharToMultiByte(page, flags, text.get(), length, nullptr, 0, defaultChar, nullptr);
    Require(needed > 0);
    const auto size = static_cast<std::size_t>(needed);
    const auto exact = Block<char>(size);
    Require(platform::WideCharToMultiByte(page, flags, text.get(), length, exact.get(), needed, defaultChar, nullptr) ==
            needed);
    if (needed > 1) {
        const auto shorter = Block<char>(size - 1);
        Require(platform::WideCharToMultiByte(page, flags, text.get(), length, shorter.get(), needed - 1, defaultChar,
                                              nullptr) == 0);
        Require(platform::GetLastError() == ERROR_INSUFFICIENT_BUFFER);
    }
    return Bytes(exact.get(), exact.get() + needed);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) return 0;
    const uint32 page = Pages[data[0] % std::size(Pages)];
    static constexpr uint32 flagSets[] = {0, WC_COMPOSITECHECK, WC_COMPOSITECHECK | WC_DEFAULTCHAR,
                                          WC_COMPOSITECHECK | WC_DISCARDNS, WC_NO_BEST_FIT_CHARS};
    const uint32 flags = flagSets[data[1] % std::size(flagSets)];
    const std::size_t length = size - 2;
    const auto source = Block<char>(length);
    std::copy(data + 2, data + size, source.get());

    // The input as bytes.
    Units text;
    Require(ToText(page, 0, source.get(), static_cast<int>(length), text));
    const Bytes bytes = ToBytes(page, 0, text, nullptr);
    Units strict;
    if (ToText(page, MB_ERR_INVALID_CHARS, source.get(), static_cast<int>(length), strict)) {
        Require(strict == text);
        Units again;
        Require(ToText(page, 0, bytes.data(), static_cast<int>(bytes.size()), again));
        Require(again == text);
    }

    // The input as units.
    Units units(length / 2);
    for (std::size_t i = 0; i < units.size(); ++i) {
        units[i] = static_cast<wchar16>(data[2 + 2 * i] | data[3 + 2 * i] << 8);
    }
    const bool utf8 = page == CP_UTF8;
    if (!units.empty()) ToBytes(page, utf8 ? 0 : flags, units, utf8 ? nullptr : "_");
    return 0;
}
