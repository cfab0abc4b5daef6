#include "code_page_encoder.h"

#include <unicode/unorm2.h>

namespace Torvo::platform {

namespace {

// The character made of both, 0 if there is none.
wchar16 Composed(wchar16 base, wchar16 mark) {
    static const UNormalizer2* const composer = [] {
        UErrorCode status = U_ZERO_ERROR;
        const UNormalizer2* instance = unorm2_getNFCInstance(&status);
        return U_SUCCESS(status) ? instance : nullptr;
    }();
    const UChar32 composed = composer == nullptr ? -1 : unorm2_composePair(composer, base, mark);
    return composed > 0 && composed <= 0xFFFF ? static_cast<wchar16>(composed) : wchar16{0};
}

}  // namespace

Encoder::Step Encoder::Compose(const wchar16* at) {
    const wchar16 character = Composed(at[0], at[1]);
    if (character == 0) return {CodeOrDefault(at[0]), 1};
    const uint16 code = CodeOf(character);
    if (code != NoCode) return {code, 2};
    if (rules_.unheld == Unheld::Separate) return {CodeOrDefault(at[0]), 1};
    return {rules_.unheld == Unheld::Base ? CodeOrDefault(at[0]) : Default(), 2};
}

}  // namespace Torvo::platform
