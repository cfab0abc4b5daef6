// Runs of consecutive values, packed into a block of 32-bit words.
//
// From word 1 on come the entries, in ascending order: a lone value is one word, a run of two or more is two words, its
// low and its high. Bit 31, the tag, is set in the word that ends an entry. No two entries touch. Word 0 is the number
// of words that follow, tagged, so that an entry begins wherever the word before has the tag. A word behind the last
// one may be read and means nothing. The block is resized to its need, give or take a few words.
//
// With the tag masked off, the words ascend, so a value is found by a binary search over words that does not care about
// entries. Whether it is a member is told by the word that the search ends at: that is the value itself, or a low, or
// else the end of an entry below it.
#pragma once

#include <Utility/containers/block_directory.h>
#include <Utility/platform/types.h>

#include <utility>

namespace Torvo {

class TaggedWords {
public:
    // A lone value has `low` equal to `high` and takes one word.
    struct Entry {
        int32 low;
        int32 high;

        bool IsSingle() const { return low == high; }
        uint64 Words() const { return IsSingle() ? 1 : 2; }
        uint64 Size() const { return static_cast<uint64>(high - low) + 1; }
    };

    TaggedWords() = default;
    TaggedWords(TaggedWords&& other) noexcept { Swap(other); }
    TaggedWords& operator=(TaggedWords&& other) noexcept {
        Swap(other);
        return *this;
    }
    ~TaggedWords();

    // Makes the block: empty, or with the entries that another one has from a position on. False if memory is short.
    // Nothing else may be called before.
    bool Create();
    bool CreateCopy(const TaggedWords& other, uint64 from = kBegin);

    // The index of the first entry, and the one behind the last.
    static constexpr uint64 kBegin = 1;
    uint64 End() const { return Used() + 1; }
    bool Empty() const { return Used() == 0; }
    // The number of words that the entries take.
    uint64 Used() const { return static_cast<uint64>(ValueOf(words_[0])); }
    const int32* Words() const { return words_; }

    static bool IsTagged(int32 word) { return word < 0; }
    static int32 ValueOf(int32 word) { return word & 0x7FFFFFFF; }
    // The entry that starts with these words, and the one that starts at an index, kBegin <= at < End().
    static Entry Read(const int32* words) {
        const auto high = words[IsTagged(words[0]) ? 0 : 1];
        return {ValueOf(words[0]), ValueOf(high)};
    }
    Entry EntryAt(uint64 at) const { return Read(words_ + at); }
    // Where the entry starts that ends before this word, kBegin < at <= End().
    uint64 Before(uint64 at) const { return StartOf(at - 1); }
    // Where the first entry starts that ends at or above the item, or End().
    uint64 Find(int32 item) const;
    // Where the entry starts that this word is a part of, kBegin <= at < End().
    uint64 StartOf(uint64 at) const { return IsTagged(words_[at - 1]) ? at : at - 1; }

    bool Member(int32 item) const {
        const int32 word = *Nearest(item);
        // Bit by bit, because nobody can foresee which it is.
        return static_cast<bool>(static_cast<int>(ValueOf(word) == item) |
                                 (static_cast<int>(!IsTagged(word)) & static_cast<int>(word < item)));
    }
    int32 Lowest() const { return ValueOf(words_[kBegin]); }
    int32 Highest() const { return ValueOf(words_[Used()]); }
    // The number of members.
    uint64 Count() const { return count_; }

    // Adds a value above all members. False, with nothing changed, if memory is short.
    bool Append(int32 item);
    // Of a block that is not empty: adds a value that lies at or above the first word, or below all members, and
    // neither touches what follows this block nor what comes before it. False, with nothing changed, if memory is
    // short.
    bool Add(int32 item);
    // Puts entries in the place of those that start in [from, to). False, with nothing changed, if memory is short,
    // which it is for no replacement that takes as many words or fewer.
    template <typename... Entries>
    bool Replace(uint64 from, uint64 to, Entries... entries) {
        int32 words[2 * sizeof...(entries) + 1] = {};
        uint64 count = 0;
        ((count += Write(entries, words + count)), ...);
        if (!ReplaceWords(from, to, words, count)) return false;
        ((count_ += entries.Size()), ...);
        return true;
    }

private:
    static int32 Tagged(int32 value) { return static_cast<int32>(static_cast<uint32>(value) | 0x80000000u); }
    static uint64 Write(Entry entry, int32* words);

    void Swap(TaggedWords& other) noexcept {
        std::swap(words_, other.words_);
        std::swap(room_, other.room_);
        std::swap(count_, other.count_);
    }
    void SetUsed(uint64 used) { words_[0] = Tagged(static_cast<int32>(used)); }
    // The last word of which the value is at or below the item, or else the first; there may be none, and then what it
    // says means nothing.
    const int32* Nearest(int32 item) const {
        return LastHolding(words_ + kBegin, Used(), [item](int32 word) { return ValueOf(word) <= item; });
    }
    // Takes the members of the entries in [from, to) off the count, and exchanges the words.
    bool ReplaceWords(uint64 from, uint64 to, const int32* words, uint64 count);
    // Makes room for so many words.
    bool Grow(uint64 used) { return used <= room_ || Resize(used + SlackFor(used), true); }
    // Gives room back that so many words leave.
    void Shrink(uint64 used);
    bool Resize(uint64 used, bool grow);

    // What a growing block gets beyond its need.
    static uint64 SlackFor(uint64 used) { return used < 96 ? used / 4 : 24; }

    int32* words_ = nullptr;
    uint64 room_ = 0;  // for so many words behind the first
    uint64 count_ = 0;
};

}  // namespace Torvo
