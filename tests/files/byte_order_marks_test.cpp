#include <Utility/Utility.h>
#include <files/text_file.h>
#include <gtest/gtest.h>

#include <string>

namespace byte_order_marks_test {
namespace {

using namespace Torvo;
using test::NextLine;
using test::TempDirectory;
using test::TextFile;

const std::string kMark = "\xEF\xBB\xBF";

// A registered file that is open for the descriptor world.
class ByteFile {
public:
    ByteFile(const wstring16& path, eOpenMode mode) : handle(register_file(path.c_str(), ftNone, true)) {
        EXPECT_EQ(fileopen(handle, mode, nullptr), handle);
    }
    ~ByteFile() {
        EXPECT_EQ(close2(handle), 0);
        unregister_file(handle);
    }
    ByteFile(const ByteFile&) = delete;
    ByteFile& operator=(const ByteFile&) = delete;

    int Handle() const { return handle; }
    std::string Next(unsigned count) const {
        std::string bytes(count, '#');
        const int got = read2(handle, bytes.data(), count);
        return got >= 0 ? bytes.substr(0, static_cast<std::size_t>(got)) : "(failed)";
    }

private:
    const int handle;
};

class ByteOrderMarks : public testing::Test {
protected:
    wstring16 Write(std::string_view content) { return directory.Write(ZUTEXT("marked.txt"), content); }
    wstring16 NewFile() { return directory.Path(ZUTEXT("marked.txt")); }
    std::string Written() { return directory.Read(ZUTEXT("marked.txt")); }

    TempDirectory directory;
};

TEST_F(ByteOrderMarks, MarkIsFoundAndPassed) {
    const wstring16 path = Write(kMark + "text\n");
    {
        const ByteFile file(path, omRead);
        EXPECT_EQ(ProcessUTFBom(file.Handle()), csUTF8);
        EXPECT_EQ(tell2(file.Handle()), 3);
        EXPECT_EQ(file.Next(1), "t");
        // It says so and stores nothing.
        EXPECT_EQ(file_get_charset(file.Handle()), system_charset());
    }
    {
        const TextFile file(path, omRead);
        EXPECT_EQ(ProcessUTFBom(file.Handle()), csUTF8);
        EXPECT_EQ(ftell2(file.Handle()), 3);
        EXPECT_EQ(NextLine(file.Handle()), ZUTEXT("text\n"));
        EXPECT_EQ(file_get_charset(file.Handle()), csWindowsLatin1);
    }
}

TEST_F(ByteOrderMarks, WithoutAMarkNothingMoves) {
    for (const std::string& content : {std::string("text"), std::string("\xEF\xBB"), std::string("\xEF\xBB\xBE"),
                                       std::string("\xFF\xFE"
                                                   "a\0",
                                                   4),
                                       std::string("x")}) {
        const wstring16 path = Write(content);
        {
            const ByteFile file(path, omRead);
            EXPECT_EQ(ProcessUTFBom(file.Handle()), csUnknown);
            EXPECT_EQ(tell2(file.Handle()), 0);
            EXPECT_EQ(file.Next(1), content.substr(0, 1));
        }
        {
            const TextFile file(path, omRead);
            EXPECT_EQ(ProcessUTFBom(file.Handle()), csUnknown);
            EXPECT_EQ(ftell2(file.Handle()), 0);
            EXPECT_EQ(feof2(file.Handle()), 0);
            char byte = 0;
            EXPECT_EQ(fread2(&byte, 1, 1, file.Handle()), 1u);
            EXPECT_EQ(byte, content[0]);
        }
    }
}

TEST_F(ByteOrderMarks, EmptyFileHasNone) {
    const wstring16 path = Write("");
    {
        const ByteFile file(path, omRead);
        EXPECT_EQ(ProcessUTFBom(file.Handle()), csUnknown);
    }
    {
        const TextFile file(path, omRead);
        EXPECT_EQ(ProcessUTFBom(file.Handle()), csUnknown);
    }
}

TEST_F(ByteOrderMarks, MarkIsLookedForAtThePresentPosition) {
    const wstring16 path = Write("ab" + kMark + "c");
    {
        const ByteFile file(path, omRead);
        EXPECT_EQ(ProcessUTFBom(file.Handle()), csUnknown);
        lseek2(file.Handle(), 2, 0);
        EXPECT_EQ(ProcessUTFBom(file.Handle()), csUTF8);
        EXPECT_EQ(file.Next(4), "c");
    }
    {
        const TextFile file(path, omRead);
        EXPECT_EQ(fseek2(file.Handle(), 2, 0), 0);
        EXPECT_EQ(ProcessUTFBom(file.Handle()), csUTF8);
        EXPECT_EQ(ftell2(file.Handle()), 5);
    }
}

TEST_F(ByteOrderMarks, MarkIsWrittenForUtf8Alone) {
    {
        const ByteFile file(NewFile(), omCreate);
        for (const ZUCHARSET charset : {csUnknown, csNeutral, csWindowsLatin1, csUTF16}) {
            EXPECT_TRUE(WriteUTFBom(file.Handle(), charset));
        }
        EXPECT_EQ(tell2(file.Handle()), 0);
        EXPECT_TRUE(WriteUTFBom(file.Handle(), csUTF8));
        EXPECT_EQ(tell2(file.Handle()), 3);
    }
    EXPECT_EQ(Written(), kMark);
    {
        const TextFile file(NewFile(), omCreate);
        for (const ZUCHARSET charset : {csUnknown, csNeutral, csWindowsLatin1, csUTF16}) {
            EXPECT_TRUE(WriteUTFBom(file.Handle(), charset));
        }
        EXPECT_EQ(ftell2(file.Handle()), 0);
        EXPECT_TRUE(WriteUTFBom(file.Handle(), csUTF8));
    }
    EXPECT_EQ(Written(), kMark);
}

TEST_F(ByteOrderMarks, NoFileHasNoMarkAndTakesNone) {
    EXPECT_EQ(ProcessUTFBom(0), csUnknown);
    EXPECT_EQ(ProcessUTFBom(static_cast<FILE*>(nullptr)), csUnknown);
    EXPECT_TRUE(WriteUTFBom(0, csUTF8));
    EXPECT_TRUE(WriteUTFBom(static_cast<FILE*>(nullptr), csUTF8));
    // Handles that are not registered.
    EXPECT_EQ(ProcessUTFBom(999'999), csUnknown);
    EXPECT_FALSE(WriteUTFBom(999'999, csUTF8));
    FILE* const unknown = reinterpret_cast<FILE*>(std::intptr_t{999'999});
    EXPECT_EQ(ProcessUTFBom(unknown), csUnknown);
    EXPECT_FALSE(WriteUTFBom(unknown, csUTF8));
    EXPECT_TRUE(WriteUTFBom(999'999, csWindowsLatin1));
}

TEST_F(ByteOrderMarks, FileOpenToReadTakesNoMark) {
    const wstring16 path = Write("abc");
    {
        const TextFile file(path, omRead);
        EXPECT_FALSE(WriteUTFBom(file.Handle(), csUTF8));
    }
    {
        const ByteFile file(path, omRead);
        EXPECT_FALSE(WriteUTFBom(file.Handle(), csUTF8));
        EXPECT_TRUE(WriteUTFBom(file.Handle(), csWindowsLatin1));
    }
    EXPECT_EQ(Written(), "abc");
}

TEST_F(ByteOrderMarks, FileThatIsNotOpenHasNone) {
    const int file = register_file(Write(kMark).c_str(), ftNone, true);
    EXPECT_EQ(ProcessUTFBom(file), csUnknown);
    EXPECT_EQ(ProcessUTFBom(reinterpret_cast<FILE*>(std::intptr_t{file})), csUnknown);
    unregister_file(file);
}

TEST_F(ByteOrderMarks, MarkIsReadAndWrittenWithoutACache) {
    cFileCache* const cache = cFileCache::Instance();
    cFileCache::Instance(nullptr);
    {
        const ByteFile file(NewFile(), omCreate);
        EXPECT_TRUE(WriteUTFBom(file.Handle(), csUTF8));
        EXPECT_EQ(write2(file.Handle(), "x", 1), 1);
    }
    EXPECT_EQ(Written(), kMark + "x");
    {
        const ByteFile file(NewFile(), omRead);
        EXPECT_EQ(ProcessUTFBom(file.Handle()), csUTF8);
        EXPECT_EQ(file.Next(5), "x");
    }
    {
        const TextFile file(NewFile(), omCreate);
        EXPECT_TRUE(WriteUTFBom(file.Handle(), csUTF8));
    }
    EXPECT_EQ(Written(), kMark);
    {
        const TextFile file(NewFile(), omRead);
        EXPECT_EQ(ProcessUTFBom(file.Handle()), csUTF8);
    }
    cFileCache::Instance(cache);
}

TEST_F(ByteOrderMarks, MarkIsNotFoundBehindItself) {
    {
        const TextFile file(NewFile(), omCreate);
        EXPECT_TRUE(WriteUTFBom(file.Handle(), csUTF8));
        EXPECT_EQ(ProcessUTFBom(file.Handle()), csUnknown);
        EXPECT_EQ(fwrite2("x", 1, 1, file.Handle()), 1u);
    }
    EXPECT_EQ(Written(), kMark + "x");
}

}  // namespace
}  // namespace byte_order_marks_test
