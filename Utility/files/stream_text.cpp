// The stream world by lines: writing.

#include <Utility/conversion.h>
#include <Utility/file_io.h>
#include <Utility/files/file_system_impl.h>
#include <Utility/files/stream_entry.h>
#include <Utility/platform/platform.h>

#include <cstring>
#include <new>

namespace Torvo {

namespace {

// Text in the bytes of a charset.
struct EncodedText {
    const char* bytes = nullptr;
    uint64 count = 0;
};

// Converts a text into `buffer`. False if it cannot be converted.
bool Encode(const wchar16* text, ZUCHARSET charset, char* buffer, uint64 size, EncodedText* encoded) {
    if (!ConvertSystemToMBCSChar(text, buffer, charset, size, false)) return false;
    // UTF-16 is full of zero bytes and comes without a terminator.
    const uint64 count = charset == csUTF16 ? 2 * platform::wcslen(text) : std::strlen(buffer);
    *encoded = {buffer, count};
    return true;
}

// Puts the line end of a charset in its own bytes.
bool PutLineEnd(ZUCHARSET charset, FILE* stream) {
    char bytes[8];
    EncodedText end;
    return Encode(CharsetSlashN(charset), charset, bytes, sizeof bytes, &end) &&
           platform::fwrite(end.bytes, 1, end.count, stream) == end.count;
}

// The LF that comes next in bytes of a charset, or their end. No other byte of a character looks like one, but in
// UTF-16 both bytes of a unit count.
const char* FindLineFeed(const char* from, const char* end, ZUCHARSET charset) {
    if (charset != csUTF16) {
        const void* const found = std::memchr(from, LF, static_cast<std::size_t>(end - from));
        return found != nullptr ? static_cast<const char*>(found) : end;
    }
    while (from < end && !(from[0] == LF && from[1] == 0)) from += 2;
    return from;
}

bool PutRun(const char* from, const char* end, FILE* stream) {
    const auto count = static_cast<std::size_t>(end - from);
    return count == 0 || platform::fwrite(from, 1, count, stream) == count;
}

// Every LF goes out as the line end of the charset.
bool PutLines(const EncodedText& text, ZUCHARSET charset, FILE* stream) {
    const int lineFeedBytes = charset == csUTF16 ? 2 : 1;
    const char* const end = text.bytes + text.count;
    const char* from = text.bytes;
    for (;;) {
        const char* const lineFeed = FindLineFeed(from, end, charset);
        if (!PutRun(from, lineFeed, stream)) return false;
        if (lineFeed == end) return true;
        if (!PutLineEnd(charset, stream)) return false;
        from = lineFeed + lineFeedBytes;
    }
}

}  // namespace

int cFileSystemImpl::fputs2(const wchar16* text, FILE* file) {
    FileEntry* const entry = FindEntry(AsFileHandle(file));
    FILE* const stream = StreamOf(entry);
    if (stream == nullptr || text == nullptr) return -1;
    const uint64 bytesPerUnit = entry->charset == csUTF8 ? 4 : 2;
    const uint64 size = platform::wcslen(text) * bytesPerUnit + 1;
    char* const buffer = WorkingBuffer(*entry, size);
    EncodedText encoded;
    if (buffer == nullptr || !Encode(text, entry->charset, buffer, size, &encoded)) return -1;
    return PutLines(encoded, entry->charset, stream) ? 0 : -1;
}

int cFileSystemImpl::vfprintf2(FILE* file, const wchar16* format, va_list arguments) {
    if (format == nullptr) return -1;
    try {
        wstring16 text;
        const int length = platform::FormatText(&text, format, arguments);
        return length >= 0 && fputs2(text.c_str(), file) >= 0 ? length : -1;
    } catch (const std::bad_alloc&) {
        return -1;
    }
}

int cFileSystemImpl::fprintf2(FILE* file, const wchar16* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = vfprintf2(file, format, arguments);
    va_end(arguments);
    return length;
}

int fputs2(const wchar16* text, FILE* file) {
    return cFileSystem::Instance()->fputs2(text, file);
}

int vfprintf2(FILE* file, const wchar16* format, va_list arguments) {
    return cFileSystem::Instance()->vfprintf2(file, format, arguments);
}

int fprintf2(FILE* file, const wchar16* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = vfprintf2(file, format, arguments);
    va_end(arguments);
    return length;
}

}  // namespace Torvo
