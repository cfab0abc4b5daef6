#include <Utility/clock.h>

#include <gtest/gtest.h>
#include <support/fresh_files.h>

#include <chrono>
#include <filesystem>
#include <fstream>

namespace Torvo::test {
namespace open_files_test {
namespace {

FILE* AsStream(int file) {
    return reinterpret_cast<FILE*>(std::intptr_t{file});
}

bool IsOpen(int file) {
    return GetFileFD(file) != -1 || GetFilePtr(AsStream(file)) != nullptr;
}

void OpenAndClose(int file) {
    ASSERT_EQ(fileopen(file, omRead, nullptr), file);
    ASSERT_EQ(close2(file), 0);
}

// Changes a file behind the library's back, with a time of its own.
void ChangeOutside(const TempDirectory& directory, const wstring16& name, std::string_view content) {
    const auto former = std::filesystem::last_write_time(directory.Native(name));
    directory.Write(name, content);
    std::filesystem::last_write_time(directory.Native(name), former + std::chrono::seconds(10));
}

// Modes -------------------------------------------------------------------------------------------------------------

TEST(OpenFiles, AFileIsOpenedToReadToWriteAndAnew) {
    const FreshFiles files;
    const int file = files.Make(ZUTEXT("x.dat"), "content");
    ASSERT_EQ(fileopen(file, omRead, nullptr), file);
    EXPECT_EQ(filelength2(file), 7);
    EXPECT_EQ(ReadBytes(file, 100), "content");
    EXPECT_EQ(close2(file), 0);

    ASSERT_EQ(fileopen(file, omReadWrite, nullptr), file);
    EXPECT_EQ(tell2(file), 0);
    EXPECT_EQ(WriteBytes(file, "C"), 1);
    EXPECT_EQ(close2(file), 0);
    EXPECT_EQ(files.directory.Read(ZUTEXT("x.dat")), "Content");

    ASSERT_EQ(fileopen(file, omCreate, nullptr), file);
    EXPECT_EQ(filelength2(file), 0);
    EXPECT_EQ(ContentOnDisk(file, files.directory, ZUTEXT("x.dat")), "");
    EXPECT_EQ(WriteBytes(file, "new"), 3);
    lseek2(file, 0, 0);
    EXPECT_EQ(ReadBytes(file, 100), "new");
    EXPECT_EQ(close2(file), 0);
    EXPECT_EQ(files.directory.Read(ZUTEXT("x.dat")), "new");
    EXPECT_EQ(TakeErrors(), NoErrors);
}

TEST(OpenFiles, OnlyModeThreeMakesAFile) {
    const FreshFiles files;
    const int file = files.Register(ZUTEXT("x.dat"));
    for (const eOpenMode mode : {omRead, omReadWrite}) {
        EXPECT_EQ(fileopen(file, mode, nullptr), -1);
        EXPECT_EQ(TakeErrors(), OneError(5001, 9985, ZUTEXT("x.dat")));
    }
    ASSERT_EQ(fileopen(file, omCreate, nullptr), file);
    EXPECT_TRUE(files.directory.Has(ZUTEXT("x.dat")));
    close2(file);
}

TEST(OpenFiles, AMissingDirectoryIsNotFound) {
    const FreshFiles files;
    const int file = files.Register(ZUTEXT("none\\x.dat"));
    for (const eOpenMode mode : {omRead, omReadWrite, omCreate}) {
        EXPECT_EQ(fileopen(file, mode, nullptr), -1);
        EXPECT_EQ(TakeErrors(), OneError(5001, 9985, ZUTEXT("x.dat")));
    }
}

TEST(OpenFiles, ADirectoryIsDenied) {
    const FreshFiles files;
    files.directory.MakeDirectory(ZUTEXT("sub"));
    const int file = files.Register(ZUTEXT("sub"));
    for (const eOpenMode mode : {omRead, omReadWrite}) {
        EXPECT_EQ(fileopen(file, mode, nullptr), -1);
        EXPECT_EQ(TakeErrors(), OneError(4, 46, ZUTEXT("sub")));
    }
    EXPECT_EQ(fileopen(file, omCreate, nullptr), -1);
    EXPECT_EQ(TakeErrors(), NoErrors);
}

TEST(OpenFiles, AnyOtherModeOpensToReadInTheDescriptorWorldAlone) {
    const FreshFiles files;
    const int file = files.Make(ZUTEXT("x.dat"), "content");
    for (const int mode : {0, 4, -1}) {
        ASSERT_EQ(fileopen(file, static_cast<eOpenMode>(mode), nullptr), file);
        EXPECT_EQ(filehandle_get_openmode(file), mode);
        EXPECT_EQ(ReadBytes(file, 100), "content");
        EXPECT_EQ(close2(file), 0);
        EXPECT_EQ(ffileopen(AsStream(file), static_cast<eOpenMode>(mode), nullptr), nullptr);
        EXPECT_FALSE(IsOpen(file));
    }
    EXPECT_EQ(TakeErrors(), NoErrors);
}

TEST(OpenFiles, AReadOnlyFileIsOpenedToReadAlone) {
    const FreshFiles files;
    const int file = files.Make(ZUTEXT("x.dat"), "content");
    files.directory.SetReadOnly(ZUTEXT("x.dat"), true);
    EXPECT_EQ(fileopen(file, omCreate, nullptr), -1);
    EXPECT_EQ(TakeErrors(), NoErrors);
    EXPECT_EQ(fileopen(file, omReadWrite, nullptr), -1);
    EXPECT_EQ(TakeErrors(), OneError(4, 46, ZUTEXT("x.dat")));
    EXPECT_EQ(files.directory.Read(ZUTEXT("x.dat")), "content");
    EXPECT_EQ(fileopen(file, omRead, nullptr), file);
    EXPECT_EQ(close2(file), 0);
}

TEST(OpenFiles, AnEmptyTableOfDescriptorsStaysEmptyAfterFailures) {
    const FreshFiles files({.budget = 1});
    const int missing = files.Register(ZUTEXT("missing"));
    for (int i = 0; i < 5; ++i) EXPECT_EQ(fileopen(missing, omRead, nullptr), -1);
    OpenAndClose(files.Make(ZUTEXT("there"), "x"));
}

// Sharing -----------------------------------------------------------------------------------------------------------

class Sharing : public testing::Test {
protected:
    Sharing() : file(files.Make(ZUTEXT("x.dat"), "content")) {}

    const FreshFiles files;
    const int file;
};

TEST_F(Sharing, AFileOpenToWriteServesOneWhoReads) {
    ASSERT_EQ(fileopen(file, omReadWrite, nullptr), file);
    const int descriptor = GetFileFD(file);
    lseek2(file, 5, 0);
    ASSERT_EQ(fileopen(file, omRead, nullptr), file);
    EXPECT_EQ(GetFileFD(file), descriptor);
    EXPECT_EQ(filehandle_get_openmode(file), 2);
    EXPECT_EQ(tell2(file), 0);
    EXPECT_EQ(close2(file), 0);
    EXPECT_TRUE(IsOpen(file));
    EXPECT_EQ(close2(file), 0);
    EXPECT_FALSE(IsOpen(file));
}

TEST_F(Sharing, AFileThatWasCreatedServesEveryoneAndIsNotEmptiedAgain) {
    ASSERT_EQ(fileopen(file, omCreate, nullptr), file);
    WriteBytes(file, "new");
    for (const eOpenMode mode : {omRead, omReadWrite, omCreate}) ASSERT_EQ(fileopen(file, mode, nullptr), file);
    EXPECT_EQ(filelength2(file), 3);
    EXPECT_EQ(filehandle_get_openmode(file), 3);
    EXPECT_EQ(ReadBytes(file, 10), "new");
    for (int i = 0; i < 4; ++i) EXPECT_EQ(close2(file), 0);
    EXPECT_EQ(files.directory.Read(ZUTEXT("x.dat")), "new");
}

TEST_F(Sharing, OneWhoWantsToWriteOpensTheFileAnewForEveryone) {
    ASSERT_EQ(fileopen(file, omRead, nullptr), file);
    ASSERT_EQ(fileopen(file, omRead, nullptr), file);
    ReadBytes(file, 4);
    ASSERT_EQ(fileopen(file, omReadWrite, nullptr), file);
    EXPECT_EQ(filehandle_get_openmode(file), 2);
    EXPECT_EQ(tell2(file), 0);
    EXPECT_EQ(WriteBytes(file, "C"), 1);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(close2(file), 0);
    EXPECT_EQ(close2(file), -1);
    EXPECT_EQ(TakeErrors(), OneError(11, 53, ZUTEXT("1000")));
    EXPECT_EQ(files.directory.Read(ZUTEXT("x.dat")), "Content");
}

TEST_F(Sharing, WhereWritingIsDeniedTheReadersKeepTheFile) {
    ASSERT_EQ(fileopen(file, omRead, nullptr), file);
    ASSERT_EQ(fileopen(file, omRead, nullptr), file);
    files.directory.SetReadOnly(ZUTEXT("x.dat"), true);
    EXPECT_EQ(fileopen(file, omReadWrite, nullptr), -1);
    EXPECT_EQ(TakeErrors(), OneError(4, 46, ZUTEXT("x.dat")));
    EXPECT_EQ(filehandle_get_openmode(file), 1);
    EXPECT_EQ(ReadBytes(file, 100), "content");
    EXPECT_EQ(close2(file), 0);
    EXPECT_TRUE(IsOpen(file));
    EXPECT_EQ(close2(file), 0);
    EXPECT_FALSE(IsOpen(file));
}

TEST_F(Sharing, NobodyCreatesAFileThatAnotherHolds) {
    for (const eOpenMode held : {omRead, omReadWrite}) {
        ASSERT_EQ(fileopen(file, held, nullptr), file);
        EXPECT_EQ(fileopen(file, omCreate, nullptr), -1);
        EXPECT_EQ(TakeErrors(), OneError(9, 51, ZUTEXT("x.dat")));
        EXPECT_EQ(filehandle_get_openmode(file), held);
        EXPECT_EQ(close2(file), 0);
    }
    EXPECT_EQ(files.directory.Read(ZUTEXT("x.dat")), "content");
}

TEST_F(Sharing, TheTwoWorldsDoNotShareAFile) {
    ASSERT_EQ(fileopen(file, omRead, nullptr), file);
    for (const eOpenMode mode : {omRead, omReadWrite}) {
        EXPECT_EQ(ffileopen(AsStream(file), mode, nullptr), nullptr);
        EXPECT_EQ(TakeErrors(), OneError(9, 51, ZUTEXT("x.dat")));
    }
    EXPECT_EQ(close2(file), 0);

    ASSERT_EQ(ffileopen(AsStream(file), omRead, nullptr), AsStream(file));
    EXPECT_EQ(fileopen(file, omRead, nullptr), -1);
    EXPECT_EQ(TakeErrors(), OneError(9, 51, ZUTEXT("x.dat")));
    EXPECT_EQ(fclose2(AsStream(file)), 0);
    EXPECT_EQ(fileopen(file, omRead, nullptr), file);
    EXPECT_EQ(close2(file), 0);
}

TEST_F(Sharing, ASecondOpenOfAStreamReadsFromTheStart) {
    ASSERT_NE(ffileopen(AsStream(file), omRead, nullptr), nullptr);
    EXPECT_EQ(std::fgetc(GetFilePtr(AsStream(file))), 'c');
    ASSERT_NE(ffileopen(AsStream(file), omRead, nullptr), nullptr);
    EXPECT_EQ(std::fgetc(GetFilePtr(AsStream(file))), 'c');
    ASSERT_NE(ffileopen(AsStream(file), omReadWrite, nullptr), nullptr);
    EXPECT_EQ(filehandle_get_openmode(file), 2);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(fclose2(AsStream(file)), 0);
    EXPECT_FALSE(IsOpen(file));
}

TEST_F(Sharing, AnOpenOfAStreamLeavesTheLength) {
    ASSERT_EQ(fileopen(file, omRead, nullptr), file);
    close2(file);
    ChangeOutside(files.directory, ZUTEXT("x.dat"), "longer content");
    ASSERT_NE(ffileopen(AsStream(file), omRead, nullptr), nullptr);
    EXPECT_EQ(filelength2(file), 7);
    fclose2(AsStream(file));
    ASSERT_EQ(fileopen(file, omRead, nullptr), file);
    EXPECT_EQ(filelength2(file), 14);
    close2(file);
}

TEST_F(Sharing, ACloseBeyondTheLastReferenceIsRefused) {
    EXPECT_EQ(close2(file), -1);
    EXPECT_EQ(TakeErrors(), OneError(11, 53, ZUTEXT("1000")));
    EXPECT_EQ(fclose2(AsStream(file)), -1);
    EXPECT_EQ(TakeErrors(), OneError(11, 53, ZUTEXT("1000")));
}

TEST_F(Sharing, ThereAreNoMoreReferencesThanCanBeCounted) {
    for (int i = 0; i < 1023; ++i) ASSERT_EQ(fileopen(file, omRead, nullptr), file);
    EXPECT_EQ(fileopen(file, omRead, nullptr), -1);
    EXPECT_EQ(fileopen(file, omReadWrite, nullptr), -1);
    EXPECT_EQ(NameOf(file), ZUTEXT("x.dat"));
    for (int i = 0; i < 1023; ++i) ASSERT_EQ(close2(file), 0);
    EXPECT_FALSE(IsOpen(file));
}

TEST_F(Sharing, TwoHandlesOfOneFileExcludeEachOtherWhereOneWrites) {
    const int other = register_nonunique_file(files.directory.Path(ZUTEXT("x.dat")).c_str(), ftNone);
    ASSERT_EQ(fileopen(file, omRead, nullptr), file);
    ASSERT_EQ(fileopen(other, omRead, nullptr), other);
    close2(other);
    EXPECT_EQ(fileopen(other, omReadWrite, nullptr), -1);
    EXPECT_EQ(TakeErrors(), OneError(4, 46, ZUTEXT("x.dat")));
    EXPECT_EQ(fileopen(other, omCreate, nullptr), -1);
    EXPECT_EQ(TakeErrors(), NoErrors);
    close2(file);
    EXPECT_EQ(files.directory.Read(ZUTEXT("x.dat")), "content");

    ASSERT_EQ(fileopen(file, omReadWrite, nullptr), file);
    EXPECT_EQ(fileopen(other, omRead, nullptr), -1);
    EXPECT_EQ(TakeErrors(), OneError(4, 46, ZUTEXT("x.dat")));
    close2(file);
    EXPECT_EQ(fileopen(other, omRead, nullptr), other);
    close2(other);
}

// The budget --------------------------------------------------------------------------------------------------------

class Budget : public testing::Test {
protected:
    explicit Budget(bool closeReadOnly = false) : files({.budget = 2, .closeReadOnly = closeReadOnly}) {
        for (const wchar16* name : {ZUTEXT("a"), ZUTEXT("b"), ZUTEXT("c"), ZUTEXT("d")}) files.Make(name, "content");
    }

    const FreshFiles files;
};

TEST_F(Budget, AThirdFileClosesTheOldestIdleOne) {
    EXPECT_EQ(GetMaxFileCount(), 2);
    OpenAndClose(1000);
    OpenAndClose(1001);
    EXPECT_TRUE(IsOpen(1000));
    EXPECT_TRUE(IsOpen(1001));
    OpenAndClose(1002);
    EXPECT_FALSE(IsOpen(1000));
    EXPECT_TRUE(IsOpen(1001));
    EXPECT_TRUE(IsOpen(1002));
    EXPECT_EQ(TakeErrors(), NoErrors);
}

TEST_F(Budget, AFileThatWasClosedForAnotherKeepsItsBlocks) {
    fileopen(1000, omRead, nullptr);
    EXPECT_EQ(ReadBytes(1000, 3), "con");
    close2(1000);
    OpenAndClose(1001);
    OpenAndClose(1002);
    ASSERT_FALSE(IsOpen(1000));
    CacheEntry* block = nullptr;
    EXPECT_TRUE(cFileCache::Instance()->Lookup(1000, 0, &block, 0));
    int changed = 0;
    ASSERT_EQ(fileopen(1000, omRead, &changed), 1000);
    EXPECT_EQ(changed, 0);
    EXPECT_EQ(tell2(1000), 0);
    EXPECT_TRUE(cFileCache::Instance()->Lookup(1000, 0, &block, 0));
    EXPECT_EQ(ReadBytes(1000, 100), "content");
    close2(1000);
}

TEST_F(Budget, AFileThatSomebodyHoldsIsNeverTaken) {
    ASSERT_EQ(fileopen(1000, omReadWrite, nullptr), 1000);
    ASSERT_EQ(fileopen(1001, omRead, nullptr), 1001);
    EXPECT_EQ(fileopen(1002, omRead, nullptr), -1);
    EXPECT_EQ(TakeErrors(), OneError(14, 56, ZUTEXT("c")));
    EXPECT_EQ(fileopen(1002, omCreate, nullptr), -1);
    EXPECT_EQ(TakeErrors(), OneError(14, 56, ZUTEXT("c")));
    EXPECT_TRUE(IsOpen(1000));
    EXPECT_TRUE(IsOpen(1001));
    close2(1001);
    EXPECT_EQ(fileopen(1002, omRead, nullptr), 1002);
    EXPECT_FALSE(IsOpen(1001));
    close2(1000);
    close2(1002);
}

TEST_F(Budget, OnlyFilesThatWereReadStayIdle) {
    fileopen(1000, omReadWrite, nullptr);
    close2(1000);
    EXPECT_FALSE(IsOpen(1000));
    fileopen(1000, omCreate, nullptr);
    close2(1000);
    EXPECT_FALSE(IsOpen(1000));
    ffileopen(AsStream(1001), omRead, nullptr);
    fclose2(AsStream(1001));
    EXPECT_TRUE(IsOpen(1001));
}

TEST_F(Budget, AnIdleFileServesTheNextWhoReadsIt) {
    OpenAndClose(1000);
    const int descriptor = GetFileFD(1000);
    fileopen(1000, omRead, nullptr);
    EXPECT_EQ(GetFileFD(1000), descriptor);
    EXPECT_EQ(close2(1000), 0);
    EXPECT_EQ(close2(1000), -1);
    ClearErrors();
    EXPECT_EQ(GetFileFD(1000), descriptor);
}

TEST_F(Budget, AnIdleFileOfTheOtherWorldOrModeIsOpenedAnew) {
    OpenAndClose(1000);
    ASSERT_NE(ffileopen(AsStream(1000), omRead, nullptr), nullptr);
    EXPECT_EQ(GetFileFD(1000), -1);
    fclose2(AsStream(1000));
    ASSERT_EQ(fileopen(1000, omReadWrite, nullptr), 1000);
    close2(1000);
    OpenAndClose(1000);
    ASSERT_EQ(fileopen(1000, omCreate, nullptr), 1000);
    EXPECT_EQ(filelength2(1000), 0);
    close2(1000);
    EXPECT_EQ(TakeErrors(), NoErrors);
}

TEST_F(Budget, TheOldestIsTheOneThatWasNotOpenedForTheMostOpens) {
    OpenAndClose(1000);
    OpenAndClose(1001);
    OpenAndClose(1000);  // is open, and therefore no younger for it
    OpenAndClose(1002);
    EXPECT_FALSE(IsOpen(1000));
    EXPECT_TRUE(IsOpen(1001));
}

TEST_F(Budget, ReallyCloseNextClosesEveryIdleFile) {
    const FreshFiles many({.closeReadOnly = false});
    for (const wchar16* name : {ZUTEXT("a"), ZUTEXT("b"), ZUTEXT("c"), ZUTEXT("held")}) many.Make(name, "content");
    for (int file = 1000; file < 1003; ++file) OpenAndClose(file);
    fileopen(1003, omRead, nullptr);
    really_close_next();
    for (int file = 1000; file < 1003; ++file) EXPECT_FALSE(IsOpen(file));
    EXPECT_TRUE(IsOpen(1003));
    OpenAndClose(1000);
    really_close_all();
    EXPECT_FALSE(IsOpen(1000));
    close2(1003);
}

TEST_F(Budget, AFileSystemClosesItsIdleFilesWhenItGoes) {
    TempDirectory directory;
    {
        const FreshFiles gone({.closeReadOnly = false});
        const int file = register_file(directory.Write(ZUTEXT("x"), "content").c_str(), ftNone, true);
        OpenAndClose(file);
        ASSERT_TRUE(IsOpen(file));
    }
    // Nobody holds the file any more: it may be opened to write.
    const int file = register_file(directory.Path(ZUTEXT("x")).c_str(), ftNone, true);
    EXPECT_EQ(fileopen(file, omReadWrite, nullptr), file);
    close2(file);
}

TEST_F(Budget, ABudgetOfNothingOpensNothing) {
    const FreshFiles none({.budget = 0});
    const int file = none.Make(ZUTEXT("x"), "content");
    EXPECT_EQ(fileopen(file, omRead, nullptr), -1);
    EXPECT_EQ(TakeErrors(), OneError(14, 56, ZUTEXT("x")));
}

TEST(ClosingBudget, NothingStaysIdleAsTheSwitchStandsAtFirst) {
    const FreshFiles files({.budget = 2});
    for (const wchar16* name : {ZUTEXT("a"), ZUTEXT("b"), ZUTEXT("c")}) files.Make(name, "content");
    OpenAndClose(1000);
    EXPECT_FALSE(IsOpen(1000));
    fileopen(1000, omRead, nullptr);
    fileopen(1001, omRead, nullptr);
    EXPECT_EQ(fileopen(1002, omRead, nullptr), -1);
    EXPECT_EQ(TakeErrors(), OneError(14, 56, ZUTEXT("c")));
    close2(1000);
    EXPECT_EQ(fileopen(1002, omRead, nullptr), 1002);
    close2(1001);
    close2(1002);
}

TEST(CloseReadOnlySwitch, IsTakenOverByFileSystemsThatAreMadeAfterwards) {
    EXPECT_TRUE(cFileSystem::GetCloseReadOnlyFiles());
    const FreshFiles files;
    const int file = files.Make(ZUTEXT("x"), "content");
    SetCloseReadOnlyFiles(false);
    EXPECT_FALSE(cFileSystem::GetCloseReadOnlyFiles());
    OpenAndClose(file);
    EXPECT_FALSE(IsOpen(file));

    cFileSystem* const former = cFileSystem::Instance();
    cFileSystem::Instance(cFileSystem::Create());
    cFileSystem::SetCloseReadOnlyFiles(true);
    const int other = register_file(files.directory.Path(ZUTEXT("x")).c_str(), ftNone, true);
    OpenAndClose(other);
    EXPECT_TRUE(IsOpen(other));
    delete cFileSystem::Instance();
    cFileSystem::Instance(former);
}

// Changes -----------------------------------------------------------------------------------------------------------

TEST(Changes, AreToldOnceTheFileWasClosedHere) {
    const FreshFiles files;
    const int file = files.Make(ZUTEXT("x"), "content");
    int changed = 4;
    fileopen(file, omRead, &changed);
    EXPECT_EQ(changed, 4);
    EXPECT_EQ(ReadBytes(file, 100), "content");
    close2(file);
    ChangeOutside(files.directory, ZUTEXT("x"), "changed");
    fileopen(file, omRead, &changed);
    EXPECT_EQ(changed, 5);
    EXPECT_EQ(ReadBytes(file, 100), "changed");
    close2(file);
    changed = 0;
    fileopen(file, omRead, &changed);
    EXPECT_EQ(changed, 0);
    close2(file);
}

TEST(Changes, OfItsOwnAreNone) {
    const FreshFiles files;
    const int file = files.Make(ZUTEXT("x"), "content");
    fileopen(file, omReadWrite, nullptr);
    WriteBytes(file, "C");
    close2(file);
    int changed = 0;
    fileopen(file, omRead, &changed);
    EXPECT_EQ(changed, 0);
    EXPECT_EQ(ReadBytes(file, 100), "Content");
    close2(file);
}

TEST(Changes, ThroughAStreamAreSeenByTheDescriptorWorld) {
    const FreshFiles files;
    const int file = files.Make(ZUTEXT("x"), "content");
    fileopen(file, omRead, nullptr);
    EXPECT_EQ(ReadBytes(file, 100), "content");
    close2(file);
    ffileopen(AsStream(file), omReadWrite, nullptr);
    std::fputs("C", GetFilePtr(AsStream(file)));
    fclose2(AsStream(file));
    fileopen(file, omRead, nullptr);
    EXPECT_EQ(ReadBytes(file, 100), "Content");
    close2(file);
}

TEST(Changes, AreToldOfAFileThatWasRemovedAndMadeAgain) {
    const FreshFiles files;
    const int file = files.Make(ZUTEXT("x"), "content");
    fileopen(file, omRead, nullptr);
    EXPECT_EQ(ReadBytes(file, 100), "content");
    ASSERT_TRUE(fileremove(file));
    files.directory.Write(ZUTEXT("x"), "again");
    ChangeOutside(files.directory, ZUTEXT("x"), "again");
    int changed = 0;
    fileopen(file, omRead, &changed);
    EXPECT_EQ(changed, 1);
    EXPECT_EQ(ReadBytes(file, 100), "again");
    close2(file);
}

// Retries -----------------------------------------------------------------------------------------------------------

struct Question {
    eOpenMode mode;
    wstring16 name;
    int64 state;
};
std::vector<Question> questions;

bool RetryTwice(eOpenMode mode, const wchar16* name, int64& state) {
    questions.push_back({mode, name, state});
    return ++state < 3;
}

TEST(Retry, AsksWithTheStateThatTheCallbackLeft) {
    questions.clear();
    const FreshFiles files({.retry = RetryTwice});
    const int file = files.Make(ZUTEXT("x.dat"), "content");
    files.directory.SetReadOnly(ZUTEXT("x.dat"), true);
    for (int attempt = 0; attempt < 2; ++attempt) {
        questions.clear();
        EXPECT_EQ(fileopen(file, omReadWrite, nullptr), -1);
        ASSERT_EQ(questions.size(), 3u);
        for (int64 i = 0; i < 3; ++i) {
            EXPECT_EQ(questions[static_cast<std::size_t>(i)].mode, 2);
            EXPECT_EQ(questions[static_cast<std::size_t>(i)].name, ZUTEXT("x.dat"));
            EXPECT_EQ(questions[static_cast<std::size_t>(i)].state, i);
        }
        EXPECT_EQ(TakeErrors(), OneError(4, 46, ZUTEXT("x.dat")));
    }
}

TEST(Retry, IsNotAskedToCreateNorWhereItWouldNotHelp) {
    questions.clear();
    const FreshFiles files({.retry = RetryTwice});
    const int file = files.Make(ZUTEXT("x.dat"), "content");
    files.directory.SetReadOnly(ZUTEXT("x.dat"), true);
    EXPECT_EQ(fileopen(file, omCreate, nullptr), -1);
    EXPECT_EQ(fileopen(files.Register(ZUTEXT("missing")), omRead, nullptr), -1);
    EXPECT_TRUE(questions.empty());
}

const TempDirectory* directoryOfRetry = nullptr;
int fileOfRetry = 0;

bool HelpByMakingWritable(eOpenMode, const wchar16* name, int64&) {
    directoryOfRetry->SetReadOnly(name, false);
    return true;
}

TEST(Retry, SucceedsOnceTheReasonIsGone) {
    const FreshFiles files({.retry = HelpByMakingWritable});
    directoryOfRetry = &files.directory;
    const int file = files.Make(ZUTEXT("x.dat"), "content");
    files.directory.SetReadOnly(ZUTEXT("x.dat"), true);
    EXPECT_EQ(fileopen(file, omReadWrite, nullptr), file);
    EXPECT_EQ(TakeErrors(), NoErrors);
    close2(file);
}

bool RegisterManyFiles(eOpenMode, const wchar16* name, int64& state) {
    for (int i = 0; i < 300; ++i) register_nonunique_file(ZUTEXT("C:\\x"), ftNone);
    directoryOfRetry->SetReadOnly(name, false);
    return ++state < 3;
}

TEST(Retry, MayRegisterFiles) {
    const FreshFiles files({.retry = RegisterManyFiles});
    directoryOfRetry = &files.directory;
    const int file = files.Make(ZUTEXT("x.dat"), "content");
    files.directory.SetReadOnly(ZUTEXT("x.dat"), true);
    EXPECT_EQ(fileopen(file, omReadWrite, nullptr), file);
    EXPECT_EQ(ReadBytes(file, 100), "content");
    close2(file);
}

bool UnregisterTheFile(eOpenMode, const wchar16* name, int64&) {
    directoryOfRetry->SetReadOnly(name, false);
    unregister_file(fileOfRetry);
    return true;
}

TEST(Retry, MayUnregisterTheFileThatIsBeingOpened) {
    const FreshFiles files({.retry = UnregisterTheFile});
    directoryOfRetry = &files.directory;
    fileOfRetry = files.Make(ZUTEXT("x.dat"), "content");
    fileopen(fileOfRetry, omRead, nullptr);
    files.directory.SetReadOnly(ZUTEXT("x.dat"), true);
    EXPECT_EQ(fileopen(fileOfRetry, omReadWrite, nullptr), -1);
    EXPECT_EQ(NameOf(fileOfRetry), ZUTEXT(""));
}

TEST(Retry, OfTheDefaultLastsForTheRetryTime) {
    const FreshFiles files;
    cFileSystem* const former = cFileSystem::Instance();
    cFileSystem::Instance(cFileSystem::Create());
    const int file = register_file(files.directory.Write(ZUTEXT("x.dat"), "content").c_str(), ftNone, true);
    files.directory.SetReadOnly(ZUTEXT("x.dat"), true);
    EXPECT_EQ(GetFileAccessRetryTime(), 200);
    SetFileAccessRetryTime(20);
    EXPECT_EQ(GetFileAccessRetryTime(), 20);
    const int64 begin = time_100();
    EXPECT_EQ(fileopen(file, omReadWrite, nullptr), -1);
    EXPECT_GE(time_100() - begin, 18);
    EXPECT_EQ(TakeErrors(), OneError(4, 46, ZUTEXT("x.dat")));
    SetFileAccessRetryTime(0);
    EXPECT_EQ(fileopen(file, omReadWrite, nullptr), -1);
    EXPECT_EQ(TakeErrors(), OneError(4, 46, ZUTEXT("x.dat")));
    delete cFileSystem::Instance();
    cFileSystem::Instance(former);
    EXPECT_EQ(GetFileAccessRetryTime(), 200);
}

}  // namespace
}  // namespace open_files_test
}  // namespace Torvo::test
