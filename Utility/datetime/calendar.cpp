#include <Utility/datetime/calendar.h>
#include <Utility/locale_info.h>
#include <Utility/platform/clock.h>

namespace Torvo {

namespace {

constexpr zuDATE EndOfShortClocks = {2038, 1, 19};
constexpr int FirstYearOfTm = 1900;

}  // namespace

DateForm::DateForm(bool useLocale) {
    GetZULocaleDateInfo(useLocale, &order, &delimiter);
}

bool LocalClock(std::tm* parts) {
    return platform::_localtime64(platform::_time64(), parts);
}

zuDATE TodayOf(bool (*clock)(std::tm*)) {
    std::tm now{};
    if (!clock(&now)) return EndOfShortClocks;
    return {static_cast<int16>(now.tm_year + FirstYearOfTm), static_cast<int8>(now.tm_mon + 1),
            static_cast<int8>(now.tm_mday)};
}

zuDATE Today() {
    return TodayOf(LocalClock);
}

bool UsesLocaleForDates() {
    return UsesLocale(GetDateFormatCallback());
}

}  // namespace Torvo
