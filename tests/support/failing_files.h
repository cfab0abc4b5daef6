// Calls to the system that fail on request, for the internal test program: the platform layer's seam for faults
// (<Utility/platform/file_faults.h>), armed for as long as an object lives.
#pragma once

#include <Utility/platform/file_faults.h>

namespace Torvo::test {

class FailingFiles {
public:
    enum class Mode { kOnce, kFromThenOn };

    // Makes the nth call from now on (1 is the next one) fail with an error number of the runtime's, and in kFromThenOn
    // every one after it.
    FailingFiles(uint64 nth, Mode mode, int error) {
        platform::ArmFileFault({.nth = nth, .fromThenOn = mode == Mode::kFromThenOn, .error = error});
    }
    // Makes the nth transfer move no more than `bytes`.
    static FailingFiles Short(uint64 nth, Mode mode, uint32 bytes) {
        return FailingFiles({.kind = platform::FileFault::Kind::Short,
                             .nth = nth,
                             .fromThenOn = mode == Mode::kFromThenOn,
                             .bytes = bytes});
    }
    ~FailingFiles() { platform::DisarmFileFault(); }
    FailingFiles(const FailingFiles&) = delete;
    FailingFiles& operator=(const FailingFiles&) = delete;

    // Ends the faults early: whether a call was hit.
    bool Stop() { return platform::DisarmFileFault(); }

private:
    explicit FailingFiles(const platform::FileFault& fault) { platform::ArmFileFault(fault); }
};

// Calls `attempt(nth, mode)` for nth = 1, 2, 3, ..., in both modes, until neither attempt met a fault, and returns how
// many calls there are to fail. An attempt sets up what it needs, makes a FailingFiles around the calls that are meant,
// checks their results, tears down, and returns what Stop() said.
template <typename Attempt>
uint64 FailEachCall(Attempt attempt) {
    for (uint64 nth = 1;; ++nth) {
        const bool once = attempt(nth, FailingFiles::Mode::kOnce);
        const bool onwards = attempt(nth, FailingFiles::Mode::kFromThenOn);
        if (!once && !onwards) return nth - 1;
    }
}

}  // namespace Torvo::test
