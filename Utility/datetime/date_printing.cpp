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

// A number with at least so many digits, as printf's "%0*d" prints it: the sign counts as one.
class FieldText {
public:
    FieldText(int32 value, int32 width) {
        const bool negative = value < 0;
        auto magnitude = static_cast<uint32>(negative ? -value : value);
        for (; magnitude != 0 || Length() < width - (negative ? 1 : 0); magnitude /= 10) {
            units[--first] = static_cast<wchar16>('0' + magnitude % 10);
        }
        if (negative) units[--first] = '-';
    }
    const wchar16* Start() const { return units + first; }
    int32 Length() const { return Capacity - first; }

private:
    static constexpr int32 Capacity = 8;
    wchar16 units[Capacity];
    int32 first = Capacity;
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
    void Append(const FieldText& field) { Append(field.Start(), static_cast<uint64>(field.Length())); }

private:
    wchar16* at;
    wchar16* end;
    const bool exists;
};

// ---- The order of the fields

struct DateField {
    int32 value;
    int32 width;
};

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

struct TextSpan {
    const wchar16* units;
    uint64 count;
};

bool PrintDate(wchar16* out, uint64 outSize, const zuDATE& date, int16 order, TextSpan delimiter1,
               TextSpan delimiter2) {
    DateField fields[3];
    if (!FieldsInOrder(date, order, fields)) return false;
    BoundedText text(out, outSize);
    text.Append(FieldText(fields[0].value, fields[0].width));
    text.Append(delimiter1.units, delimiter1.count);
    text.Append(FieldText(fields[1].value, fields[1].width));
    text.Append(delimiter2.units, delimiter2.count);
    text.Append(FieldText(fields[2].value, fields[2].width));
    return true;
}

// A missing text prints as the runtime prints one.
TextSpan SpanOf(const wchar16* text) {
    const wchar16* const printed = text != nullptr ? text : ZUTEXT("(null)");
    return {printed, platform::wcslen(printed)};
}

// ---- Pictures

constexpr uint64 PictureSize = 260;

SYSTEMTIME SystemTimeOf(zuDATE date) {
    SYSTEMTIME time{};
    time.wYear = static_cast<uint16>(date.year);
    time.wMonth = static_cast<uint16>(date.month);
    time.wDay = static_cast<uint16>(date.day);
    return time;
}

}  // namespace

void MakeDateString(wchar16* out, uint64 outSize, zuDATE* date, int16 order, wchar16 delimiter) {
    const TextSpan span = {&delimiter, delimiter != 0 ? uint64{1} : uint64{0}};
    PrintDate(out, outSize, *date, order, span, span);
}

bool MakeDateStringEx(wchar16* out, uint64 outSize, zuDATE* date, int16 order, const wchar16* delimiter1,
                      const wchar16* delimiter2) {
    return PrintDate(out, outSize, *date, order, SpanOf(delimiter1), SpanOf(delimiter2));
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
