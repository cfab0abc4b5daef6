#include <Utility/conversion.h>
#include <Utility/memory_blocks.h>
#include <Utility/platform/host.h>
#include <Utility/text_tools.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace ansi_text_test {
namespace {

using namespace Torvo;

// A thread whose ANSI code page is a certain one, if the system lets a thread choose.
class AnsiText : public testing::Test {
protected:
    void SetUp() override { platform::SetThreadLocale(0x0409); }
    void TearDown() override { platform::SetThreadLocale(before); }

    // Whether these bytes mean that text in the ANSI page, by the conversion that has a target of its own.
    static bool Mean(const char* bytes, const wstring16& text) {
        wchar16 units[16];
        return ConvertMBCSCharToSystem(bytes, csNeutral, units, 15) && units == text;
    }
    static bool IsWestern() { return Mean("\xE9\xF1\x80", ZUTEXT("\u00E9\u00F1\u20AC")); }
    // Japanese, from here to the end of the test.
    static bool IsJapanese() {
        platform::SetThreadLocale(0x0411);
        return Mean("\x82\xA0", ZUTEXT("\u3042"));
    }

private:
    const uint32 before = platform::GetThreadLocale();
};

constexpr const char* notWestern = "the ANSI code page is not a western one, and no thread can choose it here";
constexpr const char* notJapanese = "a thread cannot choose its ANSI code page here";

// The text of a block, which is freed as a caller does; nothing for null.
std::optional<wstring16> Taken(wchar16* block) {
    if (block == nullptr) return std::nullopt;
    wstring16 text = block;
    void* owned = block;
    ffree_(&owned);
    return text;
}

std::optional<std::string> Taken(char* block) {
    if (block == nullptr) return std::nullopt;
    std::string text = block;
    void* owned = block;
    ffree_(&owned);
    return text;
}

TEST_F(AnsiText, BytesBecomeSystemText) {
    if (!IsWestern()) GTEST_SKIP() << notWestern;
    const char* const bytes = "caf\xE9 \x80";
    const wstring16 text = ZUTEXT("caf\u00E9 \u20AC");
    wchar16 units[10];
    EXPECT_EQ(StringToExistingWString(units, 10, bytes), units);
    EXPECT_EQ(wstring16(units), text);
    EXPECT_EQ(Taken(StringToNewWString(bytes)), text);
    EXPECT_EQ(StringToWString(bytes), text);
    EXPECT_EQ(StringToWString(std::string(bytes)), text);
}

TEST_F(AnsiText, SystemTextBecomesBytes) {
    if (!IsWestern()) GTEST_SKIP() << notWestern;
    const wchar16* const text = ZUTEXT("caf\u00E9 \u20AC");
    const std::string bytes = "caf\xE9 \x80";
    char buffer[10];
    EXPECT_EQ(WStringToExistingString(buffer, 10, text), buffer);
    EXPECT_EQ(std::string(buffer), bytes);
    EXPECT_EQ(Taken(WStringToNewString(text)), bytes);
    EXPECT_EQ(WStringToString(text), bytes);
    EXPECT_EQ(WStringToString(wstring16(text)), bytes);
}

TEST_F(AnsiText, WhatThePageLacksIsSubstituted) {
    if (!IsWestern()) GTEST_SKIP() << notWestern;
    const wchar16* const text = ZUTEXT("\u3042L\u0141");
    const std::string bytes = "?LL";
    EXPECT_EQ(WStringToString(text), bytes);
    EXPECT_EQ(Taken(WStringToNewString(text)), bytes);
    char buffer[8];
    EXPECT_EQ(std::string(WStringToExistingString(buffer, 8, text)), bytes);
}

TEST_F(AnsiText, PairsOfBytes) {
    if (!IsJapanese()) GTEST_SKIP() << notJapanese;
    const char* const bytes = "a\x82\xA0\xB1";
    const wstring16 text = ZUTEXT("a\u3042\uFF71");
    EXPECT_EQ(StringToWString(bytes), text);
    EXPECT_EQ(StringToWString(std::string(bytes)), text);
    wchar16* const block = StringToNewWString(bytes);
    EXPECT_GE(memSize(block), 5 * sizeof(wchar16)) << "a unit for each byte";
    EXPECT_EQ(Taken(block), text);
    EXPECT_EQ(WStringToString(text), bytes);
    EXPECT_EQ(WStringToString(text.c_str()), bytes);
    EXPECT_EQ(Taken(WStringToNewString(text.c_str())), bytes);
}

TEST_F(AnsiText, NullGivesNullOrNothing) {
    wchar16 units[3] = ZUTEXT("##");
    EXPECT_EQ(StringToExistingWString(units, 3, nullptr), nullptr);
    EXPECT_EQ(wstring16(units), ZUTEXT("##"));
    EXPECT_EQ(StringToNewWString(nullptr), nullptr);
    EXPECT_EQ(StringToWString(nullptr), ZUTEXT(""));
    char bytes[3] = "##";
    EXPECT_EQ(WStringToExistingString(bytes, 3, nullptr), nullptr);
    EXPECT_EQ(std::string(bytes), "##");
    EXPECT_EQ(WStringToNewString(nullptr), nullptr);
    EXPECT_EQ(WStringToString(nullptr), "");
    int length = 77;
    EXPECT_EQ(WStringToNewUTF8String(nullptr, length), nullptr);
    EXPECT_EQ(length, 77);
}

TEST_F(AnsiText, EmptyTexts) {
    wchar16 units[2] = ZUTEXT("#");
    EXPECT_EQ(wstring16(StringToExistingWString(units, 2, "")), ZUTEXT(""));
    char bytes[2] = "#";
    EXPECT_EQ(std::string(WStringToExistingString(bytes, 2, ZUTEXT(""))), "");
    EXPECT_EQ(Taken(StringToNewWString("")), ZUTEXT(""));
    EXPECT_EQ(Taken(WStringToNewString(ZUTEXT(""))), "");
    EXPECT_EQ(StringToWString(""), ZUTEXT(""));
    EXPECT_EQ(StringToWString(std::string()), ZUTEXT(""));
    EXPECT_EQ(WStringToString(ZUTEXT("")), "");
    EXPECT_EQ(WStringToString(wstring16()), "");
    int length = 77;
    EXPECT_EQ(Taken(WStringToNewUTF8String(ZUTEXT(""), length)), "");
    EXPECT_EQ(length, 0);
}

TEST_F(AnsiText, StringsAreConvertedToTheirEnd) {
    const std::string bytes("a\0b", 3);
    const wstring16 text{'a', 0, 'b'};
    EXPECT_EQ(StringToWString(bytes), text);
    EXPECT_EQ(WStringToString(text), bytes);
}

TEST_F(AnsiText, ATextThatDoesNotFitIsNotReported) {
    wchar16 units[4] = {'#', '#', '#', '#'};
    EXPECT_EQ(StringToExistingWString(units, 3, "abc"), units);
    EXPECT_EQ(units[3], '#');
    EXPECT_EQ(StringToExistingWString(units, 4, "abc"), units);
    EXPECT_EQ(wstring16(units), ZUTEXT("abc"));
    char bytes[4] = {'#', '#', '#', '#'};
    EXPECT_EQ(WStringToExistingString(bytes, 3, ZUTEXT("abc")), bytes);
    EXPECT_EQ(bytes[3], '#');
    EXPECT_EQ(WStringToExistingString(bytes, 4, ZUTEXT("abc")), bytes);
    EXPECT_EQ(std::string(bytes), "abc");
}

TEST_F(AnsiText, SizeOfNothingWritesNothing) {
    wchar16 units[1] = {'#'};
    EXPECT_EQ(StringToExistingWString(units, 0, "abc"), units);
    EXPECT_EQ(units[0], '#');
    char bytes[1] = {'#'};
    EXPECT_EQ(WStringToExistingString(bytes, 0, ZUTEXT("abc")), bytes);
    EXPECT_EQ(bytes[0], '#');
}

// What is left of the size may be too small, which is not reported, but is never more.
TEST_F(AnsiText, SizesAreCutTo32Bits) {
    wchar16 units[4] = ZUTEXT("###");
    EXPECT_EQ(StringToExistingWString(units, (uint64{1} << 32) + 4, "abc"), units);
    EXPECT_EQ(wstring16(units), ZUTEXT("abc"));
    StringToExistingWString(units, uint64{1} << 32, "xyz");
    EXPECT_EQ(wstring16(units), ZUTEXT("abc"));
    StringToExistingWString(units, uint64{1} << 31, "xyz");
    EXPECT_EQ(wstring16(units), ZUTEXT("abc")) << "below 0 in 32 bits";
    char bytes[4] = "###";
    EXPECT_EQ(WStringToExistingString(bytes, (uint64{1} << 32) + 4, ZUTEXT("abc")), bytes);
    EXPECT_EQ(std::string(bytes), "abc");
    WStringToExistingString(bytes, uint64{1} << 31, ZUTEXT("xyz"));
    EXPECT_EQ(std::string(bytes), "abc");
}

TEST_F(AnsiText, Utf8HoldsEverything) {
    int length = 0;
    EXPECT_EQ(Taken(WStringToNewUTF8String(ZUTEXT("\u00E9"), length)), "\xC3\xA9");
    EXPECT_EQ(length, 2);
    EXPECT_EQ(Taken(WStringToNewUTF8String(ZUTEXT("a\u3042\U0001F600"), length)), "a\xE3\x81\x82\xF0\x9F\x98\x80");
    EXPECT_EQ(length, 8);
    EXPECT_EQ(Taken(WStringToNewUTF8String(wstring16{wchar16{0xD83D}}.c_str(), length)), "\xEF\xBF\xBD");
    EXPECT_EQ(length, 3);
}

}  // namespace
}  // namespace ansi_text_test
