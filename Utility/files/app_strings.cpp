// App strings: a byte that says how long it is, and a text in the file's character set.

#include <Utility/conversion.h>
#include <Utility/file_io.h>
#include <Utility/files/file_system_impl.h>
#include <Utility/platform/platform.h>

#include <cstring>
#include <memory>
#include <new>

namespace Torvo {

bool cFileSystemImpl::read_app_string(int file, wchar16* out, unsigned int size) {
    if (out != nullptr && size != 0) *out = 0;
    signed char length = 0;
    if (read2(file, &length, 1) < 1) return false;
    if (length < 0 || out == nullptr || size == 0) return false;
    char text[128];
    if (read2(file, text, static_cast<uint64>(length)) != length) return false;
    text[length] = 0;
    // The conversion puts its terminator behind a text that fills the room. UTF-16 has zero bytes inside.
    const ZUCHARSET charset = file_get_charset(file);
    const bool converted = charset == csUTF16
                               ? ConvertMBCSCharToSystem(text, static_cast<uint64>(length), charset, out, size)
                               : ConvertMBCSCharToSystem(text, charset, out, size);
    if (!converted) *out = 0;
    return converted;
}

int cFileSystemImpl::read_app_string_len(int file) {
    signed char length = 0;
    const int read = read2(file, &length, 1);
    if (read < 1) return read;
    lseek2(file, -read, 1);
    return length;
}

int cFileSystemImpl::write_app_string(int file, const wchar16* text) {
    if (text == nullptr || *text == 0) return -1;
    const uint64 units = platform::wcslen(text);
    const uint64 size = 2 * units + 1;
    const std::unique_ptr<char[]> bytes(new (std::nothrow) char[size]);
    if (bytes == nullptr) return -1;
    const ZUCHARSET charset = file_get_charset(file);
    if (!ConvertSystemToMBCSChar(text, bytes.get(), charset, size, false)) return -1;
    const uint64 length = charset == csUTF16 ? 2 * units : std::strlen(bytes.get());
    const auto lowByte = static_cast<unsigned char>(length);
    if (write2(file, &lowByte, 1) != 1) return -1;
    return write2(file, bytes.get(), length);
}

bool read_app_string(int file, wchar16* out, unsigned int size) {
    return cFileSystem::Instance()->read_app_string(file, out, size);
}

int read_app_string_len(int file) {
    return cFileSystem::Instance()->read_app_string_len(file);
}

int write_app_string(int file, const wchar16* text) {
    return cFileSystem::Instance()->write_app_string(file, text);
}

}  // namespace Torvo
