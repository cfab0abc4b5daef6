#include <Utility/platform/streams.h>

#include <Utility/platform/stream_faults.h>

#include <cerrno>

namespace Torvo::platform {

namespace {

#if defined(__MSVCRT__) && !defined(_UCRT)
// While a stream reads, the older runtime takes what is written into the bytes that it read ahead, and loses it; while
// it writes, it reads what lies in its buffer by chance. A seek to where it stands ends either.
void EndReading(Stream* stream) {
    if ((stream->_flag & (_IOREAD | _IOWRT)) == _IOREAD) ::_fseeki64(stream, 0, SEEK_CUR);
}
void EndWriting(Stream* stream) {
    if ((stream->_flag & _IOWRT) != 0) ::_fseeki64(stream, 0, SEEK_CUR);
}
#else
void EndReading(Stream*) {}
void EndWriting(Stream*) {}
#endif

}  // namespace

Stream* _wfdopen(int descriptor, const wchar16* mode) {
    return StreamCall(nullptr, static_cast<Stream*>(nullptr), [&] { return ::_wfdopen(descriptor, mode); });
}

int fclose(Stream* stream) {
    return CloseStream(stream, [&] { return std::fclose(stream); });
}

std::size_t fread(void* buffer, std::size_t size, std::size_t count, Stream* stream) {
    return StreamCall(stream, std::size_t{0}, [&] {
        EndWriting(stream);
        return std::fread(buffer, size, AllowedItems(size, count), stream);
    });
}

std::size_t fwrite(const void* buffer, std::size_t size, std::size_t count, Stream* stream) {
    return StreamCall(stream, std::size_t{0}, [&] {
        EndReading(stream);
        return std::fwrite(buffer, size, AllowedItems(size, count), stream);
    });
}

int fgetc(Stream* stream) {
    return StreamCall(stream, EOF, [&] {
        EndWriting(stream);
        return std::fgetc(stream);
    });
}

int ungetc(int byte, Stream* stream) {
    return std::ungetc(byte, stream);
}

int fputs(const char* text, Stream* stream) {
    return StreamCall(stream, EOF, [&] {
        EndReading(stream);
        return std::fputs(text, stream);
    });
}

int fputws(const wchar16* text, Stream* stream) {
    return StreamCall(stream, EOF, [&] {
        EndReading(stream);
        return std::fputws(text, stream);
    });
}

int _fseeki64(Stream* stream, int64 offset, int whence) {
    if (whence < 0 || whence > 2) {  // the newer runtime ends the program
        errno = EINVAL;
        return -1;
    }
    return StreamCall(stream, -1, [&] {
        const int result = ::_fseeki64(stream, offset, whence);
        // Not every runtime of that name takes the end of the file back when it finds the place in its buffer.
        if (result == 0 && std::feof(stream) != 0 && std::ferror(stream) == 0) std::clearerr(stream);
        return result;
    });
}

int64 _ftelli64(Stream* stream) {
    return StreamCall(stream, int64{-1}, [&]() -> int64 { return ::_ftelli64(stream); });
}

int fflush(Stream* stream) {
    return StreamCall(stream, EOF, [&] { return std::fflush(stream); });
}

// The older of the system's two runtimes has the members that its own getc works on in its header; while a stream
// writes, they tell of the room that is left. The newer one keeps its buffer to itself.
#if defined(__MSVCRT__) && !defined(_UCRT)

std::size_t BufferedBytes(Stream* stream, const char** bytes) {
    const bool reads = (stream->_flag & (_IOREAD | _IOWRT)) == _IOREAD;
    *bytes = stream->_ptr;
    return reads && stream->_cnt > 0 ? static_cast<std::size_t>(stream->_cnt) : 0;
}

void SkipBufferedBytes(Stream* stream, std::size_t count) {
    stream->_ptr += count;
    stream->_cnt -= static_cast<int>(count);
}

#else

std::size_t BufferedBytes(Stream* /*stream*/, const char** bytes) {
    *bytes = nullptr;
    return 0;
}

void SkipBufferedBytes(Stream* /*stream*/, std::size_t /*count*/) {}

#endif

bool feof(Stream* stream) {
    return std::feof(stream) != 0;
}

bool ferror(Stream* stream) {
    return stream == failedStream || std::ferror(stream) != 0;
}

}  // namespace Torvo::platform
