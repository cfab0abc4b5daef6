// Streams inside compound files. What is no compound file is read as a plain one.

#include <Utility/file_io.h>
#include <Utility/files/file_system_impl.h>
#include <Utility/files/record_path.h>
#include <Utility/platform/platform.h>
#include <Utility/strings.h>

#include <memory>
#include <new>
#include <utility>

namespace Torvo {

namespace {

template <typename Object>
struct ReleaseObject {
    void operator()(Object* object) const { platform::Release(object); }
};
using StoragePointer = std::unique_ptr<platform::Storage, ReleaseObject<platform::Storage>>;
using StreamPointer = std::unique_ptr<platform::StorageStream, ReleaseObject<platform::StorageStream>>;

}  // namespace

// The stream is declared last, so that it is released before its storage.
struct StorageRecord {
    int32 count;  // how many opens have not been closed
    StoragePointer storage;
    StreamPointer stream;
};

namespace {

long32 OpenStorage(const wchar16* path, StoragePointer* storage) {
    platform::Storage* opened = nullptr;
    const long32 result = platform::StgOpenStorage(path, platform::StorageShareDenyWrite, &opened);
    storage->reset(result == platform::StorageOk ? opened : nullptr);
    return result;
}

long32 OpenNamedStream(platform::Storage* storage, const wchar16* name, StreamPointer* stream) {
    platform::StorageStream* opened = nullptr;
    const long32 result = platform::OpenStream(storage, name, platform::StorageShareExclusive, &opened);
    stream->reset(result == platform::StorageOk ? opened : nullptr);
    return result;
}

// A workbook's stream was called "Book" once; who asks for that gets the newer one where there is no such.
StreamPointer OpenStreamOf(platform::Storage* storage, const wchar16* name) {
    StreamPointer stream;
    const long32 result = OpenNamedStream(storage, name, &stream);
    if (result == platform::StorageFileNotFound && strequ(name, ZUTEXT("Book"))) {
        OpenNamedStream(storage, ZUTEXT("Workbook"), &stream);
    }
    return stream;
}

StorageRecord* OpenRecord(StoragePointer storage, const wchar16* streamName) {
    if (storage == nullptr) return nullptr;
    StreamPointer stream = OpenStreamOf(storage.get(), streamName);
    if (stream == nullptr) return nullptr;
    return new (std::nothrow) StorageRecord{1, std::move(storage), std::move(stream)};
}

}  // namespace

int cFileSystemImpl::stream_fileopen(int file, eOpenMode mode, int* changed, const wchar16* streamName) {
    FileEntry* const entry = FindEntry(file);
    if (entry == nullptr) return -1;
    if (entry->storage != nullptr) {
        if (stream_lseek(file, 0, SEEK_SET) == -1) return -1;
        ++entry->storage->count;
        return file;
    }
    const RecordPath path(*entry->name);
    if (path.IsTooLong()) return fileopen(file, mode, changed);
    // Looking into a file takes a handle of the system: idle files make room, as they do for fileopen.
    const auto withRoom = [this](auto call) {
        long32 result = call();
        while (result == platform::StorageTooManyOpenFiles && CloseOldest()) result = call();
        return result;
    };
    if (withRoom([&] { return platform::StgIsStorageFile(path.Text()); }) != platform::StorageOk) {
        return fileopen(file, mode, changed);
    }
    if (streamName == nullptr) return -1;
    StoragePointer storage;
    withRoom([&] { return OpenStorage(path.Text(), &storage); });
    entry->storage = OpenRecord(std::move(storage), streamName);
    return entry->storage != nullptr ? file : -1;
}

int cFileSystemImpl::stream_close(int file) {
    FileEntry* const entry = FindEntry(file);
    if (entry == nullptr || entry->storage == nullptr) return close2(file);
    if (entry->storage->count > 1) {
        --entry->storage->count;
    } else {
        DropStorage(*entry);
    }
    return 0;
}

long32 cFileSystemImpl::stream_lseek(int file, long32 offset, int whence) {
    FileEntry* const entry = FindEntry(file);
    if (entry == nullptr || entry->storage == nullptr) return static_cast<long32>(lseek2(file, offset, whence));
    const uint32 origin = whence == SEEK_CUR || whence == SEEK_END ? static_cast<uint32>(whence) : uint32{SEEK_SET};
    uint64 position = 0;
    const long32 result = platform::Seek(entry->storage->stream.get(), offset, origin, &position);
    return result < 0 ? -1 : static_cast<long32>(position);
}

int cFileSystemImpl::stream_read(int file, void* buffer, unsigned int count) {
    FileEntry* const entry = FindEntry(file);
    if (entry == nullptr || entry->storage == nullptr) return read2(file, buffer, count);
    uint32 got = 0;
    const long32 result = platform::Read(entry->storage->stream.get(), buffer, count, &got);
    return result < 0 ? -1 : static_cast<int>(got);
}

void cFileSystemImpl::DropStorage(FileEntry& entry) {
    delete entry.storage;
    entry.storage = nullptr;
}

int stream_fileopen(int file, eOpenMode mode, int* changed, const wchar16* streamName) {
    return cFileSystem::Instance()->stream_fileopen(file, mode, changed, streamName);
}

int stream_close(int file) {
    return cFileSystem::Instance()->stream_close(file);
}

long32 stream_lseek(int file, long32 offset, int whence) {
    return cFileSystem::Instance()->stream_lseek(file, offset, whence);
}

int stream_read(int file, void* buffer, unsigned int count) {
    return cFileSystem::Instance()->stream_read(file, buffer, count);
}

}  // namespace Torvo
