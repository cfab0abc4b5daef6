// A registered file that is open as a stream for as long as the object lives.
#pragma once

#include <Utility/file_io.h>
#include <gtest/gtest.h>
#include <support/temp_directory.h>

#include <string>
#include <string_view>

namespace Torvo::test {

class TextFile {
public:
    // Opens a file that is there, or makes one.
    TextFile(const wstring16& path, eOpenMode mode, ZUCHARSET charset = csWindowsLatin1)
        : handle(fregister_file(path.c_str(), ftNone, false)), opened(ffileopen(handle, mode, nullptr)) {
        EXPECT_NE(opened, nullptr);
        file_put_charset(handle, charset);
    }
    ~TextFile() {
        if (opened != nullptr) {
            EXPECT_EQ(fclose2(handle), 0);
        }
        funregister_file(handle);
    }
    TextFile(const TextFile&) = delete;
    TextFile& operator=(const TextFile&) = delete;

    FILE* Handle() const { return handle; }

private:
    FILE* const handle;
    FILE* const opened;
};

// The text that one reading gives, or "(null)".
inline wstring16 NextLine(FILE* file, int size = 100) {
    wstring16 buffer(static_cast<std::size_t>(size) + 8, wchar16{'#'});
    const wchar16* const line = fgets2(&buffer[4], size, file);
    EXPECT_EQ(buffer.substr(0, 4), ZUTEXT("####"));
    EXPECT_EQ(buffer.substr(4 + static_cast<std::size_t>(size)), ZUTEXT("####"));
    if (line == nullptr) return ZUTEXT("(null)");
    EXPECT_EQ(line, &buffer[4]);
    return line;
}

}  // namespace Torvo::test
