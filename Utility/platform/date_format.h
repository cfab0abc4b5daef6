// Dates and times of day as text, by pictures such as "dd MMMM yyyy" and "HH:mm:ss".
//
//     d dd ddd dddd      the day as a number, with two digits, the day of the week abbreviated and in full
//     M MM MMM MMMM      the month likewise; the full name has its genitive beside a day
//     y yy yyyy yyyyy    the last two digits of the year (twice), the whole year (twice)
//     g gg               the era
//     h hh H HH          the hour of twelve and of twenty-four, as a number and with two digits
//     m mm s ss          minute and second likewise
//     t tt               the first unit of the mark of morning or afternoon, the whole mark
//
// Text in apostrophes stands for itself, and so does everything that is no letter of the picture; the date's letters
// mean nothing in the picture of a time and the time's nothing in that of a date.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// Flags. On Windows they are macros of the same names.
#if !defined(_WIN32)
inline constexpr uint32 DATE_SHORTDATE = 0x01;
inline constexpr uint32 DATE_LONGDATE = 0x02;
inline constexpr uint32 TIME_NOMINUTESORSECONDS = 0x01;
inline constexpr uint32 TIME_NOSECONDS = 0x02;
inline constexpr uint32 TIME_NOTIMEMARKER = 0x04;
inline constexpr uint32 TIME_FORCE24HOURFORMAT = 0x08;
#endif

namespace platform {

// The date in a picture, or for a null one in the locale's short date, or long date under DATE_LONGDATE. A null date is
// today. The units written, terminator included, or needed where `size` is 0; 0 on failure: error 87 for a date outside
// the years 1601 to 30827, an unknown locale or a bad size, 122 when the text does not fit, 1004 for a flag together
// with a picture, or for two that exclude each other. The day of the week is found from the date, not read.
// Systems may refuse pictures of texts that could have more than 255 units, with error 122: see TakesLongPictures.
int GetDateFormatW(uint32 locale, uint32 flags, const SYSTEMTIME* date, const wchar16* picture, wchar16* buffer,
                   int size);

// The time of day in a picture, or for a null one in the locale's time format. The flags take effect in both. Sizes,
// results and failures as above.
int GetTimeFormatW(uint32 locale, uint32 flags, const SYSTEMTIME* time, const wchar16* picture, wchar16* buffer,
                   int size);

// Whether pictures of any length are taken.
bool TakesLongPictures();

}  // namespace platform
}  // namespace Torvo
