// The calendar in its plain form: the two conversions by a table of months, one step after the other, and a walk from
// day to day.
#pragma once

#include <Utility/dates.h>

#include <array>

namespace Torvo::test {

// The first days of the months from 1 March of a four-year block on, its last February having 29 days, and the block's
// end.
inline const std::array<int, 49>& BlockTable() {
    static const std::array<int, 49> table = [] {
        constexpr int Lengths[] = {31, 30, 31, 30, 31, 31, 30, 31, 30, 31, 31, 28};  // March to February
        std::array<int, 49> made{};
        for (std::size_t i = 0; i < 48; ++i) made[i + 1] = made[i] + Lengths[i % 12] + (i == 47 ? 1 : 0);
        return made;
    }();
    return table;
}

// Whether the table has an entry for the month.
inline bool HasBlockMonth(const zuDATE& date) {
    const bool early = date.month < 3;
    const int year = date.year - (early ? 1 : 0);
    return date.month + (early ? 12 : 0) + 45 + year % 100 % 4 * 12 >= 0;
}

inline int32 PlainDayNumber(const zuDATE& date) {
    if (date.month == 0 || date.day == 0 || date.year < 0) return -1;
    const bool early = date.month < 3;
    const int year = date.year - (early ? 1 : 0);
    const int c400 = year / 400;
    const int rest = year - 400 * c400;
    const int c100 = rest / 100;
    const int q = rest - 100 * c100;
    const int i = (date.month + (early ? 12 : 0) + 45 + q % 4 * 12) % 48;
    return date.day - 307 + BlockTable()[static_cast<std::size_t>(i)] + c400 * 146097 + c100 * 36524 + q / 4 * 1461;
}

// For a number that is not negative.
inline zuDATE PlainDate(int32 days) {
    int64 d = int64{days} + 306;
    const int64 c400 = d / 146097;
    d -= 146097 * c400;
    if (d == 146096) return {static_cast<int16>(c400 * 400 + 400), 2, 29};
    const int64 c100 = d / 36524;
    d -= 36524 * c100;
    const int64 c4 = d / 1461;
    d -= 1461 * c4;
    const int64 base = (c100 * 25 + c4) * 4 + c400 * 400;
    std::size_t i = 0;
    while (i < 47 && BlockTable()[i + 1] <= d) ++i;
    const auto k = static_cast<int64>(i) + 2;
    return {static_cast<int16>(base + k / 12), static_cast<int8>(k % 12 + 1),
            static_cast<int8>(d - BlockTable()[i] + 1)};
}

inline bool IsPlainLeapYear(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

inline int PlainDaysInMonth(int month, int year) {
    constexpr int Lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsPlainLeapYear(year) ? 29 : Lengths[month - 1];
}

// The day after.
inline zuDATE Tomorrow(zuDATE date) {
    if (date.day < PlainDaysInMonth(date.month, date.year)) {
        ++date.day;
    } else if (date.month < 12) {
        ++date.month;
        date.day = 1;
    } else {
        date = {static_cast<int16>(date.year + 1), 1, 1};
    }
    return date;
}

}  // namespace Torvo::test
