#include <Utility/text/byte_walk.h>
#include <gtest/gtest.h>

#include <string>

#include "support/system_charset.h"

namespace byte_walk_internal_test {
namespace {

using namespace Torvo;
using Torvo::test::SystemCharset;

// The lead bytes of a charset as ranges, "81-84 87-9F".
std::string LeadBytesOf(ZUCHARSET charset) {
    const auto isLead = [charset](int value) {
        const auto byte = static_cast<unsigned char>(value);
        return value < 256 && CharsetIsLeadByte(&byte, charset);
    };
    std::string ranges;
    char range[16];
    for (int first = 0; first < 256; ++first) {
        if (!isLead(first)) continue;
        int last = first;
        while (isLead(last + 1)) ++last;
        std::snprintf(range, sizeof range, "%s%02X-%02X", ranges.empty() ? "" : " ", static_cast<unsigned>(first),
                      static_cast<unsigned>(last));
        ranges += range;
        first = last;
    }
    return ranges;
}

TEST(ByteWalk, FixedLeadBytes) {
    const SystemCharset system(csWindowsLatin1);
    for (int32 value = -1; value <= 60; ++value) {
        const auto charset = static_cast<ZUCHARSET>(value);
        std::string expected;
        switch (charset) {
            case csWindowsTradChinese:
                expected = "A1-C6 C9-F9";
                break;
            case csWindowsSimpChinese:
                expected = "81-FE";
                break;
            case csWindowsJapanese:
                expected = "81-84 87-9F E0-EA ED-EE FA-FC";
                break;
            case csWindowsKorean:
                expected = "81-C8 CA-FD";
                break;
            case csMacTradChinese:
            case csMacKorean:
                expected = "90-AF";
                break;
            case csMacJapanese:
                expected = "81-9F E0-FC";
                break;
            case csPackedEUCJapanese:
                expected = "81-9F E0-EF";
                break;
            default:
                break;
        }
        EXPECT_EQ(LeadBytesOf(charset), expected) << value;
    }
}

TEST(ByteWalk, CharsetBelowOneMeansTheSystems) {
    const SystemCharset system(csWindowsKorean);
    EXPECT_EQ(LeadBytesOf(csNeutral), "81-C8 CA-FD");
    EXPECT_EQ(LeadBytesOf(csUnknown), "81-C8 CA-FD");
    char text[] = "\xB0\xA1x";
    EXPECT_TRUE(CharsetLeadByteEx(text, 0));
    EXPECT_TRUE(CharsetLeadByteEx(text, -1));
    EXPECT_FALSE(CharsetLeadByteEx(text + 2, 0));
    EXPECT_EQ(CharsetNextChar(text, 0), text + 2);
    EXPECT_EQ(CharsetNextChar(text, -1), text + 2);
}

TEST(ByteWalk, LeadBytesByTheSystem) {
    EXPECT_TRUE(CharsetLeadByteEx("\x82\xA0", csWindowsJapanese));
    EXPECT_FALSE(CharsetLeadByteEx("a", csWindowsJapanese));
    EXPECT_FALSE(CharsetLeadByteEx("\xB1", csWindowsJapanese));
    EXPECT_FALSE(CharsetLeadByteEx("\x82\xA0", csWindowsLatin1));
    EXPECT_FALSE(CharsetLeadByteEx("\x82\xA0", csUTF8));
    EXPECT_FALSE(CharsetLeadByteEx("\x82\xA0", csMacJapanese));  // no code page
    const SystemCharset system(csNeutral);
    EXPECT_FALSE(CharsetLeadByteEx("\x82\xA0", 0));
}

TEST(ByteWalk, StepsByTheSystem) {
    char text[] = "a\x82\xA0\xB1";
    EXPECT_EQ(CharsetNextChar(text, csWindowsJapanese), text + 1);
    EXPECT_EQ(CharsetNextChar(text + 1, csWindowsJapanese), text + 3);
    EXPECT_EQ(CharsetNextChar(text + 3, csWindowsJapanese), text + 4);
    EXPECT_EQ(CharsetNextChar(text + 4, csWindowsJapanese), text + 4);
    EXPECT_EQ(CharsetNextChar(text + 1, csWindowsLatin1), text + 2);
    EXPECT_EQ(CharsetNextChar(text + 1, csMacJapanese), text + 2);  // no code page
}

TEST(ByteWalk, LeadByteBeforeTheTerminatorIsOneCharacter) {
    char text[] = "\x82";
    EXPECT_EQ(CharsetNextChar(text, csWindowsJapanese), text + 1);
}

}  // namespace
}  // namespace byte_walk_internal_test
