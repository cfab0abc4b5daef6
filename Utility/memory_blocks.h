// Memory blocks: the allocator of the whole product, five global functions on top of the C heap.
//
// A block is always reached through the caller's pointer variable, which the call updates. Failure is a `false` result,
// never an exception and never a message. A block that grows is zeroed in its new part. There is no header before a
// block and no pool: its size is what the heap reports, which may be more than was asked for. What one of these
// functions allocated, ffree_ frees; the blocks that other calls of the library hand out with the remark "free with
// ffree_" likewise.
//
// All sizes are in bytes. The functions share nothing but the C heap and may be called on any thread.
//
// Example: examples/families/memory_blocks.cpp
#pragma once

#include <Utility/platform/types.h>

// Allocates `size` bytes into *block, zeroed if `zero` is true. The third argument has no effect. Returns whether
// *block is non-null; on failure *block is null. A size of 0 gives what the heap gives for it.
ZUAPI bool falloc_(Torvo::uint64 size, void** block, bool unused, bool zero);

// Frees *block, which may be null, and sets it to null.
ZUAPI void ffree_(void** block);

// Resizes *block to `size` bytes, keeping its content up to the smaller size and zeroing what is new; null is a block
// of size 0. What was last asked for counts as the old size, even where the heap reports more: growing from 8 to 16
// bytes zeroes the second eight. (For a block that did not come from these functions, the size that the heap reports
// counts as the old one.) The bytes between what was last asked for and what memSize reports belong to these functions,
// which keep them zero for that: write there only after a GetMem_ has granted that size. A size of 0 leaves a minimal
// block, not null. Returns whether *block is non-null.
//
// On failure *block is null and the old block is lost to the caller: it is NOT freed, and nothing leads to it any more.
// A caller that must not lose it keeps a copy of the pointer and frees that.
ZUAPI bool frealloc_(Torvo::uint64 size, void** block);

// Ensures a block of `size` bytes. With `keepIfLarger`, a block that the heap reports to be at least that large is left
// as it is, untouched (the result is then whether it is non-null). In every other case as frealloc_, shrinking
// included.
ZUAPI bool GetMem_(Torvo::uint64 size, void** block, bool keepIfLarger);

// The heap's size of the block, at least what was asked for; 0 for null.
ZUAPI Torvo::uint64 memSize(void const* block);
