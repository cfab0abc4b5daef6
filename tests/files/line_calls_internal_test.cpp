// How many calls to the system the reading of lines takes.
#include <Utility/Utility.h>
#include <gtest/gtest.h>
#include <support/failing_files.h>
#include <support/temp_directory.h>

#include <cerrno>
#include <string>

namespace {

using namespace Torvo;
using test::FailingFiles;

constexpr int Lines = 1000;

// Reads all lines and looks at the position behind each; how many of both were as they should be.
int ReadLines(FILE* file, std::size_t bytesOfLine) {
    wchar16 line[80];
    int right = 0;
    for (int i = 1; i <= Lines; ++i) {
        if (fgets2(line, 80, file) != nullptr && ftell2(file) == static_cast<int64>(bytesOfLine) * i) ++right;
    }
    return right;
}

TEST(LineCalls, LinesAndTheirPositionsTakeNoCallEach) {
    const std::string line = "1;D\xFCsseldorf;6.7735;51.2277\n";
    std::string text;
    for (int i = 0; i < Lines; ++i) text += line;
    const test::TempDirectory directory;
    const wstring16 path = directory.Write(ZUTEXT("lines.txt"), text);

    uint64 calls = 0;
    for (bool wasHit = true; wasHit && calls < Lines; ++calls) {
        FILE* const file = fregister_file(path.c_str(), ftNone, true);
        ASSERT_EQ(ffileopen(file, omRead, nullptr), file);
        file_put_charset(file, csWindowsLatin1);
        FailingFiles faults(calls + 1, FailingFiles::Mode::kOnce, EIO);
        const int right = ReadLines(file, line.size());
        wasHit = faults.Stop();
        EXPECT_EQ(right == Lines, !wasHit);
        fclose2(file);
        funregister_file(file);
    }
    // The last attempt was not hit. There are 28 KB of text to fetch, a block or a buffer at a time.
    --calls;
    EXPECT_GE(calls, 1u);
    EXPECT_LE(calls, 20u);
}

}  // namespace
