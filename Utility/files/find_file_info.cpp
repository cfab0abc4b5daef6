// The search for a file in a list of directories and everything below them.

#include <Utility/bounded_copy.h>
#include <Utility/file_names.h>
#include <Utility/file_search.h>
#include <Utility/files/file_names.h>
#include <Utility/files/file_table.h>
#include <Utility/paths.h>
#include <Utility/platform/platform.h>
#include <Utility/strings.h>

#include <algorithm>
#include <iterator>
#include <new>

namespace Torvo {

namespace {

constexpr std::size_t ListRoom = 1024;

// What a search passes down into the directories.
struct Wanted {
    const wchar16* name;
    wchar16* out;
    uint64 outSize;
};

// Writes a directory with a name in it; false if that is too long for a path. Only a backslash counts as a separator at
// the end of the directory.
bool EnterDirectory(const wchar16* directory, const wchar16* name, wchar16 (&path)[PathSize]) {
    if (!CopyPath(directory, path, PathSize)) return false;
    const std::size_t length = platform::wcslen(path);
    if ((length == 0 || path[length - 1] != '\\') && !AppendPath(ZUTEXT("\\"), path, PathSize)) return false;
    return AppendPath(name, path, PathSize);
}

bool IsSubdirectory(const wchar16* name) {
    return *name != 0 && !strequ(name, ZUTEXT("..")) && !strequ(name, ZUTEXT("."));
}

bool SearchTree(const wchar16* directory, const Wanted& wanted);

bool SearchSubdirectories(const wchar16* directory, const Wanted& wanted) {
    wchar16 path[PathSize];
    if (!EnterDirectory(directory, ZUTEXT("*"), path)) return false;
    FILEFIND find = {};
    bool found = false;
    int more = FileFindFirst(path, FILE_ATTRIBUTE_DIRECTORY, &find);
    while (more != 0 && !found) {
        found = IsSubdirectory(find.name) && EnterDirectory(directory, find.name, path) && SearchTree(path, wanted);
        if (!found) more = FileFindNext(&find);
    }
    FileFindClose(&find);
    return found;
}

// Depth first. The depth is bounded by the length of a path.
bool SearchTree(const wchar16* directory, const Wanted& wanted) {
    wchar16 path[PathSize];
    if (!EnterDirectory(directory, wanted.name, path) || !file_exists(path, ftTab)) {
        return SearchSubdirectories(directory, wanted);
    }
    if (platform::wcslen(path) + 1 >= wanted.outSize) return false;
    strcpyn(wanted.out, path, wanted.outSize);
    return true;
}

class FindFileInfoImpl final : public FindFileInfo {
public:
    // A list that does not fit is cut, and has no terminator then.
    FindFileInfoImpl(const wchar16* list, bool useList) : useSearchPaths(useList) {
        if (list == nullptr) return;
        const std::size_t length = platform::wcsnlen(list, ListRoom);
        std::copy_n(list, std::min(length, ListRoom), searchPaths);
    }

    bool Find(const wchar16* name, wchar16* out, uint64 outSize) override;

private:
    const bool useSearchPaths;
    wchar16 searchPaths[ListRoom] = {};
};

// The list is taken apart here and not by the runtime's tokenizer, whose place in its text is the caller's.
bool FindFileInfoImpl::Find(const wchar16* name, wchar16* out, uint64 outSize) {
    if (name == nullptr || out == nullptr) return false;
    wchar16 path[PathSize];
    if (CopyPath(name, path, PathSize) && file_exists(path, ftTab)) {
        strcpyn(out, path, outSize);
        return true;
    }
    if (!useSearchPaths) return false;
    const wchar16* const bare = LastComponent(name);
    const wchar16* const end = searchPaths + platform::wcsnlen(searchPaths, ListRoom);
    for (const wchar16* from = searchPaths; from < end;) {
        const wchar16* const to = std::find(from, end, wchar16{';'});
        wchar16 directory[PathSize];
        const auto length = static_cast<uint64>(to - from);
        if (length != 0 && length < PathSize) {
            strcpyn(directory, from, length + 1);
            if (SearchTree(directory, {bare, out, outSize})) return true;
        }
        from = to + (to != end ? 1 : 0);
    }
    return false;
}

}  // namespace

FindFileInfo* FindFileInfo::Create(const wchar16* searchPaths, bool useSearchPaths) {
    return new (std::nothrow) FindFileInfoImpl(searchPaths, useSearchPaths);
}

}  // namespace Torvo
