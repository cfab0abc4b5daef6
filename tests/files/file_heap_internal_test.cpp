// Every request of memory is refused in its turn, once and from then on: the operation tells so, nothing is lost, and
// the same operation works afterwards.

#include <Utility/Utility.h>
#include <gtest/gtest.h>
#include <support/failing_heap.h>
#include <support/fixture_path.h>
#include <support/temp_directory.h>

#include <fstream>
#include <iterator>
#include <string>

namespace file_heap_internal_test {
namespace {

using namespace Torvo;
using test::FailingHeap;
using test::LiveBlocks;
using test::RefuseEachRequest;
using test::TempDirectory;

class FileHeap : public testing::Test {
protected:
    // Runs an attempt with each request refused; no memory may be lost.
    template <typename Attempt>
    void RefuseEach(Attempt attempt) {
        // What is allocated once for all is there afterwards.
        attempt(1'000'000, FailingHeap::Mode::kOnce);
        const uint64 requests = RefuseEachRequest([&](uint64 nth, FailingHeap::Mode mode) {
            SCOPED_TRACE("request " + std::to_string(nth));
            const int64 blocks = LiveBlocks();
            const bool refused = attempt(nth, mode);
            EXPECT_TRUE(HasFailure() || LiveBlocks() == blocks);
            return refused && !HasFailure();
        });
        EXPECT_GE(requests, 1u);
    }

    FILE* OpenStream(const wstring16& path, eOpenMode mode) {
        FILE* const file = fregister_file(path.c_str(), ftNone, true);
        EXPECT_EQ(ffileopen(file, mode, nullptr), file);
        file_put_charset(file, csWindowsLatin1);
        return file;
    }
    static void CloseStream(FILE* file) {
        EXPECT_EQ(fclose2(file), 0);
        funregister_file(file);
    }

    TempDirectory directory;
};

TEST_F(FileHeap, LineThatCannotBeReadIsNotPassed) {
    const std::string text(3000, 'x');
    const wstring16 path = directory.Write(ZUTEXT("lines.txt"), text + "\r\n" + text);
    RefuseEach([&](uint64 nth, FailingHeap::Mode mode) {
        FILE* const file = OpenStream(path, omRead);
        wstring16 line(8000, wchar16{'#'});
        bool refused = false;
        const wchar16* got = nullptr;
        {
            const FailingHeap heap(nth, mode);
            got = fgets2(line.data(), 8000, file);
            refused = heap.Refused();
        }
        EXPECT_EQ(got == nullptr, refused);
        if (refused) {
            EXPECT_EQ(ftell2(file), 0);
            EXPECT_EQ(fgets2(line.data(), 8000, file), line.data());
        }
        EXPECT_EQ(line.find(ZUTEXT('\n')), 3000u);
        EXPECT_EQ(fgets2(line.data(), 8000, file), line.data());
        CloseStream(file);
        return refused;
    });
}

TEST_F(FileHeap, ReturnInTheStreamsBufferIsNotPassed) {
    const wstring16 path = directory.Write(ZUTEXT("lines.txt"), "a\r\nb\r\nc");
    RefuseEach([&](uint64 nth, FailingHeap::Mode mode) {
        FILE* const file = OpenStream(path, omRead);
        // Fills the stream's buffer without taking one for the entry.
        EXPECT_EQ(fgetc2(file), 'a');
        wchar16 line[8];
        bool refused = false;
        {
            const FailingHeap heap(nth, mode);
            fgets2(line, 8, file);
            refused = heap.Refused();
        }
        EXPECT_EQ(ftell2(file), refused ? 1 : 3);
        if (refused) {
            EXPECT_EQ(fgets2(line, 8, file), line);
        }
        EXPECT_EQ(wstring16(line), ZUTEXT("\n"));
        CloseStream(file);
        return refused;
    });
}

TEST_F(FileHeap, TextIsWrittenWholeOrNotAtAll) {
    const wstring16 path = directory.Path(ZUTEXT("out.txt"));
    const wstring16 text(500, wchar16{'x'});
    RefuseEach([&](uint64 nth, FailingHeap::Mode mode) {
        FILE* const file = OpenStream(path, omCreate);
        bool refused = false;
        int put = 0;
        int printed = 0;
        {
            const FailingHeap heap(nth, mode);
            put = fputs2(text.c_str(), file);
            printed = fprintf2(file, ZUTEXT("%ls%d"), text.c_str(), 7);
            refused = heap.Refused();
        }
        EXPECT_TRUE(put == 0 || (refused && put == -1));
        EXPECT_TRUE(printed == 501 || (refused && printed == -1));
        EXPECT_TRUE(!refused || put == -1 || printed == -1);
        CloseStream(file);
        const std::size_t written = directory.Read(ZUTEXT("out.txt")).size();
        EXPECT_EQ(written, (put == 0 ? 500u : 0u) + (printed == 501 ? 501u : 0u));
        return refused;
    });
}

TEST_F(FileHeap, CompoundFileOpensLater) {
    std::ifstream source(test::DataPath("workbook.xls"), std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(source), std::istreambuf_iterator<char>()};
    const wstring16 path = directory.Write(ZUTEXT("sheet.xls"), content);
    RefuseEach([&](uint64 nth, FailingHeap::Mode mode) {
        const int file = register_file(path.c_str(), ftNone, true);
        bool refused = false;
        int opened = 0;
        {
            const FailingHeap heap(nth, mode);
            opened = stream_fileopen(file, omRead, nullptr, ZUTEXT("Workbook"));
            refused = heap.Refused();
        }
        if (!refused) {
            EXPECT_EQ(opened, file);
        }
        if (opened == -1) {
            EXPECT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("Workbook")), file);
        }
        EXPECT_EQ(stream_close(file), 0);
        unregister_file(file);
        return refused;
    });
}

TEST_F(FileHeap, FileIsCopiedAndRenamedLater) {
    const wstring16 fromPath = directory.Write(ZUTEXT("from.bin"), "content");
    const wstring16 toPath = directory.Path(ZUTEXT("to.bin"));
    RefuseEach([&](uint64 nth, FailingHeap::Mode mode) {
        ClearErrors();
        const int from = register_file(fromPath.c_str(), ftNone, true);
        int to = register_file(toPath.c_str(), ftNone, true);
        bool refused = false;
        bool copied = false;
        bool renamed = false;
        {
            const FailingHeap heap(nth, mode);
            copied = filecopy(from, to, false);
            if (copied) renamed = renamefile(&to, ZUTEXT("renamed.bin"), ftNone);
            refused = heap.Refused();
        }
        if (!refused) {
            EXPECT_TRUE(copied && renamed);
        }
        if (!copied) {
            EXPECT_TRUE(filecopy(from, to, false));
        }
        if (!renamed) {
            if (directory.Has(ZUTEXT("renamed.bin"))) directory.Remove(ZUTEXT("renamed.bin"));
            EXPECT_TRUE(renamefile(&to, ZUTEXT("renamed.bin"), ftNone));
        }
        EXPECT_EQ(directory.Read(ZUTEXT("renamed.bin")), "content");
        EXPECT_TRUE(fileremove(to));
        unregister_file(to);
        unregister_file(from);
        ClearErrors();
        return refused;
    });
}

}  // namespace
}  // namespace file_heap_internal_test
