// The budget of open files: opening, sharing, releasing, and closing what nobody needs when handles run out.
//
// A registered file is closed; or open with references; or open and idle, without a reference. OpenEntry leads from
// closed or idle to open, Release from open to idle or closed, and ReallyClose, by way of CloseOldest and CloseAllIdle,
// from idle to closed. `openCount` counts the files that are open, `idleCount` and the idle order those that are idle.

#include <Utility/clock.h>
#include <Utility/errors/raise.h>
#include <Utility/file_cache.h>
#include <Utility/files.h>
#include <Utility/files/file_cache_positions.h>
#include <Utility/files/file_system_impl.h>
#include <Utility/files/record_path.h>
#include <Utility/memory_blocks.h>
#include <Utility/platform/platform.h>

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace Torvo {

namespace {

struct OpenWay {
    int flags;
    int share;
    const wchar16* streamMode;
};

OpenWay WayOf(eOpenMode mode) {
    switch (mode) {
        case omRead:
            return {platform::OpenBinary | platform::OpenReadOnly, platform::ShareDenyWrite, ZUTEXT("rb")};
        case omReadWrite:
            return {platform::OpenBinary | platform::OpenReadWrite, platform::ShareDenyBoth, ZUTEXT("r+b")};
        case omCreate:
            return {platform::OpenBinary | platform::OpenReadWrite | platform::OpenCreate | platform::OpenTruncate,
                    platform::ShareDenyBoth, ZUTEXT("w+b")};
    }
    return {platform::OpenBinary | platform::OpenReadOnly, platform::ShareDenyWrite, nullptr};
}

bool AreKnown(const WIN32_FILE_ATTRIBUTE_DATA& attributes) {
    return attributes.dwFileAttributes != INVALID_FILE_ATTRIBUTES;
}

// Opens a file: 0 with what is known of it, or an error number.
int TryToOpen(const RecordPath& path, eOpenMode mode, platform::OpenedFile* opened) {
    if (path.IsTooLong()) return ENOENT;
    const OpenWay way = WayOf(mode);
    const int error = platform::OpenWithAttributes(path.Text(), way.flags, way.share,
                                                   platform::PermitRead | platform::PermitWrite, opened);
    if (error != 0 || mode == omRead || !AreKnown(opened->attributes)) return error;
    if ((opened->attributes.dwFileAttributes & FILE_ATTRIBUTE_READONLY) == 0) return 0;
    platform::_close(opened->descriptor);
    return EACCES;
}

uint64 LastWriteIn(const WIN32_FILE_ATTRIBUTE_DATA& attributes) {
    if (!AreKnown(attributes)) return FileEntry::UnknownTime;
    return uint64{attributes.ftLastWriteTime.dwHighDateTime} << 32 | attributes.ftLastWriteTime.dwLowDateTime;
}

// The time of a file's last change; FileEntry::UnknownTime if it cannot be had.
uint64 LastWriteOf(const wchar16* path) {
    WIN32_FILE_ATTRIBUTE_DATA attributes;
    return platform::GetFileAttributesExW(path, 0, &attributes) ? LastWriteIn(attributes) : FileEntry::UnknownTime;
}

// A stream on a descriptor that was opened in a mode; null, with the descriptor closed, if there is none to be had.
platform::Stream* StreamOn(int descriptor, eOpenMode mode) {
    const wchar16* const streamMode = WayOf(mode).streamMode;
    platform::Stream* const stream = streamMode != nullptr ? platform::_wfdopen(descriptor, streamMode) : nullptr;
    if (stream == nullptr) platform::_close(descriptor);
    return stream;
}

// The length of a file that was just opened, and whose descriptor stands at its start; -1 if it cannot be told.
int64 LengthOf(const platform::OpenedFile& opened) {
    if (opened.length != -1) return opened.length;
    const int64 length = platform::_lseeki64(opened.descriptor, 0, 2);
    if (length != -1) platform::_lseeki64(opened.descriptor, 0, 0);
    return length;
}

// Whether a stored time counts as one that the file had when it was closed here.
bool WasClosedBefore(uint64 lastWrite) {
    return static_cast<uint32>(lastWrite) != 0 && lastWrite >> 32 != 0;
}

void RaiseErrorWithNumber(int32 number, int32 resourceId, int value, const wchar16* name) {
    wchar16 text[12];
    platform::swprintf(text, std::size(text), ZUTEXT("%d"), value);
    RaiseError(ERRORLEVEL_ERROR, number, resourceId, text, name);
}

}  // namespace

bool DefaultRetry(eOpenMode /*mode*/, const wchar16* /*name*/, int64& state) {
    if (state == 0) state = time_100();
    const int64 waited = time_100() - state;  // negative when the clock has begun anew
    if (waited >= 0 && waited < GetFileAccessRetryTime()) return true;
    state = 0;
    return false;
}

// Opening ---------------------------------------------------------------------------------------------------------

int cFileSystemImpl::OpenEntry(int file, eOpenMode mode, bool stream, int* changed) {
    FileEntry* const entry = FindEntry(file);
    if (entry == nullptr) return -1;
    if (entry->IsOpen()) {
        if (OpenServes(*entry, mode, stream)) return AddReference(*entry);
        if (entry->References() != 0) return Upgrade(file, mode, stream, changed);
        ReallyClose(*entry);
    }
    return OpenClosed(file, mode, stream, changed);
}

// Whether a file as it is open serves one who wants it so.
bool cFileSystemImpl::OpenServes(const FileEntry& entry, eOpenMode mode, bool stream) const {
    if (entry.IsStream() != stream) return false;
    return entry.mode == mode || entry.mode == omCreate || (entry.mode == omReadWrite && mode == omRead);
}

int cFileSystemImpl::AddReference(FileEntry& entry) {
    const uint32 references = entry.References();
    if (references == FileEntry::ReferenceMask) return -1;
    if (references == 0) MakeBusy(entry);
    entry.position = 0;
    entry.SetReferences(references + 1);
    if (entry.stream != nullptr) platform::_fseeki64(entry.stream, 0, 0);
    return HandleOf(entry);
}

// Opens a file that somebody holds in another way, where that is allowed: from reading to reading and writing.
int cFileSystemImpl::Upgrade(int file, eOpenMode mode, bool stream, int* changed) {
    FileEntry* entry = FindEntry(file);
    if (entry->mode != omRead || mode != omReadWrite || entry->IsStream() != stream) {
        RaiseError(ERRORLEVEL_ERROR, 9, 51, entry->name->name);
        return -1;
    }
    const uint32 references = entry->References();
    if (references == FileEntry::ReferenceMask) return -1;
    const uint64 serial = entry->serial;
    entry->SetReferences(1);
    ReallyClose(*entry);
    const bool upgraded = OpenClosed(file, mode, stream, changed) != -1;
    // The retry callback may have registered and unregistered files, at each of the two.
    if (!upgraded && FindRegistration(file, serial) != nullptr) OpenEntry(file, omRead, stream, changed);
    entry = FindRegistration(file, serial);
    if (entry == nullptr) return -1;
    entry->SetReferences(upgraded ? references + 1 : references);
    return upgraded ? file : -1;
}

int cFileSystemImpl::OpenClosed(int file, eOpenMode mode, bool stream, int* changed) {
    FileEntry* entry = FindEntry(file);
    const uint64 serial = entry->serial;
    entry->flags = (entry->flags & ~FileEntry::StreamWorld) | (stream ? FileEntry::StreamWorld : 0);
    entry->mode = mode;
    entry->age = 1;
    idle.AgeAll();
    if (cFileCache* const cache = cFileCache::Instance(); mode == omCreate && cache != nullptr) cache->Forget(file);

    platform::OpenedFile opened;
    if (!OpenDescriptor(file, mode, &opened)) return -1;
    cFileCache* const cache = cFileCache::Instance();  // the retry callback may have put another in its place
    entry = FindRegistration(file, serial);
    if (entry == nullptr || entry->IsOpen()) {  // the retry callback has meddled with this very file
        platform::_close(opened.descriptor);
        return -1;
    }
    platform::Stream* const openedStream = stream ? StreamOn(opened.descriptor, mode) : nullptr;
    if (stream && openedStream == nullptr) return -1;
    const uint64 lastWrite = LastWriteIn(opened.attributes);
    // What is dirty of a file that somebody else has changed must not be written over it: it is dropped as long as the
    // cache cannot reach the file. Where a time is missing, nobody can tell, and it is written.
    const bool timesAreKnown = lastWrite != FileEntry::UnknownTime && entry->lastWrite != FileEntry::UnknownTime;
    if (timesAreKnown) LookForChanges(*entry, lastWrite, changed);
    if (stream) {
        // What is written through the stream does not pass the cache. What is dirty there goes to the disk before.
        if (mode != omRead && cache != nullptr) {
            entry->fd = opened.descriptor;
            cache->Forget(file);
            entry->fd = -1;
        }
        entry->stream = openedStream;
    } else {
        entry->fd = opened.descriptor;
        entry->cache = cache;
    }
    if (!timesAreKnown) {
        LookForChanges(*entry, lastWrite, changed);
        opened.length = -1;  // it may have grown by what was written
    }
    ++openCount;
    entry->SetReferences(1);
    if (stream) {
        platform::_fseeki64(openedStream, 0, 0);
        return file;
    }
    const int64 length = LengthOf(opened);
    if (length == -1) {  // without it the file would be cut by the first write
        if (mode != omCreate) RaiseErrorWithNumber(13, 55, errno, entry->name->name);
        ReallyClose(*entry);
        entry->SetReferences(0);
        return -1;
    }
    // What the last close could not write is part of the file still.
    const bool owes = entry->owesBytes && cache != nullptr;
    entry->length = owes ? std::max(length, EndOfDirtyBlocks(*cache, file)) : length;
    entry->position = 0;
    return file;
}

// Opens a file, for which others may be closed and which is tried for as long as the callback says; false with an error
// raised if it cannot be had.
bool cFileSystemImpl::OpenDescriptor(int file, eOpenMode mode, platform::OpenedFile* opened) {
    const RecordPath path(*FindEntry(file)->name);
    int64 retryState = 0;
    for (;;) {
        const int error = openCount >= maxFiles ? EMFILE : TryToOpen(path, mode, opened);
        if (error == 0) return true;
        if (!PrepareAnotherAttempt(file, mode, error, retryState)) return false;
    }
}

// Does what may help against the error of an open. False, with an error raised where there is one to raise, if nothing
// does.
bool cFileSystemImpl::PrepareAnotherAttempt(int file, eOpenMode mode, int error, int64& retryState) {
    // The number that the share conflicts of some networks come with.
    constexpr int NetworkAccessDenied = 64;

    const FileEntry* const entry = FindEntry(file);
    if (entry == nullptr) return false;
    const wchar16* const name = entry->name->name;
    switch (error) {
        case ENOENT:
        case ENOTDIR:
        case ENOSPC:
            RaiseError(ERRORLEVEL_ERROR, 5001, 9985, name);
            return false;
        case EEXIST:
            RaiseError(ERRORLEVEL_ERROR, 10, 52);
            return false;
        case ENFILE:
        case EMFILE:
            if (CloseOldest()) return true;
            RaiseError(ERRORLEVEL_ERROR, 14, 56, name);
            return false;
        case EACCES:
        case NetworkAccessDenied:
            if (mode == omCreate) return false;
            return MayRetry(*entry, mode, retryState);
        default:
            if (mode != omCreate) RaiseErrorWithNumber(13, 55, error, name);
            return false;
    }
}

// Asks the callback about an access that was denied. False, with an error raised unless the callback has unregistered
// the file, if it is not to be tried again.
bool cFileSystemImpl::MayRetry(const FileEntry& entry, eOpenMode mode, int64& retryState) {
    const FileNameRec record = *entry.name;  // the callback may unregister the file
    const int file = HandleOf(entry);
    const uint64 serial = entry.serial;
    if (retry != nullptr && retry(mode, record.name, retryState)) return FindRegistration(file, serial) != nullptr;
    RaiseError(ERRORLEVEL_ERROR, 4, 46, record.name);
    return false;
}

// Drops what the cache holds of a file that was changed since it was closed, as the time of its last change tells, and
// tells the caller.
void cFileSystemImpl::LookForChanges(FileEntry& entry, uint64 lastWrite, int* changed) {
    if (lastWrite != FileEntry::UnknownTime && lastWrite == entry.lastWrite) return;
    if (cFileCache* const cache = cFileCache::Instance()) cache->Forget(HandleOf(entry));
    if (changed != nullptr && WasClosedBefore(entry.lastWrite)) *changed |= 1;
}

// Closing ---------------------------------------------------------------------------------------------------------

void cFileSystemImpl::MakeIdle(FileEntry& entry) {
    ++idleCount;
    idle.Add(IndexOf(entry), entry.age);
}

void cFileSystemImpl::MakeBusy(FileEntry& entry) {
    --idleCount;
    entry.age = idle.Remove(IndexOf(entry));
}

int32 cFileSystemImpl::AgeOf(const FileEntry& entry) const {
    return idle.Contains(IndexOf(entry)) ? idle.AgeOf(IndexOf(entry)) : entry.age;
}

void cFileSystemImpl::ReallyClose(FileEntry& entry) {
    if (!entry.IsOpen()) return;
    CloseHandleOf(entry);
    if (entry.References() == 0) MakeBusy(entry);
    --openCount;
    entry.fd = -1;
    entry.stream = nullptr;
    ffree_(&entry.buffer);
}

// Gives the handle of an open file back to the system, and remembers the time of the file's last change.
void cFileSystemImpl::CloseHandleOf(FileEntry& entry) {
    if (entry.stream != nullptr) {
        platform::fclose(entry.stream);
    } else {
        // What another cache than the present one holds cannot be written now.
        cFileCache* const cache = cFileCache::Instance();
        const bool hasFlushed = cache == nullptr || cache->Flush(HandleOf(entry));
        entry.owesBytes = !hasFlushed || cache != entry.cache;
        platform::_close(entry.fd);
    }
    RememberLastWrite(entry);
}

void cFileSystemImpl::RememberLastWrite(FileEntry& entry) {
    entry.lastWrite = LastWriteOf(RecordPath(*entry.name).Text());
}

int cFileSystemImpl::Release(int file) {
    FileEntry* const entry = FindEntry(file);
    if (entry == nullptr) return -1;
    const uint32 references = entry->References();
    if (references == 0) {
        RaiseErrorWithNumber(11, 53, file, nullptr);
        return -1;
    }
    if (references > 1) {
        entry->SetReferences(references - 1);
        return 0;
    }
    const bool staysOpen = !closeReadOnly && entry->mode == omRead && entry->IsOpen();
    if (staysOpen) {
        MakeIdle(*entry);
    } else {
        ReallyClose(*entry);
    }
    entry->SetReferences(0);
    return 0;
}

// Closes the idle file of the greatest age, of equal ones that with the lowest handle. False if there is none.
bool cFileSystemImpl::CloseOldest() {
    const int32 oldest = idle.Oldest();
    if (oldest == -1) return false;
    ReallyClose(table[oldest]);
    return true;
}

void cFileSystemImpl::CloseAllIdle() {
    while (CloseOldest()) {
    }
}

// The operations --------------------------------------------------------------------------------------------------

int cFileSystemImpl::fileopen(int file, eOpenMode mode, int* changed) {
    return OpenEntry(file, mode, false, changed);
}

FILE* cFileSystemImpl::ffileopen(FILE* file, eOpenMode mode, int* changed) {
    const int opened = OpenEntry(fileno2(file), mode, true, changed);
    return opened != -1 ? AsStreamHandle(opened) : nullptr;
}

int cFileSystemImpl::close2(int file) {
    return Release(file);
}

int cFileSystemImpl::fclose2(FILE* file) {
    return Release(fileno2(file));
}

void cFileSystemImpl::really_close_all() {
    CloseAllIdle();
}

int fileopen(int file, eOpenMode mode, int* changed) {
    return cFileSystem::Instance()->fileopen(file, mode, changed);
}

FILE* ffileopen(FILE* file, eOpenMode mode, int* changed) {
    return cFileSystem::Instance()->ffileopen(file, mode, changed);
}

int close2(int file) {
    return cFileSystem::Instance()->close2(file);
}

int fclose2(FILE* file) {
    return cFileSystem::Instance()->fclose2(file);
}

void really_close_all() {
    cFileSystem::Instance()->really_close_all();
}

void really_close_next() {
    cFileSystem::Instance()->really_close_all();
}

}  // namespace Torvo
