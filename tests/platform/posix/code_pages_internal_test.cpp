// Code pages where the platform layer converts them itself: what the documentation of the calls says of broken UTF-8,
// the pages of the thread's locale, and short memory.
#include <Utility/conversion.h>
#include <Utility/platform/host.h>
#include <Utility/platform/text.h>
#include <Utility/platform/threads.h>
#include <gtest/gtest.h>
#include <support/failing_heap.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace posix_code_pages_internal_test {
namespace {

using namespace Torvo;

using Units = std::vector<wchar16>;

constexpr wchar16 untouched = 0x5A5A;

struct Decoded {
    int result;
    uint32 error;
    Units written;
};

Decoded Decode(uint32 page, uint32 flags, const std::string& source, std::size_t size) {
    const std::unique_ptr<char[]> text(new char[source.size()]);
    std::copy(source.begin(), source.end(), text.get());
    Units target(size, untouched);
    platform::SetLastError(0);
    const int result = platform::MultiByteToWideChar(page, flags, text.get(), static_cast<int>(source.size()),
                                                     target.data(), static_cast<int>(size));
    return {result, platform::GetLastError(), target};
}

// ---- broken UTF-8 ----

bool Continues(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

// Whether the second byte makes a character of the lead byte possible: none that is too long, a surrogate or too large.
bool GoTogether(unsigned char lead, unsigned char second) {
    switch (lead) {
        case 0xE0:
            return second >= 0xA0;
        case 0xED:
            return second < 0xA0;
        case 0xF0:
            return second >= 0x90;
        case 0xF4:
            return second < 0x90;
        default:
            return true;
    }
}

// Byte by byte: a sequence ends before the first byte that does not continue it, and behind a second one that does not
// go together with the lead byte.
Units PlainDecode(const std::string& source) {
    Units units;
    for (std::size_t at = 0; at < source.size();) {
        const auto byte = [&](std::size_t offset) { return static_cast<unsigned char>(source[at + offset]); };
        const unsigned char lead = byte(0);
        const std::size_t wanted = lead < 0x80                   ? 1
                                   : lead >= 0xC2 && lead < 0xE0 ? 2
                                   : lead >= 0xE0 && lead < 0xF0 ? 3
                                   : lead >= 0xF0 && lead < 0xF5 ? 4
                                                                 : 0;
        uint32 character = wanted == 1 ? lead : lead & (0xFFu >> (wanted + 1));
        std::size_t taken = 1;
        bool broken = wanted == 0;
        while (!broken && taken < wanted) {
            if (at + taken == source.size() || !Continues(byte(taken))) {
                broken = true;
            } else {
                broken = taken == 1 && !GoTogether(lead, byte(1));
                character = character << 6 | (byte(taken) & 0x3Fu);
                ++taken;
            }
        }
        if (broken) character = 0xFFFD;
        if (character > 0xFFFF) {
            units.push_back(static_cast<wchar16>(0xD800 + ((character - 0x10000) >> 10)));
            units.push_back(static_cast<wchar16>(0xDC00 + ((character - 0x10000) & 0x3FF)));
        } else {
            units.push_back(static_cast<wchar16>(character));
        }
        at += taken;
    }
    return units;
}

void ExpectPlain(const std::string& source) {
    const Units plain = PlainDecode(source);
    ASSERT_EQ(Decode(CP_UTF8, 0, source, 0).result, static_cast<int>(plain.size())) << testing::PrintToString(source);
    ASSERT_EQ(Decode(CP_UTF8, 0, source, plain.size()).written, plain) << testing::PrintToString(source);
    for (std::size_t size = 1; size < plain.size(); ++size) {
        const Decoded cut = Decode(CP_UTF8, 0, source, size);
        ASSERT_EQ(cut.error, ERROR_INSUFFICIENT_BUFFER);
        ASSERT_TRUE(std::equal(cut.written.begin(), cut.written.end(), plain.begin()))
            << testing::PrintToString(source);
    }
}

TEST(BrokenUtf8, KeepsTheCharactersBehindASequenceCutOffAtTheEnd) {
    EXPECT_EQ(Decode(CP_UTF8, 0, "Ren\xE9s", 5).written, (Units{'R', 'e', 'n', 0xFFFD, 's'}));
    EXPECT_EQ(Decode(CP_UTF8, 0, "\xF0\x9F\x98", 1).written, Units{0xFFFD});
    EXPECT_EQ(Decode(CP_UTF8, 0,
                     "\xF0\x9F"
                     "a",
                     2)
                  .written,
              (Units{0xFFFD, 'a'}));
    EXPECT_EQ(Decode(CP_UTF8, 0, "\xE2\xC3\xA9", 2).written, (Units{0xFFFD, 0xE9}));
    wchar16 text[8];
    ASSERT_TRUE(ConvertMBCSCharToSystem("Ren\xE9s", csUTF8, text, 7));
    EXPECT_EQ(wstring16(text), ZUTEXT("Ren\xFFFDs"));
}

TEST(BrokenUtf8, NeverTakesTheTerminator) {
    for (const char* source : {"a\xC3", "a\xE9", "a\xE2\x82", "a\xF0", "a\xF0\x9F", "a\xF0\x9F\x98"}) {
        wchar16 text[8] = {};
        EXPECT_EQ(platform::MultiByteToWideChar(CP_UTF8, 0, source, -1, text, 8), 3);
        EXPECT_EQ(Units(text, text + 3), (Units{'a', 0xFFFD, 0}));
    }
}

TEST(BrokenUtf8, IsRefusedOnRequest) {
    for (const char* source : {"Ren\xE9s", "\xF0\x9F\x98", "a\xC3"}) {
        const Decoded strict = Decode(CP_UTF8, MB_ERR_INVALID_CHARS, source, 8);
        EXPECT_EQ(strict.result, 0);
        EXPECT_EQ(strict.error, ERROR_NO_UNICODE_TRANSLATION);
    }
}

TEST(BrokenUtf8, IsReadAsByThePlainWalk) {
    // Every byte that a decoder may tell apart, in every text of up to three of them; then longer ones at random.
    static constexpr unsigned char classes[] = {0x00, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0,
                                                0xC2, 0xDF, 0xE0, 0xE1, 0xED, 0xEF, 0xF0, 0xF1, 0xF4, 0xF5};
    const auto add = [](std::string text, unsigned char byte) { return text += static_cast<char>(byte); };
    for (const unsigned char first : classes) {
        ExpectPlain(add("", first));
        for (const unsigned char second : classes) {
            ExpectPlain(add(add("", first), second));
            for (const unsigned char third : classes) ExpectPlain(add(add(add("", first), second), third));
        }
    }
    uint64 state = 59;
    const auto below = [&](uint64 limit) {
        state = state * 6364136223846793005u + 1442695040888963407u;
        return static_cast<std::size_t>((state >> 33) % limit);
    };
    for (int round = 0; round < 4000; ++round) {
        std::string text(below(60), 'a');
        for (std::size_t more = below(40); more != 0; --more) text = add(text, classes[below(std::size(classes))]);
        if (!text.empty()) ExpectPlain(text);
    }
}

TEST(Utf8Arguments, AreRefusedAsDocumented) {
    const wchar16 units[] = {'a'};
    char bytes[4];
    bool used = true;
    const auto error = [&](uint32 flags, const char* defaultChar, bool* usedDefault) {
        platform::SetLastError(0);
        const int result = platform::WideCharToMultiByte(CP_UTF8, flags, units, 1, bytes, 4, defaultChar, usedDefault);
        EXPECT_EQ(result == 0, platform::GetLastError() != 0);
        return platform::GetLastError();
    };
    EXPECT_EQ(error(0, nullptr, nullptr), 0u);
    EXPECT_EQ(error(0, "_", nullptr), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(error(0, nullptr, &used), ERROR_INVALID_PARAMETER);
    EXPECT_FALSE(used);
    for (const uint32 flag : {WC_COMPOSITECHECK, WC_DISCARDNS, WC_SEPCHARS, WC_DEFAULTCHAR, WC_NO_BEST_FIT_CHARS}) {
        EXPECT_EQ(error(flag, nullptr, nullptr), ERROR_INVALID_FLAGS) << flag;
    }
    EXPECT_EQ(Decode(CP_UTF8, MB_PRECOMPOSED, "a", 1).error, ERROR_INVALID_FLAGS);
    EXPECT_EQ(Decode(CP_UTF8, MB_PRECOMPOSED | MB_ERR_INVALID_CHARS, "a", 1).error, ERROR_INVALID_FLAGS);
    EXPECT_EQ(Decode(CP_UTF8, MB_ERR_INVALID_CHARS, "a", 1).result, 1);
}

TEST(CodePageArguments, SourceAndTargetAreTwo) {
    for (const uint32 page : {uint32{1252}, uint32{932}, CP_UTF8}) {
        wchar16 block[4] = {'a', 0};
        char* const bytes = reinterpret_cast<char*>(block);
        platform::SetLastError(0);
        EXPECT_EQ(platform::MultiByteToWideChar(page, 0, bytes, 1, block, 4), 0);
        EXPECT_EQ(platform::GetLastError(), ERROR_INVALID_PARAMETER);
        platform::SetLastError(0);
        EXPECT_EQ(platform::WideCharToMultiByte(page, 0, block, 1, bytes, 4, nullptr, nullptr), 0);
        EXPECT_EQ(platform::GetLastError(), ERROR_INVALID_PARAMETER);
        // Nothing is written where the size is asked for.
        EXPECT_EQ(platform::MultiByteToWideChar(page, 0, bytes, 1, block, 0), 1);
        EXPECT_EQ(block[0], 'a');
    }
}

// ---- the pages of the thread ----

class PagesOfTheThread : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(platform::SetThreadLocale(0x0419)); }
    void TearDown() override { platform::SetThreadLocale(before_); }

private:
    const uint32 before_ = platform::GetThreadLocale();
};

TEST_F(PagesOfTheThread, TellAnsiFromOem) {
    EXPECT_EQ(Decode(CP_ACP, 0, "\xE0", 1).written, Units{0x0430});
    EXPECT_EQ(Decode(CP_THREAD_ACP, 0, "\xE0", 1).written, Units{0x0430});
    EXPECT_EQ(Decode(CP_OEMCP, 0, "\xE0", 1).written, Units{0x0440});
}

TEST_F(PagesOfTheThread, AreThoseOfTheTwoSymbolicSets) {
    wchar16 units[4] = {};
    EXPECT_TRUE(ConvertMBCSCharToSystem("\xE0", csNeutral, units, 3));
    EXPECT_EQ(units[0], 0x0430);
    EXPECT_TRUE(ConvertMBCSCharToSystem("\xE0", csCodePage437, units, 3));
    EXPECT_EQ(units[0], 0x0440);
    const wchar16 text[] = {0x0430, 0};
    char bytes[4] = {};
    EXPECT_TRUE(ConvertSystemToMBCSChar(text, bytes, csNeutral, 4, false));
    EXPECT_EQ(bytes, std::string("\xE0"));
    EXPECT_TRUE(ConvertSystemToMBCSChar(text, bytes, csCodePage437, 4, false));
    EXPECT_EQ(bytes, std::string("\xA0"));
}

// ---- short memory ----

// In a process that has made no tables yet: refuses one request after the other until the page is made. The number of
// refusals, or -1 where an answer was wrong.
int RefusalsUntilMade(uint32 page) {
    const char source[] = "\xE9";
    for (uint64 nth = 1;; ++nth) {
        wchar16 unit = untouched;
        const int64 blocks = test::LiveBlocks();
        int result = 0;
        bool refused = false;
        {
            const test::FailingHeap heap(nth);
            result = platform::MultiByteToWideChar(page, 0, source, 1, &unit, 1);
            refused = heap.Refused();
        }
        if (!refused) return result == 1 ? static_cast<int>(nth) - 1 : -1;
        const bool isClean = result == 0 && platform::GetLastError() == ERROR_NOT_ENOUGH_MEMORY && unit == untouched &&
                             test::LiveBlocks() == blocks && platform::IsValidCodePage(page);
        if (!isClean) return -1;
    }
}

TEST(CodePageMemoryDeathTest, ErrorEightWhenThereIsNoneForTheTables) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(std::_Exit(RefusalsUntilMade(1252)), testing::ExitedWithCode(3), "");
    EXPECT_EXIT(std::_Exit(RefusalsUntilMade(932)), testing::ExitedWithCode(2), "");
}

}  // namespace
}  // namespace posix_code_pages_internal_test
