#include <Utility/containers/pair_runs.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace Torvo {

template <typename T>
PairRuns<T>::PairRuns(const PairRuns& other) : lows_(other.lows_), count_(other.count_) {
    blocks_.reserve(other.blocks_.size());
    for (const auto& block : other.blocks_) blocks_.push_back(std::make_unique<Block>(*block));
}

template <typename T>
uint64 PairRuns<T>::SizeOf(const std::vector<Run<T>>& runs, std::size_t from, std::size_t to) {
    uint64 size = 0;
    for (std::size_t i = from; i < to; ++i) size += SizeOf(runs[i]);
    return size;
}

template <typename T>
typename PairRuns<T>::Position PairRuns<T>::Behind(Position at) const {
    if (AtEnd(at)) return at;
    return at.place + 1 < blocks_[at.block]->runs.size() ? Position{at.block, at.place + 1} : Position{at.block + 1, 0};
}

template <typename T>
typename PairRuns<T>::Position PairRuns<T>::Before(Position at) const {
    return at.place > 0 ? Position{at.block, at.place - 1}
                        : Position{at.block - 1, blocks_[at.block - 1]->runs.size() - 1};
}

template <typename T>
typename PairRuns<T>::Position PairRuns<T>::Nearest(T item) const {
    const std::size_t block = BlockBelow(lows_, item);
    const std::vector<Run<T>>& runs = blocks_[block]->runs;
    return {block, static_cast<std::size_t>(NearestIn(runs, item) - runs.data())};
}

template <typename T>
typename PairRuns<T>::Position PairRuns<T>::Find(T item) const {
    if (Empty()) return End();
    const Position at = Nearest(item);
    return At(at).high < item ? Behind(at) : at;
}

template <typename T>
typename PairRuns<T>::Position PairRuns<T>::Above(T item) const {
    if (Empty()) return End();
    const Position at = Nearest(item);
    return At(at).low <= item ? Behind(at) : at;
}

template <typename T>
typename PairRuns<T>::Position PairRuns<T>::BehindTouching(T high) const {
    const Position at = Above(high);
    return !AtEnd(at) && At(at).low - high == 1 ? Behind(at) : at;
}

template <typename T>
void PairRuns<T>::Add(T item) {
    if (Empty() || item > Last().high) return Append(item);
    const Position at = Nearest(item);
    const T low = At(at).low;
    const T high = At(at).high;
    if (item - low <= high - low) return;
    // The first run of all may lie above the item.
    const bool hasBelow = low < item;
    const Position behind = hasBelow ? Behind(at) : at;
    const T nextHigh = At(behind).high;
    const bool touchesBelow = hasBelow && item - high == 1;
    const bool touchesAbove = At(behind).low - item == 1;
    if (!touchesBelow && !touchesAbove) return Insert(behind, item, item);
    if (touchesBelow && touchesAbove) Erase(behind, Behind(behind));
    // Which of the two it is nobody can foresee, so it is chosen and not asked for by a branch.
    const Position changed{touchesBelow ? at.block : behind.block, touchesBelow ? at.place : behind.place};
    Change(changed, touchesBelow ? low : item, touchesAbove ? nextHigh : item);
}

template <typename T>
void PairRuns<T>::Append(T item) {
    if (Empty() || item - Last().high != 1) return Insert(End(), item, item);
    Change(Before(End()), Last().low, item);
}

template <typename T>
void PairRuns<T>::AddRange(T low, T high) {
    const Position from = Find(low > 0 ? low - 1 : low);
    const Position to = BehindTouching(high);
    if (from == to) return Insert(from, low, high);
    // The runs from one to the other touch the new one, and become one with it.
    const Run<T> joined{std::min(low, At(from).low), std::max(high, At(Before(to)).high)};
    Erase(Behind(from), to);
    Change(from, joined.low, joined.high);
}

template <typename T>
void PairRuns<T>::Remove(T item) {
    const Position at = Find(item);
    if (AtEnd(at) || At(at).low > item) return;
    const Run<T> run = At(at);
    if (run.low == run.high) return Erase(at, Behind(at));
    if (item == run.low) return Change(at, static_cast<T>(item + 1), run.high);
    if (item == run.high) return Change(at, run.low, static_cast<T>(item - 1));
    // What needs memory comes first; it may move the run that is to be cut short.
    Insert(Behind(at), static_cast<T>(item + 1), run.high);
    Change(Find(item), run.low, static_cast<T>(item - 1));
}

template <typename T>
void PairRuns<T>::Clear() {
    lows_.clear();
    blocks_.clear();
    count_ = 0;
    ++changes_;
}

template <typename T>
typename PairRuns<T>::Position PairRuns<T>::Pass(uint64& rest) const {
    std::size_t block = 0;
    for (; block < blocks_.size() && rest >= blocks_[block]->members; ++block) rest -= blocks_[block]->members;
    std::size_t place = 0;
    if (block == blocks_.size()) return {block, place};
    const std::vector<Run<T>>& runs = blocks_[block]->runs;
    for (; rest >= SizeOf(runs[place]); ++place) rest -= SizeOf(runs[place]);
    return {block, place};
}

template <typename T>
void PairRuns<T>::Insert(Position at, T low, T high) {
    ++changes_;
    // The end of a block rather than the start of the next one, so that runs that come in order fill their blocks.
    if (at.place == 0 && at.block > 0) at = {at.block - 1, blocks_[at.block - 1]->runs.size()};
    const bool isBehindAll = !Empty() && at.block + 1 == blocks_.size() && at.place == blocks_[at.block]->runs.size();
    const bool append = Empty() || (isBehindAll && at.place >= MostRuns());
    if (append) {
        auto block = std::make_unique<Block>();
        block->runs.reserve(Empty() ? kFirstRuns : MostRuns());
        block->runs.push_back({low, high});
        block->members = SizeOf(low, high);
        InsertBlock(blocks_.size(), std::move(block));
    } else {
        const std::size_t size = blocks_[at.block]->runs.size();
        if (size >= MostRuns()) {
            Split(at.block);
            if (at.place > size / 2) at = {at.block + 1, at.place - size / 2};
        }
        std::vector<Run<T>>& runs = blocks_[at.block]->runs;
        const auto place = runs.emplace(runs.begin() + static_cast<std::ptrdiff_t>(at.place));
        place->low = low;
        place->high = high;
        blocks_[at.block]->members += SizeOf(low, high);
        lows_[at.block] = runs.front().low;
    }
    count_ += SizeOf(low, high);
}

template <typename T>
void PairRuns<T>::InsertBlock(std::size_t at, std::unique_ptr<Block> block) {
    ReserveOneMore(lows_);
    ReserveOneMore(blocks_);
    lows_.insert(lows_.begin() + static_cast<std::ptrdiff_t>(at), block->runs.front().low);
    blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(at), std::move(block));
}

template <typename T>
void PairRuns<T>::Split(std::size_t block) {
    std::vector<Run<T>>& runs = blocks_[block]->runs;
    const auto middle = runs.begin() + static_cast<std::ptrdiff_t>(runs.size() / 2);
    auto upper = std::make_unique<Block>();
    upper->runs.reserve(MostRuns());
    upper->runs.assign(middle, runs.end());
    upper->members = SizeOf(upper->runs, 0, upper->runs.size());
    const uint64 moved = upper->members;
    InsertBlock(block + 1, std::move(upper));
    runs.erase(middle, runs.end());
    blocks_[block]->members -= moved;
}

template <typename T>
void PairRuns<T>::Change(Position at, T low, T high) {
    ++changes_;
    Block& block = *blocks_[at.block];
    Run<T>& run = block.runs[at.place];
    const uint64 delta = SizeOf(low, high) - SizeOf(run);
    block.members += delta;
    count_ += delta;
    run.low = low;
    run.high = high;
    lows_[at.block] = block.runs.front().low;
}

template <typename T>
void PairRuns<T>::Erase(Position from, Position to) {
    ++changes_;
    if (from.block == to.block) return EraseInBlock(from.block, from.place, to.place);
    EraseInBlock(from.block, from.place, blocks_[from.block]->runs.size());
    for (std::size_t block = from.block + 1; block < to.block; ++block) count_ -= blocks_[block]->members;
    if (!AtEnd(to)) EraseInBlock(to.block, 0, to.place);
    const std::size_t firstEmpty = from.block + (from.place > 0 ? 1 : 0);
    const auto begin = static_cast<std::ptrdiff_t>(firstEmpty);
    const auto end = static_cast<std::ptrdiff_t>(to.block);
    lows_.erase(lows_.begin() + begin, lows_.begin() + end);
    blocks_.erase(blocks_.begin() + begin, blocks_.begin() + end);
}

template <typename T>
void PairRuns<T>::EraseInBlock(std::size_t block, std::size_t from, std::size_t to) {
    if (from == to) return;
    std::vector<Run<T>>& runs = blocks_[block]->runs;
    const uint64 removed = SizeOf(runs, from, to);
    blocks_[block]->members -= removed;
    count_ -= removed;
    runs.erase(runs.begin() + static_cast<std::ptrdiff_t>(from), runs.begin() + static_cast<std::ptrdiff_t>(to));
    if (!runs.empty()) lows_[block] = runs.front().low;
}

template <typename T>
const Run<T>* PairRuns<T>::Walk::PeekElsewhere(T behind) {
    const bool changed = changes_ != runs_->changes_;
    changes_ = runs_->changes_;
    if (changed && nextBlock_ > 0) {
        const Position at = runs_->Above(behind);
        if (!runs_->AtEnd(at)) return Take(at);
        nextBlock_ = at.block;
    }
    at_ = end_ = nullptr;
    return nextBlock_ < runs_->blocks_.size() ? Take({nextBlock_, 0}) : nullptr;
}

template <typename T>
const Run<T>* PairRuns<T>::Walk::Take(Position at) {
    const std::vector<Run<T>>& runs = runs_->blocks_[at.block]->runs;
    at_ = runs.data() + at.place;
    end_ = runs.data() + runs.size();
    nextBlock_ = at.block + 1;
    return at_;
}

template class PairRuns<ulong32>;
template class PairRuns<uint64>;

}  // namespace Torvo
