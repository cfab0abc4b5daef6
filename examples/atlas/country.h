// What the data set says of a country.
#pragma once

#include <Utility/Utility.h>

#include <vector>

namespace atlas {

using Ring = std::vector<Torvo::DPNT>;  // degrees, longitude and latitude; the last point repeats the first

struct Country {
    int row = 0;
    Torvo::wstring16 code;
    Torvo::wstring16 charsetName;
    Torvo::ZUCHARSET charset = Torvo::csUnknown;
    Torvo::wstring16 englishName;
    Torvo::wstring16 ownName;
    Torvo::int64 population = 0;
    Torvo::LRECT bounds{};  // hundredths of a degree
    std::vector<Ring> outline;
};

}  // namespace atlas
