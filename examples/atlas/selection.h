// Which countries are wanted: by name, by row, by where they lie.
#pragma once

#include <examples/atlas/country.h>

#include <optional>
#include <string>

namespace atlas {

class Selection {
public:
    Selection() = default;
    ~Selection();
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

    // Each tells what is wrong with its text, or gives an empty text.

    // A pattern of SQL's LIKE for the English or the own name, as "%land".
    std::string SetPattern(const std::string& pattern);
    // Rows and ranges of rows, as "1-20,40".
    std::string SetRows(const std::string& rows);
    // A window in degrees, as "-25,34,45,72": west, south, east, north.
    std::string SetWindow(const std::string& window);

    bool Takes(const Country& country) const;
    // In hundredths of a degree; the whole world if none was set.
    const Torvo::LRECT& Window() const { return window; }

private:
    bool MatchesPattern(const Torvo::wstring16& name) const;

    std::optional<Torvo::wstring16> pattern;
    Torvo::flist* rows = nullptr;
    Torvo::LRECT window{-18000, -9000, 18000, 9000};
};

}  // namespace atlas
