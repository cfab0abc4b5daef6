// Files that the rows of files, streams and paths work on. They are made anew for each attempt, outside of its faults.
#pragma once

#include <Utility/Utility.h>
#include <files/own_cache.h>
#include <gtest/gtest.h>
#include <support/temp_directory.h>

#include <string>

namespace Torvo::test {

// One directory for all of them.
inline const TempDirectory& FaultDirectory() {
    static const TempDirectory directory;
    return directory;
}

inline std::string FileContent() {
    return "one\r\ntwo\r\n" + std::string(3000, 'x');
}

// A file on disk that is registered.
class RegisteredFile {
public:
    explicit RegisteredFile(const wchar16* name = ZUTEXT("file.bin")) : path(FaultDirectory().Path(name)) {
        FaultDirectory().Write(name, FileContent());
        handle = register_file(path.c_str(), ftNone, true);
    }
    // Whatever became of it, nothing of it is left.
    ~RegisteredFile() {
        if (handle >= 1000) unregister_file(handle);
    }
    RegisteredFile(const RegisteredFile&) = delete;
    RegisteredFile& operator=(const RegisteredFile&) = delete;

    const wstring16 path;
    int handle = 0;
};

// ... and open, with a small cache of its own.
class OpenFile : public RegisteredFile {
public:
    explicit OpenFile(eOpenMode mode) {
        EXPECT_EQ(fileopen(handle, mode, nullptr), handle);
        lseek2(handle, 0, 0);
    }
    ~OpenFile() { close2(handle); }

    const OwnCache cache{5, 512};
};

// ... or open as a stream.
class OpenStream {
public:
    explicit OpenStream(eOpenMode mode) {
        const wstring16 path = FaultDirectory().Write(ZUTEXT("stream.txt"), FileContent());
        file = fregister_file(path.c_str(), ftNone, true);
        EXPECT_EQ(ffileopen(file, mode, nullptr), file);
        file_put_charset(file, csWindowsLatin1);
    }
    ~OpenStream() {
        fclose2(file);
        funregister_file(file);
    }
    OpenStream(const OpenStream&) = delete;
    OpenStream& operator=(const OpenStream&) = delete;

    FILE* file = nullptr;
};

}  // namespace Torvo::test
