// Reading and writing registered files, and the operations on whole files.
//
// Files, their handles and the two worlds are described in <Utility/files.h>: register a file, open it, then use it
// here. The operations of the descriptor world want a file opened by fileopen, those of the stream world one opened by
// ffileopen. What a call does with a handle that is not registered is said with it.
//
// What is on disk, and when: the bytes that write2 takes go into the block cache. They reach the file when the cache
// needs the room, when the file is closed by its last release, and when the cache is told to flush; see docs/files.md.
//
// Example: examples/families/files.cpp
#pragma once

#include <Utility/files.h>

namespace Torvo {

// Descriptor world: bytes at the logical position -------------------------------------------------------------------

// Positions and lengths have 64 bits; what one call reads or writes is told in 32, so move less than 2 GiB at a time.

// Sets the logical position and returns it: `whence` 0 to `offset`, 1 by `offset` from where it stands, 2 to the length
// plus `offset`; any other leaves it. Nothing is checked against the file, and the system is not asked. -1 for a handle
// that is not registered.
ZUAPI int64 lseek2(int file, int64 offset, int whence);
// The logical position.
ZUAPI int64 tell2(int file);
// The length, what was written and is still in the cache included, also what the last close could not write. That of a
// closed file, and of one that is open as a stream, is the last one known here. -1 for a handle that is not registered.
ZUAPI int64 filelength2(int file);
// Reads at the logical position and moves it on by what was read. Returns how many bytes, less than `count` at the end
// of the file, where it cannot be read, and where a block of the cache ends early: one that was in the cache when the
// file was made to grow behind it by `write2` ends where its content did, and what follows in that block reads as
// nothing until it has left the cache. -1 for a handle that is not registered.
ZUAPI int read2(int file, void* buffer, uint64 count);
// Writes at the logical position and moves it on. Returns how many bytes were written; -1 if the file cannot be
// written, with the position behind what was, and for a handle that is not registered.
ZUAPI int write2(int file, const void* buffer, uint64 count);
// Makes the file that long; what it grows by reads as zeros. The position stays. 0, or -1 if it cannot be done.
ZUAPI int chsize2(int file, int64 length);

// App strings: text inside a binary file, at the logical position. One byte holds the length in bytes, then follows the
// text in the file's character set, without a terminator. A text of more than 127 bytes is written, but cannot be read
// back.

// Reads one of at most `size` units into a buffer of `size` + 1. False, with an empty text, if it cannot be read or is
// longer. Without a size nothing is written.
ZUAPI bool read_app_string(int file, wchar16* out, unsigned int size);
// The length in bytes of the one that stands here; the position stays. 0 at the end of the file, -1 for a handle that
// is not registered.
ZUAPI int read_app_string_len(int file);
// Writes one. The number of bytes of the text; -1 for an empty text, which is not written, and if it cannot be written.
ZUAPI int write_app_string(int file, const wchar16* text);

// Stream world: text through the file's character set ---------------------------------------------------------------

// Each call of this section answers as for a file that cannot be used if the handle is not registered or the file is
// not open as a stream: null from fgets2, 0 from fread2 and fwrite2, -1 from all others.
//
// Between reading and writing a stream wants fseek2 or fflush2, as the runtime's streams do; behind a line that fgets2
// has read it may be written at once.

// The runtime's fread, fwrite, fseek, ftell, feof, ferror and fflush: bytes as they stand, positions in bytes.
ZUAPI unsigned int fread2(void* buffer, unsigned int size, unsigned int count, FILE* file);
ZUAPI unsigned int fwrite2(const void* buffer, unsigned int size, unsigned int count, FILE* file);
ZUAPI int fseek2(FILE* file, int64 offset, int whence);
ZUAPI int64 ftell2(FILE* file);
ZUAPI int feof2(FILE* file);
ZUAPI int ferror2(FILE* file);
ZUAPI int fflush2(FILE* file);
// The length in bytes, found by seeking to the end and back.
ZUAPI int64 ffilelength2(FILE* file);

// Reads a character: one unit of system text. A line end, be it CR LF, CR or LF, is one LF. -1 at the end of the file
// and for the byte 26 (Ctrl-Z), with which a text ends. A pair of a double-byte charset is one character; of UTF-8 only
// ASCII can be read so, a character of several bytes comes as one U+FFFD for each. 0 where the charset has no code
// page.
ZUAPI int fgetc2(FILE* file);
// Reads a line into a buffer of `size` units, terminator included, and returns `out`. The line end, be it CR LF, CR or
// LF, is one LF in `out`; the last line of a file may lack it, and then so does `out`. The stream then stands behind
// the line end, and feof2 is true only if the end of the file was met instead of one.
//
// At most 2 * size - 1 bytes are read; the next call goes on with the rest of a longer line, and with the LF of a CR LF
// that was cut in two. Text that has no room in `out` gives an empty text, and so does a charset without a code page:
// what was read is passed over. In UTF-16 what fits is kept; but since its bytes are searched for a line end like those
// of any charset, UTF-16 is better read by fread2.
//
// Null at the end of the file; for a single byte 26 (Ctrl-Z) at the end of the file (also as the last byte of a line
// whose bytes before it are a multiple of 40, which are lost then), and anywhere in the file where 2 * size - 1 leaves
// room for that byte alone, which is so for a `size` of 1 and each twentieth more; for a `size` below 1; and if memory
// is short, with nothing read.
ZUAPI wchar16* fgets2(wchar16* out, int size, FILE* file);
// Writes a character in the file's charset; `c`, or -1. An LF is written as the units of the charset's line end
// (CharsetSlashN), two bytes each, whatever the charset: for text use fputs2. In UTF-16 only the first byte of a
// character below U+0100 is written.
ZUAPI int fputc2(int c, FILE* file);
// Writes a text in the file's charset, each LF as the charset's line end. 0, or -1 if it cannot be converted or
// written. A character that the charset lacks is no failure: something like it is written, or "_", as by
// ConvertSystemToMBCSChar (<Utility/conversion.h>); who must not lose any converts there and back first.
ZUAPI int fputs2(const wchar16* text, FILE* file);
// Formats as the runtime's fwprintf does (%s and %c take system text) and writes the result by fputs2. The number of
// units of the formatted text, or -1.
ZUAPI int fprintf2(FILE* file, const wchar16* format, ...);
ZUAPI int vfprintf2(FILE* file, const wchar16* format, va_list arguments);

// Compound files: one stream inside a file, to read -----------------------------------------------------------------

// A file that is no compound file is treated as a plain one by all four calls, which are then fileopen, close2, lseek2
// and read2. A compound file is not opened by fileopen here: neither the budget nor the cache knows of it, and nobody
// may write to it meanwhile.

// Opens a stream of a compound file, or adds a user to the one that is open already, whatever its name, and puts its
// position to the start. A workbook's stream may have either of two names: "Book" finds "Workbook" too. The handle, or
// -1 without an error record; `mode` and `changed` matter for a plain file only.
ZUAPI int stream_fileopen(int file, eOpenMode mode, int* changed, const wchar16* streamName);
// Closes it for one user; the last one closes the file. 0, or what close2 gives.
ZUAPI int stream_close(int file);
// Sets the position: `whence` 1 by `offset` from where it stands, 2 from the end, any other from the start. The low 32
// bits of the position, or -1; before the start there is none.
ZUAPI long32 stream_lseek(int file, long32 offset, int whence);
// Reads at the position and moves it on. How many bytes, less than `count` at the end; -1 if they cannot be read.
ZUAPI int stream_read(int file, void* buffer, unsigned int count);

// Whole files by handle ---------------------------------------------------------------------------------------------

// Closes a file, whoever holds it, and removes it from the disk. It stays registered. False if it could not be removed
// (it does not exist, is read-only, is a directory) or is not registered.
ZUAPI bool fileremove(int file);
// Removes all of the files or none: closes each and renames it to a temporary name beside it; when one cannot be
// renamed, those before it get their names back, and the result is false; a file that the system does not let have it
// back then lies beside its place under the temporary name. What can be renamed but not removed, as a read-only file,
// lies there under the temporary name too, and the result is true. A handle whose name is a directory's is a failure.
// They stay registered.
ZUAPI bool group_fileremove(int* files, int count);
// Gives a file another name, relative to its directory, and the handle of that name in *file; the old handle is
// unregistered. `type` 0 keeps the type. A file on another disk is copied and removed. False if what is dirty cannot be
// written, with everything as it was and without a record. Else the file is closed for everyone who held it; the
// references stay. False then, with the file under its old name and handle, and an error:
//   6 (message 48, with the new name) if a file of that name is registered or exists
//   5 (message 47, with the old path) if it was copied and cannot be removed
//   5001 (message 9985, with the new name) if the old or the new path has more than 260 units
//   those of filecopy if it cannot be copied; part of the new file may then exist
ZUAPI bool renamefile(int* file, const wchar16* name, FILETYPE type);
// Copies a file, over the target or, with `append`, behind it. Both are opened for it and released again. False if one
// of them cannot be opened, with the error of that, and error 7 (message 49, with the target's name) if it cannot be
// read or written; the target is as it was if what is dirty of the source cannot be written.
ZUAPI bool filecopy(int from, int to, bool append);
// Sets the time of last change to now by writing the first character again; the content stays as it was. The stream is
// closed for everyone who holds it. Where the character cannot be read or written, as in an empty file, the time stamp
// alone is set. False if the file cannot be opened to write, or neither succeeds.
ZUAPI bool touch(int file);
// The time of last change, in seconds since 1 January 1970, UTC; 0 if there is none.
ZUAPI int64 file_get_timestamp(int file);
// Sets it to now.
ZUAPI bool file_set_timestamp(int file);

// By path, without a registration: the calls of the runtime ---------------------------------------------------------
//
// A path is taken whole, however long: what the system makes of one of more than 260 units is its affair.

// 0, or -1. An existing target is not replaced; a file that is held open by another is refused.
ZUAPI int rename2(const wchar16* from, const wchar16* to);
// 0, or -1. Directories, read-only files, and files that are held open by another are refused.
ZUAPI int remove2(const wchar16* path);
// 0 if the file exists (`mode` 0), can be written (2), be read (4), or both (6); -1 if not.
ZUAPI int access2(const wchar16* path, int mode);
// Fills *status. 0, or -1.
ZUAPI int stat2(const wchar16* path, struct _stat64* status);

}  // namespace Torvo
