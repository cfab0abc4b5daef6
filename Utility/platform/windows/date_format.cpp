#include <Utility/platform/date_format.h>

namespace Torvo::platform {

int GetDateFormatW(uint32 locale, uint32 flags, const SYSTEMTIME* date, const wchar16* picture, wchar16* buffer,
                   int size) {
    return ::GetDateFormatW(locale, flags, date, picture, buffer, size);
}

int GetTimeFormatW(uint32 locale, uint32 flags, const SYSTEMTIME* time, const wchar16* picture, wchar16* buffer,
                   int size) {
    return ::GetTimeFormatW(locale, flags, time, picture, buffer, size);
}

}  // namespace Torvo::platform
