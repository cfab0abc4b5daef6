// Keys are compared as strcmp compares them, wherever they lie.
#include <Utility/text/key_text.h>
#include <gtest/gtest.h>
#include <support/random.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>

namespace key_text_internal_test {
namespace {

using namespace Torvo;

constexpr std::size_t kPage = 4096;

// A key and its zero byte in two pages of their own, at the end of the first one or about there.
class Placed {
public:
    Placed(test::Random& random, const std::string& key) : memory_(new uint8[3 * kPage]) {
        std::fill_n(memory_.get(), 3 * kPage, uint8{0xEE});
        const auto address = reinterpret_cast<std::uintptr_t>(memory_.get());
        const std::size_t border = 2 * kPage - address % kPage;
        const auto size = static_cast<int64>(key.size()) + 1;
        start_ = memory_.get() + border - static_cast<std::size_t>(random.Between(0, size + 60));
        std::memcpy(start_, key.c_str(), key.size() + 1);
    }
    const uint8* Start() const { return start_; }

private:
    std::unique_ptr<uint8[]> memory_;
    uint8* start_;
};

int Plain(const std::string& a, const std::string& b) {
    const int result = std::strcmp(a.c_str(), b.c_str());
    return (result > 0) - (result < 0);
}

TEST(KeyTexts, AreComparedAsBytes) {
    test::Random random;
    SCOPED_TRACE(random.About());
    int equal = 0;
    for (int i = 0; i < 5'000; ++i) {
        std::string a;
        for (int64 left = random.Between(0, 100); left > 0; --left) a += static_cast<char>(random.Between(1, 255));
        std::string b = a.substr(0, static_cast<std::size_t>(random.Between(0, static_cast<int64>(a.size()))));
        if (random.OneIn(2)) b = a;
        if (!b.empty() && random.OneIn(2)) b.back() = static_cast<char>(random.Between(1, 255));
        if (random.OneIn(4)) b += static_cast<char>(random.Between(1, 255));
        const Placed first(random, a);
        const Placed second(random, b);
        ASSERT_EQ(keytext::CompareKeys(first.Start(), second.Start()), Plain(a, b)) << i;
        ASSERT_EQ(keytext::CompareKeys(second.Start(), first.Start()), Plain(b, a)) << i;
        equal += a == b;
    }
    EXPECT_GT(equal, 500);
}

TEST(KeyTexts, OfAnyLengthEndWithTheirMemory) {
    for (std::size_t size = 0; size < 70; ++size) {
        const std::unique_ptr<uint8[]> a(new uint8[size + 1]);
        const std::unique_ptr<uint8[]> b(new uint8[size + 1]);
        std::fill_n(a.get(), size, uint8{0xFF});
        std::fill_n(b.get(), size, uint8{0xFF});
        a[size] = b[size] = 0;
        EXPECT_EQ(keytext::CompareKeys(a.get(), b.get()), 0);
        if (size == 0) continue;
        b[size - 1] = 1;
        EXPECT_EQ(keytext::CompareKeys(a.get(), b.get()), 1);
        EXPECT_EQ(keytext::CompareKeys(b.get(), a.get()), -1);
    }
}

}  // namespace
}  // namespace key_text_internal_test
