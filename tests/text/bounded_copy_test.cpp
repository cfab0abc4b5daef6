#include <Utility/bounded_copy.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace bounded_copy_test {
namespace {

using namespace Torvo;

struct Changed {
    uint64 result;
    wstring16 text;

    bool operator==(const Changed&) const = default;
};

Changed Apply(uint64 (*function)(wchar16*), wstring16 text) {
    const uint64 result = function(text.data());
    return {result, text.c_str()};
}

TEST(BoundedCopy, ClearsTheTail) {
    wchar16 buffer[12];
    std::fill(std::begin(buffer), std::end(buffer), wchar16{'x'});
    EXPECT_EQ(strcpyn(buffer + 1, ZUTEXT("abc"), 10), buffer + 1);
    EXPECT_EQ(wstring16(buffer, 12), (wstring16{'x', 'a', 'b', 'c', 0, 0, 0, 0, 0, 0, 0, 'x'}));
}

TEST(BoundedCopy, CutsToOneLessThanTheSize) {
    wchar16 buffer[5] = {'x', 'x', 'x', 'x', 'x'};
    strcpyn(buffer, ZUTEXT("abc"), 3);
    EXPECT_EQ(wstring16(buffer, 5), (wstring16{'a', 'b', 0, 'x', 'x'}));
    strcpyn(buffer, ZUTEXT("def"), 1);
    EXPECT_EQ(wstring16(buffer, 5), (wstring16{0, 'b', 0, 'x', 'x'}));
    strcpyn(buffer, ZUTEXT("def"), 4);
    EXPECT_EQ(wstring16(buffer, 5), (wstring16{'d', 'e', 'f', 0, 'x'}));
}

TEST(BoundedCopy, SizeOfNothingWritesNothing) {
    wchar16 buffer[2] = {'x', 'x'};
    EXPECT_EQ(strcpyn(buffer, ZUTEXT("abc"), 0), buffer);
    EXPECT_EQ(wstring16(buffer, 2), ZUTEXT("xx"));
}

TEST(BoundedCopy, EverySizeAndLength) {
    for (std::size_t length = 0; length < 40; ++length) {
        wstring16 source(length, 'a');
        for (std::size_t index = 0; index < length; ++index) source[index] = static_cast<wchar16>('a' + index);
        for (std::size_t size = 1; size < 40; ++size) {
            wstring16 buffer(42, 'x');
            strcpyn(buffer.data() + 1, source.c_str(), size);
            const wstring16 kept = source.substr(0, size - 1);
            ASSERT_EQ(buffer, ZUTEXT("x") + kept + wstring16(size - kept.size(), 0) + wstring16(41 - size, 'x'));
        }
    }
}

// Exactly as many units as are copied, without a terminator behind them.
TEST(BoundedCopy, ReadsNoMoreThanItCopies) {
    const wstring16 text = ZUTEXT("abcd");
    wchar16* const source = new wchar16[4];
    std::copy_n(text.data(), 4, source);
    wchar16 buffer[5];
    strcpyn(buffer, source, 5);
    delete[] source;
    EXPECT_EQ(wstring16(buffer), text);
}

TEST(Trimming, LeadingBlanks) {
    EXPECT_EQ(Apply(ltrim, ZUTEXT("\ta")), (Changed{1, ZUTEXT("a")}));
    EXPECT_EQ(Apply(ltrim, ZUTEXT(" \t\n\f\r\v\x01\x7F"
                                  "a b ")),
              (Changed{8, ZUTEXT("a b ")}));
    EXPECT_EQ(Apply(ltrim, ZUTEXT("abc")), (Changed{0, ZUTEXT("abc")}));
    EXPECT_EQ(Apply(ltrim, ZUTEXT("\u00A0a")), (Changed{0, ZUTEXT("\u00A0a")}));
}

TEST(Trimming, TextOfNothingButBlanksIsLeftAsItIs) {
    EXPECT_EQ(Apply(ltrim, ZUTEXT(" \t ")).text, ZUTEXT(" \t "));
    EXPECT_EQ(Apply(ltrim, ZUTEXT("")).text, ZUTEXT(""));
}

TEST(Trimming, LeadingSpacesAlone) {
    EXPECT_EQ(Apply(ltrim2, ZUTEXT("  a")), (Changed{2, ZUTEXT("a")}));
    EXPECT_EQ(Apply(ltrim2, ZUTEXT(" \ta")), (Changed{1, ZUTEXT("\ta")}));
    EXPECT_EQ(Apply(ltrim2, ZUTEXT("a ")), (Changed{0, ZUTEXT("a ")}));
    EXPECT_EQ(Apply(ltrim2, ZUTEXT("   ")), (Changed{3, ZUTEXT("")}));
    EXPECT_EQ(Apply(ltrim2, ZUTEXT("")), (Changed{0, ZUTEXT("")}));
}

TEST(Trimming, BlanksAtTheEnd) {
    EXPECT_EQ(Apply(rtrim, ZUTEXT(" a b \t\r\n\f\v\x1F")), (Changed{4, ZUTEXT(" a b")}));
    EXPECT_EQ(Apply(rtrim, ZUTEXT(" \t ")), (Changed{0, ZUTEXT("")}));
    EXPECT_EQ(Apply(rtrim, ZUTEXT("")), (Changed{0, ZUTEXT("")}));
    EXPECT_EQ(Apply(rtrim, ZUTEXT("a\u00A0")), (Changed{2, ZUTEXT("a\u00A0")}));
}

TEST(Trimming, EveryBlankAtTheEndIsOverwritten) {
    wchar16 text[] = ZUTEXT("a  ");
    rtrim(text);
    EXPECT_EQ(wstring16(text, 4), (wstring16{'a', 0, 0, 0}));
}

TEST(Printing, ControlsDoNotAndAllBeyondAsciiDo) {
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const bool prints = unit >= 0x80 || (unit >= 0x20 && unit < 0x7F);
        ASSERT_EQ(zuIsPrint(static_cast<wchar16>(unit)), prints ? 1 : 0) << unit;
    }
}

}  // namespace
}  // namespace bounded_copy_test
