// What kind of file a name stands for, and the name that a file of a kind must bear. Nothing here touches a disk.

#include <Utility/file_names.h>

#include <Utility/bounded_copy.h>
#include <Utility/files/file_names.h>
#include <Utility/files/file_system_impl.h>
#include <Utility/files/file_types.h>
#include <Utility/strings.h>
#include <Utility/text/text_moves.h>
#include <Utility/text/unit_classes.h>

#include <algorithm>
#include <cstring>

namespace Torvo {

namespace {

// The longest component, and what a longer one is cut to.
constexpr std::size_t ComponentLimit = 255;
// How much of a name is taken before and behind its last dot.
constexpr std::size_t NameLimit = 255;
constexpr std::size_t ExtensionLimit = 256;

// What comes first in every operation: the last component loses the blanks at its start, and what is too long of it.
void TrimFileName(wchar16* name) {
    wchar16* const component = LastComponent(name);
    const wchar16* first = component;
    while (*first != 0 && IsBlank(*first)) ++first;
    MoveTextDown(component, first);
    if (platform::wcsnlen(component, ComponentLimit) >= ComponentLimit) component[ComponentLimit - 1] = 0;
}

// The place of the extension in a component: its last dot, if a type has that extension, else its end.
wchar16* ExtensionPlace(wchar16* component) {
    wchar16* const dot = platform::wcsrchr(component, '.');
    if (dot != nullptr && TypeOfExtension(dot) != ftNone) return dot;
    return component + platform::wcslen(component);
}

// Removes the blanks before a place in a component; the place moves with what follows.
wchar16* RemoveBlanksBefore(wchar16* place, const wchar16* component) {
    wchar16* first = place;
    while (first != component && IsBlank(first[-1])) --first;
    MoveTextDown(first, place);
    return first;
}

// The text of a length, at most `limit` units of it.
wchar16* CopyPart(const wchar16* text, std::size_t length, std::size_t limit, wchar16* target) {
    const std::size_t count = std::min(length, limit);
    std::memmove(target, text, count * sizeof(wchar16));
    return target + count;
}

bool EndsIgnoringCase(const wchar16* text, const wchar16* end) {
    const std::size_t length = platform::wcslen(text);
    const std::size_t wanted = platform::wcslen(end);
    return length >= wanted && striequ(text + (length - wanted), end);
}

// The extension that a name of a type gets; null if it stays as it is. A text file may keep that of a list of values.
const wchar16* RecommendedExtension(const wchar16* name, FILETYPE type) {
    if (type == ftTxt && EndsIgnoringCase(name, ExtensionOf(ftCsv))) return ExtensionOf(ftCsv);
    return ExtensionOf(type);
}

// A path to which any extension may be added.
using WorkingName = wchar16[PathSize + LongestExtension];

// Makes the name that a file of a type ought to have of the first 260 units of a path.
void Recommend(cFileSystem& files, const wchar16* path, FILETYPE type, WorkingName& name) {
    CopyPath(path, name, PathSize);
    TrimFileName(name);
    const wchar16* const extension = RecommendedExtension(name, type);
    if (extension != nullptr) files.make_extension(name, extension);
}

}  // namespace

bool CopyPath(const wchar16* source, wchar16* target, uint64 size) {
    if (size == 0) return false;
    const uint64 length = platform::wcsnlen(source, size);
    const uint64 count = std::min(length, size - 1);
    std::memmove(target, source, count * sizeof(wchar16));
    target[count] = 0;
    return count == length;
}

bool AppendPath(const wchar16* more, wchar16* target, uint64 size) {
    const uint64 length = platform::wcslen(target);
    return length < size && CopyPath(more, target + length, size - length);
}

const wchar16* cFileSystemImpl::file_extension(FILETYPE type) {
    return ExtensionOf(type);
}

FILETYPE cFileSystemImpl::file_type(const wchar16* name) {
    if (name == nullptr) return ftNone;
    const wchar16* const dot = platform::wcsrchr(name, '.');
    return dot != nullptr && dot[1] != 0 ? TypeOfExtension(dot) : ftNone;
}

bool cFileSystemImpl::munge_filename(FILETYPE type) {
    return ForcesExtension(type);
}

void cFileSystemImpl::make_extension(wchar16* name, const wchar16* ext) {
    if (name == nullptr) return;
    if (ext != nullptr && *ext != 0) TrimFileName(name);
    wchar16* const component = LastComponent(name);
    wchar16* const place = RemoveBlanksBefore(ExtensionPlace(component), component);
    if (ext == nullptr) return;
    // A component that would become too long loses the last unit of its extension.
    const std::size_t length = platform::wcslen(ext);
    const auto before = static_cast<std::size_t>(place - component);
    if (before + length >= ComponentLimit) {
        strcpyn(place, ext, length);
    } else {
        std::memmove(place, ext, (length + 1) * sizeof(wchar16));
    }
}

void cFileSystemImpl::require_dos_extension(wchar16* name, FILETYPE type) {
    const wchar16* const extension = ExtensionOf(type);
    if (extension != nullptr) make_extension(name, extension);
}

void cFileSystemImpl::recommend_filename(wchar16* out, const wchar16* in, FILETYPE type) {
    if (out == nullptr || in == nullptr) return;
    WorkingName name;
    Recommend(*this, in, type, name);
    CopyPath(name, out, PathSize);
}

void cFileSystemImpl::recommend_table_filename(wchar16* out, const wchar16* in) {
    if (out == nullptr || in == nullptr) return;
    wchar16 asked[PathSize];
    CopyPath(in, asked, PathSize);
    WorkingName name;
    Recommend(*this, asked, ftTab, name);
    if (striequ(name, asked)) Recommend(*this, asked, ftDot, name);
    CopyPath(name, out, PathSize);
}

void cFileSystemImpl::splitfilename(wchar16* path, wchar16* nameOut) {
    if (path == nullptr) {
        if (nameOut != nullptr) *nameOut = 0;
        return;
    }
    wchar16* const name = LastComponent(path);
    if (nameOut != nullptr) {
        const std::size_t length = platform::wcslen(name);
        const wchar16* const dot = platform::wcsrchr(name, '.');
        const std::size_t beforeDot = dot != nullptr ? static_cast<std::size_t>(dot - name) : length;
        wchar16* end = CopyPart(name, beforeDot, NameLimit, nameOut);
        end = CopyPart(name + beforeDot, length - beforeDot, ExtensionLimit + 1, end);
        *end = 0;
    }
    *name = 0;
}

void cFileSystemImpl::path2something(const wchar16* path, wchar16* out, int size) {
    if (out == nullptr || size <= 0) return;
    if (path == nullptr) {
        *out = 0;
        return;
    }
    const wchar16* const name = LastComponent(path);
    const wchar16* const dot = platform::wcsrchr(name, '.');
    const std::size_t length = dot != nullptr ? static_cast<std::size_t>(dot - name) : platform::wcslen(name);
    wchar16* const end = CopyPart(name, length, std::min(static_cast<std::size_t>(size) - 1, NameLimit), out);
    *end = 0;
    make_extension(out, nullptr);
}

int cFileSystemImpl::level0mode_to_ourmode(int flags) {
    constexpr int creates = 0x100;
    constexpr int writes = 0x003;
    if ((flags & creates) != 0) return omCreate;
    return (flags & writes) != 0 ? omReadWrite : omRead;
}

const wchar16* file_extension(FILETYPE type) {
    return cFileSystem::Instance()->file_extension(type);
}

FILETYPE file_type(const wchar16* name) {
    return cFileSystem::Instance()->file_type(name);
}

bool munge_filename(FILETYPE type) {
    return cFileSystem::Instance()->munge_filename(type);
}

void make_extension(wchar16* name, const wchar16* ext) {
    cFileSystem::Instance()->make_extension(name, ext);
}

void require_dos_extension(wchar16* name, FILETYPE type) {
    cFileSystem::Instance()->require_dos_extension(name, type);
}

void recommend_filename(wchar16* out, const wchar16* in, FILETYPE type) {
    cFileSystem::Instance()->recommend_filename(out, in, type);
}

void recommend_table_filename(wchar16* out, const wchar16* in) {
    cFileSystem::Instance()->recommend_table_filename(out, in);
}

void splitfilename(wchar16* path, wchar16* nameOut) {
    cFileSystem::Instance()->splitfilename(path, nameOut);
}

void path2something(const wchar16* path, wchar16* out, int size) {
    cFileSystem::Instance()->path2something(path, out, size);
}

int level0mode_to_ourmode(int flags) {
    return cFileSystem::Instance()->level0mode_to_ourmode(flags);
}

}  // namespace Torvo
