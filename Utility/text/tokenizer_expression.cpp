// The tokenizer for expressions: the form of zuStrtok with quotes and brackets.

#include <Utility/platform/runtime.h>
#include <Utility/platform/text.h>
#include <Utility/platform/unit_set.h>
#include <Utility/strings.h>
#include <Utility/text/unit_classes.h>

namespace Torvo {

namespace {

bool IsQuote(wchar16 c) {
    return c == '"' || c == '\'' || c == '`';
}

bool IsOpeningBracket(wchar16 c) {
    return c == '(' || c == '[';
}

bool IsClosingBracket(wchar16 c) {
    return c == ')' || c == ']';
}

wchar16* SkipBlanks(wchar16* p) {
    while (*p != 0 && IsBlank(*p)) p = platform::CharNextW(p);
    return p;
}

// The first delimiter outside quotes and brackets, or the terminator.
//
// Within quotes only their own character counts; within brackets, only brackets. Neither looks for the other, so at
// most one of `quote` and `depth` is set.
wchar16* FindTokenEnd(wchar16* p, const UnitSet& delimiters, bool brackets) {
    wchar16 quote = 0;
    uint64 depth = 0;
    for (; *p != 0; p = platform::CharNextW(p)) {
        if (quote != 0) {
            if (*p != quote) continue;
            if (p[1] == quote) {
                ++p;  // a doubled quote, of which the loop steps over the second
            } else {
                quote = 0;
            }
        } else if (brackets && IsOpeningBracket(*p)) {
            ++depth;
        } else if (brackets && depth > 0 && IsClosingBracket(*p)) {
            --depth;
        } else if (depth == 0) {
            if (delimiters.Contains(*p)) return p;
            if (IsQuote(*p)) quote = *p;
        }
    }
    return p;
}

}  // namespace

wchar16* zuStrtok(wchar16* s, const wchar16* delimiters, bool brackets, wchar16** context) {
    if (s == nullptr) return nullptr;
    wchar16* const token = SkipBlanks(s);
    *context = token;
    if (*token == 0) return nullptr;
    wchar16* const end = FindTokenEnd(token, UnitSet(delimiters, platform::wcslen(delimiters)), brackets);
    *context = platform::CharNextW(end);
    if (*end != 0) *end = 0;
    ltrim(token);
    rtrim(token);
    return token;
}

}  // namespace Torvo
