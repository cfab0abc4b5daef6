#include <Utility/files/block_files.h>

#include <Utility/files.h>
#include <Utility/platform/platform.h>

namespace Torvo {

namespace {

// The descriptor, positioned; -1 if the file is not open or cannot be positioned.
int DescriptorAt(int handle, int64 offset) {
    const int fd = GetFileFD(handle);
    return fd >= 0 && platform::_lseeki64(fd, offset, 0) != -1 ? fd : -1;
}

class RegisteredFiles final : public BlockFiles {
public:
    int Read(int handle, int64 offset, void* bytes, int count) override {
        const int fd = DescriptorAt(handle, offset);
        return fd >= 0 ? platform::_read(fd, bytes, static_cast<uint32>(count)) : -1;
    }
    bool Write(int handle, int64 offset, const void* bytes, int count) override {
        const int fd = DescriptorAt(handle, offset);
        return fd >= 0 && platform::_write(fd, bytes, static_cast<uint32>(count)) == count;
    }
    bool IsOpen(int handle) override { return GetFileFD(handle) >= 0; }
};

}  // namespace

BlockFiles& RegisteredBlockFiles() {
    static RegisteredFiles files;
    return files;
}

}  // namespace Torvo
