// Whichever call to the system fails: nothing that was acknowledged is lost, nothing leaks, and the same operation
// works afterwards.

#include <Utility/files/file_system_impl.h>

#include <gtest/gtest.h>
#include <support/failing_files.h>
#include <support/failing_heap.h>
#include <support/fresh_files.h>

#include <cerrno>
#include <filesystem>

namespace Torvo::test {
namespace {

constexpr int BlockSize = 512;

std::string Lettered(std::size_t count, char first) {
    std::string bytes(count, 0);
    for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<char>(first + i % 26);
    return bytes;
}

class DataFaults : public testing::TestWithParam<int> {
protected:
    DataFaults()
        : files({.blocks = 8, .blockSize = BlockSize}),
          system(static_cast<cFileSystemImpl*>(cFileSystem::Instance())) {}

    // Fails each call to the system inside `operation`, which gets a fresh file x with `content` that `prepare` has seen
    // before, and lets `check` look at what is left. All of it twice: the second time takes no memory for good.
    template <typename Prepare, typename Operation, typename Check>
    void FailEach(Prepare prepare, Operation operation, Check check) {
        FailEachOnce(prepare, operation, check);
        const int64 blocks = LiveBlocks();
        FailEachOnce(prepare, operation, check);
        EXPECT_TRUE(HasFailure() || LiveBlocks() == blocks);
    }
    template <typename Prepare, typename Operation, typename Check>
    void FailEachOnce(Prepare prepare, Operation operation, Check check) {
        FailEachCall([&](uint64 nth, FailingFiles::Mode mode) {
            SCOPED_TRACE("call " + std::to_string(nth) + (mode == FailingFiles::Mode::kOnce ? "" : " and all behind it"));
            const int file = files.Make(ZUTEXT("x"), content);
            prepare(file);
            FailingFiles faults(nth, mode, GetParam());
            operation(file);
            const bool hit = faults.Stop();
            check(file);
            EXPECT_TRUE(system->InvariantsHold());
            for (int handle = 1000; handle < 1010; ++handle) unregister_file(handle);
            for (const auto& entry : std::filesystem::directory_iterator(files.directory.Native())) {
                std::filesystem::remove(entry);
            }
            ClearErrors();
            return hit && !HasFailure();
        });
    }
    template <typename Operation, typename Check>
    void FailEach(Operation operation, Check check) {
        FailEach([](int) {}, operation, check);
    }
    std::string OnDisk(const wchar16* name = ZUTEXT("x")) const { return files.directory.Read(name); }

    const FreshFiles files;
    cFileSystemImpl* const system;
    const std::string content = Lettered(5 * BlockSize + 100, 'a');
};

TEST_P(DataFaults, OfReadingAreOverAfterwards) {
    std::string got;
    FailEach(
        [&](int file) {
            got.clear();
            if (fileopen(file, omRead, nullptr) == file) got = ReadBytes(file, content.size());
        },
        [&](int file) {
            EXPECT_TRUE(got == content.substr(0, got.size()));
            if (GetFileFD(file) == -1) fileopen(file, omRead, nullptr);
            lseek2(file, 0, 0);
            EXPECT_TRUE(ReadBytes(file, content.size()) == content);
        });
}

TEST_P(DataFaults, OfWritingLoseNothingThatWasAcknowledged) {
    const std::string patch = Lettered(3 * BlockSize, 'A');
    int written = 0;
    int64 position = 0;
    FailEach(
        [&](int file) {
            ASSERT_EQ(file, 1000);
            written = 0;
            position = 0;
            if (fileopen(file, omReadWrite, nullptr) != file) return;
            lseek2(file, 700, 0);
            written = WriteBytes(file, patch);
            position = tell2(file);
        },
        [&](int file) {
            if (GetFileFD(file) == -1) fileopen(file, omReadWrite, nullptr);
            std::string expected = content;
            if (written != 0) {
                const auto taken = static_cast<std::size_t>(position - 700);
                EXPECT_TRUE(written == static_cast<int>(patch.size()) || written == -1);
                EXPECT_EQ(written == -1, taken < patch.size());
                expected.replace(700, taken, patch.substr(0, taken));
            }
            lseek2(file, 0, 0);
            EXPECT_TRUE(ReadBytes(file, content.size()) == expected);
            lseek2(file, 700, 0);
            EXPECT_EQ(WriteBytes(file, patch), static_cast<int>(patch.size()));
            EXPECT_EQ(close2(file), 0);
            EXPECT_TRUE(OnDisk() == content.substr(0, 700) + patch + content.substr(700 + patch.size()));
        });
}

TEST_P(DataFaults, OfClosingLeaveWhatIsDirtyForTheNextWhoWrites) {
    FailEach(
        [&](int file) {
            ASSERT_EQ(fileopen(file, omReadWrite, nullptr), file);
            ASSERT_EQ(WriteBytes(file, "ACKNOWLEDGED"), 12);
        },
        [&](int file) { EXPECT_EQ(close2(file), 0); },
        [&](int file) {
            ASSERT_EQ(fileopen(file, omReadWrite, nullptr), file);
            EXPECT_EQ(ReadBytes(file, 12), "ACKNOWLEDGED");
            EXPECT_EQ(close2(file), 0);
            EXPECT_TRUE(OnDisk() == "ACKNOWLEDGED" + content.substr(12));
        });
}

TEST_P(DataFaults, OfResizingLeaveTheFileWithOneLengthOrTheOther) {
    int resized = -1;
    FailEach(
        [&](int file) {
            resized = -1;
            if (fileopen(file, omReadWrite, nullptr) != file) return;
            ReadBytes(file, content.size());
            resized = chsize2(file, 777);
        },
        [&](int file) {
            if (GetFileFD(file) == -1) fileopen(file, omReadWrite, nullptr);
            const std::string expected = resized == 0 ? content.substr(0, 777) : content;
            EXPECT_EQ(filelength2(file), static_cast<int64>(expected.size()));
            lseek2(file, 0, 0);
            EXPECT_TRUE(ReadBytes(file, content.size()) == expected);
            EXPECT_EQ(chsize2(file, 777), 0);
            close2(file);
            EXPECT_TRUE(OnDisk() == content.substr(0, 777));
        });
}

TEST_P(DataFaults, OfCopyingLeaveTheSource) {
    for (const bool append : {false, true}) {
        bool copied = false;
        FailEach(
            [&](int file) {
                const int target = files.Make(ZUTEXT("y"), "target");
                copied = filecopy(file, target, append);
            },
            [&](int file) {
                const std::string expected = append ? "target" + content : content;
                EXPECT_TRUE(OnDisk() == content);
                if (copied) {
                    EXPECT_TRUE(OnDisk(ZUTEXT("y")) == expected);
                } else if (append) {
                    EXPECT_TRUE(OnDisk(ZUTEXT("y")).substr(0, 6) == "target");
                }
                EXPECT_EQ(GetFileFD(1000), -1);
                EXPECT_EQ(GetFileFD(1001), -1);
                files.directory.Write(ZUTEXT("y"), "target");
                EXPECT_TRUE(filecopy(file, 1001, append));
                EXPECT_TRUE(OnDisk(ZUTEXT("y")) == expected);
            });
    }
}

TEST_P(DataFaults, OfRenamingLeaveTheFileUnderOneNameAtLeast) {
    int renamed = 0;
    bool succeeded = false;
    FailEach(
        [&](int file) {
            renamed = file;
            succeeded = renamefile(&renamed, ZUTEXT("y"), ftNone);
        },
        [&](int file) {
            EXPECT_EQ(renamed != file, succeeded);
            EXPECT_TRUE(OnDisk(succeeded ? ZUTEXT("y") : ZUTEXT("x")) == content);
            EXPECT_EQ(NameOf(renamed), succeeded ? ZUTEXT("y") : ZUTEXT("x"));
            if (succeeded) return;
            if (files.directory.Has(ZUTEXT("y"))) files.directory.Remove(ZUTEXT("y"));
            EXPECT_TRUE(renamefile(&renamed, ZUTEXT("y"), ftNone));
            EXPECT_TRUE(OnDisk(ZUTEXT("y")) == content);
        });
}

TEST_P(DataFaults, OfRemovingAGroupLeaveAllOrNone) {
    bool removed = false;
    int group[3] = {};
    FailEach(
        [&](int file) {
            group[0] = file;
            group[1] = files.Make(ZUTEXT("y"), "y");
            group[2] = files.Make(ZUTEXT("z"), "z");
            removed = group_fileremove(group, 3);
        },
        [&](int) {
            std::size_t count = 0;
            for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(files.directory.Native()))
                ++count;
            if (removed) {
                for (const wchar16* name : {ZUTEXT("x"), ZUTEXT("y"), ZUTEXT("z")})
                    EXPECT_FALSE(files.directory.Has(name));
            } else {
                EXPECT_EQ(count, 3);
            }
        });
}

TEST_P(DataFaults, OfTouchingLeaveTheContent) {
    FailEach([&](int file) { touch(file); },
             [&](int file) {
                 EXPECT_TRUE(OnDisk() == content);
                 EXPECT_EQ(GetFileFD(file), -1);
                 EXPECT_TRUE(touch(file));
                 EXPECT_TRUE(OnDisk() == content);
             });
}

INSTANTIATE_TEST_SUITE_P(Errors, DataFaults, testing::Values(EIO, ENOSPC, EACCES),
                         [](const auto& each) { return "Error" + std::to_string(each.param); });

// Transfers that move less than they were asked to ------------------------------------------------------------------

TEST(DataShortTransfers, OfAWriteAreAFailureAndLoseNothing) {
    const FreshFiles files({.blocks = 8, .blockSize = BlockSize});
    const std::string content = Lettered(3 * BlockSize, 'a');
    const int file = files.Make(ZUTEXT("x"), content);
    fileopen(file, omReadWrite, nullptr);
    WriteBytes(file, "NEW");
    {
        const auto faults = FailingFiles::Short(1, FailingFiles::Mode::kFromThenOn, 2);
        EXPECT_FALSE(cFileCache::Instance()->Flush(file));
    }
    EXPECT_TRUE(cFileCache::Instance()->Flush(file));
    EXPECT_EQ(files.directory.Read(ZUTEXT("x")), "NEW" + content.substr(3));
    close2(file);
}

// Memory ------------------------------------------------------------------------------------------------------------

TEST(DataMemory, OperationsWithoutMemoryFailAndWorkAfterwards) {
    const FreshFiles files;
    const std::string content = Lettered(3000, 'a');
    RefuseEachRequest([&](uint64 nth, FailingHeap::Mode mode) {
        const int file = files.Make(ZUTEXT("x"), content);
        const int target = files.Register(ZUTEXT("y"));
        int group[] = {file, target};
        int renamed = file;
        bool succeeded = false;
        bool refused = false;
        {
            const FailingHeap heap(nth, mode);
            succeeded = fileopen(file, omReadWrite, nullptr) == file && write_app_string(file, ZUTEXT("text")) == 4 &&
                        close2(file) == 0 && filecopy(file, target, false) && group_fileremove(&group[1], 1) &&
                        touch(file) && renamefile(&renamed, ZUTEXT("z"), ftNone);
            refused = heap.Refused();
        }
        EXPECT_TRUE(succeeded || refused);
        EXPECT_TRUE(static_cast<cFileSystemImpl*>(cFileSystem::Instance())->InvariantsHold());
        for (int handle = 1000; handle < 1005; ++handle) unregister_file(handle);
        files.directory.Remove(ZUTEXT("z"));
        ClearErrors();
        const int again = files.Make(ZUTEXT("x"), content);
        EXPECT_EQ(fileopen(again, omRead, nullptr), again);
        EXPECT_EQ(ReadBytes(again, 5000), content);
        unregister_file(again);
        return refused;
    });
}

}  // namespace
}  // namespace Torvo::test
