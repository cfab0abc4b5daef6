#include <Utility/platform/date_format.h>

#include <Utility/platform/threads.h>

#include <cwchar>

namespace Torvo::platform {

namespace {

// More than any locale's name of a day, a month, an era or half a day.
constexpr std::size_t LongestName = 32;
constexpr std::size_t LongestYear = 5;

// At least the units that a run of one letter becomes.
std::size_t LongestOfRun(wchar16 unit, std::size_t count) {
    switch (unit) {
        case 'd':
        case 'M':
            return count <= 2 ? 2 : LongestName;
        case 'g':
            return count * LongestName;
        case 't':
            return LongestName;
        case 'y':
            return LongestYear;
        case 'h':
        case 'H':
        case 'm':
        case 's':
            return count < 2 ? 2 : count;
        default:
            return count;
    }
}

// The letters that become something else, in a picture of a date and in one of a time.
constexpr wchar16 DateLetters[] = L"dMyg";
constexpr wchar16 TimeLetters[] = L"hHmst";

// Wine 8.0 makes the text in a buffer of 256 units and does not look where that ends. A picture that might become
// longer is refused, here and not there.
bool IsTooLong(const wchar16* picture, const wchar16* letters) {
    constexpr std::size_t SystemsRoom = 255;
    std::size_t longest = 0;
    bool isQuoted = false;
    while (picture != nullptr && *picture != 0 && longest <= SystemsRoom) {
        const wchar16 run[] = {*picture, 0};
        std::size_t count = 1;
        std::size_t becomes = 1;
        if (*picture == L'\'') {
            isQuoted = !isQuoted;
        } else if (!isQuoted && std::wcschr(letters, *picture) != nullptr) {
            count = std::wcsspn(picture, run);
            becomes = LongestOfRun(*picture, count);
        }
        longest += becomes;
        picture += count;
    }
    return longest > SystemsRoom;
}

}  // namespace

int GetDateFormatW(uint32 locale, uint32 flags, const SYSTEMTIME* date, const wchar16* picture, wchar16* buffer,
                   int size) {
    if (!IsTooLong(picture, DateLetters)) return ::GetDateFormatW(locale, flags, date, picture, buffer, size);
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return 0;
}

int GetTimeFormatW(uint32 locale, uint32 flags, const SYSTEMTIME* time, const wchar16* picture, wchar16* buffer,
                   int size) {
    if (!IsTooLong(picture, TimeLetters)) return ::GetTimeFormatW(locale, flags, time, picture, buffer, size);
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return 0;
}

bool TakesLongPictures() {
    return false;
}

}  // namespace Torvo::platform
