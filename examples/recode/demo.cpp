#include <examples/recode/demo.h>
#include <examples/recode/files.h>
#include <examples/recode/recode.h>

#include <iomanip>
#include <ostream>
#include <vector>

namespace recode {

namespace {

using namespace Torvo;

// A language on its way through a set. `through` is csUnknown, or the set from which the tables re-code into `set`,
// for a set that has no code page.
struct Journey {
    const char* language;
    const char* file;
    ZUCHARSET set;
    ZUCHARSET through = csUnknown;
};

constexpr Journey journeys[] = {
    {"Polish", "polish.txt", csWindowsLatin2},
    {"Russian", "russian.txt", csWindowsCyrillic},
    {"Greek", "greek.txt", csWindowsGreek},
    {"Turkish", "turkish.txt", csWindowsTurkish},
    {"Hebrew", "hebrew.txt", csWindowsHebrew},
    {"Arabic", "arabic.txt", csWindowsArabic},
    {"Latvian", "latvian.txt", csWindowsBalticRim},
    {"Vietnamese", "vietnamese.txt", csWindowsVietnamese},
    {"Thai", "thai.txt", csWindowsThai},
    {"Japanese", "japanese.txt", csWindowsJapanese},
    {"Chinese, simplified", "chinese-simplified.txt", csWindowsSimpChinese},
    {"Korean", "korean.txt", csWindowsKorean},
    {"Chinese, traditional", "chinese-traditional.txt", csWindowsTradChinese},
    {"French", "french.txt", csCodePage850},
    {"French, by tables", "french.txt", csMacRoman, csWindowsLatin1},
};

struct Row {
    std::string set;  // with its code page, where it has one
    std::size_t bytes = 0;
    std::uint64_t units = 0;
    std::uint64_t characters = 0;
    std::uint64_t lost = 0;
    bool roundTrip = false;
    std::vector<Loss> losses;
};

void AddLosses(Row& row, const Result& step) {
    row.lost += step.lost;
    row.losses.insert(row.losses.end(), step.losses.begin(), step.losses.end());
}

// There and back through one code page.
bool TravelByText(const std::string& utf8, const Journey& journey, Row& row) {
    const Result there = Recode(utf8, csUTF8, journey.set, Road::SystemText);
    if (!there.error.empty()) return false;
    const Result back = Recode(there.bytes, journey.set, csUTF8, Road::SystemText);
    row.set = NameOf(journey.set) + " (" + std::to_string(GetWinCodePage(journey.set)) + ")";
    row.bytes = there.bytes.size();
    row.units = there.units;
    row.characters = there.characters;
    row.roundTrip = back.error.empty() && back.bytes == utf8;
    AddLosses(row, there);
    return true;
}

// To a set with a code page, on by tables, and the whole way back.
bool TravelByTables(const std::string& utf8, const Journey& journey, Row& row) {
    const Result first = Recode(utf8, csUTF8, journey.through, Road::SystemText);
    if (!first.error.empty()) return false;
    const Result second = Recode(first.bytes, journey.through, journey.set, Road::Tables);
    if (!second.error.empty()) return false;
    const Result third = Recode(second.bytes, journey.set, journey.through, Road::Tables);
    const Result fourth = Recode(third.bytes, journey.through, csUTF8, Road::SystemText);
    row.set = NameOf(journey.set);
    row.bytes = second.bytes.size();
    row.units = first.units;
    row.characters = first.characters;
    row.roundTrip = third.error.empty() && fourth.error.empty() && fourth.bytes == utf8;
    AddLosses(row, first);
    AddLosses(row, second);
    return true;
}

template <typename... Cells>
void PrintRow(std::ostream& out, const std::string& language, const std::string& set, const Cells&... cells) {
    out << std::left << std::setw(22) << language << std::setw(27) << set << std::right;
    ((out << std::setw(11) << cells), ...);
    out << '\n';
}

void PrintLosses(std::ostream& out, const Journey& journey, const Row& row) {
    out << journey.language << " in " << row.set << " lost";
    for (const Loss& loss : row.losses) {
        out << "  " << loss.what << " x" << loss.count << " (first in line " << loss.first.line << ", character "
            << loss.first.character << ")";
    }
    out << '\n';
}

}  // namespace

bool ShowDemo(const std::string& folder, std::ostream& out) {
    std::vector<Row> rows;
    for (const Journey& journey : journeys) {
        std::string utf8;
        Row row;
        if (!ReadFile(folder + "/" + journey.file, utf8)) {
            out << "cannot read " << folder << "/" << journey.file << '\n';
            return false;
        }
        if (!(journey.through == csUnknown ? TravelByText(utf8, journey, row) : TravelByTables(utf8, journey, row))) {
            out << "no road to " << NameOf(journey.set) << '\n';
            return false;
        }
        rows.push_back(row);
    }
    PrintRow(out, "language", "set", "bytes", "units", "characters", "lost", "round trip");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        PrintRow(out, journeys[i].language, row.set, row.bytes, row.units, row.characters, row.lost,
                 row.roundTrip ? "equal" : "differs");
    }
    out << '\n';
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].lost != 0) PrintLosses(out, journeys[i], rows[i]);
    }
    return true;
}

}  // namespace recode
