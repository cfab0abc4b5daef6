#include <Utility/platform/files.h>
#include <Utility/platform/posix/attribute_data.h>
#include <Utility/platform/posix/system_calls.h>
#include <Utility/platform/text.h>
#include <dirent.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Torvo::platform {

namespace {

using Text = std::basic_string_view<wchar16>;

// A walk: the directory, with its separator, and the names that the pattern matched, in order.
struct Walk {
    std::string directory;
    std::vector<wstring16> names;
    std::size_t next = 0;
};

struct Pattern {
    wstring16 directory;
    wstring16 name;
};

Pattern SplitPattern(Text pattern) {
    std::size_t name = pattern.find_last_of(ZUTEXT("\\/"));
    name = name == Text::npos ? 0 : name + 1;
    if (name == 0 && pattern.size() >= 2 && pattern[1] == ':') name = 2;
    return {wstring16(pattern.substr(0, name)), wstring16(pattern.substr(name))};
}

bool SameUnit(wchar16 a, wchar16 b) {
    return a == b || CharUpperW(a) == CharUpperW(b);
}

// Whether a name matches: on a difference, the last `*` before it takes one unit more.
bool Matches(Text name, Text pattern) {
    std::size_t at = 0;
    std::size_t star = Text::npos;
    std::size_t starTook = 0;
    for (std::size_t unit = 0; unit < name.size();) {
        if (at < pattern.size() && pattern[at] == '*') {
            star = at++;
            starTook = unit;
        } else if (at < pattern.size() && (pattern[at] == '?' || SameUnit(pattern[at], name[unit]))) {
            ++at;
            ++unit;
        } else if (star != Text::npos) {
            at = star + 1;
            unit = ++starTook;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', at) == Text::npos;
}

// 0 for `.`, 1 for `..`, 2 for every other name.
std::size_t Rank(Text name) {
    if (name == ZUTEXT(".")) return 0;
    return name == ZUTEXT("..") ? 1 : 2;
}

bool ComesBefore(const wstring16& a, const wstring16& b) {
    if (Rank(a) != Rank(b)) return Rank(a) < Rank(b);
    const auto [inA, inB] = std::mismatch(a.begin(), a.end(), b.begin(), b.end(), SameUnit);
    if (inA != a.end() && inB != b.end()) return CharUpperW(*inA) < CharUpperW(*inB);
    if (a.size() != b.size()) return a.size() < b.size();
    return a < b;
}

struct CloseDirectory {
    void operator()(DIR* directory) const {
        const int kept = errno;
        ::closedir(directory);
        errno = kept;
    }
};

// Whether a name on disk can be shown. One with a separator of paths in it would be taken for a path, and could lead
// anywhere.
bool IsShown(Text name) {
    return name.find('\\') == Text::npos;
}

// The names in a directory that match; false with errno.
bool ReadNames(const std::string& directory, Text pattern, std::vector<wstring16>* names) {
    std::unique_ptr<DIR, CloseDirectory> open;
    const int opened = SystemCall([&] {
        open.reset(::opendir(directory.c_str()));
        return open != nullptr ? 0 : -1;
    });
    if (opened != 0) return false;
    for (;;) {
        const dirent* entry = nullptr;
        const int read = SystemCall([&] {
            errno = 0;
            entry = ::readdir(open.get());
            return entry != nullptr || errno == 0 ? 0 : -1;
        });
        if (read != 0) return false;
        if (entry == nullptr) return true;
        wstring16 name = NameFromUtf8(entry->d_name);
        if (IsShown(name) && Matches(name, pattern)) names->push_back(std::move(name));
    }
}

// What a link that leads nowhere shows is its own.
bool EntryStatus(const std::string& path, struct stat* status) {
    return StatusOf(path, status) || SystemCall([&] { return ::lstat(path.c_str(), status); }) == 0;
}

void FillData(const wstring16& name, const struct stat& status, WIN32_FIND_DATAW* data) {
    const WIN32_FILE_ATTRIBUTE_DATA known = AttributeDataOf(status);
    *data = {};
    data->dwFileAttributes = known.dwFileAttributes;
    data->ftCreationTime = known.ftCreationTime;
    data->ftLastAccessTime = known.ftLastAccessTime;
    data->ftLastWriteTime = known.ftLastWriteTime;
    data->nFileSizeHigh = known.nFileSizeHigh;
    data->nFileSizeLow = known.nFileSizeLow;
    const std::size_t length = std::min(name.size(), std::size(data->cFileName) - 1);
    std::copy_n(name.begin(), length, data->cFileName);
}

// The next entry that is still there; false at the end.
bool NextEntry(Walk& walk, WIN32_FIND_DATAW* data) {
    while (walk.next < walk.names.size()) {
        const wstring16& name = walk.names[walk.next++];
        struct stat status;
        if (EntryStatus(walk.directory + Utf8FromName(name), &status)) {
            FillData(name, status, data);
            return true;
        }
    }
    return false;
}

void* Failed(uint32 error) {
    SetLastError(error);
    return InvalidFindHandle();
}

uint32 DirectoryError() {
    return errno == ENOENT ? ERROR_PATH_NOT_FOUND : faults::LastErrorOf(errno);
}

void* StartWalk(const wchar16* pattern, WIN32_FIND_DATAW* data) {
    Pattern parts = SplitPattern(pattern);
    if (parts.name.empty()) return Failed(ERROR_FILE_NOT_FOUND);
    if (parts.name == ZUTEXT("*.*")) parts.name.resize(1);
    const auto native = NativePath(parts.directory);
    if (!native) return Failed(ERROR_PATH_NOT_FOUND);
    auto walk = std::make_unique<Walk>();
    walk->directory = native->empty() ? "./" : *native;
    if (!ReadNames(walk->directory, parts.name, &walk->names)) return Failed(DirectoryError());
    std::sort(walk->names.begin(), walk->names.end(), ComesBefore);
    if (!NextEntry(*walk, data)) return Failed(ERROR_FILE_NOT_FOUND);
    return walk.release();
}

// Whether a handle may be that of a walk; false with the last error.
bool IsWalk(const void* handle) {
    if (handle != nullptr && handle != InvalidFindHandle()) return true;
    SetLastError(ERROR_INVALID_HANDLE);
    return false;
}

// Runs a body that may find memory short, and leaves errno alone.
template <typename Result, typename Body>
Result Guarded(Result failure, Body body) {
    const int kept = errno;
    Result result = failure;
    try {
        result = body();
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    }
    errno = kept;
    return result;
}

}  // namespace

void* FindFirstFileW(const wchar16* pattern, WIN32_FIND_DATAW* data) {
    return Guarded(InvalidFindHandle(), [&] { return StartWalk(pattern, data); });
}

bool FindNextFileW(void* handle, WIN32_FIND_DATAW* data) {
    if (!IsWalk(handle)) return false;
    return Guarded(false, [&] {
        const bool found = NextEntry(*static_cast<Walk*>(handle), data);
        if (!found) SetLastError(ERROR_NO_MORE_FILES);
        return found;
    });
}

bool FindClose(void* handle) {
    if (!IsWalk(handle)) return false;
    delete static_cast<Walk*>(handle);
    return true;
}

}  // namespace Torvo::platform
