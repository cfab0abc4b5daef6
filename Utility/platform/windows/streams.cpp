#include <Utility/platform/streams.h>

#include <Utility/platform/windows/system_calls.h>

#include <climits>

namespace Torvo::platform {

namespace {

// The stream that a test made fail last on this thread: the runtime knows nothing of it.
thread_local Stream* failedStream = nullptr;

template <typename Result, typename Call>
Result StreamCall(Stream* stream, Result failure, Call call) {
    if (!IsRefused()) return call();
    failedStream = stream;
    return failure;
}

// How many items of a size a transfer may move.
std::size_t AllowedItems(std::size_t size, std::size_t count) {
    if (size == 0 || count > UINT_MAX / size) return count;
    return AllowedTransfer(static_cast<uint32>(size * count)) / size;
}

}  // namespace

Stream* _wfdopen(int descriptor, const wchar16* mode) {
    return RuntimeCall(static_cast<Stream*>(nullptr), [&] { return ::_wfdopen(descriptor, mode); });
}

int fclose(Stream* stream) {
    const int fault = IsRefused() ? errno : 0;
    if (failedStream == stream) failedStream = nullptr;
    const int result = std::fclose(stream);
    if (result != 0 || fault == 0) return result;
    errno = fault;
    return EOF;
}

std::size_t fread(void* buffer, std::size_t size, std::size_t count, Stream* stream) {
    return StreamCall(stream, std::size_t{0},
                      [&] { return std::fread(buffer, size, AllowedItems(size, count), stream); });
}

std::size_t fwrite(const void* buffer, std::size_t size, std::size_t count, Stream* stream) {
    return StreamCall(stream, std::size_t{0},
                      [&] { return std::fwrite(buffer, size, AllowedItems(size, count), stream); });
}

int fgetc(Stream* stream) {
    return StreamCall(stream, EOF, [&] { return std::fgetc(stream); });
}

int ungetc(int byte, Stream* stream) {
    return std::ungetc(byte, stream);
}

int fputs(const char* text, Stream* stream) {
    return StreamCall(stream, EOF, [&] { return std::fputs(text, stream); });
}

int fputws(const wchar16* text, Stream* stream) {
    return StreamCall(stream, EOF, [&] { return std::fputws(text, stream); });
}

int _fseeki64(Stream* stream, int64 offset, int whence) {
    return RuntimeCall(-1, [&] { return ::_fseeki64(stream, offset, whence); });
}

int64 _ftelli64(Stream* stream) {
    return RuntimeCall(int64{-1}, [&]() -> int64 { return ::_ftelli64(stream); });
}

int fflush(Stream* stream) {
    return StreamCall(stream, EOF, [&] { return std::fflush(stream); });
}

bool feof(Stream* stream) {
    return std::feof(stream) != 0;
}

bool ferror(Stream* stream) {
    return stream == failedStream || std::ferror(stream) != 0;
}

}  // namespace Torvo::platform
