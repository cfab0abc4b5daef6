#include <Utility/geometry/metafiles.h>
#include <Utility/metafiles.h>
#include <Utility/platform/host.h>
#include <Utility/platform/regions.h>

namespace Torvo {

namespace {

static_assert(detail::BlockFlags == (GMEM_MOVEABLE | GMEM_ZEROINIT));

constexpr detail::GlobalCalls SystemCalls = {platform::GlobalAlloc, platform::GlobalLock, platform::GlobalUnlock};

}  // namespace

void* GetMetaFileBits(HMETAFILE metafile) {
    return detail::CopyToBlock(metafile, platform::GetMetaFileBitsEx, SystemCalls);
}

void* GetEnhancedMetaFileBits(HENHMETAFILE metafile) {
    return detail::CopyToBlock(metafile, platform::GetEnhMetaFileBits, SystemCalls);
}

}  // namespace Torvo
