#include <examples/atlas/map.h>
#include <examples/atlas/wide_text.h>

#include <algorithm>
#include <cmath>

namespace atlas {

using namespace Torvo;

namespace {

struct Class {
    int64 begin;
    const wchar16* colour;
};

constexpr Class classes[populationClasses] = {
    {0, ZUTEXT("#f1eef6")},          {1'000'000, ZUTEXT("#d0d1e6")},  {5'000'000, ZUTEXT("#a6bddb")},
    {20'000'000, ZUTEXT("#74a9cf")}, {60'000'000, ZUTEXT("#2b8cbe")}, {150'000'000, ZUTEXT("#045a8d")},
};

constexpr double hundredthsPerDegree = 100;
constexpr double degreesPerRadian = 180 / 3.141592653589793;

wstring16 Number(double value, int places = 0) {
    wchar16 text[64];
    return DoubleToString(value, text, std::size(text), false, places, PRINTF_FORMAT_F, -1);
}

wstring16 Pair(int32 x, int32 y) {
    return Number(x) + ZUTEXT(" ") + Number(y);
}

// An attribute with its value.
wstring16 With(const wchar16* name, const wstring16& value) {
    return wstring16(ZUTEXT(" ")) + name + ZUTEXT("=\"") + value + ZUTEXT("\"");
}

}  // namespace

int PopulationClass(int64 population) {
    int found = 0;
    while (found + 1 < populationClasses && population >= classes[found + 1].begin) ++found;
    return found;
}

const wchar16* ClassColour(int populationClass) {
    return classes[populationClass].colour;
}

int64 ClassBegin(int populationClass) {
    return classes[populationClass].begin;
}

wstring16 Escaped(const wstring16& text) {
    wstring16 escaped;
    for (const wchar16 unit : text) {
        switch (unit) {
            case '&':
                escaped += ZUTEXT("&amp;");
                break;
            case '<':
                escaped += ZUTEXT("&lt;");
                break;
            case '>':
                escaped += ZUTEXT("&gt;");
                break;
            case '"':
                escaped += ZUTEXT("&quot;");
                break;
            default:
                escaped += unit;
        }
    }
    return escaped;
}

Map::Map(const LRECT& wanted, int pixels) : window(wanted), width(pixels) {}

// The visible part of a ring, on whole hundredths of a degree; each step is told from the one before.
wstring16 Map::PathOf(const Ring& ring) {
    const auto count = static_cast<int32>(ring.size());
    std::vector<DPNT> scaled(ring.size());
    std::transform(ring.begin(), ring.end(), scaled.begin(), [](DPNT point) {
        return DPNT{point.x * hundredthsPerDegree, point.y * hundredthsPerDegree};
    });
    whole.resize(ring.size());
    DoubleToLongPoints(scaled.data(), whole.data(), count, -18000, 18000);
    clipped.resize(6 * ring.size() + 6);
    int written = count;
    const bool fitted = ClipPoly(whole.data(), clipped.data(), &window, &written, static_cast<int>(clipped.size()));
    pointsRead += ring.size();
    if (!fitted || written < 4) return {};
    pointsDrawn += static_cast<uint64>(written);
    wstring16 path = ZUTEXT("M") + Pair(clipped[0].x, clipped[0].y) + ZUTEXT("l");
    for (int i = 1; i + 1 < written; ++i) {
        const LPNT from = clipped[static_cast<std::size_t>(i) - 1];
        const LPNT to = clipped[static_cast<std::size_t>(i)];
        path += Pair(to.x - from.x, to.y - from.y) + ZUTEXT(" ");
    }
    path.back() = 'z';
    return path;
}

bool Map::Draw(const Country& country) {
    wstring16 path;
    for (const Ring& ring : country.outline) path += PathOf(ring);
    if (path.empty()) return false;
    shapes += ZUTEXT("<path") + With(ZUTEXT("fill"), ClassColour(PopulationClass(country.population))) +
              With(ZUTEXT("d"), path) + ZUTEXT("><title>") + Escaped(country.ownName) + ZUTEXT(" (") +
              Escaped(country.englishName) + ZUTEXT("): ") + Escaped(InLocale(country.population)) +
              ZUTEXT("</title></path>\n");
    return true;
}

wstring16 Map::Picture() const {
    const double middle = (double(window.y1) + double(window.y2)) / 2 / hundredthsPerDegree;
    const double narrowing = std::max(std::cos(middle / degreesPerRadian), 0.1);
    const double across = (double(window.x2) - double(window.x1)) * narrowing;
    const double high = double(window.y2) - double(window.y1);
    const wstring16 left = Number(window.x1 * narrowing, 2);
    const wstring16 top = Number(-window.y2);
    const wstring16 box = left + ZUTEXT(" ") + top + ZUTEXT(" ") + Number(across, 2) + ZUTEXT(" ") + Number(high);
    return wstring16(ZUTEXT("<svg xmlns=\"http://www.w3.org/2000/svg\"")) + With(ZUTEXT("viewBox"), box) +
           With(ZUTEXT("width"), Number(width)) + With(ZUTEXT("height"), Number(width * high / across)) +
           ZUTEXT(">\n<rect") + With(ZUTEXT("x"), left) + With(ZUTEXT("y"), top) +
           With(ZUTEXT("width"), Number(across, 2)) + With(ZUTEXT("height"), Number(high)) +
           With(ZUTEXT("fill"), ZUTEXT("#fbfdff")) + ZUTEXT("/>\n<g") +
           With(ZUTEXT("transform"), ZUTEXT("scale(") + Number(narrowing, 4) + ZUTEXT(" -1)")) +
           ZUTEXT(" fill-rule=\"evenodd\" stroke=\"#56708a\" stroke-width=\"0.5\" stroke-linejoin=\"round\">\n") +
           ZUTEXT("<style>path{vector-effect:non-scaling-stroke}</style>\n") + shapes + ZUTEXT("</g>\n</svg>\n");
}

}  // namespace atlas
