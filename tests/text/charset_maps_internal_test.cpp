// The byte tables beside a second copy of the published pages, put together again from the list of differences by code
// of its own, and beside the system's code pages.
#include <Utility/platform/text.h>
#include <Utility/text/charset_maps.h>
#include <gtest/gtest.h>
#include <support/fixture_path.h>

#include <array>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace charset_maps_internal_test {
namespace {

using namespace Torvo;

// An entry, and whether it is the published page's own or changed by a difference.
struct Entry {
    int unit = -1;  // -1 is no mapping
    bool changed = false;
};
using Map = std::array<Entry, 256>;

std::vector<std::vector<std::string>> ReadWords(const std::string& path) {
    std::ifstream file(Torvo::test::SourcePath(path));
    EXPECT_TRUE(file) << path;
    std::vector<std::vector<std::string>> lines;
    for (std::string line; std::getline(file, line);) {
        std::istringstream in(line.substr(0, line.find('#')));
        std::vector<std::string> words;
        for (std::string word; in >> word;) words.push_back(word);
        if (!words.empty()) lines.push_back(words);
    }
    return lines;
}

int UnitOf(const std::string& text) {
    return text == "...." ? -1 : std::stoi(text, nullptr, 16);
}

// `first-last` or a single number.
std::pair<int, int> Range(const std::string& text) {
    const std::size_t dash = text.find('-');
    const int first = std::stoi(text.substr(0, dash), nullptr, 16);
    return {first, dash == std::string::npos ? first : std::stoi(text.substr(dash + 1), nullptr, 16)};
}

std::map<std::string, std::vector<int>> ReadPages() {
    std::map<std::string, std::vector<int>> pages;
    std::vector<int>* page = nullptr;
    for (const auto& words : ReadWords("tests/text/data/published_pages.txt")) {
        if (words[0] == "page") {
            page = &pages[words[1]];
        } else {
            for (const std::string& word : words) page->push_back(UnitOf(word));
        }
    }
    return pages;
}

Map Begin(const std::vector<int>* page) {
    Map map;
    for (const int byte : {0x00, 0x09, 0x0A, 0x0D}) map[static_cast<std::size_t>(byte)].unit = byte;
    for (int byte = 0x20; byte < 0x80; ++byte) map[static_cast<std::size_t>(byte)].unit = byte;
    for (std::size_t byte = 0x80; page != nullptr && byte < 256; ++byte) map[byte].unit = page->at(byte - 0x80);
    return map;
}

void Change(Map& map, int byte, int unit) {
    map.at(static_cast<std::size_t>(byte)) = {unit, true};
}

std::map<std::string, Map> BuildMaps() {
    const auto pages = ReadPages();
    std::map<std::string, Map> maps;
    Map* map = nullptr;
    for (const auto& words : ReadWords("tools/charset_maps/differences.txt")) {
        if (words[0] == "map") {
            map = &(maps[words[1]] = Begin(words[2] == "page" ? &pages.at(words[3]) : nullptr));
        } else if (words[0] == "row") {
            const int first = std::stoi(words[1], nullptr, 16);
            for (int i = 0; i < 16; ++i) Change(*map, first + i, UnitOf(words.at(static_cast<std::size_t>(i) + 2)));
        } else if (words[0] == "copy") {
            const auto [first, last] = Range(words[1]);
            for (int byte = first; byte <= last; ++byte) {
                Change(*map, byte, maps.at(words[2])[static_cast<std::size_t>(byte)].unit);
            }
        } else {
            for (std::size_t i = 1; i < words.size(); ++i) {
                const std::size_t equals = words[i].find('=');
                const auto [first, last] = Range(words[i].substr(0, equals));
                const int unit = words[0] == "set" ? Range(words[i].substr(equals + 1)).first : -1;
                for (int byte = first; byte <= last; ++byte) Change(*map, byte, unit < 0 ? -1 : unit + byte - first);
            }
        }
    }
    return maps;
}

const std::map<std::string, Map>& Maps() {
    static const std::map<std::string, Map> maps = BuildMaps();
    return maps;
}

std::string NameOf(int cs) {
    std::string name;
    for (const wchar16* unit = CS2Str(static_cast<ZUCHARSET>(cs)); *unit != 0; ++unit) name += static_cast<char>(*unit);
    return name;
}

int Meaning(const uint16* map, std::size_t byte) {
    return map[byte] < firstUnmapped ? map[byte] : -1;
}

TEST(CharsetMaps, FortyFourSetsHaveOne) {
    int count = 0;
    for (int cs = 0; cs < charsetCount; ++cs) {
        const bool listed = Maps().count(NameOf(cs)) != 0;
        EXPECT_EQ(sCharsetMapTable[cs] != nullptr, listed) << NameOf(cs);
        count += listed ? 1 : 0;
    }
    EXPECT_EQ(count, 44);
    EXPECT_EQ(Maps().size(), 44u);
}

TEST(CharsetMaps, AreASecondCopyOfThePublishedPagesWithTheListedDifferences) {
    for (int cs = 0; cs < charsetCount; ++cs) {
        if (sCharsetMapTable[cs] == nullptr) continue;
        const Map& expected = Maps().at(NameOf(cs));
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const int unit = expected[byte].unit;
            EXPECT_EQ(sCharsetMapTable[cs][byte], unit < 0 ? firstUnmapped : unit) << NameOf(cs) << " " << byte;
        }
    }
}

TEST(CharsetMaps, AgreeWithTheSystemsCodePagesWhereNoDifferenceIsListed) {
    int compared = 0;
    for (int cs = 0; cs < charsetCount; ++cs) {
        const int32 codePage = GetWinCodePage(static_cast<ZUCHARSET>(cs));
        // Sets with a layout of their own, and symbols for whatever page the machine has.
        if (sCharsetMapTable[cs] == nullptr || codePage <= 1 || cs == csWindowsArabic) continue;
        const Map& map = Maps().at(NameOf(cs));
        for (std::size_t byte = 0x80; byte < 256; ++byte) {
            if (map[byte].changed || map[byte].unit < 0) continue;
            const char source = static_cast<char>(byte);
            wchar16 unit = 0;
            ASSERT_EQ(platform::MultiByteToWideChar(static_cast<uint32>(codePage), 0, &source, 1, &unit, 1), 1);
            EXPECT_EQ(sCharsetMapTable[cs][byte], unit) << NameOf(cs) << " " << byte;
            ++compared;
        }
    }
    EXPECT_GT(compared, 2500);
}

TEST(CharsetMaps, ControlCharactersFollowTheCommonRule) {
    for (int cs = 0; cs < charsetCount; ++cs) {
        const uint16* const map = sCharsetMapTable[cs];
        if (map == nullptr || cs == csWindowsThai) continue;
        for (std::size_t byte = 0; byte < 0x20; ++byte) {
            const bool itself = byte == 0 || byte == 9 || byte == 10 || byte == 13;
            const int expected = cs == csLMBCS1 && byte == 7 ? 0x2022 : itself ? static_cast<int>(byte) : -1;
            EXPECT_EQ(Meaning(map, byte), expected) << NameOf(cs) << " " << byte;
        }
    }
}

// Single places where a published page and common belief differ, or where a page has changed over time.
TEST(CharsetMaps, PlacesWhereAMistakeWouldHide) {
    EXPECT_EQ(sCharsetMapTable[csCodePage864][0x25], 0x25);
    EXPECT_EQ(sCharsetMapTable[csMacRoman][0xDB], 0x00A4);
    EXPECT_EQ(sCharsetMapTable[csMacRoman][0xBD], 0x2126);
    EXPECT_EQ(Meaning(sCharsetMapTable[csMacRoman], 0xF0), -1);
    EXPECT_EQ(sCharsetMapTable[csMacRoman][0xF5], 0x0131);
    EXPECT_EQ(sCharsetMapTable[csMacTurkish][0xF5], 0x003F);
    EXPECT_EQ(sCharsetMapTable[csMacTurkish][0xDB], 0x011F);
    EXPECT_EQ(sCharsetMapTable[csMacCentralEuropean][0xFF], 0x02D8);
    EXPECT_EQ(sCharsetMapTable[csMacCyrillic][0xFF], 0x00A4);
    EXPECT_EQ(sCharsetMapTable[csWindowsCyrillic][0x7F], firstUnmapped);
    EXPECT_EQ(sCharsetMapTable[csWindowsLatin2][0x7F], 0x7F);
    EXPECT_EQ(Meaning(sCharsetMapTable[csWindowsLatin2], 0xE9), -1);
    EXPECT_EQ(Meaning(sCharsetMapTable[csWindowsLatin1], 0x80), -1);
    EXPECT_EQ(sCharsetMapTable[csCodePage437][0xEA], 0x03A9);
    EXPECT_EQ(sCharsetMapTable[csCodePage850][0xD5], 0x0131);
    EXPECT_EQ(sCharsetMapTable[csMacHebrew][0x9F], 0x00FC);
    EXPECT_EQ(Meaning(sCharsetMapTable[csMacHebrew], 0x81), -1);
    EXPECT_EQ(Meaning(sCharsetMapTable[csMacHebrew], 0xE0), -1);
    EXPECT_EQ(sCharsetMapTable[csMacJapanese][0xB0], 0x30FC);
    EXPECT_EQ(Meaning(sCharsetMapTable[csMacJapanese], 0xC0), -1);
    EXPECT_EQ(sCharsetMapTable[csMacJapanese][0x5C], 0x5C);
    EXPECT_EQ(sCharsetMapTable[csMacGreek][0xFE], 0x03CE);
    EXPECT_EQ(sCharsetMapTable[csISO8859_6][0x35], 0x0665);
    EXPECT_EQ(sCharsetMapTable[csLMBCS1][0x80], 0x00C7);
    EXPECT_EQ(sCharsetMapTable[csLMBCS1][0x20], 0x00A8);
}

// The half-width katakana and their full-width letters, by the names of the letters in the Unicode order.
TEST(CharsetMaps, MacJapaneseKatakanaAreFullWidth) {
    static constexpr uint16 fullWidth[] = {
        0x30F2, 0x30A1, 0x30A3, 0x30A5, 0x30A7, 0x30A9, 0x30E3, 0x30E5, 0x30E7, 0x30C3, 0x30FC, 0x30A2, 0x30A4, 0x30A6,
        0x30A8, 0x30AA, 0x30AB, 0x30AD, 0x30AF, 0x30B1, 0x30B3, 0x30B5, 0x30B7, 0x30B9, 0x30BB, 0x30BD, 0x30BF, 0x30C1,
        0x30C4, 0x30C6, 0x30C8, 0x30CA, 0x30CB, 0x30CC, 0x30CD, 0x30CE, 0x30CF, 0x30D2, 0x30D5, 0x30D8, 0x30DB, 0x30DE,
        0x30DF, 0x30E0, 0x30E1, 0x30E2, 0x30E4, 0x30E6, 0x30E8, 0x30E9, 0x30EA, 0x30EB, 0x30EC, 0x30ED, 0x30EF, 0x30F3};
    for (std::size_t i = 0; i < std::size(fullWidth); ++i) {
        const std::size_t byte = 0xA6 + i;
        if (byte == 0xC0) continue;
        EXPECT_EQ(sCharsetMapTable[csMacJapanese][byte], fullWidth[i]) << byte;
    }
}

TEST(CharsetMaps, PresentationFormsAndPrivateUseCountAsNoMapping) {
    const auto isNone = [](int byte) {
        return Meaning(sCharsetMapTable[csCodePage864], static_cast<std::size_t>(byte)) == -1;
    };
    const std::pair<int, int> none[] = {{0x99, 0x9F}, {0xA2, 0xA2}, {0xA5, 0xAB}, {0xAD, 0xAF},
                                        {0xBA, 0xBA}, {0xBC, 0xBE}, {0xC1, 0xDA}, {0xDF, 0xDF},
                                        {0xE1, 0xF0}, {0xF2, 0xFD}, {0xFF, 0xFF}};
    std::array<bool, 256> expected{};
    for (const auto& [first, last] : none) {
        for (int byte = first; byte <= last; ++byte) expected[static_cast<std::size_t>(byte)] = true;
    }
    for (int byte = 0x80; byte < 256; ++byte) {
        EXPECT_EQ(isNone(byte), expected[static_cast<std::size_t>(byte)]) << byte;
    }
    for (const std::size_t byte : {0xDBu, 0xDEu, 0xFCu, 0xFFu}) {
        EXPECT_EQ(Meaning(sCharsetMapTable[csWindowsThai], byte), -1) << byte;
    }
    EXPECT_EQ(sCharsetMapTable[csWindowsThai][0xDB], 0xF8C1);
    EXPECT_EQ(sCharsetMapTable[csWindowsThai][0xFF], 0xF8C8);
}

}  // namespace
}  // namespace charset_maps_internal_test
