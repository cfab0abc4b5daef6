#include <Utility/platform/platform.h>
#include <golden/compare_answers.h>
#include <golden/locale_probe.h>
#include <gtest/gtest.h>
#include <support/thread_locale.h>

#include <string>
#include <thread>

namespace locales_internal_test {
namespace {

using namespace Torvo;

TEST(LocaleCalls, VectorsAreWhatTheirSystemStillAnswers) {
    const std::string vectors = test::LocaleVectorsText();
    if (!test::AreOfThisSystem(vectors)) GTEST_SKIP() << "the vectors come from another system than this one";
    test::ExpectTheVectorsAreStillAnswered(vectors, test::LocaleProbe().Run());
}

class ThreadLocale : public testing::Test {
    const test::ThreadLocale former;
};

TEST_F(ThreadLocale, IsWhatWasSetAndANeutralOneBecomesSpecific) {
    EXPECT_TRUE(platform::SetThreadLocale(0x407));
    EXPECT_EQ(platform::GetThreadLocale(), 0x407u);
    EXPECT_TRUE(platform::SetThreadLocale(0x0C));
    EXPECT_EQ(platform::GetThreadLocale(), 0x40Cu);
}

TEST_F(ThreadLocale, UnknownIdentifierIsRefusedAndChangesNothing) {
    platform::SetThreadLocale(0x407);
    for (const uint32 locale : {0x1234u, 0xFFFFu, 0x10409u, 0xFFFFFFFFu}) {
        platform::SetLastError(0);
        EXPECT_FALSE(platform::SetThreadLocale(locale));
        EXPECT_EQ(platform::GetLastError(), uint32{ERROR_INVALID_PARAMETER});
        EXPECT_EQ(platform::GetThreadLocale(), 0x407u);
    }
}

TEST_F(ThreadLocale, BelongsToTheThread) {
    platform::SetThreadLocale(0x411);
    uint32 others = 0;
    std::thread([&others] { others = platform::GetThreadLocale(); }).join();
    EXPECT_NE(others, 0x411u);
    EXPECT_NE(others, 0u);
}

TEST(LocaleCalls, ASuccessLeavesTheLastErrorAlone) {
    platform::SetLastError(4711);
    wchar16 buffer[10];
    EXPECT_EQ(platform::GetLocaleInfoW(0x407, LOCALE_SDECIMAL, buffer, 10), 2);
    EXPECT_EQ(platform::LCIDToLocaleName(0x407, buffer, 10, 0), 6);
    EXPECT_EQ(platform::LocaleNameToLCID(ZUTEXT("de-DE"), 0), 0x407u);
    EXPECT_EQ(platform::GetLastError(), 4711u);
}

TEST(LocaleCalls, SystemDefaultHasANameThatLeadsBackToIt) {
    wchar16 name[85];
    const int units = platform::GetSystemDefaultLocaleName(name, 85);
    ASSERT_GT(units, 1);
    EXPECT_EQ(name[units - 1], 0);
    EXPECT_NE(platform::LocaleNameToLCID(name, 0), 0u);
    EXPECT_EQ(platform::GetSystemDefaultLocaleName(name, units), units);
    EXPECT_EQ(platform::GetSystemDefaultLocaleName(name, units - 1), 0);
    EXPECT_EQ(platform::GetLastError(), uint32{ERROR_INSUFFICIENT_BUFFER});
}

TEST(LocaleCalls, NullNamesTheDefault) {
    wchar16 systemDefault[85];
    wchar16 name[85];
    ASSERT_GT(platform::GetSystemDefaultLocaleName(systemDefault, 85), 1);
    ASSERT_GT(platform::LCIDToLocaleName(platform::LocaleNameToLCID(nullptr, 0), name, 85, 0), 1);
    EXPECT_EQ(wstring16(name), systemDefault);
}

}  // namespace
}  // namespace locales_internal_test
