// The descriptor world: bytes at the logical position of a file, through the block cache where there is one.

#include <Utility/file_cache.h>
#include <Utility/file_io.h>
#include <Utility/files/file_cache.h>
#include <Utility/files/file_cache_positions.h>
#include <Utility/files/file_system_impl.h>
#include <Utility/platform/platform.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <typeinfo>

namespace Torvo {

namespace {

// A file that grows in the cache grows on disk too when its length passes a multiple of this.
constexpr int64 GrowthStep = 512;

// No block begins behind this one whose end could not be told.
constexpr int64 LastPosition = std::numeric_limits<int64>::max() - std::numeric_limits<int32>::max();

constexpr int32 DirtyFlag = 1;

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

// The bytes from `offset` on of a block, if that is the one that the library's own cache used last and it holds `count`
// of them; else null. Only saves time: most calls go on where the one before has left off, and need no look-up.
char* BytesOfLastUsed(cFileCache& cache, int file, const FileEntry& entry, uint64 count) {
    if (typeid(cache) != typeid(FileCacheImpl) || entry.position < 0 || count == 0) return nullptr;
    auto& own = static_cast<FileCacheImpl&>(cache);
    const CacheEntry& block = own.LastUsed();
    const Place place = PlaceOf(entry.position, own.FileCacheImpl::BlockSize());
    if (block.handle != file || block.block != place.block) return nullptr;
    if (place.offset > block.count || count > static_cast<uint64>(block.count - place.offset)) return nullptr;
    return static_cast<char*>(own.FileCacheImpl::BlockData(block.slot)) + place.offset;
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

// The block with its content from the file, or null if it cannot be had.
CacheEntry* ContentOf(cFileCache& cache, int file, int64 block, int64 length) {
    CacheEntry* found = nullptr;
    if (!cache.Lookup(file, block, &found, 2)) return nullptr;
    if (found->count != 0 || !LacksContent(*found, length, cache.BlockSize())) return found;
    cache.EvictAt(FirstPositionFrom(cache, file, block));
    return cache.Lookup(file, block, &found, 2) ? found : nullptr;
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
    platform::_lseeki64(entry.fd, entry.position, 0);
    const int result = platform::_read(entry.fd, buffer, static_cast<uint32>(count));
    entry.position += static_cast<uint32>(result);  // a failure, -1, moves it on by 4294967295
    return result;
}

int WriteDirectly(FileEntry& entry, const void* buffer, uint64 count) {
    platform::_lseeki64(entry.fd, entry.position, 0);
    const int result = platform::_write(entry.fd, buffer, static_cast<uint32>(count));
    if (result == -1) return -1;
    entry.position += result;
    entry.length = std::max(entry.length, entry.position);
    return result;
}

// Reads past the cache; how many bytes, -1 if they cannot be read.
int ReadThrough(const FileEntry& entry, void* bytes, uint32 count) {
    if (entry.fd == -1 || platform::_lseeki64(entry.fd, entry.position, 0) == -1) return -1;
    return platform::_read(entry.fd, bytes, count);
}

// Writes past the cache; false if not all of it could be written. The length follows as far as 32 bits go.
bool WriteThrough(FileEntry& entry, int64 position, const void* bytes, uint32 count) {
    if (platform::_lseeki64(entry.fd, position, 0) == -1) return false;
    if (platform::_write(entry.fd, bytes, count) != static_cast<int>(count)) return false;
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
    FileEntry* const entry = FindEntry(file);
    if (entry == nullptr) return -1;
    // Unsigned, since an offset beyond all limits only has to be wrong, not undefined.
    const auto distance = static_cast<uint64>(offset);
    if (whence == 0) entry->position = offset;
    if (whence == 1) entry->position = static_cast<int64>(static_cast<uint64>(entry->position) + distance);
    if (whence == 2) entry->position = static_cast<int64>(static_cast<uint64>(entry->length) + distance);
    return entry->position;
}

int64 cFileSystemImpl::tell2(int file) {
    return lseek2(file, 0, 1);
}

int64 cFileSystemImpl::filelength2(int file) {
    const FileEntry* const entry = FindEntry(file);
    return entry != nullptr ? entry->length : -1;
}

int cFileSystemImpl::read2(int file, void* buffer, uint64 count) {
    FileEntry* const entry = FindEntry(file);
    if (entry == nullptr) return -1;
    cFileCache* const cache = cFileCache::Instance();
    if (cache == nullptr) return ReadDirectly(*entry, buffer, count);
    if (const char* const bytes = BytesOfLastUsed(*cache, file, *entry, count)) {
        std::memcpy(buffer, bytes, count);
        entry->position += static_cast<int64>(count);
        return static_cast<int>(count);
    }

    const int32 blockSize = cache->BlockSize();
    auto* const target = static_cast<char*>(buffer);
    uint64 total = 0;
    while (total < count && entry->position >= 0) {
        const Place place = PlaceOf(entry->position, blockSize);
        const CacheEntry* const block = ContentOf(*cache, file, place.block, entry->length);
        if (block == nullptr) {
            // The cache has no place for it while another file cannot be written: no reason to read less.
            const uint64 wanted = std::min(count - total, static_cast<uint64>(blockSize - place.offset));
            const int got = ReadThrough(*entry, target + total, static_cast<uint32>(wanted));
            if (got > 0) {
                total += static_cast<uint64>(got);
                entry->position += got;
            }
            if (got != static_cast<int>(wanted)) break;
            continue;
        }
        if (place.offset >= block->count) break;
        const uint64 piece = std::min(count - total, static_cast<uint64>(block->count - place.offset));
        std::memcpy(target + total, BytesOf(*cache, *block) + place.offset, piece);
        total += piece;
        entry->position += static_cast<int64>(piece);
        if (static_cast<uint64>(place.offset) + piece < static_cast<uint64>(blockSize)) break;
    }
    return static_cast<int>(total);
}

int cFileSystemImpl::write2(int file, const void* buffer, uint64 count) {
    FileEntry* const entry = FindEntry(file);
    // What a file that is not open to write left in the cache could never leave it.
    const bool writes = entry != nullptr && (entry->mode == omReadWrite || entry->mode == omCreate);
    if (!writes || entry->fd == -1) return -1;
    cFileCache* const cache = cFileCache::Instance();
    if (cache == nullptr) return WriteDirectly(*entry, buffer, count);
    if (char* const bytes = BytesOfLastUsed(*cache, file, *entry, count)) {
        std::memcpy(bytes, buffer, count);
        static_cast<FileCacheImpl*>(cache)->LastUsed().flags |= DirtyFlag;
        entry->position += static_cast<int64>(count);
        GrowTo(*entry, entry->position);
        return static_cast<int>(count);
    }

    const int32 blockSize = cache->BlockSize();
    const auto* const source = static_cast<const char*>(buffer);
    uint64 total = 0;
    while (total < count) {
        if (entry->position < 0 || entry->position > LastPosition) return -1;
        const Place place = PlaceOf(entry->position, blockSize);
        const auto piece = static_cast<int32>(std::min(count - total, static_cast<uint64>(blockSize - place.offset)));
        CacheEntry* block = nullptr;
        if (piece != blockSize) {
            block = ContentOf(*cache, file, place.block, entry->length);
        } else if (!cache->Lookup(file, place.block, &block, 1)) {
            block = nullptr;
        }
        if (block != nullptr) {
            PutIntoBlock(*cache, *block, place.offset, source + total, piece);
            GrowTo(*entry, entry->position + piece);
        } else if (!WriteThrough(*entry, entry->position, source + total, static_cast<uint32>(piece))) {
            return -1;
        }
        total += static_cast<uint64>(piece);
        entry->position += piece;
    }
    return static_cast<int>(total);
}

int cFileSystemImpl::chsize2(int file, int64 length) {
    FileEntry* const entry = FindEntry(file);
    if (entry == nullptr || platform::_chsize_s(entry->fd, length) != 0) return -1;
    const int64 former = entry->length;
    entry->length = length;
    if (cFileCache* const cache = cFileCache::Instance()) ResizeBlocks(*cache, file, former, length);
    return 0;
}

int64 lseek2(int file, int64 offset, int whence) {
    return cFileSystem::Instance()->lseek2(file, offset, whence);
}

int64 tell2(int file) {
    return cFileSystem::Instance()->tell2(file);
}

int64 filelength2(int file) {
    return cFileSystem::Instance()->filelength2(file);
}

int read2(int file, void* buffer, uint64 count) {
    return cFileSystem::Instance()->read2(file, buffer, count);
}

int write2(int file, const void* buffer, uint64 count) {
    return cFileSystem::Instance()->write2(file, buffer, count);
}

int chsize2(int file, int64 length) {
    return cFileSystem::Instance()->chsize2(file, length);
}

}  // namespace Torvo
