// The map: countries clipped to a window and drawn as SVG.
#pragma once

#include <examples/atlas/country.h>

namespace atlas {

// How many people a country has, in classes from 0 to populationClasses - 1, and the colour of a class.
constexpr int populationClasses = 6;
int PopulationClass(Torvo::int64 population);
const Torvo::wchar16* ClassColour(int populationClass);
// From how many people on a class counts.
Torvo::int64 ClassBegin(int populationClass);

class Map {
public:
    // A window in hundredths of a degree, in a picture of so many pixels across. Degrees of longitude are drawn as long
    // as they are in the middle of the window.
    Map(const Torvo::LRECT& window, int width);

    // Adds a country; false if nothing of it lies in the window.
    bool Draw(const Country& country);

    Torvo::uint64 PointsRead() const { return pointsRead; }
    Torvo::uint64 PointsDrawn() const { return pointsDrawn; }

    // The picture as a document.
    Torvo::wstring16 Picture() const;

private:
    Torvo::wstring16 PathOf(const Ring& ring);

    const Torvo::LRECT window;
    const int width;
    Torvo::wstring16 shapes;
    Torvo::uint64 pointsRead = 0;
    Torvo::uint64 pointsDrawn = 0;
    std::vector<Torvo::LPNT> whole;
    std::vector<Torvo::LPNT> clipped;
};

// Text for a place in XML: & < > and quotes as entities.
Torvo::wstring16 Escaped(const Torvo::wstring16& text);

}  // namespace atlas
