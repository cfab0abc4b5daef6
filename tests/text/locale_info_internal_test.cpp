#include <Utility/platform/platform.h>
#include <Utility/text/locale_info.h>
#include <Utility/text/locale_value.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "support/failing_heap.h"

namespace locale_info_internal_test {
namespace {

using namespace Torvo;
using test::FailingHeap;

// A service whose reads are answered from a list, and written down. What is not in the list fails.
class ScriptedLocale : public cLocaleInfoImpl {
public:
    uint32 GetLocaleIdentifier() override {
        log.push_back("identifier");
        return cLocaleInfoImpl::GetLocaleIdentifier();
    }
    bool GetLocaleInt(uint32 lctype, uint32* value) override {
        log.push_back("int " + std::to_string(lctype));
        const auto found = numbers.find(lctype);
        if (found == numbers.end()) return false;
        *value = found->second;
        return true;
    }
    bool GetLocaleString(uint32 lctype, wchar16* buffer, uint64 size) override {
        log.push_back("string " + std::to_string(lctype) + " size " + std::to_string(size));
        const auto found = texts.find(lctype);
        if (found == texts.end() || found->second.size() + 1 > size) return false;
        found->second.copy(buffer, found->second.size());
        buffer[found->second.size()] = 0;
        return true;
    }

    wstring16 Decimal() {
        wchar16 unit;
        GetZULocaleNumInfo(true, &unit, nullptr, nullptr);
        return {unit};
    }
    wstring16 Thousand() {
        wchar16 unit;
        GetZULocaleNumInfo(true, nullptr, &unit, nullptr);
        return {unit};
    }
    int16 Group() {
        int16 group;
        GetZULocaleNumInfo(true, nullptr, nullptr, &group);
        return group;
    }
    int16 DateOrder() {
        int16 order;
        GetZULocaleDateInfo(true, &order, nullptr);
        return order;
    }
    wstring16 DateSeparator() {
        wchar16 unit;
        GetZULocaleDateInfo(true, nullptr, &unit);
        return {unit};
    }
    wstring16 TimeFormat() {
        wchar16 text[40];
        GetZULocaleTimeFormat(true, text, 40);
        return text;
    }

    struct Time {
        bool twelveHour;
        int16 markPosition;
        wstring16 am, pm, separator, separator2;
    };
    Time TimeInfo() {
        Time time;
        const wchar16* am;
        const wchar16* pm;
        const wchar16* separator;
        const wchar16* separator2;
        GetZULocaleTimeInfo(true, &time.twelveHour, &time.markPosition, &am, &pm, &separator, &separator2);
        time.am = am;
        time.pm = pm;
        time.separator = separator;
        time.separator2 = separator2;
        return time;
    }

    std::map<uint32, uint32> numbers;
    std::map<uint32, wstring16> texts;
    std::vector<std::string> log;
};

TEST(LocaleRefresh, ReadsEverythingInItsOrderThroughTheObjectsOwnOperations) {
    ScriptedLocale locale;
    EXPECT_TRUE(locale.ResetZULocaleInfo());
    const std::vector<std::string> expected = {"identifier",
                                               "int 17",
                                               "int 18",
                                               "int 16",
                                               "string 14 size 2",
                                               "string 15 size 2",
                                               "int 4112",
                                               "int 25",
                                               "int 24",
                                               "string 22 size 2",
                                               "string 23 size 2",
                                               "int 28",
                                               "int 27",
                                               "string 20 size 16",
                                               "string 29 size 2",
                                               "int 33",
                                               "string 4099 size 36",
                                               "string 40 size 20",
                                               "string 41 size 20",
                                               "string 30 size 4",
                                               "string 35 size 256",
                                               "string 4101 size 256"};
    EXPECT_EQ(locale.log, expected);
}

// A service that is of one locale, whatever the thread's is.
class JapaneseService : public cLocaleInfoImpl {
public:
    uint32 GetLocaleIdentifier() override { return 0x411; }
};

TEST(LocaleRefresh, ReadsTheLocaleThatTheObjectsOwnOperationAnswers) {
    JapaneseService locale;
    EXPECT_EQ(wstring16(locale.GetCurrencySymbol()), ZUTEXT("\uFFE5"));
    uint32 codePage = 0;
    EXPECT_TRUE(locale.GetLocaleInt(LOCALE_IDEFAULTANSICODEPAGE, &codePage));
    EXPECT_EQ(codePage, 932u);
}

// A refresh that would change nothing may be left out; one that would restore what callers have written over may not.
TEST(LocaleRefresh, RestoresWhatCallersHaveWrittenOver) {
    const std::unique_ptr<cLocaleInfo> locale(cLocaleInfo::Create());
    ASSERT_TRUE(locale->ResetZULocaleInfo());
    _numberfmtW& number = *locale->GetNumberFmtPtr();
    _currencyfmtW& currency = *locale->GetCurrencyFmtPtr();
    const wstring16 decimal = number.lpDecimalSep;
    const wstring16 thousand = number.lpThousandSep;
    const wstring16 moneyDecimal = currency.lpDecimalSep;
    const wstring16 moneyThousand = currency.lpThousandSep;
    const wstring16 symbol = currency.lpCurrencySymbol;
    const uint32 digits = number.NumDigits;
    const uint32 order = currency.PositiveOrder;

    number.lpDecimalSep[0] = number.lpThousandSep[0] = '#';
    locale->ResetZULocaleInfo();
    EXPECT_EQ(wstring16(number.lpDecimalSep), decimal);
    EXPECT_EQ(wstring16(number.lpThousandSep), thousand);
    currency.lpDecimalSep[0] = '#';
    locale->GetZULocaleDateInfo(true, nullptr, nullptr);
    EXPECT_EQ(wstring16(currency.lpDecimalSep), moneyDecimal);
    currency.lpThousandSep[0] = '#';
    locale->GetZULocaleTimeInfo(true, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(wstring16(currency.lpThousandSep), moneyThousand);
    currency.lpCurrencySymbol[0] = '#';
    EXPECT_EQ(wstring16(locale->GetCurrencySymbol()), symbol);
    number.NumDigits = 77;
    currency.PositiveOrder = 77;
    locale->ResetZULocaleInfo();
    EXPECT_EQ(number.NumDigits, digits);
    EXPECT_EQ(currency.PositiveOrder, order);
}

TEST(LocaleRefresh, EveryQueryWithTheLocaleRefreshesOnce) {
    ScriptedLocale locale;
    locale.ResetZULocaleInfo();
    const std::size_t reads = locale.log.size();
    _numberfmtW numberFormat;
    _currencyfmtW currencyFormat;
    wchar16 text[4];
    const auto refreshesDuring = [&](auto query) {
        locale.log.clear();
        query();
        return locale.log.size() == reads;
    };
    EXPECT_TRUE(refreshesDuring([&] { locale.GetZULocaleNumInfo(true, nullptr, nullptr, nullptr); }));
    EXPECT_TRUE(refreshesDuring([&] { locale.GetCurrencySymbol(); }));
    EXPECT_TRUE(refreshesDuring([&] { locale.GetNumberFmt(&numberFormat); }));
    EXPECT_TRUE(refreshesDuring([&] { locale.GetCurrentFmt(&currencyFormat); }));
    EXPECT_TRUE(refreshesDuring([&] { locale.GetNumberFmtPtr(); }));
    EXPECT_TRUE(refreshesDuring([&] { locale.GetCurrencyFmtPtr(); }));
    EXPECT_TRUE(refreshesDuring([&] { locale.GetZULocaleDateInfo(true, nullptr, nullptr); }));
    EXPECT_TRUE(refreshesDuring([&] { locale.GetZULocaleTimeFormat(true, text, 4); }));
    EXPECT_TRUE(refreshesDuring(
        [&] { locale.GetZULocaleTimeInfo(true, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr); }));

    locale.log.clear();
    locale.GetZULocaleNumInfo(false, text, text, nullptr);
    locale.GetZULocaleDateInfo(false, nullptr, text);
    locale.GetZULocaleTimeFormat(false, text, 4);
    locale.GetZULocaleTimeInfo(false, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    locale.SetDateFormatCallback(nullptr);
    locale.SetNumberFormatCallback(nullptr);
    EXPECT_TRUE(locale.log.empty()) << "the fixed forms ask nobody";
}

TEST(LocaleRefresh, WithoutAnyAnswerTheDefaultsStand) {
    ScriptedLocale locale;
    EXPECT_EQ(locale.Decimal(), ZUTEXT("."));
    EXPECT_EQ(locale.Thousand(), ZUTEXT(","));
    EXPECT_EQ(locale.Group(), 3);
    EXPECT_EQ(locale.DateOrder(), 0);
    EXPECT_EQ(locale.DateSeparator(), ZUTEXT("/"));
    EXPECT_EQ(locale.TimeFormat(), ZUTEXT("h:mm:ss tt"));
    const auto time = locale.TimeInfo();
    EXPECT_TRUE(time.twelveHour);
    EXPECT_EQ(time.markPosition, 0);
    EXPECT_EQ(time.am, ZUTEXT("AM"));
    EXPECT_EQ(time.pm, ZUTEXT("PM"));
    EXPECT_EQ(time.separator, ZUTEXT(":"));
    EXPECT_EQ(time.separator2, ZUTEXT(":"));

    const _numberfmtW& number = *locale.GetNumberFmtPtr();
    EXPECT_EQ(number.NumDigits, 2u);
    EXPECT_EQ(number.LeadingZero, 0u);
    EXPECT_EQ(number.Grouping, 3u);
    EXPECT_EQ(wstring16(number.lpDecimalSep), ZUTEXT("."));
    EXPECT_EQ(wstring16(number.lpThousandSep), ZUTEXT(","));
    EXPECT_EQ(number.NegativeOrder, 0u);
    const _currencyfmtW& currency = *locale.GetCurrencyFmtPtr();
    EXPECT_EQ(currency.NumDigits, 2u);
    EXPECT_EQ(currency.LeadingZero, 0u);
    EXPECT_EQ(currency.Grouping, 3u);
    EXPECT_EQ(wstring16(currency.lpDecimalSep), ZUTEXT("."));
    EXPECT_EQ(wstring16(currency.lpThousandSep), ZUTEXT(","));
    EXPECT_EQ(currency.NegativeOrder, 0u);
    EXPECT_EQ(currency.PositiveOrder, 0u);
    EXPECT_EQ(wstring16(currency.lpCurrencySymbol), ZUTEXT("$"));
}

TEST(LocaleRefresh, EachValueGoesToItsPlace) {
    ScriptedLocale locale;
    locale.numbers = {{17, 5}, {18, 1}, {16, 4}, {4112, 3}, {25, 6}, {24, 7}, {28, 8}, {27, 9}, {33, 2}};
    locale.texts = {{14, ZUTEXT("a")},     {15, ZUTEXT("b")},   {22, ZUTEXT("c")},   {23, ZUTEXT("d")},
                    {20, ZUTEXT("money")}, {29, ZUTEXT("e")},   {4099, ZUTEXT("H")}, {40, ZUTEXT("am")},
                    {41, ZUTEXT("pm")},    {30, ZUTEXT("sep")}, {35, ZUTEXT("1")},   {4101, ZUTEXT("1")}};
    const _numberfmtW& number = *locale.GetNumberFmtPtr();
    EXPECT_EQ(number.NumDigits, 5u);
    EXPECT_EQ(number.LeadingZero, 1u);
    EXPECT_EQ(number.Grouping, 4u);
    EXPECT_EQ(wstring16(number.lpDecimalSep), ZUTEXT("a"));
    EXPECT_EQ(wstring16(number.lpThousandSep), ZUTEXT("b"));
    EXPECT_EQ(number.NegativeOrder, 3u);
    const _currencyfmtW& currency = *locale.GetCurrencyFmtPtr();
    EXPECT_EQ(currency.NumDigits, 6u);
    EXPECT_EQ(currency.LeadingZero, 1u) << "the number format's";
    EXPECT_EQ(currency.Grouping, 7u);
    EXPECT_EQ(wstring16(currency.lpDecimalSep), ZUTEXT("c"));
    EXPECT_EQ(wstring16(currency.lpThousandSep), ZUTEXT("d"));
    EXPECT_EQ(currency.NegativeOrder, 8u);
    EXPECT_EQ(currency.PositiveOrder, 9u);
    EXPECT_EQ(wstring16(currency.lpCurrencySymbol), ZUTEXT("money"));
    EXPECT_EQ(locale.Decimal(), ZUTEXT("a"));
    EXPECT_EQ(locale.Thousand(), ZUTEXT("b"));
    EXPECT_EQ(locale.Group(), 4);
    EXPECT_EQ(locale.DateSeparator(), ZUTEXT("e"));
    EXPECT_EQ(locale.DateOrder(), 2);
    EXPECT_EQ(locale.TimeFormat(), ZUTEXT("H"));
    const auto time = locale.TimeInfo();
    EXPECT_FALSE(time.twelveHour);
    EXPECT_EQ(time.markPosition, 1);
    EXPECT_EQ(time.am, ZUTEXT("am"));
    EXPECT_EQ(time.pm, ZUTEXT("pm"));
    EXPECT_EQ(time.separator, ZUTEXT("sep"));
    EXPECT_EQ(time.separator2, ZUTEXT("sep"));
}

TEST(LocaleRefresh, EqualSeparatorsBecomePointAndCommaButTheStructureShowsThem) {
    ScriptedLocale locale;
    locale.texts = {{14, ZUTEXT(",")}, {15, ZUTEXT(",")}, {22, ZUTEXT(",")}, {23, ZUTEXT(",")}};
    EXPECT_EQ(locale.Decimal(), ZUTEXT("."));
    EXPECT_EQ(locale.Thousand(), ZUTEXT(","));
    const _numberfmtW& number = *locale.GetNumberFmtPtr();
    EXPECT_EQ(wstring16(number.lpDecimalSep), ZUTEXT(","));
    EXPECT_EQ(wstring16(number.lpThousandSep), ZUTEXT(","));
    EXPECT_EQ(wstring16(locale.GetCurrencyFmtPtr()->lpDecimalSep), ZUTEXT(","));
}

TEST(LocaleRefresh, SeparatorsThatAreEqualOnlyWithAnEarlierValueAreRepairedToo) {
    ScriptedLocale locale;
    locale.texts = {{14, ZUTEXT(",")}};
    EXPECT_EQ(locale.Decimal(), ZUTEXT(".")) << "a decimal comma beside the default thousand comma";
    EXPECT_EQ(wstring16(locale.GetNumberFmtPtr()->lpDecimalSep), ZUTEXT(","));
}

TEST(LocaleRefresh, EmptySeparatorsAreEqualToo) {
    ScriptedLocale locale;
    locale.texts = {{14, ZUTEXT("")}, {15, ZUTEXT("")}};
    EXPECT_EQ(locale.Decimal(), ZUTEXT("."));
    EXPECT_EQ(locale.Thousand(), ZUTEXT(","));
}

TEST(LocaleRefresh, GroupSizeIsTheLowHalfOfTheGrouping) {
    ScriptedLocale locale;
    locale.numbers = {{16, 0x12345}};
    EXPECT_EQ(locale.Group(), 0x2345);
    EXPECT_EQ(locale.GetNumberFmtPtr()->Grouping, 0x12345u);
    locale.numbers = {{16, 0x1FFFF}};
    EXPECT_EQ(locale.Group(), -1);
    locale.numbers.clear();
    EXPECT_EQ(locale.Group(), -1) << "kept when the read fails";
}

TEST(LocaleRefresh, FailedReadsKeepMostValues) {
    ScriptedLocale locale;
    locale.numbers = {{17, 5}, {18, 1}, {33, 2}};
    locale.texts = {{14, ZUTEXT("a")},     {15, ZUTEXT("b")}, {29, ZUTEXT("-")},
                    {20, ZUTEXT("money")}, {35, ZUTEXT("1")}, {4101, ZUTEXT("1")}};
    locale.ResetZULocaleInfo();
    locale.numbers.clear();
    locale.texts.clear();
    EXPECT_EQ(locale.Decimal(), ZUTEXT("a"));
    EXPECT_EQ(locale.DateSeparator(), ZUTEXT("-"));
    EXPECT_EQ(locale.DateOrder(), 2);
    EXPECT_EQ(locale.GetNumberFmtPtr()->NumDigits, 5u);
    EXPECT_EQ(wstring16(locale.GetCurrencySymbol()), ZUTEXT("money"));
    EXPECT_FALSE(locale.TimeInfo().twelveHour);
    EXPECT_EQ(locale.TimeInfo().markPosition, 1);
}

TEST(LocaleRefresh, FailedReadsSetTimeTextsBackSaveTheSecondSeparator) {
    ScriptedLocale locale;
    locale.texts = {{4099, ZUTEXT("H")}, {40, ZUTEXT("am")}, {41, ZUTEXT("pm")}, {30, ZUTEXT("h")}};
    locale.ResetZULocaleInfo();
    locale.texts.clear();
    EXPECT_EQ(locale.TimeFormat(), ZUTEXT("h:mm:ss tt"));
    const auto time = locale.TimeInfo();
    EXPECT_EQ(time.am, ZUTEXT("AM"));
    EXPECT_EQ(time.pm, ZUTEXT("PM"));
    EXPECT_EQ(time.separator, ZUTEXT(":"));
    EXPECT_EQ(time.separator2, ZUTEXT("h")) << "only the first copy goes back";
}

TEST(LocaleRefresh, ClockIsOfTwelveHoursExactlyWhenTheValueReadsZero) {
    ScriptedLocale locale;
    const struct {
        const wchar16* text;
        bool twelveHour;
    } cases[] = {{ZUTEXT("1"), false}, {ZUTEXT("0"), true},  {ZUTEXT("2"), false},
                 {ZUTEXT(""), true},   {ZUTEXT("x1"), true}, {ZUTEXT("-1"), false}};
    for (const auto& [text, twelveHour] : cases) {
        locale.texts[35] = text;
        EXPECT_EQ(locale.TimeInfo().twelveHour, twelveHour);
    }
}

TEST(LocaleRefresh, TextsThatFillTheirPlaceAreTakenAndLongerOnesRefused) {
    ScriptedLocale locale;
    const auto text = [](std::size_t length) { return wstring16(length, 'x'); };
    locale.texts = {{20, text(15)}, {4099, text(35)}, {40, text(19)}, {41, text(19)}, {30, text(3)}, {29, text(1)}};
    EXPECT_EQ(wstring16(locale.GetCurrencySymbol()), text(15));
    EXPECT_EQ(locale.TimeFormat(), text(35));
    EXPECT_EQ(locale.TimeInfo().am, text(19));
    EXPECT_EQ(locale.TimeInfo().separator2, text(3));
    locale.texts = {{20, text(16)}, {4099, text(36)}, {40, text(20)}, {41, text(20)}, {30, text(4)}, {29, text(2)}};
    EXPECT_EQ(wstring16(locale.GetCurrencySymbol()), text(15));
    EXPECT_EQ(locale.TimeFormat(), ZUTEXT("h:mm:ss tt"));
    EXPECT_EQ(locale.TimeInfo().pm, ZUTEXT("PM"));
    EXPECT_EQ(locale.TimeInfo().separator, ZUTEXT(":"));
    EXPECT_EQ(locale.DateSeparator(), ZUTEXT("x"));
}

TEST(LocaleRefresh, PointersThatACallerTurnedAwayAreNotWrittenThrough) {
    ScriptedLocale locale;
    wchar16 callers[] = ZUTEXT("mine");
    locale.GetNumberFmtPtr()->lpDecimalSep = callers;
    locale.texts = {{14, ZUTEXT("x")}};
    EXPECT_EQ(locale.Decimal(), ZUTEXT("x"));
    EXPECT_EQ(wstring16(callers), ZUTEXT("mine"));
}

// ---- Memory

TEST(LocaleInfoMemory, NoServiceAndNothingLostWhereARequestIsRefused) {
    const uint64 requests = test::RefuseEachRequest([](uint64 nth, FailingHeap::Mode mode) {
        const int64 before = test::LiveBlocks();
        bool refused;
        cLocaleInfo* service;
        {
            const FailingHeap heap(nth, mode);
            service = cLocaleInfo::Create();
            refused = heap.Refused();
        }
        EXPECT_EQ(service == nullptr, refused) << nth;
        EXPECT_TRUE(service != nullptr || test::LiveBlocks() == before) << nth;
        delete service;
        EXPECT_EQ(test::LiveBlocks(), before) << nth;
        return refused;
    });
    EXPECT_EQ(requests, 6u) << "the object and its five texts";
}

TEST(LocaleInfoMemory, ConstructorThrowsItsNumber) {
    const FailingHeap heap(1);
    int thrown = 0;
    try {
        const cLocaleInfoImpl locale;
    } catch (cLocaleInfoImpl::eCreateError error) {
        thrown = error;
    }
    EXPECT_EQ(thrown, 1);
}

TEST(LocaleInfoMemory, LongValueIsNoneWhereItsRequestIsRefused) {
    const FailingHeap heap(1);
    const LocaleValue<2> value(0x409, LOCALE_STIMEFORMAT);
    EXPECT_TRUE(heap.Refused());
    EXPECT_EQ(value.Units(), 0);
    EXPECT_EQ(value.Text()[0], 0);
}

// ---- Reading one value, against the plain way: ask for the length, then read.

template <int BufferSize>
void ExpectSameAsAskingTwice(uint32 locale, uint32 type) {
    wchar16 plain[400] = {};
    const int needed = platform::GetLocaleInfoW(locale, type, nullptr, 0);
    if (needed != 0) {
        ASSERT_EQ(platform::GetLocaleInfoW(locale, type, plain, needed), needed);
    }
    const LocaleValue<BufferSize> value(locale, type);
    EXPECT_EQ(value.Units(), needed) << locale << ' ' << type;
    EXPECT_EQ(wstring16(value.Text()), wstring16(plain)) << locale << ' ' << type;
}

TEST(LocaleValues, AreTheSameWhetherTheyFitTheBufferOrNot) {
    for (const uint32 locale : {0x409u, 0x407u, 0x439u, 0x411u, 0x7Fu, 0u, 0x1234u}) {
        for (uint32 type = LOCALE_SDECIMAL; type <= LOCALE_SABBREVMONTHNAME1 + 11; ++type) {
            // Types that the library does not read may exist on one system and not on the other.
            if (type == LOCALE_SDECIMAL || type >= LOCALE_SSHORTDATE) {
                ExpectSameAsAskingTwice<2>(locale, type);
                ExpectSameAsAskingTwice<3>(locale, type);
                ExpectSameAsAskingTwice<80>(locale, type);
            }
        }
        ExpectSameAsAskingTwice<2>(locale, 0x2000);
        ExpectSameAsAskingTwice<80>(locale, 0x2000);
    }
}

TEST(LocaleValues, InBinaryHaveATerminatorAllTheSame) {
    const LocaleValue<3> value(0x407, LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER);
    EXPECT_EQ(value.Units(), 2);
    EXPECT_EQ(value.Text()[0], 1252);
    EXPECT_EQ(value.Text()[1], 0);
    EXPECT_EQ(value.Text()[2], 0);
}

}  // namespace
}  // namespace locale_info_internal_test
