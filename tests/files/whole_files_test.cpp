#include <gtest/gtest.h>
#include <support/fresh_files.h>

#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>

namespace Torvo::test {
namespace whole_files_test {
namespace {

FILE* AsStream(int file) {
    return reinterpret_cast<FILE*>(std::intptr_t{file});
}

class WholeFiles : public testing::Test {
protected:
    std::string OnDisk(const wchar16* name) const { return files.directory.Read(name); }
    bool Exists(const wchar16* name) const { return files.directory.Has(name); }
    // Puts the time of last change back by an hour.
    void MakeOld(const wchar16* name) const {
        const auto path = files.directory.Native(name);
        std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) - std::chrono::hours(1));
    }
    std::size_t FilesInDirectory() const {
        std::size_t count = 0;
        for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(files.directory.Native()))
            ++count;
        return count;
    }

    const FreshFiles files;
};

// Removing ----------------------------------------------------------------------------------------------------------

TEST_F(WholeFiles, ARemovedFileStaysRegistered) {
    const int file = files.Make(ZUTEXT("x.dat"), "content");
    EXPECT_TRUE(fileremove(file));
    EXPECT_FALSE(Exists(ZUTEXT("x.dat")));
    EXPECT_EQ(NameOf(file), ZUTEXT("x.dat"));
    EXPECT_FALSE(fileremove(file));
    EXPECT_EQ(fileopen(file, omCreate, nullptr), file);
    EXPECT_TRUE(Exists(ZUTEXT("x.dat")));
    close2(file);
}

TEST_F(WholeFiles, AFileIsRemovedWhoeverHoldsIt) {
    const int file = files.Make(ZUTEXT("x.dat"), "content");
    fileopen(file, omReadWrite, nullptr);
    fileopen(file, omReadWrite, nullptr);
    WriteBytes(file, "dirty");
    EXPECT_TRUE(fileremove(file));
    EXPECT_FALSE(Exists(ZUTEXT("x.dat")));
    EXPECT_EQ(GetFileFD(file), -1);
    EXPECT_EQ(close2(file), 0);
    EXPECT_EQ(close2(file), 0);
    EXPECT_FALSE(Exists(ZUTEXT("x.dat")));
    const int stream = files.Make(ZUTEXT("y.dat"), "content");
    ffileopen(AsStream(stream), omRead, nullptr);
    EXPECT_TRUE(fileremove(stream));
}

TEST_F(WholeFiles, ADirectoryIsNoneOfAGroup) {
    const int inner = files.Make(ZUTEXT("sub\\inner"), "content");
    const int other = files.Make(ZUTEXT("other"), "other");
    int group[] = {other, register_file(files.directory.Path(ZUTEXT("sub")).c_str(), ftNone, true)};
    EXPECT_FALSE(group_fileremove(group, 2));
    EXPECT_EQ(files.directory.Read(ZUTEXT("other")), "other");
    EXPECT_EQ(fileopen(inner, omRead, nullptr), inner);
    close2(inner);
}

TEST_F(WholeFiles, WhatCannotBeRemovedOfAGroupLiesAside) {
    int file = files.Make(ZUTEXT("kept"), "content");
    files.directory.SetReadOnly(ZUTEXT("kept"), true);
    EXPECT_TRUE(group_fileremove(&file, 1));
    EXPECT_FALSE(files.directory.Has(ZUTEXT("kept")));
    const auto left = std::filesystem::directory_iterator(files.directory.Native())->path().filename().u16string();
    EXPECT_EQ(left.substr(0, 4), u"~ZUN");
    files.directory.SetReadOnly(wstring16(left.begin(), left.end()), false);
}

TEST_F(WholeFiles, AnotherCaseIsTakenOrTheFileStaysWhole) {
    int file = files.Make(ZUTEXT("c.dat"), "content");
    const int old = file;
    if (renamefile(&file, ZUTEXT("C.dat"), ftTxt)) {  // where the case of names counts
        EXPECT_NE(file, old);
        EXPECT_EQ(files.directory.Read(ZUTEXT("C.dat")), "content");
        EXPECT_FALSE(files.directory.Has(ZUTEXT("c.dat")));
    } else {
        EXPECT_EQ(file, old);
        EXPECT_TRUE(ThisErrorOccurred(6));
        EXPECT_EQ(files.directory.Read(ZUTEXT("c.dat")), "content");
        ClearErrors();
    }
    EXPECT_EQ(fileopen(file, omRead, nullptr), file);
    close2(file);
}

TEST_F(WholeFiles, AFileMayBeRenamedToItsOwnNameHoweverSpelt) {
    const wstring16 path = files.directory.Write(ZUTEXT("z"), "content");
    EXPECT_EQ(rename2(path.c_str(), path.c_str()), 0);
    EXPECT_EQ(rename2(path.c_str(), files.directory.Path(ZUTEXT(".\\z")).c_str()), 0);
    EXPECT_EQ(files.directory.Read(ZUTEXT("z")), "content");
}

TEST_F(WholeFiles, AFileThatAnotherHandleHoldsStays) {
    const int other = files.Make(ZUTEXT("other"), "other");
    const wstring16 path = files.directory.Write(ZUTEXT("held"), "content");
    int file = register_nonunique_file(path.c_str(), ftNone);
    const int holder = register_nonunique_file(path.c_str(), ftNone);
    ASSERT_EQ(fileopen(holder, omRead, nullptr), holder);
    EXPECT_FALSE(fileremove(file));
    EXPECT_EQ(remove2(path.c_str()), -1);
    EXPECT_EQ(rename2(path.c_str(), files.directory.Path(ZUTEXT("new")).c_str()), -1);
    int group[] = {other, file};
    EXPECT_FALSE(group_fileremove(group, 2));
    EXPECT_EQ(TakeErrors(), NoErrors);
    EXPECT_EQ(OnDisk(ZUTEXT("other")), "other");
    const int before = file;
    EXPECT_FALSE(renamefile(&file, ZUTEXT("new"), ftNone));
    EXPECT_EQ(file, before);
    EXPECT_EQ(TakeErrors(), OneError(5, 47, path)) << "copied, but not removed";
    EXPECT_EQ(FilesInDirectory(), 2u);
    EXPECT_EQ(OnDisk(ZUTEXT("held")), "content");
    close2(holder);
    EXPECT_TRUE(fileremove(file));
}

TEST_F(WholeFiles, ReadOnlyFilesAndDirectoriesAreNotRemoved) {
    const int file = files.Make(ZUTEXT("x.dat"), "content");
    files.directory.SetReadOnly(ZUTEXT("x.dat"), true);
    EXPECT_FALSE(fileremove(file));
    EXPECT_TRUE(Exists(ZUTEXT("x.dat")));
    files.directory.MakeDirectory(ZUTEXT("sub"));
    EXPECT_FALSE(fileremove(files.Register(ZUTEXT("sub"))));
    EXPECT_TRUE(Exists(ZUTEXT("sub")));
    EXPECT_FALSE(fileremove(1234));
}

TEST_F(WholeFiles, AGroupIsRemovedAsAWhole) {
    int group[] = {files.Make(ZUTEXT("a.tab"), "a"), files.Make(ZUTEXT("b.map"), "b"),
                   files.Make(ZUTEXT("sub\\c.id"), "c")};
    fileopen(group[1], omReadWrite, nullptr);
    WriteBytes(group[1], "dirty");
    EXPECT_TRUE(group_fileremove(group, 3));
    for (const wchar16* name : {ZUTEXT("a.tab"), ZUTEXT("b.map"), ZUTEXT("sub\\c.id")}) EXPECT_FALSE(Exists(name));
    EXPECT_EQ(FilesInDirectory(), 1u);  // the subdirectory
    EXPECT_EQ(NameOf(group[0]), ZUTEXT("a.tab"));
}

TEST_F(WholeFiles, AGroupWithOneThatCannotBeRenamedStaysInItsPlace) {
    int group[] = {files.Make(ZUTEXT("a"), "a"), files.Make(ZUTEXT("b"), "b"), files.Register(ZUTEXT("missing")),
                   files.Make(ZUTEXT("d"), "d")};
    EXPECT_FALSE(group_fileremove(group, 4));
    EXPECT_EQ(OnDisk(ZUTEXT("a")), "a");
    EXPECT_EQ(OnDisk(ZUTEXT("b")), "b");
    EXPECT_EQ(OnDisk(ZUTEXT("d")), "d");
    EXPECT_EQ(FilesInDirectory(), 3u);
    group[2] = 1234;
    EXPECT_FALSE(group_fileremove(group, 4));
    EXPECT_EQ(FilesInDirectory(), 3u);
    EXPECT_EQ(OnDisk(ZUTEXT("b")), "b");
}

TEST_F(WholeFiles, AGroupOfNothingIsRemoved) {
    EXPECT_TRUE(group_fileremove(nullptr, 0));
}

TEST_F(WholeFiles, AGroupOfNobodyIsNotRemoved) {
    EXPECT_FALSE(group_fileremove(nullptr, 1));
    EXPECT_TRUE(group_fileremove(nullptr, 0));
}

TEST_F(WholeFiles, AFileThatStandsTwiceInAGroupIsNotRemoved) {
    int group[] = {files.Make(ZUTEXT("a"), "a"), 0};
    group[1] = group[0];
    EXPECT_FALSE(group_fileremove(group, 2));
    EXPECT_EQ(OnDisk(ZUTEXT("a")), "a");
}

// Renaming ----------------------------------------------------------------------------------------------------------

TEST_F(WholeFiles, ARenamedFileHasAnotherHandle) {
    const int old = files.Make(ZUTEXT("old.dat"), "content", FILETYPE(18));
    fileopen(old, omReadWrite, nullptr);
    WriteBytes(old, "C");
    int file = old;
    EXPECT_TRUE(renamefile(&file, ZUTEXT("new.dat"), ftNone));
    EXPECT_NE(file, old);
    EXPECT_EQ(NameOf(old), ZUTEXT(""));
    EXPECT_EQ(PathOf(file), files.directory.Path(ZUTEXT("new.dat")));
    EXPECT_FALSE(Exists(ZUTEXT("old.dat")));
    EXPECT_EQ(OnDisk(ZUTEXT("new.dat")), "Content");
    EXPECT_EQ(is_file_registered(files.directory.Path(ZUTEXT("new.dat")).c_str(), FILETYPE(18)), file);
    EXPECT_EQ(is_file_registered(files.directory.Path(ZUTEXT("new.dat")).c_str(), FILETYPE(4)), 0);
    EXPECT_EQ(TakeErrors(), NoErrors);
}

TEST_F(WholeFiles, ARenamedFileTakesTheExtensionOfItsNewType) {
    int file = files.Make(ZUTEXT("x.dat"), "content");
    EXPECT_TRUE(renamefile(&file, ZUTEXT("y.dat"), FILETYPE(5)));
    EXPECT_EQ(NameOf(file), ZUTEXT("y.MAP"));
    EXPECT_EQ(OnDisk(ZUTEXT("y.MAP")), "content");
}

TEST_F(WholeFiles, AFileIsRenamedIntoAnotherDirectory) {
    files.directory.MakeDirectory(ZUTEXT("sub"));
    int file = files.Make(ZUTEXT("x.dat"), "content");
    EXPECT_TRUE(renamefile(&file, ZUTEXT("sub\\y.dat"), ftNone));
    EXPECT_EQ(OnDisk(ZUTEXT("sub\\y.dat")), "content");
    EXPECT_TRUE(renamefile(&file, files.directory.Path(ZUTEXT("z.dat")).c_str(), ftNone));
    EXPECT_EQ(OnDisk(ZUTEXT("z.dat")), "content");
}

TEST_F(WholeFiles, AFileIsNotRenamedToANameThatIsRegistered) {
    int file = files.Make(ZUTEXT("x.dat"), "content");
    const int other = files.Register(ZUTEXT("other.dat"));
    const int former = file;
    EXPECT_FALSE(renamefile(&file, ZUTEXT("OTHER.DAT"), ftNone));
    EXPECT_EQ(TakeErrors(), OneError(6, 48, files.directory.Path(ZUTEXT("OTHER.DAT"))));
    EXPECT_EQ(file, former);
    EXPECT_EQ(OnDisk(ZUTEXT("x.dat")), "content");
    EXPECT_EQ(NameOf(other), ZUTEXT("other.dat"));
    EXPECT_FALSE(renamefile(&file, ZUTEXT("x.dat"), ftNone));
    EXPECT_EQ(TakeErrors(), OneError(6, 48, files.directory.Path(ZUTEXT("x.dat"))));
}

TEST_F(WholeFiles, AFileIsNotRenamedOverAnother) {
    int file = files.Make(ZUTEXT("x.dat"), "content");
    files.directory.Write(ZUTEXT("other.dat"), "other");
    EXPECT_FALSE(renamefile(&file, ZUTEXT("other.dat"), ftNone));
    EXPECT_EQ(TakeErrors(), OneError(6, 48, files.directory.Path(ZUTEXT("other.dat"))));
    EXPECT_EQ(OnDisk(ZUTEXT("other.dat")), "other");
    EXPECT_EQ(OnDisk(ZUTEXT("x.dat")), "content");
    EXPECT_EQ(is_file_registered(files.directory.Path(ZUTEXT("other.dat")).c_str(), ftNone), 0);
    EXPECT_EQ(PathOf(file), files.directory.Path(ZUTEXT("x.dat")));
}

TEST_F(WholeFiles, AFileThatIsNotThereCannotBeRenamed) {
    int file = files.Register(ZUTEXT("missing.dat"));
    EXPECT_FALSE(renamefile(&file, ZUTEXT("new.dat"), ftNone));
    EXPECT_EQ(TakeErrors(), OneError(5001, 9985, ZUTEXT("missing.dat")));
    EXPECT_EQ(is_file_registered(files.directory.Path(ZUTEXT("new.dat")).c_str(), ftNone), 0);
    EXPECT_FALSE(Exists(ZUTEXT("new.dat")));
    int unknown = 1234;
    EXPECT_FALSE(renamefile(&unknown, ZUTEXT("new.dat"), ftNone));
    EXPECT_EQ(unknown, 1234);
    EXPECT_FALSE(renamefile(&file, nullptr, ftNone));
}

// Copying -----------------------------------------------------------------------------------------------------------

TEST_F(WholeFiles, AFileIsCopied) {
    std::string content(20000, 0);
    for (std::size_t i = 0; i < content.size(); ++i) content[i] = static_cast<char>(i * 7);
    for (const std::size_t size : {0, 1, 4095, 4096, 4097, 20000}) {
        const int from = files.Make(ZUTEXT("from"), content.substr(0, size));
        const int to = files.Make(ZUTEXT("to"), "a former content that is longer than some of the new ones");
        EXPECT_TRUE(filecopy(from, to, false));
        EXPECT_EQ(OnDisk(ZUTEXT("to")), content.substr(0, size));
        EXPECT_EQ(GetFileFD(from), -1);
        EXPECT_EQ(GetFileFD(to), -1);
        unregister_file(from);
        unregister_file(to);
    }
    EXPECT_EQ(TakeErrors(), NoErrors);
}

TEST_F(WholeFiles, ACopyMakesTheTargetOrAppendsToOneThatIsThere) {
    const int from = files.Make(ZUTEXT("from"), "content");
    const int to = files.Register(ZUTEXT("to"));
    EXPECT_FALSE(filecopy(from, to, true));
    EXPECT_EQ(TakeErrors(), OneError(5001, 9985, ZUTEXT("to")));
    EXPECT_EQ(GetFileFD(from), -1);
    EXPECT_TRUE(filecopy(from, to, false));
    EXPECT_TRUE(filecopy(from, to, true));
    EXPECT_EQ(OnDisk(ZUTEXT("to")), "contentcontent");
}

TEST_F(WholeFiles, WhatIsDirtyInTheSourceIsCopied) {
    const int from = files.Make(ZUTEXT("from"), "content");
    const int to = files.Register(ZUTEXT("to"));
    fileopen(from, omReadWrite, nullptr);
    WriteBytes(from, "dirty");
    EXPECT_TRUE(filecopy(from, to, false));
    EXPECT_EQ(OnDisk(ZUTEXT("to")), "dirtynt");
    close2(from);
}

TEST_F(WholeFiles, WhatIsDirtyInTheTargetIsNotLostByAppending) {
    const int from = files.Make(ZUTEXT("from"), "appended");
    const int to = files.Make(ZUTEXT("to"), "");
    fileopen(to, omReadWrite, nullptr);
    WriteBytes(to, "dirty ");
    EXPECT_TRUE(filecopy(from, to, true));
    EXPECT_EQ(ContentOnDisk(to, files.directory, ZUTEXT("to")), "dirty appended");
    EXPECT_EQ(filelength2(to), 14);
    lseek2(to, 0, 0);
    EXPECT_EQ(ReadBytes(to, 100), "dirty appended");
    WriteBytes(to, "!");
    EXPECT_EQ(close2(to), 0);
    EXPECT_EQ(OnDisk(ZUTEXT("to")), "dirty appended!");
}

TEST_F(WholeFiles, BlocksThatTheCacheHoldsOfTheTargetAreReadAgain) {
    const int from = files.Make(ZUTEXT("from"), "new");
    const int to = files.Make(ZUTEXT("to"), "former");
    fileopen(to, omRead, nullptr);
    EXPECT_EQ(ReadBytes(to, 100), "former");
    close2(to);
    EXPECT_TRUE(filecopy(from, to, false));
    fileopen(to, omRead, nullptr);
    EXPECT_EQ(ReadBytes(to, 100), "new");
    close2(to);
}

TEST_F(WholeFiles, AFileThatIsNotThereCannotBeCopied) {
    const int from = files.Register(ZUTEXT("from"));
    const int to = files.Register(ZUTEXT("to"));
    EXPECT_FALSE(filecopy(from, to, false));
    EXPECT_EQ(TakeErrors(), OneError(5001, 9985, ZUTEXT("from")));
    EXPECT_FALSE(Exists(ZUTEXT("to")));
    EXPECT_FALSE(filecopy(1234, to, false));
    EXPECT_FALSE(filecopy(to, 1234, false));
}

TEST_F(WholeFiles, AFileIsNotCopiedOntoItself) {
    const int file = files.Make(ZUTEXT("x"), "content");
    EXPECT_FALSE(filecopy(file, file, false));
    EXPECT_EQ(TakeErrors(), OneError(9, 51, ZUTEXT("x")));
    EXPECT_TRUE(filecopy(file, file, true));
    EXPECT_EQ(OnDisk(ZUTEXT("x")), "content");
    EXPECT_EQ(GetFileFD(file), -1);
}

// Time stamps -------------------------------------------------------------------------------------------------------

TEST_F(WholeFiles, ATimeStampIsReadAndSetToNow) {
    const int file = files.Make(ZUTEXT("x"), "content");
    const int64 now = file_get_timestamp(file);
    EXPECT_NEAR(static_cast<double>(now), static_cast<double>(std::time(nullptr)), 10);
    MakeOld(ZUTEXT("x"));
    EXPECT_EQ(file_get_timestamp(file), now - 3600);
    EXPECT_TRUE(file_set_timestamp(file));
    EXPECT_GE(file_get_timestamp(file), now);
}

TEST_F(WholeFiles, AFileThatIsNotThereHasNoTimeStamp) {
    const int file = files.Register(ZUTEXT("missing"));
    EXPECT_EQ(file_get_timestamp(file), 0);
    EXPECT_FALSE(file_set_timestamp(file));
    EXPECT_EQ(file_get_timestamp(1234), 0);
    EXPECT_FALSE(file_set_timestamp(1234));
    EXPECT_FALSE(Exists(ZUTEXT("missing")));
}

TEST_F(WholeFiles, TouchingSetsTheTimeAndLeavesTheContent) {
    for (const std::string& content :
         {std::string("content"), std::string("\r\nlines"), std::string("\nx"), std::string("\rx"),
          std::string("\x1Ax"), std::string("\xE6\x9D\xB1"), std::string(1, '\0'), std::string()}) {
        const int file = files.Make(ZUTEXT("x"), content);
        file_put_charset(file, csUTF8);
        MakeOld(ZUTEXT("x"));
        const int64 before = file_get_timestamp(file);
        EXPECT_TRUE(touch(file));
        EXPECT_GE(file_get_timestamp(file), before + 3500);
        EXPECT_EQ(OnDisk(ZUTEXT("x")), content);
        EXPECT_EQ(GetFilePtr(AsStream(file)), nullptr);

        // It is no change that anybody is told of.
        int changed = 0;
        EXPECT_EQ(fileopen(file, omRead, &changed), file);
        EXPECT_EQ(changed, 0);
        close2(file);
        unregister_file(file);
    }
}

TEST_F(WholeFiles, WhatCannotBeOpenedToWriteCannotBeTouched) {
    const int file = files.Register(ZUTEXT("missing"));
    EXPECT_FALSE(touch(file));
    EXPECT_EQ(TakeErrors(), OneError(5001, 9985, ZUTEXT("missing")));
    EXPECT_FALSE(touch(1234));
    const int held = files.Make(ZUTEXT("held"), "content");
    fileopen(held, omRead, nullptr);
    EXPECT_FALSE(touch(held));
    EXPECT_EQ(TakeErrors(), OneError(9, 51, ZUTEXT("held")));
    close2(held);
    files.directory.SetReadOnly(ZUTEXT("held"), true);
    EXPECT_FALSE(touch(held));
    EXPECT_EQ(TakeErrors(), OneError(4, 46, ZUTEXT("held")));
}

// By path -----------------------------------------------------------------------------------------------------------

TEST_F(WholeFiles, RenamingByPathReplacesNothing) {
    const wstring16 a = files.directory.Write(ZUTEXT("a"), "a");
    const wstring16 b = files.directory.Write(ZUTEXT("b"), "b");
    EXPECT_EQ(rename2(a.c_str(), b.c_str()), -1);
    EXPECT_EQ(OnDisk(ZUTEXT("b")), "b");
    EXPECT_EQ(rename2(a.c_str(), files.directory.Path(ZUTEXT("c")).c_str()), 0);
    EXPECT_FALSE(Exists(ZUTEXT("a")));
    EXPECT_EQ(OnDisk(ZUTEXT("c")), "a");
    EXPECT_EQ(rename2(a.c_str(), b.c_str()), -1);
    EXPECT_EQ(rename2(nullptr, b.c_str()), -1);
    EXPECT_EQ(rename2(a.c_str(), nullptr), -1);
}

TEST_F(WholeFiles, RemovingByPathRefusesDirectoriesAndReadOnlyFiles) {
    const wstring16 a = files.directory.Write(ZUTEXT("a"), "a");
    files.directory.SetReadOnly(ZUTEXT("a"), true);
    EXPECT_EQ(remove2(a.c_str()), -1);
    files.directory.SetReadOnly(ZUTEXT("a"), false);
    EXPECT_EQ(remove2(a.c_str()), 0);
    EXPECT_EQ(remove2(a.c_str()), -1);
    EXPECT_EQ(remove2(files.directory.MakeDirectory(ZUTEXT("sub")).c_str()), -1);
    EXPECT_EQ(remove2(nullptr), -1);
}

TEST_F(WholeFiles, AccessByPathTellsWhatMayBeDone) {
    const wstring16 a = files.directory.Write(ZUTEXT("a"), "a");
    for (const int mode : {0, 2, 4, 6}) EXPECT_EQ(access2(a.c_str(), mode), 0);
    files.directory.SetReadOnly(ZUTEXT("a"), true);
    EXPECT_EQ(access2(a.c_str(), 0), 0);
    EXPECT_EQ(access2(a.c_str(), 4), 0);
    EXPECT_EQ(access2(a.c_str(), 2), -1);
    EXPECT_EQ(access2(a.c_str(), 6), -1);
    EXPECT_EQ(access2(files.directory.Path(ZUTEXT("missing")).c_str(), 0), -1);
    EXPECT_EQ(access2(nullptr, 0), -1);
}

TEST_F(WholeFiles, StatusByPath) {
    const wstring16 a = files.directory.Write(ZUTEXT("a"), "content");
    struct _stat64 status = {};
    EXPECT_EQ(stat2(a.c_str(), &status), 0);
    EXPECT_EQ(status.st_size, 7);
    EXPECT_EQ(status.st_mode & 0xF000, 0x8000);
    EXPECT_EQ(stat2(files.directory.Path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0xF000, 0x4000);
    EXPECT_EQ(stat2(files.directory.Path(ZUTEXT("missing")).c_str(), &status), -1);
    EXPECT_EQ(stat2(nullptr, &status), -1);
    EXPECT_EQ(stat2(a.c_str(), nullptr), -1);
}

TEST_F(WholeFiles, AnOverlongPathIsNoFile) {
    const wstring16 path = files.directory.Path(wstring16(5000, wchar16{'x'}));
    EXPECT_EQ(access2(path.c_str(), 0), -1);
    EXPECT_EQ(remove2(path.c_str()), -1);
}

// Cut, the path would be that of another file.
TEST_F(WholeFiles, ALongPathIsTakenWhole) {
    const wstring16 name(260 - files.directory.Path(ZUTEXT("")).size(), wchar16{'x'});
    const wstring16 other = files.directory.Path(name + ZUTEXT("yz"));
    std::ofstream(files.directory.Native(name)) << "x";
    struct _stat64 status = {};
    EXPECT_EQ(access2(other.c_str(), 0), -1);
    EXPECT_EQ(stat2(other.c_str(), &status), -1);
    EXPECT_EQ(remove2(other.c_str()), -1);
    EXPECT_EQ(rename2(other.c_str(), files.directory.Path(ZUTEXT("z")).c_str()), -1);
    EXPECT_EQ(rename2(files.directory.Write(ZUTEXT("short"), "s").c_str(), (other + wstring16(5000, 'y')).c_str()), -1);
    EXPECT_TRUE(Exists(ZUTEXT("short")));
}

}  // namespace
}  // namespace whole_files_test
}  // namespace Torvo::test
