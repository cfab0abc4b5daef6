// What the tests of containers on a failing heap have in common.
#pragma once

#include <gtest/gtest.h>

#include "support/failing_heap.h"

namespace Torvo::test {

// A test that has to end with as many blocks as it began with.
class ContainerFailures : public testing::Test {
protected:
    void SetUp() override {
        // The test framework allocates at the first trace, and keeps it.
        { SCOPED_TRACE("the first trace"); }
        blocksBefore_ = LiveBlocks();
    }
    void TearDown() override { EXPECT_EQ(LiveBlocks(), blocksBefore_) << "blocks lost or freed twice"; }

private:
    int64 blocksBefore_ = 0;
};

}  // namespace Torvo::test
