// Text by characters, and streams as bytes.

#include <Utility/Utility.h>
#include <files/text_file.h>
#include <gtest/gtest.h>

#include <string>

namespace stream_characters_test {
namespace {

using namespace Torvo;
using test::TempDirectory;
using test::TextFile;

class StreamCharacters : public testing::Test {
protected:
    wstring16 Write(std::string_view content) { return directory.Write(ZUTEXT("file.txt"), content); }
    std::string Written() { return directory.Read(ZUTEXT("file.txt")); }
    wstring16 NewFile() { return directory.Path(ZUTEXT("file.txt")); }

    TempDirectory directory;
};

TEST_F(StreamCharacters, LineEndsAreOneLineFeed) {
    const TextFile file(Write("\r\n\rx\n\r"), omRead);
    EXPECT_EQ(fgetc2(file.Handle()), 10);
    EXPECT_EQ(ftell2(file.Handle()), 2);
    EXPECT_EQ(fgetc2(file.Handle()), 10);
    EXPECT_EQ(ftell2(file.Handle()), 3);
    EXPECT_EQ(fgetc2(file.Handle()), 'x');
    EXPECT_EQ(fgetc2(file.Handle()), 10);
    EXPECT_EQ(fgetc2(file.Handle()), 10);
    EXPECT_EQ(fgetc2(file.Handle()), -1);
}

TEST_F(StreamCharacters, ControlZAndTheEndGiveMinusOne) {
    const TextFile file(Write("a\x1A"
                              "b"),
                        omRead);
    EXPECT_EQ(fgetc2(file.Handle()), 'a');
    EXPECT_EQ(fgetc2(file.Handle()), -1);
    EXPECT_EQ(feof2(file.Handle()), 0);
    EXPECT_EQ(fgetc2(file.Handle()), 'b');
    EXPECT_EQ(fgetc2(file.Handle()), -1);
    EXPECT_NE(feof2(file.Handle()), 0);
}

TEST_F(StreamCharacters, CharactersAreReadInTheFilesCharset) {
    {
        const TextFile file(Write("\xC4\x80\xFF"), omRead, csWindowsLatin1);
        EXPECT_EQ(fgetc2(file.Handle()), 0xC4);
        EXPECT_EQ(fgetc2(file.Handle()), 0x20AC);
        EXPECT_EQ(fgetc2(file.Handle()), 0xFF);
    }
    {
        // The second byte of a pair may look like a line end's neighbour or a backslash.
        const TextFile file(Write("\x83\\\x93\xFA"
                                  "a\xB1"),
                            omRead, csWindowsJapanese);
        EXPECT_EQ(fgetc2(file.Handle()), 0x30BD);
        EXPECT_EQ(ftell2(file.Handle()), 2);
        EXPECT_EQ(fgetc2(file.Handle()), 0x65E5);
        EXPECT_EQ(fgetc2(file.Handle()), 'a');
        EXPECT_EQ(fgetc2(file.Handle()), 0xFF71);
        EXPECT_EQ(fgetc2(file.Handle()), -1);
    }
    {
        const TextFile file(Write("a\xC3\xA4"), omRead, csUTF8);
        EXPECT_EQ(fgetc2(file.Handle()), 'a');
        EXPECT_EQ(fgetc2(file.Handle()), 0xFFFD);
        EXPECT_EQ(fgetc2(file.Handle()), 0xFFFD);
        EXPECT_EQ(fgetc2(file.Handle()), -1);
    }
    {
        const TextFile file(Write("ab"), omRead, csMacRoman);
        EXPECT_EQ(fgetc2(file.Handle()), 0);
    }
}

TEST_F(StreamCharacters, LeadByteAtTheEndIsReadAlone) {
    const TextFile file(Write("\x83"), omRead, csWindowsJapanese);
    EXPECT_NE(fgetc2(file.Handle()), -1);
    EXPECT_EQ(fgetc2(file.Handle()), -1);
}

TEST_F(StreamCharacters, WrittenInTheFilesCharset) {
    {
        const TextFile file(NewFile(), omCreate, csWindowsLatin1);
        EXPECT_EQ(fputc2('a', file.Handle()), 'a');
        EXPECT_EQ(fputc2(0x20AC, file.Handle()), 0x20AC);
        EXPECT_EQ(fputc2(0x65E5, file.Handle()), 0x65E5);
        EXPECT_EQ(fputc2('\r', file.Handle()), '\r');
        EXPECT_EQ(fputc2(0, file.Handle()), 0);
    }
    EXPECT_EQ(Written(), "a\x80_\r");
    {
        const TextFile file(NewFile(), omCreate, csUTF8);
        EXPECT_EQ(fputc2(0xE4, file.Handle()), 0xE4);
        EXPECT_EQ(fputc2(0x65E5, file.Handle()), 0x65E5);
    }
    EXPECT_EQ(Written(), "\xC3\xA4\xE6\x97\xA5");
    {
        const TextFile file(NewFile(), omCreate, csWindowsJapanese);
        EXPECT_EQ(fputc2(0x65E5, file.Handle()), 0x65E5);
    }
    EXPECT_EQ(Written(), "\x93\xFA");
}

TEST_F(StreamCharacters, LineFeedIsWrittenAsTheUnitsOfTheLineEnd) {
    {
        const TextFile file(NewFile(), omCreate, csWindowsLatin1);
        EXPECT_EQ(fputc2(10, file.Handle()), 10);
    }
    EXPECT_EQ(Written(), std::string("\r\0\n\0", 4));
    {
        const TextFile file(NewFile(), omCreate, csMacRoman);
        EXPECT_EQ(fputc2(10, file.Handle()), 10);
    }
    EXPECT_EQ(Written(), std::string("\r\0", 2));
}

TEST_F(StreamCharacters, BytesAreReadAndWrittenAsTheyStand) {
    {
        const TextFile file(NewFile(), omCreate);
        EXPECT_EQ(fwrite2("0123456789", 2, 5, file.Handle()), 5u);
        EXPECT_EQ(fwrite2("x", 1, 0, file.Handle()), 0u);
        EXPECT_EQ(ftell2(file.Handle()), 10);
        EXPECT_EQ(fseek2(file.Handle(), 3, 0), 0);
        char bytes[8] = {};
        EXPECT_EQ(fread2(bytes, 2, 2, file.Handle()), 2u);
        EXPECT_STREQ(bytes, "3456");
        EXPECT_EQ(fseek2(file.Handle(), -2, 2), 0);
        EXPECT_EQ(ftell2(file.Handle()), 8);
        EXPECT_EQ(fread2(bytes, 1, 8, file.Handle()), 2u);
        EXPECT_NE(feof2(file.Handle()), 0);
        EXPECT_EQ(ferror2(file.Handle()), 0);
        EXPECT_EQ(fseek2(file.Handle(), -1, 1), 0);
        EXPECT_EQ(feof2(file.Handle()), 0);
        EXPECT_EQ(fseek2(file.Handle(), -1, 0), -1);
    }
    EXPECT_EQ(Written(), "0123456789");
}

TEST_F(StreamCharacters, LengthIsFoundWithoutMovingThePosition) {
    const TextFile file(Write("0123456789"), omReadWrite);
    EXPECT_EQ(fseek2(file.Handle(), 4, 0), 0);
    EXPECT_EQ(ffilelength2(file.Handle()), 10);
    EXPECT_EQ(ftell2(file.Handle()), 4);
    EXPECT_EQ(fseek2(file.Handle(), 0, 2), 0);
    EXPECT_EQ(fwrite2("ab", 1, 2, file.Handle()), 2u);
    EXPECT_EQ(ffilelength2(file.Handle()), 12);
}

TEST_F(StreamCharacters, FlushPutsTheBytesOnDisk) {
    const TextFile file(NewFile(), omCreate);
    EXPECT_EQ(fwrite2("abc", 1, 3, file.Handle()), 3u);
    EXPECT_EQ(fflush2(file.Handle()), 0);
    EXPECT_EQ(std::filesystem::file_size(directory.Native(ZUTEXT("file.txt"))), 3u);
}

TEST_F(StreamCharacters, WritingAFileThatIsOpenToReadIsAnError) {
    const TextFile file(Write("abc"), omRead);
    EXPECT_EQ(ferror2(file.Handle()), 0);
    EXPECT_EQ(fputs2(ZUTEXT("x"), file.Handle()), -1);
    EXPECT_NE(ferror2(file.Handle()), 0);
}

TEST_F(StreamCharacters, HandlesThatAreNoStreamAreRefused) {
    FILE* const closed = fregister_file(Write("abc").c_str(), ftNone, true);
    const int descriptor = register_nonunique_file(NewFile().c_str(), ftNone);
    ASSERT_EQ(fileopen(descriptor, omRead, nullptr), descriptor);
    FILE* const ofDescriptor = reinterpret_cast<FILE*>(static_cast<std::intptr_t>(descriptor));
    for (FILE* const file :
         {static_cast<FILE*>(nullptr), reinterpret_cast<FILE*>(std::intptr_t{999'999}), closed, ofDescriptor}) {
        char byte = 0;
        EXPECT_EQ(fread2(&byte, 1, 1, file), 0u);
        EXPECT_EQ(fwrite2(&byte, 1, 1, file), 0u);
        EXPECT_EQ(fseek2(file, 0, 0), -1);
        EXPECT_EQ(ftell2(file), -1);
        EXPECT_EQ(feof2(file), -1);
        EXPECT_EQ(ferror2(file), -1);
        EXPECT_EQ(fflush2(file), -1);
        EXPECT_EQ(ffilelength2(file), -1);
        EXPECT_EQ(fgetc2(file), -1);
        EXPECT_EQ(fputc2('a', file), -1);
        EXPECT_EQ(fputs2(ZUTEXT("a"), file), -1);
        EXPECT_EQ(fprintf2(file, ZUTEXT("a")), -1);
    }
    EXPECT_EQ(close2(descriptor), 0);
    unregister_file(descriptor);
    funregister_file(closed);
}

}  // namespace
}  // namespace stream_characters_test
