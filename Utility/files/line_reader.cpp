// What a line is was settled by a reader that takes pieces of 40 bytes until one holds a line end, and then seeks back
// to the place behind it. Three things can still be told from that:
//
//   - a piece of one byte that is Ctrl-Z ends the text, and what was read of the line before it is lost. A piece has
//     one byte where the file ends with it, or where the limit leaves no more;
//   - the stream's position is behind the line end, and seeking has taken back that the end of the file was met;
//   - of a CR that is the limit's last byte nobody knows whether an LF follows.
//
// The reader here takes no byte that it has to give back, so it never seeks, but for a lone CR at the end of the file.
// Most lines lie in the stream's buffer as a whole and are handed out from there; a line that does not is put together
// byte by byte.

#include <Utility/files/line_reader.h>

#include <Utility/files/stream_entry.h>
#include <Utility/platform/platform.h>
#include <emmintrin.h>

#include <algorithm>
#include <bit>
#include <cstdio>
#include <cstring>

namespace Torvo {

namespace {

constexpr uint64 kPiece = 40;
// What the working buffer has at first: more than most lines.
constexpr uint64 kFirstRoom = 256;

// How many bytes stand before the first LF or CR; `count` if there is neither.
uint64 FindLineEnd(const char* bytes, uint64 count) {
    const __m128i lf = _mm_set1_epi8(LF);
    const __m128i cr = _mm_set1_epi8(CR);
    uint64 i = 0;
    for (; i + 16 <= count; i += 16) {
        __m128i lane;
        std::memcpy(&lane, bytes + i, sizeof lane);
        const __m128i ends = _mm_or_si128(_mm_cmpeq_epi8(lane, lf), _mm_cmpeq_epi8(lane, cr));
        const auto found = static_cast<uint32>(_mm_movemask_epi8(ends));
        if (found != 0) return i + static_cast<uint64>(std::countr_zero(found));
    }
    while (i < count && bytes[i] != LF && bytes[i] != CR) ++i;
    return i;
}

enum class Outcome { Line, Nothing, NotInBuffer };

// A line that lies in the stream's buffer with its line end and, where it matters, the byte behind that.
Outcome TakeFromBuffer(FileEntry& entry, uint64 limit, ByteLine* line) {
    const char* bytes = nullptr;
    const uint64 count = std::min<uint64>(platform::BufferedBytes(entry.stream, &bytes), limit);
    const uint64 end = FindLineEnd(bytes, count);
    if (end == count) return Outcome::NotInBuffer;
    if (bytes[end] == LF) {
        platform::SkipBufferedBytes(entry.stream, end + 1);
        *line = {bytes, end + 1};
        return Outcome::Line;
    }
    const bool nextIsKnown = end + 1 < count || end + 1 == limit;
    if (!nextIsKnown) return Outcome::NotInBuffer;
    char* const copy = WorkingBuffer(entry, end + 1);
    if (copy == nullptr) return Outcome::Nothing;
    std::memcpy(copy, bytes, end);
    copy[end] = LF;
    const bool isPair = end + 1 < count && bytes[end + 1] == LF;
    platform::SkipBufferedBytes(entry.stream, isPair ? end + 2 : end + 1);
    *line = {copy, end + 1};
    return Outcome::Line;
}

// Puts a line together in the entry's working buffer.
class LineBuilder {
public:
    LineBuilder(FileEntry& opened, uint64 mostBytes) : entry(opened), limit(mostBytes) {}

    bool Read(ByteLine* line) {
        if (!MakeRoom(std::min(limit, kFirstRoom))) return false;
        while (!isComplete) {
            const uint64 before = count;
            if (!ReadPiece()) return false;
            if (isComplete) break;
            const uint64 got = count - before;
            if (got == 1 && buffer[before] == EndOfTextByte) return false;
            if (got == 0) break;
        }
        *line = {buffer, count};
        return count > 0;
    }

private:
    // Reads up to the end of a piece, of the line, or of the file. False if memory is short.
    bool ReadPiece() {
        const uint64 end = std::min(count + kPiece, limit);
        if (end > room && !MakeRoom(std::min(limit, 2 * room))) return GiveBack();
        while (count < end) {
            const int byte = platform::fgetc(entry.stream);
            if (byte == EndOfFile) return true;
            buffer[count++] = static_cast<char>(byte);
            if (byte != LF && byte != CR) continue;
            if (byte == CR && count < limit) SkipLineFeed();
            buffer[count - 1] = LF;
            isComplete = true;
            return true;
        }
        return true;
    }

    void SkipLineFeed() {
        const int next = platform::fgetc(entry.stream);
        if (next == LF) return;
        // At the end of the file a seek makes the stream forget that it was met.
        if (next == EndOfFile || platform::ungetc(next, entry.stream) == EndOfFile) {
            platform::_fseeki64(entry.stream, next == EndOfFile ? 0 : -1, SEEK_CUR);
        }
    }

    bool MakeRoom(uint64 bytes) {
        buffer = WorkingBuffer(entry, bytes);
        room = bytes;
        return buffer != nullptr;
    }

    bool GiveBack() {
        platform::_fseeki64(entry.stream, -static_cast<int64>(count), SEEK_CUR);
        return false;
    }

    FileEntry& entry;
    const uint64 limit;
    char* buffer = nullptr;
    uint64 room = 0;
    uint64 count = 0;
    bool isComplete = false;
};

}  // namespace

bool ReadLine(FileEntry& entry, uint64 limit, ByteLine* line) {
    const Outcome outcome = TakeFromBuffer(entry, limit, line);
    if (outcome != Outcome::NotInBuffer) return outcome == Outcome::Line;
    return LineBuilder(entry, limit).Read(line);
}

}  // namespace Torvo
