// Reads lines of bytes from a stream.
#pragma once

#include <Utility/files/file_table.h>

namespace Torvo {

// A line with its line end as one LF, or without one. It lies in the stream's buffer or in the entry's, until the next
// call on either.
struct ByteLine {
    const char* bytes = nullptr;
    uint64 count = 0;
};

// Reads the next line, at most `limit` bytes of it, from an entry that is open as a stream. The stream then stands
// behind the line end, be it LF, CR LF or CR; of a CR LF that the limit cuts in two, only the CR is taken. False at the
// end, where nothing could be read; for the end-of-text byte as told in the source; and if memory is short, with
// nothing taken then.
bool ReadLine(FileEntry& entry, uint64 limit, ByteLine* line);

}  // namespace Torvo
