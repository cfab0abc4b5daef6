#include <Utility/platform/streams.h>

#include <Utility/platform/posix/system_calls.h>
#include <Utility/platform/runtime.h>
#include <Utility/platform/stream_faults.h>

#include <iterator>

namespace Torvo::platform {

namespace {

// The answer of a call on a stream; the error number is the Windows runtime's where it failed.
template <typename Result>
Result Answer(Result result, bool failed) {
    if (failed) errno = RuntimeErrno(errno);
    return result;
}

}  // namespace

Stream* _wfdopen(int descriptor, const wchar16* mode) {
    // Modes have three letters at most.
    char narrow[4] = {};
    for (std::size_t i = 0; i + 1 < std::size(narrow) && mode[i] != 0; ++i) narrow[i] = static_cast<char>(mode[i]);
    return StreamCall(nullptr, static_cast<Stream*>(nullptr), [&] {
        Stream* const stream = ::fdopen(descriptor, narrow);
        return Answer(stream, stream == nullptr);
    });
}

int fclose(Stream* stream) {
    return CloseStream(stream, [&] {
        const int result = std::fclose(stream);
        return Answer(result, result != 0);
    });
}

std::size_t fread(void* buffer, std::size_t size, std::size_t count, Stream* stream) {
    return StreamCall(stream, std::size_t{0}, [&] {
        const std::size_t read = ::fread_unlocked(buffer, size, AllowedItems(size, count), stream);
        return Answer(read, read < count && ::ferror_unlocked(stream) != 0);
    });
}

std::size_t fwrite(const void* buffer, std::size_t size, std::size_t count, Stream* stream) {
    return StreamCall(stream, std::size_t{0}, [&] {
        const std::size_t written = ::fwrite_unlocked(buffer, size, AllowedItems(size, count), stream);
        return Answer(written, written < count && ::ferror_unlocked(stream) != 0);
    });
}

int fgetc(Stream* stream) {
    return StreamCall(stream, EOF, [&] {
        const int byte = ::getc_unlocked(stream);
        return Answer(byte, byte == EOF && ::ferror_unlocked(stream) != 0);
    });
}

int ungetc(int byte, Stream* stream) {
    return std::ungetc(byte, stream);
}

int fputs(const char* text, Stream* stream) {
    return StreamCall(stream, EOF, [&] {
        const int result = ::fputs_unlocked(text, stream);
        return Answer(result < 0 ? EOF : 0, result < 0);
    });
}

// The wide call of this runtime would convert, and turn the stream into one of wide characters for good.
int fputws(const wchar16* text, Stream* stream) {
    const std::size_t length = wcslen(text);
    return platform::fwrite(text, sizeof(wchar16), length, stream) == length ? 0 : EOF;
}

int _fseeki64(Stream* stream, int64 offset, int whence) {
    return StreamCall(stream, -1, [&] {
        const int result = ::fseeko(stream, offset, whence);
        return Answer(result, result != 0);
    });
}

int64 _ftelli64(Stream* stream) {
    return StreamCall(stream, int64{-1}, [&]() -> int64 {
        const int64 position = ::ftello(stream);
        return Answer(position, position == -1);
    });
}

int fflush(Stream* stream) {
    return StreamCall(stream, EOF, [&] {
        const int result = ::fflush_unlocked(stream);
        return Answer(result, result != 0);
    });
}

// The two members are those that the runtime's own header works on, in the macro behind getc_unlocked.
std::size_t BufferedBytes(Stream* stream, const char** bytes) {
#if defined(__GLIBC__)
    *bytes = stream->_IO_read_ptr;
    return static_cast<std::size_t>(stream->_IO_read_end - stream->_IO_read_ptr);
#else
    *bytes = nullptr;
    return 0;
#endif
}

void SkipBufferedBytes([[maybe_unused]] Stream* stream, [[maybe_unused]] std::size_t count) {
#if defined(__GLIBC__)
    stream->_IO_read_ptr += count;
#endif
}

bool feof(Stream* stream) {
    return ::feof_unlocked(stream) != 0;
}

bool ferror(Stream* stream) {
    return stream == failedStream || ::ferror_unlocked(stream) != 0;
}

}  // namespace Torvo::platform
