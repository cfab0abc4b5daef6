// Streams inside compound files. workbook.xls and book.xls were written by another program: see tests/data.

#include <Utility/Utility.h>
#include <gtest/gtest.h>
#include <support/fixture_path.h>
#include <support/temp_directory.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace storage_streams_test {
namespace {

using namespace Torvo;
using test::TempDirectory;

std::string ReadData(const char* name) {
    std::ifstream file(test::DataPath(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// What the fixtures hold.
std::string RowsOfWorkbook() {
    std::string rows;
    for (int i = 0; i < 600; ++i) {
        char row[16];
        std::snprintf(row, sizeof row, "row %05d\n", i);
        rows += row;
    }
    return rows;
}
std::string LinesOfBook() {
    std::string lines;
    for (int i = 0; i < 20; ++i) {
        char line[16];
        std::snprintf(line, sizeof line, "line %02d\n", i);
        lines += line;
    }
    return lines;
}

class StorageStreams : public testing::Test {
protected:
    ~StorageStreams() override {
        if (file != 0) unregister_file(file);
    }
    // Registers a file with that content.
    int Register(std::string_view content) {
        const wstring16 path = directory.Write(ZUTEXT("sheet.xls"), content);
        file = register_file(path.c_str(), ftNone, true);
        EXPECT_NE(file, 0);
        return file;
    }
    std::string Next(unsigned count) {
        std::string bytes(count, '#');
        const int got = stream_read(file, bytes.data(), count);
        return got >= 0 ? bytes.substr(0, static_cast<std::size_t>(got)) : "(failed)";
    }

    TempDirectory directory;
    int file = 0;
};

TEST_F(StorageStreams, StreamIsReadByItsName) {
    Register(ReadData("workbook.xls"));
    ASSERT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("Workbook")), file);
    EXPECT_EQ(Next(10), "row 00000\n");
    EXPECT_EQ(Next(10'000), RowsOfWorkbook().substr(10));
    EXPECT_EQ(Next(10), "");
    EXPECT_EQ(stream_close(file), 0);
    ASSERT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("Notes")), file);
    EXPECT_EQ(Next(100), "a short stream, kept among the small ones\n");
    EXPECT_EQ(stream_close(file), 0);
}

TEST_F(StorageStreams, CompoundFileIsNotOpenAsAPlainOne) {
    Register(ReadData("workbook.xls"));
    ASSERT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("Workbook")), file);
    EXPECT_EQ(GetFileFD(file), -1);
    EXPECT_EQ(stream_close(file), 0);
    ASSERT_EQ(fileopen(file, omRead, nullptr), file);
    EXPECT_EQ(filelength2(file), 8704);
    EXPECT_EQ(close2(file), 0);
}

TEST_F(StorageStreams, FileThatIsHeldToWriteIsAPlainOne) {
    Register(ReadData("workbook.xls"));
    ASSERT_EQ(fileopen(file, omReadWrite, nullptr), file);
    ASSERT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("Workbook")), file);
    EXPECT_EQ(Next(2), "\xD0\xCF");
    EXPECT_EQ(stream_close(file), 0);
    EXPECT_EQ(close2(file), 0);
}

TEST_F(StorageStreams, OpenCompoundFileIsNotRemoved) {
    Register(ReadData("workbook.xls"));
    ASSERT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("Workbook")), file);
    EXPECT_FALSE(fileremove(file));
    EXPECT_EQ(Next(10), "row 00000\n");
    EXPECT_EQ(stream_close(file), 0);
    EXPECT_TRUE(fileremove(file));
}

TEST_F(StorageStreams, BookOpensAWorkbook) {
    Register(ReadData("workbook.xls"));
    ASSERT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("Book")), file);
    EXPECT_EQ(Next(10), "row 00000\n");
    EXPECT_EQ(stream_close(file), 0);
}

TEST_F(StorageStreams, BookOpensABook) {
    Register(ReadData("book.xls"));
    ASSERT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("Book")), file);
    EXPECT_EQ(Next(1000), LinesOfBook());
    EXPECT_EQ(stream_close(file), 0);
}

TEST_F(StorageStreams, NoOtherNameIsTriedAgain) {
    Register(ReadData("workbook.xls"));
    for (const wchar16* const name :
         {ZUTEXT("Books"), ZUTEXT("book"), ZUTEXT("Sheet"), ZUTEXT(""), ZUTEXT("Root Entry")}) {
        EXPECT_EQ(stream_fileopen(file, omRead, nullptr, name), -1);
    }
    EXPECT_EQ(stream_fileopen(file, omRead, nullptr, nullptr), -1);
    directory.Write(ZUTEXT("sheet.xls"), ReadData("book.xls"));
    EXPECT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("Workbook")), -1);
}

TEST_F(StorageStreams, NobodyWritesToACompoundFileThatIsOpen) {
    Register(ReadData("workbook.xls"));
    const int writer = register_nonunique_file(directory.Path(ZUTEXT("sheet.xls")).c_str(), ftNone);
    SetFileAccessRetryTime(0);
    ASSERT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("Workbook")), file);
    EXPECT_EQ(fileopen(writer, omReadWrite, nullptr), -1);
    ClearErrors();
    EXPECT_EQ(Next(10), "row 00000\n");
    EXPECT_EQ(stream_close(file), 0);
    EXPECT_EQ(fileopen(writer, omReadWrite, nullptr), writer);
    EXPECT_EQ(close2(writer), 0);
    unregister_file(writer);
    SetFileAccessRetryTime(200);
}

TEST_F(StorageStreams, CaseOfANameDoesNotCount) {
    Register(ReadData("workbook.xls"));
    EXPECT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("WORKbook")), file);
    EXPECT_EQ(stream_close(file), 0);
}

TEST_F(StorageStreams, SecondOpenAddsAUserAndStartsOver) {
    Register(ReadData("workbook.xls"));
    ASSERT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("Workbook")), file);
    EXPECT_EQ(Next(20), "row 00000\nrow 00001\n");
    // Its name does not matter.
    ASSERT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("Nothing")), file);
    EXPECT_EQ(Next(10), "row 00000\n");
    EXPECT_EQ(stream_close(file), 0);
    EXPECT_EQ(Next(10), "row 00001\n");
    EXPECT_EQ(stream_close(file), 0);
    // It is closed: the plain calls answer.
    EXPECT_EQ(stream_close(file), -1);
}

TEST_F(StorageStreams, PositionIsSetFromThreePlaces) {
    Register(ReadData("workbook.xls"));
    ASSERT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("Workbook")), file);
    EXPECT_EQ(stream_lseek(file, 20, 0), 20);
    EXPECT_EQ(Next(10), "row 00002\n");
    EXPECT_EQ(stream_lseek(file, 10, 1), 40);
    EXPECT_EQ(Next(10), "row 00004\n");
    EXPECT_EQ(stream_lseek(file, -20, 1), 30);
    EXPECT_EQ(stream_lseek(file, -10, 2), 5990);
    EXPECT_EQ(Next(100), "row 00599\n");
    EXPECT_EQ(stream_lseek(file, 0, 1), 6000);
    // Any other whence is from the start.
    EXPECT_EQ(stream_lseek(file, 10, 7), 10);
    EXPECT_EQ(stream_lseek(file, 30, -1), 30);
    EXPECT_EQ(Next(10), "row 00003\n");
    EXPECT_EQ(stream_close(file), 0);
}

TEST_F(StorageStreams, PositionMayLieBehindTheEndButNotBeforeTheStart) {
    Register(ReadData("book.xls"));
    ASSERT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("Book")), file);
    EXPECT_EQ(stream_lseek(file, 1000, 0), 1000);
    EXPECT_EQ(Next(10), "");
    EXPECT_EQ(stream_lseek(file, 8, 0), 8);
    EXPECT_EQ(stream_lseek(file, -9, 1), -1);
    EXPECT_EQ(stream_lseek(file, -161, 2), -1);
    EXPECT_EQ(Next(8), "line 01\n");
    EXPECT_EQ(stream_close(file), 0);
}

TEST_F(StorageStreams, PlainFileIsReadAsOne) {
    Register("plain text");
    int changed = 0;
    ASSERT_EQ(stream_fileopen(file, omRead, &changed, ZUTEXT("Book")), file);
    EXPECT_NE(GetFileFD(file), -1);
    EXPECT_EQ(Next(5), "plain");
    EXPECT_EQ(stream_lseek(file, -4, 2), 6);
    EXPECT_EQ(tell2(file), 6);
    EXPECT_EQ(Next(10), "text");
    EXPECT_EQ(stream_close(file), 0);
    EXPECT_EQ(GetFileFD(file), -1);
    // No name is needed for it.
    ASSERT_EQ(stream_fileopen(file, omRead, nullptr, nullptr), file);
    EXPECT_EQ(stream_close(file), 0);
}

TEST_F(StorageStreams, MissingFileAndUnknownHandleAreRefused) {
    file = register_file(directory.Path(ZUTEXT("none.xls")).c_str(), ftNone, true);
    EXPECT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("Book")), -1);
    char byte = 0;
    EXPECT_EQ(stream_fileopen(999'999, omRead, nullptr, ZUTEXT("Book")), -1);
    EXPECT_EQ(stream_close(999'999), -1);
    EXPECT_EQ(stream_lseek(999'999, 0, 0), -1);
    EXPECT_EQ(stream_read(999'999, &byte, 1), -1);
}

TEST_F(StorageStreams, UnregisteringClosesTheCompoundFile) {
    Register(ReadData("workbook.xls"));
    ASSERT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("Workbook")), file);
    unregister_file(file);
    file = 0;
    directory.Remove(ZUTEXT("sheet.xls"));
    EXPECT_FALSE(directory.Has(ZUTEXT("sheet.xls")));
}

// Opens what is there and reads all of it, as far as that goes.
void ReadThrough(int file, const wchar16* stream, uint64 limit) {
    if (stream_fileopen(file, omRead, nullptr, stream) != file) return;
    uint64 total = 0;
    char bytes[1000];
    for (;;) {
        const int got = stream_read(file, bytes, sizeof bytes);
        ASSERT_GE(got, -1);
        ASSERT_LE(got, 1000);
        if (got <= 0) break;
        total += static_cast<uint64>(got);
        ASSERT_LE(total, limit);
    }
    EXPECT_EQ(stream_close(file), 0);
}

TEST_F(StorageStreams, FileCutAtAnyByteIsHarmless) {
    Register(ReadData("book.xls"));
    for (std::uintmax_t size = 2560; size-- > 0;) {
        std::filesystem::resize_file(directory.Native(ZUTEXT("sheet.xls")), size);
        ASSERT_NO_FATAL_FAILURE(ReadThrough(file, ZUTEXT("Book"), 2560)) << size;
    }
}

TEST_F(StorageStreams, AnyDamagedByteIsHarmless) {
    const std::string whole = ReadData("book.xls");
    Register(whole);
    const auto put = [this](std::size_t at, char byte) {
        std::fstream output(directory.Native(ZUTEXT("sheet.xls")), std::ios::binary | std::ios::in | std::ios::out);
        output.seekp(static_cast<std::streamoff>(at));
        output.put(byte);
    };
    // All of the header, and of each sector behind it some bytes of each entry.
    for (std::size_t at = 0; at < whole.size(); at += at < 80 ? 1 : 11) {
        for (const char byte : {'\0', '\x7F', '\xFF'}) {
            put(at, byte);
            ASSERT_NO_FATAL_FAILURE(ReadThrough(file, ZUTEXT("Book"), uint64{1} << 32)) << at;
        }
        put(at, whole[at]);
    }
    EXPECT_EQ(directory.Read(ZUTEXT("sheet.xls")), whole);
}

}  // namespace
}  // namespace storage_streams_test
