// Times of day from text and from literals, as numbers; what makes objects of them is beside.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// The number that `count` units write, or -1 when one of them is no ASCII digit. At most 18 units.
int64 ReadDigits(const wchar16* text, std::size_t count);

// The ticks of the literal HHMMSSfffffff; false for one that is no time of day.
bool TicksOfLiteral(int64 literal, int64* ticks);

// A longer text is no time.
inline constexpr std::size_t LongestTimeText = 99;

// A time of day in any of the forms that CreateTimeFromString takes, as ticks since midnight; `length` is that of the
// text, or anything longer than the longest. False, and *ticks is left alone, for any other text.
bool ReadTime(const wchar16* text, std::size_t length, int64* ticks);

// ParseTimeString, for arguments that are not null.
bool ReadTimeNumbers(const wchar16* text, int32* hours, int32* minutes, double* seconds);

}  // namespace Torvo
