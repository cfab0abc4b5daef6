#include <Utility/frame/font_names.h>
#include <gtest/gtest.h>

#include <iterator>

namespace font_names_internal_test {
namespace {

using namespace Torvo;

wstring16 FontOf(int key) {
    const cStringTable table(fontNames);
    return table[key];
}

TEST(FontNames, StandUnderTheirKeysInOrderAndEndWithZero) {
    for (int row = 0; row < FontNameRows - 1; ++row) EXPECT_EQ(fontNames[row].id, row + 1);
    EXPECT_EQ(fontNames[FontNameRows - 1].id, 0);
}

TEST(FontNames, AreThoseOfTheCharsets) {
    struct Range {
        int first;
        int last;
        const wchar16* font;
    };
    const Range ranges[] = {
        {1, 10, ZUTEXT("Helvetica")},      {11, 11, ZUTEXT("Arial")},          {12, 12, ZUTEXT("Arial CE")},
        {13, 13, ZUTEXT("Arial")},         {14, 14, ZUTEXT("Arial Cyr")},      {15, 15, ZUTEXT("Arial")},
        {16, 16, ZUTEXT("Miriam")},        {17, 19, ZUTEXT("Arial")},          {22, 34, ZUTEXT("Helvetica")},
        {35, 35, ZUTEXT("Trad. Chinese")}, {36, 36, ZUTEXT("Simple Chinese")}, {37, 37, ZUTEXT("Japanese")},
        {38, 38, ZUTEXT("Korean")},        {39, 39, ZUTEXT("Browallia New")},  {40, 41, ZUTEXT("Arial")},
    };
    for (const Range& range : ranges) {
        for (int key = range.first; key <= range.last; ++key) EXPECT_EQ(FontOf(key), range.font) << key;
    }
}

TEST(FontNames, OfTwoAsianSystemsAreKeptUnitForUnit) {
    const wchar16 simplified[] = {0x00C3, 0x00AC, 0x00C3, 0x00B2, 0x0020, 0x00D6, 0x00BE, 0x00D2, 0x00A9};
    const wchar16 japanese[] = {0x00DA, 0x2122, 0x00C6, 0x0081, 0x00C3, 0x00BC};
    EXPECT_EQ(FontOf(20), wstring16(std::begin(simplified), std::end(simplified)));
    EXPECT_EQ(FontOf(21), wstring16(std::begin(japanese), std::end(japanese)));
}

}  // namespace
}  // namespace font_names_internal_test
