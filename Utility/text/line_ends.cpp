#include <Utility/conversion.h>

#include <Utility/frame/new_block.h>
#include <Utility/platform/runtime.h>
#include <Utility/text/line_end_units.h>

#include <algorithm>

namespace Torvo {

namespace {

// The first unit of a line end at or after `text`, or the terminator.
const wchar16* FindLineEnd(const wchar16* text) {
    while (*text != CR && *text != LF && *text != 0) ++text;
    return text;
}

// Behind the line end that begins at `lineEnd`.
const wchar16* SkipLineEnd(const wchar16* lineEnd) {
    return lineEnd + (lineEnd[0] == CR && lineEnd[1] == LF ? 2 : 1);
}

uint64 CountLineEnds(const wchar16* text) {
    uint64 count = 0;
    for (const wchar16* end = FindLineEnd(text); *end != 0; end = FindLineEnd(SkipLineEnd(end))) ++count;
    return count;
}

// Copies `text`, terminator included, with `newline` for every line end.
void CopyWithLineEnds(const wchar16* text, const wchar16* newline, wchar16* out) {
    const uint64 newlineLength = platform::wcslen(newline);
    for (;;) {
        const wchar16* const end = FindLineEnd(text);
        out = std::copy(text, end, out);
        if (*end == 0) break;
        out = std::copy_n(newline, newlineLength, out);
        text = SkipLineEnd(end);
    }
    *out = 0;
}

// The block for the rewritten text: the text's own length, `spare` units and the terminator.
wchar16* Rewrite(const wchar16* text, const wchar16* newline, uint64 spare) {
    wchar16* const block = NewBlock<wchar16>(platform::wcslen(text) + spare + 1);
    if (block != nullptr) CopyWithLineEnds(text, newline, block);
    return block;
}

}  // namespace

// Counting the line ends first finds the room that is needed with one allocation, however long the text.
wchar16* ConvertLFToPlatformCRLF(wchar16* text) {
    constexpr uint64 leastSpare = 40;
    if (text == nullptr) return nullptr;
    const uint64 lineEnds = CountLineEnds(text);
    if (lineEnds == 0) return nullptr;
    const wchar16* const newline = CharsetSlashN(system_charset());
    return Rewrite(text, newline, std::max(leastSpare, lineEnds * (platform::wcslen(newline) - 1)));
}

wchar16* ConvertPlatformCRLFToLF(wchar16* text) {
    static constexpr wchar16 onlyLF[] = {LF, 0};
    if (text == nullptr || platform::wcschr(text, CR) == nullptr) return nullptr;
    return Rewrite(text, onlyLF, 0);
}

}  // namespace Torvo
