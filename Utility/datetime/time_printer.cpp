#include <Utility/datetime/time_printer.h>

#include <Utility/locale_info.h>
#include <Utility/platform/date_format.h>

namespace Torvo {

namespace {

constexpr int FractionDigits = 7;

// Replaces each "f" by the next digit. Behind the digits comes their terminator, so that one "f" too many ends the
// text.
void PutFraction(wchar16* text, int32 fraction) {
    wchar16 digits[FractionDigits + 1];
    digits[FractionDigits] = 0;
    for (int i = FractionDigits - 1; i >= 0; --i) {
        digits[i] = static_cast<wchar16>('0' + fraction % 10);
        fraction /= 10;
    }
    const wchar16* next = digits;
    for (; *text != 0; ++text) {
        if (*text == 'f') *text = *next++;
        if (*text == 0) return;
    }
}

}  // namespace

bool PrintTime(const SYSTEMTIME& time, int32 fraction, uint32 flags, const wchar16* picture, wchar16* out, int32 size) {
    if (out == nullptr && size != 0) return false;
    if (platform::GetTimeFormatW(GetLocaleIdentifier(), flags, &time, picture, out, size) == 0) return false;
    if (size != 0) PutFraction(out, fraction);
    return true;
}

}  // namespace Torvo
