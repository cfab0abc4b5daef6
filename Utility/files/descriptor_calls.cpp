// What is called most of the descriptor world, by the shortest road. Where the services are the library's own and the
// bytes lie in the block used last, nothing is called on the way, so that nothing has to be kept over a call; in every
// other case the road goes on in descriptor_io.cpp.

#include <Utility/file_io.h>
#include <Utility/files/file_cache.h>
#include <Utility/files/file_system_impl.h>
#include <Utility/files/own_service.h>
#include <Utility/frame/instance_data.h>
#include <Utility/platform/byte_copy.h>

namespace Torvo {

namespace {

// The instance that the thread itself holds, and its services. Each is null where it is missing or a host's.

inline InstanceDataImpl* HeldInstanceOfOwn() {
    return AsOwn<InstanceDataImpl>(InstanceHeldByThread());
}

inline cFileSystemImpl* FilesOf(InstanceDataImpl* instance) {
    if (instance == nullptr) return nullptr;
    return AsOwn<cFileSystemImpl>(ServiceOf<cFileSystem, ServiceKey::FileSystem>(*instance));
}

inline FileCacheImpl* CacheOf(InstanceDataImpl* instance) {
    if (instance == nullptr) return nullptr;
    return AsOwn<FileCacheImpl>(ServiceOf<cFileCache, ServiceKey::FileCache>(*instance));
}

}  // namespace

// Most calls want few bytes of the block used last. They are served here without a call.
int cFileSystemImpl::Read(FileCacheImpl& cache, int file, void* buffer, uint64 count) {
    FileEntry* const entry = FindEntry(file);
    if (entry == nullptr) return -1;
    const int64 position = entry->position;
    const char* const bytes = cache.FindInLastUsed(file, position, count);
    if (bytes == nullptr) return ReadElsewhere(cache, file, *entry, buffer, count);
    if (count > platform::FewBytes) return CopyFound(*entry, buffer, bytes, count);
    platform::CopyFewBytes(buffer, bytes, count);
    entry->position = position + static_cast<int64>(count);
    return static_cast<int>(count);
}

// As Read.
int cFileSystemImpl::Write(FileCacheImpl& cache, int file, const void* buffer, uint64 count) {
    FileEntry* const entry = FindEntry(file);
    if (entry == nullptr) return -1;
    char* const bytes = entry->MayBeWritten() ? cache.FindInLastUsed(file, entry->position, count) : nullptr;
    if (bytes == nullptr || count > platform::FewBytes) return WriteEntry(&cache, file, *entry, buffer, count);
    const int64 end = entry->position + static_cast<int64>(count);
    if (end > entry->length) return WriteEntry(&cache, file, *entry, buffer, count);
    platform::CopyFewBytes(bytes, buffer, count);
    cache.MarkLastUsedDirty();
    entry->position = end;
    return static_cast<int>(count);
}

int64 lseek2(int file, int64 offset, int whence) {
    auto* const files = FilesOf(HeldInstanceOfOwn());
    return files != nullptr ? files->Seek(file, offset, whence) : SeekByService(file, offset, whence);
}

int read2(int file, void* buffer, uint64 count) {
    auto* const instance = HeldInstanceOfOwn();
    auto* const files = FilesOf(instance);
    auto* const cache = CacheOf(instance);
    if (files == nullptr || cache == nullptr) return ReadByService(file, buffer, count);
    return files->Read(*cache, file, buffer, count);
}

int write2(int file, const void* buffer, uint64 count) {
    auto* const instance = HeldInstanceOfOwn();
    auto* const files = FilesOf(instance);
    auto* const cache = CacheOf(instance);
    if (files == nullptr || cache == nullptr) return WriteByService(file, buffer, count);
    return files->Write(*cache, file, buffer, count);
}

}  // namespace Torvo
