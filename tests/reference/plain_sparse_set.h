// The plain form of a sparse set: a sorted array of members, walked and filled one value at a time, with the rules as
// they are published and without pages or bitmaps.
#pragma once

#include <Utility/platform/types.h>

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace Torvo::test {

class PlainSparseSet {
public:
    static constexpr int32 kPageItems = 262144;

    std::vector<int32> members;
    int32 min = 0;
    int32 max = 0;
    int32 cachedIndex = 0;
    int32 cachedItem = 0;
    int32 capacity = 250;
    // While set, no bitmap can be had: an empty page takes no member, and a full one gives none back.
    bool heapExhausted = false;

    int32 Count() const { return static_cast<int32>(members.size()); }

    bool Add(int32 item) {
        if (item < 0) return false;
        const int32 page = item >> 18;
        if (page >= capacity) capacity = page + 250;
        const bool wasMember = Member(item);
        const bool added = !wasMember && !(heapExhausted && PageCount(page) == 0);
        if (Count() == 0 || max < item) max = item;
        if (Count() == 0 || min > item) min = item;
        if (!added) return wasMember;
        members.insert(std::lower_bound(members.begin(), members.end(), item), item);
        cachedIndex = 0;
        return true;
    }

    bool AddRange(int32 first, int32 last) {
        if (first > last) std::swap(first, last);
        if (first < 0) return false;
        // A long range is merged at once, which is the same and keeps the tests short.
        if (!heapExhausted && last - first > 1000) return MergeRange(first, last);
        for (int64 item = first; item <= last; ++item) {
            if (!Add(static_cast<int32>(item))) return false;
        }
        return true;
    }

    bool Remove(int32 item) {
        if (item < 0 || item >> 18 >= capacity) return false;
        const bool removed = Member(item) && !(heapExhausted && PageCount(item >> 18) == kPageItems);
        if (removed) {
            members.erase(std::lower_bound(members.begin(), members.end(), item));
            cachedIndex = 0;
        }
        if (min == item) min = Next(item);
        if (max == item) max = Prev(item);
        return removed;
    }

    bool Member(int32 item) const { return std::binary_search(members.begin(), members.end(), item); }

    bool MemberInRange(int32 item) const {
        return Member(item) && (Member(item - 1) || (item < 0x7FFFFFFF && Member(item + 1)));
    }

    int32 Next(int32 item) const {
        if (Count() < 1) return -1;
        if (item < 0 || item < min) return min;
        if (item >= max) return -1;
        const auto above = std::upper_bound(members.begin(), members.end(), item);
        return above != members.end() ? *above : -1;
    }

    int32 Prev(int32 item) const {
        if (Count() < 1 || item < 1 || item <= min) return -1;
        if (item > max) return max;
        const auto above = std::lower_bound(members.begin(), members.end(), item);
        return above != members.begin() ? *(above - 1) : -1;
    }

    int32 NextRange(int32 item, int32& first, int32& last) const {
        first = Next(item);
        last = -1;
        if (!Member(first) || !MemberInRange(first)) return first;
        auto at = std::lower_bound(members.begin(), members.end(), first);
        while (at + 1 != members.end() && *(at + 1) - *at == 1) ++at;
        last = *at;
        return last;
    }

    int32 GetByIndex(int32 ordinal) {
        if (ordinal > Count()) return -1;
        int32 candidate = -1;
        if (cachedIndex != 0) {
            if (ordinal == cachedIndex) candidate = cachedItem;
            if (ordinal == cachedIndex + 1) candidate = Next(cachedItem);
            if (ordinal == cachedIndex - 1) candidate = Prev(cachedItem);
        }
        cachedIndex = ordinal;
        if (candidate == -1) candidate = ByPages(ordinal);
        cachedItem = candidate;
        return candidate;
    }

    int32 GetByIndexBrute(int32 ordinal) const {
        if (ordinal > Count()) return -1;
        int32 item = min;
        for (int32 step = 1; step < ordinal; ++step) item = Next(item);
        return item;
    }

    int32 GetIndex(int32 item) const {
        if (item > max || item < min || !Member(item)) return -1;
        return static_cast<int32>(std::upper_bound(members.begin(), members.end(), item) - members.begin());
    }

    PlainSparseSet Copy() const {
        PlainSparseSet copy;
        for (int32 item = Next(-1); item != -1; item = Next(item)) copy.Add(item);
        return copy;
    }

    int32 PageCount(int32 page) const {
        const int64 first = int64{page} * kPageItems;
        const auto begin = std::lower_bound(members.begin(), members.end(), first);
        return static_cast<int32>(std::lower_bound(begin, members.end(), first + kPageItems) - begin);
    }

private:
    bool MergeRange(int32 first, int32 last) {
        // The first item makes the page slots of its page, the next that has none those of its own, and so on.
        for (int32 page = first >> 18; page <= last >> 18; ++page) {
            if (page >= capacity) capacity = page + 250;
        }
        if (Count() == 0 || max < last) max = last;
        if (Count() == 0 || min > first) min = first;
        std::vector<int32> range(static_cast<std::size_t>(last - first) + 1);
        // Counted wide, since a range may end at the largest value.
        for (std::size_t i = 0; i < range.size(); ++i) range[i] = static_cast<int32>(first + static_cast<int64>(i));
        std::vector<int32> merged;
        std::set_union(members.begin(), members.end(), range.begin(), range.end(), std::back_inserter(merged));
        if (merged.size() > members.size()) cachedIndex = 0;
        members = std::move(merged);
        return true;
    }

    int32 ByPages(int32 ordinal) const {
        int32 page = min >> 18;
        int32 rest = ordinal;
        for (; rest > PageCount(page); ++page) {
            // Bounds that a failed remove has moved can leave fewer members than were counted.
            if (page > 8191) return -1;
            rest -= PageCount(page);
        }
        int32 item = page * kPageItems - 1;
        for (; rest > 0; --rest) item = Next(item);
        return item;
    }
};

}  // namespace Torvo::test
