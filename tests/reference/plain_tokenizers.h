// The second and third tokenizer in their plain form: every step one statement, no shortcut. What the library does is
// compared with this.
#pragma once

#include <Utility/bounded_copy.h>
#include <Utility/strings.h>

namespace Torvo::test {

inline bool PlainIsWhite(wchar16 c) {
    return c == '\t' || c == '\n' || c == '\f' || c == '\r' || c == ' ';
}

inline bool PlainContains(const wchar16* set, wchar16 c) {
    for (; *set != 0; ++set) {
        if (*set == c) return true;
    }
    return false;
}

inline wchar16* PlainExpressionToken(wchar16* s, const wchar16* delimiters, bool brackets, wchar16** context) {
    wchar16* p = s;
    while (*p != 0 && (PlainIsWhite(*p) || zuIsPrint(*p) == 0)) p = zuNextChar(p);
    *context = p;
    if (*p == 0) return nullptr;
    wchar16* const token = p;
    wchar16 openQuote = 0;
    int depth = 0;
    bool ended = false;
    while (*p != 0 && !ended) {
        bool tested = false;
        if (openQuote == 0) {
            if (brackets) {
                if (*p == '(' || *p == '[') {
                    depth = depth + 1;
                } else if ((*p == ')' || *p == ']') && depth > 0) {
                    depth = depth - 1;
                    if (depth == 0) tested = true;
                }
            }
            if (!tested && depth == 0) {
                if (PlainContains(delimiters, *p)) {
                    *context = zuNextChar(p);
                    *p = 0;
                    ended = true;
                } else if (*p == '"' || *p == '\'' || *p == '`') {
                    openQuote = *p;
                }
                tested = true;
            }
        }
        if (!tested && openQuote != 0 && *p == openQuote) {
            if (p[1] == openQuote) {
                p = zuNextChar(p);
            } else {
                openQuote = 0;
            }
        }
        if (!ended) p = zuNextChar(p);
    }
    if (!ended) *context = p;
    ltrim(token);
    rtrim(token);
    return token;
}

struct PositionToken {
    bool found;
    uint64 start;
    uint64 length;
    uint64 next;

    bool operator==(const PositionToken&) const = default;
};

inline PositionToken PlainPositionToken(const wstring16& source, uint64 start, const wstring16& delimiters,
                                        const wchar16* quotePairs) {
    constexpr uint64 npos = wstring16::npos;
    const wchar16 white[] = {' ', '\t', '\n', '\r'};

    wstring16 openers;
    wstring16 closers;
    for (const wchar16* pair = quotePairs; *pair != 0; pair += 2) {
        openers += static_cast<wchar16>(pair[0] % 256);
        closers += pair[1];
    }
    const wstring16 stops = delimiters + openers;

    PositionToken token{false, 0, 0, 0};
    token.start = token.next = source.find_first_not_of(white, start, 4);
    if (token.start == npos) return token;

    token.found = true;
    uint64 p = token.start;
    wstring16 quote;
    uint64 depth = 0;
    bool atDelimiter = false;
    while (p != npos) {
        if (quote.empty()) {
            p = source.find_first_of(stops, p);
            token.next = p;
            if (p == npos) break;
            const std::size_t kind = openers.find(source[p]);
            if (kind == wstring16::npos) {
                atDelimiter = true;
                break;
            }
            if (closers[kind] != source[p]) {
                quote = wstring16{source[p], closers[kind]};
                ++depth;
            } else {
                quote = wstring16(1, source[p]);
            }
            token.next += 1;
            p = token.next;
        }
        p = source.find_first_of(quote, p);
        token.next = p;
        if (p == npos) break;
        if (depth == 0) {
            if (p == source.size() - 1) {
                quote.clear();
                p = token.next = npos;
            } else if (source[p + 1] == quote[0]) {
                p += 2;
                token.next += 2;
            } else {
                quote.clear();
                p += 1;
                token.next += 1;
            }
        } else {
            if (source[p] == quote[0]) {
                ++depth;
            } else {
                --depth;
                if (depth == 0) quote.clear();
            }
            p += 1;
            token.next += 1;
        }
    }

    if (!atDelimiter) {
        token.length = source.size() - token.start;
        const std::size_t last = source.find_last_not_of(white, npos, token.length < 4 ? token.length : 4);
        token.length = last - token.start + 1;
        return token;
    }
    token.length = p - token.start;
    token.next += 1;
    const std::size_t last = source.find_last_not_of(white, p, token.length < 4 ? token.length : 4);
    token.length = last - token.start + 1;
    if (token.start + token.length == token.next) token.length -= 1;
    return token;
}

}  // namespace Torvo::test
