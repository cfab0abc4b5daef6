#include <Utility/platform/structured_storage.h>
#include <Utility/platform/windows/system_calls.h>

namespace Torvo::platform {

namespace {

// Makes a call through the seam for faults.
template <typename Call>
long32 StorageCall(long32 failure, Call call) {
    return RuntimeCall(failure, call);
}

// Moves and tells where to.
long32 Move(StorageStream* stream, int64 offset, uint32 origin, uint64* position) {
    LARGE_INTEGER distance;
    distance.QuadPart = offset;
    ULARGE_INTEGER reached;
    reached.QuadPart = 0;
    const long32 result = stream->Seek(distance, origin, &reached);
    *position = reached.QuadPart;
    return result;
}

// A place before the start is refused by the call's documentation, but not by every system that has it.
long32 MoveWithinRange(StorageStream* stream, int64 offset, uint32 origin, uint64* position) {
    uint64 former = 0;
    const long32 asked = Move(stream, 0, STREAM_SEEK_CUR, &former);
    if (asked < 0) return asked;
    const long32 result = Move(stream, offset, origin, position);
    if (result < 0 || static_cast<int64>(*position) >= 0) return result;
    Move(stream, static_cast<int64>(former), STREAM_SEEK_SET, position);
    return StorageInvalidFunction;
}

}  // namespace

long32 StgIsStorageFile(const wchar16* path) {
    return StorageCall(StorageReadFault, [&] { return ::StgIsStorageFile(path); });
}

long32 StgOpenStorage(const wchar16* path, uint32 mode, Storage** storage) {
    *storage = nullptr;
    return StorageCall(StorageReadFault, [&] { return ::StgOpenStorage(path, nullptr, mode, nullptr, 0, storage); });
}

long32 OpenStream(Storage* storage, const wchar16* name, uint32 mode, StorageStream** stream) {
    *stream = nullptr;
    return StorageCall(StorageReadFault, [&] { return storage->OpenStream(name, nullptr, mode, 0, stream); });
}

long32 Read(StorageStream* stream, void* buffer, uint32 count, uint32* got) {
    *got = 0;
    return StorageCall(StorageReadFault, [&] {
        ULONG read = 0;
        const long32 result = stream->Read(buffer, count, &read);
        *got = read;
        return result;
    });
}

long32 Seek(StorageStream* stream, int64 offset, uint32 origin, uint64* position) {
    return StorageCall(StorageReadFault, [&] {
        return offset < 0 ? MoveWithinRange(stream, offset, origin, position) : Move(stream, offset, origin, position);
    });
}

void Release(Storage* storage) {
    storage->Release();
}

void Release(StorageStream* stream) {
    stream->Release();
}

}  // namespace Torvo::platform
