#include <Utility/bounded_copy.h>
#include <Utility/date_strings.h>
#include <Utility/locale_info.h>
#include <Utility/memory_blocks.h>
#include <Utility/platform/date_format.h>
#include <Utility/platform/runtime.h>
#include <Utility/platform/unit_copy.h>

#include <algorithm>

namespace Torvo {

namespace {

// ---- Numbers

// Room for any field, and for a copy of it in moves of a fixed size.
constexpr std::size_t FieldRoom = 16;

wchar16* PutTwoDigits(wchar16* at, uint32 value) {
    at[0] = static_cast<wchar16>('0' + value / 10);
    at[1] = static_cast<wchar16>('0' + value % 10);
    return at + 2;
}

// A number that is negative or has more digits than usual, as printf's "%0*d" prints it: the sign counts as one.
wchar16* PutUnusual(wchar16* at, int32 value, int32 width) {
    wchar16 digits[FieldRoom];
    wchar16* const end = digits + FieldRoom;
    wchar16* first = end;
    if (value < 0) {
        *at++ = '-';
        --width;
    }
    for (uint32 rest = value < 0 ? 0u - static_cast<uint32>(value) : static_cast<uint32>(value);
         rest != 0 || end - first < width; rest /= 10) {
        *--first = static_cast<wchar16>('0' + rest % 10);
    }
    return std::copy(first, end, at);
}

struct DateField {
    int32 value;
    int32 width;  // 2 or 4

    // Where the text of the field ends.
    wchar16* Put(wchar16* at) const {
        const auto number = static_cast<uint32>(value);
        if (number >= (width == 2 ? 100u : 10000u)) return PutUnusual(at, value, width);
        return PutTwoDigits(width == 2 ? at : PutTwoDigits(at, number / 100), number % 100);
    }
};

// ---- Text in a buffer

// Appends to a buffer what fits, and terminates it there.
class BoundedText {
public:
    BoundedText(wchar16* buffer, uint64 size)
        : at(buffer), end(buffer + (size == 0 ? 0 : size - 1)), exists(size != 0) {}
    ~BoundedText() {
        if (exists) *at = 0;
    }
    BoundedText(const BoundedText&) = delete;
    BoundedText& operator=(const BoundedText&) = delete;

    void Append(const wchar16* units, uint64 count) {
        const uint64 fitting = std::min(count, static_cast<uint64>(end - at));
        platform::CopyUnits(at, units, fitting);
        at += fitting;
    }
    void Append(const wchar16* text) { Append(text, platform::wcslen(text)); }
    void Append(const DateField& field) {
        wchar16 units[FieldRoom];
        Append(units, static_cast<uint64>(field.Put(units) - units));
    }

private:
    wchar16* at;
    wchar16* end;
    const bool exists;
};

// ---- The order of the fields

// False for an order that there is not.
bool FieldsInOrder(const zuDATE& date, int16 order, DateField (&fields)[3]) {
    const DateField year = {date.year, 4};
    const DateField month = {date.month, 2};
    const DateField day = {date.day, 2};
    const auto store = [&fields](const DateField& a, const DateField& b, const DateField& c) {
        fields[0] = a;
        fields[1] = b;
        fields[2] = c;
        return true;
    };
    switch (order) {
        case DATEORDER_MDY:
            return store(month, day, year);
        case DATEORDER_DMY:
            return store(day, month, year);
        case DATEORDER_YMD:
            return store(year, month, day);
        case DATEORDER_YDM:
            return store(year, day, month);
        default:
            return false;
    }
}

// A missing text prints as the runtime prints one.
const wchar16* Printed(const wchar16* text) {
    return text != nullptr ? text : ZUTEXT("(null)");
}

// ---- Pictures

constexpr uint64 PictureSize = 260;

SYSTEMTIME SystemTimeOf(zuDATE date) {
    SYSTEMTIME time{};
    time.wYear = static_cast<uint16>(date.year);
    // Negative ones become numbers that no month and no day has.
    time.wMonth = static_cast<uint8>(date.month);
    time.wDay = static_cast<uint8>(date.day);
    return time;
}

}  // namespace

void MakeDateString(wchar16* out, uint64 outSize, zuDATE* date, int16 order, wchar16 delimiter) {
    DateField fields[3];
    if (!FieldsInOrder(*date, order, fields)) return;
    wchar16 units[3 * FieldRoom];
    wchar16* end = fields[0].Put(units);
    for (const DateField* const field : {&fields[1], &fields[2]}) {
        *end = delimiter;
        end = field->Put(end + (delimiter != 0 ? 1 : 0));
    }
    BoundedText(out, outSize).Append(units, static_cast<uint64>(end - units));
}

bool MakeDateStringEx(wchar16* out, uint64 outSize, zuDATE* date, int16 order, const wchar16* delimiter1,
                      const wchar16* delimiter2) {
    DateField fields[3];
    if (!FieldsInOrder(*date, order, fields)) return false;
    BoundedText text(out, outSize);
    text.Append(fields[0]);
    text.Append(Printed(delimiter1));
    text.Append(fields[1]);
    text.Append(Printed(delimiter2));
    text.Append(fields[2]);
    return true;
}

bool FormatDateString(wchar16* out, uint64 outSize, zuDATE date, const wchar16* pattern) {
    const uint32 locale = GetLocaleIdentifier();
    std::fill_n(out, outSize, wchar16{0});
    const SYSTEMTIME time = SystemTimeOf(date);
    const int needed = platform::GetDateFormatW(locale, 0, &time, pattern, nullptr, 0);
    if (needed <= 0) return false;
    const int size = 2 * needed;
    void* block = nullptr;
    if (!falloc_(static_cast<uint64>(size) * sizeof(wchar16), &block, false, true)) return false;
    auto* const text = static_cast<wchar16*>(block);
    const bool isFormatted = platform::GetDateFormatW(locale, 0, &time, pattern, text, size) != 0;
    if (isFormatted) strcpyn(out, text, outSize);
    ffree_(&block);
    return isFormatted;
}

bool FormatDateString(wchar16* out, uint64 outSize, zuDATE date, int16 localeItem) {
    wchar16 pattern[PictureSize];
    return GetLocaleString(static_cast<uint32>(localeItem), pattern, PictureSize) &&
           FormatDateString(out, outSize, date, pattern);
}

}  // namespace Torvo
