// Files in memory for a block cache, which note every call and fail on request.
#pragma once

#include <Utility/files/block_files.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace Torvo::test {

class MemoryBlockFiles final : public BlockFiles {
public:
    int Read(int handle, int64 offset, void* bytes, int count) override {
        Note('r', handle, offset, count);
        if (IsRefused()) return -1;
        const std::string& file = files[handle];
        const int64 left = std::clamp<int64>(static_cast<int64>(file.size()) - offset, 0, count);
        if (left > 0) std::memcpy(bytes, &file[static_cast<std::size_t>(offset)], static_cast<std::size_t>(left));
        return static_cast<int>(left);
    }
    bool Write(int handle, int64 offset, const void* bytes, int count) override {
        Note('w', handle, offset, count);
        if (IsRefused()) return false;
        std::string& file = files[handle];
        const std::size_t end = static_cast<std::size_t>(offset + count);
        if (file.size() < end) file.resize(end);
        if (count > 0) std::memcpy(&file[static_cast<std::size_t>(offset)], bytes, static_cast<std::size_t>(count));
        return true;
    }

    bool IsOpen(int /*handle*/) override { return !allAreClosed; }

    // The calls since the last question, as "r 1000 @32 16" for a read of 16 bytes from 32 on of the file 1000.
    std::vector<std::string> TakeCalls() {
        std::vector<std::string> taken;
        taken.swap(calls);
        return taken;
    }

    std::map<int, std::string> files;
    int callsUntilRefusal = 0;  // 1 refuses the next call, 0 none
    bool refuseAll = false;
    bool allAreClosed = false;

private:
    void Note(char what, int handle, int64 offset, int count) {
        calls.push_back(what + (" " + std::to_string(handle)) + " @" + std::to_string(offset) + " " +
                        std::to_string(count));
    }
    bool IsRefused() {
        if (refuseAll) return true;
        if (callsUntilRefusal == 0) return false;
        return --callsUntilRefusal == 0;
    }

    std::vector<std::string> calls;
};

}  // namespace Torvo::test
