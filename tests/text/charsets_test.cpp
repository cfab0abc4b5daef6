#include <Utility/charsets.h>
#include <Utility/instance.h>
#include <Utility/platform/host.h>
#include <gtest/gtest.h>
#include <support/system_charset.h>
#include <support/thread_locale.h>
#include <support/vtable_slot.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace charsets_test {
namespace {

using namespace Torvo;
using test::SystemCharset;

ZUCHARSET Set(int number) {
    return static_cast<ZUCHARSET>(number);
}

std::string Narrow(const wchar16* text) {
    std::string narrow;
    for (; *text != 0; ++text) narrow += static_cast<char>(*text);
    return narrow;
}

wstring16 Wide(const std::string& text) {
    return wstring16(text.begin(), text.end());
}

constexpr const wchar16* crlf = ZUTEXT("\r\n");
constexpr const wchar16* lf = ZUTEXT("\n");
constexpr const wchar16* cr = ZUTEXT("\r");

struct Row {
    int number;
    const char* name;
    bool multiByte;
    const wchar16* lineEnd;
    int codePage;
};

const Row rows[] = {
    {0, "Neutral", false, crlf, 0},
    {1, "ISO8859_1", false, lf, 28591},
    {2, "ISO8859_2", false, lf, 28592},
    {3, "ISO8859_3", false, lf, 28593},
    {4, "ISO8859_4", false, lf, 28594},
    {5, "ISO8859_5", false, lf, 28595},
    {6, "ISO8859_6", false, lf, 28596},
    {7, "ISO8859_7", false, lf, 28597},
    {8, "ISO8859_8", false, lf, 28598},
    {9, "ISO8859_9", false, lf, 28599},
    {10, "WindowsLatin1", false, crlf, 1252},
    {11, "WindowsLatin2", false, crlf, 1250},
    {12, "WindowsArabic", false, crlf, 1256},
    {13, "WindowsCyrillic", false, crlf, 1251},
    {14, "WindowsGreek", false, crlf, 1253},
    {15, "WindowsHebrew", false, crlf, 1255},
    {16, "WindowsTurkish", false, crlf, 1254},
    {17, "WindowsTradChinese", true, crlf, 950},
    {18, "WindowsSimpChinese", true, crlf, 936},
    {19, "WindowsJapanese", true, crlf, 932},
    {20, "WindowsKorean", true, crlf, 949},
    {21, "MacRoman", false, cr, -1},
    {22, "MacArabic", false, cr, -1},
    {23, "MacGreek", false, cr, -1},
    {24, "MacHebrew", false, cr, -1},
    {25, "MacCentralEuropean", false, cr, -1},
    {26, "MacCroatian", false, cr, -1},
    {27, "MacCyrillic", false, cr, -1},
    {28, "MacIcelandic", false, cr, -1},
    {29, "MacThai", false, cr, -1},
    {30, "MacTurkish", false, cr, -1},
    {31, "MacTradChinese", true, cr, -1},
    {32, "MacJapanese", true, cr, -1},
    {33, "MacKorean", true, cr, -1},
    {34, "CodePage437", false, crlf, 1},
    {35, "CodePage850", false, crlf, 850},
    {36, "CodePage852", false, crlf, 852},
    {37, "CodePage857", false, crlf, 857},
    {38, "CodePage860", false, crlf, 860},
    {39, "CodePage861", false, crlf, 861},
    {40, "CodePage863", false, crlf, 863},
    {41, "CodePage865", false, crlf, 865},
    {42, "CodePage855", false, crlf, 855},
    {43, "CodePage864", false, crlf, 864},
    {44, "CodePage869", false, crlf, 869},
    {45, "LICS", false, crlf, -1},
    {46, "LMBCS", true, crlf, -1},
    {47, "LMBCS1", false, crlf, -1},
    {48, "LMBCS2", false, crlf, -1},
    {49, "MacSimpChinese", true, cr, -1},
    {50, "?PackedEUCTradChinese", true, lf, -1},
    {51, "?PackedEUCSimpChinese", true, lf, -1},
    {52, "PackedEUCJapanese", true, lf, -1},
    {53, "?PackedEUCKorean", true, lf, -1},
    {54, "WindowsThai", false, crlf, 874},
    {55, "WindowsBalticRim", false, crlf, 1257},
    {56, "WindowsVietnamese", false, crlf, 1258},
    {57, "UTF-8", false, crlf, 65001},
    {58, "UTF-16", false, crlf, 1200},
};

TEST(Charsets, EverySetHasItsNumberNameFlagLineEndAndCodePage) {
    ASSERT_EQ(std::size(rows), 59u);
    for (const Row& row : rows) {
        const ZUCHARSET cs = Set(row.number);
        EXPECT_EQ(Narrow(CS2Str(cs)), row.name);
        EXPECT_EQ(Narrow(CharsetName(cs)), row.name);
        EXPECT_EQ(CharsetDBCS(cs), row.multiByte) << row.name;
        EXPECT_EQ(IS_DBCS_CHARSET(cs), row.multiByte) << row.name;
        EXPECT_EQ(wstring16(CharsetSlashN(cs)), row.lineEnd) << row.name;
        EXPECT_EQ(GetWinCodePage(cs), row.codePage) << row.name;
        EXPECT_EQ(CharsetUnknownCode(cs), 0x5F) << row.name;
        EXPECT_EQ(IsUnicodeCharset(cs), row.number == 57 || row.number == 58) << row.name;
    }
}

TEST(Charsets, EnumeratorsHaveTheFixedNumbers) {
    EXPECT_EQ(csUnknown, -1);
    EXPECT_EQ(csNeutral, 0);
    EXPECT_EQ(csWindowsLatin1, 10);
    EXPECT_EQ(csMacRoman, 21);
    EXPECT_EQ(csCodePage437, 34);
    EXPECT_EQ(csLICS, 45);
    EXPECT_EQ(csPackedEUCKorean, 53);
    EXPECT_EQ(csUTF16, 58);
    EXPECT_EQ(sizeof(ZUCHARSET), 4u);
}

TEST(Charsets, NamesLeadBackToTheirSets) {
    for (const Row& row : rows) EXPECT_EQ(Str2CS(Wide(row.name).c_str()), row.number) << row.name;
}

TEST(Charsets, NamesAreFoundInAnyCase) {
    for (const Row& row : rows) {
        std::string name = row.name;
        std::transform(name.begin(), name.end(), name.begin(),
                       [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
        EXPECT_EQ(Str2CS(Wide(name).c_str()), row.number) << name;
    }
}

TEST(Charsets, OldNamesAreFoundToo) {
    EXPECT_EQ(Str2CS(ZUTEXT("mac")), csMacRoman);
    EXPECT_EQ(Str2CS(ZUTEXT("MacRoman")), csMacRoman);
    EXPECT_EQ(Str2CS(ZUTEXT("xascii")), csCodePage437);
    EXPECT_EQ(Str2CS(ZUTEXT("Lics")), csLICS);
}

TEST(Charsets, AnsiIsTheSystemCharsetOfTheMoment) {
    EXPECT_EQ(Str2CS(ZUTEXT("ANSI")), system_charset());
    const SystemCharset japanese(csWindowsJapanese);
    EXPECT_EQ(Str2CS(ZUTEXT("ansi")), 19);
}

TEST(Charsets, TheQuestionMarkBelongsToTheName) {
    EXPECT_EQ(Str2CS(ZUTEXT("?PackedEUCKorean")), 53);
    EXPECT_EQ(Str2CS(ZUTEXT("PackedEUCKorean")), -1);
    EXPECT_EQ(Str2CS(ZUTEXT("PackedEUCJapanese")), 52);
    EXPECT_EQ(Str2CS(ZUTEXT("?PackedEUCJapanese")), -1);
}

TEST(Charsets, UnknownNamesGiveNoSet) {
    for (const wchar16* name : {ZUTEXT(""), ZUTEXT("ANSI "), ZUTEXT("UTF8"), ZUTEXT("UTF-"), ZUTEXT("UTF-88"),
                                ZUTEXT("ISO8859_10"), ZUTEXT("XASCI")}) {
        EXPECT_EQ(Str2CS(name), csUnknown) << Narrow(name);
    }
    EXPECT_EQ(Str2CS(nullptr), csUnknown);
}

TEST(Charsets, OldNamesOfSets) {
    for (int number = -3; number < 70; ++number) {
        const std::string expected = number == 21 ? "MAC" : number == 34 ? "XASCII" : number == 45 ? "LICS" : "ANSI";
        EXPECT_EQ(Narrow(CS2OldStr(Set(number))), expected) << number;
    }
    EXPECT_EQ(Narrow(CharsetANSI()), "ANSI");
    EXPECT_EQ(Narrow(CharsetMAC()), "MAC");
    EXPECT_EQ(Narrow(CharsetXASCII()), "XASCII");
    EXPECT_EQ(Narrow(CharsetLICS()), "LICS");
}

TEST(Charsets, ValuesThatAreNoSet) {
    for (const int number : {-2147483647 - 1, -100, -1, 59, 60, 2147483647}) {
        EXPECT_EQ(Narrow(CS2Str(Set(number))), "") << number;
        EXPECT_EQ(GetWinCodePage(Set(number)), -1) << number;
        EXPECT_FALSE(IsUnicodeCharset(Set(number))) << number;
        EXPECT_FALSE(IsStrConvertNecessary(Set(number), csWindowsLatin1)) << number;
        EXPECT_FALSE(IsStrConvertNecessary(csWindowsLatin1, Set(number))) << number;
    }
}

// Not promised, but harmless.
TEST(Charsets, TrustedQueriesSurviveAValueThatIsNoSet) {
    for (const int number : {-2147483647 - 1, -1, 59, 2147483647}) {
        EXPECT_NE(CharsetName(Set(number)), nullptr);
        EXPECT_NE(CharsetSlashN(Set(number)), nullptr);
        EXPECT_EQ(CharsetUnknownCode(Set(number)), 0x5F);
        EXPECT_FALSE(CharsetDBCS(Set(number)));
        EXPECT_FALSE(IS_DBCS_CHARSET(Set(number)));
    }
}

TEST(Charsets, ConversionIsNecessaryBetweenTwoDifferentRealSets) {
    for (int a = -1; a <= 59; ++a) {
        for (int b = -1; b <= 59; ++b) {
            EXPECT_EQ(IsStrConvertNecessary(Set(a), Set(b)), a != b && a >= 1 && a <= 58 && b >= 1 && b <= 58)
                << a << " " << b;
        }
    }
}

class SystemCharsetOfLocale : public testing::Test {
protected:
    // The system charset of a service created under a locale.
    static int Of(uint32 locale) {
        if (!platform::SetThreadLocale(locale)) return -2;
        const std::unique_ptr<cCharsetInfo> created(cCharsetInfo::Create());
        return created->system_charset();
    }

private:
    const test::ThreadLocale before;
};

TEST_F(SystemCharsetOfLocale, FollowsTheAnsiCodePage) {
    EXPECT_EQ(Of(0x041E), csWindowsThai);
    EXPECT_EQ(Of(0x0411), csWindowsJapanese);
    EXPECT_EQ(Of(0x0804), csWindowsSimpChinese);
    EXPECT_EQ(Of(0x0412), csWindowsKorean);
    EXPECT_EQ(Of(0x0404), csWindowsTradChinese);
    EXPECT_EQ(Of(0x0415), csWindowsLatin2);
    EXPECT_EQ(Of(0x0419), csWindowsCyrillic);
    EXPECT_EQ(Of(0x0409), csWindowsLatin1);
    EXPECT_EQ(Of(0x0408), csWindowsGreek);
    EXPECT_EQ(Of(0x041F), csWindowsTurkish);
    EXPECT_EQ(Of(0x040D), csWindowsHebrew);
    EXPECT_EQ(Of(0x0401), csWindowsArabic);
    EXPECT_EQ(Of(0x0427), csWindowsBalticRim);
    EXPECT_EQ(Of(0x042A), csWindowsVietnamese);
}

TEST_F(SystemCharsetOfLocale, IsNeutralWithoutAnAnsiCodePage) {
    EXPECT_EQ(Of(0x0439), csNeutral);  // Hindi
}

TEST_F(SystemCharsetOfLocale, StaysWhenTheLocaleChanges) {
    ASSERT_TRUE(platform::SetThreadLocale(0x0411));
    const std::unique_ptr<cCharsetInfo> created(cCharsetInfo::Create());
    ASSERT_TRUE(platform::SetThreadLocale(0x0409));
    EXPECT_EQ(created->system_charset(), csWindowsJapanese);
}

TEST_F(SystemCharsetOfLocale, IsFoundWhenAThreadsServicesAreCreated) {
    ZUCHARSET found = csUnknown;
    ZUCHARSET byName = csUnknown;
    std::thread([&] {
        platform::SetThreadLocale(0x0411);
        found = system_charset();
        platform::SetThreadLocale(0x0409);
        byName = Str2CS(ZUTEXT("ansi"));
        InstanceData::Destroy(false, false);
    }).join();
    EXPECT_EQ(found, csWindowsJapanese);
    EXPECT_EQ(byName, csWindowsJapanese);
}

TEST(CharsetService, OperationsStandInTheirPublishedOrder) {
    EXPECT_EQ(test::SlotOf(&cCharsetInfo::system_charset), 2u);
}

TEST(CharsetService, LiesUnderItsKey) {
    EXPECT_EQ(GetInstanceData()->GetSlot(5), cCharsetInfo::Instance());
    EXPECT_NE(cCharsetInfo::Instance(), nullptr);
}

TEST(CharsetService, CanBeReplaced) {
    cCharsetInfo* const own = cCharsetInfo::Instance();
    {
        const SystemCharset replaced(csMacRoman);
        EXPECT_EQ(system_charset(), csMacRoman);
        EXPECT_NE(cCharsetInfo::Instance(), own);
    }
    EXPECT_EQ(cCharsetInfo::Instance(), own);
    EXPECT_TRUE(cCharsetInfo::Instance(own));
}

TEST(CharsetService, CreateStoresNothing) {
    cCharsetInfo* const own = cCharsetInfo::Instance();
    const std::unique_ptr<cCharsetInfo> created(cCharsetInfo::Create());
    ASSERT_NE(created, nullptr);
    EXPECT_NE(created.get(), own);
    EXPECT_EQ(cCharsetInfo::Instance(), own);
}

TEST(StringByteLength, NothingTakesNoBytes) {
    EXPECT_EQ(StringByteLength(nullptr, csWindowsLatin1), 0u);
    EXPECT_EQ(StringByteLength(nullptr, csUTF16), 0u);
    for (const ZUCHARSET cs : {csWindowsLatin1, csWindowsJapanese, csUTF8, csUTF16, csMacRoman, csNeutral}) {
        EXPECT_EQ(StringByteLength(ZUTEXT(""), cs), 0u) << cs;
    }
}

TEST(StringByteLength, Utf16TakesTwoBytesAUnit) {
    EXPECT_EQ(StringByteLength(ZUTEXT("abc"), csUTF16), 6u);
    const wchar16 pair[] = {0xD83D, 0xDE00, 0};
    EXPECT_EQ(StringByteLength(pair, csUTF16), 4u);
}

TEST(StringByteLength, CountsBytesOfTheCodePageWithoutATerminator) {
    const wchar16 text[] = {'a', 0x00E9, 0x3042, 0};
    EXPECT_EQ(StringByteLength(text, csUTF8), 6u);
    EXPECT_EQ(StringByteLength(text, csWindowsLatin1), 3u);  // the kana as one default character
    const wchar16 kana[] = {'a', 0x3042, 0x3044, 0};
    EXPECT_EQ(StringByteLength(kana, csWindowsJapanese), 5u);
}

TEST(StringByteLength, ALetterAndItsMarkCountAsTheComposedLetter) {
    const wchar16 text[] = {'e', 0x0301, 0};
    EXPECT_EQ(StringByteLength(text, csWindowsLatin1), 1u);
    EXPECT_EQ(StringByteLength(text, csUTF8), 3u);
    EXPECT_EQ(StringByteLength(text, csUTF16), 4u);
    const SystemCharset latin(csWindowsLatin1);
    EXPECT_EQ(StringByteLength(text, csMacRoman), 1u);
}

TEST(StringByteLength, SetsWithoutACodePageAreMeasuredInTheSystemCharset) {
    const wchar16 kana[] = {0x3042, 0x3044, 'a', 0};
    for (const ZUCHARSET cs : {csMacRoman, csLICS, csLMBCS, csPackedEUCJapanese, Set(59), csUnknown}) {
        {
            const SystemCharset japanese(csWindowsJapanese);
            EXPECT_EQ(StringByteLength(kana, cs), 5u) << cs;
        }
        const SystemCharset latin(csWindowsLatin1);
        EXPECT_EQ(StringByteLength(kana, cs), 3u) << cs;
    }
}

TEST(StringByteLength, SymbolicPagesAreMeasuredInTheSystemCharsetToo) {
    const SystemCharset japanese(csWindowsJapanese);
    const wchar16 kana[] = {0x3042, 0};
    EXPECT_EQ(StringByteLength(kana, csNeutral), 2u);
    EXPECT_EQ(StringByteLength(kana, csCodePage437), 2u);
}

TEST(LCIDToName, GivesTheNameWithItsHyphen) {
    wchar16 name[85];
    std::fill(std::begin(name), std::end(name), wchar16{0x7777});
    ASSERT_TRUE(LCIDToName(0x0409, name, std::size(name)));
    EXPECT_EQ(wstring16(name), ZUTEXT("en-US"));
    EXPECT_TRUE(std::all_of(name + 5, std::end(name), [](wchar16 unit) { return unit == 0; }));
}

TEST(LCIDToName, KnowsLanguagesWithoutACountry) {
    wchar16 name[85];
    ASSERT_TRUE(LCIDToName(0x0009, name, std::size(name)));
    EXPECT_EQ(wstring16(name), ZUTEXT("en"));
}

TEST(LCIDToName, CutsTheNameToTheRoom) {
    wchar16 name[6];
    std::fill(std::begin(name), std::end(name), wchar16{0x7777});
    ASSERT_TRUE(LCIDToName(0x0409, name, 4));
    EXPECT_EQ(wstring16(name), ZUTEXT("en-"));
    EXPECT_EQ(name[4], 0x7777);
    name[0] = 0x7777;
    EXPECT_TRUE(LCIDToName(0x0409, name, 0));
    EXPECT_EQ(name[0], 0x7777);
}

TEST(LCIDToName, RefusesWithoutTouchingTheRoom) {
    wchar16 name[85];
    std::fill(std::begin(name), std::end(name), wchar16{0x7777});
    const auto isUntouched = [&] {
        return std::all_of(std::begin(name), std::end(name), [](wchar16 unit) { return unit == 0x7777; });
    };
    EXPECT_FALSE(LCIDToName(0, name, std::size(name)));
    EXPECT_TRUE(isUntouched());
    EXPECT_FALSE(LCIDToName(0x0FFF, name, std::size(name)));
    EXPECT_TRUE(isUntouched());
    EXPECT_FALSE(LCIDToName(0x0409, nullptr, 85));
}

}  // namespace
}  // namespace charsets_test
