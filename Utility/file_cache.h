// The block cache: every byte that the descriptor world of the file system reads or writes passes through it.
//
// A cache holds blocks of registered files, all of one size, in one pool that is allocated whole when the cache is
// made. The pool is asked for zeroed, so its pages cost nothing until they are used. There is no share per file: one
// file may fill the cache, and a thousand may share it.
//
// The words. A BLOCK is the part of a file from its number times the block size on. An ENTRY is the record of one place
// in the pool, its SLOT; it holds a block of a file, or nothing. The KEY of an entry is its file's handle and the
// number of its block, compared in that order; an entry that holds nothing has the key (0, 0). All entries stand in two
// orders at the same time: by key, in which EntryAt and EvictAt count (entries that hold nothing come first), and by
// use. The entry that was not used for longest is the next to be taken for another block; one that was dropped goes
// before all others. A DIRTY entry holds bytes that the file does not have yet.
//
// When the entry to be taken is dirty, all dirty blocks of its file are written, in the order of their numbers: a file
// on disk is brought up to date as a whole, not one block here and one there.
//
// The cache reaches a file through its descriptor (GetFileFD), whose position it may move. A handle below 1 is no
// file: it is never found. Nothing here leaves an error record. Each instance has a cache of its own, and calls on one
// must not overlap. An instance may also have none (Instance gives null, after a host has set it so): the file system
// then reads and writes directly.
//
// How it works inside: docs/file_cache.md.
//
// Example: examples/families/file_cache.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// One entry. Callers read it, and change `count` and the dirty bit after they have changed the block's bytes; all else
// belongs to the cache. It stays where it is as long as the cache lives, and holds its block until a later call takes
// it for another.
struct CacheEntry {
    int64 block;   // the number of the block in its file: byte position / block size
    int32 next;    // the entry used before this one, as an index; in a circle
    int32 prev;    // the entry used after it
    int32 handle;  // of the file; 0 in an entry that holds nothing
    int32 count;   // valid bytes of the block, from its start
    int32 slot;    // the place in the pool, for BlockData; the same for the life of the entry
    int32 flags;   // bit 0: dirty
};

// The service. There are no free functions of these names.
class ZUAPI cFileCache {
public:
    // Releases the memory. Writes nothing: what is dirty still is lost.
    virtual ~cFileCache() = default;

    // Writes the dirty blocks of a file, in order, and drops all its blocks. One that cannot be written is dropped all
    // the same, and the others are written. False if any could not be written.
    virtual bool Forget(int handle) = 0;
    // Writes the dirty blocks of a file, in order; those of all files, by handle and number, for -1. Stops at the first
    // that cannot be written, which stays dirty like those behind it, and gives false.
    virtual bool Flush(int handle) = 0;
    // How many blocks the cache can hold.
    virtual int BlockCount() = 0;
    // The size of a block in bytes.
    virtual int BlockSize() = 0;
    // Finds the entry of a block, stores it in *out and makes it the last used. For a block that is not there, `mode`
    // says what to do:
    //   0  nothing: the result is false, and nothing changes, the order of use included
    //   1  take an entry for it, with a count of 0 and whatever bytes there are: the caller writes the whole block
    //   2  take an entry for it and read the block from the file. At and behind the end of a file its count is less
    //      than the block size, down to 0
    // False, with *out untouched, if the entry to be taken is dirty and its file cannot be written, which leaves the
    // orders and that entry as they were, while blocks of that file that could be written are no longer dirty; and if
    // the block cannot be read, which leaves it in the cache with a count of 0, so that the next look-up finds it so.
    // False, too, for a null `out`.
    virtual bool Lookup(int handle, int64 block, CacheEntry** out, int mode) = 0;
    // The entry at a position in the order of keys, from 0 to BlockCount() - 1; null outside.
    virtual CacheEntry* EntryAt(int position) = 0;
    // The bytes of a slot; null for one that the cache does not have.
    virtual void* BlockData(int slot) = 0;
    // Drops the entry at a position without writing it. It comes to stand at position 0, those before it one further.
    // Nothing happens for a position that EntryAt has no entry for.
    virtual void EvictAt(int position) = 0;

    // A new cache of blocks - 1 blocks (one entry is the search key) of `blockSize` bytes; of more than 107,374,182
    // (0x6666666) that many are taken. It belongs to the caller. Null if memory is short, if not even one block could
    // be held, or if the pool, whose size is a signed 32-bit number, would be too large. The library makes its own with
    // 2048 and 16384.
    static cFileCache* Create(int blocks, long32 blockSize);
    // The service of the caller's instance.
    static cFileCache* Instance();
    // Replaces it. The former one is not destroyed: who replaces a service owns the old one.
    static bool Instance(cFileCache* service);
};

}  // namespace Torvo
