// The budget of open files against its plain form, and with calls to the system that fail.

#include <Utility/files/file_system_impl.h>
#include <Utility/platform/platform.h>

#include <gtest/gtest.h>
#include <reference/plain_file_table.h>
#include <support/failing_files.h>
#include <support/failing_heap.h>
#include <support/fresh_files.h>
#include <support/random.h>

#include <cerrno>

namespace Torvo::test {
namespace open_files_internal_test {
namespace {

constexpr int FileCount = 24;
constexpr int Budget = 6;
constexpr int Operations = 20'000;

bool SameState(cFileSystemImpl& tested, PlainFileTable& plain) {
    int open = 0;
    for (int file = 1000; file < 1000 + FileCount; ++file) {
        const FileEntry* const entry = tested.FindEntry(file);
        const PlainEntry* const expected = plain.Find(file);
        if ((entry == nullptr) != (expected == nullptr)) return false;
        if (entry == nullptr) continue;
        if (entry->IsOpen() != expected->open || static_cast<int>(entry->References()) != expected->references)
            return false;
        if (tested.AgeOf(*entry) != expected->age || entry->mode != expected->mode) return false;
        open += entry->IsOpen() ? 1 : 0;
    }
    return open == plain.openCount;
}

// One random call, on both.
void Step(Random& random, const TempDirectory& directory, cFileSystemImpl& tested, PlainFileTable& plain) {
    const int file = 1000 + static_cast<int>(random.Between(0, FileCount - 1));
    const int64 choice = random.Between(0, 99);
    if (choice < 45) {
        const auto mode = static_cast<eOpenMode>(random.OneIn(8) ? random.Between(2, 3) : 1);
        const bool stream = random.OneIn(6);
        const int opened = stream ? AsFileHandle(tested.ffileopen(AsStreamHandle(file), mode, nullptr))
                                  : tested.fileopen(file, mode, nullptr);
        const int expected = plain.Open(file, mode, stream);
        ASSERT_EQ(opened, stream && expected == -1 ? 0 : expected);
    } else if (choice < 97) {
        ASSERT_EQ(tested.close2(file), plain.Close(file));
    } else if (choice < 98) {
        tested.really_close_all();
        plain.CloseAllIdle();
    } else {
        const wstring16 name = wstring16(1, static_cast<wchar16>('a' + file - 1000));
        tested.unregister_file(file);
        plain.Unregister(file);
        ASSERT_EQ(tested.register_file(directory.Path(name).c_str(), ftNone, true),
                  plain.Register(directory.Path() + ZUTEXT("\\"), name, ftNone, true));
    }
}

void CompareWithPlainForm(bool closeReadOnly) {
    Random random;
    SCOPED_TRACE(random.About());
    const FreshFiles files;
    cFileSystemImpl tested(Budget, closeReadOnly, nullptr);
    PlainFileTable plain(Budget, closeReadOnly);
    cFileSystem* const former = cFileSystem::Instance();
    cFileSystem::Instance(&tested);
    for (int index = 0; index < FileCount; ++index) {
        const wstring16 name(1, static_cast<wchar16>('a' + index));
        files.directory.Write(name, "content");
        ASSERT_EQ(tested.register_file(files.directory.Path(name).c_str(), ftNone, true),
                  plain.Register(files.directory.Path() + ZUTEXT("\\"), name, ftNone, true));
    }
    for (int step = 0; step < Operations && !testing::Test::HasFatalFailure(); ++step) {
        Step(random, files.directory, tested, plain);
        ASSERT_TRUE(SameState(tested, plain)) << step;
        ASSERT_TRUE(tested.InvariantsHold()) << step;
        if (NumErrors() > 20) ClearErrors();
    }
    for (int file = 1000; file < 1000 + FileCount; ++file) tested.unregister_file(file);
    cFileSystem::Instance(former);
}

TEST(OpenFilesModel, KeepsIdleFilesAsThePlainFormDoes) {
    CompareWithPlainForm(false);
}

TEST(OpenFilesModel, ClosesFilesAsThePlainFormDoes) {
    CompareWithPlainForm(true);
}

// Ages --------------------------------------------------------------------------------------------------------------

class Ages : public testing::Test {
protected:
    Ages() : files({.budget = 3, .closeReadOnly = false}) {
        for (const wchar16* name : {ZUTEXT("a"), ZUTEXT("b"), ZUTEXT("c"), ZUTEXT("d")}) files.Make(name, "content");
    }

    static int32 AgeOf(int file) {
        auto* const system = static_cast<cFileSystemImpl*>(cFileSystem::Instance());
        return system->AgeOf(*system->FindEntry(file));
    }
    static bool IsOpen(int file) { return GetFileFD(file) != -1; }
    static void OpenAndClose(int file) {
        fileopen(file, omRead, nullptr);
        close2(file);
    }

    const FreshFiles files;
};

TEST_F(Ages, GrowWithEachRealOpenWhileAFileIsIdle) {
    EXPECT_EQ(AgeOf(1000), 0);
    OpenAndClose(1000);
    EXPECT_EQ(AgeOf(1000), 1);
    OpenAndClose(1001);
    EXPECT_EQ(AgeOf(1000), 2);
    OpenAndClose(1001);  // open already
    EXPECT_EQ(AgeOf(1000), 2);
    fileopen(1003, omCreate, nullptr);
    EXPECT_EQ(AgeOf(1000), 3);
    EXPECT_EQ(AgeOf(1001), 2);
    EXPECT_EQ(AgeOf(1003), 1);
}

TEST_F(Ages, StandStillWhileAFileIsHeld) {
    fileopen(1000, omRead, nullptr);
    OpenAndClose(1001);
    EXPECT_EQ(AgeOf(1000), 1);
    close2(1000);
    OpenAndClose(1002);
    EXPECT_EQ(AgeOf(1000), 2);
    fileopen(1000, omRead, nullptr);
    EXPECT_EQ(AgeOf(1000), 2);
    really_close_all();
    OpenAndClose(1001);
    close2(1000);
    EXPECT_EQ(AgeOf(1000), 2);
}

TEST_F(Ages, GrowAlsoWithAnOpenThatFails) {
    OpenAndClose(1000);
    const int missing = files.Register(ZUTEXT("missing"));
    EXPECT_EQ(fileopen(missing, omRead, nullptr), -1);
    EXPECT_EQ(AgeOf(1000), 2);
    EXPECT_EQ(AgeOf(missing), 1);
}

TEST_F(Ages, TheLowestHandleGoesFirstOnATie) {
    fileopen(1001, omRead, nullptr);
    fileopen(1000, omRead, nullptr);
    close2(1001);
    close2(1000);
    ASSERT_EQ(AgeOf(1000), AgeOf(1001));
    OpenAndClose(1002);
    OpenAndClose(1003);
    EXPECT_FALSE(IsOpen(1000));
    EXPECT_TRUE(IsOpen(1001));
}

// Faults ------------------------------------------------------------------------------------------------------------

struct FaultCase {
    const char* name;
    eOpenMode mode;
    bool stream;
};

class OpenFaults : public testing::TestWithParam<FaultCase> {};

// Whichever call fails, the file is either open or closed, nothing is leaked, and it opens afterwards.
TEST_P(OpenFaults, LeaveTheFileOpenOrClosed) {
    const FaultCase& param = GetParam();
    for (const int error : {ENOENT, EACCES, EMFILE, EIO}) {
        const FreshFiles files;
        auto* const system = static_cast<cFileSystemImpl*>(cFileSystem::Instance());
        FailEachCall([&](uint64 nth, FailingFiles::Mode mode) {
            const int file = files.Make(ZUTEXT("x.dat"), "content");
            const int64 blocks = LiveBlocks();
            FailingFiles faults(nth, mode, error);
            const int opened = param.stream ? AsFileHandle(system->ffileopen(AsStreamHandle(file), param.mode, nullptr))
                                            : system->fileopen(file, param.mode, nullptr);
            const bool hit = faults.Stop();
            EXPECT_TRUE(system->InvariantsHold());
            EXPECT_EQ(opened == file, system->FindEntry(file)->IsOpen());
            const bool raises = opened != file && param.mode != omCreate && !param.stream;
            if (raises) {
                EXPECT_EQ(NumErrors(), 1);
            }
            if (opened == file) {
                EXPECT_EQ(close2(file), 0);
            }
            const std::string content = files.directory.Read(ZUTEXT("x.dat"));
            EXPECT_TRUE(content == "content" || (content.empty() && param.mode == omCreate)) << content;
            EXPECT_FALSE(system->FindEntry(file)->IsOpen());
            ClearErrors();
            EXPECT_EQ(fileopen(file, omReadWrite, nullptr), file);
            EXPECT_EQ(close2(file), 0);
            EXPECT_EQ(LiveBlocks(), blocks);
            system->unregister_file(file);
            return hit;
        });
    }
}

INSTANTIATE_TEST_SUITE_P(Modes, OpenFaults,
                         testing::Values(FaultCase{"Read", omRead, false}, FaultCase{"ReadWrite", omReadWrite, false},
                                         FaultCase{"Create", omCreate, false}, FaultCase{"StreamRead", omRead, true},
                                         FaultCase{"StreamCreate", omCreate, true}),
                         [](const auto& each) { return std::string(each.param.name); });

// The answer to each error number of an open.
struct ErrorCase {
    int error;
    int32 number;
    int32 message;
};

class OpenErrors : public testing::TestWithParam<ErrorCase> {};

TEST_P(OpenErrors, RaiseWhatTheirRowSays) {
    const auto [error, number, message] = GetParam();
    const FreshFiles files;
    const int file = files.Make(ZUTEXT("x.dat"), "content");
    {
        const FailingFiles faults(1, FailingFiles::Mode::kFromThenOn, error);
        EXPECT_EQ(fileopen(file, omRead, nullptr), -1);
    }
    const wstring16 name = ZUTEXT("x.dat");
    if (number == 13) {
        wchar16 text[12];
        platform::swprintf(text, 12, ZUTEXT("%d"), error);
        EXPECT_EQ(TakeErrors(), OneError(number, message, text, name));
    } else {
        EXPECT_EQ(TakeErrors(), OneError(number, message, number == 10 ? wstring16() : name));
    }
    EXPECT_EQ(filehandle_get_openmode(file), 1);
    EXPECT_EQ(fileopen(file, omRead, nullptr), file);
    close2(file);
}

TEST_P(OpenErrors, RaiseNothingForSomeInModeThree) {
    const auto [error, number, message] = GetParam();
    const FreshFiles files;
    const int file = files.Make(ZUTEXT("x.dat"), "content");
    {
        const FailingFiles faults(1, FailingFiles::Mode::kFromThenOn, error);
        EXPECT_EQ(fileopen(file, omCreate, nullptr), -1);
    }
    const std::vector<RaisedError> errors = TakeErrors();
    if (number == 13 || number == 4) {
        EXPECT_EQ(errors, NoErrors);
    } else {
        ASSERT_EQ(errors.size(), 1u);
        EXPECT_EQ(errors[0].number, number);
        EXPECT_EQ(errors[0].message, message);
    }
}

INSTANTIATE_TEST_SUITE_P(Numbers, OpenErrors,
                         testing::Values(ErrorCase{2, 5001, 9985}, ErrorCase{20, 5001, 9985}, ErrorCase{28, 5001, 9985},
                                         ErrorCase{17, 10, 52}, ErrorCase{23, 14, 56}, ErrorCase{24, 14, 56},
                                         ErrorCase{13, 4, 46}, ErrorCase{64, 4, 46}, ErrorCase{1, 13, 55},
                                         ErrorCase{5, 13, 55}, ErrorCase{22, 13, 55}, ErrorCase{65, 13, 55},
                                         ErrorCase{100, 13, 55}),
                         [](const auto& each) { return "Error" + std::to_string(each.param.error); });

// When the system itself runs out of handles, idle files are closed until it does not.
TEST(OpenErrorsOfTheSystem, TooManyOpenFilesClosesTheOldestIdleFile) {
    const FreshFiles files({.closeReadOnly = false});
    const int idle = files.Make(ZUTEXT("idle"), "content");
    const int wanted = files.Make(ZUTEXT("wanted"), "content");
    fileopen(idle, omRead, nullptr);
    close2(idle);
    {
        const FailingFiles faults(1, FailingFiles::Mode::kOnce, EMFILE);
        EXPECT_EQ(fileopen(wanted, omRead, nullptr), wanted);
    }
    EXPECT_EQ(GetFileFD(idle), -1);
    EXPECT_EQ(TakeErrors(), NoErrors);
    close2(wanted);
}

}  // namespace
}  // namespace open_files_internal_test
}  // namespace Torvo::test
