// The platform layer's characters, paths and numbers against what Windows calls answer under Wine.

#include <gtest/gtest.h>
#include <support/fixture_path.h>

#include <algorithm>
#include <fstream>
#include <map>

#include "golden/character_vectors.h"

namespace characters_internal_test {
namespace {

using Torvo::wchar16;
using Torvo::test::Lines;
namespace platform = Torvo::platform;

Lines LinesOf(const std::string& name) {
    std::ifstream file(Torvo::test::SourcePath("tests/golden/" + name), std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    Lines lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
}

// What Wine answers, and what the documentation says in its place, by pairs of lines that begin with "- " and "+ ".
std::map<std::string, std::string> ListedDifferences() {
    std::map<std::string, std::string> differences;
    std::string wines;
    for (const std::string& line : LinesOf("character_differences.txt")) {
        if (line.starts_with("- ")) wines = line.substr(2);
        if (line.starts_with("+ ")) differences[wines] = line.substr(2);
    }
    return differences;
}

void ExpectSameLines(const Lines& actual, const Lines& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t index = 0; index < actual.size(); ++index) EXPECT_EQ(actual[index], expected[index]);
}

TEST(CharacterVectors, CaseAndClassOfEveryUnit) {
    ExpectSameLines(Torvo::test::UnitLines(), LinesOf("character_units.txt"));
}

TEST(CharacterVectors, CallsOnTexts) {
    Lines expected = LinesOf("character_calls.txt");
    if (platform::CharNextStepsOverMarks()) {
        std::map<std::string, std::string> differences = ListedDifferences();
        for (std::string& line : expected) {
            const auto listed = differences.find(line);
            if (listed == differences.end()) continue;
            line = listed->second;
            differences.erase(listed);
        }
        EXPECT_TRUE(differences.empty()) << differences.begin()->first;
    }
    ExpectSameLines(Torvo::test::CallLines(), expected);
}

TEST(Characters, StepsLeadBackToWhereTheyCameFrom) {
    const Torvo::wstring16 text = ZUTEXT("a\u0301\U0001F600\u304B\u3099\U0001D15F\U0001D165z\u0301\u0302");
    const wchar16* const start = text.c_str();
    for (const wchar16* p = start; *p != 0;) {
        const wchar16* const next = platform::CharNextW(p);
        ASSERT_GT(next, p);
        EXPECT_EQ(platform::CharPrevW(start, next), p);
        p = next;
    }
}

TEST(Characters, StepsInByteText) {
    char text[] =
        "a\x82\xA0"
        "b";
    EXPECT_EQ(platform::CharNextExA(932, text, 0), text + 1);
    EXPECT_EQ(platform::CharNextExA(932, text + 1, 0), text + 3);
    EXPECT_EQ(platform::CharNextExA(1252, text + 1, 0), text + 2);
    EXPECT_EQ(platform::CharNextExA(932, text + 4, 0), text + 4);
}

}  // namespace
}  // namespace characters_internal_test
