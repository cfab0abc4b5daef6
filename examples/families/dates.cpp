// A date as a record, as a day number and as a literal; read from text and written for a reader.
#include <Utility/date_strings.h>
#include <Utility/dates.h>
#include <Utility/instance.h>
#include <Utility/platform/host.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    zuDATE date;
    if (!SetDate(2024, 1, 31, &date)) return 1;
    std::printf("literal %d, day number %d, weekday %d\n", DateToLiteral(&date), MDY2Days(&date),
                DayOfWeek(MDY2Days(&date)));
    DateAdd(29, &date);
    std::printf("29 days later: %d\n", DateToLiteral(&date));
    const bool isDate = SetDate(2024, 2, 30, &date);
    std::printf("30 February: %s, and the date is then null: %s\n", YesOrNo(isDate), YesOrNo(NullDate(&date)));

    platform::SetThreadLocale(0x0407);  // Germany: day, month, year
    if (Str2Date(ZUTEXT("2024-02-29"), &date) == nullptr) return 1;
    std::printf("ISO: %d\n", DateToLiteral(&date));
    if (Str2Date(ZUTEXT("1.3.2024"), &date) == nullptr) return 1;
    std::printf("the locale's form: %d\n", DateToLiteral(&date));

    wchar16 text[40];
    MakeDateString(text, 40, &date, DATEORDER_YMD, '/');
    std::printf("%s\n", Shown(text).c_str());
    FormatDateString(text, 40, date, ZUTEXT("dddd, d. MMMM yyyy"));
    std::printf("%s\n", Shown(text).c_str());

    InstanceData::Destroy(false, false);
    return 0;
}
