// What the calls on compound files answer when the system refuses.
#include <Utility/platform/structured_storage.h>
#include <gtest/gtest.h>
#include <support/failing_files.h>
#include <support/fixture_path.h>

#include <cerrno>

namespace structured_storage_internal_test {
namespace {

using namespace Torvo;
using test::FailEachCall;
using test::FailingFiles;

wstring16 Workbook() {
    return test::Wide(test::DataPath("workbook.xls"));
}

TEST(StorageFaults, OpeningTellsWhy) {
    constexpr struct {
        int error;
        long32 expected;
    } faults[] = {
        {ENOENT, platform::StorageFileNotFound},     {EMFILE, platform::StorageTooManyOpenFiles},
        {ENFILE, platform::StorageTooManyOpenFiles}, {EACCES, platform::StorageAccessDenied},
        {ENOMEM, platform::StorageOutOfMemory},      {EIO, platform::StorageReadFault},
    };
    for (const auto& fault : faults) {
        const FailingFiles files(1, FailingFiles::Mode::kFromThenOn, fault.error);
        EXPECT_EQ(platform::StgIsStorageFile(Workbook().c_str()), fault.expected) << fault.error;
    }
    EXPECT_EQ(platform::StgIsStorageFile(Workbook().c_str()), platform::StorageOk);
}

TEST(StorageFaults, EachCallThatFailsIsTold) {
    const wstring16 path = Workbook();
    const uint64 calls = FailEachCall([&](uint64 nth, FailingFiles::Mode mode) {
        platform::Storage* storage = nullptr;
        FailingFiles files(nth, mode, EIO);
        const long32 result = platform::StgOpenStorage(path.c_str(), platform::StorageShareDenyWrite, &storage);
        const bool wasHit = files.Stop();
        EXPECT_EQ(result == platform::StorageOk, storage != nullptr);
        EXPECT_TRUE(wasHit || result == platform::StorageOk);
        if (storage != nullptr) platform::Release(storage);
        return wasHit;
    });
    EXPECT_GE(calls, 3u);
}

}  // namespace
}  // namespace structured_storage_internal_test
