// A heap that runs out on request, for the internal test program.
//
// That program is linked with the library's own objects, and its linker is told (tests/CMakeLists.txt) to lead every
// call of malloc, calloc, realloc and free in those objects and in the tests through this seam; operator new is
// replaced by one that goes there too. Blocks that the runtime libraries allocate for themselves do not pass here. The
// sanitizers see the same blocks as ever.
//
// The seam counts always and refuses only while a FailingHeap lives. It is one for the whole program: a test that
// allocates on other threads meanwhile is refused there too. Keep the object's life to the calls that are meant, since
// the test's own strings and streams ask the same heap.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo::test {

class FailingHeap {
public:
    enum class Mode { kOnce, kFromThenOn };

    // Refuses the nth request from now on (1 is the next one), and in kFromThenOn every one after it.
    explicit FailingHeap(uint64 nth, Mode mode = Mode::kFromThenOn);
    ~FailingHeap();
    FailingHeap(const FailingHeap&) = delete;
    FailingHeap& operator=(const FailingHeap&) = delete;

    // Whether a request was refused.
    bool Refused() const;
};

// The blocks that are allocated now: a test that ends with as many as it began with has lost none.
int64 LiveBlocks();

// Calls `attempt(nth, mode)` for nth = 1, 2, 3, ..., in both modes, until neither attempt met a refusal, and returns
// how many requests there are to refuse. An attempt sets up what it needs, makes a FailingHeap(nth, mode) around the
// calls that are meant, checks their results, tears down, and returns what Refused() said.
template <typename Attempt>
uint64 RefuseEachRequest(Attempt attempt) {
    for (uint64 nth = 1;; ++nth) {
        const bool once = attempt(nth, FailingHeap::Mode::kOnce);
        const bool onwards = attempt(nth, FailingHeap::Mode::kFromThenOn);
        if (!once && !onwards) return nth - 1;
    }
}

}  // namespace Torvo::test
