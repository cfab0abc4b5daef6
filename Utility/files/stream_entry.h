// What the operations of the stream world share: the runtime's stream of an entry and its working buffer.
#pragma once

#include <Utility/files/file_table.h>
#include <Utility/memory_blocks.h>

namespace Torvo {

inline constexpr char LF = '\n';
inline constexpr char CR = '\r';
inline constexpr int EndOfTextByte = 26;  // Ctrl-Z, which ended a text file once
inline constexpr int EndOfFile = -1;

// The runtime's stream; null for no entry and for a file that is not open as a stream.
inline FILE* StreamOf(const FileEntry* entry) {
    return entry != nullptr ? entry->stream : nullptr;
}

// Makes the working buffer of an entry at least that large and returns it. Null if memory is short; the entry then
// keeps the one that it has.
inline char* WorkingBuffer(FileEntry& entry, uint64 bytes) {
    void* buffer = entry.buffer;
    if (!GetMem_(bytes, &buffer, true)) return nullptr;
    entry.buffer = buffer;
    return static_cast<char*>(buffer);
}

}  // namespace Torvo
