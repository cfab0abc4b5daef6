#include <examples/atlas/selection.h>
#include <examples/atlas/wide_text.h>

#include <algorithm>

namespace atlas {

using namespace Torvo;

namespace {

constexpr double perDegree = 100;

// Reads a number and, if one is wanted, the character behind it; moves on behind both.
template <typename T, typename Read>
bool ReadBefore(const wchar16*& at, wchar16 separator, T& value, Read read) {
    wchar16* end = nullptr;
    if (!read(at, &value, &end) || *end != separator) return false;
    at = separator != 0 ? end + 1 : end;
    return true;
}

}  // namespace

Selection::~Selection() {
    if (rows != nullptr) flist_destroy(rows);
}

std::string Selection::SetPattern(const std::string& text) {
    bool match = false;
    pattern = Wide(text);
    return Like(ZUTEXT("x"), pattern->c_str(), nullptr, &match) ? "" : "not a pattern: " + text;
}

std::string Selection::SetRows(const std::string& text) {
    if (rows == nullptr) rows = flist_init();
    const wstring16 wide = Wide(text);
    for (const wchar16* at = wide.c_str();;) {
        wchar16* end = nullptr;
        int first = 0;
        if (!StringToInt(at, &first, &end) || first < 0) return "not a list of rows: " + text;
        int last = first;
        if (*end == '-' && (!StringToInt(end + 1, &last, &end) || last < first)) return "not a list of rows: " + text;
        if (!flist_add_range(rows, first, last)) return "there is no memory for the rows";
        if (*end == 0) return {};
        if (*end != ',') return "not a list of rows: " + text;
        at = end + 1;
    }
}

std::string Selection::SetWindow(const std::string& text) {
    const wstring16 wide = Wide(text);
    const wchar16* at = wide.c_str();
    DRECT degrees{};
    const auto read = [&](double& value, wchar16 separator) {
        return ReadBefore(at, separator, value, StringToDouble);
    };
    if (!read(degrees.x1, ',') || !read(degrees.y1, ',') || !read(degrees.x2, ',') || !read(degrees.y2, 0)) {
        return "not a window of four numbers: " + text;
    }
    const DRECT scaled{degrees.x1 * perDegree, degrees.y1 * perDegree, degrees.x2 * perDegree, degrees.y2 * perDegree};
    DoubleToLongRect(scaled, window, -18000, 18000);
    return RectIsEmpty(window) ? "an empty window: " + text : "";
}

bool Selection::MatchesPattern(const wstring16& name) const {
    bool match = false;
    return Like(name.c_str(), pattern->c_str(), nullptr, &match) && match;
}

bool Selection::Takes(const Country& country) const {
    if (rows != nullptr && !flist_member(rows, country.row)) return false;
    if (pattern && !MatchesPattern(country.englishName) && !MatchesPattern(country.ownName)) return false;
    return RectsOverlap(country.bounds, window);
}

}  // namespace atlas
