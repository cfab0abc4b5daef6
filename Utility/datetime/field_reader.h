// The whole numbers of dates and times in text.
#pragma once

#include <Utility/numbers/plain_number.h>
#include <Utility/platform/number_text.h>

#include <algorithm>
#include <limits>

namespace Torvo {

namespace detail {

// Reads a number of one digit or two, which are told apart by reckoning: a branch could not be foretold. Null for any
// other.
inline const wchar16* ReadShortField(const wchar16* text, int32* number) {
    if (!plain::IsDigit(text[0])) return nullptr;
    const int32 first = text[0] - '0';
    const int32 hasSecond = plain::IsDigit(text[1]) ? 1 : 0;
    const wchar16 next = text[1 + hasSecond];
    if (plain::IsDigit(next) || next >= 0x80) return nullptr;
    *number = first + hasSecond * (9 * first + text[1] - '0');
    return text + 1 + hasSecond;
}

}  // namespace detail

// Reads a number in base 10 as wcstol does, 0 where there is none; the first unread unit. Nearly all are short or at
// least plain, and those have lanes of their own, which only save time.
inline const wchar16* ReadField(const wchar16* text, int32* number) {
    if (const wchar16* const end = detail::ReadShortField(text, number)) return end;
    int64 plain;
    if (const wchar16* const end = ReadPlainInteger(text, &plain)) {
        constexpr int64 Least = std::numeric_limits<int32>::min();
        constexpr int64 Largest = std::numeric_limits<int32>::max();
        *number = static_cast<int32>(std::clamp(plain, Least, Largest));
        return end;
    }
    wchar16* end;
    *number = platform::wcstol(text, &end, 10);
    return end;
}

}  // namespace Torvo
