// Operations on whole files: removing, renaming, copying, time stamps; and the calls that take a path.

#include <Utility/bounded_copy.h>
#include <Utility/errors/raise.h>
#include <Utility/file_cache.h>
#include <Utility/file_io.h>
#include <Utility/files/file_system_impl.h>
#include <Utility/files/record_path.h>
#include <Utility/memory_blocks.h>
#include <Utility/platform/platform.h>
#include <Utility/strings.h>

#include <array>
#include <memory>
#include <new>

namespace Torvo {

namespace {

constexpr uint64 CopyBlockSize = 8192;
constexpr uint32 CopyPieceSize = 4096;

using Path = std::array<wchar16, PathSize>;

Path LocalCopy(const wchar16* path) {
    Path copy;
    strcpyn(copy.data(), path, PathSize);
    return copy;
}

// The path of a registered file; false if it is too long to be one.
bool WholePathOf(const FileEntry& entry, Path* path) {
    const RecordPath whole(*entry.name);
    if (whole.IsTooLong()) return false;
    *path = LocalCopy(whole.Text());
    return true;
}

// Copies from where one descriptor stands to where another stands, up to the end; false if something could not be read
// or written.
bool CopyDescriptor(int from, int to, void* block) {
    for (;;) {
        const int read = platform::_read(from, block, CopyPieceSize);
        if (read <= 0) return read == 0;
        if (platform::_write(to, block, static_cast<uint32>(read)) != read) return false;
    }
}

// Writes the first byte of an open stream again. False if there is none, or it cannot be written.
bool RewriteFirstByte(platform::Stream* stream) {
    char first = 0;
    if (platform::fread(&first, 1, 1, stream) != 1 || platform::_fseeki64(stream, 0, 0) != 0) return false;
    return platform::fwrite(&first, 1, 1, stream) == 1 && platform::fflush(stream) == 0;
}

}  // namespace

bool cFileSystemImpl::fileremove(int file) {
    FileEntry* const entry = FindEntry(file);
    if (entry == nullptr) return false;
    ReallyClose(*entry);
    Path path;
    return WholePathOf(*entry, &path) && platform::_wremove(path.data()) == 0;
}

// Gives a file a temporary name beside it.
bool cFileSystemImpl::SetAside(int file, wchar16* temporaryName) {
    FileEntry* const entry = FindEntry(file);
    if (entry == nullptr) return false;
    ReallyClose(*entry);
    Path path;
    if (!WholePathOf(*entry, &path)) return false;
    const uint32 attributes = platform::GetFileAttributesW(path.data());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return false;
    tempname(temporaryName, entry->name->directory);
    return rename2(path.data(), temporaryName) == 0;
}

bool cFileSystemImpl::group_fileremove(int* files, int count) {
    if (count <= 0) return true;
    if (files == nullptr) return false;
    const std::unique_ptr<Path[]> temporaryNames(new (std::nothrow) Path[static_cast<std::size_t>(count)]);
    if (temporaryNames == nullptr) return false;
    int setAside = 0;
    while (setAside < count && SetAside(files[setAside], temporaryNames[static_cast<std::size_t>(setAside)].data())) {
        ++setAside;
    }
    if (setAside == count) {
        for (int index = 0; index < count; ++index) remove2(temporaryNames[static_cast<std::size_t>(index)].data());
        return true;
    }
    while (setAside > 0) {
        --setAside;
        Path path;
        if (!WholePathOf(*FindEntry(files[setAside]), &path)) continue;
        rename2(temporaryNames[static_cast<std::size_t>(setAside)].data(), path.data());
    }
    return false;
}

bool cFileSystemImpl::renamefile(int* file, const wchar16* name, FILETYPE type) {
    FileEntry* const entry = file != nullptr && name != nullptr ? FindEntry(*file) : nullptr;
    if (entry == nullptr) return false;
    // What is dirty goes with the old handle: it must be on disk before.
    cFileCache* const cache = cFileCache::Instance();
    if (cache != nullptr && !cache->Flush(*file)) return false;
    ReallyClose(*entry);
    Path newName = LocalCopy(name);
    resolve_path_reference(newName.data(), *file);
    const FILETYPE newType = type != ftNone ? type : entry->name->type;
    if (is_file_registered(newName.data(), newType) != 0) {
        RaiseError(ERRORLEVEL_ERROR, 6, 48, newName.data());
        return false;
    }
    const int renamed = register_file(newName.data(), newType, true);
    if (renamed == 0) return false;
    if (!MoveFileTo(*file, renamed, newName.data())) {
        unregister_file(renamed);
        return false;
    }
    unregister_file(*file);
    *file = renamed;
    return true;
}

// Renames a closed file on disk to the path of another handle, or copies it there and removes it.
bool cFileSystemImpl::MoveFileTo(int from, int to, const wchar16* newName) {
    Path oldPath;
    Path newPath;
    if (!WholePathOf(*FindEntry(from), &oldPath) || !WholePathOf(*FindEntry(to), &newPath)) {
        RaiseError(ERRORLEVEL_ERROR, 5001, 9985, newName);
        return false;
    }
    if (file_exists(newPath.data(), FindEntry(to)->name->type)) {
        RaiseError(ERRORLEVEL_ERROR, 6, 48, newName);
        return false;
    }
    // Two names that differ in case alone count as one. Where both can be there, the file is copied.
    const bool isRenamed = !striequ(oldPath.data(), newPath.data()) && rename2(oldPath.data(), newPath.data()) == 0;
    if (isRenamed) return true;
    if (!filecopy(from, to, false)) return false;
    if (fileremove(from)) return true;
    RaiseError(ERRORLEVEL_ERROR, 5, 47, oldPath.data());
    fileremove(to);
    return false;
}

bool cFileSystemImpl::filecopy(int from, int to, bool append) {
    void* block = nullptr;
    if (!falloc_(CopyBlockSize, &block, false, false)) return false;
    const bool copied = CopyThrough(block, from, to, append);
    ffree_(&block);
    return copied;
}

bool cFileSystemImpl::CopyThrough(void* block, int from, int to, bool append) {
    cFileCache* const cache = cFileCache::Instance();
    // Without what is dirty the copy would not be one.
    if (cache != nullptr && !cache->Flush(from)) {
        const FileEntry* const target = FindEntry(to);
        if (target != nullptr) RaiseError(ERRORLEVEL_ERROR, 7, 49, target->name->name);
        return false;
    }
    if (fileopen(from, omRead, nullptr) == -1) return false;
    if (fileopen(to, append ? omReadWrite : omCreate, nullptr) == -1) {
        close2(from);
        return false;
    }
    // The target is written around the cache: what that has for the file goes to disk before, and is stale afterwards.
    bool copied = cache == nullptr || cache->Flush(to);
    if (copied) {
        const int source = GetFileFD(from);
        const int target = GetFileFD(to);
        // Without its position, what is appended would overwrite the target from its start.
        const bool positioned =
            platform::_lseeki64(source, 0, 0) != -1 && platform::_lseeki64(target, 0, append ? 2 : 0) != -1;
        // A file has its own content already.
        copied = positioned && (source == target || CopyDescriptor(source, target, block));
        if (cache != nullptr) cache->Forget(to);
        const int64 length = platform::_lseeki64(target, 0, 2);
        if (length != -1) FindEntry(to)->length = length;
    }
    close2(to);
    if (!copied) RaiseError(ERRORLEVEL_ERROR, 7, 49, FindEntry(to)->name->name);
    close2(from);
    return copied;
}

bool cFileSystemImpl::touch(int file) {
    FILE* const stream = ffileopen(AsStreamHandle(file), omReadWrite, nullptr);
    if (stream == nullptr) return false;
    const bool rewritten = RewriteFirstByte(GetFilePtr(stream));
    fclose2(stream);
    FileEntry* const entry = FindEntry(file);
    ReallyClose(*entry);
    if (rewritten) return true;
    // An empty file has nothing to write again.
    if (!file_set_timestamp(file)) return false;
    RememberLastWrite(*entry);
    return true;
}

int64 cFileSystemImpl::file_get_timestamp(int file) {
    const FileEntry* const entry = FindEntry(file);
    Path path;
    if (entry == nullptr || !WholePathOf(*entry, &path)) return 0;
    struct _stat64 status;
    return stat2(path.data(), &status) == 0 ? static_cast<int64>(status.st_mtime) : 0;
}

bool cFileSystemImpl::file_set_timestamp(int file) {
    const FileEntry* const entry = FindEntry(file);
    Path path;
    return entry != nullptr && WholePathOf(*entry, &path) && platform::_wutime64(path.data(), nullptr) == 0;
}

int cFileSystemImpl::rename2(const wchar16* from, const wchar16* to) {
    if (from == nullptr || to == nullptr) return -1;
    return platform::_wrename(from, to);
}

int cFileSystemImpl::remove2(const wchar16* path) {
    return path != nullptr ? platform::_wremove(path) : -1;
}

int cFileSystemImpl::access2(const wchar16* path, int mode) {
    return path != nullptr ? platform::_waccess(path, mode) : -1;
}

int cFileSystemImpl::stat2(const wchar16* path, struct _stat64* status) {
    return path != nullptr && status != nullptr ? platform::_wstat64(path, status) : -1;
}

bool fileremove(int file) {
    return cFileSystem::Instance()->fileremove(file);
}

bool group_fileremove(int* files, int count) {
    return cFileSystem::Instance()->group_fileremove(files, count);
}

bool renamefile(int* file, const wchar16* name, FILETYPE type) {
    return cFileSystem::Instance()->renamefile(file, name, type);
}

bool filecopy(int from, int to, bool append) {
    return cFileSystem::Instance()->filecopy(from, to, append);
}

bool touch(int file) {
    return cFileSystem::Instance()->touch(file);
}

int64 file_get_timestamp(int file) {
    return cFileSystem::Instance()->file_get_timestamp(file);
}

bool file_set_timestamp(int file) {
    return cFileSystem::Instance()->file_set_timestamp(file);
}

int rename2(const wchar16* from, const wchar16* to) {
    return cFileSystem::Instance()->rename2(from, to);
}

int remove2(const wchar16* path) {
    return cFileSystem::Instance()->remove2(path);
}

int access2(const wchar16* path, int mode) {
    return cFileSystem::Instance()->access2(path, mode);
}

int stat2(const wchar16* path, struct _stat64* status) {
    return cFileSystem::Instance()->stat2(path, status);
}

}  // namespace Torvo
