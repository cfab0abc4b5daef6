#include <Utility/platform/files.h>
#include <Utility/platform/streams.h>
#include <gtest/gtest.h>
#include <support/failing_files.h>
#include <support/temp_directory.h>

#include <cerrno>
#include <string>

namespace streams_internal_test {
namespace {

using namespace Torvo;
using test::FailingFiles;
using test::TempDirectory;

platform::Stream* Open(const wstring16& path, const wchar16* mode) {
    const bool reads = mode[0] == 'r' && mode[1] == 'b';
    const bool creates = mode[0] == 'w';
    int file = -1;
    platform::_wsopen_dispatch(path.c_str(),
                               platform::OpenBinary | (reads ? platform::OpenReadOnly : platform::OpenReadWrite) |
                                   (creates ? platform::OpenCreate | platform::OpenTruncate : 0),
                               reads ? platform::ShareDenyWrite : platform::ShareDenyBoth,
                               platform::PermitRead | platform::PermitWrite, &file, 0);
    return file == -1 ? nullptr : platform::_wfdopen(file, mode);
}

TEST(PlatformStreams, WriteSeekAndReadBack) {
    const TempDirectory directory;
    platform::Stream* const stream = Open(directory.Path(ZUTEXT("file")), ZUTEXT("w+b"));
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(platform::fwrite("abcdef", 2, 3, stream), 3u);
    EXPECT_GE(platform::fputs("\r\nx", stream), 0);
    EXPECT_EQ(platform::_ftelli64(stream), 9);
    EXPECT_EQ(platform::fflush(stream), 0);
    EXPECT_EQ(platform::_ftelli64(stream), 9);
    EXPECT_EQ(platform::_fseeki64(stream, 2, 0), 0);
    char text[4] = {};
    EXPECT_EQ(platform::fread(text, 1, 3, stream), 3u);
    EXPECT_STREQ(text, "cde");
    EXPECT_EQ(platform::_fseeki64(stream, 1, 1), 0);
    EXPECT_EQ(platform::fgetc(stream), '\r');
    EXPECT_EQ(platform::_fseeki64(stream, -1, 2), 0);
    EXPECT_EQ(platform::fgetc(stream), 'x');
    EXPECT_EQ(platform::fclose(stream), 0);
    EXPECT_EQ(directory.Read(ZUTEXT("file")), "abcdef\r\nx");
}

TEST(PlatformStreams, EndIsToldAfterReadingPastIt) {
    const TempDirectory directory;
    platform::Stream* const stream = Open(directory.Write(ZUTEXT("file"), "ab"), ZUTEXT("rb"));
    char text[10];
    EXPECT_FALSE(platform::feof(stream));
    EXPECT_EQ(platform::fread(text, 1, 2, stream), 2u);
    EXPECT_EQ(platform::fgetc(stream), -1);
    EXPECT_TRUE(platform::feof(stream));
    EXPECT_FALSE(platform::ferror(stream));
    EXPECT_EQ(platform::_fseeki64(stream, 0, 0), 0);
    EXPECT_FALSE(platform::feof(stream));
    EXPECT_EQ(platform::fread(text, 4, 1, stream), 0u) << "no whole item";
    EXPECT_TRUE(platform::feof(stream));
    platform::fclose(stream);
}

TEST(PlatformStreams, ByteIsPushedBack) {
    const TempDirectory directory;
    platform::Stream* const stream = Open(directory.Write(ZUTEXT("file"), "ab"), ZUTEXT("rb"));
    EXPECT_EQ(platform::fgetc(stream), 'a');
    EXPECT_EQ(platform::ungetc('x', stream), 'x');
    EXPECT_EQ(platform::_ftelli64(stream), 0);
    EXPECT_EQ(platform::fgetc(stream), 'x');
    EXPECT_EQ(platform::fgetc(stream), 'b');
    EXPECT_EQ(platform::ungetc(-1, stream), -1);
    EXPECT_EQ(platform::_fseeki64(stream, 0, 0), 0);
    EXPECT_EQ(platform::fgetc(stream), 'a') << "the file itself is as it was";
    platform::fclose(stream);
}

TEST(PlatformStreams, WideTextIsWrittenUnitByUnit) {
    const TempDirectory directory;
    platform::Stream* const stream = Open(directory.Path(ZUTEXT("file")), ZUTEXT("w+b"));
    EXPECT_GE(platform::fputws(ZUTEXT("A\u0416\n"), stream), 0);
    EXPECT_GE(platform::fputs("z", stream), 0);
    EXPECT_EQ(platform::fclose(stream), 0);
    EXPECT_EQ(directory.Read(ZUTEXT("file")), std::string("A\0\x16\x04\n\0z", 7));
}

TEST(PlatformStreams, BytesAreTakenAsTheyAre) {
    const TempDirectory directory;
    const std::string bytes("\r\n\n\x1A\0\xFFz", 7);
    platform::Stream* const stream = Open(directory.Write(ZUTEXT("file"), bytes), ZUTEXT("rb"));
    for (const char byte : bytes) EXPECT_EQ(platform::fgetc(stream), static_cast<unsigned char>(byte));
    EXPECT_EQ(platform::fgetc(stream), -1);
    platform::fclose(stream);
}

TEST(PlatformStreams, SeekBeforeTheStartIsRefused) {
    const TempDirectory directory;
    platform::Stream* const stream = Open(directory.Write(ZUTEXT("file"), "ab"), ZUTEXT("rb"));
    EXPECT_EQ(platform::_fseeki64(stream, -1, 0), -1);
    EXPECT_EQ(errno, EINVAL);
    platform::fclose(stream);
}

TEST(PlatformStreams, WritingWhereOnlyReadingIsMeantFails) {
    const TempDirectory directory;
    platform::Stream* const stream = Open(directory.Write(ZUTEXT("file"), "ab"), ZUTEXT("rb"));
    EXPECT_EQ(platform::fwrite("x", 1, 1, stream), 0u);
    EXPECT_TRUE(platform::ferror(stream));
    platform::fclose(stream);
    EXPECT_EQ(directory.Read(ZUTEXT("file")), "ab");
}

TEST(PlatformStreams, FaultsShowAsErrors) {
    const TempDirectory directory;
    platform::Stream* const stream = Open(directory.Write(ZUTEXT("file"), "abcd"), ZUTEXT("r+b"));
    char text[4];
    {
        const FailingFiles faults(1, FailingFiles::Mode::kOnce, EIO);
        EXPECT_EQ(platform::fread(text, 1, 2, stream), 0u);
        EXPECT_EQ(errno, EIO);
    }
    EXPECT_TRUE(platform::ferror(stream));
    EXPECT_FALSE(platform::feof(stream));
    EXPECT_EQ(platform::fread(text, 1, 2, stream), 2u);
    {
        const FailingFiles faults(1, FailingFiles::Mode::kOnce, EINTR);
        EXPECT_EQ(platform::fgetc(stream), 'c') << "an interruption does not show";
    }
    {
        const FailingFiles faults = FailingFiles::Short(1, FailingFiles::Mode::kOnce, 3);
        platform::_fseeki64(stream, 0, 0);
        EXPECT_EQ(platform::fwrite("xyzzy", 1, 5, stream), 3u);
    }
    {
        const FailingFiles faults(1, FailingFiles::Mode::kOnce, ENOSPC);
        EXPECT_EQ(platform::fclose(stream), -1);
        EXPECT_EQ(errno, ENOSPC);
    }
    EXPECT_EQ(directory.Read(ZUTEXT("file")), "xyzd") << "closed all the same";
}

TEST(PlatformStreams, FailedStreamLeavesTheDescriptorToTheCaller) {
    const TempDirectory directory;
    int file = -1;
    ASSERT_EQ(platform::_wsopen_dispatch(directory.Write(ZUTEXT("file"), "ab").c_str(), platform::OpenBinary,
                                         platform::ShareDenyWrite, 0, &file, 0),
              0);
    {
        const FailingFiles faults(1, FailingFiles::Mode::kOnce, ENOMEM);
        EXPECT_EQ(platform::_wfdopen(file, ZUTEXT("rb")), nullptr);
    }
    EXPECT_EQ(platform::_lseeki64(file, 0, 2), 2);
    EXPECT_EQ(platform::_close(file), 0);
}

}  // namespace
}  // namespace streams_internal_test
