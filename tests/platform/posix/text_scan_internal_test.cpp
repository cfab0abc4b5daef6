// Texts that end where the next page must not be touched.

#include <Utility/platform/runtime.h>
#include <Utility/platform/text.h>
#include <Utility/text/key_text.h>
#include <Utility/text/string_normalizer.h>
#include <Utility/text_tools.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>

namespace text_scan_internal_test {
namespace {

using Torvo::wchar16;
namespace platform = Torvo::platform;

// Two pages with a forbidden one before and behind.
class GuardedPages {
public:
    GuardedPages() : page(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))) {
        memory = static_cast<char*>(mmap(nullptr, 4 * page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        mprotect(memory + page, 2 * page, PROT_READ | PROT_WRITE);
    }
    ~GuardedPages() { munmap(memory, 4 * page); }
    GuardedPages(const GuardedPages&) = delete;
    GuardedPages& operator=(const GuardedPages&) = delete;

    wchar16* Begin() { return reinterpret_cast<wchar16*>(memory + page); }
    wchar16* End() { return reinterpret_cast<wchar16*>(memory + 3 * page); }

    // A text of 'a', whose terminator is the last unit before the forbidden page.
    wchar16* TextAtEnd(std::size_t length) {
        wchar16* const text = End() - length - 1;
        std::fill_n(text, length, wchar16{'a'});
        End()[-1] = 0;
        return text;
    }
    wchar16* TextAtBegin(std::size_t length) {
        std::fill_n(Begin(), length, wchar16{'a'});
        Begin()[length] = 0;
        return Begin();
    }

private:
    std::size_t page;
    char* memory;
};

TEST(TextScan, NothingIsReadInAPageBehindTheText) {
    GuardedPages first;
    GuardedPages second;
    for (std::size_t length = 0; length < 2100; length += length < 100 ? 1 : 37) {
        wchar16* const text = first.TextAtEnd(length);
        ASSERT_EQ(platform::wcslen(text), length);
        ASSERT_EQ(platform::wcsnlen(text, 5000), length);
        ASSERT_EQ(platform::wcschr(text, 'x'), nullptr);
        ASSERT_EQ(platform::wcsrchr(text, 'x'), nullptr);
        ASSERT_EQ(platform::wcspbrk(text, ZUTEXT("xyz")), nullptr);
        ASSERT_EQ(platform::wcspbrk(text, ZUTEXT("vwxyz")), nullptr);
        ASSERT_EQ(platform::wcsspn(text, ZUTEXT("a")), length);
        ASSERT_EQ(platform::wcsstr(text, ZUTEXT("ab")), nullptr);
        wchar16* const same = second.TextAtEnd(length);
        ASSERT_EQ(platform::wcsncmp(text, same, 5000), 0);
        ASSERT_EQ(platform::_wcsicmp(text, same), 0);
        wchar16* const shifted = second.TextAtBegin(length);
        ASSERT_EQ(platform::_wcsicmp(text, shifted), 0);
        ASSERT_EQ(platform::_wcsicmp(shifted, text), 0);
    }
}

// A bounded search must not leave the page of the last unit that it may look at.
TEST(TextScan, NothingIsReadInAPageBehindTheBound) {
    GuardedPages pages;
    for (std::size_t length = 1; length < 100; ++length) {
        wchar16* const text = pages.End() - length;
        std::fill_n(text, length, wchar16{'a'});
        ASSERT_EQ(platform::wcsnlen(text, length), length);
        ASSERT_EQ(platform::wcsncmp(text, text, length), 0);
        ASSERT_EQ(platform::_wcsnicmp(text, text, length), 0);
    }
    EXPECT_EQ(platform::wcsnlen(pages.End(), 0), 0u);
    EXPECT_EQ(platform::wcsncmp(pages.End(), pages.End(), 0), 0);
}

// At the end of its page and at each distance from it that a vector may reach over.
TEST(TextScan, NothingIsReadInAPageBehindTextAndPatternOfAMatch) {
    GuardedPages first;
    GuardedPages second;
    const auto matches = [](const wchar16* text, const wchar16* pattern) {
        bool match = false;
        EXPECT_TRUE(Torvo::Like(text, pattern, ZUTEXT("!"), &match));
        return match;
    };
    for (std::size_t length = 0; length < 100; ++length) {
        const wchar16* const text = first.TextAtEnd(length);
        for (std::size_t size = 0; size < 40; ++size) {
            wchar16* const pattern = second.TextAtEnd(size);
            ASSERT_EQ(matches(text, pattern), length == size);
            if (size == 0) continue;
            pattern[0] = '%';
            ASSERT_EQ(matches(text, pattern), length + 1 >= size) << length << " " << size;
            pattern[size - 1] = '%';
            ASSERT_EQ(matches(text, pattern), length + 2 >= size && (size != 2 || length != 0))
                << length << " " << size;
            if (size < 4) continue;
            pattern[1] = '!';
            pattern[2] = '_';
            ASSERT_FALSE(matches(text, pattern));
        }
    }
}

TEST(TextScan, NothingIsReadInAPageBehindAKey) {
    GuardedPages first;
    GuardedPages second;
    for (std::size_t length = 0; length < 100; ++length) {
        wchar16* const left = first.TextAtEnd(length);
        wchar16* const right = second.TextAtEnd(length);
        std::fill_n(left, length, wchar16{0x6161});
        std::fill_n(right, length, wchar16{0x6161});
        const auto* const a = reinterpret_cast<const Torvo::uint8*>(left);
        const auto* const b = reinterpret_cast<const Torvo::uint8*>(right);
        ASSERT_EQ(Torvo::keytext::CompareKeys(a, b), 0);
        if (length != 0) right[length - 1] = 0x6261;
        ASSERT_EQ(Torvo::keytext::CompareKeys(a, b), length != 0 ? -1 : 0);
    }
}

TEST(TextScan, NothingIsReadInAPageBehindTextsOfATable) {
    GuardedPages first;
    GuardedPages second;
    Torvo::StringNormalizerImpl table(Torvo::csWindowsLatin1, Torvo::FindNormalizationTable(44414));
    for (std::size_t length = 0; length < 60; ++length) {
        wchar16* const a = first.TextAtEnd(length);
        for (std::size_t other = 0; other < 60; ++other) {
            wchar16* const b = second.TextAtEnd(other);
            ASSERT_EQ(table.Compare(a, b), (length > other) - (length < other));
            if (other == 0 || length < other) continue;
            b[other - 1] = 'b';
            ASSERT_EQ(table.Compare(a, b), -1);
        }
    }
}

// Sizes, not terminators, end both sides: ASCII, pairs and both mixed, with exactly the room that is needed and less.
TEST(TextScan, NothingIsTouchedInAPageBehindAConversion) {
    GuardedPages units;
    GuardedPages bytes;
    for (int length = 1; length < 60; ++length) {
        for (int every = 1; every < 9; ++every) {
            wchar16* const text = units.End() - length;
            int need = 0;
            for (int i = 0; i < length; ++i) {
                const bool isPair = i % every == 0;
                text[i] = isPair ? wchar16{0x3042} : wchar16{'a'};
                need += isPair ? 2 : 1;
            }
            char* const target = reinterpret_cast<char*>(bytes.End()) - need;
            ASSERT_EQ(platform::WideCharToMultiByte(932, 0, text, length, target, need, nullptr, nullptr), need);
            if (need > 1) {
                char* const small = target + 1;
                ASSERT_EQ(platform::WideCharToMultiByte(932, 0, text, length, small, need - 1, nullptr, nullptr), 0);
                ASSERT_EQ(platform::WideCharToMultiByte(932, 0, text, length, target, need, nullptr, nullptr), need);
            }
            ASSERT_EQ(platform::MultiByteToWideChar(932, 0, target, need, text, length), length);
        }
    }
}

}  // namespace
}  // namespace text_scan_internal_test
