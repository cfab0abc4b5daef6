// Byte text while memory is short.
#include <Utility/memory_blocks.h>
#include <Utility/text_tools.h>
#include <gtest/gtest.h>
#include <support/failing_heap.h>

#include <string>

namespace ansi_text_internal_test {
namespace {

using namespace Torvo;
using test::FailingHeap;

// How many requests can be refused. Each refusal must empty the result, and none may lose a block.
template <typename Call>
uint64 RefuseEach(Call isEmpty) {
    isEmpty();  // the tables of the code page are made before the heap runs out
    const int64 blocks = test::LiveBlocks();
    const uint64 requests = test::RefuseEachRequest([isEmpty](uint64 nth, FailingHeap::Mode mode) {
        const FailingHeap heap(nth, mode);
        const bool empty = isEmpty();
        EXPECT_EQ(empty, heap.Refused());
        return heap.Refused();
    });
    EXPECT_EQ(test::LiveBlocks(), blocks);
    return requests;
}

bool FreeAndTellIfNull(void* block) {
    const bool isNull = block == nullptr;
    ffree_(&block);
    return isNull;
}

constexpr char bytes[] = "a text that is longer than what a string keeps inside itself";
constexpr wchar16 text[] = ZUTEXT("a text that is longer than what a string keeps inside itself");

TEST(AnsiTextFailures, NewBlocksAreNull) {
    EXPECT_EQ(RefuseEach([] { return FreeAndTellIfNull(StringToNewWString(bytes)); }), 1u);
    EXPECT_EQ(RefuseEach([] { return FreeAndTellIfNull(WStringToNewString(text)); }), 1u);
    EXPECT_EQ(RefuseEach([] {
                  int length = -1;
                  const bool isNull = FreeAndTellIfNull(WStringToNewUTF8String(text, length));
                  EXPECT_EQ(length, isNull ? -1 : static_cast<int>(sizeof bytes - 1));
                  return isNull;
              }),
              1u);
}

TEST(AnsiTextFailures, StringsAreEmpty) {
    EXPECT_EQ(RefuseEach([] { return StringToWString(bytes).empty(); }), 1u);
    EXPECT_EQ(RefuseEach([] { return WStringToString(text).empty(); }), 1u);
    const std::string source = bytes;
    EXPECT_EQ(RefuseEach([&source] { return StringToWString(source).empty(); }), 1u);
    const wstring16 wide = text;
    EXPECT_EQ(RefuseEach([&wide] { return WStringToString(wide).empty(); }), 1u);
}

}  // namespace
}  // namespace ansi_text_internal_test
