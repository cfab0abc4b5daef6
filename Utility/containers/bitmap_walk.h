// A walk upwards through the bitmaps of a list, from page to page as long as they have bitmaps.
//
// The words that have members are found in the maps some way ahead of the walk and noted in order, and the processor is
// asked for them: in a set that is strewn thinly each lies in a cache line of its own, too far from the others for it
// to guess, and a walk that found each only when it got there would wait for the memory at every step. How far ahead
// grows as the walk goes on, so that a single step costs little more than itself.
#pragma once

#include <Utility/containers/sparse_set_page.h>

namespace Torvo {

// Zero-filled memory is a walk that must be started. The list may not change while the walk is in use.
class BitmapWalk {
public:
    // Stands below an item, whose page has a bitmap. Pages from `endPage` on are not looked at.
    void Start(const flist_page* pageArray, uint32 endPage, uint32 page, uint32 place);

    // Whether the current word has another member.
    bool WordGoesOn() const { return rest_ != 0; }
    // The next member of the current word, which has one.
    int32 NextInWord() {
        const auto bit = std::countr_zero(rest_);
        rest_ &= rest_ - 1;
        return wordItem_ + bit;
    }
    // Whether the next words are known, more of them than the processor was asked for.
    bool KnowsWords() const { return next_ + kLeast < count_; }
    // Takes up the next word, which is known.
    void TakeWord() {
        const uint32 word = words_[next_];
        // It is asked for one word while it deals with another, so that it has as many to wait for as it can.
        const uint32 later = words_[next_ + kPrefetched];
        Prefetch(pages_[later / pages::kWords].bits, later % pages::kWords);
        ++next_;
        rest_ = bits::LoadWord(pages_[word / pages::kWords].bits, word % pages::kWords);
        wordItem_ = static_cast<int32>(word * bits::kWordBits);
    }
    // Goes on to the next word that has members; false at the end, and at a full page.
    bool NextWord() {
        if (!KnowsWords() && !LookAhead()) return false;
        TakeWord();
        return true;
    }
    // Whether one member alone is left of the current word.
    bool HasOneInWord() const { return (rest_ & (rest_ - 1)) == 0; }
    // How many members follow each other from the next one on, as far as the current word goes.
    uint32 RunInWord() const { return static_cast<uint32>(std::countr_one(rest_ >> std::countr_zero(rest_))); }
    // Leaves out so many members of the current word, which follow each other from the next one on.
    void SkipInWord(uint32 count) {
        const auto bit = static_cast<uint32>(std::countr_zero(rest_));
        rest_ &= ~bits::MaskOf(bit, bit + count - 1);
    }

private:
    // The words that are known are never fewer than the first, if there are more, and at most the second before a map
    // word is taken up. A map word stands for 64 words, and its places are noted eight at a time.
    static constexpr uint32 kPrefetched = 24;
    static constexpr uint32 kLeast = 32;
    static constexpr uint32 kMost = 96;
    static constexpr uint32 kTogether = 8;
    static constexpr uint32 kRoom = kMost + bits::kWordBits + kPrefetched;

    static void Prefetch(const uint16* bitmap, uint32 word) {
        _mm_prefetch(reinterpret_cast<const char*>(bitmap + std::size_t{word} * 4), _MM_HINT_T0);
    }
    // Makes sure that enough words are known; false if there is none.
    bool LookAhead();
    // Notes the words of the current map word.
    void NoteWords();
    // Goes on to the next map word; false at the end.
    bool NextMapWord();

    const flist_page* pages_;
    uint32 endPage_;
    int32 wordItem_;       // the item of the current word's lowest bit
    uint64 rest_;          // the members of the current word that were not given yet
    uint64 mapRest_;       // of the current map word, what was not noted yet
    uint32 mapWord_;       // its number, counted through all pages
    uint32 next_;          // of the noted words
    uint32 count_;         // how many there are
    uint32 ahead_;         // how many there are to be
    bool ended_;           // no map word is left
    uint32 words_[kRoom];  // their numbers, counted through all pages
};

}  // namespace Torvo
