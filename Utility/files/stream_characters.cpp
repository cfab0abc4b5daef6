// The stream world by characters.

#include <Utility/conversion.h>
#include <Utility/file_io.h>
#include <Utility/files/file_system_impl.h>
#include <Utility/files/stream_entry.h>
#include <Utility/platform/platform.h>
#include <Utility/text/byte_walk.h>

namespace Torvo {

namespace {

// Takes the LF behind a CR, if there is one.
void SkipLineFeed(FILE* stream) {
    const int next = platform::fgetc(stream);
    if (next != LF) platform::ungetc(next, stream);
}

// The character that begins with a byte, in the charset of the text.
wchar16 FinishCharacter(int first, ZUCHARSET charset, FILE* stream) {
    char bytes[2] = {static_cast<char>(first), 0};
    uint64 count = 1;
    if (CharsetLeadByteEx(bytes, charset)) {
        const int second = platform::fgetc(stream);
        if (second != EndOfFile) bytes[count++] = static_cast<char>(second);
    }
    // Room for as many units as bytes, and for the terminator.
    wchar16 units[3] = {};
    ConvertMBCSCharToSystem(bytes, count, charset, units, count);
    return units[0];
}

// The line end of the charset goes out as it is: as units, not as bytes.
bool PutLineEnd(ZUCHARSET charset, FILE* stream) {
    return platform::fputws(CharsetSlashN(charset), stream) >= 0;
}

bool PutCharacter(wchar16 unit, ZUCHARSET charset, FILE* stream) {
    const wchar16 text[2] = {unit, 0};
    // At most three bytes, those of a unit in UTF-8, and a terminator.
    char bytes[8] = {};
    return ConvertSystemToMBCSChar(text, bytes, charset, sizeof bytes, false) && platform::fputs(bytes, stream) >= 0;
}

}  // namespace

int cFileSystemImpl::fgetc2(FILE* file) {
    const FileEntry* const entry = FindEntry(AsFileHandle(file));
    FILE* const stream = StreamOf(entry);
    if (stream == nullptr) return -1;
    const int byte = platform::fgetc(stream);
    if (byte == EndOfFile || byte == EndOfTextByte) return -1;
    if (byte != CR) return FinishCharacter(byte, entry->charset, stream);
    SkipLineFeed(stream);
    return LF;
}

int cFileSystemImpl::fputc2(int c, FILE* file) {
    const FileEntry* const entry = FindEntry(AsFileHandle(file));
    FILE* const stream = StreamOf(entry);
    if (stream == nullptr) return -1;
    const bool put =
        c == LF ? PutLineEnd(entry->charset, stream) : PutCharacter(static_cast<wchar16>(c), entry->charset, stream);
    return put ? c : -1;
}

int fgetc2(FILE* file) {
    return cFileSystem::Instance()->fgetc2(file);
}

int fputc2(int c, FILE* file) {
    return cFileSystem::Instance()->fputc2(c, file);
}

}  // namespace Torvo
