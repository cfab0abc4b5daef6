#include <Utility/files/block_files.h>

#include <Utility/file_io.h>
#include <Utility/files.h>
#include <Utility/platform/platform.h>

#include <algorithm>

namespace Torvo {

namespace {

class RegisteredFiles final : public BlockFiles {
public:
    int Read(int handle, int64 offset, void* bytes, int count) override {
        const int fd = GetFileFD(handle);
        if (fd < 0) return -1;
        // What reaches to the end of the file need not be asked for once more to find that out. Not every system tells
        // the length of a file that it makes as it is read.
        const auto toTheEnd = static_cast<uint32>(std::clamp<int64>(filelength2(handle) - offset, 0, count));
        const auto room = static_cast<uint32>(count);
        return platform::ReadAt(fd, offset, bytes, room, toTheEnd > 0 ? toTheEnd : room);
    }
    bool Write(int handle, int64 offset, const void* bytes, int count) override {
        const int fd = GetFileFD(handle);
        return fd >= 0 && platform::WriteAt(fd, offset, bytes, static_cast<uint32>(count)) == count;
    }
    bool IsOpen(int handle) override { return GetFileFD(handle) >= 0; }
};

}  // namespace

BlockFiles& RegisteredBlockFiles() {
    static RegisteredFiles files;
    return files;
}

}  // namespace Torvo
