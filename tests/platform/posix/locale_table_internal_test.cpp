#include <Utility/platform/host.h>
#include <Utility/platform/posix/locale_identifiers.h>
#include <Utility/platform/posix/locale_table.h>
#include <Utility/platform/threads.h>
#include <gtest/gtest.h>
#include <support/failing_heap.h>
#include <support/thread_locale.h>

#include <cstdlib>
#include <set>
#include <thread>
#include <vector>

namespace locale_table_internal_test {
namespace {

using namespace Torvo;

std::u16string ValueOf(const platform::LocaleTable& table, uint32 type) {
    const auto value = table.Find(type);
    return value.text != nullptr ? value.text : u"(none)";
}

// ---- Names and numbers

TEST(LocaleIdentifierTable, IsSortedWithoutDoubles) {
    std::set<std::string> names;
    uint32 last = 0;
    for (const platform::LocaleIdentifier& row : platform::LocaleIdentifiers()) {
        EXPECT_GT(row.lcid, last);
        last = row.lcid;
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        EXPECT_EQ(platform::FindLocaleIdentifier(row.lcid), &row);
        EXPECT_EQ(platform::FindLocaleIdentifier(row.name), &row);
    }
}

TEST(LocaleIdentifierTable, NeutralRowsLeadToSpecificOnes) {
    std::set<std::string> unnumbered;
    for (const platform::LocaleIdentifier& row : platform::LocaleIdentifiers()) {
        if (!row.IsNeutral()) continue;
        const platform::LocaleIdentifier* const specific = platform::FindLocaleIdentifier(row.specific);
        if (specific == nullptr) {
            unnumbered.insert(row.specific);
        } else {
            EXPECT_FALSE(specific->IsNeutral()) << row.name;
        }
    }
    EXPECT_EQ(unnumbered, (std::set<std::string>{"gsw-CH", "ks-Arab-IN"}));
}

TEST(LocaleIdentifierTable, NamesMatchInEitherCaseWithEitherSeparator) {
    EXPECT_EQ(platform::FindLocaleIdentifier("DE_de")->lcid, 0x407u);
    EXPECT_EQ(platform::FindLocaleIdentifier("SR-latn_rs")->lcid, 0x241Au);
    EXPECT_EQ(platform::FindLocaleIdentifier("de-D"), nullptr);
    EXPECT_EQ(platform::FindLocaleIdentifier("de-DEE"), nullptr);
}

TEST(LocaleIdentifierTable, CodePagesComeFromTheNearestLanguage) {
    EXPECT_STREQ(platform::FindNearestLocaleIdentifier("sr-Latn-XK")->name, "sr-Latn");
    EXPECT_STREQ(platform::FindNearestLocaleIdentifier("de-BE")->name, "de");
    EXPECT_EQ(platform::FindNearestLocaleIdentifier("xx-YY"), nullptr);
}

// ---- The environment

TEST(LocaleOfTheEnvironment, IsReadInItsUsualForms) {
    const struct {
        const char* value;
        const char* name;
    } cases[] = {{"C", "en-US"},
                 {"POSIX", "en-US"},
                 {"C.UTF-8", "en-US"},
                 {"", "en-US"},
                 {"en_US.UTF-8", "en-US"},
                 {"de_DE", "de-DE"},
                 {"de_DE@euro", "de-DE"},
                 {"de_DE.ISO-8859-15@euro", "de-DE"},
                 {"de", "de-DE"},
                 {"de_BE.UTF-8", "de-BE"},
                 {"no_NO", "nb-NO"},
                 {"nb_NO.UTF-8", "nb-NO"},
                 {"zh_TW.UTF-8", "zh-TW"},
                 {"zh_CN.GB18030", "zh-CN"},
                 {"sr_RS", "sr-Cyrl-RS"},
                 {"sr_RS@latin", "sr-Latn-RS"},
                 {"uz_UZ@cyrillic", "uz-Cyrl-UZ"},
                 {"ca_ES@valencia", "ca-ES-valencia"},
                 {"pt_BR.UTF-8", "pt-BR"},
                 {"de_ZZ.UTF-8", "de-DE"},
                 {"xx_YY.UTF-8", "en-US"},
                 {"_DE", "en-US"},
                 {"@", "en-US"},
                 {"klingon", "en-US"}};
    for (const auto& [value, name] : cases) EXPECT_EQ(platform::LocaleNameOfEnvironment(value), name) << value;
}

// ---- Tables

TEST(LocaleTables, AreSharedByThreadsAndByNeutralLocales) {
    const platform::LocaleTable* const german = platform::FindLocaleTable(0x407);
    ASSERT_NE(german, nullptr);
    EXPECT_EQ(platform::FindLocaleTable(0x407), german);
    EXPECT_EQ(platform::FindLocaleTable(0x007), german);
    EXPECT_NE(platform::FindLocaleTable(0xC07), german);
    const platform::LocaleTable* others = nullptr;
    std::thread([&others] { others = platform::FindLocaleTable(0x407); }).join();
    EXPECT_EQ(others, german);
}

TEST(LocaleTables, ManyThreadsAskingAtOnceGetTheSameTables) {
    constexpr int ThreadCount = 8;
    std::vector<std::vector<const platform::LocaleTable*>> seen(ThreadCount);
    std::vector<std::thread> threads;
    for (auto& tables : seen) {
        threads.emplace_back([&tables] {
            for (uint32 locale = 0x441; locale < 0x458; ++locale) tables.push_back(platform::FindLocaleTable(locale));
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (const auto& tables : seen) EXPECT_EQ(tables, seen[0]);
}

TEST(LocaleTables, EveryIdentifierHasACompleteTable) {
    for (const platform::LocaleIdentifier& row : platform::LocaleIdentifiers()) {
        const platform::LocaleTable* const table = platform::FindLocaleTable(row.lcid);
        ASSERT_NE(table, nullptr) << row.name;
        for (const uint32 type :
             {LOCALE_SDECIMAL, LOCALE_STHOUSAND, LOCALE_SGROUPING, LOCALE_SCURRENCY, LOCALE_SMONGROUPING, LOCALE_SDATE,
              LOCALE_SSHORTDATE, LOCALE_SLONGDATE, LOCALE_STIME, LOCALE_STIMEFORMAT, LOCALE_S1159, LOCALE_S2359,
              LOCALE_SDAYNAME1, LOCALE_SABBREVDAYNAME1 + 6, LOCALE_SMONTHNAME1 + 11, LOCALE_SABBREVMONTHNAME1 + 11}) {
            EXPECT_GT(table->Find(type).units, 1u) << row.name << ' ' << type;
        }
        EXPECT_EQ(table->ansiCodePage, row.ansiCodePage) << row.name;
    }
}

TEST(LocaleTables, UnknownIdentifierHasNone) {
    for (const uint32 locale : {0x1234u, 0xFFFFu, 0x10409u, 0xFFFFFFFFu})
        EXPECT_EQ(platform::FindLocaleTable(locale), nullptr);
    EXPECT_NE(platform::FindLocaleTable(0x407), nullptr) << "and leaves the way to others open";
}

TEST(LocaleTables, LanguageWithoutDataSpeaksTheMainOneOfItsTerritory) {
    EXPECT_EQ(ValueOf(platform::BuildLocaleTable("co-FR"), LOCALE_SMONTHNAME1), u"janvier");
    EXPECT_EQ(ValueOf(platform::BuildLocaleTable("moh-CA"), LOCALE_SMONTHNAME1), u"January");
    EXPECT_EQ(ValueOf(platform::BuildLocaleTable("smj-SE"), LOCALE_SCURRENCY), u"kr");
}

TEST(LocaleTables, InvariantLocaleHasItsDocumentedForms) {
    const platform::LocaleTable table = platform::BuildLocaleTable("");
    EXPECT_EQ(ValueOf(table, LOCALE_SSHORTDATE), u"MM/dd/yyyy");
    EXPECT_EQ(ValueOf(table, LOCALE_SLONGDATE), u"dddd, dd MMMM yyyy");
    EXPECT_EQ(ValueOf(table, LOCALE_STIMEFORMAT), u"HH:mm:ss");
    EXPECT_EQ(ValueOf(table, LOCALE_SCURRENCY), u"\u00A4");
    EXPECT_EQ(ValueOf(table, LOCALE_SMONTHNAME1), u"January");
}

TEST(LocaleTables, LocaleWithoutANumberIsReachedAsTheDefaultOnly) {
    const platform::LocaleTable table = platform::BuildLocaleTable("de-BE");
    EXPECT_EQ(table.ansiCodePage, 1252u);
    EXPECT_EQ(ValueOf(table, LOCALE_SMONTHNAME1), u"Januar");
    EXPECT_EQ(platform::FindLocaleTable(0x1000), platform::FindLocaleTable(0));
    EXPECT_EQ(platform::FindLocaleTable(0xC00), platform::FindLocaleTable(0));
}

TEST(LocaleTables, UnsetTypesAreAbsent) {
    platform::LocaleTable table;
    EXPECT_EQ(table.Find(LOCALE_SDECIMAL).text, nullptr);
    table.Set(LOCALE_SDECIMAL, u".");
    EXPECT_EQ(ValueOf(table, LOCALE_SDECIMAL), u".");
    table.Set(LOCALE_SDECIMAL, u",");
    EXPECT_EQ(ValueOf(table, LOCALE_SDECIMAL), u",");
    for (const uint32 type : {0u, 0x80u, 0xFFFu, 0x1080u, 0x10000u, 0x0E000000u, 0xFFFFFFFFu}) {
        EXPECT_EQ(table.Find(type).text, nullptr) << type;
    }
}

// ---- The thread's code pages

class ThreadCodePages : public testing::Test {
    const test::ThreadLocale former;
};

TEST_F(ThreadCodePages, FollowTheThreadsLocale) {
    const struct {
        uint32 locale, ansi, oem;
    } cases[] = {{0x409, 1252, 437}, {0x407, 1252, 850}, {0x419, 1251, 866}, {0x411, 932, 932},
                 {0x804, 936, 936},  {0x41E, 874, 874},  {0x42A, 1258, 1258}};
    for (const auto& [locale, ansi, oem] : cases) {
        platform::SetThreadLocale(locale);
        EXPECT_EQ(platform::ThreadAnsiCodePage(), ansi);
        EXPECT_EQ(platform::ThreadOemCodePage(), oem);
    }
}

TEST_F(ThreadCodePages, AreRealOnesForALanguageInUnicodeOnly) {
    platform::SetThreadLocale(0x439);
    EXPECT_GE(platform::ThreadAnsiCodePage(), 874u);
    EXPECT_GE(platform::ThreadOemCodePage(), 437u);
}

// ---- While memory is short

// In a process that has not asked for the user's default yet: 0 when the first question, refused its memory, answers
// the usual locale, and the next one that of the environment. 1 when something asked before, 2 for a wrong answer.
int FirstQuestionWithoutMemory(uint32 (*ask)(), uint32 usual, uint32 real) {
    setenv("LC_ALL", "de_DE.UTF-8", 1);
    uint32 answer = 0;
    bool refused = false;
    {
        const test::FailingHeap heap(1);
        answer = ask();
        refused = heap.Refused();
    }
    if (!refused) return 1;
    return answer == usual && ask() == real ? 0 : 2;
}

// The length of the name, and its first letter in the upper half.
uint32 ShapeOfDefaultName() {
    wchar16 name[85] = {};
    const int units = platform::LCIDToLocaleName(0x400, name, 85, 0);
    return static_cast<uint32>(name[0]) << 16 | static_cast<uint32>(units);
}

TEST(UserDefaultLocaleDeathTest, IsAmericanWhileMemoryIsShort) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(std::_Exit(FirstQuestionWithoutMemory(platform::GetThreadLocale, 0x0409, 0x0407)),
                testing::ExitedWithCode(0), "");
    constexpr uint32 English = 'e' << 16 | 6;
    constexpr uint32 German = 'd' << 16 | 6;
    EXPECT_EXIT(std::_Exit(FirstQuestionWithoutMemory(ShapeOfDefaultName, English, German)), testing::ExitedWithCode(0),
                "");
}

TEST(LocaleNamesWithoutMemory, AreNotFound) {
    constexpr wchar16 name[] = ZUTEXT("de-Latn-AT-x-a-longer-name");
    const uint32 found = platform::LocaleNameToLCID(name, 0);
    const int64 blocks = test::LiveBlocks();
    const uint64 requests = test::RefuseEachRequest([&](uint64 nth, test::FailingHeap::Mode mode) {
        uint32 locale = 0;
        bool refused = false;
        platform::SetLastError(0);
        {
            const test::FailingHeap heap(nth, mode);
            locale = platform::LocaleNameToLCID(name, 0);
            refused = heap.Refused();
        }
        EXPECT_EQ(locale, refused ? 0u : found);
        if (refused) {
            EXPECT_EQ(platform::GetLastError(), ERROR_NOT_ENOUGH_MEMORY);
        }
        return refused;
    });
    EXPECT_GE(requests, 1u);
    EXPECT_EQ(test::LiveBlocks(), blocks);
}

// ---- Null where the calls of the other system would not survive it

TEST(LocaleCallsWithNull, AreRefused) {
    EXPECT_EQ(platform::GetLocaleInfoW(0x409, LOCALE_SDECIMAL, nullptr, 20), 0);
    EXPECT_EQ(platform::GetLastError(), ERROR_INVALID_PARAMETER);
    platform::SetLastError(0);
    EXPECT_EQ(platform::LCIDToLocaleName(0x409, nullptr, 20, 0), 0);
    EXPECT_EQ(platform::GetLastError(), ERROR_INVALID_PARAMETER);
    platform::SetLastError(0);
    EXPECT_EQ(platform::GetSystemDefaultLocaleName(nullptr, 20), 0);
    EXPECT_EQ(platform::GetLastError(), ERROR_INVALID_PARAMETER);
}

}  // namespace
}  // namespace locale_table_internal_test
