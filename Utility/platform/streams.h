// The runtime's streams, binary ones only.
//
// `Stream` is the runtime's own FILE, on every system. Between reading and writing the caller seeks, as the runtime
// demands. A stream belongs to one thread at a time. None of the pointers may be null. Failures leave errno in the
// Windows runtime's numbers, as in <Utility/platform/files.h>.
#pragma once

#include <Utility/platform/types.h>

#include <cstdio>

namespace Torvo::platform {

using Stream = std::FILE;

// A stream over an open descriptor, which it owns from then on; null with errno if there is none to be had, and then
// the caller still owns the descriptor. Modes: "rb", "r+b", "wb", "w+b"; none of them truncates here.
Stream* _wfdopen(int descriptor, const wchar16* mode);
// Writes what is buffered, closes the descriptor and frees the stream, whether or not that succeeds: 0, or -1 (EOF).
int fclose(Stream* stream);
// Whole items read or written. Fewer: end of file or error, as feof and ferror tell.
std::size_t fread(void* buffer, std::size_t size, std::size_t count, Stream* stream);
std::size_t fwrite(const void* buffer, std::size_t size, std::size_t count, Stream* stream);
// The next byte, or -1 (EOF).
int fgetc(Stream* stream);
// Pushes one byte back, to be read next; the byte, or -1 (EOF). One is sure to fit after a read.
int ungetc(int byte, Stream* stream);
// Writes bytes up to the terminator; 0 or more, or -1 (EOF).
int fputs(const char* text, Stream* stream);
// Writes each unit as its two bytes, the low one first; likewise.
int fputws(const wchar16* text, Stream* stream);
// 0, or -1 with errno.
int _fseeki64(Stream* stream, int64 offset, int whence);
// The position, or -1 with errno.
int64 _ftelli64(Stream* stream);
// Hands what is buffered to the system: 0, or -1 (EOF).
int fflush(Stream* stream);
// The bytes that are read already and not yet taken, from the position on: how many, and where they lie until the next
// call on the stream. 0 where there are none, and where the runtime keeps them to itself: then nothing follows for the
// stream's end.
std::size_t BufferedBytes(Stream* stream, const char** bytes);
// Takes that many of them.
void SkipBufferedBytes(Stream* stream, std::size_t count);
// Whether a read met the end. One that took exactly what was left may have met it or not.
bool feof(Stream* stream);
bool ferror(Stream* stream);

}  // namespace Torvo::platform
