// The four code-page calls against what they answer on Windows, as far as Wine stands for it: see docs/code_pages.md.
#include <Utility/platform/text.h>
#include <Utility/platform/threads.h>
#include <golden/code_page_probe.h>
#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace Torvo;

std::vector<std::string> ReadLines(const std::string& path) {
    std::ifstream file(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with("#")) lines.push_back(line);
    }
    return lines;
}

TEST(CodePages, AnswerWhatTheGoldenVectorsSay) {
    const std::vector<std::string> expected = ReadLines(TORVO_SOURCE_DIR "/tests/golden/code_page_vectors.txt");
    ASSERT_GT(expected.size(), 2000u);
    std::size_t number = 0;
    int differences = 0;
    std::string page;
    test::code_pages::WriteCodePageVectors([&](const std::string& line) {
        if (line.starts_with("page ")) page = line.substr(0, line.find(" default"));
        const std::string wanted = number < expected.size() ? expected[number] : "nothing";
        ++number;
        if (line == wanted) return;
        if (++differences <= 20) ADD_FAILURE() << "line " << number << ", " << page << "\n" << line << "\n" << wanted;
    });
    EXPECT_EQ(differences, 0);
    EXPECT_EQ(number, expected.size());
}

}  // namespace
