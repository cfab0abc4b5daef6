#include <Utility/datetime/span_reader.h>

#include <Utility/bounded_copy.h>
#include <Utility/datetime/field_reader.h>
#include <Utility/datetime/time_reader.h>
#include <Utility/numbers/plain_number.h>
#include <Utility/numbers/rounding.h>
#include <Utility/text/unit_classes.h>

#include <algorithm>
#include <iterator>

namespace Torvo {

namespace {

constexpr std::size_t TimeDigits = 13;

// The number that so many units write, all of them digits; false when it exceeds the highest.
bool ReadBounded(const wchar16* text, std::size_t count, int32 highest, int32* value) {
    int64 number = 0;
    for (const wchar16* const end = text + count; text != end; ++text) {
        number = number * 10 + (*text - '0');
        if (number > highest) return false;
    }
    *value = static_cast<int32>(number);
    return true;
}

}  // namespace

bool ReadSpanLiteral(const wchar16* text, int32* days, int64* time) {
    const bool isNegative = *text == '-';
    const wchar16* const first = text + (isNegative || *text == '+' ? 1 : 0);
    const wchar16* last = first;
    while (plain::IsDigit(*last)) ++last;
    const auto digits = static_cast<std::size_t>(last - first);
    if (*last != 0 || digits <= TimeDigits) return false;
    if (!ReadBounded(first, digits - TimeDigits, detail::HighestInt32, days)) return false;
    *time = ReadDigits(last - TimeDigits, TimeDigits);
    if (isNegative) {
        *days = -*days;
        *time = -*time;
    }
    return true;
}

bool ReadSpanSeconds(const wchar16* text, double* seconds) {
    wchar16 buffer[256];
    strcpyn(buffer, text, std::size(buffer));
    rtrim(buffer);
    const wchar16* cursor = buffer;
    const auto skipBlanks = [&cursor] {
        while (*cursor != 0 && IsBlank(*cursor)) ++cursor;
    };
    skipBlanks();
    int32 days;
    cursor = ReadField(cursor, &days);
    skipBlanks();
    while (*cursor == '.') ++cursor;

    int32 hours = 0;
    int32 minutes = 0;
    double secondsOfTime = 0.0;
    if (!ReadTimeNumbers(cursor, &hours, &minutes, &secondsOfTime)) return false;
    // In this order, since doubles round at each step.
    const double daysInSeconds = days * 24.0 * 3600.0;
    *seconds = days < 0 ? daysInSeconds - hours * 3600.0 - minutes * 60.0 - secondsOfTime
                        : hours * 3600.0 + daysInSeconds + minutes * 60.0 + secondsOfTime;
    return true;
}

}  // namespace Torvo
