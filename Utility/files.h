// Files: the registry, the budget of open handles, and the service that all calls on files go through.
//
// A file is first registered. It gets a small number, its HANDLE, that names it for as long as the caller wants, open
// or not. Opening is a second step, and the handle stays valid through any number of opens and closes: the table of
// files remembers what a file is, its length, its position, its character set and the time of its last change. More
// files can be registered than the system can hold open; see "The budget" below.
//
// There are two worlds of use, and both take the same handles. The DESCRIPTOR world reads and writes bytes at a logical
// position, through the block cache (<Utility/file_cache.h>). The STREAM world reads and writes text through the
// runtime's streams and the file's character set. Calls of the stream world take the handle as a `FILE*`: that is no
// stream of the runtime, but the number itself, made as wide as a pointer, and fileno2 gives the number back. Only
// GetFilePtr leads to the runtime's stream, and GetFileFD to its descriptor.
//
// A handle is 1000 plus the index of the file in the table; 0 is no file. A handle that is not registered is found by
// no call, and what each then does is said with it. An unregistered handle is given to the next file that is
// registered.
//
// A handle has a meaning only in the instance that registered it (<Utility/instance.h>), by default that of one thread.
// Nothing here takes a lock. Buffers that receive a path or a name have room for 261 units.
//
// The budget
//
// A file system holds at most GetMaxFileCount files open at once: 507, or what the environment variable
// ZU_MAX_FILE_HANDLES says when the library is loaded, if that is from 508 to 2040. With SetCloseReadOnlyFiles(false)
// the last release of a file that is open to read leaves it open and IDLE. When the budget or the system has no handle
// left, the idle file that was not opened for the most opens is closed, and so on until the open succeeds; a file that
// somebody holds is never closed. One that was closed for another's sake is opened again by the next fileopen, and
// finds its blocks in the cache, unless the file has changed since. As the switch stands at first, no file stays idle.
//
// A file is opened so that others may read it while it is read here, and not at all while it is written here. Access
// that is denied, because of such a conflict or because the file is read-only, is tried again for as long as the retry
// callback says, which is asked once for each attempt and is not made to wait between them: by default until
// GetFileAccessRetryTime hundredths of a second have passed.
//
// Example: examples/families/files.cpp
#pragma once

#include <Utility/charsets.h>
#include <Utility/file_names.h>
#include <Utility/platform/types.h>

#include <cstdio>

namespace Torvo {

using std::FILE;

struct SAVED_DIR;  // <Utility/paths.h>

// Whether an access that was denied shall be tried again. `name` is the file's name without its directory. `state` is 0
// for the first question of an attempt to open; what the callback stores there it finds again at the next.
using FileRetryCallback = bool (*)(eOpenMode mode, const wchar16* name, int64& state);

// The service behind the free functions of the same names, which describe the operations: those of the registry and the
// budget below, the others in <Utility/file_io.h>, <Utility/byte_order_marks.h>, <Utility/file_names.h> and
// <Utility/paths.h>.
class ZUAPI cFileSystem {
public:
    // Closes the idle files. Files that somebody holds stay open: it is the caller's part to unregister them.
    virtual ~cFileSystem() = default;

    virtual int register_file(const wchar16* name, FILETYPE type, bool unique) = 0;
    virtual int register_file_variant(int base, const wchar16* name, FILETYPE type) = 0;
    virtual int is_file_registered(const wchar16* name, FILETYPE type) = 0;
    virtual void unregister_file(int file) = 0;
    virtual int fileopen(int file, eOpenMode mode, int* changed) = 0;
    virtual int close2(int file) = 0;
    virtual int64 filelength2(int file) = 0;
    virtual int64 lseek2(int file, int64 offset, int whence) = 0;
    virtual int64 tell2(int file) = 0;
    virtual int read2(int file, void* buffer, uint64 count) = 0;
    virtual int write2(int file, const void* buffer, uint64 count) = 0;
    virtual int chsize2(int file, int64 length) = 0;
    virtual bool read_app_string(int file, wchar16* out, unsigned int size) = 0;
    virtual int read_app_string_len(int file) = 0;
    virtual int write_app_string(int file, const wchar16* text) = 0;
    virtual bool fileremove(int file) = 0;
    virtual bool group_fileremove(int* files, int count) = 0;
    virtual bool renamefile(int* file, const wchar16* name, FILETYPE type) = 0;
    virtual bool touch(int file) = 0;
    virtual int64 file_get_timestamp(int file) = 0;
    virtual bool file_set_timestamp(int file) = 0;
    virtual void fhandle2name(int file, wchar16* out) = 0;
    virtual void fhandle2dir(int file, wchar16* out) = 0;
    virtual void fhandle2path(int file, wchar16* out) = 0;
    virtual void fhandle2partialpath(int file, wchar16* out, int base) = 0;
    virtual eOpenMode filehandle_get_openmode(int file) = 0;
    virtual bool filecopy(int from, int to, bool append) = 0;
    virtual void ChangeDirectory(int file, SAVED_DIR* saved) = 0;
    virtual ZUCHARSET file_get_charset(FILE* file) = 0;
    virtual ZUCHARSET file_get_charset(int file) = 0;
    virtual void file_put_charset(FILE* file, ZUCHARSET charset) = 0;
    virtual void file_put_charset(int file, ZUCHARSET charset) = 0;
    virtual FILE* fregister_file(const wchar16* name, FILETYPE type, bool unique) = 0;
    virtual void funregister_file(FILE* file) = 0;
    virtual FILE* ffileopen(FILE* file, eOpenMode mode, int* changed) = 0;
    virtual int fclose2(FILE* file) = 0;
    virtual int feof2(FILE* file) = 0;
    virtual int ferror2(FILE* file) = 0;
    virtual int64 ffilelength2(FILE* file) = 0;
    virtual int fflush2(FILE* file) = 0;
    virtual int fgetc2(FILE* file) = 0;
    virtual wchar16* fgets2(wchar16* out, int size, FILE* file) = 0;
    virtual int fileno2(FILE* file) = 0;
    virtual int fprintf2(FILE* file, const wchar16* format, ...) = 0;
    virtual int fputc2(int c, FILE* file) = 0;
    virtual int fputs2(const wchar16* text, FILE* file) = 0;
    virtual unsigned int fread2(void* buffer, unsigned int size, unsigned int count, FILE* file) = 0;
    virtual int fseek2(FILE* file, int64 offset, int whence) = 0;
    virtual int64 ftell2(FILE* file) = 0;
    virtual unsigned int fwrite2(const void* buffer, unsigned int size, unsigned int count, FILE* file) = 0;
    virtual int vfprintf2(FILE* file, const wchar16* format, va_list arguments) = 0;
    virtual ZUCHARSET ProcessUTFBom(int file) = 0;
    virtual ZUCHARSET ProcessUTFBom(FILE* file) = 0;
    virtual bool WriteUTFBom(int file, ZUCHARSET charset) = 0;
    virtual bool WriteUTFBom(FILE* file, ZUCHARSET charset) = 0;
    virtual int rename2(const wchar16* from, const wchar16* to) = 0;
    virtual int access2(const wchar16* path, int mode) = 0;
    virtual int remove2(const wchar16* path) = 0;
    virtual int stat2(const wchar16* path, struct _stat64* status) = 0;
    virtual int stream_fileopen(int file, eOpenMode mode, int* changed, const wchar16* streamName) = 0;
    virtual int stream_close(int file) = 0;
    virtual long32 stream_lseek(int file, long32 offset, int whence) = 0;
    virtual int stream_read(int file, void* buffer, unsigned int count) = 0;
    virtual void program_dir(const wchar16* path) = 0;
    virtual const wchar16* program_dir() = 0;
    virtual void alternate_program_dir(const wchar16* path) = 0;
    virtual const wchar16* alternate_program_dir() = 0;
    virtual void home_dir(const wchar16* path) = 0;
    virtual const wchar16* home_dir() = 0;
    virtual void pref_dir(const wchar16* path) = 0;
    virtual const wchar16* pref_dir() = 0;
    virtual void temp_dir(const wchar16* path) = 0;
    virtual const wchar16* temp_dir() = 0;
    virtual void current_dir(const wchar16* path) = 0;
    virtual const wchar16* current_dir() = 0;
    virtual void set_cpl_config(const wchar16* key, const wchar16* value) = 0;
    virtual const wchar16* get_cpl_config(const wchar16* key) = 0;
    virtual void AddAppDataPath(const wchar16* path) = 0;
    virtual void CreteTempFolderForZxtTile(wchar16* out) = 0;
    virtual void really_close_all() = 0;
    virtual const wchar16* file_extension(FILETYPE type) = 0;
    virtual FILETYPE file_type(const wchar16* name) = 0;
    virtual void splitfilename(wchar16* path, wchar16* nameOut) = 0;
    virtual void make_extension(wchar16* name, const wchar16* ext) = 0;
    virtual void path2something(const wchar16* path, wchar16* out, int size) = 0;
    virtual int level0mode_to_ourmode(int flags) = 0;
    virtual void qualify_filename(wchar16* path) = 0;
    virtual bool munge_filename(FILETYPE type) = 0;
    virtual void recommend_filename(wchar16* out, const wchar16* in, FILETYPE type) = 0;
    virtual void recommend_table_filename(wchar16* out, const wchar16* in) = 0;
    virtual void require_dos_extension(wchar16* name, FILETYPE type) = 0;
    virtual void relativepath2fullpath(wchar16* path) = 0;
    virtual void resolve_path_reference(wchar16* name, const wchar16* path) = 0;
    virtual void resolve_path_reference(wchar16* name, int file) = 0;
    virtual void RestoreDirectory(SAVED_DIR* saved) = 0;
    virtual void tempname(wchar16* out, const wchar16* dir, FILETYPE type) = 0;
    virtual void tempname(wchar16* out, const wchar16* dir) = 0;
    virtual FILE* tempfile(const wchar16* dir) = 0;
    virtual bool file_exists(const wchar16* name, FILETYPE type) = 0;
    virtual bool file_exists_anycase(const wchar16* name, FILETYPE type) = 0;
    virtual bool search_for_file(wchar16* name, FILETYPE type) = 0;
    virtual bool CalcRelativePath(const wchar16* base, const wchar16* target, wchar16* out) = 0;
    virtual bool FullPathFromRelativePath(const wchar16* base, const wchar16* relative, wchar16* out) = 0;
    virtual int GetFileFD(int file) = 0;
    virtual FILE* GetFilePtr(const FILE* file) = 0;
    virtual int GetMaxFileCount() = 0;
    virtual long32 GetFileAccessRetryTime() = 0;
    virtual void SetFileAccessRetryTime(long32 hundredths) = 0;
    virtual const wchar16* get_current_module_dir() = 0;

    // A new file system with an empty table, owned by the caller; null if memory is short. `maxFiles` is its budget;
    // with `closeReadOnly` false, files that were read stay open and idle after their last release. Without a `retry`
    // an access that is denied fails at once.
    static cFileSystem* Create(int maxFiles, bool closeReadOnly, FileRetryCallback retry);
    // The same with the budget and the switch of the process, and a callback that tries again for the retry time.
    static cFileSystem* Create();
    // The service of the caller's instance.
    static cFileSystem* Instance();
    // Replaces it. The former one is not destroyed: who replaces a service owns the old one.
    static bool Instance(cFileSystem* service);

    // The switch of the process, true at first. It is taken over by the file systems that are created afterwards.
    static void SetCloseReadOnlyFiles(bool closeReadOnly);
    static bool GetCloseReadOnlyFiles();
};

// Registering -----------------------------------------------------------------------------------------------------

// Registers a file and returns its handle. The name is qualified against the process's current directory and, for a
// type that forces its extension, given that extension. Nothing is touched on disk, and the file need not exist. The
// handle is the lowest that is free, the first one 1000. The file's character set is system_charset().
//
// With `unique`, a name that is registered already is refused: error 8 (message 50, with the name without its
// directory) and 0. Also 0, without an error, when memory is short.
ZUAPI int register_file(const wchar16* name, FILETYPE type, bool unique);
// The same without refusing anything.
ZUAPI int register_nonunique_file(const wchar16* name, FILETYPE type);
// Registers a file that goes with another one: with a handle in `base` the file of the same name and directory and the
// extension of `type`, whatever `name` says; without, the file called `name`, or a temporary file if that is null. All
// of them are refused if they are registered already. 0, too, if the path would have more than 260 units.
ZUAPI int register_file_variant(int base, const wchar16* name, FILETYPE type);
// The lowest handle under which a file of that name and type is registered, or 0. Names are equal without regard to
// case, and type 0 equals every type.
ZUAPI int is_file_registered(const wchar16* name, FILETYPE type);
// Forgets a file, whoever holds it: what is dirty in the cache is written, the file closed, the handle free for
// another. Nothing for a handle that is not registered.
ZUAPI void unregister_file(int file);
// The same for the stream world.
ZUAPI FILE* fregister_file(const wchar16* name, FILETYPE type, bool unique);
ZUAPI FILE* fregister_nonunique_file(const wchar16* name, FILETYPE type);
ZUAPI void funregister_file(FILE* file);

// Opening and closing ---------------------------------------------------------------------------------------------

// Opens a file for the descriptor world, or adds a reference to one that is open already; the logical position becomes
// 0 for everyone who holds it. Returns the handle, or -1 with an error record:
//
//   error  message
//     9      51     someone holds it in a way that does not fit: in the other world, or to read when it shall
//                   be created
//   5001   9985     it, or its directory, does not exist, or the disk is full; or its path, with the extension
//                   that its type forces, has more than 260 units
//    10      52     it exists already
//    14      56     the budget is exhausted, and no file is idle
//     4      46     access was denied, and the retry callback gave up; not in mode 3
//    13      55     anything else; the first parameter is the number in `errno`; not in mode 3
//
// -1 without a record: for a handle that is not registered, or is given to another file by the retry callback; in mode
// 3, where access is denied and for anything else; for the 1024th reference; and in the stream world where the runtime
// has no stream to give, and for a mode other than 1 to 3, which opens a descriptor to read only.
//
// A file open to read and write serves one who wants to read; one open to read is opened anew for the first who wants
// to write, in the same world, and everyone then holds it so. A file that is open to be created is not emptied again.
//
// `changed` may be null. Bit 0 is set there when the file has been changed by somebody else since it was closed here
// last; then no block of it is left in the cache, and what could not be written at that close is dropped.
ZUAPI int fileopen(int file, eOpenMode mode, int* changed);
// The same for the stream world; null on failure.
ZUAPI FILE* ffileopen(FILE* file, eOpenMode mode, int* changed);
// Releases a reference. The last one writes what is dirty and closes the file, or leaves it idle. 0; -1 with error 11
// (message 53, with the handle) if there is no reference, and without an error for a handle that is not registered.
ZUAPI int close2(int file);
ZUAPI int fclose2(FILE* file);
// Closes every idle file. Two names of one operation.
ZUAPI void really_close_all();
ZUAPI void really_close_next();

// What is known of a file -----------------------------------------------------------------------------------------

// The runtime's descriptor, -1 when closed or open as a stream, and the runtime's stream, null when closed or open as a
// descriptor. What is read or written through them does not pass the cache. The same for a handle that is not
// registered.
ZUAPI int GetFileFD(int file);
ZUAPI FILE* GetFilePtr(const FILE* file);
// The handle as a number, whatever it is.
ZUAPI int fileno2(FILE* file);
// The mode in which the file is open, or in which it was last opened or tried to be; 0 if never, 1 for a handle that is
// not registered.
ZUAPI eOpenMode filehandle_get_openmode(int file);
// The name, the directory with its separator, and both together; empty for a handle that is not registered. Both
// together may be longer than a path, by the extension that a type forces: such a file cannot be opened, and its path
// is empty.
ZUAPI void fhandle2name(int file, wchar16* out);
ZUAPI void fhandle2dir(int file, wchar16* out);
ZUAPI void fhandle2path(int file, wchar16* out);
// The path without its beginning, if that is the directory of the file `base` without regard to case; for a `base` of 0
// the process's current directory.
ZUAPI void fhandle2partialpath(int file, wchar16* out, int base);
// The character set of the file's text: that of the system until another is put. It survives every close, and ends with
// the registration. csUnknown for a handle that is not registered, and nothing is put there.
ZUAPI ZUCHARSET file_get_charset(int file);
ZUAPI ZUCHARSET file_get_charset(FILE* file);
ZUAPI void file_put_charset(int file, ZUCHARSET charset);
ZUAPI void file_put_charset(FILE* file, ZUCHARSET charset);

// The budget ------------------------------------------------------------------------------------------------------

// How many files may be open at once.
ZUAPI int GetMaxFileCount();
// For how long access denied is tried again, in hundredths of a second; 200 at first.
ZUAPI long32 GetFileAccessRetryTime();
ZUAPI void SetFileAccessRetryTime(long32 hundredths);
// Whether files that were read are closed by their last release; see cFileSystem.
ZUAPI void SetCloseReadOnlyFiles(bool closeReadOnly);

}  // namespace Torvo
