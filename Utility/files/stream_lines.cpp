// The stream world by lines: reading.

#include <Utility/conversion.h>
#include <Utility/file_io.h>
#include <Utility/files/file_system_impl.h>
#include <Utility/files/line_reader.h>
#include <Utility/files/stream_entry.h>

namespace Torvo {

wchar16* cFileSystemImpl::fgets2(wchar16* out, int size, FILE* file) {
    FileEntry* const entry = FindEntry(AsFileHandle(file));
    if (size < 1 || StreamOf(entry) == nullptr) return nullptr;
    ByteLine line;
    if (!ReadLine(*entry, 2 * static_cast<uint64>(size) - 1, &line)) return nullptr;
    // The terminator goes on top of the size that the conversion is told.
    out[0] = 0;
    ConvertMBCSCharToSystem(line.bytes, line.count, entry->charset, out, static_cast<uint64>(size) - 1);
    return out;
}

wchar16* fgets2(wchar16* out, int size, FILE* file) {
    return cFileSystem::Instance()->fgets2(out, size, file);
}

}  // namespace Torvo
