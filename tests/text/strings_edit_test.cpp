#include <Utility/strings.h>
#include <gtest/gtest.h>

#include "support/system_charset.h"

namespace strings_edit_test {
namespace {

using namespace Torvo;
using Torvo::test::SystemCharset;

// concat_backslash into a buffer of 10 units that is full of 'x' before.
wstring16 WithBackslash(const wchar16* src, uint64 size) {
    wchar16 buffer[10];
    std::fill(std::begin(buffer), std::end(buffer), wchar16{'x'});
    concat_backslash(src, buffer, size);
    return {std::begin(buffer), std::end(buffer)};
}

wstring16 Units(std::initializer_list<wchar16> units) {
    return units;
}

TEST(StringReversal, IsByUnitOnEverySystem) {
    for (const ZUCHARSET charset : {csWindowsLatin1, csWindowsJapanese}) {
        const SystemCharset system(charset);
        wchar16 text[] = ZUTEXT("abc");
        EXPECT_EQ(zuStrrev(text), text);
        EXPECT_EQ(wstring16(text), ZUTEXT("cba"));
        wchar16 marked[] = ZUTEXT("e\u0301xy");
        EXPECT_EQ(wstring16(zuStrrev(marked)), ZUTEXT("yx\u0301e"));
        wchar16 empty[] = ZUTEXT("");
        EXPECT_EQ(zuStrrev(empty), empty);
        EXPECT_EQ(system.Queries(), 3) << "asked for in every call, without effect";
    }
}

TEST(ConcatBackslash, AppendsWhereThereIsNone) {
    EXPECT_EQ(WithBackslash(ZUTEXT("c:"), 8), Units({'c', ':', '\\', 0, 0, 0, 0, 0, 'x', 'x'}));
    EXPECT_EQ(WithBackslash(ZUTEXT("c:/"), 8), Units({'c', ':', '/', 0, 0, 0, 0, 0, 'x', 'x'}));
    EXPECT_EQ(WithBackslash(ZUTEXT("c:\\"), 8), Units({'c', ':', '\\', 0, 0, 0, 0, 0, 'x', 'x'}));
    EXPECT_EQ(WithBackslash(ZUTEXT("\\a"), 8), Units({'\\', 'a', '\\', 0, 0, 0, 0, 0, 'x', 'x'}));
}

TEST(ConcatBackslash, LeavesTheEmptyTextEmpty) {
    EXPECT_EQ(WithBackslash(ZUTEXT(""), 8), Units({0, 0, 0, 0, 0, 0, 0, 0, 'x', 'x'}));
    EXPECT_EQ(WithBackslash(ZUTEXT("abc"), 1), Units({0, 'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x'}));
}

TEST(ConcatBackslash, AppendingDoesNotLookAtTheSize) {
    EXPECT_EQ(WithBackslash(ZUTEXT("abcdef"), 4), Units({'a', 'b', 'c', '\\', 0, 'x', 'x', 'x', 'x', 'x'}));
    EXPECT_EQ(WithBackslash(ZUTEXT("ab/def"), 4), Units({'a', 'b', '/', 0, 'x', 'x', 'x', 'x', 'x', 'x'}));
}

TEST(ConcatBackslash, SizeOfNothingAppendsToWhatIsThere) {
    wchar16 buffer[8] = ZUTEXT("dir");
    concat_backslash(ZUTEXT("other"), buffer, 0);
    EXPECT_EQ(wstring16(buffer), ZUTEXT("dir\\"));
}

TEST(ConcatBackslash, LastCharacterIsTakenWithItsMarks) {
    const wchar16 marked[] = ZUTEXT("/\u0301");
    if (zuNextChar(marked) == marked + 1) GTEST_SKIP() << "this system's CharPrevW does not step over combining marks";
    EXPECT_EQ(WithBackslash(ZUTEXT("c:/\u0301"), 6), Units({'c', ':', '/', 0x301, 0, 0, 'x', 'x', 'x', 'x'}));
}

}  // namespace
}  // namespace strings_edit_test
