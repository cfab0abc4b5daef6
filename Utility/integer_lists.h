// Integer lists: sets of integers, kept as sorted runs of consecutive values.
//
// ZUList<T> comes for three element types: long32, ulong32 and uint64, each made by its own Create. They share the
// interface; two designs stand behind it, and where these differ it shows:
//
//                           ZUList<long32>            ZUList<ulong32>, ZUList<uint64>
//   values                  0 to 0x7FFFFFFF           all of the type; but 0 and the largest value not in one list
//   a negative value        refused                   -
//   AddRange, equal bounds  adds the value: true      refused: false, nothing added
//   AddRange, a lone        is dropped (see           stays, as a part of the new run
//     neighbour of the run    AddRange)
//   GetItem                 every ordinal             misses the last value of each run (see ZUListItem)
//   a lone value takes      4 bytes                   8 or 16 bytes
//   a run takes             8 bytes                   8 or 16 bytes
//   a look-up               logarithmic               logarithmic
//   adding at random        logarithmic               logarithmic
//
// Enumerators and items are made by a list, belong to the caller and are destroyed with `delete`. They point into the
// list: it must outlive them and must not change while they are in use.
//
// Failures. When memory runs short a change answers false and the list is as it was; whatever is created is null. No
// call throws and none leaves an error record. Threads: calls on one list, and on its items, may not overlap; an
// enumerator reads its list only.
//
// Example: examples/families/integer_lists.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// Walks the members of a list in ascending order.
template <typename T>
class ZUListEnumerator {
public:
    virtual ~ZUListEnumerator() = default;
    // Writes the next member. False at the end; then ZUList<long32> writes -1, and the others nothing.
    virtual bool Next(T& item) = 0;
};

// Walks the runs of a list in ascending order; a lone value is a run with `first` equal to `last`.
//
// What a list creates is, whichever kind was asked for, an enumerator of both kinds with one position. A caller who
// mixes the two gets what that position says: a step over runs passes the run that it is in, and a step over members
// goes on counting from the member last given, up to the end of the run that the position is in.
template <typename T>
class ZUListRangeEnumerator {
public:
    virtual ~ZUListRangeEnumerator() = default;
    // Writes the bounds of the next run. False at the end; then ZUList<long32> writes -1
    // to both, and the others nothing.
    virtual bool Next(T& first, T& last) = 0;
};

// Finds members by their ordinal, which is 1 for the lowest.
template <typename T>
class ZUListItem {
public:
    virtual ~ZUListItem() = default;
    // Writes the member of that ordinal. False for 0 and for an ordinal above the number of members.
    //
    // ZUList<long32> writes -1 on failure, and remembers where it stood, so that asking in order costs one step each.
    // In the two other lists a run of n values answers for its first n - 1 ordinals alone. An ordinal that falls on the
    // last value of a run gives the value just below the run after it; on the last run the result is true and `item` is
    // not written. Callers rely on that: in {5, 9}, ordinal 1 gives 8 and ordinal 2 leaves `item` alone.
    virtual bool GetItem(uint64 index, T& item) = 0;
};

// A list.
template <typename T>
class ZUList {
public:
    virtual ~ZUList() = default;
    // Adds the value. True if it is a member now, also when it was before.
    virtual bool Add(const T& item) = 0;
    // Adds all values between the bounds, both included, given in either order.
    //
    // In ZUList<long32> a lone value just below or just above the new run, not touching another, is dropped: 5 to 7
    // added to {4} gives {5, 6, 7}. A run of two or more at the same place is merged with the new one.
    virtual bool AddRange(const T& a, const T& b) = 0;
    // Removes the value. True also if it was none of the members.
    virtual bool Remove(const T& item) = 0;
    // Removes all values; true.
    virtual bool Clear() = 0;
    // Whether the value is a member.
    virtual bool Member(const T& item) = 0;
    // Writes the lowest and the highest member and, unless it is null, whether all members are one run. False for an
    // empty list, with nothing written.
    virtual bool MinMax(T& min, T& max, bool* oneRun) = 0;
    // The number of members.
    virtual uint64 Count() = 0;
    // 0 for no member, 1 for one, 2 for more.
    virtual int32 Plurality() = 0;
    // A new list of the same members, or null.
    virtual ZUList* Copy() = 0;
    // A new enumerator, before the first member, or null.
    virtual ZUListEnumerator<T>* CreateEnumerator() = 0;
    // A new enumerator, before the first run, or null. A list that does not offer one gives null.
    virtual ZUListRangeEnumerator<T>* CreateRangeEnumerator() { return nullptr; }
    // A new finder of members by ordinal, or null.
    virtual ZUListItem<T>* CreateItem() = 0;

    // A new empty list, destroyed with `delete`; null if memory is short.
    static ZUList* Create();
};

template <>
ZUAPI ZUList<long32>* ZUList<long32>::Create();
template <>
ZUAPI ZUList<ulong32>* ZUList<ulong32>::Create();
template <>
ZUAPI ZUList<uint64>* ZUList<uint64>::Create();

}  // namespace Torvo
