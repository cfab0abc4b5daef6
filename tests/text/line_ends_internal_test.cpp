// Line ends while memory is short.
#include <Utility/conversion.h>
#include <Utility/memory_blocks.h>
#include <gtest/gtest.h>
#include <support/failing_heap.h>

namespace line_ends_internal_test {
namespace {

using namespace Torvo;
using test::FailingHeap;

using Call = wchar16* (*)(wchar16*);

// The number of requests that can be refused; each refusal gives null, keeps the source and loses no block.
uint64 RefuseEach(Call call) {
    system_charset();  // the services of the instance are made before the heap runs out
    return test::RefuseEachRequest([call](uint64 nth, FailingHeap::Mode mode) {
        const wstring16 text(200, '\r');
        wstring16 source = text;
        const int64 blocks = test::LiveBlocks();
        void* block = nullptr;
        bool refused = false;
        {
            const FailingHeap heap(nth, mode);
            block = call(source.data());
            refused = heap.Refused();
        }
        EXPECT_EQ(block == nullptr, refused);
        ffree_(&block);
        EXPECT_EQ(test::LiveBlocks(), blocks);
        EXPECT_EQ(source, text);
        return refused;
    });
}

TEST(LineEndFailures, GiveNullAndKeepTheSource) {
    EXPECT_GE(RefuseEach(ConvertLFToPlatformCRLF), 1u);
    EXPECT_GE(RefuseEach(ConvertPlatformCRLFToLF), 1u);
}

}  // namespace
}  // namespace line_ends_internal_test
