#include <Utility/containers/list_walk.h>
#include <Utility/containers/rank_index.h>
#include <Utility/containers/sparse_set_page.h>
#include <Utility/memory_blocks.h>
#include <Utility/sparse_sets.h>

#include <algorithm>
#include <new>
#include <stdexcept>

// The set's visible rules are those of a set that is walked and filled one value at a time. Here the same answers are
// found by words and by pages; what depends on the one-at-a-time form is marked where it occurs.

namespace Torvo {

namespace {

using pages::ItemAt;
using pages::PageOf;
using pages::PlaceOf;
using pages::SlotsOf;

constexpr uint32 kFirstCapacity = 250;
constexpr uint32 kMostCapacity = 65535;
constexpr int32 kLargestItem = 0x7FFFFFFF;

static_assert(sizeof(flist_page) == 16 && offsetof(flist_page, bits) == 8);
static_assert(sizeof(flist) == 40 && offsetof(flist, pages) == 8 && offsetof(flist, count) == 16);
static_assert(offsetof(flist, min) == 20 && offsetof(flist, max) == 24);
static_assert(offsetof(flist, cachedIndex) == 28 && offsetof(flist, cachedItem) == 32);
static_assert(sizeof(flist_enumerate_status) == 4);

// What flist_init allocates: the published fields, and behind them, out of the caller's sight, notes of our own.
struct OwnedList : flist {
    ListWalk walk;
    RankIndex* ranks;  // null until the list is asked for an ordinal
    BitmapStore bitmaps;
};

ListWalk& WalkOf(flist* list) {
    return static_cast<OwnedList*>(list)->walk;
}

RankIndex*& RanksOf(flist* list) {
    return static_cast<OwnedList*>(list)->ranks;
}

BitmapStore& BitmapsOf(flist* list) {
    return static_cast<OwnedList*>(list)->bitmaps;
}

[[noreturn]] void RefuseList(const flist* list) {
    throw std::invalid_argument(list == nullptr ? "null pList" : "invalid pList");
}

inline void RequireList(const flist* list) {
    if (list == nullptr || list->capacity == 0) RefuseList(list);
}

// The bitmaps of all pages, and the array.
void FreePages(flist* list, flist_page* pageArray, uint32 slots) {
    for (uint32 page = 0; page < slots; ++page) pages::FreeBitmap(BitmapsOf(list), pageArray[page]);
    BitmapsOf(list).Close();
    void* block = pageArray;
    ffree_(&block);
    list->pages = nullptr;
    WalkOf(list).Forget();
    RankIndex::Destroy(RanksOf(list));
}

// Makes room for the page. A failure loses the array, as the memory blocks' own failure does; its memory is given back
// here, since nothing leads to it any more.
void GrowTo(flist* list, uint32 page) {
    const uint32 oldSlots = SlotsOf(list);
    flist_page* const oldPages = list->pages;
    list->capacity = static_cast<uint16>(std::min(page + kFirstCapacity, kMostCapacity));
    void* block = oldPages;
    if (!frealloc_(list->capacity * sizeof(flist_page), &block)) {
        FreePages(list, oldPages, oldSlots);
        throw std::bad_alloc();
    }
    list->pages = static_cast<flist_page*>(block);
}

flist_page& PageFor(flist* list, uint32 page) {
    if (page >= list->capacity) GrowTo(list, page);
    if (list->pages == nullptr) throw std::bad_alloc();
    return list->pages[page];
}

void Widen(flist* list, int32 low, int32 high) {
    if (list->count == 0 || list->max < high) list->max = high;
    if (list->count == 0 || list->min > low) list->min = low;
}

// Counts wrap on a list of all values.
void AddToCount(flist* list, uint32 delta) {
    list->count = static_cast<int32>(static_cast<uint32>(list->count) + delta);
    list->cachedIndex = 0;
}

// Adds what a page has of a range. As one at a time: without memory, the first item alone has widened the bounds.
bool AddRangeInPage(flist* list, uint32 page, uint32 first, uint32 last) {
    flist_page& slot = PageFor(list, page);
    const uint32 before = slot.count;
    const bool done = pages::AddRange(BitmapsOf(list), slot, first, last);
    Widen(list, ItemAt(page, first), ItemAt(page, done ? last : first));
    const uint32 added = slot.count - before;
    if (added > 0) {
        AddToCount(list, added);
        if (RankIndex* const ranks = RanksOf(list)) ranks->PageChanged(page, added);
    }
    return done;
}

// The highest member at or below the item, or -1.
int32 MemberDownFrom(const flist* list, int32 item) {
    const uint32 slots = SlotsOf(list);
    if (slots == 0) return -1;
    uint32 page = PageOf(item);
    uint32 place = PlaceOf(item);
    if (page >= slots) {
        page = slots - 1;
        place = pages::kPlaces - 1;
    }
    for (;; --page, place = pages::kPlaces - 1) {
        const uint32 found = pages::MemberDownFrom(list->pages[page], place);
        if (found != pages::kNone) return ItemAt(page, found);
        if (page == 0) return -1;
    }
}

// The last member of the run that this member stands in.
int32 EndOfRun(const flist* list, int32 item) {
    const uint32 slots = std::min(SlotsOf(list), PageOf(kLargestItem) + 1);
    uint32 place = PlaceOf(item);
    for (uint32 page = PageOf(item); page < slots; ++page, place = 0) {
        const uint32 gap = pages::GapFrom(list->pages[page], place);
        if (gap != pages::kNone) return ItemAt(page, gap) - 1;
    }
    return ItemAt(slots - 1, pages::kPlaces - 1);
}

// The list's rank index, made at the first question; null if memory is short.
RankIndex* MakeRanks(flist* list) {
    RankIndex*& ranks = RanksOf(list);
    if (ranks == nullptr) ranks = RankIndex::Create(list->pages, std::min<uint32>(list->capacity, 8192));
    return ranks;
}

// How many members the pages below this one have.
uint32 MembersBelow(const flist* list, RankIndex* ranks, uint32 page) {
    uint32 members = 0;
    if (ranks == nullptr) {
        for (uint32 counted = 0; counted < page; ++counted) members += list->pages[counted].count;
        return members;
    }
    const uint32 groups = page / RankIndex::kGroupPages;
    for (uint32 group = 0; group < groups; ++group) members += ranks->GroupMembers(group);
    return members + ranks->MembersBeforeInGroup(list->pages, SlotsOf(list), page);
}

uint32 RankInPage(const flist* list, RankIndex* ranks, uint32 page, uint32 place) {
    const flist_page& slot = list->pages[page];
    return ranks != nullptr ? ranks->RankInPage(slot, page, place) : pages::CountOfRange(slot, 0, place);
}

uint32 PlaceInPage(const flist* list, RankIndex* ranks, uint32 page, uint32 rank) {
    const flist_page& slot = list->pages[page];
    if (ranks != nullptr) return ranks->PlaceInPage(slot, page, rank);
    return pages::IsFull(slot) ? rank : pages::PlaceOfRank(slot.bits, 0, rank);
}

// The steps that are left of a walk, and the page that it goes on from.
struct PageWalk {
    uint32 page;
    uint32 rest;
};

// Leaves out whole pages, from the given one on, while more steps are left than the page has members.
PageWalk SkipPages(const flist* list, const RankIndex* ranks, PageWalk walk) {
    const uint32 slots = SlotsOf(list);
    while (walk.page < slots && walk.rest > list->pages[walk.page].count) {
        walk.rest -= list->pages[walk.page].count;
        ++walk.page;
        if (ranks == nullptr) continue;
        while (walk.page % RankIndex::kGroupPages == 0 && walk.page < slots &&
               walk.page / RankIndex::kGroupPages < RankIndex::kGroups &&
               walk.rest > ranks->GroupMembers(walk.page / RankIndex::kGroupPages)) {
            walk.rest -= ranks->GroupMembers(walk.page / RankIndex::kGroupPages);
            walk.page += RankIndex::kGroupPages;
        }
    }
    return walk;
}

// What flist_next gives when called `steps` times, each time with what it gave before, from the item on.
int32 NextRepeated(flist* list, RankIndex* ranks, int32 item, uint32 steps) {
    while (steps > 0) {
        if (item < 0 || item < list->min) {
            item = list->min;
            --steps;
            // Bounds that a failed remove has closed up entirely.
            if (item < 0) return item;
        } else if (item >= list->max) {
            item = -1;
            --steps;
        } else {
            // The members above the item, to the end of its page (or of the next, if it is its page's last) or to max.
            const uint32 page = PageOf(item + 1);
            const uint32 place = PlaceOf(item + 1);
            if (page >= SlotsOf(list)) return -1;
            const uint32 below = place == 0 ? 0 : RankInPage(list, ranks, page, place - 1);
            const bool hasMax = page == PageOf(list->max);
            if (steps <= list->pages[page].count - below) {
                const uint32 found = PlaceInPage(list, ranks, page, below + steps - 1);
                if (!hasMax || found <= PlaceOf(list->max)) return ItemAt(page, found);
            }
            const uint32 upTo = hasMax ? RankInPage(list, ranks, page, PlaceOf(list->max)) : list->pages[page].count;
            const uint32 members = upTo - below;
            steps -= members;
            item = hasMax ? list->max : ItemAt(page, pages::kPlaces - 1);
        }
    }
    return item;
}

// The answer that a step of one from the remembered ordinal gives, or -1.
int32 NearCached(flist* list, int32 ordinal) {
    const int64 step = int64{ordinal} - list->cachedIndex;
    if (step == 0) return list->cachedItem;
    if (step == 1) return flist_next(list, list->cachedItem);
    if (step == -1) return flist_prev(list, list->cachedItem);
    return -1;
}

// The answer found by the pages' counts, from the page of `min` on.
int32 ByPages(flist* list, int32 ordinal) {
    const int32 firstPage = list->min >> pages::kShift;
    // Nothing to walk. (After the last member has gone, `min` is -1 and the page before the first is meant.)
    if (ordinal <= 0) return firstPage * static_cast<int32>(pages::kPlaces) - 1;
    if (firstPage < 0) return -1;
    RankIndex* const ranks = SlotsOf(list) != 0 ? MakeRanks(list) : nullptr;
    const PageWalk walk = SkipPages(list, ranks, {static_cast<uint32>(firstPage), static_cast<uint32>(ordinal)});
    if (walk.page >= SlotsOf(list)) return -1;
    return NextRepeated(list, ranks, ItemAt(walk.page, 0) - 1, walk.rest);
}

// Copies what a walk upwards finds: `first`, a member or not, and the members from there to `max`.
bool CopyMembers(flist* copy, const flist* list, int32 first) {
    try {
        PageFor(copy, PageOf(first));
        const uint32 lastPage = PageOf(list->max);
        for (uint32 page = PageOf(first); page <= lastPage && page < SlotsOf(list); ++page) {
            const flist_page& source = list->pages[page];
            const uint32 low = page == PageOf(first) ? PlaceOf(first) : 0;
            const uint32 high = page == lastPage ? PlaceOf(list->max) : pages::kPlaces - 1;
            if (pages::CountOfRange(source, low, high) == 0) continue;
            flist_page& target = PageFor(copy, page);
            if (!pages::CopyRange(BitmapsOf(copy), target, source, low, high)) return false;
            copy->max = ItemAt(page, pages::MemberDownFrom(target, high));
            AddToCount(copy, target.count);
        }
        copy->min = first;
        return flist_add(copy, first);
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace

flist* flist_init() {
    void* block = nullptr;
    if (!falloc_(sizeof(OwnedList), &block, false, true)) return nullptr;
    auto* const list = static_cast<OwnedList*>(block);
    void* pageArray = nullptr;
    if (!falloc_(kFirstCapacity * sizeof(flist_page), &pageArray, false, true)) {
        ffree_(&block);
        return nullptr;
    }
    list->capacity = kFirstCapacity;
    list->pages = static_cast<flist_page*>(pageArray);
    WalkOf(list).Forget();
    return list;
}

bool flist_destroy(flist*& list) {
    if (list == nullptr || list->capacity == 0) return false;
    FreePages(list, list->pages, SlotsOf(list));
    void* block = static_cast<OwnedList*>(list);
    ffree_(&block);
    list = nullptr;
    return true;
}

flist* flist_copy(flist* list) {
    if (list == nullptr) return nullptr;
    flist* copy = flist_init();
    if (copy == nullptr) return nullptr;
    const int32 first = flist_next(list, -1);
    if (first >= 0 && !CopyMembers(copy, list, first)) flist_destroy(copy);
    return copy;
}

bool flist_add(flist* list, int32 item) {
    try {
        RequireList(list);
        if (item < 0) throw std::invalid_argument("invalid item");
        WalkOf(list).Forget();
        flist_page& page = PageFor(list, PageOf(item));
        const bool added = pages::Add(BitmapsOf(list), page, PlaceOf(item));
        Widen(list, item, item);
        if (!added) return pages::Holds(page, PlaceOf(item));
        AddToCount(list, 1);
        if (RankIndex* const ranks = RanksOf(list)) ranks->MemberChanged(item, 1);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

bool flist_add_range(flist* list, int32 first, int32 last) {
    try {
        RequireList(list);
        if (first > last) std::swap(first, last);
        if (first < 0) throw std::out_of_range("invalid range");
        WalkOf(list).Forget();
        for (uint32 page = PageOf(first); page <= PageOf(last); ++page) {
            const uint32 low = page == PageOf(first) ? PlaceOf(first) : 0;
            const uint32 high = page == PageOf(last) ? PlaceOf(last) : pages::kPlaces - 1;
            if (!AddRangeInPage(list, page, low, high)) throw std::out_of_range("item");
        }
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

bool flist_remove(flist* list, int32 item) {
    try {
        RequireList(list);
        if (item < 0 || PageOf(item) >= SlotsOf(list)) return false;
        WalkOf(list).Forget();
        const bool removed = pages::Remove(BitmapsOf(list), list->pages[PageOf(item)], PlaceOf(item));
        if (removed) {
            AddToCount(list, ~uint32{0});
            if (RankIndex* const ranks = RanksOf(list)) ranks->MemberChanged(item, -1);
        }
        // Whether or not it was removed: so a bound that a failed add has widened is put right.
        if (list->min == item) list->min = flist_next(list, item);
        if (list->max == item) list->max = flist_prev(list, item);
        return removed;
    } catch (const std::exception&) {
        return false;
    }
}

bool flist_member(flist* list, int32 item) {
    // A negative item counts as one above all others, and the pages there are always empty.
    if (list == nullptr || PageOf(item) >= list->capacity || list->pages == nullptr) return false;
    return pages::Holds(list->pages[PageOf(item)], PlaceOf(item));
}

bool flist_member_in_range(flist* list, int32 item) {
    if (!flist_member(list, item)) return false;
    return flist_member(list, item - 1) || (item < kLargestItem && flist_member(list, item + 1));
}

int32 flist_count(flist* list) {
    try {
        RequireList(list);
        return list->count;
    } catch (const std::exception&) {
        return 0;
    }
}

int32 flist_plurality(flist* list) {
    try {
        RequireList(list);
        // A count that has wrapped stands for many.
        return list->count == 0 ? 0 : list->count == 1 ? 1 : 2;
    } catch (const std::exception&) {
        return 0;
    }
}

bool flist_minmax(flist* list, int32* min, int32* max) {
    try {
        RequireList(list);
        if (list->count == 0) return false;
        if (min != nullptr) *min = list->min;
        if (max != nullptr) *max = list->max;
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

int32 flist_next(flist* list, int32 item) {
    try {
        RequireList(list);
        return WalkOf(list).Next(*list, item);
    } catch (const std::exception&) {
        return -1;
    }
}

int32 flist_prev(flist* list, int32 item) {
    try {
        RequireList(list);
        if (list->count < 1 || item < 1 || item <= list->min) return -1;
        if (item > list->max) return list->max;
        return MemberDownFrom(list, item - 1);
    } catch (const std::exception&) {
        return -1;
    }
}

int32 flist_next_range(flist* list, int32 item, int32& first, int32& last) {
    first = flist_next(list, item);
    last = -1;
    // The item itself may stand just below, so a member found from inside a run counts as a part of it.
    if (!flist_member_in_range(list, first)) return first;
    last = EndOfRun(list, first);
    return last;
}

int32 flist_enumerate(flist* list, bool restart, flist_enumerate_status* status) {
    if (list == nullptr || status == nullptr) return -1;
    status->current = flist_next(list, restart ? -1 : status->current);
    return status->current;
}

int32 flist_getbyindex(flist* list, int32 ordinal) {
    if (list == nullptr || ordinal > list->count) return -1;
    int32 item = list->cachedIndex != 0 ? NearCached(list, ordinal) : -1;
    if (item == -1) item = ByPages(list, ordinal);
    list->cachedIndex = ordinal;
    list->cachedItem = item;
    return item;
}

int32 flist_getbyindex_brute(flist* list, int32 ordinal) {
    if (list == nullptr || ordinal > list->count) return -1;
    int32 item = list->min;
    for (int32 step = 1; step < ordinal; ++step) item = flist_next(list, item);
    return item;
}

int32 flist_getindex(flist* list, int32 item) {
    if (list == nullptr || item > list->max || item < list->min || !flist_member(list, item)) return -1;
    RankIndex* const ranks = MakeRanks(list);
    const uint32 page = PageOf(item);
    return static_cast<int32>(MembersBelow(list, ranks, page) + RankInPage(list, ranks, page, PlaceOf(item)));
}

}  // namespace Torvo
