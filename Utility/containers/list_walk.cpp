#include <Utility/containers/list_walk.h>

#include <algorithm>

namespace Torvo {

int32 ListWalk::NextElsewhere(const flist& list, int32 item) noexcept {
    if (member_ == item && item < list.max && bitmaps_.NextWord()) return NextOfWord(list.max);
    if (list.count < 1) return -1;
    if (item < 0 || item < list.min) return list.min;
    if (item >= list.max) return -1;
    return Find(list, item + 1);
}

int32 ListWalk::NextOfWord(int32 max) noexcept {
    const uint32 run = bitmaps_.RunInWord();
    const int32 first = bitmaps_.NextInWord();
    member_ = first;
    if (run >= kShortestRun) {
        const int32 last = first + static_cast<int32>(run - 1);
        bitmaps_.SkipInWord(run - 1);
        member_ = last;
        NoteRun(first, std::min(last, max));
    }
    return first;
}

int32 ListWalk::Find(const flist& list, int32 item) {
    member_ = kNowhere;
    const uint32 end = std::min(pages::PageOf(list.max) + 1, pages::SlotsOf(&list));
    uint32 place = pages::PlaceOf(item);
    for (uint32 page = pages::PageOf(item); page < end; ++page, place = 0) {
        const flist_page& slot = list.pages[page];
        if (pages::IsEmpty(slot)) continue;
        if (pages::IsFull(slot)) {
            const int32 first = pages::ItemAt(page, place);
            NoteRun(first, std::min(pages::ItemAt(page, pages::kPlaces - 1), list.max));
            return first;
        }
        bitmaps_.Start(list.pages, end, page, place);
        if (bitmaps_.WordGoesOn() || bitmaps_.NextWord()) return NextOfWord(list.max);
    }
    return -1;
}

}  // namespace Torvo
