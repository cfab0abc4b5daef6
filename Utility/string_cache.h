// A string cache: names with an optional record each, packed in one memory block.
//
// For a short table of names, such as a list of known items, that is added to, looked up by name and walked by
// position, without a node per item. Every look-up is a linear scan, and the block holds at most 65,500 bytes.
//
// The block is one of <Utility/memory_blocks.h>. The caller holds it by a pointer, null for a cache without entries,
// which CacheString updates, and frees it with ffree_ like any other. In 16-bit units, with m the `size` that the
// caller passes to every call, it holds
//
//     1                0
//     per entry   m    the record: m bytes of the caller's structure at the start, the other units as they were
//                 +    the text with its terminator
//     m + 1            room for a record, and a 0, which marks the end
//
// A record thus takes twice its size: m counts its bytes, but so many units are set aside for it. `size` must be the
// same in all calls on one cache; it is 0 for names without records. Another size gives entries without meaning, but
// never reads outside the block. A negative one is refused: nothing is done, and the result is 0 or false.
//
// An entry's POSITION is the index of the unit at which its record begins; the first entry's is 1. A position holds
// until the next call that adds an entry, which may move those behind it.
//
// Texts are compared without case, by the rules of <Utility/strings.h>. Nothing here leaves an error record. A cache is
// the caller's own: calls on one must not overlap, calls on different ones may.
//
// Example: examples/families/string_cache.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// Adds `text` with its record, unless it is there already, and returns its position.
//
// A text that is there, in whatever case, stays as it was first written; `record`, if not null, overwrites its record.
// A new one goes to the end, or with `sorted` before the first that compares above it. If `sorted` is set in every call
// on a cache, its texts are in order. A null `record` leaves in the record of a new entry whatever stood at that place.
//
// 0, with the cache left as it was, if `text` is empty, if the block would exceed 65,500 bytes, or if memory is short.
// The first text of a cache is special: it is taken whatever its length, and if it is empty the call gives 1, but the
// entry is one that no call finds, and the next text takes its place. 0 also if the block has no end mark by this
// `size`, and if the text of a new entry or its record lies in the cache.
ZUAPI uint64 CacheString(wchar16** cache, const wchar16* text, const void* record, int size, bool sorted);

// Reads the entry at a position: its record to `record`, unless that is null, and its text to `text` by strcpyn
// (<Utility/bounded_copy.h>), at most `textSize` units with the terminator. `text` becomes empty, and `record` is left
// alone, for a null cache and for a position behind the block. That range is all that is checked: what a position gives
// that is no entry's has no meaning, but it comes out of the block.
ZUAPI void GetCachedString(const wchar16* cache, uint32 position, wchar16* text, int textSize, void* record, int size);

// Looks a text up. True if it is there; its record is then copied to `record`, unless that is null. False, with
// `record` left alone, if it is not, and for a null cache.
ZUAPI bool GetCachedStructure(const wchar16* cache, const wchar16* text, void* record, int size);

// Reads an entry by its place in the cache's order, counted from 0, as GetCachedString does. False, with `text` empty
// and `record` left alone, if there are not so many entries, for a negative `index`, and for a null cache.
ZUAPI bool GetIthCachedString(const wchar16* cache, int index, wchar16* text, int textSize, void* record, int size);

}  // namespace Torvo
