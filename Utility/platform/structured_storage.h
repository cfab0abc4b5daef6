// Structured storage: compound files, which hold named streams, to read.
//
// The calls are the system's, as free functions. They answer a result of the system, negative on failure; those that
// the library tells apart are named below. A storage and its streams are counted objects: each that was opened is
// released once.
#pragma once

#include <Utility/platform/types.h>

#if defined(_WIN32)
#include <objidl.h>
#endif

namespace Torvo::platform {

// Results. The values are the system's.
inline constexpr long32 StorageOk = 0;
inline constexpr long32 StorageNotOne = 1;  // a file, but no compound file
inline constexpr long32 StorageInvalidFunction = static_cast<long32>(0x80030001);
inline constexpr long32 StorageFileNotFound = static_cast<long32>(0x80030002);
inline constexpr long32 StorageTooManyOpenFiles = static_cast<long32>(0x80030004);
inline constexpr long32 StorageAccessDenied = static_cast<long32>(0x80030005);
inline constexpr long32 StorageOutOfMemory = static_cast<long32>(0x80030008);
inline constexpr long32 StorageReadFault = static_cast<long32>(0x8003001E);
inline constexpr long32 StorageInvalidHeader = static_cast<long32>(0x800300FB);

// Modes of an open, to read.
inline constexpr uint32 StorageShareExclusive = 0x10;
inline constexpr uint32 StorageShareDenyWrite = 0x20;

#if defined(_WIN32)
using Storage = ::IStorage;
using StorageStream = ::IStream;
#else
class Storage;
class StorageStream;
#endif

// StorageOk if the file is a compound file, by its first bytes. For the moment others are denied what a reader denies:
// a file that somebody writes cannot be looked at.
long32 StgIsStorageFile(const wchar16* path);
// Opens a compound file. *storage is null on failure.
long32 StgOpenStorage(const wchar16* path, uint32 mode, Storage** storage);
// Opens a stream of the storage's top level by its name, whose case does not count. StorageFileNotFound if there is
// none. *stream is null on failure.
long32 OpenStream(Storage* storage, const wchar16* name, uint32 mode, StorageStream** stream);
// Reads at the stream's position and moves it on. *got is how many bytes, fewer only at the end.
long32 Read(StorageStream* stream, void* buffer, uint32 count, uint32* got);
// Moves the position: origin 0 from the start, 1 from where it is, 2 from the end. It may come to lie behind the end,
// but not before the start. *position is where it is then.
long32 Seek(StorageStream* stream, int64 offset, uint32 origin, uint64* position);
// Gives one back; not null.
void Release(Storage* storage);
void Release(StorageStream* stream);

}  // namespace Torvo::platform
