#include <Utility/numbers/plain_number.h>
#include <gtest/gtest.h>

#include <charconv>
#include <string>

#include "support/random.h"

// The fast lane of the number readers, beside the C++ library's reader.

namespace plain_number_internal_test {
namespace {

using namespace Torvo;

wstring16 Wide(const std::string& text) {
    return {text.begin(), text.end()};
}

// Whether the lane has read the text, which is then what the C++ library reads.
bool ReadsLikeTheLibrary(const std::string& text) {
    const wstring16 units = Wide(text);
    double value = 0;
    const wchar16* const end = ReadPlainDouble(units.c_str(), &value);
    if (end == nullptr) return false;
    double expected = 0;
    const std::from_chars_result read = std::from_chars(text.data(), text.data() + text.size(), expected);
    EXPECT_EQ(read.ec, std::errc()) << text;
    EXPECT_EQ(end - units.c_str(), read.ptr - text.data()) << text;
    EXPECT_EQ(value, expected) << text;
    return true;
}

std::string WithPoint(std::string digits, std::size_t places) {
    if (places > 0) digits.insert(digits.size() - places, 1, '.');
    return digits;
}

TEST(PlainDouble, ReadsUpToNineteenDigitsWithThePointAnywhere) {
    const std::string digits = "9876543210123456789";
    for (std::size_t count = 1; count <= digits.size(); ++count) {
        for (std::size_t places = 0; places <= count; ++places) {
            const std::string text = WithPoint(digits.substr(0, count), places);
            EXPECT_TRUE(ReadsLikeTheLibrary(text)) << text;
            EXPECT_TRUE(ReadsLikeTheLibrary("-" + text + ",")) << text;
        }
    }
}

TEST(PlainDouble, LeavesOtherTextsAlone) {
    for (const char* const text :
         {"", "-", ".", "-.", "+1", " 1", "1e5", "1x", "12345678901234567890", "1.2345678901234567890"}) {
        double value = 7;
        EXPECT_EQ(ReadPlainDouble(Wide(text).c_str(), &value), nullptr) << text;
        EXPECT_EQ(value, 7) << text;
    }
}

TEST(PlainDouble, StopsAtTheDigitsEnd) {
    const wstring16 text = Wide("123456,7");
    double value = 0;
    EXPECT_EQ(ReadPlainDouble(text.c_str(), &value), text.c_str() + 6);
    EXPECT_EQ(value, 123456);
    int64 integer = 0;
    for (std::size_t count = 1; count <= 18; ++count) {
        const wstring16 digits = Wide("123456789012345678").substr(0, count) + ZUTEXT("/");
        EXPECT_EQ(ReadPlainInteger(digits.c_str(), &integer), digits.c_str() + count);
        EXPECT_EQ(integer, 123456789012345678 / static_cast<int64>(std::pow(10, 18 - count)));
    }
}

// Numbers with more bits than a double has, among them those that lie half way between two doubles, or nearly so.
TEST(PlainDouble, RoundsAsTheLibraryDoes) {
    test::Random random;
    SCOPED_TRACE(random.About());
    int read = 0;
    constexpr int kNumbers = test::kRandomOperations / 5;
    for (int i = 0; i < kNumbers; ++i) {
        std::string digits;
        if (random.OneIn(3)) {
            const int64 middle = 2 * random.Between(int64{1} << 53, int64{1} << 54) + 1;
            digits = std::to_string(middle + (random.OneIn(2) ? random.Between(-1, 1) : 0));
        } else {
            digits = std::to_string(random.Between(int64{1} << 52, 0x7FFFFFFFFFFFFFFF));
        }
        const auto places = static_cast<std::size_t>(random.Between(0, static_cast<int64>(digits.size())));
        read += ReadsLikeTheLibrary(WithPoint(digits, places)) ? 1 : 0;
        if (HasFailure()) return;
    }
    // What lies exactly half way is left to others.
    EXPECT_GT(read, kNumbers / 2);
}

}  // namespace
}  // namespace plain_number_internal_test
