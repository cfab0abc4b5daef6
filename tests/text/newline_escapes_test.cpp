#include <Utility/memory_blocks.h>
#include <Utility/text_tools.h>
#include <gtest/gtest.h>
#include <support/owned_text.h>
#include <support/random.h>

#include <memory>

namespace newline_escapes_test {
namespace {

using namespace Torvo;

// FilterNewline over exactly the units of the text, which has no terminator, with the units around the target guarded.
wstring16 Filter(const wstring16& text, bool decode) {
    const std::unique_ptr<wchar16[]> source(new wchar16[text.size()]);
    std::copy_n(text.data(), text.size(), source.get());
    wstring16 buffer(text.size() + 2, '#');
    FilterNewline(buffer.data() + 1, source.get(), text.size(), decode);
    EXPECT_EQ(buffer.front(), '#');
    EXPECT_EQ(buffer.back(), '#') << "no terminator is written";
    FilterNewline(source.get(), source.get(), text.size(), decode);
    EXPECT_EQ(wstring16(source.get(), text.size()), buffer.substr(1, text.size())) << "in place";
    return buffer.substr(1, text.size());
}

TEST(FilterNewlines, LineEndsBecomeTwoCharacters) {
    EXPECT_EQ(Filter(ZUTEXT("a\r\nb\r\n\r\n"), false), ZUTEXT("a\\nb\\n\\n"));
    EXPECT_EQ(Filter(ZUTEXT("a\nb\rc\n\r"), false), ZUTEXT("a\nb\rc\n\r")) << "only both together";
    EXPECT_EQ(Filter(ZUTEXT("\r\r\n"), false), ZUTEXT("\r\\n"));
    EXPECT_EQ(Filter(ZUTEXT("a\\nb"), false), ZUTEXT("a\\nb"));
}

TEST(FilterNewlines, TwoCharactersBecomeLineEnds) {
    EXPECT_EQ(Filter(ZUTEXT("a\\nb\\n"), true), ZUTEXT("a\r\nb\r\n"));
    EXPECT_EQ(Filter(ZUTEXT("\\\\n"), true), ZUTEXT("\\\r\n"));
    EXPECT_EQ(Filter(ZUTEXT("\\N\\tn\\"), true), ZUTEXT("\\N\\tn\\"));
    EXPECT_EQ(Filter(ZUTEXT("a\r\nb"), true), ZUTEXT("a\r\nb"));
}

TEST(FilterNewlines, ThereAndBack) {
    const wstring16 text = ZUTEXT("one\r\ntwo\r\n\r\nthree\n\r");
    EXPECT_EQ(Filter(Filter(text, false), true), text);
}

TEST(FilterNewlines, APairSplitByTheEndIsCopied) {
    EXPECT_EQ(Filter(ZUTEXT("a\r"), false), ZUTEXT("a\r"));
    EXPECT_EQ(Filter(ZUTEXT("a\\"), true), ZUTEXT("a\\"));
    wchar16 target[3] = {'#', '#', '#'};
    FilterNewline(target, ZUTEXT("a\r\n"), 2, false);
    EXPECT_EQ(wstring16(target, 3), ZUTEXT("a\r#"));
}

TEST(FilterNewlines, AZeroUnitIsAnyOther) {
    const wstring16 text{'a', 0, '\r', '\n'};
    EXPECT_EQ(Filter(text, false), (wstring16{'a', 0, '\\', 'n'}));
}

TEST(FilterNewlines, LengthOfNothingDoesNothing) {
    wchar16 target[1] = {'#'};
    FilterNewline(target, ZUTEXT("\r\n"), 0, false);
    FilterNewline(nullptr, nullptr, 0, true);
    EXPECT_EQ(target[0], '#');
}

TEST(FilterNewlines, NullsAreRefused) {
    wchar16 text[] = ZUTEXT("a\r\n");
    for (const bool decode : {false, true}) {
        FilterNewline(text, nullptr, 3, decode);
        FilterNewline(nullptr, text, 3, decode);
    }
    EXPECT_EQ(wstring16(text), ZUTEXT("a\r\n"));
}

// The text with its CRs, out of a block that is freed as a caller does.
wstring16 WithCrs(const wstring16& text) {
    const std::unique_ptr<wchar16[]> source(new wchar16[text.size()]);
    std::copy_n(text.data(), text.size(), source.get());
    auto* out = reinterpret_cast<wchar16*>(1);  // what it held before does not matter
    const uint64 length = TextAddCrs(&out, source.get(), text.size());
    EXPECT_GE(memSize(out), 2 * length + 2);
    EXPECT_EQ(out[length], 0);
    const wstring16 result(out, length);
    void* block = out;
    ffree_(&block);
    return result;
}

TEST(AddCrs, AheadOfEachLf) {
    EXPECT_EQ(WithCrs(ZUTEXT("a\nb\n\n")), ZUTEXT("a\r\nb\r\n\r\n"));
    EXPECT_EQ(WithCrs(ZUTEXT("abc")), ZUTEXT("abc"));
    EXPECT_EQ(WithCrs(ZUTEXT("a\rb")), ZUTEXT("a\rb"));
    EXPECT_EQ(WithCrs(ZUTEXT("")), ZUTEXT(""));
}

TEST(AddCrs, ACrAlreadyThereIsNotLookedAt) {
    EXPECT_EQ(WithCrs(ZUTEXT("a\r\nb")), ZUTEXT("a\r\r\nb"));
}

TEST(AddCrs, CountsByTheLengthAlone) {
    EXPECT_EQ(WithCrs(wstring16{'\n', 0, '\n', 'a'}), (wstring16{'\r', '\n', 0, '\r', '\n', 'a'}));
}

TEST(AddCrs, NullsAreRefused) {
    wchar16 other[1];
    wchar16* out = other;
    EXPECT_EQ(TextAddCrs(&out, nullptr, 3), 0u);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(TextAddCrs(nullptr, ZUTEXT("a\n"), 2), 0u);
    EXPECT_EQ(TextAddCrs(nullptr, nullptr, 2), 0u);
}

TEST(AddCrs, NullWithoutALengthIsTheEmptyText) {
    test::OwnedText out;
    EXPECT_EQ(TextAddCrs(out.Place(), nullptr, 0), 0u);
    ASSERT_NE(out.Get(), nullptr);
    EXPECT_EQ(out.Get()[0], 0);
}

wstring16 WithoutCrs(wstring16 text) {
    const uint64 length = TextRemoveCrs(text.data());
    const wstring16 result = text.c_str();
    EXPECT_EQ(length, result.size());
    return result;
}

TEST(RemoveCrs, AheadOfAnLf) {
    EXPECT_EQ(WithoutCrs(ZUTEXT("a\r\nb\r\n\r\nc")), ZUTEXT("a\nb\n\nc"));
    EXPECT_EQ(WithoutCrs(ZUTEXT("a\nb")), ZUTEXT("a\nb"));
    EXPECT_EQ(WithoutCrs(ZUTEXT("")), ZUTEXT(""));
    EXPECT_EQ(WithoutCrs(ZUTEXT("\r\n")), ZUTEXT("\n"));
}

TEST(RemoveCrs, NullsAreRefused) {
    EXPECT_EQ(TextRemoveCrs(nullptr), 0u);
}

TEST(RemoveCrs, ALoneCrStays) {
    EXPECT_EQ(WithoutCrs(ZUTEXT("a\rb\r")), ZUTEXT("a\rb\r"));
    EXPECT_EQ(WithoutCrs(ZUTEXT("a\r\r\nb\n\r")), ZUTEXT("a\r\nb\n\r"));
}

TEST(RemoveCrs, UndoesWhatAddingDid) {
    test::Random random;
    SCOPED_TRACE(random.About());
    for (int i = 0; i < 2'000; ++i) {
        wstring16 text;
        for (int64 left = random.Between(0, 12); left > 0; --left) text += ZUTEXT("ab\r\n")[random.Between(0, 3)];
        ASSERT_EQ(WithoutCrs(WithCrs(text)), text);
    }
}

}  // namespace
}  // namespace newline_escapes_test
