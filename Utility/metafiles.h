// Metafiles: the contents of a recorded drawing, copied to a block of movable memory.
//
// The result is the handle of the block, not its address: GlobalLock of <Utility/platform/host.h> gives that, and
// GlobalSize its size. The caller owns the block and frees it with GlobalFree. Null if the metafile is null or empty,
// if memory is short, or if the system cannot copy; in the last case a block that was allocated before is not freed,
// and nothing leads to it any more.
//
// Example: examples/families/metafiles.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// Of a metafile in the older form.
ZUAPI void* GetMetaFileBits(HMETAFILE metafile);
// Of an enhanced metafile.
ZUAPI void* GetEnhancedMetaFileBits(HENHMETAFILE metafile);

}  // namespace Torvo
