// Sparse sets of row numbers.
//
// An `flist` is a set of integers from 0 to 0x7FFFFFFF, made for row numbers: many of them, dense in places and absent
// in others. It answers membership in constant time, knows its size, its lowest and its highest member, walks up and
// down, and turns a member into its ordinal and back.
//
// The words used below. A page is a stretch of 262144 (2^18) values; a page without members and a page that is full
// take no memory, any other has a bitmap of 32768 bytes. A run is a stretch of consecutive members. The ordinal of a
// member is its place in ascending order, and the lowest member has ordinal 1. Where a call gives an item or an
// ordinal, -1 says that there is none.
//
// Memory. An empty list takes 5 KB, and 16 bytes more for each further page once it is to hold values from 65,536,000
// on. What is added are bitmaps: none for rows that fill their pages, one for ten million consecutive rows, which end
// inside a page and so take 38 KB, and one for each page where a lone row lies. From the 65th bitmap on, they lie
// together in blocks of 2 to 16 MB where the system has large pages. A block is given back when nothing is left in it,
// save one that is kept for what comes next, so a list that has shrunk may have much more than it uses. The first
// question for an ordinal adds 1.5 KB, and 8 KB for each 64 pages asked about.
//
// Failures. Every call takes a null list and a list whose `capacity` is 0 (an invalid list) and answers as for an empty
// set, or with false. No call throws and none leaves an error record. When memory runs short, an add or a remove
// answers false and the set's members are as they were, but:
//  - a failed add has already widened `min` or `max` to its item. Both remain so, and the walks start and end there;
//  - a failed remove of the lowest or highest member (which needs memory in a full page alone) has already moved that
//    bound inwards, away from the item, which is still a member;
//  - an add that failed while the array of pages was growing has lost all members, and the list is good for nothing but
//    flist_destroy.
//
// Threads. No two calls on one list may overlap, readers included: the ordinal calls keep notes in the list.
//
// Example: examples/families/sparse_sets.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// 262144 consecutive values. `count` alone tells the state: with 0 the page is empty and `bits` null, with 262144 it is
// full and `bits` null again; in between `bits` owns 16384 words, and the bit of an item is bit (item AND 15), from the
// least significant on, of word (item AND 0x3FFFF) / 16.
struct flist_page {
    uint32 count;
    uint16* bits;
};

// The set. Callers may read the fields; only the calls below write them, and only flist_init makes one.
struct flist {
    uint16 capacity;    // entries of `pages`, 250 at the start; 0 marks an invalid list
    flist_page* pages;  // page n holds the values from n * 262144 on
    int32 count;        // members
    int32 min;          // lowest member; nothing is meant while `count` is 0
    int32 max;          // highest member; likewise
    int32 cachedIndex;  // ordinal of the last answer of flist_getbyindex; 0 for none
    int32 cachedItem;   // the item of that ordinal
};

// Where a walk by flist_enumerate stands. It needs no initialisation.
struct flist_enumerate_status {
    int32 current;
};

// A new empty list, to be given back by flist_destroy; null if memory is short.
ZUAPI flist* flist_init();

// Frees the list and sets the reference to null. False, with nothing done, for a null or an invalid list.
ZUAPI bool flist_destroy(flist*& list);

// A new list with the same members, owned by the caller; null for null and if memory is short. Members outside `min` to
// `max` (see above) are not copied, and a `min` that is no member becomes one.
ZUAPI flist* flist_copy(flist* list);

// Adds the item. True if it is a member now, also when it was before; false for a negative item or if memory is short.
ZUAPI bool flist_add(flist* list, int32 item);

// Adds all items from one bound to the other, in whichever order the bounds are given. False, with nothing added, if a
// bound is negative. False too if memory runs short on the way; what was added up to there stays.
ZUAPI bool flist_add_range(flist* list, int32 first, int32 last);

// Removes the item. True if it was a member and is none any more.
ZUAPI bool flist_remove(flist* list, int32 item);

// Whether the item is a member.
ZUAPI bool flist_member(flist* list, int32 item);

// Whether the item is a member and stands in a run of two or more.
ZUAPI bool flist_member_in_range(flist* list, int32 item);

// The number of members. (A list of all 2^31 values overflows it.)
ZUAPI int32 flist_count(flist* list);

// 0 for no member, 1 for one, 2 for more.
ZUAPI int32 flist_plurality(flist* list);

// Writes the lowest and the highest member; either pointer may be null. False for an empty list, with nothing written.
ZUAPI bool flist_minmax(flist* list, int32* min, int32* max);

// The lowest member above the item, or -1. So -1 starts a walk upwards.
ZUAPI int32 flist_next(flist* list, int32 item);

// The highest member below the item, or -1. A walk downwards starts with any value above the highest member; -1 does
// not start one.
ZUAPI int32 flist_prev(flist* list, int32 item);

// Finds the next run above the item. A run of two or more sets `first` and `last` and gives `last`; a member that
// stands alone sets `first`, sets `last` to -1 and gives `first`; at the end both are -1, and so is the result. The
// result is what to pass as `item` for the run after it. From an item inside a run, `first` is the member after it, and
// counts as standing in a run.
ZUAPI int32 flist_next_range(flist* list, int32 item, int32& first, int32& last);

// Walks upwards: with `restart` the lowest member, else the next one above the status's, or -1. The status keeps a
// value and no position, so members may come and go during the walk. After the end a call without `restart` begins
// anew. A null list or status gives -1 and leaves the status alone.
ZUAPI int32 flist_enumerate(flist* list, bool restart, flist_enumerate_status* status);

// The member with that ordinal, or -1 if the ordinal is above the number of members. An ordinal below 1 gives a value
// that is no member: the one just below the page of `min`. The answer is remembered, and asking for its neighbours is
// cheap. (After a negative ordinal the one above it counts as such a neighbour, and its answer is the next member.)
ZUAPI int32 flist_getbyindex(flist* list, int32 ordinal);

// The same, found by walking from `min`: neither the counts of the pages nor the remembered answer are used, nor is the
// list changed. Slow; a reference to compare with. An ordinal below 2 gives `min` as it stands, also on an empty list,
// unless the ordinal is above the number of members.
ZUAPI int32 flist_getbyindex_brute(flist* list, int32 ordinal);

// The ordinal of the item, or -1 if it is no member or lies outside `min` to `max`.
ZUAPI int32 flist_getindex(flist* list, int32 item);

}  // namespace Torvo
