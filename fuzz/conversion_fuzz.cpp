// Bytes to text and back in every character set, re-coding tables of any two numbers, and line ends. Source and room
// are exact-size blocks, so that one byte or unit too far is seen.
#include <Utility/conversion.h>
#include <Utility/memory_blocks.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

namespace {

using namespace Torvo;

void Require(bool condition, const char* what) {
    if (condition) return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

// Takes numbers from the front of the input.
struct Input {
    const std::uint8_t* data;
    std::size_t size;

    std::uint8_t Byte() {
        if (size == 0) return 0;
        --size;
        return *data++;
    }
    // Mostly near the range of the sets, at times anything.
    ZUCHARSET Charset() {
        const int kind = Byte();
        if (kind < 250) return static_cast<ZUCHARSET>(kind % 61 - 1);
        std::uint32_t number = 0;
        for (int i = 0; i < 4; ++i) number = number << 8 | Byte();
        return static_cast<ZUCHARSET>(number);
    }
};

void TextToBytes(const wstring16& text, ZUCHARSET cs, uint64 room, bool allowTruncate) {
    const auto out = std::make_unique<char[]>(room);
    const bool converted = ConvertSystemToMBCSChar(text.c_str(), out.get(), cs, room, allowTruncate);
    if (room == 0) Require(!converted, "no room, no result");
    if (cs == csUTF16)
        Require(converted == (room != 0 && room >= 2 * std::char_traits<wchar16>::length(text.c_str())),
                "UTF-16 reports whether all was copied");
    if (converted && !allowTruncate && GetWinCodePage(cs) > 1 && cs != csUTF16) {
        const std::size_t bytes = std::strlen(out.get());
        Require(bytes < room, "a terminator within the room");
        Require(bytes == StringByteLength(text.c_str(), cs), "as many bytes as StringByteLength says");
    }
}

void BytesToText(Input input, ZUCHARSET cs, uint64 room, bool allowTruncate) {
    const auto source = std::make_unique<char[]>(input.size);
    if (input.size != 0) std::memcpy(source.get(), input.data, input.size);
    const auto out = std::make_unique<wchar16[]>(room + 1);  // the terminator comes on top
    const bool converted = ConvertMBCSCharToSystem(source.get(), input.size, cs, out.get(), room);
    if (!converted && cs != csUTF16) return;
    if (room == 0 || input.size == 0) return;
    const wstring16 text(out.get());
    Require(text.size() <= room, "a terminator at the end of the room at the latest");
    TextToBytes(text, cs, room, allowTruncate);
    TextToBytes(text, csUTF8, 3 * text.size() + 1, false);
}

void Recode(ZUCHARSET from, ZUCHARSET to) {
    int unmapped = -77;
    unsigned char* table = nullptr;
    if (!ConvertCharset(from, to, &unmapped, &table)) {
        Require(unmapped == -77 && table == nullptr, "a refusal writes nothing");
        return;
    }
    Require(IsStrConvertNecessary(from, to), "only between two real sets");
    Require(table[0] == CharsetUnknownCode(to), "a zero byte does not survive");
    int unknown = 0;
    for (int i = 1; i < 256; ++i) {
        unknown += table[i] == CharsetUnknownCode(to) ? 1 : 0;
        Require(table[i] != 0 && table[i] != 255, "neither the first nor the last byte of the target");
    }
    if (unmapped != -77) Require(unmapped >= 0 && unmapped <= unknown, "every unmapped byte is written as unknown");
}

void LineEnds(Input input) {
    wstring16 text(input.size / 2, 0);
    if (!text.empty()) std::memcpy(text.data(), input.data, text.size() * 2);
    if (wchar16* const crlf = ConvertLFToPlatformCRLF(text.data())) {
        if (wchar16* const lf = ConvertPlatformCRLFToLF(crlf)) {
            Require(wstring16(lf).find(wchar16{'\r'}) == wstring16::npos, "no return is left");
            void* block = lf;
            ffree_(&block);
        }
        void* block = crlf;
        ffree_(&block);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input{data, size};
    const ZUCHARSET cs = input.Charset();
    const ZUCHARSET other = input.Charset();
    const uint64 room = input.Byte();
    const bool allowTruncate = input.Byte() % 2 != 0;
    BytesToText(input, cs, room, allowTruncate);
    Recode(cs, other);
    LineEnds(input);
    return 0;
}
