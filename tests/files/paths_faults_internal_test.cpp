// Paths, directories and the search when memory is short or the system refuses.
#include <Utility/file_search.h>
#include <Utility/files.h>
#include <Utility/paths.h>
#include <Utility/platform/files.h>
#include <files/tile_folders.h>
#include <gtest/gtest.h>
#include <support/failing_files.h>
#include <support/failing_heap.h>
#include <support/guarded_buffer.h>
#include <support/own_file_system.h>
#include <support/temp_directory.h>

#include <cerrno>
#include <memory>
#include <string>

namespace paths_faults_internal_test {
namespace {

using namespace Torvo;
using test::FailEachCall;
using test::FailingFiles;
using test::FailingHeap;
using test::GuardedBuffer;
using test::LiveBlocks;
using test::OwnFileSystem;
using test::RefuseEachRequest;
using test::TempDirectory;

// Long enough to need memory of its own.
const wchar16* const Key = ZUTEXT("a key that is too long for the object itself");
const wchar16* const OldValue = ZUTEXT("the old value, which is long enough as well");
const wchar16* const NewValue = ZUTEXT("the new value, which is even longer than the old one was");

TEST(PathsWithoutMemory, ConfigurationKeepsTheFormerValue) {
    const uint64 requests = RefuseEachRequest([](uint64 nth, FailingHeap::Mode mode) {
        const OwnFileSystem own;
        set_cpl_config(Key, OldValue);
        bool refused = false;
        {
            FailingHeap heap(nth, mode);
            set_cpl_config(Key, NewValue);
            refused = heap.Refused();
        }
        EXPECT_EQ(wstring16(get_cpl_config(Key)), wstring16(refused ? OldValue : NewValue));
        return refused;
    });
    EXPECT_GE(requests, 1u);
}

TEST(PathsWithoutMemory, ConfigurationOfANewKeyIsWholeOrNotThere) {
    RefuseEachRequest([](uint64 nth, FailingHeap::Mode mode) {
        const OwnFileSystem own;
        bool refused = false;
        {
            FailingHeap heap(nth, mode);
            set_cpl_config(Key, NewValue);
            refused = heap.Refused();
        }
        const wchar16* const value = get_cpl_config(Key);
        EXPECT_EQ(value == nullptr, refused);
        return refused;
    });
}

TEST(PathsWithoutMemory, DirectoryOfTheListIsAddedOrNot) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("a"), "");
    const wstring16 path = directory.Path();
    const uint64 requests = RefuseEachRequest([&](uint64 nth, FailingHeap::Mode mode) {
        const int64 before = LiveBlocks();
        bool refused = false;
        {
            const OwnFileSystem own;
            {
                FailingHeap heap(nth, mode);
                AddAppDataPath(path.c_str());
                refused = heap.Refused();
            }
            GuardedBuffer name(261);
            name.Start()[0] = 'a';
            name.Start()[1] = 0;
            EXPECT_EQ(search_for_file(name.Start(), ftNone), !refused);
        }
        EXPECT_EQ(LiveBlocks(), before);
        return refused;
    });
    EXPECT_EQ(requests, 2u);
}

TEST(PathsWithoutMemory, SearchIsNotCreated) {
    FailingHeap heap(1);
    EXPECT_EQ(FindFileInfo::Create(ZUTEXT("C:\\"), true), nullptr);
    EXPECT_TRUE(heap.Refused());
}

TEST(PathsWithoutMemory, SearchFindsOrFindsNot) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("sub\\sub\\a"), "");
    const std::unique_ptr<FindFileInfo> search(FindFileInfo::Create(directory.Path().c_str(), true));
    const wstring16 expected = directory.Path(ZUTEXT("sub\\sub\\a"));
    RefuseEachRequest([&](uint64 nth, FailingHeap::Mode mode) {
        wchar16 out[261] = {};
        const int64 before = LiveBlocks();
        bool found = false;
        bool refused = false;
        {
            FailingHeap heap(nth, mode);
            found = search->Find(ZUTEXT("a"), out, 261);
            refused = heap.Refused();
        }
        EXPECT_EQ(LiveBlocks(), before);
        EXPECT_TRUE(found || refused);
        if (found) {
            EXPECT_EQ(wstring16(out), expected);
        }
        return refused;
    });
}

TEST(PathsWithoutMemory, PlatformCallsFailCleanly) {
    const TempDirectory directory;
    const wstring16 path = directory.Write(ZUTEXT("a name that is too long for the object itself"), "x");
    const wstring16 pattern = directory.Path(ZUTEXT("*"));
    RefuseEachRequest([&](uint64 nth, FailingHeap::Mode mode) {
        const int64 before = LiveBlocks();
        FailingHeap heap(nth, mode);
        int file = -1;
        const int error =
            platform::_wsopen_dispatch(path.c_str(), platform::OpenReadOnly, platform::ShareDenyWrite, 0, &file, 0);
        EXPECT_EQ(error == 0, file != -1);
        EXPECT_TRUE(error == 0 || error == ENOMEM);
        if (file != -1) platform::_close(file);
        WIN32_FIND_DATAW data;
        void* const walk = platform::FindFirstFileW(pattern.c_str(), &data);
        if (walk != platform::InvalidFindHandle()) {
            while (platform::FindNextFileW(walk, &data)) continue;
            platform::FindClose(walk);
        }
        wchar16 current[1000];
        platform::GetCurrentDirectoryW(1000, current);
        platform::_wgetdcwd(0, current, 1000);
        EXPECT_EQ(LiveBlocks(), before);
        return heap.Refused();
    });
}

TEST(PathsWithFaults, SearchFindsOrFindsNot) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("sub\\a"), "");
    directory.Write(ZUTEXT("tub\\b"), "");
    const std::unique_ptr<FindFileInfo> search(FindFileInfo::Create(directory.Path().c_str(), true));
    const wstring16 expected = directory.Path(ZUTEXT("sub\\a"));
    const uint64 calls = FailEachCall([&](uint64 nth, FailingFiles::Mode mode) {
        wchar16 out[261] = {};
        FailingFiles faults(nth, mode, EIO);
        const bool found = search->Find(ZUTEXT("a"), out, 261);
        const bool met = faults.Stop();
        EXPECT_TRUE(found || met);
        EXPECT_EQ(wstring16(out), found ? expected : wstring16());
        EXPECT_TRUE(search->Find(ZUTEXT("a"), out, 261)) << "the same works afterwards";
        return met;
    });
    EXPECT_GE(calls, 3u);
}

TEST(PathsWithFaults, WalkEndsEarlyAtWorst) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("a"), "");
    directory.Write(ZUTEXT("b"), "");
    wstring16 pattern = directory.Path(ZUTEXT("?"));
    FailEachCall([&](uint64 nth, FailingFiles::Mode mode) {
        FailingFiles faults(nth, mode, EIO);
        FILEFIND find = {};
        int count = 0;
        for (int more = FileFindFirst(pattern.data(), 0xFFFFFFFF, &find); more != 0; more = FileFindNext(&find))
            ++count;
        FileFindClose(&find);
        const bool met = faults.Stop();
        EXPECT_LE(count, 3);
        EXPECT_TRUE(met || count >= 2);
        return met;
    });
}

TEST(PathsWithFaults, FolderOfTilesIsOneThatCanBeWrittenTo) {
    FailEachCall([](uint64 nth, FailingFiles::Mode mode) {
        const OwnFileSystem own;
        torvo_temp_dir(ZUTEXT("C:\\instead\\"));
        GuardedBuffer folder(261);
        FailingFiles faults(nth, mode, EIO);
        CreteTempFolderForZxtTile(folder.Start());
        const bool met = faults.Stop();
        const bool isOwn = folder.Text().find(ZUTEXT("\\Zunavia.Application.x64.")) != wstring16::npos;
        EXPECT_TRUE(isOwn || (met && folder.Text() == ZUTEXT("C:\\instead\\")));
        EXPECT_EQ(register_file(ZUTEXT("next"), ftNone, true), 1000) << "no handle is left behind";
        unregister_file(1000);
        test::RemoveTileFolders();
        return met;
    });
}

TEST(PathsWithFaults, UnknownCurrentDirectoryLeavesTheRoot) {
    const FailingFiles faults(1, FailingFiles::Mode::kFromThenOn, EIO);
    GuardedBuffer path(261);
    path.Start()[0] = 'a';
    path.Start()[1] = 0;
    qualify_filename(path.Start());
    EXPECT_EQ(path.Text().substr(1), ZUTEXT(":\\a"));
}

}  // namespace
}  // namespace paths_faults_internal_test
