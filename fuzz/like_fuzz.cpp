// The pattern match, on any text and pattern, against its plain form. Texts are copied to memory of exactly their size,
// so that a read past the end is seen. The plain form takes exponential time, so the input is kept short for it, or has
// few runs, a few more where the text is short; other input is matched all the same, and must only come to an end.

#include <Utility/errors.h>
#include <Utility/text_tools.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "operation_stream.h"
#include "reference/plain_like.h"
#include "require.h"

namespace {

using namespace Torvo;
using fuzz::OperationStream;
using fuzz::Require;

std::unique_ptr<wchar16[]> Exact(const wstring16& text) {
    std::unique_ptr<wchar16[]> units(new wchar16[text.size() + 1]);
    std::memcpy(units.get(), text.c_str(), (text.size() + 1) * sizeof(wchar16));
    return units;
}

// Mostly units that meet: few letters, wildcards, an escape, a mark and the halves of pairs.
wchar16 NextUnit(OperationStream& stream) {
    static constexpr wchar16 common[] = {'a', 'b', '%', '_', '!', 0x301, 0xD83D, 0xDE00};
    const uint32 byte = stream.Byte();
    if (byte < 0xF0) return common[byte % 8];
    return static_cast<wchar16>(stream.Word());
}

wstring16 NextText(OperationStream& stream, uint32 length) {
    wstring16 text;
    while (text.size() < length) {
        const wchar16 unit = NextUnit(stream);
        if (unit == 0) break;
        text += unit;
    }
    return text;
}

bool IsForThePlainForm(const wstring16& text, const wstring16& pattern) {
    if (text.size() <= 9 && pattern.size() <= 9) return true;
    const auto runs = std::count(pattern.begin(), pattern.end(), wchar16{'%'});
    return text.size() <= 80 && (runs <= 2 || (text.size() <= 31 && runs <= 4));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8* data, std::size_t size) {
    OperationStream stream(data, size);
    const wstring16 escape = NextText(stream, stream.Byte() % 2);
    const wstring16 pattern = NextText(stream, stream.Byte());
    wstring16 text;
    while (!stream.AtEnd()) text += NextText(stream, 1);

    const auto exactText = Exact(text);
    const auto exactPattern = Exact(pattern);
    const auto exactEscape = Exact(escape);
    ClearErrors();
    bool match = true;
    const bool isGood = Like(exactText.get(), exactPattern.get(), exactEscape.get(), &match);
    Require(isGood == (NumErrors() == 0));
    Require(isGood || !match);
    if (!IsForThePlainForm(text, pattern)) return 0;
    bool expected = true;
    int errors = 0;
    Require(isGood == test::PlainLike(text.c_str(), pattern.c_str(), escape.c_str(), &expected, &errors));
    Require(match == expected);
    Require(NumErrors() == errors);
    return 0;
}
