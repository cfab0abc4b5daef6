#include <Utility/instance.h>
#include <Utility/platform/host.h>
#include <examples/atlas/command_line.h>
#include <gtest/gtest.h>
#include <support/fixture_path.h>
#include <support/temp_directory.h>
#include <support/thread_locale.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace atlas_test {
namespace {

using namespace Torvo;

std::string FileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

// A path of the test's own, which is ASCII.
std::string Ascii(const wstring16& path) {
    std::string text;
    for (const wchar16 unit : path) text += static_cast<char>(unit);
    return text;
}

bool Holds(const std::string& text, const std::string& piece) {
    return text.find(piece) != std::string::npos;
}

class Atlas : public testing::Test {
protected:
    // Runs the program on the data set, on a fixed date in English, into a directory of its own.
    int Draw(std::vector<std::string> options, const std::string& folder = test::SourcePath("data/atlas")) {
        std::vector<std::string> arguments = {"--locale", "1033", "--date", "2026-11-21"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        arguments.insert(arguments.end(), {folder, Ascii(directory.Path())});
        return Run(arguments);
    }
    int Run(const std::vector<std::string>& arguments) {
        out.str("");
        err.str("");
        return atlas::Run(arguments, out, err);
    }
    std::string Page() { return directory.Read(ZUTEXT("atlas.html")); }
    std::string Picture() { return directory.Read(ZUTEXT("atlas.svg")); }

    test::TempDirectory directory;
    test::ThreadLocale formerLocale;
    std::ostringstream out;
    std::ostringstream err;
};

TEST_F(Atlas, DrawsTheWorldAsThePageShowsIt) {
    ASSERT_EQ(Draw({}), atlas::done) << err.str();
    EXPECT_EQ(Picture(), FileText(test::SourcePath("docs/atlas.svg")));
    EXPECT_TRUE(Holds(out.str(), "Saturday, November 21, 2026: 219 countries out of 439 registered files, at most 16"))
        << out.str();
    EXPECT_TRUE(Holds(Page(), "<td>\u4E2D\u56FD</td><td>China</td><td class=\"number\">1,416,040,000</td>"));
}

TEST_F(Atlas, WorksWithAsFewHandlesAsItGets) {
    ASSERT_EQ(Draw({"--handles", "2"}), atlas::done) << err.str();
    EXPECT_EQ(Picture(), FileText(test::SourcePath("docs/atlas.svg")));
}

TEST_F(Atlas, ChoosesByNameRowAndPlace) {
    ASSERT_EQ(Draw({"--name", "%land", "--within", "-25,34,45,72"}), atlas::done);
    for (const char* const country : {"Poland", "Finland", "Iceland", "Ireland", "Switzerland"}) {
        EXPECT_TRUE(Holds(Page(), country)) << country;
    }
    EXPECT_FALSE(Holds(Page(), "Thailand"));
    EXPECT_FALSE(Holds(Page(), "France"));
    ASSERT_EQ(Draw({"--rows", "1-2,5"}), atlas::done);
    EXPECT_TRUE(Holds(out.str(), ": 3 countries"));
    EXPECT_TRUE(Holds(Page(), "Andorra"));
    ASSERT_EQ(Draw({"--name", "Pol_ka"}), atlas::done);
    EXPECT_TRUE(Holds(Page(), "Poland"));
}

TEST_F(Atlas, DrawsInsideItsWindowAlone) {
    ASSERT_EQ(Draw({"--within", "5,45,15,55"}), atlas::done);
    const std::string picture = Picture();
    EXPECT_TRUE(Holds(picture, "Deutschland"));
    EXPECT_TRUE(Holds(picture, "viewBox=\"321.39 -5500 642.79 1000\""));
    // Every path begins inside.
    for (std::size_t at = picture.find("d=\"M"); at != std::string::npos; at = picture.find("d=\"M", at + 1)) {
        std::istringstream start(picture.substr(at + 4, 20));
        int x = 0;
        int y = 0;
        start >> x >> y;
        EXPECT_TRUE(x >= 500 && x <= 1500 && y >= 4500 && y <= 5500) << x << ' ' << y;
    }
}

TEST_F(Atlas, WritesNumbersAndDatesAsTheLocaleDoes) {
    ASSERT_EQ(Draw({"--locale", "1031", "--date", "2026-11-21"}), atlas::done);
    EXPECT_TRUE(Holds(Page(), "<td>\u4E2D\u56FD</td><td>China</td><td class=\"number\">1.416.040.000</td>"));
    EXPECT_TRUE(Holds(out.str(), "Samstag, 21. November 2026")) << out.str();
    EXPECT_TRUE(Holds(out.str(), "1.416.040.000"));
}

TEST_F(Atlas, TellsWhatIsWrongWithTheCommandLine) {
    EXPECT_EQ(Run({}), atlas::notDone);
    EXPECT_EQ(Run({"--help"}), atlas::done);
    const std::vector<std::vector<std::string>> faulty = {
        {"--rows", "x"},    {"--rows", "3-"},      {"--rows", "5-2"}, {"--within", "1,2,3"},   {"--within", "5,5,5,5"},
        {"--handles", "1"}, {"--locale", "99999"}, {"--locale", "x"}, {"--date", "yesterday"}, {"--frobnicate", "1"},
    };
    for (const std::vector<std::string>& options : faulty) {
        EXPECT_EQ(Draw(options), atlas::notDone) << options[0] << ' ' << options[1];
        EXPECT_NE(err.str(), "");
    }
    EXPECT_EQ(Run({"--rows"}), atlas::notDone);
    EXPECT_EQ(Run({"only one folder"}), atlas::notDone);
}

TEST_F(Atlas, TellsWhatIsWrongWithTheFolder) {
    EXPECT_EQ(Draw({}, Ascii(directory.Path())), atlas::notDone);
    EXPECT_TRUE(Holds(err.str(), "there is no index.csv"));
    directory.Write(ZUTEXT("index.csv"), "row,code,set,language\r\n1,XX,NoSuchSet,xx\r\n");
    EXPECT_EQ(Draw({}, Ascii(directory.Path())), atlas::notDone);
    EXPECT_TRUE(Holds(err.str(), "a faulty line in index.csv: 1,XX,NoSuchSet,xx"));
    directory.Write(ZUTEXT("index.csv"), "row,code,set,language\r\n1,XX,WindowsLatin1,xx\r\n");
    EXPECT_EQ(Draw({}, Ascii(directory.Path())), atlas::notDone);
    EXPECT_TRUE(Holds(err.str(), "the names of XX cannot be read"));
}

}  // namespace
}  // namespace atlas_test
