#include <Utility/platform/runtime.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <thread>

namespace runtime_text_internal_test {
namespace {

using Torvo::wchar16;
using Torvo::wstring16;
namespace platform = Torvo::platform;

// Every length at every distance from a block's boundary, with matches before and behind the text that must not be
// seen.
TEST(RuntimeText, SearchesAtEveryAlignment) {
    alignas(64) wchar16 buffer[160];
    for (std::size_t offset = 0; offset < 40; ++offset) {
        for (std::size_t length = 0; length < 80; ++length) {
            std::fill(std::begin(buffer), std::end(buffer), wchar16{'b'});
            wchar16* const text = buffer + offset;
            std::fill_n(text, length, wchar16{'a'});
            text[length] = 0;
            ASSERT_EQ(platform::wcslen(text), length);
            ASSERT_EQ(platform::wcsnlen(text, 160), length);
            ASSERT_EQ(platform::wcsnlen(text, length / 2), length / 2);
            ASSERT_EQ(platform::wcsnlen(text, 0), 0u);
            ASSERT_EQ(platform::wcschr(text, 'b'), nullptr);
            ASSERT_EQ(platform::wcsrchr(text, 'b'), nullptr);
            ASSERT_EQ(platform::wcschr(text, 0), text + length);
            ASSERT_EQ(platform::wcsrchr(text, 0), text + length);
            ASSERT_EQ(platform::wcspbrk(text, ZUTEXT("xb")), nullptr);
            ASSERT_EQ(platform::wcspbrk(text, ZUTEXT("wxyb")), nullptr);
            ASSERT_EQ(platform::wcscspn(text, ZUTEXT("b")), length);
            ASSERT_EQ(platform::wcsspn(text, ZUTEXT("a")), length);
            ASSERT_EQ(platform::wcsstr(text, ZUTEXT("ab")), nullptr);
            if (length == 0) continue;
            const std::size_t place = (offset * 7) % length;
            text[place] = 'c';
            ASSERT_EQ(platform::wcschr(text, 'c'), text + place);
            ASSERT_EQ(platform::wcsrchr(text, 'c'), text + place);
            ASSERT_EQ(platform::wcspbrk(text, ZUTEXT("xyc")), text + place);
            ASSERT_EQ(platform::wcscspn(text, ZUTEXT("wxyzc")), place);
            ASSERT_EQ(platform::wcsspn(text, ZUTEXT("a")), place);
            ASSERT_EQ(platform::wcsstr(text, ZUTEXT("c")), text + place);
        }
    }
}

TEST(RuntimeText, SetsOfEverySize) {
    const wstring16 text = ZUTEXT("0123456789\u3042\u3142\uFFFD");
    for (std::size_t count = 0; count <= text.size(); ++count) {
        for (std::size_t first = 0; first + count <= text.size(); ++first) {
            const wstring16 set = text.substr(first, count);
            EXPECT_EQ(platform::wcscspn(text.c_str(), set.c_str()), count == 0 ? text.size() : first);
            EXPECT_EQ(platform::wcsspn(text.c_str(), set.c_str()), first == 0 ? count : 0);
        }
    }
    // A unit that shares the low bits of a member is not one.
    EXPECT_EQ(platform::wcscspn(ZUTEXT("\u3082\u3042"), ZUTEXT("\u3042abcd")), 1u);
}

TEST(RuntimeText, ComparisonStopsAtTheDifferenceAtEveryAlignment) {
    alignas(64) wchar16 first[96];
    alignas(64) wchar16 second[96];
    for (std::size_t left = 0; left < 9; ++left) {
        for (std::size_t right = 0; right < 9; ++right) {
            for (std::size_t length = 0; length < 40; ++length) {
                std::fill(std::begin(first), std::end(first), wchar16{'q'});
                std::fill(std::begin(second), std::end(second), wchar16{'r'});
                wchar16* const a = first + left;
                wchar16* const b = second + right;
                std::fill_n(a, length, wchar16{'m'});
                std::fill_n(b, length, wchar16{'M'});
                a[length] = b[length] = 0;
                ASSERT_EQ(platform::_wcsicmp(a, b), 0);
                a[length] = 'A';
                b[length] = 'b';
                ASSERT_LT(platform::_wcsicmp(a, b), 0);
                ASSERT_GT(platform::_wcsicmp(b, a), 0);
                ASSERT_EQ(platform::_wcsnicmp(a, b, length), 0);
                ASSERT_LT(platform::_wcsnicmp(a, b, length + 1), 0);
                std::fill_n(b, length, wchar16{'m'});
                ASSERT_LT(platform::wcsncmp(a, b, length + 1), 0);
                ASSERT_EQ(platform::wcsncmp(a, b, length), 0);
            }
        }
    }
}

// The runtime's character locale is "C" here.
TEST(RuntimeText, SmallLettersOfAsciiAlone) {
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const unsigned expected = unit >= 'A' && unit <= 'Z' ? unit + 0x20 : unit;
        ASSERT_EQ(platform::towlower(static_cast<wchar16>(unit)), expected) << unit;
    }
}

TEST(RuntimeText, PartsThatNearlyMatch) {
    const wchar16 text[] = ZUTEXT("aaaaaaaaaaaaaaaaaaaabaaab");
    EXPECT_EQ(platform::wcsstr(text, ZUTEXT("aaab")), text + 17);
    EXPECT_EQ(platform::wcsstr(text, ZUTEXT("baab")), nullptr);
    EXPECT_EQ(platform::wcsstr(text, ZUTEXT("aaabaaabb")), nullptr);
    EXPECT_EQ(platform::wcsstr(text, text), text);
    EXPECT_EQ(platform::wcsstr(text, ZUTEXT("")), text);
}

TEST(RuntimeText, BoundedCopyPads) {
    wchar16 buffer[6] = {'x', 'x', 'x', 'x', 'x', 'x'};
    EXPECT_EQ(platform::wcsncpy(buffer, ZUTEXT("ab"), 4), buffer);
    EXPECT_EQ(wstring16(buffer, 6), (wstring16{'a', 'b', 0, 0, 'x', 'x'}));
    platform::wcsncpy(buffer, ZUTEXT("abcd"), 3);
    EXPECT_EQ(wstring16(buffer, 6), (wstring16{'a', 'b', 'c', 0, 'x', 'x'}));
    platform::wcsncpy(buffer, ZUTEXT("zz"), 0);
    EXPECT_EQ(buffer[0], 'a');
}

TEST(RuntimeText, TokenizerKeepsAPlacePerThread) {
    wchar16 text[] = ZUTEXT("a,b");
    EXPECT_EQ(platform::wcstok(text, ZUTEXT(",")), text);
    std::thread([] { EXPECT_EQ(platform::wcstok(nullptr, ZUTEXT(",")), nullptr); }).join();
    EXPECT_EQ(platform::wcstok(nullptr, ZUTEXT(",")), text + 2);
    EXPECT_EQ(platform::wcstok(nullptr, ZUTEXT(",")), nullptr);
    EXPECT_EQ(platform::wcstok(nullptr, ZUTEXT(",")), nullptr);
}

TEST(RuntimeText, JoinedPathOfNoSizeIsNotWritten) {
    wchar16 path[1] = {'x'};
    EXPECT_FALSE(platform::_wmakepath(path, 0, nullptr, nullptr, ZUTEXT("n"), nullptr));
    EXPECT_EQ(path[0], 'x');
}

}  // namespace
}  // namespace runtime_text_internal_test
