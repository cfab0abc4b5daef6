// The plain forms of the integer lists: a sorted array of runs, walked from the front, with the rules of each design.
#pragma once

#include <Utility/platform/types.h>

#include <algorithm>
#include <limits>
#include <vector>

namespace Torvo::test {

template <typename T>
struct PlainRun {
    T low;
    T high;
    bool operator==(const PlainRun&) const = default;
};

// What both designs do alike: sets of runs that never touch.
template <typename T>
class PlainRuns {
public:
    std::vector<PlainRun<T>> runs;

    bool Member(T item) const {
        return std::any_of(runs.begin(), runs.end(), [item](auto run) { return run.low <= item && item <= run.high; });
    }

    void AddOne(T item) {
        if (Member(item)) return;
        auto at = std::find_if(runs.begin(), runs.end(), [item](auto run) { return item < run.low; });
        at = runs.insert(at, {item, item});
        if (at + 1 != runs.end() && (at + 1)->low - at->high == 1) {
            at->high = (at + 1)->high;
            runs.erase(at + 1);
        }
        if (at != runs.begin() && at->low - (at - 1)->high == 1) {
            (at - 1)->high = at->high;
            runs.erase(at);
        }
    }

    void Remove(T item) {
        for (auto at = runs.begin(); at != runs.end(); ++at) {
            if (item < at->low || item > at->high) continue;
            const PlainRun<T> run = *at;
            at = runs.erase(at);
            if (item < run.high) at = runs.insert(at, {static_cast<T>(item + 1), run.high});
            if (item > run.low) runs.insert(at, {run.low, static_cast<T>(item - 1)});
            return;
        }
    }

    uint64 Count() const {
        uint64 count = 0;
        for (const auto run : runs) count += static_cast<uint64>(run.high - run.low) + 1;
        return count;
    }

    int32 Plurality() const {
        if (runs.empty()) return 0;
        return runs.size() > 1 || runs[0].low != runs[0].high ? 2 : 1;
    }
};

// The list of tagged words.
class PlainTaggedList : public PlainRuns<long32> {
public:
    bool Add(long32 item) {
        if (item < 0) return false;
        AddOne(item);
        return true;
    }

    bool AddRange(long32 a, long32 b) {
        if (a < 0 || b < 0) return false;
        if (a == b) return Add(a);
        if (a > b) std::swap(a, b);
        // Two walks over the entries: where the words to be replaced begin, and where they end.
        const int64 low = a;
        const int64 high = b;
        std::size_t begin = 0;
        for (; begin < runs.size(); ++begin) {
            const auto run = runs[begin];
            const bool single = run.low == run.high;
            if (!single && low < run.low) break;
            if (!single && low - 1 <= run.high) {
                a = run.low;
                break;
            }
            if (single && low - 1 <= run.low) break;
        }
        std::size_t end = 0;
        for (; end < runs.size(); ++end) {
            const auto run = runs[end];
            const bool single = run.low == run.high;
            if (!single && high + 1 >= run.low && high <= run.high) {
                b = run.high;
                ++end;
                break;
            }
            if (!single && high < run.low) break;
            if (single && run.low > high + 1) break;
        }
        const auto at = runs.begin();
        runs.erase(at + static_cast<std::ptrdiff_t>(begin), at + static_cast<std::ptrdiff_t>(end));
        runs.insert(runs.begin() + static_cast<std::ptrdiff_t>(begin), {a, b});
        return true;
    }

    bool GetItem(uint64 index, long32& item) const {
        item = -1;
        if (index == 0) return false;
        for (const auto run : runs) {
            const auto size = static_cast<uint64>(run.high - run.low) + 1;
            if (index <= size) {
                item = static_cast<long32>(run.low + static_cast<int64>(index) - 1);
                return true;
            }
            index -= size;
        }
        return false;
    }
};

// The lists of pairs.
template <typename T>
class PlainPairList : public PlainRuns<T> {
public:
    bool Add(T item) {
        this->AddOne(item);
        return true;
    }

    bool AddRange(T a, T b) {
        if (a == b) return false;
        if (a > b) std::swap(a, b);
        for (T item = a;; ++item) {
            this->AddOne(item);
            if (item == b) return true;
        }
    }

    bool GetItem(uint64 index, T& item) const {
        if (index == 0 || index > this->Count()) return false;
        uint64 rest = index;
        for (const auto run : this->runs) {
            const uint64 size = static_cast<uint64>(run.high - run.low) + 1;
            if (size > rest) {
                item = static_cast<T>(run.low + rest - 1);
                return true;
            }
            rest -= size;
        }
        return true;
    }
};

}  // namespace Torvo::test
