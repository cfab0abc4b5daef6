#include <Utility/containers/bitmap_walk.h>

#include <algorithm>

namespace Torvo {

namespace {

constexpr uint32 kLineWords = 8;

}  // namespace

void BitmapWalk::Start(const flist_page* pageArray, uint32 endPage, uint32 page, uint32 place) {
    const uint16* const bitmap = pageArray[page].bits;
    const uint32 word = place / bits::kWordBits;
    const uint32 mapWord = word / bits::kWordBits;
    pages_ = pageArray;
    endPage_ = endPage;
    wordItem_ = static_cast<int32>((page * pages::kWords + word) * bits::kWordBits);
    rest_ = bits::LoadWord(bitmap, word) & (~uint64{0} << place % bits::kWordBits);
    mapRest_ = bits::LoadWord(pages::MapOf(bitmap), mapWord) & (~uint64{1} << word % bits::kWordBits);
    mapWord_ = page * pages::kMapWords + mapWord;
    next_ = 0;
    count_ = 0;
    ahead_ = 1;
    ended_ = false;
}

bool BitmapWalk::LookAhead() {
    // A walk that has just begun takes what it needs.
    if (ended_ || count_ - next_ >= ahead_) return next_ < count_;
    count_ = static_cast<uint32>(std::copy(words_ + next_, words_ + count_, words_) - words_);
    next_ = 0;
    do {
        NoteWords();
        ended_ = !NextMapWord();
    } while (count_ < ahead_ && !ended_);
    ahead_ = std::min(2 * ahead_, kMost);
    return count_ > 0;
}

// In a thinly filled bitmap a map word has a few places, and nobody can guess how many. So eight are noted at a time,
// whether there are as many or not.
void BitmapWalk::NoteWords() {
    const uint32 base = mapWord_ * bits::kWordBits;
    const uint32 count = bits::CountOf(mapRest_);
    uint32* word = words_ + count_;
    count_ += count;
    uint32* const end = words_ + count_;
    // What stands for a place that there is not is overwritten later.
    for (uint64 rest = mapRest_; word < end; word += kTogether) {
        for (uint32 i = 0; i < kTogether; ++i) {
            word[i] = base + static_cast<uint32>(std::countr_zero(rest | uint64{1} << 63));
            rest &= rest - 1;
        }
    }
}

bool BitmapWalk::NextMapWord() {
    ++mapWord_;
    if (mapWord_ % pages::kMapWords == 0) {
        uint32 page = mapWord_ / pages::kMapWords;
        while (page < endPage_ && pages::IsEmpty(pages_[page])) ++page;
        mapWord_ = page * pages::kMapWords;
        if (page == endPage_ || pages::IsFull(pages_[page])) return false;
        // The map of the page behind it will be wanted soon.
        if (page + 1 < endPage_ && pages_[page + 1].bits != nullptr) {
            const uint16* const map = pages::MapOf(pages_[page + 1].bits);
            for (uint32 word = 0; word < pages::kMapWords; word += kLineWords) Prefetch(map, word);
        }
    }
    mapRest_ = bits::LoadWord(pages::MapOf(pages_[mapWord_ / pages::kMapWords].bits), mapWord_ % pages::kMapWords);
    return true;
}

}  // namespace Torvo
