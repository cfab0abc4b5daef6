// A fuzzer's input, read as operations on a container and its plain form.
#pragma once

#include <Utility/platform/types.h>

#include <cstddef>

namespace Torvo::fuzz {

class OperationStream {
public:
    OperationStream(const uint8* data, std::size_t size) : next_(data), end_(data + size) {}

    bool AtEnd() const { return next_ == end_; }
    // The next byte; 0 behind the end.
    uint32 Byte() { return AtEnd() ? 0 : *next_++; }
    uint32 Word() { return Byte() | Byte() << 8; }

private:
    const uint8* next_;
    const uint8* end_;
};

}  // namespace Torvo::fuzz
