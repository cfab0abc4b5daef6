#include <Utility/conversion.h>
#include <examples/recode/characters.h>
#include <examples/recode/recode.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <map>
#include <memory>

namespace recode {

namespace {

using namespace Torvo;

// Follows the reading through the source.
class Cursor {
public:
    const Place& At() const { return place; }

    void Step(unsigned unit, std::size_t bytes) {
        place.byte += bytes;
        const bool endsLine = unit == '\n' || unit == '\r';
        if (endsLine && !(unit == '\n' && lastWasReturn)) ++place.line;
        place.character = endsLine ? 1 : place.character + 1;
        lastWasReturn = unit == '\r';
    }

private:
    Place place;
    bool lastWasReturn = false;
};

// Collects losses by kind.
class Account {
public:
    explicit Account(Result& target) : result(target) {}

    void Add(const std::string& what, const Place& place) {
        ++result.lost;
        const auto [found, isNew] = indexOf.emplace(what, result.losses.size());
        if (isNew) result.losses.push_back({what, 0, place});
        ++result.losses[found->second].count;
    }

private:
    Result& result;
    std::map<std::string, std::size_t> indexOf;
};

std::string CodePointText(const wstring16& units) {
    std::uint32_t point = units[0];
    if (units.size() == 2) point = 0x10000 + ((point - 0xD800u) << 10) + (units[1] - 0xDC00u);
    char text[16];
    std::snprintf(text, sizeof text, "U+%04X", static_cast<unsigned>(point));
    return text;
}

std::string BytesText(const std::string& bytes) {
    std::string text = bytes.size() == 1 ? "byte" : "bytes";
    for (const char byte : bytes) {
        char hex[8];
        std::snprintf(hex, sizeof hex, " %02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
        text += hex;
    }
    return text;
}

Result ThroughSystemText(const std::string& source, ZUCHARSET from, ZUCHARSET to) {
    Result result;
    result.road = Road::SystemText;
    Account account(result);
    Cursor cursor;
    CharacterReader reader(from);
    CharacterWriter writer(to);
    while (cursor.At().byte < source.size()) {
        const Place place = cursor.At();
        const ReadCharacter read = reader.Read(source, static_cast<std::size_t>(place.byte));
        cursor.Step(read.units[0], read.bytes);
        result.units += read.units.size();
        ++result.characters;
        if (place.byte == 0 && read.exact && read.units[0] == 0xFEFF && !IsUnicodeCharset(to)) {
            result.markLeftOut = true;
            continue;
        }
        const WrittenCharacter& written = writer.Write(read.units);
        result.bytes += written.bytes;
        if (!read.exact) {
            account.Add(BytesText(source.substr(static_cast<std::size_t>(place.byte), read.bytes)), place);
        } else if (!written.exact) {
            account.Add(CodePointText(read.units), place);
        }
    }
    return result;
}

// The bytes that begin a pair in the multi-byte sets that have a byte table. The tables hold single bytes only: they
// know nothing of pairs, and give some of these bytes a meaning of their own.
struct LeadRange {
    ZUCHARSET cs;
    unsigned char first, last;
};

constexpr LeadRange leadRanges[] = {
    {csMacTradChinese, 0xA1, 0xFC},
    {csMacJapanese, 0x81, 0x9F},
    {csMacJapanese, 0xE0, 0xFC},
    {csMacKorean, 0xA1, 0xFD},
};

bool IsLead(ZUCHARSET cs, unsigned char byte) {
    return std::any_of(std::begin(leadRanges), std::end(leadRanges), [&](const LeadRange& range) {
        return range.cs == cs && byte >= range.first && byte <= range.last;
    });
}

// The bytes of the character at this place: a lead byte takes one that can be the second of a pair with it.
std::size_t BytesAt(const std::string& source, std::size_t position, ZUCHARSET cs) {
    if (!IsLead(cs, static_cast<unsigned char>(source[position])) || position + 1 == source.size()) return 1;
    const auto trail = static_cast<unsigned char>(source[position + 1]);
    return trail >= 0x40 && trail != 0x7F && trail != 0xFF ? 2 : 1;
}

// A re-coding table, and which of its bytes are lost.
struct ByteRecoding {
    unsigned char table[256];
    bool lost[256];
};

// Builds both with a service of their own, whose first call for a pair always tells the number of bytes lost. It is
// needed to tell the unknown code, "_", from a byte that is "_" in earnest. The few sets that hold "_" twice have the
// second one counted as lost, since it comes back as the first.
bool BuildByteRecoding(ZUCHARSET from, ZUCHARSET to, ByteRecoding& recoding) {
    const std::unique_ptr<cCharsetConverter> converter(cCharsetConverter::Create());
    int unmapped = 0;
    int unmappedBack = 0;
    unsigned char* table = nullptr;
    unsigned char* back = nullptr;
    if (converter == nullptr || !converter->ConvertCharset(from, to, &unmapped, &table) ||
        !converter->ConvertCharset(to, from, &unmappedBack, &back)) {
        return false;
    }
    const unsigned char unknown = CharsetUnknownCode(to);
    int asUnknown = 0;
    for (unsigned byte = 1; byte < 256; ++byte) asUnknown += table[byte] == unknown ? 1 : 0;
    const bool someInEarnest = asUnknown > unmapped;
    for (unsigned byte = 0; byte < 256; ++byte) {
        // A byte that begins a pair means nothing by itself, neither where it is read nor where it is written.
        const bool halfAPair = IsLead(from, static_cast<unsigned char>(byte)) || IsLead(to, table[byte]);
        recoding.table[byte] = halfAPair ? unknown : table[byte];
        recoding.lost[byte] = halfAPair || (table[byte] == unknown && !(someInEarnest && back[unknown] == byte));
    }
    return true;
}

Result ThroughTables(const std::string& source, ZUCHARSET from, ZUCHARSET to) {
    Result result;
    result.road = Road::Tables;
    ByteRecoding recoding;
    if (!BuildByteRecoding(from, to, recoding)) {
        result.error = "there is no re-coding table";
        return result;
    }
    Account account(result);
    Cursor cursor;
    for (std::size_t at = 0; at < source.size();) {
        const std::size_t bytes = BytesAt(source, at, from);
        const auto index = static_cast<unsigned char>(source[at]);
        if (recoding.lost[index]) account.Add(BytesText(source.substr(at, bytes)), cursor.At());
        result.bytes += static_cast<char>(recoding.table[index]);
        cursor.Step(index, bytes);
        at += bytes;
        ++result.characters;
    }
    result.units = result.characters;
    return result;
}

Result OneWay(const std::string& source, ZUCHARSET from, ZUCHARSET to, Road road) {
    const bool text = HasTextRoad(from, to);
    const bool tables = HasTableRoad(from, to);
    if (road != Road::Tables && text) return ThroughSystemText(source, from, to);
    if (road != Road::SystemText && tables) return ThroughTables(source, from, to);
    Result result;
    const std::string pair = NameOf(from) + " and " + NameOf(to);
    result.error = from == to                 ? "both are " + NameOf(from)
                   : road == Road::SystemText ? "not both of " + pair + " have a code page"
                   : road == Road::Tables     ? "not both of " + pair + " have a byte table"
                                              : pair + " share neither code pages nor byte tables";
    return result;
}

}  // namespace

bool HasTextRoad(ZUCHARSET from, ZUCHARSET to) {
    return from != to && GetWinCodePage(from) >= 0 && GetWinCodePage(to) >= 0;
}

bool HasTableRoad(ZUCHARSET from, ZUCHARSET to) {
    return from != to && HasByteTable(from) && HasByteTable(to);
}

// A service of its own, so that asking displaces no table of the caller's instance.
bool HasByteTable(ZUCHARSET cs) {
    const std::unique_ptr<cCharsetConverter> converter(cCharsetConverter::Create());
    const ZUCHARSET other = cs == csWindowsLatin1 ? csMacRoman : csWindowsLatin1;
    unsigned char* table = nullptr;
    return converter != nullptr && converter->ConvertCharset(cs, other, nullptr, &table);
}

Result Recode(const std::string& source, ZUCHARSET from, ZUCHARSET to, Road road) {
    Result result = OneWay(source, from, to, road);
    if (result.error.empty()) result.comesBack = OneWay(result.bytes, to, from, result.road).bytes == source;
    return result;
}

std::string NameOf(ZUCHARSET cs) {
    std::string name;
    for (const wchar16* unit = CS2Str(cs); *unit != 0; ++unit) name += static_cast<char>(*unit);
    return name;
}

ZUCHARSET CharsetOf(const std::string& name) {
    wstring16 wide;
    for (const char c : name) wide += static_cast<wchar16>(static_cast<unsigned char>(c));
    return Str2CS(wide.c_str());
}

}  // namespace recode
