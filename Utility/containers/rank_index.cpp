#include <Utility/containers/rank_index.h>
#include <Utility/memory_blocks.h>

#include <algorithm>

namespace Torvo {

namespace {

constexpr uint32 kStretches = 64;
constexpr uint32 kStretchPlaces = pages::kPlaces / kStretches;
constexpr uint32 kStretchWords = kStretchPlaces / bits::kWordBits;

uint32 StretchOf(uint32 place) {
    return place / kStretchPlaces;
}

}  // namespace

// The stretches of a group's pages, and the members before each page. A page's counts hold only while its bit in `made`
// is set, and `before` only while `beforeIsMade`.
struct PageGroupRanks {
    uint64 made;
    bool beforeIsMade;
    uint32 before[RankIndex::kGroupPages];
    uint16 members[RankIndex::kGroupPages][kStretches];
};

RankIndex* RankIndex::Create(const flist_page* pageArray, uint32 pageCount) {
    void* block = nullptr;
    if (!falloc_(sizeof(RankIndex), &block, false, true)) return nullptr;
    auto* const index = static_cast<RankIndex*>(block);
    for (uint32 page = 0; page < pageCount; ++page) {
        if (!pages::IsEmpty(pageArray[page])) index->members_[page / kGroupPages] += pageArray[page].count;
    }
    return index;
}

void RankIndex::Destroy(RankIndex*& index) {
    if (index == nullptr) return;
    for (PageGroupRanks* group : index->groups_) {
        void* block = group;
        ffree_(&block);
    }
    void* block = index;
    ffree_(&block);
    index = nullptr;
}

void RankIndex::MemberChanged(int32 item, int32 delta) {
    const auto value = static_cast<uint32>(item);
    const uint32 page = value >> pages::kShift;
    members_[page / kGroupPages] += static_cast<uint32>(delta);
    PageGroupRanks* const group = groups_[page / kGroupPages];
    if (group == nullptr) return;
    group->beforeIsMade = false;
    // A page that is not made is brought up to date when it is; what is written to it before does no harm.
    uint16& stretch = group->members[page % kGroupPages][StretchOf(value % pages::kPlaces)];
    stretch = static_cast<uint16>(stretch + delta);
}

void RankIndex::PageChanged(uint32 page, uint32 delta) {
    members_[page / kGroupPages] += delta;
    PageGroupRanks* const group = groups_[page / kGroupPages];
    if (group == nullptr) return;
    group->beforeIsMade = false;
    group->made &= ~(uint64{1} << page % kGroupPages);
}

PageGroupRanks* RankIndex::GroupOf(uint32 pageNumber) {
    PageGroupRanks*& group = groups_[pageNumber / kGroupPages];
    if (group == nullptr) {
        void* block = nullptr;
        if (!falloc_(sizeof(PageGroupRanks), &block, false, true)) return nullptr;
        group = static_cast<PageGroupRanks*>(block);
    }
    return group;
}

uint32 RankIndex::MembersBeforeInGroup(const flist_page* pageArray, uint32 pageCount, uint32 pageNumber) {
    const uint32 first = pageNumber / kGroupPages * kGroupPages;
    uint32 members = 0;
    PageGroupRanks* const group = GroupOf(pageNumber);
    if (group == nullptr) {
        for (uint32 page = first; page < pageNumber; ++page) members += pageArray[page].count;
        return members;
    }
    if (!group->beforeIsMade) {
        for (uint32 page = first; page < std::min(first + kGroupPages, pageCount); ++page) {
            group->before[page - first] = members;
            members += pageArray[page].count;
        }
        group->beforeIsMade = true;
    }
    return group->before[pageNumber - first];
}

const uint16* RankIndex::StretchesOf(const flist_page& page, uint32 pageNumber) {
    PageGroupRanks* const group = GroupOf(pageNumber);
    if (group == nullptr) return nullptr;
    uint16* const stretches = group->members[pageNumber % kGroupPages];
    const uint64 mark = uint64{1} << pageNumber % kGroupPages;
    if ((group->made & mark) == 0) {
        for (uint32 i = 0; i < kStretches; ++i) {
            const uint32 first = i * kStretchPlaces;
            stretches[i] = static_cast<uint16>(pages::CountOfRange(page, first, first + kStretchPlaces - 1));
        }
        group->made |= mark;
    }
    return stretches;
}

uint32 RankIndex::RankInPage(const flist_page& page, uint32 pageNumber, uint32 place) {
    // The bounds of a list may lie on a page without members, after an add that found no memory.
    if (pages::IsEmpty(page)) return 0;
    if (pages::IsFull(page)) return place + 1;
    const uint16* const stretches = StretchesOf(page, pageNumber);
    if (stretches == nullptr) return pages::CountOfRange(page, 0, place);
    const uint32 stretch = StretchOf(place);
    uint32 rank = 0;
    for (uint32 i = 0; i < stretch; ++i) rank += stretches[i];
    const uint32 first = stretch * kStretchPlaces;
    const bool isFull = stretches[stretch] == kStretchPlaces;
    return rank + (isFull ? place - first + 1 : bits::CountOfRange(page.bits, first, place));
}

uint32 RankIndex::PlaceInPage(const flist_page& page, uint32 pageNumber, uint32 rank) {
    if (pages::IsFull(page)) return rank;
    uint32 word = 0;
    if (const uint16* const stretches = StretchesOf(page, pageNumber)) {
        uint32 stretch = 0;
        for (; rank >= stretches[stretch]; ++stretch) rank -= stretches[stretch];
        if (stretches[stretch] == kStretchPlaces) return stretch * kStretchPlaces + rank;
        word = stretch * kStretchWords;
    }
    return pages::PlaceOfRank(page.bits, word, rank);
}

}  // namespace Torvo
