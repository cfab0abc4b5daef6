#include <Utility/geometry/metafiles.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace metafiles_internal_test {
namespace {

using namespace Torvo;

// A system whose metafile is "abcd" and whose calls leave a trace and fail on demand.
std::string trace;
std::string failing;
char memory[8];
int blockHandle;

uint32 GetBits([[maybe_unused]] int* metafile, uint32 size, void* buffer) {
    trace += buffer == nullptr ? "size " : "copy ";
    if (failing == (buffer == nullptr ? "size" : "copy")) return 0;
    if (buffer != nullptr) {
        EXPECT_EQ(size, 4u);
        std::memcpy(buffer, "abcd", 4);
    }
    return 4;
}

void* Alloc(uint32 flags, uint64 size) {
    EXPECT_EQ(flags, 66u);
    EXPECT_EQ(size, 4u);
    trace += "alloc ";
    return failing == "alloc" ? nullptr : &blockHandle;
}

void* Lock(void* block) {
    trace += "lock ";
    return block == nullptr || failing == "lock" ? nullptr : memory;
}

bool Unlock(void* block) {
    EXPECT_EQ(block, &blockHandle);
    trace += "unlock ";
    return false;
}

void* Copy(const char* failingCall) {
    trace.clear();
    failing = failingCall;
    std::memset(memory, 0, sizeof memory);
    int metafile = 0;
    return detail::CopyToBlock(&metafile, GetBits, {Alloc, Lock, Unlock});
}

TEST(MetaFileCopy, GivesTheHandleAndNotTheAddress) {
    EXPECT_EQ(Copy("none"), &blockHandle);
    EXPECT_STREQ(memory, "abcd");
    EXPECT_EQ(trace, "size alloc lock copy unlock ");
}

TEST(MetaFileCopy, StopsAtTheFirstFailure) {
    EXPECT_EQ(Copy("size"), nullptr);
    EXPECT_EQ(trace, "size ");
    EXPECT_EQ(Copy("alloc"), nullptr);
    EXPECT_EQ(trace, "size alloc lock ");
    EXPECT_EQ(Copy("lock"), nullptr);
    EXPECT_EQ(trace, "size alloc lock ");
}

TEST(MetaFileCopy, AFailedCopyUnlocksAndGivesNull) {
    EXPECT_EQ(Copy("copy"), nullptr);
    EXPECT_EQ(trace, "size alloc lock copy unlock ");
}

}  // namespace
}  // namespace metafiles_internal_test
