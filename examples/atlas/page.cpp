#include <examples/atlas/map.h>
#include <examples/atlas/page.h>
#include <examples/atlas/wide_text.h>

#include <algorithm>
#include <iomanip>
#include <ostream>

namespace atlas {

using namespace Torvo;

namespace {

constexpr std::size_t mostPrinted = 12;

wstring16 Element(const wchar16* name, const wstring16& text, const wstring16& attributes = {}) {
    return wstring16(ZUTEXT("<")) + name + attributes + ZUTEXT(">") + text + ZUTEXT("</") + name + ZUTEXT(">");
}

wstring16 Cell(const wstring16& text) {
    return Element(ZUTEXT("td"), Escaped(text));
}

wstring16 NumberCell(int64 number) {
    return Element(ZUTEXT("td"), Escaped(InLocale(number)), ZUTEXT(" class=\"number\""));
}

wstring16 Heading(const wchar16* text) {
    return Element(ZUTEXT("th"), text);
}

wstring16 Row(const Country& country) {
    return Element(ZUTEXT("tr"), NumberCell(country.row) + Cell(country.code) + Cell(country.ownName) +
                                     Cell(country.englishName) + NumberCell(country.population) +
                                     Cell(country.charsetName)) +
           ZUTEXT("\n");
}

wstring16 Legend() {
    wstring16 legend;
    for (int i = 0; i < populationClasses; ++i) {
        legend += Element(ZUTEXT("span"), InLocale(ClassBegin(i)) + ZUTEXT("+"),
                          wstring16(ZUTEXT(" style=\"background:")) + ClassColour(i) +
                              (i >= 4 ? ZUTEXT(";color:#fff\"") : ZUTEXT("\"")));
    }
    return Element(ZUTEXT("p"), legend, ZUTEXT(" class=\"legend\""));
}

std::vector<const Country*> ByPopulation(const std::vector<Country>& countries) {
    std::vector<const Country*> sorted;
    for (const Country& country : countries) sorted.push_back(&country);
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const Country* a, const Country* b) { return a->population > b->population; });
    return sorted;
}

}  // namespace

wstring16 DateInFull(zuDATE date) {
    constexpr int16 longDate = 32;
    wchar16 text[100] = {};
    return FormatDateString(text, std::size(text), date, longDate) ? text : wstring16();
}

wstring16 Page(const std::vector<Country>& countries, const Figures& figures, const wstring16& picture) {
    wstring16 rows;
    for (const Country& country : countries) rows += Row(country);
    const wstring16 facts = InLocale(static_cast<int64>(countries.size())) + ZUTEXT(" countries out of ") +
                            InLocale(static_cast<int64>(figures.registeredFiles)) +
                            ZUTEXT(" files, of which at most ") + InLocale(figures.handles) + ZUTEXT(" were open; ") +
                            InLocale(static_cast<int64>(figures.pointsDrawn)) + ZUTEXT(" points drawn. ") +
                            Escaped(DateInFull(figures.date));
    return wstring16(ZUTEXT("<!doctype html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n")) +
           Element(ZUTEXT("title"), ZUTEXT("Atlas")) +
           ZUTEXT(
               "\n<style>\nbody{font:16px/1.45 sans-serif;max-width:70rem;margin:2rem auto;padding:0 "
               "1rem;color:#1d2733}\n"
               "img{width:100%;height:auto;border:1px solid #cfd8e3}\ntable{border-collapse:collapse;width:100%}\n"
               "td,th{padding:.3rem .6rem;border-bottom:1px solid #e3e8ee;text-align:left}\n"
               ".number{text-align:right;font-variant-numeric:tabular-nums}\n"
               ".legend span{padding:.2rem .6rem;border:1px solid #cfd8e3}\n</style>\n</head>\n<body>\n") +
           Element(ZUTEXT("h1"), ZUTEXT("Atlas")) + ZUTEXT("\n") +
           Element(ZUTEXT("p"), facts, ZUTEXT(" id=\"facts\"")) +
           ZUTEXT("\n<img alt=\"Map of the countries below\" src=\"") + Escaped(picture) + ZUTEXT("\">\n") + Legend() +
           ZUTEXT("\n<table>\n") +
           Element(ZUTEXT("tr"), Heading(ZUTEXT("Row")) + Heading(ZUTEXT("Code")) + Heading(ZUTEXT("Own name")) +
                                     Heading(ZUTEXT("English name")) + Heading(ZUTEXT("People")) +
                                     Heading(ZUTEXT("Stored in"))) +
           ZUTEXT("\n") + rows + ZUTEXT("</table>\n</body>\n</html>\n");
}

void PrintReport(const std::vector<Country>& countries, const Figures& figures, std::ostream& out) {
    out << Narrow(DateInFull(figures.date)) << ": " << countries.size() << " countries out of "
        << figures.registeredFiles << " registered files, at most " << figures.handles << " of them open; "
        << figures.pointsRead << " points read, " << figures.pointsDrawn << " drawn\n\n";
    const std::vector<const Country*> sorted = ByPopulation(countries);
    for (std::size_t i = 0; i < std::min(mostPrinted, sorted.size()); ++i) {
        const Country& country = *sorted[i];
        out << std::right << std::setw(16) << Narrow(InLocale(country.population)) << "  " << std::left << std::setw(22)
            << Narrow(country.charsetName) << Narrow(country.ownName) << " (" << Narrow(country.englishName) << ")\n";
    }
    if (sorted.size() > mostPrinted) out << "                  and " << sorted.size() - mostPrinted << " more\n";
}

}  // namespace atlas
