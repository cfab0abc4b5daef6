// Dates: the readers, SQL formats both ways, and pictures. The first byte chooses the order, the separator and the
// callback's answer; the second tells how long the format is; the rest is the text.
#include <Utility/date_strings.h>
#include <Utility/errors.h>
#include <Utility/locale_info.h>
#include <Utility/platform/date_format.h>
#include <Utility/sql_dates.h>
#include <support/time_locale.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "input_text.h"
#include "require.h"

namespace {

using namespace Torvo;
using fuzz::Require;
using fuzz::TextOf;

bool asksForFixedForm = false;

bool IsNull(const zuDATE& date) {
    return date.year == 0 && date.month == 0 && date.day == 0;
}

void Read(const std::vector<wchar16>& text) {
    zuDATE date = {77, 7, 7};
    const bool isRead = Str2Date(text.data(), &date) != nullptr;
    Require(isRead ? IsNull(date) || IsValidDate(&date) : IsNull(date));
    wchar16* end = nullptr;
    const bool isReadEx = Str2DateEx(text.data(), &date, &end) != nullptr;
    Require(isReadEx ? IsNull(date) || IsValidDate(&date) : IsNull(date));
    Require(!isReadEx || end != nullptr);
    // One past the terminator is the farthest that the end can be.
    Require(end == nullptr || (end > text.data() && end <= text.data() + text.size()));
    ClearErrors();
}

void Print(const zuDATE& date, const std::vector<wchar16>& text) {
    for (const uint64 size : {uint64{0}, uint64{1}, uint64{11}, text.size(), text.size() + 40}) {
        std::vector<wchar16> out(size);
        zuDATE copy = date;
        MakeDateStringEx(out.data(), size, &copy, static_cast<int16>(text[0] % 7), text.data(), text.data());
        FormatDateString(out.data(), size, date, text.data());
    }
}

void FormatPictures(const std::vector<wchar16>& picture, uint32 flags) {
    const SYSTEMTIME time = {2024, 2, 0, 29, 13, 5, 9, 250};
    for (const auto call : {platform::GetDateFormatW, platform::GetTimeFormatW}) {
        const int needed = call(0x415, flags, &time, picture.data(), nullptr, 0);
        if (needed == 0) continue;
        std::vector<wchar16> out(static_cast<std::size_t>(needed));
        Require(call(0x415, flags, &time, picture.data(), out.data(), needed) == needed);
        Require(out.back() == 0);
        out.pop_back();
        out.shrink_to_fit();
        Require(needed == 1 || call(0x415, flags, &time, picture.data(), out.data(), needed - 1) == 0);
    }
}

void SqlFormats(const zuDATE& date, const std::vector<wchar16>& text, const std::vector<wchar16>& format) {
    std::vector<wchar16> out(20 * format.size() + 1, wchar16{'~'});
    // No word becomes longer than its letters by more than the longest name.
    const bool isPrinted = zuSQLDateToString(date, format.data(), out.data(), out.size());
    Require(isPrinted);
    const wstring16 printed = out.data();
    std::vector<wchar16> exact(printed.size());
    Require(!zuSQLDateToString(date, format.data(), exact.data(), exact.size()));
    Require(NumErrors() == 0);
    zuDATE read = {77, 7, 7};
    if (!zuSQLStringToDate(text.data(), format.data(), &read)) {
        Require(read.year == 77 && read.month == 7 && read.day == 7);
        Require(NumErrors() == 1 && GetResourceID(0) >= 63 && GetResourceID(0) <= 66);
    }
    ClearErrors();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 6) return 0;
    constexpr int16 Orders[] = {0, 1, 2, 5, 3};
    constexpr wchar16 Separators[] = {'/', '-', '.', 0};
    const std::uint8_t choice = data[0];
    const test::TimeLocale locale({.dateOrder = Orders[choice % 5], .dateSeparator = Separators[(choice >> 3) % 4]});
    asksForFixedForm = (choice & 0x20) != 0;
    SetDateFormatCallback([] { return asksForFixedForm; });
    zuDATE date;
    std::memcpy(&date, data + 2, sizeof date);
    const bool wide = (choice & 0x40) != 0;
    const std::size_t formatSize = data[1] < size - 6 ? data[1] : size - 6;
    const std::vector<wchar16> format = TextOf(data + 6, formatSize, wide);
    const std::vector<wchar16> text = TextOf(data + 6 + formatSize, size - 6 - formatSize, wide);
    Read(text);
    Print(date, text);
    FormatPictures(format, (choice & 0x80) != 0 ? choice & 0xFu : 0);
    SqlFormats(date, text, format);
    return 0;
}
