// The stream world by lines: reading.

#include <Utility/conversion.h>
#include <Utility/file_io.h>
#include <Utility/files/file_system_impl.h>
#include <Utility/files/line_reader.h>
#include <Utility/files/stream_entry.h>

#include <algorithm>
#include <memory>
#include <new>

namespace Torvo {

namespace {

// Converts a line into `size` units. One that fills them all loses its last unit to the terminator; one that has more
// is an empty text.
void ConvertLine(const ByteLine& line, ZUCHARSET charset, wchar16* out, uint64 size) {
    // The terminator goes on top of the size that the conversion is told.
    out[0] = 0;
    if (ConvertMBCSCharToSystem(line.bytes, line.count, charset, out, size - 1) || charset == csUTF16) return;
    out[0] = 0;
    const std::unique_ptr<wchar16[]> whole(new (std::nothrow) wchar16[size + 1]);
    if (whole == nullptr || !ConvertMBCSCharToSystem(line.bytes, line.count, charset, whole.get(), size)) return;
    std::copy_n(whole.get(), size - 1, out);
    out[size - 1] = 0;
}

}  // namespace

wchar16* cFileSystemImpl::fgets2(wchar16* out, int size, FILE* file) {
    FileEntry* const entry = FindEntry(AsFileHandle(file));
    if (out == nullptr || size < 1 || StreamOf(entry) == nullptr) return nullptr;
    ByteLine line;
    if (!ReadLine(*entry, 2 * static_cast<uint64>(size) - 1, &line)) return nullptr;
    ConvertLine(line, entry->charset, out, static_cast<uint64>(size));
    return out;
}

wchar16* fgets2(wchar16* out, int size, FILE* file) {
    return cFileSystem::Instance()->fgets2(out, size, file);
}

}  // namespace Torvo
