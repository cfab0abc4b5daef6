#pragma once

#include <Utility/platform/types.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace Torvo::test {

// A buffer that tells when anything but its first `size` units was touched.
class GuardedBuffer {
public:
    explicit GuardedBuffer(uint64 usable = 64) : size(usable), units(usable + 16, '#') {}
    ~GuardedBuffer() {
        EXPECT_EQ(units.substr(0, 8), wstring16(8, '#'));
        EXPECT_EQ(units.substr(8 + size), wstring16(8, '#'));
    }
    wchar16* Start() { return &units[8]; }
    uint64 Usable() const { return size; }
    wstring16 Text() { return size == 0 ? wstring16() : wstring16(Start()); }
    // Whether all behind the text is filled with zeros.
    bool IsCleared() {
        const uint64 length = Text().size();
        return std::all_of(Start() + length, Start() + size, [](wchar16 unit) { return unit == 0; });
    }

private:
    const uint64 size;
    wstring16 units;
};

}  // namespace Torvo::test
