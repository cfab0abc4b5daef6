// Operations on a sparse set, each compared with the plain form.
#include <Utility/sparse_sets.h>

#include "operation_stream.h"
#include "reference/plain_sparse_set.h"
#include "require.h"

using namespace Torvo;
using fuzz::Require;

namespace {

// Values round the ends of a few pages, the last ones that need no growth among them, and any value at times.
int32 ReadItem(fuzz::OperationStream& stream) {
    const uint32 where = stream.Byte();
    if (where == 255) return static_cast<int32>(stream.Word() << 16 | stream.Word());
    const uint32 page = where % 4 + (where >= 128 ? 248 : 0);
    return static_cast<int32>(page * 262144 + stream.Word() % 600) - 300;
}

// One item in each of many pages, so that there are more bitmaps than a list has in blocks of their own; or none in
// each.
void Strew(fuzz::OperationStream& stream, flist* list, test::PlainSparseSet& plain, int32 item) {
    const bool adds = stream.Byte() % 2 == 0;
    for (uint32 pages = stream.Byte(); pages > 0 && item >= 0 && item < 250 * 262144; --pages, item += 262144) {
        Require(adds ? flist_add(list, item) == plain.Add(item) : flist_remove(list, item) == plain.Remove(item));
    }
}

void Step(fuzz::OperationStream& stream, flist* list, test::PlainSparseSet& plain) {
    const uint32 operation = stream.Byte() % 9;
    const int32 item = ReadItem(stream);
    int32 first = 0;
    int32 last = 0;
    int32 plainFirst = 0;
    int32 plainLast = 0;
    switch (operation) {
        case 0:
            return Require(flist_add(list, item) == plain.Add(item));
        case 1:
            return Require(flist_remove(list, item) == plain.Remove(item));
        case 2: {
            const int32 other = item < 0x7FFFF000 ? item + static_cast<int32>(stream.Word() % 900) : item;
            return Require(flist_add_range(list, item, other) == plain.AddRange(item, other));
        }
        case 3:
            return Require(flist_next(list, item) == plain.Next(item));
        case 4:
            return Require(flist_prev(list, item) == plain.Prev(item));
        case 5:
            Require(flist_next_range(list, item, first, last) == plain.NextRange(item, plainFirst, plainLast));
            return Require(first == plainFirst && last == plainLast);
        case 6:
            Require(flist_member_in_range(list, item) == plain.MemberInRange(item));
            return Require(flist_getindex(list, item) == plain.GetIndex(item));
        case 7:
            return Strew(stream, list, plain, item);
        default: {
            const auto ordinal = static_cast<int32>(stream.Word() % 2000) - 5;
            return Require(flist_getbyindex(list, ordinal) == plain.GetByIndex(ordinal));
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8* data, std::size_t size) {
    fuzz::OperationStream stream(data, size);
    flist* list = flist_init();
    test::PlainSparseSet plain;
    while (!stream.AtEnd()) {
        Step(stream, list, plain);
        Require(list->count == plain.Count() && list->min == plain.min && list->max == plain.max);
        Require(list->cachedIndex == plain.cachedIndex && list->cachedItem == plain.cachedItem);
        Require(list->capacity == plain.capacity);
    }
    flist* copy = flist_copy(list);
    for (int32 item = -1, walk = -1; (item = flist_next(list, item)) != -1;) {
        walk = flist_next(copy, walk);
        Require(walk == item && plain.Member(item));
    }
    flist_destroy(copy);
    flist_destroy(list);
    return 0;
}
