// What a block cache needs of the files whose blocks it holds.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

class BlockFiles {
public:
    virtual ~BlockFiles() = default;
    // Reads `count` bytes from `offset` on. How many there were, fewer only at the end of the file; -1 on failure.
    virtual int Read(int handle, int64 offset, void* bytes, int count) = 0;
    // Writes `count` bytes from `offset` on. Whether all were written.
    virtual bool Write(int handle, int64 offset, const void* bytes, int count) = 0;
    // Whether the file is open, so that somebody is left who may want its bytes written.
    virtual bool IsOpen(int /*handle*/) { return true; }
};

// The registered files of the caller's instance, through their descriptors. Without state.
BlockFiles& RegisteredBlockFiles();

}  // namespace Torvo
