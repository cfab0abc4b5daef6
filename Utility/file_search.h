// Looking through directories: a walk over the entries of one that have chosen attributes, and the search for a file in
// a list of directories and everything below them. Neither has to do with registered files.
//
// Paths and patterns are in the Windows form on every system (docs/paths.md). Attributes are bits with the platform's
// values: 0x01 read-only, 0x02 hidden, 0x10 a directory, 0x20 archive, which files mostly have, 0x80 nothing special.
//
// A walk and a search belong to their caller, and to one thread at a time. No error is raised: a directory that cannot
// be read counts as empty.
//
// Example: examples/families/file_search.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// A walk that is going on, owned by the caller.
struct FILEFIND {
    ulong32 mask;            // the attributes wanted
    wchar16 name[260];       // of the last entry that had one of them, without directory
    void* handle;            // the platform's, of the walk
    WIN32_FIND_DATAW entry;  // the entry that was read last
};

// Starts a walk over the entries that match `pattern`, a directory and a last component with `*` and `?`, and have an
// attribute of `mask`. 0 if the pattern matches nothing, or is null; otherwise 1, whether or not an entry has such an
// attribute. The record's name is then that of the first that has, and if none has it is left as the caller had it:
// clear it before, to know. An entry without any attribute counts as one with 0x80, and is shown so in the record.
//
// Close the walk with FileFindClose, after a 1.
ZUAPI int FileFindFirst(wchar16* pattern, ulong32 mask, FILEFIND* find);
// Goes on to the next such entry: 1, or 0 at the end, with the name as it was; 0 too for a walk that could not be
// started or is closed, and for a record of zeros.
ZUAPI int FileFindNext(FILEFIND* find);
// Ends a walk: not 0 if it had been started and was not closed before; a record of zeros counts as one that was not
// started.
ZUAPI int FileFindClose(FILEFIND* find);

// The search for a file.
class ZUAPI FindFileInfo {
public:
    virtual ~FindFileInfo() = default;

    // Looks for a file and writes the path under which it is found, in at most `outSize` units. First comes `name` as
    // it stands, which may be a path; what does not fit is then cut. After that, if the search paths are used, come the
    // directories of the list in their order, with the bare name: each, then its subdirectories in the platform's
    // order, each of them likewise to the bottom before the next. A path found there must leave room for two units, the
    // terminator and one more; where it does not, the directory is left, with what is below it. Whether a path was
    // written; if not, `out` is as it was. Null for `name` or `out` is nothing found.
    virtual bool Find(const wchar16* name, wchar16* out, uint64 outSize) = 0;

    // A new search, owned by the caller, who deletes it; null if memory is short. `searchPaths` are directories
    // separated by `;`, of which the first 1024 units are copied. With `useSearchPaths` false none is looked into.
    static FindFileInfo* Create(const wchar16* searchPaths, bool useSearchPaths);
};

}  // namespace Torvo
