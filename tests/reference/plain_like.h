// The pattern match in its plain form, which tries every place again for every run of any characters. What the library
// does is compared with this.
#pragma once

#include <Utility/strings.h>

namespace Torvo::test {

// `errors` counts the bad escapes that were met.
inline bool PlainLike(const wchar16* text, const wchar16* pattern, const wchar16* escape, bool* match, int* errors) {
    *match = false;
    for (;;) {
        wchar16 literal = 0;
        if (*escape != 0 && *pattern == *escape) {
            pattern = zuNextChar(pattern);
            if (*pattern != '%' && *pattern != '_' && *pattern != *escape) {
                ++*errors;
                *match = false;
                return false;
            }
            literal = *pattern;
        } else if (*pattern == '%') {
            const wchar16* const rest = zuNextChar(pattern);
            for (; *text != 0; text = zuNextChar(text)) {
                if (!PlainLike(text, rest, escape, match, errors)) return false;
                if (*match) return true;
            }
            *match = *rest == 0;
            return true;
        } else if (*pattern == 0) {
            *match = *text == 0;
            return true;
        } else if (*pattern != '_') {
            literal = *pattern;
        }
        if (literal != 0 && *text != literal) return true;
        if (literal == 0 && *text == 0) return true;
        text = zuNextChar(text);
        pattern = zuNextChar(pattern);
    }
}

}  // namespace Torvo::test
