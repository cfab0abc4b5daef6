#include <Utility/dates.h>

#include <Utility/datetime/calendar.h>
#include <Utility/errors/raise.h>
#include <Utility/locale_info.h>

#include <array>
#include <limits>

namespace Torvo {

namespace {

constexpr int32 BadDate = 9986;

void RaiseBadDate() {
    RaiseError(ERRORLEVEL_ERROR, 5002, BadDate);
}

// Both conversions count from 1 March of year 0, so that a leap day has its place at the end of a year. Day number 0,
// 1 January 0001, is 306 days later. They do without a search and without divisions, after C. Neri and L. Schneider,
// Euclidean affine functions and their application to calendar algorithms, Software: Practice and Experience 53 (2023),
// from which the constants are.
constexpr uint32 DaysFromMarchToJanuary = 306;
constexpr int32 LastDayOfCalendar = 3652058;
constexpr int32 DaysOfCycle = 146097;  // 400 years
constexpr int32 YearsOfCycle = 400;

// Days from 1 March to the first of a month, the months counted on from March, 3, to February, 14.
constexpr uint32 DaysBeforeMonth(uint32 month) {
    return (979 * month - 2919) / 32;
}

// The same for the months as dates have them, from day number 0 on.
constexpr auto DaysBeforeUsualMonth = [] {
    std::array<int32, 13> days{};
    for (uint32 month = 1; month <= 12; ++month) {
        days[month] = static_cast<int32>(DaysBeforeMonth(month < 3 ? month + 12 : month)) -
                      static_cast<int32>(DaysFromMarchToJanuary) - 1;
    }
    return days;
}();

// January and February cannot be foretold, so that they are reckoned with and not branched on.
constexpr uint32 OneIf(bool condition) {
    return condition ? 1 : 0;
}

// The day number of a date of which one field is outside its range. A month counts within a block of four years that
// begin in March, and one outside the block comes in again at its other end.
int32 UnusualDayNumber(const zuDATE& date) {
    if (date.month == 0 || date.day == 0 || date.year < 0) return -1;
    constexpr int32 BlockMonths = 48;
    const bool early = date.month < 3;
    // Year 0 has no January and no February of its own; -1 makes its days those at the end of the first block.
    const int32 year = date.year - (early ? 1 : 0);
    const int32 century = year / 100;
    const int32 yearOfCentury = year % 100;
    const int32 rawMonth = date.month + (early ? 12 : 0) - 3 + yearOfCentury % 4 * 12;
    const int32 month = ((rawMonth % BlockMonths) + BlockMonths) % BlockMonths;
    const auto daysOfBlock = static_cast<int32>(DaysBeforeMonth(static_cast<uint32>(month % 12 + 3)));
    return date.day - 1 - static_cast<int32>(DaysFromMarchToJanuary) + daysOfBlock + month / 12 * 365 +
           century / 4 * 146097 + century % 4 * 36524 + yearOfCentury / 4 * 1461;
}

// The date of a day number of the calendar.
zuDATE UsualDate(uint32 days) {
    // In quarters of a day a century and a year have a whole number of them.
    const uint32 quarters = 4 * (days + DaysFromMarchToJanuary) + 3;
    const uint32 century = quarters / DaysOfCycle;
    // With the days put back that three of four centuries lack, every fourth year is a leap year.
    const uint32 evenQuarters = quarters + 4 * (century - century / 4);
    // The product by 2^32 / 1461: the year in the high half, the part of it that has passed in the low half.
    const uint64 years = uint64{2939745} * evenQuarters;
    const uint32 dayOfYear = static_cast<uint32>(years) / 2939745 / 4;
    // The same for the month in units of 2^-16, from 3 to 14.
    const uint32 months = 2141 * dayOfYear + 197913;
    const uint32 early = OneIf(dayOfYear >= DaysFromMarchToJanuary);
    return {static_cast<int16>(static_cast<uint32>(years >> 32) + early),
            static_cast<int8>((months >> 16) - 12 * early), static_cast<int8>(months % 0x10000 / 2141 + 1)};
}

// The date of a number that is none of the calendar. After 400 years all comes again.
bool UnusualDate(int32 days, zuDATE* date) {
    if (days < 0) {
        SetNullDate(date);
        RaiseBadDate();
        return false;
    }
    *date = UsualDate(static_cast<uint32>(days % DaysOfCycle));
    date->year = static_cast<int16>(date->year + days / DaysOfCycle * YearsOfCycle);
    return true;
}

constexpr bool IsNull(const zuDATE& date) {
    return date.month == 0 || date.day == 0;
}

// Puts dates in order: by year, then month, then day, each a signed number.
constexpr int32 OrderKey(const zuDATE& date) {
    return date.year * 0x10000 + (date.month + 0x80) * 0x100 + (date.day + 0x80);
}

// The sum of a day number and some days; -1, which is no day number, when there is no such day.
int32 AddDays(int64 dayNumber, int64 days) {
    const int64 sum = dayNumber + days;
    return sum >= 0 && sum <= std::numeric_limits<int32>::max() ? static_cast<int32>(sum) : -1;
}

}  // namespace

bool NullDate(const zuDATE* date) {
    return IsNull(*date);
}

void SetNullDate(zuDATE* date) {
    *date = {};
}

bool IsValidDate(const zuDATE* date) {
    return static_cast<uint32>(date->year) <= 9999 && IsDayOfMonth(date->year, date->month, date->day);
}

bool SetDate(int16 year, int8 month, int8 day, zuDATE* date) {
    *date = {year, month, day};
    if (IsValidDate(date)) return true;
    SetNullDate(date);
    return false;
}

zuDATE* SystemDate(zuDATE* date) {
    *date = Today();
    return date;
}

int32 MDY2Days(const zuDATE* date) {
    const bool isUsual = static_cast<uint32>(date->month - 1) < 12 && date->year > 0 && date->day != 0;
    if (!isUsual) [[unlikely]]
        return UnusualDayNumber(*date);
    const int32 month = static_cast<uint8>(date->month);
    // One less in January and February, by the sign of a number.
    const auto year = static_cast<uint32>(date->year + ((month - 3) >> 31));
    const uint32 century = year / 100;
    const uint32 centuryDays = (3 * century + 3) / 4;  // century - century / 4
    return static_cast<int32>(1461 * year / 4 - centuryDays) + DaysBeforeUsualMonth[static_cast<uint32>(month)] +
           date->day;
}

bool Days2MDY(int32 days, zuDATE* date) {
    if (static_cast<uint32>(days) > LastDayOfCalendar) [[unlikely]]
        return UnusualDate(days, date);
    *date = UsualDate(static_cast<uint32>(days));
    return true;
}

zuDATE* DateAdd(int32 days, zuDATE* date) {
    Days2MDY(AddDays(MDY2Days(date), days), date);
    return date;
}

zuDATE* DateSubtract(int32 days, zuDATE* date) {
    Days2MDY(AddDays(MDY2Days(date), -int64{days}), date);
    return date;
}

int32 DateDiff(const zuDATE* a, const zuDATE* b) {
    return MDY2Days(a) - MDY2Days(b);
}

int32 DateCmp(const zuDATE* a, const zuDATE* b) {
    const bool firstIsNull = IsNull(*a);
    const bool secondIsNull = IsNull(*b);
    if (firstIsNull || secondIsNull) return firstIsNull == secondIsNull ? 0 : -2;
    const int32 first = OrderKey(*a);
    const int32 second = OrderKey(*b);
    return (first > second) - (first < second);
}

int32 DayOfWeek(int32 days) {
    return static_cast<int32>((int64{days} + 1) % 7 + 1);
}

int32 DateToLiteral(const zuDATE* date) {
    return (date->year * 100 + date->month) * 100 + date->day;
}

bool LiteralToDate(int32 literal, zuDATE* date) {
    const int32 year = literal / 10000;
    const int32 monthAndDay = literal % 10000;
    *date = {static_cast<int16>(year), static_cast<int8>(monthAndDay / 100), static_cast<int8>(monthAndDay % 100)};
    if (literal == 0 || (date->year >= 0 && IsDayOfMonth(date->year, date->month, date->day))) return true;
    RaiseBadDate();
    return false;
}

int16 GetDateOrder() {
    return DateForm(UsesLocaleForDates()).order;
}

wchar16 GetDateDelim() {
    return DateForm(UsesLocaleForDates()).delimiter;
}

}  // namespace Torvo
