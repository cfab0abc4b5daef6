#include "code_page_encoder.h"

#include <unicode/unorm2.h>

#include <array>

namespace Torvo::platform {

namespace {

struct Range {
    wchar16 first, last;
};

// The second units of the canonical decompositions in the basic plane, with what lies between them in one script. The
// vowels and final consonants of Hangul are not among them: the calls leave those alone.
constexpr Range combining[] = {
    {0x0300, 0x0345}, {0x05B4, 0x05C2}, {0x0653, 0x0655}, {0x093C, 0x093C}, {0x09BC, 0x09BE}, {0x09D7, 0x09D7},
    {0x0A3C, 0x0A3C}, {0x0B3C, 0x0B3E}, {0x0B56, 0x0B57}, {0x0BBE, 0x0BBE}, {0x0BD7, 0x0BD7}, {0x0C56, 0x0C56},
    {0x0CC2, 0x0CC2}, {0x0CD5, 0x0CD6}, {0x0D3E, 0x0D3E}, {0x0D57, 0x0D57}, {0x0DCA, 0x0DDF}, {0x0F72, 0x0F80},
    {0x0FB5, 0x0FB7}, {0x102E, 0x102E}, {0x1B35, 0x1B35}, {0x3099, 0x309A},
};

// Whether some unit with that upper byte combines; answers for most text at once.
constexpr auto hasCombining = [] {
    std::array<bool, 256> result{};
    for (const Range& range : combining) result[range.first >> 8] = true;
    return result;
}();

}  // namespace

bool MayCombine(wchar16 unit) {
    if (!hasCombining[unit >> 8]) return false;
    for (const Range& range : combining) {
        if (unit <= range.last) return unit >= range.first;
    }
    return false;
}

wchar16 Composed(wchar16 base, wchar16 mark) {
    static const UNormalizer2* const composer = [] {
        UErrorCode status = U_ZERO_ERROR;
        const UNormalizer2* instance = unorm2_getNFCInstance(&status);
        return U_SUCCESS(status) ? instance : nullptr;
    }();
    const UChar32 composed = composer == nullptr ? -1 : unorm2_composePair(composer, base, mark);
    return composed > 0 && composed <= 0xFFFF ? static_cast<wchar16>(composed) : wchar16{0};
}

}  // namespace Torvo::platform
