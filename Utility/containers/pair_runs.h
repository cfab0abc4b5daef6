// Runs of consecutive values, kept as sorted (low, high) pairs.
//
// One sorted array would make each insertion move half of it. So the pairs lie in blocks of limited size, in order,
// with a directory beside them: the low of each block's first pair, and the block. A search is a binary one through the
// directory and one through a block; an insertion moves pairs of one block, and a full block is split. A block knows
// how many members its runs have, so that an ordinal is found by blocks.
//
// The invariant: no block is empty; pairs ascend, within a block and from one to the next; no two pairs touch; and
// directory and blocks have the same length. Functions that need memory throw std::bad_alloc, and have changed nothing
// then.
#pragma once

#include <Utility/containers/block_directory.h>
#include <Utility/platform/types.h>

#include <memory>
#include <vector>

namespace Torvo {

template <typename T>
struct Run {
    T low;
    T high;
};

template <typename T>
class PairRuns {
public:
    // Where a run is: its block, and its place in it. The end is the number of blocks, and place 0.
    struct Position {
        std::size_t block = 0;
        std::size_t place = 0;
        bool operator==(const Position&) const = default;
    };

    class Walk;

    PairRuns() = default;
    PairRuns(const PairRuns& other);
    PairRuns& operator=(const PairRuns&) = delete;
    ~PairRuns() = default;

    bool Empty() const { return blocks_.empty(); }
    bool HasOneRun() const { return blocks_.size() == 1 && blocks_[0]->runs.size() == 1; }
    bool AtEnd(Position at) const { return at.block >= blocks_.size(); }
    // The run at a position that is not the end.
    const Run<T>& At(Position at) const { return blocks_[at.block]->runs[at.place]; }

    const Run<T>& First() const { return blocks_.front()->runs.front(); }
    const Run<T>& Last() const { return blocks_.back()->runs.back(); }
    // The number of members, modulo 2^64.
    uint64 Count() const { return count_; }

    bool Member(T item) const {
        return !Empty() && Holds(*NearestIn(blocks_[BlockBelow(lows_, item)]->runs, item), item);
    }
    // Adds the value.
    void Add(T item);
    // Adds the values [low, high].
    void AddRange(T low, T high);
    // Removes the value, if it is a member.
    void Remove(T item);
    void Clear();

    // Passes runs from the first on while `rest` is at least their size, taking the size off. The position it stops at
    // has a size above `rest`, or is the end.
    Position Pass(uint64& rest) const;

private:
    struct Block {
        uint64 members = 0;
        std::vector<Run<T>> runs;
    };

    // What an insertion moves is what a block has: of few blocks each has little. Of many each has four times as much,
    // or else the directory would be the part that takes long to move.
    static constexpr std::size_t kManyBlocks = 512;
    // A block that was made while there were many may be longer than this.
    std::size_t MostRuns() const { return blocks_.size() < kManyBlocks ? 64 : 256; }
    // What the first run of a list reserves.
    static constexpr std::size_t kFirstRuns = 32;

    static bool Holds(const Run<T>& run, T item) { return item - run.low <= run.high - run.low; }
    static uint64 SizeOf(T low, T high) { return uint64{high} - low + 1; }
    static uint64 SizeOf(const Run<T>& run) { return SizeOf(run.low, run.high); }
    static uint64 SizeOf(const std::vector<Run<T>>& runs, std::size_t from, std::size_t to);

    Position End() const { return {blocks_.size(), 0}; }
    // The positions behind a run, and before a position that is not the first.
    Position Behind(Position at) const;
    Position Before(Position at) const;

    // The last run of which the low is at or below the item, or else the first; for a list that is not empty.
    Position Nearest(T item) const;
    static const Run<T>* NearestIn(const std::vector<Run<T>>& runs, T item) {
        return LastHolding(runs.data(), runs.size(), [item](const Run<T>& run) { return run.low <= item; });
    }
    // The first run of which the high is at or above the item, or the end.
    Position Find(T item) const;
    // The first run that lies above the item, or the end.
    Position Above(T item) const;
    // The first run that lies above the value and does not touch it, or the end.
    Position BehindTouching(T high) const;

    // Adds a value that lies above all members.
    void Append(T item);
    // Low and high one by one: a pair that has just been put together is slow to read as one.
    void Insert(Position at, T low, T high);
    void InsertBlock(std::size_t at, std::unique_ptr<Block> block);
    // Moves the upper half of a block that is too long to a new one behind it.
    void Split(std::size_t block);
    void Change(Position at, T low, T high);
    // Removes the runs [from, to).
    void Erase(Position from, Position to);
    // The same within a block, which may become empty.
    void EraseInBlock(std::size_t block, std::size_t from, std::size_t to);

    std::vector<T> lows_;
    std::vector<std::unique_ptr<Block>> blocks_;
    uint64 count_ = 0;
    // Counts the changes of the runs.
    uint64 changes_ = 0;
};

// A walk through the runs, in ascending order.
template <typename T>
class PairRuns<T>::Walk {
public:
    explicit Walk(const PairRuns* runs) : runs_(runs) {}

    // The next run, without stepping over it; null at the end. `behind` is the last value that the walk has passed:
    // runs that have changed meanwhile make it go on with the first run above that one.
    const Run<T>* Peek(T behind) { return at_ != end_ && changes_ == runs_->changes_ ? at_ : PeekElsewhere(behind); }
    // Steps over the run that Peek gave, or stays, by a condition that costs no branch.
    void Step(bool step) { at_ += step ? 1 : 0; }

private:
    const Run<T>* PeekElsewhere(T behind);
    // Takes up what a block has from the position on.
    const Run<T>* Take(Position at);

    const PairRuns* runs_;
    // What is left of a block, and the number of the block behind it, which is 0 before the start.
    const Run<T>* at_ = nullptr;
    const Run<T>* end_ = nullptr;
    std::size_t nextBlock_ = 0;
    uint64 changes_ = 0;
};

}  // namespace Torvo
