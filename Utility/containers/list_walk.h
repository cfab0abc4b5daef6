// What the last step of a walk upwards through a list has found, for the next one, which is likely to start there.
//
// The steps that a walk mostly makes, within a run or within a word, are here to be part of the call; whatever needs a
// search is behind a call of its own, so that those steps do not pay for it.
#pragma once

#include <Utility/containers/bitmap_walk.h>

namespace Torvo {

// Forget must be called before its first use, and by every change of the list.
class ListWalk {
public:
    void Forget() {
        runSteps_ = 0;
        member_ = kNowhere;
    }

    // The lowest member above the item, or -1.
    int32 Next(const flist& list, int32 item) noexcept {
        if (InRun(item)) return item + 1;
        if (member_ != item || item >= list.max) return NextElsewhere(list, item);
        if (!bitmaps_.WordGoesOn()) {
            if (!bitmaps_.KnowsWords()) return NextElsewhere(list, item);
            bitmaps_.TakeWord();
            if (!bitmaps_.HasOneInWord()) return NextOfWord(list.max);
        }
        const int32 member = bitmaps_.NextInWord();
        member_ = member;
        return member;
    }

private:
    static constexpr int64 kNowhere = -(int64{1} << 40);

    // Runs that are shorter do not pay for being noted.
    static constexpr uint32 kShortestRun = 8;

    // Whether the next member is known to be the item behind this one.
    bool InRun(int32 item) const { return static_cast<uint32>(item) - static_cast<uint32>(runFirst_) < runSteps_; }
    // The same as Next, where that is no step within what is known.
    int32 NextElsewhere(const flist& list, int32 item) noexcept;
    // The lowest member from the item on, which is at most `max`, or -1. The walk stands there then.
    int32 Find(const flist& list, int32 item);
    // The first member of what is left of a word. A run there is noted as a whole.
    int32 NextOfWord(int32 max) noexcept;
    void NoteRun(int32 first, int32 last) {
        runFirst_ = first;
        runSteps_ = static_cast<uint32>(last - first);
    }

    // All of [runFirst_, runFirst_ + runSteps_] are members, up to `max` at most.
    int32 runFirst_;
    uint32 runSteps_;
    // The member that the walk through the bitmaps stands at, or kNowhere.
    int64 member_;
    BitmapWalk bitmaps_;
};

}  // namespace Torvo
