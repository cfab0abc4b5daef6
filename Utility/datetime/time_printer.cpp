#include <Utility/datetime/time_printer.h>

#include <Utility/locale_info.h>
#include <Utility/platform/date_format.h>

namespace Torvo {

namespace {

// Writes so many digits of a number, zeros first.
void PutDigits(wchar16* digits, int count, uint32 number) {
    for (; count > 0; number /= 10) digits[--count] = static_cast<wchar16>('0' + number % 10);
}

// Replaces each "f" by the next digit. Behind the digits comes their terminator, so that one "f" too many ends the
// text.
void PutFraction(wchar16* text, uint32 fraction) {
    while (*text != 0 && *text != 'f') ++text;
    if (*text == 0) return;
    // In two parts, so that the divisions of one need not wait for those of the other.
    wchar16 digits[8];
    PutDigits(digits, 3, fraction / 10000);
    PutDigits(digits + 3, 4, fraction % 10000);
    digits[7] = 0;
    for (const wchar16* next = digits; *text != 0; ++text) {
        if (*text != 'f') continue;
        *text = *next;
        if (*next++ == 0) return;
    }
}

}  // namespace

bool PrintTime(const SYSTEMTIME& time, int32 fraction, uint32 flags, const wchar16* picture, wchar16* out, int32 size) {
    if (out == nullptr && size != 0) return false;
    const bool isWritten = platform::GetTimeFormatW(GetLocaleIdentifier(), flags, &time, picture, out, size) != 0;
    if (size <= 0) return isWritten;
    // Of what does not fit, a beginning without a terminator may have been written.
    if (isWritten) {
        PutFraction(out, static_cast<uint32>(fraction));
    } else {
        *out = 0;
    }
    return isWritten;
}

}  // namespace Torvo
