// The walk over the entries of a directory that have chosen attributes.

#include <Utility/bounded_copy.h>
#include <Utility/file_search.h>
#include <Utility/files/entry_choice.h>
#include <Utility/platform/platform.h>

#include <iterator>
#include <utility>

namespace Torvo {

namespace {

// Whether the entry that was read last passes; its name then becomes the walk's.
bool TakeIfWanted(FILEFIND* find) {
    if (!EntryPasses(&find->entry, find->mask)) return false;
    strcpyn(find->name, find->entry.cFileName, std::size(find->name));
    return true;
}

}  // namespace

int FileFindFirst(wchar16* pattern, ulong32 mask, FILEFIND* find) {
    if (find == nullptr) return 0;
    find->mask = mask;
    find->handle = platform::InvalidFindHandle();
    if (pattern != nullptr) find->handle = platform::FindFirstFileW(pattern, &find->entry);
    if (find->handle == platform::InvalidFindHandle()) return 0;
    if (!TakeIfWanted(find)) FileFindNext(find);
    return 1;
}

int FileFindNext(FILEFIND* find) {
    if (find == nullptr) return 0;
    while (platform::FindNextFileW(find->handle, &find->entry)) {
        if (TakeIfWanted(find)) return 1;
    }
    return 0;
}

int FileFindClose(FILEFIND* find) {
    if (find == nullptr) return 0;
    return platform::FindClose(std::exchange(find->handle, platform::InvalidFindHandle())) ? 1 : 0;
}

}  // namespace Torvo
