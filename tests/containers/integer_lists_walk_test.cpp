#include <Utility/integer_lists.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <random>
#include <vector>

#include "containers/integer_list_kinds.h"
#include "reference/plain_integer_lists.h"
#include "support/random.h"

// Lists of many blocks, and walks that mix members and runs, compared with the plain forms.

namespace integer_lists_walk_test {
namespace {

using namespace Torvo;
using test::PlainPairList;
using test::PlainRun;
using test::PlainTaggedList;

template <typename T>
using Runs = std::vector<PlainRun<T>>;

// One position for both kinds of steps, as an enumerator has it.
template <typename T>
class PlainWalk {
public:
    explicit PlainWalk(const Runs<T>& runs) : runs_(runs) {}

    bool Next(T& item) {
        if (fresh_) {
            fresh_ = false;
            return GiveLow(item);
        }
        if (at_ == runs_.size()) return false;
        if (current_ != runs_[at_].high) {
            item = ++current_;
            return true;
        }
        ++at_;
        return GiveLow(item);
    }

    bool Next(T& first, T& last) {
        if (!fresh_ && at_ < runs_.size()) ++at_;
        fresh_ = false;
        if (at_ == runs_.size()) return false;
        first = runs_[at_].low;
        last = runs_[at_].high;
        return true;
    }

private:
    bool GiveLow(T& item) {
        if (at_ == runs_.size()) return false;
        item = current_ = runs_[at_].low;
        return true;
    }

    const Runs<T>& runs_;
    std::size_t at_ = 0;
    T current_ = 0;
    bool fresh_ = true;
};

template <>
class PlainWalk<long32> {
public:
    explicit PlainWalk(const Runs<long32>& runs) : runs_(runs) {}

    bool Next(long32& item) {
        item = -1;
        if (at_ == runs_.size()) return false;
        const PlainRun<long32> run = runs_[at_];
        if (run.low == run.high) {
            item = run.low;
            ++at_;
            return true;
        }
        if (current_ == -1) current_ = run.low;
        item = current_;
        if (current_ == run.high) {
            current_ = -1;
            ++at_;
        } else {
            ++current_;
        }
        return item != -1;
    }

    bool Next(long32& first, long32& last) {
        first = last = -1;
        if (at_ == runs_.size()) return false;
        first = runs_[at_].low;
        last = runs_[at_].high;
        ++at_;
        return true;
    }

private:
    const Runs<long32>& runs_;
    std::size_t at_ = 0;
    long32 current_ = -1;
};

template <typename T>
struct PlainOf {
    using Type = PlainPairList<T>;
};
template <>
struct PlainOf<long32> {
    using Type = PlainTaggedList;
};

// Runs of all lengths, the shortest most often, with gaps of the same kind.
template <typename T>
Runs<T> RandomRuns(test::Random& random, int64 count) {
    const auto length = [&random] { return random.OneIn(3) ? random.Between(1, 40) : random.Between(1, 3); };
    Runs<T> runs;
    int64 next = random.Between(0, 3);
    for (; count > 0; --count) {
        const int64 size = length();
        runs.push_back({static_cast<T>(next), static_cast<T>(next + size - 1)});
        next += size + length();
    }
    return runs;
}

template <typename T>
std::unique_ptr<ZUList<T>> ListOf(const Runs<T>& runs, test::Random& random) {
    std::unique_ptr<ZUList<T>> list(ZUList<T>::Create());
    Runs<T> mixed = runs;
    // In order or from the back: blocks are filled, or split.
    if (random.OneIn(2)) std::reverse(mixed.begin(), mixed.end());
    for (const PlainRun<T> run : mixed) {
        const bool added = run.low == run.high ? list->Add(run.low) : list->AddRange(run.low, run.high);
        EXPECT_TRUE(added);
    }
    return list;
}

template <typename T>
Runs<T> RunsOf(ZUList<T>& list) {
    const std::unique_ptr<ZUListRangeEnumerator<T>> enumerator(list.CreateRangeEnumerator());
    Runs<T> runs;
    PlainRun<T> run;
    while (enumerator->Next(run.low, run.high)) runs.push_back(run);
    return runs;
}

template <typename T>
class LargeIntegerList : public testing::Test {};

TYPED_TEST_SUITE(LargeIntegerList, test::ElementTypes, test::ElementNames);

TYPED_TEST(LargeIntegerList, MixedWalksAnswerAsThePlainFormDoes) {
    using T = TypeParam;
    test::Random random;
    SCOPED_TRACE(random.About());
    for (int round = 0; round < 200; ++round) {
        const Runs<T> runs = RandomRuns<T>(random, round % 2 == 0 ? random.Between(0, 8) : random.Between(200, 1500));
        const auto list = ListOf(runs, random);
        const std::unique_ptr<ZUListEnumerator<T>> members(list->CreateEnumerator());
        auto* const ranges = dynamic_cast<ZUListRangeEnumerator<T>*>(members.get());
        PlainWalk<T> plain(runs);
        const int64 mix = random.Between(1, 30);
        for (int after = 0; after < 10;) {
            T item = 77, first = 77, last = 77;
            T plainItem = 77, plainFirst = 77, plainLast = 77;
            bool more = false;
            if (random.OneIn(mix)) {
                more = ranges->Next(first, last);
                ASSERT_EQ(more, plain.Next(plainFirst, plainLast));
            } else {
                more = members->Next(item);
                ASSERT_EQ(more, plain.Next(plainItem));
            }
            ASSERT_EQ(item, plainItem);
            ASSERT_EQ(first, plainFirst);
            ASSERT_EQ(last, plainLast);
            after += more ? 0 : 1;
        }
    }
}

TYPED_TEST(LargeIntegerList, ChangesAcrossBlocksAnswerAsThePlainFormDoes) {
    using T = TypeParam;
    test::Random random;
    SCOPED_TRACE(random.About());
    for (int round = 0; round < 12; ++round) {
        typename PlainOf<T>::Type plain;
        plain.runs = RandomRuns<T>(random, random.Between(500, 3000));
        const auto list = ListOf(plain.runs, random);
        ASSERT_EQ(RunsOf(*list), plain.runs);
        const int64 reach = static_cast<int64>(plain.runs.back().high) + 20;
        for (int step = 0; step < 60; ++step) {
            const T item = static_cast<T>(random.Between(0, reach));
            if (random.OneIn(3)) {
                const int64 size = random.OneIn(4) ? random.Between(1, reach / 3) : random.Between(1, 200);
                const T other = static_cast<T>(item + static_cast<T>(size));
                // One at a time takes the plain form too long for the pair lists, so what lies between goes first.
                std::erase_if(plain.runs, [&](auto run) { return run.low > item && run.high < other; });
                if constexpr (std::is_signed_v<T>) {
                    plain.AddRange(item, other);
                } else {
                    Runs<T>& runs = plain.runs;
                    PlainRun<T> joined{item, other};
                    std::erase_if(runs, [&](auto run) {
                        const bool touches = run.low <= other + 1 && run.high + 1 >= item;
                        if (touches) joined = {std::min(joined.low, run.low), std::max(joined.high, run.high)};
                        return touches;
                    });
                    runs.insert(std::find_if(runs.begin(), runs.end(), [&](auto run) { return run.low > item; }),
                                joined);
                }
                ASSERT_TRUE(list->AddRange(other, item)) << item << " " << other;
            } else if (random.OneIn(2)) {
                plain.Add(item);
                ASSERT_TRUE(list->Add(item)) << item;
            } else {
                plain.Remove(item);
                ASSERT_TRUE(list->Remove(item)) << item;
            }
            ASSERT_EQ(list->Count(), plain.Count());
            ASSERT_EQ(list->Member(item), plain.Member(item));
            if (step % 6 == 0) {
                ASSERT_EQ(RunsOf(*list), plain.runs);
            }
        }
        const std::unique_ptr<ZUListItem<T>> finder(list->CreateItem());
        uint64 index = 1;
        for (int step = 0; step < 100; ++step) {
            const auto count = static_cast<int64>(plain.Count());
            index = random.OneIn(3) ? static_cast<uint64>(random.Between(0, count + 1))
                                    : index + static_cast<uint64>(random.Between(0, 40)) - 20;
            T value = 77, plainValue = 77;
            ASSERT_EQ(finder->GetItem(index, value), plain.GetItem(index, plainValue)) << index;
            ASSERT_EQ(value, plainValue) << index;
        }
        const std::unique_ptr<ZUList<T>> copy(list->Copy());
        ASSERT_EQ(RunsOf(*copy), plain.runs);
        ASSERT_TRUE(list->Clear());
        ASSERT_EQ(list->Count(), 0u);
        ASSERT_TRUE(list->Add(5));
        ASSERT_EQ(RunsOf(*list), (Runs<T>{{5, 5}}));
    }
}

// Whatever a block begins or ends with gets neighbours that touch it.
TYPED_TEST(LargeIntegerList, EveryGapIsFilledFromEitherSide) {
    using T = TypeParam;
    constexpr T kGaps = 2000;
    test::Random random;
    SCOPED_TRACE(random.About());
    for (const bool fromAbove : {false, true}) {
        const std::unique_ptr<ZUList<T>> list(ZUList<T>::Create());
        std::vector<T> gaps;
        for (T gap = 0; gap <= kGaps; ++gap) gaps.push_back(gap);
        const auto addAll = [&](T place) {
            std::shuffle(gaps.begin(), gaps.end(), std::mt19937(static_cast<unsigned>(random.Between(0, 1 << 30))));
            for (const T gap : gaps) ASSERT_TRUE(list->Add(gap * 3 + place));
        };
        addAll(0);
        Runs<T> expected;
        for (T gap = 0; gap <= kGaps; ++gap) expected.push_back({gap * 3, gap * 3});
        ASSERT_EQ(RunsOf(*list), expected);
        addAll(fromAbove ? 2 : 1);
        if (fromAbove) {
            for (PlainRun<T>& run : expected) run = {run.low - (run.low > 0 ? 1 : 0), run.high};
            expected.push_back({kGaps * 3 + 2, kGaps * 3 + 2});
        } else {
            for (PlainRun<T>& run : expected) ++run.high;
        }
        ASSERT_EQ(RunsOf(*list), expected);
        addAll(fromAbove ? 1 : 2);
        ASSERT_EQ(RunsOf(*list), (Runs<T>{{0, kGaps * 3 + 2}}));
        ASSERT_EQ(list->Count(), uint64{kGaps} * 3 + 3);
    }
}

// So many lone values that blocks become longer, and then fewer again.
TYPED_TEST(LargeIntegerList, ManyBlocksComeAndGo) {
    using T = TypeParam;
    constexpr int32 kValues = 60'000;
    const std::unique_ptr<ZUList<T>> list(ZUList<T>::Create());
    std::vector<int32> values(kValues);
    std::iota(values.begin(), values.end(), 0);
    std::mt19937 engine(5);
    for (const int32 left : {30'000, 100, 0}) {
        std::shuffle(values.begin(), values.end(), engine);
        for (const int32 value : values) ASSERT_TRUE(list->Add(static_cast<T>(value * 5)));
        ASSERT_EQ(list->Count(), uint64{kValues});
        std::shuffle(values.begin(), values.end(), engine);
        for (auto value = values.begin() + left; value != values.end(); ++value) {
            ASSERT_TRUE(list->Remove(static_cast<T>(*value * 5)));
        }
        Runs<T> expected;
        for (auto value = values.begin(); value != values.begin() + left; ++value) {
            expected.push_back({static_cast<T>(*value * 5), static_cast<T>(*value * 5)});
        }
        std::sort(expected.begin(), expected.end(), [](auto a, auto b) { return a.low < b.low; });
        ASSERT_EQ(RunsOf(*list), expected);
        for (int32 value = 0; value < kValues * 5; value += 7) {
            const bool isMember = std::binary_search(expected.begin(), expected.end(),
                                                     PlainRun<T>{static_cast<T>(value), static_cast<T>(value)},
                                                     [](auto a, auto b) { return a.low < b.low; });
            ASSERT_EQ(list->Member(static_cast<T>(value)), isMember) << value;
        }
    }
}

// The last block of a list that had many blocks is longer than the blocks of a list that has few.
TYPED_TEST(LargeIntegerList, FewBlocksAfterManyKeepTheirOrder) {
    const std::unique_ptr<ZUList<TypeParam>> list(ZUList<TypeParam>::Create());
    constexpr TypeParam lower = 511 * 64;
    constexpr TypeParam many = lower + 256 * 40;
    for (TypeParam i = 0; i < many; ++i) ASSERT_TRUE(list->Add(10 + i * 10));
    ASSERT_TRUE(list->AddRange(10, 10 + lower * 10));
    for (TypeParam i = many - 200; i < many - 1; i += 3) ASSERT_TRUE(list->Add(10 + i * 10 + 5));
    TypeParam low = 0;
    TypeParam high = 0;
    ASSERT_TRUE(list->MinMax(low, high, nullptr));
    EXPECT_EQ(high, 10 + (many - 1) * 10);
    for (TypeParam i = lower; i < many; ++i) ASSERT_TRUE(list->Member(10 + i * 10)) << i;
    const std::unique_ptr<ZUListRangeEnumerator<TypeParam>> runs(list->CreateRangeEnumerator());
    TypeParam first = 0;
    TypeParam last = 0;
    for (TypeParam before = 0; runs->Next(first, last); before = last) ASSERT_GT(first, before);
}

}  // namespace
}  // namespace integer_lists_walk_test
