// The seam for faults as the calls on streams pass through it. What the runtime does to the system on behalf of a
// stream cannot be seen, so it is the call on the stream that counts and fails.
#pragma once

#include <Utility/platform/file_faults.h>
#include <Utility/platform/streams.h>

#include <cerrno>
#include <climits>

namespace Torvo::platform {

// The stream that a test made fail last on this thread: its error indicator is set, as far as the library can see.
inline thread_local const Stream* failedStream = nullptr;

// Makes a call on a stream.
template <typename Result, typename Call>
Result StreamCall(const Stream* stream, Result failure, Call call) {
    while (CallIsRefused()) {
        if (errno == EINTR) continue;
        failedStream = stream;
        return failure;
    }
    return call();
}

// Closes a stream by a call, whatever a test wants it to answer.
template <typename Call>
int CloseStream(const Stream* stream, Call call) {
    const int fault = CallIsRefused() ? errno : 0;
    if (failedStream == stream) failedStream = nullptr;
    const int result = call();
    if (result != 0 || fault == 0 || fault == EINTR) return result;
    errno = fault;
    return EOF;
}

// How many items of a size a transfer may move.
inline std::size_t AllowedItems(std::size_t size, std::size_t count) {
    if (size == 0 || count > UINT_MAX / size) return count;
    return AllowedTransfer(static_cast<uint32>(size * count)) / size;
}

}  // namespace Torvo::platform
