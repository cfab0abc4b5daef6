#include <Utility/files/entry_choice.h>
#include <gtest/gtest.h>

namespace entry_choice_internal_test {
namespace {

using namespace Torvo;

struct Choice {
    bool passes;
    ulong32 attributes;
    bool operator==(const Choice&) const = default;
};

Choice Choose(ulong32 attributes, ulong32 mask) {
    WIN32_FIND_DATAW entry = {};
    entry.dwFileAttributes = attributes;
    const bool passes = EntryPasses(&entry, mask);
    return {passes, entry.dwFileAttributes};
}

TEST(FileFindEntry, PassesWithAnAttributeOfTheMask) {
    EXPECT_EQ(Choose(0x20, 0x20), (Choice{true, 0x20}));
    EXPECT_EQ(Choose(0x21, 0x11), (Choice{true, 0x21}));
    EXPECT_EQ(Choose(0x20, 0x10), (Choice{false, 0x20}));
    EXPECT_EQ(Choose(0x20, 0), (Choice{false, 0x20}));
    EXPECT_EQ(Choose(0x80000000, 0xFFFFFFFF), (Choice{true, 0x80000000}));
}

TEST(FileFindEntry, WithoutAttributesItIsNothingSpecial) {
    EXPECT_EQ(Choose(0, 0x80), (Choice{true, 0x80}));
    EXPECT_EQ(Choose(0, 0xFFFFFFFF), (Choice{true, 0x80}));
    EXPECT_EQ(Choose(0, 0x10), (Choice{false, 0x80})) << "stored back all the same";
    EXPECT_EQ(Choose(0, 0), (Choice{false, 0x80}));
    EXPECT_EQ(Choose(0x80, 0x7F), (Choice{false, 0x80}));
}

}  // namespace
}  // namespace entry_choice_internal_test
