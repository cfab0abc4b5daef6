#pragma once

#include <Utility/platform/types.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace Torvo::test {

// Sizes by which a caller says that there is no limit: from a half of all addresses on, the end of such a buffer would
// wrap around.
inline constexpr uint64 SizesWithoutALimit[] = {~uint64{0}, (uint64{1} << 63) + 1, (uint64{1} << 63) + 5};

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

// What a call makes of a path in a buffer of the size that paths have: nothing else is touched.
template <typename Call>
wstring16 GuardedPath(Call call, const wstring16& before = {}) {
    GuardedBuffer buffer(261);
    *std::copy(before.begin(), before.end(), buffer.Start()) = 0;
    call(buffer.Start());
    return buffer.Text();
}

}  // namespace Torvo::test
