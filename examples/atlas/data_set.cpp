#include <examples/atlas/data_set.h>
#include <examples/atlas/wide_text.h>

#include <algorithm>
#include <memory>

namespace atlas {

using namespace Torvo;

namespace {

constexpr int mostLine = 1024;  // units of a line of the text files
constexpr int mostName = 130;   // units of a name, of which at most 127 bytes are stored

// The names without extension of the files that match a pattern.
std::vector<wstring16> Find(const wstring16& pattern) {
    constexpr uint32 anyFile = 0xFFFFFFFF & ~uint32{0x10};  // all but directories
    std::vector<wstring16> found;
    wstring16 mask = pattern;
    FILEFIND walk{};
    if (FileFindFirst(mask.data(), anyFile, &walk) == 0) return found;
    do {
        const wstring16 name = walk.name;
        if (!name.empty()) found.push_back(name.substr(0, name.rfind('.')));
    } while (FileFindNext(&walk) != 0);
    FileFindClose(&walk);
    return found;
}

// A file of the stream world, open as long as this lives.
class OpenText {
public:
    OpenText(FILE* registered, ZUCHARSET charset) : file(ffileopen(registered, omRead, nullptr)) {
        if (file == nullptr) return;
        const ZUCHARSET marked = ProcessUTFBom(file);
        file_put_charset(file, marked != csUnknown ? marked : charset);
    }
    ~OpenText() {
        if (file != nullptr) fclose2(file);
    }
    OpenText(const OpenText&) = delete;
    OpenText& operator=(const OpenText&) = delete;

    bool IsOpen() const { return file != nullptr; }

    // The next line, with its line end cut off.
    bool Next(wstring16& line) {
        wchar16 units[mostLine];
        if (fgets2(units, mostLine, file) == nullptr) return false;
        line = units;
        if (!line.empty() && line.back() == '\n') line.pop_back();
        return true;
    }

private:
    FILE* const file;
};

// A file of the descriptor world, likewise.
class OpenBytes {
public:
    explicit OpenBytes(int registered) : file(fileopen(registered, omRead, nullptr)) {}
    ~OpenBytes() {
        if (file > 0) close2(file);
    }
    OpenBytes(const OpenBytes&) = delete;
    OpenBytes& operator=(const OpenBytes&) = delete;

    bool IsOpen() const { return file > 0; }

    bool Next(wstring16& text) {
        wchar16 units[mostName];
        if (!read_app_string(file, units, mostName)) return false;
        text = units;
        return true;
    }
    template <typename T>
    bool Next(T& value) {
        return read2(file, &value, sizeof value) == static_cast<int>(sizeof value);
    }

private:
    const int file;
};

std::vector<wstring16> Split(const wstring16& line, wchar16 separator) {
    std::vector<wstring16> fields(1);
    for (const wchar16 unit : line) {
        if (unit == separator) {
            fields.emplace_back();
        } else {
            fields.back() += unit;
        }
    }
    return fields;
}

bool ReadIndexLine(const wstring16& line, Country& country) {
    const std::vector<wstring16> fields = Split(line, ',');
    if (fields.size() != 4 || !StringToInt(fields[0].c_str(), &country.row, nullptr)) return false;
    country.code = fields[1];
    country.charsetName = fields[2];
    country.charset = Str2CS(country.charsetName.c_str());
    return country.charset != csUnknown;
}

// The number behind "ring ".
bool ReadRingHeading(const wstring16& line, int& count) {
    constexpr wchar16 word[] = ZUTEXT("ring ");
    constexpr std::size_t length = std::size(word) - 1;
    return line.compare(0, length, word) == 0 && StringToInt(line.c_str() + length, &count, nullptr) && count > 0;
}

// Reads rings: a heading with the number of points, then lines of points until there are so many.
class RingReader {
public:
    RingReader()
        : container(DPNTContainer::Create(256, 256)),
          parser(PointParserFactory::Create(container.get(), ZUTEXT(","), ZUTEXT(" "), false)) {}

    bool Read(OpenText& text, std::vector<Ring>& rings) {
        if (parser == nullptr) return false;
        for (wstring16 line; text.Next(line);) {
            int count = 0;
            if (!ReadRingHeading(line, count) || !ReadPoints(text, static_cast<uint64>(count))) return false;
            uint64 stored = 0;
            const DPNT* const points = container->GetPoints(stored);
            rings.emplace_back(points, points + stored);
        }
        return !rings.empty();
    }

private:
    bool ReadPoints(OpenText& text, uint64 wanted) {
        uint64 stored = 0;
        if (!container->Reset(wanted)) return false;
        for (wstring16 line; stored < wanted && text.Next(line);) {
            if (!parser->ParsePoints(line.c_str(), line.size(), false)) return false;
            container->GetPoints(stored);
        }
        return stored == wanted;
    }

    const std::unique_ptr<DPNTContainer> container;
    const std::unique_ptr<PointParserFactory> parser;
};

}  // namespace

SmallFileSystem::SmallFileSystem(int handles) : mine(cFileSystem::Create(handles, false, nullptr)) {
    if (mine == nullptr) return;
    former = cFileSystem::Instance();
    cFileSystem::Instance(mine);
}

SmallFileSystem::~SmallFileSystem() {
    if (mine == nullptr) return;
    delete mine;
    cFileSystem::Instance(former);
}

DataSet::DataSet(const std::string& path) : folder(Wide(path)) {
    for (const wstring16& code : Find(folder + ZUTEXT("\\outlines\\*.TXT"))) {
        const wstring16 name = folder + ZUTEXT("\\outlines\\") + code + ZUTEXT(".TXT");
        outlines[code] = fregister_file(name.c_str(), ftTxt, true);
    }
    for (const wstring16& code : Find(folder + ZUTEXT("\\names\\*.DAT"))) {
        const wstring16 name = folder + ZUTEXT("\\names\\") + code + ZUTEXT(".DAT");
        names[code] = register_file(name.c_str(), ftDat, true);
    }
    index = fregister_file((folder + ZUTEXT("\\index.csv")).c_str(), ftCsv, true);
}

DataSet::~DataSet() {
    for (const auto& [code, file] : outlines) funregister_file(file);
    for (const auto& [code, file] : names) unregister_file(file);
    if (index != nullptr) funregister_file(index);
}

std::string DataSet::Read(std::vector<Country>& countries) {
    const std::string error = ReadIndex(countries);
    if (!error.empty()) return error;
    for (Country& country : countries) {
        if (!ReadNames(country)) return "the names of " + Narrow(country.code) + " cannot be read";
    }
    for (Country& country : countries) {
        if (!ReadOutline(country)) return "the outline of " + Narrow(country.code) + " cannot be read";
    }
    return {};
}

std::string DataSet::ReadIndex(std::vector<Country>& countries) {
    OpenText text(index, csUTF8);
    wstring16 line;
    if (!text.IsOpen() || !text.Next(line)) return "there is no index.csv in " + Narrow(folder);
    while (text.Next(line)) {
        Country country;
        if (!ReadIndexLine(line, country)) return "a faulty line in index.csv: " + Narrow(line);
        countries.push_back(country);
    }
    return {};
}

bool DataSet::ReadNames(Country& country) {
    const auto file = names.find(country.code);
    if (file == names.end()) return false;
    file_put_charset(file->second, country.charset);
    OpenBytes bytes(file->second);
    return bytes.IsOpen() && bytes.Next(country.englishName) && bytes.Next(country.ownName) &&
           bytes.Next(country.population) && bytes.Next(country.bounds);
}

bool DataSet::ReadOutline(Country& country) {
    const auto file = outlines.find(country.code);
    if (file == outlines.end()) return false;
    OpenText text(file->second, csUTF8);
    return text.IsOpen() && RingReader().Read(text, country.outline);
}

}  // namespace atlas
