#include <Utility/conversion.h>
#include <Utility/memory_blocks.h>
#include <gtest/gtest.h>
#include <support/system_charset.h>

#include <optional>
#include <random>
#include <string>

namespace line_ends_test {
namespace {

using namespace Torvo;
using test::SystemCharset;

using Call = wchar16* (*)(wchar16*);

// The new block's text, or nothing for a null result. The source must come out as it went in.
std::optional<wstring16> Convert(Call call, const wstring16& text) {
    wstring16 source = text;
    wchar16* const block = call(source.data());
    EXPECT_EQ(source, text);
    if (block == nullptr) return std::nullopt;
    EXPECT_NE(block, source.data());
    EXPECT_GE(memSize(block), (wstring16(block).size() + 1) * 2);
    wstring16 result = block;
    void* owned = block;
    ffree_(&owned);
    return result;
}

std::optional<wstring16> ToCRLF(const wstring16& text) {
    return Convert(ConvertLFToPlatformCRLF, text);
}

std::optional<wstring16> ToLF(const wstring16& text) {
    return Convert(ConvertPlatformCRLFToLF, text);
}

TEST(LineEndsToSystem, NothingToDoGivesNull) {
    EXPECT_EQ(ToCRLF(ZUTEXT("")), std::nullopt);
    EXPECT_EQ(ToCRLF(ZUTEXT("a")), std::nullopt);
    EXPECT_EQ(ToCRLF(ZUTEXT("no line end\tat all \f\v")), std::nullopt);
    EXPECT_EQ(ConvertLFToPlatformCRLF(nullptr), nullptr);
}

TEST(LineEndsToSystem, EachKindCountsAsOne) {
    EXPECT_EQ(ToCRLF(ZUTEXT("a\nb")), ZUTEXT("a\r\nb"));
    EXPECT_EQ(ToCRLF(ZUTEXT("a\rb")), ZUTEXT("a\r\nb"));
    EXPECT_EQ(ToCRLF(ZUTEXT("a\r\nb")), ZUTEXT("a\r\nb"));
}

TEST(LineEndsToSystem, RightLineEndsGiveAnEqualBlock) {
    EXPECT_EQ(ToCRLF(ZUTEXT("one\r\ntwo\r\n")), ZUTEXT("one\r\ntwo\r\n"));
}

TEST(LineEndsToSystem, NeighboursAreToldApart) {
    EXPECT_EQ(ToCRLF(ZUTEXT("\n\n")), ZUTEXT("\r\n\r\n"));
    EXPECT_EQ(ToCRLF(ZUTEXT("\r\r\n")), ZUTEXT("\r\n\r\n"));
    EXPECT_EQ(ToCRLF(ZUTEXT("\n\r")), ZUTEXT("\r\n\r\n"));
    EXPECT_EQ(ToCRLF(ZUTEXT("\r\n\n\r")), ZUTEXT("\r\n\r\n\r\n"));
    EXPECT_EQ(ToCRLF(ZUTEXT("\r")), ZUTEXT("\r\n"));
}

TEST(LineEndsToSystem, TheLineEndIsThatOfTheSystemCharset) {
    {
        const SystemCharset mac(csMacRoman);
        EXPECT_EQ(ToCRLF(ZUTEXT("a\r\nb\nc\rd")), ZUTEXT("a\rb\rc\rd"));
    }
    const SystemCharset iso(csISO8859_1);
    EXPECT_EQ(ToCRLF(ZUTEXT("a\r\nb\nc\rd")), ZUTEXT("a\nb\nc\nd"));
}

TEST(LineEndsToSystem, GrowsPastAnyNumberOfLineEnds) {
    for (const std::size_t count : {39u, 40u, 41u, 79u, 80u, 81u, 5000u}) {
        wstring16 expected;
        for (std::size_t i = 0; i < count; ++i) expected += ZUTEXT("\r\n");
        EXPECT_EQ(ToCRLF(wstring16(count, '\n')), expected) << count;
        EXPECT_EQ(ToCRLF(wstring16(count, '\r')), expected) << count;
        EXPECT_EQ(ToCRLF(expected), expected) << count;
    }
}

TEST(LineEndsToLF, NothingToDoGivesNull) {
    EXPECT_EQ(ToLF(ZUTEXT("")), std::nullopt);
    EXPECT_EQ(ToLF(ZUTEXT("a")), std::nullopt);
    EXPECT_EQ(ToLF(ZUTEXT("a\nb\n")), std::nullopt);
    EXPECT_EQ(ConvertPlatformCRLFToLF(nullptr), nullptr);
}

TEST(LineEndsToLF, PairsAndLoneReturnsBecomeOneLF) {
    EXPECT_EQ(ToLF(ZUTEXT("a\rb")), ZUTEXT("a\nb"));
    EXPECT_EQ(ToLF(ZUTEXT("a\r\nb")), ZUTEXT("a\nb"));
    EXPECT_EQ(ToLF(ZUTEXT("\r\r\n\n\r")), ZUTEXT("\n\n\n\n"));
    EXPECT_EQ(ToLF(ZUTEXT("\r")), ZUTEXT("\n"));
}

// What each call says, unit by unit.
std::optional<wstring16> Plain(const wstring16& text, const wstring16& newline, bool loneLFIsOne) {
    wstring16 out;
    bool met = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool cr = text[i] == '\r';
        if (cr || (loneLFIsOne && text[i] == '\n')) {
            out += newline;
            met = true;
            if (cr && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        } else {
            out += text[i];
        }
    }
    return met ? std::optional(out) : std::nullopt;
}

TEST(LineEnds, AreThoseOfThePlainWalkOverRandomTexts) {
    std::mt19937 random(20261121);
    static constexpr wchar16 alphabet[] = {'\r', '\n', 'a', 0x3042, '\r', '\n', 0xD800, ' '};
    for (int round = 0; round < 3000; ++round) {
        const std::size_t range = 1 + random() % std::size(alphabet);  // from nothing but returns to mixed text
        wstring16 text;
        for (std::size_t length = random() % 300; length > 0; --length) text += alphabet[random() % range];
        ASSERT_EQ(ToCRLF(text), Plain(text, ZUTEXT("\r\n"), true)) << round;
        ASSERT_EQ(ToLF(text), Plain(text, ZUTEXT("\n"), false)) << round;
    }
}

}  // namespace
}  // namespace line_ends_test
