#include <Utility/Utility.h>
#include <gtest/gtest.h>
#include <support/thread_locale.h>
#include <support/vtable_slot.h>

#include <algorithm>
#include <memory>
#include <string>
#include <thread>

namespace locale_info_test {
namespace {

using namespace Torvo;

constexpr uint32 English = 0x409;
constexpr uint32 German = 0x407;
constexpr uint32 French = 0x40C;
constexpr uint32 Hindi = 0x439;
constexpr uint32 Hungarian = 0x40E;  // "2026. 11. 21.": a date separator of two characters
constexpr uint32 Japanese = 0x411;
constexpr uint32 Korean = 0x412;
constexpr uint32 Taiwanese = 0x404;  // the mark stands before the time
constexpr uint32 Finnish = 0x40B;    // 13.45.00

constexpr uint32 Decimal = 14;       // LOCALE_SDECIMAL
constexpr uint32 Grouping = 16;      // LOCALE_SGROUPING
constexpr uint32 DateOrder = 33;     // LOCALE_IDATE
constexpr uint32 TimeFormat = 4099;  // LOCALE_STIMEFORMAT
constexpr uint32 CodePage = 4100;    // LOCALE_IDEFAULTANSICODEPAGE
constexpr uint32 UnknownType = 0x2000;
constexpr wchar16 Untouched = 0x2591;

// Each test runs on the thread's own new service, in the locale that it sets, and leaves both as they were.
class LocaleInfo : public testing::Test {
protected:
    void SetUp() override { InstanceData::Destroy(false, false); }
    void TearDown() override { InstanceData::Destroy(false, false); }

private:
    const test::ThreadLocale former;
};

wstring16 DateSeparator() {
    wchar16 separator[2] = {};
    GetZULocaleDateInfo(true, nullptr, separator);
    return separator;
}

TEST(LocaleInfoService, OperationsStandInTheirPublishedOrder) {
    using test::SlotOf;
    EXPECT_EQ(SlotOf(&cLocaleInfo::ResetZULocaleInfo), 2u);
    EXPECT_EQ(SlotOf(&cLocaleInfo::GetLocaleIdentifier), 3u);
    EXPECT_EQ(SlotOf(&cLocaleInfo::GetLocaleInt), 4u);
    EXPECT_EQ(SlotOf(&cLocaleInfo::GetLocaleString), 5u);
    EXPECT_EQ(SlotOf(&cLocaleInfo::SetNumberFormatCallback), 6u);
    EXPECT_EQ(SlotOf(&cLocaleInfo::GetNumberFormatCallback), 7u);
    EXPECT_EQ(SlotOf(&cLocaleInfo::GetZULocaleNumInfo), 8u);
    EXPECT_EQ(SlotOf(&cLocaleInfo::GetCurrencySymbol), 9u);
    EXPECT_EQ(SlotOf(&cLocaleInfo::GetNumberFmt), 10u);
    EXPECT_EQ(SlotOf(&cLocaleInfo::GetCurrentFmt), 11u);
    EXPECT_EQ(SlotOf(&cLocaleInfo::GetNumberFmtPtr), 12u);
    EXPECT_EQ(SlotOf(&cLocaleInfo::GetCurrencyFmtPtr), 13u);
    EXPECT_EQ(SlotOf(&cLocaleInfo::SetDateFormatCallback), 14u);
    EXPECT_EQ(SlotOf(&cLocaleInfo::GetDateFormatCallback), 15u);
    EXPECT_EQ(SlotOf(&cLocaleInfo::GetZULocaleDateInfo), 16u);
    EXPECT_EQ(SlotOf(&cLocaleInfo::GetZULocaleTimeFormat), 17u);
    EXPECT_EQ(SlotOf(&cLocaleInfo::GetZULocaleTimeInfo), 18u);
}

// ---- The fixed forms

TEST_F(LocaleInfo, FixedNumbersAreTheSameEverywhereEvenBeforeAnyRefresh) {
    platform::SetThreadLocale(German);
    wchar16 decimal[] = {Untouched, Untouched};
    wchar16 thousand[] = {Untouched, Untouched};
    int16 group = -1;
    GetZULocaleNumInfo(false, decimal, thousand, &group);
    EXPECT_EQ(decimal[0], '.');
    EXPECT_EQ(thousand[0], ',');
    EXPECT_EQ(group, 3);
    EXPECT_EQ(decimal[1], Untouched) << "one unit, no terminator";
    EXPECT_EQ(thousand[1], Untouched) << "one unit, no terminator";
}

TEST_F(LocaleInfo, FixedDateIsMonthFirstWithASlashAndNoTerminator) {
    platform::SetThreadLocale(German);
    int16 order = -1;
    wchar16 separator[] = {Untouched, Untouched};
    GetZULocaleDateInfo(false, &order, separator);
    EXPECT_EQ(order, 0);
    EXPECT_EQ(separator[0], '/');
    EXPECT_EQ(separator[1], Untouched);
}

TEST_F(LocaleInfo, FixedTimeFormatIsCutToTheBufferAndTheRestIsCleared) {
    wchar16 buffer[16];
    std::fill(std::begin(buffer), std::end(buffer), Untouched);
    GetZULocaleTimeFormat(false, buffer, 4);
    EXPECT_EQ(wstring16(buffer), ZUTEXT("h:m"));
    EXPECT_EQ(buffer[4], Untouched);

    GetZULocaleTimeFormat(false, buffer, 15);
    EXPECT_EQ(wstring16(buffer), ZUTEXT("h:mm:ss tt"));
    for (int i = 10; i < 15; ++i) EXPECT_EQ(buffer[i], 0) << i;
    EXPECT_EQ(buffer[15], Untouched);

    GetZULocaleTimeFormat(false, buffer, 1);
    EXPECT_EQ(buffer[0], 0);
    buffer[0] = Untouched;
    GetZULocaleTimeFormat(false, buffer, 0);
    EXPECT_EQ(buffer[0], Untouched);
}

TEST_F(LocaleInfo, FixedTimeInfoIsOfTwelveHours) {
    platform::SetThreadLocale(German);
    bool twelveHour = false;
    int16 position = -1;
    const wchar16* am = nullptr;
    const wchar16* pm = nullptr;
    const wchar16* separator = nullptr;
    const wchar16* separator2 = nullptr;
    GetZULocaleTimeInfo(false, &twelveHour, &position, &am, &pm, &separator, &separator2);
    EXPECT_TRUE(twelveHour);
    EXPECT_EQ(position, 0);
    EXPECT_EQ(wstring16(am), ZUTEXT("AM"));
    EXPECT_EQ(wstring16(pm), ZUTEXT("PM"));
    EXPECT_EQ(wstring16(separator), ZUTEXT(":"));
    EXPECT_EQ(wstring16(separator2), ZUTEXT(":"));
}

TEST_F(LocaleInfo, FixedFormsLeaveTheServiceAlone) {
    platform::SetThreadLocale(German);
    ResetZULocaleInfo();
    const wchar16* am;
    const wchar16* separator;
    GetZULocaleTimeInfo(true, nullptr, nullptr, &am, nullptr, &separator, nullptr);
    platform::SetThreadLocale(Japanese);
    wchar16 unit;
    int16 number;
    wchar16 text[40];
    bool twelveHour;
    GetZULocaleNumInfo(false, &unit, &unit, &number);
    GetZULocaleDateInfo(false, &number, &unit);
    GetZULocaleTimeFormat(false, text, 40);
    GetZULocaleTimeInfo(false, &twelveHour, nullptr, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(wstring16(am), ZUTEXT("AM")) << "still German";
    ResetZULocaleInfo();
    EXPECT_EQ(wstring16(am), ZUTEXT("\u5348\u524D"));
}

// ---- The locale's forms

struct Numbers {
    wchar16 decimal = 0;
    wchar16 thousand = 0;
    int16 group = 0;
};

Numbers NumbersOf(uint32 locale) {
    platform::SetThreadLocale(locale);
    Numbers numbers;
    GetZULocaleNumInfo(true, &numbers.decimal, &numbers.thousand, &numbers.group);
    return numbers;
}

TEST_F(LocaleInfo, NumbersFollowTheThreadsLocaleAtOnce) {
    EXPECT_EQ(NumbersOf(English).decimal, '.');
    EXPECT_EQ(NumbersOf(English).thousand, ',');
    EXPECT_EQ(NumbersOf(German).decimal, ',');
    EXPECT_EQ(NumbersOf(German).thousand, '.');
    EXPECT_EQ(NumbersOf(French).thousand, 0xA0);
    EXPECT_EQ(NumbersOf(English).group, 3);
}

TEST_F(LocaleInfo, GroupingOfSeveralSizesReadsAsItsFirst) {
    EXPECT_EQ(NumbersOf(Hindi).group, 3);
    wchar16 grouping[10];
    ASSERT_TRUE(GetLocaleString(Grouping, grouping, 10));
    EXPECT_EQ(wstring16(grouping), ZUTEXT("3;2;0"));
    uint32 number = 0;
    EXPECT_TRUE(GetLocaleInt(Grouping, &number));
    EXPECT_EQ(number, 3u);
}

TEST_F(LocaleInfo, DateOrderAndSeparatorFollowTheLocale) {
    const struct {
        uint32 locale;
        int16 order;
        wchar16 separator;
    } cases[] = {{English, 0, '/'}, {German, 1, '.'}, {Japanese, 2, '/'}, {French, 1, '/'}};
    for (const auto& [locale, order, separator] : cases) {
        platform::SetThreadLocale(locale);
        int16 gotOrder = -1;
        wchar16 gotSeparator[] = {Untouched, Untouched};
        GetZULocaleDateInfo(true, &gotOrder, gotSeparator);
        EXPECT_EQ(gotOrder, order) << locale;
        EXPECT_EQ(gotSeparator[0], separator) << locale;
        EXPECT_EQ(gotSeparator[1], Untouched) << locale;
    }
}

TEST_F(LocaleInfo, DateSeparatorOfTwoCharactersKeepsTheLastSingleOne) {
    platform::SetThreadLocale(Hungarian);
    EXPECT_EQ(DateSeparator(), ZUTEXT("/")) << "the default of a new service";
    platform::SetThreadLocale(German);
    EXPECT_EQ(DateSeparator(), ZUTEXT("."));
    platform::SetThreadLocale(Hungarian);
    EXPECT_EQ(DateSeparator(), ZUTEXT(".")) << "what was read last";
    platform::SetThreadLocale(English);
    EXPECT_EQ(DateSeparator(), ZUTEXT("/"));
    platform::SetThreadLocale(Korean);
    EXPECT_EQ(DateSeparator(), ZUTEXT("/"));
}

TEST_F(LocaleInfo, TimeFormatFollowsTheLocale) {
    wchar16 buffer[40];
    platform::SetThreadLocale(German);
    GetZULocaleTimeFormat(true, buffer, 40);
    EXPECT_EQ(wstring16(buffer), ZUTEXT("HH:mm:ss"));
    platform::SetThreadLocale(English);
    GetZULocaleTimeFormat(true, buffer, 5);
    EXPECT_EQ(wstring16(buffer), ZUTEXT("h:mm"));
}

TEST_F(LocaleInfo, TimeInfoFollowsTheLocale) {
    bool twelveHour = true;
    int16 position = -1;
    const wchar16* am = nullptr;
    const wchar16* pm = nullptr;
    const wchar16* separator = nullptr;
    const wchar16* separator2 = nullptr;
    platform::SetThreadLocale(Finnish);
    GetZULocaleTimeInfo(true, &twelveHour, &position, &am, &pm, &separator, &separator2);
    EXPECT_FALSE(twelveHour);
    EXPECT_EQ(position, 0);
    EXPECT_EQ(wstring16(am), ZUTEXT("ap."));
    EXPECT_EQ(wstring16(pm), ZUTEXT("ip."));
    EXPECT_EQ(wstring16(separator), ZUTEXT("."));
    EXPECT_EQ(wstring16(separator2), ZUTEXT("."));
    EXPECT_NE(separator, separator2) << "two copies";

    platform::SetThreadLocale(Taiwanese);
    GetZULocaleTimeInfo(true, &twelveHour, &position, nullptr, nullptr, nullptr, nullptr);
    EXPECT_TRUE(twelveHour);
    EXPECT_EQ(position, 1);
    EXPECT_EQ(wstring16(am), ZUTEXT("\u4E0A\u5348")) << "the pointer shows the new mark";
}

TEST_F(LocaleInfo, TimeInfoWithoutOutputsStillRefreshes) {
    platform::SetThreadLocale(German);
    const wchar16* const symbol = GetCurrencySymbol();
    platform::SetThreadLocale(Japanese);
    GetZULocaleTimeInfo(false, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(wstring16(symbol), ZUTEXT("\u20AC"));
    GetZULocaleTimeInfo(true, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(wstring16(symbol), ZUTEXT("\uFFE5"));
}

TEST_F(LocaleInfo, EarlierPointerToTheCurrencySymbolShowsTheNewOneAfterARefresh) {
    platform::SetThreadLocale(English);
    const wchar16* const symbol = GetCurrencySymbol();
    EXPECT_EQ(wstring16(symbol), ZUTEXT("$"));
    platform::SetThreadLocale(German);
    EXPECT_EQ(wstring16(symbol), ZUTEXT("$"));
    EXPECT_TRUE(ResetZULocaleInfo());
    EXPECT_EQ(wstring16(symbol), ZUTEXT("\u20AC"));
    EXPECT_EQ(GetCurrencySymbol(), symbol);
}

TEST_F(LocaleInfo, NumberFormatIsGivenAsACopyAndAsThePointer) {
    platform::SetThreadLocale(German);
    _numberfmtW format{};
    EXPECT_TRUE(GetNumberFmt(&format));
    EXPECT_EQ(format.NumDigits, 2u);
    EXPECT_EQ(format.LeadingZero, 1u);
    EXPECT_EQ(format.Grouping, 3u);
    EXPECT_EQ(wstring16(format.lpDecimalSep), ZUTEXT(","));
    EXPECT_EQ(wstring16(format.lpThousandSep), ZUTEXT("."));
    EXPECT_EQ(format.NegativeOrder, 1u);

    _numberfmtW* const own = GetNumberFmtPtr();
    EXPECT_NE(own, &format);
    EXPECT_EQ(own->lpDecimalSep, format.lpDecimalSep) << "the texts are the service's";
    platform::SetThreadLocale(English);
    EXPECT_EQ(GetNumberFmtPtr(), own);
    EXPECT_EQ(wstring16(format.lpDecimalSep), ZUTEXT("."));
}

TEST_F(LocaleInfo, CurrencyFormatIsGivenAsACopyAndAsThePointer) {
    platform::SetThreadLocale(German);
    _currencyfmtW format{};
    EXPECT_TRUE(GetCurrentFmt(&format));
    EXPECT_EQ(format.NumDigits, 2u);
    EXPECT_EQ(format.LeadingZero, 1u);
    EXPECT_EQ(format.Grouping, 3u);
    EXPECT_EQ(wstring16(format.lpDecimalSep), ZUTEXT(","));
    EXPECT_EQ(wstring16(format.lpThousandSep), ZUTEXT("."));
    EXPECT_EQ(format.NegativeOrder, 8u);
    EXPECT_EQ(format.PositiveOrder, 3u);
    EXPECT_EQ(wstring16(format.lpCurrencySymbol), ZUTEXT("\u20AC"));

    _currencyfmtW* const own = GetCurrencyFmtPtr();
    EXPECT_EQ(own->lpCurrencySymbol, format.lpCurrencySymbol);
    EXPECT_EQ(GetCurrencySymbol(), format.lpCurrencySymbol);
    platform::SetThreadLocale(Japanese);
    EXPECT_EQ(GetCurrencyFmtPtr(), own);
    EXPECT_EQ(own->NumDigits, 0u);
}

TEST_F(LocaleInfo, NullWhereAStructureBelongsIsRefused) {
    EXPECT_FALSE(GetNumberFmt(nullptr));
    EXPECT_FALSE(GetCurrentFmt(nullptr));
    GetZULocaleNumInfo(true, nullptr, nullptr, nullptr);
    GetZULocaleDateInfo(true, nullptr, nullptr);
    GetZULocaleTimeFormat(true, nullptr, 10);
    EXPECT_FALSE(GetLocaleInt(Decimal, nullptr));
    EXPECT_FALSE(GetLocaleString(Decimal, nullptr, 10));
}

// ---- Single values

TEST_F(LocaleInfo, IdentifierIsAskedOfTheSystemEachTime) {
    for (const uint32 locale : {German, English, Japanese}) {
        platform::SetThreadLocale(locale);
        EXPECT_EQ(GetLocaleIdentifier(), locale);
    }
}

TEST_F(LocaleInfo, SingleValuesAreOfTheLastIdentifier) {
    platform::SetThreadLocale(German);
    ResetZULocaleInfo();
    platform::SetThreadLocale(Japanese);
    uint32 number = 0;
    EXPECT_TRUE(GetLocaleInt(CodePage, &number));
    EXPECT_EQ(number, 1252u) << "neither a refresh nor GetLocaleIdentifier since";
    GetLocaleIdentifier();
    EXPECT_TRUE(GetLocaleInt(CodePage, &number));
    EXPECT_EQ(number, 932u);
    EXPECT_TRUE(GetLocaleInt(DateOrder, &number));
    EXPECT_EQ(number, 2u);
}

TEST_F(LocaleInfo, NewServiceReadsTheUsersDefault) {
    const std::unique_ptr<cLocaleInfo> service(cLocaleInfo::Create());
    uint32 byDefault = 0;
    uint32 byIdentifier = 0;
    platform::SetThreadLocale(Japanese);
    EXPECT_TRUE(service->GetLocaleInt(CodePage, &byDefault)) << "nobody has asked for the thread's locale yet";
    platform::SetThreadLocale(0x400);  // the user's default
    EXPECT_NE(service->GetLocaleIdentifier(), 0u);
    EXPECT_TRUE(service->GetLocaleInt(CodePage, &byIdentifier));
    EXPECT_EQ(byDefault, byIdentifier);
}

TEST_F(LocaleInfo, NumberOfATextWithoutOneIsZero) {
    platform::SetThreadLocale(English);
    ResetZULocaleInfo();
    uint32 number = 7;
    EXPECT_TRUE(GetLocaleInt(TimeFormat, &number));
    EXPECT_EQ(number, 0u);
}

TEST_F(LocaleInfo, FailedReadsTouchNothing) {
    platform::SetThreadLocale(English);
    ResetZULocaleInfo();
    uint32 number = 7;
    EXPECT_FALSE(GetLocaleInt(UnknownType, &number));
    EXPECT_EQ(number, 7u);
    wchar16 buffer[] = {Untouched, Untouched, Untouched};
    EXPECT_FALSE(GetLocaleString(UnknownType, buffer, 3));
    EXPECT_FALSE(GetLocaleString(UnknownType, buffer, 0));
    for (const wchar16 unit : buffer) EXPECT_EQ(unit, Untouched);
}

TEST_F(LocaleInfo, TextThatNeedsOneUnitMoreIsRefusedAndTheBufferKept) {
    platform::SetThreadLocale(English);
    ResetZULocaleInfo();
    wchar16 buffer[20];
    std::fill(std::begin(buffer), std::end(buffer), Untouched);
    EXPECT_FALSE(GetLocaleString(TimeFormat, buffer, 10));
    EXPECT_FALSE(GetLocaleString(TimeFormat, buffer, 0));
    for (const wchar16 unit : buffer) EXPECT_EQ(unit, Untouched);
    EXPECT_TRUE(GetLocaleString(TimeFormat, buffer, 11));
    EXPECT_EQ(wstring16(buffer), ZUTEXT("h:mm:ss tt"));
    EXPECT_EQ(buffer[11], Untouched);
    EXPECT_TRUE(GetLocaleString(Decimal, buffer, ~uint64{0})) << "any size, beyond the system's own as well";
    EXPECT_EQ(wstring16(buffer), ZUTEXT("."));
    EXPECT_EQ(buffer[2], 'm') << "no more is written than was read";
}

// ---- The callbacks

int asked = 0;
bool AnswerTrue() {
    ++asked;
    return true;
}
bool AnswerFalse() {
    ++asked;
    return false;
}

TEST_F(LocaleInfo, CallbacksAreStoredReplacedAndCleared) {
    EXPECT_EQ(GetDateFormatCallback(), nullptr);
    EXPECT_EQ(GetNumberFormatCallback(), nullptr);
    EXPECT_TRUE(SetDateFormatCallback(AnswerTrue));
    EXPECT_EQ(GetDateFormatCallback(), &AnswerTrue);
    EXPECT_EQ(GetNumberFormatCallback(), nullptr) << "each has its own";
    EXPECT_TRUE(SetNumberFormatCallback(AnswerFalse));
    EXPECT_TRUE(SetDateFormatCallback(AnswerFalse));
    EXPECT_EQ(GetDateFormatCallback(), &AnswerFalse);
    EXPECT_TRUE(SetDateFormatCallback(nullptr));
    EXPECT_EQ(GetDateFormatCallback(), nullptr);
    EXPECT_EQ(GetNumberFormatCallback(), &AnswerFalse);
}

TEST_F(LocaleInfo, CallbacksSurviveRefreshesAreNeverCalledByItAndEndWithTheInstance) {
    asked = 0;
    SetDateFormatCallback(AnswerTrue);
    SetNumberFormatCallback(AnswerTrue);
    ResetZULocaleInfo();
    EXPECT_EQ(NumbersOf(German).decimal, ',') << "the caller of the query has decided already";
    EXPECT_EQ(GetDateFormatCallback(), &AnswerTrue);
    EXPECT_EQ(GetNumberFormatCallback(), &AnswerTrue);
    EXPECT_EQ(asked, 0);
    InstanceData::Destroy(false, false);
    EXPECT_EQ(GetDateFormatCallback(), nullptr);
    EXPECT_EQ(GetNumberFormatCallback(), nullptr);
}

// ---- Threads and services

TEST_F(LocaleInfo, EachThreadHasALocaleAndSettingsOfItsOwn) {
    platform::SetThreadLocale(German);
    const wchar16* const symbol = GetCurrencySymbol();
    SetDateFormatCallback(AnswerTrue);
    std::thread([] {
        platform::SetThreadLocale(Japanese);
        EXPECT_EQ(wstring16(GetCurrencySymbol()), ZUTEXT("\uFFE5"));
        EXPECT_EQ(GetDateFormatCallback(), nullptr);
        InstanceData::Destroy(false, true);
    }).join();
    EXPECT_EQ(GetLocaleIdentifier(), German);
    EXPECT_EQ(wstring16(symbol), ZUTEXT("\u20AC"));
}

TEST_F(LocaleInfo, CreateGivesAServiceThatNobodyHolds) {
    cLocaleInfo* const service = cLocaleInfo::Create();
    ASSERT_NE(service, nullptr);
    EXPECT_NE(service, cLocaleInfo::Instance());
    platform::SetThreadLocale(German);
    EXPECT_EQ(wstring16(service->GetCurrencySymbol()), ZUTEXT("\u20AC"));
    delete service;
}

// A host that answers by itself.
class OwnLocale : public cLocaleInfo {
public:
    bool ResetZULocaleInfo() override { return ++resets > 0; }
    uint32 GetLocaleIdentifier() override { return 4711; }
    bool GetLocaleInt(uint32 lctype, uint32* value) override {
        *value = lctype;
        return true;
    }
    bool GetLocaleString(uint32, wchar16*, uint64) override { return false; }
    bool SetNumberFormatCallback(bool (*)()) override { return false; }
    bool (*GetNumberFormatCallback())() override { return AnswerTrue; }
    void GetZULocaleNumInfo(bool, wchar16*, wchar16*, int16* group) override { *group = 9; }
    const wchar16* GetCurrencySymbol() override { return ZUTEXT("own"); }
    bool GetNumberFmt(_numberfmtW*) override { return false; }
    bool GetCurrentFmt(_currencyfmtW*) override { return false; }
    _numberfmtW* GetNumberFmtPtr() override { return &number; }
    _currencyfmtW* GetCurrencyFmtPtr() override { return &currency; }
    bool SetDateFormatCallback(bool (*)()) override { return false; }
    bool (*GetDateFormatCallback())() override { return AnswerFalse; }
    void GetZULocaleDateInfo(bool, int16* order, wchar16*) override { *order = 8; }
    void GetZULocaleTimeFormat(bool, wchar16* buffer, uint64) override { *buffer = 'x'; }
    void GetZULocaleTimeInfo(bool, bool*, int16* position, const wchar16**, const wchar16**, const wchar16**,
                             const wchar16**) override {
        *position = 7;
    }

    int resets = 0;
    _numberfmtW number{};
    _currencyfmtW currency{};
};

TEST_F(LocaleInfo, EveryFunctionForwardsToTheServiceThatWasPutIn) {
    cLocaleInfo* const original = cLocaleInfo::Instance();
    OwnLocale own;
    ASSERT_TRUE(cLocaleInfo::Instance(&own));
    EXPECT_EQ(cLocaleInfo::Instance(), &own);
    uint32 number = 0;
    int16 small = 0;
    wchar16 unit = 0;
    _numberfmtW numberFormat{};
    _currencyfmtW currencyFormat{};
    EXPECT_TRUE(ResetZULocaleInfo());
    EXPECT_EQ(own.resets, 1);
    EXPECT_EQ(GetLocaleIdentifier(), 4711u);
    EXPECT_TRUE(GetLocaleInt(5, &number));
    EXPECT_EQ(number, 5u);
    EXPECT_FALSE(GetLocaleString(Decimal, &unit, 1));
    EXPECT_FALSE(SetNumberFormatCallback(nullptr));
    EXPECT_EQ(GetNumberFormatCallback(), &AnswerTrue);
    GetZULocaleNumInfo(false, &unit, &unit, &small);
    EXPECT_EQ(small, 9);
    EXPECT_EQ(wstring16(GetCurrencySymbol()), ZUTEXT("own"));
    EXPECT_FALSE(GetNumberFmt(&numberFormat));
    EXPECT_FALSE(GetCurrentFmt(&currencyFormat));
    EXPECT_EQ(GetNumberFmtPtr(), &own.number);
    EXPECT_EQ(GetCurrencyFmtPtr(), &own.currency);
    EXPECT_FALSE(SetDateFormatCallback(nullptr));
    EXPECT_EQ(GetDateFormatCallback(), &AnswerFalse);
    GetZULocaleDateInfo(false, &small, &unit);
    EXPECT_EQ(small, 8);
    GetZULocaleTimeFormat(false, &unit, 1);
    EXPECT_EQ(unit, 'x');
    GetZULocaleTimeInfo(false, nullptr, &small, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(small, 7);
    EXPECT_TRUE(cLocaleInfo::Instance(original));
    EXPECT_NE(GetLocaleIdentifier(), 4711u);
}

}  // namespace
}  // namespace locale_info_test
