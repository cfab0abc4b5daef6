#include <Utility/file_search.h>
#include <Utility/paths.h>
#include <Utility/platform/files.h>
#include <Utility/platform/threads.h>
#include <gtest/gtest.h>
#include <support/temp_directory.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <vector>

namespace file_search_internal_test {
namespace {

using namespace Torvo;
using test::TempDirectory;

namespace fs = std::filesystem;

std::vector<wstring16> Listed(const TempDirectory& directory) {
    std::vector<wstring16> names;
    FILEFIND find = {};
    wstring16 pattern = directory.Path(ZUTEXT("*"));
    for (int more = FileFindFirst(pattern.data(), 0xFFFFFFFF, &find); more != 0; more = FileFindNext(&find)) {
        names.emplace_back(find.name);
    }
    FileFindClose(&find);
    return names;
}

bool Finds(const wstring16& directory, const wchar16* name) {
    const std::unique_ptr<FindFileInfo> search(FindFileInfo::Create(directory.c_str(), true));
    wchar16 path[261];
    return search->Find(name, path, 261);
}

TEST(PosixFileSearch, NameWithABackslashIsNotListed) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("c"), "");
    std::ofstream(directory.Native() / "a\\b") << "x";
    fs::create_directory(directory.Native() / "..\\d");
    fs::create_directory(directory.Native() / "\\");
    EXPECT_EQ(Listed(directory), (std::vector<wstring16>{ZUTEXT("."), ZUTEXT(".."), ZUTEXT("c")}));
}

TEST(PosixFileSearch, NameWithABackslashLeadsNowhere) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("secret\\wanted"), "x");
    directory.MakeDirectory(ZUTEXT("in"));
    fs::create_directory(directory.Native(ZUTEXT("in")) / "..\\secret");
    EXPECT_FALSE(Finds(directory.Path(ZUTEXT("in")), ZUTEXT("wanted"))) << "out of the tree";
    fs::create_directory(directory.Native(ZUTEXT("in")) / "..\\in");
    fs::create_directory(directory.Native(ZUTEXT("in")) / ".\\");
    EXPECT_FALSE(Finds(directory.Path(ZUTEXT("in")), ZUTEXT("nowhere"))) << "round in circles";
}

TEST(PosixFileSearch, NameWithAColonIsListedAndCannotBeTakenApart) {
    const TempDirectory directory;
    std::ofstream(directory.Native() / "a:b") << "x";
    EXPECT_EQ(Listed(directory), (std::vector<wstring16>{ZUTEXT("."), ZUTEXT(".."), ZUTEXT("a:b")}));
    EXPECT_FALSE(file_exists(directory.Path(ZUTEXT("a:b")).c_str(), ftNone));
    EXPECT_EQ(platform::_waccess(directory.Path(ZUTEXT("a:b")).c_str(), 0), 0);
}

TEST(PosixFileSearch, WhatIsNoWalkIsRefused) {
    WIN32_FIND_DATAW data = {};
    for (void* const handle : {static_cast<void*>(nullptr), platform::InvalidFindHandle()}) {
        platform::SetLastError(0);
        EXPECT_FALSE(platform::FindNextFileW(handle, &data));
        EXPECT_EQ(platform::GetLastError(), ERROR_INVALID_HANDLE);
        platform::SetLastError(0);
        EXPECT_FALSE(platform::FindClose(handle));
        EXPECT_EQ(platform::GetLastError(), ERROR_INVALID_HANDLE);
    }
}

}  // namespace
}  // namespace file_search_internal_test
