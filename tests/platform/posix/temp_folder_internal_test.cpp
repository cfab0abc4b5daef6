// The folder for the temporary files of tiles where the directory for temporary files has a long path.
#include <Utility/files.h>
#include <Utility/paths.h>
#include <gtest/gtest.h>
#include <support/current_directory.h>
#include <support/guarded_buffer.h>
#include <support/own_file_system.h>
#include <support/temp_directory.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace temp_folder_internal_test {
namespace {

using namespace Torvo;
using test::GuardedBuffer;
using test::InDirectory;
using test::OwnFileSystem;
using test::TempDirectory;

namespace fs = std::filesystem;

// The directory for temporary files, for as long as an object lives.
class TemporaryFilesIn {
public:
    explicit TemporaryFilesIn(const std::string& directory) {
        if (const char* const value = std::getenv("TMPDIR")) former = value;
        ::setenv("TMPDIR", directory.c_str(), 1);
    }
    ~TemporaryFilesIn() { former.empty() ? ::unsetenv("TMPDIR") : ::setenv("TMPDIR", former.c_str(), 1); }
    TemporaryFilesIn(const TemporaryFilesIn&) = delete;
    TemporaryFilesIn& operator=(const TemporaryFilesIn&) = delete;

private:
    std::string former;
};

wstring16 TileFolder() {
    GuardedBuffer folder(261);
    CreteTempFolderForZxtTile(folder.Start());
    return folder.Text();
}

// A directory whose path, with its drive, has that many units.
fs::path LongDirectory(const TempDirectory& base, std::size_t units) {
    const std::size_t rest = units - base.Path().size() - 2;
    const fs::path made = base.Native() / std::string(rest / 2, 'a') / std::string(rest - rest / 2, 'b');
    fs::create_directories(made);
    return made;
}

class PosixTileFolder : public testing::Test {
protected:
    const TempDirectory directory;
    const wstring16 instead = directory.MakeDirectory(ZUTEXT("instead"));
    const TempDirectory here;
    const InDirectory inside{here.Native()};
};

TEST_F(PosixTileFolder, LiesInTheDirectoryForTemporaryFiles) {
    const OwnFileSystem own;
    torvo_temp_dir(instead.c_str());
    const TemporaryFilesIn temporary(LongDirectory(directory, 150).string());
    EXPECT_NE(TileFolder().find(ZUTEXT("b\\Zunaverse\\Zunavia.Application.x64.")), wstring16::npos);
}

TEST_F(PosixTileFolder, IsTheOneThatWasSetWhereThePathWouldBeTooLong) {
    for (const std::size_t units : {225u, 240u, 251u, 258u, 300u}) {
        const OwnFileSystem own;
        torvo_temp_dir(instead.c_str());
        const TemporaryFilesIn temporary(LongDirectory(directory, units).string());
        EXPECT_EQ(TileFolder(), instead) << units;
        torvo_temp_dir(ZUTEXT("C:\\later"));
        EXPECT_EQ(TileFolder(), instead) << "it is kept";
        EXPECT_TRUE(fs::is_empty(here.Native())) << units;
    }
}

}  // namespace
}  // namespace temp_folder_internal_test
