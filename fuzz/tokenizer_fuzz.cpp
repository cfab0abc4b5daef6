// The two tokenizers that read expressions and lists, on any text, against their plain forms. Every text is copied to
// memory of exactly its size, so that a read or a write past its end is seen.

#include <Utility/strings.h>

#include <cstring>
#include <memory>

#include "reference/plain_tokenizers.h"
#include "require.h"

namespace {

using namespace Torvo;
using fuzz::Require;
using Torvo::test::PlainExpressionToken;
using Torvo::test::PlainPositionToken;
using Torvo::test::PositionToken;

// A zero-terminated text on the heap, with nothing behind its terminator.
class ExactText {
public:
    explicit ExactText(const wstring16& text) : units(new wchar16[text.size() + 1]), size(text.size() + 1) {
        std::memcpy(units.get(), text.c_str(), size * sizeof(wchar16));
    }

    wchar16* begin() const { return units.get(); }
    bool operator==(const ExactText& other) const {
        return size == other.size && std::memcmp(units.get(), other.units.get(), size * sizeof(wchar16)) == 0;
    }

private:
    std::unique_ptr<wchar16[]> units;
    std::size_t size;
};

// The input: a byte of choices, then units, most of them of one byte so that delimiters and quotes are met often; a
// unit of value 0 separates the delimiters, the quote pairs and the text.
class Input {
public:
    Input(const uint8* data, std::size_t size) : next(data), last(data + size) {}

    uint8 Byte() { return next != last ? *next++ : uint8{0}; }

    wstring16 TextToZero() {
        wstring16 text;
        while (next != last) {
            const wchar16 unit = Unit();
            if (unit == 0) break;
            text += unit;
        }
        return text;
    }

    wstring16 Rest() {
        wstring16 text;
        while (next != last) text += Unit();
        return text;
    }

private:
    wchar16 Unit() {
        constexpr uint8 wideUnitFollows = 0xFF;
        const uint8 first = Byte();
        if (first != wideUnitFollows) return first;
        const uint8 high = Byte();
        return static_cast<wchar16>(high * 256 + Byte());
    }

    const uint8* next;
    const uint8* last;
};

void CheckExpressionTokens(const wstring16& source, const wstring16& delimiters, bool brackets) {
    const ExactText actual(source.c_str());
    const ExactText expected(source.c_str());
    const ExactText set(delimiters);
    wchar16* actualContext = actual.begin();
    wchar16* expectedContext = expected.begin();
    for (bool more = true; more;) {
        const wchar16* const token = zuStrtok(actualContext, set.begin(), brackets, &actualContext);
        const wchar16* const plain = PlainExpressionToken(expectedContext, set.begin(), brackets, &expectedContext);
        more = token != nullptr;
        Require(more == (plain != nullptr));
        Require(!more || token - actual.begin() == plain - expected.begin());
        Require(actualContext - actual.begin() == expectedContext - expected.begin());
        Require(actual == expected);
    }
}

void CheckPositionTokens(const wstring16& source, const wstring16& delimiters, const wstring16& quotePairs) {
    const ExactText quotes(quotePairs);
    uint64 start = 0;
    for (;;) {
        PositionToken token{};
        token.found = zuStrtok(source, start, delimiters, &token.start, &token.length, &token.next, quotes.begin());
        Require(token == PlainPositionToken(source, start, delimiters, quotes.begin()));
        Require(!token.found || (token.start >= start && token.length <= source.size() - token.start));
        if (!token.found || token.next == wstring16::npos) return;
        Require(token.next > start && token.next <= source.size());
        start = token.next;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    Input input(data, size);
    const bool brackets = input.Byte() % 2 == 1;
    const wstring16 delimiters = input.TextToZero();
    wstring16 quotePairs = input.TextToZero();
    if (quotePairs.size() % 2 == 1) quotePairs.pop_back();  // an opener without a closer is not allowed
    const wstring16 source = input.Rest();
    CheckExpressionTokens(source, delimiters, brackets);
    CheckPositionTokens(source, delimiters, quotePairs);
    return 0;
}
