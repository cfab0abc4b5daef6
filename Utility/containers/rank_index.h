// The rank index of a sparse set: counts that turn a member into its ordinal and back without counting bits from the
// start of the set.
//
// Pages are taken in groups of 64, and the bitmap of a page in 64 stretches of 4096 places. The index knows the members
// of each group and, where it was asked, of each stretch and how many lie below each page of a group. A rank is then a
// sum over at most 128 groups and 63 stretches, and a count of bits over at most 4096; a stretch of which all places
// are members needs no count.
//
// A list has no index until it is first asked for an ordinal, so lists that never are pay nothing for it. From then on
// every add and remove keeps it right. It is never needed: where memory for it (or for a part of it) is short, the same
// answers come from counting.
#pragma once

#include <Utility/containers/sparse_set_page.h>

namespace Torvo {

struct PageGroupRanks;

class RankIndex {
public:
    static constexpr uint32 kGroupPages = 64;
    static constexpr uint32 kGroups = (uint32{1} << 31 >> pages::kShift) / kGroupPages;

    // The index of these pages; null if memory is short.
    static RankIndex* Create(const flist_page* pageArray, uint32 pageCount);
    // Frees the index, if there is one, and sets the pointer to null.
    static void Destroy(RankIndex*& index);

    // One member came (delta 1) or went (-1).
    void MemberChanged(int32 item, int32 delta);
    // A page's count changed by `delta`, somewhere in its bitmap.
    void PageChanged(uint32 page, uint32 delta);

    uint32 GroupMembers(uint32 group) const { return members_[group]; }
    // How many members the pages of a page's group have that come before it. The array has so many pages.
    uint32 MembersBeforeInGroup(const flist_page* pageArray, uint32 pageCount, uint32 pageNumber);
    // How many members the page has at or below the place.
    uint32 RankInPage(const flist_page& page, uint32 pageNumber, uint32 place);
    // The place of the member of which `rank` members are below, 0 <= rank < page.count.
    uint32 PlaceInPage(const flist_page& page, uint32 pageNumber, uint32 rank);

private:
    // What is known of a group, from the first question about it on; null if memory is short.
    PageGroupRanks* GroupOf(uint32 pageNumber);
    // The counts of a page's stretches, made at the first question about the page; null if memory is short.
    const uint16* StretchesOf(const flist_page& page, uint32 pageNumber);

    uint32 members_[kGroups];
    PageGroupRanks* groups_[kGroups];
};

}  // namespace Torvo
