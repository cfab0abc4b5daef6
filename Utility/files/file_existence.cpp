// Whether a file is there, and where.

#include <Utility/paths.h>

#include <Utility/files/file_names.h>
#include <Utility/files/file_system_impl.h>
#include <Utility/files/record_path.h>
#include <Utility/platform/platform.h>
#include <Utility/strings.h>

namespace Torvo {

namespace {

// A directory with a name in it; false if that is too long for a path.
bool Join(const wchar16* directory, const wchar16* name, wchar16 (&path)[PathSize + 1]) {
    concat_backslash(directory, path, PathSize);
    return AppendPath(name, path, PathSize);
}

}  // namespace

bool cFileSystemImpl::file_exists(const wchar16* name, FILETYPE type) {
    if (name == nullptr) return false;
    FileNameRec record;
    BuildNameRecord(name, type, &record);
    const RecordPath path(record);
    return !path.IsTooLong() && platform::_waccess(path.Text(), 0) == 0;
}

bool cFileSystemImpl::file_exists_anycase(const wchar16* name, FILETYPE type) {
    return file_exists(name, type);
}

bool cFileSystemImpl::search_for_file(wchar16* name, FILETYPE type) {
    if (name == nullptr) return false;
    wchar16 path[PathSize + 1];
    const auto takeIfFound = [&](const wchar16* directory) {
        if (!Join(directory, name, path) || !file_exists(path, type)) return false;
        CopyPath(path, name, PathSize);
        return true;
    };
    for (const wchar16* const directory : appDataPaths) {
        if (takeIfFound(directory)) return true;
    }
    return takeIfFound(programDirectory) || file_exists(name, type);
}

bool file_exists(const wchar16* name, FILETYPE type) {
    return cFileSystem::Instance()->file_exists(name, type);
}

bool file_exists_anycase(const wchar16* name, FILETYPE type) {
    return cFileSystem::Instance()->file_exists_anycase(name, type);
}

bool search_for_file(wchar16* name, FILETYPE type) {
    return cFileSystem::Instance()->search_for_file(name, type);
}

}  // namespace Torvo
