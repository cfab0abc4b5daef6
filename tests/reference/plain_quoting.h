// Quoting in its plain form, one unit at a time, on texts of the standard library. What the library does is compared
// with this.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo::test {

// To another place: what is cut off is never half of a doubled quote.
inline wstring16 PlainQuoteApart(const wstring16& text, uint64 size, wchar16 quote) {
    wstring16 result(1, quote);
    uint64 room = size - 3;
    for (const wchar16 unit : text) {
        if (room == 0 || (unit == quote && room < 2)) break;
        result += unit;
        --room;
        if (unit == quote) {
            result += unit;
            --room;
        }
    }
    return result + quote;
}

// In place: the text is cut first, and each doubling moves its end as long as there is room to spare.
inline wstring16 PlainQuoteInPlace(const wstring16& text, uint64 size, wchar16 quote) {
    wstring16 content = text.substr(0, size - 3);
    uint64 spare = size - 3 - content.size();
    for (uint64 place = 0; place < content.size(); ++place) {
        if (content[place] != quote) continue;
        content.insert(place, 1, quote);
        if (spare > 0) {
            --spare;
        } else {
            content.pop_back();
        }
        ++place;
    }
    return quote + content + quote;
}

// The text inside the quotes, and the text as it is where it does not start with one.
inline wstring16 PlainUnquote(const wstring16& text, uint64 size, wchar16 quote) {
    if (text.empty() || text[0] != quote) return text.substr(0, size - 1);
    wstring16 result;
    for (uint64 place = 1; place < text.size() && result.size() < size - 1; ++place) {
        if (text[place] == quote) {
            ++place;
            if (place == text.size() || text[place] != quote) break;
        }
        result += text[place];
    }
    return result;
}

}  // namespace Torvo::test
