// How many calls to the system and its runtime the reading of lines takes.
#include <Utility/Utility.h>
#include <gtest/gtest.h>
#include <support/failing_files.h>
#include <support/temp_directory.h>

#include <cerrno>
#include <string>

namespace line_calls_internal_test {
namespace {

using namespace Torvo;
using test::FailingFiles;

constexpr int Lines = 1000;

// Reads all lines; whether all were there, and the position behind the last is the end of the text.
bool ReadLines(FILE* file, std::size_t bytes) {
    wchar16 line[80];
    int read = 0;
    while (read < Lines && fgets2(line, 80, file) != nullptr) ++read;
    return read == Lines && ftell2(file) == static_cast<int64>(bytes);
}

TEST(LineCalls, LinesTakeNoCallEach) {
    std::string text;
    for (int i = 0; i < Lines; ++i) text += "1;D\xFCsseldorf;6.7735;51.2277\n";
    const test::TempDirectory directory;
    const wstring16 path = directory.Write(ZUTEXT("lines.txt"), text);

    uint64 calls = 0;
    for (bool wasHit = true; wasHit && calls < Lines; ++calls) {
        FILE* const file = fregister_file(path.c_str(), ftNone, true);
        ASSERT_EQ(ffileopen(file, omRead, nullptr), file);
        file_put_charset(file, csWindowsLatin1);
        FailingFiles faults(calls + 1, FailingFiles::Mode::kOnce, EIO);
        const bool isRight = ReadLines(file, text.size());
        wasHit = faults.Stop();
        EXPECT_TRUE(isRight || wasHit);
        fclose2(file);
        funregister_file(file);
    }
    // The last attempt was not hit. A call, of the runtime here, fetches some lines; a seek for each would be one more.
    --calls;
    EXPECT_GE(calls, 1u);
    EXPECT_LE(calls, static_cast<uint64>(Lines) / 4);
}

}  // namespace
}  // namespace line_calls_internal_test
