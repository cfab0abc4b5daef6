// The registry against its plain form, and what it does when memory is short.

#include <Utility/files/file_system_impl.h>
#include <Utility/memory_blocks.h>

#include <gtest/gtest.h>
#include <reference/plain_file_table.h>
#include <support/failing_heap.h>
#include <support/fresh_files.h>
#include <support/random.h>

namespace Torvo::test {
namespace registry_internal_test {
namespace {

// As many as a debugger's patience and the walks of the plain form allow.
constexpr int Operations = 20'000;

// A name of a few letters, so that names meet; in either case, with some that have their case partner in odd places.
wstring16 SomeName(Random& random) {
    static constexpr wchar16 units[] = {'a', 'A', 'k', 'K', 'i', 'I', 0x00E5, 0x00C5, 0x0431, 0x0411, 0x3042};
    wstring16 name;
    for (int64 length = random.Between(1, 2); length > 0; --length) {
        name += units[static_cast<std::size_t>(random.Between(0, static_cast<int64>(std::size(units)) - 1))];
    }
    return name;
}

TEST(RegistryModel, AnswersAsThePlainFormDoes) {
    static constexpr FILETYPE types[] = {FILETYPE(0), FILETYPE(1), FILETYPE(4)};
    Random random;
    SCOPED_TRACE(random.About());
    const FreshFiles files;
    cFileSystemImpl tested(10, true, nullptr);
    PlainFileTable plain(10, true);
    for (int step = 0; step < Operations; ++step) {
        const wstring16 directory = random.OneIn(2) ? ZUTEXT("C:\\One\\") : ZUTEXT("c:\\oNE\\");
        const wstring16 name = SomeName(random);
        const wstring16 path = directory + name;
        const FILETYPE type = types[random.Between(0, 2)];
        // The table fills and empties in turns.
        const bool filling = step / 2000 % 2 == 0;
        const int64 choice = random.Between(0, 9);
        if (choice < (filling ? 6 : 3)) {
            const bool unique = random.OneIn(3);
            ASSERT_EQ(tested.register_file(path.c_str(), type, unique), plain.Register(directory, name, type, unique));
        } else if (choice < 8) {
            const int file = static_cast<int>(random.Between(999, 1000 + static_cast<int>(plain.entries.size())));
            tested.unregister_file(file);
            plain.Unregister(file);
        } else {
            ASSERT_EQ(tested.is_file_registered(path.c_str(), type), plain.IsRegistered(directory, name, type));
        }
        if (step % 50 == 0) {
            ASSERT_TRUE(tested.InvariantsHold()) << step;
        }
    }
    for (std::size_t index = 0; index < plain.entries.size(); ++index)
        tested.unregister_file(static_cast<int>(index) + 1000);
    EXPECT_TRUE(tested.InvariantsHold());
}

TEST(RegistryMemory, RegisteringWithoutMemoryGivesZeroAndChangesNothing) {
    const FreshFiles files;
    RefuseEachRequest([](uint64 nth, FailingHeap::Mode mode) {
        cFileSystemImpl tested(10, true, nullptr);
        for (int i = 0; i < 100; ++i) tested.register_file(ZUTEXT("C:\\full"), ftNone, false);
        bool refused = false;
        int file = 0;
        {
            const FailingHeap heap(nth, mode);
            file = tested.register_file(ZUTEXT("C:\\one more"), ftNone, true);
            refused = heap.Refused();
        }
        if (!refused) {
            EXPECT_EQ(file, 1100);
        }
        if (file == 0) {
            EXPECT_TRUE(refused);
        }
        EXPECT_TRUE(tested.InvariantsHold());
        EXPECT_EQ(tested.is_file_registered(ZUTEXT("C:\\one more"), ftNone), file);
        EXPECT_EQ(tested.is_file_registered(ZUTEXT("C:\\full"), ftNone), 1000);
        if (file == 0) {
            EXPECT_EQ(tested.register_file(ZUTEXT("C:\\one more"), ftNone, true), 1100);
        }
        return refused;
    });
    EXPECT_EQ(TakeErrors(), NoErrors);
}

// A table that grows takes room for twice as many files, not more.
TEST(RegistryMemory, OfManyFilesIsInProportion) {
    const FreshFiles files;
    const int64 before = LiveBlocks();
    cFileSystemImpl tested(10, false, nullptr);
    constexpr int Count = 20'000;
    for (int i = 0; i < Count; ++i) ASSERT_EQ(tested.register_file(ZUTEXT("C:\\x"), ftNone, false), 1000 + i);
    EXPECT_LE(LiveBlocks() - before, Count + 10);
    EXPECT_LE(memSize(tested.FindEntry(1000)), 2 * (Count + 100) * sizeof(FileEntry));
    EXPECT_EQ(tested.is_file_registered(ZUTEXT("C:\\X"), ftNone), 1000);
    tested.unregister_file(1000);
    EXPECT_EQ(tested.is_file_registered(ZUTEXT("C:\\X"), ftNone), 1001);
    EXPECT_EQ(tested.register_file(ZUTEXT("C:\\x"), ftNone, false), 1000);
    EXPECT_EQ(tested.is_file_registered(ZUTEXT("C:\\X"), ftNone), 1000);
}

TEST(RegistryMemory, AFileSystemGivesAllOfItBack) {
    const FreshFiles files;
    files.Make(ZUTEXT("x.txt"), "text");
    const int64 before = LiveBlocks();
    {
        cFileSystemImpl tested(10, false, nullptr);
        for (int i = 0; i < 300; ++i) tested.register_file(ZUTEXT("C:\\x"), ftNone, false);
        for (int i = 0; i < 300; i += 2) tested.unregister_file(1000 + i);
    }
    EXPECT_EQ(LiveBlocks(), before);
}

TEST(RegistryMemory, WithoutAnyThereIsNoFileSystem) {
    const FailingHeap heap(1);
    EXPECT_EQ(cFileSystem::Create(), nullptr);
}

}  // namespace
}  // namespace registry_internal_test
}  // namespace Torvo::test
