#include <Utility/platform/threads.h>
#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace threads_internal_test {
namespace {

using namespace Torvo;

TEST(ThreadSlots, BeginWithNullOnEveryThread) {
    const uint32 index = platform::TlsAlloc();
    ASSERT_NE(index, platform::TlsOutOfIndexes);
    int value = 0;
    EXPECT_EQ(platform::TlsGetValue(index), nullptr);
    EXPECT_TRUE(platform::TlsSetValue(index, &value));
    EXPECT_EQ(platform::TlsGetValue(index), &value);
    std::thread([&] { EXPECT_EQ(platform::TlsGetValue(index), nullptr); }).join();
    EXPECT_TRUE(platform::TlsFree(index));
}

TEST(ThreadSlots, AnIndexThatIsAllocatedAgainHoldsNullEvenWhereAThreadHadSetIt) {
    int value = 0;
    const uint32 first = platform::TlsAlloc();
    platform::TlsSetValue(first, &value);
    platform::TlsFree(first);
    const uint32 second = platform::TlsAlloc();
    EXPECT_EQ(second, first);
    EXPECT_EQ(platform::TlsGetValue(second), nullptr);
    platform::TlsFree(second);
}

TEST(ThreadSlots, AreFinite) {
    std::vector<uint32> indices;
    for (uint32 index = platform::TlsAlloc(); index != platform::TlsOutOfIndexes; index = platform::TlsAlloc()) {
        indices.push_back(index);
        ASSERT_LT(indices.size(), 100000u);
    }
    EXPECT_GE(indices.size(), 8u);
    for (const uint32 index : indices) EXPECT_TRUE(platform::TlsFree(index));
}

TEST(CriticalSections, ExcludeOtherThreadsAndMayBeEnteredAgain) {
    platform::CRITICAL_SECTION section;
    platform::InitializeCriticalSection(&section);
    int counter = 0;
    const auto work = [&] {
        for (int i = 0; i < 10000; ++i) {
            platform::EnterCriticalSection(&section);
            platform::EnterCriticalSection(&section);
            ++counter;
            platform::LeaveCriticalSection(&section);
            platform::LeaveCriticalSection(&section);
        }
    };
    std::thread other(work);
    work();
    other.join();
    EXPECT_EQ(counter, 20000);
    platform::DeleteCriticalSection(&section);
}

TEST(LastError, IsPrivateToEachThread) {
    platform::SetLastError(5);
    EXPECT_EQ(platform::GetLastError(), 5u);
    std::thread([] { EXPECT_EQ(platform::GetLastError(), 0u); }).join();
}

}  // namespace
}  // namespace threads_internal_test
