// How formats and texts of dates are cut into pieces.
#pragma once

#include <Utility/dates.h>

#include <vector>

namespace Torvo {

// The words of a format. A piece that is none is literal text.
enum class SqlDateWord {
    Literal,
    MonthName,
    ShortMonthName,
    DayName,
    ShortDayName,
    Month2,
    Month,
    Day2,
    Day,
    Year,
    Year2
};

SqlDateWord SqlDateWordOf(const wstring16& token);

// The pieces, in order; see <Utility/sql_dates.h>. Throws std::bad_alloc.
std::vector<wstring16> SplitSQLDateTokens(const wstring16& text);

}  // namespace Torvo
