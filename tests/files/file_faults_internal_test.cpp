// Every call to the system fails in its turn, once and from then on: the operation tells so, what was acknowledged is
// not lost, nothing stays open or allocated, and the same operation works afterwards.

#include <Utility/Utility.h>
#include <Utility/platform/files.h>
#include <files/own_cache.h>
#include <gtest/gtest.h>
#include <support/failing_files.h>
#include <support/failing_heap.h>
#include <support/open_handles.h>
#include <support/temp_directory.h>

#include <algorithm>
#include <cerrno>
#include <initializer_list>
#include <string>
#include <string_view>

namespace file_faults_internal_test {
namespace {

using namespace Torvo;
using test::FailEachCall;
using test::FailingFiles;
using test::OwnCache;
using test::TempDirectory;

// The errors that a disk makes, and the one that stands for a full one.
constexpr int kErrors[] = {EIO, ENOSPC};

std::string Pattern(std::size_t size, char first = 'a') {
    std::string bytes(size, ' ');
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(first + i % 23);
    return bytes;
}

const wstring16 kName = ZUTEXT("file.bin");
const wstring16 kOther = ZUTEXT("other.bin");

// Whether nobody holds a file: it can be had for oneself.
bool IsClosed(const wstring16& path) {
    int descriptor = -1;
    const int error = platform::_wsopen_dispatch(path.c_str(), platform::OpenReadWrite | platform::OpenBinary,
                                                 platform::ShareDenyBoth, 0, &descriptor, 0);
    if (error == 0) platform::_close(descriptor);
    return error == 0;
}

// Writes a file anew, without an allocation that the runtime's own streams would make for it.
void Rewrite(const wstring16& path, std::string_view content) {
    int descriptor = -1;
    constexpr int flags =
        platform::OpenWriteOnly | platform::OpenBinary | platform::OpenCreate | platform::OpenTruncate;
    ASSERT_EQ(platform::_wsopen_dispatch(path.c_str(), flags, platform::ShareDenyNone,
                                         platform::PermitRead | platform::PermitWrite, &descriptor, 0),
              0);
    const auto size = static_cast<uint32>(content.size());
    EXPECT_EQ(platform::_write(descriptor, content.data(), size), static_cast<int>(size));
    platform::_close(descriptor);
}

class FileFaults : public testing::Test {
protected:
    FileFaults() { ClearErrors(); }
    ~FileFaults() override { ClearErrors(); }

    // Runs an attempt with each call failing, for each error, from a file of that content. Around it everything is set
    // up and looked at: the file is closed, no memory is lost, and nothing is registered at the end.
    template <typename Attempt>
    void FailEach(std::string_view content, Attempt attempt) {
        for (const int error : kErrors) {
            int64 growth = 0;
            const auto run = [&](uint64 nth, FailingFiles::Mode mode) {
                directory.Write(kName, content);
                if (directory.Has(kOther)) directory.Remove(kOther);
                ClearErrors();
                growth = -test::LiveBlocks();
                const bool hit = attempt(nth, mode, error);
                growth += test::LiveBlocks();
                return hit;
            };
            // What is allocated once for all, by the runtime or a service, is there from here on.
            EXPECT_FALSE(run(1'000'000, FailingFiles::Mode::kOnce));
            const uint64 calls = FailEachCall([&](uint64 nth, FailingFiles::Mode mode) {
                SCOPED_TRACE("call " + std::to_string(nth) + ", error " + std::to_string(error));
                const int handles = test::OpenHandles();
                const bool hit = run(nth, mode);
                if (!HasFailure()) {
                    EXPECT_EQ(growth, 0);
                }
                EXPECT_EQ(test::OpenHandles(), handles);
                EXPECT_TRUE(!directory.Has(kName) || IsClosed(directory.Path(kName)));
                return hit && !HasFailure();
            });
            EXPECT_GE(calls, 1u);
        }
    }

    // The same for an operation on an open file with dirty blocks, which get to the disk in the end.
    template <typename Operation, typename Check>
    void FailEachWithADirtyFile(Operation operation, Check check) {
        const std::string content = Pattern(3000);
        const std::string changed = Pattern(1500, 'A');
        FailEach(content, [&](uint64 nth, FailingFiles::Mode mode, int error) {
            const OwnCache cache(9, 512);
            const int file = Open(omReadWrite);
            EXPECT_EQ(write2(file, changed.data(), changed.size()), 1500);
            FailingFiles faults(nth, mode, error);
            const bool result = operation(file);
            const bool hit = faults.Stop();
            check(file, result, hit);
            Close(file);
            EXPECT_TRUE(directory.Read(kName) == changed + content.substr(1500));
            return hit;
        });
    }

    int Register(const wstring16& name) { return register_file(directory.Path(name).c_str(), ftNone, true); }
    int Open(eOpenMode mode) {
        const int file = Register(kName);
        EXPECT_EQ(fileopen(file, mode, nullptr), file);
        return file;
    }
    FILE* OpenStream(eOpenMode mode) {
        FILE* const file = fregister_file(directory.Path(kName).c_str(), ftNone, true);
        EXPECT_EQ(ffileopen(file, mode, nullptr), file);
        file_put_charset(file, csWindowsLatin1);
        return file;
    }
    static void CloseStream(FILE* file) {
        EXPECT_EQ(fclose2(file), 0);
        funregister_file(file);
    }
    static void Close(int file) {
        EXPECT_EQ(close2(file), 0);
        unregister_file(file);
    }

    TempDirectory directory;
};

TEST_F(FileFaults, Read) {
    const std::string content = Pattern(3000);
    FailEach(content, [&](uint64 nth, FailingFiles::Mode mode, int error) {
        const OwnCache cache(5, 512);
        const int file = Open(omRead);
        std::string bytes(3000, '#');
        FailingFiles faults(nth, mode, error);
        const int got = read2(file, bytes.data(), 3000);
        const bool hit = faults.Stop();
        EXPECT_GE(got, 0);
        if (!hit) {
            EXPECT_EQ(got, 3000);
        }
        EXPECT_EQ(bytes.substr(0, static_cast<std::size_t>(got)), content.substr(0, static_cast<std::size_t>(got)));
        EXPECT_EQ(tell2(file), got);
        EXPECT_EQ(NumErrors(), 0);
        EXPECT_EQ(read2(file, bytes.data() + got, static_cast<uint64>(3000 - got)), 3000 - got);
        EXPECT_EQ(bytes, content);
        Close(file);
        return hit;
    });
}

TEST_F(FileFaults, BlockThatCannotBeReadEndsTheReadingAndIsReadTheNextTime) {
    directory.Write(kName, Pattern(3000));
    const OwnCache cache(5, 512);
    const int file = Open(omRead);
    std::string bytes(3000, '#');
    {
        const FailingFiles faults(1, FailingFiles::Mode::kOnce, EIO);
        EXPECT_EQ(read2(file, bytes.data(), 3000), 0);
    }
    EXPECT_EQ(tell2(file), 0);
    EXPECT_EQ(bytes, std::string(3000, '#'));
    CacheEntry* entry = nullptr;
    EXPECT_TRUE(cache->Lookup(file, 0, &entry, 0));
    EXPECT_EQ(entry->count, 0);
    EXPECT_EQ(read2(file, bytes.data(), 3000), 3000);
    EXPECT_EQ(bytes, Pattern(3000));
    Close(file);
}

TEST_F(FileFaults, Write) {
    const std::string content = Pattern(3000);
    const std::string added = Pattern(2000, 'A');
    FailEach(content, [&](uint64 nth, FailingFiles::Mode mode, int error) {
        const OwnCache cache(4, 512);
        const int file = Open(omReadWrite);
        lseek2(file, 1500, 0);
        FailingFiles faults(nth, mode, error);
        const int put = write2(file, added.data(), added.size());
        const bool hit = faults.Stop();
        EXPECT_TRUE(put == 2000 || (hit && put == -1));
        EXPECT_EQ(NumErrors(), 0);
        // What stands before the position was taken; the caller goes on from there.
        const int64 taken = tell2(file) - 1500;
        EXPECT_GE(taken, 0);
        EXPECT_LE(taken, 2000);
        if (put == 2000) {
            EXPECT_EQ(taken, 2000);
        }
        const auto rest = static_cast<std::size_t>(2000 - taken);
        EXPECT_EQ(write2(file, added.data() + taken, rest), static_cast<int>(rest));
        EXPECT_EQ(filelength2(file), 3500);
        Close(file);
        EXPECT_TRUE(directory.Read(kName) == content.substr(0, 1500) + added);
        return hit;
    });
}

TEST_F(FileFaults, Flush) {
    FailEachWithADirtyFile([](int file) { return cFileCache::Instance()->Flush(file); },
                           [](int file, bool flushed, bool hit) {
                               EXPECT_EQ(flushed, !hit);
                               EXPECT_TRUE(cFileCache::Instance()->Flush(file));
                           });
}

TEST_F(FileFaults, CloseOfADirtyFile) {
    FailEachWithADirtyFile([](int file) { return close2(file) == 0; },
                           [](int file, bool closed, bool /*hit*/) {
                               EXPECT_TRUE(closed);
                               EXPECT_EQ(GetFileFD(file), -1);
                               EXPECT_EQ(NumErrors(), 0);
                               // What could not be written is in the cache still, and goes to the disk with the next
                               // close.
                               EXPECT_EQ(fileopen(file, omReadWrite, nullptr), file);
                           });
}

TEST_F(FileFaults, ChangeOfSize) {
    const std::string content = Pattern(3000);
    for (const int64 length : {int64{100}, int64{1024}, int64{5000}}) {
        FailEach(content, [&](uint64 nth, FailingFiles::Mode mode, int error) {
            const OwnCache cache(9, 512);
            const int file = Open(omReadWrite);
            std::string bytes(3000, '#');
            EXPECT_EQ(read2(file, bytes.data(), 3000), 3000);
            FailingFiles faults(nth, mode, error);
            const int result = chsize2(file, length);
            const bool hit = faults.Stop();
            EXPECT_EQ(result, hit ? -1 : 0);
            EXPECT_EQ(filelength2(file), hit ? 3000 : length);
            EXPECT_EQ(chsize2(file, length), 0);
            EXPECT_EQ(filelength2(file), length);
            Close(file);
            std::string expected = content;
            expected.resize(static_cast<std::size_t>(length), '\0');
            EXPECT_TRUE(directory.Read(kName) == expected);
            return hit;
        });
    }
}

TEST_F(FileFaults, LineIsRead) {
    const std::string content = std::string(90, 'x') + "\r\nsecond\nthird";
    FailEach(content, [&](uint64 nth, FailingFiles::Mode mode, int error) {
        FILE* const file = OpenStream(omRead);
        wstring16 line(1000, wchar16{'#'});
        FailingFiles faults(nth, mode, error);
        const wchar16* const got = fgets2(line.data(), 1000, file);
        const bool hit = faults.Stop();
        if (!hit) {
            EXPECT_EQ(got, line.data());
        }
        if (hit) {
            EXPECT_NE(ferror2(file), 0);
        }
        EXPECT_EQ(fseek2(file, 0, 0), 0);
        EXPECT_EQ(fgets2(line.data(), 1000, file), line.data());
        EXPECT_EQ(wstring16(line.c_str()), wstring16(90, 'x') + ZUTEXT("\n"));
        EXPECT_EQ(fgets2(line.data(), 1000, file), line.data());
        EXPECT_EQ(wstring16(line.c_str()), ZUTEXT("second\n"));
        CloseStream(file);
        return hit;
    });
}

TEST_F(FileFaults, TextIsWritten) {
    FailEach("", [&](uint64 nth, FailingFiles::Mode mode, int error) {
        FILE* const file = OpenStream(omCreate);
        FailingFiles faults(nth, mode, error);
        const int put = fputs2(ZUTEXT("one\ntwo"), file);
        const bool hit = faults.Stop();
        EXPECT_EQ(put, hit ? -1 : 0);
        EXPECT_EQ(fseek2(file, 0, 0), 0);
        EXPECT_EQ(fputs2(ZUTEXT("one\ntwo"), file), 0);
        CloseStream(file);
        EXPECT_TRUE(directory.Read(kName) == "one\r\ntwo");
        return hit;
    });
}

bool OnlyTheseErrors(std::initializer_list<int32> numbers) {
    for (int32 i = 0; i < NumErrors(); ++i) {
        const int32 number = GetErrorNum(i);
        if (std::find(numbers.begin(), numbers.end(), number) == numbers.end()) return false;
    }
    return true;
}

TEST_F(FileFaults, Copy) {
    const std::string content = Pattern(9000);
    for (const bool append : {false, true}) {
        FailEach(content, [&](uint64 nth, FailingFiles::Mode mode, int error) {
            Rewrite(directory.Path(kOther), "before");
            const int from = Register(kName);
            const int to = Register(kOther);
            FailingFiles faults(nth, mode, error);
            const bool copied = filecopy(from, to, append);
            const bool hit = faults.Stop();
            if (!hit) {
                EXPECT_TRUE(copied);
            }
            // Not opened: 13, or 5001 for the full disk. Not read or written: 7.
            EXPECT_TRUE(OnlyTheseErrors({7, 13, 5001}));
            if (copied) {
                EXPECT_EQ(NumErrors(), 0);
            }
            EXPECT_LE(NumErrors(), 1);
            EXPECT_EQ(GetFileFD(from), -1);
            EXPECT_EQ(GetFileFD(to), -1);
            EXPECT_TRUE(directory.Read(kName) == content);
            if (!copied) {
                Rewrite(directory.Path(kOther), "before");
                EXPECT_TRUE(filecopy(from, to, append));
            }
            EXPECT_TRUE(directory.Read(kOther) == (append ? "before" : "") + content);
            EXPECT_TRUE(IsClosed(directory.Path(kOther)));
            unregister_file(to);
            unregister_file(from);
            return hit;
        });
    }
}

TEST_F(FileFaults, Rename) {
    const std::string content = Pattern(5000);
    FailEach(content, [&](uint64 nth, FailingFiles::Mode mode, int error) {
        const int before = Register(kName);
        int file = before;
        FailingFiles faults(nth, mode, error);
        const bool renamed = renamefile(&file, kOther.c_str(), ftNone);
        const bool hit = faults.Stop();
        if (!hit) {
            EXPECT_TRUE(renamed);
        }
        EXPECT_TRUE(OnlyTheseErrors({5, 7, 13, 5001}));
        EXPECT_LE(NumErrors(), renamed ? 0 : 1);
        if (renamed) {
            EXPECT_NE(file, before);
        } else {
            EXPECT_EQ(file, before);
            EXPECT_TRUE(directory.Read(kName) == content);
            EXPECT_EQ(is_file_registered(directory.Path(kOther).c_str(), ftNone), 0);
            // A copy that was broken off stays behind.
            if (directory.Has(kOther)) directory.Remove(kOther);
            EXPECT_TRUE(renamefile(&file, kOther.c_str(), ftNone));
        }
        EXPECT_FALSE(directory.Has(kName));
        EXPECT_TRUE(directory.Read(kOther) == content);
        EXPECT_TRUE(IsClosed(directory.Path(kOther)));
        unregister_file(file);
        return hit;
    });
}

TEST_F(FileFaults, ShortWritesAreNotTakenForWholeOnes) {
    const std::string content = Pattern(2000);
    directory.Write(kName, "");
    const OwnCache cache(9, 512);
    const int file = Open(omReadWrite);
    EXPECT_EQ(write2(file, content.data(), content.size()), 2000);
    {
        const FailingFiles faults = FailingFiles::Short(2, FailingFiles::Mode::kOnce, 100);
        EXPECT_FALSE(cache->Flush(file));
    }
    EXPECT_TRUE(cache->Flush(file));
    Close(file);
    EXPECT_TRUE(directory.Read(kName) == content);
}

TEST_F(FileFaults, InterruptedCallsGoOn) {
    const std::string content = Pattern(2000);
    directory.Write(kName, content);
    const OwnCache cache(9, 512);
    const int file = Open(omRead);
    std::string bytes(2000, '#');
    const FailingFiles faults(1, FailingFiles::Mode::kFromThenOn, EINTR);
    EXPECT_EQ(read2(file, bytes.data(), 2000), 2000);
    EXPECT_EQ(bytes, content);
    Close(file);
}

}  // namespace
}  // namespace file_faults_internal_test
