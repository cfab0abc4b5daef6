#include <Utility/text/icu_locale_name.h>
#include <gtest/gtest.h>
#include <support/system_charset.h>

namespace icu_locale_name_internal_test {
namespace {

using namespace Torvo;

TEST(IcuLocaleNames, HaveUnderlinesForHyphens) {
    EXPECT_STREQ(IcuLocaleName(ZUTEXT("pt-BR")).Text(), "pt_BR");
    EXPECT_STREQ(IcuLocaleName(ZUTEXT("zh-Hans-CN")).Text(), "zh_Hans_CN");
    EXPECT_STREQ(IcuLocaleName(ZUTEXT("sv")).Text(), "sv");
    EXPECT_STREQ(IcuLocaleName(ZUTEXT("")).Text(), "");
}

TEST(IcuLocaleNames, AreTheSameInEverySystemCharset) {
    for (const ZUCHARSET cs : {csWindowsLatin1, csUTF8, csWindowsJapanese}) {
        const test::SystemCharset system(cs);
        EXPECT_STREQ(IcuLocaleName(ZUTEXT("zh-Hans-CN")).Text(), "zh_Hans_CN") << cs;
    }
}

TEST(IcuLocaleNames, TellJapaneseByTheFirstTwoLetters) {
    EXPECT_TRUE(IcuLocaleName(ZUTEXT("ja-JP")).IsJapanese());
    EXPECT_TRUE(IcuLocaleName(ZUTEXT("ja")).IsJapanese());
    EXPECT_FALSE(IcuLocaleName(ZUTEXT("jv-ID")).IsJapanese());
    EXPECT_FALSE(IcuLocaleName(ZUTEXT("j")).IsJapanese());
    EXPECT_FALSE(IcuLocaleName(ZUTEXT("")).IsJapanese());
}

}  // namespace
}  // namespace icu_locale_name_internal_test
