#include <Utility/containers/tagged_blocks.h>

#include <exception>

namespace Torvo {

bool TaggedBlocks::Create() {
    TaggedWords block;
    if (!block.Create()) return false;
    try {
        lows_.assign(1, 0);
        blocks_.push_back(std::move(block));
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

bool TaggedBlocks::CreateCopy(const TaggedBlocks& other) {
    try {
        lows_ = other.lows_;
        blocks_.reserve(other.blocks_.size());
    } catch (const std::exception&) {
        return false;
    }
    for (const TaggedWords& block : other.blocks_) {
        if (!blocks_.emplace_back().CreateCopy(block)) return false;
    }
    count_ = other.count_;
    return true;
}

bool TaggedBlocks::HasOneEntry() const {
    if (blocks_.size() != 1 || Empty()) return false;
    const TaggedWords& block = blocks_.front();
    return TaggedWords::kBegin + block.EntryAt(TaggedWords::kBegin).Words() == block.End();
}

TaggedBlocks::Position TaggedBlocks::Normal(std::size_t block, uint64 at) const {
    return at < blocks_[block].End() ? Position{block, at} : Position{block + 1, TaggedWords::kBegin};
}

TaggedBlocks::Position TaggedBlocks::Find(int32 item) const {
    const std::size_t block = BlockOf(item);
    return Normal(block, blocks_[block].Find(item));
}

TaggedBlocks::Position TaggedBlocks::Behind(Position at) const {
    return Normal(at.block, at.at + EntryAt(at).Words());
}

TaggedBlocks::Position TaggedBlocks::Before(Position at) const {
    if (at.at > TaggedWords::kBegin) return {at.block, blocks_[at.block].Before(at.at)};
    const TaggedWords& block = blocks_[at.block - 1];
    return {at.block - 1, block.Before(block.End())};
}

TaggedBlocks::Position TaggedBlocks::Locate(uint64 ordinal, uint64& first) const {
    first = 1;
    Position at;
    for (; ordinal - first >= blocks_[at.block].Count(); ++at.block) first += blocks_[at.block].Count();
    for (Entry entry = EntryAt(at); ordinal - first >= entry.Size(); entry = EntryAt(at)) {
        first += entry.Size();
        at.at += entry.Words();
    }
    return at;
}

bool TaggedBlocks::Add(int32 item) {
    if (Empty() || item > Highest()) return Append(item);
    const std::size_t number = BlockOf(item);
    if (number + 1 < blocks_.size() && lows_[number + 1] - item == 1) return AddInFrontOf(number + 1);
    TaggedWords& block = blocks_[number];
    const uint64 members = block.Count();
    if (!block.Add(item)) return false;
    if (block.Count() == members) return true;
    ++count_;
    Settle(number);
    return true;
}

bool TaggedBlocks::AddInFrontOf(std::size_t block) {
    const Position at{block, TaggedWords::kBegin};
    const Entry above = EntryAt(at);
    const int32 item = above.low - 1;
    const Position before = Before(at);
    const Entry below = EntryAt(before);
    if (item - below.high == 1) return Replace(before, Behind(at), Entry{below.low, above.high});
    return Replace(at, Behind(at), Entry{item, above.high});
}

bool TaggedBlocks::AddRange(int32 low, int32 high) {
    Entry joined{low, high};
    const Position from = Find(low > 0 ? low - 1 : low);
    if (!AtEnd(from)) {
        const Entry entry = EntryAt(from);
        if (!entry.IsSingle() && entry.low < low) joined.low = entry.low;
    }
    Position to = Find(high);
    if (!AtEnd(to)) {
        const Entry entry = EntryAt(to);
        if (int64{entry.low} <= int64{high} + 1) {
            if (!entry.IsSingle()) joined.high = entry.high;
            to = Behind(to);
        }
    }
    return from == to ? Insert(from, joined) : Replace(from, to, joined);
}

bool TaggedBlocks::Remove(int32 item) {
    const Position at = Find(item);
    if (AtEnd(at)) return true;
    const Entry entry = EntryAt(at);
    if (item < entry.low) return true;
    const Position behind = Behind(at);
    if (entry.IsSingle()) return Replace(at, behind);
    if (item == entry.low) return Replace(at, behind, Entry{item + 1, entry.high});
    if (item == entry.high) return Replace(at, behind, Entry{entry.low, item - 1});
    return Replace(at, behind, Entry{entry.low, item - 1}, Entry{item + 1, entry.high});
}

void TaggedBlocks::Clear() {
    EraseBlocks(1, blocks_.size());
    TaggedWords& block = blocks_.front();
    block.Replace(TaggedWords::kBegin, block.End());
    count_ = 0;
    ++changes_;
}

bool TaggedBlocks::Append(int32 item) {
    TaggedWords& block = blocks_.back();
    const bool touches = !Empty() && item - Highest() == 1;
    if (!touches && block.Used() >= MostWords()) return AppendBlock(item);
    if (!block.Append(item)) return false;
    lows_.back() = block.Lowest();
    ++count_;
    ++changes_;
    return true;
}

// Values that come in order leave full blocks behind.
bool TaggedBlocks::AppendBlock(int32 item) {
    TaggedWords block;
    if (!block.Create() || !block.Append(item)) return false;
    try {
        ReserveOneMore(blocks_);
        lows_.push_back(item);
    } catch (const std::exception&) {
        return false;
    }
    blocks_.push_back(std::move(block));
    ++count_;
    ++changes_;
    return true;
}

bool TaggedBlocks::Insert(Position at, Entry entry) {
    // The end of a block rather than the start of the next one, which may not exist.
    if (at.at == TaggedWords::kBegin && at.block > 0) at = {at.block - 1, blocks_[at.block - 1].End()};
    return Replace(at, at, entry);
}

void TaggedBlocks::EraseFromBlock(std::size_t block, Position to) {
    if (to.at > TaggedWords::kBegin) {
        TaggedWords& last = blocks_[to.block];
        const uint64 members = last.Count();
        last.Replace(TaggedWords::kBegin, to.at);
        count_ -= members - last.Count();
        lows_[to.block] = last.Lowest();
    }
    EraseBlocks(block, to.block);
}

void TaggedBlocks::EraseBlocks(std::size_t from, std::size_t to) {
    for (std::size_t block = from; block < to; ++block) count_ -= blocks_[block].Count();
    const auto begin = static_cast<std::ptrdiff_t>(from);
    const auto end = static_cast<std::ptrdiff_t>(to);
    lows_.erase(lows_.begin() + begin, lows_.begin() + end);
    blocks_.erase(blocks_.begin() + begin, blocks_.begin() + end);
}

void TaggedBlocks::Settle(std::size_t block) {
    ++changes_;
    if (!blocks_[block].Empty()) {
        lows_[block] = blocks_[block].Lowest();
        if (blocks_[block].Used() > MostWords()) Split(block);
    } else if (blocks_.size() > 1) {
        EraseBlocks(block, block + 1);
    }
}

void TaggedBlocks::Split(std::size_t block) {
    const uint64 middle = blocks_[block].StartOf(blocks_[block].End() / 2);
    TaggedWords upper;
    if (!upper.CreateCopy(blocks_[block], middle)) return;
    try {
        ReserveOneMore(blocks_);
        lows_.insert(lows_.begin() + static_cast<std::ptrdiff_t>(block) + 1, upper.Lowest());
    } catch (const std::exception&) {
        return;
    }
    blocks_[block].Replace(middle, blocks_[block].End());
    blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(block) + 1, std::move(upper));
}

const int32* TaggedBlocks::Walk::PeekElsewhere(int32 behind) {
    const bool changed = changes_ != list_->changes_;
    changes_ = list_->changes_;
    if (changed && nextBlock_ > 0) {
        const Position at = list_->Find(behind);
        if (list_->AtEnd(at)) {
            nextBlock_ = at.block;
        } else {
            Take(at);
            const Entry entry = list_->EntryAt(at);
            if (entry.high > behind) return at_;
            Step(entry.Words());
            if (at_ != end_) return at_;
        }
    }
    at_ = end_ = nullptr;
    return nextBlock_ < list_->blocks_.size() ? Take({nextBlock_, TaggedWords::kBegin}) : nullptr;
}

const int32* TaggedBlocks::Walk::Take(Position at) {
    const TaggedWords& block = list_->blocks_[at.block];
    at_ = block.Words() + at.at;
    end_ = block.Words() + block.End();
    nextBlock_ = at.block + 1;
    return at_ != end_ ? at_ : nullptr;
}

}  // namespace Torvo
