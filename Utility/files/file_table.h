// What the file system knows of each registered file.
#pragma once

#include <Utility/charsets.h>
#include <Utility/file_cache.h>
#include <Utility/file_names.h>
#include <Utility/platform/streams.h>
#include <Utility/platform/types.h>

namespace Torvo {

// The longest path in units without its terminator, and the size of every buffer for one.
inline constexpr uint64 PathLimit = 260;
inline constexpr uint64 PathSize = PathLimit + 1;

struct StorageRecord;  // an open stream of a compound file

// The name of a file, as it was qualified when the file was registered.
struct FileNameRec {
    wchar16 directory[PathSize];  // with a separator at its end
    wchar16 name[PathSize];
    FILETYPE type;
};

// One entry of the table. The handle of the entry at index i is i + FirstHandle.
struct FileEntry {
    FileNameRec* name;         // owned; null in a free entry
    platform::Stream* stream;  // only when open as a stream
    int32 fd;                  // -1 when closed, and when open as a stream
    int32 age;                 // opens since it was opened, plus one; of an idle file, as when it became idle
    ZUCHARSET charset;         // of the file's text
    eOpenMode mode;            // of the present or last open
    uint32 flags;              // see below
    int64 position;            // of the descriptor world; the system's own is not kept in step
    int64 length;              // as the layer knows it
    uint64 lastWrite;          // of the file, at its last close; UnknownTime if it could not be read, 0 if never closed
    StorageRecord* storage;    // owned; null when not open as a compound file
    void* buffer;              // a memory block for the conversion of text, freed when the file is closed
    const cFileCache* cache;   // the service when it was last opened as a descriptor; only to be compared
    bool owesBytes;            // whether its last close as a descriptor may have left bytes unwritten
    uint64 serial;             // of the registration: a handle that is given again has another

    static constexpr uint32 ReferenceMask = 0x3FF;
    static constexpr uint32 InUse = 0x400;
    static constexpr uint32 StreamWorld = 0x800;
    static constexpr uint64 UnknownTime = ~uint64{0};

    uint32 References() const { return flags & ReferenceMask; }
    void SetReferences(uint32 count) { flags = (flags & ~ReferenceMask) | (count & ReferenceMask); }
    bool IsInUse() const { return (flags & InUse) != 0; }
    bool IsStream() const { return (flags & StreamWorld) != 0; }
    // What a file that is not open to write left in the cache could never leave it.
    bool MayBeWritten() const { return (mode == omReadWrite || mode == omCreate) && fd != -1; }
    bool IsOpen() const { return fd != -1 || stream != nullptr; }
};

inline constexpr int32 FirstHandle = 1000;

}  // namespace Torvo
