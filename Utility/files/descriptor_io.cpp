// The descriptor world: bytes at the logical position of a file, through the block cache where there is one.

#include <Utility/file_cache.h>
#include <Utility/file_io.h>
#include <Utility/files/file_cache.h>
#include <Utility/files/file_cache_positions.h>
#include <Utility/files/file_system_impl.h>
#include <Utility/files/own_service.h>
#include <Utility/platform/byte_copy.h>
#include <Utility/platform/platform.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

namespace Torvo {

namespace {

// A file that grows in the cache grows on disk too when its length passes a multiple of this.
constexpr int64 GrowthStep = 512;

// No block begins behind this one whose end could not be told.
constexpr int64 LastPosition = std::numeric_limits<int64>::max() - std::numeric_limits<int32>::max();

// Where a position lies: in which block, and how far behind its start.
struct Place {
    int64 block;
    int32 offset;
};

// For positions that are not negative.
Place PlaceOf(int64 position, int32 blockSize) {
    const auto place = static_cast<uint64>(position);
    const auto size = static_cast<uint32>(blockSize);
    if ((size & (size - 1)) == 0) {  // a power of two: only saves the division
        return {static_cast<int64>(place >> std::countr_zero(size)), static_cast<int32>(place & (size - 1))};
    }
    return {static_cast<int64>(place / size), static_cast<int32>(place % size)};
}

char* BytesOf(cFileCache& cache, const CacheEntry& block) {
    return static_cast<char*>(cache.BlockData(block.slot));
}

// Makes a block hold `count` bytes; what it did not hold before becomes zeros.
void SetCount(cFileCache& cache, CacheEntry& block, int32 count) {
    if (count > block.count)
        std::memset(BytesOf(cache, block) + block.count, 0, static_cast<uint64>(count - block.count));
    block.count = count;
}

// Whether a block that is not dirty holds less than the file, of that length, has in its place. The cache keeps a block
// that could not be read as one without content; what is on disk must not be overwritten from there.
bool LacksContent(const CacheEntry& block, int64 length, int32 blockSize) {
    const int64 share = std::min<int64>(length - block.block * blockSize, blockSize);
    return (block.flags & DirtyFlag) == 0 && block.count < share;
}

// Whether a look-up of a block was refused because the library's own cache has no place for it; for a block that cannot
// be read it has one.
bool LacksPlaceFor(cFileCache& cache, int file, int64 block) {
    const auto* const own = AsOwn<FileCacheImpl>(&cache);
    return own != nullptr && !own->Holds(file, block);
}

// The entry of a block, looked up in a mode that takes one for it; null if there is none to be had. In the library's
// own cache the blocks that a closed file could not be rid of make way.
CacheEntry* EntryOf(cFileCache& cache, int file, int64 block, int mode) {
    CacheEntry* found = nullptr;
    if (cache.Lookup(file, block, &found, mode)) return found;
    const bool mayAskAgain =
        LacksPlaceFor(cache, file, block) && static_cast<FileCacheImpl&>(cache).DropVictimOfClosedFile();
    return mayAskAgain && cache.Lookup(file, block, &found, mode) ? found : nullptr;
}

// The block with its content from the file, or null if it cannot be had.
CacheEntry* ContentOf(cFileCache& cache, int file, int64 block, int64 length) {
    CacheEntry* const found = EntryOf(cache, file, block, 2);
    if (found == nullptr || found->count != 0 || !LacksContent(*found, length, cache.BlockSize())) return found;
    cache.EvictAt(FirstPositionFrom(cache, file, block));
    return EntryOf(cache, file, block, 2);
}

// The entry of a block that the cache holds at a position, if it is that of this block; else null.
CacheEntry* HeldAt(cFileCache& cache, int position, int file, int64 block) {
    CacheEntry* const entry = cache.EntryAt(position);
    return entry != nullptr && entry->handle == file && entry->block == block ? entry : nullptr;
}

// Brings a block that the cache holds, if it does, to `count` bytes, after the file's length was changed from `former`.
// It becomes dirty if that changes it, and in any case where `dirties` says so.
void ResizeBlock(cFileCache& cache, int file, int64 block, int32 count, int64 former, bool dirties) {
    const int position = FirstPositionFrom(cache, file, block);
    CacheEntry* const entry = HeldAt(cache, position, file, block);
    if (entry == nullptr) return;
    if (LacksContent(*entry, former, cache.BlockSize())) {
        cache.EvictAt(position);
    } else if (dirties || entry->count != count) {
        SetCount(cache, *entry, count);
        entry->flags |= DirtyFlag;
    }
}

void EvictFrom(cFileCache& cache, int file, int64 firstBlock) {
    // An entry that is evicted moves to the front, so that the next one stands one further.
    for (int position = FirstPositionFrom(cache, file, firstBlock);; ++position) {
        const CacheEntry* const entry = cache.EntryAt(position);
        if (entry == nullptr || entry->handle != file) return;
        cache.EvictAt(position);
    }
}

// Brings the blocks of a file into line with its new length.
void ResizeBlocks(cFileCache& cache, int file, int64 former, int64 length) {
    const int32 blockSize = cache.BlockSize();
    const int64 last = (length - 1) / blockSize;
    const int64 formerLast = (former - 1) / blockSize;
    EvictFrom(cache, file, last + 1);
    ResizeBlock(cache, file, last, static_cast<int32>((length - 1) % blockSize + 1), former, false);
    if (formerLast < last) ResizeBlock(cache, file, formerLast, blockSize, former, true);
}

int ReadDirectly(FileEntry& entry, void* buffer, uint64 count) {
    const auto wanted = static_cast<uint32>(count);
    const int result = entry.fd != -1 ? platform::ReadAt(entry.fd, entry.position, buffer, wanted, wanted) : -1;
    // A failure, -1, moves it on by 4294967295. Unsigned, since a position beyond all limits only has to be wrong.
    entry.position = static_cast<int64>(static_cast<uint64>(entry.position) + static_cast<uint32>(result));
    return result;
}

int WriteDirectly(FileEntry& entry, const void* buffer, uint64 count) {
    const int result = platform::WriteAt(entry.fd, entry.position, buffer, static_cast<uint32>(count));
    if (result <= 0) return result;
    entry.position += result;
    entry.length = std::max(entry.length, entry.position);
    return result;
}

// Reads past the cache; how many bytes, -1 if they cannot be read.
int ReadThrough(const FileEntry& entry, void* bytes, uint32 count) {
    return entry.fd != -1 ? platform::ReadAt(entry.fd, entry.position, bytes, count, count) : -1;
}

// Reads at the position of a file, which is at a place, what is wanted of that one block; how many bytes.
uint64 ReadFromBlock(cFileCache& cache, int file, const FileEntry& entry, Place place, char* bytes, uint64 wanted) {
    const CacheEntry* const block = ContentOf(cache, file, place.block, entry.length);
    if (block == nullptr) {
        // That the cache has no place for it, while another file cannot be written, is no reason to read less.
        if (!LacksPlaceFor(cache, file, place.block)) return 0;
        return static_cast<uint64>(std::max(ReadThrough(entry, bytes, static_cast<uint32>(wanted)), 0));
    }
    const uint64 got = std::min(wanted, static_cast<uint64>(std::max(block->count - place.offset, 0)));
    platform::CopyBytes(bytes, BytesOf(cache, *block) + place.offset, got);
    return got;
}

// Writes past the cache; false if not all of it could be written. The length follows as far as 32 bits go.
bool WriteThrough(FileEntry& entry, int64 position, const void* bytes, uint32 count) {
    if (platform::WriteAt(entry.fd, position, bytes, count) != static_cast<int>(count)) return false;
    entry.length = std::max<int64>(entry.length, static_cast<int32>(position + count));
    return true;
}

// Puts bytes into a block, and lets the file grow if they reach beyond its end.
void PutIntoBlock(cFileCache& cache, CacheEntry& block, int32 offset, const void* bytes, int32 count) {
    if (offset > block.count) SetCount(cache, block, offset);
    std::memcpy(BytesOf(cache, block) + offset, bytes, static_cast<uint64>(count));
    block.flags |= DirtyFlag;
    block.count = std::max(block.count, offset + count);
}

// Whether the file on disk reaches to `end` although its known length does not. That is so only behind the limit to
// which WriteThrough lets the length follow.
bool DiskReachesTo(const FileEntry& entry, int64 end) {
    return end > std::numeric_limits<int32>::max() && platform::_lseeki64(entry.fd, 0, 2) >= end;
}

void GrowTo(FileEntry& entry, int64 end) {
    if (end <= entry.length) return;
    const bool passesStep = entry.length / GrowthStep < end / GrowthStep;
    if (passesStep && !DiskReachesTo(entry, end)) platform::_chsize_s(entry.fd, end);
    entry.length = end;
}

}  // namespace

int64 cFileSystemImpl::lseek2(int file, int64 offset, int whence) {
    return Seek(file, offset, whence);
}

int64 cFileSystemImpl::tell2(int file) {
    return Seek(file, 0, 1);
}

int64 cFileSystemImpl::filelength2(int file) {
    const FileEntry* const entry = FindEntry(file);
    return entry != nullptr ? entry->length : -1;
}

int cFileSystemImpl::read2(int file, void* buffer, uint64 count) {
    FileEntry* const entry = FindEntry(file);
    return entry != nullptr ? ReadEntry(cFileCache::Instance(), file, *entry, buffer, count) : -1;
}

int cFileSystemImpl::ReadEntry(cFileCache* cache, int file, FileEntry& entry, void* buffer, uint64 count) {
    auto* const own = AsOwn<FileCacheImpl>(cache);
    const char* const bytes = own != nullptr ? own->Find(file, entry.position, count) : nullptr;
    return bytes != nullptr ? CopyFound(entry, buffer, bytes, count) : ReadBlocks(cache, file, entry, buffer, count);
}

int cFileSystemImpl::ReadElsewhere(FileCacheImpl& cache, int file, FileEntry& entry, void* buffer, uint64 count) {
    const char* const bytes = cache.FindElsewhere(file, entry.position, count);
    return bytes != nullptr ? CopyFound(entry, buffer, bytes, count) : ReadBlocks(&cache, file, entry, buffer, count);
}

int cFileSystemImpl::CopyFound(FileEntry& entry, void* buffer, const char* bytes, uint64 count) {
    platform::CopyBytes(buffer, bytes, count);
    entry.position += static_cast<int64>(count);
    return static_cast<int>(count);
}

int cFileSystemImpl::ReadBlocks(cFileCache* cache, int file, FileEntry& entry, void* buffer, uint64 count) {
    if (cache == nullptr) return ReadDirectly(entry, buffer, count);
    const int32 blockSize = cache->BlockSize();
    auto* const target = static_cast<char*>(buffer);
    uint64 total = 0;
    while (total < count && entry.position >= 0) {
        const Place place = PlaceOf(entry.position, blockSize);
        const uint64 wanted = std::min(count - total, static_cast<uint64>(blockSize - place.offset));
        const uint64 got = ReadFromBlock(*cache, file, entry, place, target + total, wanted);
        total += got;
        entry.position += static_cast<int64>(got);
        if (got != wanted) break;
    }
    return static_cast<int>(total);
}

int cFileSystemImpl::write2(int file, const void* buffer, uint64 count) {
    FileEntry* const entry = FindEntry(file);
    return entry != nullptr ? WriteEntry(cFileCache::Instance(), file, *entry, buffer, count) : -1;
}

int cFileSystemImpl::WriteEntry(cFileCache* cache, int file, FileEntry& entry, const void* buffer, uint64 count) {
    if (!entry.MayBeWritten()) return -1;
    auto* const own = AsOwn<FileCacheImpl>(cache);
    char* const bytes = own != nullptr ? own->Find(file, entry.position, count) : nullptr;
    if (bytes == nullptr) return WriteBlocks(cache, file, entry, buffer, count);
    platform::CopyBytes(bytes, buffer, count);
    own->MarkLastUsedDirty();
    entry.position += static_cast<int64>(count);
    GrowTo(entry, entry.position);
    return static_cast<int>(count);
}

int cFileSystemImpl::WriteBlocks(cFileCache* cache, int file, FileEntry& entry, const void* buffer, uint64 count) {
    if (cache == nullptr) return WriteDirectly(entry, buffer, count);
    const int32 blockSize = cache->BlockSize();
    const auto* const source = static_cast<const char*>(buffer);
    uint64 total = 0;
    while (total < count) {
        if (entry.position < 0 || entry.position > LastPosition) return -1;
        const Place place = PlaceOf(entry.position, blockSize);
        const auto piece = static_cast<int32>(std::min(count - total, static_cast<uint64>(blockSize - place.offset)));
        // A block that is written whole is not read before.
        CacheEntry* const block = piece != blockSize ? ContentOf(*cache, file, place.block, entry.length)
                                                     : EntryOf(*cache, file, place.block, 1);
        if (block != nullptr) {
            PutIntoBlock(*cache, *block, place.offset, source + total, piece);
            GrowTo(entry, entry.position + piece);
        } else if (!WriteThrough(entry, entry.position, source + total, static_cast<uint32>(piece))) {
            return -1;
        }
        total += static_cast<uint64>(piece);
        entry.position += piece;
    }
    return static_cast<int>(total);
}

int cFileSystemImpl::chsize2(int file, int64 length) {
    FileEntry* const entry = FindEntry(file);
    if (entry == nullptr || entry->fd == -1 || platform::_chsize_s(entry->fd, length) != 0) return -1;
    const int64 former = entry->length;
    entry->length = length;
    if (cFileCache* const cache = cFileCache::Instance()) ResizeBlocks(*cache, file, former, length);
    return 0;
}

int64 tell2(int file) {
    return cFileSystem::Instance()->tell2(file);
}

int64 filelength2(int file) {
    return cFileSystem::Instance()->filelength2(file);
}

int64 SeekByService(int file, int64 offset, int whence) {
    return cFileSystem::Instance()->lseek2(file, offset, whence);
}

int ReadByService(int file, void* buffer, uint64 count) {
    return cFileSystem::Instance()->read2(file, buffer, count);
}

int WriteByService(int file, const void* buffer, uint64 count) {
    return cFileSystem::Instance()->write2(file, buffer, count);
}

int chsize2(int file, int64 length) {
    return cFileSystem::Instance()->chsize2(file, length);
}

}  // namespace Torvo
