// What is on disk when a process is killed: what was flushed or closed, and nothing torn of the rest.

#include <Utility/Utility.h>
#include <gtest/gtest.h>
#include <support/fixture_path.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace killed_process_test {
namespace {

using namespace Torvo;

constexpr int kKilled = 3;

// The process that is killed may be this program anew, so the file has the same name there.
class KilledProcess : public testing::Test {
protected:
    ~KilledProcess() override {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
    }
    void WriteFile(const std::string& content) const { std::ofstream(path, std::ios::binary) << content; }
    std::string ReadFile() const {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    int Open(eOpenMode mode) const {
        const std::u16string name = path.u16string();
        const int file = register_file(wstring16(name.begin(), name.end()).c_str(), ftNone, true);
        return fileopen(file, mode, nullptr);
    }
    static void Put(int file, int64 position, const std::string& bytes) {
        lseek2(file, position, 0);
        write2(file, bytes.data(), bytes.size());
    }

    const std::filesystem::path path = test::BuildPath("killed-process.bin");
};

TEST_F(KilledProcess, LosesNothingThatWasFlushed) {
    WriteFile(std::string(3000, 'a'));
    EXPECT_EXIT(
        {
            const int file = Open(omReadWrite);
            Put(file, 0, std::string(1000, 'b'));
            cFileCache::Instance()->Flush(file);
            Put(file, 1000, std::string(1000, 'c'));
            std::_Exit(kKilled);
        },
        testing::ExitedWithCode(kKilled), "");
    EXPECT_EQ(ReadFile(), std::string(1000, 'b') + std::string(2000, 'a'));
}

TEST_F(KilledProcess, LosesNothingThatWasClosed) {
    WriteFile(std::string(3000, 'a'));
    EXPECT_EXIT(
        {
            const int file = Open(omReadWrite);
            Put(file, 1000, std::string(1000, 'b'));
            close2(file);
            std::_Exit(kKilled);
        },
        testing::ExitedWithCode(kKilled), "");
    EXPECT_EQ(ReadFile(), std::string(1000, 'a') + std::string(1000, 'b') + std::string(1000, 'a'));
}

TEST_F(KilledProcess, LeavesZerosWhereAFileGrew) {
    WriteFile("");
    EXPECT_EXIT(
        {
            const int file = Open(omReadWrite);
            Put(file, 0, std::string(513, 'b'));
            std::_Exit(kKilled);
        },
        testing::ExitedWithCode(kKilled), "");
    EXPECT_EQ(ReadFile(), std::string(513, '\0'));
}

}  // namespace
}  // namespace killed_process_test
