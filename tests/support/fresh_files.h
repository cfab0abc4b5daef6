// A file system and a block cache of a test's own, in place of those of the thread's instance, and a directory for it.
#pragma once

#include <Utility/errors.h>
#include <Utility/file_cache.h>
#include <Utility/file_io.h>
#include <Utility/files.h>

#include <support/descriptor_bytes.h>
#include <support/temp_directory.h>

#include <string>
#include <vector>

namespace Torvo::test {

class FreshFiles {
public:
    struct Options {
        int budget = 507;
        bool closeReadOnly = true;
        FileRetryCallback retry = nullptr;
        int blocks = 64;  // 0 for no cache at all
        long32 blockSize = 16384;
    };

    explicit FreshFiles(const Options& options)
        : formerFiles(cFileSystem::Instance()), formerCache(cFileCache::Instance()) {
        ClearErrors();
        cFileSystem::Instance(cFileSystem::Create(options.budget, options.closeReadOnly, options.retry));
        cFileCache::Instance(options.blocks != 0 ? cFileCache::Create(options.blocks + 1, options.blockSize) : nullptr);
    }
    FreshFiles() : FreshFiles(Options()) {}
    ~FreshFiles() {
        delete cFileSystem::Instance();
        delete cFileCache::Instance();
        cFileSystem::Instance(formerFiles);
        cFileCache::Instance(formerCache);
        ClearErrors();
    }
    FreshFiles(const FreshFiles&) = delete;
    FreshFiles& operator=(const FreshFiles&) = delete;

    // Makes a file and registers it.
    int Make(const wstring16& name, std::string_view content, FILETYPE type = ftNone) const {
        return register_file(directory.Write(name, content).c_str(), type, true);
    }
    // Registers a file that need not exist.
    int Register(const wstring16& name, FILETYPE type = ftNone) const {
        return register_file(directory.Path(name).c_str(), type, true);
    }

    const TempDirectory directory;

private:
    cFileSystem* const formerFiles;
    cFileCache* const formerCache;
};

// An error record: its number, its message and its two parameters.
struct RaisedError {
    int32 number = 0;
    int32 message = 0;
    wstring16 first;
    wstring16 second;

    bool operator==(const RaisedError&) const = default;
};

inline wstring16 ErrorParameter(uint64 index, const wchar16* format) {
    wchar16 text[600] = {};
    GetErrorMsg(format, index, text, 600);
    return text;
}

// The error records, which are taken out of the list.
inline std::vector<RaisedError> TakeErrors() {
    std::vector<RaisedError> errors;
    for (int32 index = 0; index < NumErrors(); ++index) {
        const auto place = static_cast<uint64>(index);
        errors.push_back({GetErrorNum(index), GetResourceID(index), ErrorParameter(place, ZUTEXT("^0")),
                          ErrorParameter(place, ZUTEXT("^1"))});
    }
    ClearErrors();
    return errors;
}

inline std::vector<RaisedError> OneError(int32 number, int32 message, const wstring16& first = {},
                                         const wstring16& second = {}) {
    return {{number, message, first, second}};
}

inline const std::vector<RaisedError> NoErrors;

// What a call writes into a buffer for a path.
template <typename Call>
wstring16 PathOf(Call call) {
    wchar16 buffer[261];
    std::fill(std::begin(buffer), std::end(buffer), wchar16{'?'});
    call(buffer);
    return buffer;
}
inline wstring16 NameOf(int file) {
    return PathOf([file](wchar16* out) { fhandle2name(file, out); });
}
inline wstring16 DirectoryOf(int file) {
    return PathOf([file](wchar16* out) { fhandle2dir(file, out); });
}
inline wstring16 PathOf(int file) {
    return PathOf([file](wchar16* out) { fhandle2path(file, out); });
}

// What a registered file has on disk, whether it is open as a descriptor or closed.
inline std::string ContentOnDisk(int file, const TempDirectory& directory, const wstring16& name) {
    const int descriptor = GetFileFD(file);
    return descriptor != -1 ? BytesOfDescriptor(descriptor) : directory.Read(name);
}

// Reads through the descriptor world, at the logical position.
inline std::string ReadBytes(int file, uint64 count) {
    std::string bytes(count, '?');
    const int read = read2(file, bytes.data(), count);
    bytes.resize(read < 0 ? 0 : static_cast<std::size_t>(read));
    return bytes;
}
inline int WriteBytes(int file, std::string_view bytes) {
    return write2(file, bytes.data(), bytes.size());
}

}  // namespace Torvo::test
