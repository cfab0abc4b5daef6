#include <Utility/bounded_copy.h>
#include <Utility/date_strings.h>
#include <Utility/datetime/calendar.h>
#include <Utility/locale_info.h>
#include <Utility/memory_blocks.h>
#include <Utility/platform/buffer_end.h>
#include <Utility/platform/date_format.h>
#include <Utility/platform/runtime.h>

#include <algorithm>
#include <iterator>

namespace Torvo {

namespace {

// ---- Fields

wchar16* PutTwoDigits(wchar16* at, uint32 value) {
    at[0] = static_cast<wchar16>('0' + value / 10);
    at[1] = static_cast<wchar16>('0' + value % 10);
    return at + 2;
}

// A number that is negative or has more digits than usual, as printf's "%0*d" prints it: the sign counts as one.
wchar16* PutUnusual(wchar16* at, int32 value, int32 width) {
    if (value < 0) {
        *at++ = '-';
        --width;
    }
    wchar16 digits[8];
    wchar16* const end = std::end(digits);
    wchar16* first = end;
    for (auto rest = static_cast<uint32>(value < 0 ? -value : value); rest != 0 || end - first < width; rest /= 10) {
        *--first = static_cast<wchar16>('0' + rest % 10);
    }
    return std::copy(first, end, at);
}

// What a field may take: "-32768".
constexpr std::size_t FieldRoom = 6;

// A month or a day. Put writes the text of the field and tells where it ends.
struct ShortField {
    int8 value;

    wchar16* Put(wchar16* at) const {
        const auto number = static_cast<uint8>(value);
        return number < 100 ? PutTwoDigits(at, number) : PutUnusual(at, value, 2);
    }
};

struct YearField {
    int16 value;

    wchar16* Put(wchar16* at) const {
        const auto number = static_cast<uint16>(value);
        return number < 10000 ? PutTwoDigits(PutTwoDigits(at, number / 100u), number % 100u) : PutUnusual(at, value, 4);
    }
};

// Calls `print` with the three fields of a date in order. False for an order that there is not.
template <typename Print>
bool PrintInOrder(const zuDATE& date, int16 order, Print print) {
    const YearField year = {date.year};
    const ShortField month = {date.month};
    const ShortField day = {date.day};
    switch (order) {
        case DATEORDER_MDY:
            print(month, day, year);
            return true;
        case DATEORDER_DMY:
            print(day, month, year);
            return true;
        case DATEORDER_YMD:
            print(year, month, day);
            return true;
        case DATEORDER_YDM:
            print(year, day, month);
            return true;
        default:
            return false;
    }
}

// ---- Text in a buffer

// Appends to a buffer what fits, and terminates it there.
class BoundedText {
public:
    BoundedText(wchar16* buffer, uint64 size)
        : at(buffer), end(platform::BufferEnd(buffer, size == 0 ? 0 : size - 1)), exists(size != 0) {}
    ~BoundedText() {
        if (exists) *at = 0;
    }
    BoundedText(const BoundedText&) = delete;
    BoundedText& operator=(const BoundedText&) = delete;

    void Append(const wchar16* text) {
        while (*text != 0 && at != end) *at++ = *text++;
    }
    template <typename Field>
    void AppendField(const Field& field) {
        if (Room() >= FieldRoom) {
            at = field.Put(at);
        } else {
            wchar16 units[FieldRoom];
            at = std::copy_n(units, std::min(static_cast<uint64>(field.Put(units) - units), Room()), at);
        }
    }

private:
    uint64 Room() const { return static_cast<uint64>(end - at); }

    wchar16* at;
    wchar16* end;
    const bool exists;
};

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
    const wchar16 text[] = {delimiter, 0};
    MakeDateStringEx(out, outSize, date, order, text, text);
}

bool MakeDateStringEx(wchar16* out, uint64 outSize, zuDATE* date, int16 order, const wchar16* delimiter1,
                      const wchar16* delimiter2) {
    if (date == nullptr || (out == nullptr && outSize > 0)) return false;
    return PrintInOrder(*date, order, [=](const auto& first, const auto& second, const auto& third) {
        BoundedText text(out, outSize);
        text.AppendField(first);
        text.Append(Printed(delimiter1));
        text.AppendField(second);
        text.Append(Printed(delimiter2));
        text.AppendField(third);
    });
}

bool FormatDateString(wchar16* out, uint64 outSize, zuDATE date, const wchar16* pattern) {
    if (out == nullptr && outSize > 0) return false;
    const uint32 locale = GetLocaleIdentifier();
    std::fill_n(out, outSize, wchar16{0});
    // Some systems take 29 February of any year, and print 1 March.
    if (!IsDayOfMonth(date.year, date.month, date.day)) return false;
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
