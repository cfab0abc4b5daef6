#include <Utility/conversion.h>
#include <examples/recode/command_line.h>
#include <examples/recode/demo.h>
#include <examples/recode/files.h>
#include <examples/recode/recode.h>
#include <gtest/gtest.h>
#include <support/fixture_path.h>
#include <support/system_charset.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace recode_test {
namespace {

using namespace Torvo;
using recode::Place;
using recode::Recode;
using recode::Result;
using recode::Road;

std::string Bytes(std::initializer_list<int> bytes) {
    std::string text;
    for (const int byte : bytes) text += static_cast<char>(byte);
    return text;
}

void ExpectLoss(const recode::Loss& loss, const std::string& what, std::uint64_t count, const Place& first) {
    EXPECT_EQ(loss.what, what);
    EXPECT_EQ(loss.count, count);
    EXPECT_EQ(loss.first.byte, first.byte);
    EXPECT_EQ(loss.first.line, first.line);
    EXPECT_EQ(loss.first.character, first.character);
}

TEST(Recode, KeepsWhatBothSetsHold) {
    const Result result = Recode("a\xE9\n", csWindowsLatin1, csCodePage850);
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.road, Road::SystemText);
    EXPECT_EQ(result.bytes, "a\x82\n");
    EXPECT_EQ(result.units, 3u);
    EXPECT_EQ(result.characters, 3u);
    EXPECT_EQ(result.lost, 0u);
    EXPECT_TRUE(result.comesBack);
}

TEST(Recode, TellsWhatTheTargetDoesNotHoldAndWhere) {
    const Result result = Recode(
        "ab\r\n\xE2\x82\xAC"
        "c\xD0\x94\n\xE2\x82\xAC",
        csUTF8, csISO8859_1);
    EXPECT_EQ(result.bytes, "ab\r\n_c_\n_");
    EXPECT_EQ(result.lost, 3u);
    ASSERT_EQ(result.losses.size(), 2u);
    ExpectLoss(result.losses[0], "U+20AC", 2, {4, 2, 1});
    ExpectLoss(result.losses[1], "U+0414", 1, {8, 2, 3});
    EXPECT_FALSE(result.comesBack);
}

TEST(Recode, TellsBytesThatMeanNothing) {
    const Result result = Recode(
        "a\xFF\xC3"
        "b",
        csUTF8, csWindowsLatin1);
    EXPECT_EQ(result.bytes, "a__b");
    ASSERT_EQ(result.losses.size(), 2u);
    ExpectLoss(result.losses[0], "byte FF", 1, {1, 1, 2});
    ExpectLoss(result.losses[1], "byte C3", 1, {2, 1, 3});
}

TEST(Recode, ALostByteIsAReplacementCharacterInUnicode) {
    const Result result = Recode("a\xFF", csUTF8, csUTF16);
    EXPECT_EQ(result.bytes, Bytes({'a', 0, 0xFD, 0xFF}));
    EXPECT_EQ(result.lost, 1u);
}

TEST(Recode, AReplacementCharacterInTheSourceIsACharacter) {
    const Result result = Recode("\xEF\xBF\xBD", csUTF8, csUTF16);
    EXPECT_EQ(result.bytes, Bytes({0xFD, 0xFF}));
    EXPECT_EQ(result.lost, 0u);
}

TEST(Recode, AnUnderscoreInTheSourceIsNoLoss) {
    EXPECT_EQ(Recode("_a_", csWindowsLatin1, csCodePage850).lost, 0u);
    EXPECT_EQ(Recode("_a_", csWindowsLatin1, csMacRoman).lost, 0u);
}

TEST(Recode, ZeroBytesStayOnTheRoadThroughText) {
    const std::string source("a\0b\0", 4);
    const Result wide = Recode(source, csWindowsLatin1, csUTF16);
    EXPECT_EQ(wide.bytes, Bytes({'a', 0, 0, 0, 'b', 0, 0, 0}));
    EXPECT_EQ(wide.lost, 0u);
    EXPECT_TRUE(wide.comesBack);
    EXPECT_EQ(Recode(wide.bytes, csUTF16, csUTF8).bytes, source);
}

TEST(Recode, ZeroBytesAreLostInATable) {
    const Result result = Recode(std::string("a\0", 2), csWindowsLatin1, csMacRoman);
    EXPECT_EQ(result.bytes, "a_");
    ASSERT_EQ(result.losses.size(), 1u);
    ExpectLoss(result.losses[0], "byte 00", 1, {1, 1, 2});
}

TEST(Recode, DoubleBytesAreOneCharacter) {
    const Result result = Recode(
        "\x82\xA0\x82\xA2"
        "a",
        csWindowsJapanese, csUTF8);
    EXPECT_EQ(result.bytes,
              "\xE3\x81\x82\xE3\x81\x84"
              "a");
    EXPECT_EQ(result.characters, 3u);
    EXPECT_EQ(result.lost, 0u);
}

TEST(Recode, HalfAPairAtTheEndIsLost) {
    const Result result = Recode("a\x82", csWindowsJapanese, csUTF8);
    ASSERT_EQ(result.losses.size(), 1u);
    ExpectLoss(result.losses[0], "byte 82", 1, {1, 1, 2});
}

TEST(Recode, SurrogatesAreOneCharacterOfTwoUnits) {
    const Result result = Recode("\xF0\x9F\x98\x80", csUTF8, csUTF16);
    EXPECT_EQ(result.bytes, Bytes({0x3D, 0xD8, 0x00, 0xDE}));
    EXPECT_EQ(result.units, 2u);
    EXPECT_EQ(result.characters, 1u);
    EXPECT_TRUE(result.comesBack);
    const Result lost = Recode("\xF0\x9F\x98\x80", csUTF8, csWindowsLatin1);
    EXPECT_EQ(lost.bytes, "_");
    ASSERT_EQ(lost.losses.size(), 1u);
    EXPECT_EQ(lost.losses[0].what, "U+1F600");
}

TEST(Recode, LoneSurrogatesAndOddBytesOfUtf16AreLost) {
    const Result result = Recode(Bytes({0x3D, 0xD8, 'a', 0, 'b'}), csUTF16, csUTF8);
    EXPECT_EQ(result.bytes,
              "\xEF\xBF\xBD"
              "a\xEF\xBF\xBD");
    ASSERT_EQ(result.losses.size(), 2u);
    ExpectLoss(result.losses[0], "U+D83D", 1, {0, 1, 1});
    ExpectLoss(result.losses[1], "byte 62", 1, {4, 1, 3});
}

TEST(Recode, AByteOrderMarkIsLeftOutOfOtherSets) {
    const Result result = Recode(
        "\xEF\xBB\xBF"
        "a",
        csUTF8, csWindowsLatin1);
    EXPECT_EQ(result.bytes, "a");
    EXPECT_TRUE(result.markLeftOut);
    EXPECT_EQ(result.lost, 0u);
    EXPECT_FALSE(Recode("\xEF\xBB\xBF"
                        "a",
                        csUTF8, csUTF16)
                     .markLeftOut);
}

TEST(Recode, SetsWithoutACodePageTakeTheTables) {
    const Result result = Recode("a\x8A", csMacRoman, csWindowsLatin1);
    EXPECT_EQ(result.road, Road::Tables);
    EXPECT_EQ(result.bytes, "a\xE4");
    EXPECT_EQ(result.lost, 0u);
    EXPECT_TRUE(result.comesBack);
    const Result lost = Recode("a\xB0\xB0", csMacRoman, csWindowsLatin1);  // infinity
    EXPECT_EQ(lost.bytes, "a__");
    ASSERT_EQ(lost.losses.size(), 1u);
    ExpectLoss(lost.losses[0], "byte B0", 2, {1, 1, 2});
}

// The tables of three Mac sets hold their single bytes only.
TEST(Recode, PairsOfMacSetsAreLostAsAWhole) {
    const Result pairs = Recode("a\x82\xA0\x83\x41z\x82\xA0", csMacJapanese, csWindowsLatin1);
    EXPECT_EQ(pairs.bytes, "a__z_");
    EXPECT_EQ(pairs.characters, 5u);
    EXPECT_EQ(pairs.lost, 3u);
    ASSERT_EQ(pairs.losses.size(), 2u);
    ExpectLoss(pairs.losses[0], "bytes 82 A0", 2, {1, 1, 2});
    ExpectLoss(pairs.losses[1], "bytes 83 41", 1, {3, 1, 3});
    EXPECT_FALSE(pairs.comesBack);
    // The tables give DE and B3 a meaning of their own.
    const Result korean = Recode("\xDE\x41\xB0\xA1", csMacKorean, csWindowsLatin1);
    EXPECT_EQ(korean.bytes, "__");
    EXPECT_EQ(korean.lost, 2u);
    const Result chinese = Recode("\xB3\x41", csMacTradChinese, csMacRoman);
    EXPECT_EQ(chinese.bytes, "_");
    ASSERT_EQ(chinese.losses.size(), 1u);
    EXPECT_EQ(chinese.losses[0].what, "bytes B3 41");
}

TEST(Recode, HalfAPairOfAMacSetIsLostWithoutWhatFollows) {
    const Result result = Recode("\x82\n\xE0?\x82", csMacJapanese, csWindowsLatin1);
    EXPECT_EQ(result.bytes, "_\n_?_");
    ASSERT_EQ(result.losses.size(), 2u);
    ExpectLoss(result.losses[0], "byte 82", 2, {0, 1, 1});
    ExpectLoss(result.losses[1], "byte E0", 1, {2, 2, 1});
}

TEST(Recode, SingleBytesOfMultiByteMacSetsAreKept) {
    const Result result = Recode("abc\xFD\n", csMacJapanese, csWindowsLatin1);
    EXPECT_EQ(result.bytes, "abc\xA9\n");
    EXPECT_EQ(result.lost, 0u);
    EXPECT_TRUE(result.comesBack);
}

// It would be read as the first half of a pair.
TEST(Recode, NoLeadByteIsWrittenByItself) {
    const Result result = Recode(
        "\xA3"
        "1\xA9",
        csWindowsLatin1, csMacTradChinese);
    EXPECT_EQ(result.bytes, "_1\xFE");
    ASSERT_EQ(result.losses.size(), 1u);
    ExpectLoss(result.losses[0], "byte A3", 1, {0, 1, 1});
}

TEST(Recode, TellsWhichSetsHaveAByteTable) {
    EXPECT_TRUE(recode::HasByteTable(csWindowsLatin1));
    EXPECT_TRUE(recode::HasByteTable(csMacRoman));
    EXPECT_TRUE(recode::HasByteTable(csLICS));
    EXPECT_FALSE(recode::HasByteTable(csNeutral));
    EXPECT_FALSE(recode::HasByteTable(csLMBCS));
    EXPECT_FALSE(recode::HasByteTable(csUTF8));
    EXPECT_FALSE(recode::HasByteTable(csUnknown));
}

TEST(Recode, AskingForByteTablesDisplacesNoneOfTheCallers) {
    unsigned char* table = nullptr;
    int unmapped = 0;
    ASSERT_TRUE(ConvertCharset(csMacRoman, csLICS, &unmapped, &table));
    for (int number = 0; number <= csUTF16; ++number) recode::HasByteTable(static_cast<ZUCHARSET>(number));
    unmapped = -7;
    ASSERT_TRUE(ConvertCharset(csMacRoman, csLICS, &unmapped, &table));
    EXPECT_EQ(unmapped, -7);
}

TEST(Recode, TheRoadCanBeChosen) {
    EXPECT_EQ(Recode("a\xE9", csWindowsLatin1, csCodePage850, Road::Tables).road, Road::Tables);
    EXPECT_EQ(Recode("a\xE9", csWindowsLatin1, csCodePage850, Road::Tables).bytes, "a\x82");
    EXPECT_NE(Recode("a", csMacRoman, csWindowsLatin1, Road::SystemText).error, "");
    EXPECT_NE(Recode("a", csWindowsLatin1, csUTF8, Road::Tables).error, "");
}

TEST(Recode, PairsWithoutARoadAreRefused) {
    EXPECT_NE(Recode("a", csMacRoman, csUTF8).error, "");
    EXPECT_NE(Recode("a", csLMBCS, csWindowsLatin1).error, "");
    EXPECT_NE(Recode("a", csUTF8, csUTF8).error, "");
    EXPECT_TRUE(recode::HasTextRoad(csUTF8, csWindowsJapanese));
    EXPECT_FALSE(recode::HasTextRoad(csUTF8, csMacRoman));
    EXPECT_TRUE(recode::HasTableRoad(csMacRoman, csLICS));
    EXPECT_FALSE(recode::HasTableRoad(csMacRoman, csWindowsJapanese));
}

TEST(Recode, AnEmptyTextIsKept) {
    const Result result = Recode("", csUTF8, csWindowsLatin1);
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.bytes, "");
    EXPECT_TRUE(result.comesBack);
}

// What it all rests on: where nothing is told as lost, nothing is.
TEST(Recode, WhatIsNotToldAsLostComesBack) {
    std::mt19937 random(59);
    static constexpr ZUCHARSET sets[] = {csWindowsLatin1,      csWindowsGreek, csWindowsJapanese,
                                         csWindowsKorean,      csUTF8,         csUTF16,
                                         csWindowsSimpChinese, csCodePage864,  csWindowsThai};
    for (int round = 0; round < 400; ++round) {
        const ZUCHARSET from = sets[random() % std::size(sets)];
        const ZUCHARSET to = sets[random() % std::size(sets)];
        if (from == to) continue;
        std::string source;
        for (std::size_t length = random() % 40; length > 0; --length) source += static_cast<char>(random() % 256);
        const Result result = Recode(source, from, to);
        ASSERT_EQ(result.error, "");
        std::uint64_t counted = 0;
        for (const recode::Loss& loss : result.losses) counted += loss.count;
        EXPECT_EQ(counted, result.lost);
        if (result.lost == 0 && !result.markLeftOut) {
            EXPECT_TRUE(result.comesBack) << from << " " << to << " " << testing::PrintToString(source);
        }
    }
}

// A folder of the test's own, removed at the end.
class RecodeProgram : public testing::Test {
protected:
    RecodeProgram() : folder(std::filesystem::temp_directory_path() / "torvo-recode-test") {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder / "out");
    }
    ~RecodeProgram() override { std::filesystem::remove_all(folder); }

    std::string Path(const std::string& name) const { return (folder / name).string(); }
    std::string Put(const std::string& name, const std::string& bytes) const {
        EXPECT_TRUE(recode::WriteFile(Path(name), bytes));
        return Path(name);
    }
    std::string Get(const std::string& name) const {
        std::string bytes;
        EXPECT_TRUE(recode::ReadFile(Path(name), bytes)) << name;
        return bytes;
    }
    // The files and folders there, but for the folder `out`.
    std::ptrdiff_t Files() const {
        return std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator()) - 1;
    }
    int Run(const std::vector<std::string>& arguments) {
        out.str({});
        err.str({});
        return recode::Run(arguments, out, err);
    }
    bool Says(const std::string& text) const { return out.str().find(text) != std::string::npos; }
    bool Complains(const std::string& text) const { return err.str().find(text) != std::string::npos; }

    const std::filesystem::path folder;
    std::ostringstream out;
    std::ostringstream err;
};

TEST_F(RecodeProgram, WritesAFileThatLosesNothing) {
    const std::string in = Put("in.txt", "caf\xC3\xA9\n");
    EXPECT_EQ(Run({"utf-8", "windowslatin1", in, "-o", Path("new.txt")}), recode::everythingKept);
    EXPECT_EQ(Get("new.txt"), "caf\xE9\n");
    EXPECT_TRUE(Says("6 bytes, 5 units, 5 characters; 5 bytes in WindowsLatin1")) << out.str();
    EXPECT_TRUE(Says("lost: 0; re-coded back it is equal"));
    EXPECT_EQ(Files(), 2);
}

// What is written passes through a name of its own: none that anybody has.
TEST_F(RecodeProgram, TakesNobodysNameWhileItWrites) {
    const std::string in = Put("new.txt.unfinished-1", "caf\xC3\xA9");
    EXPECT_EQ(Run({"UTF-8", "ISO8859_1", in, "-o", Path("new.txt")}), recode::everythingKept);
    EXPECT_EQ(Get("new.txt"), "caf\xE9");
    EXPECT_EQ(Get("new.txt.unfinished-1"), "caf\xC3\xA9");
    std::filesystem::create_directory(Path("new.txt.unfinished-2"));
    EXPECT_EQ(Run({"UTF-8", "ISO8859_1", in, "-o", Path("new.txt")}), recode::everythingKept);
    EXPECT_EQ(Files(), 3);  // the source, the folder and the target
}

TEST_F(RecodeProgram, OutputsDoNotDisplaceEachOther) {
    const std::string one = Put("a.unfinished-1", "1");
    const std::string two = Put("a", "2");
    EXPECT_EQ(Run({"UTF-8", "ISO8859_1", one, two, "-d", Path("out")}), recode::everythingKept);
    EXPECT_EQ(Get("out/a.unfinished-1"), "1");
    EXPECT_EQ(Get("out/a"), "2");
}

TEST_F(RecodeProgram, LeavesNothingBehindWhenItCannotWrite) {
    const std::string in = Put("in.txt", "a");
    Put("out/kept.txt", "b");
    EXPECT_EQ(Run({"UTF-8", "ISO8859_1", in, "-o", Path("out")}), recode::notDone);
    EXPECT_TRUE(Complains("cannot write"));
    EXPECT_EQ(Get("out/kept.txt"), "b");
    EXPECT_EQ(Files(), 1);
}

TEST_F(RecodeProgram, WritesNothingWhenSomethingIsLost) {
    const std::string in = Put("in.txt", "1 \xE2\x82\xAC\n");
    EXPECT_EQ(Run({"UTF-8", "ISO8859_1", "--output", Path("new.txt"), in}), recode::somethingLost);
    EXPECT_FALSE(std::filesystem::exists(Path("new.txt")));
    EXPECT_TRUE(Says("U+20AC x1, first at byte 2 (line 1, character 3)")) << out.str();
    EXPECT_TRUE(Says("not written"));
}

TEST_F(RecodeProgram, WritesAllTheSameWhenLossesAreAccepted) {
    const std::string in = Put("in.txt", "1 \xE2\x82\xAC\n");
    EXPECT_EQ(Run({"UTF-8", "ISO8859_1", "-o", Path("new.txt"), "-a", in}), recode::everythingKept);
    EXPECT_EQ(Get("new.txt"), "1 _\n");
    EXPECT_TRUE(Says("lost: 1"));
}

TEST_F(RecodeProgram, OnlyReportsWithoutATarget) {
    const std::string in = Put("in.txt", "a\x8A");
    EXPECT_EQ(Run({"MAC", "windowslatin1", in}), recode::everythingKept);
    EXPECT_TRUE(Says("by a re-coding table"));
    EXPECT_EQ(Get("in.txt"), "a\x8A");
}

TEST_F(RecodeProgram, ReportsEachOfSeveralFiles) {
    const std::string one = Put("one.txt", "a");
    const std::string two = Put("two.txt", "\xE2\x82\xAC");
    EXPECT_EQ(Run({"UTF-8", "ISO8859_1", one, two, "-d", Path("out")}), recode::somethingLost);
    EXPECT_EQ(Get("out/one.txt"), "a");
    EXPECT_FALSE(std::filesystem::exists(Path("out/two.txt")));
    EXPECT_TRUE(Says("one.txt: ")) << out.str();
    EXPECT_TRUE(Says("two.txt: "));
}

TEST_F(RecodeProgram, ShowsAsManyKindsAsAskedFor) {
    const std::string in = Put("in.txt", "\xD0\x90\xD0\x91\xD0\x92");
    EXPECT_EQ(Run({"UTF-8", "ISO8859_1", "-k", "1", in}), recode::somethingLost);
    EXPECT_TRUE(Says("U+0410"));
    EXPECT_FALSE(Says("U+0411"));
    EXPECT_TRUE(Says("and 2 more kinds"));
}

TEST_F(RecodeProgram, RefusesToReplaceSources) {
    const std::string in = Put("in.txt", "a");
    EXPECT_EQ(Run({"UTF-8", "ISO8859_1", in, "-o", in}), recode::notDone);
    EXPECT_TRUE(Complains("its own source"));
    const std::string same = Put("out/in.txt", "b");
    EXPECT_EQ(Run({"UTF-8", "ISO8859_1", in, same, "-d", Path("elsewhere")}), recode::notDone);
    EXPECT_TRUE(Complains("two files"));
    EXPECT_EQ(Get("in.txt"), "a");
}

TEST_F(RecodeProgram, ExplainsWhatItCannotDo) {
    const std::string in = Put("in.txt", "a");
    EXPECT_EQ(Run({"UTF-9", "ISO8859_1", in}), recode::notDone);
    EXPECT_TRUE(Complains("no such character set: UTF-9"));
    EXPECT_EQ(Run({"UTF-8", "Latin", in}), recode::notDone);
    EXPECT_EQ(Run({"UTF-8", "ISO8859_1"}), recode::notDone);
    EXPECT_EQ(Run({"UTF-8", "ISO8859_1", in, "--fast", "x"}), recode::notDone);
    EXPECT_EQ(Run({"UTF-8", "ISO8859_1", in, "-o"}), recode::notDone);
    EXPECT_EQ(Run({"UTF-8", "ISO8859_1", in, "-r", "air"}), recode::notDone);
    EXPECT_EQ(Run({"UTF-8", "ISO8859_1", in, "-k", "-1"}), recode::notDone);
    EXPECT_EQ(Run({"UTF-8", "ISO8859_1", Path("missing.txt")}), recode::notDone);
    EXPECT_TRUE(Complains("cannot read"));
    EXPECT_EQ(Run({"UTF-8", "ISO8859_1", in, in, "-o", Path("x")}), recode::notDone);
    EXPECT_EQ(Run({"UTF-8", "ISO8859_1", in, "-o", Path("no/such/folder")}), recode::notDone);
    EXPECT_TRUE(Complains("cannot write"));
    EXPECT_EQ(Run({"MacRoman", "UTF-8", in}), recode::notDone);
    EXPECT_TRUE(Complains("share neither code pages nor byte tables"));
    EXPECT_EQ(Run({}), recode::notDone);
    EXPECT_EQ(Run({"--help"}), recode::everythingKept);
    EXPECT_TRUE(Says("recode [options] FROM TO FILE"));
}

TEST_F(RecodeProgram, ListsTheSets) {
    EXPECT_EQ(Run({"--list"}), recode::everythingKept);
    const std::string list = out.str();
    EXPECT_EQ(std::count(list.begin(), list.end(), '\n'), 60);
    EXPECT_TRUE(Says("?PackedEUCKorean"));
}

TEST_F(RecodeProgram, DemoShowsEveryLanguage) {
    EXPECT_EQ(Run({"--demo", Torvo::test::SourcePath("data/udhr")}), recode::everythingKept);
    const std::string table = out.str();
    std::istringstream lines(table);
    int rows = 0;
    for (std::string line; std::getline(lines, line) && !line.empty();) {
        const bool lossless = line.find("    0      equal") != std::string::npos;
        const bool knownToLose = line.find("French") == 0 || line.find("Chinese, traditional") == 0;
        EXPECT_TRUE(rows == 0 || lossless != knownToLose) << line;
        ++rows;
    }
    EXPECT_EQ(rows, 16);
    EXPECT_TRUE(Says("French in CodePage850 (850) lost  U+2019"));
}

TEST_F(RecodeProgram, DemoNeedsItsTexts) {
    EXPECT_EQ(Run({"--demo", Path("out")}), recode::notDone);
    EXPECT_TRUE(Says("cannot read"));
}

}  // namespace
}  // namespace recode_test
