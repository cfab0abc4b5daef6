// Removing a group of files and touching one, with calls to the system that fail.

#include <Utility/files/file_system_impl.h>

#include <gtest/gtest.h>
#include <support/failing_files.h>
#include <support/fresh_files.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

namespace Torvo::test {
namespace group_faults_internal_test {
namespace {

constexpr int BlockSize = 512;

std::string Lettered(std::size_t count, char first) {
    std::string bytes(count, 0);
    for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<char>(first + i % 26);
    return bytes;
}

class GroupFaults : public testing::TestWithParam<int> {
protected:
    GroupFaults()
        : files({.blocks = 8, .blockSize = BlockSize}),
          system(static_cast<cFileSystemImpl*>(cFileSystem::Instance())) {}

    // Fails each call to the system inside `operation`, which gets a fresh file x with `content`, and lets `check` look
    // at what is left.
    template <typename Operation, typename Check>
    void FailEach(Operation operation, Check check) {
        FailEachCall([&](uint64 nth, FailingFiles::Mode mode) {
            SCOPED_TRACE("call " + std::to_string(nth) +
                         (mode == FailingFiles::Mode::kOnce ? "" : " and all behind it"));
            const int file = files.Make(ZUTEXT("x"), content);
            FailingFiles faults(nth, mode, GetParam());
            lasts = mode == FailingFiles::Mode::kFromThenOn;
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
    std::string OnDisk(const wchar16* name = ZUTEXT("x")) const { return files.directory.Read(name); }

    bool lasts = false;
    const FreshFiles files;
    cFileSystemImpl* const system;
    const std::string content = Lettered(5 * BlockSize + 100, 'a');
};

TEST_P(GroupFaults, OfRemovingLeaveAllOrNone) {
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
            std::multiset<std::string> left;
            for (const auto& entry : std::filesystem::directory_iterator(files.directory.Native())) {
                std::ifstream in(entry.path(), std::ios::binary);
                left.emplace(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
            }
            EXPECT_EQ(NumErrors(), 0);
            const auto has = [&](const wchar16* name) { return files.directory.Has(name); };
            if (removed) {
                EXPECT_FALSE(has(ZUTEXT("x")) || has(ZUTEXT("y")) || has(ZUTEXT("z")));
            } else {
                // Whatever its name is, each is there once with its content; by one fault alone nothing loses its name.
                EXPECT_EQ(left, (std::multiset<std::string>{content, "y", "z"}));
                EXPECT_TRUE(lasts || (has(ZUTEXT("x")) && has(ZUTEXT("y")) && has(ZUTEXT("z"))));
                if (!lasts) {
                    EXPECT_TRUE(group_fileremove(group, 3));
                }
            }
        });
}

TEST_P(GroupFaults, OfTouchingLeaveTheContent) {
    FailEach([&](int file) { touch(file); },
             [&](int file) {
                 EXPECT_TRUE(OnDisk() == content);
                 EXPECT_EQ(GetFileFD(file), -1);
                 EXPECT_TRUE(touch(file));
                 EXPECT_TRUE(OnDisk() == content);
             });
}

INSTANTIATE_TEST_SUITE_P(Errors, GroupFaults, testing::Values(EIO, ENOSPC, EACCES),
                         [](const auto& each) { return "Error" + std::to_string(each.param); });

}  // namespace
}  // namespace group_faults_internal_test
}  // namespace Torvo::test
