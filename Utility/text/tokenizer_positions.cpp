// The tokenizer that changes nothing: the form of zuStrtok that reports positions.

#include <Utility/platform/runtime.h>
#include <Utility/platform/unit_set.h>
#include <Utility/strings.h>

#include <algorithm>

namespace Torvo {

namespace {

constexpr uint64 npos = ~uint64{0};
static_assert(npos == wstring16::npos);

// White space, in the order in which longer tokens trim more of it.
constexpr wchar16 whiteSpace[] = {' ', '\t', '\n', '\r'};
constexpr uint64 whiteSpaceCount = 4;

// Opening and closing characters in turns. An opener is known by its low 8 bits alone.
class QuotePairs {
public:
    explicit QuotePairs(const wchar16* text)
        : pairs(text), count(text != nullptr ? (platform::wcslen(text) + 1) / 2 : 0) {}

    void AddOpenersTo(UnitSet& stops) const {
        for (uint64 index = 0; index < count; ++index) stops.AddLow(static_cast<uint8>(Opener(index)));
    }

    // The closer of the first pair that `unit` opens, or null.
    const wchar16* CloserOf(wchar16 unit) const {
        for (uint64 index = 0; index < count; ++index) {
            if (Opener(index) == unit) return &pairs[2 * index + 1];
        }
        return nullptr;
    }

private:
    wchar16 Opener(uint64 index) const { return static_cast<wchar16>(pairs[2 * index] & 0xFF); }

    const wchar16* pairs;
    uint64 count;  // an opener without a closer has the terminator for one
};

// The position behind the quote that ends one of the same character, where a doubled quote does not end it; npos when
// it does not end before the last unit of the source, so that nothing can follow.
uint64 SkipPlainQuote(const wstring16& source, uint64 p, wchar16 quote) {
    for (;; p += 2) {
        p = source.find(quote, p);
        if (p == npos || p + 1 == source.size()) return npos;
        if (source[p + 1] != quote) return p + 1;
    }
}

// The position behind the closer that ends a quote of two different characters, which nest; npos when it does not end.
uint64 SkipNestingQuote(const wstring16& source, uint64 p, wchar16 opener, wchar16 closer) {
    uint64 depth = 1;
    for (; p < source.size(); ++p) {
        if (source[p] == opener) {
            ++depth;
        } else if (source[p] == closer && --depth == 0) {
            return p + 1;
        }
    }
    return npos;
}

// The first delimiter outside quotes at or after `p`, or npos. A character that opens a quote is no delimiter.
uint64 FindDelimiter(const wstring16& source, uint64 p, const UnitSet& stops, const QuotePairs& quotes) {
    while (p < source.size()) {
        if (!stops.Contains(source[p])) {
            ++p;
        } else if (const wchar16* const closer = quotes.CloserOf(source[p])) {
            const wchar16 opener = source[p];
            p = *closer == opener ? SkipPlainQuote(source, p + 1, opener)
                                  : SkipNestingQuote(source, p + 1, opener, *closer);
        } else {
            return p;
        }
    }
    return npos;
}

// The length of the token from `start` to the last unit, at or before `last`, that is not trimmed. How much counts as
// white space depends on the length before trimming: so it has always been, and callers have come to rely on it.
uint64 TrimmedLength(const wstring16& source, uint64 start, uint64 last, uint64 length) {
    return source.find_last_not_of(whiteSpace, last, std::min(length, whiteSpaceCount)) - start + 1;
}

}  // namespace

bool zuStrtok(const wstring16& source, uint64 start, const wstring16& delimiters, uint64* tokenStart,
              uint64* tokenLength, uint64* nextPos, const wchar16* quotePairs) {
    *tokenLength = 0;
    *nextPos = npos;
    *tokenStart = source.find_first_not_of(whiteSpace, start, whiteSpaceCount);
    if (*tokenStart == npos) return false;

    const QuotePairs quotes(quotePairs);
    UnitSet stops(delimiters.data(), delimiters.size());
    quotes.AddOpenersTo(stops);
    const uint64 delimiter = FindDelimiter(source, *tokenStart, stops, quotes);
    if (delimiter == npos) {
        *tokenLength = TrimmedLength(source, *tokenStart, npos, source.size() - *tokenStart);
        return true;
    }
    // The search for the end starts on the delimiter itself. One that is not white space stops it there, and is then
    // taken off again; white space before it stays in the token.
    *nextPos = delimiter + 1;
    *tokenLength = TrimmedLength(source, *tokenStart, delimiter, delimiter - *tokenStart);
    if (*tokenStart + *tokenLength == *nextPos) --*tokenLength;
    return true;
}

}  // namespace Torvo
