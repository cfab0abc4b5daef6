// The rows of a selection: added singly and by the million, walked by runs, counted without walking.
#include <Utility/sparse_sets.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    flist* rows = flist_init();
    if (rows == nullptr) return 1;
    flist_add_range(rows, 1000000, 3000000);
    flist_add(rows, 7);
    flist_add(rows, 2000000000);
    flist_remove(rows, 1500000);

    std::printf("%d rows, from %d to %d\n", flist_count(rows), rows->min, rows->max);
    std::printf("row 1500000 is in: %s, row 1500001: %s\n", YesOrNo(flist_member(rows, 1500000)),
                YesOrNo(flist_member(rows, 1500001)));

    int32 first = -1;
    int32 last = -1;
    for (int32 at = flist_next_range(rows, -1, first, last); at != -1; at = flist_next_range(rows, at, first, last)) {
        if (last == -1) std::printf("%d\n", first);
        if (last != -1) std::printf("%d to %d\n", first, last);
    }

    std::printf("the 500001st is row %d\n", flist_getbyindex(rows, 500001));
    std::printf("row 1500001 is number %d\n", flist_getindex(rows, 1500001));
    flist_destroy(rows);
    return 0;
}
