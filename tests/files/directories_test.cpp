#include <Utility/errors.h>
#include <Utility/files.h>
#include <Utility/instance.h>
#include <Utility/paths.h>
#include <gtest/gtest.h>
#include <support/current_directory.h>
#include <support/guarded_buffer.h>
#include <support/own_file_system.h>
#include <support/temp_directory.h>

#include <filesystem>
#include <fstream>
#include <thread>

namespace directories_test {
namespace {

using namespace Torvo;
using test::GuardedPath;
using test::InDirectory;
using test::OwnFileSystem;
using test::TempDirectory;

namespace fs = std::filesystem;

struct Directory {
    void (*set)(const wchar16*);
    const wchar16* (*get)();
};

constexpr Directory directories[] = {{program_dir, program_dir}, {alternate_program_dir, alternate_program_dir},
                                     {home_dir, home_dir},       {pref_dir, pref_dir},
                                     {torvo_temp_dir, temp_dir}, {current_dir, current_dir}};

TEST(KeptDirectories, AreEmptyAtFirst) {
    const OwnFileSystem own;
    for (const Directory& directory : directories) EXPECT_EQ(*directory.get(), 0);
}

TEST(KeptDirectories, AreKeptApart) {
    const OwnFileSystem own;
    wchar16 letter = 'a';
    for (const Directory& directory : directories) directory.set(wstring16(3, letter++).c_str());
    letter = 'a';
    for (const Directory& directory : directories) EXPECT_EQ(wstring16(directory.get()), wstring16(3, letter++));
}

TEST(KeptDirectories, AreTextAndNothingMore) {
    const OwnFileSystem own;
    for (const Directory& directory : directories) {
        directory.set(ZUTEXT("no such\\..\\place/"));
        EXPECT_EQ(wstring16(directory.get()), ZUTEXT("no such\\..\\place/"));
        directory.set(ZUTEXT(""));
        EXPECT_EQ(*directory.get(), 0);
    }
    const fs::path before = fs::current_path();
    current_dir(ZUTEXT("C:\\"));
    EXPECT_EQ(fs::current_path(), before) << "not the process's";
}

TEST(KeptDirectories, HoldTwoHundredAndSixtyUnits) {
    const OwnFileSystem own;
    for (const Directory& directory : directories) {
        const wchar16* const place = directory.get();
        directory.set(wstring16(260, 'x').c_str());
        EXPECT_EQ(wstring16(directory.get()), wstring16(260, 'x'));
        directory.set(wstring16(300, 'y').c_str());
        EXPECT_EQ(wstring16(directory.get()), wstring16(260, 'y'));
        EXPECT_EQ(directory.get(), place) << "always the same buffer";
        directory.set(nullptr);
        EXPECT_EQ(wstring16(directory.get()), wstring16(260, 'y'));
    }
}

TEST(KeptDirectories, ServiceAndFreeFunctionsAreOne) {
    const OwnFileSystem own;
    own->temp_dir(ZUTEXT("t"));
    own->program_dir(ZUTEXT("p"));
    EXPECT_EQ(temp_dir(), own->temp_dir());
    EXPECT_EQ(wstring16(temp_dir()), ZUTEXT("t"));
    EXPECT_EQ(wstring16(program_dir()), ZUTEXT("p"));
}

TEST(KeptDirectories, DirectoryForTemporaryFilesHasTwoSetters) {
    const OwnFileSystem own;
    temp_dir(ZUTEXT("one"));
    EXPECT_EQ(wstring16(temp_dir()), ZUTEXT("one"));
    torvo_temp_dir(ZUTEXT("two"));
    EXPECT_EQ(wstring16(temp_dir()), ZUTEXT("two"));
    temp_dir(nullptr);
    EXPECT_EQ(wstring16(own->temp_dir()), ZUTEXT("two"));
    temp_dir(ZUTEXT(""));
    EXPECT_EQ(*temp_dir(), 0);
}

TEST(KeptDirectories, MayBeSetToAPartOfThemselves) {
    const OwnFileSystem own;
    for (const Directory& directory : directories) {
        directory.set(ZUTEXT("C:\\some\\where"));
        directory.set(directory.get() + 2);
        EXPECT_EQ(wstring16(directory.get()), ZUTEXT("\\some\\where"));
    }
}

TEST(KeptDirectories, BelongToTheInstance) {
    const OwnFileSystem own;
    home_dir(ZUTEXT("mine"));
    std::thread([] {
        EXPECT_EQ(*home_dir(), 0);
        InstanceData::Destroy(false, false);
    }).join();
}

TEST(Configuration, ValuesAreKeptUnderTheirKeys) {
    const OwnFileSystem own;
    EXPECT_EQ(get_cpl_config(ZUTEXT("key")), nullptr);
    set_cpl_config(ZUTEXT("key"), ZUTEXT("value"));
    set_cpl_config(ZUTEXT("other"), ZUTEXT(""));
    ASSERT_NE(get_cpl_config(ZUTEXT("key")), nullptr);
    EXPECT_EQ(wstring16(get_cpl_config(ZUTEXT("key"))), ZUTEXT("value"));
    ASSERT_NE(get_cpl_config(ZUTEXT("other")), nullptr);
    EXPECT_EQ(wstring16(get_cpl_config(ZUTEXT("other"))), ZUTEXT(""));
    set_cpl_config(ZUTEXT("key"), ZUTEXT("another value, which is longer"));
    EXPECT_EQ(wstring16(get_cpl_config(ZUTEXT("key"))), ZUTEXT("another value, which is longer"));
}

TEST(Configuration, ValueMayBeAPartOfTheFormerOne) {
    const OwnFileSystem own;
    set_cpl_config(ZUTEXT("key"), ZUTEXT("value, with a second part that needs memory of its own"));
    set_cpl_config(ZUTEXT("key"), get_cpl_config(ZUTEXT("key")) + 7);
    EXPECT_EQ(wstring16(get_cpl_config(ZUTEXT("key"))), ZUTEXT("with a second part that needs memory of its own"));
}

TEST(Configuration, CaseOfAKeyCounts) {
    const OwnFileSystem own;
    set_cpl_config(ZUTEXT("Key"), ZUTEXT("value"));
    EXPECT_EQ(get_cpl_config(ZUTEXT("key")), nullptr);
    EXPECT_EQ(get_cpl_config(ZUTEXT("KEY")), nullptr);
    EXPECT_EQ(get_cpl_config(ZUTEXT("Ke")), nullptr);
}

TEST(Configuration, NullsAndEmptyKeysAreIgnored) {
    const OwnFileSystem own;
    set_cpl_config(nullptr, ZUTEXT("value"));
    set_cpl_config(ZUTEXT(""), ZUTEXT("value"));
    set_cpl_config(ZUTEXT("key"), ZUTEXT("value"));
    set_cpl_config(ZUTEXT("key"), nullptr);
    EXPECT_EQ(get_cpl_config(nullptr), nullptr);
    EXPECT_EQ(get_cpl_config(ZUTEXT("")), nullptr);
    EXPECT_EQ(wstring16(get_cpl_config(ZUTEXT("key"))), ZUTEXT("value"));
}

TEST(Configuration, PointerLastsUntilTheKeyIsSetAgain) {
    const OwnFileSystem own;
    set_cpl_config(ZUTEXT("key"), ZUTEXT("value"));
    const wchar16* const value = get_cpl_config(ZUTEXT("key"));
    for (wchar16 c = 'a'; c <= 'z'; ++c) set_cpl_config(wstring16(1, c).c_str(), ZUTEXT("x"));
    EXPECT_EQ(get_cpl_config(ZUTEXT("key")), value);
    EXPECT_EQ(wstring16(value), ZUTEXT("value"));
}

TEST(ModuleDirectory, IsThatOfTheLibrary) {
    const OwnFileSystem own;
    const wchar16* const directory = get_current_module_dir();
    ASSERT_NE(directory, nullptr);
    const wstring16 text = directory;
    EXPECT_EQ(text.substr(1, 2), ZUTEXT(":\\"));
    EXPECT_EQ(text.back(), '\\');
    EXPECT_EQ(get_current_module_dir(), directory) << "always the same buffer";
    EXPECT_TRUE(file_exists((text + ZUTEXT("torvo_tests")).c_str(), ftNone) ||
                file_exists((text + ZUTEXT("TorvoUtility.dll")).c_str(), ftNone) ||
                file_exists((text + ZUTEXT("libTorvoUtility.so")).c_str(), ftNone));
}

// The process's directory as text that the library uses.
wstring16 Here() {
    return GuardedPath(qualify_filename);
}

TEST(ChangeDirectory, GoesToTheDirectoryOfAFileAndBack) {
    const TempDirectory from;
    const TempDirectory to;
    const InDirectory inside(from.Native());
    const int file = register_file(to.Path(ZUTEXT("a.tab")).c_str(), ftNone, false);
    SAVED_DIR saved;
    ChangeDirectory(file, &saved);
    EXPECT_EQ(Here(), to.Path());
    EXPECT_EQ(wstring16(saved.current), from.Path());
    EXPECT_EQ(wstring16(saved.current_of_drive), from.Path()) << "the same drive";
    RestoreDirectory(&saved);
    EXPECT_EQ(Here(), from.Path());
    unregister_file(file);
}

TEST(ChangeDirectory, GoesToARoot) {
    const TempDirectory from;
    const InDirectory inside(from.Native());
    const wstring16 root = from.Path().substr(0, 3);
    const int file = register_file((root + ZUTEXT("a.tab")).c_str(), ftNone, false);
    SAVED_DIR saved;
    ChangeDirectory(file, &saved);
    EXPECT_EQ(Here(), root.substr(0, 2));
    RestoreDirectory(&saved);
    EXPECT_EQ(Here(), from.Path());
    unregister_file(file);
}

TEST(ChangeDirectory, FileThatIsNotRegisteredChangesNothing) {
    const TempDirectory from;
    const InDirectory inside(from.Native());
    SAVED_DIR saved;
    saved.current[0] = 'x';
    saved.current_of_drive[0] = 'x';
    const int file = register_file(ZUTEXT("a.tab"), ftNone, false);
    unregister_file(file);
    ChangeDirectory(file, &saved);
    EXPECT_EQ(saved.current[0], 0);
    EXPECT_EQ(saved.current_of_drive[0], 0);
    EXPECT_EQ(Here(), from.Path());
    RestoreDirectory(&saved);
    EXPECT_EQ(Here(), from.Path());
}

TEST(ChangeDirectory, MissingDirectoryLeavesTheProcessWhereItWas) {
    const TempDirectory from;
    const InDirectory inside(from.Native());
    const int file = register_file(from.Path(ZUTEXT("none\\a.tab")).c_str(), ftNone, false);
    SAVED_DIR saved;
    ChangeDirectory(file, &saved);
    EXPECT_EQ(Here(), from.Path());
    EXPECT_EQ(wstring16(saved.current), from.Path());
    RestoreDirectory(&saved);
    EXPECT_EQ(Here(), from.Path());
    unregister_file(file);
}

TEST(FileExists, QualifiesTheName) {
    const TempDirectory directory;
    const wstring16 file = directory.Write(ZUTEXT("sub\\a.dat"), "");
    EXPECT_TRUE(file_exists(file.c_str(), ftNone));
    EXPECT_TRUE(file_exists(directory.Path().c_str(), ftNone)) << "a directory";
    EXPECT_FALSE(file_exists(directory.Path(ZUTEXT("none")).c_str(), ftNone));
    const InDirectory inside(directory.Native());
    EXPECT_TRUE(file_exists(ZUTEXT("sub\\a.dat"), ftNone));
    EXPECT_TRUE(file_exists(ZUTEXT("none\\..\\sub/a.dat"), ftNone));
    EXPECT_FALSE(file_exists(ZUTEXT("a.dat"), ftNone));
    EXPECT_TRUE(file_exists_anycase(ZUTEXT("sub\\a.dat"), ftNone));
    EXPECT_FALSE(file_exists_anycase(ZUTEXT("a.dat"), ftNone));
    EXPECT_FALSE(file_exists(nullptr, ftNone));
}

TEST(FileExists, ForcesTheExtensionOfTheType) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("a.MAP"), "");
    EXPECT_TRUE(file_exists(directory.Path(ZUTEXT("a.tab")).c_str(), ftMap));
    EXPECT_TRUE(file_exists(directory.Path(ZUTEXT("a")).c_str(), ftMap));
    EXPECT_FALSE(file_exists(directory.Path(ZUTEXT("a")).c_str(), ftTab)) << "a type that forces nothing";
    EXPECT_FALSE(file_exists(directory.Path(ZUTEXT("a")).c_str(), ftNone));
}

struct Found {
    bool result;
    wstring16 path;
    bool operator==(const Found&) const = default;
};

Found Search(const wstring16& name, FILETYPE type = ftNone) {
    bool result = false;
    const wstring16 path = GuardedPath([&](wchar16* out) { result = search_for_file(out, type); }, name);
    return {result, path};
}

// The extension makes the path longer than one may be: no open takes the file, so it is not there.
TEST(FileExists, PathThatIsTooLongIsNoFile) {
    const TempDirectory directory;
    const wstring16 name(258 - directory.Path(ZUTEXT("")).size(), 'x');
    std::ofstream(directory.Native(name + ZUTEXT(".html"))) << "x";  // where the system takes it
    EXPECT_FALSE(file_exists(directory.Path(name).c_str(), ftHtml));
    const int file = register_file(directory.Path(name).c_str(), ftHtml, false);
    EXPECT_EQ(fileopen(file, omRead, nullptr), -1);
    unregister_file(file);
    ClearErrors();
}

TEST(SearchForFile, FirstDirectoryWins) {
    const OwnFileSystem own;
    const TempDirectory directory;
    for (const auto* const name : {ZUTEXT("data1\\a"), ZUTEXT("data2\\a"), ZUTEXT("data2\\b"), ZUTEXT("program\\a"),
                                   ZUTEXT("program\\b"), ZUTEXT("program\\c"), ZUTEXT("here\\c"), ZUTEXT("here\\d")}) {
        directory.Write(name, "");
    }
    const InDirectory inside(directory.Native(ZUTEXT("here")));
    AddAppDataPath(directory.Path(ZUTEXT("none")).c_str());
    AddAppDataPath(directory.Path(ZUTEXT("data1\\")).c_str());
    AddAppDataPath(directory.Path(ZUTEXT("data2")).c_str());
    program_dir(directory.Path(ZUTEXT("program")).c_str());
    EXPECT_EQ(Search(ZUTEXT("a")), (Found{true, directory.Path(ZUTEXT("data1\\a"))}));
    EXPECT_EQ(Search(ZUTEXT("b")), (Found{true, directory.Path(ZUTEXT("data2\\b"))}));
    EXPECT_EQ(Search(ZUTEXT("c")), (Found{true, directory.Path(ZUTEXT("program\\c"))}));
    EXPECT_EQ(Search(ZUTEXT("d")), (Found{true, ZUTEXT("d")})) << "as it stands";
    EXPECT_EQ(Search(ZUTEXT("e")), (Found{false, ZUTEXT("e")}));
    // The directory that is not there is one in text, and `..` takes it out.
    EXPECT_EQ(Search(ZUTEXT("..\\program\\b")), (Found{true, directory.Path(ZUTEXT("none\\..\\program\\b"))}));
}

TEST(SearchForFile, LaterCopyOfADirectoryChangesNothing) {
    const OwnFileSystem own;
    const TempDirectory directory;
    directory.Write(ZUTEXT("one\\a"), "");
    directory.Write(ZUTEXT("two\\a"), "");
    for (const auto* const name : {ZUTEXT("one"), ZUTEXT("two"), ZUTEXT("one")}) {
        AddAppDataPath(directory.Path(name).c_str());
    }
    EXPECT_EQ(Search(ZUTEXT("a")), (Found{true, directory.Path(ZUTEXT("one\\a"))}));
}

TEST(SearchForFile, TypeForcesTheExtensionThatIsLookedFor) {
    const OwnFileSystem own;
    const TempDirectory directory;
    directory.Write(ZUTEXT("a.MAP"), "");
    AddAppDataPath(directory.Path().c_str());
    EXPECT_EQ(Search(ZUTEXT("a"), ftMap), (Found{true, directory.Path(ZUTEXT("a"))})) << "the name itself is not";
    EXPECT_EQ(Search(ZUTEXT("a"), ftTab), (Found{false, ZUTEXT("a")}));
}

TEST(SearchForFile, PathThatIsTooLongIsPassedOver) {
    const OwnFileSystem own;
    const TempDirectory directory;
    directory.Write(ZUTEXT("a"), "");
    const InDirectory inside(directory.Native());
    AddAppDataPath(wstring16(260, 'x').c_str());
    AddAppDataPath(wstring16(400, 'x').c_str());
    AddAppDataPath(nullptr);
    program_dir(wstring16(260, 'y').c_str());
    EXPECT_EQ(Search(ZUTEXT("a")), (Found{true, ZUTEXT("a")}));
}

TEST(SearchForFile, LeavesNoErrorBehind) {
    const OwnFileSystem own;
    ClearErrors();
    EXPECT_FALSE(Search(ZUTEXT("no_such_file")).result);
    EXPECT_EQ(NumErrors(), 0);
}

}  // namespace
}  // namespace directories_test
