// The stream world as bytes: what is handed to the runtime's stream as it stands.

#include <Utility/file_io.h>
#include <Utility/files/file_system_impl.h>
#include <Utility/files/stream_entry.h>
#include <Utility/platform/platform.h>

#include <cstdio>

namespace Torvo {

unsigned int cFileSystemImpl::fread2(void* buffer, unsigned int size, unsigned int count, FILE* file) {
    FILE* const stream = StreamOf(FindEntry(AsFileHandle(file)));
    return stream != nullptr ? static_cast<unsigned int>(platform::fread(buffer, size, count, stream)) : 0;
}

unsigned int cFileSystemImpl::fwrite2(const void* buffer, unsigned int size, unsigned int count, FILE* file) {
    FILE* const stream = StreamOf(FindEntry(AsFileHandle(file)));
    return stream != nullptr ? static_cast<unsigned int>(platform::fwrite(buffer, size, count, stream)) : 0;
}

int cFileSystemImpl::fseek2(FILE* file, int64 offset, int whence) {
    FILE* const stream = StreamOf(FindEntry(AsFileHandle(file)));
    return stream != nullptr ? platform::_fseeki64(stream, offset, whence) : -1;
}

int64 cFileSystemImpl::ftell2(FILE* file) {
    FILE* const stream = StreamOf(FindEntry(AsFileHandle(file)));
    return stream != nullptr ? platform::_ftelli64(stream) : -1;
}

int cFileSystemImpl::feof2(FILE* file) {
    FILE* const stream = StreamOf(FindEntry(AsFileHandle(file)));
    return stream != nullptr ? platform::feof(stream) : -1;
}

int cFileSystemImpl::ferror2(FILE* file) {
    FILE* const stream = StreamOf(FindEntry(AsFileHandle(file)));
    return stream != nullptr ? platform::ferror(stream) : -1;
}

int cFileSystemImpl::fflush2(FILE* file) {
    FILE* const stream = StreamOf(FindEntry(AsFileHandle(file)));
    return stream != nullptr ? platform::fflush(stream) : -1;
}

int64 cFileSystemImpl::ffilelength2(FILE* file) {
    FILE* const stream = StreamOf(FindEntry(AsFileHandle(file)));
    if (stream == nullptr) return -1;
    const int64 position = platform::_ftelli64(stream);
    if (position == -1 || platform::_fseeki64(stream, 0, SEEK_END) != 0) return -1;
    const int64 length = platform::_ftelli64(stream);
    return platform::_fseeki64(stream, position, SEEK_SET) == 0 ? length : -1;
}

unsigned int fread2(void* buffer, unsigned int size, unsigned int count, FILE* file) {
    return cFileSystem::Instance()->fread2(buffer, size, count, file);
}

unsigned int fwrite2(const void* buffer, unsigned int size, unsigned int count, FILE* file) {
    return cFileSystem::Instance()->fwrite2(buffer, size, count, file);
}

int fseek2(FILE* file, int64 offset, int whence) {
    return cFileSystem::Instance()->fseek2(file, offset, whence);
}

int64 ftell2(FILE* file) {
    return cFileSystem::Instance()->ftell2(file);
}

int feof2(FILE* file) {
    return cFileSystem::Instance()->feof2(file);
}

int ferror2(FILE* file) {
    return cFileSystem::Instance()->ferror2(file);
}

int fflush2(FILE* file) {
    return cFileSystem::Instance()->fflush2(file);
}

int64 ffilelength2(FILE* file) {
    return cFileSystem::Instance()->ffilelength2(file);
}

}  // namespace Torvo
