#include <Utility/byte_order_marks.h>

#include <Utility/files/file_system_impl.h>

#include <cstdio>
#include <cstring>

namespace Torvo {

namespace {

constexpr unsigned char kMark[3] = {0xEF, 0xBB, 0xBF};

bool IsMark(const unsigned char* bytes) {
    return std::memcmp(bytes, kMark, sizeof kMark) == 0;
}

}  // namespace

ZUCHARSET cFileSystemImpl::ProcessUTFBom(int file) {
    if (file == 0) return csUnknown;
    unsigned char bytes[sizeof kMark] = {};
    const int64 start = tell2(file);
    if (read2(file, bytes, sizeof bytes) == 0) return csUnknown;
    const bool isThere = IsMark(bytes);
    lseek2(file, isThere ? start + static_cast<int64>(sizeof bytes) : start, SEEK_SET);
    return isThere ? csUTF8 : csUnknown;
}

ZUCHARSET cFileSystemImpl::ProcessUTFBom(FILE* file) {
    if (file == nullptr) return csUnknown;
    unsigned char bytes[sizeof kMark] = {};
    const int64 start = ftell2(file);
    // Who does not know where the stream stands could not put it back.
    if (start == -1 || fread2(bytes, 1, sizeof bytes, file) == 0) return csUnknown;
    const bool isThere = IsMark(bytes);
    fseek2(file, isThere ? start + static_cast<int64>(sizeof bytes) : start, SEEK_SET);
    return isThere ? csUTF8 : csUnknown;
}

bool cFileSystemImpl::WriteUTFBom(int file, ZUCHARSET charset) {
    return file == 0 || charset != csUTF8 || write2(file, kMark, sizeof kMark) == static_cast<int>(sizeof kMark);
}

bool cFileSystemImpl::WriteUTFBom(FILE* file, ZUCHARSET charset) {
    return file == nullptr || charset != csUTF8 || fwrite2(kMark, 1, sizeof kMark, file) == sizeof kMark;
}

ZUCHARSET ProcessUTFBom(int file) {
    return cFileSystem::Instance()->ProcessUTFBom(file);
}

ZUCHARSET ProcessUTFBom(FILE* file) {
    return cFileSystem::Instance()->ProcessUTFBom(file);
}

bool WriteUTFBom(int file, ZUCHARSET charset) {
    return cFileSystem::Instance()->WriteUTFBom(file, charset);
}

bool WriteUTFBom(FILE* file, ZUCHARSET charset) {
    return cFileSystem::Instance()->WriteUTFBom(file, charset);
}

}  // namespace Torvo
