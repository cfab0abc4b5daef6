// The place through which every call of the file family to the system passes, so that a test can make it fail.
//
// A test arms the seam with the number of the call that is to fail, counted from then on. On a system whose layer is
// more than a forward, one call of the family may be several calls to the system (an open asks for the lock and the
// mode too), each of which counts; so a test does not name a call but fails the 1st, the 2nd, the 3rd, ..., until the
// operation succeeds without having met a fault. One seam serves the whole process; one thread at a time arms it.
#pragma once

#include <Utility/platform/types.h>

#include <atomic>

namespace Torvo::platform {

struct FileFault {
    enum class Kind : uint8 {
        Error,  // the call fails, without reaching the system, but for a close, which is done first
        Short,  // a read or a write moves no more than `bytes`
    };
    Kind kind = Kind::Error;
    // Which call: 1 is the next one that the kind concerns.
    uint64 nth = 1;
    // Whether every later one is hit as well. An interruption (EINTR) hits once in any case, for it is tried again.
    bool fromThenOn = false;
    // What a failing call leaves in errno; the last error is made from it.
    int error = 0;
    // How many bytes a short read or write moves.
    uint32 bytes = 0;
};

// Arms the seam, and forgets what was counted before.
void ArmFileFault(const FileFault& fault);
// Disarms it: whether a call was hit. Without a call of ArmFileFault before it, false.
bool DisarmFileFault();

namespace faults {

extern constinit std::atomic<bool> armed;

bool HitsCall();
uint32 ShortenTransfer(uint32 count);
// The last error that stands for an error number of the runtime's.
uint32 LastErrorOf(int error);

}  // namespace faults

// Whether this call is to fail; errno is then set.
inline bool CallIsRefused() {
    return faults::armed.load(std::memory_order_relaxed) && faults::HitsCall();
}

// How many of `count` bytes this read or write may move.
inline uint32 AllowedTransfer(uint32 count) {
    return faults::armed.load(std::memory_order_relaxed) ? faults::ShortenTransfer(count) : count;
}

}  // namespace Torvo::platform
