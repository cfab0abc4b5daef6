// Quoting there and back, apart and in place, at any size, against the plain forms. Buffers have exactly the size that
// the calls are told.

#include <Utility/text_tools.h>

#include <algorithm>
#include <memory>

#include "operation_stream.h"
#include "reference/plain_quoting.h"
#include "require.h"

namespace {

using namespace Torvo;
using fuzz::OperationStream;
using fuzz::Require;

constexpr wchar16 quote[] = ZUTEXT("'");

using Call = wchar16* (*)(wchar16*, const wchar16*, uint64, const wchar16*);

// The source is not read past its terminator, or past the target's room if that is smaller.
wstring16 Apart(Call call, const wstring16& text, uint64 size) {
    const std::unique_ptr<wchar16[]> source(new wchar16[text.size() + 1]);
    std::copy_n(text.c_str(), text.size() + 1, source.get());
    const std::unique_ptr<wchar16[]> target(new wchar16[size]);
    Require(call(target.get(), source.get(), size, quote) == target.get());
    return target.get();
}

wstring16 InPlace(Call call, const wstring16& text, uint64 size) {
    const std::unique_ptr<wchar16[]> buffer(new wchar16[size]);
    std::copy_n(text.c_str(), std::min<uint64>(text.size() + 1, size), buffer.get());
    Require(call(buffer.get(), buffer.get(), size, quote) == buffer.get());
    return buffer.get();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8* data, std::size_t size) {
    OperationStream stream(data, size);
    const uint64 room = 3 + stream.Byte() % 64;
    wstring16 text;
    while (!stream.AtEnd()) {
        const uint32 byte = stream.Byte();
        const auto unit = static_cast<wchar16>(byte < 0x80 ? quote[0] : byte);
        text += unit;
    }
    Require(Apart(quotestring, text, room) == test::PlainQuoteApart(text, room, quote[0]));
    Require(Apart(unquotestring, text, room) == test::PlainUnquote(text, room, quote[0]));
    Require(InPlace(quotestring, text, room) == test::PlainQuoteInPlace(text, room, quote[0]));
    if (text.size() < room) {
        Require(InPlace(unquotestring, text, room) == test::PlainUnquote(text, room, quote[0]));
    }

    const uint64 enough = 2 * text.size() + 3;
    Require(Apart(unquotestring, Apart(quotestring, text, enough), enough) == text);
    Require(InPlace(unquotestring, InPlace(quotestring, text, enough), enough) == text);
    return 0;
}
