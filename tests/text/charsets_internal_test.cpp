// The service of the system charset while memory is short.
#include <Utility/charsets.h>
#include <gtest/gtest.h>
#include <support/failing_heap.h>

#include <memory>

namespace charsets_internal_test {
namespace {

using namespace Torvo;

TEST(CharsetServiceFailures, CreateGivesNull) {
    system_charset();  // with the locale service that Create asks
    const int64 blocks = test::LiveBlocks();
    {
        const test::FailingHeap heap(1);
        EXPECT_EQ(cCharsetInfo::Create(), nullptr);
        EXPECT_TRUE(heap.Refused());
    }
    EXPECT_EQ(test::LiveBlocks(), blocks);
    EXPECT_NE(std::unique_ptr<cCharsetInfo>(cCharsetInfo::Create()), nullptr);
}

}  // namespace
}  // namespace charsets_internal_test
