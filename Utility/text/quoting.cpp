#include <Utility/bounded_copy.h>
#include <Utility/platform/buffer_end.h>
#include <Utility/platform/runtime.h>
#include <Utility/text_tools.h>

namespace Torvo {

namespace {

// Two quotes and the terminator.
constexpr uint64 frameUnits = 3;

// Writes the doubled text to `dst`, at most `room` units, and returns its end. Nothing of `src` is read once the room
// is used up.
wchar16* DoubleApart(wchar16* dst, const wchar16* src, uint64 room, wchar16 quote) {
    for (; room > 0 && *src != 0; ++src) {
        if (*src == quote) {
            if (room < 2) break;
            *dst++ = quote;
            --room;
        }
        *dst++ = *src;
        --room;
    }
    return dst;
}

// How many units at the start of `text`, at most `count`, fill `room` units when quotes are doubled, and how many units
// they come to; one more than `room` if a doubled quote is cut in half.
struct Filling {
    uint64 taken;
    uint64 doubled;
};

Filling FillRoom(const wchar16* text, uint64 count, uint64 room, wchar16 quote) {
    Filling filling{0, 0};
    for (; filling.taken < count && filling.doubled < room; ++filling.taken) {
        filling.doubled += text[filling.taken] == quote ? 2 : 1;
    }
    return filling;
}

// Doubles the text in place and moves it up by one, from its end on, and returns its new end. The result is that of
// shifting the rest up at each quote in turn, and dropping what leaves the room.
wchar16* DoubleInPlace(wchar16* text, uint64 room, wchar16 quote) {
    const Filling filling = FillRoom(text, platform::wcsnlen(text, room), room, quote);
    const bool isCut = filling.doubled > room;
    wchar16* const end = text + 1 + (isCut ? room : filling.doubled);
    wchar16* to = end;
    uint64 from = filling.taken;
    if (isCut) *--to = text[--from];
    while (from > 0) {
        const wchar16 unit = text[--from];
        *--to = unit;
        if (unit == quote) *--to = unit;
    }
    return end;
}

// The empty text, as far as there is room for it.
wchar16* Empty(wchar16* dst, uint64 size) {
    if (dst != nullptr && size > 0) *dst = 0;
    return dst;
}

bool HasQuote(const wchar16* quote) {
    return quote != nullptr && *quote != 0;
}

}  // namespace

wchar16* quotestring(wchar16* dst, const wchar16* src, uint64 size, const wchar16* quote) {
    if (dst == nullptr || src == nullptr) return Empty(dst, size);
    if (!HasQuote(quote)) return strcpyn(dst, src, size);
    if (size < frameUnits) return Empty(dst, size);
    const wchar16 mark = *quote;  // it may lie in the target
    const uint64 room = size - frameUnits;
    wchar16* const end = dst == src ? DoubleInPlace(dst, room, mark) : DoubleApart(dst + 1, src, room, mark);
    dst[0] = mark;
    end[0] = mark;
    end[1] = 0;
    return dst;
}

wchar16* unquotestring(wchar16* dst, const wchar16* src, uint64 size, const wchar16* quote) {
    if (dst == nullptr || src == nullptr) return Empty(dst, size);
    if (!HasQuote(quote) || *src != *quote) return strcpyn(dst, src, size);
    if (size == 0) return dst;
    const wchar16 mark = *quote;  // it may lie in the target
    wchar16* to = dst;
    const wchar16* const last = platform::BufferEnd(dst, size - 1);
    for (++src; to != last && *src != 0; ++src) {
        if (*src == mark && *++src != mark) break;
        *to++ = *src;
    }
    *to = 0;
    return dst;
}

}  // namespace Torvo
