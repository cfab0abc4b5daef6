// Peers of the date conversions behind a shared library's boundary, as ours are.
#pragma once

#include <cstdint>

// Laid out as the library's own date.
struct PeerDate {
    std::int16_t year;
    std::int8_t month;
    std::int8_t day;
};

#define PEER_API __attribute__((visibility("default")))

// std::chrono: days from 1 January 1970.
PEER_API std::int32_t ChronoDays(const PeerDate* date);
PEER_API bool ChronoDate(std::int32_t days, PeerDate* date);
