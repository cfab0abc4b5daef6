// The table of registered files: handles, names, character sets.

#include <Utility/files.h>

#include <Utility/bounded_copy.h>
#include <Utility/errors/raise.h>
#include <Utility/file_cache.h>
#include <Utility/files/file_system_impl.h>
#include <Utility/files/record_path.h>
#include <Utility/memory_blocks.h>
#include <Utility/platform/platform.h>
#include <Utility/strings.h>

#include <algorithm>
#include <cstring>
#include <new>

namespace Torvo {

namespace {

constexpr int32 TableStep = 100;

bool SameFile(const FileNameRec& a, const FileNameRec& b) {
    return striequ(a.directory, b.directory) && striequ(a.name, b.name) &&
           (a.type == b.type || a.type == ftNone || b.type == ftNone);
}

// The process's current directory with a separator at its end; empty if the system does not tell.
void ProcessDirectory(wchar16* out) {
    wchar16 directory[PathSize];
    const uint32 length = platform::GetCurrentDirectoryW(static_cast<uint32>(PathSize - 1), directory);
    if (length == 0 || length >= PathSize - 1) directory[0] = 0;
    concat_backslash(directory, out, PathSize);
}

// Makes a memory block hold at least `wanted` bytes; one that has to grow becomes twice as large if there is memory for
// that. On failure the old block stays.
bool GrowBlock(void** block, uint64 wanted) {
    if (wanted <= memSize(*block)) return true;
    void* larger = *block;
    if (!GetMem_(std::max(wanted, 2 * memSize(larger)), &larger, true)) {
        larger = *block;
        if (!GetMem_(wanted, &larger, true)) return false;
    }
    *block = larger;
    return true;
}

}  // namespace

void cFileSystemImpl::BuildNameRecord(const wchar16* path, FILETYPE type, FileNameRec* record) {
    strcpyn(record->directory, path, PathSize);
    qualify_filename(record->directory);
    splitfilename(record->directory, record->name);
    if (munge_filename(type)) make_extension(record->name, file_extension(type));
    wchar16 directory[PathSize];
    strcpyn(directory, record->directory, PathSize);
    concat_backslash(directory, record->directory, PathLimit);
    record->type = type;
}

// The lowest entry with that name, or -1.
int32 cFileSystemImpl::FindRegistered(const FileNameRec& name) const {
    return names.FindFirst(NameDigest(name), [&](int32 index) { return SameFile(*table[index].name, name); });
}

bool cFileSystemImpl::GrowTable() {
    const int32 larger = tableSize + TableStep;
    try {
        freeSlots.Reserve(larger);
        names.Reserve(larger);
        idle.Reserve(larger);
    } catch (const std::bad_alloc&) {
        return false;
    }
    void* block = table;
    if (!GrowBlock(&block, sizeof(FileEntry) * static_cast<uint64>(larger))) return false;
    table = static_cast<FileEntry*>(block);
    std::memset(table + tableSize, 0, sizeof(FileEntry) * TableStep);
    tableSize = larger;
    return true;
}

// The free entry of the lowest index, cleared but not yet taken; null if memory is short.
FileEntry* cFileSystemImpl::TakeFreeEntry() {
    const int32 index = freeSlots.Lowest();
    if (index >= tableSize && !GrowTable()) return nullptr;
    table[index] = FileEntry();
    return &table[index];
}

int cFileSystemImpl::register_file(const wchar16* name, FILETYPE type, bool unique) {
    if (name == nullptr) return 0;
    FileNameRec* const record = new (std::nothrow) FileNameRec;
    if (record == nullptr) return 0;
    BuildNameRecord(name, type, record);
    if (unique && FindRegistered(*record) != -1) {
        RaiseError(ERRORLEVEL_ERROR, 8, 50, record->name);
        delete record;
        return 0;
    }
    FileEntry* const entry = TakeFreeEntry();
    if (entry == nullptr) {
        delete record;
        return 0;
    }
    freeSlots.TakeLowest();
    names.Insert(IndexOf(*entry), NameDigest(*record));
    entry->name = record;
    entry->fd = -1;
    entry->flags = FileEntry::InUse;
    entry->charset = system_charset();
    entry->serial = ++registrations;
    return HandleOf(*entry);
}

int cFileSystemImpl::register_file_variant(int base, const wchar16* name, FILETYPE type) {
    if (base == 0) return name == nullptr ? fileno2(tempfile(nullptr)) : register_file(name, type, true);
    if (FindEntry(base) == nullptr) return 0;
    wchar16 path[PathSize];
    fhandle2path(base, path);
    if (*path == 0) return 0;
    if (munge_filename(type)) return register_file(path, type, true);
    wchar16 variant[2 * PathSize];
    recommend_filename(variant, path, type);
    if (platform::wcslen(variant) > PathLimit) return 0;
    return register_file(variant, type, true);
}

int cFileSystemImpl::is_file_registered(const wchar16* name, FILETYPE type) {
    if (name == nullptr || tableSize == 0) return 0;
    FileNameRec record;
    BuildNameRecord(name, type, &record);
    const int32 index = FindRegistered(record);
    return index == -1 ? 0 : index + FirstHandle;
}

void cFileSystemImpl::unregister_file(int file) {
    FileEntry* const entry = FindEntry(file);
    if (entry == nullptr) return;
    if (cFileCache* const cache = cFileCache::Instance()) cache->Forget(file);
    ReallyClose(*entry);
    DropStorage(*entry);
    ffree_(&entry->buffer);
    const int32 index = IndexOf(*entry);
    names.Remove(index);
    freeSlots.GiveBack(index);
    delete entry->name;
    *entry = FileEntry();
}

FILE* cFileSystemImpl::fregister_file(const wchar16* name, FILETYPE type, bool unique) {
    return AsStreamHandle(register_file(name, type, unique));
}

void cFileSystemImpl::funregister_file(FILE* file) {
    unregister_file(fileno2(file));
}

int cFileSystemImpl::fileno2(FILE* file) {
    return AsFileHandle(file);
}

int cFileSystemImpl::GetFileFD(int file) {
    const FileEntry* const entry = FindEntry(file);
    return entry != nullptr ? entry->fd : -1;
}

FILE* cFileSystemImpl::GetFilePtr(const FILE* file) {
    const FileEntry* const entry = FindEntry(AsFileHandle(file));
    return entry != nullptr ? entry->stream : nullptr;
}

eOpenMode cFileSystemImpl::filehandle_get_openmode(int file) {
    const FileEntry* const entry = FindEntry(file);
    return entry != nullptr ? entry->mode : omRead;
}

void cFileSystemImpl::fhandle2name(int file, wchar16* out) {
    if (out == nullptr) return;
    const FileEntry* const entry = FindEntry(file);
    strcpyn(out, entry != nullptr ? entry->name->name : ZUTEXT(""), PathSize);
}

void cFileSystemImpl::fhandle2dir(int file, wchar16* out) {
    if (out == nullptr) return;
    const FileEntry* const entry = FindEntry(file);
    strcpyn(out, entry != nullptr ? entry->name->directory : ZUTEXT(""), PathSize);
}

void cFileSystemImpl::fhandle2path(int file, wchar16* out) {
    if (out == nullptr) return;
    strcpyn(out, ZUTEXT(""), PathSize);
    const FileEntry* const entry = FindEntry(file);
    if (entry == nullptr) return;
    const RecordPath path(*entry->name);
    if (!path.IsTooLong()) strcpyn(out, path.Text(), PathSize);
}

void cFileSystemImpl::fhandle2partialpath(int file, wchar16* out, int base) {
    if (out == nullptr) return;
    fhandle2path(file, out);
    wchar16 start[PathSize + 1];
    if (base == 0) {
        ProcessDirectory(start);
    } else {
        fhandle2dir(base, start);
    }
    const uint64 length = platform::wcslen(start);
    if (!strniequ(out, start, length)) return;
    std::memmove(out, out + length, sizeof(wchar16) * (platform::wcslen(out + length) + 1));
}

ZUCHARSET cFileSystemImpl::file_get_charset(int file) {
    const FileEntry* const entry = FindEntry(file);
    return entry != nullptr ? entry->charset : csUnknown;
}

ZUCHARSET cFileSystemImpl::file_get_charset(FILE* file) {
    return file_get_charset(fileno2(file));
}

void cFileSystemImpl::file_put_charset(int file, ZUCHARSET charset) {
    if (FileEntry* const entry = FindEntry(file)) entry->charset = charset;
}

void cFileSystemImpl::file_put_charset(FILE* file, ZUCHARSET charset) {
    file_put_charset(fileno2(file), charset);
}

bool cFileSystemImpl::EntryIsConsistent(int32 index) const {
    const FileEntry& entry = table[index];
    if (!entry.IsInUse()) return entry.name == nullptr && freeSlots.IsFree(index) && !idle.Contains(index);
    const int32 found =
        names.FindFirst(NameDigest(*entry.name), [index](int32 candidate) { return candidate == index; });
    const bool isIdle = entry.IsOpen() && entry.References() == 0;
    return found == index && !freeSlots.IsFree(index) && idle.Contains(index) == isIdle &&
           (entry.fd == -1 || entry.stream == nullptr);
}

bool cFileSystemImpl::InvariantsHold() const {
    int32 open = 0;
    for (int32 index = 0; index < tableSize; ++index) {
        if (!EntryIsConsistent(index)) return false;
        if (table[index].IsInUse() && table[index].IsOpen()) ++open;
    }
    return open == openCount && static_cast<std::size_t>(idleCount) == idle.Count() && idle.IsSound();
}

int register_file(const wchar16* name, FILETYPE type, bool unique) {
    return cFileSystem::Instance()->register_file(name, type, unique);
}

int register_nonunique_file(const wchar16* name, FILETYPE type) {
    return cFileSystem::Instance()->register_file(name, type, false);
}

int register_file_variant(int base, const wchar16* name, FILETYPE type) {
    return cFileSystem::Instance()->register_file_variant(base, name, type);
}

int is_file_registered(const wchar16* name, FILETYPE type) {
    return cFileSystem::Instance()->is_file_registered(name, type);
}

void unregister_file(int file) {
    cFileSystem::Instance()->unregister_file(file);
}

FILE* fregister_file(const wchar16* name, FILETYPE type, bool unique) {
    return cFileSystem::Instance()->fregister_file(name, type, unique);
}

FILE* fregister_nonunique_file(const wchar16* name, FILETYPE type) {
    return cFileSystem::Instance()->fregister_file(name, type, false);
}

void funregister_file(FILE* file) {
    cFileSystem::Instance()->funregister_file(file);
}

int GetFileFD(int file) {
    return cFileSystem::Instance()->GetFileFD(file);
}

FILE* GetFilePtr(const FILE* file) {
    return cFileSystem::Instance()->GetFilePtr(file);
}

int fileno2(FILE* file) {
    return cFileSystem::Instance()->fileno2(file);
}

eOpenMode filehandle_get_openmode(int file) {
    return cFileSystem::Instance()->filehandle_get_openmode(file);
}

void fhandle2name(int file, wchar16* out) {
    cFileSystem::Instance()->fhandle2name(file, out);
}

void fhandle2dir(int file, wchar16* out) {
    cFileSystem::Instance()->fhandle2dir(file, out);
}

void fhandle2path(int file, wchar16* out) {
    cFileSystem::Instance()->fhandle2path(file, out);
}

void fhandle2partialpath(int file, wchar16* out, int base) {
    cFileSystem::Instance()->fhandle2partialpath(file, out, base);
}

ZUCHARSET file_get_charset(int file) {
    return cFileSystem::Instance()->file_get_charset(file);
}

ZUCHARSET file_get_charset(FILE* file) {
    return cFileSystem::Instance()->file_get_charset(file);
}

void file_put_charset(int file, ZUCHARSET charset) {
    cFileSystem::Instance()->file_put_charset(file, charset);
}

void file_put_charset(FILE* file, ZUCHARSET charset) {
    cFileSystem::Instance()->file_put_charset(file, charset);
}

}  // namespace Torvo
