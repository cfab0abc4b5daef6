#include <examples/recode/command_line.h>
#include <examples/recode/demo.h>
#include <examples/recode/files.h>
#include <examples/recode/recode.h>

#include <algorithm>
#include <filesystem>
#include <iomanip>
#include <ostream>
#include <set>

namespace recode {

namespace {

using namespace Torvo;

constexpr const char* help =
    R"(recode - re-codes text files between character sets and tells what got lost

  recode [options] FROM TO FILE...    re-codes each file; without -o or -d it only reports
  recode --list                       lists the character sets
  recode --demo FOLDER                shows a table for the texts in data/udhr

FROM and TO are names as --list shows them, in any case, such as WindowsLatin1 or UTF-8.

  -o, --output FILE      where to write, for a single file
  -d, --directory DIR    where to write, under the same name, for any number of files
  -a, --accept-losses    writes even if characters got lost; they become "_" (U+FFFD in a Unicode set)
  -r, --road ROAD        text: through system text; tables: by a re-coding table; auto (the default): text if both sets
                         have a code page, else tables if both have a byte table
  -k, --kinds N          shows at most N kinds of lost characters for each file (10)
  -h, --help             this text

Ends with 0 if every character was kept or its loss accepted, with 1 if something was lost and therefore not written,
with 2 if something could not be done.
)";

struct Options {
    ZUCHARSET from = csUnknown;
    ZUCHARSET to = csUnknown;
    Road road = Road::Automatic;
    bool acceptLosses = false;
    std::size_t kinds = 10;
    std::string output;
    std::string directory;
    std::vector<std::string> files;
};

std::string Target(const Options& options, const std::string& file) {
    if (options.directory.empty()) return options.output;
    return (std::filesystem::path(options.directory) / std::filesystem::path(file).filename()).string();
}

// Reads the command line; the reason if it cannot be followed, else empty.
class Parser {
public:
    Parser(const std::vector<std::string>& given, Options& target) : arguments(given), options(target) {}

    std::string Parse() {
        for (next = 0; next < arguments.size();) {
            const std::string argument = arguments[next++];
            const std::string error = argument.size() > 1 && argument[0] == '-' ? Option(argument) : Word(argument);
            if (!error.empty()) return error;
        }
        if (words.size() < 3) return "a set to read, a set to write and a file are needed";
        if (!options.output.empty() && options.files.size() > 1) return "--output takes a single file; use --directory";
        if (!options.output.empty() && !options.directory.empty()) return "--output and --directory exclude each other";
        if (const std::string error = Targets(); !error.empty()) return error;
        return Sets();
    }

private:
    std::string Option(const std::string& name) {
        if (name == "-a" || name == "--accept-losses") {
            options.acceptLosses = true;
            return {};
        }
        if (next == arguments.size()) return "unknown option, or nothing behind it: " + name;
        const std::string value = arguments[next++];
        if (name == "-o" || name == "--output") {
            options.output = value;
        } else if (name == "-d" || name == "--directory") {
            options.directory = value;
        } else if (name == "-r" || name == "--road") {
            return SetRoad(value);
        } else if (name == "-k" || name == "--kinds") {
            return SetKinds(value);
        } else {
            return "unknown option: " + name;
        }
        return {};
    }

    std::string SetRoad(const std::string& value) {
        if (value != "auto" && value != "text" && value != "tables") return "no such road: " + value;
        options.road = value == "text" ? Road::SystemText : value == "tables" ? Road::Tables : Road::Automatic;
        return {};
    }

    std::string SetKinds(const std::string& value) {
        if (value.empty() || value.size() > 6 || value.find_first_not_of("0123456789") != std::string::npos) {
            return "not a number of kinds: " + value;
        }
        options.kinds = std::stoul(value);
        return {};
    }

    std::string Word(const std::string& word) {
        words.push_back(word);
        if (words.size() > 2) options.files.push_back(word);
        return {};
    }

    // No file may take the place of another, nor of its own source.
    std::string Targets() {
        std::set<std::string> targets;
        for (const std::string& file : options.files) {
            const std::string target = Target(options, file);
            std::error_code ignored;
            if (target.empty()) continue;
            if (!targets.insert(target).second) return "two files would be written to " + target;
            if (std::filesystem::equivalent(file, target, ignored)) return target + " would replace its own source";
        }
        return {};
    }

    std::string Sets() {
        options.from = CharsetOf(words[0]);
        options.to = CharsetOf(words[1]);
        if (options.from == csUnknown) return "no such character set: " + words[0] + " (see --list)";
        if (options.to == csUnknown) return "no such character set: " + words[1] + " (see --list)";
        return {};
    }

    const std::vector<std::string>& arguments;
    Options& options;
    std::size_t next = 0;
    std::vector<std::string> words;
};

void List(std::ostream& out) {
    out << std::left << std::setw(8) << "number" << std::setw(26) << "name" << std::setw(11) << "code page"
        << "byte table\n";
    for (int number = 0; number <= csUTF16; ++number) {
        const auto cs = static_cast<ZUCHARSET>(number);
        const int codePage = GetWinCodePage(cs);
        const std::string page = codePage < 0    ? "-"
                                 : codePage == 0 ? "ANSI"
                                 : codePage == 1 ? "OEM"
                                                 : std::to_string(codePage);
        out << std::left << std::setw(8) << number << std::setw(26) << NameOf(cs) << std::setw(11) << page
            << (HasByteTable(cs) ? "yes" : "-") << '\n';
    }
}

void Report(const Options& options, const std::string& file, std::size_t bytes, const Result& result,
            std::ostream& out) {
    out << file << ": " << NameOf(options.from) << " to " << NameOf(options.to)
        << (result.road == Road::Tables ? " by a re-coding table" : " through system text") << '\n'
        << "  " << bytes << " bytes, " << result.units << " units, " << result.characters << " characters; "
        << result.bytes.size() << " bytes in " << NameOf(options.to) << '\n';
    if (result.markLeftOut) out << "  the byte-order mark is left out\n";
    out << "  lost: " << result.lost << "; re-coded back it is " << (result.comesBack ? "equal" : "not equal") << '\n';
    const std::size_t shown = std::min(options.kinds, result.losses.size());
    for (std::size_t i = 0; i < shown; ++i) {
        const Loss& loss = result.losses[i];
        out << "    " << loss.what << " x" << loss.count << ", first at byte " << loss.first.byte << " (line "
            << loss.first.line << ", character " << loss.first.character << ")\n";
    }
    if (shown < result.losses.size()) out << "    and " << result.losses.size() - shown << " more kinds\n";
}

int RecodeFile(const Options& options, const std::string& file, std::ostream& out, std::ostream& err) {
    std::string bytes;
    if (!ReadFile(file, bytes)) {
        err << "recode: cannot read " << file << '\n';
        return notDone;
    }
    const Result result = Recode(bytes, options.from, options.to, options.road);
    if (!result.error.empty()) {
        err << "recode: " << file << ": " << result.error << '\n';
        return notDone;
    }
    Report(options, file, bytes.size(), result, out);
    const std::string target = Target(options, file);
    const bool mayWrite = result.lost == 0 || options.acceptLosses;
    if (!target.empty()) {
        if (!mayWrite) {
            out << "  not written (--accept-losses writes it all the same)\n";
        } else if (!WriteFile(target, result.bytes)) {
            err << "recode: cannot write " << target << '\n';
            return notDone;
        } else {
            out << "  written to " << target << '\n';
        }
    }
    return mayWrite ? everythingKept : somethingLost;
}

}  // namespace

int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    const auto asks = [&](const char* brief, const char* full) {
        return std::find(arguments.begin(), arguments.end(), brief) != arguments.end() ||
               std::find(arguments.begin(), arguments.end(), full) != arguments.end();
    };
    if (arguments.empty() || asks("-h", "--help")) {
        out << help;
        return arguments.empty() ? notDone : everythingKept;
    }
    if (arguments[0] == "--list" && arguments.size() == 1) {
        List(out);
        return everythingKept;
    }
    if (arguments[0] == "--demo" && arguments.size() == 2) {
        return ShowDemo(arguments[1], out) ? everythingKept : notDone;
    }
    Options options;
    const std::string error = Parser(arguments, options).Parse();
    if (!error.empty()) {
        err << "recode: " << error << "\nrecode --help tells how to use it.\n";
        return notDone;
    }
    int worst = everythingKept;
    for (const std::string& file : options.files) worst = std::max(worst, RecodeFile(options, file, out, err));
    return worst;
}

}  // namespace recode
