// The file system behind cFileSystem. Its operations lie in several sources, by subject; see the headings below.
#pragma once

#include <Utility/files.h>
#include <Utility/files/file_table.h>
#include <Utility/files/free_slots.h>
#include <Utility/files/idle_order.h>
#include <Utility/files/name_index.h>
#include <Utility/platform/files.h>

#include <functional>
#include <map>
#include <vector>

namespace Torvo {

class cFileCache;
class FileCacheImpl;

class cFileSystemImpl final : public cFileSystem {
public:
    cFileSystemImpl(int maxFiles, bool closeReadOnly, FileRetryCallback retry);
    ~cFileSystemImpl() override;
    cFileSystemImpl(const cFileSystemImpl&) = delete;
    cFileSystemImpl& operator=(const cFileSystemImpl&) = delete;

    int register_file(const wchar16* name, FILETYPE type, bool unique) override;
    int register_file_variant(int base, const wchar16* name, FILETYPE type) override;
    int is_file_registered(const wchar16* name, FILETYPE type) override;
    void unregister_file(int file) override;
    int fileopen(int file, eOpenMode mode, int* changed) override;
    int close2(int file) override;
    int64 filelength2(int file) override;
    int64 lseek2(int file, int64 offset, int whence) override;
    int64 tell2(int file) override;
    int read2(int file, void* buffer, uint64 count) override;
    int write2(int file, const void* buffer, uint64 count) override;
    int chsize2(int file, int64 length) override;
    bool read_app_string(int file, wchar16* out, unsigned int size) override;
    int read_app_string_len(int file) override;
    int write_app_string(int file, const wchar16* text) override;
    bool fileremove(int file) override;
    bool group_fileremove(int* files, int count) override;
    bool renamefile(int* file, const wchar16* name, FILETYPE type) override;
    bool touch(int file) override;
    int64 file_get_timestamp(int file) override;
    bool file_set_timestamp(int file) override;
    void fhandle2name(int file, wchar16* out) override;
    void fhandle2dir(int file, wchar16* out) override;
    void fhandle2path(int file, wchar16* out) override;
    void fhandle2partialpath(int file, wchar16* out, int base) override;
    eOpenMode filehandle_get_openmode(int file) override;
    bool filecopy(int from, int to, bool append) override;
    void ChangeDirectory(int file, SAVED_DIR* saved) override;
    ZUCHARSET file_get_charset(FILE* file) override;
    ZUCHARSET file_get_charset(int file) override;
    void file_put_charset(FILE* file, ZUCHARSET charset) override;
    void file_put_charset(int file, ZUCHARSET charset) override;
    FILE* fregister_file(const wchar16* name, FILETYPE type, bool unique) override;
    void funregister_file(FILE* file) override;
    FILE* ffileopen(FILE* file, eOpenMode mode, int* changed) override;
    int fclose2(FILE* file) override;
    int feof2(FILE* file) override;
    int ferror2(FILE* file) override;
    int64 ffilelength2(FILE* file) override;
    int fflush2(FILE* file) override;
    int fgetc2(FILE* file) override;
    wchar16* fgets2(wchar16* out, int size, FILE* file) override;
    int fileno2(FILE* file) override;
    int fprintf2(FILE* file, const wchar16* format, ...) override;
    int fputc2(int c, FILE* file) override;
    int fputs2(const wchar16* text, FILE* file) override;
    unsigned int fread2(void* buffer, unsigned int size, unsigned int count, FILE* file) override;
    int fseek2(FILE* file, int64 offset, int whence) override;
    int64 ftell2(FILE* file) override;
    unsigned int fwrite2(const void* buffer, unsigned int size, unsigned int count, FILE* file) override;
    int vfprintf2(FILE* file, const wchar16* format, va_list arguments) override;
    ZUCHARSET ProcessUTFBom(int file) override;
    ZUCHARSET ProcessUTFBom(FILE* file) override;
    bool WriteUTFBom(int file, ZUCHARSET charset) override;
    bool WriteUTFBom(FILE* file, ZUCHARSET charset) override;
    int rename2(const wchar16* from, const wchar16* to) override;
    int access2(const wchar16* path, int mode) override;
    int remove2(const wchar16* path) override;
    int stat2(const wchar16* path, struct _stat64* status) override;
    int stream_fileopen(int file, eOpenMode mode, int* changed, const wchar16* streamName) override;
    int stream_close(int file) override;
    long32 stream_lseek(int file, long32 offset, int whence) override;
    int stream_read(int file, void* buffer, unsigned int count) override;
    void program_dir(const wchar16* path) override;
    const wchar16* program_dir() override;
    void alternate_program_dir(const wchar16* path) override;
    const wchar16* alternate_program_dir() override;
    void home_dir(const wchar16* path) override;
    const wchar16* home_dir() override;
    void pref_dir(const wchar16* path) override;
    const wchar16* pref_dir() override;
    void temp_dir(const wchar16* path) override;
    const wchar16* temp_dir() override;
    void current_dir(const wchar16* path) override;
    const wchar16* current_dir() override;
    void set_cpl_config(const wchar16* key, const wchar16* value) override;
    const wchar16* get_cpl_config(const wchar16* key) override;
    void AddAppDataPath(const wchar16* path) override;
    void CreteTempFolderForZxtTile(wchar16* out) override;
    void really_close_all() override;
    const wchar16* file_extension(FILETYPE type) override;
    FILETYPE file_type(const wchar16* name) override;
    void splitfilename(wchar16* path, wchar16* nameOut) override;
    void make_extension(wchar16* name, const wchar16* ext) override;
    void path2something(const wchar16* path, wchar16* out, int size) override;
    int level0mode_to_ourmode(int flags) override;
    void qualify_filename(wchar16* path) override;
    bool munge_filename(FILETYPE type) override;
    void recommend_filename(wchar16* out, const wchar16* in, FILETYPE type) override;
    void recommend_table_filename(wchar16* out, const wchar16* in) override;
    void require_dos_extension(wchar16* name, FILETYPE type) override;
    void relativepath2fullpath(wchar16* path) override;
    void resolve_path_reference(wchar16* name, const wchar16* path) override;
    void resolve_path_reference(wchar16* name, int file) override;
    void RestoreDirectory(SAVED_DIR* saved) override;
    void tempname(wchar16* out, const wchar16* dir, FILETYPE type) override;
    void tempname(wchar16* out, const wchar16* dir) override;
    FILE* tempfile(const wchar16* dir) override;
    bool file_exists(const wchar16* name, FILETYPE type) override;
    bool file_exists_anycase(const wchar16* name, FILETYPE type) override;
    bool search_for_file(wchar16* name, FILETYPE type) override;
    bool CalcRelativePath(const wchar16* base, const wchar16* target, wchar16* out) override;
    bool FullPathFromRelativePath(const wchar16* base, const wchar16* relative, wchar16* out) override;
    int GetFileFD(int file) override;
    FILE* GetFilePtr(const FILE* file) override;
    int GetMaxFileCount() override;
    long32 GetFileAccessRetryTime() override;
    void SetFileAccessRetryTime(long32 hundredths) override;
    const wchar16* get_current_module_dir() override;

    // Registry (registry.cpp).

    // The entry of a handle; null for one that is not registered. It may move when a file is registered.
    FileEntry* FindEntry(int file) {
        const auto index = static_cast<uint32>(file) - static_cast<uint32>(FirstHandle);
        if (index >= static_cast<uint32>(tableSize) || !table[index].IsInUse()) return nullptr;
        return &table[index];
    }
    // Qualifies a path and takes it apart into the name record of a file of that type.
    void BuildNameRecord(const wchar16* path, FILETYPE type, FileNameRec* record);
    // Whether counters, free slots, name index and idle order agree with the table; walks all of it.
    bool InvariantsHold() const;

    // Open files (open_files.cpp).

    // Closes what a file has open, whoever holds it; nothing if it is closed. The references stay as they are.
    void ReallyClose(FileEntry& entry);
    // The age that a file has now; see FileEntry.
    int32 AgeOf(const FileEntry& entry) const;

    // Descriptors (descriptor_io.cpp).

    // lseek2; and read2 and write2 through the library's own cache (descriptor_calls.cpp).
    int64 Seek(int file, int64 offset, int whence) {
        FileEntry* const entry = FindEntry(file);
        if (entry == nullptr) return -1;
        // Unsigned, since an offset beyond all limits only has to be wrong, not undefined.
        const auto distance = static_cast<uint64>(offset);
        if (whence == 0) entry->position = offset;
        if (whence == 1) entry->position = static_cast<int64>(static_cast<uint64>(entry->position) + distance);
        if (whence == 2) entry->position = static_cast<int64>(static_cast<uint64>(entry->length) + distance);
        return entry->position;
    }
    int Read(FileCacheImpl& cache, int file, void* buffer, uint64 count);
    int Write(FileCacheImpl& cache, int file, const void* buffer, uint64 count);

    // Closes the compound file that an entry has open, whoever holds it; nothing without one. (storage_streams.cpp)
    void DropStorage(FileEntry& entry);

private:
    int32 IndexOf(const FileEntry& entry) const { return static_cast<int32>(&entry - table); }
    int HandleOf(const FileEntry& entry) const { return IndexOf(entry) + FirstHandle; }

    // The entry of a handle, if that is registered still as it was when its entry had this serial; else null.
    FileEntry* FindRegistration(int file, uint64 serial) {
        FileEntry* const entry = FindEntry(file);
        return entry != nullptr && entry->serial == serial ? entry : nullptr;
    }
    int32 FindRegistered(const FileNameRec& name) const;
    bool GrowTable();
    FileEntry* TakeFreeEntry();
    bool EntryIsConsistent(int32 index) const;

    int OpenEntry(int file, eOpenMode mode, bool stream, int* changed);
    bool OpenServes(const FileEntry& entry, eOpenMode mode, bool stream) const;
    int AddReference(FileEntry& entry);
    int Upgrade(int file, eOpenMode mode, bool stream, int* changed);
    int OpenClosed(int file, eOpenMode mode, bool stream, int* changed);
    bool OpenDescriptor(int file, eOpenMode mode, platform::OpenedFile* opened);
    bool PrepareAnotherAttempt(int file, eOpenMode mode, int error, int64& retryState);
    bool MayRetry(const FileEntry& entry, eOpenMode mode, int64& retryState);
    void LookForChanges(FileEntry& entry, uint64 lastWrite, int* changed);
    int Release(int file);
    void MakeIdle(FileEntry& entry);
    void MakeBusy(FileEntry& entry);
    bool CloseOldest();
    void CloseAllIdle();
    void CloseHandleOf(FileEntry& entry);
    void RememberLastWrite(FileEntry& entry);

    // Through a cache, or directly if that is null.
    int ReadEntry(cFileCache* cache, int file, FileEntry& entry, void* buffer, uint64 count);
    int ReadElsewhere(FileCacheImpl& cache, int file, FileEntry& entry, void* buffer, uint64 count);
    int CopyFound(FileEntry& entry, void* buffer, const char* bytes, uint64 count);
    int WriteEntry(cFileCache* cache, int file, FileEntry& entry, const void* buffer, uint64 count);
    int ReadBlocks(cFileCache* cache, int file, FileEntry& entry, void* buffer, uint64 count);
    int WriteBlocks(cFileCache* cache, int file, FileEntry& entry, const void* buffer, uint64 count);

    bool SetAside(int file, wchar16* temporaryName);
    bool MoveFileTo(int from, int to, const wchar16* newName);
    bool CopyThrough(void* block, int from, int to, bool append);

    int32 openCount = 0;  // files with a handle of the system
    int32 idleCount = 0;  // of these, those that nobody holds
    int32 tableSize = 0;
    FileEntry* table = nullptr;  // a memory block

    const int32 maxFiles;
    const bool closeReadOnly;
    const FileRetryCallback retry;
    long32 retryTime = 200;  // hundredths of a second

    wchar16 programDirectory[PathSize] = {};
    wchar16 alternateProgramDirectory[PathSize] = {};
    wchar16 homeDirectory[PathSize] = {};
    wchar16 preferencesDirectory[PathSize] = {};
    wchar16 tempDirectory[PathSize] = {};
    wchar16 currentDirectory[PathSize] = {};
    wchar16 tileTempDirectory[PathSize] = {};
    wchar16 moduleDirectory[PathSize] = {};
    std::vector<wchar16*> appDataPaths;  // memory blocks, with a separator at the end
    std::map<wstring16, wstring16, std::less<>> configuration;
    uint32 tempSerial = 0;
    uint64 registrations = 0;  // ever made

    // What spares a walk of the table.
    FreeSlots freeSlots;
    NameIndex names;
    IdleOrder idle;
};

// The retry callback of the file systems that the library makes for itself: true until the retry time has passed.
bool DefaultRetry(eOpenMode mode, const wchar16* name, int64& state);

// lseek2, read2 and write2 of the caller's file system, whosever that is. (descriptor_io.cpp)
int64 SeekByService(int file, int64 offset, int whence);
int ReadByService(int file, void* buffer, uint64 count);
int WriteByService(int file, const void* buffer, uint64 count);

// The handle of the descriptor world as that of the stream world, and back.
inline FILE* AsStreamHandle(int file) {
    return reinterpret_cast<FILE*>(static_cast<std::intptr_t>(file));
}
inline int AsFileHandle(const FILE* file) {
    return static_cast<int>(reinterpret_cast<std::intptr_t>(file));
}

}  // namespace Torvo
