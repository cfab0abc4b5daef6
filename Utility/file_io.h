// Reading and writing registered files, and the operations on whole files.
//
// Files, their handles and the two worlds are described in <Utility/files.h>: register a file, open it, then use it
// here. The operations of the descriptor world want a file opened by fileopen, those of the stream world one opened by
// ffileopen. What a call does with a handle that is not registered is said with it.
//
// What is on disk, and when: the bytes that write2 takes go into the block cache. They reach the file when the cache
// needs the room, when the file is closed by its last release, and when the cache is told to flush; see docs/files.md.
#pragma once

#include <Utility/files.h>

namespace Torvo {

// Descriptor world: bytes at the logical position -------------------------------------------------------------------

// Sets the logical position and returns it: `whence` 0 to `offset`, 1 by `offset` from where it stands, 2 to the length
// plus `offset`; any other leaves it. Nothing is checked against the file, and the system is not asked. -1 for a handle
// that is not registered.
ZUAPI int64 lseek2(int file, int64 offset, int whence);
// The logical position.
ZUAPI int64 tell2(int file);
// The length, what was written and is still in the cache included. That of a closed file is the last one known. -1 for
// a handle that is not registered.
ZUAPI int64 filelength2(int file);
// Reads at the logical position and moves it on by what was read. Returns how many bytes, less than `count` at the end
// of the file and where it cannot be read; -1 for a handle that is not registered.
ZUAPI int read2(int file, void* buffer, uint64 count);
// Writes at the logical position and moves it on. Returns how many bytes were written; -1 if the file cannot be
// written, with the position behind what was, and for a handle that is not registered.
ZUAPI int write2(int file, const void* buffer, uint64 count);
// Makes the file that long; what it grows by reads as zeros. The position stays. 0, or -1 if it cannot be done.
ZUAPI int chsize2(int file, int64 length);

// App strings: text inside a binary file, at the logical position. One byte holds the length in bytes, then follows the
// text in the file's character set, without a terminator. A text of more than 127 bytes is written, but cannot be read
// back.

// Reads one into a buffer of `size` units, cut if need be. False if it cannot be read.
ZUAPI bool read_app_string(int file, wchar16* out, unsigned int size);
// The length in bytes of the one that stands here; the position stays. 0 at the end of the file, -1 for a handle that
// is not registered.
ZUAPI int read_app_string_len(int file);
// Writes one. The number of bytes of the text; -1 for an empty text, which is not written, and if it cannot be written.
ZUAPI int write_app_string(int file, const wchar16* text);

// Stream world: text through the file's character set ---------------------------------------------------------------

ZUAPI unsigned int fread2(void* buffer, unsigned int size, unsigned int count, FILE* file);
ZUAPI unsigned int fwrite2(const void* buffer, unsigned int size, unsigned int count, FILE* file);
ZUAPI int fseek2(FILE* file, int64 offset, int whence);
ZUAPI int64 ftell2(FILE* file);
ZUAPI int feof2(FILE* file);
ZUAPI int ferror2(FILE* file);
ZUAPI int fflush2(FILE* file);
ZUAPI int64 ffilelength2(FILE* file);
ZUAPI int fgetc2(FILE* file);
ZUAPI wchar16* fgets2(wchar16* out, int size, FILE* file);
ZUAPI int fputc2(int c, FILE* file);
ZUAPI int fputs2(const wchar16* text, FILE* file);
ZUAPI int fprintf2(FILE* file, const wchar16* format, ...);
ZUAPI int vfprintf2(FILE* file, const wchar16* format, va_list arguments);

// Compound files: one stream inside a file, to read -----------------------------------------------------------------

ZUAPI int stream_fileopen(int file, eOpenMode mode, int* changed, const wchar16* streamName);
ZUAPI int stream_close(int file);
ZUAPI long32 stream_lseek(int file, long32 offset, int whence);
ZUAPI int stream_read(int file, void* buffer, unsigned int count);

// Whole files by handle ---------------------------------------------------------------------------------------------

// Closes a file, whoever holds it, and removes it from the disk. It stays registered. False if it could not be removed
// (it does not exist, is read-only, is a directory) or is not registered.
ZUAPI bool fileremove(int file);
// Removes all of the files or none: closes each and renames it to a temporary name beside it; when one cannot be
// renamed, those before it get their names back, and the result is false. They stay registered.
ZUAPI bool group_fileremove(int* files, int count);
// Gives a file another name, relative to its directory, and the handle of that name in *file; the old handle is
// unregistered. `type` 0 keeps the type. A file on another disk is copied and removed. False, with everything as it
// was, and an error:
//   6 (message 48, with the new name) if a file of that name is registered or exists
//   5 (message 47, with the old path) if it was copied and cannot be removed
//   those of filecopy if it cannot be copied; part of the new file may then exist
ZUAPI bool renamefile(int* file, const wchar16* name, FILETYPE type);
// Copies a file, over the target or, with `append`, behind it. Both are opened for it and released again. False if one
// of them cannot be opened, with the error of that, and error 7 (message 49, with the target's name) if it cannot be
// read or written.
ZUAPI bool filecopy(int from, int to, bool append);
// Sets the time of last change to now by writing the first character again; the content stays as it was. False if the
// file cannot be opened to write.
ZUAPI bool touch(int file);
// The time of last change, in seconds since 1 January 1970, UTC; 0 if there is none.
ZUAPI int64 file_get_timestamp(int file);
// Sets it to now.
ZUAPI bool file_set_timestamp(int file);

// By path, without a registration: the calls of the runtime ---------------------------------------------------------

// 0, or -1. An existing target is not replaced.
ZUAPI int rename2(const wchar16* from, const wchar16* to);
// 0, or -1. Directories and read-only files are refused.
ZUAPI int remove2(const wchar16* path);
// 0 if the file exists (`mode` 0), can be written (2), be read (4), or both (6); -1 if not.
ZUAPI int access2(const wchar16* path, int mode);
// Fills *status. 0, or -1.
ZUAPI int stat2(const wchar16* path, struct _stat64* status);

}  // namespace Torvo
