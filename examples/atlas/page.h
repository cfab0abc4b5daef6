// The report: a page beside the map, and a few lines for the console.
#pragma once

#include <examples/atlas/country.h>

#include <iosfwd>

namespace atlas {

struct Figures {
    Torvo::uint64 registeredFiles = 0;
    int handles = 0;
    Torvo::uint64 pointsRead = 0;
    Torvo::uint64 pointsDrawn = 0;
    Torvo::zuDATE date{};
};

// A date as the locale writes it in full.
Torvo::wstring16 DateInFull(Torvo::zuDATE date);

// The page, in the numbers and dates of the thread's locale. `picture` is the map's file name.
Torvo::wstring16 Page(const std::vector<Country>& countries, const Figures& figures, const Torvo::wstring16& picture);

// The countries with most people, and the figures.
void PrintReport(const std::vector<Country>& countries, const Figures& figures, std::ostream& out);

}  // namespace atlas
