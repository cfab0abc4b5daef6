// TextAddCrs while memory is short.
#include <Utility/memory_blocks.h>
#include <Utility/text_tools.h>
#include <gtest/gtest.h>
#include <support/failing_heap.h>

namespace newline_escapes_internal_test {
namespace {

using namespace Torvo;
using test::FailingHeap;

TEST(AddCrsFailures, GiveNothing) {
    const int64 blocks = test::LiveBlocks();
    const uint64 requests = test::RefuseEachRequest([](uint64 nth, FailingHeap::Mode mode) {
        wchar16 other[1];
        wchar16* out = other;
        bool refused = false;
        uint64 length = 0;
        {
            const FailingHeap heap(nth, mode);
            length = TextAddCrs(&out, ZUTEXT("a\nb"), 3);
            refused = heap.Refused();
        }
        EXPECT_EQ(length, refused ? 0u : 4u);
        EXPECT_EQ(out == nullptr, refused);
        void* block = out;
        ffree_(&block);
        return refused;
    });
    EXPECT_EQ(requests, 1u);
    EXPECT_EQ(test::LiveBlocks(), blocks);
}

}  // namespace
}  // namespace newline_escapes_internal_test
