#include <Utility/platform/streams.h>

#include <Utility/platform/files.h>
#include <Utility/platform/posix/system_calls.h>
#include <Utility/platform/runtime.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdio>
#include <cstring>
#include <limits>
#include <new>

namespace Torvo::platform {

// A buffer over a descriptor, which is read and written at explicit positions; its own position is never looked at.
//
// The buffer begins after some room for pushing back. While the stream reads, the bytes from Front to `limit` are those
// of the file from `base` on, and `next` is the one to be read. While it writes, the bytes from Front to `next` are to
// be written at `base`, and `limit` is `next`. In both cases the position is base + next - Front.
class Stream {
public:
    Stream(int openDescriptor, int64 position, bool reads, bool writes)
        : descriptor(openDescriptor), base(position), mayRead(reads), mayWrite(writes) {}

    std::size_t Read(uint8* target, std::size_t count) {
        if (!BeginReading()) return 0;
        std::size_t have = 0;
        while (have < count) {
            if (next < limit) {
                const std::size_t part = std::min(count - have, limit - next);
                std::memcpy(target + have, buffer.data() + next, part);
                next += part;
                have += part;
            } else if (count - have >= Room) {
                const std::size_t got = ReadPast(target + have, count - have);
                if (got == 0) break;
                have += got;
            } else if (!Fill()) {
                break;
            }
        }
        return have;
    }

    int ReadByte() {
        if (next == limit || isWriting) {
            if (!BeginReading() || !Fill()) return -1;
        }
        return buffer[next++];
    }

    int PushBack(int byte) {
        if (byte == -1 || isWriting || next == 0 || Position() == 0) return -1;
        const auto pushed = static_cast<uint8>(byte);
        isAltered = isAltered || next <= Front || buffer[next - 1] != pushed;
        buffer[--next] = pushed;
        atEnd = false;
        return pushed;
    }

    std::size_t Write(const uint8* source, std::size_t count) {
        if (!BeginWriting()) return 0;
        std::size_t done = 0;
        while (done < count) {
            if (next == buffer.size() && !Drain()) break;
            if (next == Front && count - done >= Room) {
                done += WritePast(source + done, count - done);
                break;
            }
            const std::size_t part = std::min(count - done, buffer.size() - next);
            std::memcpy(buffer.data() + next, source + done, part);
            next += part;
            limit = next;
            done += part;
        }
        return done;
    }

    bool Flush() { return !isWriting || Drain(); }

    bool Seek(int64 offset, int whence) {
        if (!Flush()) return false;
        int64 from = 0;
        if (whence == SEEK_CUR) from = Position();
        if (whence == SEEK_END) from = SystemCall([&] { return ::lseek(descriptor, 0, SEEK_END); });
        if (from == -1) return false;
        const bool fits = offset <= 0 ? from + offset >= 0 : offset <= std::numeric_limits<int64>::max() - from;
        if (whence < SEEK_SET || whence > SEEK_END || !fits) {
            errno = EINVAL;
            return false;
        }
        MoveTo(from + offset);
        return true;
    }

    int64 Position() const { return base + static_cast<int64>(next) - static_cast<int64>(Front); }

    bool IsAtEnd() const { return atEnd; }
    bool HasFailed() const { return hasFailed; }
    int Descriptor() const { return descriptor; }

private:
    // One byte can be pushed back after any read; the rest keeps the buffer aligned.
    static constexpr std::size_t Front = 16;
    static constexpr std::size_t Room = 8192;

    void Empty(int64 position) {
        base = position;
        next = limit = Front;
        isAltered = false;
    }

    // What is in the buffer already stays, unless a byte of it is not the file's.
    void MoveTo(int64 position) {
        const int64 inBuffer = position - base;
        if (!isWriting && !isAltered && inBuffer >= 0 && inBuffer <= static_cast<int64>(limit - Front)) {
            next = Front + static_cast<std::size_t>(inBuffer);
        } else {
            Empty(position);
            isWriting = false;
        }
        atEnd = false;
    }

    bool Refuse() {
        errno = EBADF;
        return Fail();
    }
    bool Fail() {
        hasFailed = true;
        return false;
    }

    bool BeginReading() {
        if (!mayRead) return Refuse();
        if (!isWriting) return true;
        if (!Drain()) return false;
        isWriting = false;
        return true;
    }

    bool BeginWriting() {
        if (!mayWrite) return Refuse();
        if (!isWriting) Empty(Position());
        isWriting = true;
        return true;
    }

    // Reads at the end of the buffer's part of the file, without the buffer; 0 at the end of the file and on failure.
    std::size_t ReadPast(uint8* target, std::size_t count) {
        const int64 position = Position();
        const ssize_t got = SystemCall([&] { return ::pread(descriptor, target, count, position); });
        if (got < 0) Fail();
        if (got == 0) atEnd = true;
        if (got <= 0) return 0;
        Empty(position + got);
        return static_cast<std::size_t>(got);
    }

    // Refills a buffer that is used up.
    bool Fill() {
        const int64 position = Position();
        const ssize_t got = SystemCall([&] { return ::pread(descriptor, buffer.data() + Front, Room, position); });
        if (got < 0) return Fail();
        if (got == 0) {
            atEnd = true;
            return false;
        }
        Empty(position);
        limit = Front + static_cast<std::size_t>(got);
        return true;
    }

    // Writes what is pending; what could not be written stays.
    bool Drain() {
        const std::size_t pending = next - Front;
        const std::size_t done = WriteAt(buffer.data() + Front, pending, base);
        const int kept = errno;
        std::memmove(buffer.data() + Front, buffer.data() + Front + done, pending - done);
        base += static_cast<int64>(done);
        next = limit = Front + pending - done;
        errno = kept;
        return done == pending || Fail();
    }

    // Writes around a buffer in which nothing is pending.
    std::size_t WritePast(const uint8* source, std::size_t count) {
        const std::size_t done = WriteAt(source, count, base);
        base += static_cast<int64>(done);
        if (done < count) Fail();
        return done;
    }

    std::size_t WriteAt(const uint8* source, std::size_t count, int64 position) const {
        std::size_t done = 0;
        while (done < count) {
            const ssize_t put = SystemCall(
                [&] { return ::pwrite(descriptor, source + done, count - done, position + static_cast<int64>(done)); });
            if (put < 0) break;
            done += static_cast<std::size_t>(put);
        }
        return done;
    }

    const int descriptor;
    int64 base;
    std::size_t next = Front;
    std::size_t limit = Front;
    const bool mayRead;
    const bool mayWrite;
    bool isWriting = false;
    bool isAltered = false;  // a byte was pushed back that is not the file's
    bool atEnd = false;
    bool hasFailed = false;
    std::array<uint8, Front + Room> buffer;
};

namespace {

constexpr int EndOfFile = -1;

// The bytes of a number of items, as many as a transfer may move; 0 where there are none.
std::size_t TransferBytes(std::size_t size, std::size_t count) {
    if (size != 0 && count > std::numeric_limits<std::size_t>::max() / size) {
        errno = EINVAL;
        return 0;
    }
    const std::size_t bytes = size * count;
    return bytes <= UINT_MAX ? AllowedTransfer(static_cast<uint32>(bytes)) : bytes;
}

int WriteText(const void* text, std::size_t bytes, Stream* stream) {
    return fwrite(text, 1, bytes, stream) == bytes ? 0 : EndOfFile;
}

}  // namespace

Stream* _wfdopen(int descriptor, const wchar16* mode) {
    const bool writesOnly = mode[0] == 'w';
    if ((mode[0] != 'r' && !writesOnly) || wcsspn(mode + 1, ZUTEXT("+b")) != wcslen(mode + 1)) {
        errno = EINVAL;
        return nullptr;
    }
    const bool isBoth = wcschr(mode, '+') != nullptr;
    const int64 position = _lseeki64(descriptor, 0, SEEK_CUR);
    if (position == -1) return nullptr;
    Stream* const stream = new (std::nothrow) Stream(descriptor, position, isBoth || !writesOnly, isBoth || writesOnly);
    if (stream == nullptr) errno = ENOMEM;
    return stream;
}

int fclose(Stream* stream) {
    const bool flushed = stream->Flush();
    const int error = errno;
    const bool closed = _close(stream->Descriptor()) == 0;
    delete stream;
    if (flushed && closed) return 0;
    if (!flushed) errno = error;
    return EndOfFile;
}

std::size_t fread(void* buffer, std::size_t size, std::size_t count, Stream* stream) {
    const std::size_t bytes = TransferBytes(size, count);
    return bytes == 0 ? 0 : stream->Read(static_cast<uint8*>(buffer), bytes) / size;
}

std::size_t fwrite(const void* buffer, std::size_t size, std::size_t count, Stream* stream) {
    const std::size_t bytes = TransferBytes(size, count);
    return bytes == 0 ? 0 : stream->Write(static_cast<const uint8*>(buffer), bytes) / size;
}

int fgetc(Stream* stream) {
    return stream->ReadByte();
}

int ungetc(int byte, Stream* stream) {
    return stream->PushBack(byte);
}

int fputs(const char* text, Stream* stream) {
    return WriteText(text, std::strlen(text), stream);
}

int fputws(const wchar16* text, Stream* stream) {
    return WriteText(text, wcslen(text) * sizeof(wchar16), stream);
}

int _fseeki64(Stream* stream, int64 offset, int whence) {
    return stream->Seek(offset, whence) ? 0 : -1;
}

int64 _ftelli64(Stream* stream) {
    return stream->Position();
}

int fflush(Stream* stream) {
    return stream->Flush() ? 0 : EndOfFile;
}

bool feof(Stream* stream) {
    return stream->IsAtEnd();
}

bool ferror(Stream* stream) {
    return stream->HasFailed();
}

}  // namespace Torvo::platform
