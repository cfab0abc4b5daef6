#include <examples/atlas/command_line.h>
#include <examples/atlas/data_set.h>
#include <examples/atlas/map.h>
#include <examples/atlas/output_file.h>
#include <examples/atlas/page.h>
#include <examples/atlas/selection.h>
#include <examples/atlas/wide_text.h>

#include <algorithm>
#include <ostream>

namespace atlas {

using namespace Torvo;

namespace {

constexpr const char* help =
    R"(atlas - draws a map of the countries in a data set, and a page of facts beside it

  atlas [options] FOLDER TARGET     reads the files in FOLDER, writes atlas.svg and atlas.html into TARGET

  --name PATTERN        countries whose English or own name matches, as in SQL: "%land", "P_land"
  --rows LIST           countries by their rows in the index: 1-20,40
  --within W,S,E,N      a window in degrees: -25,34,45,72
  --handles N           how many files may be open at once (16)
  --locale NUMBER       the locale of numbers and dates, by its identifier: 1031 for German (Germany)
  --date DATE           the date of the page (today)
  --width PIXELS        how wide the map is (1200)
  -h, --help            this text
)";

struct Options {
    Selection selection;
    std::string folder;
    std::string target;
    int handles = 16;
    int width = 1200;
    zuDATE date{};
};

class Parser {
public:
    Parser(const std::vector<std::string>& given, Options& target) : arguments(given), options(target) {}

    // What is wrong with the command line, or an empty text.
    std::string Parse() {
        SystemDate(&options.date);
        std::vector<std::string> words;
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            if (!arguments[i].starts_with("--")) {
                words.push_back(arguments[i]);
                continue;
            }
            if (i + 1 == arguments.size()) return "nothing behind " + arguments[i];
            const std::string error = Take(arguments[i], arguments[i + 1]);
            if (!error.empty()) return error;
            ++i;
        }
        if (words.size() != 2) return "a folder to read and one to write are needed";
        options.folder = words[0];
        options.target = words[1];
        return {};
    }

private:
    std::string Take(const std::string& name, const std::string& value) {
        if (name == "--name") return options.selection.SetPattern(value);
        if (name == "--rows") return options.selection.SetRows(value);
        if (name == "--within") return options.selection.SetWindow(value);
        if (name == "--handles") return TakeNumber(value, 2, 2040, options.handles);
        if (name == "--width") return TakeNumber(value, 100, 10000, options.width);
        if (name == "--locale") return TakeLocale(value);
        if (name == "--date") {
            return Str2Date(Wide(value).c_str(), &options.date) != nullptr ? "" : "not a date: " + value;
        }
        return "unknown option: " + name;
    }

    std::string TakeNumber(const std::string& value, int32 low, int32 high, int& number) {
        int32 read = 0;
        if (!StringToInt32(Wide(value).c_str(), &read, nullptr, low, high)) {
            return "not a number from " + std::to_string(low) + " to " + std::to_string(high) + ": " + value;
        }
        number = read;
        return {};
    }

    std::string TakeLocale(const std::string& value) {
        uint32 locale = 0;
        const bool known =
            StringToUnsignedInt32(Wide(value).c_str(), &locale, nullptr, 0) && platform::SetThreadLocale(locale);
        return known ? "" : "no such locale: " + value;
    }

    const std::vector<std::string>& arguments;
    Options& options;
};

bool WriteFile(const std::string& folder, const wchar16* name, FILETYPE type, const wstring16& text) {
    OutputFile file(Wide(folder) + ZUTEXT("\\") + name, type);
    file.Write(text);
    return file.Close();
}

// Draws what was selected; the countries that are on the map.
std::vector<Country> Draw(std::vector<Country> countries, const Selection& selection, Map& map) {
    std::erase_if(countries, [&](const Country& country) { return !selection.Takes(country) || !map.Draw(country); });
    return countries;
}

int Make(const Options& options, std::ostream& out, std::ostream& err) {
    const SmallFileSystem files(options.handles);
    if (!files.IsMade()) {
        err << "atlas: there is no memory for the files\n";
        return notDone;
    }
    DataSet data(options.folder);
    std::vector<Country> all;
    const std::string error = data.Read(all);
    if (!error.empty()) {
        err << "atlas: " << error << '\n';
        return notDone;
    }
    Map map(options.selection.Window(), options.width);
    const std::vector<Country> drawn = Draw(std::move(all), options.selection, map);
    const Figures figures{data.RegisteredFiles(), options.handles, map.PointsRead(), map.PointsDrawn(), options.date};
    if (!WriteFile(options.target, ZUTEXT("atlas.svg"), ftNone, map.Picture()) ||
        !WriteFile(options.target, ZUTEXT("atlas.html"), ftHtml, Page(drawn, figures, ZUTEXT("atlas.svg")))) {
        err << "atlas: cannot write into " << options.target << '\n';
        return notDone;
    }
    PrintReport(drawn, figures, out);
    out << "\nwritten: " << options.target << "/atlas.svg and " << options.target << "/atlas.html\n";
    return done;
}

}  // namespace

int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    const auto asksForHelp = [](const std::string& word) { return word == "-h" || word == "--help"; };
    if (arguments.empty() || std::any_of(arguments.begin(), arguments.end(), asksForHelp)) {
        out << help;
        return arguments.empty() ? notDone : done;
    }
    Options options;
    const std::string error = Parser(arguments, options).Parse();
    if (!error.empty()) {
        err << "atlas: " << error << "\natlas --help tells how to use it.\n";
        return notDone;
    }
    return Make(options, out, err);
}

}  // namespace atlas
