// The runs of a list of signed values: tagged words in blocks.
//
// A short list is one block of words (TaggedWords). Since an insertion moves what lies behind it in its block, a block
// of more words than a limit is split, and a directory beside the blocks has the lowest value of each, for a
// search to begin with.
//
// The invariant: there is at least one block; none is empty but the only one of an empty list; entries ascend, within a
// block and from one to the next, and no two touch. Functions that need memory answer false without it, and have
// changed nothing then. A split that finds none is left for later: it changes no answer.
#pragma once

#include <Utility/containers/tagged_words.h>

#include <vector>

namespace Torvo {

class TaggedBlocks {
public:
    using Entry = TaggedWords::Entry;

    // Where an entry is: its block, and its place in it. The end is the number of blocks, and the first place.
    struct Position {
        std::size_t block = 0;
        uint64 at = TaggedWords::kBegin;
        bool operator==(const Position&) const = default;
    };

    class Walk;

    // Makes the first block, or copies of another list's. False if memory is short. Nothing else may be called before.
    bool Create();
    bool CreateCopy(const TaggedBlocks& other);

    bool Empty() const { return count_ == 0; }
    bool HasOneEntry() const;
    int32 Lowest() const { return blocks_.front().Lowest(); }
    int32 Highest() const { return blocks_.back().Highest(); }
    // The number of members.
    uint64 Count() const { return count_; }
    bool Member(int32 item) const { return !Empty() && blocks_[BlockOf(item)].Member(item); }

    // The first entry of a list that is not empty.
    Position First() const { return {}; }
    bool AtEnd(Position at) const { return at.block == blocks_.size(); }
    Entry EntryAt(Position at) const { return blocks_[at.block].EntryAt(at.at); }
    // The positions behind an entry, and before a position that is not the first.
    Position Behind(Position at) const;
    Position Before(Position at) const;
    // Where the entry is that has the member of this ordinal, 1 <= ordinal <= Count(), with the ordinal of its first
    // value in `first`.
    Position Locate(uint64 ordinal, uint64& first) const;
    // How often the entries have changed: positions hold while it stays.
    uint64 Changes() const { return changes_; }

    // Adds the value, 0 <= item.
    bool Add(int32 item);
    // Adds the values [low, high], 0 <= low < high. A lone value that touches them is taken out, and the run is not
    // widened for it.
    bool AddRange(int32 low, int32 high);
    // Removes the value, if it is a member.
    bool Remove(int32 item);
    void Clear();

private:
    // What an insertion moves is what a block has: of few blocks each has little. Of many each has four times as much,
    // or else the directory would be the part that takes long to move.
    static constexpr std::size_t kManyBlocks = 512;
    uint64 MostWords() const { return blocks_.size() < kManyBlocks ? 128 : 512; }

    // The block that has the item if any has.
    std::size_t BlockOf(int32 item) const { return BlockBelow(lows_, item); }
    // The first entry that ends at or above the item, or the end.
    Position Find(int32 item) const;
    // A place of a block, or the end of the block as the start of the next one.
    Position Normal(std::size_t block, uint64 at) const;
    Position End() const { return {blocks_.size(), TaggedWords::kBegin}; }

    // Adds a value that lies above all members.
    bool Append(int32 item);
    bool AppendBlock(int32 item);
    // Adds the value just below the lowest one of a block that is not the first.
    bool AddInFrontOf(std::size_t block);
    bool Insert(Position at, Entry entry);
    // Puts entries in the place of those in [from, to), where there are some, or in a place of a block.
    template <typename... Entries>
    bool Replace(Position from, Position to, Entries... entries) {
        TaggedWords& block = blocks_[from.block];
        const uint64 members = block.Count();
        const bool within = from.block == to.block;
        if (!block.Replace(from.at, within ? to.at : block.End(), entries...)) return false;
        count_ += block.Count() - members;
        if (!within) EraseFromBlock(from.block + 1, to);
        Settle(from.block);
        return true;
    }
    // Erases the entries from the start of a block to a position.
    void EraseFromBlock(std::size_t block, Position to);
    void EraseBlocks(std::size_t from, std::size_t to);
    // Puts a block right that has changed: whether it stays, its lowest value, its length.
    void Settle(std::size_t block);
    // Moves the upper half of a block to a new one behind it, if there is memory.
    void Split(std::size_t block);

    std::vector<int32> lows_;
    std::vector<TaggedWords> blocks_;
    uint64 count_ = 0;
    uint64 changes_ = 0;
};

// A walk through the entries, in ascending order.
class TaggedBlocks::Walk {
public:
    explicit Walk(const TaggedBlocks* list) : list_(list) {}

    // The words of the entry that the walk stands at; null at the end. `behind` is the last value that the walk has
    // passed, or -1: entries that have changed meanwhile make it go on with the first that ends above that one.
    const int32* Peek(int32 behind) { return at_ != end_ && changes_ == list_->changes_ ? at_ : PeekElsewhere(behind); }
    // Steps over so many words: those of the entry that Peek gave, or none.
    void Step(uint64 words) { at_ += words; }

private:
    const int32* PeekElsewhere(int32 behind);
    // Takes up what a block has from the position on.
    const int32* Take(Position at);

    const TaggedBlocks* list_;
    // What is left of a block, and the number of the block behind it, which is 0 before the start.
    const int32* at_ = nullptr;
    const int32* end_ = nullptr;
    std::size_t nextBlock_ = 0;
    uint64 changes_ = 0;
};

}  // namespace Torvo
