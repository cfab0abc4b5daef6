#include "calendar.h"

#include <chrono>

std::int32_t ChronoDays(const PeerDate* date) {
    const std::chrono::year_month_day civil(std::chrono::year(date->year),
                                            std::chrono::month(static_cast<unsigned>(date->month)),
                                            std::chrono::day(static_cast<unsigned>(date->day)));
    return static_cast<std::int32_t>(std::chrono::sys_days(civil).time_since_epoch().count());
}

bool ChronoDate(std::int32_t days, PeerDate* date) {
    const std::chrono::year_month_day civil{std::chrono::sys_days(std::chrono::days(days))};
    *date = {static_cast<std::int16_t>(int(civil.year())), static_cast<std::int8_t>(unsigned(civil.month())),
             static_cast<std::int8_t>(unsigned(civil.day()))};
    return true;
}
